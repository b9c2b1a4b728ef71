// The commands on the tableau by themselves: who shows what comes of them only counts.
#include "simplex/tableau_commands.h"

#include <gtest/gtest.h>

#include "hosts/headless/headless_host.h"
#include "tests/support/part_surface.h"

namespace tabulon {
namespace {

struct Counting : TableauView, GraphView {
  int redraws = 0, resets = 0, rebuilds = 0, rewritten = 0;
  int shown_row = 0, shown_column = 0;
  void redraw() override { ++redraws; }
  void reset_scroll_bars() override { ++resets; }
  void follow_grid() override {}
  void scroll_to(int row, int column) override { shown_row = row, shown_column = column; }
  void rebuild() override { ++rebuilds; }
  void problem_changed() override {}
  void numbers_rewritten() override { ++rewritten; }
};

// Maximise 3 x1 + 5 x2 with x1 <= 4 and 2 x2 <= 12.
class CommandsAlone : public testing::Test {
 protected:
  CommandsAlone() {
    EXPECT_TRUE(InitTableau(model));
    for (TableauState* tableau : {&model.current, &model.first}) {
      tableau->row_F().write(1, -3.0), tableau->row_F().write(2, -5.0);
      tableau->row(1).write(1, 1.0), tableau->row(1).write(CellRow::right_hand_side, 4.0);
      tableau->row(2).write(2, 2.0), tableau->row(2).write(CellRow::right_hand_side, 12.0);
    }
  }
  void run(platform::Task<> command) {
    host.desk().call(surface, std::move(command));
    host.answer_all();
  }
  std::string form() const { return host.top_form() ? std::string(host.top_form()->name()) : ""; }
  void press(int code) {
    host.desk().key(*host.top_form(), {code});
    host.answer_all();
  }
  std::string F() const { return model.current.row_F().text(CellRow::right_hand_side); }

  platform::HeadlessHost host;
  basSafeCtl model;
  FillIn fill_in;
  Counting views;
  PartSurface surface{host.desk()};
  platform::TextBox rest{surface, "txtFocus"};
  Messages messages{surface, model};
  TableauCommands commands{{surface, model, fill_in, messages, rest, views, views}};
};

TEST_F(CommandsAlone, OptimisingEndsWithTheMessageAndARebuiltGraph) {
  run(commands.mnu_optimaliseren_Click());
  EXPECT_EQ(form(), "frmMelding");
  EXPECT_EQ(views.rebuilds, 0);
  press(platform::key::enter);
  EXPECT_EQ(F(), " 42");
  EXPECT_EQ(views.rebuilds, 1);
  EXPECT_EQ(surface.active(), &rest);
}

TEST_F(CommandsAlone, ThePivotElementIsBroughtIntoView) {
  run(commands.mnu_Pivot_element_Click());
  EXPECT_EQ(form(), "frmPivot_element");
  EXPECT_EQ(views.shown_row, 2);
  EXPECT_EQ(views.shown_column, 2);
}

TEST_F(CommandsAlone, SweepingEndsFillInModeAndResetOpensItAgain) {
  run(commands.mnu_optimaliseren_Click());
  EXPECT_FALSE(fill_in.CellenBewerkbaar);
  EXPECT_FALSE(fill_in.offered);
  commands.mnu_Reset_Click();
  EXPECT_TRUE(fill_in.CellenBewerkbaar);
  EXPECT_TRUE(fill_in.offered);
  EXPECT_EQ(views.resets, 1);
  EXPECT_EQ(F(), " 0");
}

TEST_F(CommandsAlone, ResetDrawsTheGridOnce) {
  const int before = views.redraws;
  commands.mnu_Reset_Click();
  EXPECT_EQ(views.redraws, before + 1);
}

TEST_F(CommandsAlone, EachOfTheTwoFillInItemsTogglesThePair) {
  commands.mnu_Tableau_Invullen_Afsluiten_Click();
  EXPECT_FALSE(fill_in.CellenBewerkbaar);
  commands.mnu_Tableau_Invullen_Afsluiten_Click();
  EXPECT_TRUE(fill_in.CellenBewerkbaar);
  commands.mnu_Tableau_Invullen_Click();
  EXPECT_FALSE(fill_in.CellenBewerkbaar);
}

TEST_F(CommandsAlone, FractionsRewriteTheTableau) {
  model.current.row(1).write(1, 0.5, " .5");
  commands.mnu_Breuken_Click();
  EXPECT_EQ(model.current.row(1).text(1), " 1/2");
  EXPECT_EQ(views.redraws, 1);
  EXPECT_EQ(views.rewritten, 1);
}

}  // namespace
}  // namespace tabulon
