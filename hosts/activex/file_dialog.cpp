#include "hosts/activex/file_dialog.h"

#include <commdlg.h>

#include <algorithm>
#include <string_view>

#include "hosts/activex/text.h"

namespace tabulon::activex {

using platform::FileDialog;

namespace {

constexpr std::size_t longest_name = 32768;  // that the system allows

// The default extension: "tbl" for "*.tbl", none for "*.*".
std::wstring extension_of(std::string_view filter) {
  const std::size_t point = filter.rfind('.');
  const std::string_view extension = point == std::string_view::npos ? "" : filter.substr(point + 1);
  return extension.find_first_of("*?") == std::string_view::npos ? wide(extension) : std::wstring();
}

// "Simplex tableau|*.tbl" with a NUL after each half. The string's own terminator is the second NUL at the
// end.
std::wstring halves_apart(std::string_view filter) {
  std::wstring halves = wide(filter) + L'|';
  std::ranges::replace(halves, L'|', L'\0');
  return halves;
}

}  // namespace

std::string ask_for_file(HWND owner, const FileDialog& dialog) {
  const std::wstring title = wide(dialog.title), filter = halves_apart(dialog.filter);
  const std::wstring extension = extension_of(dialog.filter);
  std::wstring name = wide(dialog.file_name);
  name.resize(longest_name);
  OPENFILENAMEW question{};
  question.lStructSize = sizeof question;
  question.hwndOwner = owner;
  question.lpstrFilter = filter.c_str();
  question.lpstrFile = name.data();
  question.nMaxFile = static_cast<DWORD>(name.size());
  question.lpstrTitle = title.c_str();
  question.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  question.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  const bool saves = dialog.purpose == FileDialog::Purpose::Save;
  const bool chosen = saves ? GetSaveFileNameW(&question) : GetOpenFileNameW(&question);
  return chosen ? narrow(name.c_str()) : std::string(dialog.file_name);
}

}  // namespace tabulon::activex
