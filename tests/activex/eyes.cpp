#include "eyes.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <tuple>
#include <utility>

#include "hosts/activex/names.h"
#include "hosts/activex/text.h"
#include "platform/captions.h"
#include "tests/activex/patience.h"
#include "tests/activex/screen.h"

namespace tabulon::activex {

using platform::plain_caption;

namespace {

constexpr wchar_t menu_class[] = L"#32768";
constexpr UINT menu_handle_message = 0x1E1;  // MN_GETHMENU

// ---- Asking windows

LRESULT ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR answer = 0;
  return SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, patience_in_milliseconds, &answer)
             ? static_cast<LRESULT>(answer)
             : 0;
}

std::string text_of(HWND window) {
  std::array<wchar_t, 2048> text{};
  const LRESULT length = ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return narrow({text.data(), static_cast<std::size_t>(std::clamp<LRESULT>(length, 0, text.size() - 1))});
}

std::wstring class_of(HWND window) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return {name.data(), static_cast<std::size_t>(length)};
}

bool is_of_class(HWND window, const wchar_t* name) {
  return lstrcmpiW(class_of(window).c_str(), name) == 0;
}

BOOL CALLBACK collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

// The windows of a class that lie on the desktop, the one on top last.
std::vector<HWND> windows_of(DWORD thread, const wchar_t* window_class) {
  std::vector<HWND> all;
  EnumThreadWindows(thread, collect, reinterpret_cast<LPARAM>(&all));
  std::erase_if(all, [&](HWND window) { return !is_of_class(window, window_class); });
  std::ranges::reverse(all);
  return all;
}

std::vector<HWND> visible_windows_of(DWORD thread, const wchar_t* window_class) {
  std::vector<HWND> all = windows_of(thread, window_class);
  std::erase_if(all, [](HWND window) { return !IsWindowVisible(window); });
  return all;
}

std::vector<HWND> windows_in(HWND ground) {
  std::vector<HWND> all;
  EnumChildWindows(ground, collect, reinterpret_cast<LPARAM>(&all));
  return all;
}

RECT box_of(HWND window) {
  RECT box{};
  GetWindowRect(window, &box);
  return box;
}

// The inside of a window, on the screen.
RECT inside_of(HWND window) {
  RECT box{};
  GetClientRect(window, &box);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&box), 2);
  return box;
}

bool is_shown(HWND window, HWND ground) {
  const RECT box = box_of(window), inside = inside_of(ground);
  RECT common{};
  return IsWindowVisible(window) && IntersectRect(&common, &box, &inside);
}

bool has_style(HWND window, LONG style) {
  return (GetWindowLongW(window, GWL_STYLE) & style) != 0;
}

// ---- What kind of control a window is

// A pane is a frame, an image or a picture; their names tell.
std::string pane_kind(std::string_view name) {
  if (name.starts_with("img")) return "image";
  return name.starts_with("Picture") ? "picture" : "frame";
}

std::string kind_of(HWND window, std::string_view name) {
  constexpr std::pair<const wchar_t*, std::string_view> kinds[] = {
      {L"STATIC", "label"}, {L"EDIT", "text"}, {L"BUTTON", "button"}};
  for (const auto& [window_class, kind] : kinds)
    if (is_of_class(window, window_class)) return std::string(kind);
  if (is_of_class(window, L"SCROLLBAR")) return has_style(window, SBS_VERT) ? "vscroll" : "hscroll";
  return is_of_class(window, pane_class) ? pane_kind(name) : "unknown";
}

bool shows_its_back(std::string_view kind) {
  return kind == "frame" || kind == "label" || kind == "text";
}

// ---- Colours: asked of the parent, as the system asks before it draws

UINT colour_message(const Seen& seen) {
  if (seen.kind == "button") return WM_CTLCOLORBTN;
  return seen.kind == "text" && !seen.locked && !seen.disabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
}

bool is_system_brush(HBRUSH brush) {
  for (int colour = 0; colour <= COLOR_MENUBAR; ++colour)
    if (GetSysColorBrush(colour) == brush) return true;
  return false;
}

std::string colour_of(HBRUSH brush, HDC dc) {
  if (!brush) return "unknown";
  if (brush == GetStockObject(NULL_BRUSH)) return "none";
  if (is_system_brush(brush)) return "system";
  LOGBRUSH told{};
  GetObjectW(brush, sizeof told, &told);
  // One brush of the system's paints in a colour that the device context has.
  const COLORREF colour = brush == GetStockObject(DC_BRUSH) ? GetDCBrushColor(dc) : told.lbColor;
  return std::to_string(GetRValue(colour)) + "," + std::to_string(GetGValue(colour)) + "," +
         std::to_string(GetBValue(colour));
}

std::string back_of(const Seen& seen) {
  HDC const dc = CreateCompatibleDC(nullptr);
  const LRESULT brush = ask(GetParent(seen.window), colour_message(seen), reinterpret_cast<WPARAM>(dc),
                            reinterpret_cast<LPARAM>(seen.window));
  const std::string colour = colour_of(reinterpret_cast<HBRUSH>(brush), dc);
  DeleteDC(dc);
  return colour;
}

// ---- Colours: looked at

// The points of a window as 0x00RRGGBB, row by row from the bottom.
struct Points {
  LONG width, height;
  std::vector<std::uint32_t> all;
  std::uint32_t at(LONG x, LONG y) const {
    const bool is_inside = x >= 0 && x < width && y >= 0 && y < height;
    return is_inside ? all[static_cast<std::size_t>((height - 1 - y) * width + x)] : 0;
  }
};

Points points_of(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), inside.right, inside.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  HDC const screen = GetDC(window);
  HDC const dc = CreateCompatibleDC(screen);
  HBITMAP const bitmap = CreateCompatibleBitmap(screen, inside.right, inside.bottom);
  HGDIOBJ const before = SelectObject(dc, bitmap);
  BitBlt(dc, 0, 0, inside.right, inside.bottom, screen, 0, 0, SRCCOPY);
  SelectObject(dc, before);
  Points points{inside.right, inside.bottom, {}};
  points.all.resize(static_cast<std::size_t>(inside.right * inside.bottom));
  GetDIBits(dc, bitmap, 0, static_cast<UINT>(inside.bottom), points.all.data(), &info, DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(dc);
  ReleaseDC(window, screen);
  for (std::uint32_t& point : points.all) point &= 0xFFFFFFU;
  return points;
}

std::uint32_t point_of(platform::Colour colour) {
  return static_cast<std::uint32_t>(colour.red() << 16 | colour.green() << 8 | colour.blue());
}

// ---- Scroll bars

// A bar whose numbers fall from its start to its end shows their negatives, because a bar of the system
// rises.
void read_range(Seen& seen) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  GetScrollInfo(seen.window, SB_CTL, &info);
  seen.low = info.nMin;
  seen.high = info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
  seen.value = info.nPos;
  if (seen.low >= 0) return;
  std::swap(seen.low, seen.high);
  for (int* number : {&seen.low, &seen.high, &seen.value}) *number = -*number;
}

// ---- Names, as dumps write them: "txtTableau[3]"

void split_name(const std::string& full, Seen& seen) {
  const std::size_t bracket = full.find('[');
  seen.name = full.substr(0, bracket);
  if (bracket != full.npos) std::from_chars(full.data() + bracket + 1, full.data() + full.size(), seen.index);
}

std::string full_name(std::string_view name, int index) {
  return std::string(name) + (index == 0 ? "" : "[" + std::to_string(index) + "]");
}

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

// ---- Menus

struct ItemInfo : MENUITEMINFOW {
  ItemInfo(HMENU menu, UINT at) : MENUITEMINFOW{} {
    cbSize = sizeof(MENUITEMINFOW);
    fMask = MIIM_STATE | MIIM_ID | MIIM_STRING | MIIM_SUBMENU | MIIM_FTYPE;
    dwTypeData = words;
    cch = static_cast<UINT>(std::size(words));
    GetMenuItemInfoW(menu, at, TRUE, this);
  }
  wchar_t words[256]{};
};

std::vector<UINT> places_in(HMENU menu) {
  std::vector<UINT> places;
  for (int at = 0; at < GetMenuItemCount(menu); ++at) places.push_back(static_cast<UINT>(at));
  return places;
}

bool has_highlight(HMENU menu) {
  return std::ranges::any_of(places_in(menu),
                             [&](UINT at) { return ItemInfo(menu, at).fState & MFS_HILITE; });
}

}  // namespace

Eyes::Eyes(HWND surface)
    : surface_(surface), thread_(GetWindowThreadProcessId(surface, nullptr)), dpi_(dpi_of_screen()) {}

// ---- Places

int Eyes::pixels(LONG device) const {
  return static_cast<int>(std::floor(device * 96.0 / dpi_ + 0.5));
}

std::string Eyes::size_of(HWND window) const {
  RECT inside{};
  GetClientRect(window, &inside);
  return " " + std::to_string(pixels(inside.right)) + "x" + std::to_string(pixels(inside.bottom)) + "\n";
}

std::string Eyes::place_of(const RECT& box, HWND ground) const {
  const RECT inside = inside_of(ground);
  return std::to_string(pixels(box.left - inside.left)) + "," + std::to_string(pixels(box.top - inside.top));
}

// ---- Controls

// The tool tip of a window on a surface or form.
std::string Eyes::tip_of(HWND window, HWND ground) const {
  for (HWND const tips : windows_of(thread_, TOOLTIPS_CLASSW)) {
    std::array<wchar_t, 1024> words{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = ground;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = words.data();
    ask(tips, TTM_GETTEXTW, words.size(), reinterpret_cast<LPARAM>(&tool));
    if (words.front()) return narrow(words.data());
  }
  return {};
}

// A window keeps its name.
const std::string& Eyes::name_of(HWND window) const {
  const auto [known, is_new] = names_.try_emplace(window);
  std::wstring name;
  while (const LRESULT letter = is_new ? ask(window, name_message(), name.size(), 0) : 0)
    name += static_cast<wchar_t>(letter);
  if (is_new) known->second = narrow(name);
  return known->second;
}

HWND Eyes::window_of(const std::string& name, HWND ground) const {
  const auto all = windows_in(ground);
  const auto found = std::ranges::find_if(all, [&](HWND window) { return name_of(window) == name; });
  return found == all.end() ? nullptr : *found;
}

bool Eyes::is_picture(HWND window) const {
  return kind_of(window, name_of(window)) == "picture";
}

Seen Eyes::look_at(HWND window, HWND ground) const {
  Seen seen;
  seen.window = window;
  split_name(name_of(window), seen);
  seen.kind = kind_of(window, seen.name);
  seen.box = box_of(window);
  seen.shown = is_shown(window, ground);
  seen.locked = seen.kind == "text" && has_style(window, ES_READONLY);
  seen.disabled = !IsWindowEnabled(window);
  seen.text = text_of(window);
  if (seen.kind == "button") seen.text = plain_caption(seen.text);
  seen.back = back_of(seen);
  seen.tip = tip_of(window, ground);
  if (seen.kind.ends_with("scroll")) read_range(seen);
  return seen;
}

std::string Eyes::line_of(const Seen& seen, HWND ground) const {
  std::string line = full_name(seen.name, seen.index) + " " + seen.kind;
  if (seen.kind == "label" || seen.kind == "text" || seen.kind == "button")
    line += " " + in_quotes(seen.text);
  if (seen.kind.ends_with("scroll"))
    line += " " + std::to_string(seen.low) + ".." + std::to_string(seen.high) + " value " +
            std::to_string(seen.value);
  // What stands in a picture has its place in the picture's own units.
  HWND const container = seen.kind == "line" ? seen.window : GetParent(seen.window);
  if (container == ground || !is_picture(container))
    line += " at " + place_of(seen.box, ground) + " " +
            std::to_string(pixels(seen.box.right - seen.box.left)) + "x" +
            std::to_string(pixels(seen.box.bottom - seen.box.top));
  if (shows_its_back(seen.kind)) line += " back " + seen.back;
  if (!seen.tip.empty()) line += " tip " + in_quotes(seen.tip);
  if (seen.locked) line += " locked";
  if (seen.disabled) line += " disabled";
  return line + "\n";
}

// A line has no window. It is seen if its colour is there: in the middle of where it stands, and for one in a
// picture, whose units are its own, anywhere in that picture.
Seen Eyes::look_at_line(const platform::Control& line, HWND container) const {
  const auto device = [this](double twips) {
    return static_cast<LONG>(std::floor(twips * dpi_ / 1440 + 0.5));
  };
  const platform::Bounds& bounds = line.bounds();
  const LONG left = device(bounds.left), top = device(bounds.top), pixel = std::max(1L, device(15));
  const RECT place{left, top, left + std::max(pixel, device(bounds.width)),
                   top + std::max(pixel, device(bounds.height))};
  const Points points = points_of(container);
  const std::uint32_t colour = point_of(line.fore_colour());
  Seen seen;
  seen.window = container;
  seen.name = line.name();
  seen.index = line.index();
  seen.kind = "line";
  seen.box = place;
  MapWindowPoints(container, nullptr, reinterpret_cast<POINT*>(&seen.box), 2);
  seen.shown = IsWindowVisible(container) &&
               (is_picture(container) ? std::ranges::find(points.all, colour) != points.all.end()
                                      : points.at((place.left + place.right) / 2, place.top) == colour);
  return seen;
}

std::vector<Seen> Eyes::lines_on(HWND ground) const {
  const bool is_about = name_of(ground) == about_.name();
  if (ground != surface_ && !is_about) return {};
  const platform::Surface& known = is_about ? static_cast<const platform::Surface&>(about_) : control_;
  std::vector<Seen> lines;
  for (const platform::Control* const each : known.controls()) {
    if (each->kind() != platform::Kind::Line) continue;
    HWND const container =
        each->container() ? window_of(full_name(each->container()->name(), 0), ground) : ground;
    if (container) lines.push_back(look_at_line(*each, container));
  }
  return lines;
}

std::vector<Seen> Eyes::all_on(HWND ground) const {
  std::vector<Seen> all = lines_on(ground);
  for (HWND const window : windows_in(ground))
    if (is_shown(window, ground)) all.push_back(look_at(window, ground));
  std::erase_if(all, [](const Seen& seen) { return !seen.shown; });
  return all;
}

std::string Eyes::controls_of(HWND ground) const {
  std::vector<Seen> all = all_on(ground);
  std::ranges::sort(all, {}, [](const Seen& seen) { return std::tie(seen.name, seen.index); });
  std::string lines;
  for (const Seen& seen : all) lines += line_of(seen, ground);
  return lines;
}

// ---- Forms, focus, busy

std::vector<Opened> Eyes::forms() const {
  std::vector<Opened> forms;
  for (HWND const window : visible_windows_of(thread_, form_class))
    forms.push_back({name_of(window), text_of(window), window});
  return forms;
}

HWND Eyes::top() const {
  const auto forms = visible_windows_of(thread_, form_class);
  return forms.empty() ? surface_ : forms.back();
}

std::string Eyes::focus() const {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(thread_, &thread);
  return IsChild(top(), thread.hwndFocus) ? name_of(thread.hwndFocus) : std::string();
}

bool Eyes::is_busy() const {
  return ask(surface_, busy_message(), 0, 0) == 1;
}

// ---- Menus

// A submenu lies on top of the menu that it belongs to, so the outermost comes first.
std::vector<Eyes::OpenMenu> Eyes::open_menus() const {
  std::vector<OpenMenu> open;
  for (HWND const window : visible_windows_of(thread_, menu_class))
    open.push_back({window, reinterpret_cast<HMENU>(ask(window, menu_handle_message, 0, 0))});
  return open;
}

const platform::Control* Eyes::item(UINT id) const {
  const auto& controls = control_.controls();
  return id >= 1 && id <= controls.size() ? controls[id - 1] : nullptr;
}

std::string Eyes::menu_name(const std::vector<OpenMenu>& open, std::size_t at) const {
  for (const UINT place : places_in(open[at].menu)) {
    const platform::Control* const first = item(ItemInfo(open[at].menu, place).wID);
    if (!first || first->kind() != platform::Kind::Menu) continue;
    const platform::Menu* const menu = static_cast<const platform::Menu*>(first)->parent();
    if (menu) return full_name(menu->name(), menu->index());
  }
  return "unknown";
}

std::vector<Opened> Eyes::menus() const {
  const std::vector<OpenMenu> open = open_menus();
  std::vector<Opened> menus;
  for (std::size_t at = 0; at < open.size(); ++at)
    menus.push_back({menu_name(open, at), {}, open[at].window});
  return menus;
}

std::string Eyes::item_line(const MENUITEMINFOW& info, bool is_highlighted) const {
  if (info.fType & MFT_SEPARATOR) return "  -\n";
  const platform::Control* const known = item(info.wID);
  std::string line = "  " + (known ? full_name(known->name(), known->index()) : "unknown") + " " +
                     in_quotes(plain_caption(narrow(info.dwTypeData)));
  if (info.hSubMenu) line += " submenu";
  if (info.fState & MFS_CHECKED) line += " checked";
  if (info.fState & MFS_GRAYED) line += " disabled";
  if (is_highlighted) line += " highlighted";
  return line + "\n";
}

// The keyboard acts on the innermost menu that has a highlight; the items that lead there are highlighted
// too.
std::string Eyes::menu_lines() const {
  const std::vector<OpenMenu> open = open_menus();
  std::size_t innermost = open.size();
  for (std::size_t at = 0; at < open.size(); ++at)
    if (has_highlight(open[at].menu)) innermost = at;
  std::string lines;
  for (std::size_t at = 0; at < open.size(); ++at) {
    lines += "menu " + menu_name(open, at);
    if (at == 0) lines += " at " + place_of(box_of(open[at].window), surface_);
    lines += "\n";
    for (const UINT place : places_in(open[at].menu)) {
      const ItemInfo info(open[at].menu, place);
      lines += item_line(info, at == innermost && (info.fState & MFS_HILITE));
    }
  }
  return lines;
}

// ---- The whole

std::string Eyes::state() const {
  std::string state = name_of(surface_) + size_of(surface_) + controls_of(surface_);
  if (is_busy()) state += "busy\n";
  for (const Opened& form : forms())
    state +=
        "form " + form.name + " " + in_quotes(form.caption) + size_of(form.window) + controls_of(form.window);
  if (const std::string menus = menu_lines(); !menus.empty()) return state + menus;
  const std::string active = focus();
  return state + "focus " + (active.empty() ? "none" : active) + "\n";
}

std::optional<Seen> Eyes::find(std::string_view name, int index) const {
  for (const OpenMenu& open : open_menus()) {
    for (const UINT place : places_in(open.menu)) {
      const ItemInfo info(open.menu, place);
      const platform::Control* const known = item(info.wID);
      if (!known || known->name() != name || known->index() != index) continue;
      Seen seen;
      seen.name = name;
      seen.index = index;
      seen.kind = "menu";
      seen.window = open.window;
      seen.shown = true;
      seen.checked = (info.fState & MFS_CHECKED) != 0;
      seen.disabled = (info.fState & MFS_GRAYED) != 0;
      seen.highlighted = (info.fState & MFS_HILITE) != 0;
      seen.text = plain_caption(narrow(info.dwTypeData));
      GetMenuItemRect(nullptr, open.menu, place, &seen.box);
      return seen;
    }
  }
  for (HWND const ground : {top(), surface_}) {
    if (HWND const window = window_of(full_name(name, index), ground)) return look_at(window, ground);
    for (const Seen& line : lines_on(ground))
      if (line.name == name && line.index == index) return line;
  }
  return {};
}

}  // namespace tabulon::activex
