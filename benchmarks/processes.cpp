#include "processes.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Waits for a child and says what it took.
Usage waitFor(pid_t child, const std::string& name)
{
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error("failed: " + name);
    }
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024};
}

Usage runOne(const Command& command)
{
    std::vector<char*> words;
    for (const std::string& word : command) {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, words.front(), nullptr, nullptr, words.data(), environ) != 0) {
        throw std::runtime_error("cannot run " + command.front());
    }
    return waitFor(child, command.front());
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// What the rounds of a work took.
struct Rounds
{
    std::vector<double> seconds;
    std::vector<double> bytes;

    void add(const Usage& usage)
    {
        seconds.push_back(usage.seconds);
        bytes.push_back(usage.bytes);
    }

    Usage medians() const
    {
        return {median(seconds), median(bytes)};
    }
};

} // namespace

Usage run(const std::vector<Command>& commands)
{
    Usage all;
    for (const Command& command : commands) {
        const Usage one = runOne(command);
        all.seconds += one.seconds;
        all.bytes = std::max(all.bytes, one.bytes);
    }
    return all;
}

void callApart(const std::function<void()>& function)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        try {
            function();
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "%s\n", failure.what());
            _exit(1);
        }
        _exit(0);
    }
    waitFor(child, "the making of an input");
}

Comparison runInTurn(const Round& first, const Round& second, int rounds)
{
    Rounds ofFirst;
    Rounds ofSecond;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        ofFirst.add(run(first(round)));
        ofSecond.add(run(second(round)));
        ratios.push_back(ofFirst.seconds.back() / ofSecond.seconds.back());
    }
    return {ofFirst.medians(), ofSecond.medians(), median(ratios)};
}

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "vomar_benchmark_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    folder = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

const std::filesystem::path& TemporaryFolder::path() const
{
    return folder;
}
