// A surface as windows: its own window, and one for each of its controls that is seen.
//
//   SurfaceView view(host, control, site);
//   view.open(parent, {0, 0});    // the windows are there and show what the surface says
//   view.mirror();                // and follow it
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "hosts/activex/control_view.h"
#include "hosts/activex/tool_tips.h"
#include "hosts/activex/view_site.h"
#include "platform/surface.h"

namespace tabulon::activex {

class WindowsHost;

class SurfaceView {
 public:
  // A form speaks through the site of the control that it stands over.
  SurfaceView(WindowsHost& host, platform::Surface& surface, ViewSite& site);
  SurfaceView(const SurfaceView&) = delete;
  ~SurfaceView();

  WindowsHost& host() const { return host_; }
  platform::Surface* surface() const { return surface_; }  // null once it has gone
  ViewSite& site() const { return site_; }
  HWND window() const { return window_; }
  int dpi() const { return dpi_; }
  SIZE size() const;  // in pixels

  // ---- Windows
  // The control's own, at a place in its parent.
  bool open(HWND parent, POINT at);
  // A form's, over the middle of `over`; `owner` waits until it is gone. Not shown yet.
  bool open_form(HWND owner, HWND over);
  void show_form();
  // The surface is going: nothing of it is touched from now on. A form disappears.
  void detach();
  void close();

  // ---- What is seen
  void mirror();
  void set_busy(bool busy) { busy_ = busy; }
  // Gives the system's focus to where the surface's is.
  void focus_active();
  ControlView* view_of(const platform::Control& control) const;
  // Places what stands in a container again.
  void place_inside(const platform::Control& container);
  // The window may have come to a screen of another density.
  void follow_density();
  ToolTips& tool_tips() { return tool_tips_; }
  // The button that the pointer is over; null for none.
  const ControlView* hot() const { return hot_; }
  void set_hot(ControlView* button);

  // ---- What happens in the windows
  // A key; true when it was used or passed on, and is not to do anything else.
  bool key_pressed(const MSG& key);
  // Or a character that came of one; a script may have made it another.
  bool key_released(MSG& key);
  void focus_arrived(const ControlView* on);
  void focus_left(HWND to);
  // Anywhere: the surface has the focus from now on.
  void mouse_pressed();
  bool set_cursor(const platform::Control* on) const;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  friend class WindowClasses;

  LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_child(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_key(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_mouse(UINT message, WPARAM wparam, LPARAM lparam);
  bool create(const wchar_t* window_class, DWORD style, const RECT& place, HWND parent);
  void create_controls();
  void mirror_line(const platform::Control& line);
  void paint();
  void print(HDC dc) const;
  void scroll(HWND bar, int code);
  void density_changed(const RECT* suggested);
  bool offer(const MSG& key);
  bool leave_by_tab(const MSG& key);
  void give_up_form();

  WindowsHost& host_;
  platform::Surface* surface_;
  ViewSite& site_;
  HWND window_ = nullptr;
  HWND owner_ = nullptr;
  ControlView* hot_ = nullptr;
  int dpi_ = 96;
  bool busy_ = false, pressed_ = false;
  bool stopped_owner_ = false;  // it took input before the form was shown
  bool alt_used_ = false;  // Alt was held for a key of ours, so letting it go opens no menu of the container
  MSG refused_{};          // the last key that was of no use here, so that it is offered once
  std::vector<std::unique_ptr<ControlView>> controls_;  // by id; null for menus and lines
  ToolTips tool_tips_;
};

// Registers the windows' classes for as long as it lives.
class WindowClasses {
 public:
  explicit WindowClasses(HINSTANCE module);
  WindowClasses(const WindowClasses&) = delete;
  ~WindowClasses();

 private:
  HINSTANCE module_;
};

// The density of the screen that a window is on, in dots to an inch; of the main screen without a window.
int dpi_of(HWND window);
// The keys that are held: 1 for Shift, 2 for Ctrl, 4 for Alt.
int pressed_modifiers();

}  // namespace tabulon::activex
