// How long a cell's text takes to read and a number's text takes to write.

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "benchmarks/tableau_numbers.h"
#include "numbers/conversions.h"
#include "numbers/display.h"
#include "numbers/expression.h"
#include "numbers/text_buffer.h"

namespace tabulon::numbers {
namespace {

using benchmarks::tableau_numbers;

void evaluate_text(benchmark::State& state, std::string_view text) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(evaluate(text));
  }
}

BENCHMARK_CAPTURE(evaluate_text, BM_root, "sqrt(2)*3/4")->Name("evaluate sqrt(2)*3/4");
BENCHMARK_CAPTURE(evaluate_text, BM_pi, "(1+1/2)pi")->Name("evaluate (1+1/2)pi");
BENCHMARK_CAPTURE(evaluate_text, BM_exponent, "2.5E-3")->Name("evaluate 2.5E-3");
BENCHMARK_CAPTURE(evaluate_text, BM_whole, "12")->Name("evaluate 12");

// One iteration writes one text; the numbers take turns.
template <class Write>
void write_in_turn(benchmark::State& state, Write write) {
  std::size_t next = 0;
  for (auto _ : state) {
    double number = tableau_numbers[next++ % tableau_numbers.size()];
    benchmark::DoNotOptimize(number);
    benchmark::DoNotOptimize(write(number));
  }
}

void BM_DisplayDecimals(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return strSoortGetal(kDecimals, number); });
}
BENCHMARK(BM_DisplayDecimals)->Name("display in decimals");

void BM_DisplayFractions(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return strSoortGetal(kFractions, number); });
}
BENCHMARK(BM_DisplayFractions)->Name("display in fractions");

void BM_DisplayDecimalsIntoBuffer(benchmark::State& state) {
  write_in_turn(state, [](double& number) {
    TextBuffer text;
    write_decimal(number, text);
    return text.size();
  });
}
BENCHMARK(BM_DisplayDecimalsIntoBuffer)->Name("display in decimals, into a buffer");

void BM_Str(benchmark::State& state) {
  write_in_turn(state, [](double& number) { return Str(number); });
}
BENCHMARK(BM_Str)->Name("Str");

void BM_Val(benchmark::State& state) {
  constexpr std::array<std::string_view, 4> texts = {" 3", "-2.5", " .333333333333333", " 1.5E-07"};
  std::size_t next = 0;
  for (auto _ : state) benchmark::DoNotOptimize(Val(texts[next++ % texts.size()]));
}
BENCHMARK(BM_Val)->Name("Val");

}  // namespace
}  // namespace tabulon::numbers
