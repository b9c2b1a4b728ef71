// A message-only window by which the system answers tickets: after a time, or after the messages now in the
// queue.
//
//   TicketWindow tickets([&](Ticket ticket, bool refused) { ... });
//   tickets.answer_after(1000, ticket);
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "platform/host.h"

namespace tabulon::activex {

class TicketWindow {
 public:
  using Answer = std::function<void(platform::Ticket ticket, bool refused)>;

  explicit TicketWindow(Answer answer) : answer_(std::move(answer)) {}
  TicketWindow(const TicketWindow&) = delete;
  ~TicketWindow() { close(); }

  void answer_after(double milliseconds, platform::Ticket ticket);
  void answer_soon(platform::Ticket ticket, bool refused = false);
  // Created on first use.
  HWND window();
  // It is created again when next needed.
  void close();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  Answer answer_;
  HWND window_ = nullptr;
};

}  // namespace tabulon::activex
