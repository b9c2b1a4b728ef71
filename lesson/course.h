// What the method as the control has it makes of a tableau, step by step to its end.
//
//   const Course course = follow_method(first_tableau(problem));
//   course.steps.size();               // how many sweeps
//   course.last.current.row_F().right();   // F where it ends
#pragma once

#include <cstdint>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"

namespace tabulon::lesson {

enum class CourseEnd : std::uint8_t {
  Optimal,    // "Optimale oplossing gevonden!"
  Modelfout,  // "Modelfout!": a column, but no row
  NoEnd,      // still going when nobody would wait any longer
  TooLarge,   // a number would be too large for a Double
};

// A row that has a right-hand side of 0 and a positive entry in the pivot column: the ratio test passes it
// over, so that its right-hand side goes below 0.
struct PassedOver {
  int row = 0;
  double entry = 0;
  double right_after = 0;
  int tied_in_step = 0;  // the step whose equal quotients made the 0; 0: it was there from the beginning
  int tied_with = 0;     // the row that was swept with in that step
};

struct CourseStep {
  Pivot pivot;
  double quotient = 0;
  std::vector<PassedOver> passed_over;
};

struct Course {
  CourseEnd end = CourseEnd::NoEnd;
  std::vector<CourseStep> steps;
  // Where the column stands that no row could be found for, and the rows with 0 that would have been the
  // pivot row.
  int column_without_row = 0;
  std::vector<int> rows_with_zero;
  basSafeCtl last;
};

Course follow_method(basSafeCtl model);

// What counts as 0 among right-hand sides of this size.
bool is_negligible(double number, double size);

}  // namespace tabulon::lesson
