#include "companion/truth/tool_run.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

sigset_t childSignal()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGCHLD);
    return set;
}

pid_t started(const std::string& tool, const std::string& task)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    std::string name = "./tool";
    std::string argument = task;
    char* const argv[] = {name.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int failure = posix_spawn(&child, tool.c_str(), &actions, &attributes, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    if (failure != 0) {
        throw std::runtime_error("the tool does not start: " + tool);
    }
    return child;
}

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

timespec now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time;
}

double since(const timespec& start)
{
    const timespec end = now();
    return static_cast<double>(end.tv_sec - start.tv_sec) +
           1e-9 * static_cast<double>(end.tv_nsec - start.tv_nsec);
}

// Waits until the child has ended or its time is up; whether it has ended.
bool endsWithin(pid_t child, double seconds)
{
    const sigset_t signals = childSignal();
    const timespec start = now();
    for (;;) {
        siginfo_t info = {};
        if (waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
            info.si_pid == child) {
            return true;
        }
        const double left = seconds - since(start);
        if (left <= 0.0) {
            return false;
        }
        timespec limit = {};
        limit.tv_sec = static_cast<time_t>(left);
        limit.tv_nsec = static_cast<long>((left - static_cast<double>(limit.tv_sec)) * 1e9);
        sigtimedwait(&signals, nullptr, &limit);
    }
}

} // namespace

void prepareForRuns()
{
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const sigset_t signals = childSignal();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
}

ToolEnd runToolHere(const std::string& tool, const std::string& task, double seconds)
{
    const pid_t child = started(tool, task);
    ToolEnd end;
    end.timedOut = !endsWithin(child, seconds);
    if (end.timedOut) {
        kill(child, SIGKILL);
    }
    int status = 0;
    rusage used = {};
    while (wait4(child, &status, 0, &used) < 0 && errno == EINTR) {
    }
    end.seconds = secondsOf(used.ru_utime) + secondsOf(used.ru_stime);
    if (WIFEXITED(status)) {
        end.status = WEXITSTATUS(status);
    } else if (!end.timedOut) {
        end.signal = WTERMSIG(status);
    }
    return end;
}
