// What is typed into the cells: checked, evaluated and stored when the cell is left, or the control.
//
//   Cells cells(surface, model, grid, messages, graph);
//   co_await cells.validate(control, escaped, refused);
//
// Who leaves the control is not held, and nothing opens over the page: a good entry is stored, bad input
// stays in its box, and is refused when the person comes back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "control/grid.h"
#include "shell/keyboard.h"
#include "simplex/messages.h"

namespace tabulon {

class Cells : public WalkedCells {
 public:
  Cells(platform::Surface& surface, basSafeCtl& model, Grid& grid, Messages& messages, GraphView& graph)
      : surface_(surface), model_(model), grid_(grid), messages_(messages), graph_(graph) {}

  void got_focus(GridBox cell);
  // Stores what was typed in the current and in the first tableau, or, after Escape, puts back what stood
  // there. Bad input is refused with a message, and stays in the cell.
  platform::Task<> validate(const platform::Control& control, bool escaped, bool& refused);

  // The focus leaves the control, or comes back to it. `active` may be any control, or null.
  void control_left(const platform::Control* active);
  platform::Task<> control_entered(const platform::Control* active);
  // What is being typed belongs to a problem that is gone: the stored text stands there again.
  void drop_entry(const platform::Control* active);

  std::optional<GridBox> cell_of(const platform::Control* control) const override {
    return grid_.cell_of(control);
  }
  platform::TextBox& box_of(GridBox cell) override { return grid_.box_of(cell); }
  platform::Task<bool> accept(GridBox cell) override;
  void show_from(int column, int row) override { grid_.show_from(column, row); }

 private:
  struct StoredCell {
    CellRow& current;
    CellRow& first;
    int column;
    int row;  // 0 for row F
  };
  // A cell whose box has another text than is stored.
  struct Entry {
    platform::TextBox& box;
    StoredCell cell;
  };
  std::optional<StoredCell> stored_cell(GridBox cell);
  std::optional<Entry> entry_in(const platform::Control* control);
  bool store(const Entry& entry) const;
  static void undo(const Entry& entry);
  platform::Task<> refuse(platform::TextBox& box);

  platform::Surface& surface_;
  basSafeCtl& model_;
  Grid& grid_;
  Messages& messages_;
  GraphView& graph_;
  std::string text_at_entry_;   // of the active cell, when it or the control was entered
  bool refuses_later_ = false;  // bad input was left in its box
};

}  // namespace tabulon
