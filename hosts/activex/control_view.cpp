#include "hosts/activex/control_view.h"

#include <algorithm>
#include <initializer_list>

#include "hosts/activex/control_kinds.h"
#include "hosts/activex/key_messages.h"
#include "hosts/activex/module.h"
#include "hosts/activex/names.h"
#include "hosts/activex/painting.h"
#include "hosts/activex/pixels.h"
#include "hosts/activex/scroll_bars.h"
#include "hosts/activex/text.h"
#include "hosts/activex/window_text.h"
#include "platform/look.h"

namespace tabulon::activex {

using namespace platform;

namespace {

struct WindowKind {
  const wchar_t* window_class;
  DWORD style;
};

// In the order of Kind. The system draws boxes and bars; for the rest, the class only tells what they are.
constexpr WindowKind kinds[] = {
    {pane_class, WS_CLIPCHILDREN},          // Frame
    {L"STATIC", SS_OWNERDRAW | SS_NOTIFY},  // Label
    {L"EDIT", ES_AUTOHSCROLL},              // TextBox
    {L"BUTTON", BS_OWNERDRAW},              // CommandButton
    {L"SCROLLBAR", SBS_HORZ},               // HScrollBar
    {L"SCROLLBAR", SBS_VERT},               // VScrollBar
    {pane_class, 0},                        // Line, which has no window
    {pane_class, 0},                        // Image
    {pane_class, WS_CLIPCHILDREN},          // PictureBox
};

constexpr DWORD edit_alignments[] = {ES_LEFT, ES_RIGHT, ES_CENTER};

constexpr Properties some(std::initializer_list<Property> properties) {
  Properties all;
  for (const Property property : properties) all.add(property);
  return all;
}
bool have_common(Properties one, Properties other) {
  return (one.bits() & other.bits()) != 0;
}

// The properties whose change requires repainting that the system does not do by itself.
constexpr Properties look_of_box =
    some({Property::Colours, Property::Font, Property::Locked, Property::Role});
constexpr Properties look_of_drawn =
    some({Property::Text, Property::Colours, Property::Enabled, Property::Role, Property::Font,
          Property::Picture, Property::Drawing});
constexpr Properties of_density = some({Property::Bounds, Property::Font, Property::Drawing});

DWORD style_of(const Control& control) {
  DWORD style = WS_CHILD | WS_CLIPSIBLINGS | kinds[static_cast<std::size_t>(control.kind())].style;
  if (is_box(control)) style |= edit_alignments[static_cast<std::size_t>(control.font().align)];
  return style;
}

}  // namespace

ControlView::~ControlView() {
  if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

ControlView* ControlView::of(HWND window) {
  return reinterpret_cast<ControlView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// ---- Where it stands

ControlView::Place ControlView::wanted_place() const {
  if (!control_.visible()) return Place::None;
  if (control_.container() || control_.shown()) return Place::Seen;
  return control_.can_take_focus() ? Place::Aside : Place::None;
}

void ControlView::create_if_seen(HWND parent) {
  if (!parent || window_ || wanted_place() == Place::None) return;
  const RECT box = bounds_in_pixels(control_, dpi());
  HMENU const id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(control_.id() + 1));
  window_ = CreateWindowExW(0, kinds[static_cast<std::size_t>(control_.kind())].window_class, nullptr,
                            style_of(control_), box.left, box.top, box.right - box.left, box.bottom - box.top,
                            parent, id, this_module(), nullptr);
  if (!window_) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  original_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlView::procedure)));
  apply(Properties::all());
}

void ControlView::place() {
  if (!window_) return;
  const RECT box = bounds_in_pixels(control_, dpi());
  RECT now{};
  GetWindowRect(window_, &now);
  MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&now), 2);
  if (EqualRect(&box, &now)) return;
  SetWindowPos(window_, nullptr, box.left, box.top, box.right - box.left, box.bottom - box.top,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_FRAMECHANGED);
}

// A frame that appears comes to the front.
void ControlView::show() {
  const bool is_seen = wanted_place() != Place::None;
  const bool was_seen = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (is_seen == was_seen) return;
  ShowWindow(window_, is_seen ? SW_SHOWNA : SW_HIDE);
  if (is_seen && control_.kind() == Kind::Frame)
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// ---- What it shows

void ControlView::density_changed() {
  if (window_) apply(of_density);
}

void ControlView::apply(Properties marked) {
  if (marked.has(Property::Bounds)) place();
  if (marked.has(Property::Enabled)) EnableWindow(window_, control_.enabled());
  if (marked.has(Property::Text)) set_text();
  if (marked.has(Property::Font)) set_font();
  if (marked.has(Property::ToolTip)) parts_.tips.set(parts_.view.window, window_, control_.tool_tip());
  if (marked.has(Property::SpokenName)) services().reader_names.set(window_, control_.spoken_name());
  if (marked.has(Property::Locked) && is_box(control_))
    SendMessageW(window_, EM_SETREADONLY, static_cast<const TextBox&>(control_).locked(), 0);
  if (marked.has(Property::Selection) && is_box(control_) && control_.surface().active() == &control_)
    wants_selection_ = true;
  if (marked.has(Property::Range) && is_bar(control_))
    show_range(window_, static_cast<const ScrollBar&>(control_));
  // Last, so that it appears in its final state.
  if (marked.has(Property::Visible) || marked.has(Property::Bounds)) show();
  if (have_common(marked, is_box(control_) ? look_of_box : look_of_drawn)) repaint();
}

void ControlView::set_text() {
  if (is_bar(control_)) return;
  const std::wstring text = wide(control_.text());
  if (window_text(window_) == text) return;
  writes_text_ = true;
  SetWindowTextW(window_, text.c_str());
  writes_text_ = false;
}

void ControlView::set_font() {
  HFONT const font = services().fonts.of(control_.font(), dpi());
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  if (is_box(control_))
    SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void ControlView::select_if_wanted() {
  if (wants_selection_) SendMessageW(window_, EM_SETSEL, 0, -1);
  wants_selection_ = false;
}

// Includes the windows inside: images show what is behind them.
void ControlView::repaint() {
  if (!window_ || is_bar(control_)) return;
  painting_.forget();
  RedrawWindow(window_, nullptr, nullptr,
               RDW_INVALIDATE | (is_box(control_) ? RDW_FRAME | RDW_ERASE : RDW_ALLCHILDREN));
}

// The focus shows in the edge of a box, and anywhere in other controls.
void ControlView::repaint_focus() {
  if (is_box(control_)) return paint_edge();
  repaint();
}

// ---- Boxes: the text stands in the middle of the height, inside an edge of our own

void ControlView::shrink_to_text(RECT& box) const {
  HDC const dc = GetWindowDC(window_);
  const int text = text_height(dc, services().fonts.of(control_.font(), dpi()));
  ReleaseDC(window_, dc);
  const int height = box.bottom - box.top, width = box.right - box.left;
  const int above = std::max(0, (height - text) / 2);
  const int beside = std::min(width / 4, measure::text_margin * dpi() / measure::pixels_per_inch);
  box = {box.left + beside, box.top + above, box.right - beside, box.top + above + std::min(text, height)};
}

void ControlView::paint_edge() {
  HDC const dc = GetWindowDC(window_);
  RECT bounds{}, inside{};
  GetWindowRect(window_, &bounds);
  GetClientRect(window_, &inside);
  MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  OffsetRect(&inside, -bounds.left, -bounds.top);
  OffsetRect(&bounds, -bounds.left, -bounds.top);
  ExcludeClipRect(dc, inside.left, inside.top, inside.right, inside.bottom);
  Painter(dc, services().fonts, dpi())
      .box_edge(static_cast<const TextBox&>(control_), bounds, GetFocus() == window_);
  ReleaseDC(window_, dc);
}

void ControlView::text_changed() {
  if (writes_text_ || !control() || !is_box(control_)) return;
  services().dispatcher.handle([this] {
    services().desk.type(static_cast<TextBox&>(control_), narrow(window_text(window_)));
    if (control()) set_text();  // undoes what the box did not accept
  });
}

// A press in a box gives it the focus, with all its text selected; only in the box that has the focus does it
// place the caret.
bool ControlView::press_in_box() {
  if (GetFocus() == window_) return false;
  services().dispatcher.handle([this] {
    parts_.focus.mouse_pressed();
    if (control()) services().desk.focus(control_);
  });
  return true;
}

// ---- Messages

LRESULT CALLBACK ControlView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  ControlView* const view = of(window);
  if (!view) return DefWindowProcW(window, message, wparam, lparam);
  const Dispatcher::OnStack on_stack(view->services().dispatcher);
  if (message == WM_NCDESTROY) {
    view->services().reader_names.forget(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    view->window_ = nullptr;
    return CallWindowProcW(view->original_, window, message, wparam, lparam);
  }
  return view->control() ? view->handle(message, wparam, lparam) : view->system(message, wparam, lparam);
}

LRESULT ControlView::system(UINT message, WPARAM wparam, LPARAM lparam) {
  return window_ ? CallWindowProcW(original_, window_, message, wparam, lparam) : 0;
}

LRESULT ControlView::handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == name_message()) return answer_name(control_, wparam);
  if (is_key_message(message)) return handle_key(message, wparam, lparam);
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | (is_box(control_) ? DLGC_HASSETSEL : 0);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      return handle_focus(message, wparam, lparam);
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      // A pane forwards its children's notifications to the surface.
      return SendMessageW(parts_.view.window, message, wparam, lparam);
    default:
      break;
  }
  if (is_box(control_)) return handle_box(message, wparam, lparam);
  return is_bar(control_) ? handle_bar(message, wparam, lparam) : handle_drawn(message, wparam, lparam);
}

LRESULT ControlView::handle_key(UINT message, WPARAM wparam, LPARAM lparam) {
  MSG key = current_message(window_, message, wparam, lparam);
  if (parts_.keyboard.handle(key)) return 0;
  // The surface presses the button; the system must not press it again.
  if (control() && is_button(control_) && (wparam == VK_RETURN || wparam == VK_SPACE)) return 0;
  return system(message, key.wParam, lparam);
}

LRESULT ControlView::handle_focus(UINT message, WPARAM wparam, LPARAM lparam) {
  const LRESULT answer = system(message, wparam, lparam);
  repaint_focus();
  if (message == WM_SETFOCUS)
    parts_.focus.arrived(control());
  else
    parts_.focus.left(reinterpret_cast<HWND>(wparam));
  return answer;
}

LRESULT ControlView::handle_box(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_NCCALCSIZE:
      // Either form of the message begins with the window's rectangle.
      shrink_to_text(*reinterpret_cast<RECT*>(lparam));
      return 0;
    case WM_NCHITTEST:
      return HTCLIENT;
    case WM_NCPAINT:
      paint_edge();
      return 0;
    case WM_LBUTTONDOWN:
      return press_in_box() ? 0 : system(message, wparam, lparam);
    default:
      return system(message, wparam, lparam);
  }
}

LRESULT ControlView::handle_bar(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_LBUTTONDOWN) services().dispatcher.handle([this] { parts_.focus.mouse_pressed(); });
  return system(message, wparam, lparam);
}

LRESULT ControlView::handle_drawn(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      painting_.paint(window_);
      return 0;
    case WM_PRINTCLIENT:
      painting_.print(window_, reinterpret_cast<HDC>(wparam));
      return 0;
    default:
      return pointer_.handle(window_, message, lparam) ? 0 : system(message, wparam, lparam);
  }
}

}  // namespace tabulon::activex
