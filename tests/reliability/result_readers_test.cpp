// Logs and result documents that several processes use at a time: a log line and a document go out in one
// write.

#include "results/code_table.h"
#include "results/result_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

// Runs a work in so many processes at a time, each with its number, and waits for them.
void inProcesses(int count, const std::function<void(int)>& work)
{
    for (int number = 0; number < count; ++number) {
        if (fork() == 0) {
            work(number);
            _exit(0);
        }
    }
    int status = 0;
    while (wait(&status) > 0) {
        EXPECT_EQ(status, 0);
    }
}

constexpr std::size_t textSize = 64 * 1024;

std::string textOf(int process)
{
    return std::string(textSize, static_cast<char>('a' + process));
}

// The count of lines by process; a line that is not one of theirs counts as torn.
struct CountedLines
{
    std::vector<int> whole;
    int torn = 0;
};

CountedLines counted(const std::string& path, int processes)
{
    CountedLines lines{std::vector<int>(static_cast<std::size_t>(processes))};
    std::istringstream text(bytesOf(path));
    for (std::string line; std::getline(text, line);) {
        const int process = line.empty() ? -1 : line.back() - 'a';
        const std::string tail = " Code=0//OK//" + textOf(process);
        const bool isWhole = process >= 0 && process < processes && line.ends_with(tail) &&
                             line.size() - tail.size() == std::string("2000-01-01 00:00:00.000000").size();
        ++(isWhole ? lines.whole[static_cast<std::size_t>(process)] : lines.torn);
    }
    return lines;
}

int savesBesideAReader()
{
    const char* const wanted = std::getenv("VOMAR_SAVES");
    return wanted == nullptr ? 500 : std::atoi(wanted);
}

} // namespace

TEST(ConcurrentResults, LinesOfAConcurrentLogAreWhole)
{
    constexpr int processes = 8;
    constexpr int saves = 300;
    const TemporaryFolder folder;
    const std::string path = folder / "a.log";
    inProcesses(processes, [&path](int process) {
        const TFuncRes result = GetErrCode(0, textOf(process));
        for (int i = 0; i < saves; ++i) {
            SaveLogCode(path, result);
        }
    });
    const CountedLines lines = counted(path, processes);
    EXPECT_EQ(lines.torn, 0);
    EXPECT_EQ(lines.whole, std::vector<int>(processes, saves));
}

// Between its opening and its one write a document is empty, which is a failed load. It is never a part.
// VOMAR_SAVES sets how many saves are tried; scripts/check --nightly tries 100,000.
TEST(ConcurrentResults, ReaderBesideSavesGetsAWholeResultOrAFailedLoad)
{
    const TemporaryFolder folder;
    const std::string path = folder / "result.xml";
    const std::string description(1000, 'd');
    const TFuncRes saved = GetErrCode(0, description);
    SaveLogCode(path, saved);
    const pid_t writer = fork();
    if (writer == 0) {
        for (int left = savesBesideAReader(); left > 0; --left) {
            SaveLogCode(path, saved);
        }
        _exit(0);
    }
    int whole = 0;
    int others = 0;
    while (waitpid(writer, nullptr, WNOHANG) == 0) {
        const TFuncRes read = lResXML(path);
        const bool isWhole = read.Code == 0 && read.Comment == description && read.Description == "OK";
        ++(isWhole ? whole : others);
        EXPECT_TRUE(isWhole || read.Code == resultCode::unreadableFile) << read.Code << ' ' << read.Comment;
    }
    EXPECT_GT(whole, 0);
    RecordProperty("failed_loads", others);
    EXPECT_EQ(lResXML(path).Comment, description);
}
