// The style of variables and rows by their kind: colours, and the tool tips that explain them.
#pragma once

#include <string_view>

#include "control/basSafeCtl.h"
#include "platform/geometry.h"

namespace tabulon {

// A cell of a decision variable has the style of its row instead.
struct Style {
  platform::Colour heading;
  platform::Colour body;
  std::string_view tip;
  std::string_view tip_in_row_F;
  std::string_view tip_in_cell;
};

struct RowStyle {
  platform::Colour cell;
  std::string_view tip_in_cell;
};

const Style& style_of(VariableKind kind);
const RowStyle& style_of(RowKind kind);

}  // namespace tabulon
