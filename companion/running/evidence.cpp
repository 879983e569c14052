#include "running/evidence.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace companion {
namespace {

std::int64_t nanoseconds(const timespec& time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// The clock that file systems take their times from: it goes in ticks of some milliseconds.
std::int64_t fileClock()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return nanoseconds(now);
}

} // namespace

FileState fileState(const std::string& path)
{
    struct stat state = {};
    if (stat(path.c_str(), &state) != 0) {
        return {};
    }
    return {true,
            static_cast<std::uint64_t>(state.st_dev),
            static_cast<std::uint64_t>(state.st_ino),
            static_cast<std::uint64_t>(state.st_size),
            nanoseconds(state.st_mtim),
            nanoseconds(state.st_ctim)};
}

FileState settledState(const std::string& path)
{
    constexpr int mostSteps = 20; // a clock of another machine may be far ahead
    const FileState state = fileState(path);
    for (int step = 0; state.exists && step < mostSteps && fileClock() <= state.changed; ++step) {
        usleep(1000);
    }
    return state;
}

FileStamp stampOf(const std::string& path, const FileState& state)
{
    return {path, state.size, state.written};
}

FileChange changeOf(const FileState& before, const FileState& after)
{
    if (!after.exists) {
        return FileChange::missing;
    }
    if (!before.exists) {
        return FileChange::fresh;
    }
    return before == after ? FileChange::same : FileChange::changed;
}

std::string_view changeWord(FileChange change)
{
    switch (change) {
    case FileChange::fresh: return "new";
    case FileChange::changed: return "changed";
    case FileChange::same: return "same";
    case FileChange::missing: break;
    }
    return "missing";
}

ResultEvidence::ResultEvidence(std::string resultPath)
    : path(std::move(resultPath)), before(settledState(path)),
      old(isResultDocument(path) && before.exists ? resultsOfDocument(path) : std::vector<ResultEntry>{})
{
}

std::vector<ResultEntry> ResultEvidence::fresh() const
{
    const FileState now = fileState(path);
    if (!now.exists) {
        return {};
    }
    if (!isResultDocument(path)) {
        const bool hasGrown = now.inode == before.inode && now.size >= before.size;
        return resultsOfLog(path, hasGrown ? before.size : 0);
    }
    std::vector<ResultEntry> entries = resultsOfDocument(path);
    std::erase_if(entries, [this](const ResultEntry& entry) {
        return std::find(old.begin(), old.end(), entry) != old.end();
    });
    return entries;
}

} // namespace companion
