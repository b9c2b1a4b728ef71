// Keys, as every host names them.
#pragma once

namespace tabulon::platform {

namespace key {
#define KEY(name, code) inline constexpr int name = code;
#include "platform/keys.def"
}  // namespace key

// The keys held while another is pressed; they add up.
namespace modifier {
inline constexpr int none = 0;
#define MODIFIER(name, bit) inline constexpr int name = bit;
#include "platform/keys.def"
}  // namespace modifier

// `code` is the key: a constant above, or for a letter or digit its capital's character code.
struct KeyPress {
  int code = 0;
  int shift = modifier::none;
  friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

}  // namespace tabulon::platform
