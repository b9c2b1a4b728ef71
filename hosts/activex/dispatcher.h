// Handles one event at a time. Whatever blocks or deletes waits until the outermost event has been handled,
// so that no function ever finds its object half-changed or deleted.
//
//   Dispatcher dispatcher([&] { ... });                // runs after each outermost event
//   dispatcher.handle([&] { desk.click(button); });    // every event of the system goes through this
//   dispatcher.release_later(std::move(view));         // deleted once none of its functions can be running
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/activex/own_arithmetic.h"

namespace tabulon::activex {

class Dispatcher {
 public:
  explicit Dispatcher(std::function<void()> when_handled) : when_handled_(std::move(when_handled)) {}
  Dispatcher(const Dispatcher&) = delete;

  // Runs the event, then whatever had to wait for its end. Afterwards the caller must not touch its own
  // object, which may have been closed.
  template <class Event>
  auto handle(Event event) {
    const Handling handling(*this);
    const OwnArithmetic arithmetic;
    return event();
  }
  // Runs the action as soon as no event is being handled.
  void after_event(std::function<void()> act);
  // How long the outermost event has held the thread, in milliseconds.
  ULONGLONG held_for() const { return GetTickCount64() - entered_; }

  // While it exists, events count as outermost although another is being handled: a script may call the
  // control from within an event, and a form that it opens must show at once.
  class Nested {
   public:
    explicit Nested(Dispatcher& in) : dispatcher_(in), outer_(std::exchange(in.depth_, 0)) {}
    Nested(const Nested&) = delete;
    ~Nested() { dispatcher_.depth_ = outer_; }

   private:
    Dispatcher& dispatcher_;
    int outer_;
  };

  // A listener may close or release the control from within a message of the control's own windows. Deletion
  // is therefore deferred while any function that declares one of these is on the stack.
  class OnStack {
   public:
    explicit OnStack(Dispatcher& of) : dispatcher_(of) { ++dispatcher_.on_stack_; }
    OnStack(const OnStack&) = delete;
    ~OnStack();

   private:
    Dispatcher& dispatcher_;
  };
  void release_later(std::shared_ptr<void> gone);

 private:
  class Handling {
   public:
    explicit Handling(Dispatcher& on);
    Handling(const Handling&) = delete;
    ~Handling();

   private:
    Dispatcher& dispatcher_;
  };

  void release_what_is_gone();

  std::function<void()> when_handled_;
  std::vector<std::function<void()>> acts_;
  std::vector<std::shared_ptr<void>> deferred_;
  ULONGLONG entered_ = 0;
  int depth_ = 0;     // of nested events
  int on_stack_ = 0;  // functions that defer deletion
};

}  // namespace tabulon::activex
