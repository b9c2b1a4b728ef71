// The control in a container that logs its calls: activation and deactivation, position, focus and keys,
// forms, events, and its picture while it has no window.
//
// Suites that need the keyboard, or a window in front of others, have names that end in InAContainer. All
// others use windows beyond the edge of the screen.
#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "hosts/activex/bitmap.h"
#include "hosts/activex/names.h"
#include "tests/activex/com.h"
#include "tests/activex/in_place.h"
#include "tests/activex/site.h"
#include "tests/activex/viewer.h"

namespace tabulon::client {
namespace {

using activex::surface_class;

// The names and texts of all visible windows inside, sorted by name.
Calls seen_in(HWND surface) {
  Calls seen;
  const auto add = [](HWND window, LPARAM list) -> BOOL {
    if (IsWindowVisible(window))
      reinterpret_cast<Calls*>(list)->push_back(name_of(window) + " = " + text_of(window));
    return TRUE;
  };
  EnumChildWindows(surface, add, reinterpret_cast<LPARAM>(&seen));
  std::ranges::sort(seen);
  return seen;
}

RECT inside_parent(HWND window) {
  RECT box{};
  GetWindowRect(window, &box);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
  return box;
}

void expect_box(const RECT& box, const RECT& wanted) {
  EXPECT_EQ(box.left, wanted.left);
  EXPECT_EQ(box.top, wanted.top);
  EXPECT_EQ(box.right, wanted.right);
  EXPECT_EQ(box.bottom, wanted.bottom);
}

// Holds keys down, as far as this thread can see.
class Holding {
 public:
  explicit Holding(std::initializer_list<int> keys) {
    GetKeyboardState(before_);
    BYTE now[256];
    std::ranges::copy(before_, now);
    for (const int key : keys) now[key] = 0x80;
    SetKeyboardState(now);
  }
  Holding(const Holding&) = delete;
  ~Holding() { SetKeyboardState(before_); }

 private:
  BYTE before_[256]{};
};

// ---- Coming

using InPlaceActivation = InPlace;

// Nobody has the keyboard, so the control takes it when it is first shown.
TEST_F(InPlaceActivation, AsksTheContainerInOrder) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(site_.calls(), Calls({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                                  "ShowObject", "OnUIActivate", "frame.SetActiveObject(it)",
                                  "frame.SetBorderSpace(null)", "OnFocus(true)"}));
}

TEST_F(InPlaceActivation, PutsOneWindowAtTheCornerOfItsPlace) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  ASSERT_TRUE(IsWindow(window()));
  EXPECT_EQ(GetParent(window()), site_.window());
  EXPECT_TRUE(is_shown());
  expect_box(inside_parent(window()), {30, 40, 30 + scaled(full_width), 40 + scaled(full_height)});
  HWND of_the_other = nullptr;
  EXPECT_EQ(code(as<IOleInPlaceActiveObject>(object_)->GetWindow(&of_the_other)), code(S_OK));
  EXPECT_EQ(of_the_other, window());
}

TEST_F(InPlaceActivation, HappensOnce) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  HWND const first = window();
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(window(), first);
  EXPECT_TRUE(first && FindWindowExW(site_.window(), nullptr, surface_class, nullptr) == first);
  EXPECT_FALSE(FindWindowExW(site_.window(), first, surface_class, nullptr));
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 1);
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
}

struct Refusal {
  const char* name;
  std::function<void(Site&)> refuse;
  Calls told;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.name;
}

const Refusal refusals[] = {
    {"noPlaces", [](Site& site) { site.has_places = false; }, {}},
    {"mayNotActivate", [](Site& site) { site.may_activate = S_FALSE; }, {"CanInPlaceActivate"}},
    {"failsToActivate",
     [](Site& site) { site.on_activate = E_FAIL; },
     {"CanInPlaceActivate", "OnInPlaceActivate"}},
    {"hasNoWindow",
     [](Site& site) { site.on_window = E_FAIL; },
     {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "OnInPlaceDeactivate"}},
    {"hasNoContext",
     [](Site& site) { site.on_context = E_FAIL; },
     {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "OnInPlaceDeactivate"}},
};

class InPlaceRefused : public InPlace, public testing::WithParamInterface<Refusal> {};

TEST_P(InPlaceRefused, LeavesNothingBehindAndMaySucceedLater) {
  ASSERT_TRUE(object_);
  const ULONG site_references = site_.references;
  GetParam().refuse(site_);
  EXPECT_HRESULT_FAILED(activate());
  EXPECT_EQ(site_.calls(), GetParam().told);
  EXPECT_FALSE(window());
  EXPECT_FALSE(FindWindowExW(site_.window(), nullptr, surface_class, nullptr));
  EXPECT_EQ(site_.references, site_references);
  EXPECT_EQ(site_.frame().references, 1U);

  site_.has_places = true;
  site_.may_activate = site_.on_activate = site_.on_window = site_.on_context = S_OK;
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_TRUE(IsWindow(window()));
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceRefused, testing::ValuesIn(refusals),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(InPlaceActivation, ByShowingAndHiding) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_HIDE)), code(S_OK));
  EXPECT_FALSE(window());
  EXPECT_EQ(code(verb(OLEIVERB_SHOW)), code(S_OK));
  HWND const shown = window();
  ASSERT_TRUE(shown);
  EXPECT_TRUE(is_shown());
  EXPECT_EQ(code(verb(OLEIVERB_HIDE)), code(S_OK));
  EXPECT_EQ(window(), shown);
  EXPECT_FALSE(is_shown());
  EXPECT_EQ(code(verb(OLEIVERB_SHOW)), code(S_OK));
  EXPECT_EQ(window(), shown);
  EXPECT_TRUE(is_shown());
}

TEST_F(InPlaceActivation, ByAVerbTakesTheSiteThatComesWithIt) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(object_->SetClientSite(nullptr)), code(S_OK));
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_TRUE(IsWindow(window()));
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(code(object_->GetClientSite(site.GetAddressOf())), code(S_OK));
  EXPECT_EQ(site.Get(), static_cast<IOleClientSite*>(&site_));
}

// ---- Going

TEST_F(InPlaceActivation, EndsWhenItIsClosed) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  HWND const before = window();
  site_.take_calls();
  EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  EXPECT_EQ(site_.calls(), Calls({"frame.SetActiveObject(null)", "OnUIDeactivate", "OnFocus(false)",
                                  "OnInPlaceDeactivate"}));
  EXPECT_FALSE(IsWindow(before));
  EXPECT_FALSE(window());
  EXPECT_EQ(site_.frame().references, 1U);
  EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
}

TEST_F(InPlaceActivation, EndsAndBeginsAgainWithTheSameTableau) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  const Calls before = seen_in(window());
  EXPECT_TRUE(has(before, "txtRij_F[1] =  -3")) << testing::PrintToString(before);
  site_.take_calls();
  EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
  EXPECT_EQ(site_.take_calls(), Calls({"frame.SetActiveObject(null)", "OnUIDeactivate", "OnFocus(false)",
                                       "OnInPlaceDeactivate"}));
  EXPECT_FALSE(window());
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(seen_in(window()), before);
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 1);
}

TEST_F(InPlaceActivation, EndsWithAControlThatNobodyCloses) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  HWND const before = window();
  site_.take_calls();
  EXPECT_EQ(object_.Reset(), 0U);
  EXPECT_FALSE(IsWindow(before));
  EXPECT_EQ(site_.calls(), Calls({"frame.SetActiveObject(null)", "OnUIDeactivate", "OnFocus(false)",
                                  "OnInPlaceDeactivate"}));
}

TEST_F(InPlaceActivation, EndsAlsoWhenTheContainersWindowsHaveGoneBefore) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  DestroyWindow(site_.top());
  EXPECT_FALSE(window());
  EXPECT_EQ(code(as<ILPctrl>(object_)->put_prmDLfunctie(_bstr_t(L" 1, 2"))), code(S_OK));
  EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
}

TEST_F(InPlaceActivation, EndsAlsoAfterTheSiteWasTakenAway) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(code(object_->SetClientSite(nullptr)), code(S_OK));
  EXPECT_EQ(object_.Reset(), 0U);
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
  EXPECT_EQ(site_.references, 1U);
}

// ---- Where it stands

class InPlaceRectangles : public InPlace {
 protected:
  HRESULT move(RECT place, RECT clip) {
    return as<IOleInPlaceObject>(object_)->SetObjectRects(&place, &clip);
  }
  // The window's region; nothing if it is not clipped.
  std::optional<RECT> region() {
    HRGN const found = CreateRectRgn(0, 0, 0, 0);
    RECT box{};
    const int kind = GetWindowRgn(window(), found);
    GetRgnBox(found, &box);
    DeleteObject(found);
    return kind == ERROR ? std::nullopt : std::optional(box);
  }
  static constexpr RECT everything{-5000, -5000, 5000, 5000};
};

TEST_F(InPlaceRectangles, MoveItAndDoNotResizeIt) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(code(move({70, 15, 75, 20}, everything)), code(S_OK));
  expect_box(inside_parent(window()), {70, 15, 70 + scaled(full_width), 15 + scaled(full_height)});
  EXPECT_EQ(code(move({-20, -10, 2000, 2000}, everything)), code(S_OK));
  expect_box(inside_parent(window()), {-20, -10, -20 + scaled(full_width), -10 + scaled(full_height)});
  EXPECT_FALSE(region());
}

TEST_F(InPlaceRectangles, ClipItUntilTheyDoNot) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_FALSE(region());
  EXPECT_EQ(code(move({30, 40, 630, 336}, {50, 0, 230, 140})), code(S_OK));
  ASSERT_TRUE(region());
  expect_box(*region(), {20, 0, 200, 100});
  EXPECT_EQ(code(move({30, 40, 630, 336}, everything)), code(S_OK));
  EXPECT_FALSE(region());
}

TEST_F(InPlaceRectangles, ClipItFromTheBeginning) {
  ASSERT_TRUE(object_);
  site_.clip = {40, 60, 140, 160};
  EXPECT_EQ(code(activate()), code(S_OK));
  ASSERT_TRUE(region());
  expect_box(*region(), {10, 20, 110, 120});
}

TEST_F(InPlaceRectangles, AreForAControlWithAWindow) {
  ASSERT_TRUE(object_);
  EXPECT_HRESULT_FAILED(move({0, 0, 600, 296}, everything));
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_HRESULT_FAILED(as<IOleInPlaceObject>(object_)->SetObjectRects(nullptr, nullptr));
  expect_box(inside_parent(window()), {30, 40, 30 + scaled(full_width), 40 + scaled(full_height)});
}

// ---- The container's properties

class InPlaceAmbient : public InPlace {
 protected:
  void tell(DISPID property) {
    EXPECT_EQ(code(as<IOleControl>(object_)->OnAmbientPropertyChange(property)), code(S_OK));
  }
  bool is_enabled() { return IsWindowEnabled(window()) != 0; }
};

TEST_F(InPlaceAmbient, StopItWhileTheContainerIsDesigned) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_TRUE(is_enabled());
  site_.user_mode = false;
  tell(DISPID_AMBIENT_USERMODE);
  EXPECT_FALSE(is_enabled());
  site_.user_mode = true;
  tell(DISPID_AMBIENT_USERMODE);
  EXPECT_TRUE(is_enabled());
}

TEST_F(InPlaceAmbient, StopItWhileTheContainerStandsStill) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  site_.ui_dead = true;
  tell(DISPID_AMBIENT_UIDEAD);
  EXPECT_FALSE(is_enabled());
  site_.ui_dead = false;
  tell(DISPID_UNKNOWN);
  EXPECT_TRUE(is_enabled());
}

TEST_F(InPlaceAmbient, HoldFromTheBeginning) {
  ASSERT_TRUE(object_);
  for (const bool user_mode : {true, false}) {
    site_.user_mode = user_mode;
    site_.ui_dead = user_mode;
    EXPECT_EQ(code(activate()), code(S_OK));
    EXPECT_TRUE(window());
    EXPECT_FALSE(is_enabled()) << user_mode;
    EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
  }
}

// ---- Keys, offered by the container

class InPlaceKeys : public InPlace {
 protected:
  InPlaceKeys() {
    if (object_) EXPECT_EQ(code(activate()), code(S_OK));
    site_.take_calls();
  }
  HRESULT offer(UINT message, WPARAM key) {
    MSG offered{window(), message, key, 1, ++time_, {}};
    return as<IOleInPlaceActiveObject>(object_)->TranslateAccelerator(&offered);
  }

 private:
  DWORD time_ = 1000;
};

TEST_F(InPlaceKeys, ThatAreOfferedAreItsOwnOrNot) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_F5)), code(S_FALSE));
  EXPECT_EQ(code(offer(WM_KEYDOWN, 'A')), code(S_FALSE));
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_DOWN)), code(S_FALSE)) << "there is no cell to leave yet";
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_TAB)), code(S_OK)) << "into the first cell";
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_DOWN)), code(S_OK));
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_UP)), code(S_OK));
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_LEFT)), code(S_FALSE)) << "the caret's";
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_ESCAPE)), code(S_OK));
}

TEST_F(InPlaceKeys, AreAloneAmongTheMessagesOfInterest) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(offer(WM_KEYUP, VK_TAB)), code(S_FALSE));
  EXPECT_EQ(code(offer(WM_CHAR, VK_TAB)), code(S_FALSE));
  EXPECT_EQ(code(offer(WM_LBUTTONDOWN, MK_LBUTTON)), code(S_FALSE));
  EXPECT_EQ(code(as<IOleInPlaceActiveObject>(object_)->TranslateAccelerator(nullptr)), code(E_POINTER));
}

TEST_F(InPlaceKeys, AreNoneOfItsWithoutAWindow) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_TAB)), code(S_OK));
  EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_TAB)), code(S_FALSE));
}

TEST_F(InPlaceKeys, ThatLeaveArePassedOnWithTheKeysThatAreHeld) {
  ASSERT_TRUE(object_);
  site_.on_key = S_OK;
  {
    const Holding shift{VK_SHIFT};
    EXPECT_EQ(code(offer(WM_KEYDOWN, VK_TAB)), code(S_OK));
  }
  EXPECT_EQ(site_.take_calls(), Calls({"TranslateAccelerator(9, 1)"}));
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_ESCAPE)), code(S_OK));
  EXPECT_EQ(site_.calls(), Calls());
  EXPECT_EQ(code(offer(WM_KEYDOWN, VK_TAB)), code(S_OK));
  EXPECT_EQ(site_.calls(), Calls({"TranslateAccelerator(9, 0)"}));
}

TEST_F(InPlaceKeys, ThatOpenItsMenusAreKnownToTheContainer) {
  ASSERT_TRUE(object_);
  CONTROLINFO info{};
  info.cb = sizeof info;
  ASSERT_EQ(code(as<IOleControl>(object_)->GetControlInfo(&info)), code(S_OK));
  ACCEL keys[8]{};
  ASSERT_EQ(CopyAcceleratorTableW(info.hAccel, keys, static_cast<int>(std::size(keys))), 4);
  EXPECT_EQ(info.cAccel, 4);
  std::string letters;
  for (const ACCEL& key : {keys[0], keys[1], keys[2], keys[3]}) {
    EXPECT_EQ(key.fVirt & ~0x80, FALT | FVIRTKEY);
    letters += static_cast<char>(key.key);
  }
  EXPECT_EQ(letters, "BWOH");
  info.cb = 1;
  EXPECT_HRESULT_FAILED(as<IOleControl>(object_)->GetControlInfo(&info));
}

// ---- Events

// "MouseDown(1, 0, 300., 270.)": the position is in floating point.
std::string mouse(const char* event, int button, int held, POINT place = ground) {
  return std::string(event) + "(" + std::to_string(button) + ", " + std::to_string(held) + ", " +
         std::to_string(scaled(place.x)) + "., " + std::to_string(scaled(place.y)) + ".)";
}

class InPlaceEvents : public Listening<InPlace> {};

TEST_F(InPlaceEvents, OfAClickOnTheGround) {
  ASSERT_TRUE(object_);
  send(WM_LBUTTONDOWN, MK_LBUTTON);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseDown", 1, 0)}));
  send(WM_LBUTTONUP, 0);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseUp", 1, 0), "Click()"}));
}

TEST_F(InPlaceEvents, OfAReleaseAloneAreNoClick) {
  ASSERT_TRUE(object_);
  send(WM_LBUTTONUP, 0);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseUp", 1, 0)}));
}

TEST_F(InPlaceEvents, OfTheOtherButtonAreNoClick) {
  ASSERT_TRUE(object_);
  const Holding keys{VK_SHIFT, VK_CONTROL};
  send(WM_RBUTTONDOWN, MK_RBUTTON);
  send(WM_RBUTTONUP, 0);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseDown", 2, 3), mouse("MouseUp", 2, 3)}));
}

TEST_F(InPlaceEvents, OfAMoveSayWhichButtonsAreHeld) {
  ASSERT_TRUE(object_);
  constexpr POINT elsewhere{280, 285};
  send(WM_MOUSEMOVE, 0, at(elsewhere));
  send(WM_MOUSEMOVE, MK_LBUTTON, at(elsewhere));
  send(WM_MOUSEMOVE, MK_LBUTTON | MK_RBUTTON, at(elsewhere));
  EXPECT_EQ(listener_.take_events(),
            Calls({mouse("MouseMove", 0, 0, elsewhere), mouse("MouseMove", 1, 0, elsewhere),
                   mouse("MouseMove", 3, 0, elsewhere)}));
}

TEST_F(InPlaceEvents, OfADoubleClickAreThatToo) {
  ASSERT_TRUE(object_);
  send(WM_LBUTTONDOWN, MK_LBUTTON);
  send(WM_LBUTTONUP, 0);
  EXPECT_FALSE(has(listener_.take_events(), "DblClick()"));
  send(WM_LBUTTONDBLCLK, MK_LBUTTON);
  send(WM_LBUTTONUP, 0);
  EXPECT_TRUE(has(listener_.take_events(), "DblClick()"));
}

TEST_F(InPlaceEvents, AreForWhoListens) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(point()->Unadvise(connection_)), code(S_OK));
  send(WM_LBUTTONDOWN, MK_LBUTTON);
  EXPECT_EQ(listener_.take_events(), Calls());
  EXPECT_EQ(code(point()->Advise(&listener_, &connection_)), code(S_OK));
  send(WM_LBUTTONUP, 0);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseUp", 1, 0), "Click()"}));
}

TEST_F(InPlaceEvents, WaitForNobodyWhileTheyAreFrozen) {
  ASSERT_TRUE(object_);
  const ComPtr<IOleControl> control = as<IOleControl>(object_);
  EXPECT_EQ(code(control->FreezeEvents(TRUE)), code(S_OK));
  EXPECT_EQ(code(control->FreezeEvents(TRUE)), code(S_OK));
  send(WM_LBUTTONDOWN, MK_LBUTTON);
  EXPECT_EQ(code(control->FreezeEvents(FALSE)), code(S_OK));
  send(WM_LBUTTONUP, 0);
  EXPECT_EQ(listener_.take_events(), Calls());
  EXPECT_EQ(code(control->FreezeEvents(FALSE)), code(S_OK));
  EXPECT_EQ(listener_.take_events(), Calls()) << "what was missed is not told later";
  send(WM_MOUSEMOVE, 0);
  EXPECT_EQ(listener_.take_events(), Calls({mouse("MouseMove", 0, 0)}));
}

// A container offers the key first, and dispatches it if the control did not use it.
TEST_F(InPlaceEvents, OfAKeyHappenOnceHoweverOftenTheKeyIsOffered) {
  ASSERT_TRUE(object_);
  PostMessageW(window(), WM_KEYDOWN, VK_F5, 1);
  MSG key{};
  ASSERT_TRUE(PeekMessageW(&key, window(), WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
  EXPECT_EQ(code(as<IOleInPlaceActiveObject>(object_)->TranslateAccelerator(&key)), code(S_FALSE));
  DispatchMessageW(&key);
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&116, 0)"}));
}

// ---- The keyboard

class InPlaceFocusInAContainer : public OnScreen {};

TEST_F(InPlaceFocusInAContainer, StaysWithTheContainerWhenTheControlIsShown) {
  ASSERT_TRUE(object_);
  for (const LONG shown : {OLEIVERB_INPLACEACTIVATE, OLEIVERB_SHOW}) {
    EXPECT_EQ(code(verb(shown)), code(S_OK));
    EXPECT_EQ(site_.take_calls(), Calls({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "ShowObject"}));
    EXPECT_EQ(GetFocus(), site_.own_box());
    EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
    EXPECT_EQ(site_.take_calls(), Calls({"OnInPlaceDeactivate"}));
  }
}

TEST_F(InPlaceFocusInAContainer, ComesWithTheVerbsThatAskForIt) {
  ASSERT_TRUE(object_);
  for (const LONG asking : {OLEIVERB_PRIMARY, OLEIVERB_UIACTIVATE}) {
    EXPECT_EQ(code(verb(asking)), code(S_OK));
    EXPECT_TRUE(control_has_focus()) << asking;
    EXPECT_EQ(site_.count("OnInPlaceActivate"), 1);
    EXPECT_EQ(site_.count("OnUIActivate"), 1);
    EXPECT_EQ(site_.count("frame.SetActiveObject(it)"), 1);
    EXPECT_EQ(site_.count("OnFocus(true)"), 1);
    EXPECT_EQ(site_.frame().active, as<IOleInPlaceActiveObject>(object_).Get());
    EXPECT_EQ(code(verb(asking)), code(S_OK));
    EXPECT_EQ(site_.count("OnUIActivate"), 1);
    EXPECT_EQ(site_.count("frame.SetActiveObject(it)"), 1);
    EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
    EXPECT_FALSE(site_.frame().active);
    SetFocus(site_.own_box());
    site_.take_calls();
  }
}

TEST_F(InPlaceFocusInAContainer, IsToldToTheContainerAsItComesAndGoes) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  site_.take_calls();
  SetFocus(site_.own_box());
  EXPECT_EQ(site_.take_calls(), Calls({"OnFocus(false)"}));
  EXPECT_EQ(GetFocus(), site_.own_box());
  SetFocus(window());
  EXPECT_EQ(site_.take_calls(), Calls({"OnFocus(true)"}));
  EXPECT_TRUE(control_has_focus());
}

TEST_F(InPlaceFocusInAContainer, ComesByAClickAndActivates) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  site_.take_calls();
  SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, at(ground));
  SendMessageW(window(), WM_LBUTTONUP, 0, at(ground));
  EXPECT_EQ(site_.take_calls(), Calls({"OnUIActivate", "frame.SetActiveObject(it)",
                                       "frame.SetBorderSpace(null)", "OnFocus(true)"}));
  EXPECT_TRUE(control_has_focus());
}

TEST_F(InPlaceFocusInAContainer, MayComeAgainAfterTheContainerHasTakenTheControlsPlaceAway) {
  ASSERT_TRUE(object_);
  const ComPtr<IOleInPlaceObject> in_place = as<IOleInPlaceObject>(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  SetFocus(site_.own_box());
  site_.take_calls();
  EXPECT_EQ(code(in_place->UIDeactivate()), code(S_OK));
  EXPECT_EQ(site_.take_calls(), Calls({"frame.SetActiveObject(null)", "OnUIDeactivate"}));
  EXPECT_EQ(code(in_place->UIDeactivate()), code(S_OK));
  EXPECT_EQ(site_.take_calls(), Calls());
  EXPECT_TRUE(IsWindow(window()));
  SetFocus(window());
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
  EXPECT_EQ(site_.count("frame.SetActiveObject(it)"), 1);
}

// A control that was deactivated with the focus does not claim it when it is activated again.
TEST_F(InPlaceFocusInAContainer, IsNotTakenByAControlThatComesBack) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  EXPECT_EQ(site_.count("OnFocus(true)"), 1);
  EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
  EXPECT_EQ(site_.count("OnFocus(false)"), 1);
  SetFocus(site_.own_box());
  site_.take_calls();
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_EQ(GetFocus(), site_.own_box());
  EXPECT_EQ(site_.count("OnUIActivate"), 0);
  EXPECT_EQ(site_.count("OnFocus(true)"), 0);
}

// Keys sent to the window that has the focus.
class InPlaceKeyboardInAContainer : public Listening<OnScreen> {
 protected:
  InPlaceKeyboardInAContainer() {
    if (object_) EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  }
  static std::string focus() { return name_of(GetFocus()); }
  // Each press is a different message: real ones differ in their time, these in their repeat count.
  void press(WPARAM key) {
    SendMessageW(GetFocus(), WM_KEYDOWN, key, ++presses_);
    SendMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  static void write(wchar_t letter) { SendMessageW(GetFocus(), WM_CHAR, letter, 1); }

 private:
  LPARAM presses_ = 0;
};

TEST_F(InPlaceKeyboardInAContainer, ItsKeysAreToldDownAndUp) {
  ASSERT_TRUE(object_);
  press(VK_TAB);
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&9, 0)", "KeyUp(&9, 0)"}));
  EXPECT_EQ(focus(), "txtRij_F[1]");
  const Holding shift{VK_SHIFT};
  press('A');
  EXPECT_EQ(listener_.take_events(), Calls({"KeyDown(&65, 1)", "KeyUp(&65, 1)"}));
}

TEST_F(InPlaceKeyboardInAContainer, AKeyThatAListenerTakesDoesNothing) {
  ASSERT_TRUE(object_);
  ASSERT_EQ(focus(), "txtFocus");
  listener_.other_key = short{0};
  press(VK_TAB);
  EXPECT_EQ(focus(), "txtFocus");
  listener_.other_key.reset();
  press(VK_TAB);
  EXPECT_EQ(focus(), "txtRij_F[1]");
}

TEST_F(InPlaceKeyboardInAContainer, AKeyThatAListenerChangesIsTheOther) {
  ASSERT_TRUE(object_);
  press(VK_TAB);
  ASSERT_EQ(focus(), "txtRij_F[1]");
  listener_.other_key = short{VK_DOWN};
  press(VK_TAB);
  EXPECT_EQ(focus(), "txtTableau[1]");
}

TEST_F(InPlaceKeyboardInAContainer, ACharacterIsToldAndMayBeTaken) {
  ASSERT_TRUE(object_);
  press(VK_TAB);
  ASSERT_EQ(focus(), "txtRij_F[1]");
  listener_.take_events();
  write('7');
  EXPECT_EQ(listener_.take_events(), Calls({"KeyPress(&55)"}));
  EXPECT_EQ(text_of(GetFocus()), "7") << "all of the cell was selected";
  listener_.other_character = short{0};
  write('8');
  EXPECT_EQ(text_of(GetFocus()), "7");
}

// As on a page where a typed comma becomes a decimal point.
TEST_F(InPlaceKeyboardInAContainer, ACharacterThatAListenerChangesIsTheOther) {
  ASSERT_TRUE(object_);
  press(VK_TAB);
  ASSERT_EQ(focus(), "txtRij_F[1]");
  write('7');
  listener_.other_character = short{'.'};
  write(',');
  EXPECT_EQ(text_of(GetFocus()), "7.");
}

TEST_F(InPlaceKeyboardInAContainer, TabLeavesForTheContainersNextBoxUnlessItHasOtherPlans) {
  ASSERT_TRUE(object_);
  site_.on_key = S_OK;
  press(VK_ESCAPE);
  site_.take_calls();
  press(VK_TAB);
  EXPECT_EQ(site_.take_calls(), Calls({"TranslateAccelerator(9, 0)"}));
  EXPECT_EQ(focus(), "txtFocus");
  site_.on_key = S_FALSE;
  press(VK_ESCAPE);
  press(VK_TAB);
  EXPECT_EQ(site_.take_calls(), Calls({"TranslateAccelerator(9, 0)", "OnFocus(false)"}));
  EXPECT_EQ(GetFocus(), site_.own_box());
}

// ---- Forms

class InPlaceFormsInAContainer : public WithForms {
 protected:
  void expect_modal(HWND form) {
    ASSERT_TRUE(form);
    EXPECT_TRUE(IsWindowVisible(form));
    EXPECT_EQ(GetWindow(form, GW_OWNER), site_.top());
    EXPECT_FALSE(IsWindowEnabled(site_.top()));
    EXPECT_EQ(modeless_calls(), Calls({"frame.EnableModeless(false)"}));
  }
};

TEST_F(InPlaceFormsInAContainer, StopTheContainerWhileTheyAreOpen) {
  ASSERT_TRUE(object_);
  bool looked = false;
  meanwhile([&](HWND form) { expect_modal(form), looked = true; });
  EXPECT_EQ(code(as<ILPctrl>(object_)->ShowAboutBox()), code(S_OK));
  EXPECT_TRUE(looked);
  expect_over();
}

TEST_F(InPlaceFormsInAContainer, StopItAlsoWhenAScriptOpensThem) {
  ASSERT_TRUE(object_);
  bool looked = false;
  meanwhile([&](HWND form) { expect_modal(form), looked = true; });
  const ComPtr<IDispatch> script = as<IDispatch>(object_);
  EXPECT_EQ(code(call(script.Get(), L"ShowAboutBox").result), code(S_OK));
  EXPECT_TRUE(looked);
  expect_over();
}

TEST_F(InPlaceFormsInAContainer, AreBalancedWhenTheControlIsClosedMeanwhile) {
  ASSERT_TRUE(object_);
  meanwhile([&](HWND form) {
    expect_modal(form);
    EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  });
  EXPECT_HRESULT_SUCCEEDED(as<ILPctrl>(object_)->ShowAboutBox());
  EXPECT_FALSE(window());
  expect_over();
}

TEST_F(InPlaceFormsInAContainer, AreBalancedWhenTheControlGoesOutOfItsPlaceMeanwhile) {
  ASSERT_TRUE(object_);
  meanwhile([&](HWND form) {
    expect_modal(form);
    EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->InPlaceDeactivate()), code(S_OK));
  });
  EXPECT_HRESULT_SUCCEEDED(as<ILPctrl>(object_)->ShowAboutBox());
  EXPECT_FALSE(window());
  expect_over();
}

// ---- A picture of it

class InPlacePicture : public InPlace {
 protected:
  InPlacePicture() {
    const RECT all{0, 0, paper.cx, paper.cy};
    HBRUSH const brush = CreateSolidBrush(RGB(255, 0, 255));
    FillRect(dc_, &all, brush);
    DeleteObject(brush);
  }

  HRESULT draw(RECTL box) {
    return as<IViewObject2>(object_)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc_, &box,
                                           nullptr, nullptr, 0);
  }
  // The box in pixels, whichever way the axes point.
  RECT in_pixels(RECTL box) {
    POINT corners[] = {{box.left, box.top}, {box.right, box.bottom}};
    LPtoDP(dc_, corners, 2);
    return {std::min(corners[0].x, corners[1].x), std::min(corners[0].y, corners[1].y),
            std::max(corners[0].x, corners[1].x), std::max(corners[0].y, corners[1].y)};
  }
  void expect_drawn(const RECT& wanted) {
    const std::span<const std::uint32_t> pixels = bitmap_.pixels();
    RECT drawn{paper.cx, paper.cy, 0, 0};
    LONG count = 0;
    for (LONG y = 0; y < paper.cy; ++y)
      for (LONG x = 0; x < paper.cx; ++x) {
        if ((pixels[static_cast<std::size_t>(y * paper.cx + x)] & 0xFFFFFF) == 0xFF00FF) continue;
        drawn = {std::min(drawn.left, x), std::min(drawn.top, y), std::max(drawn.right, x + 1),
                 std::max(drawn.bottom, y + 1)};
        ++count;
      }
    expect_box(drawn, wanted);
    EXPECT_EQ(count, (wanted.right - wanted.left) * (wanted.bottom - wanted.top));
  }

  static constexpr SIZE paper{1400, 700};
  const activex::MemoryBitmap bitmap_{paper};
  const HDC dc_ = bitmap_.dc();
};

TEST_F(InPlacePicture, FillsItsBoxInUnitsOfTwoPixels) {
  ASSERT_TRUE(object_);
  SetMapMode(dc_, MM_ANISOTROPIC);
  SetWindowExtEx(dc_, 1, 1, nullptr);
  SetViewportExtEx(dc_, 2, 2, nullptr);
  SetViewportOrgEx(dc_, 20, 30, nullptr);
  EXPECT_EQ(code(draw({10, 5, 10 + full_width, 5 + full_height})), code(S_OK));
  expect_drawn({40, 40, 40 + 2 * full_width, 40 + 2 * full_height});
}

TEST_F(InPlacePicture, FillsItsBoxWhereTheAxisPointsUp) {
  ASSERT_TRUE(object_);
  SetMapMode(dc_, MM_HIMETRIC);
  SetViewportOrgEx(dc_, 20, 30, nullptr);
  const RECTL box{0, 0, 15875, -7832};
  EXPECT_EQ(code(draw(box)), code(S_OK));
  const RECT wanted = in_pixels(box);
  EXPECT_GT(wanted.bottom - wanted.top, 100);
  EXPECT_EQ(wanted.top, 30);
  expect_drawn(wanted);
}

TEST_F(InPlacePicture, FillsItsBoxWhicheverCornerComesFirst) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(draw({40 + full_width, 30 + full_height, 40, 30})), code(S_OK));
  expect_drawn({40, 30, 40 + full_width, 30 + full_height});
}

TEST_F(InPlacePicture, LeavesTheUnitsAsTheyWere) {
  ASSERT_TRUE(object_);
  SetMapMode(dc_, MM_ANISOTROPIC);
  SetWindowExtEx(dc_, 1, 1, nullptr);
  SetViewportExtEx(dc_, 2, 2, nullptr);
  SetViewportOrgEx(dc_, 20, 30, nullptr);
  EXPECT_EQ(code(draw({10, 5, 10 + full_width, 5 + full_height})), code(S_OK));
  EXPECT_EQ(GetMapMode(dc_), MM_ANISOTROPIC);
  expect_box(in_pixels({0, 0, 1, 1}), {20, 30, 22, 32});
  RECT clip{};
  GetClipBox(dc_, &clip);
  expect_box(in_pixels({clip.left, clip.top, clip.right, clip.bottom}), {0, 0, paper.cx, paper.cy});
}

class InPlaceViewers : public InPlace {
 protected:
  ~InPlaceViewers() override { EXPECT_EQ(viewer_.references, 1U); }
  HRESULT advise(DWORD flags) {
    return as<IViewObject2>(object_)->SetAdvise(DVASPECT_CONTENT, flags, &viewer_);
  }
  HRESULT leave() { return as<IViewObject2>(object_)->SetAdvise(DVASPECT_CONTENT, 0, nullptr); }
  void change(const wchar_t* list) {
    EXPECT_EQ(code(as<ILPctrl>(object_)->put_prmDLfunctie(_bstr_t(list))), code(S_OK));
  }
  Viewer viewer_;
};

TEST_F(InPlaceViewers, AreToldAtOnceIfTheyWish) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(advise(0)), code(S_OK));
  EXPECT_EQ(viewer_.view_changes, 0);
  EXPECT_EQ(code(advise(ADVF_PRIMEFIRST)), code(S_OK));
  EXPECT_EQ(viewer_.view_changes, 1);
  change(L" 1, 2");
  EXPECT_GE(viewer_.view_changes, 2);
  EXPECT_EQ(code(leave()), code(S_OK));
}

TEST_F(InPlaceViewers, AreToldOnceIfTheyWish) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(advise(ADVF_ONLYONCE)), code(S_OK));
  EXPECT_EQ(viewer_.view_changes, 0);
  change(L" 1, 2");
  EXPECT_EQ(viewer_.view_changes, 1);
  EXPECT_EQ(viewer_.references, 1U);
  change(L" 3, 4");
  EXPECT_EQ(viewer_.view_changes, 1);
}

TEST_F(InPlaceViewers, AreToldAtOnceAndNeverAgainIfTheyWish) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(advise(ADVF_ONLYONCE | ADVF_PRIMEFIRST)), code(S_OK));
  EXPECT_EQ(viewer_.view_changes, 1);
  change(L" 1, 2");
  EXPECT_EQ(viewer_.view_changes, 1);
}

}  // namespace
}  // namespace tabulon::client
