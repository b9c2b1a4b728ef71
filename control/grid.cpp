#include "control/grid.h"

#include "control/basSafeCtl_style.h"
#include "numbers/conversions.h"
#include "platform/desk.h"

namespace tabulon {

using platform::Colour;
using platform::rgb;
using platform::Task;

namespace {

constexpr Colour pivot_colour = rgb(255, 0, 0);
constexpr std::string_view pivot_tip = " Pivotelement ";

void style(platform::Control& control, Colour colour, std::string_view tip) {
  control.set_back_colour(colour);
  control.set_tool_tip(tip);
}

std::string number(int value) {
  return numbers::Str(static_cast<std::int16_t>(value));
}

// The first shown row or column that brings `wanted` into a view of `span`, moving as little as can be.
std::int16_t scrolled_to(std::int16_t first, int wanted, int span) {
  if (wanted < first) return static_cast<std::int16_t>(wanted);
  return wanted > first + span - 1 ? static_cast<std::int16_t>(wanted - span + 1) : first;
}

}  // namespace

Grid::Grid(platform::Surface& surface, basSafeCtl& model, const FillIn& fill_in, RestingFocus& resting)
    : surface_(surface), model_(model), fill_in_(fill_in), resting_(resting) {
  lay_out();
}

// ---- Drawing

Result<> Grid::ToonTableau(int startKolom, int startRij) {
  const Shape shape = TRY(model_.shape());
  if (startKolom < 1 || startRij < 1) return fail(ErrorNumber::SubscriptOutOfRange);
  lblNRTableau.set_text(numbers::digits(model_.NrTableau) + "-e Simplex-tableau");
  lblFRL.set_text(model_.current.row_F().text(CellRow::right_hand_side));
  HScroll.set_visible(shape.columns > grid_columns);
  VScroll.set_visible(shape.rows > grid_rows);
  show_columns(shape.columns - startKolom + 1);
  show_rows(shape.rows - startRij + 1, shape.columns - startKolom + 1);
  for (int at = 1; at <= grid_rows && startRij + at - 1 <= shape.rows; ++at) draw_row(at, startRij + at - 1);
  for (int at = 1; at <= grid_columns && startKolom + at - 1 <= shape.columns; ++at)
    draw_column(at, startKolom + at - 1);
  for (int row = 1; row <= grid_rows && startRij + row - 1 <= shape.rows; ++row)
    for (int column = 1; column <= grid_columns && startKolom + column - 1 <= shape.columns; ++column)
      draw_cell(row, column, startRij + row - 1, startKolom + column - 1);
  const platform::Control* const active = surface_.active();
  if (active && !active->can_take_focus()) surface_.desk().call(surface_, leave_hidden_box());
  return {};
}

Task<> Grid::leave_hidden_box() {
  co_await resting_.take_focus();
}

void Grid::redraw() {
  surface_.report(ToonTableau(model_.StartKolom, model_.StartRij));
}

// Hides the headings of the grid columns beyond those that the tableau fills.
void Grid::show_columns(int filled) {
  for (int at = 1; at <= grid_columns; ++at) {
    const bool shown = at <= filled;
    lblKLM(at).set_visible(shown);
    lblKolom(at).set_visible(shown);
    txtRij_F(at).set_visible(shown);
  }
}

void Grid::show_rows(int filled, int filled_columns) {
  for (int at = 1; at <= grid_rows; ++at) {
    const bool shown = at <= filled;
    lblRij(at).set_visible(shown);
    lblBasis(at).set_visible(shown);
    lblRij_F(at).set_visible(shown);
    txtRL(at).set_visible(shown);
    for (int column = 1; column <= grid_columns; ++column)
      box_at(at, column).set_visible(shown && column <= filled_columns);
  }
}

// A row's number stays, and its basic variable says what it is about.
std::string Grid::row_name(int row) const {
  const int basic = model_.current.basis(row);
  const bool is_known = model_.kind_of_column(basic) != VariableKind::None;
  return "rij" + number(row) + (is_known ? " (" + model_.variable_name(basic) + ")" : "");
}

void Grid::draw_row(int grid_row, int row) {
  lblRij(grid_row).set_text(number(row) + "  ");
  lblRij_F(grid_row).set_text("0");
  platform::TextBox& right = txtRL(grid_row);
  right.set_text(model_.current.row(row).text(CellRow::right_hand_side));
  right.set_locked(!fill_in_.CellenBewerkbaar);
  // Once it cannot be typed in any more, a right-hand side tells the digits that its box has no room for.
  right.set_tool_tip(fill_in_.CellenBewerkbaar ? std::string()
                                               : numbers::Str(model_.current.row(row).right()));
  right.set_spoken_name(row_name(row) + ", rechterlid");

  const int basic = model_.current.basis(row);
  const VariableKind kind = model_.kind_of_column(basic);
  if (kind == VariableKind::None) return;
  lblBasis(grid_row).set_text(model_.variable_name(basic));
  style(lblBasis(grid_row), style_of(kind).body, style_of(kind).tip);
  right.set_back_colour(style_of(kind).body);
}

void Grid::draw_column(int grid_column, int column) {
  const VariableKind kind = model_.kind_of_column(column);
  const std::string name = model_.variable_name(column);
  lblKLM(grid_column).set_text(number(column));
  lblKolom(grid_column).set_text(name);
  style(lblKolom(grid_column), style_of(kind).heading, style_of(kind).tip);

  platform::TextBox& box = txtRij_F(grid_column);
  box.set_text(model_.current.row_F().text(column));
  box.set_locked(kind != VariableKind::Decision || !fill_in_.CellenBewerkbaar);
  box.set_spoken_name("doelfunctie F, kolom " + name);
  style(box, style_of(kind).body, style_of(kind).tip_in_row_F);
}

void Grid::draw_cell(int grid_row, int grid_column, int row, int column) {
  const VariableKind kind = model_.kind_of_column(column);
  const bool decision = kind == VariableKind::Decision;
  platform::TextBox& box = box_at(grid_row, grid_column);
  box.set_text(model_.current.row(row).text(column));
  box.set_locked(!decision || !fill_in_.CellenBewerkbaar);
  box.set_spoken_name(row_name(row) + ", kolom " + model_.variable_name(column));
  if (row == model_.PivotRij && column == model_.PivotKolom)
    style(box, pivot_colour, pivot_tip);
  else if (decision)
    style(box, style_of(model_.kind_of_row(row)).cell, style_of(model_.kind_of_row(row)).tip_in_cell);
  else
    style(box, style_of(kind).body, style_of(kind).tip_in_cell);
}

// ---- Scrolling

// The last place of a bar is the one from which the tableau still fills the grid; for a small tableau it is
// before the first, and the bar is hidden.
void Grid::reset_scroll_bars() {
  m_blnScrollActief = false;
  HScroll.set_range(1, model_.columns() - (grid_columns - 1));
  HScroll.set_value(1);
  VScroll.set_range(1, model_.rows() - (grid_rows - 1));
  VScroll.set_value(1);
  m_blnScrollActief = true;
}

void Grid::follow_grid() {
  m_blnScrollActief = false;
  HScroll.set_value(model_.StartKolom);
  VScroll.set_value(model_.StartRij);
  m_blnScrollActief = true;
}

void Grid::scroll_to(int row, int column) {
  model_.StartRij = scrolled_to(model_.StartRij, row, grid_rows);
  model_.StartKolom = scrolled_to(model_.StartKolom, column, grid_columns);
}

void Grid::show_from(int column, int row) {
  const bool moves = column != model_.StartKolom || row != model_.StartRij;
  model_.StartKolom = static_cast<std::int16_t>(column);
  model_.StartRij = static_cast<std::int16_t>(row);
  if (moves) redraw();
  follow_grid();
}

void Grid::scrolled(const platform::Control& bar) {
  &bar == &HScroll ? HScroll_Change() : VScroll_Change();
}

void Grid::HScroll_Change() {
  if (!m_blnScrollActief) return;
  model_.StartKolom = static_cast<std::int16_t>(HScroll.value());
  redraw();
}

void Grid::VScroll_Change() {
  if (!m_blnScrollActief) return;
  model_.StartRij = static_cast<std::int16_t>(VScroll.value());
  redraw();
}

// ---- The boxes of the cells

platform::TextBox& Grid::box_of(GridBox cell) {
  switch (cell.array) {
    case CellArray::RowF:
      return txtRij_F(cell.index);
    case CellArray::Cells:
      return txtTableau(cell.index);
    case CellArray::RightHandSides:
      break;
  }
  return txtRL(cell.index);
}

platform::Bounds Grid::pivot_bounds() const {
  const int row = model_.PivotRij - model_.StartRij + 1, column = model_.PivotKolom - model_.StartKolom + 1;
  if (row < 1 || row > grid_rows || column < 1 || column > grid_columns) return {};
  const platform::TextBox& box = txtTableau((row - 1) * grid_columns + column);
  return box.shown() ? box.bounds() : platform::Bounds{};
}

std::optional<GridBox> Grid::cell_of(const platform::Control* control) const {
  if (txtRij_F.has(control)) return GridBox{CellArray::RowF, control->index()};
  if (txtTableau.has(control)) return GridBox{CellArray::Cells, control->index()};
  if (txtRL.has(control)) return GridBox{CellArray::RightHandSides, control->index()};
  return {};
}

std::optional<TableauPlace> Grid::place_of(GridBox cell) const {
  if (model_.StartKolom < 1 || model_.StartRij < 1) return {};
  const int at = cell.index - 1;
  TableauPlace place;
  switch (cell.array) {
    case CellArray::RowF:
      place = {0, model_.StartKolom + at};
      break;
    case CellArray::Cells:
      place = {model_.StartRij + at / grid_columns, model_.StartKolom + at % grid_columns};
      break;
    case CellArray::RightHandSides:
      place = {model_.StartRij + at, CellRow::right_hand_side};
  }
  const bool stored =
      place.row <= most_rows && (place.column <= most_columns || cell.array == CellArray::RightHandSides);
  return stored ? std::optional(place) : std::nullopt;
}

}  // namespace tabulon
