// Fill-in mode: whether the person can type in the cells, and may change that. Once an operation has worked
// on the tableau it is no longer filled in, until a new problem or Reset.
#pragma once

namespace tabulon {

struct FillIn {
  bool CellenBewerkbaar = true;
  bool offered = true;  // the two items of the menu are enabled
};

}  // namespace tabulon
