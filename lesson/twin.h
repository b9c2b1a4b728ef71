// A second model with the same tableau, to try a step on. What commands hand each other, and open files, stay behind.
//
//   basSafeCtl trial = twin_of(model);
//   sweep_column(trial);
#pragma once

#include "control/basSafeCtl.h"

namespace tabulon::lesson {

inline basSafeCtl twin_of(const basSafeCtl& model) {
  basSafeCtl twin;
  twin.NrBeslisVar = model.NrBeslisVar;
  twin.NrKleinerGelijkVglen = model.NrKleinerGelijkVglen;
  twin.NrGroterGelijkVglen = model.NrGroterGelijkVglen;
  twin.NrGelijkVglen = model.NrGelijkVglen;
  twin.NrSpelingsVar = model.NrSpelingsVar;
  twin.NrSurplusVar = model.NrSurplusVar;
  twin.NrKunstmatigeVar = model.NrKunstmatigeVar;
  twin.BigM = model.BigM;
  twin.NrTableau = model.NrTableau;
  twin.TableauGestart = model.TableauGestart;
  twin.current = model.current;
  twin.first = model.first;
  twin.Breuken = model.Breuken;
  return twin;
}

}  // namespace tabulon::lesson
