// Files that are there and cannot be read: nobody may take them for missing ones, and what was written before
// stays.

#include "conversion.h"
#include "multi_report.h"

#include "exchange/catalogue_lists.h"
#include "exchange/text_results.h"
#include "files/file_search.h"
#include "files/text_files.h"
#include "formats/element_sets.h"
#include "formats/fast_object_parameters.h"
#include "formats/horizons.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/reference_positions.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include "support/broken_files.h"
#include "support/child_process.h"
#include "support/failed_reads.h"
#include "support/report_series.h"
#include "support/task_folder.h"
#include "support/tasks.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace tavelinUtils;

namespace {

/// A reader of text, by its name.
struct TextReader
{
    const char* name;
    std::function<void(const std::string& path)> read;
};

const TextReader textReaders[] = {
    {"plMEATrack", [](const std::string& path) { plMEATrack(path, ""); }},
    {"lTelegramma", [](const std::string& path) { lTelegramma(path); }},
    {"lTDM", [](const std::string& path) { lTDM(path); }},
    {"lMPC", [](const std::string& path) { lMPC(path); }},
    {"lckako_meas", [](const std::string& path) { lckako_meas(path, ""); }},
    {"lListTrack", [](const std::string& path) { lListTrack(path); }},
    {"l3LEstr", [](const std::string& path) { l3LEstr(path); }},
    {"lHorizons",
     [](const std::string& path) {
         TrackVtorichka track;
         lHorizons(path, track);
     }},
    {"loadAMU",
     [](const std::string& path) {
         TrackVtorichka track;
         loadAMU(path, track);
     }},
    {"loadEtalonAMU",
     [](const std::string& path) {
         TrackVtorichka track;
         loadEtalonAMU(path, track);
     }},
    {"LTextParamForSearchFastAstroObj",
     [](const std::string& path) { LTextParamForSearchFastAstroObj(path); }},
    {"lParHOKv2", [](const std::string& path) { lParHOKv2(path); }},
    {"LoadVSX", [](const std::string& path) { LoadVSX(path); }},
    {"lVSP", [](const std::string& path) { lVSP(path); }},
    {"lBand", [](const std::string& path) { lBand(path); }},
    {"lAstroPlate", [](const std::string& path) { lAstroPlate(path); }},
    {"LoadResultExe", [](const std::string& path) { LoadResultExe(path); }},
    {"ReadFromFile", [](const std::string& path) { ReadFromFile(path); }},
    {"ReadFromFileInt", [](const std::string& path) { ReadFromFileInt(path); }},
};

class BrokenReading : public testing::TestWithParam<TextReader>
{
};

INSTANTIATE_TEST_SUITE_P(EachReader, BrokenReading, testing::ValuesIn(textReaders),
                         [](const testing::TestParamInfo<TextReader>& reader) {
                             return std::string(reader.param.name);
                         });

TaskKeys conversionOf(const std::string& input, const std::string& word)
{
    return {{"path_in", input},          {"out_dir", "out"},      {"outputextension", ".txt"},
            {"inputformat", word},       {"outputformat", "mpc"}, {"autoname", "false"},
            {"path_res", "./result.xml"}};
}

} // namespace

TEST_P(BrokenReading, FileThatCannotBeReadIsCode7WithItsPath)
{
    expectUnreadable(GetParam().read);
}

TEST_P(BrokenReading, FolderHasNoLines)
{
    const TemporaryFolder folder;
    EXPECT_NO_THROW(GetParam().read(folder.path()));
}

TEST_P(BrokenReading, MissingFileHasNoLines)
{
    const TemporaryFolder folder;
    EXPECT_NO_THROW(GetParam().read(folder / "missing"));
}

TEST(BrokenInput, ConversionHasCodeMinus1AndItsOldOutputStays)
{
    for (const std::string word : {"mea", "telegram", "tdm", "ssmas"}) {
        SCOPED_TRACE(word);
        const TaskFolder folder;
        std::filesystem::create_symlink(brokenFile, folder / "night.in");
        makeFile(folder / "out/night.txt", "old");
        expectQuietEnd(folder.run(taskText(conversionOf("night.in", word))));
        EXPECT_EQ(resultOf(folder / "result.xml"), resultDocument(-1, "night.in", "night.in"));
        EXPECT_EQ(bytesOf(folder / "out/night.txt"), "old");
    }
}

TEST(BrokenInput, ReportOfATableThatCannotBeReadEndsTheRunAndItsOldOutputStays)
{
    report_series::Bench bench;
    bench.addPath(brokenFile);
    makeFile(bench.task.out_dir + "old.txt", "old");
    expectUnreadable([&bench](const std::string& /*path*/) { CreateMultiReport(bench.task); });
    EXPECT_EQ(filesBelow(bench.task.out_dir), std::set<std::string>{"old.txt"});
}

// With the defaults in its place the report would have another header than that of its observatory.
TEST(BrokenInput, ReportWhoseConfigurationCannotBeReadEndsTheRun)
{
    report_series::Bench bench;
    const std::string table = bench.add("s1", report_series::nameless("A")).path;
    const std::string conf = table.substr(0, table.rfind("/tavelin/dataVO/")) + "//s1.conf";
    std::filesystem::create_symlink(brokenFile, conf);
    try {
        CreateMultiReport(bench.task);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), conf);
    }
    EXPECT_EQ(filesBelow(bench.task.out_dir), std::set<std::string>{});
}

TEST(BrokenInput, ReportWhoseConfigurationIsBrokenHasTheDefaults)
{
    report_series::Bench bench;
    bench.add("s1", report_series::nameless("A"), "<a><b></a>");
    bench.task.toSeparateFile = "eachobject";
    EXPECT_EQ(CreateMultiReport(bench.task).Code, 0);
}

// A task that waits for a pipe's writer would hold up every run behind it.
TEST(BrokenInput, TaskThatIsAPipeOrADeviceIsAFailedLoadAtOnce)
{
    const TaskFolder folder;
    std::filesystem::copy_file(builtTool(), folder / "vomar");
    ASSERT_EQ(mkfifo((folder / "pipe.xml").c_str(), 0600), 0);
    for (const std::string task : {"pipe.xml", "/dev/zero"}) {
        SCOPED_TRACE(task);
        std::filesystem::remove(folder / "vomar.log");
        expectQuietEnd(runProgram(folder / "vomar", {task}, folder.path(), 10));
        EXPECT_EQ(logOf(folder / "vomar.log"),
                  (std::vector<std::string>{"Code=7//Error opening file//" + task}));
    }
}
