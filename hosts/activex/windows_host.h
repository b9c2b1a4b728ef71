// The platform of the control on Windows: windows, timers, menus, dialogs, files. One for the process,
// because all controls of a process share one model and one person.
//
//   WindowsHost host;
//   host.handle([&] { host.desk().click(button); });   // every event of the system goes through `handle`
//   host.wait_for(surface, surface.ShowAboutBox());    // a script's call: returns when the form has closed
//   host.release_later(std::move(view));                        // gone as soon as nothing of it can be
//   running
//
// Nothing blocks while a handler runs. What blocks on Windows (a pop-up menu, a file dialog, the message loop
// of a modal form) begins when the outermost event has been handled, so the control never finds itself
// half-way.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/activex/fonts.h"
#include "hosts/activex/reader_names.h"
#include "hosts/activex/surface_view.h"
#include "hosts/activex/windows_files.h"
#include "platform/desk.h"
#include "platform/host.h"

namespace tabulon::activex {

class WindowsHost : public platform::Host {
 public:
  WindowsHost() = default;
  ~WindowsHost() override;

  platform::Desk& desk() { return desk_; }
  Fonts& fonts() { return fonts_; }
  ReaderNames& reader_names() { return reader_names_; }

  // Runs the event, and then does what it led to. Nothing of the caller may be touched afterwards: what it
  // belongs to may be closing.
  template <class Event>
  auto handle(Event event) {
    const Handling handling(*this);
    return event();
  }
  // Runs the task, and messages until it has ended or its surface is given up.
  void wait_for(platform::Surface& surface, platform::Task<> task);
  // Gives up what the surface does.
  void abandon(platform::Surface& surface);
  // Acts when no handler runs: now, or when the running one has ended or waits.
  void after_event(std::function<void()> act);

  // Whoever listens to the control may close it or let it go while its own windows tell of something. So what
  // is gone is kept until no function of the library runs any more but those that say so here.
  class OnStack {
   public:
    explicit OnStack(WindowsHost& on);
    OnStack(const OnStack&) = delete;
    ~OnStack();

   private:
    WindowsHost& host_;
  };
  void release_later(std::shared_ptr<void> gone);
  // Nobody uses the library any more; it may be unloaded from any thread.
  void rest();

  // ---- Views
  void add(SurfaceView& view) { views_.push_back(&view); }
  void remove(SurfaceView& view);
  // A menu over it goes with it.
  void window_goes(HWND window);
  SurfaceView* view_of(const platform::Surface& surface) const;
  // The form on top, or the view that has the focus; null when neither is there.
  SurfaceView* top() const;
  bool form_is_open() const { return !forms_.empty(); }
  // True while the focus is moved by the host itself.
  bool moves_focus() const { return moves_focus_; }
  void focus_came(SurfaceView& view);
  void focus_went(SurfaceView& view);
  // The last error that nobody caught; a script that waits for a method asks for it.
  std::optional<RunTimeError> take_error() { return std::exchange(error_, {}); }
  // Whether a key that is held down was first pressed on what is on top now.
  bool is_meant_for_top(bool repeated);

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
  void report(platform::Surface& surface, const RunTimeError& error) override;
  void call_ended(platform::Ticket call) override { calls_.erase(call); }

 private:
  struct Handling {
    explicit Handling(WindowsHost& on);
    ~Handling();
    WindowsHost& host;
  };
  struct Question {
    platform::FileDialog dialog;
    platform::Ticket ticket;
  };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  HWND messages();
  HWND window_on_top() const;
  void afterwards();
  void show_focus();
  void track_menu();
  void ask_for_file();
  void empty_graves();
  template <class Condition>
  void run_messages_while(Condition condition);

  Fonts fonts_;
  ReaderNames reader_names_;
  WindowsFiles files_;
  std::vector<SurfaceView*> views_;
  std::vector<std::unique_ptr<SurfaceView>> forms_;
  std::vector<std::function<void()>> acts_;  // for when the running handler has ended
  std::vector<std::shared_ptr<void>> deferred_;
  SurfaceView* focused_ = nullptr;
  const SurfaceView* key_pressed_on_ = nullptr;
  const platform::MenuSession* menu_ = nullptr;
  HWND tracking_menu_ = nullptr;
  std::optional<Question> question_;
  std::map<platform::Ticket, const platform::Surface*> calls_;  // that somebody waits for, and whose they are
  std::optional<RunTimeError> error_;
  HWND messages_ = nullptr;
  ULONGLONG entered_ = 0;
  int depth_ = 0;     // of handlers
  int on_stack_ = 0;  // functions that want what is gone to be kept
  bool loop_runs_ = false;
  bool moves_focus_ = false;
  platform::Desk desk_{*this};  // last: tasks that still wait close their forms here when they go
};

}  // namespace tabulon::activex
