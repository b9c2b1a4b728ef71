// Focus, keys, menus and scroll bars of the control among a program's other windows, with real input. The
// tests are written in the language of tests/scenarios.
#include <gtest/gtest.h>

#include "com_player.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

class Visit {
 public:
  Visit(Container& container, Person& person)
      : container_(container), person_(person), player_(container, person, {}) {}

  void play(std::string_view text) {
    const std::size_t before = player_.failures().size();
    for (const auto& command : scenarios::read_scenario(text)) player_.play(command);
    player_.end();
    for (std::size_t at = before; at < player_.failures().size(); ++at)
      ADD_FAILURE() << player_.failures()[at] << "\n" << text;
  }

  void click_own_box() {
    RECT box{};
    GetWindowRect(container_.own_box(), &box);
    person_.click({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    person_.wait_until_idle();
  }
  // At a position on the control's surface, in pixels.
  void click_surface(POINT at) {
    ClientToScreen(container_.surface(), &at);
    person_.click(at);
    person_.wait_until_idle();
  }
  // Goes down twice and up, all before the first is handled: a focus that moves in between would have the
  // screen's own system told which keys are down, and that one knows of none.
  void hold(int key) {
    EXPECT_TRUE(container_.thread().run([&] {
      person_.key_down(key);
      person_.key_down(key);
      person_.key_up(key);
    }));
    person_.wait_until_idle();
  }
  // None is handled before all are pressed.
  void press_together(std::initializer_list<int> keys) {
    EXPECT_TRUE(container_.thread().run([&] {
      for (const int key : keys) person_.press({key});
    }));
    person_.wait_until_idle();
  }
  bool own_box_has_focus() const { return thread_now().hwndFocus == container_.own_box(); }
  bool mouse_is_captured() const { return thread_now().hwndCapture != nullptr; }
  Seen seen(std::string_view name) const { return Eyes(container_.surface()).find(name, 0).value_or(Seen{}); }
  static COLORREF colour_on_screen(POINT at) {
    HDC const screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, at.x, at.y);
    ReleaseDC(nullptr, screen);
    return colour;
  }
  Person& person() { return person_; }

 private:
  GUITHREADINFO thread_now() const {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(container_.thread().id(), &thread);
    return thread;
  }

  Container& container_;
  Person& person_;
  ComPlayer player_;
};

// In containers that offer each key to the control first, and in containers that only dispatch them.
class InAContainer : public testing::TestWithParam<bool> {
 protected:
  static void visit(const std::function<void(Visit&)>& play) {
    on_stage({.offers_keys = GetParam()}, [&](Container& container, Person& person) {
      Visit visit(container, person);
      play(visit);
    });
  }
};

constexpr std::string_view in_front = "see FrameHead back 0,192,192\n";
constexpr std::string_view behind = "see FrameHead back 192,192,192\n";
constexpr std::string_view wide_problem =
    "page\n  prmNrBeslisVar = 12\n  prmNrKleinerGelijkVglen = 3\nshow\n";

using FocusInAContainer = InAContainer;

TEST_P(FocusInAContainer, GoesIntoACellThatIsClickedAndTheCaretWithIt) {
  visit([](Visit& visit) {
    visit.play(
        "show\nclick txtTableau 2\nsee focus txtTableau 2\npress End\ntype 5\nsee txtTableau 2 \" 05\"\n");
  });
}

TEST_P(FocusInAContainer, StaysWhereItIsWhenAHeadingIsClicked) {
  visit([](Visit& visit) {
    visit.play("show\nclick txtTableau 2\nclick lblKolom 1\nsee focus txtTableau 2\n");
  });
}

TEST_P(FocusInAContainer, ThatLeavesForTheContainerIsNoticed) {
  visit([](Visit& visit) {
    visit.play("show\nclick txtTableau 2\n");
    visit.play(in_front);
    visit.click_own_box();
    EXPECT_TRUE(visit.own_box_has_focus());
    visit.play(behind);
  });
}

TEST_P(FocusInAContainer, ComesToTheControlWhenItsEmptyGroundIsClicked) {
  visit([](Visit& visit) {
    visit.play("show\n");
    visit.click_own_box();
    visit.play(behind);
    visit.click_surface({300, 270});
    visit.play("see focus txtFocus\n");
    visit.play(in_front);
  });
}

TEST_P(FocusInAContainer, GoesBackToTheContainerWhenAFormThatAScriptOpenedHasClosed) {
  visit([](Visit& visit) {
    visit.play("show\n");
    visit.click_own_box();
    visit.play("call ShowAboutBox\nsee form frmAboutLP\nsee focus cmdOK\npress Enter\nsee no form\n");
    EXPECT_TRUE(visit.own_box_has_focus());
  });
}

using KeysInAContainer = InAContainer;

TEST_P(KeysInAContainer, ThatMeanNothingToTheControlEditTheBox) {
  visit([](Visit& visit) {
    visit.play("show\nclick txtTableau 1\ntype 12\npress Left\ntype /\nsee txtTableau 1 \"1/2\"\n");
    visit.play("press Backspace\nsee txtTableau 1 \"12\"\n");
  });
}

TEST_P(KeysInAContainer, GoToTheContainersOwnBoxWhenThatHasTheFocus) {
  visit([](Visit& visit) {
    visit.play("show\nclick txtTableau 1\n");
    visit.click_own_box();
    visit.person().type(L"7");
    visit.person().press({VK_TAB});
    visit.person().wait_until_idle();
    EXPECT_TRUE(visit.own_box_has_focus());
    visit.play("see txtTableau 1 \" 0\"\n");
  });
}

TEST_P(KeysInAContainer, ThatAreHeldDoNotGoOnInWhatAppears) {
  visit([](Visit& visit) {
    visit.play("show\nclick txtTableau 1\ncall ShowAboutBox\nsee form frmAboutLP\n");
    visit.hold(VK_RETURN);
    visit.play("see no form\nsee focus txtTableau 1\n");
  });
}

// The dialog of a new problem comes after a repaint.
TEST_P(KeysInAContainer, PressedBeforeAFormHasComeAreForIt) {
  visit([](Visit& visit) {
    visit.play("show\npress Alt+B\nsee menu mnu_Bestand\npress N\n");
    visit.press_together({VK_RETURN, VK_UP, VK_UP, VK_TAB, VK_UP});
    visit.play("see form frmNieuw_Simplex\n");
    visit.play("see lblNrBeslisVarM \"4\"\nsee lblNrKleinerGelijkVglenM \"3\"\npress Escape\nsee no form\n");
  });
}

TEST_P(KeysInAContainer, TypedIntoALockedCellChangeNothing) {
  visit([](Visit& visit) { visit.play("show\nclick txtTableau 3\ntype 9\nsee txtTableau 3 \" 1\"\n"); });
}

TEST_P(KeysInAContainer, LeaveNothingBehindInAFormsBoxes) {
  visit([](Visit& visit) {
    visit.play(
        "show\ncall ShowAboutBox\nsee form frmAboutLP\npress Tab\nsee focus cmdOK\npress Escape\nsee no "
        "form\n");
  });
}

using MenusInAContainer = InAContainer;

TEST_P(MenusInAContainer, CloseByAClickOutside) {
  visit([](Visit& visit) {
    visit.play("show\nclick cmd_Bestand\nsee menu mnu_Bestand\n");
    visit.click_own_box();
    visit.play("see no menu\n");
  });
}

// The pointer is on the item by then, and nowhere near the button.
TEST_P(MenusInAContainer, LeaveTheirButtonUnlit) {
  visit([](Visit& visit) {
    visit.play("show\n");
    const RECT button = visit.seen("cmd_Bewerken").box;
    const POINT inside{button.left + 6, button.top + 6};
    const COLORREF before = Visit::colour_on_screen(inside);
    visit.play("click cmd_Bewerken\nchoose mnu_Pivot_element\nsee form frmMelding\n");
    EXPECT_TRUE(comes([&] { return Visit::colour_on_screen(inside) == before; }));
    visit.play("press Enter\nsee no form\n");
  });
}

using BarsInAContainer = InAContainer;

TEST_P(BarsInAContainer, GoOnWhileTheirArrowIsHeldAndNoLonger) {
  visit([](Visit& visit) {
    visit.play(wide_problem);
    const RECT bar = visit.seen("HScroll").box;
    const POINT arrow{bar.right - (bar.bottom - bar.top) / 2, (bar.top + bar.bottom) / 2};
    visit.person().button_down(arrow);
    EXPECT_TRUE(comes([&] { return visit.seen("HScroll").value >= 4; }));
    visit.person().button_up(arrow);
    EXPECT_TRUE(comes([&] { return !visit.mouse_is_captured(); }));
    visit.person().wait_until_idle();
    const int value = visit.seen("HScroll").value;
    visit.play("see lblKLM 1 \" " + std::to_string(value) + "\"\n");
  });
}

TEST_P(BarsInAContainer, LeaveTheFocusInTheGrid) {
  visit([](Visit& visit) {
    visit.play(wide_problem);
    visit.play("scroll HScroll to 6\nsee HScroll value 6\nsee lblKLM 1 \" 6\"\nsee focus txtFocus\n");
  });
}

std::string name_of(const testing::TestParamInfo<bool>& info) {
  return info.param ? "thatOffersKeys" : "thatDispatchesKeys";
}

INSTANTIATE_TEST_SUITE_P(All, FocusInAContainer, testing::Bool(), name_of);
INSTANTIATE_TEST_SUITE_P(All, KeysInAContainer, testing::Bool(), name_of);
INSTANTIATE_TEST_SUITE_P(All, MenusInAContainer, testing::Bool(), name_of);
INSTANTIATE_TEST_SUITE_P(All, BarsInAContainer, testing::Bool(), name_of);

}  // namespace
}  // namespace tabulon::activex
