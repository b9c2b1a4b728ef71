// One control of a surface as a window of the system, made when the control is first seen.
//
// Boxes, labels, buttons and scroll bars are windows of the system's own classes, so that whoever asks the
// system about them (a screen reader) knows them; frames and pictures are panes. What they look like is drawn
// in hosts/activex/painting.h, but for the text in a box and the scroll bars, which the system draws.
#pragma once

#include <windows.h>

#include "hosts/activex/kept_picture.h"
#include "platform/surface.h"

namespace tabulon::activex {

class SurfaceView;

class ControlView {
 public:
  ControlView(SurfaceView& surface, platform::Control& control) : surface_(surface), control_(&control) {}
  ControlView(const ControlView&) = delete;
  ~ControlView();

  // The view whose window this is. Only for windows below a surface's.
  static ControlView* of(HWND window);

  // Null once the surface has gone.
  platform::Control* control() const { return control_; }
  HWND window() const { return window_; }
  void forget_control() { control_ = nullptr; }

  // Makes the window if the control is to be seen and its container has one.
  void create_if_seen();
  void apply(platform::Properties marked);
  void place();
  void density_changed();
  void repaint();
  // Selects the whole text, once it has the focus.
  void select_if_wanted();
  // The person has changed the text in the window.
  void text_changed();

 private:
  // A visible control that stands beside the surface is not seen, but it can take the focus.
  enum class Place : std::uint8_t { None, Seen, Aside };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_key(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_focus(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_box(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_bar(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_drawn(UINT message, WPARAM wparam, LPARAM lparam);
  // What the system's own class does with a message.
  LRESULT system(UINT message, WPARAM wparam, LPARAM lparam);

  Place wanted_place() const;
  HWND parent_window() const;
  void show();
  void set_text();
  void set_range();
  void paint(HDC dc, const RECT& all);
  void paint_picture_box(HDC dc, const RECT& all);
  void print_behind(HDC dc) const;
  void paint_edge();
  void repaint_focus();
  void repaint_button();
  void shrink_to_text(RECT& box) const;
  void hover();
  void press(bool left, LPARAM where);
  bool press_in_box();
  void move(LPARAM where);
  void release(LPARAM where);
  void lose_pointer();
  void point(platform::Pointer::Action action, bool left, LPARAM where);

  SurfaceView& surface_;
  platform::Control* control_;
  HWND window_ = nullptr;
  WNDPROC original_ = nullptr;
  KeptPicture kept_picture_;            // of a picture box
  bool pressed_ = false, left_ = true;  // it holds the pointer, pressed with the left button
  bool over_ = false;                   // and the pointer is still over it
  bool wants_selection_ = false, writes_text_ = false;
};

// Where a message of the mouse says that it is, in the window that it came to.
POINT point_of(LPARAM where);

}  // namespace tabulon::activex
