#include "hosts/activex/fonts.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace tabulon::activex {

namespace {

// In order of preference. They are about equally wide, so that every caption fits with each of them.
constexpr const wchar_t* faces[] = {L"Segoe UI", L"Arial", L"Liberation Sans", L"Tahoma"};

int CALLBACK found(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM answer) {
  *reinterpret_cast<bool*>(answer) = true;
  return 0;
}

bool is_installed(HDC screen, const wchar_t* face) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  wcscpy_s(wanted.lfFaceName, face);
  bool answer = false;
  EnumFontFamiliesExW(screen, &wanted, found, reinterpret_cast<LPARAM>(&answer), 0);
  return answer;
}

const wchar_t* installed_face() {
  HDC const screen = GetDC(nullptr);
  const auto face =
      std::ranges::find_if(faces, [&](const wchar_t* each) { return is_installed(screen, each); });
  ReleaseDC(nullptr, screen);
  return face != std::end(faces) ? *face : L"";
}

HFONT make(const platform::Font& font, int dpi) {
  static const wchar_t* const face = installed_face();
  return CreateFontW(-MulDiv(font.points, dpi, 72), 0, 0, 0, font.bold ? FW_SEMIBOLD : FW_NORMAL, FALSE,
                     FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                     CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, face);
}

}  // namespace

Fonts::~Fonts() {
  for (const auto& [which, handle] : fonts_) DeleteObject(handle);
}

HFONT Fonts::of(const platform::Font& font, int dpi) {
  HFONT& handle = fonts_[{font.points, font.bold, dpi}];
  if (!handle) handle = make(font, dpi);
  return handle;
}

}  // namespace tabulon::activex
