#include "window_thread.h"

#include <memory>
#include <utility>

#include "patience.h"

namespace tabulon::activex {

namespace {

constexpr UINT work_message = WM_APP;

LRESULT CALLBACK do_work(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != work_message) return DefWindowProcW(window, message, wparam, lparam);
  const std::unique_ptr<WindowThread::Work> work(reinterpret_cast<WindowThread::Work*>(lparam));
  (*work)();
  return 0;
}

}  // namespace

WindowThread::WindowThread()
    : id_(GetCurrentThreadId()),
      window_(
          CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
  SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&do_work));
}

WindowThread::~WindowThread() {
  DestroyWindow(window_);
}

void WindowThread::post(Work work) {
  auto owned = std::make_unique<Work>(std::move(work));
  if (PostMessageW(window_, work_message, 0, reinterpret_cast<LPARAM>(owned.get()))) (void)owned.release();
}

bool WindowThread::run(Work work) {
  // Both threads hold the event: one may give up waiting before the other is done.
  const std::shared_ptr<void> done(CreateEventW(nullptr, true, false, nullptr), CloseHandle);
  post([done, work = std::move(work)] {
    work();
    SetEvent(done.get());
  });
  return WaitForSingleObject(done.get(), patience_in_milliseconds) == WAIT_OBJECT_0;
}

}  // namespace tabulon::activex
