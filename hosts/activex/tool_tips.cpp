#include "hosts/activex/tool_tips.h"

#include <commctrl.h>

#include <string>
#include <utility>

#include "hosts/activex/text.h"

namespace tabulon::activex {

namespace {

HWND create(HWND owner) {
  // Loads the library that has the class, whatever else the program uses.
  static const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace

void ToolTips::set(HWND surface, HWND control, std::string_view text) {
  const bool is_there = tools_.contains(control);
  if (text.empty() && !is_there) return;
  if (!window_) window_ = create(surface);
  std::wstring words = wide(text);
  TTTOOLINFOW tool{};
  // The older of the two sizes: the tips of every version of the system take it.
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = surface;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = words.data();
  const UINT message = text.empty() ? TTM_DELTOOLW : is_there ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW;
  SendMessageW(window_, message, 0, reinterpret_cast<LPARAM>(&tool));
  if (text.empty())
    tools_.erase(control);
  else
    tools_.insert(control);
}

void ToolTips::close() {
  if (window_) DestroyWindow(std::exchange(window_, nullptr));
  tools_.clear();
}

}  // namespace tabulon::activex
