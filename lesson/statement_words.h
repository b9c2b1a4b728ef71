// The words by which a line of a problem is known.
//
//   goal_of("Maximaliseer")   // Goal::Max
//   is_heading("onder de voorwaarden:")
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tabulon::lesson {

enum class Goal : std::uint8_t { Max, Min };

std::optional<Goal> goal_of(std::string_view word);
inline bool is_goal_word(std::string_view word) {
  return goal_of(word).has_value();
}

// A line that only says that constraints follow.
bool is_heading(std::string_view line);

}  // namespace tabulon::lesson
