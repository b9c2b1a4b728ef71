// One control of a surface as a window, created when the control is first visible.
//
// Boxes, labels, buttons and scroll bars are windows of the system's own classes, so that screen readers
// recognise them; frames and pictures are panes. The system draws the text in boxes and the scroll bars;
// everything else is drawn by hosts/activex/painting.h.
#pragma once

#include <windows.h>

#include "hosts/activex/control_painting.h"
#include "hosts/activex/control_pointer.h"
#include "hosts/activex/keyboard.h"
#include "hosts/activex/tool_tips.h"
#include "hosts/activex/view_state.h"
#include "platform/surface.h"

namespace tabulon::activex {

// The parts of a surface's view that its controls use.
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

  // The view of a window that lies inside a surface's.
  static ControlView* of(HWND window);

  // Null once the surface has been destroyed.
  platform::Control* control() const { return parts_.view.surface ? &control_ : nullptr; }
  HWND window() const { return window_; }

  // Creates the window if the control is visible and `parent` exists.
  void create_if_seen(HWND parent);
  // Requires the window to exist.
  void apply(platform::Properties marked);
  void place();
  void density_changed();
  // Selects the whole text, once it has the focus.
  void select_if_wanted();
  // The user has changed the text in the window.
  void text_changed();

 private:
  // A visible control outside the surface's bounds cannot be seen, but can take the focus.
  enum class Place : std::uint8_t { None, Seen, Aside };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_key(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_focus(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_box(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_bar(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT handle_drawn(UINT message, WPARAM wparam, LPARAM lparam);
  // Passes a message to the system's own class.
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
