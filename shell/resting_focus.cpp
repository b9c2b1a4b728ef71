#include "shell/resting_focus.h"

#include "platform/layout.h"

namespace tabulon {

namespace {

constexpr platform::Colour head_with_focus{0xC0C000}, head_without_focus{0xC0C0C0};

constexpr platform::Placement head[] = {
    {"FrameHead", {0, 315, 9000, 330}},
    {"txtFocus", platform::beside_surface},
};

}  // namespace

RestingFocus::RestingFocus(platform::Surface& surface) : surface_(surface) {
  platform::place(surface_, head);
  txtFocus.set_spoken_name("Simplex-tableau");
}

void RestingFocus::txtFocus_GotFocus() {
  txtFocus.set_text("");
  KleurFrameHead(-1);
}

void RestingFocus::KleurFrameHead(std::int16_t Aan) {
  if (Aan == -1) FrameHead.set_back_colour(head_with_focus);
  if (Aan == 0) FrameHead.set_back_colour(head_without_focus);
}

}  // namespace tabulon
