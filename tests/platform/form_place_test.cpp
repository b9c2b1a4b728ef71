#include "platform/form_place.h"

#include <gtest/gtest.h>

namespace tabulon::platform {
namespace {

constexpr Size surface{9000, 4440};
constexpr Size form{3000, 2000};

TEST(FormPlace, IsTheMiddleOfTheSurface) {
  EXPECT_EQ(form_place(form, surface, {}), (Point{3000, 1220}));
}

TEST(FormPlace, IsTheMiddleWhereWhatMustBeSeenLiesBeside) {
  EXPECT_EQ(form_place(form, surface, {300, 1500, 900, 285}), (Point{3000, 1220}));
  EXPECT_EQ(form_place(form, surface, {6000, 1500, 900, 285}), (Point{3000, 1220}));
}

// On the side to which it moves least.
TEST(FormPlace, IsBesideWhatMustBeSeen) {
  EXPECT_EQ(form_place(form, surface, {3000, 1500, 900, 285}), (Point{3000, 1875}));
  EXPECT_EQ(form_place(form, surface, {4200, 3000, 900, 285}), (Point{3000, 910}));
  EXPECT_EQ(form_place(form, surface, {2800, 500, 900, 3500}), (Point{3790, 1220}));
  EXPECT_EQ(form_place(form, surface, {5500, 500, 900, 3500}), (Point{2410, 1220}));
}

TEST(FormPlace, IsOnTheSurfaceWhereThereIsRoom) {
  const Point place = form_place({4000, 3500}, surface, {4400, 2000, 900, 285});
  EXPECT_EQ(place, (Point{310, 470}));
}

TEST(FormPlace, OfALargeFormSticksOutAsLittleAsCanBe) {
  const Point place = form_place({6000, 3700}, surface, {3000, 2000, 900, 285});
  EXPECT_EQ(place, (Point{3990, 370}));
}

}  // namespace
}  // namespace tabulon::platform
