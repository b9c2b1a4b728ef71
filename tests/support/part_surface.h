// A surface for a part of the control that is tested by itself.
//
//   PartSurface surface(host.desk());
//   GraphPanel panel({surface, model, surface.txtFocus, failures});
//   surface.when_clicked = [&](Control& control) -> Task<> { co_await panel.clicked(control); };
#pragma once

#include <functional>

#include "platform/desk.h"

namespace tabulon {

class PartSurface : public platform::Surface {
 public:
  explicit PartSurface(platform::Desk& desk) : Surface(desk, "PartSurface", 9000, 4440) {}
  ~PartSurface() override { desk().retire(*this); }

  std::function<platform::Task<>(platform::Control&)> when_clicked;
  std::function<platform::Task<>(platform::Control&, bool&)> when_validating;
  std::function<platform::Task<>(platform::KeyPress, bool&)> when_key_down;

  platform::Task<> on_click(platform::Control& control) override {
    if (when_clicked) co_await when_clicked(control);
  }
  platform::Task<> on_validate(platform::Control& control, bool& refused) override {
    if (when_validating) co_await when_validating(control, refused);
  }
  platform::Task<> on_key_down(platform::KeyPress& press, bool& used) override {
    if (when_key_down) co_await when_key_down(press, used);
  }
};

}  // namespace tabulon
