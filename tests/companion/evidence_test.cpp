#include "findings/finding.h"
#include "running/evidence.h"
#include "running/job_log.h"

#include "results/result_files.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace companion;
using testing::ElementsAre;
using testing::IsEmpty;

FileChange changeBy(const std::function<void(const std::string&)>& work, bool isThere = true)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    if (isThere) {
        makeFile(path, "bytes");
    }
    const FileState before = settledState(path);
    work(path);
    return changeOf(before, fileState(path));
}

TEST(Evidence, FileThatIsWrittenAnewWithTheSameBytesHasChanged)
{
    for (int round = 0; round < 50; ++round) {
        ASSERT_EQ(changeBy([](const std::string& path) { makeFile(path, "bytes"); }), FileChange::changed);
    }
}

TEST(Evidence, FileThatIsReplacedHasChanged)
{
    EXPECT_EQ(changeBy([](const std::string& path) {
                  makeFile(path + ".new", "bytes");
                  std::filesystem::rename(path + ".new", path);
              }),
              FileChange::changed);
}

TEST(Evidence, FileThatIsReadIsTheSame)
{
    EXPECT_EQ(changeBy([](const std::string& path) { bytesOf(path); }), FileChange::same);
}

TEST(Evidence, FilesAppearAndGo)
{
    const auto write = [](const std::string& path) { makeFile(path, ""); };
    EXPECT_EQ(changeBy(write, false), FileChange::fresh);
    EXPECT_EQ(changeBy([](const std::string& path) { std::filesystem::remove(path); }), FileChange::missing);
    EXPECT_EQ(changeBy([](const std::string&) {}, false), FileChange::missing);
    EXPECT_EQ(changeWord(FileChange::fresh), "new");
    EXPECT_EQ(changeWord(FileChange::changed), "changed");
    EXPECT_EQ(changeWord(FileChange::same), "same");
    EXPECT_EQ(changeWord(FileChange::missing), "missing");
}

TEST(Evidence, DocumentIsNewByItsDate)
{
    const TemporaryFolder folder;
    const std::string path = folder / "result.xml";
    tavelinUtils::SaveLogCode(path, 7, "Error opening file", "in/a & b.mea");
    const ResultEvidence evidence(path);
    EXPECT_THAT(evidence.fresh(), IsEmpty());
    makeFile(path, bytesOf(path)); // written again, and yet of the earlier run
    EXPECT_THAT(evidence.fresh(), IsEmpty());
    tavelinUtils::SaveLogCode(path, 0, "OK", "out/a.tdm");
    const auto fresh = evidence.fresh();
    ASSERT_EQ(fresh.size(), 1u);
    EXPECT_EQ(fresh[0].code, 0);
    EXPECT_EQ(fresh[0].comment, "OK");
    EXPECT_EQ(fresh[0].description, "out/a.tdm");
}

TEST(Evidence, LinesBehindTheOldSizeOfALogAreNew)
{
    const TemporaryFolder folder;
    const std::string path = folder / "result.log";
    tavelinUtils::SaveLogCode(path, 7, "Error opening file", "first");
    const ResultEvidence evidence(path);
    EXPECT_THAT(evidence.fresh(), IsEmpty());
    tavelinUtils::SaveLogCode(path, -1, "in//a.mea", "two\nlines//");
    tavelinUtils::SaveLogCode(path, 0, "OK", "");
    const auto fresh = evidence.fresh();
    ASSERT_EQ(fresh.size(), 2u);
    EXPECT_EQ(fresh[0].code, -1);
    EXPECT_EQ(fresh[0].comment + "//" + fresh[0].description, "in//a.mea//two\nlines//");
    EXPECT_EQ(fresh[1].code, 0);
    EXPECT_EQ(fresh[1].comment, "OK");
    EXPECT_EQ(fresh[1].description, "");
}

TEST(Evidence, ResultThatWasNotThereIsNew)
{
    const TemporaryFolder folder;
    const ResultEvidence evidence(folder / "a.result");
    EXPECT_THAT(evidence.fresh(), IsEmpty());
    tavelinUtils::SaveLogCode(folder / "a.result", 0, "OK", "OK");
    EXPECT_EQ(evidence.fresh().size(), 1u);
    EXPECT_THAT(ResultEvidence("").fresh(), IsEmpty());
}

TEST(Evidence, BrokenResultsHaveNoEntries)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<ResultsList><Result>");
    EXPECT_THAT(resultsOfDocument(folder / "a.xml"), IsEmpty());
    makeFile(folder / "a.log", "no entry\n2024-03-09 04:05:06 Cod=7\n2024-03-09 04:05:06.5 x Code=7//a//b\n");
    EXPECT_THAT(resultsOfLog(folder / "a.log"), IsEmpty());
    makeFile(folder / "b.log", "2024-03-09 04:05:06.5 Code=7");
    EXPECT_THAT(resultsOfLog(folder / "b.log"), ElementsAre(ResultEntry{7, "", "", "2024-03-09 04:05:06.5"}));
    EXPECT_THAT(resultsOfLog(folder / "missing.log"), IsEmpty());
}

TEST(JobLog, HasTheNineColumnsOfGnuParallel)
{
    const TemporaryFolder folder;
    JobLog log(folder / "log", false);
    log.add({1, 1386253333.4451, 0.0062, 0, 0, "/usr/bin/vomar night.xml"});
    log.add({2, 1386253333.5, 12345678.9, -1, 15, "/usr/bin/vomar 'a b.xml'"});
    EXPECT_EQ(bytesOf(folder / "log"),
              "Seq\tHost\tStarttime\tJobRuntime\tSend\tReceive\tExitval\tSignal\tCommand\n"
              "1\t:\t1386253333.445\t     0.006\t0\t0\t0\t0\t/usr/bin/vomar night.xml\n"
              "2\t:\t1386253333.500\t12345678.900\t0\t0\t-1\t15\t/usr/bin/vomar 'a b.xml'\n");
}

TEST(JobLog, IsReadBackByItsCommands)
{
    const TemporaryFolder folder;
    const JobLine line{3, 1386253333.445, 0.006, 1, 9, "vomar " + shellWord("a\tb\nc'd\\.xml")};
    {
        JobLog log(folder / "log", false);
        log.add({1, 1, 1, 0, 0, line.command});
        log.add({2, 1, 1, 0, 0, "vomar b.xml"});
    }
    JobLog(folder / "log", true).add(line);
    const auto lines = readJobLog(folder / "log");
    EXPECT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines.at(line.command), line);
    JobLog(folder / "log", false);
    EXPECT_THAT(readJobLog(folder / "log"), IsEmpty());
}

TEST(JobLog, LineThatWasCutShortIsNone)
{
    const TemporaryFolder folder;
    JobLog(folder / "log", false).add({1, 1, 1, 0, 0, "vomar a.xml"});
    const std::string whole = bytesOf(folder / "log");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        makeFile(folder / "log", whole.substr(0, size));
        ASSERT_THAT(readJobLog(folder / "log"), IsEmpty());
    }
    makeFile(folder / "log", whole + "2\t:\t1.0");
    JobLog(folder / "log", true).add({2, 1, 1, 0, 0, "vomar b.xml"});
    EXPECT_EQ(readJobLog(folder / "log").size(), 2u);
}

TEST(JobLog, FailedWritesAreTold)
{
    const TemporaryFolder folder;
    EXPECT_THROW(JobLog(folder / "missing/log", false), WrongUsage);
    EXPECT_THROW(JobLog("/dev/full", false), WrongUsage);
}

TEST(JobLog, WordsAreAsAShellTakesThem)
{
    for (const char* word :
         {"", "night.xml", "a b", "it's", "$HOME", "-x", "\xc3\xa4.xml", "a\nb", "a'\t\\b", "~"})
    {
        const TemporaryFolder folder;
        const std::string command = "printf %s " + shellWord(word) + " > '" + folder / "said" + "'";
        makeFile(folder / "script", command);
        ASSERT_EQ(std::system(("bash '" + folder / "script" + "'").c_str()), 0);
        EXPECT_EQ(bytesOf(folder / "said"), word);
        EXPECT_EQ(shellWord(word).find_first_of("\n\t"), std::string::npos);
    }
}

TEST(Evidence, LogThatIsReplacedIsNewAsAWhole)
{
    const TemporaryFolder folder;
    const std::string path = folder / "result.log";
    tavelinUtils::SaveLogCode(path, 7, "Error opening file", "first");
    const ResultEvidence evidence(path);
    tavelinUtils::SaveLogCode(folder / "other.log", 0, "OK", "a longer description than the first");
    std::filesystem::rename(folder / "other.log", path);
    EXPECT_EQ(evidence.fresh().size(), 1u);
}

TEST(Evidence, LogThatHasBecomeShorterIsNewAsAWhole)
{
    const TemporaryFolder folder;
    const std::string path = folder / "result.log";
    tavelinUtils::SaveLogCode(path, 7, "Error opening file", "a longer description than the next");
    const ResultEvidence evidence(path);
    std::filesystem::resize_file(path, 0);
    tavelinUtils::SaveLogCode(path, 0, "OK", "");
    EXPECT_EQ(evidence.fresh().size(), 1u);
}

// Where sleeping is refused, the clock stays within its tick in most rounds.
TEST(Evidence, ClockThatStaysBehindAFileIsNotWaitedForLong)
{
    const TemporaryFolder folder;
    const auto settle = [&folder] {
        setFaults({{SYS_clock_nanosleep, EINTR}});
        for (int round = 0; round < 100; ++round) {
            makeFile(folder / "a.txt", "bytes");
            if (settledState(folder / "a.txt") != fileState(folder / "a.txt")) {
                _exit(1);
            }
        }
    };
    EXPECT_EQ(statusOfChild(settle), 0);
}

TEST(JobLog, LineThatDoesNotFitTheDiskIsTold)
{
    const TemporaryFolder folder;
    const auto add = [&folder] {
        JobLog log(folder / "log", false);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit most{100, 100};
        setrlimit(RLIMIT_FSIZE, &most);
        log.add({1, 1, 1, 0, 0, std::string(100'000, 'x')});
        _exit(10);
    };
    EXPECT_EQ(WEXITSTATUS(statusOfChild(add)), 1); // by an exception
}

TEST(JobLog, ControlsOfAWordAreEscaped)
{
    EXPECT_EQ(shellWord("a\x7f"), "$'a\\177'");
}

} // namespace
