#include "control/cells.h"

#include <utility>

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
  if (place->row == 0) return StoredCell{model_.current.row_F(), model_.first.row_F(), place->column, 0};
  return StoredCell{model_.current.row(place->row), model_.first.row(place->row), place->column, place->row};
}

void Cells::got_focus(GridBox cell) {
  model_.CelFout = false;
  grid_.box_of(cell).select_all();
  text_at_entry_ = grid_.box_of(cell).text();
}

// A locked box may show what was there before another control of the page changed the tableau, a hidden one
// what was typed for a larger problem.
std::optional<Cells::Entry> Cells::entry_in(const platform::Control* control) {
  const std::optional<GridBox> at = grid_.cell_of(control);
  const std::optional<StoredCell> cell = at ? stored_cell(*at) : std::nullopt;
  if (!cell || grid_.box_of(*at).locked() || !control->visible()) return {};
  platform::TextBox& box = grid_.box_of(*at);
  if (box.text() == cell->current.text(cell->column)) return {};
  return Entry{box, *cell};
}

// False when the text cannot be read, and then nothing is stored.
bool Cells::store(const Entry& entry) const {
  const auto value = evaluated(entry.box.text());
  if (!value) return false;
  entry.cell.current.write(entry.cell.column, *value, entry.box.text());
  entry.cell.first.write(entry.cell.column, *value, entry.box.text());
  const bool right = entry.cell.column == CellRow::right_hand_side;
  model_.tell({.cause = ChangeCause::Cell, .column = right ? 0 : entry.cell.column, .row = entry.cell.row});
  return true;
}

void Cells::undo(const Entry& entry) {
  entry.box.set_text(entry.cell.current.text(entry.cell.column));
}

Task<> Cells::validate(const platform::Control& control, bool escaped, bool& refused) {
  const std::optional<Entry> entry = entry_in(&control);
  if (!entry) co_return;
  if (escaped) {
    undo(*entry);
  } else if (!store(*entry)) {
    refused = true;
    co_return co_await refuse(entry->box);
  }
  graph_.rebuild();
}

// A text that was there when the person came is none of the person's, even if the tableau has another since.
void Cells::control_left(const platform::Control* active) {
  const std::optional<Entry> entry = entry_in(active);
  if (!entry) return;
  refuses_later_ = !evaluated(entry->box.text());
  if (refuses_later_ || entry->box.text() == text_at_entry_) return;
  store(*entry);
  graph_.rebuild();
}

Task<> Cells::control_entered(const platform::Control* active) {
  if (!grid_.cell_of(active)) co_return;
  text_at_entry_ = active->text();
  if (surface_.desk().is_covered() || !std::exchange(refuses_later_, false)) co_return;
  bool refused = false;
  co_await validate(*active, false, refused);
}

void Cells::drop_entry(const platform::Control* active) {
  if (const std::optional<Entry> entry = entry_in(active)) undo(*entry);
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
