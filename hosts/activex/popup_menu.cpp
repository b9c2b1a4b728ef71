#include "hosts/activex/popup_menu.h"

#include <windowsx.h>

#include <iterator>

#include "hosts/activex/pixels.h"
#include "hosts/activex/text.h"
#include "platform/captions.h"
#include "platform/surface.h"

namespace tabulon::activex {

using platform::Control;
using platform::Menu;

namespace {

// The window of the open menu; a process has at most one, because all its controls share a thread.
HWND menu_owner = nullptr;

UINT id_of(const Control& control) {
  return static_cast<UINT>(control.id() + 1);
}

HMENU make(const Menu& menu) {
  HMENU const made = CreatePopupMenu();
  for (const Menu* item : menu.items()) {
    if (!item->visible()) continue;
    std::wstring caption = wide(item->text());
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING;
    info.fType = item->is_separator() ? MFT_SEPARATOR : MFT_STRING;
    info.wID = id_of(*item);
    info.fState =
        (item->enabled() ? MFS_ENABLED : MFS_DISABLED) | (item->checked() ? MFS_CHECKED : MFS_UNCHECKED);
    info.dwTypeData = caption.data();
    if (!item->items().empty()) {
      info.fMask |= MIIM_SUBMENU;
      info.hSubMenu = make(*item);
    }
    InsertMenuItemW(made, static_cast<UINT>(GetMenuItemCount(made)), TRUE, &info);
  }
  return made;
}

// Pressing the button that opened the menu closes it; the same press must not open it again.
void forget_press_on_opener(HWND window, POINT corner) {
  MSG press;
  if (!PeekMessageW(&press, nullptr, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_NOREMOVE)) return;
  POINT at{GET_X_LPARAM(press.lParam), GET_Y_LPARAM(press.lParam)};
  MapWindowPoints(press.hwnd, window, &at, 1);
  HWND const opener = ChildWindowFromPoint(window, {corner.x + 1, corner.y - 2});
  if (opener && opener == press.hwnd) PeekMessageW(&press, opener, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE);
}

// ---- Keys that the system's menus treat differently from ours

constexpr UINT menu_of_window = 0x1E1;  // MN_GETHMENU

BOOL CALLBACK find_menu_window(HWND window, LPARAM found) {
  wchar_t name[16]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (!IsWindowVisible(window) || lstrcmpW(name, L"#32768") != 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;  // the one on top is the innermost
}

HMENU innermost_menu() {
  HWND window = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), find_menu_window, reinterpret_cast<LPARAM>(&window));
  return window ? reinterpret_cast<HMENU>(SendMessageW(window, menu_of_window, 0, 0)) : nullptr;
}

bool is_key_of_disabled_item(HMENU menu, WPARAM key) {
  for (int at = 0; at < GetMenuItemCount(menu); ++at) {
    wchar_t caption[128]{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_STRING;
    info.dwTypeData = caption;
    info.cch = static_cast<UINT>(std::size(caption));
    GetMenuItemInfoW(menu, static_cast<UINT>(at), TRUE, &info);
    if ((info.fState & MFS_DISABLED) && platform::access_key(narrow(caption)) == static_cast<int>(key))
      return true;
  }
  return false;
}

// Tab closes the menu, and the letter of a disabled item does nothing.
LRESULT CALLBACK filter_keys(int code, WPARAM unused, LPARAM data) {
  const MSG& message = *reinterpret_cast<const MSG*>(data);
  if (code == MSGF_MENU && message.message == WM_KEYDOWN) {
    if (message.wParam == VK_TAB) EndMenu();
    if (message.wParam == VK_TAB || is_key_of_disabled_item(innermost_menu(), message.wParam)) return TRUE;
  }
  return CallNextHookEx(nullptr, code, unused, data);
}

}  // namespace

Menu* track_popup_menu(const platform::MenuSession& session, HWND window, int dpi) {
  platform::Surface& surface = session.surface();
  const POINT corner{pixels_at(session.x(), dpi), pixels_at(session.y(), dpi)};
  POINT on_screen = corner;
  ClientToScreen(window, &on_screen);
  HMENU const menu = make(*session.open().front());
  HHOOK const hook = SetWindowsHookExW(WH_MSGFILTER, filter_keys, nullptr, GetCurrentThreadId());
  menu_owner = window;
  const int chosen = TrackPopupMenuEx(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD | TPM_LEFTBUTTON,
                                      on_screen.x, on_screen.y, window, nullptr);
  menu_owner = nullptr;
  UnhookWindowsHookEx(hook);
  DestroyMenu(menu);
  if (chosen == 0) {
    forget_press_on_opener(window, corner);
    return nullptr;
  }
  return static_cast<Menu*>(surface.controls()[static_cast<std::size_t>(chosen - 1)]);
}

void end_menu_over(HWND window) {
  if (window == menu_owner) EndMenu();
}

}  // namespace tabulon::activex
