// Problems with two decision variables for the tests of the graph.
#pragma once

#include <vector>

#include "graph/geometry.h"

namespace tabulon::graph {

inline Constraint at_most(double a1, double a2, double right) {
  return {RowKind::LessEqual, a1, a2, right};
}
inline Constraint at_least(double a1, double a2, double right) {
  return {RowKind::GreaterEqual, a1, a2, right};
}
inline Constraint exactly(double a1, double a2, double right) {
  return {RowKind::Equal, a1, a2, right};
}

using Constraints = std::vector<Constraint>;

// Maximise 3 x1 + 5 x2: 36 in (2, 6).
inline const Constraints two_products{at_most(1, 0, 4), at_most(0, 2, 12), at_most(3, 2, 18)};

// Minimise 2 x1 + 3 x2: 9 in (3, 1).
inline const Constraints diet{at_least(1, 1, 4), at_least(1, 3, 6)};

// Maximise 2 x1 + x2 with all three kinds of rows: 8 in (3, 2).
inline const Constraints blend{at_most(1, 1, 5), at_least(1, 0, 1), exactly(1, -1, 1)};

// x1 + x2 can grow without end.
inline const Constraints unbounded{at_most(-1, 1, 2), at_most(1, -2, 4)};

// The last constraint never matters.
inline const Constraints redundant{at_most(1, 0, 4), at_most(0, 1, 3), at_most(1, 1, 10)};

}  // namespace tabulon::graph
