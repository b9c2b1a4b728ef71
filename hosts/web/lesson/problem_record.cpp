#include "hosts/web/lesson/problem_record.h"

#include <string>
#include <string_view>

#include "hosts/web/lesson/wire.h"
#include "lesson/first_tableau.h"
#include "lesson/printer.h"
#include "lesson/verdict.h"

namespace tabulon::web {

namespace {

using lesson::Problem;

void write_findings(Record& record, const std::vector<lesson::Finding>& findings) {
  for (const lesson::Finding& each : findings)
    wire::write(record, wire::FoundInWords{
                            .line = each.place.line, .column = each.place.column, .sentence = each.sentence});
}

std::string_view sign_of(RowKind kind) {
  switch (kind) {
    case RowKind::LessEqual:
      return " <= ";
    case RowKind::GreaterEqual:
      return " >= ";
    case RowKind::Equal:
      break;
  }
  return " = ";
}

void write_row(Record& record, const Problem& problem, const lesson::ProblemRow& row) {
  const std::string text = lesson::print_sum(problem.variables, row.coefficients) +
                           std::string(sign_of(row.kind)) + row.right.text();
  wire::write(record, wire::ReadRow{.kind = static_cast<std::uint8_t>(row.kind),
                                    .label = row.label,
                                    .printed = text,
                                    .turned = row.turned,
                                    .line = row.from.line,
                                    .column = row.from.column});
}

void write_verdict(Record& record, const Problem& problem) {
  const lesson::Verdict verdict = lesson::judge(problem);
  wire::write(record, wire::ReadVerdict{.ends_right = verdict.ends_right,
                                        .steps = static_cast<std::uint16_t>(verdict.course.steps.size()),
                                        .outcome = static_cast<std::uint8_t>(verdict.truth.outcome)});
  for (const std::string& each : lesson::sentences_of(problem, verdict))
    wire::write(record, wire::Sentence{.words = each});
}

template <class List>
std::uint8_t counted(const List& list) {
  return static_cast<std::uint8_t>(list.size());
}

void write_problem(Record& record, const Problem& problem) {
  const auto parameters = lesson::page_parameters(problem);
  const std::string printed = lesson::print_problem(problem);
  const std::string objective = lesson::print_sum(problem.variables, problem.objective);
  wire::write(record, wire::ReadProblem{.printed = printed,
                                        .goal = problem.goal,
                                        .minimise = problem.minimise,
                                        .objective = objective,
                                        .columns = static_cast<std::uint8_t>(problem.columns()),
                                        .variables = counted(problem.variables),
                                        .rows = counted(problem.rows),
                                        .parameters = counted(parameters)});
  for (const std::string& each : problem.variables) wire::write(record, wire::ReadName{.name = each});
  for (const lesson::ProblemRow& each : problem.rows) write_row(record, problem, each);
  for (const auto& [name, value] : parameters)
    wire::write(record, wire::ReadParameter{.name = name, .content = value});
  write_verdict(record, problem);
}

}  // namespace

void write_reading(Record& record, const lesson::Reading& reading) {
  wire::write(record, wire::ReadWords{.is_problem = reading.problem.has_value(),
                                      .mistakes = static_cast<std::uint16_t>(reading.mistakes.size()),
                                      .notes = static_cast<std::uint16_t>(reading.notes.size())});
  write_findings(record, reading.mistakes);
  write_findings(record, reading.notes);
  if (reading.problem) write_problem(record, *reading.problem);
}

}  // namespace tabulon::web
