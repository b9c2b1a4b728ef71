#include "hosts/activex/windows_host.h"

#include <algorithm>

#include "hosts/activex/clipboard.h"
#include "hosts/activex/density.h"
#include "hosts/activex/file_dialog.h"
#include "hosts/activex/popup_menu.h"

namespace tabulon::activex {

using namespace platform;

namespace {

// How long a handler may hold the thread before the user would notice, in milliseconds.
constexpr ULONGLONG longest_run = 100;

}  // namespace

// ---- What blocks, when the event that led to it has been handled

void WindowsHost::after_event() {
  show_focus();
  if (question_) ask_for_file();
  if (menu_ && !tracks_menu_) track_menu();
  if (!forms_.empty() && !loop_runs_) run_messages_while([this] { return !forms_.empty(); });
}

void WindowsHost::show_focus() {
  const bool before = std::exchange(moves_focus_, true);
  for (const auto& form : forms_) form->show();
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

void WindowsHost::wait_for(Surface& surface, Task<> task) {
  const Dispatcher::OnStack on_stack(dispatcher_);
  const Dispatcher::Nested nested(dispatcher_);
  Ticket call = 0;
  dispatcher_.handle([&] {
    call = desk_.call(surface, std::move(task));
    if (call != 0) calls_.emplace(call, &surface);
  });
  run_messages_while([&] { return calls_.contains(call); });
}

void WindowsHost::abandon(Surface& surface) {
  std::erase_if(calls_, [&](const auto& call) { return call.second == &surface; });
  dispatcher_.handle([&] { desk_.abandon(surface); });
}

// ---- Views

void WindowsHost::remove(SurfaceView& view) {
  std::erase(views_, &view);
  if (focused_ == &view) focused_ = nullptr;
  if (key_pressed_on_ == &view) key_pressed_on_ = nullptr;
}

SurfaceView* WindowsHost::view_of(const Surface& surface) const {
  const auto shows = [&](const auto& view) { return view->surface() == &surface; };
  if (const auto form = std::ranges::find_if(forms_, shows); form != forms_.end()) return form->get();
  const auto found = std::ranges::find_if(views_, shows);
  return found != views_.end() ? *found : nullptr;
}

SurfaceView* WindowsHost::top() const {
  return forms_.empty() ? focused_ : forms_.back().get();
}

HWND WindowsHost::window_on_top() const {
  if (!forms_.empty()) return forms_.back()->window();
  return focused_ ? GetAncestor(focused_->window(), GA_ROOT) : nullptr;
}

void WindowsHost::mirror(Surface& surface) {
  if (SurfaceView* const view = view_of(surface)) view->mirror();
}

void WindowsHost::set_busy(Surface& surface, bool busy) {
  if (SurfaceView* const view = view_of(surface)) view->set_busy(busy);
}

// ---- The focus

void WindowsHost::focus_came(Surface& surface) {
  SurfaceView* const view = view_of(surface);
  focused_ = view;
  desk_.enter(surface);  // first: the container may close the control when it is notified
  view->site().focus_changed(true);
}

void WindowsHost::focus_went(Surface& surface) {
  SurfaceView* const view = view_of(surface);
  if (focused_ == view) focused_ = nullptr;
  desk_.leave(surface);
  view->site().focus_changed(false);
}

bool WindowsHost::is_meant_for_top(bool repeated) {
  if (!repeated) key_pressed_on_ = top();
  return key_pressed_on_ == top();
}

// The control does not take the focus from another control of its page or form.
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
  if (!view->window()) focused_ = nullptr;  // the container has deactivated it
  return focused_ == view;
}

// ---- Forms

void WindowsHost::open_form(Form& form) {
  SurfaceView* const opener = view_of(form.owner());
  if (!opener) return;
  opener->hot().set(nullptr);
  // Now, while an event is being handled: later the one who holds the mouse would begin another by letting
  // go.
  if (HWND const holder = GetCapture()) SendMessageW(holder, WM_CANCELMODE, 0, 0);
  auto view = std::make_unique<FormView>(services_, form, opener->site(),
                                         [this, &owner = form.owner()] { abandon(owner); });
  view->open_over(opener->window());
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
  if (key_pressed_on_ == closed.get()) key_pressed_on_ = nullptr;
  dispatcher_.release_later(std::move(closed));
}

// ---- Menus

void WindowsHost::track_menu() {
  SurfaceView* const view = view_of(menu_->surface());
  if (!view || !view->window()) return desk_.menu_dismiss();
  tracks_menu_ = true;
  Menu* const chosen = track_popup_menu(*menu_, view->window(), view->dpi());
  tracks_menu_ = false;
  view->hot().set(nullptr);  // the menu has captured the mouse, which may have left
  if (!menu_) return;        // closed by somebody else meanwhile
  dispatcher_.handle([&] {
    if (!chosen) return desk_.menu_dismiss();
    // The system has opened the submenu with the item; the desk must know.
    desk_.menu_point_at(*chosen->parent());
    desk_.menu_choose(*chosen);
  });
}

void WindowsHost::close_menu() {
  menu_ = nullptr;
  if (tracks_menu_) EndMenu();
}

// ---- Time

float WindowsHost::seconds_since_midnight() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  const int seconds = (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
  return static_cast<float>(seconds + now.wMilliseconds / 1000.0);
}

void WindowsHost::wake_after(double milliseconds, Ticket ticket) {
  tickets_.answer_after(milliseconds, ticket);
}

void WindowsHost::wake_after_repaint(Ticket ticket) {
  const auto repaint = [](const auto& view) {
    if (view->window()) RedrawWindow(view->window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  };
  std::ranges::for_each(views_, repaint);
  std::ranges::for_each(forms_, repaint);
  tickets_.answer_soon(ticket);
}

bool WindowsHost::yield_due() {
  return dispatcher_.held_for() > longest_run;
}

// ---- Files and the clipboard

void WindowsHost::show_file_dialog(const FileDialog& dialog, Ticket ticket) {
  question_ = Question{dialog, ticket};
}

void WindowsHost::ask_for_file() {
  const Question question = *std::exchange(question_, {});
  ViewSite* const site = focused_ ? &focused_->site() : nullptr;
  if (site) site->enable_modeless(false);
  std::string name = activex::ask_for_file(window_on_top(), question.dialog);
  if (site) site->enable_modeless(true);
  dispatcher_.handle([&] { desk_.answer(question.ticket, std::move(name)); });
}

void WindowsHost::clear_clipboard() {
  activex::clear_clipboard(tickets_.window());
}

void WindowsHost::copy_picture(const ClipboardPicture& picture, Ticket ticket) {
  const int dpi = focused_ ? focused_->dpi() : dpi_of(nullptr);
  const HFONT letters = fonts_.of({.points = 9}, dpi);
  tickets_.answer_soon(ticket, !activex::copy_picture(tickets_.window(), picture, letters, dpi));
}

}  // namespace tabulon::activex
