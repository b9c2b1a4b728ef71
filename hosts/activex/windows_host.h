// The platform of the control on Windows: views, menus, dialogs, timers, files. One for the process, because
// all controls of a process share one model and one keyboard.
//
//   WindowsHost host;
//   host.dispatcher().handle([&] { host.desk().click(button); });
//   host.wait_for(surface, surface.ShowAboutBox());    // a script's call: returns when the form has closed
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/activex/dispatcher.h"
#include "hosts/activex/focus_owner.h"
#include "hosts/activex/fonts.h"
#include "hosts/activex/form_view.h"
#include "hosts/activex/reader_names.h"
#include "hosts/activex/surface_view.h"
#include "hosts/activex/ticket_window.h"
#include "hosts/activex/windows_files.h"
#include "platform/desk.h"
#include "platform/host.h"

namespace tabulon::activex {

class WindowsHost final : public platform::Host, public FocusOwner {
 public:
  platform::Desk& desk() { return desk_; }
  Dispatcher& dispatcher() { return dispatcher_; }
  // What views need of the host.
  const Services& services() const { return services_; }

  // Registers the view of a control; views of forms are created by the host.
  void add(SurfaceView& view) { views_.push_back(&view); }
  void remove(SurfaceView& view);

  // Runs the task, dispatching messages until it has ended or its surface is abandoned.
  void wait_for(platform::Surface& surface, platform::Task<> task);
  // Cancels the surface's tasks.
  void abandon(platform::Surface& surface);
  // The last error that nobody caught, for the script whose call caused it.
  std::optional<RunTimeError> take_error() { return std::exchange(error_, {}); }
  // To be called when the library is no longer used: from now on any thread may unload it.
  void close_windows() { tickets_.close(); }

  // ---- FocusOwner
  bool form_is_open() const override { return !forms_.empty(); }
  bool moves_focus() const override { return moves_focus_; }
  void focus_came(platform::Surface& surface) override;
  void focus_went(platform::Surface& surface) override;
  bool is_meant_for_top(bool repeated) override;

  // ---- Host
  void mirror(platform::Surface& surface) override;
  void open_form(platform::Form& form) override;
  void close_form(platform::Form& form) override;
  void open_menu(const platform::MenuSession& menu) override { menu_ = &menu; }
  void update_menu(const platform::MenuSession&) override {}
  void close_menu() override;
  void set_busy(platform::Surface& surface, bool busy) override;
  bool take_focus(platform::Surface& surface) override;
  float seconds_since_midnight() override;
  void wake_after(double milliseconds, platform::Ticket ticket) override;
  void wake_after_repaint(platform::Ticket ticket) override;
  void wake_after_events(platform::Ticket ticket) override { wake_after(0, ticket); }
  bool yield_due() override;
  void beep() override { MessageBeep(MB_OK); }
  void show_file_dialog(const platform::FileDialog& dialog, platform::Ticket ticket) override;
  platform::FileStore& files() override { return files_; }
  void clear_clipboard() override;
  void copy_picture(const platform::ClipboardPicture& picture, platform::Ticket ticket) override;
  void report(platform::Surface&, const RunTimeError& error) override { error_ = error; }
  void call_ended(platform::Ticket call) override { calls_.erase(call); }

 private:
  struct Question {
    platform::FileDialog dialog;
    platform::Ticket ticket;
  };

  SurfaceView* view_of(const platform::Surface& surface) const;
  // The topmost form, or else the view that has the focus; null if there is neither.
  SurfaceView* top() const;
  HWND window_on_top() const;
  void after_event();
  void show_focus();
  void track_menu();
  void ask_for_file();
  template <class Condition>
  void run_messages_while(Condition condition);

  Fonts fonts_;
  ReaderNames reader_names_;
  WindowsFiles files_;
  Dispatcher dispatcher_{[this] { after_event(); }};
  TicketWindow tickets_{[this](platform::Ticket ticket, bool refused) {
    dispatcher_.handle([&] { desk_.answer(ticket, refused ? "refused" : ""); });
  }};
  Services services_{dispatcher_, desk_, *this, fonts_, reader_names_};
  std::vector<SurfaceView*> views_;
  std::vector<std::unique_ptr<FormView>> forms_;
  SurfaceView* focused_ = nullptr;
  const SurfaceView* key_pressed_on_ = nullptr;
  const platform::MenuSession* menu_ = nullptr;
  bool tracks_menu_ = false;
  std::optional<Question> question_;
  std::map<platform::Ticket, const platform::Surface*> calls_;  // that scripts wait for
  std::optional<RunTimeError> error_;
  bool loop_runs_ = false;
  bool moves_focus_ = false;
  platform::Desk desk_{*this};  // last: tasks that still wait close their forms here when they go
};

}  // namespace tabulon::activex
