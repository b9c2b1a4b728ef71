// A form as a window: in front of the control that has opened it, whose container waits until it is gone.
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
  // `given_up` is called when the window goes with its owner and nobody has answered it.
  FormView(const Services& services, platform::Form& form, ViewSite& site, std::function<void()> given_up);

  // Over the middle of a window, or of the screen. Not shown yet.
  bool open_over(HWND over);
  void show();
  void detach() override;
  void mirror() override;

 private:
  void add_edge(RECT& inside) const override;
  void on_destroyed() override;

  std::function<void()> given_up_;
  HWND owner_ = nullptr;
  bool stopped_owner_ = false;  // it took input before the form was shown
};

}  // namespace tabulon::activex
