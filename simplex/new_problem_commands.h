// The commands that start a new problem of a size that the person chooses.
#pragma once

#include "control/basSafeCtl_views.h"
#include "platform/surface.h"
#include "simplex/tableau_commands.h"

namespace tabulon {

class NewProblemCommands {
 public:
  NewProblemCommands(platform::Surface& surface, basSafeCtl& model, platform::Control& txtFocus,
                     TableauCommands& tableau, ProblemView& problem)
      : surface_(surface), model_(model), txtFocus_(txtFocus), tableau_(tableau), problem_(problem) {}

  platform::Task<> mnu_Nieuw_Simplex_Click();
  platform::Task<> mnu_Nieuw_Big_M_Click();

 private:
  platform::Task<> start_new_problem(platform::Form& dialog);

  platform::Surface& surface_;
  basSafeCtl& model_;
  platform::Control& txtFocus_;
  TableauCommands& tableau_;
  ProblemView& problem_;
};

}  // namespace tabulon
