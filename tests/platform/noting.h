// Surfaces whose handlers note what happens, and do what a test wants besides.
//
//   HeadlessHost host;
//   Sheet sheet(host.desk());
//   sheet.when_clicked = [&](Control&) -> Task<> { co_await host.desk().wait_milliseconds(1000); };
//   host.desk().click(sheet.go);
//   EXPECT_EQ(sheet.take_log(), (Log{"GotFocus go", "Click go"}));
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/headless/headless_host.h"

namespace tabulon::platform {

using Log = std::vector<std::string>;

template <class Base>
class Noting : public Base {
 public:
  using Base::Base;

  std::function<Task<>(Control&)> when_clicked, when_got_focus, when_lost_focus;
  std::function<Task<>(Control&, bool&)> when_validating;
  std::function<Task<>(KeyPress&, bool&)> when_key_down;
  std::function<Task<>()> when_entered;
  std::function<void(Control&)> when_changed;

  Log take_log() { return std::exchange(log_, {}); }

  Task<> on_click(Control& control) override {
    note("Click", control);
    if (when_clicked) co_await when_clicked(control);
  }
  Task<> on_surface_click() override {
    log_.emplace_back("Click");
    return {};
  }
  void on_change(Control& control) override {
    note("Change", control);
    if (when_changed) when_changed(control);
  }
  Task<> on_scroll(ScrollBar& bar) override {
    note("Scroll", bar);
    co_return;
  }
  Task<> on_got_focus(Control& control) override {
    note("GotFocus", control);
    if (when_got_focus) co_await when_got_focus(control);
  }
  Task<> on_lost_focus(Control& control) override {
    note("LostFocus", control);
    if (when_lost_focus) co_await when_lost_focus(control);
  }
  Task<> on_validate(Control& control, bool& refused) override {
    note("Validate", control);
    if (when_validating) co_await when_validating(control, refused);
  }
  Task<> on_key_down(KeyPress& press, bool& used) override {
    if (when_key_down) co_await when_key_down(press, used);
  }
  Task<> on_pointer(Control& control, Pointer pointer) override {
    static constexpr const char* actions[] = {"Down", "Move", "Up", "Lost"};
    note(actions[static_cast<int>(pointer.action)], control);
    return {};
  }
  Task<> on_enter() override {
    log_.emplace_back("Enter");
    if (when_entered) co_await when_entered();
  }
  Task<> on_exit() override {
    log_.emplace_back("Exit");
    co_return;
  }

 protected:
  void note(std::string what) { log_.push_back(std::move(what)); }

 private:
  void note(const char* what, const Control& control) {
    log_.push_back(std::string(what) + " " + std::string(control.name()));
  }
  Log log_;
};

// Three text boxes and two buttons in a row, in tab order.
class Sheet : public Noting<Surface> {
 public:
  explicit Sheet(Desk& desk, std::string_view name = "Sheet") : Noting(desk, name, 9000, 4440) {
    int place = 0;
    for (Control* control : std::initializer_list<Control*>{&first, &second, &third, &go, &stop}) {
      control->set_bounds({150.0 + 900.0 * place, 150, 750, 300});
      control->set_tab(place++, true);
    }
    go.set_text("&Go");
    stop.set_text("&Stop");
  }

  ~Sheet() override { desk().retire(*this); }

  TextBox first{*this, "first"}, second{*this, "second"}, third{*this, "third"};
  CommandButton go{*this, "go"}, stop{*this, "stop"};
};

// A form with a text box and two buttons; OK closes it.
class Question : public Noting<Form> {
 public:
  explicit Question(Surface& owner, std::string_view name = "Question") : Noting(owner, name, 3000, 1500) {
    int place = 0;
    for (Control* control : std::initializer_list<Control*>{&answer, &ok, &cancel}) {
      control->set_bounds({150.0 + 900.0 * place, 150, 750, 300});
      control->set_tab(place++, true);
    }
    ok.set_text("OK");
    cancel.set_text("&Annuleren");
    default_button = &ok;
    cancel_button = &cancel;
  }

  std::function<Task<>()> when_activated;

  void on_load() override { note("Load"); }
  Task<> on_activate() override {
    note("Activate");
    if (when_activated) co_await when_activated();
  }
  Task<> on_click(Control& control) override {
    co_await Noting::on_click(control);
    if (&control == &ok || &control == &cancel) unload();
  }

  TextBox answer{*this, "answer"};
  CommandButton ok{*this, "ok"}, cancel{*this, "cancel"};
};

}  // namespace tabulon::platform
