#include <gtest/gtest.h>

#include "noting.h"

namespace tabulon::platform {
namespace {

class Focus : public testing::Test {
 protected:
  // The focus stands on `control`, and what led there is forgotten.
  void start_on(Control& control) {
    desk.focus(control);
    ASSERT_EQ(sheet.active(), &control);
    sheet.take_log();
  }

  HeadlessHost host;
  Desk& desk = host.desk();
  Sheet sheet{desk};
};

TEST_F(Focus, LeavesThenEnters) {
  start_on(sheet.first);
  EXPECT_TRUE(desk.focus(sheet.second));
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first", "LostFocus first", "GotFocus second"}));
}

TEST_F(Focus, TheTargetIsActiveWhileTheOldControlLosesTheFocus) {
  start_on(sheet.first);
  const Control* during_validate = nullptr;
  const Control* during_lost = nullptr;
  sheet.when_validating = [&](Control&, bool&) -> Task<> {
    during_validate = sheet.active();
    co_return;
  };
  sheet.when_lost_focus = [&](Control&) -> Task<> {
    during_lost = sheet.active();
    co_return;
  };
  desk.focus(sheet.second);
  EXPECT_EQ(during_validate, &sheet.first);
  EXPECT_EQ(during_lost, &sheet.second);
}

TEST_F(Focus, TheFirstControlLeavesNone) {
  desk.focus(sheet.second);
  EXPECT_EQ(sheet.take_log(), (Log{"GotFocus second"}));
}

TEST_F(Focus, MovingToTheActiveControlRaisesNothing) {
  start_on(sheet.first);
  EXPECT_TRUE(desk.focus(sheet.first));
  EXPECT_EQ(sheet.take_log(), Log{});
}

TEST_F(Focus, AValidateThatRefusesKeepsTheFocus) {
  start_on(sheet.first);
  sheet.when_validating = [](Control&, bool& refused) -> Task<> {
    refused = true;
    co_return;
  };
  desk.focus(sheet.second);
  EXPECT_EQ(sheet.active(), &sheet.first);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first"}));
}

TEST_F(Focus, ARefusedMoveIsMirroredSoThatTheHostPutsTheFocusBack) {
  start_on(sheet.first);
  sheet.when_validating = [](Control&, bool& refused) -> Task<> {
    refused = true;
    co_return;
  };
  host.forget_mirrored();
  desk.focus(sheet.second);
  EXPECT_EQ(host.mirrors(sheet), 1);
}

TEST_F(Focus, AValidateThatRefusesKeepsAButtonFromBeingPressed) {
  start_on(sheet.first);
  sheet.when_validating = [](Control&, bool& refused) -> Task<> {
    refused = true;
    co_return;
  };
  desk.click(sheet.go);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first"}));
}

TEST_F(Focus, AValidateThatAsksInAFormDecidesWhenTheFormHasClosed) {
  start_on(sheet.first);
  Question* open = nullptr;
  sheet.when_validating = [&](Control&, bool& refused) -> Task<> {
    Question question(sheet);
    open = &question;
    co_await desk.show_modal(question);
    refused = true;
  };
  desk.focus(sheet.second);
  ASSERT_NE(host.top_form(), nullptr);
  EXPECT_EQ(sheet.active(), &sheet.first);
  desk.click(open->ok);
  EXPECT_EQ(host.top_form(), nullptr);
  EXPECT_EQ(sheet.active(), &sheet.first);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first"}));
}

TEST_F(Focus, AValidateThatHidesTheTargetKeepsTheFocus) {
  start_on(sheet.first);
  sheet.when_validating = [&](Control&, bool&) -> Task<> {
    sheet.second.set_visible(false);
    co_return;
  };
  desk.focus(sheet.second);
  EXPECT_EQ(sheet.active(), &sheet.first);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first"}));
}

TEST_F(Focus, ATargetThatGotTheFocusWhileValidateWaitedIsNotEnteredTwice) {
  start_on(sheet.first);
  Question* open = nullptr;
  sheet.when_validating = [&](Control&, bool&) -> Task<> {
    if (open) co_return;
    Question question(sheet);
    open = &question;
    co_await desk.show_modal(question);
    co_await sheet.set_focus(sheet.second);
  };
  desk.focus(sheet.second);
  ASSERT_NE(open, nullptr);
  desk.click(open->ok);
  EXPECT_EQ(sheet.active(), &sheet.second);
  EXPECT_EQ(sheet.take_log(),
            (Log{"Validate first", "Validate first", "LostFocus first", "GotFocus second"}));
}

TEST_F(Focus, AControlMayPassTheFocusOn) {
  start_on(sheet.first);
  bool moved = false;
  sheet.when_got_focus = [&](Control& control) -> Task<> {
    if (&control == &sheet.second) moved = co_await sheet.set_focus(sheet.third);
  };
  desk.focus(sheet.second);
  EXPECT_TRUE(moved);
  EXPECT_EQ(sheet.active(), &sheet.third);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first", "LostFocus first", "GotFocus second", "Validate second",
                                   "LostFocus second", "GotFocus third"}));
}

TEST_F(Focus, AControlThatPassesTheFocusOnWhenLeftLeavesTheTargetOut) {
  start_on(sheet.first);
  sheet.when_lost_focus = [&](Control& control) -> Task<> {
    if (&control == &sheet.first) co_await sheet.set_focus(sheet.third);
  };
  desk.focus(sheet.second);
  EXPECT_EQ(sheet.active(), &sheet.third);
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first", "LostFocus first", "Validate second", "LostFocus second",
                                   "GotFocus third"}));
}

TEST_F(Focus, ADisabledOrHiddenTargetIsRefused) {
  start_on(sheet.first);
  sheet.second.set_enabled(false);
  sheet.third.set_visible(false);
  desk.focus(sheet.second);
  desk.focus(sheet.third);
  EXPECT_EQ(sheet.active(), &sheet.first);
  EXPECT_EQ(sheet.take_log(), Log{});
}

TEST_F(Focus, AControlInAHiddenContainerIsRefused) {
  start_on(sheet.first);
  Frame frame(sheet, "frame");
  CommandButton inside(sheet, "inside", &frame);
  frame.set_visible(false);
  desk.focus(inside);
  EXPECT_EQ(sheet.active(), &sheet.first);
  frame.set_visible(true);
  desk.focus(inside);
  EXPECT_EQ(sheet.active(), &inside);
  desk.focus(sheet.first);
}

TEST_F(Focus, LabelsAndFramesTakeNone) {
  Label label(sheet, "label");
  Frame frame(sheet, "frame");
  Image image(sheet, "image");
  Line line(sheet, "line");
  Menu menu(sheet, "menu", "&Menu");
  for (const Control* control : std::initializer_list<Control*>{&label, &frame, &image, &line, &menu})
    EXPECT_FALSE(control->can_take_focus()) << control->name();
}

TEST_F(Focus, ASurfaceWithoutTheKeyboardMovesItsActiveControlSilently) {
  host.grants_focus = false;
  desk.focus(sheet.second);
  EXPECT_EQ(sheet.active(), &sheet.second);
  EXPECT_FALSE(sheet.has_focus());
  EXPECT_EQ(sheet.take_log(), Log{});
}

TEST_F(Focus, EnteringAndLeavingAreTold) {
  desk.enter(sheet);
  desk.enter(sheet);
  EXPECT_TRUE(sheet.has_focus());
  desk.leave(sheet);
  desk.leave(sheet);
  EXPECT_FALSE(sheet.has_focus());
  EXPECT_EQ(sheet.take_log(), (Log{"Enter", "Exit"}));
}

TEST_F(Focus, TypingTakesTheFocusAndChangesTheText) {
  start_on(sheet.first);
  EXPECT_TRUE(desk.type(sheet.second, " 3"));
  EXPECT_EQ(sheet.second.text(), " 3");
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first", "LostFocus first", "GotFocus second", "Change second"}));
}

TEST_F(Focus, ALockedBoxKeepsItsText) {
  sheet.second.set_text(" 1");
  sheet.second.set_locked(true);
  desk.type(sheet.second, " 3");
  EXPECT_EQ(sheet.second.text(), " 1");
  EXPECT_EQ(sheet.active(), &sheet.second);
}

TEST_F(Focus, AClickOnALabelMovesNoFocus) {
  start_on(sheet.first);
  Label label(sheet, "label");
  desk.click(label);
  EXPECT_EQ(sheet.active(), &sheet.first);
  EXPECT_EQ(sheet.take_log(), (Log{"Click label"}));
}

TEST_F(Focus, AClickOnADisabledButtonDoesNothing) {
  sheet.go.set_enabled(false);
  desk.click(sheet.go);
  EXPECT_EQ(sheet.take_log(), Log{});
}

class TabOrder : public Focus {
 protected:
  // The names met by pressing Tab (or Shift+Tab) until the key is not used.
  Log walk(int shift) {
    Log met;
    while (met.size() < 20 && desk.key(sheet, {key::tab, shift})) met.emplace_back(sheet.active()->name());
    return met;
  }
};

TEST_F(TabOrder, GoesForwardAndLeavesAtTheEnd) {
  EXPECT_EQ(walk(modifier::none), (Log{"first", "second", "third", "go", "stop"}));
  EXPECT_EQ(sheet.active(), &sheet.stop);
}

TEST_F(TabOrder, GoesBackwardAndLeavesAtTheStart) {
  EXPECT_EQ(walk(modifier::shift), (Log{"stop", "go", "third", "second", "first"}));
}

TEST_F(TabOrder, FollowsThePlacesNotTheCreation) {
  sheet.first.set_tab(9, true);
  sheet.stop.set_tab(0, true);
  EXPECT_EQ(walk(modifier::none), (Log{"stop", "second", "third", "go", "first"}));
}

TEST_F(TabOrder, ControlsWithOnePlaceFollowInOrderOfCreation) {
  for (Control* control : sheet.controls()) control->set_tab(0, true);
  EXPECT_EQ(walk(modifier::none), (Log{"first", "second", "third", "go", "stop"}));
}

TEST_F(TabOrder, SkipsWhatCannotTakeTheFocusAndWhatIsNoStop) {
  sheet.first.set_visible(false);
  sheet.third.set_enabled(false);
  sheet.go.set_tab(3, false);
  EXPECT_EQ(walk(modifier::none), (Log{"second", "stop"}));
}

TEST_F(TabOrder, GoesOnFromAControlThatIsNoStop) {
  sheet.third.set_tab(2, false);
  start_on(sheet.third);
  EXPECT_EQ(walk(modifier::none), (Log{"go", "stop"}));
  start_on(sheet.third);
  EXPECT_EQ(walk(modifier::shift), (Log{"second", "first"}));
}

TEST_F(TabOrder, AnotherKeyHeldIsNoTab) {
  EXPECT_FALSE(desk.key(sheet, {key::tab, modifier::ctrl}));
  EXPECT_EQ(sheet.active(), nullptr);
}

class Keys : public Focus {};

TEST_F(Keys, EnterAndSpacePressTheButtonThatHasTheFocus) {
  start_on(sheet.go);
  EXPECT_TRUE(desk.key(sheet, {key::enter}));
  EXPECT_TRUE(desk.key(sheet, {key::space}));
  EXPECT_EQ(sheet.take_log(), (Log{"Click go", "Click go"}));
}

TEST_F(Keys, EnterInATextBoxIsNotUsed) {
  start_on(sheet.first);
  EXPECT_FALSE(desk.key(sheet, {key::enter}));
  EXPECT_EQ(sheet.take_log(), Log{});
}

TEST_F(Keys, AnAccessKeyPressesItsButton) {
  start_on(sheet.first);
  EXPECT_TRUE(desk.key(sheet, {'S', modifier::alt}));
  EXPECT_EQ(sheet.take_log(), (Log{"Validate first", "LostFocus first", "GotFocus stop", "Click stop"}));
}

TEST_F(Keys, AnAccessKeyOfAHiddenButtonIsNotUsed) {
  sheet.stop.set_visible(false);
  EXPECT_FALSE(desk.key(sheet, {'S', modifier::alt}));
  EXPECT_FALSE(desk.key(sheet, {'S', modifier::none}));
  EXPECT_EQ(sheet.take_log(), Log{});
}

TEST_F(Keys, TheSurfaceSeesEveryKeyFirst) {
  start_on(sheet.go);
  sheet.when_key_down = [](KeyPress& press, bool& used) -> Task<> {
    used = press.code == key::enter;
    co_return;
  };
  EXPECT_TRUE(desk.key(sheet, {key::enter}));
  EXPECT_EQ(sheet.take_log(), Log{});
  EXPECT_TRUE(desk.key(sheet, {key::space}));
  EXPECT_EQ(sheet.take_log(), (Log{"Click go"}));
}

TEST_F(Keys, TheSurfaceMayTurnAKeyIntoAnother) {
  start_on(sheet.second);
  sheet.when_key_down = [](KeyPress& press, bool&) -> Task<> {
    if (press.code == key::left) press = {key::tab, modifier::shift};
    co_return;
  };
  desk.key(sheet, {key::left, modifier::ctrl});
  EXPECT_EQ(sheet.active(), &sheet.first);
}

TEST_F(Keys, AKeyThatMakesThePersonAnswerSomethingWasUsed) {
  sheet.when_key_down = [&](KeyPress&, bool&) -> Task<> { co_await desk.wait_milliseconds(10); };
  EXPECT_TRUE(desk.key(sheet, {'X'}));
  host.advance(1);
  sheet.when_key_down = nullptr;
  EXPECT_FALSE(desk.key(sheet, {'X'}));
}

}  // namespace
}  // namespace tabulon::platform
