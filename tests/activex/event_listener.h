// Listens to the control's events: logs them, and may change a key.
//
//   EventListener listener;
//   point->Advise(&listener, &cookie);
//   listener.when("Click", [&] { control->ShowAboutBox(); });
//   listener.take_events();   // {"MouseUp(1, 0, 300., 270.)", "Click()"}
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "tests/activex/call_log.h"
#include "tests/activex/com_double.h"

namespace tabulon::client {

class EventListener final : public DispatchDouble {
 public:
  std::optional<short> other_key, other_character;

  Calls take_events() { return log_.take(); }
  // Runs while the listener is being told of that event.
  void when(std::string event, CallLog::Action act) { log_.when(std::move(event), std::move(act)); }

  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  bool is_also(REFIID id) const override;

  CallLog log_;
};

}  // namespace tabulon::client
