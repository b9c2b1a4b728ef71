// Where a key moves from a cell of the grid: pure rules, no control.
//
//   const GridView view{.first_column = 1, .first_row = 1, .variables = 3, .rows = 2};
//   step_from({CellArray::RowF, 3}, Step::Forward, view);   // to txtTableau 1: row 1, column 1
//
// The reading order is row F from the first to the last decision variable, then each row followed by its
// right-hand side, and from the last right-hand side back to row F. Columns of other variables cannot be
// typed in and are not entered.
#pragma once

#include <cstdint>
#include <optional>

namespace tabulon {

// How many rows and columns the grid shows at a time.
inline constexpr int grid_rows = 7, grid_columns = 5;

enum class CellArray : std::uint8_t { RowF, Cells, RightHandSides };  // txtRij_F, txtTableau, txtRL

// A box of the grid: its array, and its index there, from 1.
struct GridBox {
  CellArray array = CellArray::RowF;
  int index = 1;
  friend bool operator==(const GridBox&, const GridBox&) = default;
};

// What the grid shows, and the size of what can be typed in.
struct GridView {
  int first_column = 1, first_row = 1;
  int variables = 0;  // decision variables
  int rows = 0;
};

enum class Step : std::uint8_t { Forward, Backward, Down, Up };

// Where a step ends: the box, and the view that shows it.
struct Landing {
  GridBox box;
  int first_column = 1, first_row = 1;
  friend bool operator==(const Landing&, const Landing&) = default;
};

// Nothing when the step leads nowhere.
std::optional<Landing> step_from(GridBox from, Step step, const GridView& view);

}  // namespace tabulon
