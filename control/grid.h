// The grid: 7 rows of 5 columns of the tableau, with row F, the right-hand sides, the headings and the scroll
// bars.
//
//   Grid grid(surface, model, fill_in, resting);
//   grid.redraw();
//   grid.box_of({CellArray::Cells, 7});   // row 2, column 2 of what is shown
#pragma once

#include <optional>

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "platform/surface.h"
#include "shell/navigation.h"
#include "shell/resting_focus.h"
#include "simplex/fill_in.h"

namespace tabulon {

// A place in the tableau.
struct TableauPlace {
  int row = 0;     // 0: row F
  int column = 0;  // or CellRow::right_hand_side
};

class Grid : public TableauView {
 public:
  Grid(platform::Surface& surface, basSafeCtl& model, const FillIn& fill_in, RestingFocus& resting);

  // Draws the tableau from the given column and row on. Error 9 when the counts are beyond the storage.
  Result<> ToonTableau(int startKolom, int startRij);
  void redraw() override;

  // ---- Scrolling
  void reset_scroll_bars() override;
  void follow_grid() override;
  void scroll_to(int row, int column) override;
  void show_from(int column, int row);
  bool is_scroll_bar(const platform::Control* control) const {
    return control == &HScroll || control == &VScroll;
  }
  void scrolled(const platform::Control& bar);

  // ---- The boxes of the cells
  platform::TextBox& box_of(GridBox cell);
  // Nothing for a control that is no cell.
  std::optional<GridBox> cell_of(const platform::Control* control) const;
  // Of the cell that is marked as the pivot element; without a size where none is to be seen.
  platform::Bounds pivot_bounds() const;
  // What the box shows; nothing when the grid is scrolled to where the storage has none.
  std::optional<TableauPlace> place_of(GridBox cell) const;

 private:
  void HScroll_Change();
  void VScroll_Change();

  // ---- control/grid_layout.cpp
  void lay_out();

  platform::TextBox& box_at(int grid_row, int grid_column) {
    return txtTableau((grid_row - 1) * grid_columns + grid_column);
  }
  platform::Task<> leave_hidden_box();
  void show_columns(int filled);
  void show_rows(int filled, int filled_columns);
  std::string row_name(int row) const;
  void draw_row(int grid_row, int row);
  void draw_column(int grid_column, int column);
  void draw_cell(int grid_row, int grid_column, int row, int column);

  platform::Surface& surface_;
  basSafeCtl& model_;
  const FillIn& fill_in_;
  RestingFocus& resting_;
  bool m_blnScrollActief = true;

  // ---- The controls, in drawing order
  platform::Label lblNRTableau{surface_, "lblNRTableau", 0, &resting_.FrameHead};
  platform::Label lblKopBasis{surface_, "lblKopBasis"};
  platform::Label lblKopF{surface_, "lblKopF"};
  platform::Label lblKopRL{surface_, "lblKopRL"};
  platform::ControlArray<platform::Label, grid_columns> lblKLM{surface_, "lblKLM"};
  platform::ControlArray<platform::Label, grid_columns> lblKolom{surface_, "lblKolom"};
  platform::Label lblKopRij_F{surface_, "lblKopRij_F"};
  platform::Label lblEenF{surface_, "lblEenF"};
  platform::ControlArray<platform::Label, grid_rows> lblRij{surface_, "lblRij"};
  platform::ControlArray<platform::Label, grid_rows> lblBasis{surface_, "lblBasis"};
  platform::ControlArray<platform::Label, grid_rows> lblRij_F{surface_, "lblRij_F"};
  platform::ControlArray<platform::TextBox, grid_columns> txtRij_F{surface_, "txtRij_F"};
  platform::ControlArray<platform::TextBox, grid_rows * grid_columns> txtTableau{surface_, "txtTableau"};
  platform::ControlArray<platform::TextBox, grid_rows> txtRL{surface_, "txtRL"};
  platform::Label lblFRL{surface_, "lblFRL"};
  platform::HScrollBar HScroll{surface_, "HScroll"};
  platform::VScrollBar VScroll{surface_, "VScroll"};
};

}  // namespace tabulon
