// What the two dialogs for a new problem share: the heading, the picture, and the bars for the numbers of
// decision variables and of "<=" constraints with the slack variables that follow from them.
#pragma once

#include "simplex/dialog.h"

namespace tabulon {

class NewProblemDialog : public Dialog {
 protected:
  NewProblemDialog(Surface& owner, std::string_view name, platform::Twips width, platform::Twips height,
                   basSafeCtl& model);

  platform::Image imgMethode{*this, "imgMethode"};
  platform::Label lblMethode{*this, "lblMethode"};
  platform::Label lblBeslisVar{*this, "lblBeslisVar"};
  platform::Label lblNrBeslisVarM{*this, "lblNrBeslisVarM"};
  platform::VScrollBar VScroll_NrBeslisVarM{*this, "VScroll_NrBeslisVarM"};
  platform::ControlArray<platform::Label, 3> lblKleinerGelijk{*this, "lblKleinerGelijk"};
  platform::Label lblNrKleinerGelijkVglenM{*this, "lblNrKleinerGelijkVglenM"};
  platform::VScrollBar VScroll_NrKleinerGelijkVglenM{*this, "VScroll_NrKleinerGelijkVglenM"};
  platform::Label lblSlackVar{*this, "lblSlackVar"};
  platform::Label lblNrSlackVar{*this, "lblNrSlackVar"};
  platform::CommandButton CancelButton{*this, "CancelButton"};
};

// The standard method: only "<=" constraints.
class frmNieuw_Simplex : public NewProblemDialog {
 public:
  frmNieuw_Simplex(Surface& owner, basSafeCtl& model);
  void on_load() override;

 private:
  void on_ok() override;
  void on_spin(const platform::VScrollBar& bar) override;
};

// The Big-M method: ">=" and "=" constraints as well, at least 2 and at most 10 constraints in all.
class frmNieuw_Big_M : public NewProblemDialog {
 public:
  frmNieuw_Big_M(Surface& owner, basSafeCtl& model);
  void on_load() override;

 private:
  void on_ok() override;
  void on_spin(const platform::VScrollBar& bar) override;
  void narrow();
  void show_derived();

  platform::ControlArray<platform::Label, 3> lblGroterGelijk{*this, "lblGroterGelijk"};
  platform::Label lblNrGroterGelijkVglenM{*this, "lblNrGroterGelijkVglenM"};
  platform::VScrollBar VScroll_NrGroterGelijkVglenM{*this, "VScroll_NrGroterGelijkVglenM"};
  platform::Label lblGelijk{*this, "lblGelijk"};
  platform::Label lblNrGelijkVglenM{*this, "lblNrGelijkVglenM"};
  platform::VScrollBar VScroll_NrGelijkVglenM{*this, "VScroll_NrGelijkVglenM"};
  platform::Label lblBigM{*this, "lblBigM"};
  platform::Label lblNrBigMM{*this, "lblNrBigMM"};
  platform::VScrollBar VScroll_NrBigMM{*this, "VScroll_NrBigMM"};
  platform::Label lblSurplusVar{*this, "lblSurplusVar"};
  platform::Label lblNrSurplusVar{*this, "lblNrSurplusVar"};
  platform::Label lblKunstmatigeVar{*this, "lblKunstmatigeVar"};
  platform::Label lblNrKunstmatigeVar{*this, "lblNrKunstmatigeVar"};
  platform::Label lblNrKunstmatigeVarA{*this, "lblNrKunstmatigeVarA"};
};

}  // namespace tabulon
