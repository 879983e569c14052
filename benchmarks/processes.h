// Processes: commands run one after the other or in turn, with the processor time and memory that they take.

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// A program's path and its arguments.
using Command = std::vector<std::string>;

/// What processes took.
struct Usage
{
    double seconds = 0; // processor time, user and system
    double bytes = 0;   // peak memory
};

/// Runs commands one after the other: the sum of their seconds, and the largest of their peaks. The peak of a
/// process is at least that of the process that starts it. Throws where a command cannot be run or ends with
/// another status than 0.
Usage run(const std::vector<Command>& commands);

/// Calls a function in a process of its own, so that what it takes does not raise the peaks of commands that
/// are run later. Throws where it does.
void callApart(const std::function<void()>& function);

/// Two works that were run in turn: the medians of what each took, and of the ratios of their seconds.
struct Comparison
{
    Usage first;
    Usage second;
    double ratio = 0;
};

/// The commands of a round, counted from 0.
using Round = std::function<std::vector<Command>(int number)>;

/// Runs the commands of two works in turn, round by round: a load that comes and goes reaches both sides of a
/// round, and its ratio says less about it than two medians do.
Comparison runInTurn(const Round& first, const Round& second, int rounds);

/// A folder that goes with its object.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const;

private:
    std::filesystem::path folder;
};
