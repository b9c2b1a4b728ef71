#include "lesson/worksheet.h"

#include "lesson/course.h"
#include "lesson/first_tableau.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {

namespace {

bool is_full(const WorkedOut& worked) {
  return std::ssize(worked.tableaus) == most_worked_tableaus;
}

void keep(WorkedOut& worked, Pivot pivot) {
  worked.tableaus.push_back({worked.model.NrTableau, worked.model.current, pivot});
}

}  // namespace

WorkedOut work_out(const Problem& problem) {
  WorkedOut worked{.model = first_tableau(problem), .tableaus = {}};
  basSafeCtl& model = worked.model;
  if (model.NrKunstmatigeVar > 0) keep(worked, {});
  if (!canonicalise(model)) return worked;
  for (const CourseStep& step : follow_method(first_tableau(problem)).steps) {
    if (is_full(worked)) return worked;
    keep(worked, step.pivot);
    model.PivotRij = static_cast<std::int16_t>(step.pivot.row);
    model.PivotKolom = static_cast<std::int16_t>(step.pivot.column);
    if (!sweep_column(model)) return worked;
  }
  if (!is_full(worked)) keep(worked, {});
  return worked;
}

}  // namespace tabulon::lesson
