// Sorting against the standard library's, medians, clipping and moments, at a million values.

#include "math/histogram.h"
#include "math/quick_sort.h"
#include "math/record_sorts.h"
#include "math/shape_measures.h"
#include "math/statistics.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

namespace {

using namespace tavelinUtils;

constexpr std::size_t million = 1000000;

std::vector<double> randomValues(std::size_t count)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> between(0.0, 65535.0);
    std::vector<double> values(count);
    std::generate(values.begin(), values.end(), [&] { return between(random); });
    return values;
}

std::vector<pixel> randomPixels(std::size_t count)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> between(0, 4095);
    std::vector<pixel> pixels(count);
    for (pixel& point : pixels) {
        point = {between(random), between(random), static_cast<double>(between(random)), 0};
    }
    return pixels;
}

// Keys whose middle one is the greatest of every range that is left: each partition strips a single key.
std::vector<double> keysAgainstThePivot(std::size_t count)
{
    std::vector<double> keys;
    for (std::size_t size = 1; size <= count; ++size) {
        keys.push_back(static_cast<double>(size));
        std::swap(keys[(size - 1) / 2], keys[size - 1]);
    }
    return keys;
}

void BM_QuickSort_1000000Keys(benchmark::State& state)
{
    const std::vector<double> keys = randomValues(million);
    std::vector<unsigned long> index;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QuickSort(keys, index));
    }
}
BENCHMARK(BM_QuickSort_1000000Keys)->Unit(benchmark::kMillisecond);

// The measure of the sort above: the same keys with their indexes, sorted by the standard library.
void BM_StandardSort_1000000KeysWithIndexes(benchmark::State& state)
{
    const std::vector<double> keys = randomValues(million);
    for (auto _ : state) {
        std::vector<std::pair<double, unsigned long>> pairs(keys.size());
        for (std::size_t i = 0; i < keys.size(); ++i) {
            pairs[i] = {keys[i], i};
        }
        std::sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        benchmark::DoNotOptimize(pairs.data());
    }
}
BENCHMARK(BM_StandardSort_1000000KeysWithIndexes)->Unit(benchmark::kMillisecond);

void BM_QuickSort_KeysAgainstThePivot(benchmark::State& state)
{
    const std::vector<double> keys = keysAgainstThePivot(static_cast<std::size_t>(state.range(0)));
    std::vector<unsigned long> index;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QuickSort(keys, index));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_QuickSort_KeysAgainstThePivot)
    ->RangeMultiplier(2)
    ->Range(5000, 40000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void BM_SortROtmetka_100000Marks(benchmark::State& state)
{
    const std::vector<double> places = randomValues(100000);
    std::vector<TRecLabelPervichka_File> marks(places.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            marks[i].X_bf = places[i];
        }
        SortROtmetka(4096, 4096, marks);
    }
}
BENCHMARK(BM_SortROtmetka_100000Marks)->Unit(benchmark::kMillisecond);

void BM_Median_1000000Values(benchmark::State& state)
{
    const std::vector<double> values = randomValues(million);
    for (auto _ : state) {
        std::vector<double> reordered = values;
        benchmark::DoNotOptimize(tavelinMath::Median(reordered));
    }
}
BENCHMARK(BM_Median_1000000Values)->Unit(benchmark::kMillisecond);

void BM_Median2_1000000Values(benchmark::State& state)
{
    std::vector<double> values = randomValues(million);
    for (auto _ : state) {
        benchmark::DoNotOptimize(tavelinMath::Median2(values));
    }
}
BENCHMARK(BM_Median2_1000000Values)->Unit(benchmark::kMillisecond);

void BM_pcMathSKO_1000x1000_10Iterations(benchmark::State& state)
{
    std::vector<double> block = randomValues(million);
    double mean = 0;
    double sigma = 0;
    for (auto _ : state) {
        tavelinMath::pcMathSKO(1000, 1000, block.data(), 10, 1.5, 1e-9, mean, sigma);
        benchmark::DoNotOptimize(sigma);
    }
}
BENCHMARK(BM_pcMathSKO_1000x1000_10Iterations)->Unit(benchmark::kMillisecond);

void BM_cMoments_1000000Pixels(benchmark::State& state)
{
    std::vector<pixel> pixels = randomPixels(million);
    strob_params shape;
    for (auto _ : state) {
        tavelinMath::cMoments(pixels, 2048, 2048, shape);
        benchmark::DoNotOptimize(shape.Angle);
    }
}
BENCHMARK(BM_cMoments_1000000Pixels)->Unit(benchmark::kMillisecond);

void BM_CalcEccentricity_10000Objects(benchmark::State& state)
{
    std::vector<TObjKontur> objects(10000);
    for (TObjKontur& object : objects) {
        object.Area = randomPixels(100);
        object.Contour = randomPixels(30);
    }
    for (auto _ : state) {
        tavelinMath::CalcEccentricity(objects);
    }
}
BENCHMARK(BM_CalcEccentricity_10000Objects)->Unit(benchmark::kMillisecond);

void BM_calcGisto_1000000Values_1000Bins(benchmark::State& state)
{
    const std::vector<double> values = randomValues(million);
    for (auto _ : state) {
        std::vector<double> sorted = values;
        benchmark::DoNotOptimize(tavelinMath::calcGisto(sorted, 1000));
    }
}
BENCHMARK(BM_calcGisto_1000000Values_1000Bins)->Unit(benchmark::kMillisecond);

} // namespace
