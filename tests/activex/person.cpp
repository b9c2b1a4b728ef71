#include "person.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include "patience.h"

namespace tabulon::activex {

namespace {

// A key that no keyboard has. Input is handled in order, after messages posted earlier: when this key has
// been removed from the queue, everything before it has been handled.
constexpr WORD marker = 0xE8;

// What the windows have not yet got of the last that the person did.
enum Expected : unsigned { nothing = 0, a_press = 1, a_release = 2, a_stroke = 4 };

// Hooks cannot carry data of their own.
HANDLE marker_seen = nullptr;
std::atomic<POINT> mouse_place{POINT{-1, -1}};
std::atomic<unsigned> expected{nothing};
std::atomic<Person::Stroke> last_stroke{};

bool is_of_marker(const MSG& message) {
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST && message.wParam == marker;
}

struct ModifierKey {
  Person::Modifiers bit;
  int key;
};
constexpr ModifierKey modifier_keys[] = {
    {Person::shift, VK_SHIFT}, {Person::ctrl, VK_CONTROL}, {Person::alt, VK_MENU}};

// A screen that is a window of another system reports each move a second time, late, when the mouse is
// already elsewhere.
bool is_late_move(const MSG& message) {
  const POINT place = mouse_place;
  return message.message == WM_MOUSEMOVE && (message.pt.x != place.x || message.pt.y != place.y);
}

void note_button(UINT message) {
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_NCLBUTTONDOWN)
    expected &= ~a_press;
  if (message == WM_LBUTTONUP || message == WM_NCLBUTTONUP) expected &= ~a_release;
}

bool is_last_stroke(const MSG& message) {
  return (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
         message.wParam == static_cast<WPARAM>(last_stroke.load().key);
}

// When a window comes, the screen's system says which keys are down, and it knows of none of ours.
bool has_lost_what_was_held() {
  const Person::Stroke stroke = last_stroke;
  return std::ranges::any_of(modifier_keys, [&](const ModifierKey& modifier) {
    return (stroke.held & modifier.bit) != 0 && GetKeyState(modifier.key) >= 0;
  });
}

bool is_to_be_ignored(const MSG& message) {
  return is_late_move(message) || is_of_marker(message) ||
         (is_last_stroke(message) && has_lost_what_was_held());
}

void see_taken(MSG& message) {
  if (is_of_marker(message) && message.message == WM_KEYUP) SetEvent(marker_seen);
  if (is_to_be_ignored(message)) {
    message.message = WM_NULL;
    return;
  }
  note_button(message.message);
  if (is_last_stroke(message)) expected &= ~a_stroke;
}

// A menu looks at a message before it takes it: what it sees stays a move, or it would take whatever comes.
void see_looked_at(MSG& message) {
  if (is_late_move(message)) message.pt = mouse_place;
}

LRESULT CALLBACK see_message(int code, WPARAM removed, LPARAM data) {
  auto& message = *reinterpret_cast<MSG*>(data);
  if (code == HC_ACTION) removed == PM_REMOVE ? see_taken(message) : see_looked_at(message);
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

// Of several that nobody waits for, the windows may be at any.
bool nothing_is_under_way = true;
unsigned last_buttons = nothing;

void expect_to_come(unsigned what, const Person::Stroke& stroke) {
  const bool alone = std::exchange(nothing_is_under_way, false);
  last_buttons = what;
  last_stroke = alone ? stroke : Person::Stroke{};
  expected = alone ? what : nothing;
}

// Two presses at the same place are two clicks, however fast the test runs: the second comes when the
// shortest time in which they would be one is over.
constexpr UINT double_click_milliseconds = 1;
std::chrono::steady_clock::time_point last_press;

void wait_for_another_click() {
  constexpr std::chrono::milliseconds longer{double_click_milliseconds + 1};
  std::this_thread::sleep_until(last_press + longer);
}

void send_mouse(POINT at, unsigned buttons) {
  std::vector<INPUT> all{mouse_event(0, at)};
  if (buttons & a_press) all.push_back(mouse_event(MOUSEEVENTF_LEFTDOWN, at));
  if (buttons & a_release) all.push_back(mouse_event(MOUSEEVENTF_LEFTUP, at));
  mouse_place = at;
  expect_to_come(buttons, {});
  if (buttons & a_press) wait_for_another_click();
  send(std::move(all));
  if (buttons & a_press) last_press = std::chrono::steady_clock::now();
}

bool marker_passes() {
  ResetEvent(marker_seen);
  send({key_event(marker, false), key_event(marker, true)});
  return WaitForSingleObject(marker_seen, patience_in_milliseconds) == WAIT_OBJECT_0;
}

}  // namespace

Person::Person(const WindowThread& windows)
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, see_message, nullptr, windows.id())) {
  marker_seen = CreateEventW(nullptr, false, false, nullptr);
  nothing_is_under_way = true;
  SetDoubleClickTime(double_click_milliseconds);
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
  expect_to_come(a_stroke, stroke);
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
  send_mouse(to, nothing);
}
void Person::click(POINT at) {
  send_mouse(at, a_press | a_release);
}
void Person::button_down(POINT at) {
  send_mouse(at, a_press);
}
void Person::button_up(POINT at) {
  send_mouse(at, a_release);
}

// A busy system loses input: it eats a press whose window cannot come to the front at that moment, and lets
// go of the keys that are held. Who sees that nothing has come of it does it again.
void Person::repeat_what_is_lost() {
  const unsigned lost = expected;
  if (lost & a_stroke) return press(last_stroke);
  send_mouse(mouse_place, lost & a_press ? last_buttons : lost);
}

bool Person::wait_until_idle() {
  constexpr int tries = 10;  // where nothing of ours takes it, nothing comes
  for (int tried = 1;; ++tried) {
    if (!marker_passes()) return false;
    nothing_is_under_way = true;
    if (expected == nothing || tried == tries) break;
    repeat_what_is_lost();
  }
  expected = nothing;
  return marker_passes();  // once more for painting that the first has caused
}

}  // namespace tabulon::activex
