#include "companion/golden.h"

#include "support/child_process.h"
#include "support/folders.h"
#include "support/locales.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class GoldenRun : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenRun, PrintsWhatStandsInItsFolder)
{
    expectGoldenRun(GetParam(), VOMAR_STAND_IN);
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenRun, testing::ValuesIn(goldenCases("run")),
                         [](const auto& each) { return each.param; });

std::string conversion(const std::string& input, const std::string& folder = "out")
{
    return "<task><path_in>./" + input + "</path_in><out_dir>" + folder +
           "</out_dir><outputextension>.txt</outputextension><inputformat>mea</inputformat>"
           "<outputformat>mea</outputformat><originator>K88</originator><PARTICIPANT_1>T9</PARTICIPANT_1>"
           "<REFERENCE_FRAME>ICRF</REFERENCE_FRAME><autoname>false</autoname><path_res>" +
           folder + "/" + input + ".result</path_res></task>\n";
}

// A folder with inputs and tasks, which is the present one.
class Tasks
{
public:
    explicit Tasks(const std::vector<std::string>& tasks) : names(tasks), present(folder.path())
    {
        fs::create_directory("out");
        for (const std::string& name : names) {
            makeFile(name + ".mea", "T9 2000.0 UTC\n"
                                    "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
            makeFile(name + ".xml", conversion(name + ".mea"));
        }
    }

    CommandEnd run(std::vector<std::string> options = {}, const std::string& tool = VOMAR_STAND_IN) const
    {
        std::vector<std::string> call{"run", "--vomar", tool};
        call.insert(call.end(), options.begin(), options.end());
        for (const std::string& name : names) {
            call.push_back(name + ".xml");
        }
        return callCommand(call);
    }

    std::vector<std::string> names;
    TemporaryFolder folder;
    PresentFolder present;
};

// The folder for temporary files is one of its own, so that what runs leave there can be told.
class OwnTemporaryFiles
{
public:
    OwnTemporaryFiles()
    {
        const char* const set = std::getenv("TMPDIR");
        before = set == nullptr ? "" : set;
        setenv("TMPDIR", folder.path().c_str(), 1);
    }
    ~OwnTemporaryFiles()
    {
        before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", before.c_str(), 1);
    }
    OwnTemporaryFiles(const OwnTemporaryFiles&) = delete;
    OwnTemporaryFiles& operator=(const OwnTemporaryFiles&) = delete;

    // Folders of runs that are left.
    Names left() const
    {
        Names names = namesIn(folder.path());
        std::erase_if(names, [](const std::string& name) { return !name.starts_with("tavelin-"); });
        return names;
    }

private:
    TemporaryFolder folder;
    std::string before;
};

TEST(Run, RunsTheToolItself)
{
    const Tasks tasks({"night"});
    const CommandEnd end = tasks.run({"--verify", "full"}, builtTool());
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.out, "night.xml: good: 1 of 1 mark in 1 file\n");
    EXPECT_THAT(bytesOf("out/night.txt"), HasSubstr("12345"));
}

TEST(Run, WithoutAToolTheStatusIsTwo)
{
    const Tasks tasks({"night"});
    const CommandEnd end = tasks.run({}, "./missing");
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: no vomar that can be run at ./missing [V402]\n");
    EXPECT_EQ(end.out, "");
}

TEST(Run, ToolThatVanishesFailsTheTask)
{
    const Tasks tasks({"night"});
    makeFile("tool", "#!/no/such/interpreter\n");
    fs::permissions("tool", fs::perms::owner_all);
    const CommandEnd end = tasks.run({}, "./tool");
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out, HasSubstr("tool: No such file or directory [V003]\n"));
}

#if !defined(VOMAR_SANITIZED)
TEST(Run, MemoryLimitIsToldByItsCode)
{
    const Tasks tasks({"eats-1"});
    const CommandEnd end = tasks.run({"--memory-limit=256M"});
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out,
                HasSubstr("eats-1.xml: failed: the run was out of memory at its limit of 256M [V413]\n"));
    EXPECT_THAT(tasks.run({"--memory-limit=256M", "--json"}).out,
                HasSubstr(R"("status":"limit","ended":{"status":null,"signal":"SIGABRT","limit":"memory"})"));
}
#endif

TEST(Run, AccountsThatDisagreeAreAnError)
{
    const Tasks tasks({"night"});
    const std::string command =
        VOMAR_MISCOUNTING_COMMAND " run night.xml -v --vomar " VOMAR_STAND_IN " >shown";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    const std::string shown = bytesOf("shown");
    EXPECT_THAT(shown, HasSubstr("night.xml: error: the accounts do not agree: the marks of the readers, 1, "
                                 "and of the plan, 2 [V490]\n"));
    EXPECT_THAT(shown, HasSubstr("night.xml: findings: 1 of 2 marks in 1 file; 2 errors"));
}

TEST(Run, WrongValuesOfOptionsAreUsage)
{
    const Tasks tasks({"night"});
    for (const char* option :
         {"--jobs=x", "--jobs=-1", "--stop-after=1.5", "--time-limit=0", "--time-limit=1y",
          "--memory-limit=1M", "--memory-limit=x", "--verify=all", "--allow=V999", "--allow=x", "--resume"})
    {
        const CommandEnd end = tasks.run({option});
        EXPECT_EQ(end.status, 2) << option;
        EXPECT_THAT(end.err, StartsWith("tavelin: ")) << option;
        EXPECT_EQ(end.out, "") << option;
    }
}

TEST(Run, StopsAfterSoManyFailures)
{
    const Tasks tasks({"dies-1", "dies-2", "plain"});
    const CommandEnd end = tasks.run({"--stop-after=2"});
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out,
                EndsWith("plain.xml: left out: 2 tasks before it had failed\n"
                         "3 tasks: 0 good, 2 failed, 0 refused, 1 left out; 0 of 2 marks written\n"));
    EXPECT_FALSE(exists("out/plain.txt"));
}

TEST(Run, FallbackLogIsReadAndRemoved)
{
    const OwnTemporaryFiles temporary;
    const Tasks tasks({"unloaded-1"});
    EXPECT_THAT(tasks.run().out,
                HasSubstr("failed: the result reports code 7 where the plan expects code 0 [V400]"));
    EXPECT_THAT(temporary.left(), IsEmpty());
    EXPECT_FALSE(exists(std::string(VOMAR_STAND_IN) + ".log"));
}

TEST(Run, JobLogHasALineForEachTask)
{
    const Tasks tasks({"plain", "dies-1", "exits-1"});
    tasks.run({"--joblog=log"});
    const std::string log = bytesOf("log");
    EXPECT_THAT(
        log, StartsWith("Seq\tHost\tStarttime\tJobRuntime\tSend\tReceive\tExitval\tSignal\tCommand\n1\t:\t"));
    EXPECT_THAT(log, HasSubstr(std::string("\t0\t0\t0\t0\t") + VOMAR_STAND_IN + " plain.xml\n2\t:\t"));
    EXPECT_THAT(log, HasSubstr(std::string("\t0\t0\t1\t6\t") + VOMAR_STAND_IN + " dies-1.xml\n3\t:\t"));
    EXPECT_THAT(log, EndsWith(std::string("\t0\t0\t3\t0\t") + VOMAR_STAND_IN + " exits-1.xml\n"));
}

TEST(Run, JobLogIsNotReplacedUnasked)
{
    const Tasks tasks({"plain"});
    EXPECT_EQ(tasks.run({"--joblog=log"}).status, 0);
    EXPECT_EQ(tasks.run({"--joblog=log"}).err, "tavelin: log exists; --force would replace it [V004]\n");
    EXPECT_EQ(tasks.run({"--joblog=log", "-f"}).status, 0);
    EXPECT_EQ(tasks.run({"--joblog=./plain.xml", "-f"}).err,
              "tavelin: ./plain.xml is the input itself [V005]\n");
    EXPECT_THAT(bytesOf("plain.xml"), StartsWith("<task>"));
    EXPECT_EQ(tasks.run({"--joblog=missing/log"}).status, 2);
}

TEST(Run, ResumeLeavesOutWhatEndedWellAndStands)
{
    const Tasks tasks({"plain", "dies-1", "other"});
    tasks.run({"--joblog=log"});
    const CommandEnd again = tasks.run({"--joblog=log", "--resume"});
    const std::string why =
        "left out: it ended well before, and its files are newer than what they are made of\n";
    EXPECT_THAT(again.out, StartsWith("plain.xml: " + why));
    EXPECT_THAT(again.out, HasSubstr("dies-1.xml: failed: "));

    fs::remove("out/plain.txt");
    EXPECT_THAT(tasks.run({"--joblog=log", "--resume"}).out, StartsWith("plain.xml: good: "));
    fs::last_write_time("plain.mea", fs::last_write_time("out/plain.txt") + std::chrono::seconds(2));
    EXPECT_THAT(tasks.run({"--joblog=log", "--resume"}).out, StartsWith("plain.xml: good: "));
}

TEST(Run, ResumeLooksAtTheConfigurationsOfSeries)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    fs::copy(fs::path(VOMAR_PROJECT) / "tests/companion/run/settings_changed/series", "series",
             fs::copy_options::recursive);
    fs::create_directory("out");
    makeFile("report.xml",
             bytesOf(std::string(VOMAR_PROJECT) + "/tests/companion/run/settings_changed/configures-1.xml"));
    const auto run = [] {
        return callCommand({"run", "--vomar", VOMAR_STAND_IN, "--joblog=log", "--resume", "report.xml"}).out;
    };
    EXPECT_THAT(run(), StartsWith("report.xml: good: "));
    EXPECT_THAT(run(), StartsWith("report.xml: left out: "));
    const auto later = fs::file_time_type::clock::now() + std::chrono::seconds(2);
    fs::last_write_time("series/night1/night1.conf", later);
    EXPECT_THAT(run(), StartsWith("report.xml: good: "));
}

TEST(Run, ResumedTasksAreGood)
{
    const Tasks tasks({"plain"});
    tasks.run({"--joblog=log"});
    EXPECT_EQ(tasks.run({"--joblog=log", "--resume"}).status, 0);
    EXPECT_THAT(tasks.run({"--joblog=log", "--resume", "--json"}).out,
                HasSubstr(R"({"task":"plain.xml","status":"left out","reason":"it ended well before)"));
}

TEST(Run, TaskThatReadsWhatAnotherWritesWaitsForIt)
{
    Tasks tasks({"slow-1", "second"});
    makeFile("second.xml", conversion("out/slow-1.txt", "./"));
    for (const char* jobs : {"-j1", "-j2"}) {
        const CommandEnd end = tasks.run({jobs});
        EXPECT_EQ(end.out, "slow-1.xml: good: 1 of 1 mark in 1 file\n"
                           "second.xml: good: 1 of 1 mark in 1 file\n"
                           "2 tasks: 2 good, 0 failed, 0 refused; 2 of 2 marks written\n");
        fs::remove("out/slow-1.txt");
    }
}

// It comes from a pipe, and is looked at again once the first task has ended.
TEST(Run, TaskOfTheStandardInputWaitsToo)
{
    const Tasks tasks({"slow-1"});
    makeFile("second.xml", conversion("out/slow-1.txt", "./"));
    const std::string command = std::string("cat second.xml | ") + VOMAR_COMMAND + " run -j2 --vomar " +
                                VOMAR_STAND_IN + " --joblog log slow-1.xml - >printed";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(bytesOf("printed"), "slow-1.xml: good: 1 of 1 mark in 1 file\n"
                                  "-: good: 1 of 1 mark in 1 file\n"
                                  "2 tasks: 2 good, 0 failed, 0 refused; 2 of 2 marks written\n");
    EXPECT_THAT(bytesOf("log"), EndsWith(std::string(VOMAR_STAND_IN) + " -\n"));
    const std::string again = std::string(VOMAR_COMMAND) + " run --vomar " + VOMAR_STAND_IN +
                              " --joblog log --resume - <second.xml >printed";
    EXPECT_EQ(std::system(again.c_str()), 0);
    EXPECT_EQ(bytesOf("printed"), "-: good: 1 of 1 mark in 1 file\n");
}

// The quick tasks end while the file of the slow one stands beside theirs, in one folder of three spellings.
// Only what nobody plans is told, and whose it is stays open where several run at once.
TEST(Run, FilesOfAnotherRunningTaskAreNoStrangers)
{
    const Tasks tasks({"lingers-1", "plain", "leaves-1"});
    fs::create_directory_symlink("out", "link");
    makeFile("plain.xml", conversion("plain.mea", "./link"));
    makeFile("leaves-1.xml", conversion("leaves-1.mea", "link/../out/"));
    const std::string told = "warning: 1 file appeared that the plan does not know: ";
    const std::string doubt = "; another task that is running may have written there";
    const auto run = [&tasks](const char* jobs) {
        const std::string out = tasks.run({jobs}).out;
        for (const auto& each : fs::directory_iterator("out")) {
            fs::remove(each);
        }
        return out;
    };
    const std::string start = "lingers-1.xml: good: 1 of 1 mark in 1 file\n"
                              "plain.xml: good: 1 of 1 mark in 1 file\n"
                              "leaves-1.xml: " +
                              told + "link/../out/left.txt";
    const std::string end = " [V418]\n"
                            "leaves-1.xml: good: 1 of 1 mark in 1 file\n"
                            "3 tasks: 3 good, 0 failed, 0 refused; 3 of 3 marks written\n";
    EXPECT_EQ(run("-j1"), start + end);
    EXPECT_EQ(run("-j2"), start + doubt + end);
    const std::string all = run("-j3");
    const ReferenceLocale reference; // in which "a-z" are the letters from a to z
    EXPECT_THAT(all,
                ContainsRegex("(plain|leaves-1).xml: " + told + "[a-z./]*/left.txt" + doubt + " .V418.\n"));
    EXPECT_EQ(all.find("V418"), all.rfind("V418"));
}

TEST(Run, TimesAreShownOnlyWhereTheyAreWanted)
{
    const Tasks tasks({"plain"});
    EXPECT_THAT(tasks.run({"--times"}).out, ContainsRegex("in 1 file \\([0-9.]+ s, [0-9.]+ MB\\)\n$"));
    EXPECT_THAT(tasks.run({"--json"}).out, Not(HasSubstr("seconds")));
    EXPECT_THAT(tasks.run({"--json", "--times"}).out,
                ContainsRegex("\"began\":[0-9.]+,\"seconds\":[0-9.]+,"));
}

#ifdef VOMAR_SANITIZED
constexpr int manyTasks = 100; // processes with a sanitizer start slowly
constexpr const char* manyTold = "100 tasks: 99 good, 1 failed, 0 refused; 99 of 100 marks written\n";
#else
constexpr int manyTasks = 1000;
constexpr const char* manyTold = "1,000 tasks: 990 good, 10 failed, 0 refused; 990 of 1,000 marks written\n";
#endif

TEST(Run, AThousandTasksPrintTheSameTwoAtOnce)
{
    const OwnTemporaryFiles temporary;
    std::vector<std::string> names;
    for (int i = 0; i < manyTasks; ++i) {
        names.push_back((i % 100 == 50 ? "dies-" : "plain-") + std::to_string(i));
    }
    const Tasks tasks(names);
    const CommandEnd one = tasks.run({}, VOMAR_STAND_IN);
    EXPECT_EQ(one.status, 1);
    EXPECT_THAT(one.out, EndsWith(manyTold));
    for (const auto& each : fs::directory_iterator("out")) {
        fs::remove(each);
    }
    EXPECT_EQ(tasks.run({"-j2"}).out, one.out);
    EXPECT_THAT(temporary.left(), IsEmpty());
    EXPECT_EQ(namesIn("out").size(), 2u * (manyTasks - manyTasks / 100));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a zombie is left";
}

TEST(Run, OddNamesOfTasks)
{
    for (const char* name : {"a b", "n\xc3\xa4", "line\nfeed", "-minus", "latin\xe9", "it's"}) {
        SCOPED_TRACE(name);
        const Tasks tasks({"plain"});
        fs::rename("plain.xml", std::string(name) + ".xml");
        const CommandEnd end =
            callCommand({"run", "--vomar", VOMAR_STAND_IN, "--joblog=log", "--", std::string(name) + ".xml"});
        EXPECT_EQ(end.status, 0);
        EXPECT_THAT(end.out, HasSubstr(".xml: good: 1 of 1 mark in 1 file\n"));
        EXPECT_THAT(callCommand({"run", "--vomar", VOMAR_STAND_IN, "--joblog=log", "--resume", "--",
                                 std::string(name) + ".xml"})
                        .out,
                    HasSubstr("left out"));
    }
}

// Variables of an environment; a null pointer stands for none.
using Variables = std::vector<std::pair<const char*, const char*>>;

// The command on a pseudo terminal.
class Terminal
{
public:
    explicit Terminal(const std::vector<std::string>& arguments, unsigned short columns = 80,
                      const Variables& variables = {{"TERM", "xterm"}, {"NO_COLOR", nullptr}})
    {
        winsize size{24, columns, 0, 0};
        process = forkpty(&terminal, nullptr, nullptr, &size);
        if (process == 0) {
            for (const auto& [name, value] : variables) {
                value == nullptr ? unsetenv(name) : setenv(name, value, 1);
            }
            std::vector<char*> call{const_cast<char*>(VOMAR_COMMAND)};
            for (const std::string& each : arguments) {
                call.push_back(const_cast<char*>(each.c_str()));
            }
            call.push_back(nullptr);
            execv(VOMAR_COMMAND, call.data());
            _exit(127);
        }
    }
    ~Terminal()
    {
        close(terminal);
    }

    /// Reads until the text has come, or all.
    void readUntil(const std::string& text)
    {
        char bytes[4096];
        ssize_t count = 0;
        while ((text.empty() || shown.find(text) == shown.npos) &&
               (count = read(terminal, bytes, sizeof bytes)) > 0) {
            shown.append(bytes, static_cast<std::size_t>(count));
        }
    }

    void press(char key) const
    {
        EXPECT_EQ(write(terminal, &key, 1), 1);
    }

    /// The status as the system gives it.
    int end()
    {
        readUntil("");
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return status;
    }

    std::string shown;

private:
    int terminal = -1;
    pid_t process = -1;
};

TEST(RunOnATerminal, SeveritiesAreColored)
{
    const Tasks tasks({"elsewhere-1"});
    Terminal terminal({"run", "--vomar", VOMAR_STAND_IN, "elsewhere-1.xml"});
    terminal.end();
    EXPECT_THAT(terminal.shown,
                ContainsRegex("elsewhere-1.xml: .\\[[0-9;]+mwarning.\\[[0-9;]*m: 1 file appeared"));
    fs::remove("out/elsewhere.txt");
    Terminal never({"run", "--color=never", "--vomar", VOMAR_STAND_IN, "elsewhere-1.xml"});
    never.end();
    EXPECT_THAT(never.shown, HasSubstr("elsewhere-1.xml: warning: "));
}

TEST(RunOnATerminal, ColorIsForTerminalsThatShowItAndUsersWhoWantIt)
{
    const std::pair<Variables, bool> all[] = {
        {{{"TERM", "xterm"}, {"NO_COLOR", nullptr}}, true},
        {{{"TERM", nullptr}, {"NO_COLOR", nullptr}}, true},
        {{{"TERM", "xterm"}, {"NO_COLOR", ""}}, true},
        {{{"TERM", "dumb"}, {"NO_COLOR", nullptr}}, false},
        {{{"TERM", "xterm"}, {"NO_COLOR", "1"}}, false},
    };
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<task><path_in>");
    for (const auto& [variables, isColored] : all) {
        Terminal terminal({"check", folder / "a.xml"}, 80, variables);
        terminal.end();
        EXPECT_THAT(terminal.shown, HasSubstr("error"));
        EXPECT_EQ(terminal.shown.find('\x1b') != std::string::npos, isColored) << terminal.shown;
    }
}

TEST(RunOnATerminal, LongWorkShowsItsProgressAndWipesIt)
{
    const Tasks tasks({"slow-1"});
    for (const unsigned short columns :
         {std::uint16_t{0}, std::uint16_t{12}, std::uint16_t{20}, std::uint16_t{200}})
    {
        Terminal terminal({"run", "--vomar", VOMAR_STAND_IN, "slow-1.xml"}, columns);
        EXPECT_EQ(terminal.end(), 0);
        EXPECT_THAT(terminal.shown, HasSubstr("0 of 1 task")) << columns;
        EXPECT_THAT(terminal.shown, HasSubstr(" \rslow-1.xml: good: ")) << columns;
        const std::size_t bar = terminal.shown.find('\r');
        EXPECT_LE(terminal.shown.find('\r', bar + 1) - bar, columns == 0 ? 80 : columns); // 0: not known
    }
    Terminal none({"run", "--progress=none", "--vomar", VOMAR_STAND_IN, "slow-1.xml"});
    none.end();
    EXPECT_EQ(none.shown, "slow-1.xml: good: 1 of 1 mark in 1 file\r\n");
}

TEST(RunOnATerminal, ControlCEndsTheChildrenAndTheCommand)
{
    const OwnTemporaryFiles temporary;
    const Tasks tasks({"plain", "hangs-1", "other"});
    Terminal terminal(
        {"run", "--joblog=log", "--vomar", VOMAR_STAND_IN, "plain.xml", "hangs-1.xml", "other.xml"});
    terminal.readUntil("1 of 3 tasks");
    terminal.press('\x03');
    const int status = terminal.end();
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGINT);
    EXPECT_THAT(terminal.shown, HasSubstr("hangs-1.xml: failed: the run was ended by SIGTERM [V411]\r\n"));
    EXPECT_THAT(terminal.shown, HasSubstr("other.xml: left out: ended by SIGINT before its turn\r\n"));
    EXPECT_THAT(bytesOf("log"), EndsWith(" hangs-1.xml\n"));
    EXPECT_FALSE(exists("out/other.txt"));
    EXPECT_THAT(temporary.left(), IsEmpty());
}

TEST(Run, BrokenPipeEndsItByItsSignal)
{
    const OwnTemporaryFiles temporary;
    const Tasks tasks({"plain", "slow-1", "other"});
    const std::string command = std::string("bash -c '") + VOMAR_COMMAND + " run --vomar " + VOMAR_STAND_IN +
                                " plain.xml slow-1.xml other.xml | head -0; exit ${PIPESTATUS[0]}'";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 128 + SIGPIPE);
    EXPECT_THAT(temporary.left(), IsEmpty());
}

} // namespace
