// Two threads at work at the same time, each on files of its own. The build with the thread sanitizer runs
// these too.

#include "config/settings.h"
#include "config/user_configuration.h"
#include "formats/mpc_report.h"
#include "formats/tdm_xml.h"
#include "formats/track_table.h"
#include "results/result_files.h"
#include "text/calendar.h"

#include "support/conversions.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <regex>
#include <string>
#include <thread>
#include <vector>

using namespace tavelinUtils;

namespace {

// A night in each format that is read.
struct NightFile
{
    const char* word;
    const char* folder;
    const char* extension;
};
constexpr NightFile nightFiles[] = {{"mea", "mea_nights/", ".mea"},
                                    {"telegram", "nights/", ".tel"},
                                    {"tdm", "nights/", ".tdm"},
                                    {"ssmas", "nights/", ".ssm"}};
constexpr const char* outputWords[] = {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"};

// The work of a thread: a night becomes each format out of each other, and what the tool does not read is
// read back.
void workOn(const std::string& folder, const std::string& night)
{
    for (const NightFile& file : nightFiles) {
        for (const char* const word : outputWords) {
            const TFuncRes end = Conversion{.path_in = fixture(file.folder + night + file.extension),
                                            .out_dir = folder + "/",
                                            .outputextension = std::string(".") + file.word + "." + word,
                                            .inputformat = file.word,
                                            .outputformat = word}
                                     .run();
            SaveLogCode(folder + "/result.xml", end);
            SaveLogCode(folder + "/result.log", end);
        }
    }
    sListTrack(folder + "/report.table", "", "", lMPC(folder + "/" + night + ".tdm.mpc"), "", true, true,
               getHeadTrack());
    sMPC(folder + "/table.mpc", lListTrack(folder + "/report.table"));
    std::vector<TrackVtorichka> tracks;
    EXPECT_TRUE(lTDMxml(folder + "/" + night + ".tdm.tdm.xml", tracks));
    sTDMxml(folder + "/again.tdm.xml", tracks);
}

const std::string timeOfResult = "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{6}";

// The bytes of each file below a folder, without the folder's name and the times that results bear.
std::map<std::string, std::string> filesOf(const std::string& folder)
{
    std::map<std::string, std::string> files;
    for (const std::string& name : filesBelow(folder)) {
        files[name] =
            std::regex_replace(bytesOf(folder + "/" + name), std::regex(folder + "|" + timeOfResult), "*");
    }
    return files;
}

// Two works at the same time.
void together(const std::function<void()>& one, const std::function<void()>& other)
{
    std::thread second(other);
    one();
    second.join();
}

constexpr int rounds = 3;

} // namespace

TEST(Threads, TwoThatConvertFilesOfTheirOwnWriteWhatOneWrites)
{
    const std::string nights[] = {"291_20160608", "461_20111003"};
    const TemporaryFolder alone[2];
    for (const int i : {0, 1}) {
        workOn(alone[i].path(), nights[i]);
        EXPECT_EQ(filesOf(alone[i].path()).size(), 37U);
    }
    for (int round = 0; round < rounds; ++round) {
        const TemporaryFolder threaded[2];
        together([&] { workOn(threaded[0].path(), nights[0]); },
                 [&] { workOn(threaded[1].path(), nights[1]); });
        for (const int i : {0, 1}) {
            EXPECT_EQ(filesOf(threaded[i].path()), filesOf(alone[i].path()));
        }
    }
}

TEST(Threads, TwoReadConfigurations)
{
    const auto load = [] {
        for (int round = 0; round < rounds; ++round) {
            TPorogs settings;
            EXPECT_EQ(LoadUserConfXML(fixture("configuration/asteroid_series.conf"), settings, false).Code,
                      0);
            EXPECT_EQ(settings.mpc.MPCHeader.TEL, "1.2-m Schmidt + CCD");
        }
    };
    load();
    together(load, load);
}

TEST(Threads, TwoAskForTheDateOfAMoment)
{
    const auto ask = [](long moment, int expectedYear) {
        for (int i = 0; i < 1000; ++i) {
            int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
            SysToDateTime(moment, year, month, day, hour, minute, second);
            EXPECT_EQ(year, expectedYear);
        }
    };
    constexpr long middleOf1971 = 47'000'000, middleOf2023 = 1'688'000'000;
    together([&] { ask(middleOf1971, 1971); }, [&] { ask(middleOf2023, 2023); });
}
