// How long a cell's text takes to read and a number's text takes to write.

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "numbers/conversions.h"
#include "numbers/display.h"
#include "numbers/expression.h"
#include "numbers/text_buffer.h"

namespace tabulon::numbers {
namespace {

// What stands in a tableau some sweeps after the start: mostly small whole numbers and simple fractions,
// some results with rounding noise, a multiple of pi, a few that are no simple fraction.
constexpr std::array<double, 16> kTableauNumbers = {0,
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

void evaluate_text(benchmark::State& state, std::string_view text) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(evaluate(text));
  }
}

BENCHMARK_CAPTURE(evaluate_text, BM_root, "sqrt(2)*3/4")->Name("BM_Evaluate/sqrt(2)*3/4");
BENCHMARK_CAPTURE(evaluate_text, BM_pi, "(1+1/2)pi")->Name("BM_Evaluate/(1+1/2)pi");
BENCHMARK_CAPTURE(evaluate_text, BM_exponent, "2.5E-3")->Name("BM_Evaluate/2.5E-3");
BENCHMARK_CAPTURE(evaluate_text, BM_whole, "12")->Name("BM_Evaluate/12");

// One iteration writes one text; the numbers take turns.
template <class Write>
void write_in_turn(benchmark::State& state, Write write) {
  std::size_t next = 0;
  for (auto _ : state) {
    double number = kTableauNumbers[next++ % kTableauNumbers.size()];
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(write(number));
  }
}

void BM_DisplayDecimals(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return strSoortGetal(kDecimals, number); });
}
BENCHMARK(BM_DisplayDecimals);

void BM_DisplayFractions(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return strSoortGetal(kFractions, number); });
}
BENCHMARK(BM_DisplayFractions);

void BM_DisplayDecimalsIntoBuffer(benchmark::State& state) {
  write_in_turn(state, [](double& number) {
    TextBuffer text;
    write_decimal(number, text);
    return text.size();
  });
}
BENCHMARK(BM_DisplayDecimalsIntoBuffer);

void BM_Str(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return Str(number); });
}
BENCHMARK(BM_Str);

void BM_Val(benchmark::State& state) {
  constexpr std::array<std::string_view, 4> texts = {" 3", "-2.5", " .333333333333333", " 1.5E-07"};
  std::size_t next = 0;
  for (auto _ : state) benchmark::DoNotOptimize(Val(texts[next++ % texts.size()]));
}
BENCHMARK(BM_Val);

}  // namespace
}  // namespace tabulon::numbers

BENCHMARK_MAIN();
