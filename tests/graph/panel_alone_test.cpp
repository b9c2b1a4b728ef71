// The graph panel by itself, on a surface that has nothing else.
#include "graph/panel.h"

#include <gtest/gtest.h>

#include "hosts/headless/headless_host.h"
#include "simplex/sweep.h"
#include "tests/support/part_surface.h"

namespace tabulon {
namespace {

using platform::Task;

struct Failures : FailureView {
  std::vector<std::string> shown;
  Task<> show_failure(std::string words) override {
    shown.push_back(std::move(words));
    co_return;
  }
};

// Maximise 3 x1 + 5 x2 with x1 <= 4 and 2 x2 <= 12.
class PanelAlone : public testing::Test {
 protected:
  PanelAlone() {
    EXPECT_TRUE(InitTableau(model));
    write(model.current), write(model.first);
    rest.set_tab(0, true);
    surface.when_clicked = [this](platform::Control& control) -> Task<> { co_await panel.clicked(control); };
  }
  static void write(TableauState& tableau) {
    tableau.row_F().write(1, -3.0), tableau.row_F().write(2, -5.0);
    tableau.row(1).write(1, 1.0), tableau.row(1).write(CellRow::right_hand_side, 4.0);
    tableau.row(2).write(2, 2.0), tableau.row(2).write(CellRow::right_hand_side, 12.0);
  }
  std::string text(const char* name) const { return surface.find(name)->text(); }
  bool click(const char* name) {
    const bool taken = host.desk().click(*surface.find(name));
    host.answer_all();
    return taken;
  }

  platform::HeadlessHost host;
  basSafeCtl model;
  Failures failures;
  PartSurface surface{host.desk()};
  platform::TextBox rest{surface, "txtFocus"};
  GraphPanel panel{{surface, model, rest, failures}};
};

TEST_F(PanelAlone, OpensWithTheDrawingOfTheModel) {
  EXPECT_FALSE(surface.find("frmGrafiek")->visible());
  panel.mnu_Grafiek_Click();
  EXPECT_TRUE(panel.is_open());
  EXPECT_TRUE(surface.find("frmGrafiek")->visible());
  EXPECT_FALSE(static_cast<platform::PictureBox*>(surface.find("PictureLN"))->drawing().strokes().empty());
}

TEST_F(PanelAlone, ShowsTheBasicSolutionOnceItIsRebuilt) {
  panel.mnu_Grafiek_Click();
  EXPECT_EQ(text("lblDoelfunctie"), "");
  model.PivotRij = 2, model.PivotKolom = 2;
  ASSERT_TRUE(sweep_column(model));
  panel.rebuild();
  EXPECT_EQ(text("lblValX2"), " 6");
  EXPECT_EQ(text("lblDoelfunctie"), " 30");
}

TEST_F(PanelAlone, IsNotRebuiltWhileItIsClosed) {
  panel.rebuild();
  EXPECT_FALSE(surface.find("frmGrafiek")->visible());
}

TEST_F(PanelAlone, IsClosedByItsButtonAndGivesTheFocusBack) {
  panel.mnu_Grafiek_Click();
  EXPECT_TRUE(click("cmdSluiten"));
  EXPECT_FALSE(panel.is_open());
  EXPECT_EQ(surface.active(), &rest);
}

TEST_F(PanelAlone, TellsWhenTheClipboardRefuses) {
  host.clipboard_refusal = "refused";
  panel.mnu_Grafiek_Click();
  click("cmdKopieren");
  ASSERT_EQ(failures.shown.size(), 1U);
  EXPECT_TRUE(failures.shown[0].starts_with("De afbeelding kon niet"));
}

TEST_F(PanelAlone, IsOfferedForTwoDecisionVariablesOnly) {
  EXPECT_TRUE(panel.is_offered());
  model.NrBeslisVar = 3;
  EXPECT_FALSE(panel.is_offered());
}

}  // namespace
}  // namespace tabulon
