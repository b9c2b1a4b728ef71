#include "hosts/activex/ticket_window.h"

#include <cmath>

#include "hosts/activex/module.h"

namespace tabulon::activex {

using platform::Ticket;

namespace {

// wParam: the ticket. lParam: 1 where what was asked for is refused.
constexpr UINT answer_message = WM_APP;
constexpr wchar_t window_class[] = L"TabulonMessages";

}  // namespace

HWND TicketWindow::window() {
  if (window_) return window_;
  WNDCLASSW shape{};
  shape.hInstance = this_module();
  shape.lpfnWndProc = procedure;
  shape.lpszClassName = window_class;
  RegisterClassW(&shape);
  window_ =
      CreateWindowExW(0, window_class, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, this_module(), nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return window_;
}

void TicketWindow::close() {
  if (!window_) return;
  DestroyWindow(std::exchange(window_, nullptr));
  UnregisterClassW(window_class, this_module());
}

void TicketWindow::answer_after(double milliseconds, Ticket ticket) {
  SetTimer(window(), static_cast<UINT_PTR>(ticket), static_cast<UINT>(std::ceil(milliseconds)), nullptr);
}

void TicketWindow::answer_soon(Ticket ticket, bool refused) {
  PostMessageW(window(), answer_message, static_cast<WPARAM>(ticket), refused);
}

LRESULT CALLBACK TicketWindow::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const tickets = reinterpret_cast<TicketWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!tickets || (message != WM_TIMER && message != answer_message))
    return DefWindowProcW(window, message, wparam, lparam);
  if (message == WM_TIMER) KillTimer(window, wparam);
  tickets->answer_(static_cast<Ticket>(wparam), lparam != 0);
  return 0;
}

}  // namespace tabulon::activex
