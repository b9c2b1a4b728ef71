#include "simplex/focus_form.h"

#include "platform/layout.h"

namespace tabulon {

using platform::Task;

FocusForm::FocusForm(Surface& owner, std::string_view name, platform::Twips width, platform::Twips height,
                     std::string_view caption)
    : Form(owner, name, width, height) {
  set_caption(caption);
  txtFocus.set_bounds(platform::beside_surface);
  txtFocus.set_spoken_name(caption.substr(1));
  OKButton.set_tab(1, true);
  default_button = &OKButton;
  cancel_button = &OKButton;
}

Task<> FocusForm::on_activate() {
  co_await set_focus(txtFocus);
}

Task<> FocusForm::on_click(platform::Control& control) {
  if (control.kind() == platform::Kind::CommandButton) unload();
  return {};
}

void FocusForm::on_change(platform::Control& control) {
  if (&control == &txtFocus) txtFocus.set_text("");
}

}  // namespace tabulon
