#include "person.h"

#include <atomic>
#include <initializer_list>
#include <utility>
#include <vector>

#include "patience.h"

namespace tabulon::activex {

namespace {

// A key that no keyboard has. Input is handled in order, after messages posted earlier: when this key has
// been removed from the queue, everything before it has been handled.
constexpr WORD marker = 0xE8;

// Hooks cannot carry data of their own.
HANDLE marker_seen = nullptr;
std::atomic<POINT> mouse_place{POINT{-1, -1}};

bool is_of_marker(const MSG& message) {
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST && message.wParam == marker;
}

// A screen that is a window of another system reports each move a second time, late, when the mouse is
// already elsewhere.
bool is_late_move(const MSG& message) {
  const POINT place = mouse_place;
  return message.message == WM_MOUSEMOVE && (message.pt.x != place.x || message.pt.y != place.y);
}

LRESULT CALLBACK see_message(int code, WPARAM removed, LPARAM data) {
  auto& message = *reinterpret_cast<MSG*>(data);
  if (code == HC_ACTION && is_late_move(message)) message.message = WM_NULL;
  if (code == HC_ACTION && removed == PM_REMOVE && is_of_marker(message)) {
    if (message.message == WM_KEYUP) SetEvent(marker_seen);
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removed, data);
}

constexpr int extended_keys[] = {VK_UP,  VK_DOWN,  VK_LEFT, VK_RIGHT, VK_HOME,
                                 VK_END, VK_PRIOR, VK_NEXT, VK_DELETE};

INPUT key_event(int key, bool up) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wVk = static_cast<WORD>(key);
  event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
  event.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  for (const int extended : extended_keys)
    if (key == extended) event.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
  return event;
}

INPUT letter_event(wchar_t letter, bool up) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wScan = letter;
  event.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0);
  return event;
}

void send(std::vector<INPUT> events) {
  SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
}

// From pixels to absolute mouse coordinates, which divide the screen into 65536 steps.
LONG steps(LONG pixel, int across) {
  return (pixel * 65536 + across - 1) / across;
}

// Every mouse event carries its position, so that a late move between two of them does no harm.
INPUT mouse_event(DWORD what, POINT at) {
  INPUT event{};
  event.type = INPUT_MOUSE;
  event.mi.dx = steps(at.x, GetSystemMetrics(SM_CXSCREEN));
  event.mi.dy = steps(at.y, GetSystemMetrics(SM_CYSCREEN));
  event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | what;
  return event;
}

void send_mouse(POINT at, std::initializer_list<DWORD> events) {
  std::vector<INPUT> all;
  for (const DWORD event : events) all.push_back(mouse_event(event, at));
  mouse_place = at;
  send(std::move(all));
}

struct ModifierKey {
  Person::Modifiers bit;
  int key;
};
constexpr ModifierKey modifier_keys[] = {
    {Person::shift, VK_SHIFT}, {Person::ctrl, VK_CONTROL}, {Person::alt, VK_MENU}};

}  // namespace

Person::Person(const WindowThread& windows)
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, see_message, nullptr, windows.id())) {
  marker_seen = CreateEventW(nullptr, false, false, nullptr);
  // Two clicks at the same place are two clicks, however fast the test runs.
  SetDoubleClickTime(1);
}

Person::~Person() {
  SetDoubleClickTime(0);
  UnhookWindowsHookEx(hook_);
  CloseHandle(marker_seen);
}

void Person::press(const Stroke& stroke) {
  std::vector<INPUT> events;
  for (const ModifierKey& held : modifier_keys)
    if (stroke.held & held.bit) events.push_back(key_event(held.key, false));
  events.push_back(key_event(stroke.key, false));
  events.push_back(key_event(stroke.key, true));
  for (const ModifierKey& held : modifier_keys)
    if (stroke.held & held.bit) events.push_back(key_event(held.key, true));
  send(std::move(events));
}

void Person::key_down(int key) {
  send({key_event(key, false)});
}
void Person::key_up(int key) {
  send({key_event(key, true)});
}

void Person::type(std::wstring_view text) {
  for (const wchar_t letter : text) {
    const SHORT key = VkKeyScanW(letter);
    if (key == -1)
      send({letter_event(letter, false), letter_event(letter, true)});
    else
      press({LOBYTE(key), HIBYTE(key)});
  }
}

void Person::move(POINT to) {
  send_mouse(to, {0});
}
void Person::click(POINT at) {
  send_mouse(at, {0, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
}
void Person::button_down(POINT at) {
  send_mouse(at, {0, MOUSEEVENTF_LEFTDOWN});
}
void Person::button_up(POINT at) {
  send_mouse(at, {MOUSEEVENTF_LEFTUP});
}

bool Person::wait_until_idle() {
  // The second round is for painting that the first has caused.
  for (int round = 0; round < 2; ++round) {
    ResetEvent(marker_seen);
    send({key_event(marker, false), key_event(marker, true)});
    if (WaitForSingleObject(marker_seen, patience_in_milliseconds) != WAIT_OBJECT_0) return false;
  }
  return true;
}

}  // namespace tabulon::activex
