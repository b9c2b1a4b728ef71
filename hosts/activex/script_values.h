// Values as scripts hand them over: of any type, or a variable of theirs.
//
//   const Result<double> number = number_of(*argument(given, 1));
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "control/LPctrl.h"

namespace tabulon::activex {

// The argument at that place, from 0: one that is named by its place, or one of the others, which stand last
// first. Null where it is not given.
VARIANT* argument(const DISPPARAMS& given, UINT place);

// What stands in it; error 13 where it cannot be that.
Result<double> number_of(VARIANT& given);
Result<std::string> text_in(VARIANT& given);
// A variable without a value is what `nothing` says.
Result<PropertyValue> value_of(VARIANT& given, const PropertyValue& nothing);

// Writes the number into a script's variable, if it is one.
void give_back(VARIANT& given, double number);

}  // namespace tabulon::activex
