// The page as the control's host: every wish goes on to the page in one call.
//
//   WebHost host;
//   Desk desk(host);
//   LPctrl control(desk, model);
//   const int surface = host.add(control);      // from now on the page shows it
//
// The page knows surfaces by number. Numbers are not used again, so an event for a form that has closed
// finds nothing.
#pragma once

#include <vector>

#include "control/basSafeCtl_changes.h"
#include "hosts/web/mirror.h"
#include "hosts/web/record.h"
#include "hosts/web/web_files.h"
#include "platform/host.h"
#include "platform/menu_session.h"
#include "platform/surface.h"

namespace tabulon::web {

class WebHost : public platform::Host, public TableauObserver {
 public:
  int add(platform::Surface& surface);
  void remove(platform::Surface& surface);
  // Null when the page names what is not there any more.
  platform::Surface* surface(int id) const;
  platform::Control* control(int surface, int control) const;
  WebFiles& web_files() { return files_; }
  // For as long as the page tells of what was typed; the text is lent.
  void set_typed(const Typed& typed) { typed_ = typed; }

  void mirror(platform::Surface& surface) override;
  void open_form(platform::Form& form) override;
  void close_form(platform::Form& form) override { remove(form); }
  void open_menu(const platform::MenuSession& menu) override { update_menu(menu); }
  void update_menu(const platform::MenuSession& menu) override;
  void close_menu() override;
  void set_busy(platform::Surface& surface, bool busy) override;
  bool take_focus(platform::Surface& surface) override;

  float seconds_since_midnight() override;
  void wake_after(double milliseconds, platform::Ticket ticket) override;
  void wake_after_repaint(platform::Ticket ticket) override;
  void wake_after_events(platform::Ticket ticket) override;
  bool yield_due() override;

  void beep() override;
  void show_file_dialog(const platform::FileDialog& dialog, platform::Ticket ticket) override;
  platform::FileStore& files() override { return files_; }
  void clear_clipboard() override;
  void copy_picture(const platform::ClipboardPicture& picture, platform::Ticket ticket) override;

  void report(platform::Surface& surface, const RunTimeError& error) override;
  void call_ended(platform::Ticket call) override;

  void tableau_changed(const TableauChange& change) override;

 private:
  struct Shown {
    int id;
    platform::Surface* surface;
    std::vector<Known> known{};  // of each control, by its id
  };

  // 0 for a surface that the page does not show.
  int id_of(const platform::Surface& surface) const;
  // `place`: of a form, on its owner.
  int show(platform::Surface& surface, int owner, platform::Point place);

  std::vector<Shown> shown_;
  int last_id_ = 0;
  WebFiles files_;
  Typed typed_;
  Record record_;
};

}  // namespace tabulon::web
