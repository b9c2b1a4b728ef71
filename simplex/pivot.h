// The choice of the pivot element: the column by the most negative entry of row F, the row by the smallest
// positive quotient of right-hand side and entry.
//
//   const PivotChoice choice = find_pivot(model, shape);
//   if (choice.search == PivotSearch::Found) {
//     model.PivotRij = static_cast<std::int16_t>(choice.pivot.row);
//     model.PivotKolom = static_cast<std::int16_t>(choice.pivot.column);
//   }
//
// Nothing is changed, and Big M is a number like any other. The ratio test looks at the quotient only: a
// negative entry with a negative right-hand side takes part, a right-hand side of 0 never does.
#pragma once

#include "control/basSafeCtl.h"

namespace tabulon {

// Smaller entries of row F, and entries of the pivot column up to this magnitude, do not count.
inline constexpr double least_objective_entry = -1e-10;
inline constexpr double largest_skipped_entry = 1e-8;

struct Pivot {
  int row = 0;     // 1..10, 0 for none
  int column = 0;  // 1..30, 0 for none
  friend bool operator==(const Pivot&, const Pivot&) = default;
};

enum class PivotSearch {
  Found,
  Optimal,    // no entry of row F below -1e-10
  Unbounded,  // no row with a quotient above 0
};

struct PivotChoice {
  PivotSearch search = PivotSearch::Optimal;
  Pivot pivot;  // row and column 0 unless found
};

// `shape` is that of the model. Among equal entries or quotients the lowest column or row wins.
PivotChoice find_pivot(const basSafeCtl& model, Shape shape);

}  // namespace tabulon
