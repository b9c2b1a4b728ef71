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
// A handler that never waits need be no coroutine: it does its work and returns {}, a task that has ended.
//
// A task that ends without waiting never suspends the one that awaits it, so a loop may await any number
// of such tasks in constant stack, also where the compiler has no tail calls (WebAssembly).
#pragma once

#include <coroutine>
#include <cstdlib>
#include <optional>
#include <type_traits>
#include <utility>

namespace tabulon::platform {

template <class T>
class Task;

namespace detail {

// What every task has, whatever it results in.
struct PromiseBase {
  std::suspend_always initial_suspend() const noexcept { return {}; }
  std::suspend_always final_suspend() const noexcept { return {}; }
  [[noreturn]] void unhandled_exception() const noexcept { std::abort(); }

  std::coroutine_handle<> self;
  PromiseBase* awaited_by = nullptr;
};

// Goes on with a task that has waited, and where that ends it, with the one that awaits it.
inline void go_on(PromiseBase* task) {
  for (; task; task = task->awaited_by) {
    task->self.resume();
    if (!task->self.done()) return;
  }
}

template <class T>
struct Promise : PromiseBase {
  Task<T> get_return_object();
  void return_value(T value) { result = std::move(value); }
  T take() { return std::move(result); }
  T result{};
};

template <>
struct Promise<void> : PromiseBase {
  Task<void> get_return_object();
  void return_void() const noexcept {}
};

}  // namespace detail

template <class T = void>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::Promise<T>;

  Task() = default;  // has ended
  explicit Task(promise_type& promise) : promise_(&promise) {
    promise.self = std::coroutine_handle<promise_type>::from_promise(promise);
  }
  Task(Task&& other) noexcept : promise_(std::exchange(other.promise_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    if (this != &other) {
      destroy();
      promise_ = std::exchange(other.promise_, nullptr);
    }
    return *this;
  }
  ~Task() { destroy(); }

  // Runs the task up to its first wait. Call it once, on a task that nobody awaits.
  void start() {
    if (promise_) promise_->self.resume();
  }
  bool done() const { return !promise_ || promise_->self.done(); }
  // The value of a task that is done.
  T result() {
    if constexpr (!std::is_void_v<T>) return promise_->take();
  }

  // To be awaited, which starts it.
  bool await_ready() const noexcept { return false; }
  template <class Parent>
  bool await_suspend(std::coroutine_handle<Parent> parent) noexcept {
    return waits(parent.promise());
  }
  T await_resume() { return result(); }

 private:
  // Not inlined, and neither is `destroy`: there is a copy at every co_await else.
  [[gnu::noinline]] bool waits(detail::PromiseBase& parent) noexcept {
    if (done()) return false;
    promise_->awaited_by = &parent;
    start();
    return !done();
  }
  [[gnu::noinline]] void destroy() {
    if (promise_) std::exchange(promise_, nullptr)->self.destroy();
  }

  promise_type* promise_ = nullptr;
};

template <class T>
Task<T> detail::Promise<T>::get_return_object() {
  return Task<T>(*this);
}
inline Task<void> detail::Promise<void>::get_return_object() {
  return Task<void>(*this);
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
    if (auto* const waiting = std::exchange(waiting_, nullptr)) detail::go_on(waiting);
  }
  bool completed() const { return value_.has_value(); }

  auto operator co_await() noexcept { return Awaiter(*this); }

 private:
  class Awaiter;
  detail::PromiseBase* waiting_ = nullptr;
  std::optional<T> value_;
};

template <class T>
class Completion<T>::Awaiter {
 public:
  explicit Awaiter(Completion& completion) : completion_(completion) {}
  Awaiter(const Awaiter&) = delete;
  ~Awaiter() { completion_.waiting_ = nullptr; }
  bool await_ready() const noexcept { return completion_.completed(); }
  template <class Promise>
  void await_suspend(std::coroutine_handle<Promise> task) noexcept {
    completion_.waiting_ = &task.promise();
  }
  T await_resume() { return std::move(*completion_.value_); }

 private:
  Completion& completion_;
};

}  // namespace tabulon::platform
