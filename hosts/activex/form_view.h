// A form's window: in front of the control that opened it, whose container is disabled until the form closes.
//
//   FormView view(services, form, opener.site(), [&] { host.abandon(form.owner()); });
//   view.open_over(opener.window());
//   view.show();
#pragma once

#include <functional>

#include "hosts/activex/surface_view.h"

namespace tabulon::activex {

class FormView final : public SurfaceView {
 public:
  // `given_up` is called when the window is destroyed with its owner before anybody has answered the form.
  FormView(const Services& services, platform::Form& form, ViewSite& site, std::function<void()> given_up);

  // Creates the window in the form's place on another, or in the middle of the screen; it stays hidden.
  bool open_over(HWND over);
  void show();
  void detach() override;
  void mirror() override;

 private:
  POINT middle_on(HWND over, const RECT& window) const;
  void add_edge(RECT& inside) const override;
  void on_destroyed() override;

  std::function<void()> given_up_;
  HWND owner_ = nullptr;
  bool disabled_owner_ = false;  // which was enabled before the form was shown
};

}  // namespace tabulon::activex
