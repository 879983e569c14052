// Readers and writers of the formats, each on ten thousand lines.

#include "formats/mea.h"
#include "formats/mpc_report.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

constexpr int lineCount = 10000;

std::vector<std::string> meaLines()
{
    std::vector<std::string> lines{"T1 2000.0 UTC"};
    char line[80];
    for (int i = 0; i < lineCount; ++i) {
        std::snprintf(line, sizeof line,
                      "%05d   %02d0223 %02d%02d%02d%03d0 %02d%02d%02d%04d -%02d%02d%02d%04d 001 %02d.%02d",
                      i / 100, 1 + i / 500 % 28, i * 7 % 24, i * 11 % 60, i * 13 % 60, i * 17 % 1000,
                      i * 19 % 24, i * 23 % 60, i * 29 % 60, i * 31 % 10000, i * 37 % 90, i * 41 % 60,
                      i * 43 % 60, i * 47 % 10000, 5 + i * 53 % 17, i * 59 % 100);
        lines.emplace_back(line);
    }
    return lines;
}

void BM_lMEATrack_10000Lines(benchmark::State& state)
{
    const std::vector<std::string> lines = meaLines();
    for (auto _ : state) {
        benchmark::DoNotOptimize(lMEATrack(lines, "observatory"));
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(BM_lMEATrack_10000Lines)->Unit(benchmark::kMicrosecond);

// The files go to where nothing is kept.
void BM_sMPC_10000Marks(benchmark::State& state)
{
    const std::vector<TrackVtorichka> tracks = lMEATrack(meaLines(), "observatory");
    for (auto _ : state) {
        sMPC("/dev/null", tracks);
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(BM_sMPC_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sMEA_10000Marks(benchmark::State& state)
{
    const std::vector<TrackVtorichka> tracks = lMEATrack(meaLines(), "observatory");
    for (auto _ : state) {
        sMEA("/dev/null", tracks);
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(BM_sMEA_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_lMPC_10000Lines(benchmark::State& state)
{
    std::vector<std::string> lines;
    for (const TrackVtorichka& track : lMEATrack(meaLines(), "observatory")) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            lines.push_back(GetStringMPC(track.QRVName, "500", mark));
        }
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(lMPC(lines));
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK(BM_lMPC_10000Lines)->Unit(benchmark::kMicrosecond);

} // namespace
