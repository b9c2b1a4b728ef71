// A container that calls back, while it is told something, whatever can be called: first the calls that did
// harm, one at a time, then any of them in any callback. TABULON_ROUNDS sets how often, TABULON_SEED which
// ones.
#include <cstdlib>
#include <random>

#include "hosts/activex/names.h"
#include "tests/activex/com.h"
#include "tests/activex/in_place.h"
#include "tests/activex/resources.h"

namespace tabulon::client {
namespace {

using activex::surface_class;

long surfaces_in(HWND parent) {
  long count = 0;
  for (HWND found = nullptr; (found = FindWindowExW(parent, found, surface_class, nullptr));) ++count;
  return count;
}

// The container has been told of each end as often as of each beginning.
void expect_balanced(const Site& site) {
  EXPECT_EQ(site.count("OnInPlaceDeactivate"), site.count("OnInPlaceActivate"));
  EXPECT_EQ(site.count("OnUIDeactivate"), site.count("OnUIActivate"));
}

// ---- One call in one callback

struct Callback {
  const char* called;
  LONG verb;
};

void PrintTo(const Callback& callback, std::ostream* out) {
  *out << callback.verb << " in " << callback.called;
}

class InPlaceVerbInACall : public InPlace, public testing::WithParamInterface<Callback> {
 protected:
  // Asks for the verb in the first of these callbacks.
  void ask_once() {
    site_.when(GetParam().called, [this] {
      if (!std::exchange(asked_, true)) verb(GetParam().verb);
    });
  }
  void expect_one_control_until_it_ends() {
    EXPECT_TRUE(asked_);
    EXPECT_LE(surfaces_in(site_.window()), 1);
    EXPECT_LE(site_.count("OnInPlaceActivate"), 1);
    EXPECT_EQ(code(deactivate()), code(S_OK));
    EXPECT_EQ(surfaces_in(site_.window()), 0);
    EXPECT_FALSE(site_.frame().active);
    expect_balanced(site_);
  }

 private:
  bool asked_ = false;
};

using InPlaceVerbOnArrival = InPlaceVerbInACall;

TEST_P(InPlaceVerbOnArrival, MakesNoSecondControl) {
  ASSERT_TRUE(object_);
  ask_once();
  verb(OLEIVERB_UIACTIVATE);
  expect_one_control_until_it_ends();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceVerbOnArrival,
                         testing::Values(Callback{"CanInPlaceActivate", OLEIVERB_SHOW},
                                         Callback{"OnInPlaceActivate", OLEIVERB_SHOW},
                                         Callback{"GetWindow", OLEIVERB_SHOW},
                                         Callback{"GetWindowContext", OLEIVERB_SHOW},
                                         Callback{"OnUIActivate", OLEIVERB_UIACTIVATE},
                                         Callback{"frame.SetActiveObject(it)", OLEIVERB_UIACTIVATE},
                                         Callback{"OnFocus(true)", OLEIVERB_UIACTIVATE}));

using InPlaceVerbOnLeaving = InPlaceVerbInACall;

TEST_P(InPlaceVerbOnLeaving, KeepsNothingOfTheControl) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(verb(OLEIVERB_UIACTIVATE)), code(S_OK));
  ask_once();
  EXPECT_EQ(code(deactivate()), code(S_OK));
  expect_one_control_until_it_ends();
}

INSTANTIATE_TEST_SUITE_P(InPlace, InPlaceVerbOnLeaving,
                         testing::Values(Callback{"frame.SetActiveObject(null)", OLEIVERB_UIACTIVATE},
                                         Callback{"OnUIDeactivate", OLEIVERB_UIACTIVATE},
                                         Callback{"OnFocus(false)", OLEIVERB_UIACTIVATE},
                                         Callback{"OnInPlaceDeactivate", OLEIVERB_SHOW}));

class InPlaceAfterItsWindows : public InPlace {};

TEST_F(InPlaceAfterItsWindows, ComesAgainWhereTheSystemHasDestroyedThem) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(activate()), code(S_OK));
  DestroyWindow(window());
  EXPECT_EQ(code(activate()), code(S_OK));
  EXPECT_TRUE(is_shown());
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 2);
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 1);
}

// ---- Any call in any callback

unsigned long number_of(const char* variable, unsigned long otherwise) {
  const char* const text = std::getenv(variable);
  return text ? std::strtoul(text, nullptr, 10) : otherwise;
}

class InPlaceHostileInAContainer : public OnScreen {
 protected:
  InPlaceHostileInAContainer() {
    for (const char* const call : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                                   "ShowObject", "OnUIActivate", "OnUIDeactivate", "OnInPlaceDeactivate",
                                   "OnFocus", "frame.SetActiveObject", "frame.SetBorderSpace"})
      site_.when(call, [this] { call_back(); });
  }
  void call_back() {
    if (depth_ == 3 || below(2) != 0) return;
    ++depth_;
    do_something();
    --depth_;
  }
  void do_something() {
    static constexpr LONG verbs[] = {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_HIDE, OLEIVERB_UIACTIVATE,
                                     OLEIVERB_INPLACEACTIVATE};
    const auto in_place = as<IOleInPlaceObject>(object_);
    switch (const unsigned what = below(12)) {
      case 0:
        in_place->InPlaceDeactivate();
        break;
      case 1:
        in_place->UIDeactivate();
        break;
      case 2:
        object_->Close(OLECLOSE_NOSAVE);
        break;
      case 3:
        in_place->SetObjectRects(&site_.place, &site_.clip);
        break;
      case 4:
        SetFocus(site_.own_box());
        break;
      case 5:
        if (HWND const there = window()) SetFocus(there);
        break;
      case 6:
        object_->SetClientSite(nullptr);
        object_->SetClientSite(&site_);
        break;
      default:
        verb(verbs[what - 7]);
        break;
    }
  }
  void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  const unsigned long seed_ = number_of("TABULON_SEED", 1), rounds_ = number_of("TABULON_ROUNDS", 150);
  std::mt19937 random_{static_cast<std::mt19937::result_type>(seed_)};
  int depth_ = 0;
};

TEST_F(InPlaceHostileInAContainer, DoesNoHarmAndLeavesNothingBehind) {
  ASSERT_TRUE(object_);
  Resources before{};
  for (unsigned long round = 0; round < rounds_ && !HasFailure(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(seed_) + ", round " + std::to_string(round));
    for (int times = 0; times < 4; ++times) {
      do_something();
      EXPECT_LE(surfaces_in(site_.window()), 1);
    }
    pump();
    depth_ = 3;  // quiet
    EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
    depth_ = 0;
    EXPECT_EQ(surfaces_in(site_.window()), 0);
    EXPECT_FALSE(site_.frame().active);
    EXPECT_EQ(site_.frame().references, 1U);
    expect_balanced(site_);
    site_.take_calls();
    if (round == rounds_ / 10) before = resources_now();
  }
  const Resources after = resources_now();
  EXPECT_LE(after.windows, before.windows);
  EXPECT_LE(after.drawing_object, before.drawing_object + 100);
  EXPECT_LE(after.bytes, before.bytes + 4'000'000);
}

}  // namespace
}  // namespace tabulon::client
