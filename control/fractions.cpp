#include "control/LPctrl.h"

namespace tabulon {

platform::Task<> LPctrl::mnu_Breuken_Click() {
  model_.Breuken = !mnu_Breuken.checked();
  mnu_Breuken.set_checked(model_.Breuken);
  report(rewrite_texts(model_));
  redraw();
  co_return;
}

}  // namespace tabulon
