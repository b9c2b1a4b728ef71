#include "control/basSafeCtl_changes.h"

#include <array>

namespace tabulon {

std::string_view words_of(ChangeCause cause) {
  constexpr std::array<std::string_view, 11> words = {
      "cell",  "sweep",     "automatic-sweep", "normalise", "basic-solution", "optimise",
      "reset", "fractions", "parameters",      "problem",   "restore"};
  return words[static_cast<std::size_t>(cause)];
}

}  // namespace tabulon
