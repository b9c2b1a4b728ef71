// What is odd about the control on purpose, where no test of its subject tells it already.
#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Oddities : public ControlTest {};

// The objective has been read when the rows turn out to stand before the first.
TEST_F(Oddities, APageWhoseRowsCannotBeReadGetsNothingOfWhatWasReadBefore) {
  const auto read = try_open({{"prmNrKleinerGelijkVglen", "-2"},
                              {"prmNrGroterGelijkVglen", "2"},
                              {"prmSTR_DLfunctie", " 7, 8"},
                              {"prmSTR_GroterGelijkVglen", " 9, 9, 9, 9"}});
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().number, ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(text("txtRij_F", 1), " 0");
  EXPECT_EQ(text("lblKolom", 4), "x  4");
  EXPECT_EQ(cell(2, 4), " 1");
}

TEST_F(Oddities, ShowGoesBackToDecimalsAndLeavesTheTextsInFractions) {
  open({{"prmSTR_RL", ".5, 7"}});
  choose("mnu_Breuken");
  host.desk().call(control, control.UserControl_Show());
  EXPECT_FALSE(checked("mnu_Breuken"));
  EXPECT_EQ(text("txtRL", 1), " 1/2");
}

TEST_F(Oddities, BackInDecimalsANumberStaysTheFractionThatItBecame) {
  open();
  enter_text("txtRL", 1, "0.3333333333333");
  press("Tab");
  choose("mnu_Breuken");
  choose("mnu_Breuken");
  EXPECT_EQ(text("txtRL", 1), " 0.333333");
  EXPECT_EQ(model.current.row(1).right(), 1.0 / 3);
}

TEST_F(Oddities, AfterAStepAScriptsShowUnlocksTheCellsAndNotTheMenuItems) {
  open(two_products);
  choose("mnu_optimaliseren");
  press("Enter");
  set("prmShow", true);
  EXPECT_FALSE(locked("txtTableau", 1));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_FALSE(enabled("mnu_Tableau_Invullen"));
  EXPECT_FALSE(enabled("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(Oddities, ANewTableauKeepsTheMarkOfAPivotElementAskedForBefore) {
  open(two_products);
  choose("mnu_Pivot_element");
  press("Enter");
  set("prmShow", true);
  EXPECT_EQ(cell(2, 2), " 0");
  EXPECT_EQ(colour("txtTableau", box(2, 2)), "255, 0, 0");
}

// The bar still ends where the problem before ended.
TEST_F(Oddities, ABarThatCannotFollowTheGridDoesNotMoveItBack) {
  open({{"prmNrBeslisVar", "3"}, {"prmNrKleinerGelijkVglen", "3"}, {"prmSTR_RL", " 4, 12, 18"}});
  set("prmNrBeslisVar", 7.0);
  model.current.row_F().write(7, -1.0);
  for (int row = 1; row <= 3; ++row) model.current.row(row).write(7, 1.0);
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(bar("HScroll").value(), 2);
  EXPECT_EQ(model.StartKolom, 3);
  EXPECT_EQ(colour("txtTableau", box(1, 5)), "255, 0, 0");
}

// ---- Two controls

class OdditiesOfTwo : public Oddities {
 protected:
  void SetUp() override {
    open(two_products);
    host.desk().call(other, other.UserControl_Show());
  }

  TestedControl other{host.desk(), model};
  Person neighbour{host, other};
};

TEST_F(OdditiesOfTwo, ShowTheOneFractionsOptionByTheirMarks) {
  choose("mnu_Breuken");
  EXPECT_TRUE(neighbour.checked("mnu_Breuken"));
  neighbour.choose("mnu_Breuken");
  EXPECT_FALSE(model.Breuken);
  EXPECT_FALSE(checked("mnu_Breuken"));
}

TEST_F(OdditiesOfTwo, OfferTheGraphByTheProblemThatTheyShareWhoeverHasSetIt) {
  set("prmNrBeslisVar", 3.0);
  set("prmShow", true);
  neighbour.click("cmd_Opties");
  EXPECT_FALSE(neighbour.enabled("mnu_Grafiek"));
  neighbour.press("Escape");
  set("prmNrBeslisVar", 2.0);
  set("prmShow", true);
  EXPECT_TRUE(neighbour.choose("mnu_Grafiek"));
  EXPECT_TRUE(neighbour.shown("frmGrafiek"));
}

TEST_F(OdditiesOfTwo, AnOldTextInALockedBoxIsNotChecked) {
  neighbour.click("txtTableau", box(1, 4));  // 0 when it was drawn
  choose("mnu_optimaliseren");
  press("Enter");
  neighbour.click("txtTableau", box(1, 1));
  EXPECT_DOUBLE_EQ(model.current.row(1).value(4), 1.0 / 3);
}

TEST_F(OdditiesOfTwo, AnOldTextInABoxToTypeInIsStoredWhenItIsLeft) {
  neighbour.click("txtTableau", box(3, 2));  // 2 when it was drawn
  choose("mnu_optimaliseren");
  press("Enter");
  ASSERT_EQ(model.current.row(3).value(2), 0);
  neighbour.click("txtTableau", box(1, 1));
  EXPECT_EQ(model.current.row(3).value(2), 2);
}

TEST_F(OdditiesOfTwo, AnOldTextIsNotStoredByPassingThrough) {
  neighbour.click("txtRL", 1);  // 4 when it was drawn
  enter_text("txtRL", 1, "5");
  host.desk().leave(control);
  host.desk().leave(other);
  host.desk().enter(other);
  host.desk().leave(other);
  EXPECT_EQ(model.current.row(1).right(), 5);
}

}  // namespace
}  // namespace tabulon
