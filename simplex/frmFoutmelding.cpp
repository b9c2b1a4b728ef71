#include "simplex/frmFoutmelding.h"

#include "platform/layout.h"

namespace tabulon {

namespace {

constexpr platform::Placement placements[] = {
    {"imgWarning", {210, 270, 480, 480}},
    {"lblMelding", {840, 240, 3750, 720}, "", {.points = 10, .wraps = true}},
    {"cmdOK", {1770, 1155, 1230, 375}, "OK", {.points = 9, .align = platform::Align::Centre}},
};

}  // namespace

frmFoutmelding::frmFoutmelding(Surface& owner, const basSafeCtl& model)
    : Form(owner, "frmFoutmelding", 4770, 1725), model_(model) {
  platform::place(*this, placements);
  imgWarning.set_picture(platform::Picture::Warning);
  cmdOK.set_tab(1, true);
  default_button = &cmdOK;
  cancel_button = &cmdOK;
}

platform::Task<> frmFoutmelding::on_activate() {
  set_caption(" Tabloria");
  lblMelding.set_text(model_.strFoutmelding);
  co_return;
}

platform::Task<> frmFoutmelding::on_click(platform::Control& control) {
  if (&control == &cmdOK) unload();
  co_return;
}

}  // namespace tabulon
