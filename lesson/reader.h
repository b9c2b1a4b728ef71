// Problems in words: what a teacher types, as a problem.
//
//   const Reading reading = read_problem("max F = 3x + 5y\n"
//                                        "x <= 4; 2y <= 12\n"
//                                        "hout: 3x + 2y <= 18   # per dag\n"
//                                        "x, y >= 0");
//   if (reading.problem) show(*reading.problem);
//   else for (const Finding& each : reading.mistakes) tell(spoken(each));
//
// A line, or what stands between two ";", is the objective (max or min), a constraint (which may begin with a
// name and
// ":"), `M = 1000`, a heading as "onder de voorwaarden", or nothing. What follows "#" or "//" is a comment.
// Decided here: e is a name like any other (exp(1) is Euler's number), 1/2x is half an x, and a variable is
// never below 0 whether that is said or not.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "lesson/finding.h"
#include "lesson/problem.h"

namespace tabulon::lesson {

struct Reading {
  std::optional<Problem> problem;  // empty when there are mistakes
  std::vector<Finding> mistakes;   // the first of each line, and what is wrong with the whole
  std::vector<Finding> notes;      // how something was understood that may have been meant otherwise
};

// Any text. Texts beyond 20000 bytes are a mistake by themselves.
Reading read_problem(std::string_view text);

}  // namespace tabulon::lesson
