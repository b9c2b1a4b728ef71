// Shared by the tests of a control in a container: the control in place, an event listener, and its windows
// by name.
//
//   class InPlaceMoves : public InPlace {};
//   TEST_F(InPlaceMoves, ...) {
//     activate();
//     SendMessageW(window_named(window(), "cmd_Bestand"), BM_CLICK, 0, 0);
//     site_.take_calls();
//   }
//
// A suite that needs the keyboard, or a window in front of others, has a name that ends in InAContainer and
// derives from OnScreen. All others use windows beyond the edge of the screen.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include "tests/activex/com.h"
#include "tests/activex/event_listener.h"
#include "tests/activex/screen.h"
#include "tests/activex/site.h"
#include "tests/activex/window_thread.h"

namespace tabulon::client {

// ---- Places and windows

constexpr POINT ground{300, 270};  // a place of the control where nothing stands, at 96 dots to an inch

// As in mouse messages.
LPARAM at(POINT place);

std::string text_of(HWND window);
// The control's name, as "txtRij_F[1]".
std::string name_of(HWND window);
// Null if there is none inside.
HWND window_named(HWND around, std::string_view name);
// This thread's visible form.
HWND open_form();

bool has(const Calls& calls, std::string_view call);

// ---- The control in its container

// Every test ends by checking that no reference to the container is left.
class InPlace : public ComTest {
 protected:
  explicit InPlace(Site::Where where = Site::Where::OffScreen);
  ~InPlace() override;

  HRESULT verb(LONG number);
  HRESULT activate() { return verb(OLEIVERB_INPLACEACTIVATE); }
  HRESULT deactivate() { return as<IOleInPlaceObject>(object_)->InPlaceDeactivate(); }
  HWND window();
  bool is_shown() { return (GetWindowLongW(window(), GWL_STYLE) & WS_VISIBLE) != 0; }
  bool control_has_focus() { return GetFocus() == window() || IsChild(window(), GetFocus()); }

  Site site_;
  ComPtr<IOleObject> object_ = make_as<IOleObject>();
};

// The container has the keyboard.
class OnScreen : public InPlace {
 protected:
  OnScreen() : InPlace(Site::Where::OnScreen) { SetFocus(site_.own_box()); }
};

// The control is active, and forms may stand over it.
class WithForms : public OnScreen {
 protected:
  WithForms();
  // Posts work for the form's own message loop, which then closes the form.
  void meanwhile(std::function<void(HWND form)> look);
  void expect_over();
  Calls modeless_calls();

  activex::WindowThread thread_;
};

// The control is active and has an event listener.
template <class Base>
class Listening : public Base {
 protected:
  template <class... Arguments>
  explicit Listening(Arguments... arguments) : Base(arguments...) {
    if (!this->object_) return;
    EXPECT_EQ(code(this->activate()), code(S_OK));
    EXPECT_EQ(code(point()->Advise(&listener_, &connection_)), code(S_OK));
  }
  ~Listening() override {
    if (this->object_) EXPECT_EQ(code(point()->Unadvise(connection_)), code(S_OK));
    EXPECT_EQ(listener_.references, 1U);
  }
  ComPtr<IConnectionPoint> point() {
    ComPtr<IConnectionPoint> found;
    Base::template as<IConnectionPointContainer>(this->object_)
        ->FindConnectionPoint(__uuidof(_LPctrlEvents), found.GetAddressOf());
    return found;
  }
  void send(UINT message, WPARAM how, LPARAM where = at(ground)) {
    SendMessageW(this->window(), message, how, where);
  }

  EventListener listener_;
  DWORD connection_ = 0;
};

}  // namespace tabulon::client
