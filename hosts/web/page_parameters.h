// The parameters that a page gives to one element, as the page lists them: name, NUL, text, NUL, for each.
//
//   parameters_in("prmNrBeslisVar\0" "3\0" "prmBigM\0" "50\0"sv).read("PRMBIGM");    // "50"
#pragma once

#include <string>
#include <string_view>

#include "control/property_bag.h"

namespace tabulon::web {

ParameterList parameters_in(std::string_view listing);

// The names that nobody has read, each followed by NUL.
std::string not_asked_for(const ParameterList& parameters);

}  // namespace tabulon::web
