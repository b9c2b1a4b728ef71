// A surface as windows: one of its own, and one for each visible control.
//
//   SurfaceView view(services, control, site);
//   view.open(parent, {0, 0});    // creates the windows
//   view.mirror();                // brings them up to date with the surface
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "hosts/activex/control_view.h"
#include "hosts/activex/ground_pointer.h"
#include "hosts/activex/view_state.h"
#include "platform/surface.h"

namespace tabulon::activex {

class SurfaceView {
 public:
  SurfaceView(const Services& services, platform::Surface& surface, ViewSite& site);
  SurfaceView(const SurfaceView&) = delete;
  virtual ~SurfaceView();

  platform::Surface* surface() const { return view_.surface; }  // null after detach
  ViewSite& site() const { return view_.site; }
  HWND window() const { return view_.window; }
  int dpi() const { return view_.dpi; }
  SIZE size() const;  // in pixels
  Keyboard& keyboard() { return keyboard_; }
  HotButton& hot() { return hot_; }
  // Null for menus and lines.
  ControlView* view_of(const platform::Control& control) const;

  // Creates the window at a position in its parent.
  bool open(HWND parent, POINT at);
  // To be called before the surface is destroyed: the view does not touch it any more.
  virtual void detach() { view_.surface = nullptr; }
  void close();

  virtual void mirror();
  void set_busy(bool busy) { busy_ = busy; }
  // Moves the system's focus to the surface's active control.
  void focus_active() const;
  // To be called when the window may have moved to a screen of another density.
  void follow_density();

  // The window procedure of all surfaces.
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

 protected:
  struct Shape {
    const wchar_t* window_class;
    DWORD style, extended_style;
  };

  const Services& services() const { return view_.services; }
  void set_dpi(int dpi) { view_.dpi = dpi; }
  bool create(const Shape& shape, const RECT& place, HWND parent);
  void mirror_controls();
  // Turns a client rectangle into the window's bounds.
  virtual void add_edge(RECT&) const {}
  // Called after the system has destroyed the window.
  virtual void on_destroyed() {}

 private:
  LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_key(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_child(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT pass_on(UINT message, WPARAM wparam, LPARAM lparam) const;
  void create_controls();
  HWND parent_of(const platform::Control& control) const;
  void place_inside(const platform::Control& container);
  void mirror_line(const platform::Control& line);
  void paint();
  void print(HDC dc) const;
  void scroll(HWND bar, int code);
  bool set_cursor(HWND under) const;
  void density_changed(const RECT* suggested);

  ViewState view_;
  Keyboard keyboard_{view_};
  FocusWatch focus_{view_};
  GroundPointer ground_{view_, focus_};
  HotButton hot_;
  ToolTips tool_tips_;
  SurfaceParts parts_{view_, keyboard_, focus_, hot_, tool_tips_};
  std::vector<std::unique_ptr<ControlView>> controls_;  // by id
  bool busy_ = false;
};

}  // namespace tabulon::activex
