#include "hosts/web/lesson/exports.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "hosts/web/lesson/problem_record.h"
#include "hosts/web/lesson/tableau_numbers.h"
#include "hosts/web/lesson/worksheet_record.h"
#include "lesson/reasons.h"
#include "lesson/steps.h"

namespace tabulon::web {

namespace {

constexpr std::array causes = {
    ChangeCause::Cell,          ChangeCause::Sweep,    ChangeCause::AutomaticSweep, ChangeCause::Normalise,
    ChangeCause::BasicSolution, ChangeCause::Optimise, ChangeCause::Reset,          ChangeCause::Fractions,
    ChangeCause::Parameters,    ChangeCause::Problem,  ChangeCause::Restore};

struct Lesson {
  std::string argument;
  Record answer;
  basSafeCtl before, standing;

  std::string take_argument() { return std::exchange(argument, {}); }
};

Lesson lesson_page;

// What stands before the next NUL, which is taken from the text.
std::string cut(std::string& text) {
  const std::size_t end = std::min(text.find('\0'), text.size());
  std::string first = text.substr(0, end);
  text.erase(0, end + 1);
  return first;
}

void write_text(basSafeCtl& model, const TableauChange& change, std::string_view text) {
  if (change.row < 0 || change.row > model.rows() || change.column < 0 || change.column > model.columns())
    return;
  CellRow& row = change.row == 0 ? model.current.row_F() : model.current.row(change.row);
  row.write_text(change.column == 0 ? CellRow::right_hand_side : change.column, text);
}

ChangeCause cause_of(std::string_view words) {
  for (const ChangeCause each : causes)
    if (words_of(each) == words) return each;
  return ChangeCause::Parameters;
}

// The change that the argument tells of; what was typed into a cell goes into the tableaus.
TableauChange take_change(int column, int row) {
  std::string told = lesson_page.take_argument();
  const TableauChange change{cause_of(cut(told)), column, row};
  if (change.cause == ChangeCause::Cell) {
    write_text(lesson_page.before, change, cut(told));
    write_text(lesson_page.standing, change, told);
  }
  return change;
}

void answer_sentences(const std::vector<std::string>& sentences) {
  for (const std::string& each : sentences) wire::write(lesson_page.answer, Sentence{.words = each});
}

}  // namespace

address LessonExports::argument(size length) {
  lesson_page.answer.clear();
  lesson_page.argument.resize(length);
  return reinterpret_cast<address>(lesson_page.argument.data());
}

address LessonExports::answer_at() {
  return lesson_page.answer.data();
}
size LessonExports::answer_size() {
  return lesson_page.answer.size();
}

void LessonExports::read_words() {
  write_reading(lesson_page.answer, lesson::read_problem(lesson_page.take_argument()));
}

void LessonExports::work_out() {
  const lesson::Reading reading = lesson::read_problem(lesson_page.take_argument());
  if (reading.problem) write_worked_out(lesson_page.answer, *reading.problem);
}

void LessonExports::put_tableau(flag before) {
  read_tableau_numbers(lesson_page.take_argument(), before ? lesson_page.before : lesson_page.standing);
}

void LessonExports::tell(int column, int row) {
  const TableauChange change = take_change(column, row);
  answer_sentences(lesson::sentences_of_change(lesson_page.before, lesson_page.standing, change));
}

void LessonExports::judge(int column, int row) {
  const TableauChange change = take_change(column, row);
  const auto [right, sentences] = lesson::judge_change(lesson_page.before, lesson_page.standing, change);
  wire::write(lesson_page.answer, StepVerdict{.is_step = right.has_value(), .right = right.value_or(false)});
  answer_sentences(sentences);
}

void LessonExports::why() {
  lesson_page.answer.clear();
  const auto reasons = lesson::reasons_for(lesson_page.standing);
  if (reasons) answer_sentences(lesson::sentences_of(lesson_page.standing, *reasons));
}

}  // namespace tabulon::web
