// How things are called in a sentence: numbers as the control shows them, variables and rows by their names.
//
//   shown(1.0 / 3, false);          // "0.333333"
//   column_name(model, 3);          // "x 3"
//   listed({"rij 1", "rij 2", "rij 3"});   // "rij 1, rij 2 en rij 3"
#pragma once

#include <string>
#include <vector>

#include "control/basSafeCtl.h"

namespace tabulon::lesson {

// The display text without the blank in front; words for a quotient that is too large for a Double.
std::string shown(double number, bool fractions);
// The name of a column's variable, with one blank in it; "kolom 7" for a column without one.
std::string column_name(const basSafeCtl& model, int column);
// "rij 2"; row 0 is "rij F".
std::string row_name(int row);
std::string listed(const std::vector<std::string>& names);
// "1 stap", "2 stappen".
std::string counted(int count, const char* one, const char* more);

}  // namespace tabulon::lesson
