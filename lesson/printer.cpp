#include "lesson/printer.h"

#include "lesson/characters.h"
#include "numbers/conversions.h"

namespace tabulon::lesson {

namespace {

bool is_index(std::uint32_t code) {
  return is_digit(code) || (code >= 0x2080 && code <= 0x2089);
}

// A long name stands apart from its number, and so does one that could be read as an exponent.
bool stands_apart(const std::string& number, const std::string& name) {
  int letters = 0;
  for (std::size_t at = 0; at < name.size(); at += character_at(name, at).bytes)
    letters += is_index(character_at(name, at).code) ? 0 : 1;
  return letters > 1 || name.starts_with('E') || name.starts_with('D') || number.contains('/') ||
         number.contains('E');
}

std::string print_term(const Rational& size, const std::string& name) {
  if (size == Rational(1)) return name;
  const std::string number = size.text();
  return number + (stands_apart(number, name) ? " " : "") + name;
}

// All terms, those with 0 too.
class Sum {
 public:
  void add(const Rational& coefficient, const std::string& name) {
    const bool negative = coefficient.sign() < 0;
    begin_term(negative);
    text_ += print_term(negative ? -coefficient : coefficient, name);
  }
  void add(const Rational& constant) {
    begin_term(constant.sign() < 0);
    text_ += (constant.sign() < 0 ? -constant : constant).text();
  }
  bool is_empty() const { return text_.empty(); }
  const std::string& text() const { return text_; }

 private:
  void begin_term(bool negative) {
    if (text_.empty()) {
      text_ = negative ? "-" : "";
    } else {
      text_ += negative ? " - " : " + ";
    }
  }

  std::string text_;
};

// Every variable, so that the order in which they are read stays what it is.
std::string print_objective(const Problem& problem) {
  Sum sum;
  for (std::size_t i = 0; i < problem.variables.size(); ++i)
    sum.add(problem.objective[i], problem.variables[i]);
  if (!problem.constant.is_zero()) sum.add(problem.constant);
  return std::string(problem.minimise ? "min " : "max ") + problem.goal + " = " + sum.text() + "\n";
}

std::string_view relation_of(RowKind kind) {
  return kind == RowKind::LessEqual ? " <= " : kind == RowKind::GreaterEqual ? " >= " : " = ";
}

std::string print_row(const Problem& problem, const ProblemRow& row) {
  const std::string label = row.label.empty() ? "" : row.label + ": ";
  return label + print_sum(problem.variables, row.coefficients) + std::string(relation_of(row.kind)) +
         row.right.text() + "\n";
}

}  // namespace

std::string print_sum(const std::vector<std::string>& variables, const std::vector<Rational>& coefficients) {
  Sum sum;
  for (std::size_t i = 0; i < variables.size(); ++i)
    if (!coefficients[i].is_zero()) sum.add(coefficients[i], variables[i]);
  if (sum.is_empty()) sum.add(Rational(), variables.front());
  return sum.text();
}

std::string print_problem(const Problem& problem) {
  std::string text = print_objective(problem);
  for (const ProblemRow& row : problem.rows) text += print_row(problem, row);
  if (problem.big_m != Problem{}.big_m) text += "M = " + numbers::digits(problem.big_m) + "\n";
  for (const std::string& name : problem.variables)
    text += (&name == problem.variables.data() ? "" : ", ") + name;
  return text + " >= 0\n";
}

}  // namespace tabulon::lesson
