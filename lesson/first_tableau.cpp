#include "lesson/first_tableau.h"

#include "numbers/conversions.h"

namespace tabulon::lesson {

namespace {

// As the control writes numbers: with a blank in the place of the sign.
std::string item(const Rational& number) {
  return (number.sign() < 0 ? "" : " ") + decimal_text(number);
}

Rational in_row_F(const Problem& problem, std::size_t variable) {
  return problem.minimise ? problem.objective[variable] : -problem.objective[variable];
}

class List {
 public:
  void add(const Rational& number) {
    if (!text_.empty()) text_ += ',';
    text_ += item(number);
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

std::string coefficients(const Problem& problem, RowKind kind) {
  List list;
  for (const ProblemRow& row : problem.rows)
    for (const Rational& each : row.coefficients)
      if (row.kind == kind) list.add(each);
  return list.text();
}

std::string objective(const Problem& problem) {
  List list;
  for (std::size_t i = 0; i < problem.variables.size(); ++i) list.add(in_row_F(problem, i));
  return list.text();
}

std::string right_hand_sides(const Problem& problem) {
  List list;
  for (const ProblemRow& row : problem.rows) list.add(row.right);
  return list.text();
}

void write(basSafeCtl& model, int row, int column, const Rational& number) {
  const std::string text = item(number);
  const double value = numbers::Val(text);
  for (TableauState* const tableau : {&model.current, &model.first})
    (row == 0 ? tableau->row_F() : tableau->row(row)).write(column, value, text);
}

void set_counts(basSafeCtl& model, const Problem& problem) {
  model.NrBeslisVar = static_cast<std::int16_t>(problem.variables.size());
  model.NrKleinerGelijkVglen = static_cast<std::int16_t>(problem.rows_of(RowKind::LessEqual));
  model.NrGroterGelijkVglen = static_cast<std::int16_t>(problem.rows_of(RowKind::GreaterEqual));
  model.NrGelijkVglen = static_cast<std::int16_t>(problem.rows_of(RowKind::Equal));
  model.BigM = static_cast<std::int16_t>(problem.big_m);
}

}  // namespace

std::vector<PageParameter> page_parameters(const Problem& problem) {
  return {{"prmNrBeslisVar", numbers::digits(static_cast<int>(problem.variables.size()))},
          {"prmNrKleinerGelijkVglen", numbers::digits(problem.rows_of(RowKind::LessEqual))},
          {"prmNrGroterGelijkVglen", numbers::digits(problem.rows_of(RowKind::GreaterEqual))},
          {"prmNrGelijkVglen", numbers::digits(problem.rows_of(RowKind::Equal))},
          {"prmBigM", numbers::digits(problem.big_m)},
          {"prmSTR_DLfunctie", objective(problem)},
          {"prmSTR_KleinerGelijkVglen", coefficients(problem, RowKind::LessEqual)},
          {"prmSTR_GroterGelijkVglen", coefficients(problem, RowKind::GreaterEqual)},
          {"prmSTR_GelijkVglen", coefficients(problem, RowKind::Equal)},
          {"prmSTR_RL", right_hand_sides(problem)}};
}

basSafeCtl first_tableau(const Problem& problem) {
  basSafeCtl model;
  set_counts(model, problem);
  // The counts of a problem that keeps to the limits have a shape.
  if (!model.set_derived_counts() || !InitTableau(model)) return model;
  int row = 0;
  for (std::size_t i = 0; i < problem.variables.size(); ++i)
    write(model, 0, static_cast<int>(i) + 1, in_row_F(problem, i));
  for (const ProblemRow& each : problem.rows) {
    ++row;
    for (std::size_t i = 0; i < each.coefficients.size(); ++i)
      write(model, row, static_cast<int>(i) + 1, each.coefficients[i]);
    write(model, row, CellRow::right_hand_side, each.right);
  }
  return model;
}

}  // namespace tabulon::lesson
