// A second model with the same tableau, to try a step on.
//
//   basSafeCtl trial = twin_of(model);
//   sweep_column(trial);
#pragma once

#include "control/basSafeCtl.h"

namespace tabulon::lesson {

inline basSafeCtl twin_of(const basSafeCtl& model) {
  basSafeCtl twin;
  copy_tableau(twin, model);
  return twin;
}

}  // namespace tabulon::lesson
