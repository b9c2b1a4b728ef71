// Arguments of scripts: values of any type, or references to variables.
//
//   const Result<double> number = number_of(*argument(given, 1));
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "control/LPctrl.h"

namespace tabulon::activex {

// Whether the arrays of arguments and names are as long as their counts promise.
bool is_sound(const DISPPARAMS& given);
// The argument at a position, from 0: either named by that position, or among the positional ones, which are
// stored in reverse. Null if it is missing.
VARIANT* argument(const DISPPARAMS& given, UINT place);

// The argument's value; error 13 if it cannot be converted.
Result<double> number_of(VARIANT& given);
Result<std::string> text_in(VARIANT& given);
// A list: an array (its items joined by commas, also of nested arrays), an object with a text, or any value
// that value_of takes.
Result<PropertyValue> list_of(VARIANT& given);
// `nothing` is the value of an empty variable.
Result<PropertyValue> value_of(VARIANT& given, const PropertyValue& nothing);

// Stores the number in the argument if it is a script's variable.
void give_back(VARIANT& given, double number);

}  // namespace tabulon::activex
