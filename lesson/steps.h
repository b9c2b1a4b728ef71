// A change that the control has told of: what was done, and whether the method would have done it.
//
//   const TableauChange change{ChangeCause::Sweep, 2, 2};
//   sentences_of_change(before, after, change);   // "x 2 komt in de basis, x 4 gaat eruit." ...
//   judge_change(before, after, change).right;    // true
//
// The two models are the tableau as it was and as it is.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "control/basSafeCtl.h"

namespace tabulon::lesson {

struct StepJudgement {
  std::optional<bool>
      right;  // empty for what is no step of the pupil's: a cell, fractions, the control's own steps
  std::vector<std::string> sentences;
};

std::vector<std::string> sentences_of_change(const basSafeCtl& before, const basSafeCtl& after,
                                             const TableauChange& change);
StepJudgement judge_change(const basSafeCtl& before, const basSafeCtl& after, const TableauChange& change);

}  // namespace tabulon::lesson
