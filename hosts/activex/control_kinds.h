// Groups of controls that windows and the mouse treat alike.
#pragma once

#include "platform/controls.h"

namespace tabulon::activex {

inline bool is_bar(const platform::Control& control) {
  return control.kind() == platform::Kind::HScrollBar || control.kind() == platform::Kind::VScrollBar;
}
inline bool is_box(const platform::Control& control) {
  return control.kind() == platform::Kind::TextBox;
}
inline bool is_button(const platform::Control& control) {
  return control.kind() == platform::Kind::CommandButton;
}
inline bool has_window(const platform::Control& control) {
  return control.kind() != platform::Kind::Menu && control.kind() != platform::Kind::Line;
}
// Whether a press may become a drag.
inline bool is_dragged(const platform::Control& control) {
  return !is_box(control) && !is_bar(control) && control.kind() != platform::Kind::Label;
}

}  // namespace tabulon::activex
