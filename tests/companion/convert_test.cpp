#include "companion/golden.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

class GoldenConvert : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenConvert, PrintsAndLeavesWhatStandsInItsFolder)
{
    expectGoldenMade("convert", GetParam(), VOMAR_STAND_IN);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenConvert, testing::ValuesIn(goldenCases("convert")),
                         [](const auto& each) { return each.param; });

const std::string night = "T9 2000.0 UTC\n"
                          "12345   250223 1200000000 0100000000 +0030000000 001 09.50\n"
                          "67890   250223 1300000000 0200000000 -0030000000 001 10.50\n";

CommandEnd convert(std::vector<std::string> arguments, const std::string& tool = builtTool())
{
    arguments.insert(arguments.begin(), {"convert", "--vomar", tool});
    return callCommand(arguments);
}

// A file of the examples and what a task for it says by hand.
struct Source
{
    const char* file;
    const char* word;
    const char* telescope;
    const char* originator; // empty where the file says none
};

constexpr Source sources[] = {
    {"H21_20160611.mea", "mea", "H21", ""},
    {"807_20160609.tel", "telegram", "807", "MPC"},
    {"TFRM_20121029.tdm", "tdm", "TFRM", "ESA"},
    {"H21_20160607.ssm", "ssmas", "H21", ""},
};

// The word of an output and the suffix that asks for it.
constexpr const char* outputs[][2] = {
    {"mea", ".mea"},     {"telegram", ".tel"},    {"tdm", ".tdm"}, {"ssmas", ".ssmas"},
    {"mpc", ".mpc.txt"}, {"tdm.xml", ".tdm.xml"}, {"mag", ".mag"}, {"aavso", ".aavso.txt"},
};

std::string byHand(const Source& source, const std::string& word)
{
    return taskText({{"path_in", source.file},
                     {"out_dir", "byhand"},
                     {"outputextension", ".txt"},
                     {"inputformat", source.word},
                     {"outputformat", word},
                     {"originator", source.originator},
                     {"REFERENCE_FRAME", "ICRF"},
                     {"PARTICIPANT_1", source.telescope},
                     {"autoname", "false"},
                     {"path_res", "byhand/result.xml"}});
}

TEST(Convert, GivesTheBytesOfATaskWrittenByHand)
{
    for (const Source& source : sources) {
        const TemporaryFolder folder;
        const PresentFolder present(folder.path());
        fs::copy(std::string(VOMAR_PROJECT) + "/examples/" + source.file, source.file);
        fs::create_directory("byhand");
        for (const auto& [word, suffix] : outputs) {
            SCOPED_TRACE(std::string(source.word) + " to " + word);
            makeFile("task.xml", byHand(source, word));
            expectQuietEnd(runTool("task.xml"));
            const CommandEnd end = convert({"--verify=full", source.file, std::string("converted") + suffix});
            // Some reports are such that their receiver would refuse them: that is an error, and they are
            // made.
            const bool hasErrors = end.out.find(": findings: ") != std::string::npos;
            EXPECT_EQ(end.status, hasErrors ? 1 : 0) << end.out << end.err;
            const std::string name = fs::path(source.file).stem();
            EXPECT_EQ(bytesOf(std::string("converted") + suffix), bytesOf("byhand/" + name + ".txt"));
        }
    }
}

TEST(Convert, OptionsGiveTheBytesOfTheKeysOfATask)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    makeFile("task.xml", taskText({{"path_in", "./night.mea"},
                                   {"outputextension", ".tdm"},
                                   {"inputformat", "mea"},
                                   {"outputformat", "tdm"},
                                   {"originator", "A &lt; B"},
                                   {"REFERENCE_FRAME", "EME2000"},
                                   {"PARTICIPANT_1", "K88"},
                                   {"autoname", "true"}}));
    expectQuietEnd(runTool("task.xml"));
    const std::string name = "K88-12345-2023-02-25T12-00-00-.tdm";
    const std::string byHandBytes = bytesOf(name);
    EXPECT_THAT(byHandBytes, HasSubstr("ORIGINATOR = A < B\n"));
    fs::create_directory("out");
    EXPECT_EQ(convert({"--autoname", "--to=tdm", "--telescope=K88", "--originator=A < B", "--frame=EME2000",
                       "night.mea", "out"})
                  .out,
              "out: good: 2 of 2 marks in 1 file\n");
    EXPECT_EQ(bytesOf("out/" + name), byHandBytes);
}

TEST(Convert, KeptTaskGivesTheSameBytes)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    fs::create_directory("out");
    ASSERT_EQ(convert({"--keep-task=night.xml", "night.mea", "out/night2.kvn"}).status, 0);
    EXPECT_EQ(bytesOf("night.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<task>\n"
                                    "    <path_in>night.mea</path_in>\n"
                                    "    <out_dir>out</out_dir>\n"
                                    "    <outputextension>2.kvn</outputextension>\n"
                                    "    <inputformat>mea</inputformat>\n"
                                    "    <outputformat>tdm</outputformat>\n"
                                    "    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>\n"
                                    "    <PARTICIPANT_1>T9</PARTICIPANT_1>\n"
                                    "    <autoname>false</autoname>\n"
                                    "    <path_res>out/night2.result.xml</path_res>\n"
                                    "</task>\n");
    const std::string converted = bytesOf("out/night2.kvn");
    fs::remove("out/night2.kvn");
    expectQuietEnd(runTool("night.xml"));
    EXPECT_EQ(bytesOf("out/night2.kvn"), converted);
    EXPECT_THAT(resultOf("out/night2.result.xml"), HasSubstr("<Code>0</Code>"));
}

// Names that shells, XML, terminals or the tool's own parser could take for something else.
TEST(Convert, OddNames)
{
    for (const std::string name :
         {"a b", " blanks ", "n\xc3\xa4", "line\nfeed", "re\rturn", "-minus", "--to", "latin\xe9", "\xe9",
          "it's", "a&b<c>", "&#65;", "]]>", "\"quoted\"", "tab\t", "\xf0\x9f\x8c\x91"})
    {
        SCOPED_TRACE(testing::PrintToString(name));
        const TemporaryFolder folder;
        const PresentFolder present(folder.path());
        makeFile(name + ".mea", night);
        fs::create_directory(name);
        const std::string output = name + '/' + name + ".tdm";
        const CommandEnd end = convert({"--keep-task", name + ".xml", "--", name + ".mea", output});
        EXPECT_EQ(end.status, 0) << end.out << end.err;
        EXPECT_THAT(end.out, HasSubstr(".tdm: good: 2 of 2 marks in 1 file\n"));
        EXPECT_EQ(namesIn("."), (Names{name, name + ".mea", name + ".xml"}));
        EXPECT_EQ(namesIn(name), Names{name + ".tdm"});
        const std::string converted = bytesOf(output);
        EXPECT_THAT(converted, HasSubstr("PARTICIPANT_2 = 12345\n"));
        fs::remove(output);
        expectQuietEnd(runTool(name + ".xml"));
        EXPECT_EQ(bytesOf(output), converted);
        EXPECT_EQ(convert({"--json", "-f", "--", name + ".mea", output}).status, 0);
    }
}

TEST(Convert, OddNamesAreShownAsTheyCanBe)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    EXPECT_EQ(convert({"night.mea", "latin\xe9.tdm"}).out, "latin\\xE9.tdm: good: 2 of 2 marks in 1 file\n");
    const std::string json = convert({"--json", "-f", "night.mea", "latin\xe9.tdm"}).out;
    EXPECT_THAT(
        json,
        HasSubstr("\"output\":{\"path\":\"latin\xef\xbf\xbd.tdm\",\"bytes\":\"6c6174696ee92e74646d\","));
    EXPECT_EQ(json.find(".tavelin-"), std::string::npos) << json;
}

TEST(Convert, NamesOfTheLongestLength)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    const std::string longest = std::string(251, 'n') + ".tdm";
    EXPECT_EQ(convert({"night.mea", longest}).status, 0);
    EXPECT_EQ(convert({"night.mea", 'n' + longest}).status, 2);
    EXPECT_EQ(namesIn("."), (Names{"night.mea", longest}));
}

TEST(Convert, FolderThatCannotBeWrittenIsTold)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    const CommandEnd end = convert({"night.mea", "/proc/night.tdm"}); // not even by root
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, testing::MatchesRegex("tavelin: /proc: .* .V003.\n"));
}

TEST(Convert, NewFileHasTheUsualRightsAndAReplacedOneKeepsItsOwn)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    convert({"night.mea", "night.tdm"});
    EXPECT_EQ(fs::status("night.tdm").permissions(), fs::status("night.mea").permissions());
    fs::permissions("night.tdm", fs::perms(0600));
    convert({"-f", "night.mea", "night.tdm"});
    EXPECT_EQ(fs::status("night.tdm").permissions(), fs::perms(0600));
}

TEST(Convert, LinkIsReplacedAndNotWrittenThrough)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    makeFile("other", "of another\n");
    fs::create_symlink("other", "night.tdm");
    EXPECT_EQ(convert({"night.mea", "night.tdm"}).status, 2);
    EXPECT_EQ(convert({"-f", "night.mea", "night.tdm"}).status, 0);
    EXPECT_FALSE(fs::is_symlink("night.tdm"));
    EXPECT_EQ(bytesOf("other"), "of another\n");
}

TEST(Convert, WithoutAToolTheStatusIsTwo)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    const CommandEnd end = convert({"night.mea", "night.tdm"}, "./missing");
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: no vomar that can be run at ./missing [V402]\n");
    EXPECT_EQ(namesIn("."), Names{"night.mea"});
}

TEST(Convert, WrongValuesOfOptionsAreUsage)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    for (const char* option : {"--time-limit=0", "--memory-limit=1M", "--verify=all", "--allow=V999",
                               "--to=mae", "--from=", "--from=MEA", "--anyway", "--jobs=2"})
    {
        const CommandEnd end = convert({option, "night.mea", "night.tdm"});
        EXPECT_EQ(end.status, 2) << option;
        EXPECT_THAT(end.err, StartsWith("tavelin: ")) << option;
        EXPECT_EQ(namesIn("."), Names{"night.mea"}) << option;
    }
}

TEST(Convert, TimesAreShownOnlyWhereTheyAreWanted)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    EXPECT_THAT(convert({"--times", "night.mea", "a.tdm"}).out,
                testing::ContainsRegex("in 1 file \\([0-9.]+ s, [0-9.]+ MB\\)\n$"));
    EXPECT_THAT(convert({"--times", "--json", "night.mea", "b.tdm"}).out,
                testing::ContainsRegex("\"began\":[0-9.]+,\"seconds\":[0-9.]+,"));
}

// The program, started in the present folder.
pid_t startCommand(std::vector<std::string> arguments)
{
    const pid_t process = fork();
    if (process == 0) {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        std::vector<char*> call{const_cast<char*>(VOMAR_COMMAND)};
        for (std::string& each : arguments) {
            call.push_back(each.data());
        }
        call.push_back(nullptr);
        execv(VOMAR_COMMAND, call.data());
        _exit(127);
    }
    return process;
}

TEST(Convert, SignalLeavesNothing)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t process =
            startCommand({"convert", "--vomar", VOMAR_STAND_IN, "night.mea", "hangs-1.tdm"});
        const auto isRunning = [] {
            const Names names = namesIn(".");
            const auto own = std::find_if(names.begin(), names.end(), [](const std::string& name) {
                return name.starts_with(".tavelin-");
            });
            return own != names.end() && exists(*own + "/hangs-1.xml");
        };
        for (int i = 0; i < 5000 && !isRunning(); ++i) {
            usleep(1000);
        }
        usleep(50'000);
        kill(process, signal);
        int status = 0;
        waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(namesIn("."), Names{"night.mea"});
    }
}

TEST(Convert, StandardInputMayBeAPipe)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeFile("night.mea", night);
    const std::string command = std::string("cat night.mea | ") + VOMAR_COMMAND + " convert --vomar " +
                                builtTool() + " --to=tdm - - >piped 2>said";
    EXPECT_EQ(std::system(command.c_str()), 0);
    convert({"night.mea", "night.tdm"});
    EXPECT_EQ(bytesOf("piped"), bytesOf("night.tdm"));
    EXPECT_EQ(bytesOf("said"), "-: good: 2 of 2 marks in 1 file\n");
}

} // namespace
