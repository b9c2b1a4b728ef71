// Any text as a problem in words. What must hold is checked by require(); the first failure stops the run.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "lesson/printer.h"
#include "lesson/reader.h"

namespace {

using namespace tabulon;
using namespace tabulon::lesson;
using fuzz::require;

int lines_of(std::string_view text) {
  int lines = 1;
  for (const char c : text) lines += c == '\n' ? 1 : 0;
  return lines;
}

void check_finding(const Finding& finding, std::string_view text) {
  require(finding.place.line >= 1 && finding.place.line <= lines_of(text));
  require(finding.place.column >= 1 && finding.place.column <= static_cast<int>(text.size()) + 1);
  require(!finding.sentence.empty() && !finding.sentence.contains('\n'));
}

void check_problem(const Problem& problem) {
  require(problem.columns() <= most_columns && std::ssize(problem.rows) <= most_rows);
  require(problem.objective.size() == problem.variables.size() && !problem.variables.empty());
  RowKind before = RowKind::LessEqual;
  for (const ProblemRow& row : problem.rows) {
    require(row.coefficients.size() == problem.variables.size() && row.right.sign() >= 0);
    require(before <= row.kind && row.from.line >= 1);
    before = row.kind;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Reading reading = read_problem(text);
  require(reading.problem.has_value() == reading.mistakes.empty());
  for (const Finding& each : reading.mistakes) check_finding(each, text);
  for (const Finding& each : reading.notes) check_finding(each, text);
  if (!reading.problem) return 0;
  check_problem(*reading.problem);
  const std::string words = print_problem(*reading.problem);
  const Reading again = read_problem(words);
  require(words.size() > 20'000 || (again.problem && *again.problem == *reading.problem));
  return 0;
}
