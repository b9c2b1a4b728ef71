#include "lesson/verdict.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "lesson/first_tableau.h"
#include "lesson/words.h"
#include "numbers/conversions.h"

namespace tabulon::lesson {

namespace {

// What the method ends with is as good as its Doubles and its M.
bool is_near(double one, double other) {
  constexpr double relative = 1e-6;
  return std::fabs(one - other) <= relative * std::max({1.0, std::fabs(one), std::fabs(other)});
}

bool is_artificial(VariableKind kind) {
  return kind == VariableKind::ArtificialGreater || kind == VariableKind::ArtificialEqual;
}

// ---- Judging

void read_end(const Problem& problem, Verdict& verdict) {
  const basSafeCtl& last = verdict.course.last;
  const double largest = last.current.row_F().right();
  verdict.value = (problem.minimise ? -largest : largest) + to_double(problem.constant);
  verdict.point.assign(problem.variables.size(), 0.0);
  for (int row = 1; row <= last.rows(); ++row) {
    const double right = last.current.row(row).right();
    const int column = last.current.basis(row);
    if (right < 0 && !is_near(right, 0)) verdict.negative.push_back(row);
    if (is_artificial(last.kind_of_column(column)) && !is_near(right, 0)) verdict.artificial.push_back(row);
    if (column >= 1 && column <= last.NrBeslisVar)
      verdict.point[static_cast<std::size_t>(column - 1)] = right;
  }
}

bool ends_right(const Verdict& verdict) {
  const CourseEnd end = verdict.course.end;
  switch (verdict.truth.outcome) {
    case Outcome::Infeasible:
      return end == CourseEnd::Optimal && !verdict.artificial.empty() && verdict.negative.empty();
    case Outcome::Unbounded:
      return end == CourseEnd::Modelfout && verdict.artificial.empty() && verdict.negative.empty();
    case Outcome::Optimal:
      return end == CourseEnd::Optimal && verdict.artificial.empty() && verdict.negative.empty() &&
             is_near(verdict.value, to_double(verdict.truth.value));
  }
  return false;
}

Verdict judged(const Problem& problem, const Truth& truth) {
  Verdict verdict{.truth = truth,
                  .course = follow_method(first_tableau(problem)),
                  .point = {},
                  .artificial = {},
                  .negative = {}};
  read_end(problem, verdict);
  verdict.ends_right = ends_right(verdict);
  return verdict;
}

// A larger M that makes the difference; 0 when none does.
int better_m(const Problem& problem, const Truth& truth) {
  for (const int m : {1000, 10000, 32000}) {
    if (m <= problem.big_m) continue;
    Problem other = problem;
    other.big_m = m;
    if (judged(other, truth).ends_right) return m;
  }
  return 0;
}

// ---- Telling

// "x = 2 en y = 6".
template <class Number, class Write>
std::string point_text(const Problem& problem, const std::vector<Number>& point, Write write) {
  std::vector<std::string> parts;
  for (std::size_t i = 0; i < point.size(); ++i)
    parts.push_back(problem.variables[i] + " = " + write(point[i]));
  return listed(parts);
}

std::string shown_exactly(const Rational& number) {
  return shown(to_double(number), false);
}

std::string steps_text(const Verdict& verdict) {
  return counted(static_cast<int>(verdict.course.steps.size()), "stap", "stappen");
}

class VerdictTeller {
 public:
  VerdictTeller(const Problem& problem, const Verdict& verdict) : problem_(problem), verdict_(verdict) {}

  std::vector<std::string> tell() {
    if (verdict_.ends_right) {
      tell_right_end();
    } else {
      tell_wrong_end();
    }
    tell_steps();
    if (verdict_.truth.alternatives) tell_alternatives();
    return std::move(sentences_);
  }

 private:
  const basSafeCtl& last() const { return verdict_.course.last; }
  void say(std::string sentence) { sentences_.push_back(std::move(sentence)); }
  std::string extreme() const { return problem_.minimise ? "minimum" : "maximum"; }
  std::string truth_point() const { return point_text(problem_, verdict_.truth.point, shown_exactly); }
  std::string goal_is(const std::string& value) const { return problem_.goal + " = " + value; }

  void tell_right_end() {
    switch (verdict_.truth.outcome) {
      case Outcome::Optimal:
        return say((verdict_.course.steps.empty()
                        ? "Het eerste tableau is al optimaal: "
                        : "De methode komt in " + steps_text(verdict_) + " bij het optimum: ") +
                   goal_is(shown_exactly(verdict_.truth.value)) + ", met " + truth_point() + ".");
      case Outcome::Unbounded:
        return say(unbounded_truth() + " De methode zegt na " + steps_text(verdict_) + " \"Modelfout!\".");
      case Outcome::Infeasible:
        return say(infeasible_truth() + " De methode eindigt na " + steps_text(verdict_) + "; daarin " +
                   remaining_artificials() + ".");
    }
  }

  std::string unbounded_truth() const {
    return problem_.goal +
           (problem_.minimise ? " kan onbegrensd klein worden." : " kan onbegrensd groot worden.");
  }
  static std::string infeasible_truth() { return "Geen enkel punt voldoet aan alle beperkingen."; }

  std::string remaining_artificials() const {
    std::vector<std::string> names;
    for (const int row : verdict_.artificial)
      names.push_back(column_name(last(), last().current.basis(row)) + " = " +
                      shown(last().current.row(row).right(), false));
    return (names.size() == 1 ? "blijft de kunstmatige variabele " : "blijven de kunstmatige variabelen ") +
           listed(names) + " in de basis";
  }

  void tell_wrong_end() {
    say("Let op: " + method_end() + ", maar " + truth_text() + ".");
    if (verdict_.better_m > 0)
      return say("M = " + numbers::digits(problem_.big_m) + " is te klein; met M = " +
                 numbers::digits(verdict_.better_m) + " komt de methode wel goed uit.");
    if (!verdict_.artificial.empty()) say("Aan het eind " + remaining_artificials() + ".");
    for (const int row : verdict_.negative)
      say("Aan het eind staat rechts in " + row_name(row) +
          " een negatief getal: " + shown(last().current.row(row).right(), false) + ".");
  }

  std::string method_end() const {
    const std::string after = "na " + steps_text(verdict_);
    switch (verdict_.course.end) {
      case CourseEnd::Optimal:
        return "de methode eindigt " + after + " bij " + goal_is(shown(verdict_.value, false));
      case CourseEnd::Modelfout:
        return "de methode zegt " + after + " \"Modelfout!\"";
      case CourseEnd::TooLarge:
        return "de methode loopt " + after + " vast op een te groot getal";
      case CourseEnd::NoEnd:
        break;
    }
    return "de methode is " + after + " nog niet klaar";
  }

  std::string truth_text() const {
    switch (verdict_.truth.outcome) {
      case Outcome::Optimal:
        return "het " + extreme() + " is " + shown_exactly(verdict_.truth.value) + ", met " + truth_point();
      case Outcome::Unbounded:
        return problem_.goal +
               (problem_.minimise ? " kan onbegrensd klein worden" : " kan onbegrensd groot worden");
      case Outcome::Infeasible:
        break;
    }
    return "geen enkel punt voldoet aan alle beperkingen";
  }

  // ---- The steps that lead to a wrong corner

  void tell_steps() {
    int number = 0;
    for (const CourseStep& step : verdict_.course.steps) {
      ++number;
      for (const PassedOver& each : step.passed_over) tell_passed_over(number, step, each);
    }
    for (const int row : verdict_.course.rows_with_zero)
      say("Aan het eind staat in " + row_name(row) + " rechts 0, met in kolom " +
          column_name(last(), verdict_.course.column_without_row) +
          " een positief getal. Die rij had de pivot-rij moeten zijn, maar een quotiënt 0 telt niet mee.");
  }

  void tell_passed_over(int number, const CourseStep& step, const PassedOver& each) {
    if (each.tied_in_step > 0)
      say("Stap " + numbers::digits(each.tied_in_step) + ": " + row_name(std::min(each.row, each.tied_with)) +
          " en " + row_name(std::max(each.row, each.tied_with)) +
          " hebben hetzelfde quotiënt; daarna staat rechts in " + row_name(each.row) + " een 0.");
    say("Stap " + numbers::digits(number) + ": in " + row_name(each.row) + " staat rechts 0" +
        (each.tied_in_step == 0 && number == 1 ? " van het begin af" : "") + ", met in kolom " +
        column_name(last(), step.pivot.column) + " een positief getal (" + shown(each.entry, false) +
        "). Die rij had de pivot-rij moeten zijn, maar een quotiënt 0 telt niet mee: haar rechterlid wordt " +
        shown(each.right_after, false) + ".");
  }

  void tell_alternatives() {
    const auto& another = verdict_.truth.another;
    if (another.empty()) return say("Er zijn nog meer optimale oplossingen.");
    say("Er zijn meer optimale oplossingen, bijvoorbeeld " + point_text(problem_, another, shown_exactly) +
        ".");
  }

  const Problem& problem_;
  const Verdict& verdict_;
  std::vector<std::string> sentences_;
};

}  // namespace

Verdict judge(const Problem& problem) {
  Verdict verdict = judged(problem, solve_exactly(problem));
  const bool m_may_be_blamed =
      !verdict.ends_right && verdict.truth.outcome != Outcome::Infeasible && !verdict.artificial.empty();
  if (m_may_be_blamed) verdict.better_m = better_m(problem, verdict.truth);
  return verdict;
}

std::vector<std::string> sentences_of(const Problem& problem, const Verdict& verdict) {
  return VerdictTeller(problem, verdict).tell();
}

}  // namespace tabulon::lesson
