// Texts of numbers, angles and times, and the tokeniser.

#include "base/numbers.h"
#include "files/essentials.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

// A thousand fractions that look like measured ones.
const std::array<double, 1000>& fractions()
{
    static const auto values = [] {
        std::array<double, 1000> made{};
        for (std::size_t i = 0; i < made.size(); ++i) {
            made[i] = std::fmod(static_cast<double>(i) * 0.6180339887498949, 1.0);
        }
        return made;
    }();
    return values;
}

template <class Convert>
void overFractions(benchmark::State& state, Convert convert)
{
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(convert(fractions()[i]));
        i = i + 1 == fractions().size() ? 0 : i + 1;
    }
}

void BM_Str9_7Decimals(benchmark::State& state)
{
    overFractions(state, [](double value) { return Str9(value * 360.0, 7); });
}
BENCHMARK(BM_Str9_7Decimals);

void BM_SetPrecision_12Decimals(benchmark::State& state)
{
    overFractions(state, [](double value) { return SetPrecision(value * 24.0, 12); });
}
BENCHMARK(BM_SetPrecision_12Decimals);

void BM_toDouble_7Decimals(benchmark::State& state)
{
    static const auto texts = [] {
        std::vector<std::string> made;
        for (const double value : fractions()) {
            made.push_back(Str9(value * 360.0, 7));
        }
        return made;
    }();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(toDouble(texts[i]));
        i = i + 1 == texts.size() ? 0 : i + 1;
    }
}
BENCHMARK(BM_toDouble_7Decimals);

void BM_RAToStr(benchmark::State& state)
{
    overFractions(state, [](double value) { return RAToStr(value * 360.0, 2, " ", true); });
}
BENCHMARK(BM_RAToStr);

void BM_DayToTimeMEA(benchmark::State& state)
{
    overFractions(state, [](double value) { return DayToTimeMEA(value, 3, false); });
}
BENCHMARK(BM_DayToTimeMEA);

void BM_Pars9_LineOf7Tokens(benchmark::State& state)
{
    const std::string line = "12345   250223 1200000000 0100000000 +0030000000 001 09.50";
    std::vector<std::string> tokens;
    for (auto _ : state) {
        Pars9(line, tokens, " ");
        benchmark::DoNotOptimize(tokens.data());
    }
}
BENCHMARK(BM_Pars9_LineOf7Tokens);

} // namespace
