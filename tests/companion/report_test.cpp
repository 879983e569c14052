#include "companion/copied_examples.h"
#include "companion/golden.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class GoldenReport : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenReport, PrintsAndLeavesWhatStandsInItsFolder)
{
    expectGoldenMade("report", GetParam(), VOMAR_STAND_IN);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenReport, testing::ValuesIn(goldenCases("report")),
                         [](const auto& each) { return each.param; });

CommandEnd report(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"report", "--vomar", builtTool()});
    return callCommand(arguments);
}

// The bytes of the files in a folder, by their names; results are not looked at.
std::map<std::string, std::string> filesOf(const std::string& folder)
{
    std::map<std::string, std::string> files;
    for (const std::string& name : namesIn(folder)) {
        if (name != "result.xml") {
            files[name] = bytesOf(folder + '/' + name);
        }
    }
    return files;
}

// A copy of the examples, which is the present folder. Their tasks write into "out".
class Examples : public testing::Test
{
protected:
    Examples() : present(folder.path())
    {
        copyExamples(".");
    }

    std::map<std::string, std::string> byHand(const std::string& task)
    {
        expectQuietEnd(runTool(task));
        return filesOf("out");
    }

    // Into a folder of the same name: a report of all objects is named after it.
    std::map<std::string, std::string> byReport(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--make", "--telescope=PTF48", "--filter=R", "--originator=MPC",
                                           "by/report/out", first, second});
        const CommandEnd end = report(arguments);
        EXPECT_EQ(end.err, "");
        EXPECT_EQ(end.status, 0) << end.out;
        return filesOf("by/report/out");
    }

    TemporaryFolder folder;
    PresentFolder present;
    std::string first = "series/ptf_i41_20101104/tavelin/dataVO/obj-asteroids-mpc.txt";
    std::string second = "series/ptf_i41_20101106/tavelin/dataVO/obj-asteroids-mpc.txt";
};

TEST_F(Examples, GroupsAreThoseOfATaskWrittenByHand)
{
    const auto files = byHand("report_eachgroup.xml");
    EXPECT_EQ(files.size(), 7);
    EXPECT_EQ(byReport({"--to=tdm", "--by=group", "--gap=240m"}), files);
}

TEST_F(Examples, ObjectsAreThoseOfATaskWrittenByHand)
{
    const auto files = byHand("report_eachobject.xml");
    EXPECT_EQ(files.size(), 5);
    EXPECT_EQ(byReport({"--to=mpc", "--by=object"}), files);
}

TEST_F(Examples, SeriesAreThoseOfATaskWrittenByHand)
{
    const auto files = byHand("report_eachseria.xml");
    EXPECT_EQ(files.size(), 2);
    EXPECT_EQ(byReport({"--to=mpc", "--by=series", "--short-names"}), files);
}

TEST_F(Examples, AllObjectsAreThoseOfATaskWrittenByHand)
{
    const auto files = byHand("report_allobjects.xml");
    EXPECT_EQ(files.size(), 1);
    EXPECT_EQ(byReport({"--to=mea", "--by=all", "--short-names"}), files);
}

std::string seria(const std::string& path, const std::string& more)
{
    return "<seria><path>" + path + "</path><filtr>R</filtr><telescope>PTF48</telescope>" + more + "</seria>";
}

TEST_F(Examples, EachFormatAndEachDivisionGivesTheBytesOfATaskWrittenByHand)
{
    constexpr const char* formats[][2] = {
        {"mea", "mea"},     {"telegram", "tel"},    {"tdm", "tdm"}, {"ssmas", "ssm"},
        {"mpc", "mpc.txt"}, {"tdm.xml", "tdm.xml"}, {"mag", "mag"}, {"aavso", "aavso.txt"},
    };
    constexpr const char* divisions[][2] = {
        {"group", "eachgroup"}, {"object", "eachobject"}, {"series", "eachseria"}, {"all", "allobjects"}};
    fs::remove_all("out");
    for (const auto& [format, extension] : formats) {
        for (const auto& [by, word] : divisions) {
            SCOPED_TRACE(std::string(format) + " by " + by);
            for (const char* made : {"hand/out", "report/out"}) {
                fs::remove_all(made);
                fs::create_directories(made);
            }
            makeFile("task.xml",
                     taskText({{"out_dir", "hand/out"},
                               {"outputextension", extension},
                               {"inputformat", "vomar"},
                               {"outputformat", format},
                               {"toSeparateFile", word},
                               {"interval", "90"},
                               {"paths", seria(first, "<excludes>2;1;3</excludes>") + seria(second, "")}}));
            expectQuietEnd(runTool("task.xml"));
            std::vector<std::string> call{"--to",
                                          format,
                                          "--by",
                                          by,
                                          "--telescope=PTF48",
                                          "--filter=R",
                                          "--allow=V241",
                                          "--exclude",
                                          first + ":2;1;3",
                                          "report/out",
                                          first,
                                          second};
            if (by == std::string("group")) {
                call.insert(call.begin(), "--gap=1.5h");
            }
            const CommandEnd end = report(call);
            EXPECT_EQ(end.err, "");
            EXPECT_EQ(filesOf("report/out"), filesOf("hand/out")) << end.out;
        }
    }
}

TEST_F(Examples, KeptTaskGivesTheSameBytes)
{
    const auto files = byReport({"--to=mpc", "--by=object", "--keep-task=night.xml", "--exclude",
                                 first + ":0;1", "--exclude", first + ":1;0;2"});
    EXPECT_EQ(bytesOf("night.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<task>\n"
                                    "    <out_dir>by/report/out</out_dir>\n"
                                    "    <outputextension>mpc.txt</outputextension>\n"
                                    "    <inputformat>vomar</inputformat>\n"
                                    "    <outputformat>mpc</outputformat>\n"
                                    "    <originator>MPC</originator>\n"
                                    "    <longname>true</longname>\n"
                                    "    <toSeparateFile>eachobject</toSeparateFile>\n"
                                    "    <path_res>by/report/out/result.xml</path_res>\n"
                                    "    <paths>\n"
                                    "        <seria>\n"
                                    "            <path>" +
                                        first +
                                        "</path>\n"
                                        "            <filtr>R</filtr>\n"
                                        "            <telescope>PTF48</telescope>\n"
                                        "            <excludes>0;1 1;0;2</excludes>\n"
                                        "        </seria>\n"
                                        "        <seria>\n"
                                        "            <path>" +
                                        second +
                                        "</path>\n"
                                        "            <filtr>R</filtr>\n"
                                        "            <telescope>PTF48</telescope>\n"
                                        "        </seria>\n"
                                        "    </paths>\n"
                                        "</task>\n");
    fs::remove_all("by/report/out");
    fs::create_directory("by/report/out");
    expectQuietEnd(runTool("night.xml"));
    EXPECT_EQ(filesOf("by/report/out"), files);
}

TEST_F(Examples, OnlyOneTrackIsThatOfATaskWrittenByHand)
{
    makeFile("task.xml", taskText({{"out_dir", "out"},
                                   {"outputextension", "tdm"},
                                   {"inputformat", "vomar"},
                                   {"outputformat", "tdm"},
                                   {"originator", "MPC"},
                                   {"toSeparateFile", "eachobject"},
                                   {"whatSave", "object"},
                                   {"object", "1"},
                                   {"paths", seria(first, "") + seria(second, "")}}));
    EXPECT_EQ(byReport({"--to=tdm", "--by=object", "--only-track=1"}), byHand("task.xml"));
}

TEST_F(Examples, OddNamesOfFoldersAndTables)
{
    for (const std::string name :
         {"a b", "n\xc3\xa4", "line\nfeed", "-minus", "latin\xe9", "it's", "a&b<c>", "a:b"})
    {
        SCOPED_TRACE(testing::PrintToString(name));
        fs::copy("series", name, fs::copy_options::recursive);
        const std::string table = name + first.substr(first.find('/'));
        const std::string output = name + "/out " + name;
        const CommandEnd end = report({"--make", "--to=mea", "--by=all", "--short-names", "--telescope=T",
                                       "--filter=R", "--exclude", table + ":1;0", "--", output, table});
        EXPECT_EQ(end.status, 0) << end.out << end.err;
        EXPECT_THAT(end.out, HasSubstr(": good: 10 of 11 marks in 1 file\n"));
        EXPECT_EQ(namesIn(output), Names{"out " + name + ".mea"});
    }
}

TEST_F(Examples, TheSameFolderInOtherSpellings)
{
    const std::string own = fs::path(folder.path()).filename();
    for (const std::string& spelling :
         std::vector<std::string>{"out", "out/", "out//", "./out", "out/.", "../" + own + "/out"})
    {
        SCOPED_TRACE(spelling);
        EXPECT_EQ(report({"--to=mea", "--by=all", "--short-names", spelling, first}).status, 0);
        EXPECT_EQ(namesIn("out"), Names{"out.mea"});
        fs::remove("out/out.mea");
    }
    const std::string table = folder / first;
    const PresentFolder inside(folder / "out");
    for (const char* spelling : {".", "./", "../out", "../series/.."}) {
        SCOPED_TRACE(spelling);
        EXPECT_EQ(report({"-f", "--to=mea", "--by=all", "--short-names", spelling, table}).status, 0);
    }
    EXPECT_EQ(namesIn("."), Names{"out.mea"});
    EXPECT_TRUE(exists("../" + fs::path(folder.path()).filename().string() + ".mea"));
}

} // namespace
