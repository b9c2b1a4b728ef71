#include "tests/activex/event_listener.h"

#include <olectl.h>

#include <Tabulon_idl.h>

#include <cmath>
#include <cstddef>
#include <iterator>

namespace tabulon::client {

namespace {

std::string name_of_event(DISPID event) {
  const char* const names[] = {"Click", "DblClick",  "KeyDown",   "KeyPress",
                               "KeyUp", "MouseDown", "MouseMove", "MouseUp"};
  const auto place = static_cast<std::size_t>(DISPID_CLICK - event);
  return place < std::size(names) ? names[place] : std::to_string(event);
}

// A value of an unexpected type shows as a question mark.
std::string written(const VARIANT& value) {
  if (value.vt == VT_I2) return std::to_string(value.iVal);
  if (value.vt == (VT_BYREF | VT_I2)) return "&" + std::to_string(*value.piVal);
  if (value.vt == VT_R4) return std::to_string(std::lround(value.fltVal)) + ".";
  return "?";
}

}  // namespace

bool EventListener::is_also(REFIID id) const {
  return id == __uuidof(_LPctrlEvents);
}

STDMETHODIMP EventListener::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                                   UINT*) {
  std::string call = name_of_event(event) + "(";
  for (UINT left = given->cArgs; left-- > 0;) call += written(given->rgvarg[left]) + (left ? ", " : "");
  log_.add(call + ")");
  if (event == DISPID_KEYDOWN && other_key) *given->rgvarg[1].piVal = *other_key;
  if (event == DISPID_KEYPRESS && other_character) *given->rgvarg[0].piVal = *other_character;
  return S_OK;
}

}  // namespace tabulon::client
