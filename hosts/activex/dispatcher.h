// One event at a time: what blocks on Windows, and what deletes, waits until the outermost event has been
// handled, so that nothing finds itself half-way or gone.
//
//   Dispatcher dispatcher([&] { ... });                     // each time that the outermost event has been
//   handled dispatcher.handle([&] { desk.click(button); });         // every event of the system goes through
//   this dispatcher.release_later(std::move(view));              // gone as soon as no function of it can be
//   running
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tabulon::activex {

class Dispatcher {
 public:
  explicit Dispatcher(std::function<void()> when_handled) : when_handled_(std::move(when_handled)) {}
  Dispatcher(const Dispatcher&) = delete;

  // Runs the event, and then what had to wait for its end. Nothing of the caller may be touched afterwards:
  // what it belongs to may be closing.
  template <class Event>
  auto handle(Event event) {
    const Handling handling(*this);
    return event();
  }
  // Acts when no event is being handled: now, or when the one that is has been, or waits.
  void after_event(std::function<void()> act);
  // How long the outermost event has held the thread, in milliseconds.
  ULONGLONG held_for() const { return GetTickCount64() - entered_; }

  // While it lives, an event is handled to its end although others are being handled: a script may call while
  // it is told of an event, and what it opens is to be seen at once.
  class Nested {
   public:
    explicit Nested(Dispatcher& in) : dispatcher_(in), outer_(std::exchange(in.depth_, 0)) {}
    Nested(const Nested&) = delete;
    ~Nested() { dispatcher_.depth_ = outer_; }

   private:
    Dispatcher& dispatcher_;
    int outer_;
  };

  // Whoever listens to the control may close it or let it go while its own windows tell of something. So what
  // is gone is kept until no function of the library runs any more but those that say so here.
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
  int depth_ = 0;     // of events
  int on_stack_ = 0;  // functions that want what is gone to be kept
};

}  // namespace tabulon::activex
