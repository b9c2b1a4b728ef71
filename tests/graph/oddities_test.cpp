// What is odd about the graph on purpose, where no test of its subject tells it already.
#include "tests/control/control_fixture.h"

namespace tabulon {
namespace {

class Oddities : public ControlTest {};

TEST_F(Oddities, ACellLeftAsItWasRebuildsNothing) {
  open(two_products);
  choose("mnu_Grafiek");
  const platform::Control* const picture = control.find("PictureLN");
  model.first.row(1).write(CellRow::right_hand_side, 40);  // what a rebuild would draw
  host.forget_mirrored();
  enter_text("txtRL", 1, " 4");
  press("Tab");
  for (const auto& each : host.mirrored()) EXPECT_NE(each.control, picture);
}

// The point is that of the rows as they stand, canonical or not.
TEST_F(Oddities, NormalisingAColumnMovesThePoint) {
  open(two_products);
  choose("mnu_optimaliseren");
  press("Enter");
  choose("mnu_Grafiek");
  EXPECT_EQ(text("lblValX1"), " 2");
  choose("mnu_Kolommen_Normeren");
  scroll("VScrollKolom", 4);  // the slack of row 2, which holds -1/3 in the row of x1
  press("Enter");
  EXPECT_EQ(text("lblValX1"), "-6");
}

}  // namespace
}  // namespace tabulon
