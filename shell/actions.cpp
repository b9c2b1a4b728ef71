#include "shell/actions.h"

#include "control/basSafeCtl.h"
#include "files/file_commands.h"
#include "graph/panel.h"
#include "platform/desk.h"
#include "shell/resting_focus.h"
#include "simplex/fill_in.h"
#include "simplex/new_problem_commands.h"
#include "simplex/tableau_commands.h"

namespace tabulon {

using platform::Task;

namespace {

// ---- Which part a member function belongs to

TableauCommands& part(const Commands& with, const TableauCommands*) {
  return with.tableau;
}
NewProblemCommands& part(const Commands& with, const NewProblemCommands*) {
  return with.new_problem;
}
FileCommands& part(const Commands& with, const FileCommands*) {
  return with.files;
}
GraphPanel& part(const Commands& with, const GraphPanel*) {
  return with.graph;
}

template <class Part, class Done>
Part* owner(Done (Part::*method)());

template <auto method>
auto call(const Commands& with) {
  return (part(with, decltype(owner(method)){}).*method)();
}

template <auto method>
constexpr MenuAction::Work at_once{.at_once = call<method>};
template <auto method>
constexpr MenuAction::Work task{.task = call<method>};

// ---- When an item is enabled, and when it carries its mark

constexpr MenuAction::State always{};

constexpr auto fill_in_offered = [](const Commands& with) { return with.fill_in.offered; };
constexpr auto filling_in = [](const Commands& with) { return with.fill_in.CellenBewerkbaar; };
constexpr auto not_filling_in = [](const Commands& with) { return !with.fill_in.CellenBewerkbaar; };
constexpr auto in_fractions = [](const Commands& with) { return with.model.Breuken; };
constexpr auto has_graph = [](const Commands& with) { return with.graph.is_offered(); };
constexpr auto shows_graph = [](const Commands& with) { return with.graph.is_open(); };

Task<> mnu_About_Click(const Commands& with) {
  co_await with.resting.take_focus();
  co_await with.resting.surface().desk().pending_events();
  co_await with.messages.ShowAboutBox();
  co_await with.resting.take_focus();
}

using Tableau = TableauCommands;
using NewProblem = NewProblemCommands;
using Files = FileCommands;

constexpr MenuAction table[] = {
    {0, "mnu_Bestand", "&Bestand"},
    {1, "mnu_Nieuw", "&Nieuw"},
    {2, "mnu_Nieuw_Simplex", "De &Standaard Simplex-methode", always,
     task<&NewProblem::mnu_Nieuw_Simplex_Click>},
    {2, "mnu_Nieuw_Big_M", "De '&Big-M'-methode", always, task<&NewProblem::mnu_Nieuw_Big_M_Click>},
    {1, "separator5", "-"},
    {1, "mnu_Openen", "&Openen", always, task<&Files::mnu_Openen_Click>},
    {1, "mnu_Tableau_Opslaan_Als", "Opslaan &als ...", always, task<&Files::mnu_Tableau_Opslaan_Als_Click>},
    {1, "Separator6", "-"},
    {1,
     "mnu_Tableau_Invullen",
     "&Invullen",
     {fill_in_offered, filling_in},
     at_once<&Tableau::mnu_Tableau_Invullen_Click>},
    {1,
     "mnu_Tableau_Invullen_Afsluiten",
     "Invullen a&fsluiten",
     {fill_in_offered, not_filling_in},
     at_once<&Tableau::mnu_Tableau_Invullen_Afsluiten_Click>},

    {0, "mnu_Bewerken", "Be&werken"},
    {1, "mnu_Pivot_element", "&Pivot-element opvragen", always, task<&Tableau::mnu_Pivot_element_Click>},
    {1, "mnu_Basisoplossing", "&Basisoplossing opvragen", always, task<&Tableau::mnu_Basisoplossing_Click>},
    {1, "separator4", "-"},
    {1, "mnu_Kolommen_Normeren", "Kolommen &Normeren", always, task<&Tableau::mnu_Kolommen_Normeren_Click>},
    {1, "mnu_Kolommen_vegen", "Kolom &Vegen met een rij", always, task<&Tableau::mnu_Kolommen_vegen_Click>},
    {1, "separator3", "-"},
    {1, "mnu_Automatisch_vegen", "&Automatisch vegen (stap voor stap)", always,
     task<&Tableau::mnu_Automatisch_vegen_Click>},
    {1, "mnu_optimaliseren", "&Optimaliseren", always, task<&Tableau::mnu_optimaliseren_Click>},
    {1, "separator7", "-"},
    {1, "mnu_Reset", "&Reset", always, at_once<&Tableau::mnu_Reset_Click>},

    {0, "mnu_Opties", "&Opties"},
    {1, "mnu_Breuken", "&Breuken", {.is_marked = in_fractions}, at_once<&Tableau::mnu_Breuken_Click>},
    {1, "mnu_Grafiek", "&Grafisch", {has_graph, shows_graph}, at_once<&GraphPanel::mnu_Grafiek_Click>},

    {0, "mnu_Help", "&Help"},
    {1, "mnu_About", "&Info", always, {.task = mnu_About_Click}},
};

}  // namespace

std::span<const MenuAction> actions() {
  return table;
}

}  // namespace tabulon
