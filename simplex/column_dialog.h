// The dialogs that ask for a column, frmKolommen_normeren, or for a column and the row to sweep it with,
// frmKolommen_vegen. The result is NormeerKolom, or PivotKolom and PivotRij.
//
//   ColumnDialog form(control, frmKolommen_vegen, model);
//   co_await desk.show_modal(form);
//   if (model.DialoogOK) sweep_column(model);
#pragma once

#include <optional>
#include <span>

#include "platform/layout.h"
#include "simplex/dialog.h"

namespace tabulon {

struct ColumnDialogDesign {
  std::string_view name;
  platform::Twips width;
  std::string_view caption;
  std::string_view action;  // the name of the label behind the column
  std::span<const platform::Placement> placements;
  std::int16_t basSafeCtl::* column;
  std::int16_t basSafeCtl::* row;  // null: no row is asked for
};

extern const ColumnDialogDesign frmKolommen_normeren, frmKolommen_vegen;

class ColumnDialog : public Dialog {
 public:
  ColumnDialog(Surface& owner, const ColumnDialogDesign& design, basSafeCtl& model);
  void on_load() override;

 private:
  struct RowChoice {
    explicit RowChoice(Surface& dialog) : txtRij(dialog, "txtRij"), VScrollRij(dialog, "VScrollRij") {}
    platform::TextBox txtRij;
    platform::VScrollBar VScrollRij;
  };

  void add_choice(platform::TextBox& box, platform::VScrollBar& bar, std::string_view name);
  void on_ok() override;

  const ColumnDialogDesign& design_;
  platform::Label lblKolom{*this, "lblKolom"};
  platform::TextBox txtKolom{*this, "txtKolom"};
  platform::VScrollBar VScrollKolom{*this, "VScrollKolom"};
  platform::Label action_;
  std::optional<RowChoice> row_;
  platform::CommandButton CancelButton{*this, "CancelButton"};
};

}  // namespace tabulon
