// LPctrl: the control as a host sees it.
//
//   Desk desk(host);
//   basSafeCtl model;
//   LPctrl control(desk, model);
//   control.UserControl_Initialize();
//   control.UserControl_ReadProperties(page);   // the page's parameters
//   desk.call(control, control.UserControl_Show());
//
// One class to its host; its handlers stand in the folder of their subject: the menu handlers and the
// keyboard in shell/, the operations' handlers and dialogs in simplex/, the grid here.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "control/basSafeCtl.h"
#include "graph/geometry.h"
#include "platform/desk.h"
#include "shell/navigation.h"

namespace tabulon {

// The page's saved parameters, read once.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  // The parameter's text; nothing when the page does not give it. Names are compared without case.
  virtual std::optional<std::string> read(std::string_view key) const = 0;
};

// What a script gives to a property.
using PropertyValue = std::variant<double, bool, std::string>;

class LPctrl : public platform::Surface {
 public:
  enum ListKind : std::uint8_t { objective, less_equal, greater_equal, equal, right_hand_sides };

  // The fixed size, in twips.
  static constexpr platform::Twips fixed_width = 9000, fixed_height = 4440;

  LPctrl(platform::Desk& desk, basSafeCtl& model);

  // ---- Life cycle, called by the host in this order; Show whenever the control is shown anew.
  // Lays out a new tableau from the model's counts. Error 6 or 9 when they ask for too much.
  Result<> UserControl_Initialize();
  // Reads the page's parameters and the tableau from them. Errors 6, 9 and 13, the subject naming the
  // parameter; the counts are then what they were, and the tableau is a new one of that size.
  Result<> UserControl_ReadProperties(const PropertyBag& page);
  platform::Task<> UserControl_Show();
  void UserControl_Terminate() {}

  // ---- For scripts
  // Sets a write-only property (names are compared without case). Error 6, 9 or 13, the subject naming
  // the property. Nothing for a name that is no property.
  std::optional<Result<>> set_property(std::string_view name, const PropertyValue& value);
  Result<> InitTableau() { return tabulon::InitTableau(model_); }
  // The display text of a number, which in fractions becomes the number that is shown; see numbers/display.h.
  std::string strSoortGetal(std::int16_t Soort, double& Getal) const;
  // Saves the tableau under that name, replacing what is there. Errors 9, 52, 61, 70, 76.
  Result<> SchrijfTableau(std::string_view strFile);
  // Error 54 for every file that is there, and nothing is read; 52, 53, 70, 76 for the others.
  Result<> LeesTableau(std::string_view strFile);
  platform::Task<> ShowAboutBox();
  platform::Task<> ShowfrmMelding();
  platform::Task<> ShowfrmFoutmelding();
  platform::Task<> ShowfrmPivotelement();

  basSafeCtl& model() { return model_; }

  // ---- The grid
  // Draws the tableau, from the given column and row on. Error 9 when the counts are beyond the storage.
  Result<> ToonTableau(int startKolom, int startRij);

  // ---- What happens on the control
  platform::Task<> on_click(platform::Control& control) override;
  platform::Task<> on_surface_click() override { return UserControl_Click(); }
  void on_change(platform::Control& control) override;
  platform::Task<> on_scroll(platform::ScrollBar& bar) override;
  platform::Task<> on_got_focus(platform::Control& control) override;
  platform::Task<> on_lost_focus(platform::Control& control) override;
  platform::Task<> on_validate(platform::Control& control, bool& refused) override;
  platform::Task<> on_key_down(platform::KeyPress& press, bool& used) override;
  platform::Task<> on_pointer(platform::Control& control, platform::Pointer pointer) override;
  platform::Task<> on_enter() override { return UserControl_EnterFocus(); }
  platform::Task<> on_exit() override;

 private:
  static constexpr int grid_rows = 7, grid_columns = 5;
  // Places in the tab order: the traps stand on both sides of the cells.
  static constexpr int before_cells = 1, at_cells = 2, behind_cells = 3;
  using CommandHandler = platform::Task<> (LPctrl::*)();
  struct Command {
    std::string_view name;
    CommandHandler run;
  };
  static const Command commands[];  // buttons and menu items, by name

  platform::Task<> run_command(std::string_view name);
  // Draws the grid as it is scrolled, and reports where that cannot be done.
  void redraw();
  template <class T>
  void report(const Result<T>& result) {
    if (!result) desk().host().report(*this, result.error());
  }

  // ---- control/parameters.cpp
  Result<> read_counts(const PropertyBag& page);
  Result<> read_lists(const PropertyBag& page);
  Result<> set_prmShow(const PropertyValue& value);
  Result<> apply_list(ListKind kind, std::string_view text);
  Result<> apply_objective(std::string_view text);
  Result<> apply_rows(ListKind kind, std::string_view text);
  void WisLijst();

  // ---- control/layout.cpp
  void lay_out();

  // ---- control/grid.cpp
  platform::TextBox& cell(int grid_row, int grid_column) {
    return txtTableau((grid_row - 1) * grid_columns + grid_column);
  }
  platform::Task<> leave_hidden_box();
  void show_columns(int filled);
  void show_rows(int filled, int filled_columns);
  void draw_row(int grid_row, int row);
  void draw_column(int grid_column, int column);
  void draw_cell(int grid_row, int grid_column, int row, int column);

  // ---- control/cell_handlers.cpp
  struct StoredCell {
    CellRow& current;
    CellRow& first;
    int column;
  };
  static std::optional<GridBox> grid_box(const platform::Control* control);
  static std::optional<double> evaluated(std::string_view text);
  platform::TextBox& box_of(GridBox box);
  std::optional<StoredCell> stored_cell(GridBox box);
  void cell_GotFocus(platform::TextBox& box);
  platform::Task<> refuse(platform::TextBox& box);

  // ---- control/scrolling.cpp
  void set_scroll_ranges();
  // Puts the scroll bars where the grid is, without drawing it again.
  void follow_grid();
  void HScroll_Change();
  void VScroll_Change();

  // ---- control/fractions.cpp
  platform::Task<> mnu_Breuken_Click();

  // ---- files/file_handlers.cpp
  platform::Task<> mnu_Tableau_Opslaan_Als_Click();
  platform::Task<> mnu_Openen_Click();
  platform::Task<> show_opened_tableau();

  // ---- shell/menu_handlers.cpp
  platform::Task<> cmd_Bestand_Click();
  platform::Task<> cmd_Bewerken_Click();
  platform::Task<> cmd_Opties_Click();
  platform::Task<> cmd_Help_Click();
  platform::Task<> pop_up(platform::Menu& menu, platform::Twips left);
  static platform::Twips menu_left(const platform::CommandButton& button);
  platform::Task<> mnu_About_Click();
  platform::Task<> mnu_Reset_Click();

  // ---- shell/focus_handlers.cpp
  platform::Task<> UserControl_Click();
  platform::Task<> UserControl_EnterFocus();
  void txtFocus_GotFocus();
  void KleurFrameHead(std::int16_t Aan);

  // ---- shell/keyboard_handlers.cpp
  platform::Task<> open_menu_by_key(int code, bool& used);
  platform::Task<> leave_cell(bool& used);
  platform::Task<> validate_in_place(platform::Control& box);
  platform::Task<> NavigeerCel(GridBox from, platform::KeyPress press);
  void open_traps(bool open);
  platform::Task<> txtTab_GotFocus();
  platform::Task<> txtShiftTab_GotFocus();
  platform::Task<> walk_on(platform::TextBox& trap, platform::KeyPress press);
  std::optional<GridBox> tab_cell() const;
  void forget_tab_cell(std::int16_t no_index);

  // ---- simplex/operation_handlers.cpp
  platform::Task<> mnu_Automatisch_vegen_Click();
  platform::Task<> mnu_optimaliseren_Click();
  platform::Task<> mnu_Tableau_Invullen_Click();
  platform::Task<> mnu_Tableau_Invullen_Afsluiten_Click();
  // False when the model's counts are beyond the storage.
  platform::Task<bool> BasisoplossingOpvragen();
  // Searches the pivot element, shows it or says why there is none; false when there is none.
  platform::Task<bool> ZoekPivotElement();
  bool KolomVegen();
  void scroll_to(int row, int column);
  void set_fill_in(bool on);
  void enable_fill_in(bool enabled);
  void close_fill_in();
  platform::Task<> announce(std::string words);
  platform::Task<> pause_one_second();

  // ---- simplex/dialog_handlers.cpp
  void KolomNormeren();
  platform::Task<> mnu_Kolommen_Normeren_Click();
  platform::Task<> mnu_Kolommen_vegen_Click();
  platform::Task<> mnu_Basisoplossing_Click();
  platform::Task<> mnu_Pivot_element_Click();
  platform::Task<> mnu_Nieuw_Simplex_Click();
  platform::Task<> mnu_Nieuw_Big_M_Click();
  platform::Task<> start_new_problem(platform::Form& dialog);

  // ---- graph/panel_handlers.cpp
  platform::Task<> mnu_Grafiek_Click();
  void toggle_graph();
  void rebuild_graph();
  void offer_graph();
  void hide_point();
  void draw_graph();
  std::int16_t number_mode() const;
  void place_cross(platform::Point place);
  void show_point(graph::PlanePoint point);
  void grab(platform::Pointer pointer, platform::Twips height);
  void cmdFrame_MouseMove(platform::Pointer pointer);
  void imgCross_MouseMove(platform::Pointer pointer);
  void move_cross(platform::Point place);
  bool moved_by_key(platform::KeyPress press);
  platform::Task<bool> PictureLN_Click(platform::Control& control);
  platform::Task<> cmdFrame_Click();
  platform::Task<> cmdReset_Click();
  platform::Task<> cmdSluiten_Click();
  platform::Task<> cmdKopieren_Click();

  basSafeCtl& model_;

  std::array<std::string, 5> lists_;       // the last text of each list
  std::array<std::string, 301> strLijst_;  // items 1..300 of the list being taken apart
  bool m_blnScrollActief = true;
  bool CellenBewerkbaar = true;
  bool EersteKeer = true;
  std::string m_strTabCel;             // the array of the cell that Tab has just left
  std::int16_t m_intTabIndex = -1;     // and its index there
  std::int16_t m_intLaatsteToets = 0;  // 27 while Escape takes effect
  bool escaped_ = false;               // since Escape no cell has had the focus: Tab leaves the control

  double m_dblMaxX1 = 0, m_dblMaxX2 = 0;  // where the graph's axes end; always the same
  std::string m_strMaxX1, m_strMaxX2;     // and what stands there
  bool m_blnGrafiek = false;              // the panel has been shown
  std::int32_t m_lngGrabX = 0;            // where a drag began, on the control that was pressed
  std::int32_t m_lngGrabY = 500;          // 500 when there is none

  // ---- The controls, in drawing order
  platform::CommandButton cmd_Bestand{*this, "cmd_Bestand"};
  platform::CommandButton cmd_Bewerken{*this, "cmd_Bewerken"};
  platform::CommandButton cmd_Opties{*this, "cmd_Opties"};
  platform::CommandButton cmd_Help{*this, "cmd_Help"};
  platform::Frame FrameHead{*this, "FrameHead"};
  platform::Label lblNRTableau{*this, "lblNRTableau", 0, &FrameHead};
  platform::Label lblKopBasis{*this, "lblKopBasis"};
  platform::Label lblKopF{*this, "lblKopF"};
  platform::Label lblKopRL{*this, "lblKopRL"};
  platform::ControlArray<platform::Label, grid_columns> lblKLM{*this, "lblKLM"};
  platform::ControlArray<platform::Label, grid_columns> lblKolom{*this, "lblKolom"};
  platform::Label lblKopRij_F{*this, "lblKopRij_F"};
  platform::Label lblEenF{*this, "lblEenF"};
  platform::ControlArray<platform::Label, grid_rows> lblRij{*this, "lblRij"};
  platform::ControlArray<platform::Label, grid_rows> lblBasis{*this, "lblBasis"};
  platform::ControlArray<platform::Label, grid_rows> lblRij_F{*this, "lblRij_F"};
  platform::TextBox txtShiftTab{*this, "txtShiftTab"};
  platform::ControlArray<platform::TextBox, grid_columns> txtRij_F{*this, "txtRij_F"};
  platform::ControlArray<platform::TextBox, grid_rows * grid_columns> txtTableau{*this, "txtTableau"};
  platform::ControlArray<platform::TextBox, grid_rows> txtRL{*this, "txtRL"};
  platform::TextBox txtTab{*this, "txtTab"};
  platform::Label lblFRL{*this, "lblFRL"};
  platform::HScrollBar HScroll{*this, "HScroll"};
  platform::VScrollBar VScroll{*this, "VScroll"};
  platform::TextBox txtFocus{*this, "txtFocus"};

  // ---- The graph panel, above the grid
  platform::Frame frmGrafiek{*this, "frmGrafiek"};
  platform::PictureBox PictureLN{*this, "PictureLN", &frmGrafiek};
  platform::Line lineNiveau{*this, "lineNiveau", 0, &PictureLN};
  platform::Image imgCross{*this, "imgCross", 0, &PictureLN};
  platform::Line lineRestricties{*this, "lineRestricties", 0, &frmGrafiek};
  platform::Label lblRestricties{*this, "lblRestricties", 0, &frmGrafiek};
  platform::Line lineNiveaulijn{*this, "lineNiveaulijn", 0, &frmGrafiek};
  platform::Label lblNiveaulijn{*this, "lblNiveaulijn", 0, &frmGrafiek};
  platform::Label lblNiveauVanF{*this, "lblNiveauVanF", 0, &frmGrafiek};
  platform::Label lblGebiedKleur{*this, "lblGebiedKleur", 0, &frmGrafiek};
  platform::Label lblGebied{*this, "lblGebied", 0, &frmGrafiek};
  platform::Label lblX1{*this, "lblX1", 0, &frmGrafiek};
  platform::Label lblValX1{*this, "lblValX1", 0, &frmGrafiek};
  platform::Label lblX2{*this, "lblX2", 0, &frmGrafiek};
  platform::Label lblValX2{*this, "lblValX2", 0, &frmGrafiek};
  platform::Label lblF{*this, "lblF", 0, &frmGrafiek};
  platform::Label lblDoelfunctie{*this, "lblDoelfunctie", 0, &frmGrafiek};
  platform::Label lblLetOp{*this, "lblLetOp", 0, &frmGrafiek};
  platform::CommandButton cmdKopieren{*this, "cmdKopieren", &frmGrafiek};
  platform::CommandButton cmdReset{*this, "cmdReset", &frmGrafiek};
  platform::CommandButton cmdSluiten{*this, "cmdSluiten", &frmGrafiek};
  platform::CommandButton cmdFrame{*this, "cmdFrame", &frmGrafiek};

  // ---- The menus, each in the order in which its items stand
  platform::Menu mnu_Bestand{*this, "mnu_Bestand", "&Bestand"};
  platform::Menu mnu_Nieuw{*this, "mnu_Nieuw", "&Nieuw", &mnu_Bestand};
  platform::Menu mnu_Nieuw_Simplex{*this, "mnu_Nieuw_Simplex", "De &Standaard Simplex-methode", &mnu_Nieuw};
  platform::Menu mnu_Nieuw_Big_M{*this, "mnu_Nieuw_Big_M", "De '&Big-M'-methode", &mnu_Nieuw};
  platform::Menu separator5{*this, "separator5", "-", &mnu_Bestand};
  platform::Menu mnu_Openen{*this, "mnu_Openen", "&Openen", &mnu_Bestand};
  platform::Menu mnu_Tableau_Opslaan_Als{*this, "mnu_Tableau_Opslaan_Als", "Opslaan &als ...", &mnu_Bestand};
  platform::Menu Separator6{*this, "Separator6", "-", &mnu_Bestand};
  platform::Menu mnu_Tableau_Invullen{*this, "mnu_Tableau_Invullen", "&Invullen", &mnu_Bestand};
  platform::Menu mnu_Tableau_Invullen_Afsluiten{*this, "mnu_Tableau_Invullen_Afsluiten",
                                                "Invullen a&fsluiten", &mnu_Bestand};
  platform::Menu mnu_Bewerken{*this, "mnu_Bewerken", "Be&werken"};
  platform::Menu mnu_Pivot_element{*this, "mnu_Pivot_element", "&Pivot-element opvragen", &mnu_Bewerken};
  platform::Menu mnu_Basisoplossing{*this, "mnu_Basisoplossing", "&Basisoplossing opvragen", &mnu_Bewerken};
  platform::Menu separator4{*this, "separator4", "-", &mnu_Bewerken};
  platform::Menu mnu_Kolommen_Normeren{*this, "mnu_Kolommen_Normeren", "Kolommen &Normeren", &mnu_Bewerken};
  platform::Menu mnu_Kolommen_vegen{*this, "mnu_Kolommen_vegen", "Kolom &Vegen met een rij", &mnu_Bewerken};
  platform::Menu separator3{*this, "separator3", "-", &mnu_Bewerken};
  platform::Menu mnu_Automatisch_vegen{*this, "mnu_Automatisch_vegen", "&Automatisch vegen (stap voor stap)",
                                       &mnu_Bewerken};
  platform::Menu mnu_optimaliseren{*this, "mnu_optimaliseren", "&Optimaliseren", &mnu_Bewerken};
  platform::Menu separator7{*this, "separator7", "-", &mnu_Bewerken};
  platform::Menu mnu_Reset{*this, "mnu_Reset", "&Reset", &mnu_Bewerken};
  platform::Menu mnu_Opties{*this, "mnu_Opties", "&Opties"};
  platform::Menu mnu_Breuken{*this, "mnu_Breuken", "&Breuken", &mnu_Opties};
  platform::Menu mnu_Grafiek{*this, "mnu_Grafiek", "&Grafisch", &mnu_Opties};
  platform::Menu mnu_Help{*this, "mnu_Help", "&Help"};
  platform::Menu mnu_About{*this, "mnu_About", "&Info", &mnu_Help};
};

}  // namespace tabulon
