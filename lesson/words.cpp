#include "lesson/words.h"

#include <cmath>

#include "numbers/conversions.h"
#include "numbers/display.h"
#include "platform/texts.h"

namespace tabulon::lesson {

std::string shown(double number, bool fractions) {
  if (!std::isfinite(number)) return "een te groot getal";
  return std::string(
      trimmed(numbers::strSoortGetal(fractions ? numbers::kFractions : numbers::kDecimals, number)));
}

std::string column_name(const basSafeCtl& model, int column) {
  std::string name = model.variable_name(column);
  if (name.empty()) return "kolom " + numbers::digits(column);
  const std::size_t blanks = name.find("  ");
  if (blanks != std::string::npos) name.erase(blanks, 1);
  return name;
}

std::string row_name(int row) {
  return row == 0 ? "rij F" : "rij " + numbers::digits(row);
}

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) list += i + 1 == names.size() ? " en " : ", ";
    list += names[i];
  }
  return list;
}

std::string counted(int count, const char* one, const char* more) {
  return numbers::digits(count) + " " + (count == 1 ? one : more);
}

}  // namespace tabulon::lesson
