// One control of a surface as a window of the system, made when the control is first seen.
//
// Boxes, labels, buttons and scroll bars are windows of the system's own classes, so that whoever asks the
// system about them (a screen reader) knows them; frames and pictures are panes. What they look like is drawn
// in hosts/activex/painting.h, but for the text in a box and the scroll bars, which the system draws.
#pragma once

#include <windows.h>

#include "hosts/activex/control_painting.h"
#include "hosts/activex/control_pointer.h"
#include "hosts/activex/keyboard.h"
#include "hosts/activex/tool_tips.h"
#include "hosts/activex/view_state.h"
#include "platform/surface.h"

namespace tabulon::activex {

// What the controls of a surface share with it.
struct SurfaceParts {
  const ViewState& view;
  Keyboard& keyboard;
  const FocusWatch& focus;
  HotButton& hot;
  ToolTips& tips;
};

class ControlView {
 public:
  ControlView(const SurfaceParts& parts, platform::Control& control)
      : parts_(parts),
        control_(control),
        pointer_(control, parts.view, parts.focus, parts.hot),
        painting_(control, parts.view, pointer_, parts.hot) {}
  ControlView(const ControlView&) = delete;
  ~ControlView();

  // The view whose window this is. Only for windows below a surface's.
  static ControlView* of(HWND window);

  // Null once the surface has gone.
  platform::Control* control() const { return parts_.view.surface ? &control_ : nullptr; }
  HWND window() const { return window_; }

  // Makes the window if the control is to be seen, and its parent is there.
  void create_if_seen(HWND parent);
  // For a control with a window.
  void apply(platform::Properties marked);
  void place();
  void density_changed();
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

  const Services& services() const { return parts_.view.services; }
  int dpi() const { return parts_.view.dpi; }
  Place wanted_place() const;
  void show();
  void set_text();
  void set_font();
  void repaint();
  void repaint_focus();
  void paint_edge();
  void shrink_to_text(RECT& box) const;
  bool press_in_box();

  const SurfaceParts& parts_;
  platform::Control& control_;
  ControlPointer pointer_;
  ControlPainting painting_;
  HWND window_ = nullptr;
  WNDPROC original_ = nullptr;
  bool wants_selection_ = false, writes_text_ = false;
};

}  // namespace tabulon::activex
