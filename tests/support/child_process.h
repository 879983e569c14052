// Child processes: the built tool, and works that do not end or that end the process.

#pragma once

#include <functional>
#include <string>
#include <vector>

/// How a child process ended.
struct ChildEnd
{
    bool timedOut = false; ///< it was still running when its time was up, and was killed
    int exitStatus = -1;   ///< of a process that exited
    int signal = 0;        ///< of a process that a signal ended by itself
    std::string output{};  ///< what it printed, to both streams
};

/// The seconds after which a walk that still runs counts as endless; one that ends does so in milliseconds.
inline constexpr double endlessAfter = 1.0;

/// Runs a program with arguments in a folder ("" for the present one) and waits for it, at most the seconds.
ChildEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder = "", double seconds = 60);

/// Runs the built tool on a task file.
ChildEnd runTool(const std::string& task, const std::string& folder = "");

/// Runs a work in a child process under a limit of time. A work that comes back exits with 0.
ChildEnd runInChild(const std::function<void()>& work, double seconds);

/// Checks that a work comes back true, within half a minute and without a crash.
void expectTrueInChild(const std::function<bool()>& work);
