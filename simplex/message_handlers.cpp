// The methods that open the message forms; each time a fresh form.
#include "control/LPctrl.h"
#include "simplex/frmAboutLP.h"
#include "simplex/frmFoutmelding.h"
#include "simplex/frmMelding.h"

namespace tabulon {

using platform::Task;

Task<> LPctrl::ShowAboutBox() {
  frmAboutLP form(*this);
  co_await desk().show_modal(form);
}

Task<> LPctrl::ShowfrmMelding() {
  frmMelding form(*this, model_);
  co_await desk().show_modal(form);
}

Task<> LPctrl::ShowfrmFoutmelding() {
  frmFoutmelding form(*this, model_);
  co_await desk().show_modal(form);
}

}  // namespace tabulon
