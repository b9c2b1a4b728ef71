// What is odd about the keyboard on purpose, where no test of its subject tells it already.
#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Oddities : public ControlTest {};

TEST_F(Oddities, EnterInACellWalksOnAndIsNoLetterAndNoBeep) {
  open();
  enter_text("txtTableau", 1, "5");
  EXPECT_TRUE(press("Enter"));
  EXPECT_EQ(text("txtTableau", 1), "5");
  EXPECT_EQ(focus(), "txtTableau 2");
  EXPECT_EQ(text("txtTableau", 2), " 0");
  EXPECT_EQ(host.beeps, 0);
}

}  // namespace
}  // namespace tabulon
