#include "hosts/activex/windows_host.h"

#include <algorithm>
#include <cmath>

#include "hosts/activex/clipboard.h"
#include "hosts/activex/file_dialog.h"
#include "hosts/activex/library.h"
#include "hosts/activex/popup_menu.h"
#include "hosts/activex/text.h"

namespace tabulon::activex {

using namespace platform;

namespace {

// As long as a handler may hold the thread before a person would notice, in milliseconds.
constexpr ULONGLONG longest_run = 100;

// wParam: the ticket. lParam: 1 where what was asked for is refused.
constexpr UINT answer_message = WM_APP;
constexpr wchar_t messages_class[] = L"TabulonMessages";

}  // namespace

WindowsHost::Handling::Handling(WindowsHost& on) : host(on) {
  if (host.depth_++ == 0) host.entered_ = GetTickCount64();
}

WindowsHost::Handling::~Handling() {
  if (--host.depth_ != 0) return;
  const OnStack on_stack(host);
  host.afterwards();
}

WindowsHost::~WindowsHost() {
  rest();
}

void WindowsHost::rest() {
  if (!messages_) return;
  DestroyWindow(std::exchange(messages_, nullptr));
  UnregisterClassW(messages_class, library().module);
}

// ---- What is gone

WindowsHost::OnStack::OnStack(WindowsHost& on) : host_(on) {
  ++host_.on_stack_;
}

WindowsHost::OnStack::~OnStack() {
  --host_.on_stack_;
  host_.empty_graves();
}

void WindowsHost::release_later(std::shared_ptr<void> gone) {
  deferred_.push_back(std::move(gone));
  empty_graves();
}

void WindowsHost::empty_graves() {
  if (on_stack_ == 0 && depth_ == 0) std::exchange(deferred_, {}).clear();
}

void WindowsHost::after_event(std::function<void()> act) {
  acts_.push_back(std::move(act));
  if (depth_ == 0) handle([] {});
}

// ---- Messages of its own

// A window that nobody sees: timers and answers come to it.
HWND WindowsHost::messages() {
  if (messages_) return messages_;
  WNDCLASSW shape{};
  shape.hInstance = library().module;
  shape.lpfnWndProc = procedure;
  shape.lpszClassName = messages_class;
  RegisterClassW(&shape);
  messages_ = CreateWindowExW(0, messages_class, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              library().module, nullptr);
  SetWindowLongPtrW(messages_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return messages_;
}

LRESULT CALLBACK WindowsHost::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const host = reinterpret_cast<WindowsHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!host || (message != WM_TIMER && message != answer_message))
    return DefWindowProcW(window, message, wparam, lparam);
  if (message == WM_TIMER) KillTimer(window, wparam);
  host->handle([&] { host->desk_.answer(static_cast<Ticket>(wparam), lparam ? "refused" : ""); });
  return 0;
}

// ---- After an event

void WindowsHost::afterwards() {
  for (const auto& act : std::exchange(acts_, {})) act();
  show_focus();
  if (question_) ask_for_file();
  if (menu_ && !tracking_menu_) track_menu();
  if (!forms_.empty() && !loop_runs_) run_messages_while([this] { return !forms_.empty(); });
}

void WindowsHost::show_focus() {
  const bool before = std::exchange(moves_focus_, true);
  for (const auto& form : forms_) form->show_form();
  if (SurfaceView* const view = top(); view && !menu_) view->focus_active();
  moves_focus_ = before;
}

template <class Condition>
void WindowsHost::run_messages_while(Condition condition) {
  const bool before = std::exchange(loop_runs_, true);
  MSG message;
  while (condition()) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {  // the program ends: its own loop is to know
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  loop_runs_ = before;
}

// A script may call while it is told of an event: what it opens is to be seen, and not when the event has
// been handled.
void WindowsHost::wait_for(Surface& surface, Task<> task) {
  const OnStack on_stack(*this);
  const int outer = std::exchange(depth_, 0);
  Ticket call = 0;
  handle([&] {
    call = desk_.call(surface, std::move(task));
    if (call != 0) calls_.emplace(call, &surface);
  });
  run_messages_while([&] { return calls_.contains(call); });
  depth_ = outer;
}

void WindowsHost::abandon(Surface& surface) {
  std::erase_if(calls_, [&](const auto& call) { return call.second == &surface; });
  handle([&] { desk_.abandon(surface); });
}

// ---- Views

void WindowsHost::remove(SurfaceView& view) {
  std::erase(views_, &view);
  if (focused_ == &view) focused_ = nullptr;
  if (key_pressed_on_ == &view) key_pressed_on_ = nullptr;
}

SurfaceView* WindowsHost::view_of(const Surface& surface) const {
  const auto found = std::ranges::find(views_, &surface, &SurfaceView::surface);
  return found != views_.end() ? *found : nullptr;
}

SurfaceView* WindowsHost::top() const {
  return forms_.empty() ? focused_ : forms_.back().get();
}

HWND WindowsHost::window_on_top() const {
  if (!forms_.empty()) return forms_.back()->window();
  return focused_ ? GetAncestor(focused_->window(), GA_ROOT) : nullptr;
}

void WindowsHost::focus_came(SurfaceView& view) {
  focused_ = &view;
  desk_.enter(*view.surface());  // first: the container may end the control as it is told
  view.site().focus_changed(true);
}

void WindowsHost::focus_went(SurfaceView& view) {
  if (focused_ == &view) focused_ = nullptr;
  desk_.leave(*view.surface());
  view.site().focus_changed(false);
}

bool WindowsHost::is_meant_for_top(bool repeated) {
  if (!repeated) key_pressed_on_ = top();
  return key_pressed_on_ == top();
}

// ---- What is seen

void WindowsHost::mirror(Surface& surface) {
  if (SurfaceView* const view = view_of(surface)) view->mirror();
}

void WindowsHost::set_busy(Surface& surface, bool busy) {
  if (SurfaceView* const view = view_of(surface)) view->set_busy(busy);
}

void WindowsHost::open_form(Form& form) {
  SurfaceView* const opener = view_of(form.owner());
  if (!opener) return;
  opener->set_hot(nullptr);
  HWND const over = opener->window();
  auto view = std::make_unique<SurfaceView>(*this, form, opener->site());
  view->open_form(over ? GetAncestor(over, GA_ROOT) : nullptr, over);
  view->site().enable_modeless(false);
  forms_.push_back(std::move(view));
}

void WindowsHost::close_form(Form& form) {
  const auto found = std::ranges::find(forms_, &form, [](const auto& view) { return view->surface(); });
  if (found == forms_.end()) return;
  const bool before = std::exchange(moves_focus_, true);
  (*found)->detach();
  (*found)->site().enable_modeless(true);
  moves_focus_ = before;
  std::shared_ptr<SurfaceView> closed = std::move(*found);
  forms_.erase(found);
  release_later(std::move(closed));
}

void WindowsHost::track_menu() {
  SurfaceView* const view = view_of(menu_->surface());
  if (!view || !view->window()) return desk_.menu_dismiss();
  tracking_menu_ = view->window();
  Menu* const chosen = track_popup_menu(*menu_, view->window(), view->dpi());
  tracking_menu_ = nullptr;
  view->set_hot(nullptr);  // the pointer has left while the menu had it
  if (!menu_) return;      // closed by somebody else meanwhile
  handle([&] {
    if (!chosen) return desk_.menu_dismiss();
    // The system has opened the submenu that holds the item; the desk is to know.
    desk_.menu_point_at(*chosen->parent());
    desk_.menu_choose(*chosen);
  });
}

void WindowsHost::window_goes(HWND window) {
  if (tracking_menu_ && tracking_menu_ == window) EndMenu();
}

void WindowsHost::close_menu() {
  menu_ = nullptr;
  if (tracking_menu_) EndMenu();
}

// A page or form may be occupied with something of its own; from that the control does not take the keyboard.
bool WindowsHost::take_focus(Surface& surface) {
  SurfaceView* const view = view_of(surface);
  if (!view || !view->window() || !IsWindowEnabled(view->window())) return false;
  HWND const focus = GetFocus();
  const bool is_free =
      !focus || focus == view->window() || IsChild(focus, view->window()) || IsChild(view->window(), focus);
  if (surface.is_form()) return true;
  if (!is_free) return false;
  focused_ = view;
  view->site().focus_changed(true);
  if (!view->window()) focused_ = nullptr;  // ended as the container was told
  return focused_ == view;
}

// ---- Time

float WindowsHost::seconds_since_midnight() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  const int seconds = (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
  return static_cast<float>(seconds + now.wMilliseconds / 1000.0);
}

void WindowsHost::wake_after(double milliseconds, Ticket ticket) {
  SetTimer(messages(), static_cast<UINT_PTR>(ticket), static_cast<UINT>(std::ceil(milliseconds)), nullptr);
}

void WindowsHost::wake_after_repaint(Ticket ticket) {
  for (const SurfaceView* view : views_)
    if (view->window()) RedrawWindow(view->window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  PostMessageW(messages(), answer_message, static_cast<WPARAM>(ticket), 0);
}

bool WindowsHost::yield_due() {
  return GetTickCount64() - entered_ > longest_run;
}

// ---- Capabilities

void WindowsHost::show_file_dialog(const FileDialog& dialog, Ticket ticket) {
  question_ = Question{dialog, ticket};
}

void WindowsHost::ask_for_file() {
  const Question question = *std::exchange(question_, {});
  ViewSite* const site = focused_ ? &focused_->site() : nullptr;
  if (site) site->enable_modeless(false);
  std::string name = activex::ask_for_file(window_on_top(), question.dialog);
  if (site) site->enable_modeless(true);
  handle([&] { desk_.answer(question.ticket, std::move(name)); });
}

void WindowsHost::clear_clipboard() {
  activex::clear_clipboard(messages());
}

void WindowsHost::copy_picture(const ClipboardPicture& picture, Ticket ticket) {
  const int dpi = focused_ ? focused_->dpi() : dpi_of(nullptr);
  const bool is_copied = activex::copy_picture(messages(), picture, fonts_.of({.points = 9}, dpi), dpi);
  PostMessageW(messages(), answer_message, static_cast<WPARAM>(ticket), !is_copied);
}

void WindowsHost::report(Surface&, const RunTimeError& error) {
  error_ = error;
}

}  // namespace tabulon::activex
