#include "com_player.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

#include "hosts/activex/text.h"
#include "screen_picture.h"

namespace tabulon::activex {

namespace {

using std::chrono::steady_clock;

// How long what must be seen is waited for.
constexpr auto patience = std::chrono::seconds(4);

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

// Nothing where the text is no whole number; a sign is allowed.
std::optional<int> whole_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// What a script of the page would write: a text in quotes, true or false, a number, else a text.
Container::Value script_value(const scenarios::Command& command) {
  const std::string& text = command.value;
  if (command.value_quoted) return text;
  if (text == "true" || text == "false") return text == "true";
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (!text.empty() && error == std::errc() && end == text.data() + text.size()) return number;
  return text;
}

struct NamedKey {
  std::string_view name;
  int key;
};

constexpr NamedKey named_keys[] = {
    {"Tab", VK_TAB},   {"Enter", VK_RETURN},   {"Escape", VK_ESCAPE}, {"Space", VK_SPACE},   {"Up", VK_UP},
    {"Down", VK_DOWN}, {"Left", VK_LEFT},      {"Right", VK_RIGHT},   {"Home", VK_HOME},     {"End", VK_END},
    {"F10", VK_F10},   {"Backspace", VK_BACK}, {"PageUp", VK_PRIOR},  {"PageDown", VK_NEXT},
};
constexpr NamedKey held_keys[] = {{"Shift+", Person::shift}, {"Ctrl+", Person::ctrl}, {"Alt+", Person::alt}};

std::optional<Person::Stroke> stroke_of(std::string_view name) {
  Person::Stroke stroke{0};
  for (bool more = true; more;) {
    more = false;
    for (const NamedKey& held : held_keys) {
      if (!name.starts_with(held.name) || name.size() == held.name.size()) continue;
      stroke.held |= held.key;
      name.remove_prefix(held.name.size());
      more = true;
    }
  }
  const auto found = std::ranges::find(named_keys, name, &NamedKey::name);
  if (found != std::end(named_keys))
    stroke.key = found->key;
  else if (name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9')))
    stroke.key = name[0];
  else
    return std::nullopt;
  return stroke;
}

POINT middle_of(const RECT& box) {
  return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

std::optional<std::string> bytes_of(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  return bytes.str();
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

constexpr UINT message_patience = 2000;  // milliseconds

Track track_of(const Seen& bar) {
  SCROLLBARINFO parts{};
  parts.cbSize = sizeof parts;
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(bar.window, SBM_GETSCROLLBARINFO, 0, reinterpret_cast<LPARAM>(&parts), SMTO_NORMAL,
                      message_patience, &answer);
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

const ComPlayer::Entry ComPlayer::entries[] = {
    {"page", &ComPlayer::page},     {"show", &ComPlayer::show},     {"click", &ComPlayer::click},
    {"choose", &ComPlayer::choose}, {"hover", &ComPlayer::hover},   {"press", &ComPlayer::press},
    {"type", &ComPlayer::type},     {"script", &ComPlayer::script}, {"call", &ComPlayer::call},
    {"wait", &ComPlayer::wait},     {"scroll", &ComPlayer::scroll}, {"see", &ComPlayer::see},
    {"dump", &ComPlayer::dump},     {"save", &ComPlayer::save},     {"open", &ComPlayer::open},
    {"cancel", &ComPlayer::cancel}, {"drag", &ComPlayer::drag},
};

const ComPlayer::Entry ComPlayer::seen_entries[] = {
    {"no", &ComPlayer::see_no},       {"form", &ComPlayer::see_form},   {"menu", &ComPlayer::see_menu},
    {"focus", &ComPlayer::see_focus}, {"error", &ComPlayer::see_error}, {"busy", &ComPlayer::see_busy},
    {"idle", &ComPlayer::see_idle},   {"file", &ComPlayer::see_file},
};

const ComPlayer::State ComPlayer::states[] = {
    {"locked", [](const Seen& seen) { return seen.locked; }},
    {"unlocked", [](const Seen& seen) { return !seen.locked; }},
    {"checked", [](const Seen& seen) { return seen.checked; }},
    {"unchecked", [](const Seen& seen) { return !seen.checked; }},
    {"enabled", [](const Seen& seen) { return !seen.disabled; }},
    {"disabled", [](const Seen& seen) { return seen.disabled; }},
};

ComPlayer::ComPlayer(Container& container, Person& person, Options options)
    : container_(container), person_(person), options_(std::move(options)) {}

void ComPlayer::play(const Command& command) {
  last_line_ = command.line;
  try {
    run(command);
  } catch (const Failure& failure) {
    failures_.push_back("line " + std::to_string(command.line) + ": " + failure.what);
  }
}

void ComPlayer::end() {
  try {
    expect_no_error();
  } catch (const Failure& failure) {
    failures_.push_back("line " + std::to_string(last_line_) + ": " + failure.what);
  }
}

void ComPlayer::run(const Command& command) {
  if (command.words.empty()) throw Failure{"no command"};
  const std::string& word = command.words.front();
  const auto found = std::ranges::find(entries, word, &Entry::word);
  if (found == std::end(entries)) throw Failure{"unknown command " + in_quotes(word)};
  if (!command.below.empty() && word != "page") throw Failure{"only page has lines below it"};
  if (word != "see") expect_no_error();
  (this->*found->run)(command);
  if (word != "see" && word != "dump" && word != "page") settle();
}

void ComPlayer::settle() {
  if (!person_.settle()) throw Failure{"the windows have not handled their input"};
}

void ComPlayer::note(HRESULT answer) {
  if (FAILED(answer)) error_ = error_number(answer);
}

void ComPlayer::expect_no_error() {
  if (called_ && *called_) note(**std::exchange(called_, {}));
  if (const auto error = std::exchange(error_, {}))
    throw Failure{"error " + std::to_string(*error) + " that nobody looks at"};
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
  if (!eyes_) throw Failure{"there is no control to see"};
  return *eyes_;
}

ComPlayer::Named ComPlayer::named(const Command& command, std::size_t at) const {
  if (at >= command.words.size()) throw Failure{"a name is missing"};
  const bool has_more = at + 1 < command.words.size() && !command.quoted[at + 1];
  const auto index = has_more ? whole_number(command.words[at + 1]) : std::nullopt;
  return {command.words[at], index.value_or(0), at + (index ? 2 : 1)};
}

Seen ComPlayer::find(const Named& named) const {
  const auto seen = eyes().find(named.name, named.index);
  if (!seen || !seen->shown) throw Failure{named.called() + " is not shown"};
  return *seen;
}

Seen ComPlayer::find_item(const Command& command) const {
  if (command.words.size() != 2) throw Failure{"which item?"};
  const auto seen = eyes().find(command.words[1], 0);
  if (!seen || seen->kind != "menu") throw Failure{"no open menu has " + command.words[1]};
  return *seen;
}

// ---- Commands

void ComPlayer::page(const Command& command) {
  for (const Command& parameter : command.below) {
    if (parameter.words.size() != 1) throw Failure{"a parameter is written as name = text"};
    parameters_.emplace_back(parameter.words[0], parameter.value);
  }
}

void ComPlayer::show(const Command&) {
  HRESULT answer = E_PENDING;
  const bool done =
      container_.thread().run([&] { answer = container_.show(parameters_); }, std::chrono::seconds(60));
  if (!done) std::abort();  // the other thread still writes in this frame
  note(answer);
  if (!container_.surface()) throw Failure{"the control has no window"};
  eyes_.emplace(container_.surface());
}

void ComPlayer::click(const Command& command) {
  person_.click(middle_of(find(named(command, 1)).box));
}

void ComPlayer::choose(const Command& command) {
  Seen item;
  eventually([&] { item = find_item(command); });
  person_.move(middle_of(item.box));
  settle();
  person_.click(middle_of(item.box));
}

void ComPlayer::hover(const Command& command) {
  person_.move(middle_of(find_item(command).box));
}

void ComPlayer::press(const Command& command) {
  if (command.words.size() < 2) throw Failure{"press what?"};
  for (std::size_t at = 1; at < command.words.size(); ++at) {
    const auto stroke = stroke_of(command.words[at]);
    if (!stroke) throw Failure{"there is no key " + in_quotes(command.words[at])};
    person_.press(*stroke);
    settle();
  }
}

void ComPlayer::type(const Command& command) {
  if (command.words.size() != 2) throw Failure{"type one word, or a text in quotes"};
  person_.type(wide(command.words[1]));
}

void ComPlayer::script(const Command& command) {
  if (command.words.size() != 2) throw Failure{"script name = value"};
  const auto answer = std::make_shared<HRESULT>(E_PENDING);
  const bool done =
      container_.thread().run([this, answer, name = command.words[1], value = script_value(command)] {
        *answer = container_.set(name, value);
      });
  if (!done) throw Failure{"the script does not end"};
  if (*answer == DISP_E_UNKNOWNNAME) throw Failure{"there is no property " + command.words[1]};
  note(*answer);
}

// A method that shows a form ends when the form has closed.
void ComPlayer::call(const Command& command) {
  if (command.words.size() != 2) throw Failure{"call which method?"};
  called_ = std::make_shared<std::optional<HRESULT>>();
  const std::string& name = command.words[1];
  const bool takes_file = name == "SchrijfTableau" || name == "LeesTableau";
  container_.thread().post([this, ended = called_, name, takes_file, file = command.value] {
    *ended = container_.call(name, takes_file ? &file : nullptr);
  });
}

void ComPlayer::wait(const Command& command) {
  const auto seconds = command.words.size() == 2 ? whole_number(command.words[1]) : std::nullopt;
  if (!seconds) throw Failure{"wait how many seconds?"};
  Sleep(static_cast<DWORD>(*seconds * 1000));
}

void ComPlayer::scroll(const Command& command) {
  const Named bar = named(command, 1);
  if (!find(bar).kind.ends_with("scroll")) throw Failure{bar.called() + " is no bar"};
  const std::string how = bar.next < command.words.size() ? command.words[bar.next] : "";
  const auto steps =
      bar.next + 1 < command.words.size() ? whole_number(command.words[bar.next + 1]) : std::nullopt;
  if (!steps) throw Failure{"scroll how far?"};
  if (how == "to") return scroll_to(bar, *steps);
  if (how != "arrow" && how != "page") throw Failure{"scroll by arrow, page or to"};
  for (int turn = 0; turn < std::abs(*steps); ++turn) {
    const Track track = track_of(find(bar));
    const LONG arrow = *steps > 0 ? track.length - track.arrow / 2 : track.arrow / 2;
    const LONG beside = *steps > 0 ? (track.thumb_end + track.length - track.arrow) / 2
                                   : (track.arrow + track.thumb_start) / 2;
    person_.click(track.at(how == "arrow" ? arrow : beside));
    settle();
  }
}

// Drags the thumb to about there, and then looks where it is, as a person does.
void ComPlayer::scroll_to(const Named& bar, int value) {
  const Seen seen = find(bar);
  const Track track = track_of(seen);
  const int wanted = track.low < 0 ? -value : value;
  const LONG middle = (track.thumb_start + track.thumb_end) / 2;
  const LONG thumb = track.thumb_end - track.thumb_start, way = track.length - 2 * track.arrow - thumb;
  LONG along =
      middle + track.arrow + (wanted - track.low) * way / (track.high - track.low) - track.thumb_start;
  person_.button_down(track.at(middle));
  settle();
  for (int turn = 0; turn < 40; ++turn) {
    person_.move(track.at(along));
    settle();
    const int now = dragged_to(seen.window);
    if (now == wanted) break;
    along += now < wanted ? 1 : -1;
  }
  person_.button_up(track.at(along));
}

void ComPlayer::drag(const Command& command) {
  const Named what = named(command, 1);
  const bool is_told = what.next + 3 == command.words.size() && command.words[what.next] == "by";
  const auto right = is_told ? whole_number(command.words[what.next + 1]) : std::nullopt;
  const auto down = is_told ? whole_number(command.words[what.next + 2]) : std::nullopt;
  if (!right || !down) throw Failure{"drag by how many pixels to the right and down?"};
  const POINT from = middle_of(find(what).box);
  constexpr int steps = 5;
  person_.button_down(from);
  for (int step = 1; step <= steps; ++step) {
    settle();
    person_.move(
        {from.x + eyes().device(*right * step / steps), from.y + eyes().device(*down * step / steps)});
  }
  settle();
  person_.button_up({from.x + eyes().device(*right), from.y + eyes().device(*down)});
}

void ComPlayer::dump(const Command& command) {
  if (command.words.size() != 2) throw Failure{"dump under what name?"};
  const std::string& label = command.words[1];
  const auto wanted = options_.dumps.find(label);
  if (wanted == options_.dumps.end()) throw Failure{"the headless host has no dump " + label};
  const auto compare = [&] {
    const std::string seen = eyes().state();
    if (seen != wanted->second) throw Failure{"dump " + label + difference(wanted->second, seen)};
  };
  std::optional<Failure> failure;
  try {
    eventually(compare);
  } catch (const Failure& found) {
    failure = found;
  }
  if (!options_.pictures.empty()) save_picture_of(container_.frame(), options_.pictures + label + ".bmp");
  if (failure) throw *failure;
}

// ---- Files

HWND ComPlayer::file_dialog() {
  HWND dialog = nullptr;
  eventually([&] {
    for (HWND const window : open_dialogs(container_.thread().id()))
      if (name_box_in(window)) dialog = window;
    if (!dialog) throw Failure{"nothing asks for a file"};
  });
  return dialog;
}

void ComPlayer::answer_file_dialog(const std::string& name) {
  HWND const dialog = file_dialog();
  RECT box{};
  GetWindowRect(name_box_in(dialog), &box);
  person_.click(middle_of(box));
  person_.press({VK_HOME});
  person_.press({VK_END, Person::shift});
  person_.type(wide(options_.folder + name));
  person_.press({VK_RETURN});
  settle();
  eventually([&] {
    for (HWND const asked : open_dialogs(container_.thread().id())) {
      // A file of that name may be replaced.
      HWND const yes = GetDlgItem(asked, IDYES);
      if (!yes) continue;
      GetWindowRect(yes, &box);
      person_.click(middle_of(box));
      settle();
    }
    if (IsWindowVisible(dialog)) throw Failure{"the file dialog does not take " + name};
  });
}

void ComPlayer::save(const Command& command) {
  if (command.words.size() != 3 || command.words[1] != "as") throw Failure{"save as which name?"};
  answer_file_dialog(command.words[2]);
}

void ComPlayer::open(const Command& command) {
  if (command.words.size() != 3 || command.words[1] != "file") throw Failure{"open file of which path?"};
  const auto bytes = bytes_of(options_.project + command.words[2]);
  if (!bytes) throw Failure{"there is no file " + command.words[2]};
  const std::string name = std::filesystem::path(command.words[2]).filename().string();
  std::ofstream(options_.folder + name, std::ios::binary) << *bytes;
  brought_[name] = *bytes;
  answer_file_dialog(name);
}

void ComPlayer::cancel(const Command& command) {
  if (command.words.size() != 2 || command.words[1] != "file") throw Failure{"cancel file"};
  HWND const dialog = file_dialog();
  RECT box{};
  GetWindowRect(GetDlgItem(dialog, IDCANCEL), &box);
  person_.click(middle_of(box));
  settle();
  eventually([&] {
    if (IsWindowVisible(dialog)) throw Failure{"the file dialog does not go"};
  });
}

// ---- What must be seen

void ComPlayer::see(const Command& command) {
  if (command.words.size() < 2) throw Failure{"see what?"};
  const auto found = std::ranges::find(seen_entries, command.words[1], &Entry::word);
  const Handler handler = found == std::end(seen_entries) ? &ComPlayer::see_control : found->run;
  eventually([&] { (this->*handler)(command); });
}

void ComPlayer::see_no(const Command& command) {
  const std::string what = command.words.size() == 3 ? command.words[2] : "";
  if (what == "form") {
    if (!eyes().forms().empty()) throw Failure{"form " + eyes().forms().back().name + " is open"};
  } else if (what == "menu") {
    if (!eyes().menus().empty()) throw Failure{"menu " + eyes().menus().back().name + " is open"};
  } else if (what == "file") {
    std::map<std::string, std::string> there;
    for (const auto& entry : std::filesystem::directory_iterator(options_.folder))
      there[entry.path().filename().string()] = bytes_of(entry.path().string()).value_or("");
    if (there != brought_) throw Failure{"a file was written"};
  } else {
    throw Failure{"see no form, see no menu, or see no file"};
  }
}

void ComPlayer::see_form(const Command& command) {
  if (command.words.size() < 3) throw Failure{"see which form?"};
  const auto forms = eyes().forms();
  if (forms.empty()) throw Failure{"no form is open"};
  if (forms.back().name != command.words[2]) throw Failure{"the open form is " + forms.back().name};
  if (command.words.size() > 3 && forms.back().caption != command.words[3])
    throw Failure{"the form's caption is " + in_quotes(forms.back().caption)};
}

void ComPlayer::see_menu(const Command& command) {
  if (command.words.size() != 3) throw Failure{"see which menu?"};
  const auto menus = eyes().menus();
  if (menus.empty()) throw Failure{"no menu is open"};
  if (std::ranges::find(menus, command.words[2], &Opened::name) == menus.end())
    throw Failure{"the open menu is " + menus.front().name};
}

void ComPlayer::see_focus(const Command& command) {
  const Named wanted = named(command, 2);
  const std::string full = wanted.name + (wanted.index == 0 ? "" : "[" + std::to_string(wanted.index) + "]");
  const std::string focus = eyes().focus();
  if (focus != full) throw Failure{focus.empty() ? "nothing has the focus" : "the focus is on " + focus};
}

void ComPlayer::see_error(const Command& command) {
  const auto number = command.words.size() == 3 ? whole_number(command.words[2]) : std::nullopt;
  if (!number) throw Failure{"see which error?"};
  if (called_ && *called_) note(**std::exchange(called_, {}));
  if (!error_) throw Failure{"there was no error"};
  if (*error_ != *number) throw Failure{"it was error " + std::to_string(*error_)};
  error_.reset();
}

void ComPlayer::see_busy(const Command&) {
  if (!eyes().is_busy()) throw Failure{"the control is not busy"};
}
void ComPlayer::see_idle(const Command&) {
  if (eyes().is_busy()) throw Failure{"the control is busy"};
}

void ComPlayer::see_file(const Command& command) {
  if (command.words.size() != 5 || command.words[3] != "like") throw Failure{"see file NAME like PATH"};
  const auto wanted = bytes_of(options_.project + command.words[4]);
  if (!wanted) throw Failure{"there is no file " + command.words[4]};
  const auto written = bytes_of(options_.folder + command.words[2]);
  if (!written) throw Failure{"no file " + command.words[2] + " was written"};
  if (*written != *wanted) throw Failure{command.words[2] + " is not like " + command.words[4]};
}

// A control that was never seen has no window.
bool ComPlayer::is_shown(const Named& what) const {
  if (const auto line = eyes().sees_line(what.name)) return *line;
  const auto seen = eyes().find(what.name, what.index);
  if (!seen && eyes().forms().empty() && !eyes().exists(what.name, what.index))
    throw Failure{"there is no " + what.called()};
  return seen && seen->shown;
}

void ComPlayer::see_control(const Command& command) {
  const Named what = named(command, 1);
  if (what.next >= command.words.size()) throw Failure{"see what of " + what.called() + "?"};
  const std::string& property = command.words[what.next];
  const bool is_text = command.quoted[what.next];
  if (!is_text && (property == "hidden" || property == "shown")) {
    if (is_shown(what) != (property == "shown")) throw Failure{what.called() + " is not " + property};
    return;
  }
  const Seen seen = find(what);
  const auto expect_equal = [&](const std::string& shown, const std::string& wanted) {
    if (shown != wanted)
      throw Failure{what.called() + " shows " + in_quotes(shown) + ", not " + in_quotes(wanted)};
  };
  if (is_text) return expect_equal(seen.text, property);
  if (const auto state = std::ranges::find(states, property, &State::word); state != std::end(states)) {
    if (!state->holds(seen)) throw Failure{what.called() + " is not " + property};
    return;
  }
  const std::string wanted = what.next + 1 < command.words.size() ? command.words[what.next + 1] : "";
  if (property == "back") return expect_equal(seen.back, wanted);
  if (property == "tip") return expect_equal(seen.tip, wanted);
  if (property == "value") return expect_equal(std::to_string(seen.value), wanted);
  throw Failure{"nothing is known of " + in_quotes(property)};
}

}  // namespace tabulon::activex
