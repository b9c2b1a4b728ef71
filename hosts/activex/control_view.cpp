#include "hosts/activex/control_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "hosts/activex/bitmap.h"
#include "hosts/activex/library.h"
#include "hosts/activex/names.h"
#include "hosts/activex/painting.h"
#include "hosts/activex/surface_view.h"
#include "hosts/activex/text.h"
#include "hosts/activex/window_text.h"
#include "hosts/activex/windows_host.h"
#include "platform/look.h"

namespace tabulon::activex {

using namespace platform;

namespace {

struct WindowKind {
  const wchar_t* window_class;
  DWORD style;
};

// In the order of Kind. The system draws boxes and bars; of the others it only knows what they are.
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

// The properties that a control has to be painted again for, where the system does not do that by itself.
constexpr Properties look_of_box = some({Property::Colours, Property::Font, Property::Locked});
constexpr Properties look_of_drawn = some({Property::Text, Property::Colours, Property::Enabled,
                                           Property::Font, Property::Picture, Property::Drawing});
constexpr Properties of_density = some({Property::Bounds, Property::Font, Property::Drawing});

bool is_bar(const Control& control) {
  return control.kind() == Kind::HScrollBar || control.kind() == Kind::VScrollBar;
}
bool is_box(const Control& control) {
  return control.kind() == Kind::TextBox;
}
bool is_button(const Control& control) {
  return control.kind() == Kind::CommandButton;
}
// What can be taken hold of and moved.
bool is_dragged(const Control& control) {
  return !is_box(control) && !is_bar(control) && control.kind() != Kind::Label;
}

DWORD style_of(const Control& control) {
  DWORD style = WS_CHILD | WS_CLIPSIBLINGS | kinds[static_cast<std::size_t>(control.kind())].style;
  if (is_box(control)) style |= edit_alignments[static_cast<std::size_t>(control.font().align)];
  return style;
}

// Draws beside the screen first, so that nobody sees a picture half drawn.
template <class Paint>
void paint_at_once(HWND window, Paint paint) {
  PAINTSTRUCT painting{};
  HDC const screen = BeginPaint(window, &painting);
  RECT all{};
  GetClientRect(window, &all);
  const MemoryBitmap picture({all.right, all.bottom});
  paint(picture.dc(), all);
  BitBlt(screen, 0, 0, all.right, all.bottom, picture.dc(), 0, 0, SRCCOPY);
  EndPaint(window, &painting);
}

}  // namespace

POINT point_of(LPARAM where) {
  return {GET_X_LPARAM(where), GET_Y_LPARAM(where)};
}

ControlView::~ControlView() {
  if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

ControlView* ControlView::of(HWND window) {
  return reinterpret_cast<ControlView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// ---- Where it stands

ControlView::Place ControlView::wanted_place() const {
  if (!control_->visible()) return Place::None;
  if (control_->container() || control_->shown()) return Place::Seen;
  return control_->can_take_focus() ? Place::Aside : Place::None;
}

HWND ControlView::parent_window() const {
  if (!control_->container()) return surface_.window();
  const ControlView* const container = surface_.view_of(*control_->container());
  return container ? container->window() : nullptr;
}

void ControlView::create_if_seen() {
  HWND const parent = window_ || wanted_place() == Place::None ? nullptr : parent_window();
  if (!parent) return;
  const RECT box = bounds_in_pixels(*control_, surface_.dpi());
  HMENU const id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(control_->id() + 1));
  window_ = CreateWindowExW(0, kinds[static_cast<std::size_t>(control_->kind())].window_class, nullptr,
                            style_of(*control_), box.left, box.top, box.right - box.left,
                            box.bottom - box.top, parent, id, library().module, nullptr);
  if (!window_) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  original_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlView::procedure)));
  apply(Properties::all());
}

void ControlView::place() {
  if (!window_) return;
  const RECT box = bounds_in_pixels(*control_, surface_.dpi());
  RECT now{};
  GetWindowRect(window_, &now);
  MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&now), 2);
  if (EqualRect(&box, &now)) return;
  SetWindowPos(window_, nullptr, box.left, box.top, box.right - box.left, box.bottom - box.top,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_FRAMECHANGED);
}

// A panel that is opened stands above everything else.
void ControlView::show() {
  const bool is_seen = wanted_place() != Place::None;
  const bool was_seen = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (is_seen == was_seen) return;
  ShowWindow(window_, is_seen ? SW_SHOWNA : SW_HIDE);
  if (is_seen && control_->kind() == Kind::Frame)
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// ---- What it shows

void ControlView::density_changed() {
  if (!window_) return;
  apply(of_density);
}

void ControlView::apply(Properties marked) {
  if (!window_) return create_if_seen();
  if (marked.has(Property::Bounds)) place();
  if (marked.has(Property::Enabled)) EnableWindow(window_, control_->enabled());
  if (marked.has(Property::Text)) set_text();
  if (marked.has(Property::Font)) {
    HFONT const font = surface_.host().fonts().of(control_->font(), surface_.dpi());
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    if (is_box(*control_))
      SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  }
  if (marked.has(Property::ToolTip))
    surface_.tool_tips().set(surface_.window(), window_, control_->tool_tip());
  if (marked.has(Property::SpokenName)) surface_.host().reader_names().set(window_, control_->spoken_name());
  if (marked.has(Property::Locked) && is_box(*control_))
    SendMessageW(window_, EM_SETREADONLY, static_cast<const TextBox&>(*control_).locked(), 0);
  if (marked.has(Property::Selection) && is_box(*control_) && control_->surface().active() == control_)
    wants_selection_ = true;
  if (marked.has(Property::Range) && is_bar(*control_)) set_range();
  if (marked.has(Property::Drawing)) surface_.place_inside(*control_);
  // Last, so that it appears as it is to be.
  if (marked.has(Property::Visible) || marked.has(Property::Bounds)) show();
  if (have_common(marked, is_box(*control_) ? look_of_box : look_of_drawn)) repaint();
}

void ControlView::set_text() {
  if (is_bar(*control_)) return;
  const std::wstring text = wide(control_->text());
  if (window_text(window_) == text) return;
  writes_text_ = true;
  SetWindowTextW(window_, text.c_str());
  writes_text_ = false;
}

// A bar of the system rises to its end, so a bar that falls shows the negatives of its numbers.
void ControlView::set_range() {
  const auto& bar = static_cast<const ScrollBar&>(*control_);
  const int sign = bar.min() > bar.max() ? -1 : 1;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
  info.nMin = sign * bar.min();
  info.nMax = sign * bar.max() + bar.large_change() - 1;
  info.nPage = static_cast<UINT>(bar.large_change());
  info.nPos = sign * bar.value();
  SetScrollInfo(window_, SB_CTL, &info, TRUE);
}

void ControlView::select_if_wanted() {
  if (wants_selection_) SendMessageW(window_, EM_SETSEL, 0, -1);
  wants_selection_ = false;
}

// With what stands on it, for an image shows the ground that it is on.
void ControlView::repaint() {
  if (!window_ || is_bar(*control_)) return;
  kept_picture_.forget();
  RedrawWindow(window_, nullptr, nullptr,
               RDW_INVALIDATE | (is_box(*control_) ? RDW_FRAME | RDW_ERASE : RDW_ALLCHILDREN));
}

// The mark of the focus: the edge of a box, all of anything else.
void ControlView::repaint_focus() {
  if (is_box(*control_)) return paint_edge();
  repaint();
}

void ControlView::repaint_button() {
  if (is_button(*control_)) repaint();
}

void ControlView::paint(HDC dc, const RECT& all) {
  const Painter painter(dc, surface_.host().fonts(), surface_.dpi());
  switch (control_->kind()) {
    case Kind::Label:
      return painter.label(*control_, all);
    case Kind::CommandButton:
      return painter.button(*control_, all,
                            {surface_.hot() == this, pressed_ && over_, GetFocus() == window_});
    case Kind::Image:
      print_behind(dc);
      return painter.image(static_cast<const Image&>(*control_), all);
    case Kind::PictureBox:
      paint_picture_box(dc, all);
      return painter.lines(control_->surface(), control_, {0, 0});
    default:
      painter.frame(*control_, all);
      return painter.lines(control_->surface(), control_, {0, 0});
  }
}

void ControlView::paint_picture_box(HDC dc, const RECT& all) {
  kept_picture_.show(dc, {all.right, all.bottom}, ground_behind(*control_), [&](HDC paper) {
    Painter(paper, surface_.host().fonts(), surface_.dpi())
        .picture_box(static_cast<const PictureBox&>(*control_), all, GetFocus() == window_);
  });
}

// What the window shows in which this one stands.
void ControlView::print_behind(HDC dc) const {
  HWND const behind = GetParent(window_);
  POINT corner{}, before{};
  MapWindowPoints(window_, behind, &corner, 1);
  OffsetViewportOrgEx(dc, -corner.x, -corner.y, &before);
  SendMessageW(behind, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
  SetViewportOrgEx(dc, before.x, before.y, nullptr);
}

// ---- Boxes: the text stands in the middle of the height, inside an edge of our own

void ControlView::shrink_to_text(RECT& box) const {
  HDC const dc = GetWindowDC(window_);
  const int text = text_height(dc, surface_.host().fonts().of(control_->font(), surface_.dpi()));
  ReleaseDC(window_, dc);
  const int height = box.bottom - box.top, width = box.right - box.left;
  const int above = std::max(0, (height - text) / 2);
  const int beside = std::min(width / 4, measure::text_margin * surface_.dpi() / measure::pixels_per_inch);
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
  Painter(dc, surface_.host().fonts(), surface_.dpi())
      .box_edge(static_cast<const TextBox&>(*control_), bounds, GetFocus() == window_);
  ReleaseDC(window_, dc);
}

void ControlView::text_changed() {
  if (writes_text_ || !control_ || !is_box(*control_)) return;
  surface_.host().handle([this] {
    surface_.host().desk().type(static_cast<TextBox&>(*control_), narrow(window_text(window_)));
    if (control_) set_text();  // what the box did not take goes again
  });
}

// ---- The pointer

void ControlView::hover() {
  if (surface_.hot() == this || !is_button(*control_)) return;
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
  if (TrackMouseEvent(&track)) surface_.set_hot(this);
}

// In the units in which the control itself stands, from its corner.
void ControlView::point(Pointer::Action action, bool left, LPARAM where) {
  if (!is_dragged(*control_)) return;
  const POINT at = point_of(where);
  const RECT box = bounds_in_pixels(*control_, surface_.dpi());
  const Bounds& bounds = control_->bounds();
  const auto unit = [](double units, int pixels) { return pixels == 0 ? 0 : std::abs(units) / pixels; };
  surface_.host().desk().pointer(*control_, {action, left, at.x * unit(bounds.width, box.right - box.left),
                                             at.y * unit(bounds.height, box.bottom - box.top)});
}

void ControlView::press(bool left, LPARAM where) {
  SetCapture(window_);
  pressed_ = over_ = true;
  left_ = left;
  repaint_button();
  surface_.host().handle([&] {
    surface_.mouse_pressed();
    if (control_) point(Pointer::Action::Down, left, where);
  });
}

void ControlView::move(LPARAM where) {
  hover();
  if (!pressed_) return;
  RECT inside{};
  GetClientRect(window_, &inside);
  if (over_ != (PtInRect(&inside, point_of(where)) != 0)) {
    over_ = !over_;
    repaint_button();
  }
  surface_.host().handle([&] { point(Pointer::Action::Move, left_, where); });
}

// A button that is left before it is released is not pressed; what is dragged is clicked wherever it ends.
void ControlView::release(LPARAM where) {
  if (!pressed_) return;
  pressed_ = false;
  ReleaseCapture();
  repaint_button();
  const bool is_click = left_ && (over_ || (is_dragged(*control_) && !is_button(*control_)));
  surface_.host().handle([&] {
    point(Pointer::Action::Up, false, where);
    if (is_click && control_) surface_.host().desk().click(*control_);
  });
}

void ControlView::lose_pointer() {
  if (!pressed_) return;
  pressed_ = false;
  repaint_button();
  surface_.host().handle([this] { point(Pointer::Action::Lost, false, 0); });
}

// A press in a box gives it the focus, with all its text selected; only in the box that has the focus does it
// place the caret.
bool ControlView::press_in_box() {
  if (GetFocus() == window_) return false;
  surface_.host().handle([this] {
    surface_.mouse_pressed();
    if (control_) surface_.host().desk().focus(*control_);
  });
  return true;
}

// ---- Messages

LRESULT CALLBACK ControlView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  ControlView* const view = of(window);
  if (!view) return DefWindowProcW(window, message, wparam, lparam);
  const WindowsHost::OnStack on_stack(view->surface_.host());
  if (message == WM_NCDESTROY) {
    view->surface_.host().reader_names().forget(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    view->window_ = nullptr;
    return CallWindowProcW(view->original_, window, message, wparam, lparam);
  }
  return view->control_ ? view->handle(message, wparam, lparam) : view->system(message, wparam, lparam);
}

LRESULT ControlView::system(UINT message, WPARAM wparam, LPARAM lparam) {
  return window_ ? CallWindowProcW(original_, window_, message, wparam, lparam) : 0;
}

LRESULT ControlView::handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == name_message()) return answer_name(*control_, wparam);
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_CHAR:
    case WM_GETDLGCODE:
      return handle_key(message, wparam, lparam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      return handle_focus(message, wparam, lparam);
    case WM_SETCURSOR:
      return surface_.set_cursor(control_) ? TRUE : system(message, wparam, lparam);
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      // What children tell a pane is the surface's.
      return SendMessageW(surface_.window(), message, wparam, lparam);
    default:
      break;
  }
  if (is_box(*control_)) return handle_box(message, wparam, lparam);
  return is_bar(*control_) ? handle_bar(message, wparam, lparam) : handle_drawn(message, wparam, lparam);
}

LRESULT ControlView::handle_key(UINT message, WPARAM wparam, LPARAM lparam) {
  const bool presses = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
  MSG key{window_, message, wparam, lparam, static_cast<DWORD>(GetMessageTime()), {}};
  if (message == WM_GETDLGCODE) return DLGC_WANTALLKEYS | (is_box(*control_) ? DLGC_HASSETSEL : 0);
  if (presses && surface_.key_pressed(key)) return 0;
  if (!presses && surface_.key_released(key)) return 0;
  // A button is pressed by its surface, never a second time by the system.
  if (control_ && is_button(*control_) && (wparam == VK_RETURN || wparam == VK_SPACE)) return 0;
  return system(message, key.wParam, lparam);
}

LRESULT ControlView::handle_focus(UINT message, WPARAM wparam, LPARAM lparam) {
  const LRESULT answer = system(message, wparam, lparam);
  repaint_focus();
  if (message == WM_SETFOCUS)
    surface_.focus_arrived(this);
  else
    surface_.focus_left(reinterpret_cast<HWND>(wparam));
  return answer;
}

LRESULT ControlView::handle_box(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_NCCALCSIZE:
      // The first rectangle is the window's, whichever of the two forms the message has.
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
  if (message == WM_LBUTTONDOWN) surface_.host().handle([this] { surface_.mouse_pressed(); });
  return system(message, wparam, lparam);
}

LRESULT ControlView::handle_drawn(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      paint_at_once(window_, [this](HDC dc, const RECT& all) { paint(dc, all); });
      return 0;
    case WM_PRINTCLIENT: {
      RECT all{};
      GetClientRect(window_, &all);
      paint(reinterpret_cast<HDC>(wparam), all);
      return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      press(message != WM_RBUTTONDOWN, lparam);
      return 0;
    case WM_MOUSEMOVE:
      move(lparam);
      return 0;
    case WM_MOUSELEAVE:
      if (surface_.hot() == this) surface_.set_hot(nullptr);
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      release(lparam);
      return 0;
    case WM_CAPTURECHANGED:
      lose_pointer();
      return 0;
    case BM_CLICK:
      surface_.host().handle([this] { surface_.host().desk().click(*control_); });
      return 0;
    default:
      return system(message, wparam, lparam);
  }
}

}  // namespace tabulon::activex
