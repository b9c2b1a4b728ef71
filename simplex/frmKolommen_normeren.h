// The dialog in which the column to normalise is chosen; the result is NormeerKolom.
#pragma once

#include "simplex/dialog.h"

namespace tabulon {

class frmKolommen_normeren : public Dialog {
 public:
  frmKolommen_normeren(Surface& owner, basSafeCtl& model);
  void on_load() override;

 private:
  void on_ok() override;

  platform::Label lblKolom{*this, "lblKolom"};
  platform::TextBox txtKolom{*this, "txtKolom"};
  platform::VScrollBar VScrollKolom{*this, "VScrollKolom"};
  platform::Label lblNormeren{*this, "lblNormeren"};
  platform::CommandButton CancelButton{*this, "CancelButton"};
};

}  // namespace tabulon
