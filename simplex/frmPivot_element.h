// The form that tells the pivot element: its column and its row.
#pragma once

#include "control/basSafeCtl.h"
#include "simplex/focus_form.h"

namespace tabulon {

class frmPivot_element : public FocusForm {
 public:
  frmPivot_element(Surface& owner, const basSafeCtl& model);
  void on_load() override;

 private:
  const basSafeCtl& model_;
  platform::Image imgPivot{*this, "imgPivot"};
  platform::Label lblKolom{*this, "lblKolom"};
  platform::Label lblPivot_kolom{*this, "lblPivot_kolom"};
  platform::Label lblRij{*this, "lblRij"};
  platform::Label lblPivot_rij{*this, "lblPivot_rij"};
};

}  // namespace tabulon
