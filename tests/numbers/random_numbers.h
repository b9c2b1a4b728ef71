// Reproducible random numbers for tests: the same at each run. Each use prints its seed.
//
//   RandomNumbers random;
//   double any = random.any_finite();
//
// TABULON_SEED in the environment chooses another seed, to look further than the tests of every day.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace tabulon::numbers {

// How many rounds of a test that computes much: where every step is checked, one in seven will do.
constexpr int rounds(int rounds_natively) {
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
  return rounds_natively / 7;
#endif
#endif
  return rounds_natively;
}

class RandomNumbers {
 public:
  // Printed at once, lest a crash hides it.
  RandomNumbers() { std::fprintf(stderr, "%s\n", seed_text().c_str()); }

  std::string seed_text() const { return "TABULON_SEED=" + std::to_string(seed_); }

  std::uint64_t bits() { return engine_(); }
  int between(int low, int high) {
    return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1));
  }

  // Every finite bit pattern is equally likely, subnormal numbers included.
  double any_finite() {
    for (;;) {
      const auto number = std::bit_cast<double>(bits());
      if (std::isfinite(number)) return number;
    }
  }

  // The numbers of a tableau: whole ones, fractions, decimals and results of some arithmetic.
  double tableau_number() {
    const double whole = between(-2000, 2000);
    switch (between(0, 5)) {
      case 0:
        return whole;
      case 1:
        return whole / between(1, 400);
      case 2:
        return whole / 100 + whole / between(1, 40);
      case 3:
        return whole * 3.14159265358979323846 / between(1, 20);
      case 4:
        return std::ldexp(static_cast<double>(bits() >> 11), between(-110, 10)) * (whole < 0 ? -1 : 1);
      default:
        return whole / 7 * std::pow(10.0, between(-9, 9));
    }
  }

 private:
  static std::uint64_t chosen_seed() {
    const char* given = std::getenv("TABULON_SEED");
    return given != nullptr ? std::strtoull(given, nullptr, 10) : everyday_seed;
  }

  static constexpr std::uint64_t everyday_seed = 20250901;
  std::uint64_t seed_ = chosen_seed();
  std::mt19937_64 engine_{seed_};
};

}  // namespace tabulon::numbers
