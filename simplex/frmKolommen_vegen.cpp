#include "simplex/frmKolommen_vegen.h"

#include "platform/layout.h"

namespace tabulon {

namespace {

constexpr platform::Font plain{.points = 9};
constexpr platform::Font centred{.points = 9, .align = platform::Align::Centre};

constexpr platform::Placement placements[] = {
    {"lblKolom", {270, 330, 750, 270}, "Kolom :", plain},
    {"txtKolom", {1050, 285, 450, 360}, "", centred},
    {"VScrollKolom", {1500, 285, 285, 360}},
    {"lblRij", {1950, 330, 1350, 270}, "vegen met rij :", plain},
    {"txtRij", {3330, 285, 450, 360}, "", centred},
    {"VScrollRij", {3780, 285, 285, 360}},
    {"OKButton", {810, 960, 1290, 375}, "OK", centred},
    {"CancelButton", {2250, 960, 1290, 375}, "&Annuleren", centred},
};

}  // namespace

frmKolommen_vegen::frmKolommen_vegen(Surface& owner, basSafeCtl& model)
    : Dialog(owner, "frmKolommen_vegen", 4350, 1530, " Kolom vegen met een rij", model) {
  platform::place(*this, placements);
  txtKolom.set_locked(true);
  txtRij.set_locked(true);
  txtKolom.set_spoken_name("Kolom");
  txtRij.set_spoken_name("Rij");
  cancel_button = &CancelButton;
  add_spin_bar(VScrollKolom, txtKolom, "Kolom");
  add_spin_bar(VScrollRij, txtRij, "Rij");
  finish_tab_order();
}

void frmKolommen_vegen::on_load() {
  Dialog::on_load();
  start_spin_bar(VScrollKolom, model().columns(), 1, 1);
  start_spin_bar(VScrollRij, model().rows(), 1, 1);
}

void frmKolommen_vegen::on_ok() {
  model().PivotKolom = static_cast<std::int16_t>(VScrollKolom.value());
  model().PivotRij = static_cast<std::int16_t>(VScrollRij.value());
}

}  // namespace tabulon
