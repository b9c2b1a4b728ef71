#include "hosts/web/tableau_record.h"

#include <array>
#include <string>
#include <string_view>

#include "files/tableau_text.h"
#include "hosts/web/wire.h"

namespace tabulon::web {

namespace {

// By VariableKind.
constexpr std::array<std::string_view, 6> kinds = {"",        "decision",           "slack",
                                                   "surplus", "artificial-greater", "artificial-equal"};

void write_head(Record& record, const basSafeCtl& model) {
  wire::write(record, wire::TableauHead{.number = model.NrTableau,
                                        .fractions = model.Breuken,
                                        .big_m = model.BigM,
                                        .decision = model.NrBeslisVar,
                                        .less_equal = model.NrKleinerGelijkVglen,
                                        .greater_equal = model.NrGroterGelijkVglen,
                                        .equal = model.NrGelijkVglen,
                                        .pivot_column = model.PivotKolom,
                                        .pivot_row = model.PivotRij});
}

void write_row(Record& record, const CellRow& row, int columns) {
  const auto write = [&](int column) {
    const std::string text = row.text(column);
    wire::write(record, wire::TableauCell{.value = row.value(column), .shown = text});
  };
  for (int column = 1; column <= columns; ++column) write(column);
  write(CellRow::right_hand_side);
}

}  // namespace

Result<> write_tableau_record(Record& record, const basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  const std::string saved = TRY(saved_text(model));
  write_head(record, model);
  for (int row = 1; row <= shape.rows; ++row)
    wire::write(record,
                wire::TableauBasis{.current = model.current.basis(row), .first = model.first.basis(row)});
  for (int column = 1; column <= shape.columns; ++column) {
    const std::string name = model.variable_name(column);
    const auto kind = static_cast<std::size_t>(model.kind_of_column(column));
    wire::write(record, wire::TableauColumn{.name = name, .kind = kinds[kind]});
  }
  for (const TableauState* const tableau : {&model.current, &model.first}) {
    write_row(record, tableau->row_F(), shape.columns);
    for (int row = 1; row <= shape.rows; ++row) write_row(record, tableau->row(row), shape.columns);
  }
  wire::write(record, wire::SavedTableau{.content = saved});
  return {};
}

}  // namespace tabulon::web
