#include "lesson/likeness.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/texts.h"

namespace tabulon::lesson {

namespace {

constexpr std::size_t least_length = 4;

std::string_view digits_at_end(std::string_view name) {
  const std::size_t last = name.find_last_not_of("0123456789");
  return name.substr(last == std::string_view::npos ? 0 : last + 1);
}

std::size_t common_beginning(std::string_view one, std::string_view other) {
  return static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
}

bool one_letter_more(std::string_view longer, std::string_view shorter) {
  const std::size_t at = common_beginning(longer, shorter);
  return longer.size() == shorter.size() + 1 && longer.substr(at + 1) == shorter.substr(at);
}

bool one_letter_else(std::string_view one, std::string_view other) {
  const std::size_t at = common_beginning(one, other);
  return one.size() == other.size() && at < one.size() && one.substr(at + 1) == other.substr(at + 1);
}

bool two_changed_places(std::string_view one, std::string_view other) {
  const std::size_t at = common_beginning(one, other);
  return one.size() == other.size() && at + 1 < one.size() && one[at] == other[at + 1] &&
         one[at + 1] == other[at] && one.substr(at + 2) == other.substr(at + 2);
}

}  // namespace

bool are_alike(std::string_view one, std::string_view other) {
  if (one == other || digits_at_end(one) != digits_at_end(other)) return false;
  if (same_name(one, other)) return true;
  if (std::min(one.size(), other.size()) < least_length) return false;
  return one_letter_more(one, other) || one_letter_more(other, one) || one_letter_else(one, other) ||
         two_changed_places(one, other);
}

}  // namespace tabulon::lesson
