// What is odd about numbers and texts on purpose, where no test of its subject tells it already.
#include <gtest/gtest.h>

#include <numbers>

#include "numbers/conversions.h"
#include "numbers/display.h"
#include "numbers/expression.h"

namespace tabulon::numbers {
namespace {

TEST(Oddities, ASmallEIsAnExponentInAListAndEulersNumberInACell) {
  EXPECT_EQ(Val("2e3"), 2000);
  EXPECT_DOUBLE_EQ(evaluate("2e3").value_or(0), 2 * std::numbers::e * 3);
}

TEST(Oddities, ANumberNearAMuchSimplerFractionBecomesThat) {
  double number = 0.10000000000614;
  EXPECT_EQ(strSoortGetal(kFractions, number), " 1/10");
  EXPECT_EQ(number, 0.1);
}

}  // namespace
}  // namespace tabulon::numbers
