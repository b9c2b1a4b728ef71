// What is typed into the cells: checked, evaluated and stored when the cell is left.
#include <array>

#include "control/LPctrl.h"
#include "numbers/expression.h"

namespace tabulon {

using platform::Task;

namespace {

constexpr std::int16_t input_error = 1;  // message of frmMelding

constexpr std::array<std::string_view, 3> array_names{"txtRij_F", "txtTableau", "txtRL"};

bool is_blank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

std::optional<GridBox> LPctrl::grid_box(const platform::Control* control) {
  for (std::size_t at = 0; control && at < array_names.size(); ++at)
    if (control->name() == array_names[at]) return GridBox{static_cast<CellArray>(at), control->index()};
  return {};
}

platform::TextBox& LPctrl::box_of(GridBox box) {
  switch (box.array) {
    case CellArray::RowF:
      return txtRij_F(box.index);
    case CellArray::Cells:
      return txtTableau(box.index);
    case CellArray::RightHandSides:
      break;
  }
  return txtRL(box.index);
}

// Where a box's number lives: the row, in the current and in the first tableau, and the column.
std::optional<LPctrl::StoredCell> LPctrl::stored_cell(GridBox box) {
  if (model_.StartKolom < 1 || model_.StartRij < 1) return {};
  const bool in_cells = box.array == CellArray::Cells;
  const int column = model_.StartKolom + (in_cells ? (box.index - 1) % grid_columns : box.index - 1);
  if (box.array == CellArray::RowF) {
    if (column > most_columns) return {};
    return StoredCell{model_.current.row_F(), model_.first.row_F(), column};
  }
  const int row = model_.StartRij + (in_cells ? (box.index - 1) / grid_columns : box.index - 1);
  if (row > most_rows || (in_cells && column > most_columns)) return {};
  return StoredCell{model_.current.row(row), model_.first.row(row),
                    in_cells ? column : CellRow::right_hand_side};
}

void LPctrl::cell_GotFocus(platform::TextBox& box) {
  model_.CelFout = false;
  escaped_ = false;
  open_traps(true);
  box.select_all();
}

Task<> LPctrl::on_lost_focus(platform::Control& control) {
  if (!grid_box(&control)) co_return;
  open_traps(false);
  if (active() != &txtTab && active() != &txtShiftTab) co_return forget_tab_cell(-1);
  m_strTabCel = control.name();
  m_intTabIndex = static_cast<std::int16_t>(control.index());
}

Task<> LPctrl::on_validate(platform::Control& control, bool& refused) {
  const std::optional<GridBox> box = grid_box(&control);
  const std::optional<StoredCell> cell = box ? stored_cell(*box) : std::nullopt;
  // A locked box may show what was there before another control of the page changed the tableau, a hidden
  // one what was typed for a larger problem.
  if (!cell || box_of(*box).locked() || !control.visible()) co_return;
  if (control.text() == cell->current.text(cell->column)) co_return;
  if (m_intLaatsteToets == platform::key::escape) {
    m_intLaatsteToets = 0;
    control.set_text(cell->current.text(cell->column));
  } else if (const auto value = evaluated(control.text())) {
    cell->current.write(cell->column, *value, control.text());
    cell->first.write(cell->column, *value, control.text());
  } else {
    refused = true;
    co_return co_await refuse(box_of(*box));
  }
  rebuild_graph();
}

std::optional<double> LPctrl::evaluated(std::string_view text) {
  if (is_blank(text)) return {};
  const auto value = numbers::evaluate(text);
  if (!value) return {};
  return *value;
}

Task<> LPctrl::refuse(platform::TextBox& box) {
  model_.MeldingNr = input_error;
  co_await ShowfrmMelding();
  model_.CelFout = true;
  desk().host().beep();
  box.select_all();
}

}  // namespace tabulon
