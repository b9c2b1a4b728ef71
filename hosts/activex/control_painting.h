// Paints the window of one control; behind an image, also what the image stands on.
//
//   ControlPainting painting(control, view, pointer, hot);
//   painting.paint(window);          // WM_PAINT
//   painting.print(window, dc);      // WM_PRINTCLIENT
//   painting.forget();               // the control looks different now
#pragma once

#include <windows.h>

#include "hosts/activex/control_pointer.h"
#include "hosts/activex/kept_picture.h"
#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class ControlPainting {
 public:
  ControlPainting(const platform::Control& control, const ViewState& view, const ControlPointer& pointer,
                  const HotButton& hot)
      : control_(control), view_(view), pointer_(pointer), hot_(hot) {}
  ControlPainting(const ControlPainting&) = delete;

  void paint(HWND window);
  void print(HWND window, HDC dc);
  void forget() { kept_picture_.forget(); }

 private:
  void picture_box(HWND window, HDC dc, const RECT& all);

  const platform::Control& control_;
  const ViewState& view_;
  const ControlPointer& pointer_;
  const HotButton& hot_;
  KeptPicture kept_picture_;  // of a picture box
};

}  // namespace tabulon::activex
