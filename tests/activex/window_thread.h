// Runs work on the thread that owns the windows, from any other thread and in whatever message loop that
// thread is in, a menu's or a form's included.
//
//   WindowThread windows;                                      // made on that thread
//   windows.post([&] { container.show(parameters); });         // on any thread
//   windows.run([&] { text = container.text(); });             // and waits until it is done
#pragma once

#include <windows.h>

#include <functional>

namespace tabulon::activex {

class WindowThread {
 public:
  using Work = std::function<void()>;

  WindowThread();
  ~WindowThread();
  WindowThread(const WindowThread&) = delete;
  WindowThread& operator=(const WindowThread&) = delete;

  DWORD id() const { return id_; }
  void post(Work work);
  // False where the work is not done in time; it may still be done later, so it must own what it needs.
  bool run(Work work);

 private:
  DWORD id_;
  HWND window_;
};

}  // namespace tabulon::activex
