// What an observer of the tableau is told.
#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Observed : public ControlTest, protected TableauObserver {
 protected:
  void tableau_changed(const TableauChange& change) override {
    told_ += std::string(words_of(change.cause));
    if (change.row != 0 || change.column != 0)
      told_ += " " + std::to_string(change.row) + "," + std::to_string(change.column);
    told_ += "; ";
  }
  void open_observed(const Parameters& parameters) {
    open(parameters);
    model.observer = this;
  }
  // Since the last time that it was asked for.
  std::string told() { return std::exchange(told_, {}); }
  void answer_all(int enters) {
    for (; enters > 0; --enters) press("Enter");
  }

 private:
  std::string told_;
};

TEST_F(Observed, ACellIsToldWithItsPlace) {
  open_observed(two_products);
  enter_text("txtTableau", box(2, 1), "1/2");
  click("txtFocus");
  EXPECT_EQ(told(), "cell 2,1; ");
  enter_text("txtRij_F", 2, "7");
  enter_text("txtRL", 3, "9");
  EXPECT_EQ(told(), "cell 0,2; ");
  click("txtFocus");
  EXPECT_EQ(told(), "cell 3,0; ");
}

TEST_F(Observed, ACellThatIsScrolledToIsToldByItsPlaceInTheTableau) {
  open_observed(numbered(12, 10));
  model.StartKolom = 4;
  scroll("VScroll", 3);
  enter_text("txtTableau", box(2, 1), "1/2");
  click("txtFocus");
  EXPECT_EQ(told(), "cell 4,4; ");
}

TEST_F(Observed, WhatChangesNothingIsNotTold) {
  open_observed(two_products);
  enter_text("txtTableau", box(2, 1), "1/");
  click("txtFocus");
  press("Enter");
  press("Escape");
  click("txtFocus");
  choose("mnu_Kolommen_vegen");
  press("Escape");
  EXPECT_EQ(told(), "");
}

TEST_F(Observed, ASweepIsToldWithItsPivot) {
  open_observed(two_products);
  choose("mnu_Kolommen_vegen");
  scroll("VScrollKolom", 2);
  scroll("VScrollRij", 3);
  click("OKButton");
  EXPECT_EQ(told(), "sweep 3,2; ");
}

TEST_F(Observed, NormalisingIsToldWithItsColumn) {
  open_observed(two_products);
  choose("mnu_Kolommen_Normeren");
  scroll("VScrollKolom", 2);
  click("OKButton");
  EXPECT_EQ(told(), "normalise 0,2; ");
}

TEST_F(Observed, TheBasicSolutionAndThePivotElementBringTheBasisInOrder) {
  open_observed(two_products);
  choose("mnu_Basisoplossing");
  EXPECT_EQ(told(), "basic-solution; ");
  press("Enter");
  choose("mnu_Pivot_element");
  EXPECT_EQ(told(), "basic-solution; ");
}

TEST_F(Observed, OptimisingIsToldOnceAtItsEnd) {
  open_observed(two_products);
  choose("mnu_optimaliseren");
  EXPECT_EQ(told(), "basic-solution; optimise; ");
  EXPECT_EQ(model.current.row_F().right(), 36);
}

TEST_F(Observed, EveryStepOfSweepingAutomaticallyIsTold) {
  open_observed(two_products);
  choose("mnu_Automatisch_vegen");
  for (int times = 0; times < 4; ++times) {
    press("Enter");
    if (host.sleeps()) host.advance(1.0);
  }
  EXPECT_EQ(told(), "basic-solution; automatic-sweep 2,2; automatic-sweep 3,1; ");
}

TEST_F(Observed, ResetAndFractionsAreTold) {
  open_observed(two_products);
  choose("mnu_Reset");
  choose("mnu_Breuken");
  choose("mnu_Breuken");
  EXPECT_EQ(told(), "reset; fractions; fractions; ");
}

TEST_F(Observed, ParametersAndANewProblemAreTold) {
  model.observer = this;
  open(two_products);
  EXPECT_EQ(told(), "parameters; ");
  set("prmRL", std::string(" 5, 6, 7"));
  EXPECT_EQ(told(), "parameters; ");
  set("prmShow", true);
  EXPECT_EQ(told(), "problem; parameters; ");
  EXPECT_NE(error_of("prmNrBeslisVar", 1e9), 0);
  EXPECT_EQ(error_of("prmNothing", 1.0), -1);
  EXPECT_EQ(told(), "");
  choose("mnu_Nieuw_Simplex");
  click("OKButton");
  EXPECT_EQ(told(), "problem; ");
}

TEST_F(Observed, APutBackTableauIsToldAndShown) {
  open_observed(two_products);
  ASSERT_TRUE(control.SchrijfTableau("a.tbl"));
  choose("mnu_optimaliseren");
  press("Enter");
  told();
  ASSERT_TRUE(control.restore(host.memory_files.contents["a.tbl"]));
  host.answer_all();
  EXPECT_EQ(told(), "restore; ");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  EXPECT_EQ(text("txtRij_F", 2), " -5");
  EXPECT_FALSE(locked("txtTableau", 1));
}

TEST_F(Observed, ATableauIsPutBackInTheMidstOfItsProblem) {
  open_observed(two_products);
  choose("mnu_Kolommen_vegen");
  scroll("VScrollKolom", 2);
  scroll("VScrollRij", 2);
  click("OKButton");
  ASSERT_TRUE(control.SchrijfTableau("a.tbl"));
  choose("mnu_optimaliseren");
  press("Enter");
  ASSERT_TRUE(control.restore(host.memory_files.contents["a.tbl"]));
  EXPECT_EQ(text("lblNRTableau"), "2-e Simplex-tableau");
  EXPECT_TRUE(locked("txtTableau", 1));
  EXPECT_FALSE(enabled("mnu_Tableau_Invullen"));
  choose("mnu_Reset");
  EXPECT_EQ(text("txtRij_F", 2), " -5");
}

TEST_F(Observed, WhatCannotBePutBackIsNotTold) {
  open_observed(two_products);
  EXPECT_FALSE(control.restore("Tabloria op Internet\r\n 1 \r\n"));
  EXPECT_EQ(told(), "");
  EXPECT_EQ(text("txtRij_F", 2), " -5");
}

}  // namespace
}  // namespace tabulon
