// Files of a million records, against one read of the file and the building of the records.

#include "base/bytes.h"
#include "exchange/blob_files.h"
#include "exchange/pixel_files.h"
#include "exchange/representatives.h"
#include "records/blob_conversions.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using namespace tavelinUtils;

constexpr std::size_t million = 1000000;

// A file that is gone with the object.
class TemporaryFile
{
public:
    TemporaryFile()
        : name(std::filesystem::temp_directory_path() / ("record_files_" + std::to_string(getpid())))
    {
    }
    ~TemporaryFile()
    {
        std::remove(name.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const
    {
        return name;
    }

private:
    std::string name;
};

// What a reader of records cannot do without: the bytes once, and the records built once.
template <class Record>
void readAndBuild(benchmark::State& state, const std::string& path)
{
    for (auto _ : state) {
        FileBytes file;
        readBytes(path, file);
        benchmark::DoNotOptimize(file.bytes.get());
        std::vector<Record> records(file.size / sizeof(Record));
        benchmark::DoNotOptimize(records.data());
    }
}

void BM_lVihodFullBranch_file_1000000Records(benchmark::State& state)
{
    const TemporaryFile file;
    SaveToFile(file.path(), std::vector<VihodFullBranch_file>(million));
    for (auto _ : state) {
        benchmark::DoNotOptimize(lVihodFullBranch_file(file.path()));
    }
}
BENCHMARK(BM_lVihodFullBranch_file_1000000Records)->Unit(benchmark::kMillisecond);

void BM_ReadAndBuild_1000000FittedRecords(benchmark::State& state)
{
    const TemporaryFile file;
    SaveToFile(file.path(), std::vector<VihodFullBranch_file>(million));
    readAndBuild<VihodFullBranch_file>(state, file.path());
}
BENCHMARK(BM_ReadAndBuild_1000000FittedRecords)->Unit(benchmark::kMillisecond);

void BM_SaveToFile_1000000Records(benchmark::State& state)
{
    const TemporaryFile file;
    const std::vector<VihodFullBranch_file> records(million);
    for (auto _ : state) {
        SaveToFile(file.path(), records);
    }
}
BENCHMARK(BM_SaveToFile_1000000Records)->Unit(benchmark::kMillisecond);

void BM_lBlobFastVO_1000000Records(benchmark::State& state)
{
    const TemporaryFile file;
    sBlobFastVO(file.path(), std::vector<TVOBlobFile>(million));
    for (auto _ : state) {
        benchmark::DoNotOptimize(lBlobFastVO(file.path()));
    }
}
BENCHMARK(BM_lBlobFastVO_1000000Records)->Unit(benchmark::kMillisecond);

void BM_ReadAndBuild_1000000CompactMarks(benchmark::State& state)
{
    const TemporaryFile file;
    sBlobFastVO(file.path(), std::vector<TVOBlobFile>(million));
    readAndBuild<TVOBlobFile>(state, file.path());
}
BENCHMARK(BM_ReadAndBuild_1000000CompactMarks)->Unit(benchmark::kMillisecond);

void BM_lIndVKBin_100000Representatives(benchmark::State& state)
{
    const TemporaryFile file;
    std::vector<TRepresent> representatives(100000);
    for (TRepresent& representative : representatives) {
        representative.Items.resize(10);
    }
    sIndVKBin(file.path(), 10, representatives);
    int frames = 0;
    for (auto _ : state) {
        std::vector<TRepresent> read;
        lIndVKBin(file.path(), frames, read);
        benchmark::DoNotOptimize(read.data());
    }
}
BENCHMARK(BM_lIndVKBin_100000Representatives)->Unit(benchmark::kMillisecond);

void BM_LoadPixelObj_20000ObjectsOf50Pixels(benchmark::State& state)
{
    const TemporaryFile file;
    std::vector<TObjKontur> objects(20000);
    for (TObjKontur& object : objects) {
        object.Area.resize(50);
    }
    SavePixelObj(file.path(), objects);
    for (auto _ : state) {
        std::vector<TObjKontur> read;
        LoadPixelObj(file.path(), read);
        benchmark::DoNotOptimize(read.data());
    }
}
BENCHMARK(BM_LoadPixelObj_20000ObjectsOf50Pixels)->Unit(benchmark::kMillisecond);

void BM_TRecLabelPervichkaToTVOBlob_1000000Marks(benchmark::State& state)
{
    const std::vector<TRecLabelPervichka_File> marks(million);
    for (auto _ : state) {
        benchmark::DoNotOptimize(TRecLabelPervichkaToTVOBlob(marks));
    }
}
BENCHMARK(BM_TRecLabelPervichkaToTVOBlob_1000000Marks)->Unit(benchmark::kMillisecond);

} // namespace
