// The dialogs that ask or tell something, as the person meets them.
#include <array>

#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Dialogs : public ControlTest {
 protected:
  // "10 .. 2", the largest number at the top.
  std::string ends(std::string_view name) const {
    return std::to_string(bar(name).min()) + " .. " + std::to_string(bar(name).max());
  }
};

// ---- Normalising a column

class NormaliseDialog : public Dialogs {
 protected:
  void SetUp() override {
    open(two_products);
    choose("mnu_Kolommen_Normeren");
  }
};

TEST_F(NormaliseDialog, SaysWhatItAsks) {
  EXPECT_EQ(form(), "frmKolommen_normeren");
  EXPECT_EQ(form_caption(), " Kolom normeren");
  EXPECT_EQ(text("lblKolom"), "Kolom :");
  EXPECT_EQ(text("lblNormeren"), "normeren");
  EXPECT_EQ(text("OKButton"), "OK");
  EXPECT_EQ(text("CancelButton"), "&Annuleren");
  EXPECT_EQ(text("txtKolom"), "1");
  EXPECT_TRUE(locked("txtKolom"));
  EXPECT_FALSE(model.DialoogOK);
}

TEST_F(NormaliseDialog, TheUpArrowRaisesTheColumnUpToTheLast) {
  EXPECT_EQ(ends("VScrollKolom"), "5 .. 1");
  EXPECT_EQ(bar("VScrollKolom").value(), 1);
  EXPECT_TRUE(enabled("VScrollKolom"));
  press("Up");
  EXPECT_EQ(text("txtKolom"), "2");
  for (int time = 1; time <= 9; ++time) press("Up");
  EXPECT_EQ(text("txtKolom"), "5");
  press("Down");
  EXPECT_EQ(text("txtKolom"), "4");
  press("End");
  EXPECT_EQ(text("txtKolom"), "1");
  press("Down");
  EXPECT_EQ(text("txtKolom"), "1");
}

TEST_F(NormaliseDialog, TheBarPassesTheFocusOn) {
  EXPECT_EQ(focus(), "txtFocus");
  scroll("VScrollKolom", 3);
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(text("txtKolom"), "3");
}

TEST_F(NormaliseDialog, TypingIsSwallowed) {
  type("3");
  EXPECT_EQ(text("txtFocus"), "");
  enter_text("txtKolom", 0, "3");
  EXPECT_EQ(text("txtKolom"), "1");
}

TEST_F(NormaliseDialog, OkDividesEachRowByItsEntry) {
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(model.NormeerKolom, 1);
  EXPECT_EQ(cell(1, 1), " 1");
  EXPECT_EQ(cell(2, 1), " 0");
  EXPECT_EQ(cell(2, 2), " 2");
  EXPECT_EQ(text("txtRL", 2), " 12");
  EXPECT_EQ(cell(3, 1), " 1");
  EXPECT_EQ(cell(3, 2), " 0.666667");
  EXPECT_EQ(text("txtRL", 3), " 6");
  EXPECT_EQ(text("txtRij_F", 1), "-3");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(NormaliseDialog, AnotherColumnIsNormalisedWhenItIsChosen) {
  scroll("VScrollKolom", 2);
  click("OKButton");
  EXPECT_EQ(cell(2, 2), " 1");
  EXPECT_EQ(text("txtRL", 2), " 6");
  EXPECT_EQ(text("txtRL", 3), " 9");
  EXPECT_EQ(text("txtRL", 1), " 4");
}

class Cancelled : public Dialogs, public testing::WithParamInterface<const char*> {};

TEST_P(Cancelled, NothingChanges) {
  for (const char* way : {"key", "button", "letter"}) {
    open(two_products);
    choose(GetParam());
    press("Up");
    if (way == std::string("key")) press("Escape");
    if (way == std::string("button")) click("CancelButton");
    if (way == std::string("letter")) press("Alt+A");
    EXPECT_EQ(form(), "") << way;
    EXPECT_FALSE(model.DialoogOK) << way;
    EXPECT_EQ(model.NrTableau, 1) << way;
    EXPECT_EQ(model.NrBeslisVar, 2) << way;
    EXPECT_EQ(model.NrKleinerGelijkVglen, 3) << way;
    EXPECT_EQ(cell(3, 1), " 3") << way;
    EXPECT_EQ(text("txtRL", 3), " 18") << way;
    EXPECT_TRUE(checked("mnu_Tableau_Invullen")) << way;
    EXPECT_TRUE(enabled("mnu_Tableau_Invullen")) << way;
    EXPECT_FALSE(locked("txtTableau", 1)) << way;
    EXPECT_EQ(focus(), "txtFocus") << way;
  }
}

INSTANTIATE_TEST_SUITE_P(All, Cancelled,
                         testing::Values("mnu_Kolommen_Normeren", "mnu_Kolommen_vegen", "mnu_Nieuw_Simplex",
                                         "mnu_Nieuw_Big_M"));

// ---- Sweeping a column with a row

class SweepDialog : public Dialogs {
 protected:
  void SetUp() override {
    open(two_products);
    choose("mnu_Kolommen_vegen");
  }
};

TEST_F(SweepDialog, SaysWhatItAsks) {
  EXPECT_EQ(form(), "frmKolommen_vegen");
  EXPECT_EQ(form_caption(), " Kolom vegen met een rij");
  EXPECT_EQ(text("lblKolom"), "Kolom :");
  EXPECT_EQ(text("lblRij"), "vegen met rij :");
  EXPECT_EQ(text("OKButton"), "OK");
  EXPECT_EQ(text("CancelButton"), "&Annuleren");
  EXPECT_EQ(text("txtKolom"), "1");
  EXPECT_EQ(text("txtRij"), "1");
  EXPECT_EQ(ends("VScrollKolom"), "5 .. 1");
  EXPECT_EQ(ends("VScrollRij"), "3 .. 1");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(SweepDialog, OkSweepsTheColumnWithTheRow) {
  scroll("VScrollKolom", 2);
  scroll("VScrollRij", 2);
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
  EXPECT_EQ(text("lblBasis", 2), "x  2");
  EXPECT_EQ(text("lblFRL"), " 30");
  EXPECT_EQ(cell(3, 2), " 0");
  EXPECT_EQ(cell(2, 2), " 1");
  EXPECT_EQ(text("txtRL", 3), " 6");
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_FALSE(model.DialoogOK);
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(SweepDialog, APivotOfZeroOnlyCounts) {
  scroll("VScrollRij", 2);
  press("Enter");
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
  EXPECT_EQ(text("lblBasis", 2), "x  4");
  EXPECT_EQ(cell(2, 1), " 0");
  EXPECT_EQ(text("txtRL", 2), " 12");
  EXPECT_TRUE(locked("txtTableau", 1));
}

TEST_F(SweepDialog, TabGoesThroughTheBarsAndButtonsInARing) {
  press("Up");
  EXPECT_EQ(text("txtKolom"), "2");
  press("Tab");
  press("Up");
  EXPECT_EQ(text("txtKolom"), "2");
  EXPECT_EQ(text("txtRij"), "2");
  press("Tab");
  EXPECT_EQ(focus(), "OKButton");
  press("Tab");
  EXPECT_EQ(focus(), "CancelButton");
  press("Tab");
  press("Up");
  EXPECT_EQ(text("txtKolom"), "3");
  press("Shift+Tab");
  EXPECT_EQ(focus(), "CancelButton");
}

TEST_F(SweepDialog, TheNumberThatTheKeysTurnIsMarked) {
  const auto role = [this](std::string_view name) { return host.top_form()->find(name)->role(); };
  EXPECT_EQ(role("txtKolom"), platform::Role::CurrentNumber);
  EXPECT_EQ(role("txtRij"), platform::Role::Number);
  press("Tab");
  EXPECT_EQ(role("txtKolom"), platform::Role::Number);
  EXPECT_EQ(role("txtRij"), platform::Role::CurrentNumber);
}

TEST_F(SweepDialog, OkIsTheDefaultButtonWhileEnterPressesIt) {
  EXPECT_EQ(host.top_form()->find("OKButton")->role(), platform::Role::Default);
  press("Tab");
  press("Tab");
  ASSERT_EQ(focus(), "OKButton");
  EXPECT_EQ(host.top_form()->find("OKButton")->role(), platform::Role::Default);
  press("Tab");
  ASSERT_EQ(focus(), "CancelButton");
  EXPECT_EQ(host.top_form()->find("OKButton")->role(), platform::Role::None);
}

TEST_F(SweepDialog, EachTimeItStartsAtOne) {
  press("Up");
  press("Escape");
  choose("mnu_Kolommen_vegen");
  EXPECT_EQ(text("txtKolom"), "1");
}

TEST_F(SweepDialog, WithFractionsATypedTextIsReplacedByTheNewValue) {
  press("Escape");
  enter_text("txtTableau", 1, ".5");
  press("Tab");
  choose("mnu_Breuken");
  choose("mnu_Kolommen_vegen");
  press("Enter");
  EXPECT_EQ(cell(1, 3), " 2");
  EXPECT_EQ(text("txtRL", 1), " 8");
  EXPECT_EQ(cell(3, 3), "-6");
}

// ---- The pivot element

TEST_F(Dialogs, ThePivotFormTellsColumnAndRow) {
  open(two_products);
  choose("mnu_Pivot_element");
  EXPECT_EQ(form(), "frmPivot_element");
  EXPECT_EQ(form_caption(), " Pivot-element");
  EXPECT_EQ(text("lblKolom"), "Pivot-kolom...:");
  EXPECT_EQ(text("lblPivot_kolom"), "2");
  EXPECT_EQ(text("lblRij"), "Pivot-rij..........:");
  EXPECT_EQ(text("lblPivot_rij"), "2");
  EXPECT_EQ(focus(), "txtFocus");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Dialogs, AskingForThePivotElementAgainGivesTheSame) {
  open(two_products);
  for (int time = 1; time <= 2; ++time) {
    choose("mnu_Pivot_element");
    EXPECT_EQ(text("lblPivot_kolom"), "2");
    EXPECT_EQ(text("lblPivot_rij"), "2");
    press("Enter");
    EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  }
}

TEST_F(Dialogs, ThePivotElementIsScrolledIntoView) {
  Parameters page{{"prmNrBeslisVar", "7"},
                  {"prmNrKleinerGelijkVglen", "9"},
                  {"prmSTR_DLfunctie", " 0, -1, 0, 0, 0, 0, 0"}};
  std::string rows;
  for (int row = 1; row <= 9; ++row) rows += row == 1 ? " 0, 1, 0, 0, 0, 0, 0" : ", 0, 1, 0, 0, 0, 0, 0";
  page["prmSTR_KleinerGelijkVglen"] = rows;
  page["prmSTR_RL"] = " 9, 9, 9, 9, 9, 9, 9, 9, 5";
  open(page);
  scroll("HScroll", 6);
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(model.StartRij, 3);
  EXPECT_EQ(model.StartKolom, 2);
  EXPECT_EQ(bar("VScroll").value(), 3);
  EXPECT_EQ(bar("HScroll").value(), 2);
  EXPECT_EQ(colour("txtTableau", box(7, 1)), "255, 0, 0");
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(model.StartRij, 3);
  EXPECT_EQ(model.StartKolom, 2);
}

TEST_F(Dialogs, AScriptMayShowThePivotForm) {
  open();
  model.PivotKolom = 12;
  model.PivotRij = 10;
  host.desk().call(control, control.ShowfrmPivotelement());
  EXPECT_EQ(text("lblPivot_kolom"), "12");
  EXPECT_EQ(text("lblPivot_rij"), "10");
}

// ---- The basic solution

TEST_F(Dialogs, TheBasicSolutionListsTheBasicVariables) {
  open(two_products);
  choose("mnu_Basisoplossing");
  EXPECT_EQ(form(), "frmBasis_Oplossing");
  EXPECT_EQ(form_caption(), " Basis oplossing");
  const std::array<const char*, 3> names{"x  3", "x  4", "x  5"}, values{" 4", " 12", " 18"};
  for (int line = 1; line <= 10; ++line) {
    EXPECT_EQ(shown("lblBasisVar", line), line <= 3) << line;
    EXPECT_EQ(shown("lblGelijk", line), line <= 3) << line;
    EXPECT_EQ(shown("txtRL", line), line <= 3) << line;
    if (line > 3) continue;
    EXPECT_EQ(text("lblBasisVar", line), names[static_cast<std::size_t>(line - 1)]);
    EXPECT_EQ(text("lblGelijk", line), "=");
    EXPECT_EQ(text("txtRL", line), values[static_cast<std::size_t>(line - 1)]);
    EXPECT_EQ(colour("lblBasisVar", line), "218, 220, 254");
    EXPECT_EQ(colour("txtRL", line), "218, 220, 254");
    EXPECT_EQ(tip("lblBasisVar", line), " Spelingsvariabele bij <= restricties ");
  }
  EXPECT_EQ(text("lblDoelfunctie"), "Doelfunctie F =");
  EXPECT_EQ(text("lblFRL"), " 0");
  EXPECT_EQ(tip("lblFRL"), " Waarde van de doelfunctie F");
  EXPECT_EQ(focus(), "txtFocus");
  press("Enter");
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
}

TEST_F(Dialogs, TheBasicSolutionHasTheStyleOfEachKind) {
  open(every_kind);
  choose("mnu_Basisoplossing");
  EXPECT_EQ(text("lblBasisVar", 3), "q  1");
  EXPECT_EQ(colour("lblBasisVar", 3), "128, 255, 128");
  EXPECT_EQ(tip("lblBasisVar", 3), " Kunstmatige variabele bij >= restricties ");
  EXPECT_EQ(text("lblBasisVar", 5), "r  1");
  EXPECT_EQ(colour("lblBasisVar", 5), "255, 192, 192");
  EXPECT_EQ(tip("lblBasisVar", 5), " Kunstmatige variabele bij = restricties");
  press("Enter");
  model.current.set_basis(1, 5);
  model.current.set_basis(2, 1);
  model.current.row(1).write(5, 1.0);
  model.current.row(2).write(1, 1.0);
  choose("mnu_Basisoplossing");
  EXPECT_EQ(text("lblBasisVar", 1), "s  1");
  EXPECT_EQ(colour("lblBasisVar", 1), "192, 255, 192");
  EXPECT_EQ(tip("lblBasisVar", 1), " Surplusvariabele bij >= restricties ");
  EXPECT_EQ(text("lblBasisVar", 2), "x  1");
  EXPECT_EQ(colour("lblBasisVar", 2), "window");
  EXPECT_EQ(tip("lblBasisVar", 2), " Beslissingsvariabele ");
}

TEST_F(Dialogs, ARowWithoutABasicVariableKeepsTheDesignsName) {
  open(two_products);
  model.current.set_basis(2, 0);
  choose("mnu_Basisoplossing");
  EXPECT_EQ(text("lblBasisVar", 2), "basisvar");
  EXPECT_EQ(text("txtRL", 2), " 12");
}

TEST_F(Dialogs, TheBasicSolutionIsThatOfTheCanonicalForm) {
  open(two_products);
  choose("mnu_optimaliseren");
  press("Enter");
  choose("mnu_Basisoplossing");
  EXPECT_EQ(text("lblFRL"), " 36");
  EXPECT_EQ(text("lblBasisVar", 2), "x  2");
  EXPECT_EQ(text("txtRL", 2), " 6");
  EXPECT_EQ(text("lblBasisVar", 3), "x  1");
  EXPECT_EQ(text("txtRL", 3), " 2");
}

TEST_F(Dialogs, TheBasicSolutionOfTenRowsIsShownWhole) {
  open(numbered(2, 10));
  choose("mnu_Basisoplossing");
  EXPECT_TRUE(shown("txtRL", 10));
  EXPECT_EQ(text("txtRL", 10), " 10000");
  EXPECT_TRUE(shown("OKButton"));
}

TEST_F(Dialogs, TheBasicSolutionCanBeReadButNotTypedIn) {
  open(two_products);
  choose("mnu_Basisoplossing");
  enter_text("txtRL", 1, "5");
  EXPECT_EQ(text("txtRL", 1), " 4");
}

// ---- A new standard problem

class NewSimplex : public Dialogs {
 protected:
  void SetUp() override {
    open(two_products);
    model.BigM = 70;
    choose("mnu_Nieuw_Simplex");
  }
};

TEST_F(NewSimplex, SaysWhatItAsks) {
  EXPECT_EQ(form(), "frmNieuw_Simplex");
  EXPECT_EQ(form_caption(), " Simplex-tableau initialiseren");
  EXPECT_EQ(text("lblMethode"), "De Standaard Simplex-methode");
  EXPECT_EQ(text("lblBeslisVar"), "Aantal beslissingsvariabelen :");
  EXPECT_EQ(text("lblKleinerGelijk", 1), "Aantal");
  EXPECT_EQ(text("lblKleinerGelijk", 2), "<=");
  EXPECT_EQ(text("lblKleinerGelijk", 3), "restricties :");
  EXPECT_EQ(text("lblSlackVar"), "Aantal spelingsvariabelen :");
  EXPECT_EQ(text("OKButton"), "OK");
  EXPECT_EQ(text("CancelButton"), "&Annuleren");
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_FALSE(model.DialoogOK);
}

TEST_F(NewSimplex, StartsFromTheProblemOnScreen) {
  EXPECT_EQ(text("lblNrBeslisVarM"), "2");
  EXPECT_EQ(text("lblNrKleinerGelijkVglenM"), "3");
  EXPECT_EQ(text("lblNrSlackVar"), "3");
  EXPECT_EQ(ends("VScroll_NrBeslisVarM"), "10 .. 2");
  EXPECT_EQ(ends("VScroll_NrKleinerGelijkVglenM"), "10 .. 2");
}

TEST_F(NewSimplex, TheLabelsFollowTheBars) {
  scroll("VScroll_NrKleinerGelijkVglenM", 7);
  EXPECT_EQ(text("lblNrKleinerGelijkVglenM"), "7");
  EXPECT_EQ(text("lblNrSlackVar"), "7");
  scroll("VScroll_NrBeslisVarM", 99);
  EXPECT_EQ(text("lblNrBeslisVarM"), "10");
  scroll("VScroll_NrBeslisVarM", 0);
  EXPECT_EQ(text("lblNrBeslisVarM"), "2");
  EXPECT_EQ(text("lblNrSlackVar"), "7");
}

TEST_F(NewSimplex, OkStartsAnEmptyProblemToFillIn) {
  scroll("VScroll_NrBeslisVarM", 3);
  scroll("VScroll_NrKleinerGelijkVglenM", 4);
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(model.NrBeslisVar, 3);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 4);
  EXPECT_EQ(model.NrSpelingsVar, 4);
  EXPECT_EQ(model.NrGroterGelijkVglen, 0);
  EXPECT_EQ(model.NrSurplusVar, 0);
  EXPECT_EQ(model.NrKunstmatigeVar, 0);
  EXPECT_EQ(model.BigM, 70);
  EXPECT_EQ(cell(1, 1), " 0");
  EXPECT_EQ(text("txtRL", 4), " 0");
  EXPECT_FALSE(locked("txtTableau", 3));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(NewSimplex, AfterABigMProblemNothingOfItIsLeft) {
  press("Escape");
  open(every_kind);
  choose("mnu_Nieuw_Simplex");
  press("Enter");
  EXPECT_EQ(model.NrGroterGelijkVglen, 0);
  EXPECT_EQ(model.NrGelijkVglen, 0);
  EXPECT_EQ(model.columns(), 4);
  EXPECT_EQ(text("lblKolom", 4), "x  4");
  EXPECT_FALSE(shown("lblKolom", 5));
}

TEST_F(NewSimplex, FewerThanTwoConstraintsStartAsTwo) {
  press("Escape");
  open({{"prmNrKleinerGelijkVglen", "0"}, {"prmNrGelijkVglen", "2"}});
  choose("mnu_Nieuw_Simplex");
  EXPECT_EQ(text("lblNrKleinerGelijkVglenM"), "2");
  EXPECT_EQ(text("lblNrSlackVar"), "2");
  press("Enter");
  EXPECT_EQ(model.NrKleinerGelijkVglen, 2);
}

TEST_F(NewSimplex, AfterTheFirstStepANewProblemCanBeFilledInAgain) {
  press("Escape");
  choose("mnu_optimaliseren");
  press("Enter");
  ASSERT_FALSE(enabled("mnu_Tableau_Invullen"));
  choose("mnu_Nieuw_Simplex");
  press("Enter");
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen"));
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
}

TEST_F(NewSimplex, TheScreenFollowsBeforeItOpens) {
  press("Escape");
  click("cmd_Bestand");
  auto& nieuw = static_cast<platform::Menu&>(*control.find("mnu_Nieuw"));
  host.desk().menu_choose(nieuw);
  host.desk().menu_choose(static_cast<platform::Menu&>(*control.find("mnu_Nieuw_Simplex")));
  EXPECT_EQ(form(), "");
  EXPECT_TRUE(host.has_pending());
  host.answer_all();
  EXPECT_EQ(form(), "frmNieuw_Simplex");
}

// ---- A new Big-M problem

class NewBigM : public Dialogs {
 protected:
  void start(int less, int greater, int equal) {
    open({{"prmNrKleinerGelijkVglen", std::to_string(less)},
          {"prmNrGroterGelijkVglen", std::to_string(greater)},
          {"prmNrGelijkVglen", std::to_string(equal)}});
    choose("mnu_Nieuw_Big_M");
  }
  int total() const {
    return bar("VScroll_NrKleinerGelijkVglenM").value() + bar("VScroll_NrGroterGelijkVglenM").value() +
           bar("VScroll_NrGelijkVglenM").value();
  }
};

TEST_F(NewBigM, SaysWhatItAsks) {
  start(2, 1, 1);
  EXPECT_EQ(form(), "frmNieuw_Big_M");
  EXPECT_EQ(form_caption(), " Simplex-tableau initialiseren");
  EXPECT_EQ(text("lblMethode"), "De \"Big-M\"-methode");
  EXPECT_EQ(text("lblGroterGelijk", 1), "Aantal");
  EXPECT_EQ(text("lblGroterGelijk", 2), ">=");
  EXPECT_EQ(text("lblGroterGelijk", 3), "restricties :");
  EXPECT_EQ(text("lblGelijk"), "Aantal = restricties :");
  EXPECT_EQ(text("lblBigM"), "Big M =");
  EXPECT_EQ(text("lblSlackVar"), "Aantal spelingsvariabelen :");
  EXPECT_EQ(text("lblSurplusVar"), "Aantal surplusvariabelen :");
  EXPECT_EQ(text("lblKunstmatigeVar"), "Aantal kunstmatige variabelen :");
}

TEST_F(NewBigM, StartsFromTheProblemOnScreen) {
  start(2, 1, 3);
  EXPECT_EQ(text("lblNrBeslisVarM"), "2");
  EXPECT_EQ(text("lblNrKleinerGelijkVglenM"), "2");
  EXPECT_EQ(text("lblNrGroterGelijkVglenM"), "1");
  EXPECT_EQ(text("lblNrGelijkVglenM"), "3");
  EXPECT_EQ(text("lblNrBigMM"), "100");
  EXPECT_EQ(text("lblNrSlackVar"), "2");
  EXPECT_EQ(text("lblNrSurplusVar"), "1");
  EXPECT_EQ(text("lblNrKunstmatigeVar"), "4");
  EXPECT_EQ(text("lblNrKunstmatigeVarA"), "4");
  EXPECT_EQ(ends("VScroll_NrBeslisVarM"), "10 .. 2");
  EXPECT_EQ(ends("VScroll_NrBigMM"), "1000 .. 5");
}

TEST_F(NewBigM, EachBarLeavesRoomForTheOthers) {
  start(2, 1, 3);
  EXPECT_EQ(ends("VScroll_NrKleinerGelijkVglenM"), "6 .. 0");
  EXPECT_EQ(ends("VScroll_NrGroterGelijkVglenM"), "5 .. 0");
  EXPECT_EQ(ends("VScroll_NrGelijkVglenM"), "7 .. 0");
}

TEST_F(NewBigM, FourAndFourLeaveTwoEqualities) {
  start(2, 0, 0);
  scroll("VScroll_NrKleinerGelijkVglenM", 4);
  scroll("VScroll_NrGroterGelijkVglenM", 4);
  EXPECT_EQ(ends("VScroll_NrGelijkVglenM"), "2 .. 0");
  scroll("VScroll_NrGelijkVglenM", 10);
  EXPECT_EQ(text("lblNrGelijkVglenM"), "2");
  EXPECT_EQ(ends("VScroll_NrKleinerGelijkVglenM"), "4 .. 0");
}

TEST_F(NewBigM, WithoutOthersAKindKeepsTwo) {
  start(0, 4, 0);
  EXPECT_EQ(ends("VScroll_NrGroterGelijkVglenM"), "10 .. 2");
  scroll("VScroll_NrGroterGelijkVglenM", 0);
  EXPECT_EQ(text("lblNrGroterGelijkVglenM"), "2");
  scroll("VScroll_NrKleinerGelijkVglenM", 1);
  EXPECT_EQ(ends("VScroll_NrGroterGelijkVglenM"), "9 .. 1");
  scroll("VScroll_NrGroterGelijkVglenM", 1);
  EXPECT_EQ(ends("VScroll_NrGelijkVglenM"), "8 .. 0");
  EXPECT_EQ(ends("VScroll_NrKleinerGelijkVglenM"), "9 .. 1");
}

TEST_F(NewBigM, TenOfOneKindLeaveNoOther) {
  start(2, 0, 0);
  scroll("VScroll_NrKleinerGelijkVglenM", 10);
  EXPECT_EQ(ends("VScroll_NrGroterGelijkVglenM"), "0 .. 0");
  EXPECT_EQ(ends("VScroll_NrGelijkVglenM"), "0 .. 0");
  scroll("VScroll_NrGelijkVglenM", 3);
  EXPECT_EQ(text("lblNrGelijkVglenM"), "0");
}

TEST_F(NewBigM, NoTurnOfTheBarsLeavesTwoToTen) {
  start(2, 1, 3);
  const std::array<const char*, 3> bars{"VScroll_NrKleinerGelijkVglenM", "VScroll_NrGroterGelijkVglenM",
                                        "VScroll_NrGelijkVglenM"};
  unsigned state = 1;
  for (int turn = 1; turn <= 2000; ++turn) {
    state = state * 1664525U + 1013904223U;
    scroll(bars[(state >> 8U) % 3], static_cast<int>((state >> 16U) % 12));
    ASSERT_GE(total(), 2);
    ASSERT_LE(total(), 10);
    ASSERT_EQ(text("lblNrSurplusVar"), text("lblNrGroterGelijkVglenM"));
  }
}

TEST_F(NewBigM, CountsThatAreTooManyOrTooFewStartWithinTheBounds) {
  start(2, 1, 3);
  press("Escape");
  set("prmNrKleinerGelijkVglen", 8.0);
  set("prmNrGroterGelijkVglen", 8.0);
  choose("mnu_Nieuw_Big_M");
  EXPECT_LE(total(), 10);
  EXPECT_EQ(text("lblNrKleinerGelijkVglenM"), std::to_string(bar("VScroll_NrKleinerGelijkVglenM").value()));
  press("Escape");
  start(0, 0, 1);
  EXPECT_GE(total(), 2);
}

TEST_F(NewBigM, MGoesInFives) {
  start(2, 1, 1);
  press("Shift+Tab");  // to the buttons
  press("Shift+Tab");
  press("Shift+Tab");  // to the bar of M
  press("Up");
  EXPECT_EQ(text("lblNrBigMM"), "105");
  press("Down");
  press("Down");
  EXPECT_EQ(text("lblNrBigMM"), "95");
  press("Home");
  press("Up");
  EXPECT_EQ(text("lblNrBigMM"), "1000");
  press("End");
  press("Down");
  EXPECT_EQ(text("lblNrBigMM"), "5");
}

TEST_F(NewBigM, MOutsideTheBarStartsAtItsEnd) {
  start(2, 1, 1);
  press("Escape");
  set("prmBigM", -20.0);
  choose("mnu_Nieuw_Big_M");
  EXPECT_EQ(text("lblNrBigMM"), "5");
  press("Escape");
  EXPECT_EQ(model.BigM, -20);
  set("prmBigM", 5000.0);
  choose("mnu_Nieuw_Big_M");
  EXPECT_EQ(text("lblNrBigMM"), "1000");
}

TEST_F(NewBigM, OkStartsTheProblemWithItsM) {
  start(2, 0, 0);
  scroll("VScroll_NrBeslisVarM", 3);
  scroll("VScroll_NrGroterGelijkVglenM", 2);
  scroll("VScroll_NrGelijkVglenM", 1);
  scroll("VScroll_NrKleinerGelijkVglenM", 1);
  scroll("VScroll_NrBigMM", 500);
  click("OKButton");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(model.NrBeslisVar, 3);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 1);
  EXPECT_EQ(model.NrGroterGelijkVglen, 2);
  EXPECT_EQ(model.NrGelijkVglen, 1);
  EXPECT_EQ(model.NrSpelingsVar, 1);
  EXPECT_EQ(model.NrSurplusVar, 2);
  EXPECT_EQ(model.NrKunstmatigeVar, 3);
  EXPECT_EQ(model.BigM, 500);
  EXPECT_EQ(text("lblBasis", 2), "q  1");
  EXPECT_EQ(text("lblBasis", 4), "r  1");
  EXPECT_EQ(bar("HScroll").max(), 5);
  EXPECT_EQ(model.current.row_F().text(7), " 500");
}

TEST_F(NewBigM, TenVariablesAndTenGreaterEqualRowsFillTheStorage) {
  start(2, 0, 0);
  scroll("VScroll_NrBeslisVarM", 10);
  scroll("VScroll_NrGroterGelijkVglenM", 8);
  scroll("VScroll_NrKleinerGelijkVglenM", 0);
  scroll("VScroll_NrGroterGelijkVglenM", 10);
  press("Enter");
  EXPECT_EQ(model.columns(), 30);
  EXPECT_EQ(model.rows(), 10);
  EXPECT_TRUE(host.reports.empty());
}

// ---- Where they open

class FormPlaces : public ControlTest {
 protected:
  // Opens the form over a pivot element in that box of the grid.
  void expect_beside(int grid_row, int grid_column, platform::Task<> (TestedControl::*show)(), bool fits) {
    model.PivotRij = static_cast<std::int16_t>(model.StartRij + grid_row - 1);
    model.PivotKolom = static_cast<std::int16_t>(model.StartKolom + grid_column - 1);
    host.desk().call(control, (control.*show)());
    const platform::Point place = host.top_form()->place();
    const double width = host.top_form()->width(), height = host.top_form()->height() + 32 * 15;
    const platform::Bounds cell = control.find("txtTableau", box(grid_row, grid_column))->bounds();
    EXPECT_TRUE(place.x >= cell.left + cell.width || place.x + width <= cell.left ||
                place.y >= cell.top + cell.height || place.y + height <= cell.top)
        << form() << " over " << grid_row << ", " << grid_column;
    if (fits)
      EXPECT_TRUE(place.x >= 0 && place.y >= 0 && place.x + width <= control.width() &&
                  place.y + height <= control.height())
          << form() << " for " << grid_row << ", " << grid_column;
    press("Enter");
  }
};

TEST_F(FormPlaces, AreBesideThePivotElementWhereverItIs) {
  open(numbered(8, 9));
  scroll("VScroll", 2);
  for (int row = 1; row <= 7; ++row) {
    for (int column = 1; column <= 5; ++column) {
      expect_beside(row, column, &TestedControl::ShowfrmPivotelement, true);
      expect_beside(row, column, &TestedControl::ShowfrmMelding, true);
      expect_beside(row, column, &TestedControl::ShowfrmFoutmelding, false);
      expect_beside(row, column, &TestedControl::ShowAboutBox, false);
    }
  }
}

TEST_F(FormPlaces, AreTheMiddleWhereNoPivotElementIsSeen) {
  open(numbered(8, 9));
  const auto middle_of_form = [&] {
    host.desk().call(control, control.ShowfrmMelding());
    const double middle = host.top_form()->place().x + host.top_form()->width() / 2;
    press("Enter");
    return middle;
  };
  EXPECT_EQ(middle_of_form(), 4500);
  model.PivotRij = 9, model.PivotKolom = 3;  // below what is shown
  EXPECT_EQ(middle_of_form(), 4500);
}

}  // namespace
}  // namespace tabulon
