// The graph panel as the person meets it: opening and closing, what rebuilds it, drags, keys, the clipboard.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "graph/drawing.h"
#include "graph/panel.h"
#include "tests/control/control_fixture.h"

namespace tabulon {

namespace {

using platform::Bounds;
using platform::Point;
using platform::Pointer;
using platform::Stroke;
using Action = Pointer::Action;
namespace stroke = platform::stroke;

class Panel : public ControlTest {
 protected:
  // ---- What the person does
  void point(std::string_view name, Action action, double x, double y, bool left_button = true) {
    host.desk().pointer(*control.find(name), {action, left_button, x, y});
    host.answer_all();
  }
  // Presses in the middle, moves in one go, and lets go; what a host tells of it, the click included.
  void drag(std::string_view name, double right, double down) {
    const Bounds& on = control.find(name)->bounds();
    const double x = std::floor(on.width / 2), y = std::floor(on.height / 2);
    point(name, Action::Down, x, y);
    point(name, Action::Move, x + right, y + down);
    point(name, Action::Up, x, y, false);
    click(name);
  }
  void open_graph(const Parameters& problem = two_products) {
    open(problem);
    ASSERT_TRUE(choose("mnu_Grafiek"));
  }
  // The optimum's tableau, with the panel open.
  void open_solved(const Parameters& problem = two_products) {
    open(problem);
    solve();
    ASSERT_TRUE(choose("mnu_Grafiek"));
  }
  void solve() {
    choose("mnu_optimaliseren");
    press("Enter");
  }
  // One sweep by the dialog: of column 2 with row 2.
  void sweep_by_hand() {
    choose("mnu_Kolommen_vegen");
    scroll("VScrollKolom", 2);
    scroll("VScrollRij", 2);
    click("OKButton");
  }

  // ---- What the person sees
  const platform::PictureBox& picture() const {
    return static_cast<const platform::PictureBox&>(*control.find("PictureLN"));
  }
  const platform::Line& line() const {
    return static_cast<const platform::Line&>(*control.find("lineNiveau"));
  }
  Point cross() const {
    const Bounds& bounds = control.find("imgCross")->bounds();
    return {bounds.left, bounds.top};
  }
  Point panel() const {
    const Bounds& bounds = control.find("frmGrafiek")->bounds();
    return {bounds.left, bounds.top};
  }
  std::string values() const {
    return text("lblValX1") + ";" + text("lblValX2") + ";" + text("lblDoelfunctie");
  }
  bool panel_is_open() const {
    EXPECT_EQ(checked("mnu_Grafiek"), shown("frmGrafiek"));
    return shown("frmGrafiek");
  }
  void expect_level_line(Point from, Point to) const {
    EXPECT_TRUE(shown("lineNiveau"));
    EXPECT_NEAR(line().from().x, from.x, 1e-9);
    EXPECT_NEAR(line().from().y, from.y, 1e-9);
    EXPECT_NEAR(line().to().x, to.x, 1e-9);
    EXPECT_NEAR(line().to().y, to.y, 1e-9);
  }
  std::vector<stroke::Segment> constraint_lines() const {
    std::vector<stroke::Segment> found;
    for (const Stroke& each : picture().drawing().strokes())
      if (const auto* const drawn = std::get_if<stroke::Segment>(&each);
          drawn && drawn->colour == graph::colour::constraint)
        found.push_back(*drawn);
    return found;
  }
};

}  // namespace

// ---- Opening and closing

TEST_F(Panel, IsHiddenAtTheStart) {
  open(two_products);
  EXPECT_FALSE(panel_is_open());
  EXPECT_TRUE(enabled("mnu_Grafiek"));
}

TEST_F(Panel, TheMenuItemOpensItAndClosesIt) {
  open_graph();
  EXPECT_TRUE(panel_is_open());
  choose("mnu_Grafiek");
  EXPECT_FALSE(panel_is_open());
}

TEST_F(Panel, OnlyAProblemWithTwoVariablesHasAGraph) {
  open({{"prmNrBeslisVar", "3"}});
  EXPECT_FALSE(enabled("mnu_Grafiek"));
  EXPECT_FALSE(choose("mnu_Grafiek"));
  EXPECT_FALSE(panel_is_open());
}

TEST_F(Panel, OfTheFirstTableauHasTheProblemButNoPoint) {
  open_graph();
  EXPECT_EQ(picture().drawing(), graph::problem_drawing(*graph::constraints_of(model), 10, {" 10", " 10"}));
  EXPECT_FALSE(shown("lineNiveau"));
  EXPECT_FALSE(shown("imgCross"));
  EXPECT_EQ(values(), ";;");
}

TEST_F(Panel, FromTheSecondTableauOnHasThePointAndTheLevelLine) {
  open(two_products);
  sweep_by_hand();
  choose("mnu_Grafiek");
  EXPECT_TRUE(shown("imgCross"));
  EXPECT_EQ(cross(), (Point{-112.5, 1912.5}));
  EXPECT_EQ(values(), " 0; 6; 30");
  expect_level_line({0, 1800}, {3000, 0});
}

TEST_F(Panel, OfTheOptimumStandsOnIt) {
  open_solved();
  EXPECT_EQ(cross(), (Point{487.5, 1912.5}));
  EXPECT_EQ(values(), " 2; 6; 36");
  expect_level_line({0, 2160}, {3000, 360});
}

TEST_F(Panel, DrawsTheProblemAsItWasEnteredWhateverTheTableau) {
  open_graph();
  const platform::DisplayList first = picture().drawing();
  solve();
  EXPECT_EQ(picture().drawing(), first);
}

TEST_F(Panel, WithoutAPositiveInterceptItsAxesEndAtHundred) {
  open_graph({});
  const auto& end = std::get<stroke::Text>(picture().drawing().strokes()[1 + 42 + 1]);
  EXPECT_EQ(end.text, "100");
}

TEST_F(Panel, ValuesFollowTheFractionsOption) {
  open(
      {{"prmSTR_DLfunctie", "-1, -1"}, {"prmSTR_KleinerGelijkVglen", " 3, 1, 1, 3"}, {"prmSTR_RL", " 1, 1"}});
  choose("mnu_Breuken");
  solve();
  choose("mnu_Grafiek");
  EXPECT_EQ(values(), " 1/4; 1/4; 1/2");
}

TEST_F(Panel, ShowsItsNumbersAsTheFractionsOptionSays) {
  open_solved(
      {{"prmSTR_DLfunctie", "-1, -1"}, {"prmSTR_KleinerGelijkVglen", " 3, 1, 1, 3"}, {"prmSTR_RL", " 1, 1"}});
  EXPECT_EQ(values(), " 0.25; 0.25; 0.5");
  choose("mnu_Breuken");
  EXPECT_EQ(values(), " 1/4; 1/4; 1/2");
  choose("mnu_Breuken");
  EXPECT_EQ(values(), " 0.25; 0.25; 0.5");
}

TEST_F(Panel, TheFractionsOptionLeavesTheCrossWhereItWasDragged) {
  open_solved();
  drag("imgCross", 300, 0);
  const Point before = cross();
  choose("mnu_Breuken");
  EXPECT_EQ(cross(), before);
}

TEST_F(Panel, TheEndsOfItsAxesAreWrittenAsTheFractionsOptionSays) {
  open_graph({{"prmSTR_KleinerGelijkVglen", " 4, 0, 0, 4"}, {"prmSTR_RL", " 1, 1"}});
  const platform::DisplayList decimals = picture().drawing();
  choose("mnu_Breuken");
  EXPECT_NE(picture().drawing(), decimals);
  choose("mnu_Breuken");
  EXPECT_EQ(picture().drawing(), decimals);
}

TEST_F(Panel, IsRebuiltByAListOfAScript) {
  open_graph();
  const platform::DisplayList before = picture().drawing();
  set("prmRL", std::string(" 3, 12, 18"));
  EXPECT_NE(picture().drawing(), before);
  EXPECT_EQ(picture().drawing(), graph::problem_drawing(*graph::constraints_of(model), 10, {" 10", " 10"}));
}

TEST_F(Panel, AListOfAScriptGivesTheValuesOfTheNewProblem) {
  open_solved();
  set("prmDLfunctie", std::string("-1, -1"));
  EXPECT_EQ(values(), " 2; 6; 8");
  set("prmDLfunctie", std::string(" 0, 0"));  // which has no level line
  EXPECT_FALSE(shown("lineNiveau"));
}

// The point of the next problem has no level line of its own.
TEST_F(Panel, ANewProblemByScriptKeepsNoLevelLineOfTheProblemBefore) {
  open_solved();
  ASSERT_TRUE(shown("lineNiveau"));
  set("prmShow", true);
  set("prmKleinerGelijkVglen", std::string(" 1, 0, 0, 2, 3, 2"));
  set("prmRL", std::string(" 4, 12, 18"));
  sweep_by_hand();
  choose("mnu_Grafiek");
  EXPECT_TRUE(shown("imgCross"));
  EXPECT_FALSE(shown("lineNiveau"));
}

TEST_F(Panel, ALevelLineInAnAxisIsNotShown) {
  open({{"prmSTR_DLfunctie", "0, 0"}, {"prmSTR_KleinerGelijkVglen", " 1, 0, 0, 1"}, {"prmSTR_RL", " 4, 3"}});
  sweep_by_hand();
  model.first.row_F().write(1, -1);
  choose("mnu_Grafiek");
  EXPECT_TRUE(shown("imgCross"));
  EXPECT_FALSE(shown("lineNiveau"));
}

TEST_F(Panel, CountsBeyondTheStorageAreToldAndNothingIsDrawn) {
  open(two_products);
  model.NrKleinerGelijkVglen = 11;
  choose("mnu_Grafiek");
  EXPECT_EQ(form(), "frmFoutmelding");
  press("Enter");
  EXPECT_TRUE(picture().drawing().strokes().empty());
}

// ---- What it says

TEST_F(Panel, SaysWhatItIsInItsOwnWords) {
  open_graph();
  EXPECT_EQ(text("frmGrafiek"), "Tabloria");
  EXPECT_EQ(text("cmdReset"), "Reset");
  EXPECT_EQ(text("cmdKopieren"), "Afbeelding kopiëren naar klembord");
  EXPECT_EQ(text("cmdSluiten"), "Sluiten");
  EXPECT_EQ(text("cmdFrame"), "Handvat");
  EXPECT_EQ(text("lblLetOp"),
            "Let op!                       Alleen LP-problemen met twee beslissingsvariabelen zijn grafisch "
            "oplosbaar.");
  EXPECT_EQ(tip("imgCross"), "Beweeg mij!");
  std::vector<std::string> legend;
  for (const char* name : {"lblRestricties", "lblNiveaulijn", "lblNiveauVanF", "lblGebied"})
    legend.push_back(text(name));
  EXPECT_EQ(legend,
            (std::vector<std::string>{"Restricties", "Niveaulijn", "Doelfunctie F", "Toegestane gebied"}));
  EXPECT_EQ(text("lblX1") + text("lblX2") + text("lblF"), "x 1 =x 2 =F =");
}

TEST_F(Panel, EverythingOfItStandsInsideItAndNothingOverlaps) {
  open_graph();
  std::vector<const platform::Control*> parts;
  for (const platform::Control* each : control.controls())
    if (each->container() == control.find("frmGrafiek") && each->kind() != platform::Kind::Line)
      parts.push_back(each);
  EXPECT_EQ(parts.size(), 17U);
  const Bounds& frame = control.find("frmGrafiek")->bounds();
  EXPECT_EQ(frame.width, 5805);
  EXPECT_LE(frame.top + frame.height, control.height());
  for (const platform::Control* each : parts) {
    const Bounds& one = each->bounds();
    EXPECT_TRUE(one.left >= 0 && one.top >= 0 && one.left + one.width <= frame.width &&
                one.top + one.height <= frame.height)
        << each->name();
    for (const platform::Control* another : parts) {
      const Bounds& other = another->bounds();
      const bool apart = one.left + one.width <= other.left || other.left + other.width <= one.left ||
                         one.top + one.height <= other.top || other.top + other.height <= one.top;
      // Lines of a legend may touch with their leading.
      const bool labels = each->kind() == platform::Kind::Label && another->kind() == platform::Kind::Label;
      EXPECT_TRUE(each == another || apart || labels) << each->name() << " and " << another->name();
    }
  }
}

TEST_F(Panel, ThePictureHearsItsPointAndF) {
  open_graph();
  EXPECT_EQ(picture().spoken_name(), "Grafiek");
  solve();
  EXPECT_EQ(picture().spoken_name(), "Grafiek, x 1 = 2, x 2 = 6, F = 36");
}

// ---- What rebuilds it

TEST_F(Panel, IsRebuiltWhenACellHasChanged) {
  open_graph();
  ASSERT_EQ(constraint_lines().size(), 3U);
  EXPECT_EQ(constraint_lines()[0].from, (Point{1200, 0}));
  enter_text("txtRL", 1, "5");
  click("txtTableau", 1);
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(constraint_lines()[0].from, (Point{1500, 0}));
}

TEST_F(Panel, IsNotRebuiltByAnEntryThatIsRefused) {
  open_graph();
  const platform::DisplayList before = picture().drawing();
  enter_text("txtRL", 1, "5+");
  click("txtTableau", 1);
  ASSERT_EQ(form(), "frmMelding");
  press("Enter");
  EXPECT_EQ(picture().drawing(), before);
}

TEST_F(Panel, IsRebuiltWhenAnEntryIsUndone) {
  open_graph();
  model.first.row(1).write(CellRow::right_hand_side, 5);  // what a rebuild would draw
  enter_text("txtRL", 1, "7");
  press("Escape");
  EXPECT_EQ(constraint_lines()[0].from, (Point{1500, 0}));
}

TEST_F(Panel, IsRebuiltByASweepByHand) {
  open_graph();
  sweep_by_hand();
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(values(), " 0; 6; 30");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Panel, IsRebuiltByNormalising) {
  open_graph();
  sweep_by_hand();
  drag("imgCross", 300, 0);
  ASSERT_EQ(values(), " 1; 6; 33");
  choose("mnu_Kolommen_Normeren");
  click("OKButton");
  EXPECT_EQ(values(), " 0; 6; 30");
}

TEST_F(Panel, IsRebuiltByASweepThatWasCancelled) {
  open_graph();
  sweep_by_hand();
  drag("imgCross", 300, 0);
  choose("mnu_Kolommen_vegen");
  click("CancelButton");
  EXPECT_EQ(values(), " 0; 6; 30");
}

TEST_F(Panel, IsRebuiltAfterEachStepOfSweepingAutomatically) {
  open_graph();
  choose("mnu_Automatisch_vegen");
  press("Enter");  // the basic solution
  host.advance(1);
  host.answer_all();
  ASSERT_EQ(text("lblMelding"), "Kolom 2 vegen met rij 2");
  press("Enter");
  EXPECT_EQ(control.find("lblValX2")->text(), " 6");
  EXPECT_EQ(control.find("lblDoelfunctie")->text(), " 30");
  host.advance(1);
  host.answer_all();
  ASSERT_EQ(text("lblMelding"), "Kolom 1 vegen met rij 3");
  press("Enter");
  EXPECT_EQ(control.find("lblDoelfunctie")->text(), " 36");
}

TEST_F(Panel, IsRebuiltByOptimising) {
  open_graph();
  solve();
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(values(), " 2; 6; 36");
  expect_level_line({0, 2160}, {3000, 360});
}

TEST_F(Panel, ThatIsClosedIsNotOpenedByAnyCommand) {
  open(two_products);
  sweep_by_hand();
  solve();
  choose("mnu_Reset");
  EXPECT_FALSE(panel_is_open());
}

TEST_F(Panel, ResettingTheTableauTakesThePointAway) {
  open_solved();
  choose("mnu_Reset");
  EXPECT_TRUE(panel_is_open());
  EXPECT_FALSE(shown("imgCross"));
  EXPECT_FALSE(shown("lineNiveau"));
  EXPECT_EQ(values(), ";;");
  EXPECT_EQ(constraint_lines().size(), 3U);
}

TEST_F(Panel, ShowingTheControlAnewClosesIt) {
  open_solved();
  set("prmShow", true);
  EXPECT_FALSE(panel_is_open());
  EXPECT_TRUE(enabled("mnu_Grafiek"));
}

TEST_F(Panel, ANewProblemClosesItAndDecidesWhetherItCanBeOpened) {
  open_solved();
  set("prmNrBeslisVar", 3.0);
  set("prmShow", true);
  EXPECT_FALSE(panel_is_open());
  EXPECT_FALSE(enabled("mnu_Grafiek"));
}

TEST_F(Panel, TheBasicSolutionAndThePivotElementLeaveItAlone) {
  open_solved();
  drag("imgCross", 300, 0);
  const std::string dragged = values();
  choose("mnu_Basisoplossing");
  press("Enter");
  choose("mnu_Pivot_element");
  press("Enter");
  EXPECT_EQ(values(), dragged);
}

// ---- Moving the panel

TEST_F(Panel, FollowsItsHandle) {
  open_graph();
  const Point before = panel();
  drag("cmdFrame", -600, 300);
  EXPECT_EQ(panel(), (Point{before.x - 600, before.y + 300}));
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Panel, IsHeldWhereItsHandleCanBeReached) {
  open_graph();
  drag("cmdFrame", -9000, -9000);
  EXPECT_EQ(panel(), (Point{0, 10}));
  drag("cmdFrame", 9000, 9000);
  EXPECT_EQ(panel(), (Point{3195, 4240}));
}

TEST_F(Panel, APressOnTheHandlesVeryEdgeStartsNoDrag) {
  open_graph();
  const Point before = panel();
  for (const double y : {0.0, 195.0, 300.0}) {
    point("cmdFrame", Action::Down, 1000, y);
    point("cmdFrame", Action::Move, 500, 100);
    EXPECT_EQ(panel(), before) << y;
  }
}

TEST_F(Panel, APressWithTheOtherButtonStartsNoDrag) {
  open_graph();
  const Point before = panel();
  point("cmdFrame", Action::Down, 1000, 100, false);
  point("cmdFrame", Action::Move, 500, 150);
  EXPECT_EQ(panel(), before);
}

TEST_F(Panel, ASecondButtonALostPointerAndAMoveWithoutButtonEndTheDrag) {
  open_graph();
  const Point before = panel();
  const auto expect_over = [&] {
    point("cmdFrame", Action::Move, 500, 150);
    EXPECT_EQ(panel(), before);
  };
  point("cmdFrame", Action::Down, 1000, 100);
  point("cmdFrame", Action::Down, 1000, 100, false);
  expect_over();
  point("cmdFrame", Action::Down, 1000, 100);
  point("cmdFrame", Action::Lost, 0, 0);
  expect_over();
  point("cmdFrame", Action::Down, 1000, 100);
  point("cmdFrame", Action::Move, 500, 150, false);
  expect_over();
  point("cmdFrame", Action::Down, 1000, 100);
  point("cmdFrame", Action::Up, 1000, 100);
  expect_over();
}

TEST_F(Panel, AMoveOverOtherControlsIsNobodys) {
  open_solved();
  const Point before = panel(), at = cross();
  point("cmdFrame", Action::Down, 1000, 100);
  point("PictureLN", Action::Move, 500, 150);
  EXPECT_EQ(panel(), before);
  EXPECT_EQ(cross(), at);
}

// ---- Dragging the cross

TEST_F(Panel, TheCrossFollowsThePointerAndTheValuesFollowTheCross) {
  open_solved();
  drag("imgCross", 300, 600);
  EXPECT_EQ(cross(), (Point{787.5, 1312.5}));
  EXPECT_EQ(values(), " 3; 4; 29");
  expect_level_line({0, 1740}, {2900, 0});
}

TEST_F(Panel, ADragInManyMovesEndsWhereOneMoveEnds) {
  open_solved();
  point("imgCross", Action::Down, 112, 112);
  for (int move = 0; move < 30; ++move) point("imgCross", Action::Move, 112 + 10, 112 + 20);
  point("imgCross", Action::Up, 112, 112, false);
  EXPECT_EQ(values(), " 3; 4; 29");
}

TEST_F(Panel, ThePictureHearsOfANewPointWhenTheCrossIsLetGo) {
  open_solved();
  for (const Action end : {Action::Up, Action::Lost, Action::Move, Action::Down}) {
    click("cmdReset");
    point("imgCross", Action::Down, 112, 112);
    point("imgCross", Action::Move, 112 + 300, 112 + 600);
    EXPECT_EQ(picture().spoken_name(), "Grafiek, x 1 = 2, x 2 = 6, F = 36");
    point("imgCross", end, 112, 112, false);
    EXPECT_EQ(picture().spoken_name(), "Grafiek, x 1 = 3, x 2 = 4, F = 29");
  }
}

TEST_F(Panel, ThePictureHearsOfAnArrowKeyAlsoWhereADragNeverEnded) {
  open_solved();
  click("imgCross");
  point("imgCross", Action::Down, 112, 112);
  press("Right");
  EXPECT_EQ(picture().spoken_name(), "Grafiek, x 1 = 2.1, x 2 = 6, F = 36.3");
}

TEST_F(Panel, TheCrossStopsAtEachEdgeAndGlidesAlongIt) {
  open_solved();
  drag("imgCross", -5000, 0);
  EXPECT_EQ(cross(), (Point{-112.5, 1912.5}));
  EXPECT_EQ(text("lblValX1"), " 0");
  drag("imgCross", -50, 300);
  EXPECT_EQ(values(), " 0; 5; 25");
  drag("imgCross", 5000, 0);
  EXPECT_EQ(values(), " 10; 5; 55");
  drag("imgCross", 300, 5000);
  EXPECT_EQ(cross(), (Point{2887.5, 112.5}));
  EXPECT_EQ(values(), " 10; 0; 30");
  drag("imgCross", -300, 50);
  EXPECT_EQ(values(), " 9; 0; 27");
  drag("imgCross", 0, -5000);
  EXPECT_EQ(values(), " 9; 10; 77");
}

TEST_F(Panel, ThePointIsRoundedAsTheRangeAsksAndTheLineRunsThroughTheRoundedPoint) {
  open_solved();
  drag("imgCross", 3, -4);  // 2.01 and 6.013
  EXPECT_EQ(values(), " 2; 6; 36");
  expect_level_line({0, 2160}, {3000, 360});
}

TEST_F(Panel, TheValuesOfADragAreFractionsWhenFractionsAreShown) {
  open(two_products);
  choose("mnu_Breuken");
  solve();
  choose("mnu_Grafiek");
  drag("imgCross", 150, 0);
  EXPECT_EQ(values(), " 2+1/2; 6; 37+1/2");
}

TEST_F(Panel, ALevelLineThatLeavesTheSquareStaysWhereItWas) {
  open({{"prmSTR_DLfunctie", "-1, 0"}, {"prmSTR_KleinerGelijkVglen", " 1, 0, 0, 1"}, {"prmSTR_RL", " 4, 3"}});
  solve();
  choose("mnu_Grafiek");
  EXPECT_TRUE(shown("lineNiveau"));
  drag("imgCross", -5000, 0);
  EXPECT_FALSE(shown("lineNiveau"));
  drag("imgCross", 600, 0);
  expect_level_line({600, 3000}, {600, 0});
}

TEST_F(Panel, AMoveOverTheCrossWithoutAPressMovesNothing) {
  open_solved();
  const Point at = cross();
  point("imgCross", Action::Move, 50, 50);
  point("imgCross", Action::Down, 112, 225);
  point("imgCross", Action::Move, 50, 50);
  point("imgCross", Action::Down, 112, 112);
  point("imgCross", Action::Lost, 0, 0);
  point("imgCross", Action::Move, 50, 50);
  EXPECT_EQ(cross(), at);
}

TEST_F(Panel, APressOnTheHandleServesAMoveOverTheCross) {
  open_solved();
  point("cmdFrame", Action::Down, 100, 100);
  point("imgCross", Action::Move, 100 + 300, 100);
  EXPECT_EQ(values(), " 3; 6; 39");
}

TEST_F(Panel, ADragMovesTwoControlsAndLeavesThePictureAlone) {
  open_solved();
  host.forget_mirrored();
  point("imgCross", Action::Down, 112, 112);
  point("imgCross", Action::Move, 300, 112);
  for (const auto& each : host.mirrored())
    EXPECT_FALSE(each.properties.has(platform::Property::Drawing)) << each.control->name();
  EXPECT_FALSE(host.mirrored().empty());
}

// ---- The buttons

TEST_F(Panel, ResetPutsTheCrossBackOnTheBasicSolution) {
  open_solved();
  drag("imgCross", 300, 600);
  click("cmdReset");
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(values(), " 2; 6; 36");
  EXPECT_EQ(cross(), (Point{487.5, 1912.5}));
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Panel, SluitenClosesIt) {
  open_graph();
  click("cmdSluiten");
  EXPECT_FALSE(panel_is_open());
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Panel, AButtonChecksTheCellThatIsBeingEditedFirst) {
  open_graph();
  enter_text("txtRL", 1, "5+");
  click("cmdSluiten");
  EXPECT_EQ(form(), "frmMelding");
  press("Enter");
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(focus(), "txtRL 1");
}

TEST_F(Panel, CopyingPutsThePictureWithLevelLineAndCrossOnTheClipboard) {
  open_solved();
  click("cmdKopieren");
  ASSERT_TRUE(host.clipboard);
  EXPECT_EQ(host.clipboard_clears, 1);
  EXPECT_EQ(host.clipboard->drawing,
            graph::copied_drawing(picture().drawing(), graph::Segment{line().from(), line().to()}, cross()));
  EXPECT_EQ(host.clipboard->drawing.strokes().size(), picture().drawing().strokes().size() + 2);
  EXPECT_EQ(host.clipboard->scale, (platform::Scale{{-345, 3300}, {3345, -300}}));
  EXPECT_EQ(host.clipboard->width, 3690);
  EXPECT_EQ(host.clipboard->height, 3600);
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_F(Panel, TheCopyOfTheFirstTableauIsWhatIsSeen) {
  open_graph();
  click("cmdKopieren");
  ASSERT_TRUE(host.clipboard);
  EXPECT_EQ(host.clipboard->drawing, picture().drawing());
}

TEST_F(Panel, ARefusedCopyIsToldAndBreaksNothing) {
  open_solved();
  host.clipboard_refusal = "NotAllowedError";
  click("cmdKopieren");
  ASSERT_EQ(form(), "frmFoutmelding");
  EXPECT_EQ(text("lblMelding"),
            "De afbeelding kon niet naar het klembord worden gekopieerd. Probeer het nog eens.");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_TRUE(panel_is_open());
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_FALSE(host.clipboard);
}

TEST_F(Panel, ACopyThatWasSavedInsteadSaysWhy) {
  open_solved();
  host.clipboard_refusal = platform::saved_instead;
  click("cmdKopieren");
  ASSERT_EQ(form(), "frmFoutmelding");
  EXPECT_EQ(
      text("lblMelding"),
      "Deze pagina is niet beveiligd (https) en mag niet bij het klembord. De afbeelding is gedownload.");
}

// ---- The keyboard

TEST_F(Panel, TabStillGoesToTheCellsFirst) {
  open_solved();
  press("Tab");
  EXPECT_EQ(focus(), "txtRij_F 1");
}

TEST_F(Panel, AfterEscapeTabGoesThroughThePanelAndLeavesTheControl) {
  open_solved();
  press("Escape");
  for (const char* next : {"PictureLN", "cmdReset", "cmdKopieren", "cmdSluiten", "cmdFrame"}) {
    EXPECT_TRUE(press("Tab"));
    EXPECT_EQ(focus(), next);
  }
  EXPECT_FALSE(press("Tab"));
  for (const char* next : {"cmdSluiten", "cmdKopieren", "cmdReset", "PictureLN"}) {
    EXPECT_TRUE(press("Shift+Tab"));
    EXPECT_EQ(focus(), next);
  }
  EXPECT_FALSE(press("Shift+Tab"));
}

TEST_F(Panel, WithoutACrossThePictureIsNoTabStop) {
  open_graph();
  press("Escape");
  press("Tab");
  EXPECT_EQ(focus(), "cmdReset");
}

TEST_F(Panel, ThatIsClosedIsSkipped) {
  open_solved();
  click("cmdSluiten");
  press("Escape");
  EXPECT_FALSE(press("Tab"));
}

TEST_F(Panel, EscapeInThePanelGoesBackToTheFocusBox) {
  open_solved();
  click("imgCross");
  ASSERT_EQ(focus(), "PictureLN");
  press("Escape");
  EXPECT_EQ(focus(), "txtFocus");
  EXPECT_TRUE(panel_is_open());
}

TEST_F(Panel, AClickOnTheCrossOrThePictureGivesTheArrowKeysToTheCross) {
  open_solved();
  for (const char* name : {"imgCross", "PictureLN"}) {
    click("cmdReset");
    click(name);
    EXPECT_EQ(focus(), "PictureLN");
  }
}

TEST_F(Panel, ArrowKeysMoveTheCrossByTheSmallestShownStep) {
  open_solved();
  click("imgCross");
  EXPECT_TRUE(press("Right"));
  EXPECT_EQ(values(), " 2.1; 6; 36.3");
  EXPECT_TRUE(press("Down"));
  EXPECT_EQ(values(), " 2.1; 5.9; 35.8");
  EXPECT_TRUE(press("Left"));
  EXPECT_TRUE(press("Up"));
  EXPECT_EQ(values(), " 2; 6; 36");
  EXPECT_EQ(cross(), (Point{487.5, 1912.5}));
  EXPECT_EQ(picture().spoken_name(), "Grafiek, x 1 = 2, x 2 = 6, F = 36");
}

TEST_F(Panel, WithShiftTheyGoTenSteps) {
  open_solved();
  click("imgCross");
  press("Shift+Right");
  press("Shift+Down");
  EXPECT_EQ(values(), " 3; 5; 34");
}

TEST_F(Panel, TheArrowKeysStopAtTheEdges) {
  open_solved();
  click("imgCross");
  for (int times = 0; times < 5; ++times) press("Shift+Left");
  EXPECT_EQ(text("lblValX1"), " 0");
  for (int times = 0; times < 12; ++times) press("Shift+Up");
  EXPECT_EQ(text("lblValX2"), " 10");
  EXPECT_EQ(cross(), (Point{-112.5, 3112.5}));
}

TEST_F(Panel, OtherKeysOfThePictureAreNotItsOwn) {
  open_solved();
  click("imgCross");
  EXPECT_FALSE(press("Ctrl+Right"));
  EXPECT_FALSE(press("PageUp"));
  EXPECT_EQ(values(), " 2; 6; 36");
}

TEST_F(Panel, ArrowKeysOnTheHandleMoveThePanelWithinItsBounds) {
  open_graph();
  const Point before = panel();
  host.desk().focus(*control.find("cmdFrame"));
  press("Left");
  press("Up");
  EXPECT_EQ(panel(), (Point{before.x - 150, before.y - 150}));
  press("Shift+Right");
  press("Shift+Up");
  EXPECT_EQ(panel(), (Point{3195, 10}));
}

TEST_F(Panel, EnterAndSpacePressItsButtons) {
  open_solved();
  drag("imgCross", 300, 0);
  host.desk().focus(*control.find("cmdReset"));
  press("Enter");
  EXPECT_EQ(values(), " 2; 6; 36");
  host.desk().focus(*control.find("cmdSluiten"));
  press("Space");
  EXPECT_FALSE(panel_is_open());
}

TEST_F(Panel, TheFocusThatComesInStaysOnItsButtonsButNotOnThePicture) {
  open_solved();
  for (const auto& [name, stays] : {std::pair("cmdReset", true),
                                    {"cmdKopieren", true},
                                    {"cmdSluiten", true},
                                    {"PictureLN", false},
                                    {"cmdFrame", false}}) {
    host.desk().focus(*control.find(name));
    host.desk().leave(control);
    host.desk().enter(control);
    EXPECT_EQ(focus(), stays ? name : "txtFocus");
  }
}

}  // namespace tabulon
