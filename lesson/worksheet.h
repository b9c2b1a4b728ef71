// The tableaus that a pupil will have written when a problem has been worked out on paper.
//
//   const WorkedOut worked = work_out(problem);
//   for (const WorkedTableau& each : worked.tableaus) print(worked.model, each);
//
// They are those of the method as the control has it.
#pragma once

#include <vector>

#include "control/basSafeCtl.h"
#include "lesson/problem.h"
#include "simplex/pivot.h"

namespace tabulon::lesson {

// On a sheet nobody works out more.
inline constexpr int most_worked_tableaus = 12;

struct WorkedTableau {
  int number = 0;
  TableauState tableau;
  Pivot pivot;  // with which the next one is made; column 0 where there is none
};

struct WorkedOut {
  basSafeCtl model;  // for counts and names
  // The first tableau; that again with the columns of its artificial variables swept, where it has some; and
  // one for each step of the method.
  std::vector<WorkedTableau> tableaus;
};

WorkedOut work_out(const Problem& problem);

}  // namespace tabulon::lesson
