// The desk: where surfaces lie, one person works, and one thing happens at a time.
//
// Hosts turn each native event into one call here. The desk starts the surface's gesture as a task, lets
// it run until it ends or waits, and then hands the host what changed. While a form or menu is open, or a
// handler is not done, events for anything else are dropped.
//
//   desk.click(*lpctrl.find("cmd_Bewerken"));
//   desk.menu_choose(...);
#pragma once

#include <list>
#include <optional>
#include <string>
#include <vector>

#include "platform/host.h"
#include "platform/menu_session.h"
#include "platform/surface.h"

namespace tabulon::platform {

class Desk : public SurfaceOwner {
 public:
  explicit Desk(Host& host) : host_(host) {}
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk();

  Host& host() const { return host_; }

  // ---- What surfaces call
  Desk& desk() override { return *this; }
  void add(Surface& surface) override { surfaces_.push_back(&surface); }
  void remove(Surface& surface) override;
  bool take_focus(Surface& surface) override { return host_.take_focus(surface); }
  // What the person does and fails is told to the person when it has ended (Surface::on_failure), anything
  // else to the host.
  void report(Surface& surface, const RunTimeError& error) override;

  // ---- What handlers await
  Task<> show_modal(Form& form);
  // The item chosen, or null. `x` and `y` on the surface, in twips.
  Task<Menu*> show_menu(Menu& menu, Twips x, Twips y);
  // The name chosen; after cancelling, the name that the dialog started with.
  Task<std::string> show_file_dialog(Surface& surface, FileDialog dialog);
  Task<> pending_events();  // what is waiting happens once: the screen shows what was changed
  // Gives the host's thread back for a moment when the handler has held it long; nearly free otherwise.
  Task<> yield();
  Task<> wait_milliseconds(double milliseconds);
  // What the host answers: why there is no picture on the clipboard, or nothing.
  Task<std::string> copy_picture(ClipboardPicture picture);

  // ---- What hosts call. Each returns whether the event was taken.
  bool accepts(const Surface& surface) const;
  // Something is open that takes every event.
  bool is_covered() const { return !modals_.empty(); }
  bool click(Control& control);
  bool click(Surface& surface);
  bool type(TextBox& box, std::string text);
  bool focus(Control& control);
  // True when the key did something here, so that the host must not let it do something else.
  bool key(Surface& surface, KeyPress press);
  bool scroll(ScrollBar& bar, int value, bool dragging = false);
  bool pointer(Control& control, const Pointer& pointer);
  void enter(Surface& surface);
  void leave(Surface& surface);

  const MenuSession* open_menu() const;
  void menu_key(const KeyPress& press);
  void menu_point_at(Menu& item);
  void menu_choose(Menu& item);
  void menu_dismiss();

  void wake(Ticket ticket) { answer(ticket, {}); }
  void answer(Ticket ticket, std::string text);

  // ---- Calls from scripts
  // Runs the task now, whatever is open; 0 when it has ended already, else Host::call_ended tells.
  Ticket call(Surface& surface, Task<> task);
  // Hands the host what code outside any handler changed.
  void flush();

  // Gives up whatever the surface is doing, and closes what it has opened: at once, or, where the host was
  // called by a handler of that surface, as soon as that handler waits or ends.
  void abandon(Surface& surface);
  // The same for a surface that is about to go: from now on the host is handed nothing of it.
  void retire(Surface& surface);

 private:
  struct Modal;
  struct Waiting;
  struct Running {
    Surface* owner;
    const Modal* level;
    Ticket call;  // 0 where nobody waits for the end
    Task<> task;
    bool by_person = false;
    std::optional<RunTimeError> failure{};  // the first, of what a person has begun
    bool on_stack = false;                  // its code runs now
    bool abandoned = false;                 // to go as soon as nothing of it is on the stack
  };
  enum class Outcome : std::uint8_t { Dropped, Ended, Waits };

  Outcome start_event(Surface& surface, Task<> task);
  Task<> gesture(Surface& surface, Task<> task);
  Outcome start(Surface& surface, Task<> task, Ticket call = 0, bool by_person = false);
  bool busy(const Surface& surface) const;
  const Modal* level() const { return modals_.empty() ? nullptr : modals_.back(); }
  MenuSession* menu_on_top();
  void menu_changed();
  // Runs a step of a task: its start, or the answer that it has waited for.
  template <class Step>
  void execute(Running& running, Step step);
  void take_away(Surface& surface);
  void drop_abandoned();
  bool remove_ended_tasks();
  bool end_modal();
  void show_changes();

  Host& host_;
  std::vector<Surface*> surfaces_;
  std::vector<Modal*> modals_;
  std::vector<Waiting*> waiting_;
  std::list<Running> running_;
  Running* executing_ = nullptr;  // the task whose code runs now
  std::vector<Surface*> busy_;
  Ticket last_ticket_ = 0;
  std::size_t removals_ = 0;
  bool flushing_ = false;
};

}  // namespace tabulon::platform
