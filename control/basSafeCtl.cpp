#include "control/basSafeCtl.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

#include "numbers/conversions.h"
#include "numbers/display.h"

namespace tabulon {

namespace {

void init_row_F(CellRow& row, const basSafeCtl& model, int columns) {
  row.clear(columns);
  const int first_artificial = model.NrBeslisVar + model.NrSpelingsVar + model.NrSurplusVar + 1;
  for (int column = std::max(first_artificial, 1); column <= columns; ++column) row.write(column, model.BigM);
}

// The columns in which a row starts with 1 (its basic variable) and, for ">=" rows, with -1; 0 for none.
struct UnitColumns {
  int plus = 0, minus = 0;
};

UnitColumns unit_columns(const basSafeCtl& model, int row) {
  const int n = model.NrBeslisVar, a = model.NrKleinerGelijkVglen, b = model.NrGroterGelijkVglen;
  const int slack = model.NrSpelingsVar, surplus = model.NrSurplusVar;
  switch (model.kind_of_row(row)) {
    case RowKind::LessEqual:
      return {n + row, 0};
    case RowKind::GreaterEqual:
      return {n + row + slack + surplus - a, n + row + slack - a};
    case RowKind::Equal:
      return {n + row + slack + 2 * surplus - (b + a), 0};
  }
  return {};
}

void init_row(TableauState& tableau, int row, int columns, UnitColumns unit) {
  tableau.set_basis(row, static_cast<std::int16_t>(unit.plus));
  tableau.row(row).clear(columns);
  const auto inside = [columns](int column) { return column >= 1 && column <= columns; };
  if (inside(unit.minus)) tableau.row(row).write(unit.minus, -1.0);
  if (inside(unit.plus)) tableau.row(row).write(unit.plus, 1.0);
}

void copy_cells(CellRow& to, const CellRow& from, int columns) {
  for (int column = 1; column <= columns; ++column) to.write(column, from.value(column), from.text(column));
  to.write(CellRow::right_hand_side, from.right(), from.text(CellRow::right_hand_side));
}

}  // namespace

std::string CellRow::text(int column) const {
  if ((decimal_ & bit(column)) != 0) return numbers::GetalNaarDecimaal(value(column));
  if ((fraction_ & bit(column)) == 0) return texts_[place(column)];
  double asked = asked_[place(column)];
  return numbers::strSoortGetal(numbers::kFractions, asked);
}

void CellRow::write(int column, double value, std::string_view text) {
  values_[place(column)] = value;
  write_text(column, text);
}

void CellRow::clear(int columns) {
  std::fill_n(values_.begin(), columns, 0.0);
  decimal_ |= bits(columns);
  write(right_hand_side, 0.0);
}

void CellRow::write_value(int column, double value) {
  // A text that is not made yet belongs to the value that is about to go.
  if (((decimal_ | fraction_) & bit(column)) != 0) write_text(column, text(column));
  values_[place(column)] = value;
}

void CellRow::write_text(int column, std::string_view text) {
  texts_[place(column)] = text;
  decimal_ &= ~bit(column);
  fraction_ &= ~bit(column);
  stable_ &= ~bit(column);
}

void CellRow::rewrite_columns(int columns, bool fractions) {
  rewrite_cells(bits(columns), fractions);
}
void CellRow::rewrite(int column, bool fractions) {
  rewrite_cells(bit(column), fractions);
}
void CellRow::rewrite_row(int columns, bool fractions) {
  rewrite_cells(row_bits(columns), fractions);
}

void CellRow::rewrite_cells(Mask cells, bool fractions) {
  if (fractions)
    rewrite_in_fractions(cells);
  else
    decimal_ |= cells;
}

// Stable cells are passed over: one sweep asks for the same text up to ten times, and most of the time of
// a sweep in fractions goes into the search for fractions.
void CellRow::rewrite_in_fractions(Mask cells) {
  std::array<std::size_t, most_columns + 1> places;
  std::array<double, most_columns + 1> asked;
  std::array<numbers::Snapped, most_columns + 1> snapped;
  std::size_t count = 0;
  stable_ &= ~decimal_;
  for (Mask left = cells & ~stable_; left != 0; left &= left - 1) {
    places[count] = static_cast<std::size_t>(std::countr_zero(left));
    asked[count] = values_[places[count]];
    ++count;
  }
  numbers::snap(std::span(asked).first(count), std::span(snapped).first(count));
  for (std::size_t at = 0; at < count; ++at) {
    const Mask cell = Mask{1} << places[at];
    values_[places[at]] = snapped[at].value;
    asked_[places[at]] = asked[at];
    if (snapped[at].settled) stable_ |= cell;
  }
  decimal_ &= ~cells;
  fraction_ |= cells;
}

// Cells whose value stays the same stay stable.
template <class Operation>
void CellRow::change_in_fractions(int columns, Operation operation) {
  const auto before = values_;
  operation();
  for (Mask cells = stable_ & row_bits(columns); cells != 0; cells &= cells - 1) {
    const auto at = static_cast<std::size_t>(std::countr_zero(cells));
    if (values_[at] != before[at]) stable_ &= ~(cells & -cells);
  }
  rewrite_in_fractions(row_bits(columns));
}

void CellRow::add_multiple_in_fractions(double factor, const CellRow& other, int columns) {
  change_in_fractions(columns, [&] { add_values(factor, other, columns); });
}

void CellRow::divide(double divisor, int columns, bool fractions) {
  if (divisor == 1.0) return rewrite_row(columns, fractions);
  const auto divide_values = [=, this] {
    for (int at = 0; at < columns; ++at) values_[static_cast<std::size_t>(at)] /= divisor;
    values_[most_columns] /= divisor;
  };
  if (fractions) return change_in_fractions(columns, divide_values);
  divide_values();
  decimal_ |= row_bits(columns);
}

// Two lanes, because a compiler may not reorder a maximum by itself.
double CellRow::largest_magnitude(int columns) const {
  const double* values = values_.data();
  double even = std::fabs(right()), odd = 0.0;
  for (int at = 0; at + 1 < columns; at += 2) {
    even = std::max(even, std::fabs(values[at]));
    odd = std::max(odd, std::fabs(values[at + 1]));
  }
  if (columns % 2 != 0) odd = std::max(odd, std::fabs(values[columns - 1]));
  return std::max(even, odd);
}

bool CellRow::all_finite(int columns) const {
  const auto finite = [](double value) { return std::isfinite(value); };
  return std::all_of(values_.begin(), values_.begin() + columns, finite) && finite(right());
}

Result<Shape> basSafeCtl::shape() const {
  if (rows() > most_rows || columns() > most_columns) return fail(ErrorNumber::SubscriptOutOfRange);
  return Shape{std::max(rows(), 0), std::max(columns(), 0)};
}

Result<> basSafeCtl::set_derived_counts() {
  const int artificial = NrGelijkVglen + NrGroterGelijkVglen;
  if (artificial > std::numeric_limits<std::int16_t>::max() ||
      artificial < std::numeric_limits<std::int16_t>::min())
    return fail(ErrorNumber::Overflow);
  NrSpelingsVar = NrKleinerGelijkVglen;
  NrSurplusVar = NrGroterGelijkVglen;
  NrKunstmatigeVar = static_cast<std::int16_t>(artificial);
  return {};
}

VariableKind basSafeCtl::kind_of_column(int column) const {
  if (column < 1) return VariableKind::None;
  int last = NrBeslisVar;
  if (column <= last) return VariableKind::Decision;
  if (column <= (last += NrSpelingsVar)) return VariableKind::Slack;
  if (column <= (last += NrSurplusVar)) return VariableKind::Surplus;
  if (column <= (last += NrSurplusVar)) return VariableKind::ArtificialGreater;
  return column <= columns() ? VariableKind::ArtificialEqual : VariableKind::None;
}

RowKind basSafeCtl::kind_of_row(int row) const {
  if (row <= NrKleinerGelijkVglen) return RowKind::LessEqual;
  return row <= NrKleinerGelijkVglen + NrGroterGelijkVglen ? RowKind::GreaterEqual : RowKind::Equal;
}

std::string basSafeCtl::variable_name(int column) const {
  const auto named = [](const char* letter, int number) {
    return letter + numbers::Str(static_cast<std::int16_t>(number));
  };
  const int before_surplus = NrBeslisVar + NrSpelingsVar;
  switch (kind_of_column(column)) {
    case VariableKind::Decision:
    case VariableKind::Slack:
      return named("x ", column);
    case VariableKind::Surplus:
      return named("s ", column - before_surplus);
    case VariableKind::ArtificialGreater:
      return named("q ", column - before_surplus - NrSurplusVar);
    case VariableKind::ArtificialEqual:
      return named("r ", column - before_surplus - 2 * NrSurplusVar);
    case VariableKind::None:
      break;
  }
  return {};
}

Result<> InitTableau(basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  model.NrTableau = 1;
  model.TableauGestart = 1;
  model.laid_out_for = model.size();
  for (TableauState* tableau : {&model.current, &model.first}) {
    init_row_F(tableau->row_F(), model, shape.columns);
    for (int row = 1; row <= shape.rows; ++row)
      init_row(*tableau, row, shape.columns, unit_columns(model, row));
  }
  return {};
}

Result<> rewrite_texts(basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  const auto rewrite = [&](CellRow& row) {
    row.rewrite_columns(shape.columns, model.Breuken);
    row.rewrite(CellRow::right_hand_side, model.Breuken);
  };
  rewrite(model.current.row_F());
  for (int row = 1; row <= shape.rows; ++row) rewrite(model.current.row(row));
  return {};
}

void copy_tableau(basSafeCtl& to, const basSafeCtl& from) {
  for (const auto number :
       {&basSafeCtl::NrBeslisVar, &basSafeCtl::NrKleinerGelijkVglen, &basSafeCtl::NrGroterGelijkVglen,
        &basSafeCtl::NrGelijkVglen, &basSafeCtl::NrSpelingsVar, &basSafeCtl::NrSurplusVar,
        &basSafeCtl::NrKunstmatigeVar, &basSafeCtl::BigM, &basSafeCtl::NrTableau, &basSafeCtl::StartKolom,
        &basSafeCtl::StartRij})
    to.*number = from.*number;
  to.current = from.current;
  to.first = from.first;
  to.Breuken = from.Breuken;
}

Result<> restore_first_tableau(basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  model.NrTableau = 1;
  copy_cells(model.current.row_F(), model.first.row_F(), shape.columns);
  for (int row = 1; row <= shape.rows; ++row) {
    model.current.set_basis(row, model.first.basis(row));
    copy_cells(model.current.row(row), model.first.row(row), shape.columns);
  }
  return {};
}

}  // namespace tabulon
