#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Keyboard : public ControlTest {
 protected:
  std::string view() const {
    return std::to_string(model.StartKolom) + ", " + std::to_string(model.StartRij);
  }
};

// ---- Through the cells

TEST_F(Keyboard, TabReadsTheProblemAndWrapsToTheTop) {
  open();
  click("txtRij_F", 1);
  const char* const order[] = {"txtRij_F 2",   "txtTableau 1", "txtTableau 2", "txtRL 1",
                               "txtTableau 6", "txtTableau 7", "txtRL 2",      "txtRij_F 1"};
  for (const char* next : order) {
    EXPECT_TRUE(press("Tab"));
    EXPECT_EQ(focus(), next);
  }
}

TEST_F(Keyboard, EnterAndCtrlRightGoTheSameWay) {
  for (const char* key : {"Enter", "Ctrl+Right"}) {
    open();
    click("txtRij_F", 1);
    for (const char* next : {"txtRij_F 2", "txtTableau 1", "txtTableau 2", "txtRL 1", "txtTableau 6",
                             "txtTableau 7", "txtRL 2", "txtRij_F 1"}) {
      EXPECT_TRUE(press(key));
      EXPECT_EQ(focus(), next) << key;
    }
  }
}

TEST_F(Keyboard, ShiftTabAndCtrlLeftReadItInReverse) {
  for (const char* key : {"Shift+Tab", "Ctrl+Left"}) {
    open();
    click("txtRL", 2);
    for (const char* next : {"txtTableau 7", "txtTableau 6", "txtRL 1", "txtTableau 2", "txtTableau 1",
                             "txtRij_F 2", "txtRij_F 1"}) {
      EXPECT_TRUE(press(key)) << key;
      EXPECT_EQ(focus(), next) << key;
    }
  }
}

TEST_F(Keyboard, BeforeTheFirstCellThereIsNone) {
  for (const char* key : {"Shift+Tab", "Ctrl+Left"}) {
    open();
    click("txtRij_F", 1);
    press(key);
    EXPECT_EQ(focus(), "txtRij_F 1") << key;
    press("Tab");
    EXPECT_EQ(focus(), "txtRij_F 2") << key;
  }
}

TEST_F(Keyboard, TabInTheLastColumnOfRowFGoesToTheFirstCellAndScrollsBack) {
  open(numbered(8, 9));
  scroll("HScroll", 4);
  scroll("VScroll", 3);
  click("txtRij_F", 5);
  press("Tab");
  EXPECT_EQ(focus(), "txtTableau 1");
  EXPECT_EQ(view(), "1, 1");
  EXPECT_EQ(bar("HScroll").value(), 1);
  EXPECT_EQ(bar("VScroll").value(), 1);
  EXPECT_EQ(cell(1, 1), " 101");
}

TEST_F(Keyboard, TabAtTheEdgeScrollsByOneColumn) {
  open(numbered(8, 9));
  click("txtRij_F", 5);
  press("Tab");
  EXPECT_EQ(focus(), "txtRij_F 5");
  EXPECT_EQ(view(), "2, 1");
  EXPECT_EQ(bar("HScroll").value(), 2);
  EXPECT_EQ(text("txtRij_F", 5), " 6");
  press("Tab");
  press("Tab");
  press("Tab");
  EXPECT_EQ(focus(), "txtTableau 1");
}

TEST_F(Keyboard, TabInTheLastCellOfARowGoesToItsRightHandSide) {
  open(numbered(8, 9));
  scroll("HScroll", 4);
  click("txtTableau", 10);
  press("Tab");
  EXPECT_EQ(focus(), "txtRL 2");
  press("Tab");
  EXPECT_EQ(focus(), "txtTableau 11");
  EXPECT_EQ(view(), "1, 1");
}

TEST_F(Keyboard, TabInTheLowestRightHandSideScrollsByOneRow) {
  open(numbered(8, 9));
  click("txtRL", 7);
  press("Tab");
  EXPECT_EQ(focus(), "txtTableau 31");
  EXPECT_EQ(view(), "1, 2");
  EXPECT_EQ(bar("VScroll").value(), 2);
  EXPECT_EQ(cell(7, 1), " 801");
}

TEST_F(Keyboard, TabInTheLastRightHandSideWrapsToTheTop) {
  open(numbered(8, 9));
  scroll("VScroll", 3);
  scroll("HScroll", 4);
  click("txtRL", 7);
  press("Tab");
  EXPECT_EQ(focus(), "txtRij_F 1");
  EXPECT_EQ(view(), "1, 1");
}

TEST_F(Keyboard, TabSkipsTheColumnsThatCannotBeTypedIn) {
  open(every_kind);
  click("txtRij_F", 2);
  press("Tab");
  EXPECT_EQ(focus(), "txtTableau 1");
  press("Tab");
  press("Tab");
  EXPECT_EQ(focus(), "txtRL 1");
}

TEST_F(Keyboard, FromAClickedSlackCellTabGoesToTheRightHandSide) {
  open();
  click("txtTableau", 8);
  press("Tab");
  EXPECT_EQ(focus(), "txtRL 2");
}

TEST_F(Keyboard, ShiftTabFromTheFirstCellGoesToTheLastColumnOfRowF) {
  open(numbered(8, 9));
  click("txtTableau", 1);
  press("Shift+Tab");
  EXPECT_EQ(focus(), "txtRij_F 5");
  EXPECT_EQ(view(), "4, 1");
  EXPECT_EQ(text("txtRij_F", 5), " 8");
}

TEST_F(Keyboard, ShiftTabFromTheFirstRowShownScrollsUp) {
  open(numbered(8, 9));
  scroll("VScroll", 3);
  click("txtTableau", 1);
  press("Shift+Tab");
  EXPECT_EQ(focus(), "txtRL 1");
  EXPECT_EQ(view(), "1, 2");
  EXPECT_EQ(text("txtRL", 1), " 2000");
  press("Shift+Tab");
  EXPECT_EQ(focus(), "txtTableau 5");
  EXPECT_EQ(view(), "4, 2");
}

TEST_F(Keyboard, ArrowsMoveWithinAColumn) {
  open();
  click("txtRij_F", 2);
  press("Down");
  EXPECT_EQ(focus(), "txtTableau 2");
  press("Down");
  EXPECT_EQ(focus(), "txtTableau 7");
  press("Down");
  EXPECT_EQ(focus(), "txtTableau 7");
  press("Up");
  press("Up");
  EXPECT_EQ(focus(), "txtRij_F 2");
  press("Up");
  EXPECT_EQ(focus(), "txtRij_F 2");
  click("txtRL", 1);
  press("Up");
  EXPECT_EQ(focus(), "txtRL 1");
  press("Down");
  EXPECT_EQ(focus(), "txtRL 2");
  press("Down");
  EXPECT_EQ(focus(), "txtRL 2");
}

TEST_F(Keyboard, DownFromRowFGoesToTheFirstRowAlsoWhenScrolled) {
  open(numbered(8, 9));
  scroll("VScroll", 3);
  click("txtRij_F", 3);
  press("Down");
  EXPECT_EQ(focus(), "txtTableau 3");
  EXPECT_EQ(view(), "1, 1");
  EXPECT_EQ(bar("VScroll").value(), 1);
  EXPECT_EQ(cell(1, 3), " 103");
}

TEST_F(Keyboard, ArrowsAtTheEdgeScrollByOneRow) {
  open(numbered(8, 9));
  click("txtTableau", 33);
  press("Down");
  EXPECT_EQ(focus(), "txtTableau 33");
  EXPECT_EQ(view(), "1, 2");
  press("Down");
  press("Down");
  EXPECT_EQ(view(), "1, 3");
  click("txtRL", 1);
  press("Up");
  EXPECT_EQ(focus(), "txtRL 1");
  EXPECT_EQ(view(), "1, 2");
  click("txtTableau", 2);
  press("Up");
  EXPECT_EQ(view(), "1, 1");
  EXPECT_EQ(focus(), "txtTableau 2");
}

TEST_F(Keyboard, AMoveThatLeadsNowhereStillChecksTheCell) {
  open();
  enter_text("txtRij_F", 1, "1/2");
  press("Up");
  EXPECT_EQ(model.current.row_F().value(1), 0.5);
  EXPECT_EQ(focus(), "txtRij_F 1");
  enter_text("txtTableau", 6, "1/");
  press("Down");
  EXPECT_EQ(form(), "frmMelding");
}

TEST_F(Keyboard, CtrlEnterChecksInPlace) {
  open();
  enter_text("txtTableau", 6, "1/4");
  EXPECT_TRUE(press("Ctrl+Enter"));
  EXPECT_EQ(focus(), "txtTableau 6");
  EXPECT_EQ(model.current.row(2).value(1), 0.25);
  type("1/");
  press("Ctrl+Enter");
  EXPECT_EQ(form(), "frmMelding");
  press("Enter");
  EXPECT_EQ(focus(), "txtTableau 6");
}

TEST_F(Keyboard, OtherCombinationsAreLeftToTheBox) {
  open();
  click("txtTableau", 1);
  for (const char* key : {"Left", "Right", "Home", "End", "Shift+Left", "Shift+Up", "Shift+Down", "Ctrl+Up",
                          "Ctrl+Down", "Shift+Ctrl+Left", "A", "5", "Ctrl+A", "Space"}) {
    EXPECT_FALSE(press(key)) << key;
    EXPECT_EQ(focus(), "txtTableau 1") << key;
  }
}

TEST_F(Keyboard, TheOtherBoxesTakeNoText) {
  open();
  for (const char* name : {"txtFocus", "txtTab", "txtShiftTab"}) {
    host.desk().type(static_cast<platform::TextBox&>(*control.find(name)), "abc");
    EXPECT_EQ(text(name), "") << name;
  }
}

TEST_F(Keyboard, BadInputStopsTheWalkAndAGoodEntryLetsItGoOn) {
  open();
  enter_text("txtTableau", 2, "1/");
  press("Tab");
  EXPECT_EQ(text("lblMelding"), "Invoerfout!");
  press("Enter");
  EXPECT_EQ(focus(), "txtTableau 2");
  type("1/2");
  press("Tab");
  EXPECT_EQ(focus(), "txtRL 1");
}

// ---- Into the cells and out of the control

TEST_F(Keyboard, TabGoesFromTheBeginningIntoTheCells) {
  open();
  EXPECT_TRUE(press("Tab"));
  EXPECT_EQ(focus(), "txtRij_F 1");
}

TEST_F(Keyboard, AfterEscapeTabLeavesTheControl) {
  open();
  click("txtTableau", 1);
  EXPECT_TRUE(press("Escape"));
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_FALSE(press("Tab"));
  EXPECT_FALSE(press("Shift+Tab"));
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Keyboard, AfterEscapeACellThatIsClickedIsWalkedFromAgain) {
  open();
  press("Escape");
  click("txtTableau", 1);
  EXPECT_TRUE(press("Tab"));
  EXPECT_EQ(focus(), "txtTableau 2");
  click("cmd_Bestand");
  press("Escape");
  EXPECT_TRUE(press("Tab"));
  EXPECT_EQ(focus(), "txtRij_F 1");
}

TEST_F(Keyboard, AfterEscapeOneTabOrShiftTabLeavesAndTheNextWalks) {
  for (const char* leaving : {"Tab", "Shift+Tab"}) {
    open();
    press("Escape");
    EXPECT_FALSE(press(leaving));
    EXPECT_TRUE(press("Tab")) << leaving;
    EXPECT_EQ(focus(), "txtRij_F 1");
  }
}

TEST_F(Keyboard, AfterEscapeOtherKeysDoNotTakeTheWayOutAway) {
  open();
  click("txtTableau", 1);
  press("Escape");
  for (const char* key : {"Down", "Enter", "Ctrl+Right", "Space", "A", "Home"}) press(key);
  EXPECT_FALSE(press("Tab"));
}

// What takes the way out away again, so that Tab walks the cells.
class AfterEscape : public ControlTest {
 protected:
  void escape() {
    click("txtTableau", 1);
    type("7");
    press("Escape");
    ASSERT_EQ(focus(), "txtFocus");
  }
  void expect_walk() {
    EXPECT_TRUE(press("Tab"));
    EXPECT_EQ(focus(), "txtRij_F 1");
  }
};

TEST_F(AfterEscape, ComingBackIntoTheControlTabWalksTheCells) {
  open();
  escape();
  EXPECT_FALSE(press("Tab"));
  host.desk().leave(control);
  host.desk().enter(control);
  expect_walk();
  escape();
  host.desk().leave(control);  // by the mouse
  host.desk().enter(control);
  expect_walk();
}

TEST_F(AfterEscape, ACommandMakesTabWalkTheCells) {
  open(two_products);
  for (const char* command : {"mnu_Breuken", "mnu_Tableau_Invullen", "mnu_Reset", "mnu_optimaliseren"}) {
    escape();
    choose(command);
    press("Enter");
    expect_walk();
  }
}

TEST_F(AfterEscape, AMenuThatIsOpenedByAltAndLeftMakesTabWalkTheCells) {
  open();
  escape();
  press("Alt+W");
  press("Escape");
  expect_walk();
}

TEST_F(AfterEscape, ANewProblemMakesTabWalkItsCells) {
  open();
  escape();
  choose("mnu_Nieuw_Simplex");
  press("Enter");
  expect_walk();
  escape();
  set("prmShow", true);
  expect_walk();
}

TEST_F(AfterEscape, AFormMakesTabWalkTheCellsAlsoWhenAScriptShowsIt) {
  open();
  escape();
  host.desk().call(control, control.ShowAboutBox());
  press("Escape");
  expect_walk();
}

TEST_F(AfterEscape, AClickAnywhereMakesTabWalkTheCells) {
  open(numbered(8, 9));
  escape();
  host.desk().click(control);
  expect_walk();
  for (const char* what : {"FrameHead", "lblNRTableau", "lblFRL"}) {
    escape();
    click(what);
    expect_walk();
  }
  escape();
  scroll("HScroll", 2);
  expect_walk();
}

TEST_F(AfterEscape, AButtonOfTheGraphMakesTabWalkTheCells) {
  open(two_products);
  choose("mnu_Grafiek");
  escape();
  click("cmdReset");
  expect_walk();
}

TEST_F(Keyboard, ShiftTabFromTheBeginningLeavesTheControl) {
  open();
  EXPECT_FALSE(press("Shift+Tab"));
}

TEST_F(Keyboard, EnterOutsideTheCellsDoesNothingAndStaysInTheControl) {
  open();
  EXPECT_TRUE(press("Enter"));
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(Keyboard, WithoutACellToGoToTabLeavesTheControl) {
  open({{"prmNrBeslisVar", "0"}, {"prmNrKleinerGelijkVglen", "0"}, {"prmSTR_KleinerGelijkVglen", ""}});
  ASSERT_FALSE(shown("txtRij_F", 1));
  EXPECT_FALSE(press("Tab"));
}

// ---- Focus and the title bar

class Focus : public ControlTest {};

constexpr const char* with_focus = "0, 192, 192";
constexpr const char* without_focus = "192, 192, 192";

TEST_F(Focus, TheTitleBarShowsWhetherTheControlHasIt) {
  open();
  EXPECT_EQ(colour("FrameHead"), with_focus);
  host.desk().leave(control);
  EXPECT_EQ(colour("FrameHead"), without_focus);
  host.desk().enter(control);
  EXPECT_EQ(colour("FrameHead"), with_focus);
}

TEST_F(Focus, AClickOnTheTitleBarColoursIt) {
  open();
  host.desk().leave(control);
  click("FrameHead");
  EXPECT_EQ(colour("FrameHead"), with_focus);
  host.desk().leave(control);
  click("lblNRTableau");
  EXPECT_EQ(colour("FrameHead"), with_focus);
}

TEST_F(Focus, AClickOnTheSurfaceLeavesACellItsFocus) {
  open();
  click("txtTableau", 2);
  host.desk().click(control);
  EXPECT_EQ(focus(), "txtTableau 2");
  click("lblKolom", 1);
  EXPECT_EQ(focus(), "txtTableau 2");
}

TEST_F(Focus, ComingBackGoesToTheCellThatHadIt) {
  open();
  click("txtTableau", 2);
  host.desk().leave(control);
  host.desk().enter(control);
  EXPECT_EQ(focus(), "txtTableau 2");
  EXPECT_EQ(colour("FrameHead"), with_focus);
}

TEST_F(Focus, ComingInForTheFirstTimeGoesToTheHiddenBox) {
  host.grants_focus = false;
  open();
  host.desk().enter(control);
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(colour("FrameHead"), with_focus);
}

TEST_F(Focus, LeavingTheControlStoresAGoodEntry) {
  open();
  enter_text("txtTableau", 1, " 1/2");
  host.desk().leave(control);
  EXPECT_EQ(model.current.row(1).value(1), 0.5);
  EXPECT_EQ(model.first.row(1).text(1), " 1/2");
  EXPECT_EQ(text("txtTableau", 1), " 1/2");
  EXPECT_EQ(form(), "");
  host.desk().enter(control);
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtTableau 1");
}

TEST_F(Focus, AScriptThatSavesAfterTheControlWasLeftSavesTheEntry) {
  open();
  enter_text("txtRL", 2, "77");
  host.desk().leave(control);
  ASSERT_TRUE(control.SchrijfTableau("les.tbl"));
  EXPECT_NE(host.memory_files.contents["les.tbl"].find("77"), std::string::npos);
}

TEST_F(Focus, AnEntryStoredByLeavingTheControlRebuildsTheGraph) {
  open(two_products);
  choose("mnu_Grafiek");
  const auto drawing = [&] {
    return static_cast<const platform::PictureBox&>(*control.find("PictureLN")).drawing();
  };
  const auto before = drawing();
  enter_text("txtRL", 1, "2");
  host.desk().leave(control);
  EXPECT_NE(drawing(), before);
}

TEST_F(Focus, BadInputStaysWhenTheControlIsLeftAndIsRefusedEachTimeThePupilComesBack) {
  open();
  enter_text("txtTableau", 1, "1/");
  for (int round = 0; round < 2; ++round) {
    host.desk().leave(control);
    EXPECT_EQ(text("txtTableau", 1), "1/");
    EXPECT_EQ(model.current.row(1).text(1), " 0");
    EXPECT_EQ(form(), "");
    host.desk().enter(control);
    EXPECT_EQ(text("lblMelding"), "Invoerfout!");
    press("Enter");
    EXPECT_EQ(form(), "");
    EXPECT_EQ(focus(), "txtTableau 1");
  }
  press("Escape");
  host.desk().leave(control);
  host.desk().enter(control);
  EXPECT_EQ(form(), "");
}

TEST_F(Focus, BadInputThatAScriptReplacesMeanwhileIsNotAskedAbout) {
  open();
  enter_text("txtTableau", 1, "1/");
  host.desk().leave(control);
  set("prmKleinerGelijkVglen", std::string(" 1, 2, 3, 4"));
  host.desk().enter(control);
  EXPECT_EQ(form(), "");
  EXPECT_EQ(text("txtTableau", 1), " 1");
}

TEST_F(Focus, BadInputIsNotAskedAboutOverAFormOfAScript) {
  open();
  enter_text("txtTableau", 1, "1/");
  host.desk().leave(control);
  host.desk().call(control, control.ShowAboutBox());
  host.desk().enter(control);
  EXPECT_EQ(form(), "frmAboutLP");
}

TEST_F(Focus, HiddenBoxesAreNotSeen) {
  open();
  for (const char* name : {"txtFocus", "txtTab", "txtShiftTab"}) EXPECT_FALSE(shown(name)) << name;
}

TEST_F(Focus, TheTrapsRememberNothingOnceTheyHaveSentTheFocusOn) {
  open();
  click("txtTableau", 2);
  press("Tab");
  EXPECT_EQ(focus(), "txtRL 1");
  host.desk().focus(*control.find("txtTab"));
  host.desk().focus(*control.find("txtShiftTab"));
  EXPECT_EQ(form(), "");
  EXPECT_EQ(model.StartKolom, 1);
}

TEST_F(Focus, AHiddenCellDoesNotTakeIt) {
  open();
  host.desk().focus(*control.find("txtTableau", 35));
  EXPECT_EQ(focus(), "txtFocus");
}

}  // namespace
}  // namespace tabulon
