// The keys that walk through the cells, and Escape.
//
//   Keyboard keyboard(surface, model, resting, cells);
//   co_await keyboard.key_pressed(press, used);
//
// Tab and Shift+Tab are caught by two boxes beside the cells in the tab order, the traps: the focus that Tab
// takes out of a cell lands in one of them, which sends it where the walk goes on. The other keys need no
// trap.
#pragma once

#include <optional>

#include "control/basSafeCtl.h"
#include "platform/surface.h"
#include "shell/navigation.h"
#include "shell/resting_focus.h"

namespace tabulon {

// The cells, as the walk sees them.
class WalkedCells {
 public:
  // Nothing for a control that is no cell.
  virtual std::optional<GridBox> cell_of(const platform::Control* control) const = 0;
  virtual platform::TextBox& box_of(GridBox cell) = 0;
  // Stores what was typed in the cell; false when it was refused.
  virtual platform::Task<bool> accept(GridBox cell) = 0;
  // Scrolls the grid, drawing it where it moves.
  virtual void show_from(int column, int row) = 0;

 protected:
  ~WalkedCells() = default;
};

class Keyboard {
 public:
  // The places in the tab order of the traps and of the cells between them.
  static constexpr int before_cells = 1, at_cells = 2, behind_cells = 3;

  Keyboard(platform::Surface& surface, basSafeCtl& model, RestingFocus& resting, WalkedCells& cells);

  platform::Task<> key_pressed(platform::KeyPress press, bool& used);
  // Tab walks the cells again, and leaves only after another Escape.
  void walk() { escaped_ = false; }
  void cell_got_focus();
  void cell_lost_focus(GridBox cell);
  // True when the control is a trap, which has sent the focus on.
  platform::Task<bool> got_focus(const platform::Control& control);
  void forget_tab_cell(std::int16_t no_index);
  bool is_trap(const platform::Control* control) const {
    return control == &txtTab || control == &txtShiftTab;
  }
  // Whether the cell that is left is left by Escape, which undoes what was typed; it counts for one cell.
  bool take_escape();

 private:
  platform::Task<> leave_cell();
  platform::Task<> validate_in_place(platform::Control& box);
  platform::Task<> NavigeerCel(GridBox from, platform::KeyPress press);
  platform::Task<> walk_on(const platform::TextBox& trap, platform::KeyPress press);
  void open_traps(bool open);

  platform::Surface& surface_;
  basSafeCtl& model_;
  RestingFocus& resting_;
  WalkedCells& cells_;

  std::optional<CellArray> m_strTabCel;  // the array of the cell that Tab has just left
  std::int16_t m_intTabIndex = -1;       // and its index there
  std::int16_t m_intLaatsteToets = 0;    // 27 while Escape takes effect
  bool escaped_ = false;                 // the next Tab leaves the control

  platform::TextBox txtShiftTab{surface_, "txtShiftTab"};
  platform::TextBox txtTab{surface_, "txtTab"};
};

}  // namespace tabulon
