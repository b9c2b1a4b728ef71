// Text between Tabulon and the system.
#include "hosts/activex/text.h"

#include <gtest/gtest.h>

namespace tabulon::activex {
namespace {

TEST(Text, EveryPlaneSurvivesBothWays) {
  EXPECT_EQ(wide("\u2264 \U0001F600"), L"\u2264 \xD83D\xDE00");
  EXPECT_EQ(narrow(wide("F = 3 \u00B7 x1 \u2264 \U0001F600")), "F = 3 \u00B7 x1 \u2264 \U0001F600");
}

TEST(Text, NothingStaysNothing) {
  EXPECT_EQ(wide(""), L"");
  EXPECT_EQ(narrow(L""), "");
}

TEST(Text, HalfAPairBecomesTheReplacement) {
  EXPECT_EQ(narrow(L"\xD83D"), "\uFFFD");
  EXPECT_EQ(wide("\xFF"), L"\xFFFD");
}

}  // namespace
}  // namespace tabulon::activex
