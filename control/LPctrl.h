// LPctrl: the control as a host sees it.
//
//   Desk desk(host);
//   basSafeCtl model;
//   LPctrl control(desk, model);
//   control.UserControl_Initialize();
//   control.UserControl_ReadProperties(page);   // the page's parameters
//   desk.call(control, control.UserControl_Show());
//
// One class to its host. What it consists of are parts, each in the folder of its subject with the controls
// that belong to it; this class hands every event to the part that it concerns. It may be destroyed while it
// waits for the person, but not by a host that one of its own handlers has called.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "control/basSafeCtl.h"
#include "control/cells.h"
#include "control/grid.h"
#include "control/parameters.h"
#include "control/property_bag.h"
#include "files/file_commands.h"
#include "graph/panel.h"
#include "platform/desk.h"
#include "shell/keyboard.h"
#include "shell/menu_bar.h"
#include "shell/resting_focus.h"
#include "simplex/new_problem_commands.h"
#include "simplex/tableau_commands.h"

namespace tabulon {

class LPctrl : public platform::Surface, private ProblemView {
 public:
  // The fixed size, in twips.
  static constexpr platform::Twips fixed_width = 9000, fixed_height = 4440;

  LPctrl(platform::Desk& desk, basSafeCtl& model);
  ~LPctrl() override;

  basSafeCtl& model() { return model_; }

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
  Result<> SchrijfTableau(std::string_view strFile) { return files_.SchrijfTableau(strFile); }
  // Error 54 for every file that is there, and nothing is read; 52, 53, 70, 76 for the others.
  Result<> LeesTableau(std::string_view strFile) { return files_.LeesTableau(strFile); }
  // Puts a saved tableau back and shows it; nothing changes when that fails. Errors as for restore_tableau.
  Result<> restore(std::string_view saved);
  platform::Task<> ShowAboutBox() { return messages_.ShowAboutBox(); }
  platform::Task<> ShowfrmMelding() { return messages_.ShowfrmMelding(); }
  platform::Task<> ShowfrmFoutmelding() { return messages_.ShowfrmFoutmelding(); }
  platform::Task<> ShowfrmPivotelement() { return messages_.ShowfrmPivotelement(); }

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
  platform::Bounds kept_free() const override { return grid_.pivot_bounds(); }
  void on_covered() override { keyboard_.walk(); }
  platform::Task<> on_failure(const RunTimeError& error) override { return messages_.show_failure(error); }
  void update() override { menu_bar_.update(); }

 private:
  platform::Task<> UserControl_Click();
  platform::Task<> UserControl_EnterFocus();
  bool keeps_focus(const platform::Control* active) const;
  void return_to_start();

  // ---- ProblemView
  Result<> start_problem() override { return UserControl_Initialize(); }
  platform::Task<> show_problem() override;
  void show_opened_tableau() override;

  basSafeCtl& model_;
  bool EersteKeer = true;  // not shown yet since Initialize
  FillIn fill_in_;

  // ---- The parts, in drawing order
  RestingFocus resting_{*this};
  MenuBar menu_bar_{
      *this, resting_, {model_, fill_in_, commands_, new_problem_, files_, graph_, messages_, resting_}};
  Grid grid_{*this, model_, fill_in_, resting_};
  Keyboard keyboard_{*this, model_, resting_, cells_};
  GraphPanel graph_{{*this, model_, resting_.txtFocus, messages_}};

  Messages messages_{*this, model_};
  Cells cells_{*this, model_, grid_, messages_, graph_};
  ProblemParameters parameters_{*this, model_, grid_, graph_, *this};
  TableauCommands commands_{{*this, model_, fill_in_, messages_, resting_.txtFocus, grid_, graph_}};
  NewProblemCommands new_problem_{*this, model_, resting_.txtFocus, commands_, *this};
  FileCommands files_{*this, model_, resting_.txtFocus, *this};
};

}  // namespace tabulon
