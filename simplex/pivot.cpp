#include "simplex/pivot.h"

#include <algorithm>
#include <cmath>

namespace tabulon {

namespace {

// The smallest entry first, in two lanes, and its place second: a loop that carries the place along takes a
// mispredicted branch for every new smallest entry.
int entering_column(const CellRow& row_F, int columns) {
  const double* entries = row_F.values();
  double odd = least_objective_entry, even = least_objective_entry;
  for (int at = 0; at + 1 < columns; at += 2) {
    odd = std::min(odd, entries[at]);
    even = std::min(even, entries[at + 1]);
  }
  if (columns % 2 != 0) odd = std::min(odd, entries[columns - 1]);
  const double smallest = std::min(odd, even);
  if (smallest == least_objective_entry) return 0;
  return static_cast<int>(std::find(entries, entries + columns, smallest) - entries) + 1;
}

// 0 for a row that does not take part.
double quotient_of(const CellRow& row, int column) {
  const double entry = row.value(column);
  const bool takes_part = std::fabs(entry) > largest_skipped_entry;
  const double quotient = row.right() / (takes_part ? entry : 1.0);
  return takes_part ? quotient : 0.0;
}

// A quotient too large for a Double is positive all the same, so the first one is taken whatever it is.
// Choices instead of branches, which would be mispredicted for every second row.
int leaving_row(const TableauState& tableau, int rows, int column) {
  int chosen = 0;
  double smallest = 0.0;
  for (int row = 1; row <= rows; ++row) {
    const double quotient = quotient_of(tableau.row(row), column);
    const bool better = (quotient > 0) & ((quotient < smallest) | (chosen == 0));
    chosen = better ? row : chosen;
    smallest = better ? quotient : smallest;
  }
  return chosen;
}

}  // namespace

PivotChoice find_pivot(const basSafeCtl& model, Shape shape) {
  const int column = entering_column(model.current.row_F(), shape.columns);
  if (column == 0) return {PivotSearch::Optimal, {}};
  const int row = leaving_row(model.current, shape.rows, column);
  if (row == 0) return {PivotSearch::Unbounded, {}};
  return {PivotSearch::Found, {row, column}};
}

}  // namespace tabulon
