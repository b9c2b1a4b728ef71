// The dialog in which the column and the row to sweep with are chosen; the results are PivotKolom and
// PivotRij.
#pragma once

#include "simplex/dialog.h"

namespace tabulon {

class frmKolommen_vegen : public Dialog {
 public:
  frmKolommen_vegen(Surface& owner, basSafeCtl& model);
  void on_load() override;

 private:
  void on_ok() override;

  platform::Label lblKolom{*this, "lblKolom"};
  platform::TextBox txtKolom{*this, "txtKolom"};
  platform::VScrollBar VScrollKolom{*this, "VScrollKolom"};
  platform::Label lblRij{*this, "lblRij"};
  platform::TextBox txtRij{*this, "txtRij"};
  platform::VScrollBar VScrollRij{*this, "VScrollRij"};
  platform::CommandButton CancelButton{*this, "CancelButton"};
};

}  // namespace tabulon
