// Task<T>: the coroutine in which a handler waits for the person.
//
//   Task<> LPctrl::mnu_About_Click() {
//     co_await set_focus(txtFocus);
//     co_await ShowAboutBox();          // goes on when the form has closed
//   }
//
// A task starts when it is awaited or when `start` is called, runs on the one user-interface thread and
// waits only at a Completion, which a host completes when the person (or the clock) has answered.
// Destroying a task that waits destroys the tasks that it waits for, and forgets the completion.
//
// A task that ends without waiting never suspends the one that awaits it, so a loop may await any number
// of such tasks in constant stack, also where the compiler has no tail calls (WebAssembly).
#pragma once

#include <coroutine>
#include <cstdlib>
#include <optional>
#include <utility>

namespace tabulon::platform {

template <class T>
class Task;

namespace detail {

struct PromiseBase {
  struct Finish {
    bool await_ready() const noexcept { return false; }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> self) noexcept {
      PromiseBase& promise = self.promise();
      if (promise.awaited_by && !promise.inside_await) promise.awaited_by.resume();
    }
    void await_resume() const noexcept {}
  };

  std::suspend_always initial_suspend() const noexcept { return {}; }
  Finish final_suspend() const noexcept { return {}; }
  [[noreturn]] void unhandled_exception() const noexcept { std::abort(); }

  std::coroutine_handle<> awaited_by{};
  bool inside_await = false;  // the awaiting task has not left its co_await yet
};

template <class T>
struct Promise : PromiseBase {
  Task<T> get_return_object();
  void return_value(T value) { result.emplace(std::move(value)); }
  T take() { return std::move(*result); }
  std::optional<T> result;
};

template <>
struct Promise<void> : PromiseBase {
  Task<void> get_return_object();
  void return_void() const noexcept {}
  void take() const noexcept {}
};

}  // namespace detail

template <class T = void>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::Promise<T>;
  using Handle = std::coroutine_handle<promise_type>;

  Task() = default;
  explicit Task(Handle handle) : handle_(handle) {}
  Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}
  Task& operator=(Task&& other) noexcept {
    if (this != &other) {
      destroy();
      handle_ = std::exchange(other.handle_, {});
    }
    return *this;
  }
  ~Task() { destroy(); }

  // Runs the task up to its first wait. Call it once, on a task that nobody awaits.
  void start() { handle_.resume(); }
  bool done() const { return !handle_ || handle_.done(); }
  // The value of a task that is done.
  T result() { return handle_.promise().take(); }

  auto operator co_await() && noexcept {
    struct Awaiter {
      Handle child;
      bool await_ready() const noexcept { return child.done(); }
      // Not inlined, and neither is `destroy`: there is a copy at every co_await else.
      [[gnu::noinline]] bool await_suspend(std::coroutine_handle<> parent) const noexcept {
        child.promise().awaited_by = parent;
        child.promise().inside_await = true;
        child.resume();
        child.promise().inside_await = false;
        return !child.done();
      }
      T await_resume() const { return child.promise().take(); }
    };
    return Awaiter{handle_};
  }

 private:
  [[gnu::noinline]] void destroy() {
    if (handle_) std::exchange(handle_, {}).destroy();
  }

  Handle handle_{};
};

template <class T>
Task<T> detail::Promise<T>::get_return_object() {
  return Task<T>(Task<T>::Handle::from_promise(*this));
}
inline Task<void> detail::Promise<void>::get_return_object() {
  return Task<void>(Task<void>::Handle::from_promise(*this));
}

// A one-shot wait: one task awaits it, the host completes it. Completing before the await is fine.
template <class T>
class Completion {
 public:
  Completion() = default;
  Completion(const Completion&) = delete;
  Completion& operator=(const Completion&) = delete;

  void complete(T value) {
    value_.emplace(std::move(value));
    if (auto waiting = std::exchange(waiting_, {})) waiting.resume();
  }
  bool completed() const { return value_.has_value(); }

  auto operator co_await() noexcept {
    struct Awaiter {
      explicit Awaiter(Completion& source) : completion(source) {}
      Awaiter(const Awaiter&) = delete;
      ~Awaiter() { completion.waiting_ = {}; }
      bool await_ready() const noexcept { return completion.completed(); }
      void await_suspend(std::coroutine_handle<> task) noexcept { completion.waiting_ = task; }
      T await_resume() { return std::move(*completion.value_); }
      Completion& completion;
    };
    return Awaiter{*this};
  }

 private:
  std::coroutine_handle<> waiting_{};
  std::optional<T> value_;
};

}  // namespace tabulon::platform
