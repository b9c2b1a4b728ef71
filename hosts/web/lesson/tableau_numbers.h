// A tableau as numbers: how the page hands one to the lesson.
//
//   basSafeCtl model;
//   if (read_tableau_numbers(bytes, model)) why(model);
//
// Doubles, little-endian, in this order: NrTableau, NrBeslisVar, NrKleinerGelijkVglen, NrGroterGelijkVglen,
// NrGelijkVglen, BigM and Breuken; the basis of each row; row F and the rows, of each its columns and its
// right-hand side. The numbers go as they are, and not as a saved tableau has them: rounded, two quotients
// might be equal that the control has seen differ.
#pragma once

#include <string_view>

#include "control/basSafeCtl.h"

namespace tabulon::web {

// Whether it was a tableau; else the model is an empty one. Texts are those that belong to the values.
bool read_tableau_numbers(std::string_view bytes, basSafeCtl& model);

}  // namespace tabulon::web
