// A host without a screen: every capability is a double that a test looks at and moves.
//
//   HeadlessHost host;
//   basSafeCtl model;
//   LPctrl control(host.desk(), model);
//   host.desk().click(*control.find("cmd_Help"));
//   host.answer_all();                  // repaints and waiting events have happened
//   host.open_menu()->highlighted();
//   host.advance(1.0);                  // one second goes by, and what waits for it goes on
//
// Nothing is answered by itself: a handler that waits goes on when the test says so.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/headless/memory_files.h"
#include "platform/desk.h"
#include "platform/host.h"

namespace tabulon::platform {

class HeadlessHost : public Host {
 public:
  struct Mirrored {
    const Surface* surface;
    const Control* control;
    Properties properties;
  };
  struct Report {
    const Surface* surface;
    RunTimeError error;
  };

  HeadlessHost() : desk_(*this) {}

  Desk& desk() { return desk_; }

  // ---- What is seen
  const std::vector<Form*>& open_forms() const { return forms_; }
  Form* top_form() const { return forms_.empty() ? nullptr : forms_.back(); }
  const MenuSession* open_menu() const { return menu_; }
  bool is_busy(const Surface& surface) const;
  // How often the surface was handed over, and the controls that it had marked since `forget_mirrored`.
  int mirrors(const Surface& surface) const;
  const std::vector<Mirrored>& mirrored() const { return mirrored_; }
  void forget_mirrored() { mirrored_.clear(), mirrors_.clear(); }
  // Forms and menus as they opened ("+frmMelding", "+mnu_Help") and closed ("-frmMelding", "-mnu_Help"),
  // and surfaces as they became busy ("busy LPctrl") and idle ("idle LPctrl").
  std::vector<std::string> history;
  // Whether a surface that asks for the keyboard gets it.
  bool grants_focus = true;

  // ---- Time
  // A second of the day, at first ten o'clock. `advance` also wakes what is due, in the order of time.
  double now() const { return now_milliseconds_ / 1000; }
  void set_now(double seconds) { now_milliseconds_ = seconds * 1000; }
  void advance(double seconds);
  bool sleeps() const { return !timers_.empty(); }
  // Answers the oldest of the repaints, waiting events and clipboard copies that are asked for, and what
  // they lead to; false when there is none.
  bool answer_one();
  // Answers all of them, also new ones, up to `most`; false when there were more.
  bool answer_all(int most = 10000);
  bool has_pending() const { return !pending_.empty(); }
  // A yield is due every so many times that it is asked about; 0: never.
  int yield_every = 0;
  int yield_questions = 0;

  // ---- Capabilities
  int beeps = 0;
  MemoryFiles memory_files;
  void use_files(FileStore& files) { files_ = &files; }
  struct AskedFile {
    FileDialog::Purpose purpose;
    std::string title, filter, file_name;
    Ticket ticket;
  };
  const std::optional<AskedFile>& file_dialog() const { return file_dialog_; }
  void answer_file_dialog(std::string name);
  void cancel_file_dialog();
  std::optional<ClipboardPicture> clipboard;
  int clipboard_clears = 0;
  // Why the clipboard refuses a picture; empty when it takes it.
  std::string clipboard_refusal;

  // ---- Reports
  std::vector<Report> reports;
  std::vector<Ticket> ended_calls;

  // ---- Host
  void mirror(Surface& surface) override;
  void open_form(Form& form) override;
  void close_form(Form& form) override;
  void open_menu(const MenuSession& menu) override;
  void update_menu(const MenuSession& menu) override;
  void close_menu() override;
  void set_busy(Surface& surface, bool busy) override;
  bool take_focus(Surface& surface) override;
  float seconds_since_midnight() override { return static_cast<float>(now()); }
  void wake_after(double milliseconds, Ticket ticket) override;
  void wake_after_repaint(Ticket ticket) override { pending_.push_back({ticket, {}}); }
  void wake_after_events(Ticket ticket) override { pending_.push_back({ticket, {}}); }
  bool yield_due() override;
  void beep() override { ++beeps; }
  void show_file_dialog(const FileDialog& dialog, Ticket ticket) override;
  FileStore& files() override { return *files_; }
  void clear_clipboard() override;
  void copy_picture(const ClipboardPicture& picture, Ticket ticket) override;
  void report(Surface& surface, const RunTimeError& error) override { reports.push_back({&surface, error}); }
  void call_ended(Ticket call) override { ended_calls.push_back(call); }

 private:
  struct Pending {
    Ticket ticket;
    std::string answer;
  };
  struct Timer {
    double due;
    Ticket ticket;
  };

  std::vector<Form*> forms_;
  const MenuSession* menu_ = nullptr;
  std::vector<const Surface*> busy_, mirrors_;
  std::vector<Mirrored> mirrored_;
  double now_milliseconds_ = 36'000'000;
  std::vector<Timer> timers_;
  std::deque<Pending> pending_;
  std::optional<AskedFile> file_dialog_;
  FileStore* files_ = &memory_files;
  Desk desk_;  // last: tasks that still wait close their forms here when they go
};

}  // namespace tabulon::platform
