// The pointer over a control, where the system is too busy to tell of each move.
#include "tests/activex/sample_view.h"

namespace tabulon::activex {
namespace {

using Log = std::vector<std::string>;

class PointerInAContainer : public SampleView {
 protected:
  // At any density: 5 pixels are as many units as the surface says.
  std::string at(const char* action, const char* control, POINT pixels) const {
    const auto units = [&](LONG pixel) {
      return std::to_string(static_cast<int>(pixel * 1440.0 / view_.dpi() + 1e-9));
    };
    return std::string(action) + " " + control + " " + units(pixels.x) + " " + units(pixels.y);
  }
};

TEST_F(PointerInAContainer, ADragEndsWhereTheButtonWentUp) {
  send(sample_.image, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
  send(sample_.image, WM_LBUTTONUP, 0, {40, 60});
  EXPECT_EQ(sample_.log, (Log{at("down", "image", {5, 5}), at("move", "image", {40, 60}),
                              at("up", "image", {40, 60}), "click image"}));
}

TEST_F(PointerInAContainer, APlaceThatIsKnownAlreadyIsNoMove) {
  send(sample_.image, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
  send(sample_.image, WM_MOUSEMOVE, MK_LBUTTON, {8, 8});
  send(sample_.image, WM_LBUTTONUP, 0, {8, 8});
  EXPECT_EQ(sample_.log, (Log{at("down", "image", {5, 5}), at("move", "image", {8, 8}),
                              at("up", "image", {8, 8}), "click image"}));
}

TEST_F(PointerInAContainer, AButtonIsNotPressedByAReleaseElsewhere) {
  send(sample_.button, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
  send(sample_.button, WM_LBUTTONUP, 0, {5, 500});
  EXPECT_EQ(sample_.log.back(), at("up", "button", {5, 500}));
  send(sample_.button, WM_LBUTTONDOWN, MK_LBUTTON, {5, 5});
  send(sample_.button, WM_LBUTTONUP, 0, {5, 5});
  EXPECT_EQ(sample_.log.back(), "click button");
}

}  // namespace
}  // namespace tabulon::activex
