#include <vector>

#include "platform/captions.h"
#include "tests/control/control_fixture.h"

namespace tabulon::tests {
namespace {

using platform::Menu;

class Menus : public ControlTest {
 protected:
  void SetUp() override { open(two_products); }
  const Menu& item(std::string_view name) { return static_cast<const Menu&>(*control.find(name)); }
};

// ---- What stands in them

struct Item {
  const char *name, *caption;
  char access_key;
  friend bool operator==(const Item& one, const Item& other) {
    return std::string_view(one.name) == other.name && std::string_view(one.caption) == other.caption &&
           one.access_key == other.access_key;
  }
};

void PrintTo(const Item& item, std::ostream* out) {
  *out << item.name << " " << item.caption << " " << item.access_key;
}

std::vector<Item> items_of(const Menu& menu) {
  std::vector<Item> items;
  for (const Menu* each : menu.items())
    items.push_back({each->name().data(), each->text().c_str(),
                     each->is_separator() ? ' ' : static_cast<char>(platform::access_key(each->text()))});
  return items;
}

TEST_F(Menus, BestandHoldsItsItemsInOrder) {
  EXPECT_EQ(items_of(item("mnu_Bestand")),
            (std::vector<Item>{{"mnu_Nieuw", "&Nieuw", 'N'},
                               {"separator5", "-", ' '},
                               {"mnu_Openen", "&Openen", 'O'},
                               {"mnu_Tableau_Opslaan_Als", "Opslaan &als ...", 'A'},
                               {"Separator6", "-", ' '},
                               {"mnu_Tableau_Invullen", "&Invullen", 'I'},
                               {"mnu_Tableau_Invullen_Afsluiten", "Invullen a&fsluiten", 'F'}}));
}

TEST_F(Menus, NieuwHoldsTheTwoMethods) {
  EXPECT_EQ(items_of(item("mnu_Nieuw")),
            (std::vector<Item>{{"mnu_Nieuw_Simplex", "De &Standaard Simplex-methode", 'S'},
                               {"mnu_Nieuw_Big_M", "De '&Big-M'-methode", 'B'}}));
}

TEST_F(Menus, BewerkenHoldsItsItemsInOrder) {
  EXPECT_EQ(items_of(item("mnu_Bewerken")),
            (std::vector<Item>{{"mnu_Pivot_element", "&Pivot-element opvragen", 'P'},
                               {"mnu_Basisoplossing", "&Basisoplossing opvragen", 'B'},
                               {"separator4", "-", ' '},
                               {"mnu_Kolommen_Normeren", "Kolommen &Normeren", 'N'},
                               {"mnu_Kolommen_vegen", "Kolom &Vegen met een rij", 'V'},
                               {"separator3", "-", ' '},
                               {"mnu_Automatisch_vegen", "&Automatisch vegen (stap voor stap)", 'A'},
                               {"mnu_optimaliseren", "&Optimaliseren", 'O'},
                               {"separator7", "-", ' '},
                               {"mnu_Reset", "&Reset", 'R'}}));
}

TEST_F(Menus, OptiesHoldsItsItemsInOrder) {
  EXPECT_EQ(items_of(item("mnu_Opties")),
            (std::vector<Item>{{"mnu_Breuken", "&Breuken", 'B'}, {"mnu_Grafiek", "&Grafisch", 'G'}}));
}

TEST_F(Menus, HelpHoldsInfo) {
  EXPECT_EQ(items_of(item("mnu_Help")), (std::vector<Item>{{"mnu_About", "&Info", 'I'}}));
}

TEST_F(Menus, ThePopUpsHaveTheCaptionsOfTheirButtons) {
  EXPECT_EQ(item("mnu_Bestand").text(), "&Bestand");
  EXPECT_EQ(item("mnu_Bewerken").text(), "Be&werken");
  EXPECT_EQ(item("mnu_Opties").text(), "&Opties");
  EXPECT_EQ(item("mnu_Help").text(), "&Help");
  EXPECT_EQ(text("cmd_Bestand"), "&Bestand");
  EXPECT_EQ(text("cmd_Bewerken"), "Be&werken");
  EXPECT_EQ(text("cmd_Opties"), "&Opties");
  EXPECT_EQ(text("cmd_Help"), "&Help");
}

// ---- Where they open

struct Opening {
  const char *button, *key, *menu;
  double by_mouse, by_key;  // where the button stands plus 60, or a fixed place
};

void PrintTo(const Opening& opening, std::ostream* out) {
  *out << opening.button;
}

constexpr Opening openings[] = {
    {"cmd_Bestand", "Alt+B", "mnu_Bestand", -1, -1},
    {"cmd_Bewerken", "Alt+W", "mnu_Bewerken", -1, -1},
    {"cmd_Opties", "Alt+O", "mnu_Opties", 2530, -1},
    {"cmd_Help", "Alt+H", "mnu_Help", 3645, -1},
};

class Openings : public Menus, public testing::WithParamInterface<Opening> {};

TEST_P(Openings, AButtonOpensItsMenuInItsPlace) {
  control.find(GetParam().button)->set_left(777);
  click(GetParam().button);
  ASSERT_EQ(menu(), GetParam().menu);
  EXPECT_EQ(host.open_menu()->x(), GetParam().by_mouse < 0 ? 837 : GetParam().by_mouse);
  EXPECT_EQ(host.open_menu()->y(), 285);
}

TEST_P(Openings, AButtonIsMarkedWhileItsMenuIsOpen) {
  const platform::Control& button = *control.find(GetParam().button);
  EXPECT_EQ(button.role(), platform::Role::OpensMenu);
  press(GetParam().key);
  EXPECT_EQ(button.role(), platform::Role::MenuOpen);
  press("Escape");
  EXPECT_EQ(button.role(), platform::Role::OpensMenu);
}

TEST_P(Openings, AltAndItsLetterOpenItAtTheButton) {
  control.find(GetParam().button)->set_left(777);
  EXPECT_TRUE(press(GetParam().key));
  ASSERT_EQ(menu(), GetParam().menu);
  EXPECT_EQ(host.open_menu()->x(), 837);
  EXPECT_EQ(host.open_menu()->y(), 285);
}

TEST_P(Openings, TheFocusIsOutOfTheCellsWhileItIsOpenAndAfterwards) {
  click("txtTableau", 1);
  click(GetParam().button);
  EXPECT_EQ(focus(), "txtFocus");
  host.desk().menu_dismiss();
  host.answer_all();
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(focus(), "txtFocus");
}

TEST_P(Openings, BadInputIsSaidFirstAndNoMenuOpens) {
  enter_text("txtTableau", 1, "1/");
  click(GetParam().button);
  EXPECT_EQ(text("lblMelding"), "Invoerfout!");
  EXPECT_EQ(menu(), "");
  press("Enter");
  EXPECT_EQ(form(), "");
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(focus(), "txtTableau 1");
  press(GetParam().key);
  EXPECT_EQ(form(), "frmMelding");
  press("Enter");
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(focus(), "txtTableau 1");
}

TEST_P(Openings, OtherShiftsOpenNothing) {
  const std::string letter = std::string(GetParam().key).substr(4);
  for (const char* shifts : {"", "Shift+", "Ctrl+", "Ctrl+Alt+", "Shift+Alt+"}) {
    press(shifts + letter);
    EXPECT_EQ(menu(), "") << shifts;
  }
}

INSTANTIATE_TEST_SUITE_P(All, Openings, testing::ValuesIn(openings));

TEST_F(Menus, OtherLettersWithAltAreLeftToTheHost) {
  EXPECT_FALSE(press("Alt+X"));
  EXPECT_FALSE(press("Alt+E"));
  EXPECT_EQ(menu(), "");
}

TEST_F(Menus, HelpLetsTheScreenFollowBeforeItOpens) {
  host.desk().click(*control.find("cmd_Help"));
  EXPECT_EQ(menu(), "");
  EXPECT_TRUE(host.has_pending());
  host.answer_all();
  EXPECT_EQ(menu(), "mnu_Help");
  host.desk().menu_dismiss();
}

TEST_F(Menus, TheOthersOpenAtOnce) {
  for (const char* button : {"cmd_Bestand", "cmd_Bewerken", "cmd_Opties"}) {
    host.desk().click(*control.find(button));
    EXPECT_NE(menu(), "") << button;
    host.desk().menu_dismiss();
  }
}

TEST_F(Menus, ADismissedMenuRunsNothing) {
  click("cmd_Bewerken");
  press("Escape");
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(model.NrTableau, 1);
  EXPECT_FALSE(host.is_busy(control));
}

TEST_F(Menus, WhileAMenuIsOpenTheControlTakesNothingElse) {
  click("cmd_Bewerken");
  EXPECT_FALSE(host.desk().click(*control.find("cmd_Bestand")));
  EXPECT_FALSE(host.desk().focus(*control.find("txtTableau", 1)));
  EXPECT_EQ(menu(), "mnu_Bewerken");
}

TEST_F(Menus, ItemsAreChosenByTheirAccessKeys) {
  press("Alt+W");
  press("O");
  EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
  press("Enter");
  press("Alt+O");
  press("B");
  EXPECT_TRUE(checked("mnu_Breuken"));
  press("Alt+B");
  press("N");
  press("B");
  EXPECT_EQ(form(), "frmNieuw_Big_M");
}

TEST_F(Menus, ArrowsAndEnterChooseToo) {
  press("Alt+B");
  press("Down");
  press("Right");
  press("Enter");
  EXPECT_EQ(form(), "frmNieuw_Simplex");
}

TEST_F(Menus, SeparatorsCannotBeChosen) {
  EXPECT_FALSE(choose("separator4"));
  EXPECT_EQ(menu(), "");
}

// ---- Each item runs its command

struct Command {
  const char *item, *form;
};

void PrintTo(const Command& command, std::ostream* out) {
  *out << command.item;
}

class Commands : public Menus, public testing::WithParamInterface<Command> {};

TEST_P(Commands, OpenTheirForm) {
  EXPECT_TRUE(choose(GetParam().item));
  EXPECT_EQ(form(), GetParam().form);
  press("Escape");
  EXPECT_EQ(form(), "");
  EXPECT_FALSE(host.is_busy(control));
}

INSTANTIATE_TEST_SUITE_P(All, Commands,
                         testing::Values(Command{"mnu_Nieuw_Simplex", "frmNieuw_Simplex"},
                                         Command{"mnu_Nieuw_Big_M", "frmNieuw_Big_M"},
                                         Command{"mnu_Pivot_element", "frmPivot_element"},
                                         Command{"mnu_Basisoplossing", "frmBasis_Oplossing"},
                                         Command{"mnu_Kolommen_Normeren", "frmKolommen_normeren"},
                                         Command{"mnu_Kolommen_vegen", "frmKolommen_vegen"},
                                         Command{"mnu_optimaliseren", "frmMelding"},
                                         Command{"mnu_About", "frmAboutLP"}));

TEST_F(Menus, AFormThatAScriptOpensOverAFileDialogCanBeClosedAfterIt) {
  choose("mnu_Openen");
  ASSERT_TRUE(host.file_dialog());
  host.desk().call(control, control.ShowAboutBox());
  host.cancel_file_dialog();
  EXPECT_EQ(form(), "frmAboutLP");
  EXPECT_TRUE(press("Enter"));
  EXPECT_EQ(form(), "");
  EXPECT_FALSE(host.is_busy(control));
  EXPECT_TRUE(click("txtTableau", 1));
}

// ---- Check marks and enabled states

TEST_F(Menus, FillInModeIsOnAtFirst) {
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen"));
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(Menus, EachFillInItemTogglesThePair) {
  const auto state = [this] {
    return std::vector<bool>{checked("mnu_Tableau_Invullen"), checked("mnu_Tableau_Invullen_Afsluiten"),
                             locked("txtTableau", 1)};
  };
  const std::vector<bool> filling_in{true, false, false}, closed{false, true, true};
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_EQ(state(), closed);
  choose("mnu_Tableau_Invullen_Afsluiten");
  EXPECT_EQ(state(), filling_in);
  choose("mnu_Tableau_Invullen");
  EXPECT_EQ(state(), closed);
  choose("mnu_Tableau_Invullen");
  EXPECT_EQ(state(), filling_in);
}

TEST_F(Menus, TheFirstStepDisablesBothFillInItemsUntilReset) {
  choose("mnu_Kolommen_Normeren");
  press("Enter");
  EXPECT_FALSE(enabled("mnu_Tableau_Invullen"));
  EXPECT_FALSE(enabled("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen"));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_FALSE(choose("mnu_Tableau_Invullen"));
  choose("mnu_Reset");
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen"));
  EXPECT_TRUE(enabled("mnu_Tableau_Invullen_Afsluiten"));
  EXPECT_TRUE(checked("mnu_Tableau_Invullen"));
  EXPECT_FALSE(checked("mnu_Tableau_Invullen_Afsluiten"));
}

TEST_F(Menus, EveryStepClosesFillInMode) {
  for (const char* step : {"mnu_Kolommen_Normeren", "mnu_Kolommen_vegen", "mnu_optimaliseren",
                           "mnu_Pivot_element", "mnu_Basisoplossing"}) {
    choose("mnu_Reset");
    ASSERT_TRUE(checked("mnu_Tableau_Invullen")) << step;
    choose(step);
    press("Enter");
    EXPECT_FALSE(checked("mnu_Tableau_Invullen")) << step;
    EXPECT_FALSE(enabled("mnu_Tableau_Invullen")) << step;
    EXPECT_TRUE(locked("txtRL", 1)) << step;
  }
}

TEST_F(Menus, BreukenIsMarkedWhileFractionsAreShown) {
  EXPECT_FALSE(checked("mnu_Breuken"));
  choose("mnu_Breuken");
  EXPECT_TRUE(checked("mnu_Breuken"));
  choose("mnu_Reset");
  EXPECT_TRUE(checked("mnu_Breuken"));
  set("prmShow", true);
  EXPECT_FALSE(checked("mnu_Breuken"));
}

TEST_F(Menus, GrafischNeedsTwoDecisionVariables) {
  EXPECT_TRUE(enabled("mnu_Grafiek"));
  set("prmNrBeslisVar", 3.0);
  EXPECT_TRUE(enabled("mnu_Grafiek"));
  set("prmShow", true);
  EXPECT_FALSE(enabled("mnu_Grafiek"));
  EXPECT_FALSE(choose("mnu_Grafiek"));
  set("prmNrBeslisVar", 2.0);
  set("prmShow", true);
  EXPECT_TRUE(enabled("mnu_Grafiek"));
  EXPECT_FALSE(checked("mnu_Grafiek"));
}

// ---- Reset

class Reset : public ControlTest {};

TEST_F(Reset, UndoesEveryStep) {
  open(two_products);
  choose("mnu_optimaliseren");
  press("Enter");
  ASSERT_EQ(text("lblNRTableau"), "3-e Simplex-tableau");
  choose("mnu_Reset");
  EXPECT_EQ(text("lblNRTableau"), "1-e Simplex-tableau");
  EXPECT_EQ(text("lblFRL"), " 0");
  EXPECT_EQ(text("txtRij_F", 1), "-3");
  EXPECT_EQ(cell(3, 1), " 3");
  EXPECT_EQ(text("txtRL", 3), " 18");
  EXPECT_EQ(text("lblBasis", 2), "x  4");
  EXPECT_EQ(model.current.basis(3), 5);
}

TEST_F(Reset, GoesBackToTheFirstColumnAndRow) {
  open(numbered(8, 9));
  scroll("HScroll", 4);
  scroll("VScroll", 3);
  model.PivotRij = 2;
  model.PivotKolom = 3;
  choose("mnu_Reset");
  EXPECT_EQ(model.StartKolom, 1);
  EXPECT_EQ(model.StartRij, 1);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_EQ(bar("HScroll").value(), 1);
  EXPECT_EQ(bar("HScroll").max(), 13);
  EXPECT_EQ(bar("VScroll").value(), 1);
  EXPECT_EQ(bar("VScroll").max(), 3);
  EXPECT_EQ(cell(1, 1), " 101");
  EXPECT_EQ(colour("txtTableau", box(2, 3)), "242, 243, 255");
}

TEST_F(Reset, OfAnEmptyTableauChangesNothingThatIsSeen) {
  open();
  host.forget_mirrored();
  choose("mnu_Reset");
  for (const auto& each : host.mirrored()) EXPECT_NE(each.control->name(), "txtTableau");
  EXPECT_EQ(cell(2, 4), " 1");
}

TEST_F(Reset, UnlocksTheCells) {
  open(two_products);
  choose("mnu_Tableau_Invullen_Afsluiten");
  choose("mnu_Reset");
  EXPECT_FALSE(locked("txtTableau", 1));
  EXPECT_FALSE(locked("txtRL", 1));
  EXPECT_TRUE(locked("txtTableau", 3));
}

TEST_F(Reset, LeavesTheCountsAndM) {
  open(every_kind);
  model.BigM = 77;
  choose("mnu_Reset");
  EXPECT_EQ(model.BigM, 77);
  EXPECT_EQ(model.columns(), 10);
  EXPECT_EQ(model.current.row_F().text(7), " 100");
}

TEST_F(Reset, CanBeAskedAgainAndAgain) {
  open(two_products);
  for (int time = 1; time <= 3; ++time) {
    choose("mnu_optimaliseren");
    press("Enter");
    EXPECT_EQ(text("lblFRL"), " 36");
    choose("mnu_Reset");
    EXPECT_EQ(text("txtRij_F", 2), " -5");
  }
}

}  // namespace
}  // namespace tabulon::tests
