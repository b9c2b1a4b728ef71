// A problem as the control gets it: the parameters of a page, and the tableau that they make.
//
//   for (const PageParameter& each : page_parameters(problem)) write_param(each.name, each.value);
//   basSafeCtl model = first_tableau(problem);
//
// Row F has the opposite of each coefficient of the objective, of its opposite for a minimum. A number that
// no decimal of 15 digits holds is rounded to one, because the items of a page's lists are decimals.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "control/basSafeCtl.h"
#include "lesson/problem.h"

namespace tabulon::lesson {

struct PageParameter {
  std::string_view name;
  std::string value;
};

std::vector<PageParameter> page_parameters(const Problem& problem);

// The first and the current tableau, which are the same. The problem keeps to the limits, as one that was
// read does.
basSafeCtl first_tableau(const Problem& problem);

}  // namespace tabulon::lesson
