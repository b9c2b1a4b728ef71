#include "hosts/activex/window_text.h"

#include <algorithm>

#include "hosts/activex/text.h"

namespace tabulon::activex {

std::wstring window_text(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

LRESULT answer_text(std::string_view text, WPARAM room, LPARAM buffer) {
  const std::wstring answer = wide(text);
  if (room > 0 && buffer) {
    const std::size_t copied = std::min<std::size_t>(answer.size(), room - 1);
    auto* const end = std::copy_n(answer.data(), copied, reinterpret_cast<wchar_t*>(buffer));
    *end = L'\0';
  }
  return static_cast<LRESULT>(answer.size());
}

LRESULT answer_name(const platform::Control& control, WPARAM room, LPARAM buffer) {
  std::string name(control.name());
  if (control.index() != 0) name += "[" + std::to_string(control.index()) + "]";
  return answer_text(name, room, buffer);
}

}  // namespace tabulon::activex
