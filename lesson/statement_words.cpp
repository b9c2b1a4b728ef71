#include "lesson/statement_words.h"

#include <algorithm>
#include <array>

#include "platform/texts.h"

namespace tabulon::lesson {

namespace {

struct GoalWord {
  std::string_view word;
  Goal goal;
};

constexpr std::array<GoalWord, 10> goal_words = {{{"max", Goal::Max},
                                                  {"maximum", Goal::Max},
                                                  {"maximaal", Goal::Max},
                                                  {"maximaliseer", Goal::Max},
                                                  {"maximalisering", Goal::Max},
                                                  {"min", Goal::Min},
                                                  {"minimum", Goal::Min},
                                                  {"minimaal", Goal::Min},
                                                  {"minimaliseer", Goal::Min},
                                                  {"minimalisering", Goal::Min}}};

constexpr std::array<std::string_view, 17> headings = {"onder",
                                                       "onder de voorwaarde",
                                                       "onder de voorwaarden",
                                                       "onder de beperkingen",
                                                       "onder de restricties",
                                                       "o.v.v.",
                                                       "ovv",
                                                       "met",
                                                       "waarbij",
                                                       "zodat",
                                                       "zodanig dat",
                                                       "onder de voorwaarde dat",
                                                       "beperkingen",
                                                       "restricties",
                                                       "voorwaarden",
                                                       "s.t.",
                                                       "subject to"};

}  // namespace

std::optional<Goal> goal_of(std::string_view word) {
  for (const GoalWord& each : goal_words)
    if (same_name(each.word, word)) return each.goal;
  return {};
}

bool is_heading(std::string_view line) {
  line = trimmed(line);
  while (line.ends_with(':') || line.ends_with(',')) line = trimmed(line.substr(0, line.size() - 1));
  return std::ranges::any_of(headings, [&](std::string_view each) { return same_name(each, line); });
}

}  // namespace tabulon::lesson
