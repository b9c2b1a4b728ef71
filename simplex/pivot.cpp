#include "simplex/pivot.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tabulon {

namespace {

// The smallest entry first and its place second: a loop that carries the place along takes a mispredicted
// branch for every new smallest entry.
int entering_column(const CellRow& row_F, int columns) {
  const double* entries = row_F.values();
  double smallest = least_objective_entry;
  for (int at = 0; at < columns; ++at) smallest = std::min(smallest, entries[at]);
  if (smallest == least_objective_entry) return 0;
  return static_cast<int>(std::find(entries, entries + columns, smallest) - entries) + 1;
}

int leaving_row(const TableauState& tableau, int rows, int column) {
  int chosen = 0;
  double smallest = std::numeric_limits<double>::infinity();
  for (int row = 1; row <= rows; ++row) {
    const double entry = tableau.row(row).value(column);
    if (!(std::fabs(entry) > largest_skipped_entry)) continue;
    const double quotient = tableau.row(row).right() / entry;
    // A quotient too large for a Double is positive all the same.
    if (quotient > 0 && (quotient < smallest || chosen == 0)) {
      chosen = row;
      smallest = quotient;
    }
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
