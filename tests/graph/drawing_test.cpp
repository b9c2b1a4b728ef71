#include "graph/drawing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/graph/problems.h"

namespace tabulon::graph {

namespace {

using platform::DisplayList;
using platform::rgb;
using platform::Stroke;
namespace stroke = platform::stroke;

const DisplayList& two_products_drawn() {
  static const DisplayList drawing = problem_drawing(two_products, 10, {" 10", " 10"});
  return drawing;
}

// The strokes of one kind, in order.
template <class S>
std::vector<S> all(const DisplayList& drawing) {
  std::vector<S> found;
  for (const Stroke& each : drawing.strokes())
    if (const auto* const wanted = std::get_if<S>(&each)) found.push_back(*wanted);
  return found;
}

std::vector<stroke::Segment> lines_in(const DisplayList& drawing, platform::Colour colour) {
  std::vector<stroke::Segment> found = all<stroke::Segment>(drawing);
  std::erase_if(found, [colour](const stroke::Segment& line) { return line.colour != colour; });
  return found;
}

int dots_in(const DisplayList& drawing) {
  std::uint32_t count = 0;
  for (const auto& dots : all<stroke::DotRuns>(drawing))
    for (const auto& run : dots.runs) count += run.count;
  return static_cast<int>(count);
}

}  // namespace

TEST(Drawing, TheScaleLeavesAMarginAroundTheSquareAndGrowsUpwards) {
  EXPECT_EQ(scale, (platform::Scale{{-345, 3300}, {3345, -300}}));
}

TEST(Drawing, TheRegionLiesBelowEverythingInLightYellow) {
  const auto* const region = std::get_if<stroke::DotRuns>(&two_products_drawn().strokes().front());
  ASSERT_TRUE(region);
  EXPECT_EQ(region->colour, platform::Colour{0xC0FFFF});
}

TEST(Drawing, TheRegionOfTwoProductsHasItsDots) {
  // Columns of x1 = 0, 0.05, .. 4. Up to x1 = 2 they reach x2 = 6, 121 dots; beyond, the third constraint's.
  int dots = 41 * 121;
  for (int column = 41; column <= 80; ++column) dots += (360 - 3 * column) / 2 + 1;
  const int on_the_slope = 20;  // there the rounding of the arithmetic decides
  EXPECT_LE(dots_in(two_products_drawn()), dots);
  EXPECT_GE(dots_in(two_products_drawn()), dots - on_the_slope);
  EXPECT_LE(std::get<stroke::DotRuns>(two_products_drawn().strokes().front()).runs.size(), 81U);
}

TEST(Drawing, WithoutConstraintsTheWholeSquareIsTheRegion) {
  const DisplayList drawing = problem_drawing({}, 100, {" 100", " 100"});
  EXPECT_EQ(dots_in(drawing), 201 * 201);
  EXPECT_TRUE(lines_in(drawing, rgb(0, 255, 0)).empty());
}

TEST(Drawing, AnEquationHasNoDotsButWhereAPointMeetsItExactly) {
  EXPECT_EQ(dots_in(problem_drawing(Constraints{exactly(1, 0, 3.33)}, 4, {" 4", " 4"})), 0);
  EXPECT_EQ(dots_in(problem_drawing(Constraints{exactly(1, 0, 2)}, 4, {" 4", " 4"})), 201);
  EXPECT_EQ(dots_in(problem_drawing(Constraints{exactly(1, 0, 2), exactly(0, 1, 3)}, 4, {" 4", " 4"})), 1);
}

TEST(Drawing, AxesTicksAndGrid) {
  const auto black = lines_in(two_products_drawn(), platform::Colour{0});
  ASSERT_EQ(black.size(), 22U);
  EXPECT_EQ(black[0], (stroke::Segment{{0, -90}, {0, 3000}, {0}}));
  EXPECT_EQ(black[1], (stroke::Segment{{-90, 0}, {3000, 0}, {0}}));
  EXPECT_EQ(black[2], (stroke::Segment{{300, -90}, {300, 0}, {0}}));
  EXPECT_EQ(black[3], (stroke::Segment{{-90, 300}, {0, 300}, {0}}));
  EXPECT_EQ(black[21], (stroke::Segment{{-90, 3000}, {0, 3000}, {0}}));
  const auto silver = lines_in(two_products_drawn(), platform::Colour{0xC0C0C0});
  ASSERT_EQ(silver.size(), 20U);
  EXPECT_EQ(silver[0], (stroke::Segment{{300, 0}, {300, 3000}, {0xC0C0C0}}));
  EXPECT_EQ(silver[1], (stroke::Segment{{0, 300}, {3000, 300}, {0xC0C0C0}}));
  EXPECT_EQ(silver[18], (stroke::Segment{{3000, 0}, {3000, 3000}, {0xC0C0C0}}));
}

TEST(Drawing, TheAxesAreNamedAndTheirEndsValued) {
  const DisplayList drawing = problem_drawing(two_products, 10, {" 10", " 10 "});
  EXPECT_EQ(all<stroke::Text>(drawing), (std::vector<stroke::Text>{{{3090, 120}, "x 1", {0}},
                                                                   {{2910, -120}, "10", {0}},
                                                                   {{-120, 3270}, "x 2", {0}},
                                                                   {{45, 3090}, "10", {0}}}));
}

TEST(Drawing, AValueOfMoreCharactersStartsFartherToTheLeft) {
  const DisplayList drawing = problem_drawing({}, 0.6, {" 0.6", " 0.6"});
  EXPECT_EQ(all<stroke::Text>(drawing)[1].at, (platform::Point{3000 - 3 * 45, -120}));
}

TEST(Drawing, TheConstraintsAreGreenAndOnTop) {
  const auto green = lines_in(two_products_drawn(), platform::Colour{0xFF00});
  ASSERT_EQ(green.size(), 3U);
  EXPECT_EQ(green[0], (stroke::Segment{{1200, 0}, {1200, 3000}, {0xFF00}}));
  EXPECT_EQ(green[1], (stroke::Segment{{0, 1800}, {3000, 1800}, {0xFF00}}));
  EXPECT_EQ(green[2], (stroke::Segment{{0, 2700}, {1800, 0}, {0xFF00}}));
  EXPECT_EQ(two_products_drawn().strokes().back(), Stroke(green[2]));
}

TEST(CopiedDrawing, AddsTheLevelLineInBlueAndTheCrossThatOnlyDarkens) {
  const DisplayList copy =
      copied_drawing(two_products_drawn(), Segment{{0, 2160}, {3000, 360}}, Point{487.5, 1912.5});
  const auto& before = two_products_drawn().strokes();
  ASSERT_EQ(copy.strokes().size(), before.size() + 2);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), copy.strokes().begin()));
  EXPECT_EQ(copy.strokes()[before.size()], Stroke(stroke::Segment{{0, 2160}, {3000, 360}, {0xFF0000}}));
  EXPECT_EQ(
      copy.strokes().back(),
      Stroke(stroke::Stamp{{487.5, 1912.5}, {225, 225}, platform::Picture::Cross, platform::Raster::And}));
}

TEST(CopiedDrawing, WithoutLevelLineAndCrossIsTheDrawing) {
  EXPECT_EQ(copied_drawing(two_products_drawn(), {}, {}), two_products_drawn());
}

}  // namespace tabulon::graph
