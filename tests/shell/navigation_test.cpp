#include "shell/navigation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

namespace tabulon {

void PrintTo(const GridBox& box, std::ostream* out) {
  static constexpr const char* names[] = {"txtRij_F", "txtTableau", "txtRL"};
  *out << names[static_cast<int>(box.array)] << " " << box.index;
}
void PrintTo(const Landing& landing, std::ostream* out) {
  PrintTo(landing.box, out);
  *out << " from column " << landing.first_column << ", row " << landing.first_row;
}

namespace {

constexpr GridBox F(int index) {
  return {CellArray::RowF, index};
}
constexpr GridBox T(int index) {
  return {CellArray::Cells, index};
}
constexpr GridBox RL(int index) {
  return {CellArray::RightHandSides, index};
}

// ---- The rules, one by one

struct Move {
  const char* what;
  GridBox from;
  Step step;
  GridView view;
  std::optional<Landing> landing;
};

void PrintTo(const Move& move, std::ostream* out) {
  *out << move.what;
}

constexpr GridView small{.first_column = 1, .first_row = 1, .variables = 2, .rows = 3};
constexpr GridView large{.first_column = 1, .first_row = 1, .variables = 8, .rows = 9};
constexpr GridView scrolled{.first_column = 3, .first_row = 2, .variables = 8, .rows = 9};
constexpr GridView at_the_end{.first_column = 4, .first_row = 3, .variables = 8, .rows = 9};

const Move moves[] = {
    // Forward
    {"next in row F", F(1), Step::Forward, small, Landing{F(2), 1, 1}},
    {"last of row F", F(2), Step::Forward, small, Landing{T(1), 1, 1}},
    {"beyond the last of row F", F(4), Step::Forward, small, Landing{T(1), 1, 1}},
    {"edge of row F", F(5), Step::Forward, large, Landing{F(5), 2, 1}},
    {"edge of row F, scrolled", F(5), Step::Forward, scrolled, Landing{F(5), 4, 2}},
    {"last of row F, scrolled", F(5), Step::Forward, at_the_end, Landing{T(1), 1, 1}},
    {"next cell", T(6), Step::Forward, small, Landing{T(7), 1, 1}},
    {"last cell of a row", T(7), Step::Forward, small, Landing{RL(2), 1, 1}},
    {"a slack cell", T(9), Step::Forward, small, Landing{RL(2), 1, 1}},
    {"edge of the cells", T(10), Step::Forward, large, Landing{T(10), 2, 1}},
    {"last cell, scrolled", T(10), Step::Forward, at_the_end, Landing{RL(2), 4, 3}},
    {"right-hand side to the next row", RL(2), Step::Forward, small, Landing{T(11), 1, 1}},
    {"last right-hand side", RL(3), Step::Forward, small, Landing{F(1), 1, 1}},
    {"right-hand side, scrolled", RL(2), Step::Forward, at_the_end, Landing{T(11), 1, 3}},
    {"lowest right-hand side of the grid", RL(7), Step::Forward, large, Landing{T(31), 1, 2}},
    {"lowest right-hand side, scrolled", RL(7), Step::Forward, scrolled, Landing{T(31), 1, 3}},
    {"last right-hand side, scrolled", RL(7), Step::Forward, at_the_end, Landing{F(1), 1, 1}},
    // Backward
    {"previous in row F", F(2), Step::Backward, small, Landing{F(1), 1, 1}},
    {"first of row F", F(1), Step::Backward, small, {}},
    {"left edge of row F", F(1), Step::Backward, scrolled, Landing{F(1), 2, 2}},
    {"previous cell", T(7), Step::Backward, small, Landing{T(6), 1, 1}},
    {"left edge of the cells", T(6), Step::Backward, scrolled, Landing{T(6), 2, 2}},
    {"first cell of the first row", T(1), Step::Backward, small, Landing{F(2), 1, 1}},
    {"first cell of the first row of many columns", T(1), Step::Backward, large, Landing{F(5), 4, 1}},
    {"first cell of a row", T(6), Step::Backward, small, Landing{RL(1), 1, 1}},
    {"first cell of a row of many columns", T(6), Step::Backward, large, Landing{RL(1), 4, 1}},
    {"first cell of the first row shown", T(1), Step::Backward, {1, 3, 8, 9}, Landing{RL(1), 1, 2}},
    {"right-hand side", RL(2), Step::Backward, small, Landing{T(7), 1, 1}},
    {"right-hand side of many columns", RL(2), Step::Backward, large, Landing{T(10), 4, 1}},
    {"right-hand side, scrolled to the slacks", RL(1), Step::Backward, {4, 1, 3, 9}, Landing{T(3), 1, 1}},
    {"right-hand side without variables", RL(2), Step::Backward, {1, 1, 0, 3}, Landing{T(6), 1, 1}},
    {"first cell without variables", T(1), Step::Backward, {1, 1, 0, 3}, Landing{F(1), 1, 1}},
    {"first cell of fewer than none", T(1), Step::Backward, {1, 1, -1, 3}, Landing{F(1), 1, 1}},
    // Down
    {"row F down", F(2), Step::Down, small, Landing{T(2), 1, 1}},
    {"row F down, scrolled", F(2), Step::Down, scrolled, Landing{T(2), 3, 1}},
    {"cell down", T(2), Step::Down, small, Landing{T(7), 1, 1}},
    {"last cell down", T(12), Step::Down, small, {}},
    {"lowest cell of the grid down", T(33), Step::Down, large, Landing{T(33), 1, 2}},
    {"last cell down, scrolled", T(33), Step::Down, at_the_end, {}},
    {"right-hand side down", RL(2), Step::Down, small, Landing{RL(3), 1, 1}},
    {"last right-hand side down", RL(3), Step::Down, small, {}},
    {"lowest right-hand side of the grid down", RL(7), Step::Down, scrolled, Landing{RL(7), 3, 3}},
    // Up
    {"row F up", F(2), Step::Up, small, {}},
    {"row F up, scrolled", F(2), Step::Up, scrolled, {}},
    {"first cell up", T(2), Step::Up, small, Landing{F(2), 1, 1}},
    {"first cell up, scrolled", T(5), Step::Up, {3, 1, 8, 9}, Landing{F(5), 3, 1}},
    {"cell up", T(12), Step::Up, small, Landing{T(7), 1, 1}},
    {"highest cell of the grid up", T(3), Step::Up, scrolled, Landing{T(3), 3, 1}},
    {"first right-hand side up", RL(1), Step::Up, small, {}},
    {"right-hand side up", RL(3), Step::Up, small, Landing{RL(2), 1, 1}},
    {"highest right-hand side of the grid up", RL(1), Step::Up, scrolled, Landing{RL(1), 3, 1}},
};

class Moves : public testing::TestWithParam<Move> {};

TEST_P(Moves, EndWhereTheyShould) {
  EXPECT_EQ(step_from(GetParam().from, GetParam().step, GetParam().view), GetParam().landing);
}

INSTANTIATE_TEST_SUITE_P(All, Moves, testing::ValuesIn(moves));

// ---- The walk as a whole, for every size and from every view

// A cell of the problem: row 0 is row F, column 0 a right-hand side.
struct Cell {
  int row, column;
  friend bool operator==(const Cell&, const Cell&) = default;
};

void PrintTo(const Cell& cell, std::ostream* out) {
  *out << "row " << cell.row << ", column " << cell.column;
}

Cell cell_of(GridBox box, int first_column, int first_row) {
  switch (box.array) {
    case CellArray::RowF:
      return {0, first_column + box.index - 1};
    case CellArray::Cells:
      return {first_row + (box.index - 1) / 5, first_column + (box.index - 1) % 5};
    case CellArray::RightHandSides:
      break;
  }
  return {first_row + box.index - 1, 0};
}

std::vector<Cell> reading_order(int variables, int rows) {
  std::vector<Cell> order;
  for (int column = 1; column <= variables; ++column) order.push_back({0, column});
  for (int row = 1; row <= rows; ++row) {
    for (int column = 1; column <= variables; ++column) order.push_back({row, column});
    order.push_back({row, 0});
  }
  return order;
}

// Walks `steps` steps from a box and tells the cells that were entered.
std::vector<Cell> walk(GridBox from, Step step, GridView view, std::size_t steps) {
  std::vector<Cell> entered{cell_of(from, view.first_column, view.first_row)};
  while (entered.size() <= steps) {
    const auto landing = step_from(from, step, view);
    if (!landing) break;
    from = landing->box;
    view.first_column = landing->first_column;
    view.first_row = landing->first_row;
    entered.push_back(cell_of(from, view.first_column, view.first_row));
  }
  return entered;
}

class EverySize : public testing::TestWithParam<std::tuple<int, int>> {
 protected:
  int variables = std::get<0>(GetParam()), rows = std::get<1>(GetParam());
};

TEST_P(EverySize, ForwardReadsTheWholeProblemAndBeginsAgain) {
  auto order = reading_order(variables, rows);
  const std::size_t steps = order.size();
  order.push_back({0, 1});
  EXPECT_EQ(walk(F(1), Step::Forward, {1, 1, variables, rows}, steps), order);
}

TEST_P(EverySize, BackwardReadsItInReverseAndStopsAtTheBeginning) {
  auto order = reading_order(variables, rows);
  std::ranges::reverse(order);
  const int shown_rows = std::min(rows, 7);
  const GridView last_rows{1, rows - shown_rows + 1, variables, rows};
  EXPECT_EQ(walk(RL(shown_rows), Step::Backward, last_rows, order.size() + 5), order);
}

TEST_P(EverySize, NoStepLeavesTheGridOrTheProblem) {
  const int last_column = std::max(1, variables + rows - 4), last_row = std::max(1, rows - 6);
  for (int first_column = 1; first_column <= last_column; ++first_column)
    for (int first_row = 1; first_row <= last_row; ++first_row)
      for (const Step step : {Step::Forward, Step::Backward, Step::Down, Step::Up})
        for (int box = 1; box <= 35; ++box)
          for (const GridBox from : {F((box - 1) % 5 + 1), T(box), RL((box - 1) % 7 + 1)}) {
            const Cell left = cell_of(from, first_column, first_row);
            if (left.row > rows || left.column > variables + rows) continue;
            const auto landing = step_from(from, step, {first_column, first_row, variables, rows});
            if (!landing) continue;
            const Cell entered = cell_of(landing->box, landing->first_column, landing->first_row);
            ASSERT_GE(landing->box.index, 1);
            ASSERT_LE(landing->box.index, landing->box.array == CellArray::Cells  ? 35
                                          : landing->box.array == CellArray::RowF ? 5
                                                                                  : 7);
            ASSERT_GE(landing->first_column, 1);
            ASSERT_LE(landing->first_column, last_column);
            ASSERT_GE(landing->first_row, 1);
            ASSERT_LE(landing->first_row, last_row);
            ASSERT_LE(entered.row, rows);
            ASSERT_LE(entered.column, variables + rows);
          }
}

INSTANTIATE_TEST_SUITE_P(All, EverySize, testing::Combine(testing::Range(1, 11), testing::Range(1, 11)));

}  // namespace
}  // namespace tabulon
