// Job log: a line per task in the nine columns of GNU parallel, so that its users and programs can read it.
//
//   Seq	Host	Starttime	JobRuntime	Send	Receive	Exitval	Signal	Command
//   1	:	1386253333.445	     0.006	0	0	0	0	/usr/bin/vomar night.xml

#pragma once

#include <cstddef>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A line of a job log.
struct JobLine
{
    std::size_t number = 0; ///< of the task, from 1
    double began = 0;       ///< seconds since 1970
    double seconds = 0;     ///< that it took
    int exitValue = 0;      ///< 0 for a task that ended well
    int signal = 0;         ///< that ended it
    std::string command{};

    bool operator==(const JobLine& other) const = default;
};

/// A word of a command as a shell takes it, on one line: as it is, or in quotes.
std::string shellWord(std::string_view word);

/// A line's text, with its line feed.
std::string jobText(const JobLine& line);

/// The lines of a job log, by their commands; of those of one command the last. A line of another form, such
/// as one that was cut short, is none. Empty for a file that cannot be read.
std::map<std::string, JobLine> readJobLog(const std::string& path);

/// A job log that is being written: each line at once.
class JobLog
{
public:
    /// Opens the log: an old one is replaced, or continued. Throws WrongUsage (V003) where that fails.
    JobLog(const std::string& path, bool isContinued);

    /// Adds a line. Throws WrongUsage (V003) where that fails.
    void add(const JobLine& line);

private:
    void write(std::string_view text);

    struct Close
    {
        void operator()(std::FILE* opened) const
        {
            std::fclose(opened);
        }
    };
    std::string path;
    std::unique_ptr<std::FILE, Close> file;
};

} // namespace companion
