// "Klopt het?": whether a step was one that the method would make, and else what it led to.
//
//   const Judgement judgement = judge_sweep(before, {.row = 1, .column = 2});
//   judgement.right;       // false
//   judgement.sentences;   // "Rij 2 had een kleiner quotiënt (6 tegen 8)." "Daardoor staat nu rechts in rij
//   2 ..."
#pragma once

#include <string>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"

namespace tabulon::lesson {

struct Judgement {
  bool right = false;
  std::vector<std::string> sentences;
};

// Of sweeping, where `before` is the model as it was. A row with the same smallest quotient as the method's
// is as right as that one; another column with a negative number in row F is allowed, and said to be the
// longer way perhaps.
Judgement judge_sweep(const basSafeCtl& before, Pivot pivot);

}  // namespace tabulon::lesson
