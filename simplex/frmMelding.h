// The message form of the Simplex work and of cell input: shows the message of a number.
//
//   model.MeldingNr = 3;                      // "Optimale oplossing gevonden!"
//   frmMelding form(control, model);
//   co_await desk.show_modal(form);
#pragma once

#include "control/basSafeCtl.h"
#include "platform/surface.h"

namespace tabulon {

class frmMelding : public platform::Form {
 public:
  frmMelding(Surface& owner, const basSafeCtl& model);

  // Shows message MeldingNr: 0 is the free text strMelding, 1..4 are messages of its own; any other number
  // leaves the form as it was drawn.
  platform::Task<> on_activate() override;
  platform::Task<> on_click(platform::Control& control) override;

 private:
  const basSafeCtl& model_;
  platform::Image imgWarning{*this, "imgWarning"};
  platform::Label lblMelding{*this, "lblMelding"};
  platform::CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace tabulon
