#include "com_player.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

#include "hosts/activex/text.h"
#include "patience.h"
#include "screen_picture.h"

namespace tabulon::activex {

using namespace scenarios;
using std::chrono::steady_clock;

namespace {

POINT middle_of(const RECT& box) {
  return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

POINT middle_of(HWND window) {
  RECT box{};
  GetWindowRect(window, &box);
  return middle_of(box);
}

// What must be seen and is not, and what is seen and must not be, a line each.
std::string difference(const std::string& wanted, const std::string& seen) {
  const auto lines = [](const std::string& text) {
    std::vector<std::string> all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) all.push_back(line);
    return all;
  };
  const auto without = [](std::vector<std::string> from, const std::vector<std::string>& these) {
    for (const std::string& line : these)
      if (const auto found = std::ranges::find(from, line); found != from.end()) from.erase(found);
    return from;
  };
  const auto must = lines(wanted), are = lines(seen);
  std::string text;
  for (const std::string& line : without(must, are)) text += "\n  missing " + line;
  for (const std::string& line : without(are, must)) text += "\n  seen    " + line;
  return text.empty() ? "\n  the same lines in another order" : text;
}

// Run-time errors come as 0x800A0000 with their number; two of them the system itself finds while it
// converts.
int error_number(HRESULT answer) {
  if (answer == DISP_E_TYPEMISMATCH) return 13;
  if (answer == DISP_E_OVERFLOW) return 6;
  const auto bits = static_cast<unsigned>(answer);
  return (bits & 0xFFFF0000U) == 0x800A0000U ? static_cast<int>(bits & 0xFFFFU) : static_cast<int>(answer);
}

// ---- Scroll bars, along their length

struct Track {
  bool vertical;
  LONG start, length, arrow, thumb_start, thumb_end;
  int low, high;  // as the window has them
  RECT box;

  POINT at(LONG along) const {
    const POINT middle = middle_of(box);
    return vertical ? POINT{middle.x, start + along} : POINT{start + along, middle.y};
  }
};

Track track_of(const Seen& bar) {
  SCROLLBARINFO parts{};
  parts.cbSize = sizeof parts;
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(bar.window, SBM_GETSCROLLBARINFO, 0, reinterpret_cast<LPARAM>(&parts), SMTO_NORMAL,
                      patience_in_milliseconds, &answer);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE;
  GetScrollInfo(bar.window, SB_CTL, &info);
  Track track{};
  track.vertical = bar.kind == "vscroll";
  track.box = bar.box;
  track.start = track.vertical ? bar.box.top : bar.box.left;
  track.length = track.vertical ? bar.box.bottom - bar.box.top : bar.box.right - bar.box.left;
  track.arrow =
      std::min<LONG>(GetSystemMetrics(track.vertical ? SM_CYVSCROLL : SM_CXHSCROLL), track.length / 2);
  track.thumb_start = parts.xyThumbTop;
  track.thumb_end = parts.xyThumbBottom;
  track.low = info.nMin;
  track.high = info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
  return track;
}

int dragged_to(HWND bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(bar, SB_CTL, &info);
  return info.nTrackPos;
}

// ---- The system's dialogs

constexpr wchar_t dialog_class[] = L"#32770";
constexpr int name_box_ids[] = {0x47C, 0x480};  // cmb13 and edt1, as the file dialog of the day has it

struct Search {
  std::vector<HWND> found;
};

BOOL CALLBACK collect_dialogs(HWND window, LPARAM search) {
  wchar_t name[64]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (IsWindowVisible(window) && lstrcmpW(name, dialog_class) == 0)
    reinterpret_cast<Search*>(search)->found.push_back(window);
  return TRUE;
}

BOOL CALLBACK collect_name_boxes(HWND window, LPARAM search) {
  wchar_t name[64]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  const bool is_box = lstrcmpiW(name, L"EDIT") == 0 && IsWindowVisible(window);
  if (is_box && std::ranges::find(name_box_ids, GetDlgCtrlID(window)) != std::end(name_box_ids))
    reinterpret_cast<Search*>(search)->found.push_back(window);
  return TRUE;
}

std::vector<HWND> open_dialogs(DWORD thread) {
  Search search;
  EnumThreadWindows(thread, collect_dialogs, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND name_box_in(HWND dialog) {
  Search search;
  EnumChildWindows(dialog, collect_name_boxes, reinterpret_cast<LPARAM>(&search));
  return search.found.empty() ? nullptr : search.found.front();
}

}  // namespace

ComPlayer::ComPlayer(Container& container, Person& person, Options options)
    : Interpreter(options.project), container_(container), person_(person), options_(std::move(options)) {}

void ComPlayer::wait_until_idle() {
  expect(person_.wait_until_idle(), "the windows have not handled their input");
}

void ComPlayer::note(HRESULT answer) {
  if (FAILED(answer)) Interpreter::note(error_number(answer));
}

void ComPlayer::collect_errors() {
  if (called_ && *called_) note(**std::exchange(called_, {}));
}

void ComPlayer::eventually(const std::function<void()>& check) {
  for (const auto end = steady_clock::now() + patience;; Sleep(10)) {
    try {
      return check();
    } catch (const Failure&) {
      if (!eyes_ || steady_clock::now() > end) throw;
    }
  }
}

// ---- Looking

const Eyes& ComPlayer::eyes() const {
  expect(eyes_.has_value(), "there is no control to see");
  return *eyes_;
}

Seen ComPlayer::find(const Named& what) const {
  const auto seen = eyes().find(what.name, what.index);
  expect(seen && seen->shown, what.called() + " is not shown");
  return *seen;
}

Seen ComPlayer::find_bar(const Named& what) const {
  const Seen seen = find(what);
  expect(seen.kind.ends_with("scroll"), what.called() + " is no bar");
  return seen;
}

Seen ComPlayer::find_item(const std::string& name) const {
  const auto seen = eyes().find(name, 0);
  expect(seen && seen->kind == "menu", "no open menu has " + name);
  return *seen;
}

// ---- Commands

void ComPlayer::parameter(const std::string& name, const std::string& text) {
  parameters_.emplace_back(name, text);
}

void ComPlayer::show() {
  HRESULT answer = E_PENDING;
  const bool done = container_.thread().run([&] { answer = container_.show(parameters_); });
  if (!done) std::abort();  // the other thread still writes in this frame
  note(answer);
  expect(container_.surface(), "the control has no window");
  eyes_.emplace(container_.surface());
}

void ComPlayer::click(const Named& what) {
  person_.click(middle_of(find(what).box));
}

void ComPlayer::leave() {
  person_.click(middle_of(container_.own_box()));
}

void ComPlayer::choose(const std::string& name) {
  Seen item;
  eventually([&] { item = find_item(name); });
  person_.move(middle_of(item.box));
  wait_until_idle();
  person_.click(middle_of(item.box));
}

// A menu loses a move that comes while it handles the one before, so this goes on until it is seen.
void ComPlayer::hover(const std::string& name) {
  eventually([&] {
    const POINT at = middle_of(find_item(name).box);
    person_.move({at.x + 1, at.y});
    person_.move(at);
    wait_until_idle();
    expect(find_item(name).highlighted, name + " is not highlighted");
  });
}

void ComPlayer::press_key(const platform::KeyPress& key) {
  person_.press({key.code, key.shift});
}

void ComPlayer::type(const std::string& text) {
  person_.type(wide(text));
}

void ComPlayer::script(const std::string& property, const PropertyValue& value) {
  const auto answer = std::make_shared<HRESULT>(E_PENDING);
  const bool done =
      container_.thread().run([this, answer, property, value] { *answer = container_.set(property, value); });
  expect(done, "the script does not end");
  expect(*answer != DISP_E_UNKNOWNNAME, "there is no property " + property);
  note(*answer);
}

// A method that shows a form ends when the form has closed.
void ComPlayer::begin_call(const std::string& method, const std::optional<std::string>& file) {
  called_ = std::make_shared<std::optional<HRESULT>>();
  container_.thread().post(
      [this, ended = called_, method, file] { *ended = container_.call(method, file ? &*file : nullptr); });
}

void ComPlayer::call(const std::string& method) {
  begin_call(method, std::nullopt);
}

void ComPlayer::call_with_file(const std::string& method, const std::string& file) {
  begin_call(method, file);
}

void ComPlayer::wait(int seconds) {
  Sleep(static_cast<DWORD>(seconds * 1000));
}

void ComPlayer::scroll(const Named& bar, Step step, bool forward) {
  const Track track = track_of(find_bar(bar));
  const LONG arrow = forward ? track.length - track.arrow / 2 : track.arrow / 2;
  const LONG beside =
      forward ? (track.thumb_end + track.length - track.arrow) / 2 : (track.arrow + track.thumb_start) / 2;
  person_.click(track.at(step == Step::Arrow ? arrow : beside));
}

// Drags the thumb to about there, and then looks where it is, as a person does.
void ComPlayer::scroll_to(const Named& bar, int place) {
  const Seen seen = find_bar(bar);
  const Track track = track_of(seen);
  const int wanted = track.low < 0 ? -place : place;
  const LONG middle = (track.thumb_start + track.thumb_end) / 2;
  const LONG thumb = track.thumb_end - track.thumb_start, way = track.length - 2 * track.arrow - thumb;
  LONG along =
      middle + track.arrow + (wanted - track.low) * way / (track.high - track.low) - track.thumb_start;
  person_.button_down(track.at(middle));
  wait_until_idle();
  for (int turn = 0; turn < 40; ++turn) {
    person_.move(track.at(along));
    wait_until_idle();
    const int now = dragged_to(seen.window);
    if (now == wanted) break;
    along += now < wanted ? 1 : -1;
  }
  person_.button_up(track.at(along));
}

void ComPlayer::drag(const Named& what, int right, int down) {
  const POINT from = middle_of(find(what).box);
  constexpr int steps = 5;
  person_.button_down(from);
  for (int step = 1; step <= steps; ++step) {
    wait_until_idle();
    person_.move({from.x + eyes().device(right * step / steps), from.y + eyes().device(down * step / steps)});
  }
  wait_until_idle();
  person_.button_up({from.x + eyes().device(right), from.y + eyes().device(down)});
}

void ComPlayer::dump(const std::string& label) {
  const auto wanted = options_.dumps.find(label);
  expect(wanted != options_.dumps.end(), "the headless host has no dump " + label);
  const auto compare = [&] {
    const std::string seen = eyes().state();
    if (seen != wanted->second) throw Failure{"dump " + label + difference(wanted->second, seen)};
  };
  const auto save_picture = [&] {
    if (!options_.pictures.empty()) save_picture_of(container_.frame(), options_.pictures + label + ".bmp");
  };
  try {
    eventually(compare);
  } catch (const Failure&) {
    save_picture();
    throw;
  }
  save_picture();
}

// ---- Files

HWND ComPlayer::file_dialog() {
  HWND dialog = nullptr;
  eventually([&] {
    for (HWND const window : open_dialogs(container_.thread().id()))
      if (name_box_in(window)) dialog = window;
    expect(dialog, "nothing asks for a file");
  });
  return dialog;
}

void ComPlayer::answer_file_dialog(const std::string& name) {
  HWND const dialog = file_dialog();
  person_.click(middle_of(name_box_in(dialog)));
  person_.press({VK_HOME});
  person_.press({VK_END, Person::shift});
  person_.type(wide(options_.folder + name));
  person_.press({VK_RETURN});
  wait_until_idle();
  eventually([&] {
    for (HWND const asked : open_dialogs(container_.thread().id())) {
      // A file of that name may be replaced.
      HWND const yes = GetDlgItem(asked, IDYES);
      if (!yes) continue;
      person_.click(middle_of(yes));
      wait_until_idle();
    }
    expect(!IsWindowVisible(dialog), "the file dialog does not take " + name);
  });
}

void ComPlayer::save_as(const std::string& name) {
  answer_file_dialog(name);
}

void ComPlayer::bring_file(const std::string& name, const std::string& bytes) {
  std::ofstream(options_.folder + name, std::ios::binary) << bytes;
  answer_file_dialog(name);
}

void ComPlayer::cancel_file() {
  HWND const dialog = file_dialog();
  person_.click(middle_of(GetDlgItem(dialog, IDCANCEL)));
  wait_until_idle();
  eventually([&] { expect(!IsWindowVisible(dialog), "the file dialog does not go"); });
}

// ---- What is there

bool ComPlayer::is_shown(const Named& what) {
  const auto seen = eyes().find(what.name, what.index);
  expect(seen || !eyes().forms().empty() || eyes().exists(what.name, what.index),
         "there is no " + what.called());
  return seen && seen->shown;
}

Looks ComPlayer::look_at(const Named& what) {
  const Seen seen = find(what);
  return {.text = seen.text,
          .back = seen.back,
          .tip = seen.tip,
          .value = std::to_string(seen.value),
          .locked = seen.locked,
          .checked = seen.checked,
          .disabled = seen.disabled};
}

std::optional<Interpreter::OpenForm> ComPlayer::top_form() {
  const auto forms = eyes().forms();
  if (forms.empty()) return std::nullopt;
  return OpenForm{forms.back().name, forms.back().caption};
}

std::vector<std::string> ComPlayer::open_menus() {
  std::vector<std::string> names;
  for (const Opened& menu : eyes().menus()) names.push_back(menu.name);
  return names;
}

std::string ComPlayer::focus() {
  return eyes().focus();
}

bool ComPlayer::is_busy() {
  return eyes().is_busy();
}

Files ComPlayer::files() {
  Files there;
  for (const auto& entry : std::filesystem::directory_iterator(options_.folder))
    there[entry.path().filename().string()] = bytes_of(entry.path().string()).value_or("");
  return there;
}

}  // namespace tabulon::activex
