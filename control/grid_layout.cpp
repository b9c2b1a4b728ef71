// Where the grid's controls stand and what they look like.
#include <algorithm>

#include "control/grid.h"
#include "platform/layout.h"
#include "shell/keyboard.h"

namespace tabulon {

using platform::Align;
using platform::ArrayPlacement;
using platform::Font;
using platform::Placement;
using platform::Twips;

namespace font = platform::font;

namespace {

constexpr Font heading{.points = 10, .bold = true};

// The grid, from left to right: row number, basis, column F, five columns, right-hand sides.
constexpr Twips row_numbers = 60, basis = 495, column_F = 1200, cells_left = 1560, right_hand_sides = 7395;
constexpr Twips column_pitch = 1155, cell_width = 1140;
// From top to bottom: column numbers, column names, row F, seven rows, the scroll bar.
constexpr Twips numbers_top = 690, names_top = 900, row_F_top = 1170, rows_top = 1575;
constexpr Twips grid_row_pitch = 360, cell_height = 345, name_height = 240;

constexpr Placement grid_placements[] = {
    {"lblNRTableau", {120, 45, 6000, 240}, "1-e Simplex-tableau", heading},
    {"lblKopBasis", {basis, names_top, 690, name_height}, "basis", font::small_centred},
    {"lblKopF", {column_F, names_top, 330, name_height}, "F", font::small_centred},
    {"lblKopRL", {right_hand_sides, names_top, 1230, name_height}, "RL", font::small_centred},
    {"lblKopRij_F", {basis, row_F_top, 690, cell_height}, "F", font::centred},
    {"lblEenF", {column_F, row_F_top, 330, cell_height}, "1", font::centred},
    {"lblFRL", {right_hand_sides + 75, row_F_top, 1155, cell_height}, " 0", font::plain},
    {"HScroll", {cells_left, 4125, grid_columns* column_pitch - 15, 240}},
    {"VScroll", {8685, rows_top, 240, grid_rows* grid_row_pitch - 15}},
};

constexpr ArrayPlacement grid_arrays[] = {
    {"lblKLM",
     {cells_left, numbers_top, cell_width, 210},
     grid_columns,
     column_pitch,
     0,
     " 1",
     font::small_centred},
    {"lblKolom",
     {cells_left, names_top, cell_width, name_height},
     grid_columns,
     column_pitch,
     0,
     "x  i",
     font::centred},
    {"lblRij", {row_numbers, rows_top, 420, cell_height}, 1, 0, grid_row_pitch, " 1  ", font::small},
    {"lblBasis", {basis, rows_top, 690, cell_height}, 1, 0, grid_row_pitch, "x  i", font::centred},
    {"lblRij_F", {column_F, rows_top, 330, cell_height}, 1, 0, grid_row_pitch, "0", font::centred},
    {"txtRij_F",
     {cells_left, row_F_top, cell_width, cell_height},
     grid_columns,
     column_pitch,
     0,
     " 0",
     font::plain},
    {"txtTableau",
     {cells_left, rows_top, cell_width, cell_height},
     grid_columns,
     column_pitch,
     grid_row_pitch,
     " 0",
     font::plain},
    {"txtRL", {right_hand_sides, rows_top, 1230, cell_height}, 1, 0, grid_row_pitch, " 0", font::plain},
};

// The table of who hears it: column numbers and names, row F, the rows; in each, from left to right, the
// row's number, its basic variable, column F, the columns, the right-hand side.
using platform::TablePart;
enum TableRow : std::uint8_t { at_numbers = 1, at_names, at_row_F, at_rows };
enum TableColumn : std::uint8_t {
  at_row_numbers = 1,
  at_basis,
  at_column_F,
  at_columns,
  at_right = at_columns + grid_columns
};

struct InTable {
  std::string_view name;
  platform::TablePlace first;
  int per_row = 1;
};

constexpr InTable in_table[] = {
    {"lblKopBasis", {TablePart::ColumnHeader, at_names, at_basis}},
    {"lblKopF", {TablePart::ColumnHeader, at_names, at_column_F}},
    {"lblKopRL", {TablePart::ColumnHeader, at_names, at_right}},
    {"lblKopRij_F", {TablePart::RowHeader, at_row_F, at_basis}},
    {"lblEenF", {TablePart::Cell, at_row_F, at_column_F}},
    {"lblFRL", {TablePart::Cell, at_row_F, at_right}},
    {"lblKLM", {TablePart::ColumnHeader, at_numbers, at_columns}, grid_columns},
    {"lblKolom", {TablePart::ColumnHeader, at_names, at_columns}, grid_columns},
    {"lblRij", {TablePart::RowHeader, at_rows, at_row_numbers}},
    {"lblBasis", {TablePart::RowHeader, at_rows, at_basis}},
    {"lblRij_F", {TablePart::Cell, at_rows, at_column_F}},
    {"txtRij_F", {TablePart::Cell, at_row_F, at_columns}, grid_columns},
    {"txtTableau", {TablePart::Cell, at_rows, at_columns}, grid_columns},
    {"txtRL", {TablePart::Cell, at_rows, at_right}},
};

void place_in_table(platform::Surface& surface) {
  for (const auto& [name, first, per_row] : in_table)
    for (platform::Control* const control : surface.controls()) {
      if (control->name() != name) continue;
      const int at = std::max(control->index() - 1, 0);
      control->set_table_place({first.part, static_cast<std::uint8_t>(first.row + at / per_row),
                                static_cast<std::uint8_t>(first.column + at % per_row)});
    }
}

}  // namespace

void Grid::lay_out() {
  platform::place(surface_, grid_placements);
  platform::place(surface_, grid_arrays);
  place_in_table(surface_);
  lblNRTableau.set_role(platform::Role::Status);
  for (platform::Label& name : lblKolom) name.set_fore_colour(platform::system_colour::window_text);
  for (platform::Label& name : lblBasis) name.set_fore_colour(platform::system_colour::window_text);
  for (platform::Label* quiet : {&lblKopBasis, &lblKopF, &lblKopRL})
    quiet->set_fore_colour(platform::system_colour::grey_text);
  for (platform::Label& number : lblKLM) number.set_fore_colour(platform::system_colour::grey_text);
  for (platform::Label& number : lblRij) number.set_fore_colour(platform::system_colour::grey_text);
  HScroll.set_steps(1, grid_columns);
  VScroll.set_steps(1, grid_rows);
  HScroll.set_spoken_name("Kolommen");
  VScroll.set_spoken_name("Rijen");
  for (platform::TextBox& box : txtRij_F) box.set_tab(Keyboard::at_cells, false);
  for (platform::TextBox& box : txtTableau) box.set_tab(Keyboard::at_cells, false);
  for (platform::TextBox& box : txtRL) box.set_tab(Keyboard::at_cells, false);
}

}  // namespace tabulon
