// Keys, as every host names them.
#pragma once

#include <cstdint>

namespace tabulon::platform {

namespace key {
inline constexpr int back = 8, tab = 9, enter = 13, escape = 27, space = 32, page_up = 33, page_down = 34,
                     end = 35, home = 36, left = 37, up = 38, right = 39, down = 40, f10 = 121;
}  // namespace key

// The keys held while another is pressed; they add up.
namespace modifier {
inline constexpr int none = 0, shift = 1, ctrl = 2, alt = 4;
}  // namespace modifier

// `code` is the key: a constant above, or for a letter or digit its capital's character code.
struct KeyPress {
  int code = 0;
  int shift = modifier::none;
  friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

}  // namespace tabulon::platform
