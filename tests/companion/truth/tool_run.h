// Tool run: the tool in a child process under a limit of time, for many runs in a row.

#pragma once

#include <string>

/// How a run ended.
struct ToolEnd
{
    bool timedOut = false; ///< it was still running when its time was up, and was killed
    int status = -1;       ///< of a process that exited
    int signal = 0;        ///< of a process that a signal ended by itself
    double seconds = 0.0;  ///< of processor time

    /// Whether it came to its own end.
    bool isGood() const
    {
        return !timedOut && status == 0 && signal == 0;
    }
    /// Whether an exception or something worse ended it.
    bool isDead() const
    {
        return !timedOut && !isGood();
    }
};

/// Gets the process ready for runs: no core files, and children are waited for under a limit.
void prepareForRuns();

/// Runs the tool on a task in the present folder, under a name there, so that the log beside the tool is the
/// file "tool.log" in this folder. What it prints is dropped.
ToolEnd runToolHere(const std::string& tool, const std::string& task, double seconds);
