#include "simplex/frmKolommen_normeren.h"

#include "platform/layout.h"

namespace tabulon {

namespace {

constexpr platform::Font plain{.points = 9};
constexpr platform::Font centred{.points = 9, .align = platform::Align::Centre};

constexpr platform::Placement placements[] = {
    {"lblKolom", {270, 330, 750, 270}, "Kolom :", plain},
    {"txtKolom", {1050, 285, 450, 360}, "", centred},
    {"VScrollKolom", {1500, 285, 285, 360}},
    {"lblNormeren", {1920, 330, 1200, 270}, "normeren", plain},
    {"OKButton", {270, 960, 1290, 375}, "OK", centred},
    {"CancelButton", {1710, 960, 1290, 375}, "&Annuleren", centred},
};

}  // namespace

frmKolommen_normeren::frmKolommen_normeren(Surface& owner, basSafeCtl& model)
    : Dialog(owner, "frmKolommen_normeren", 3270, 1530, " Kolom normeren", model) {
  platform::place(*this, placements);
  txtKolom.set_locked(true);
  txtKolom.set_spoken_name("Kolom");
  cancel_button = &CancelButton;
  add_spin_bar(VScrollKolom, txtKolom, "Kolom");
  finish_tab_order();
}

void frmKolommen_normeren::on_load() {
  Dialog::on_load();
  start_spin_bar(VScrollKolom, model().columns(), 1, 1);
}

void frmKolommen_normeren::on_ok() {
  model().NormeerKolom = static_cast<std::int16_t>(VScrollKolom.value());
}

}  // namespace tabulon
