// What is typed into the cells: checked, evaluated and stored when the cell is left.
//
//   Cells cells(surface, model, grid, messages, graph);
//   co_await cells.validate(control, escaped, refused);
#pragma once

#include <optional>
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
  };
  std::optional<StoredCell> stored_cell(GridBox cell);
  platform::Task<> refuse(platform::TextBox& box);

  platform::Surface& surface_;
  basSafeCtl& model_;
  Grid& grid_;
  Messages& messages_;
  GraphView& graph_;
};

}  // namespace tabulon
