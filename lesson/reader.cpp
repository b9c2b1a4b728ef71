#include "lesson/reader.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "lesson/characters.h"
#include "lesson/likeness.h"
#include "lesson/linear_form.h"
#include "lesson/statement_words.h"
#include "lesson/tokens.h"
#include "numbers/conversions.h"
#include "platform/texts.h"

namespace tabulon::lesson {

namespace {

constexpr std::size_t longest_text = 20'000;
constexpr int largest_m = 32767;

// A line, or a part of one between ";".
struct Statement {
  std::string_view text;
  Place begin;

  std::string_view word() const {
    std::size_t end = 0;
    for (; end < text.size(); end += character_at(text, end).bytes) {
      const std::uint32_t code = character_at(text, end).code;
      if (!is_letter(code) && !is_digit(code)) break;
    }
    return text.substr(0, end);
  }
  Statement without(std::size_t bytes) const {
    const int characters = characters_before(text, bytes);
    return {text.substr(bytes), {begin.line, begin.column + characters}};
  }
  Statement without_blanks() const {
    std::size_t bytes = 0;
    while (bytes < text.size() && is_blank(character_at(text, bytes).code))
      bytes += character_at(text, bytes).bytes;
    return without(bytes);
  }
};

std::string_view without_comment(std::string_view line) {
  return line.substr(0, std::min(line.find('#'), line.find("//")));
}

template <class Visitor>
void for_each_part(std::string_view text, char separator, Visitor visit) {
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(separator, begin);
    visit(begin, text.substr(begin, end == std::string_view::npos ? end : end - begin));
    if (end == std::string_view::npos) return;
    begin = end + 1;
  }
}

std::vector<Statement> statements_of(std::string_view text) {
  std::vector<Statement> statements;
  int line = 0;
  for_each_part(text, '\n', [&](std::size_t, std::string_view whole_line) {
    ++line;
    for_each_part(without_comment(whole_line), ';', [&](std::size_t begin, std::string_view part) {
      const Statement statement{part, {line, 1 + characters_before(whole_line, begin)}};
      statements.push_back(statement.without_blanks());
    });
  });
  return statements;
}

// ---- Relations

bool at_relation(const TokenReader& tokens) {
  return tokens.at_sign("<=") || tokens.at_sign(">=") || tokens.at_sign("=");
}

RowKind kind_of(std::string_view relation) {
  return relation == "<=" ? RowKind::LessEqual : relation == ">=" ? RowKind::GreaterEqual : RowKind::Equal;
}

RowKind turned(RowKind kind) {
  return kind == RowKind::LessEqual      ? RowKind::GreaterEqual
         : kind == RowKind::GreaterEqual ? RowKind::LessEqual
                                         : RowKind::Equal;
}

struct Relation {
  LinearForm left, right;
  RowKind kind;
};

// By their places. They are few, and code that sorts many is large.
void put_in_order(std::vector<Finding>& notes) {
  const auto place = [](const Finding& each) { return std::pair(each.place.line, each.place.column); };
  for (auto each = notes.begin(); each != notes.end(); ++each)
    std::rotate(std::ranges::upper_bound(notes.begin(), each, place(*each), {}, place), each, each + 1);
}

// All variables on one side: left <kind> right.constant.
Relation sorted(Relation relation) {
  if (relation.left.is_constant()) {
    std::swap(relation.left, relation.right);
    relation.kind = turned(relation.kind);
  }
  relation.left.add(relation.right, Rational(-1));
  relation.right = {.terms = {}, .constant = -relation.left.constant};
  relation.left.constant = Rational();
  return relation;
}

// x >= 0, which holds for every variable.
bool says_nothing(const Relation& relation) {
  const auto is_zero = [](const auto& term) { return term.second.is_zero(); };
  const auto is_one = [](const auto& term) { return term.second == Rational(1); };
  const auto& terms = relation.left.terms;
  return relation.kind == RowKind::GreaterEqual && relation.right.constant.is_zero() &&
         std::ranges::count_if(terms, is_zero) + 1 == std::ssize(terms) &&
         std::ranges::count_if(terms, is_one) == 1;
}

// ---- The problem as it comes together

struct RowRead {
  Relation relation;
  std::string label;
  Place from;
};

struct Objective {
  Goal goal;
  std::string name;  // empty: none was given
  LinearForm form;
  Place from;
};

class Reader {
 public:
  Reading run(std::string_view text) {
    if (text.size() > longest_text) {
      reading_.mistakes.push_back({{1, 1}, "deze tekst is te lang: neem ten hoogste 20000 tekens."});
      return std::move(reading_);
    }
    for (const Statement& statement : statements_of(text)) {
      const auto done = read(statement);
      if (!done) reading_.mistakes.push_back(done.error());
    }
    if (reading_.mistakes.empty()) judge_whole();
    if (reading_.mistakes.empty()) assemble();
    return std::move(reading_);
  }

 private:
  Found<void> read(const Statement& statement) {
    if (statement.text.empty() || is_heading(statement.text)) return {};
    const std::size_t colon = statement.text.find(':');
    if (colon == std::string_view::npos) return read_unnamed(statement, {});
    const std::string_view head = trimmed(statement.text.substr(0, colon));
    if (const auto goal = goal_of(head)) return read_objective(*goal, statement.without(colon + 1));
    const Statement rest = statement.without(colon + 1).without_blanks();
    if (rest.text.empty()) return {};  // "Beperkingen voor deze week:"
    if (!goal_of(rest.word())) return read_constraint(rest, is_heading(head) ? std::string_view() : head);
    return read_unnamed(rest, {});
  }

  Found<void> read_unnamed(const Statement& statement, std::string_view label) {
    const std::string_view word = statement.word();
    if (const auto goal = goal_of(word)) return read_objective(*goal, statement.without(word.size()));
    return read_constraint(statement, label);
  }

  // ---- The objective

  Found<void> read_objective(Goal goal, const Statement& statement) {
    const std::vector<Token> list = TRY(tokens_of(statement.text, statement.begin, reading_.notes));
    if (objective_)
      return mistake(list.front().place,
                     "er is al een doelfunctie, in regel " + numbers::digits(objective_->from.line) + ".");
    Objective objective{goal, {}, {}, list.front().place};
    TokenReader tokens(list);
    if (tokens.at_name() && tokens.after_next().text == "=" && tokens.after_next().kind == TokenKind::Sign) {
      objective.name = tokens.take().text;
      tokens.take();
    }
    objective.form = TRY(read_form(tokens, names_));
    if (at_relation(tokens))
      return mistake(tokens.next().place,
                     "een doelfunctie is een som; zet een beperking op een eigen regel.");
    TRY(expect_end(tokens));
    objective_ = std::move(objective);
    return {};
  }

  static Found<void> expect_end(const TokenReader& tokens) {
    if (tokens.at_end()) return {};
    if (tokens.at_sign(")")) return mistake(tokens.next().place, "bij dit haakje is er geen dat opent.");
    return mistake(tokens.next().place, "hier wordt \"" + tokens.next().as_written + "\" niet verwacht.");
  }

  // ---- Constraints

  Found<void> read_constraint(const Statement& statement, std::string_view label) {
    const std::vector<Token> list = TRY(tokens_of(statement.text, statement.begin, reading_.notes));
    TokenReader tokens(list);
    if (is_m(list) && !names_.contain("M")) return read_m(tokens);
    std::vector<LinearForm> left = TRY(read_list(tokens));
    if (!at_relation(tokens)) return refuse_without_relation(tokens);
    const Token& sign = tokens.take();
    LinearForm middle = TRY(read_form(tokens, names_));
    TRY(add_rows(left, middle, sign, label, statement.begin));
    if (at_relation(tokens)) {
      const Token& second = tokens.take();
      if (sign.text != second.text)
        return mistake(second.place, "in een dubbele ongelijkheid staat tweemaal hetzelfde teken.");
      const LinearForm right = TRY(read_form(tokens, names_));
      TRY(add_rows({middle}, right, second, label, statement.begin));
    }
    return expect_end(tokens);
  }

  Found<void> refuse_without_relation(const TokenReader& tokens) const {
    if (!tokens.at_end()) return expect_end(tokens);
    return mistake(tokens.next().place, objective_ ? "hier ontbreekt <=, >= of =, met wat erachter hoort."
                                                   : "is dit de doelfunctie? Begin dan met max of min.");
  }

  Found<std::vector<LinearForm>> read_list(TokenReader& tokens) {
    std::vector<LinearForm> list;
    do list.push_back(TRY(read_form(tokens, names_)));
    while (tokens.take_sign(","));
    return list;
  }

  Found<void> add_rows(const std::vector<LinearForm>& left, const LinearForm& right, const Token& sign,
                       std::string_view label, Place from) {
    for (const LinearForm& each : left) {
      if (each.is_constant() && right.is_constant())
        return mistake(sign.place, "aan geen van beide kanten staat een variabele.");
      Relation relation = sorted({each, right, kind_of(sign.text)});
      if (says_nothing(relation)) continue;
      rows_.push_back({std::move(relation), std::string(label), from});
      if (rows_.size() == most_rows + 1)
        return mistake(from, "dit is de 11e beperking; in het tableau passen er 10.");
    }
    return {};
  }

  // ---- M

  static bool is_m(const std::vector<Token>& list) {
    return list.size() >= 3 && list[0].kind == TokenKind::Name && list[0].text == "M" && list[1].text == "=";
  }

  Found<void> read_m(TokenReader& tokens) {
    m_place_ = tokens.take().place;
    tokens.take();
    const Place place = tokens.next().place;
    const LinearForm form = TRY(read_form(tokens, names_));
    TRY(expect_end(tokens));
    const Rational& value = form.constant;
    if (!form.is_constant() || !value.is_whole() || value < Rational(1) || value > Rational(largest_m))
      return mistake(place, "M is een geheel getal van 1 tot en met 32767.");
    m_ = std::atoi(value.numerator().digits().c_str());
    return {};
  }

  // ---- The whole

  void refuse(Place place, std::string sentence) {
    reading_.mistakes.push_back({place, std::move(sentence)});
  }
  void note(Place place, std::string sentence) { reading_.notes.push_back({place, std::move(sentence)}); }

  void judge_whole() {
    if (!objective_)
      return refuse(
          {1, 1}, "de doelfunctie ontbreekt; begin een regel met max of min, bijvoorbeeld max F = 3x + 5y.");
    if (names_.all().empty()) return refuse(objective_->from, "er is geen variabele.");
    for (const Names::Mention& each : names_.all()) {
      if (each.name == objective_->name)
        refuse(each.first, each.name + " is de naam van de doelfunctie en kan geen variabele zijn.");
      if (m_ && each.name == "M") refuse(m_place_, "M is hier ook een variabele; geef die een andere naam.");
    }
    refuse_too_many_columns();
  }

  void refuse_too_many_columns() {
    const auto of = [this](RowKind kind) {
      return static_cast<int>(std::ranges::count_if(
          rows_, [kind](const RowRead& row) { return final_kind(row.relation) == kind; }));
    };
    const int surplus = of(RowKind::GreaterEqual);
    const int columns = static_cast<int>(names_.all().size() + rows_.size()) + surplus;
    if (columns <= most_columns) return;
    refuse(objective_->from, "dit probleem heeft " + numbers::digits(columns) + " kolommen nodig (" +
                                 numbers::digits(static_cast<int>(names_.all().size())) + " variabelen, " +
                                 numbers::digits(of(RowKind::LessEqual)) + " spelings-, " +
                                 numbers::digits(surplus) + " surplus- en " +
                                 numbers::digits(surplus + of(RowKind::Equal)) +
                                 " kunstmatige); in het tableau passen er 30.");
  }

  static bool has_to_turn(const Relation& relation) { return relation.right.constant.sign() < 0; }
  static RowKind final_kind(const Relation& relation) {
    return has_to_turn(relation) ? turned(relation.kind) : relation.kind;
  }

  void assemble() {
    Problem problem;
    for (const Names::Mention& each : names_.all()) problem.variables.push_back(each.name);
    problem.minimise = objective_->goal == Goal::Min;
    problem.goal = objective_->name.empty() ? goal_besides(names_) : objective_->name;
    problem.objective = coefficients(objective_->form, Rational(1));
    problem.constant = objective_->form.constant;
    problem.big_m = m_.value_or(problem.big_m);
    for (const RowKind kind : {RowKind::LessEqual, RowKind::GreaterEqual, RowKind::Equal})
      for (const RowRead& row : rows_)
        if (final_kind(row.relation) == kind) problem.rows.push_back(row_of(row));
    note_about(problem);
    put_in_order(reading_.notes);
    reading_.problem = std::move(problem);
  }

  static std::string goal_besides(const Names& names) {
    std::string goal = Problem{}.goal;
    while (names.contain(goal)) goal += '_';
    return goal;
  }

  std::vector<Rational> coefficients(const LinearForm& form, const Rational& factor) const {
    std::vector<Rational> list(names_.all().size());
    for (const auto& [variable, coefficient] : form.terms)
      list[static_cast<std::size_t>(variable)] = factor * coefficient;
    return list;
  }

  ProblemRow row_of(const RowRead& row) {
    const bool turn = has_to_turn(row.relation);
    const Rational factor(turn ? -1 : 1);
    if (turn)
      note(row.from,
           "rechts stond een negatief getal; beide kanten zijn met −1 vermenigvuldigd, "
           "en daarmee draait het teken om.");
    return {.kind = final_kind(row.relation),
            .coefficients = coefficients(row.relation.left, factor),
            .right = factor * row.relation.right.constant,
            .label = row.label,
            .turned = turn,
            .from = row.from};
  }

  void note_about(const Problem& problem) {
    if (problem.minimise)
      note(objective_->from, "het minimum van " + problem.goal + " is min het maximum van −" + problem.goal +
                                 "; in het tableau staat daarom −" + problem.goal + ".");
    if (!problem.constant.is_zero())
      note(objective_->from, "het losse getal " + problem.constant.text() +
                                 " staat niet in het tableau; tel het bij " + problem.goal + " op.");
    for (const auto& [rare, common] : likely_slips())
      note(rare.first, rare.name + " komt maar één keer voor; bedoelt u " + common.name + "?");
  }

  // Names that stand in the text once and are like another one that stands there more often.
  std::vector<std::pair<Names::Mention, Names::Mention>> likely_slips() const {
    std::vector<std::pair<Names::Mention, Names::Mention>> slips;
    for (const Names::Mention& rare : names_.all())
      for (const Names::Mention& common : names_.all())
        if (rare.times == 1 && common.times > 1 && are_alike(rare.name, common.name))
          slips.emplace_back(rare, common);
    return slips;
  }

  Reading reading_;
  Names names_;
  std::optional<Objective> objective_;
  std::vector<RowRead> rows_;
  std::optional<int> m_;
  Place m_place_;
};

}  // namespace

Reading read_problem(std::string_view text) {
  return Reader().run(text);
}

}  // namespace tabulon::lesson
