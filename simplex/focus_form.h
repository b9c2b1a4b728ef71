// A form with an OK button whose focus rests in a box that is not seen, so that typing changes nothing.
// Enter and Escape press OK, unless a subclass has another cancel button.
#pragma once

#include "platform/surface.h"

namespace tabulon {

class FocusForm : public platform::Form {
 public:
  platform::Task<> on_activate() override;
  platform::Task<> on_click(platform::Control& control) override;
  void on_change(platform::Control& control) override;

 protected:
  // The caption begins with a blank, which the spoken name of the form does not.
  FocusForm(Surface& owner, std::string_view name, platform::Twips width, platform::Twips height,
            std::string_view caption);

  platform::TextBox txtFocus{*this, "txtFocus"};
  platform::CommandButton OKButton{*this, "OKButton"};
};

}  // namespace tabulon
