// The form that shows a free error text, strFoutmelding.
#pragma once

#include "control/basSafeCtl.h"
#include "platform/surface.h"

namespace tabulon {

class frmFoutmelding : public platform::Form {
 public:
  frmFoutmelding(Surface& owner, const basSafeCtl& model);
  platform::Task<> on_activate() override;
  platform::Task<> on_click(platform::Control& control) override;

 private:
  const basSafeCtl& model_;
  platform::Image imgWarning{*this, "imgWarning"};
  platform::Label lblMelding{*this, "lblMelding"};
  platform::CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace tabulon
