#include "files/tableau_file.h"

#include <array>
#include <string>
#include <utility>

#include "files/tableau_lines.h"

namespace tabulon {

namespace {

constexpr int right = CellRow::right_hand_side;

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

void write_cells(TableauWriter& lines, const basSafeCtl& model, Shape shape) {
  for (int column = 1; column <= shape.columns; ++column)
    lines.cell(model.current.row_F(), model.first.row_F(), column);
  lines.cell(model.current.row_F(), model.first.row_F(), right);
  for (int row = 1; row <= shape.rows; ++row) {
    lines.whole(model.current.basis(row));
    lines.whole(model.first.basis(row));
  }
  for (int row = 1; row <= shape.rows; ++row)
    for (int column = 1; column <= shape.columns; ++column)
      lines.cell(model.current.row(row), model.first.row(row), column);
  for (int row = 1; row <= shape.rows; ++row) lines.cell(model.current.row(row), model.first.row(row), right);
}

void read_basis(TableauReader& lines, TableauState& tableau, int row) {
  std::int16_t column = tableau.basis(row);
  lines.whole(column);
  tableau.set_basis(row, column);
}

void read_cells(TableauReader& lines, basSafeCtl& model, Shape shape) {
  for (int column = 1; column <= shape.columns; ++column)
    lines.cell(model.current.row_F(), model.first.row_F(), column);
  lines.cell(model.current.row_F(), model.first.row_F(), right);
  for (int row = 1; row <= shape.rows; ++row) {
    read_basis(lines, model.current, row);
    read_basis(lines, model.first, row);
  }
  for (int row = 1; row <= shape.rows; ++row)
    for (int column = 1; column <= shape.columns; ++column)
      lines.cell(model.current.row(row), model.first.row(row), column);
  for (int row = 1; row <= shape.rows; ++row) lines.cell(model.current.row(row), model.first.row(row), right);
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
  if (auto counted = model.set_derived_counts(); !counted) return counted;
  lines.text(model.Breuken ? "1" : "0");
  lines.whole(model.StartRij);
  lines.whole(model.StartKolom);
  const auto shape = model.shape();
  if (!shape) return std::unexpected(shape.error());
  write_cells(lines, model, *shape);
  if (!lines.result()) return lines.result();
  return file.close();
}

Result<TableauRead> read_tableau(basSafeCtl& model, platform::TextFile& file) {
  const std::string header;
  if (auto written = file.write_line(header); !written) return std::unexpected(written.error());
  return read_after_header(model, header, file);
}

Result<TableauRead> read_after_header(basSafeCtl& model, std::string_view header, platform::TextFile& file) {
  if (header != tableau_header) return TableauRead::OtherHeader;
  TableauReader lines(file);
  for (const auto number : leading_numbers) lines.whole(model.*number);
  if (!lines.result()) return std::unexpected(lines.result().error());
  if (auto counted = model.set_derived_counts(); !counted) return std::unexpected(counted.error());
  read_fractions(lines, model);
  lines.whole(model.StartRij);
  lines.whole(model.StartKolom);
  const auto shape = model.shape();
  if (!shape) return std::unexpected(shape.error());
  read_cells(lines, model, *shape);
  if (!lines.result()) return std::unexpected(lines.result().error());
  if (auto closed = file.close(); !closed) return std::unexpected(closed.error());
  return TableauRead::Read;
}

}  // namespace tabulon
