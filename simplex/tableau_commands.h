// The commands that work on the tableau.
//
//   TableauCommands commands({surface, model, fill_in, messages, txtFocus, grid, graph});
//   co_await commands.mnu_optimaliseren_Click();
#pragma once

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "platform/surface.h"
#include "simplex/fill_in.h"
#include "simplex/messages.h"

namespace tabulon {

struct ColumnDialogDesign;

class TableauCommands {
 public:
  // What the commands work on, and who shows what comes of it.
  struct Surroundings {
    platform::Surface& surface;
    basSafeCtl& model;
    FillIn& fill_in;
    Messages& messages;
    platform::Control& txtFocus;  // where the focus rests
    TableauView& tableau;
    GraphView& graph;
  };

  explicit TableauCommands(const Surroundings& around) : around_(around) {}

  // ---- By the person's choice
  platform::Task<> mnu_Pivot_element_Click();
  platform::Task<> mnu_Basisoplossing_Click();
  platform::Task<> mnu_Kolommen_Normeren_Click();
  platform::Task<> mnu_Kolommen_vegen_Click();

  // ---- By themselves
  platform::Task<> mnu_Automatisch_vegen_Click();
  platform::Task<> mnu_optimaliseren_Click();

  // ---- The tableau as it was, as it is typed in, and as it is written
  void mnu_Reset_Click();
  void mnu_Tableau_Invullen_Click() { set_fill_in(!around_.fill_in.CellenBewerkbaar); }
  // Each of the two items toggles the pair.
  void mnu_Tableau_Invullen_Afsluiten_Click() { mnu_Tableau_Invullen_Click(); }
  void mnu_Breuken_Click();

  // Opens fill-in mode for a tableau that nothing has worked on yet.
  void open_fill_in();
  // Ends it, until a new problem or Reset.
  void close_fill_in();

 private:
  // Brings the tableau into canonical form for its basis, which counts as no new tableau. False when the
  // model's counts are beyond the storage.
  platform::Task<bool> BasisoplossingOpvragen();
  // Searches the pivot element, shows it or says why there is none; false when there is none.
  platform::Task<bool> ZoekPivotElement();
  platform::Task<> ask(const ColumnDialogDesign& design);
  void KolomNormeren();
  bool KolomVegen(ChangeCause cause);
  platform::Task<> pause_one_second();
  platform::Task<> rest_focus();
  void set_fill_in(bool on);

  basSafeCtl& model() { return around_.model; }
  platform::Desk& desk() const { return around_.surface.desk(); }

  Surroundings around_;
};

}  // namespace tabulon
