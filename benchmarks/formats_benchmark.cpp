// Readers and writers of the formats, each on ten thousand marks of a hundred objects. Files are kept out of
// the loops as far as that goes: readers read a file that the system holds in memory, writers write to where
// nothing is kept, but for those that remove their file first.

#include "formats/aavso.h"
#include "formats/light_curve.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "made_inputs.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

constexpr long markCount = 10000;
constexpr long objectCount = 100;

// A folder of made files that goes with the process.
class MadeFiles
{
public:
    MadeFiles()
    {
        std::string name = (std::filesystem::temp_directory_path() / "vomar_benchmark_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
    }
    ~MadeFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    MadeFiles(const MadeFiles&) = delete;
    MadeFiles& operator=(const MadeFiles&) = delete;

    /// The input in the format of the word.
    std::string input(const std::string& word) const
    {
        const std::string path = (folder / word).string();
        if (!std::filesystem::exists(path)) {
            makeInput(path, word, markCount, objectCount);
        }
        return path;
    }

    std::string output() const
    {
        return (folder / "output").string();
    }

private:
    std::filesystem::path folder;
};

const MadeFiles& files()
{
    static const MadeFiles made;
    return made;
}

const std::vector<TrackVtorichka>& tracks()
{
    static const std::vector<TrackVtorichka> read = plMEATrack(files().input("mea"), "observatory");
    return read;
}

template <class Work>
void overMarks(benchmark::State& state, Work work)
{
    for (auto _ : state) {
        work();
    }
    state.SetItemsProcessed(state.iterations() * markCount);
}

template <class Read>
void reading(benchmark::State& state, const std::string& word, Read read)
{
    const std::string path = files().input(word);
    overMarks(state, [&] { benchmark::DoNotOptimize(read(path)); });
}

template <class Write>
void writing(benchmark::State& state, const std::string& path, Write write)
{
    tracks();
    overMarks(state, [&] { write(path, tracks()); });
}

constexpr const char* nowhere = "/dev/null";

void BM_lMEATrack_10000Lines(benchmark::State& state)
{
    reading(state, "mea", [](const std::string& path) { return plMEATrack(path, "observatory"); });
}
BENCHMARK(BM_lMEATrack_10000Lines)->Unit(benchmark::kMicrosecond);

void BM_lTelegramma_10000Marks(benchmark::State& state)
{
    reading(state, "telegram", [](const std::string& path) { return lTelegramma(path); });
}
BENCHMARK(BM_lTelegramma_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_lTDM_10000Marks(benchmark::State& state)
{
    reading(state, "tdm", [](const std::string& path) { return lTDM(path); });
}
BENCHMARK(BM_lTDM_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_lckako_meas_10000Marks(benchmark::State& state)
{
    reading(state, "ssmas", [](const std::string& path) { return lckako_meas(path, "observatory"); });
}
BENCHMARK(BM_lckako_meas_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_lMPC_10000Lines(benchmark::State& state)
{
    std::vector<std::string> lines;
    for (const TrackVtorichka& track : tracks()) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            lines.push_back(GetStringMPC(track.QRVName, "500", mark));
        }
    }
    overMarks(state, [&] { benchmark::DoNotOptimize(lMPC(lines)); });
}
BENCHMARK(BM_lMPC_10000Lines)->Unit(benchmark::kMicrosecond);

void BM_lTDMxml_10000Marks(benchmark::State& state)
{
    std::vector<TrackVtorichka> one(1);
    for (const TrackVtorichka& track : tracks()) {
        one[0].Marks.insert(one[0].Marks.end(), track.Marks.begin(), track.Marks.end());
    }
    const std::string path = files().output() + ".xml";
    sTDMPOLxml(path, one);
    overMarks(state, [&] {
        std::vector<TrackVtorichka> read;
        benchmark::DoNotOptimize(lTDMxml(path, read));
    });
}
BENCHMARK(BM_lTDMxml_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_lListTrack_10000Marks(benchmark::State& state)
{
    const std::string path = files().output() + ".table";
    sListTrack(path, path, "", tracks(), "", true, true, getHeadTrack());
    overMarks(state, [&] { benchmark::DoNotOptimize(lListTrack(path)); });
}
BENCHMARK(BM_lListTrack_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sMEA_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sMEA);
}
BENCHMARK(BM_sMEA_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sMPC_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sMPC);
}
BENCHMARK(BM_sMPC_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sTelegramma_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sTelegramma);
}
BENCHMARK(BM_sTelegramma_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sTDM_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sTDM);
}
BENCHMARK(BM_sTDM_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sTDMPOLxml_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sTDMPOLxml);
}
BENCHMARK(BM_sTDMPOLxml_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sSSMAS_10000Marks(benchmark::State& state)
{
    writing(state, nowhere, sSSMAS);
}
BENCHMARK(BM_sSSMAS_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_sAAVSO_10000Marks(benchmark::State& state)
{
    writing(state, files().output(), [](const std::string& path, const std::vector<TrackVtorichka>& written) {
        sAAVSO(path, written);
    });
}
BENCHMARK(BM_sAAVSO_10000Marks)->Unit(benchmark::kMicrosecond);

void BM_SaveLightCurve_10000Marks(benchmark::State& state)
{
    writing(state, files().output(), [](const std::string& path, const std::vector<TrackVtorichka>& written) {
        SaveLightCurve(path, written, "JD geocentric");
    });
}
BENCHMARK(BM_SaveLightCurve_10000Marks)->Unit(benchmark::kMicrosecond);

} // namespace
