#include <cmath>
#include <numbers>

#include "tests/control/control_fixture.h"

namespace tabulon::tests {
namespace {

class Cells : public ControlTest {
 protected:
  void SetUp() override { open(two_products); }
  // How often the whole text of the box was asked to be selected since the last mirroring.
  bool selected(std::string_view name, int index) {
    const platform::Control* const box = control.find(name, index);
    bool found = false;
    for (const auto& each : host.mirrored())
      found = found || (each.control == box && each.properties.has(platform::Property::Selection));
    return found;
  }
};

// ---- Accepted

TEST_F(Cells, WhatIsTypedIsStoredAsTypedWithItsValueInBothTableaus) {
  enter_text("txtTableau", 7, " 2/3");
  press("Tab");
  EXPECT_EQ(model.current.row(2).text(2), " 2/3");
  EXPECT_DOUBLE_EQ(model.current.row(2).value(2), 2.0 / 3.0);
  EXPECT_EQ(model.first.row(2).text(2), " 2/3");
  EXPECT_EQ(model.first.row(2).value(2), model.current.row(2).value(2));
  EXPECT_EQ(text("txtTableau", 7), " 2/3");
}

TEST_F(Cells, TheRowFAndTheRightHandSidesAreStoredLikewise) {
  enter_text("txtRij_F", 2, "-2^2");
  press("Tab");
  enter_text("txtRL", 3, "sqrt(16)");
  press("Tab");
  EXPECT_EQ(model.current.row_F().text(2), "-2^2");
  EXPECT_EQ(model.first.row_F().value(2), model.current.row_F().value(2));
  EXPECT_EQ(model.current.row(3).text(CellRow::right_hand_side), "sqrt(16)");
  EXPECT_EQ(model.current.row(3).right(), 4);
  EXPECT_EQ(model.first.row(3).right(), 4);
}

TEST_F(Cells, BlanksAroundAnEntryStay) {
  enter_text("txtTableau", 1, "  5 ");
  press("Tab");
  EXPECT_EQ(model.current.row(1).text(1), "  5 ");
  EXPECT_EQ(model.current.row(1).value(1), 5);
}

TEST_F(Cells, TheSameTextChangesNothing) {
  model.current.row(1).write(1, 77, " 1");  // a value that the text does not give
  enter_text("txtTableau", 1, " 1");
  press("Tab");
  EXPECT_EQ(model.current.row(1).value(1), 77);
}

TEST_F(Cells, TheTypedTextStaysUntilAnOperationRewritesIt) {
  enter_text("txtTableau", 1, "3/4");
  press("Tab");
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_EQ(text("txtTableau", 1), "3/4");
  choose("mnu_Basisoplossing");
  press("Enter");
  EXPECT_EQ(text("txtTableau", 1), " 0.75");
}

TEST_F(Cells, ResetBringsBackWhatWasFilledIn) {
  enter_text("txtTableau", 1, "3/4");
  press("Tab");
  choose("mnu_optimaliseren");
  press("Enter");
  choose("mnu_Reset");
  EXPECT_EQ(text("txtTableau", 1), "3/4");
  EXPECT_EQ(model.current.row(1).value(1), 0.75);
}

TEST_F(Cells, InAScrolledGridTheBoxMeansTheCellThatItShows) {
  open(numbered(8, 9));
  scroll("HScroll", 3);
  scroll("VScroll", 2);
  enter_text("txtTableau", 7, "5");  // row 3, column 4
  press("Tab");
  EXPECT_EQ(model.current.row(3).value(4), 5);
  enter_text("txtRij_F", 2, "6");
  press("Tab");
  EXPECT_EQ(model.current.row_F().value(4), 6);
  enter_text("txtRL", 7, "7");
  press("Enter");
  EXPECT_EQ(model.current.row(8).right(), 7);
  EXPECT_EQ(model.first.row(8).text(CellRow::right_hand_side), "7");
}

TEST_F(Cells, LeavingInAnyWayStores) {
  const auto ways = std::to_array<void (*)(Cells&)>({
      [](Cells& test) { test.press("Tab"); },
      [](Cells& test) { test.press("Shift+Tab"); },
      [](Cells& test) { test.press("Enter"); },
      [](Cells& test) { test.press("Up"); },
      [](Cells& test) { test.press("Down"); },
      [](Cells& test) { test.press("Ctrl+Left"); },
      [](Cells& test) { test.press("Ctrl+Right"); },
      [](Cells& test) { test.press("Ctrl+Enter"); },
      [](Cells& test) { test.click("txtRL", 1); },
      [](Cells& test) { test.click("cmd_Bestand"); },
      [](Cells& test) { test.press("Alt+W"); },
  });
  int at = 0;
  for (const auto& leave : ways) {
    enter_text("txtTableau", 7, std::to_string(++at + 40));
    leave(*this);
    host.desk().menu_dismiss();
    EXPECT_EQ(model.current.row(2).value(2), at + 40) << "way " << at;
  }
}

// ---- Refused

class Refused : public Cells, public testing::WithParamInterface<const char*> {};

TEST_P(Refused, IsShownKeptAndNotStored) {
  host.forget_mirrored();
  enter_text("txtTableau", 7, GetParam());
  press("Tab");
  EXPECT_EQ(form(), "frmMelding");
  EXPECT_EQ(text("lblMelding"), "Invoerfout!");
  EXPECT_EQ(model.MeldingNr, 1);
  EXPECT_EQ(host.beeps, 0);
  host.forget_mirrored();
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(host.beeps, 1);
  EXPECT_EQ(focus(), "txtTableau 7");
  EXPECT_TRUE(selected("txtTableau", 7));
  EXPECT_EQ(text("txtTableau", 7), GetParam());
  EXPECT_EQ(model.current.row(2).text(2), " 2");
  EXPECT_EQ(model.current.row(2).value(2), 2);
  EXPECT_EQ(model.first.row(2).text(2), " 2");
}

INSTANTIATE_TEST_SUITE_P(Entries, Refused,
                         testing::Values("", "   ", "1/", "hallo", "1/0", "(1", "1)", "--", "sqrt(-1)", "*",
                                         "10^1000", "0/0", "ln(0)"));

TEST_F(Cells, TheFlagOfARefusedEntryIsClearedWhenACellIsEntered) {
  enter_text("txtTableau", 7, "1/");
  click("txtRL", 1);
  press("Enter");
  EXPECT_TRUE(model.CelFout);
  EXPECT_EQ(focus(), "txtTableau 7");
  type("1/2");
  press("Tab");
  EXPECT_FALSE(model.CelFout);
  EXPECT_EQ(focus(), "txtRL 2");
}

TEST_F(Cells, EveryAttemptToLeaveSaysItAgain) {
  enter_text("txtTableau", 7, "x");
  for (const char* key :
       {"Tab", "Enter", "Down", "Up", "Shift+Tab", "Ctrl+Left", "Ctrl+Right", "Ctrl+Enter"}) {
    press(key);
    EXPECT_EQ(form(), "frmMelding") << key;
    press("Enter");
    EXPECT_EQ(form(), "") << key;
    EXPECT_EQ(focus(), "txtTableau 7") << key;
  }
  EXPECT_EQ(host.beeps, 8);
}

TEST_F(Cells, ARefusedMoveLeavesTheFlagClearForTheNextAttempt) {
  enter_text("txtTableau", 7, "x");
  press("Enter");
  press("Enter");
  EXPECT_FALSE(model.CelFout);
}

TEST_F(Cells, WhileTheMessageIsOpenNothingElseIsTaken) {
  enter_text("txtTableau", 7, "x");
  press("Tab");
  EXPECT_FALSE(host.desk().click(*control.find("cmd_Bestand")));
  EXPECT_FALSE(host.desk().focus(*control.find("txtTableau", 1)));
  host.desk().key(control, {platform::key::tab});
  EXPECT_EQ(control.active(), control.find("txtTableau", 7));
  EXPECT_FALSE(host.desk().type(static_cast<platform::TextBox&>(*control.find("txtTableau", 1)), "5"));
  EXPECT_EQ(host.open_forms().size(), 1U);
  press("Escape");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(text("txtTableau", 7), "x");
}

TEST_F(Cells, AClickOnAnotherCellDoesNotLeaveBadInput) {
  enter_text("txtTableau", 7, "x");
  click("txtTableau", 1);
  press("Enter");
  EXPECT_EQ(focus(), "txtTableau 7");
  EXPECT_EQ(text("txtTableau", 1), " 1");
}

TEST_F(Cells, TypingIntoAnotherBoxDoesNotLeaveBadInput) {
  enter_text("txtTableau", 7, "x");
  host.desk().type(static_cast<platform::TextBox&>(*control.find("txtTableau", 1)), "5");
  press("Enter");
  EXPECT_EQ(text("txtTableau", 1), " 1");
  EXPECT_EQ(focus(), "txtTableau 7");
}

// ---- Escape

TEST_F(Cells, EscapeBringsTheStoredTextBack) {
  enter_text("txtTableau", 7, "99");
  press("Escape");
  EXPECT_EQ(text("txtTableau", 7), " 2");
  EXPECT_EQ(model.current.row(2).value(2), 2);
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(form(), "");
}

TEST_F(Cells, EscapeAlsoEndsBadInput) {
  enter_text("txtRL", 2, "1/");
  press("Escape");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(text("txtRL", 2), " 12");
  enter_text("txtRij_F", 1, "");
  press("Escape");
  EXPECT_EQ(text("txtRij_F", 1), "-3");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(Cells, AnEscapeWithoutAnEditDoesNotUndoALaterOne) {
  click("txtTableau", 7);
  press("Escape");
  enter_text("txtTableau", 7, "8");
  press("Tab");
  EXPECT_EQ(model.current.row(2).value(2), 8);
  press("Escape");
  press("Escape");
  enter_text("txtTableau", 1, "9");
  press("Down");
  EXPECT_EQ(model.current.row(1).value(1), 9);
}

TEST_F(Cells, BadInputAfterAnEscapeIsRefused) {
  click("txtTableau", 7);
  press("Escape");
  enter_text("txtTableau", 7, "x");
  press("Tab");
  EXPECT_EQ(form(), "frmMelding");
}

// ---- Locked boxes

TEST_F(Cells, ALockedBoxTakesNoTyping) {
  EXPECT_TRUE(locked("txtTableau", 3));
  enter_text("txtTableau", 3, "5");
  press("Tab");
  EXPECT_EQ(text("txtTableau", 3), " 1");
  EXPECT_EQ(model.current.row(1).value(3), 1);
  EXPECT_EQ(form(), "");
}

TEST_F(Cells, AfterTheFirstStepNothingCanBeTypedAnyMore) {
  choose("mnu_optimaliseren");
  press("Enter");
  const std::string before = text("txtTableau", 1);
  for (const char* array : {"txtRij_F", "txtTableau", "txtRL"}) {
    EXPECT_TRUE(locked(array, 1)) << array;
    enter_text(array, 1, "77");
    press("Tab");
    EXPECT_NE(text(array, 1), "77") << array;
  }
  EXPECT_EQ(text("txtTableau", 1), before);
}

// ---- Selecting

TEST_F(Cells, EnteringACellSelectsItsWholeText) {
  host.forget_mirrored();
  click("txtTableau", 7);
  EXPECT_TRUE(selected("txtTableau", 7));
  host.forget_mirrored();
  press("Tab");
  EXPECT_TRUE(selected("txtRL", 2));
}

TEST_F(Cells, AcceptedExpressionsMayUseFunctionsAndPi) {
  enter_text("txtTableau", 1, "2pi");
  press("Tab");
  EXPECT_DOUBLE_EQ(model.current.row(1).value(1), 2 * std::numbers::pi);
  EXPECT_TRUE(std::isfinite(model.current.row(1).value(1)));
}

}  // namespace
}  // namespace tabulon::tests
