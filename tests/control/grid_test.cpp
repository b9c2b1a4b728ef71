#include <array>

#include "tests/control/control_fixture.h"

namespace tabulon::tests {
namespace {

class Grid : public ControlTest {
 protected:
  void optimise() {
    choose("mnu_optimaliseren");
    press("Enter");
  }
};

// ---- What stands where

TEST_F(Grid, TheStartUpTableauFillsFourColumnsAndTwoRows) {
  open();
  for (int column = 1; column <= 5; ++column) {
    EXPECT_EQ(shown("lblKolom", column), column <= 4) << column;
    EXPECT_EQ(shown("lblKLM", column), column <= 4) << column;
    EXPECT_EQ(shown("txtRij_F", column), column <= 4) << column;
  }
  for (int row = 1; row <= 7; ++row) {
    EXPECT_EQ(shown("lblRij", row), row <= 2) << row;
    EXPECT_EQ(shown("lblBasis", row), row <= 2) << row;
    EXPECT_EQ(shown("lblRij_F", row), row <= 2) << row;
    EXPECT_EQ(shown("txtRL", row), row <= 2) << row;
    for (int column = 1; column <= 5; ++column)
      EXPECT_EQ(cell_shown(row, column), row <= 2 && column <= 4) << row << ", " << column;
  }
}

TEST_F(Grid, TheStartUpTableauIsTheUnitMatrixBesideZeros) {
  open();
  const std::array<std::array<const char*, 4>, 2> rows{{{" 0", " 0", " 1", " 0"}, {" 0", " 0", " 0", " 1"}}};
  for (int row = 1; row <= 2; ++row)
    for (int column = 1; column <= 4; ++column)
      EXPECT_EQ(cell(row, column),
                rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)]);
  for (int column = 1; column <= 4; ++column) EXPECT_EQ(text("txtRij_F", column), " 0");
  EXPECT_EQ(text("txtRL", 1), " 0");
  EXPECT_EQ(text("lblFRL"), " 0");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
}

TEST_F(Grid, BeforeItIsShownTheHeadingIsThatOfTheFirstTableau) {
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  EXPECT_EQ(text("lblBasis", 1), "x  i");
}

TEST_F(Grid, RowsColumnsAndNamesAreWrittenWithTheirSignPosition) {
  open(every_kind);
  EXPECT_EQ(text("lblRij", 1), " 1  ");
  EXPECT_EQ(text("lblRij", 6), " 6  ");
  EXPECT_EQ(text("lblKLM", 1), " 1");
  EXPECT_EQ(text("lblRij_F", 1), "0");
  EXPECT_EQ(text("lblKolom", 3), "x  3");
}

struct Column {
  const char *name, *heading_colour, *tip, *body_colour, *tip_in_F, *tip_in_cell;
};

// Of the problem with every kind of variable twice.
constexpr std::array<Column, 10> kinds{{
    {"x  1", "224, 224, 224", " Beslissingsvariabele ", "window", " Beslissingsvariabele bij doelfunctie F",
     ""},
    {"x  2", "224, 224, 224", " Beslissingsvariabele ", "window", " Beslissingsvariabele bij doelfunctie F",
     ""},
    {"x  3", "218, 220, 254", " Spelingsvariabele bij <= restricties ", "218, 220, 254",
     " Spelingsvariabele bij doelfunctie F", " Spelingsvariabele bij <= restricties "},
    {"x  4", "218, 220, 254", " Spelingsvariabele bij <= restricties ", "218, 220, 254",
     " Spelingsvariabele bij doelfunctie F", " Spelingsvariabele bij <= restricties "},
    {"s  1", "192, 255, 192", " Surplusvariabele bij >= restricties ", "192, 255, 192",
     " Surplusvariabele bij doelfunctie F", " Surplusvariabele bij >= restricties "},
    {"s  2", "192, 255, 192", " Surplusvariabele bij >= restricties ", "192, 255, 192",
     " Surplusvariabele bij doelfunctie F", " Surplusvariabele bij >= restricties "},
    {"q  1", "128, 255, 128", " Kunstmatige variabele bij >= restricties ", "128, 255, 128",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij >= restricties "},
    {"q  2", "128, 255, 128", " Kunstmatige variabele bij >= restricties ", "128, 255, 128",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij >= restricties "},
    {"r  1", "255, 192, 192", " Kunstmatige variabele bij = restricties", "255, 192, 192",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij = restricties "},
    {"r  2", "255, 192, 192", " Kunstmatige variabele bij = restricties", "255, 192, 192",
     " Kunstmatige variabele bij doelfunctie F", " Kunstmatige variabele bij = restricties "},
}};

struct RowOfKind {
  const char *colour, *tip;
  int basis;
};

constexpr std::array<RowOfKind, 6> rows_of_kinds{{
    {"242, 243, 255", " Beslissingsvariabele bij <= restricties ", 3},
    {"242, 243, 255", " Beslissingsvariabele bij <= restricties ", 4},
    {"233, 251, 230", " Beslissingsvariabele bij >= restricties ", 7},
    {"233, 251, 230", " Beslissingsvariabele bij >= restricties ", 8},
    {"253, 237, 236", " Beslissingsvariabele bij = restricties ", 9},
    {"253, 237, 236", " Beslissingsvariabele bij = restricties ", 10},
}};

class KindOfColumn : public Grid, public testing::WithParamInterface<int> {
 protected:
  const Column& column() const { return kinds[static_cast<std::size_t>(GetParam() - 1)]; }
  // Where the column stands once it is scrolled into the grid.
  int shown_at() {
    const int first = GetParam() <= 5 ? 1 : 6;
    scroll("HScroll", first);
    return GetParam() - first + 1;
  }
};

TEST_P(KindOfColumn, HasItsStyleInEveryCell) {
  open(every_kind);
  const int at = shown_at();
  EXPECT_EQ(text("lblKolom", at), column().name);
  EXPECT_EQ(colour("lblKolom", at), column().heading_colour);
  EXPECT_EQ(tip("lblKolom", at), column().tip);
  EXPECT_EQ(colour("txtRij_F", at), column().body_colour);
  EXPECT_EQ(tip("txtRij_F", at), column().tip_in_F);
  for (int row = 1; row <= 6; ++row) {
    const RowOfKind& of_row = rows_of_kinds[static_cast<std::size_t>(row - 1)];
    const bool decision = GetParam() <= 2;
    EXPECT_EQ(colour("txtTableau", box(row, at)), decision ? of_row.colour : column().body_colour) << row;
    EXPECT_EQ(tip("txtTableau", box(row, at)), decision ? of_row.tip : column().tip_in_cell) << row;
  }
}

TEST_P(KindOfColumn, CanBeTypedInOnlyWhereItIsADecisionVariableInFillInMode) {
  open(every_kind);
  const bool decision = GetParam() <= 2;
  int at = shown_at();
  EXPECT_EQ(locked("txtRij_F", at), !decision);
  for (int row = 1; row <= 6; ++row) EXPECT_EQ(locked("txtTableau", box(row, at)), !decision) << row;
  choose("mnu_Tableau_Invullen_Afsluiten");
  at = shown_at();
  EXPECT_TRUE(locked("txtRij_F", at));
  for (int row = 1; row <= 6; ++row) EXPECT_TRUE(locked("txtTableau", box(row, at))) << row;
}

INSTANTIATE_TEST_SUITE_P(All, KindOfColumn, testing::Range(1, 11));

TEST_F(Grid, EachRowHasTheStyleOfItsBasicVariable) {
  open(every_kind);
  for (int row = 1; row <= 6; ++row) {
    const Column& basic =
        kinds[static_cast<std::size_t>(rows_of_kinds[static_cast<std::size_t>(row - 1)].basis - 1)];
    EXPECT_EQ(text("lblBasis", row), basic.name);
    EXPECT_EQ(colour("lblBasis", row), basic.body_colour);
    EXPECT_EQ(tip("lblBasis", row), basic.tip);
    EXPECT_EQ(colour("txtRL", row), basic.body_colour);
  }
}

TEST_F(Grid, ADecisionVariableInTheBasisHasTheColourOfWindows) {
  open(two_products);
  optimise();
  EXPECT_EQ(text("lblBasis", 2), "x  2");
  EXPECT_EQ(colour("lblBasis", 2), "window");
  EXPECT_EQ(tip("lblBasis", 2), " Beslissingsvariabele ");
  EXPECT_EQ(colour("txtRL", 2), "window");
}

TEST_F(Grid, TheFirstEqualityAfterOneGreaterEqualIsNamedR1) {
  open({{"prmNrKleinerGelijkVglen", "0"}, {"prmNrGroterGelijkVglen", "1"}, {"prmNrGelijkVglen", "1"}});
  EXPECT_EQ(text("lblBasis", 1), "q  1");
  EXPECT_EQ(text("lblBasis", 2), "r  1");
  EXPECT_EQ(text("lblKolom", 5), "r  1");
}

TEST_F(Grid, OneVariableInOneEqualityHasTwoColumns) {
  open({{"prmNrBeslisVar", "1"}, {"prmNrKleinerGelijkVglen", "0"}, {"prmNrGelijkVglen", "1"}});
  EXPECT_EQ(text("lblKolom", 1), "x  1");
  EXPECT_EQ(text("lblKolom", 2), "r  1");
  EXPECT_FALSE(shown("lblKolom", 3));
  EXPECT_EQ(cell(1, 2), " 1");
  EXPECT_EQ(text("txtRij_F", 2), " 100");
}

// ---- Scrolled

TEST_F(Grid, SixColumnsNeedTheBarFiveDoNot) {
  open({{"prmNrBeslisVar", "3"}});
  EXPECT_FALSE(shown("HScroll"));
  EXPECT_TRUE(shown("lblKolom", 5));
  open({{"prmNrBeslisVar", "4"}});
  EXPECT_TRUE(shown("HScroll"));
  scroll("HScroll", 2);
  EXPECT_EQ(text("lblKLM", 1), " 2");
  EXPECT_EQ(text("lblKLM", 5), " 6");
}

TEST_F(Grid, EightRowsNeedTheBarSevenDoNot) {
  open({{"prmNrKleinerGelijkVglen", "7"}});
  EXPECT_FALSE(shown("VScroll"));
  EXPECT_TRUE(shown("txtRL", 7));
  open({{"prmNrKleinerGelijkVglen", "8"}});
  EXPECT_TRUE(shown("VScroll"));
  scroll("VScroll", 2);
  EXPECT_EQ(text("lblRij", 1), " 2  ");
  EXPECT_EQ(text("lblRij", 7), " 8  ");
}

TEST_F(Grid, StyleFollowsTheTableauWhenItIsScrolled) {
  open(every_kind);
  scroll("HScroll", 3);
  EXPECT_EQ(colour("txtTableau", box(1, 1)), "218, 220, 254");
  EXPECT_TRUE(locked("txtTableau", box(1, 1)));
  scroll("HScroll", 1);
  EXPECT_EQ(colour("txtTableau", box(1, 1)), "242, 243, 255");
  EXPECT_FALSE(locked("txtTableau", box(1, 1)));
}

// ---- The pivot element

TEST_F(Grid, ThePivotElementIsMarked) {
  open(two_products);
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(colour("txtTableau", box(2, 2)), "255, 0, 0");
  EXPECT_EQ(tip("txtTableau", box(2, 2)), " Pivotelement ");
  EXPECT_EQ(colour("txtTableau", box(2, 1)), "242, 243, 255");
}

TEST_F(Grid, APivotElementOutsideTheGridIsNotMarked) {
  open(every_kind);
  model.PivotRij = 1;
  model.PivotKolom = 2;
  scroll("HScroll", 3);
  for (int index = 1; index <= 35; ++index) EXPECT_NE(colour("txtTableau", index), "255, 0, 0") << index;
  scroll("HScroll", 2);
  EXPECT_EQ(colour("txtTableau", box(1, 1)), "255, 0, 0");
}

TEST_F(Grid, ThePivotMarkGoesWithTheSweep) {
  open(two_products);
  choose("mnu_Pivot_element");
  press("Enter");
  choose("mnu_Kolommen_vegen");
  press("Enter");
  EXPECT_EQ(colour("txtTableau", box(2, 2)), "242, 243, 255");
  EXPECT_EQ(tip("txtTableau", box(2, 2)), " Beslissingsvariabele bij <= restricties ");
}

// ---- The right-hand sides

TEST_F(Grid, TheRightHandSidesCanBeTypedInInFillInModeOnly) {
  open(two_products);
  EXPECT_FALSE(locked("txtRL", 1));
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_TRUE(locked("txtRL", 1));
}

TEST_F(Grid, ALockedRightHandSideTellsItsFullValue) {
  open(two_products);
  enter_text("txtRL", 1, "1/3");
  press("Tab");
  EXPECT_EQ(tip("txtRL", 1), "");
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_EQ(text("txtRL", 1), "1/3");
  EXPECT_EQ(tip("txtRL", 1), " .333333333333333");
  EXPECT_EQ(tip("txtRL", 3), " 18");
  choose("mnu_Tableau_Invullen");
  EXPECT_EQ(tip("txtRL", 1), "");
}

TEST_F(Grid, TheFullValueFollowsTheRowThatIsShown) {
  open(numbered(2, 9));
  choose("mnu_Tableau_Invullen_Afsluiten");
  scroll("VScroll", 3);
  EXPECT_EQ(tip("txtRL", 1), " 3000");
}

TEST_F(Grid, DrawingTheSameTableauAgainMarksNothing) {
  open(two_products);
  host.forget_mirrored();
  host.desk().call(control, control.UserControl_Show());
  for (const auto& each : host.mirrored())
    ADD_FAILURE() << each.control->name() << " " << each.control->index() << " " << each.properties.bits();
}

// ---- Fractions

class Fractions : public ControlTest {};

TEST_F(Fractions, TheOptionTogglesTheMarkTheTextsAndBack) {
  open(
      {{"prmSTR_DLfunctie", ".5, -.75"}, {"prmSTR_KleinerGelijkVglen", "2.5,0,0,1"}, {"prmSTR_RL", ".1, 7"}});
  choose("mnu_Breuken");
  EXPECT_TRUE(checked("mnu_Breuken"));
  EXPECT_TRUE(model.Breuken);
  EXPECT_EQ(text("txtRij_F", 1), " 1/2");
  EXPECT_EQ(text("txtRij_F", 2), "-3/4");
  EXPECT_EQ(cell(1, 1), " 2+1/2");
  EXPECT_EQ(text("txtRL", 1), " 1/10");
  choose("mnu_Breuken");
  EXPECT_FALSE(checked("mnu_Breuken"));
  EXPECT_EQ(text("txtRij_F", 1), " 0.5");
  EXPECT_EQ(text("txtRL", 1), " 0.1");
}

TEST_F(Fractions, TheFirstTableauKeepsItsTexts) {
  open({{"prmSTR_RL", ".1, 7"}});
  choose("mnu_Breuken");
  EXPECT_EQ(model.first.row(1).text(CellRow::right_hand_side), ".1");
  choose("mnu_Reset");
  EXPECT_EQ(text("txtRL", 1), ".1");
  EXPECT_TRUE(checked("mnu_Breuken"));
}

TEST_F(Fractions, ValuesBecomeTheFractionsThatAreShown) {
  open();
  enter_text("txtRL", 1, "0.3333333333333");
  press("Tab");
  choose("mnu_Breuken");
  EXPECT_EQ(text("txtRL", 1), " 1/3");
  EXPECT_EQ(model.current.row(1).right(), 1.0 / 3.0);
}

TEST_F(Fractions, ASweepWritesFractions) {
  open(two_products);
  choose("mnu_Breuken");
  choose("mnu_optimaliseren");
  press("Enter");
  EXPECT_EQ(text("lblFRL"), " 36");
  EXPECT_EQ(cell(1, 4), " 1/3");
  EXPECT_EQ(cell(1, 5), "-1/3");
}

TEST_F(Fractions, WhatIsNotShownIsRewrittenToo) {
  Parameters page = numbered(8, 9);
  page["prmSTR_RL"] = " 1, 2, 3, 4, 5, 6, 7, 8, .25";
  open(page);
  choose("mnu_Breuken");
  EXPECT_EQ(model.current.row(9).text(CellRow::right_hand_side), " 1/4");
}

TEST_F(Fractions, TheMethodForScriptsGivesTheDisplayTextAndTheNumberShown) {
  double number = 0.1 + 0.2;
  EXPECT_EQ(control.strSoortGetal(0, number), " 0.3");
  EXPECT_EQ(control.strSoortGetal(2, number), "");
  EXPECT_NE(number, 0.3);
  EXPECT_EQ(control.strSoortGetal(-1, number), " 3/10");
  EXPECT_EQ(number, 0.3);
}

}  // namespace
}  // namespace tabulon::tests
