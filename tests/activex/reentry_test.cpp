// A container or listener that acts while the control is notifying it, or waiting for the user: it closes the
// control, deactivates it, releases it, or has it open a form. Nothing crashes, hangs or leaks.
#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "hosts/activex/names.h"
#include "tests/activex/com.h"
#include "tests/activex/in_place.h"
#include "tests/activex/patience.h"
#include "tests/activex/resources.h"
#include "tests/activex/site.h"

namespace tabulon::client {
namespace {

using activex::surface_class;

// When it has run out the test fails, and all message loops end.
class Patience {
 public:
  Patience() : timer_(SetTimer(nullptr, 0, activex::patience_in_milliseconds, &end)) {}
  Patience(const Patience&) = delete;
  ~Patience() {
    KillTimer(nullptr, timer_);
    MSG quit;
    while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
  }

 private:
  static void CALLBACK end(HWND, UINT, UINT_PTR, DWORD) {
    ADD_FAILURE() << "something hangs";
    EndMenu();
    PostQuitMessage(1);
  }

  UINT_PTR timer_;
};

// Polls from within whatever message loop is running. One at a time.
class Often {
 public:
  explicit Often(std::function<void()> look) : timer_(SetTimer(nullptr, 0, 20, &tick)) {
    look_ = std::move(look);
  }
  Often(const Often&) = delete;
  ~Often() { KillTimer(nullptr, timer_); }

 private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { look_(); }

  static inline std::function<void()> look_;
  UINT_PTR timer_;
};

bool is_menu_open() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetCurrentThreadId(), &info);
  return info.hwndMenuOwner != nullptr;
}

long tool_tip_windows() {
  long count = 0;
  const auto look = [](HWND window, LPARAM answer) -> BOOL {
    wchar_t name[64]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    *reinterpret_cast<long*>(answer) += std::wstring_view(name) == L"tooltips_class32";
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&count));
  return count;
}

bool library_is_free() {
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  const auto can_unload = reinterpret_cast<CanUnload>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"Tabulon.ocx"), "DllCanUnloadNow")));
  return can_unload && can_unload() == S_OK;
}

// ---- How a control comes to its end

template <class Base>
class Ending : public Base {
 public:
  void close() { EXPECT_HRESULT_SUCCEEDED(this->object_->Close(OLECLOSE_NOSAVE)); }
  void leave_place() { EXPECT_EQ(code(this->deactivate()), code(S_OK)); }
  void let_go() { this->object_.Reset(); }
  void let_go_without_site() {
    EXPECT_EQ(code(this->object_->SetClientSite(nullptr)), code(S_OK));
    let_go();
  }

 protected:
  using Base::Base;

  // Every activation was followed by a deactivation, and no window is left.
  void expect_gone() {
    EXPECT_FALSE(FindWindowExW(this->site_.window(), nullptr, surface_class, nullptr));
    EXPECT_FALSE(open_form());
    EXPECT_EQ(tool_tip_windows(), 0);
    EXPECT_FALSE(this->site_.frame().active);
    EXPECT_EQ(this->site_.frame().references, 1U);
    EXPECT_EQ(this->site_.count("OnInPlaceDeactivate"), this->site_.count("OnInPlaceActivate"));
    EXPECT_EQ(this->site_.count("OnUIDeactivate"), this->site_.count("OnUIActivate"));
    if (!this->object_) EXPECT_TRUE(library_is_free());
  }

  Patience patience_;
};

template <class Fixture>
struct End {
  const char* name;
  void (Fixture::*act)();
};

template <class Fixture>
void PrintTo(const End<Fixture>& end, std::ostream* out) {
  *out << end.name;
}

// The characters of a call that are allowed in a test's name.
std::string letters_of(std::string call) {
  std::erase_if(call, [](unsigned char letter) { return !std::isalnum(letter); });
  return call;
}

template <class Fixture>
const End<Fixture> ends_with_object[] = {{"Close", &Fixture::close}, {"LeavePlace", &Fixture::leave_place}};

template <class Fixture>
const End<Fixture> all_ends[] = {{"Close", &Fixture::close},
                                 {"LeavePlace", &Fixture::leave_place},
                                 {"LetGo", &Fixture::let_go},
                                 {"LetGoWithoutSite", &Fixture::let_go_without_site}};

// The two that end most abruptly, for suites with many calls to end it in.
template <class Fixture>
const End<Fixture> far_ends[] = {{"LeavePlace", &Fixture::leave_place}, {"LetGo", &Fixture::let_go}};

std::string name_of_call_and_end(const auto& info) {
  return letters_of(std::get<0>(info.param)) + std::get<1>(info.param).name;
}

// ---- A listener that ends it

using EndedOffScreen = Ending<Listening<InPlace>>;

class InPlaceEndedInAnEvent
    : public EndedOffScreen,
      public testing::WithParamInterface<std::tuple<const char*, End<EndedOffScreen>>> {
 protected:
  // Causes every event, as long as the control exists.
  void do_everything() {
    HWND const surface = window(), cell = window_named(surface, "txtRij_F[1]");
    EXPECT_TRUE(cell);
    SendMessageW(surface, WM_MOUSEMOVE, 0, at(ground));
    for (const int down : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
      SendMessageW(surface, static_cast<UINT>(down), MK_LBUTTON, at(ground));
      SendMessageW(surface, WM_LBUTTONUP, 0, at(ground));
    }
    SendMessageW(cell, WM_KEYDOWN, '7', 1);
    SendMessageW(cell, WM_CHAR, '7', 1);
    SendMessageW(cell, WM_KEYUP, '7', static_cast<LPARAM>(0xC0000001));
    SendMessageW(surface, WM_KEYDOWN, VK_TAB, 1);
  }
};

TEST_P(InPlaceEndedInAnEvent, IsGone) {
  ASSERT_TRUE(object_);
  const auto& [event, end] = GetParam();
  HWND const before = window();
  bool ended = false;
  listener_.when(event, [&, act = end.act] {
    if (!std::exchange(ended, true)) (this->*act)();
  });
  do_everything();
  EXPECT_TRUE(ended);
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 1);
  expect_gone();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedInAnEvent,
                         testing::Combine(testing::Values("MouseMove", "MouseDown", "MouseUp", "Click",
                                                          "DblClick", "KeyDown", "KeyPress", "KeyUp"),
                                          testing::ValuesIn(far_ends<EndedOffScreen>)),
                         [](const auto& info) { return name_of_call_and_end(info); });

class InPlaceKeyDownInAContainer : public Ending<Listening<OnScreen>>,
                                   public testing::WithParamInterface<End<Ending<Listening<OnScreen>>>> {};

// With the focus in the control, where the key would have moved it.
TEST_P(InPlaceKeyDownInAContainer, MayBeTheLastThingThatTheControlTells) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  ASSERT_TRUE(control_has_focus());
  HWND const before = window();
  listener_.when("KeyDown", [&] { (this->*GetParam().act)(); });
  SendMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&9, 0)"}));
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  expect_gone();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceKeyDownInAContainer,
                         testing::ValuesIn(all_ends<Ending<Listening<OnScreen>>>),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- A container that ends it while it comes

using Coming = Ending<InPlace>;

class InPlaceEndedOnArrival : public Coming,
                              public testing::WithParamInterface<std::tuple<const char*, End<Coming>>> {};

TEST_P(InPlaceEndedOnArrival, LeavesNothingBehindAndMayComeAgain) {
  ASSERT_TRUE(object_);
  const auto& [call, end] = GetParam();
  bool ended = false;
  site_.when(call, [&, act = end.act] {
    if (!std::exchange(ended, true)) (this->*act)();
  });
  verb(OLEIVERB_UIACTIVATE);
  EXPECT_TRUE(ended);
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 1);
  expect_gone();
  if (!object_) return;

  site_.take_calls();
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  EXPECT_TRUE(is_shown());
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
  EXPECT_EQ(site_.count("OnFocus(true)"), 1);
  EXPECT_TRUE(site_.frame().active);
  EXPECT_EQ(code(deactivate()), code(S_OK));
  expect_gone();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedOnArrival,
                         testing::Combine(testing::Values("OnInPlaceActivate", "GetWindow",
                                                          "GetWindowContext", "ShowObject", "OnUIActivate",
                                                          "frame.SetActiveObject(it)",
                                                          "frame.SetBorderSpace(null)", "OnFocus(true)"),
                                          testing::ValuesIn(far_ends<Coming>)),
                         [](const auto& info) { return name_of_call_and_end(info); });

// The focus arrives later than the window, by a click.
using Arriving = Ending<OnScreen>;

class InPlaceFocusArrivesInAContainer
    : public Arriving,
      public testing::WithParamInterface<std::tuple<const char*, End<Arriving>>> {};

TEST_P(InPlaceFocusArrivesInAContainer, AtAControlThatEndsAndLeavesNoFocusBehind) {
  ASSERT_TRUE(object_);
  const auto& [call, end] = GetParam();
  EXPECT_EQ(code(activate()), code(S_OK));
  ASSERT_EQ(site_.count("OnFocus(true)"), 0);
  HWND const before = window();
  bool ended = false;
  site_.when(call, [&, act = end.act] {
    if (!std::exchange(ended, true)) (this->*act)();
  });
  SetFocus(before);
  EXPECT_TRUE(ended);
  EXPECT_FALSE(IsWindow(before));
  expect_gone();
  if (!object_) return;

  SetFocus(site_.own_box());
  site_.take_calls();
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(GetFocus(), site_.own_box());
  EXPECT_EQ(site_.count("OnFocus(true)"), 0);
  SetFocus(window());
  EXPECT_EQ(site_.count("OnFocus(true)"), 1);
  EXPECT_TRUE(control_has_focus());
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceFocusArrivesInAContainer,
                         testing::Combine(testing::Values("OnUIActivate", "OnFocus(true)"),
                                          testing::ValuesIn(all_ends<Arriving>)),
                         [](const auto& info) { return name_of_call_and_end(info); });

// ---- A container that asks once more while it goes

class InPlaceEndedTwice : public Coming,
                          public testing::WithParamInterface<std::tuple<const char*, End<Coming>>> {};

TEST_P(InPlaceEndedTwice, IsToldOnce) {
  ASSERT_TRUE(object_);
  const auto& [call, end] = GetParam();
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  int times = 0;
  site_.when(call, [&, act = end.act] {
    ++times;
    if (object_) (this->*act)();
  });
  EXPECT_EQ(code(deactivate()), code(S_OK));
  EXPECT_EQ(times, 1);
  for (const char* const once :
       {"frame.SetActiveObject(null)", "OnUIDeactivate", "OnFocus(false)", "OnInPlaceDeactivate"})
    EXPECT_EQ(site_.count(once), 1) << once;
  expect_gone();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedTwice,
                         testing::Combine(testing::Values("frame.SetActiveObject(null)", "OnUIDeactivate",
                                                          "OnFocus(false)", "OnInPlaceDeactivate"),
                                          testing::ValuesIn(ends_with_object<Coming>)),
                         [](const auto& info) { return name_of_call_and_end(info); });

// The container releases the last reference from within its callback.
class InPlaceLetGo : public Coming, public testing::WithParamInterface<const char*> {};

TEST_P(InPlaceLetGo, WhileItLeavesItsPlace) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  IOleInPlaceObject* const last = as<IOleInPlaceObject>(object_).Detach();
  object_.Reset();
  site_.when(GetParam(), [&] { last->Release(); });
  EXPECT_EQ(code(last->InPlaceDeactivate()), code(S_OK));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  expect_gone();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceLetGo,
                         testing::Values("frame.SetActiveObject(null)", "OnUIDeactivate", "OnFocus(false)",
                                         "OnInPlaceDeactivate"),
                         [](const auto& info) { return letters_of(info.param); });

// ---- Forms

using UnderForms = Ending<Listening<WithForms>>;

class InPlaceFormReentryInAContainer : public UnderForms {
 protected:
  void click() {
    send(WM_LBUTTONDOWN, MK_LBUTTON);
    send(WM_LBUTTONUP, 0);
  }
  HRESULT show() { return as<ILPctrl>(object_)->ShowAboutBox(); }
};

TEST_F(InPlaceFormReentryInAContainer, AListenerShowsAFormAndThePersonClosesIt) {
  ASSERT_TRUE(object_);
  int answered = 0;
  listener_.when("Click", [&] {
    meanwhile([](HWND form) { EXPECT_TRUE(form && IsWindowVisible(form)); });
    EXPECT_EQ(code(show()), code(S_OK));
    EXPECT_FALSE(open_form());
    ++answered;
  });
  click();
  EXPECT_EQ(answered, 1);
  expect_over();
  click();
  EXPECT_EQ(answered, 2) << "and again";
}

TEST_F(InPlaceFormReentryInAContainer, AListenerShowsAFormAndThePersonPressesReturn) {
  ASSERT_TRUE(object_);
  bool answered = false;
  listener_.when("Click", [&] {
    thread_.post([] {
      HWND const form = open_form();
      EXPECT_TRUE(form && IsChild(form, GetFocus())) << "its button has the keyboard";
      PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    });
    EXPECT_EQ(code(show()), code(S_OK));
    answered = true;
  });
  click();
  EXPECT_TRUE(answered);
  expect_over();
  EXPECT_TRUE(control_has_focus());
  SendMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_EQ(name_of(GetFocus()), "txtRij_F[1]");
}

class InPlaceEndedUnderAFormInAContainer : public InPlaceFormReentryInAContainer,
                                           public testing::WithParamInterface<End<UnderForms>> {};

// The listener's call keeps the control alive until it returns.
TEST_P(InPlaceEndedUnderAFormInAContainer, ThatAListenerHasShown) {
  ASSERT_TRUE(object_);
  bool returned = false;
  listener_.when("Click", [&] {
    meanwhile([&](HWND form) {
      EXPECT_TRUE(form);
      (this->*GetParam().act)();
    });
    show();
    EXPECT_FALSE(open_form());
    returned = true;
  });
  HWND const before = window();
  click();
  EXPECT_TRUE(returned);
  EXPECT_FALSE(IsWindow(before));
  expect_over();
  site_.take_calls();
  expect_gone();
}

// The user opens this one, by a menu; both appear asynchronously.
TEST_P(InPlaceEndedUnderAFormInAContainer, ThatThePersonHasOpened) {
  ASSERT_TRUE(object_);
  bool chosen = false, ended = false;
  const Often look([&] {
    if (ended || !(chosen ? open_form() != nullptr : is_menu_open())) return;
    if (std::exchange(chosen, true)) {
      ended = true;
      (this->*GetParam().act)();
      PostMessageW(open_form(), WM_CLOSE, 0, 0);  // one out of its place still asks
      return;
    }
    PostMessageW(window(), WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(window(), WM_KEYDOWN, VK_RETURN, 1);
  });
  SendMessageW(window_named(window(), "cmd_Help"), BM_CLICK, 0, 0);
  MSG message;
  while (!ended && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  EXPECT_TRUE(ended);
  expect_over();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedUnderAFormInAContainer, testing::ValuesIn(all_ends<UnderForms>),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(InPlaceFormReentryInAContainer, TheOnlyReferenceIsLetGoWhileTheCallLasts) {
  ASSERT_TRUE(object_);
  HWND const before = window();
  ILPctrl* const only = as<ILPctrl>(object_).Detach();
  object_.Reset();
  bool released = false;
  meanwhile([&](HWND form) {
    EXPECT_TRUE(form);
    only->Release();
    released = true;
  });
  EXPECT_HRESULT_SUCCEEDED(only->ShowAboutBox());
  EXPECT_TRUE(released);
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  expect_over();
  EXPECT_TRUE(library_is_free());
}

TEST_F(InPlaceFormReentryInAContainer, TheContainersWindowGoesWhileTheCallLasts) {
  ASSERT_TRUE(object_);
  HWND form_window = nullptr;
  meanwhile([&](HWND form) {
    form_window = form;
    DestroyWindow(site_.top());
  });
  EXPECT_HRESULT_SUCCEEDED(show());
  EXPECT_TRUE(form_window);
  EXPECT_FALSE(IsWindow(form_window));
  EXPECT_EQ(modeless_calls(), Calls({"frame.EnableModeless(false)", "frame.EnableModeless(true)"}));
  EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
}

TEST_F(InPlaceFormReentryInAContainer, AFrameThatWasStoppedBeforeStaysSo) {
  ASSERT_TRUE(object_);
  EnableWindow(site_.top(), FALSE);
  bool looked = false;
  meanwhile([&](HWND form) {
    EXPECT_TRUE(form);
    looked = true;
  });
  EXPECT_EQ(code(show()), code(S_OK));
  EXPECT_TRUE(looked);
  EXPECT_FALSE(open_form());
  EXPECT_FALSE(IsWindowEnabled(site_.top()));
  EnableWindow(site_.top(), TRUE);
}

TEST_F(InPlaceFormReentryInAContainer, KeysOfAFormAreNoEvents) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  const auto press = [](WPARAM key) {
    SendMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    SendMessageW(GetFocus(), WM_CHAR, 'a', 1);
    SendMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  };
  press('A');
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&65, 0)", "KeyPress(&97)", "KeyUp(&65, 0)"}));
  bool pressed = false;
  meanwhile([&](HWND form) {
    ASSERT_TRUE(form && (GetFocus() == form || IsChild(form, GetFocus())));
    for (const WPARAM key : {WPARAM{'A'}, WPARAM{VK_TAB}, WPARAM{VK_DOWN}, WPARAM{VK_F5}}) press(key);
    pressed = true;
  });
  EXPECT_EQ(code(show()), code(S_OK));
  EXPECT_TRUE(pressed);
  EXPECT_EQ(listener_.take_events(), Calls());
}

// The frame is notified before the form is shown and after it has closed.
class InPlaceEndedAsTheFrameIsToldInAContainer
    : public InPlaceFormReentryInAContainer,
      public testing::WithParamInterface<std::tuple<const char*, End<UnderForms>>> {};

TEST_P(InPlaceEndedAsTheFrameIsToldInAContainer, LeavesNoFormAndNoFrameThatWaits) {
  ASSERT_TRUE(object_);
  const auto& [call, end] = GetParam();
  HWND const before = window();
  bool ended = false;
  site_.when(call, [&, act = end.act] {
    if (!std::exchange(ended, true)) (this->*act)();
  });
  meanwhile([](HWND) {});
  as<ILPctrl>(object_)->ShowAboutBox();
  EXPECT_TRUE(ended);
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  expect_over();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedAsTheFrameIsToldInAContainer,
                         testing::Combine(testing::Values("frame.EnableModeless(false)",
                                                          "frame.EnableModeless(true)"),
                                          testing::ValuesIn(ends_with_object<UnderForms>)),
                         [](const auto& info) { return name_of_call_and_end(info); });

// ---- Menus

using UnderMenus = Ending<WithForms>;

class InPlaceEndedUnderAMenuInAContainer : public UnderMenus,
                                           public testing::WithParamInterface<End<UnderMenus>> {};

TEST_P(InPlaceEndedUnderAMenuInAContainer, ClosesIt) {
  ASSERT_TRUE(object_);
  HWND const before = window(), button = window_named(before, "cmd_Bestand");
  ASSERT_TRUE(button);
  bool ended = false;
  thread_.post([&] {
    EXPECT_TRUE(is_menu_open());
    (this->*GetParam().act)();
    ended = true;
  });
  SendMessageW(button, BM_CLICK, 0, 0);
  EXPECT_TRUE(ended);
  EXPECT_FALSE(is_menu_open());
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  if (!object_) {
    EXPECT_TRUE(library_is_free());
    return;
  }

  EXPECT_EQ(code(activate()), code(S_OK));
  bool opened = false;
  thread_.post([&] {
    opened = is_menu_open();
    EndMenu();
  });
  SendMessageW(window_named(window(), "cmd_Bestand"), BM_CLICK, 0, 0);
  EXPECT_TRUE(opened) << "the control works after it";
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceEndedUnderAMenuInAContainer, testing::ValuesIn(all_ends<UnderMenus>),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- While the container is designed

// No window has the focus, so a control in user mode takes it.
class InPlaceDesignInAContainer : public OnScreen {
 protected:
  InPlaceDesignInAContainer() { SetFocus(nullptr); }
};

TEST_F(InPlaceDesignInAContainer, LeavesTheFocusAlone) {
  ASSERT_TRUE(object_);
  site_.user_mode = false;
  for (const LONG shown : {OLEIVERB_INPLACEACTIVATE, OLEIVERB_SHOW}) {
    EXPECT_EQ(code(verb(shown)), code(S_OK));
    EXPECT_TRUE(is_shown());
    EXPECT_EQ(site_.take_calls(), Calls({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "ShowObject"}));
    EXPECT_FALSE(GetFocus());
    EXPECT_EQ(code(deactivate()), code(S_OK));
    EXPECT_EQ(site_.take_calls(), Calls({"OnInPlaceDeactivate"}));
  }
}

TEST_F(InPlaceDesignInAContainer, EndsWithAControlThatTakesTheFocus) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_TRUE(control_has_focus());
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
}

// ---- Keys that are not for the control

class InPlaceForeignKeys : public Listening<InPlace> {};

TEST_F(InPlaceForeignKeys, AreLeftToTheContainer) {
  ASSERT_TRUE(object_);
  site_.take_calls();
  const auto offer = [this](HWND to) {
    MSG key{to, WM_KEYDOWN, VK_TAB, 1, GetTickCount(), {}};
    return as<IOleInPlaceActiveObject>(object_)->TranslateAccelerator(&key);
  };
  for (HWND const foreign : {site_.own_box(), site_.window(), site_.top()})
    EXPECT_EQ(code(offer(foreign)), code(S_FALSE));
  EXPECT_EQ(listener_.take_events(), Calls());
  EXPECT_EQ(site_.calls(), Calls());
  EXPECT_EQ(code(offer(window())), code(S_OK));
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&9, 0)"}));
}

// ---- Many times

class InPlaceManyTimes : public InPlace {
 protected:
  void come_and_go(int times) {
    for (int at = 0; at < times && !HasFailure(); ++at) {
      EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
      EXPECT_GT(tool_tip_windows(), 0) << "there is something that could stay";
      EXPECT_EQ(code(deactivate()), code(S_OK));
    }
  }
};

TEST_F(InPlaceManyTimes, NothingStays) {
  ASSERT_TRUE(object_);
  come_and_go(10);  // fonts and tables that are made once
  const Resources before = resources_now();
  come_and_go(60);
  const Resources after = resources_now();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(tool_tip_windows(), 0);
  EXPECT_LE(after.drawing_object, before.drawing_object + 20);
  EXPECT_LE(after.handle, before.handle + 40);
}

}  // namespace
}  // namespace tabulon::client
