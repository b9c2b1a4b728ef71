#include "shell/navigation.h"

#include <algorithm>

namespace tabulon {

namespace {

// The step's start, in boxes and in the tableau.
struct Place {
  GridBox box;
  int box_row, box_column;
  int row, column;
};

Place place_of(GridBox box, const GridView& view) {
  Place place{box, 1, box.index, 0, 0};
  if (box.array == CellArray::Cells) {
    place.box_row = (box.index - 1) / grid_columns + 1;
    place.box_column = (box.index - 1) % grid_columns + 1;
  } else if (box.array == CellArray::RightHandSides) {
    place.box_row = box.index;
    place.box_column = 0;
  }
  place.row = view.first_row + place.box_row - 1;
  place.column = view.first_column + place.box_column - 1;
  return place;
}

GridBox row_F(int column) {
  return {CellArray::RowF, column};
}
GridBox cell(int row, int column) {
  return {CellArray::Cells, (row - 1) * grid_columns + column};
}
GridBox right_hand_side(int row) {
  return {CellArray::RightHandSides, row};
}

// The view whose last column is the last decision variable.
int last_columns(const GridView& view) {
  return std::max(1, view.variables - (grid_columns - 1));
}
// The first column stands in where there are no decision variables at all.
int last_box_column(const GridView& view) {
  return std::clamp(view.variables, 1, grid_columns);
}

Landing stay(GridBox box, const GridView& view) {
  return {box, view.first_column, view.first_row};
}

std::optional<Landing> forward(const Place& from, const GridView& view) {
  switch (from.box.array) {
    case CellArray::RowF:
      if (from.column >= view.variables) return Landing{cell(1, 1), 1, 1};
      if (from.box_column < grid_columns) return stay(row_F(from.box_column + 1), view);
      return Landing{from.box, view.first_column + 1, view.first_row};
    case CellArray::Cells:
      if (from.column >= view.variables) return stay(right_hand_side(from.box_row), view);
      if (from.box_column < grid_columns) return stay(cell(from.box_row, from.box_column + 1), view);
      return Landing{from.box, view.first_column + 1, view.first_row};
    case CellArray::RightHandSides:
      if (from.row >= view.rows) return Landing{row_F(1), 1, 1};
      if (from.box_row < grid_rows) return Landing{cell(from.box_row + 1, 1), 1, view.first_row};
      return Landing{cell(grid_rows, 1), 1, view.first_row + 1};
  }
  return {};
}

// From the first column of a row to the end of the row above.
Landing backward_to_row_above(const Place& from, const GridView& view) {
  if (from.row == 1) return {row_F(last_box_column(view)), last_columns(view), view.first_row};
  if (from.box_row == 1) return {right_hand_side(1), view.first_column, view.first_row - 1};
  const int first_column = view.variables > grid_columns ? last_columns(view) : view.first_column;
  return {right_hand_side(from.box_row - 1), first_column, view.first_row};
}

std::optional<Landing> backward(const Place& from, const GridView& view) {
  if (from.box.array == CellArray::RightHandSides)
    return Landing{cell(from.box_row, last_box_column(view)), last_columns(view), view.first_row};
  if (from.box_column > 1) return stay({from.box.array, from.box.index - 1}, view);
  if (from.column > 1) return Landing{from.box, view.first_column - 1, view.first_row};
  if (from.box.array == CellArray::RowF) return {};
  return backward_to_row_above(from, view);
}

std::optional<Landing> down(const Place& from, const GridView& view) {
  if (from.box.array == CellArray::RowF) return Landing{cell(1, from.box_column), view.first_column, 1};
  if (from.row >= view.rows) return {};
  if (from.box_row == grid_rows) return Landing{from.box, view.first_column, view.first_row + 1};
  return stay({from.box.array, from.box.index + (from.box.array == CellArray::Cells ? grid_columns : 1)},
              view);
}

std::optional<Landing> up(const Place& from, const GridView& view) {
  if (from.box.array == CellArray::RowF) return {};
  if (from.row <= 1) {
    if (from.box.array == CellArray::RightHandSides) return {};
    return stay(row_F(from.box_column), view);
  }
  if (from.box_row == 1) return Landing{from.box, view.first_column, view.first_row - 1};
  return stay({from.box.array, from.box.index - (from.box.array == CellArray::Cells ? grid_columns : 1)},
              view);
}

}  // namespace

std::optional<Landing> step_from(GridBox from, Step step, const GridView& view) {
  const Place place = place_of(from, view);
  switch (step) {
    case Step::Forward:
      return forward(place, view);
    case Step::Backward:
      return backward(place, view);
    case Step::Down:
      return down(place, view);
    case Step::Up:
      return up(place, view);
  }
  return {};
}

}  // namespace tabulon
