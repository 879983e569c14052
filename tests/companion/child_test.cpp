#include "running/child.h"

#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <thread>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using companion::ChildCall;
using companion::ChildLimit;
using companion::Children;
using companion::EndedChild;
using companion::Interrupts;
using testing::HasSubstr;

// A script of the shell as a child.
class Script
{
public:
    explicit Script(const std::string& text)
    {
        makeFile(folder / "script", text);
        call = {"/bin/sh", folder / "a name", folder / "script", {}, 0};
    }

    EndedChild run(Children::Notice notice = Children::Notice::descriptor)
    {
        const Interrupts interrupts;
        Children children(interrupts, notice, 200ms);
        children.start(7, call);
        const auto end = children.next(20s);
        EXPECT_TRUE(end);
        EXPECT_EQ(children.count(), 0u);
        return end.value_or(EndedChild{});
    }

    TemporaryFolder folder;
    ChildCall call;
};

// Whether a process ends within seconds; one that nobody has waited for yet has ended.
bool endsSoon(int process)
{
    const auto runs = [process] {
        std::ifstream status("/proc/" + std::to_string(process) + "/stat");
        std::string text;
        std::getline(status, text);
        return status && text.find(") Z ") == std::string::npos;
    };
    for (int wait = 0; wait < 300 && runs(); ++wait) {
        std::this_thread::sleep_for(10ms);
    }
    return !runs();
}

TEST(Child, ExitStatusAndOutputComeBack)
{
    const EndedChild end = Script("echo out; echo err >&2; exit 3").run();
    EXPECT_EQ(end.number, 7u);
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.limit, ChildLimit::none);
    EXPECT_EQ(end.said, "out\nerr\n");
    EXPECT_EQ(end.failure, "");
    EXPECT_GT(end.began, 1.6e9);
    EXPECT_GT(end.peakMemory, 0u);
}

TEST(Child, EndIsNoticedByASignalToo)
{
    EXPECT_EQ(Script("sleep 0.1; exit 4").run(Children::Notice::signal).status, 4);
}

TEST(Child, SignalThatEndsItComesBack)
{
    const EndedChild end = Script("kill -SEGV $$").run();
    EXPECT_EQ(end.signal, SIGSEGV);
    EXPECT_EQ(end.status, -1);
    EXPECT_EQ(companion::signalName(end.signal), "SIGSEGV");
    EXPECT_EQ(companion::signalName(63), "SIG63");
}

TEST(Child, IsToldItsNameAndOneArgument)
{
    const TemporaryFolder folder;
    const Interrupts interrupts;
    Children children(interrupts);
    children.start(1, {"/bin/cat", "another name", "/proc/self/cmdline", {}, 0});
    EXPECT_EQ(children.next(20s)->said, std::string("another name\0/proc/self/cmdline\0", 32));
}

TEST(Child, ReadsNothingAndLeavesNoCore)
{
    EXPECT_EQ(Script("cat; ulimit -c").run().said, "0\n");
}

TEST(Child, LongOutputIsCutAndDoesNotBlock)
{
    const EndedChild end = Script("head -c 3000000 /dev/zero; echo; exit 5").run();
    EXPECT_EQ(end.status, 5);
    EXPECT_EQ(end.said.size(), companion::keptOutput);
}

TEST(Child, TimeLimitEndsIt)
{
    Script script("sleep 600");
    script.call.timeLimit = 100ms;
    const EndedChild end = script.run();
    EXPECT_EQ(end.limit, ChildLimit::time);
    EXPECT_EQ(end.signal, SIGTERM);
    EXPECT_GE(end.seconds, 0.1);
    EXPECT_LT(end.seconds, 5.0);
}

TEST(Child, StubbornChildIsKilledAfterTheGrace)
{
    Script script("trap '' TERM; while :; do sleep 0.05; done");
    script.call.timeLimit = 100ms;
    const EndedChild end = script.run();
    EXPECT_EQ(end.limit, ChildLimit::time);
    EXPECT_EQ(end.signal, SIGKILL);
    EXPECT_GE(end.seconds, 0.3);
}

TEST(Child, ExitInTheGraceIsStillThatOfTheLimit)
{
    Script script("trap 'exit 0' TERM; while :; do sleep 0.05; done");
    script.call.timeLimit = 100ms;
    const EndedChild end = script.run();
    EXPECT_EQ(end.limit, ChildLimit::time);
    EXPECT_EQ(end.status, 0);
}

TEST(Child, NothingOfItsGroupOutlivesIt)
{
    Script script("sh -c 'trap \"\" TERM; echo $$; exec sleep 600' & sleep 0.2; exit 0");
    const EndedChild end = script.run();
    EXPECT_EQ(end.status, 0);
    EXPECT_TRUE(endsSoon(std::stoi(end.said)));
}

// The sanitizers take more addresses than any limit leaves.
#if !defined(VOMAR_SANITIZED)
TEST(Child, MemoryLimitEndsIt)
{
    const Interrupts interrupts;
    Children children(interrupts);
    children.start(1, {VOMAR_STAND_IN, "stand-in", "eats.xml", 20s, std::uint64_t{256} << 20});
    const EndedChild end = *children.next(20s);
    EXPECT_EQ(end.limit, ChildLimit::memory);
    EXPECT_THAT(end.said, HasSubstr("bad_alloc"));
}
#endif

TEST(Child, MemoryLimitThatLeavesNoRoomForLibrariesEndsItToo)
{
    Script script("exit 0");
    script.call.memoryLimit = 2'000'000;
    EXPECT_EQ(script.run().limit, ChildLimit::memory);
}

TEST(Child, ProgramThatCannotBeStartedIsToldBySystemsWords)
{
    Script script("exit 0");
    script.call.program = script.folder / "missing";
    EXPECT_EQ(script.run().failure, "No such file or directory");
    script.call.program = script.folder / "script";
    EXPECT_EQ(script.run().failure, "Permission denied");
}

// A child has two pipes.
TEST(Child, WithoutDescriptorsItIsTold)
{
    const Interrupts interrupts;
    Children children(interrupts);
    rlimit before = {};
    getrlimit(RLIMIT_NOFILE, &before);
    const int next = dup(STDIN_FILENO);
    close(next);
    for (rlim_t room = 0; room < 4; ++room) {
        const rlimit few{static_cast<rlim_t>(next) + room, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        children.start(1, {"/bin/true", "true", "", {}, 0});
        setrlimit(RLIMIT_NOFILE, &before);
        EXPECT_EQ(children.next(1s)->failure, "Too many open files") << room;
    }
}

// What processes are made with.
std::vector<SystemFault> noProcesses(int error)
{
#if defined(SYS_vfork)
    return {{SYS_vfork, error}, {SYS_clone, error}};
#else
    return {{SYS_clone, error}};
#endif
}

// Whether a script is not started under faults, for that reason and with that limit.
bool failsToStart(const std::vector<SystemFault>& faults, const std::string& failure,
                  std::uint64_t memoryLimit = 0, ChildLimit limit = ChildLimit::none)
{
    const auto start = [&] {
        const Interrupts interrupts;
        Children children(interrupts);
        setFaults(faults);
        children.start(1, {"/bin/true", "true", "", {}, memoryLimit});
        const EndedChild end = children.next(20s).value();
        _exit(end.failure == failure && end.limit == limit ? 0 : 1);
    };
    return statusOfChild(start) == 0;
}

TEST(Child, SystemThatRefusesAProcessIsToldByItsWords)
{
    EXPECT_TRUE(failsToStart(noProcesses(EAGAIN), "Resource temporarily unavailable"));
    EXPECT_TRUE(failsToStart(noProcesses(ENOMEM), "Cannot allocate memory"));
    EXPECT_TRUE(failsToStart({{SYS_prlimit64, EPERM}}, "Operation not permitted"));
    EXPECT_TRUE(failsToStart({{SYS_openat, ENFILE}}, "Too many open files in system"));
}

TEST(Child, WithoutMemoryForItsStartTheLimitHasEndedIt)
{
    EXPECT_TRUE(failsToStart(noProcesses(ENOMEM), "Cannot allocate memory", 1 << 30, ChildLimit::memory));
}

// The sanitizers take more addresses than any limit leaves.
#if !defined(VOMAR_SANITIZED)
TEST(Child, MemoryLimitAboveThatOfTheUserIsToldByTheSystemsWords)
{
    const auto start = [] {
        const Interrupts interrupts;
        Children children(interrupts);
        const rlimit most{std::uint64_t{1} << 40, std::uint64_t{1} << 40};
        setrlimit(RLIMIT_AS, &most);
        [[maybe_unused]] const int dropped = setuid(65534); // the first user may have any limit
        children.start(1, {"/bin/true", "true", "", {}, std::uint64_t{1} << 41});
        _exit(children.next(20s).value().failure == "Operation not permitted" ? 0 : 1);
    };
    EXPECT_EQ(statusOfChild(start), 0);
}
#endif

// The parent has another number by then.
TEST(Child, WhoseParentHasEndedBeforeItsStartDoesNothing)
{
    const Script script("echo > \"$0.ran\"");
    const auto start = [&script] {
        const Interrupts interrupts;
        Children children(interrupts);
        setFaults({{SYS_getppid, EPERM}});
        children.start(1, script.call);
        children.next(200ms);
        _exit(0);
    };
    EXPECT_EQ(statusOfChild(start), 0);
    EXPECT_FALSE(std::filesystem::exists(script.folder / "script.ran"));
}

TEST(Child, ThatCannotBeAskedForHasNotEnded)
{
    const auto ask = [] {
        const Interrupts interrupts;
        Children children(interrupts);
        children.start(1, {"/bin/true", "true", "", {}, 0});
        setFaults({{SYS_waitid, ECHILD}});
        _exit(children.next(200ms) ? 1 : 0);
    };
    EXPECT_EQ(statusOfChild(ask), 0);
}

TEST(Child, WhoseOutputCannotBeReadEndsAsItDoes)
{
    for (const int error : {EIO, EINTR}) {
        const auto run = [error] {
            Script script("sleep 0.1; echo said; exit 3");
            const Interrupts interrupts;
            Children children(interrupts);
            children.start(1, script.call);
            setFaults({{SYS_read, error}});
            const EndedChild end = children.next(20s).value();
            _exit(end.status == 3 && end.said.empty() ? 0 : 1);
        };
        EXPECT_EQ(statusOfChild(run), 0) << error;
    }
}

// Only a child that has a limit, and has failed.
TEST(Child, WordsOfWantOfMemoryTellTheLimit)
{
    struct Said
    {
        const char* script;
        std::uint64_t limit;
        ChildLimit told;
    };
    constexpr std::uint64_t wide = std::uint64_t{1} << 34;
    const Said all[] = {
        {"echo 'std::bad_alloc'; exit 1", wide, ChildLimit::memory},
        {"echo 'Cannot allocate memory'; exit 1", wide, ChildLimit::memory},
        {"echo 'failed to map segment'; exit 1", wide, ChildLimit::memory},
        {"echo 'no such file'; exit 1", wide, ChildLimit::none},
        {"echo 'std::bad_alloc'; exit 0", wide, ChildLimit::none},
        {"echo 'std::bad_alloc'; exit 1", 0, ChildLimit::none},
    };
    for (const Said& each : all) {
        Script script(each.script);
        script.call.memoryLimit = each.limit;
        EXPECT_EQ(script.run().limit, each.told) << each.script;
    }
}

TEST(Child, SeveralRunAtOnceAndEachComesBackOnce)
{
    const TemporaryFolder folder;
    makeFile(folder / "script", "sleep 0.2");
    const Interrupts interrupts;
    Children children(interrupts);
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t number = 0; number < 8; ++number) {
        children.start(number, {"/bin/sh", "sh", folder / "script", {}, 0});
    }
    EXPECT_EQ(children.count(), 8u);
    std::map<std::size_t, int> seen;
    while (children.count() > 0) {
        ++seen[children.next(20s)->number];
    }
    EXPECT_EQ(seen.size(), 8u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1200ms);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a zombie is left";
}

TEST(Child, WaitingEndsWithItsTime)
{
    Script script("sleep 600");
    const Interrupts interrupts;
    Children children(interrupts);
    children.start(1, script.call);
    EXPECT_FALSE(children.next(50ms));
    children.stop();
    EXPECT_EQ(children.next(0ms)->signal, SIGTERM);
    EXPECT_EQ(children.count(), 0u);
}

TEST(Child, InterruptEndsTheWaiting)
{
    Script script("sleep 600");
    const Interrupts interrupts;
    Children children(interrupts);
    children.start(1, script.call);
    std::raise(SIGINT);
    EXPECT_FALSE(children.next(20s));
    EXPECT_EQ(interrupts.signal(), SIGINT);
}

TEST(Child, EndsAreNoticedWhereTheirSignalWasIgnored)
{
    const auto run = [] {
        std::signal(SIGCHLD, SIG_IGN);
        _exit(Script("exit 4").run(Children::Notice::signal).status);
    };
    EXPECT_EQ(WEXITSTATUS(statusOfChild(run)), 4);
}

TEST(Child, WithoutAPipeNoSignalsAreNoted)
{
    const auto note = [] {
        setFaults({{SYS_pipe2, EMFILE}});
        const Interrupts interrupts;
        _exit(10);
    };
    EXPECT_EQ(WEXITSTATUS(statusOfChild(note)), 1); // by an exception
}

TEST(Child, InterruptsAreNotedOnlyMeanwhile)
{
    const auto handlerNow = [] {
        struct sigaction action = {};
        sigaction(SIGTERM, nullptr, &action);
        return action.sa_handler;
    };
    const auto before = handlerNow();
    {
        const Interrupts interrupts;
        EXPECT_NE(handlerNow(), before);
        EXPECT_EQ(interrupts.signal(), 0);
    }
    EXPECT_EQ(handlerNow(), before);
}

TEST(Child, EndsWithTheProgram)
{
    const TemporaryFolder folder;
    makeFile(folder / "script", "echo $$ > '" + folder / "pid" + "'; exec sleep 600");
    const pid_t program = fork();
    if (program == 0) {
        const Interrupts interrupts;
        Children children(interrupts);
        children.start(1, {"/bin/sh", "sh", folder / "script", {}, 0});
        children.next(200ms);
        std::_Exit(0);
    }
    waitpid(program, nullptr, 0);
    EXPECT_TRUE(endsSoon(std::stoi(bytesOf(folder / "pid"))));
}

} // namespace
