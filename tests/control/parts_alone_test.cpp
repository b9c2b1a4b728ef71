// The grid, its cells and the parameters by themselves.
#include <gtest/gtest.h>

#include "control/cells.h"
#include "control/parameters.h"
#include "hosts/headless/headless_host.h"
#include "tests/support/part_surface.h"

namespace tabulon {
namespace {

using platform::Task;

struct Views : GraphView, ProblemView {
  int rebuilds = 0, started = 0;
  void rebuild() override { ++rebuilds; }
  void problem_changed() override { ++rebuilds; }
  void numbers_rewritten() override {}
  Result<> start_problem() override {
    ++started;
    return {};
  }
  Task<> show_problem() override { co_return; }
  void show_opened_tableau() override {}
};

class GridAlone : public testing::Test {
 protected:
  GridAlone() {
    EXPECT_TRUE(InitTableau(model));
    grid.redraw();
    grid.reset_scroll_bars();
    surface.when_validating = [this](platform::Control& control, bool& refused) -> Task<> {
      co_await cells.validate(control, escaped, refused);
    };
  }
  void type(GridBox cell, const char* words) { host.desk().type(grid.box_of(cell), words); }
  void leave() { host.desk().focus(resting.txtFocus); }

  platform::HeadlessHost host;
  basSafeCtl model;
  FillIn fill_in;
  Views views;
  bool escaped = false;
  PartSurface surface{host.desk()};
  RestingFocus resting{surface};
  tabulon::Grid grid{surface, model, fill_in, resting};
  Messages messages{surface, model};
  tabulon::Cells cells{surface, model, grid, messages, views};
  ProblemParameters parameters{surface, model, grid, views, views};
};

constexpr GridBox row_2_column_2{CellArray::Cells, 7};

TEST_F(GridAlone, ShowsTheModel) {
  EXPECT_EQ(surface.find("lblNRTableau")->text(), "1-e Simplex-tableau");
  EXPECT_EQ(grid.box_of({CellArray::Cells, 3}).text(), " 1");
  EXPECT_FALSE(surface.find("HScroll")->visible());
}

TEST_F(GridAlone, KnowsWhichPlaceABoxShows) {
  model.StartKolom = 3;
  const auto place = grid.place_of(row_2_column_2);
  ASSERT_TRUE(place);
  EXPECT_EQ(place->row, 2);
  EXPECT_EQ(place->column, 4);
  model.StartKolom = 30;
  EXPECT_FALSE(grid.place_of(row_2_column_2));
}

TEST_F(GridAlone, ACellThatIsLeftIsStoredInBothTableaus) {
  type(row_2_column_2, "2/4");
  leave();
  EXPECT_EQ(model.current.row(2).value(2), 0.5);
  EXPECT_EQ(model.first.row(2).text(2), "2/4");
  EXPECT_EQ(views.rebuilds, 1);
}

TEST_F(GridAlone, EscapePutsBackWhatStoodThere) {
  type(row_2_column_2, "2/4");
  escaped = true;
  leave();
  EXPECT_EQ(grid.box_of(row_2_column_2).text(), " 0");
  EXPECT_EQ(model.current.row(2).value(2), 0.0);
}

TEST_F(GridAlone, BadInputIsRefusedWithAMessage) {
  type(row_2_column_2, "2/");
  leave();
  ASSERT_NE(host.top_form(), nullptr);
  EXPECT_EQ(host.top_form()->name(), "frmMelding");
  EXPECT_EQ(views.rebuilds, 0);
}

TEST_F(GridAlone, AListIsDrawn) {
  const auto done = parameters.set("PRMRL", std::string(" 4, 12"));
  ASSERT_TRUE(done && *done);
  EXPECT_EQ(grid.box_of({CellArray::RightHandSides, 2}).text(), " 12");
}

TEST_F(GridAlone, AScriptShowsAProblemThroughWhoeverStartsOne) {
  EXPECT_TRUE(parameters.set("prmShow", true).value());
  EXPECT_EQ(views.started, 1);
  EXPECT_FALSE(parameters.set("prmNothing", 1.0));
}

}  // namespace
}  // namespace tabulon
