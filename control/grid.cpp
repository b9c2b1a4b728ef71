// The grid: 7 rows of 5 columns of the tableau, with row F, the right-hand sides and the headings.
#include "control/LPctrl.h"
#include "control/basSafeCtl_style.h"
#include "numbers/conversions.h"

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

}  // namespace

Result<> LPctrl::ToonTableau(int startKolom, int startRij) {
  const auto shape = model_.shape();
  if (!shape) return std::unexpected(shape.error());
  if (startKolom < 1 || startRij < 1) return fail(ErrorNumber::SubscriptOutOfRange);
  lblNRTableau.set_text(number(model_.NrTableau).substr(1) + "-e Simplex-tableau");
  lblFRL.set_text(model_.current.row_F().text(CellRow::right_hand_side));
  HScroll.set_visible(shape->columns > grid_columns);
  VScroll.set_visible(shape->rows > grid_rows);
  show_columns(shape->columns - startKolom + 1);
  show_rows(shape->rows - startRij + 1, shape->columns - startKolom + 1);
  for (int at = 1; at <= grid_rows && startRij + at - 1 <= shape->rows; ++at) draw_row(at, startRij + at - 1);
  for (int at = 1; at <= grid_columns && startKolom + at - 1 <= shape->columns; ++at)
    draw_column(at, startKolom + at - 1);
  for (int row = 1; row <= grid_rows && startRij + row - 1 <= shape->rows; ++row)
    for (int column = 1; column <= grid_columns && startKolom + column - 1 <= shape->columns; ++column)
      draw_cell(row, column, startRij + row - 1, startKolom + column - 1);
  if (active() && !active()->can_take_focus()) desk().call(*this, leave_hidden_box());
  return {};
}

Task<> LPctrl::leave_hidden_box() {
  co_await set_focus(txtFocus);
}

// Hides the headings of the grid columns beyond those that the tableau fills.
void LPctrl::show_columns(int filled) {
  for (int at = 1; at <= grid_columns; ++at) {
    const bool shown = at <= filled;
    lblKLM(at).set_visible(shown);
    lblKolom(at).set_visible(shown);
    txtRij_F(at).set_visible(shown);
  }
}

void LPctrl::show_rows(int filled, int filled_columns) {
  for (int at = 1; at <= grid_rows; ++at) {
    const bool shown = at <= filled;
    lblRij(at).set_visible(shown);
    lblBasis(at).set_visible(shown);
    lblRij_F(at).set_visible(shown);
    txtRL(at).set_visible(shown);
    for (int column = 1; column <= grid_columns; ++column)
      cell(at, column).set_visible(shown && column <= filled_columns);
  }
}

void LPctrl::draw_row(int grid_row, int row) {
  lblRij(grid_row).set_text(number(row) + "  ");
  lblRij_F(grid_row).set_text("0");
  platform::TextBox& right = txtRL(grid_row);
  right.set_text(model_.current.row(row).text(CellRow::right_hand_side));
  right.set_locked(!CellenBewerkbaar);
  // Once it cannot be typed in any more, a right-hand side tells the digits that its box has no room for.
  right.set_tool_tip(CellenBewerkbaar ? std::string() : numbers::Str(model_.current.row(row).right()));
  right.set_spoken_name("rechterlid rij" + number(row));

  const int basic = model_.current.basis(row);
  const VariableKind kind = model_.kind_of_column(basic);
  if (kind == VariableKind::None) return;
  lblBasis(grid_row).set_text(model_.variable_name(basic));
  style(lblBasis(grid_row), style_of(kind).body, style_of(kind).tip);
  right.set_back_colour(style_of(kind).body);
}

void LPctrl::draw_column(int grid_column, int column) {
  const VariableKind kind = model_.kind_of_column(column);
  const std::string name = model_.variable_name(column);
  lblKLM(grid_column).set_text(number(column));
  lblKolom(grid_column).set_text(name);
  style(lblKolom(grid_column), style_of(kind).heading, style_of(kind).tip);

  platform::TextBox& box = txtRij_F(grid_column);
  box.set_text(model_.current.row_F().text(column));
  box.set_locked(kind != VariableKind::Decision || !CellenBewerkbaar);
  box.set_spoken_name(name + ", doelfunctie F");
  style(box, style_of(kind).body, style_of(kind).tip_in_row_F);
}

void LPctrl::draw_cell(int grid_row, int grid_column, int row, int column) {
  const VariableKind kind = model_.kind_of_column(column);
  const bool decision = kind == VariableKind::Decision;
  platform::TextBox& box = cell(grid_row, grid_column);
  box.set_text(model_.current.row(row).text(column));
  box.set_locked(!decision || !CellenBewerkbaar);
  box.set_spoken_name(model_.variable_name(column) + ", rij" + number(row));
  if (row == model_.PivotRij && column == model_.PivotKolom)
    style(box, pivot_colour, pivot_tip);
  else if (decision)
    style(box, style_of(model_.kind_of_row(row)).cell, style_of(model_.kind_of_row(row)).tip_in_cell);
  else
    style(box, style_of(kind).body, style_of(kind).tip_in_cell);
}

}  // namespace tabulon
