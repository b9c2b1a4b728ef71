#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class LifeCycle : public ControlTest {};

TEST_F(LifeCycle, InitializeLaysOutATableauOfTheStartUpDefaults) {
  ASSERT_TRUE(control.UserControl_Initialize());
  EXPECT_EQ(model.NrTableau, 1);
  EXPECT_EQ(model.columns(), 4);
  EXPECT_EQ(model.current.basis(1), 3);
  EXPECT_EQ(model.current.basis(2), 4);
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(LifeCycle, InitializePutsBackTheViewAndTheDecimals) {
  open(every_kind);
  choose("mnu_Breuken");
  scroll("HScroll", 6);
  choose("mnu_Tableau_Invullen_Afsluiten");
  ASSERT_TRUE(control.UserControl_Initialize());
  EXPECT_EQ(model.StartKolom, 1);
  EXPECT_EQ(model.StartRij, 1);
  EXPECT_FALSE(model.Breuken);
  EXPECT_FALSE(checked("mnu_Breuken"));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(LifeCycle, InitializeDrawsNothing) {
  open(two_products);
  ASSERT_TRUE(control.UserControl_Initialize());
  EXPECT_EQ(cell(3, 1), " 3");
  EXPECT_EQ(text("txtRL", 3), " 18");
}

TEST_F(LifeCycle, InitializeCountsTheDerivedVariables) {
  model.NrKleinerGelijkVglen = 3;
  model.NrGroterGelijkVglen = 2;
  model.NrGelijkVglen = 1;
  ASSERT_TRUE(control.UserControl_Initialize());
  EXPECT_EQ(model.NrSpelingsVar, 3);
  EXPECT_EQ(model.NrSurplusVar, 2);
  EXPECT_EQ(model.NrKunstmatigeVar, 3);
}

TEST_F(LifeCycle, InitializeRefusesCountsBeyondTheStorage) {
  model.NrKleinerGelijkVglen = 11;
  const auto built = control.UserControl_Initialize();
  ASSERT_FALSE(built);
  EXPECT_EQ(built.error().number, ErrorNumber::SubscriptOutOfRange);
}

TEST_F(LifeCycle, ShowGivesTheFocusOnlyTheFirstTime) {
  open();
  EXPECT_EQ(focus(), "txtFocus");
  click("txtTableau", 1);
  host.desk().call(control, control.UserControl_Show());
  EXPECT_EQ(focus(), "txtTableau 1");
}

TEST_F(LifeCycle, ShowGoesBackToTheFirstColumnAndRowAndToDecimals) {
  open(numbered(8, 9));
  choose("mnu_Breuken");
  scroll("HScroll", 3);
  scroll("VScroll", 2);
  host.desk().call(control, control.UserControl_Show());
  EXPECT_EQ(text("lblKLM", 1), " 1");
  EXPECT_EQ(text("lblRij", 1), " 1  ");
  EXPECT_EQ(bar("HScroll").value(), 1);
  EXPECT_EQ(bar("VScroll").value(), 1);
  EXPECT_FALSE(model.Breuken);
  EXPECT_FALSE(checked("mnu_Breuken"));
}

TEST_F(LifeCycle, ShowLaysOutNothing) {
  open(two_products);
  host.desk().call(control, control.UserControl_Show());
  EXPECT_EQ(cell(3, 2), " 2");
  EXPECT_EQ(text("txtRL", 2), " 12");
}

TEST_F(LifeCycle, ShowingItAgainTakesTheFocusFromAButtonOfTheGraphThatIsHidden) {
  open(two_products);
  choose("mnu_Grafiek");
  for (const char* way : {"Reset", "Kopieren", "Sluiten"}) {
    host.desk().focus(*control.find("cmd" + std::string(way)));
    host.desk().call(control, control.UserControl_Show());
    EXPECT_EQ(focus(), "txtFocus") << way;
    choose("mnu_Grafiek");
  }
}

TEST_F(LifeCycle, ALoadedProblemWithThreeVariablesHasNoGraphToOpenByEnter) {
  open(two_products);
  choose("mnu_Grafiek");
  host.desk().focus(*control.find("cmdReset"));
  open({{"prmNrBeslisVar", "3"}});
  for (const char* key : {"Enter", "Space"}) press(key);
  EXPECT_FALSE(shown("frmGrafiek"));
  EXPECT_EQ(focus(), "txtFocus");
}

// A host that is late may still report a click on what was there.
TEST_F(LifeCycle, AClickOnAHiddenButtonDoesNothing) {
  open({{"prmNrBeslisVar", "3"}});
  click("cmdReset");
  EXPECT_FALSE(shown("frmGrafiek"));
}

TEST_F(LifeCycle, ShowReportsCountsBeyondTheStorage) {
  open();
  model.NrBeslisVar = 31;
  host.desk().call(control, control.UserControl_Show());
  ASSERT_FALSE(host.reports.empty());
  EXPECT_EQ(host.reports.front().error.number, ErrorNumber::SubscriptOutOfRange);
}

TEST_F(LifeCycle, TheSizeIsFixed) {
  EXPECT_EQ(control.width(), 9000);
  EXPECT_EQ(control.height(), 4440);
}

TEST_F(LifeCycle, TerminateLeavesTheModelToTheOthers) {
  open(two_products);
  control.UserControl_Terminate();
  EXPECT_EQ(model.NrKleinerGelijkVglen, 3);
  EXPECT_EQ(model.current.row(3).text(1), " 3");
}

TEST_F(LifeCycle, AControlThatGetsNoFocusFromItsHostIsShownAllTheSame) {
  host.grants_focus = false;
  open(two_products);
  EXPECT_EQ(cell(3, 1), " 3");
  EXPECT_EQ(focus(), "txtFocus");
}

// ---- Scrolling

class Scrolling : public ControlTest {};

TEST_F(Scrolling, SmallTableausNeedNoBars) {
  open();
  EXPECT_FALSE(shown("HScroll"));
  EXPECT_FALSE(shown("VScroll"));
  EXPECT_EQ(bar("HScroll").min(), 1);
  EXPECT_EQ(bar("HScroll").max(), 0);
  EXPECT_EQ(bar("HScroll").value(), 1);
  EXPECT_EQ(bar("VScroll").max(), -4);
  EXPECT_EQ(bar("VScroll").value(), 1);
  EXPECT_EQ(model.StartKolom, 1);
  EXPECT_EQ(model.StartRij, 1);
}

TEST_F(Scrolling, TheLastPlaceStillFillsTheGrid) {
  open(numbered(8, 10));
  EXPECT_EQ(bar("HScroll").max(), 14);
  EXPECT_EQ(bar("VScroll").max(), 4);
  scroll("HScroll", 14);
  scroll("VScroll", 4);
  EXPECT_EQ(text("lblKLM", 5), " 18");
  EXPECT_EQ(text("lblRij", 1), " 4  ");
  EXPECT_EQ(text("lblRij", 7), " 10  ");
  EXPECT_EQ(text("txtRL", 7), " 10000");
}

TEST_F(Scrolling, TheGridFollowsTheBars) {
  open(numbered(8, 9));
  scroll("HScroll", 3);
  EXPECT_EQ(model.StartKolom, 3);
  EXPECT_EQ(cell(1, 1), " 103");
  EXPECT_EQ(text("txtRij_F", 1), " 3");
  scroll("VScroll", 2);
  EXPECT_EQ(model.StartRij, 2);
  EXPECT_EQ(cell(1, 1), " 203");
  EXPECT_EQ(text("txtRL", 1), " 2000");
}

TEST_F(Scrolling, AValueBeyondTheEndStopsThere) {
  open(numbered(8, 9));
  scroll("VScroll", 99);
  EXPECT_EQ(model.StartRij, 3);
  scroll("VScroll", -5);
  EXPECT_EQ(model.StartRij, 1);
}

TEST_F(Scrolling, DraggingDrawsAtEachStepAndLetsTheScreenFollow) {
  open(numbered(8, 9));
  ASSERT_TRUE(scroll("HScroll", 2, true));
  EXPECT_EQ(cell(1, 1), " 102");
  EXPECT_TRUE(host.has_pending());
  EXPECT_FALSE(scroll("HScroll", 4, true));  // until the screen has followed
  EXPECT_EQ(cell(1, 1), " 102");
  host.answer_all();
  EXPECT_TRUE(scroll("HScroll", 4, true));
  EXPECT_EQ(cell(1, 1), " 104");
  host.answer_all();
}

TEST_F(Scrolling, ABarDoesNotKeepTheFocus) {
  open(numbered(8, 9));
  click("txtTableau", 3);
  scroll("HScroll", 2);
  EXPECT_EQ(focus(), "txtFocus");
  host.desk().focus(*control.find("VScroll"));
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Scrolling, ACellIsStoredWhereItWasTypedBeforeTheGridMoves) {
  open(numbered(8, 9));
  enter_text("txtTableau", box(1, 5), "7");
  scroll("HScroll", 4);
  EXPECT_EQ(model.current.row(1).value(5), 7);
  EXPECT_EQ(model.current.row(1).value(8), 108);
  EXPECT_EQ(cell(1, 2), "7");
}

TEST_F(Scrolling, BadInputKeepsTheGridWhereItIs) {
  open(numbered(8, 9));
  enter_text("txtTableau", 1, "1/");
  scroll("HScroll", 4);
  EXPECT_EQ(form(), "frmMelding");
  press("Enter");
  EXPECT_EQ(model.StartKolom, 1);
  EXPECT_EQ(bar("HScroll").value(), 1);
  EXPECT_EQ(text("txtTableau", 1), "1/");
  EXPECT_EQ(focus(), "txtTableau 1");
}

TEST_F(Scrolling, AHiddenBarCannotBeMoved) {
  open();
  scroll("HScroll", 0);
  EXPECT_EQ(model.StartKolom, 1);
}

// ---- One model, two controls

class TwoControls : public ControlTest {
 protected:
  TestedControl other{host.desk(), model};
  Person neighbour{host, other};
};

TEST_F(TwoControls, TheSecondShowsTheProblemOfThePageThatCameLast) {
  open(two_products);
  ASSERT_TRUE(open_control(host, other, every_kind));
  EXPECT_EQ(neighbour.text("lblKolom", 5), "s  1");
  EXPECT_EQ(model.columns(), 10);
}

TEST_F(TwoControls, WhatOneOptimisesTheOtherShowsWhenItDrawsAgain) {
  open(two_products);
  host.desk().call(other, other.UserControl_Show());
  choose("mnu_optimaliseren");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), " 36");
  EXPECT_EQ(neighbour.text("lblFRL"), " 0");
  host.desk().call(other, other.UserControl_Show());
  EXPECT_EQ(neighbour.text("lblFRL"), " 36");
  EXPECT_EQ(neighbour.text("lblNRTableau"), "3-e Simplex-tableau");
}

TEST_F(TwoControls, TheViewIsSharedToo) {
  open(numbered(8, 9));
  host.desk().call(other, other.UserControl_Show());
  scroll("HScroll", 3);
  neighbour.choose("mnu_Breuken");
  EXPECT_EQ(neighbour.text("lblKLM", 1), " 3");
}

TEST_F(TwoControls, EachHasItsOwnFillInModeAndCheckMarks) {
  open(two_products);
  host.desk().call(other, other.UserControl_Show());
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_TRUE(locked("txtTableau", 1));
  EXPECT_FALSE(neighbour.locked("txtTableau", 1));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_FALSE(neighbour.checked("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(TwoControls, ALockedCellNeverWritesItsOldTextOverWhatTheOtherComputed) {
  open(two_products);
  host.desk().call(other, other.UserControl_Show());
  neighbour.click("txtTableau", box(3, 3));  // the slack of row 1 in row 3, drawn before
  choose("mnu_optimaliseren");
  press("Enter");
  const double computed = model.current.row(3).value(4);
  neighbour.click("txtTableau", box(3, 4));
  neighbour.press("Escape");
  neighbour.click("txtTableau", box(3, 4));
  neighbour.press("Tab");
  EXPECT_EQ(model.current.row(3).value(4), computed);
  EXPECT_NE(computed, 0);
}

TEST_F(TwoControls, AMessageOfOneHoldsTheOtherTo) {
  open(two_products);
  host.desk().call(other, other.UserControl_Show());
  choose("mnu_optimaliseren");
  ASSERT_EQ(form(), "frmMelding");
  EXPECT_FALSE(host.desk().click(*other.find("cmd_Bestand")));
  EXPECT_FALSE(host.desk().focus(*other.find("txtTableau", 1)));
  press("Enter");
  EXPECT_TRUE(host.desk().focus(*other.find("txtTableau", 1)));
}

}  // namespace
}  // namespace tabulon
