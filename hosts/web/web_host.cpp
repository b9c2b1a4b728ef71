#include "hosts/web/web_host.h"

#include <algorithm>

#include "hosts/web/page.h"

namespace tabulon::web {

using namespace platform;

int WebHost::add(Surface& surface) {
  return show(surface, 0, {});
}

void WebHost::remove(Surface& surface) {
  const int id = id_of(surface);
  if (id == 0) return;
  std::erase_if(shown_, [&](const Shown& each) { return each.id == id; });
  page::close_surface(id);
}

Surface* WebHost::surface(int id) const {
  const auto found = std::ranges::find(shown_, id, &Shown::id);
  return found != shown_.end() ? found->surface : nullptr;
}

Control* WebHost::control(int surface_id, int control_id) const {
  const Surface* const found = surface(surface_id);
  if (!found || control_id < 0 || control_id >= static_cast<int>(found->controls().size())) return nullptr;
  return found->controls()[static_cast<std::size_t>(control_id)];
}

int WebHost::id_of(const Surface& surface) const {
  const auto found = std::ranges::find(shown_, &surface, &Shown::surface);
  return found != shown_.end() ? found->id : 0;
}

int WebHost::show(Surface& surface, int owner, Point place) {
  shown_.push_back({++last_id_, &surface});
  surface.mark_changed();
  record_.clear();
  wire::write(record_, wire::OpenedSurface{.id = last_id_,
                                           .owner = owner,
                                           .width = surface.width(),
                                           .height = surface.height(),
                                           .left = place.x,
                                           .top = place.y,
                                           .name = surface.name()});
  page::open_surface(record_.data(), record_.size());
  return last_id_;
}

// ---- What is seen

void WebHost::mirror(Surface& surface) {
  const auto shown = std::ranges::find(shown_, &surface, &Shown::surface);
  if (shown == shown_.end()) return;  // a form that is not open yet: it keeps its marks until it is
  record_.clear();
  write_surface(record_, shown->id, surface, shown->known, typed_);
  page::mirror(record_.data(), record_.size());
}

void WebHost::open_form(Form& form) {
  show(form, id_of(form.owner()), form.place());
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
  return static_cast<float>(page::seconds_since_midnight());
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
  wire::write(record_, wire::FileQuestion{.purpose = dialog.purpose,
                                          .title = dialog.title,
                                          .filter = dialog.filter,
                                          .file_name = dialog.file_name});
  page::show_file_dialog(record_.data(), record_.size(), ticket);
}

void WebHost::clear_clipboard() {
  page::clear_clipboard();
}

void WebHost::copy_picture(const ClipboardPicture& picture, Ticket ticket) {
  record_.clear();
  wire::write(record_, wire::CopiedPicture{.width = picture.width,
                                           .height = picture.height,
                                           .scale = picture.scale,
                                           .strokes = picture.drawing.strokes()});
  page::copy_picture(record_.data(), record_.size(), ticket);
}

// ---- Reports

void WebHost::report(Surface& surface, const RunTimeError& error) {
  const auto* const subject = reinterpret_cast<const std::uint8_t*>(error.subject.data());
  page::report(id_of(surface), static_cast<int>(error.number), subject, error.subject.size());
}

void WebHost::call_ended(Ticket call) {
  page::call_ended(call);
}

void WebHost::tableau_changed(const TableauChange& change) {
  record_.clear();
  wire::write(record_,
              wire::ToldChange{.cause = words_of(change.cause), .column = change.column, .row = change.row});
  page::tableau_changed(record_.data(), record_.size());
}

}  // namespace tabulon::web
