#include "lesson/reasons.h"

#include <cmath>
#include <utility>

#include "lesson/words.h"
#include "numbers/conversions.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {

namespace {

// The column that the search takes, also where it then finds no row: the most negative number, the first of
// equals.
int entering_column(const basSafeCtl& model, int columns) {
  const CellRow& row_F = model.current.row_F();
  int chosen = 0;
  double smallest = least_objective_entry;
  for (int column = 1; column <= columns; ++column) {
    if (!(row_F.value(column) < smallest)) continue;
    chosen = column;
    smallest = row_F.value(column);
  }
  return chosen;
}

RowReason reason_for(const RowQuotient& row, const RowQuotient& chosen) {
  if (row.row == chosen.row) return RowReason::Smallest;
  if (std::fabs(row.entry) <= largest_skipped_entry) return RowReason::EntryZero;
  if (row.quotient == 0) return RowReason::RightZero;
  if (row.quotient < 0) return RowReason::Negative;
  return row.quotient > chosen.quotient ? RowReason::Larger : RowReason::EqualButLower;
}

RowQuotient quotient_of(const basSafeCtl& model, int row, int column) {
  const double entry = model.current.row(row).value(column), right = model.current.row(row).right();
  const bool divides = std::fabs(entry) > largest_skipped_entry;
  return {.row = row, .entry = entry, .right = right, .quotient = divides ? right / entry : 0};
}

class ReasonsTeller {
 public:
  ReasonsTeller(const basSafeCtl& model, const Reasons& reasons) : model_(model), reasons_(reasons) {}

  std::vector<std::string> tell() {
    if (!reasons_.rows_to_bring_in_order.empty()) {
      tell_what_to_bring_in_order();
      return std::move(sentences_);
    }
    if (reasons_.column == 0) {
      say("In rij F staat geen negatief getal meer: het tableau is optimaal.");
      return std::move(sentences_);
    }
    tell_column();
    for (const RowQuotient& each : reasons_.quotients) say(sentence_of(each));
    tell_pivot();
    return std::move(sentences_);
  }

 private:
  void say(std::string sentence) { sentences_.push_back(std::move(sentence)); }
  std::string number(double value) const { return shown(value, model_.Breuken); }
  std::string name(int column) const { return column_name(model_, column); }

  std::string in_row_F(int column) const { return number(model_.current.row_F().value(column)); }

  void tell_what_to_bring_in_order() {
    std::vector<std::string> names;
    for (const int row : reasons_.rows_to_bring_in_order) names.push_back(name(model_.current.basis(row)));
    say("Breng eerst de basis in orde: in " +
        std::string(names.size() == 1 ? "de kolom van " : "de kolommen van ") + listed(names) +
        " hoort 1 te staan in de eigen rij en 0 daarbuiten, ook in rij F. Veeg elke kolom met haar eigen "
        "rij, of "
        "vraag de basisoplossing op.");
  }

  void tell_column() {
    std::vector<std::string> others, equal;
    for (const int each : reasons_.other_columns) {
      const bool is_equal =
          model_.current.row_F().value(each) == model_.current.row_F().value(reasons_.column);
      (is_equal ? equal : others).push_back(name(each) + " met " + in_row_F(each));
    }
    std::string sentence = "Kolom " + name(reasons_.column) + ": daar staat in rij F ";
    if (others.empty() && equal.empty())
      return say(sentence + "het enige negatieve getal, " + in_row_F(reasons_.column) + ".");
    sentence += "het meest negatieve getal, " + in_row_F(reasons_.column);
    if (!others.empty())
      sentence += "; minder negatief " + std::string(others.size() == 1 ? "is " : "zijn ") + listed(others);
    if (!equal.empty())
      sentence += "; even negatief " + std::string(equal.size() == 1 ? "is " : "zijn ") + listed(equal) +
                  ", en dan wint de eerste kolom";
    say(sentence + ".");
  }

  std::string sentence_of(const RowQuotient& each) const {
    std::string row = "Rij " + numbers::digits(each.row) + ": ";
    const std::string division =
        number(each.right) + " : " + divisor(each.entry) + " = " + number(each.quotient);
    switch (each.reason) {
      case RowReason::Smallest:
        return row + division + ", het kleinste positieve quotiënt." +
               (each.entry < 0 ? " (Twee negatieve getallen geven een positief quotiënt.)" : "");
      case RowReason::Larger:
        return row + division + ", dat is groter.";
      case RowReason::EqualButLower:
        return row + division + ", even groot; dan wint de bovenste rij.";
      case RowReason::EntryZero:
        return row + "in kolom " + name(reasons_.column) + " staat 0, dus deze rij telt niet mee.";
      case RowReason::RightZero:
        return row + division + "; een quotiënt 0 telt niet mee.";
      case RowReason::Negative:
        return row + division + "; een negatief quotiënt telt niet mee.";
    }
    return row;
  }

  std::string divisor(double entry) const {
    const std::string text = number(entry);
    const bool plain = text.find_first_of("+-/") == std::string::npos || text.starts_with('(');
    return plain ? text : "(" + text + ")";
  }

  void tell_pivot() {
    if (reasons_.choice.search != PivotSearch::Found)
      return say("Geen enkele rij heeft een positief quotiënt: er is geen pivot-element.");
    say("De pivot staat in kolom " + name(reasons_.choice.pivot.column) + ", " +
        row_name(reasons_.choice.pivot.row) + ".");
  }

  const basSafeCtl& model_;
  const Reasons& reasons_;
  std::vector<std::string> sentences_;
};

}  // namespace

bool is_in_order(const basSafeCtl& model, int row) {
  const int column = model.current.basis(row);
  if (column < 1 || column > model.columns()) return true;  // nothing to bring in order
  if (std::fabs(model.current.row_F().value(column)) > largest_negligible_entry) return false;
  for (int each = 1; each <= model.rows(); ++each) {
    const double wanted = each == row ? 1 : 0;
    if (std::fabs(model.current.row(each).value(column) - wanted) > largest_negligible_entry) return false;
  }
  return true;
}

Result<Reasons> reasons_for(const basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  Reasons reasons{.rows_to_bring_in_order = {},
                  .choice = find_pivot(model, shape),
                  .column = entering_column(model, shape.columns),
                  .other_columns = {},
                  .quotients = {}};
  for (int row = 1; row <= shape.rows; ++row)
    if (!is_in_order(model, row)) reasons.rows_to_bring_in_order.push_back(row);
  if (reasons.column == 0 || !reasons.rows_to_bring_in_order.empty()) return reasons;
  for (int column = 1; column <= shape.columns; ++column)
    if (column != reasons.column && model.current.row_F().value(column) < least_objective_entry)
      reasons.other_columns.push_back(column);
  const int pivot_row = reasons.choice.pivot.row;
  const RowQuotient chosen = pivot_row == 0 ? RowQuotient{} : quotient_of(model, pivot_row, reasons.column);
  for (int row = 1; row <= shape.rows; ++row) {
    RowQuotient each = quotient_of(model, row, reasons.column);
    each.reason = reason_for(each, chosen);
    reasons.quotients.push_back(each);
  }
  return reasons;
}

std::vector<std::string> sentences_of(const basSafeCtl& model, const Reasons& reasons) {
  return ReasonsTeller(model, reasons).tell();
}

}  // namespace tabulon::lesson
