// Whether one name may be a slip of the pen for another.
#pragma once

#include <string_view>

namespace tabulon::lesson {

// Names that differ in capitals alone; and those of four letters or more that differ by one letter too many,
// one missing, one wrong, or two that changed places. Names with different digits at their end are never
// alike.
bool are_alike(std::string_view one, std::string_view other);

}  // namespace tabulon::lesson
