#include "hosts/activex/window_text.h"

#include "hosts/activex/text.h"

namespace tabulon::activex {

std::wstring window_text(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

LRESULT answer_text(std::string_view text, WPARAM at) {
  const std::wstring answer = wide(text);
  return at < answer.size() ? answer[at] : 0;
}

LRESULT answer_name(const platform::Control& control, WPARAM at) {
  std::string name(control.name());
  if (control.index() != 0) name += "[" + std::to_string(control.index()) + "]";
  return answer_text(name, at);
}

}  // namespace tabulon::activex
