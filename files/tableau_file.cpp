#include "files/tableau_file.h"

#include <array>
#include <string>
#include <utility>

#include "files/tableau_lines.h"
#include "numbers/conversions.h"

namespace tabulon {

namespace {

constexpr int right_side = CellRow::right_hand_side;

// The numbers at the beginning, in the file's order: the surplus count stands before the row counts.
constexpr std::array leading_numbers{
    &basSafeCtl::NrTableau,
    &basSafeCtl::NrBeslisVar,
    &basSafeCtl::NrSurplusVar,
    &basSafeCtl::NrKleinerGelijkVglen,
    &basSafeCtl::NrGroterGelijkVglen,
    &basSafeCtl::NrGelijkVglen,
    &basSafeCtl::BigM,
};

// The slack and artificial counts follow from the rows and are not stored; the surplus count is. Error 6
// beyond 16 bits.
Result<> set_counts_not_stored(basSafeCtl& model) {
  model.NrSpelingsVar = model.NrKleinerGelijkVglen;
  model.NrKunstmatigeVar =
      TRY(numbers::to_int16(static_cast<double>(model.NrGelijkVglen + model.NrGroterGelijkVglen)));
  return {};
}

template <class Lines, class Row>
void pass_columns(Lines& lines, Row& current, Row& first, int columns) {
  for (int column = 1; column <= columns && lines.goes_on_at(column, most_columns); ++column)
    lines.cell(current, first, column);
}

// Written and read in one order. With counts that exceed the storage it stops at the first cell beyond it.
template <class Lines, class Model>
void pass_cells(Lines& lines, Model& model) {
  auto &current = model.current, &first = model.first;
  const int rows = model.rows(), columns = model.columns();
  const auto goes_on_at = [&](int row) { return row <= rows && lines.goes_on_at(row, most_rows); };
  pass_columns(lines, current.row_F(), first.row_F(), columns);
  lines.cell(current.row_F(), first.row_F(), right_side);
  for (int row = 1; goes_on_at(row); ++row) lines.basis(current, first, row);
  for (int row = 1; goes_on_at(row); ++row) pass_columns(lines, current.row(row), first.row(row), columns);
  for (int row = 1; goes_on_at(row); ++row) lines.cell(current.row(row), first.row(row), right_side);
}

void read_fractions(TableauReader& lines, basSafeCtl& model) {
  const std::string mode = lines.text();
  if (mode == "0") model.Breuken = false;
  if (mode == "1") model.Breuken = true;
}

}  // namespace

Result<> write_tableau(basSafeCtl& model, platform::TextFile& file) {
  TableauWriter lines(file);
  lines.text(tableau_header);
  for (const auto number : leading_numbers) lines.whole(model.*number);
  TRY(lines.result());
  TRY(set_counts_not_stored(model));
  lines.text(model.Breuken ? "1" : "0");
  lines.whole(model.StartRij);
  lines.whole(model.StartKolom);
  pass_cells(lines, std::as_const(model));
  TRY(lines.result());
  return file.close();
}

Result<TableauRead> read_tableau(basSafeCtl& model, platform::TextFile& file) {
  const std::string header;
  TRY(file.write_line(header));
  return read_after_header(model, header, file);
}

Result<TableauRead> read_after_header(basSafeCtl& model, std::string_view header, platform::TextFile& file) {
  if (header != tableau_header) return TableauRead::OtherHeader;
  TableauReader lines(file);
  for (const auto number : leading_numbers) lines.whole(model.*number);
  TRY(lines.result());
  TRY(set_counts_not_stored(model));
  read_fractions(lines, model);
  lines.whole(model.StartRij);
  lines.whole(model.StartKolom);
  pass_cells(lines, model);
  TRY(lines.result());
  model.laid_out_for = model.size();
  TRY(file.close());
  return TableauRead::Read;
}

}  // namespace tabulon
