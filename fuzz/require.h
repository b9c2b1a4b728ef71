// What must hold of every input of a fuzzer: the first failure stops the run.
//
//   require(model.shape().has_value());
#pragma once

#include <cstdlib>

#include "control/basSafeCtl.h"

namespace tabulon::fuzz {

inline void require(bool holds) {
  if (!holds) std::abort();
}

template <class T>
bool ended_in(const Result<T>& result, ErrorNumber number) {
  return !result && result.error().number == number;
}

// A number that is none never comes into the model, wherever it stands.
inline void require_finite(const TableauState& tableau, int rows, int columns) {
  require(tableau.row_F().all_finite(columns));
  for (int row = 1; row <= rows; ++row) require(tableau.row(row).all_finite(columns));
}

inline void require_finite(const basSafeCtl& model, int rows = most_rows, int columns = most_columns) {
  require_finite(model.current, rows, columns);
  require_finite(model.first, rows, columns);
}

}  // namespace tabulon::fuzz
