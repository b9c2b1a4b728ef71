// Forms as windows: where they open over the control, and that a person can move them.
#include <gtest/gtest.h>

#include <functional>
#include <string_view>

#include "com_player.h"
#include "hosts/activex/names.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

RECT bounds_of(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

class FormsInAContainer : public testing::Test {
 protected:
  using Visit = std::function<void(Person&, HWND form, HWND surface)>;

  // Plays the script, which opens a form, and lets the visitor look at its window.
  static void over_form(std::string_view script, const Visit& visit) {
    on_stage({}, [&](Container& container, Person& person) {
      ComPlayer player(container, person, {});
      const auto play = [&](std::string_view lines) {
        for (const auto& command : scenarios::read_scenario(lines)) player.play(command);
      };
      play(script);
      HWND const form = FindWindowW(form_class, nullptr);
      EXPECT_TRUE(form && IsWindowVisible(form));
      if (form) visit(person, form, container.surface());
      play("press Enter");
      player.end();
      for (const std::string& failure : player.failures()) ADD_FAILURE() << failure;
    });
  }
};

TEST_F(FormsInAContainer, AreDraggedByTheirTitleBars) {
  over_form("show\ncall ShowAboutBox\nsee form frmAboutLP", [](Person& person, HWND form, HWND) {
    const RECT before = bounds_of(form);
    const POINT title{(before.left + before.right) / 2, before.top + 12};
    person.button_down(title);
    person.move({title.x + 40, title.y + 25});
    person.move({title.x + 90, title.y + 60});
    person.button_up({title.x + 90, title.y + 60});
    person.wait_until_idle();
    EXPECT_TRUE(comes([&] {
      const RECT now = bounds_of(form);
      return now.left == before.left + 90 && now.top == before.top + 60;
    })) << bounds_of(form).left - before.left
        << ", " << bounds_of(form).top - before.top;
  });
}

TEST_F(FormsInAContainer, OpenBesideThePivotElement) {
  constexpr std::string_view in_the_middle =
      "page\n"
      "  prmNrBeslisVar = 5\n"
      "  prmNrKleinerGelijkVglen = 5\n"
      "  prmSTR_DLfunctie = \" 0, 0, -1, 0, 0\"\n"
      "  prmSTR_KleinerGelijkVglen = \" 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "
      "1\"\n"
      "  prmSTR_RL = \" 1, 1, 1, 1, 1\"\n"
      "show\n"
      "press Alt+W P\n"
      "see form frmPivot_element";
  over_form(in_the_middle, [](Person&, HWND form, HWND surface) {
    const auto cell = Eyes(surface).find("txtTableau", 23);  // row 5, column 3
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->back, "255,0,0");
    const RECT over = bounds_of(form);
    RECT common{};
    EXPECT_FALSE(IntersectRect(&common, &over, &cell->box));
  });
}

}  // namespace
}  // namespace tabulon::activex
