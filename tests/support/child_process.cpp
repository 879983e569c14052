#include "support/child_process.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstddef>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Collects what the child prints until it ends or its time is up.
ChildEnd waitFor(pid_t child, int output, double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto deadline =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    ChildEnd end;
    int status = 0;
    bool ended = false;
    char bytes[4096];
    fcntl(output, F_SETFL, O_NONBLOCK);
    const auto collect = [&] {
        for (ssize_t count = read(output, bytes, sizeof bytes); count > 0;
             count = read(output, bytes, sizeof bytes)) {
            end.output.append(bytes, static_cast<std::size_t>(count));
        }
    };
    while (!ended) {
        collect();
        ended = waitpid(child, &status, WNOHANG) == child;
        if (!ended && Clock::now() > deadline) {
            end.timedOut = true;
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            ended = true;
        }
        if (!ended) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    collect();
    close(output);
    if (WIFEXITED(status)) {
        end.exitStatus = WEXITSTATUS(status);
    } else if (WIFSIGNALED(status) && !end.timedOut) {
        end.signal = WTERMSIG(status);
    }
    return end;
}

template <class Work>
ChildEnd forked(Work work, double seconds)
{
    int ends[2];
    if (pipe(ends) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t child = fork();
    if (child < 0) {
        throw std::runtime_error("no child process");
    }
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        work();
        _exit(0);
    }
    close(ends[1]);
    return waitFor(child, ends[0], seconds);
}

} // namespace

ChildEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder, double seconds)
{
    return forked(
        [&] {
            std::vector<char*> argv{const_cast<char*>(program.c_str())};
            for (const std::string& argument : arguments) {
                argv.push_back(const_cast<char*>(argument.c_str()));
            }
            argv.push_back(nullptr);
            if (folder.empty() || chdir(folder.c_str()) == 0) {
                execv(program.c_str(), argv.data());
            }
            _exit(127);
        },
        seconds);
}

ChildEnd runTool(const std::string& task, const std::string& folder)
{
    return runProgram(builtTool(), {task}, folder);
}

ChildEnd runInChild(const std::function<void()>& work, double seconds)
{
    return forked(work, seconds);
}

void expectTrueInChild(const std::function<bool()>& work)
{
    const ChildEnd end = runInChild([&] { _exit(work() ? 0 : 1); }, 30.0);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, 0) << end.output;
}
