#include "lesson/linear_form.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "lesson/statement_words.h"
#include "numbers/expression.h"
#include "platform/texts.h"

namespace tabulon::lesson {

namespace {

constexpr int deepest_parentheses = 40;
constexpr int largest_exact_exponent = 30;
constexpr int most_bits = 256;          // of a numerator and a denominator
constexpr int most_bits_of_size = 100;  // 1E30

constexpr std::array<std::string_view, 14> functions = {"sqrt", "sin", "cos", "tan", "atn", "exp", "abs",
                                                        "int",  "log", "sqr", "sgn", "asn", "acs", "ln"};

bool is_function(std::string_view name) {
  return std::ranges::any_of(functions, [&](std::string_view each) { return same_name(each, name); });
}

bool is_pi(std::string_view name) {
  return same_name(name, "pi");
}

bool fits(const Rational& number) {
  const int above = number.numerator().bits(), below = number.denominator().bits();
  return above <= most_bits && below <= most_bits && above - below <= most_bits_of_size;
}

LinearForm constant_form(Rational value) {
  return {.terms = {}, .constant = std::move(value)};
}

// What the cells make of an expression, as a decimal.
std::optional<Rational> value_in_a_cell(const std::string& expression) {
  const auto value = numbers::evaluate(expression);
  if (!value) return {};
  return rational_near(*value);
}

// Empty where the cells refuse it too.
std::optional<Rational> power(const Rational& base, const Rational& exponent) {
  if (base.is_zero() && exponent.sign() <= 0) return {};
  if (!exponent.is_whole() || exponent < Rational(-largest_exact_exponent) ||
      exponent > Rational(largest_exact_exponent))
    return value_in_a_cell("(" + decimal_text(base) + ")^(" + decimal_text(exponent) + ")");
  Rational result(1);
  for (int times = std::abs(std::atoi(exponent.numerator().digits().c_str())); times > 0; --times) {
    result = result * base;
    if (!fits(result)) return {};
  }
  return exponent.sign() < 0 ? Rational(1) / result : result;
}

class FormReader {
 public:
  FormReader(TokenReader& tokens, Names& names) : tokens_(tokens), names_(names) {}

  Found<LinearForm> sum() {
    LinearForm total;
    Rational sign(1);
    do {
      total.add(TRY(product()), sign);
      if (!fits(total)) return too_large(tokens_.next().place);
      sign = Rational(tokens_.at_sign("-") ? -1 : 1);
    } while (tokens_.take_sign("+") || tokens_.take_sign("-"));
    return total;
  }

 private:
  static std::unexpected<Finding> too_large(Place place) {
    return mistake(place, "het getal hiervoor is te lang of te groot.");
  }

  static bool fits(const LinearForm& form) {
    const auto term_fits = [](const auto& term) { return lesson::fits(term.second); };
    return lesson::fits(form.constant) && std::ranges::all_of(form.terms, term_fits);
  }

  // A variable, or parentheses with one in them, is multiplied by all that stands before it: 1/2x is half an
  // x.
  Found<LinearForm> product() {
    LinearForm result = TRY(neighbours());
    for (;;) {
      const Token& sign = tokens_.next();
      if (tokens_.take_sign("/")) {
        const LinearForm divisor = TRY(neighbours());
        result = TRY(quotient(result, divisor, sign.place));
      } else if (tokens_.take_sign("*") || operand_ahead()) {
        const LinearForm factor = TRY(neighbours());
        result = TRY(times(result, factor, sign.place));
      } else {
        return result;
      }
    }
  }

  // Numbers side by side bind tighter than "/", as in the cells.
  Found<LinearForm> neighbours() {
    LinearForm result = TRY(signed_power());
    while (result.is_constant() && constant_ahead()) {
      const Place place = tokens_.next().place;
      const LinearForm factor = TRY(signed_power());
      result = TRY(times(result, factor, place));
    }
    return result;
  }

  // A minus binds less than "^".
  Found<LinearForm> signed_power() {
    bool negative = false;
    while (tokens_.at_sign("-") || tokens_.at_sign("+")) negative ^= tokens_.take().text == "-";
    LinearForm result = TRY(powers());
    if (!negative) return result;
    LinearForm opposite;
    opposite.add(result, Rational(-1));
    return opposite;
  }

  Found<LinearForm> powers() {
    LinearForm base = TRY(operand());
    while (tokens_.at_sign("^")) {
      const Place place = tokens_.take().place;
      const bool negative = tokens_.take_sign("-");
      const LinearForm exponent = TRY(operand());
      if (!base.is_constant() || !exponent.is_constant())
        return mistake(place, "een macht van een variabele is niet lineair.");
      const auto value = power(base.constant, negative ? -exponent.constant : exponent.constant);
      if (!value || !lesson::fits(*value)) return mistake(place, "deze macht bestaat niet, of is te groot.");
      base = constant_form(*value);
    }
    return base;
  }

  Found<LinearForm> operand() {
    const Token& token = tokens_.next();
    switch (token.kind) {
      case TokenKind::Number:
        return number();
      case TokenKind::Name:
        return word();
      case TokenKind::Sign:
        if (tokens_.take_sign("(")) return parentheses(token.place);
        return mistake(token.place,
                       "hier ontbreekt een getal of een naam, vóór \"" + token.as_written + "\".");
      case TokenKind::End:
        break;
    }
    return mistake(token.place, "hier ontbreekt nog een getal of een naam.");
  }

  Found<LinearForm> number() {
    const Token& number = tokens_.take();
    const Token& next = tokens_.next();
    if (next.kind == TokenKind::Number)
      return mistake(next.place, "tussen " + number.as_written + " en " + next.as_written +
                                     " ontbreekt een teken; is het één getal, schrijf dan " +
                                     number.as_written + next.as_written + ".");
    return constant_form(number.value);
  }

  Found<LinearForm> word() {
    const Token& word = tokens_.take();
    if (is_pi(word.text)) return constant_form(TRY(cell_value("pi", word)));
    if (is_function(word.text)) return function(word);
    LinearForm form;
    form.terms[TRY(names_.mention(word))] = Rational(1);
    const Token& next = tokens_.next();
    if (next.kind == TokenKind::Name && !is_pi(next.text) && !is_function(next.text))
      return mistake(next.place, "tussen " + word.text + " en " + next.text +
                                     " ontbreekt een teken; is het één naam, schrijf dan " + word.text + "_" +
                                     next.text + ".");
    if (next.kind == TokenKind::Number)
      return mistake(next.place, "na " + word.text + " staat een getal; hoort het bij de naam, schrijf dan " +
                                     word.text + next.as_written + ", en anders " + next.as_written +
                                     word.text + ".");
    return form;
  }

  static Found<Rational> cell_value(const std::string& expression, const Token& word) {
    const auto value = value_in_a_cell(expression);
    if (!value || !lesson::fits(*value))
      return mistake(word.place, word.as_written + " bestaat niet voor dit getal, of is te groot.");
    return *value;
  }

  Found<LinearForm> function(const Token& word) {
    const Place place = tokens_.next().place;
    if (!tokens_.take_sign("("))
      return mistake(place, "na " + word.text + " ontbreekt een haakje: " + word.text + "(...).");
    const LinearForm argument = TRY(parentheses(place));
    if (!argument.is_constant())
      return mistake(word.place, word.text + " van een variabele is niet lineair.");
    return constant_form(TRY(cell_value(word.text + "(" + decimal_text(argument.constant) + ")", word)));
  }

  Found<LinearForm> parentheses(Place opened) {
    if (++depth_ > deepest_parentheses) return mistake(opened, "hier staan te veel haakjes in elkaar.");
    LinearForm inside = TRY(sum());
    --depth_;
    if (tokens_.take_sign(")")) return inside;
    return mistake(opened, "dit haakje wordt niet gesloten.");
  }

  Found<LinearForm> times(const LinearForm& left, const LinearForm& right, Place place) const {
    if (!left.is_constant() && !right.is_constant())
      return mistake(place, "hier staan " + names_.all()[index(left)].name + " en " +
                                names_.all()[index(right)].name +
                                " met elkaar vermenigvuldigd; een lineair probleem kent dat niet.");
    LinearForm result;
    if (left.is_constant()) {
      result.add(right, left.constant);
    } else {
      result.add(left, right.constant);
    }
    if (!fits(result)) return too_large(place);
    return result;
  }

  static Found<LinearForm> quotient(const LinearForm& left, const LinearForm& right, Place place) {
    if (!right.is_constant()) return mistake(place, "delen door een variabele is niet lineair.");
    if (right.constant.is_zero()) return mistake(place, "delen door 0 kan niet.");
    LinearForm result;
    result.add(left, Rational(1) / right.constant);
    if (!fits(result)) return too_large(place);
    return result;
  }

  static std::size_t index(const LinearForm& form) {
    return static_cast<std::size_t>(form.terms.begin()->first);
  }

  bool operand_ahead() const {
    return tokens_.next().kind == TokenKind::Number || tokens_.at_name() || tokens_.at_sign("(");
  }

  // Whether an operand without a variable follows.
  bool constant_ahead() const {
    if (!operand_ahead()) return false;
    int open = 0;
    for (const Token& token : tokens_.rest()) {
      if (token.kind == TokenKind::Name && !is_pi(token.text) && !is_function(token.text)) return false;
      if (token.kind == TokenKind::Sign) open += token.text == "(" ? 1 : token.text == ")" ? -1 : 0;
      const bool function_name = token.kind == TokenKind::Name && is_function(token.text);
      if (open <= 0 && !function_name) return true;
    }
    return true;
  }

  TokenReader& tokens_;
  Names& names_;
  int depth_ = 0;
};

}  // namespace

Found<int> Names::mention(const Token& name) {
  const auto found = std::ranges::find(mentions_, name.text, &Mention::name);
  if (found != mentions_.end()) {
    ++found->times;
    return static_cast<int>(found - mentions_.begin());
  }
  if (is_goal_word(name.text))
    return mistake(name.place, name.text + " heeft hier een eigen betekenis en kan geen variabele heten.");
  if (mentions_.size() == most_columns)
    return mistake(name.place, name.text + " is de 31e variabele; in het tableau passen 30 kolommen.");
  mentions_.push_back({name.text, name.place, 1});
  return static_cast<int>(mentions_.size()) - 1;
}

bool Names::contain(std::string_view name) const {
  return std::ranges::find(mentions_, name, &Mention::name) != mentions_.end();
}

void LinearForm::add(const LinearForm& other, const Rational& factor) {
  for (const auto& [variable, coefficient] : other.terms)
    terms[variable] = terms[variable] + factor * coefficient;
  constant = constant + factor * other.constant;
}

Found<LinearForm> read_form(TokenReader& tokens, Names& names) {
  return FormReader(tokens, names).sum();
}

}  // namespace tabulon::lesson
