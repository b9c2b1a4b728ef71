// The form that lists the basic solution: for each row its basic variable and its value, and the value of F.
#pragma once

#include "control/basSafeCtl.h"
#include "simplex/dialog.h"

namespace tabulon {

class frmBasis_Oplossing : public Dialog {
 public:
  frmBasis_Oplossing(Surface& owner, basSafeCtl& model);
  void on_load() override;

 private:
  void format_line(int line);

  platform::ControlArray<platform::Label, most_rows> lblBasisVar{*this, "lblBasisVar"};
  platform::ControlArray<platform::Label, most_rows> lblGelijk{*this, "lblGelijk"};
  platform::ControlArray<platform::TextBox, most_rows> txtRL{*this, "txtRL"};
  platform::Label lblDoelfunctie{*this, "lblDoelfunctie"};
  platform::Label lblFRL{*this, "lblFRL"};
};

}  // namespace tabulon
