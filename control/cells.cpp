#include "control/cells.h"

#include "numbers/expression.h"
#include "platform/desk.h"
#include "platform/texts.h"

namespace tabulon {

using platform::Task;

namespace {

std::optional<double> evaluated(std::string_view text) {
  if (trimmed(text).empty()) return {};
  const auto value = numbers::evaluate(text);
  if (!value) return {};
  return *value;
}

}  // namespace

std::optional<Cells::StoredCell> Cells::stored_cell(GridBox cell) {
  const std::optional<TableauPlace> place = grid_.place_of(cell);
  if (!place) return {};
  if (place->row == 0) return StoredCell{model_.current.row_F(), model_.first.row_F(), place->column};
  return StoredCell{model_.current.row(place->row), model_.first.row(place->row), place->column};
}

void Cells::got_focus(GridBox cell) {
  model_.CelFout = false;
  grid_.box_of(cell).select_all();
}

Task<> Cells::validate(const platform::Control& control, bool escaped, bool& refused) {
  const std::optional<GridBox> at = grid_.cell_of(&control);
  const std::optional<StoredCell> cell = at ? stored_cell(*at) : std::nullopt;
  // A locked box may show what was there before another control of the page changed the tableau, a hidden
  // one what was typed for a larger problem.
  if (!cell || grid_.box_of(*at).locked() || !control.visible()) co_return;
  platform::TextBox& box = grid_.box_of(*at);
  if (box.text() == cell->current.text(cell->column)) co_return;
  if (escaped) {
    box.set_text(cell->current.text(cell->column));
  } else if (const auto value = evaluated(box.text())) {
    cell->current.write(cell->column, *value, box.text());
    cell->first.write(cell->column, *value, box.text());
  } else {
    refused = true;
    co_return co_await refuse(box);
  }
  graph_.rebuild();
}

Task<bool> Cells::accept(GridBox cell) {
  bool refused = false;
  co_await validate(grid_.box_of(cell), false, refused);
  co_return !refused;
}

Task<> Cells::refuse(platform::TextBox& box) {
  co_await messages_.show(Messages::input_error);
  model_.CelFout = true;
  surface_.desk().host().beep();
  box.select_all();
}

}  // namespace tabulon
