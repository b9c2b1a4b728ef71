#include "files/tableau_lines.h"

#include <utility>

#include "numbers/conversions.h"

namespace tabulon {

bool TableauLines::goes_on_at(int number, int most) {
  if (result_ && number > most) result_ = fail(ErrorNumber::SubscriptOutOfRange);
  return result_.has_value();
}

void TableauWriter::text(std::string_view text) {
  if (result_) result_ = file_.write_line(text);
}

void TableauWriter::whole(std::int16_t number) {
  text(numbers::Str(number) + " ");
}

void TableauWriter::real(double number) {
  text(numbers::Str(number));
}

void TableauWriter::cell(const CellRow& current, const CellRow& first, int column) {
  text(current.text(column));
  text(first.text(column));
  real(current.value(column));
  real(first.value(column));
}

void TableauWriter::basis(const TableauState& current, const TableauState& first, int row) {
  whole(current.basis(row));
  whole(first.basis(row));
}

std::string TableauReader::text() {
  if (!result_) return {};
  Result<std::string> line = file_.read_line();
  if (line) return *std::move(line);
  result_ = std::unexpected(line.error());
  return {};
}

void TableauReader::whole(std::int16_t& number) {
  const double value = real();
  if (!result_) return;
  if (const auto converted = numbers::to_int16(value))
    number = *converted;
  else
    result_ = std::unexpected(converted.error());
}

double TableauReader::real() {
  return numbers::Val(text());
}

void TableauReader::cell(CellRow& current, CellRow& first, int column) {
  const std::string current_text = text(), first_text = text();
  const double current_value = real(), first_value = real();
  if (!result_) return;
  current.write(column, current_value, current_text);
  first.write(column, first_value, first_text);
}

void TableauReader::basis(TableauState& current, TableauState& first, int row) {
  for (TableauState* const tableau : {&current, &first}) {
    std::int16_t column = tableau->basis(row);
    whole(column);
    tableau->set_basis(row, column);
  }
}

}  // namespace tabulon
