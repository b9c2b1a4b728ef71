#include "lesson/problem.h"

#include <algorithm>

namespace tabulon::lesson {

int Problem::rows_of(RowKind kind) const {
  return static_cast<int>(std::ranges::count(rows, kind, &ProblemRow::kind));
}

int Problem::columns() const {
  return static_cast<int>(variables.size() + rows.size()) + rows_of(RowKind::GreaterEqual);
}

}  // namespace tabulon::lesson
