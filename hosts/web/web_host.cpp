#include "hosts/web/web_host.h"

#include <algorithm>

#include "hosts/web/page.h"

namespace tabulon::web {

using namespace platform;

int WebHost::add(Surface& surface) {
  shown_.emplace(++last_id_, Shown{&surface});
  surface.mark_changed();
  announce(last_id_, surface, 0);
  return last_id_;
}

void WebHost::remove(Surface& surface) {
  const int id = id_of(surface);
  if (id == 0) return;
  shown_.erase(id);
  page::close_surface(id);
}

Surface* WebHost::surface(int id) const {
  const auto found = shown_.find(id);
  return found != shown_.end() ? found->second.surface : nullptr;
}

Control* WebHost::control(int surface_id, int control_id) const {
  const Surface* const found = surface(surface_id);
  if (!found || control_id < 0 || control_id >= static_cast<int>(found->controls().size())) return nullptr;
  return found->controls()[static_cast<std::size_t>(control_id)];
}

int WebHost::id_of(const Surface& surface) const {
  const auto found =
      std::ranges::find_if(shown_, [&](const auto& each) { return each.second.surface == &surface; });
  return found != shown_.end() ? found->first : 0;
}

void WebHost::announce(int id, const Surface& surface, int owner) {
  record_.clear();
  record_.i32(id);
  record_.i32(owner);
  record_.f32(surface.width());
  record_.f32(surface.height());
  record_.text(surface.name());
  page::open_surface(record_.data(), record_.size());
}

// ---- What is seen

void WebHost::mirror(Surface& surface) {
  const int id = id_of(surface);
  if (id == 0) return;  // a form that is not open yet: it keeps its marks until it is
  record_.clear();
  write_surface(record_, id, surface, shown_.at(id).known);
  page::mirror(record_.data(), record_.size());
}

void WebHost::open_form(Form& form) {
  shown_.emplace(++last_id_, Shown{&form});
  form.mark_changed();
  announce(last_id_, form, id_of(form.owner()));
}

void WebHost::update_menu(const MenuSession& menu) {
  record_.clear();
  write_menu(record_, id_of(menu.surface()), menu);
  page::show_menu(record_.data(), record_.size());
}

void WebHost::close_menu() {
  page::close_menu();
}
void WebHost::set_busy(Surface& surface, bool busy) {
  page::set_busy(id_of(surface), busy);
}
bool WebHost::take_focus(Surface& surface) {
  return page::take_focus(id_of(surface));
}

// ---- Time

float WebHost::seconds_since_midnight() {
  return page::seconds_since_midnight();
}
void WebHost::wake_after(double milliseconds, Ticket ticket) {
  page::wake_after(milliseconds, ticket);
}
void WebHost::wake_after_repaint(Ticket ticket) {
  page::wake_after_repaint(ticket);
}
void WebHost::wake_after_events(Ticket ticket) {
  page::wake_after_events(ticket);
}
bool WebHost::yield_due() {
  return page::yield_due();
}

// ---- Capabilities

void WebHost::beep() {
  page::beep();
}

void WebHost::show_file_dialog(const FileDialog& dialog, Ticket ticket) {
  record_.clear();
  record_.u8(static_cast<std::uint8_t>(dialog.purpose));
  record_.text(dialog.title);
  record_.text(dialog.filter);
  record_.text(dialog.file_name);
  page::show_file_dialog(record_.data(), record_.size(), ticket);
}

void WebHost::clear_clipboard() {
  page::clear_clipboard();
}

void WebHost::copy_picture(const ClipboardPicture& picture, Ticket ticket) {
  record_.clear();
  record_.f32(picture.width);
  record_.f32(picture.height);
  write_drawing(record_, picture.scale, picture.drawing);
  page::copy_picture(record_.data(), record_.size(), ticket);
}

// ---- Reports

void WebHost::report(Surface& surface, const RunTimeError& error) {
  page::report(id_of(surface), static_cast<int>(error.number), error.subject.data(), error.subject.size());
}

void WebHost::call_ended(Ticket call) {
  page::call_ended(call);
}

}  // namespace tabulon::web
