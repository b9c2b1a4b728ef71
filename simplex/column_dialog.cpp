#include "simplex/column_dialog.h"

namespace tabulon {

namespace font = platform::font;

namespace {

constexpr platform::Placement column_choice[] = {
    {"lblKolom", {270, 330, 750, 270}, "Kolom :", font::plain},
    {"txtKolom", {1050, 285, 450, 360}, "", font::centred},
    {"VScrollKolom", {1500, 285, 285, 360}},
};

constexpr platform::Placement to_normalise[] = {
    {"lblNormeren", {1920, 330, 1200, 270}, "normeren", font::plain},
    {"OKButton", {270, 960, 1290, 375}, "OK", font::centred},
    {"CancelButton", {1710, 960, 1290, 375}, "&Annuleren", font::centred},
};

constexpr platform::Placement to_sweep[] = {
    {"lblRij", {1950, 330, 1350, 270}, "vegen met rij :", font::plain},
    {"txtRij", {3330, 285, 450, 360}, "", font::centred},
    {"VScrollRij", {3780, 285, 285, 360}},
    {"OKButton", {810, 960, 1290, 375}, "OK", font::centred},
    {"CancelButton", {2250, 960, 1290, 375}, "&Annuleren", font::centred},
};

constexpr platform::Twips dialog_height = 1530;

std::int16_t choice(const platform::VScrollBar& bar) {
  return static_cast<std::int16_t>(bar.value());
}

}  // namespace

const ColumnDialogDesign frmKolommen_normeren{.name = "frmKolommen_normeren",
                                              .width = 3270,
                                              .caption = " Kolom normeren",
                                              .action = "lblNormeren",
                                              .placements = to_normalise,
                                              .column = &basSafeCtl::NormeerKolom,
                                              .row = nullptr};

const ColumnDialogDesign frmKolommen_vegen{.name = "frmKolommen_vegen",
                                           .width = 4350,
                                           .caption = " Kolom vegen met een rij",
                                           .action = "lblRij",
                                           .placements = to_sweep,
                                           .column = &basSafeCtl::PivotKolom,
                                           .row = &basSafeCtl::PivotRij};

ColumnDialog::ColumnDialog(Surface& owner, const ColumnDialogDesign& design, basSafeCtl& model)
    : Dialog(owner, design.name, design.width, dialog_height, design.caption, model),
      design_(design),
      action_(*this, design.action) {
  if (design.row) row_.emplace(*this);
  platform::place(*this, column_choice);
  platform::place(*this, design.placements);
  cancel_button = &CancelButton;
  add_choice(txtKolom, VScrollKolom, "Kolom");
  if (row_) add_choice(row_->txtRij, row_->VScrollRij, "Rij");
  finish_tab_order();
}

void ColumnDialog::add_choice(platform::TextBox& box, platform::VScrollBar& bar, std::string_view name) {
  box.set_locked(true);
  box.set_spoken_name(name);
  add_spin_bar(bar, box, name);
}

void ColumnDialog::on_load() {
  Dialog::on_load();
  start_spin_bar(VScrollKolom, model().columns(), 1, 1);
  if (row_) start_spin_bar(row_->VScrollRij, model().rows(), 1, 1);
}

void ColumnDialog::on_ok() {
  model().*design_.column = choice(VScrollKolom);
  if (row_) model().*design_.row = choice(row_->VScrollRij);
}

}  // namespace tabulon
