#include "hosts/web/lesson/worksheet_record.h"

#include <string>

#include "hosts/web/lesson/wire.h"
#include "lesson/words.h"
#include "lesson/worksheet.h"
#include "platform/texts.h"

namespace tabulon::web {

namespace {

void write_cell(Record& record, const CellRow& row, int column) {
  const std::string text = row.text(column);
  wire::write(record, wire::WorkedCell{.shown = trimmed(text)});
}

void write_row(Record& record, const std::string& basis, const CellRow& row, int columns) {
  wire::write(record, wire::WorkedRow{.basis = basis});
  for (int column = 1; column <= columns; ++column) write_cell(record, row, column);
  write_cell(record, row, CellRow::right_hand_side);
}

void write_tableau(Record& record, const basSafeCtl& model, const lesson::WorkedTableau& worked) {
  const auto& [number, tableau, pivot] = worked;
  wire::write(record, wire::WorkedTableau{.number = static_cast<std::uint16_t>(number),
                                          .pivot_column = static_cast<std::uint8_t>(pivot.column),
                                          .pivot_row = static_cast<std::uint8_t>(pivot.row)});
  write_row(record, "F", tableau.row_F(), model.columns());
  for (int row = 1; row <= model.rows(); ++row)
    write_row(record, lesson::column_name(model, tableau.basis(row)), tableau.row(row), model.columns());
}

}  // namespace

void write_worked_out(Record& record, const lesson::Problem& problem) {
  const auto [model, tableaus] = lesson::work_out(problem);
  wire::write(record, wire::WorkedOut{.columns = static_cast<std::uint8_t>(model.columns()),
                                      .rows = static_cast<std::uint8_t>(model.rows()),
                                      .tableaus = static_cast<std::uint8_t>(tableaus.size())});
  for (int column = 1; column <= model.columns(); ++column)
    wire::write(record, wire::ReadName{.name = lesson::column_name(model, column)});
  for (const lesson::WorkedTableau& each : tableaus) write_tableau(record, model, each);
}

}  // namespace tabulon::web
