#include "tests/activex/in_place.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "hosts/activex/names.h"
#include "hosts/activex/text.h"
#include "tests/activex/bags.h"

namespace tabulon::client {

// ---- Places and windows

LPARAM at(POINT place) {
  return MAKELPARAM(scaled(place.x), scaled(place.y));
}

std::string text_of(HWND window) {
  wchar_t text[200];
  const auto length = SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
  return activex::narrow({text, static_cast<std::size_t>(length)});
}

std::string name_of(HWND window) {
  std::wstring name;
  while (const auto letter = SendMessageW(window, activex::name_message(), name.size(), 0))
    name += static_cast<wchar_t>(letter);
  return activex::narrow(name);
}

HWND window_named(HWND around, std::string_view name) {
  struct Wanted {
    std::string_view name;
    HWND found = nullptr;
  } wanted{name};
  const auto look = [](HWND window, LPARAM answer) -> BOOL {
    auto& sought = *reinterpret_cast<Wanted*>(answer);
    if (name_of(window) == sought.name) sought.found = window;
    return !sought.found;
  };
  EnumChildWindows(around, look, reinterpret_cast<LPARAM>(&wanted));
  return wanted.found;
}

HWND open_form() {
  HWND found = nullptr;
  const auto look = [](HWND window, LPARAM answer) -> BOOL {
    wchar_t name[64]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) != activex::form_class || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(answer) = window;
    return FALSE;
  };
  EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
  return found;
}

bool has(const Calls& calls, std::string_view call) {
  return std::ranges::find(calls, call) != calls.end();
}

// ---- The control in its container

InPlace::InPlace(Site::Where where) : site_(where) {
  if (!object_) return;
  const ComPtr<Bag> bag = Bag::of({{L"prmSTR_DLfunctie", L" -3, -5"}, {L"prmSTR_RL", L" 4, 12"}});
  EXPECT_EQ(code(as<IPersistPropertyBag>(object_)->Load(bag.Get(), nullptr)), code(S_OK));
  EXPECT_EQ(code(object_->SetClientSite(&site_)), code(S_OK));
}

InPlace::~InPlace() {
  if (object_) {
    EXPECT_HRESULT_SUCCEEDED(object_->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(code(object_->SetClientSite(nullptr)), code(S_OK));
  }
  object_.Reset();
  EXPECT_EQ(site_.references, 1U);
  EXPECT_EQ(site_.frame().references, 1U);
}

HRESULT InPlace::verb(LONG number) {
  return object_->DoVerb(number, nullptr, &site_, 0, site_.window(), &site_.place);
}

HWND InPlace::window() {
  HWND found = nullptr;
  if (object_) as<IOleInPlaceObject>(object_)->GetWindow(&found);
  return found;
}

WithForms::WithForms() {
  if (object_) EXPECT_EQ(code(activate()), code(S_OK));
  site_.take_calls();
}

void WithForms::meanwhile(std::function<void(HWND form)> look) {
  thread_.post([look = std::move(look)] {
    HWND const form = open_form();
    look(form);
    PostMessageW(form, WM_CLOSE, 0, 0);
  });
}

void WithForms::expect_over() {
  EXPECT_FALSE(open_form());
  EXPECT_TRUE(IsWindowEnabled(site_.top()));
  EXPECT_EQ(modeless_calls(), Calls({"frame.EnableModeless(false)", "frame.EnableModeless(true)"}));
}

Calls WithForms::modeless_calls() {
  Calls found;
  std::ranges::copy_if(site_.calls(), std::back_inserter(found),
                       [](const std::string& call) { return call.starts_with("frame.EnableModeless"); });
  return found;
}

}  // namespace tabulon::client
