// Numbers to write as texts.
#pragma once

#include <array>

namespace tabulon::benchmarks {

// What stands in a tableau some sweeps after the start: mostly small whole numbers and simple fractions,
// some results with rounding noise, a multiple of pi, a few that are no simple fraction.
inline constexpr std::array<double, 16> tableau_numbers = {0,
                                                           1,
                                                           -3,
                                                           0.5,
                                                           -100,
                                                           2.0 / 3,
                                                           -7.0 / 12,
                                                           12.25,
                                                           0.1 + 0.2,
                                                           1234.5678,
                                                           1.0 / 30,
                                                           -41.0 / 7,
                                                           3.14159265358979323846,
                                                           1.41421356237309505,
                                                           99999.96,
                                                           2.5e-8};

}  // namespace tabulon::benchmarks
