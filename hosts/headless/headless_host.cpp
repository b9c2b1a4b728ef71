#include "hosts/headless/headless_host.h"

#include <algorithm>
#include <utility>

namespace tabulon::platform {

// ---- What is seen

bool HeadlessHost::is_busy(const Surface& surface) const {
  return std::ranges::find(busy_, &surface) != busy_.end();
}

int HeadlessHost::mirrors(const Surface& surface) const {
  return static_cast<int>(std::ranges::count(mirrors_, &surface));
}

void HeadlessHost::mirror(Surface& surface) {
  mirrors_.push_back(&surface);
  for (Control* control : surface.controls())
    if (const Properties marked = control->take_changes(); !marked.none())
      mirrored_.push_back({&surface, control, marked});
}

void HeadlessHost::open_form(Form& form) {
  forms_.push_back(&form);
  history.push_back("+" + std::string(form.name()));
}

void HeadlessHost::close_form(Form& form) {
  std::erase(forms_, &form);
  history.push_back("-" + std::string(form.name()));
  // The form is going: what was noted of it must not outlive it.
  std::erase(mirrors_, &form);
  std::erase_if(mirrored_, [&](const Mirrored& noted) { return noted.surface == &form; });
  std::erase(busy_, &form);
}

void HeadlessHost::open_menu(const MenuSession& menu) {
  menu_ = &menu;
  history.push_back("+" + std::string(menu.open().front()->name()));
}

void HeadlessHost::update_menu(const MenuSession& menu) {
  menu_ = &menu;
}

void HeadlessHost::close_menu() {
  history.push_back("-" + std::string(menu_->open().front()->name()));
  menu_ = nullptr;
}

void HeadlessHost::set_busy(Surface& surface, bool busy) {
  history.push_back((busy ? "busy " : "idle ") + std::string(surface.name()));
  std::erase(busy_, &surface);
  if (busy) busy_.push_back(&surface);
}

bool HeadlessHost::take_focus(Surface&) {
  return grants_focus;
}

// ---- Time

void HeadlessHost::wake_after(double milliseconds, Ticket ticket) {
  timers_.push_back({now_milliseconds_ + milliseconds, ticket});
}

void HeadlessHost::advance(double seconds) {
  const double end = now_milliseconds_ + seconds * 1000;
  while (true) {
    const auto next = std::ranges::min_element(timers_, {}, &Timer::due);
    if (next == timers_.end() || next->due > end) break;
    const Timer timer = *next;
    timers_.erase(next);
    now_milliseconds_ = std::max(now_milliseconds_, timer.due);
    desk_.wake(timer.ticket);
  }
  now_milliseconds_ = end;
}

bool HeadlessHost::answer_one() {
  if (pending_.empty()) return false;
  const Pending oldest = std::move(pending_.front());
  pending_.pop_front();
  desk_.answer(oldest.ticket, oldest.answer);
  return true;
}

bool HeadlessHost::answer_all(int most) {
  for (int answered = 0; answered < most; ++answered)
    if (!answer_one()) return true;
  return pending_.empty();
}

bool HeadlessHost::yield_due() {
  ++yield_questions;
  return yield_every != 0 && yield_questions % yield_every == 0;
}

// ---- Capabilities

void HeadlessHost::show_file_dialog(const FileDialog& dialog, Ticket ticket) {
  file_dialog_ = AskedFile{dialog.purpose, std::string(dialog.title), std::string(dialog.filter),
                           std::string(dialog.file_name), ticket};
}

void HeadlessHost::answer_file_dialog(std::string name) {
  if (const auto asked = std::exchange(file_dialog_, {})) desk_.answer(asked->ticket, std::move(name));
}

void HeadlessHost::cancel_file_dialog() {
  if (file_dialog_) answer_file_dialog(file_dialog_->file_name);
}

void HeadlessHost::clear_clipboard() {
  clipboard.reset();
  ++clipboard_clears;
}

void HeadlessHost::copy_picture(const ClipboardPicture& picture, Ticket ticket) {
  if (clipboard_refusal.empty()) clipboard = picture;
  pending_.push_back({ticket, clipboard_refusal});
}

}  // namespace tabulon::platform
