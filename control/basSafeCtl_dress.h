// How variables and rows of each kind are dressed: colours, and the tool tips that explain them.
#pragma once

#include <string_view>

#include "control/basSafeCtl.h"
#include "platform/geometry.h"

namespace tabulon {

// A cell of a decision variable is dressed by its row instead.
struct Dress {
  platform::Colour heading;
  platform::Colour body;
  std::string_view tip;
  std::string_view tip_in_row_F;
  std::string_view tip_in_cell;
};

struct RowDress {
  platform::Colour cell;
  std::string_view tip_in_cell;
};

const Dress& dress_of(VariableKind kind);
const RowDress& dress_of(RowKind kind);

}  // namespace tabulon
