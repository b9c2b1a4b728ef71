#include "platform/desk.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <utility>

namespace tabulon::platform {

// What lies on top of everything and takes every event until it is over: a form, a menu, or something of
// the host's own (a file dialog). It lives in the task that opened it, and goes with it.
struct Desk::Modal {
  Modal(Surface& opener, Form* shown, MenuSession* opened)
      : desk(opener.desk()), opened_by(desk.executing_), form(shown), menu(opened) {
    desk.modals_.push_back(this);
  }
  Modal(const Modal&) = delete;
  ~Modal() {
    if (form) desk.host_.close_form(*form);
    if (menu) desk.host_.close_menu();
    const auto place = std::ranges::find(desk.modals_, this);
    const Modal* const below = place == desk.modals_.begin() ? nullptr : *std::prev(place);
    desk.modals_.erase(place);
    for (Running& running : desk.running_)  // a script's call that was begun up here goes on below
      if (running.level == this) running.level = below;
  }
  bool over() const { return (form && form->unloaded()) || (menu && menu->over()); }

  Desk& desk;
  Running* opened_by;
  Form* form;
  MenuSession* menu;
  Completion<bool> ended;
};

// A task that waits for an answer of the host.
struct Desk::Waiting {
  explicit Waiting(Desk& on) : desk(on), task(on.executing_), ticket(++on.last_ticket_) {
    desk.waiting_.push_back(this);
  }
  Waiting(const Waiting&) = delete;
  ~Waiting() { std::erase(desk.waiting_, this); }

  Desk& desk;
  Running* task;
  Ticket ticket;
  Completion<std::string> answer;
};

Desk::~Desk() {
  while (!running_.empty()) running_.pop_back();  // what runs on a form before what opened it
}

// ---- What handlers await

Task<> Desk::show_modal(Form& form) {
  Modal modal(form.owner(), &form, nullptr);
  form.owner().on_covered();
  form.on_load();
  host_.open_form(form);
  co_await form.entered();
  co_await form.on_activate();
  Control* const first = form.tab_neighbour(nullptr, false);
  if (first && !form.active()) co_await form.set_focus(*first);
  co_await modal.ended;
}

Task<Menu*> Desk::show_menu(Menu& menu, Twips x, Twips y) {
  MenuSession session(menu, x, y);
  Modal modal(menu.surface(), nullptr, &session);
  menu.surface().on_covered();
  host_.open_menu(session);
  co_await modal.ended;
  co_return session.chosen();
}

Task<std::string> Desk::show_file_dialog(Surface& surface, FileDialog dialog) {
  Modal modal(surface, nullptr, nullptr);
  Waiting waiting(*this);
  host_.show_file_dialog(dialog, waiting.ticket);
  co_return co_await waiting.answer;
}

Task<> Desk::pending_events() {
  Waiting waiting(*this);
  show_changes();
  host_.wake_after_repaint(waiting.ticket);
  co_await waiting.answer;
}

Task<> Desk::yield() {
  if (!host_.yield_due()) co_return;
  Waiting waiting(*this);
  host_.wake_after_events(waiting.ticket);
  co_await waiting.answer;
}

Task<> Desk::wait_milliseconds(double milliseconds) {
  Waiting waiting(*this);
  host_.wake_after(milliseconds, waiting.ticket);
  co_await waiting.answer;
}

Task<std::string> Desk::copy_picture(ClipboardPicture picture) {
  Waiting waiting(*this);
  host_.copy_picture(picture, waiting.ticket);
  co_return co_await waiting.answer;
}

// ---- Events

bool Desk::accepts(const Surface& surface) const {
  const Modal* const top = level();
  if (top ? top->form != &surface : surface.is_form()) return false;
  return std::ranges::none_of(running_, [&](const Running& running) { return running.level == top; });
}

Desk::Outcome Desk::start_event(Surface& surface, Task<> task) {
  if (!accepts(surface)) return Outcome::Dropped;
  return start(surface, gesture(surface, std::move(task)), 0, true);
}

Task<> Desk::gesture(Surface& surface, Task<> task) {
  co_await std::move(task);
  Running& running = *executing_;
  running.by_person = false;  // a failure of the telling is not told
  if (running.failure) co_await surface.on_failure(*running.failure);
}

void Desk::report(Surface& surface, const RunTimeError& error) {
  if (!executing_ || !executing_->by_person) return host_.report(surface, error);
  if (!executing_->failure) executing_->failure = error;
}

Desk::Outcome Desk::start(Surface& surface, Task<> task, Ticket call, bool by_person) {
  Running& running = running_.emplace_back(Running{&surface, level(), call, std::move(task), by_person});
  Outcome outcome = Outcome::Waits;
  execute(running, [&] {
    running.task.start();
    if (running.task.done()) outcome = Outcome::Ended;
  });
  flush();
  return outcome;
}

template <class Step>
void Desk::execute(Running& running, Step step) {
  Running* const before = std::exchange(executing_, &running);
  running.on_stack = true;
  step();
  running.on_stack = false;
  executing_ = before;
  drop_abandoned();
}

bool Desk::click(Control& control) {
  return start_event(control.surface(), control.surface().clicked(control)) != Outcome::Dropped;
}

// A handler that is no coroutine runs as soon as it is called.
bool Desk::click(Surface& surface) {
  return accepts(surface) && start_event(surface, surface.on_surface_click()) != Outcome::Dropped;
}

bool Desk::type(TextBox& box, std::string text) {
  return start_event(box.surface(), box.surface().typed(box, std::move(text))) != Outcome::Dropped;
}

bool Desk::focus(Control& control) {
  return start_event(control.surface(), control.surface().focus_wanted(control)) != Outcome::Dropped;
}

bool Desk::scroll(ScrollBar& bar, int value, bool dragging) {
  return start_event(bar.surface(), bar.surface().scrolled(bar, value, dragging)) != Outcome::Dropped;
}

bool Desk::pointer(Control& control, const Pointer& pointer) {
  Surface& surface = control.surface();
  return accepts(surface) && start_event(surface, surface.on_pointer(control, pointer)) != Outcome::Dropped;
}

// Entering and leaving are facts, not wishes: they are noted even while a handler runs.
void Desk::enter(Surface& surface) {
  start(surface, surface.entered());
}
void Desk::leave(Surface& surface) {
  start(surface, surface.left());
}

bool Desk::key(Surface& surface, KeyPress press) {
  if (menu_on_top()) {
    menu_key(press);
    return true;
  }
  // A key that makes the person answer something was used, whatever comes of it: the flag outlives this call.
  const auto used = std::make_shared<bool>(false);
  const auto gesture = [](Surface& on, KeyPress pressed, std::shared_ptr<bool> flag) -> Task<> {
    co_await on.pressed_key(pressed, *flag);
  };
  return start_event(surface, gesture(surface, press, used)) != Outcome::Ended || *used;
}

// ---- Menus

MenuSession* Desk::menu_on_top() {
  return modals_.empty() ? nullptr : modals_.back()->menu;
}
const MenuSession* Desk::open_menu() const {
  return modals_.empty() ? nullptr : modals_.back()->menu;
}

void Desk::menu_changed() {
  if (!menu_on_top()->over()) host_.update_menu(*menu_on_top());
  flush();
}

void Desk::menu_key(const KeyPress& press) {
  if (!menu_on_top()) return;
  menu_on_top()->key(press);
  menu_changed();
}

void Desk::menu_point_at(Menu& item) {
  if (!menu_on_top()) return;
  menu_on_top()->point_at(item);
  menu_changed();
}

void Desk::menu_choose(Menu& item) {
  if (!menu_on_top()) return;
  menu_on_top()->choose(item);
  menu_changed();
}

void Desk::menu_dismiss() {
  if (!menu_on_top()) return;
  menu_on_top()->dismiss();
  menu_changed();
}

// ---- Answers, calls, endings

void Desk::answer(Ticket ticket, std::string text) {
  const auto found = std::ranges::find(waiting_, ticket, &Waiting::ticket);
  if (found == waiting_.end()) return;
  Waiting& waiting = **found;
  if (waiting.task->abandoned) return;
  execute(*waiting.task, [&] { waiting.answer.complete(std::move(text)); });
  flush();
}

Ticket Desk::call(Surface& surface, Task<> task) {
  const Ticket ticket = ++last_ticket_;
  start(surface, std::move(task), ticket);
  return std::ranges::find(running_, ticket, &Running::call) != running_.end() ? ticket : 0;
}

bool Desk::remove_ended_tasks() {
  std::vector<Ticket> calls;
  const auto removed = std::erase_if(running_, [&](Running& running) {
    if (!running.task.done()) return false;
    if (running.call != 0) calls.push_back(running.call);
    return true;
  });
  for (const Ticket call : calls) host_.call_ended(call);
  return removed != 0;
}

bool Desk::end_modal() {
  Modal* const top = modals_.empty() ? nullptr : modals_.back();
  if (!top || !top->over() || top->ended.completed()) return false;
  if (std::ranges::any_of(running_, [&](const Running& running) { return running.level == top; }))
    return false;
  if (top->opened_by->abandoned) return false;
  execute(*top->opened_by, [&] { top->ended.complete(true); });
  return true;
}

void Desk::flush() {
  if (std::exchange(flushing_, true)) return;
  while (remove_ended_tasks() || end_modal()) {
  }
  flushing_ = false;
  show_changes();
}

bool Desk::busy(const Surface& surface) const {
  return std::ranges::any_of(running_, [&](const Running& running) {
    return running.owner == &surface && running.level == level();
  });
}

// A host that is handed a surface may open a form, or destroy surfaces: then the round begins anew.
void Desk::show_changes() {
  for (std::size_t at = 0; at < surfaces_.size(); ++at) {
    Surface* const surface = surfaces_[at];
    const std::size_t removals = removals_;
    surface->update();
    if (surface->take_changed()) host_.mirror(*surface);
    if (removals != removals_) {
      at = static_cast<std::size_t>(-1);
      continue;
    }
    const bool was = std::ranges::find(busy_, surface) != busy_.end();
    if (busy(*surface) == was) continue;
    host_.set_busy(*surface, !was);
    was ? static_cast<void>(std::erase(busy_, surface)) : busy_.push_back(surface);
  }
}

void Desk::abandon(Surface& surface) {
  const auto belongs = [&](const Running& running) {
    const Surface* owner = running.owner;
    while (owner != &surface && owner->is_form()) owner = &static_cast<const Form*>(owner)->owner();
    return owner == &surface;
  };
  for (Running& running : running_) running.abandoned = running.abandoned || belongs(running);
  drop_abandoned();
  flush();
}

void Desk::retire(Surface& surface) {
  take_away(surface);
  abandon(surface);
}

void Desk::take_away(Surface& surface) {
  std::erase(surfaces_, &surface);
  std::erase(busy_, &surface);
  ++removals_;
}

// The last started first: what runs on a form before what opened the form.
void Desk::drop_abandoned() {
  while (true) {
    const auto last = std::find_if(running_.rbegin(), running_.rend(), std::mem_fn(&Running::abandoned));
    if (last == running_.rend() || last->on_stack) return;
    running_.erase(std::next(last).base());
  }
}

void Desk::remove(Surface& surface) {
  if (std::ranges::find(running_, &surface, &Running::owner) != running_.end()) std::abort();
  take_away(surface);
}

}  // namespace tabulon::platform
