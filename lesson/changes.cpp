#include "lesson/changes.h"

#include <array>
#include <cmath>

#include "lesson/words.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {

namespace {

bool counts(double entry) {
  return std::fabs(entry) > largest_negligible_entry;
}

bool is_place(const basSafeCtl& model, Pivot pivot) {
  return pivot.row >= 1 && pivot.row <= model.rows() && pivot.column >= 1 && pivot.column <= model.columns();
}

// The entries of the basis' columns while rows are divided one after another: what each row has been divided
// by.
class BasisColumns {
 public:
  BasisColumns(const basSafeCtl& before, Pivot pivot) : rows_(before.rows()) {
    for (int own = 1; own <= rows_; ++own) {
      const int column = own == pivot.row ? pivot.column : before.current.basis(own);
      if (column < 1 || column > before.columns()) continue;
      for (int row = 1; row <= rows_; ++row) entry(row, own) = before.current.row(row).value(column);
    }
  }

  void add_multiple(int row, double multiple, int other) {
    for (int own = 1; own <= rows_; ++own) entry(row, own) += multiple * entry(other, own);
  }

  // Makes each basic column's entry 1, column after column, as the control does.
  std::array<double, most_rows + 1> normalise() {
    std::array<double, most_rows + 1> divisors{};
    divisors.fill(1);
    for (int own = 1; own <= rows_; ++own)
      for (int row = 1; row <= rows_; ++row)
        if (counts(entry(row, own))) divide(row, entry(row, own), divisors);
    return divisors;
  }

 private:
  double& entry(int row, int own) {
    return entries_[static_cast<std::size_t>(row)][static_cast<std::size_t>(own)];
  }

  void divide(int row, double divisor, std::array<double, most_rows + 1>& divisors) {
    divisors[static_cast<std::size_t>(row)] *= divisor;
    for (int own = 1; own <= rows_; ++own) entry(row, own) /= divisor;
  }

  int rows_;
  std::array<std::array<double, most_rows + 1>, most_rows + 1> entries_{};
};

// As it is shown, so that what is shown as 1 is told as no division.
bool is_shown_as_1(double number, bool fractions) {
  return shown(number, fractions) == "1";
}

// A number within a sentence of arithmetic: 2+1/3 needs its parentheses.
std::string factor(double number, bool fractions) {
  const std::string text = shown(number, fractions);
  const bool alone = text.find_first_of("+-/", 1) == std::string::npos && !text.starts_with('-');
  return alone || text.starts_with('(') ? text : "(" + text + ")";
}

std::string basis_sentence(const basSafeCtl& before, Pivot pivot) {
  const int leaving = before.current.basis(pivot.row);
  const std::string entering = column_name(before, pivot.column);
  if (leaving == pivot.column) return entering + " was al de basisvariabele van " + row_name(pivot.row) + ".";
  const bool known = before.kind_of_column(leaving) != VariableKind::None;
  return entering + " komt in de basis" +
         (known ? ", " + column_name(before, leaving) + " gaat eruit." : ".");
}

void add_sentences(const std::vector<RowOperation>& operations, bool fractions,
                   std::vector<std::string>& sentences) {
  for (const RowOperation& each : operations) sentences.push_back(sentence_of(each, fractions));
}

std::string place_of(const basSafeCtl& model, int row, int column) {
  if (column == CellRow::right_hand_side) return "rechts in " + row_name(row);
  return "in " + row_name(row) + ", kolom " + column_name(model, column) + ",";
}

const CellRow& row_of(const basSafeCtl& model, int row) {
  return row == 0 ? model.current.row_F() : model.current.row(row);
}

std::string cell_text(const basSafeCtl& model, int row, int column) {
  std::string text = row_of(model, row).text(column);
  while (text.starts_with(' ')) text.erase(0, 1);
  return text;
}

}  // namespace

std::vector<RowOperation> operations_of_sweep(const basSafeCtl& before, Pivot pivot) {
  if (!is_place(before, pivot)) return {};
  const double entry = before.current.row(pivot.row).value(pivot.column);
  if (!counts(entry)) return {};
  BasisColumns basis(before, pivot);
  std::array<double, most_rows + 1> multiples{};
  multiples[0] = -before.current.row_F().value(pivot.column) / entry;
  for (int row = 1; row <= before.rows(); ++row) {
    const double multiple = -before.current.row(row).value(pivot.column) / entry;
    if (row == pivot.row || !counts(multiple)) continue;
    multiples[static_cast<std::size_t>(row)] = multiple;
    basis.add_multiple(row, multiple, pivot.row);
  }
  const auto divisors = basis.normalise();
  std::vector<RowOperation> operations;
  const auto add = [&](int row) {
    const auto at = static_cast<std::size_t>(row);
    const int other = multiples[at] == 0 ? 0 : pivot.row;
    const double divisor = row == 0 ? 1 : divisors[at];
    if (other != 0 || !is_shown_as_1(divisor, before.Breuken))
      operations.push_back({row, other, multiples[at], divisor});
  };
  for (int row = 0; row <= before.rows(); ++row)
    if (row != pivot.row) add(row);
  add(pivot.row);
  return operations;
}

std::vector<RowOperation> operations_of_normalising(const basSafeCtl& before, int column) {
  std::vector<RowOperation> operations;
  if (column < 1 || column > before.columns()) return operations;
  for (int row = 1; row <= before.rows(); ++row) {
    const double divisor = before.current.row(row).value(column);
    if (counts(divisor) && !is_shown_as_1(divisor, before.Breuken))
      operations.push_back({.row = row, .divisor = divisor});
  }
  return operations;
}

std::string sentence_of(const RowOperation& operation, bool fractions) {
  const std::string row = row_name(operation.row);
  std::string sum = row;
  if (operation.other != 0)
    sum += (operation.multiple < 0 ? " − " : " + ") + factor(std::fabs(operation.multiple), fractions) +
           " × " + row_name(operation.other);
  if (is_shown_as_1(operation.divisor, fractions)) return row + " := " + sum;
  if (operation.other != 0) sum = "(" + sum + ")";
  return row + " := " + sum + " : " + factor(operation.divisor, fractions);
}

std::vector<std::string> sentences_of_sweep(const basSafeCtl& before, Pivot pivot) {
  if (!is_place(before, pivot) || !counts(before.current.row(pivot.row).value(pivot.column)))
    return {"Het pivot-element is 0: er is niets veranderd."};
  std::vector<std::string> sentences{basis_sentence(before, pivot)};
  add_sentences(operations_of_sweep(before, pivot), before.Breuken, sentences);
  return sentences;
}

std::vector<std::string> sentences_of_normalising(const basSafeCtl& before, int column) {
  std::vector<std::string> sentences{"Kolom " + column_name(before, column) + " is genormeerd."};
  add_sentences(operations_of_normalising(before, column), before.Breuken, sentences);
  if (sentences.size() == 1) sentences.front() += " Er was niets te delen.";
  return sentences;
}

std::string sentence_of_cell(const basSafeCtl& before, const basSafeCtl& after, int row, int column) {
  std::string place = place_of(after, row, column);
  place.front() = static_cast<char>(place.front() - 'a' + 'A');
  return place + " is " + cell_text(after, row, column) + " ingevuld; er stond " +
         cell_text(before, row, column) + ".";
}

}  // namespace tabulon::lesson
