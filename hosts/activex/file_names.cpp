#include "hosts/activex/file_names.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace tabulon::activex {

namespace {

constexpr std::array<std::wstring_view, 7> devices{L"CON",    L"PRN",    L"AUX",    L"NUL",
                                                   L"CLOCK$", L"CONIN$", L"CONOUT$"};
constexpr std::array<std::wstring_view, 2> numbered_devices{L"COM", L"LPT"};
constexpr std::wstring_view numbers =
    L"0123456789\u00B9\u00B2\u00B3";  // the system takes those for 1, 2 and 3
constexpr std::array<std::wstring_view, 3> folders_of_devices{LR"(\\.\)", LR"(\\?\)", LR"(\??\)"};
constexpr std::array<std::wstring_view, 2> shares_of_devices{L"PIPE", L"MAILSLOT"};

template <std::size_t count>
bool stands_in(const std::array<std::wstring_view, count>& table, std::wstring_view text) {
  return std::ranges::find(table, text) != table.end();
}

wchar_t as_in_tables(wchar_t letter) {
  if (letter == L'/') return L'\\';
  return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

std::wstring_view without_blanks(std::wstring_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(L' '), text.size());
  return text.substr(begin, text.find_last_not_of(L' ') + 1 - begin);
}

// The system ignores what stands behind the first point, and blanks.
bool is_device(std::wstring_view part) {
  const std::wstring_view base = without_blanks(part.substr(0, part.find(L'.')));
  if (stands_in(devices, base)) return true;
  return base.size() == 4 && stands_in(numbered_devices, base.substr(0, 3)) && numbers.contains(base[3]);
}

bool is_in_folder_of_devices(std::wstring_view path) {
  const std::wstring folder = std::wstring(path) + L'\\';
  return std::ranges::any_of(folders_of_devices,
                             [&](std::wstring_view each) { return folder.starts_with(each); });
}

bool begins_with_drive(std::wstring_view path) {
  return path.size() >= 2 && path[1] == L':' && path[0] >= L'A' && path[0] <= L'Z';
}

template <class Is>
bool any_part(std::wstring_view path, Is is) {
  for (std::size_t begin = 0, end = 0; end != path.npos; begin = end + 1) {
    end = path.find(L'\\', begin);
    if (is(path.substr(begin, end - begin))) return true;
  }
  return false;
}

bool is_share_of_devices(std::wstring_view path) {
  if (!path.starts_with(LR"(\\)")) return false;
  return any_part(path, [](std::wstring_view part) { return stands_in(shares_of_devices, part); });
}

std::wstring in_full(const std::wstring& name) {
  std::wstring path(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
  path.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
  return path;
}

}  // namespace

bool is_no_file(const std::wstring& name) {
  std::wstring path = name;
  std::ranges::transform(path, path.begin(), as_in_tables);
  // The system itself knows more of them than the tables.
  if (is_in_folder_of_devices(path) || is_share_of_devices(path) || is_in_folder_of_devices(in_full(name)))
    return true;
  const std::wstring_view rest = std::wstring_view(path).substr(begins_with_drive(path) ? 2 : 0);
  return rest.contains(L':') || any_part(rest, is_device);
}

bool is_on_another_host(const std::wstring& name) {
  return in_full(name).starts_with(LR"(\\)");
}

}  // namespace tabulon::activex
