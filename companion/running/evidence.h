// Evidence: what a run of the tool has left behind, by the states of files before and after, and the results
// that it has added to its result file.

#pragma once

#include "reading/result_entries.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// The state of a path, as far as a write changes it.
struct FileState
{
    bool exists = false;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    std::int64_t written = 0; ///< nanoseconds since 1970
    std::int64_t changed = 0; ///< the same, of the last change of any kind

    bool operator==(const FileState& other) const = default;
};

/// The state of a path, links followed.
FileState fileState(const std::string& path);

/// The same, but of a moment from which on a write changes the state: where the last change is so young that
/// the clock of the file system would give the next one the same time, it waits for the next tick.
FileState settledState(const std::string& path);

/// A file as plans and receipts know it again.
struct FileStamp
{
    std::string path{};
    std::uint64_t size = 0;
    std::int64_t time = 0; ///< of the last write: nanoseconds since 1970

    bool operator==(const FileStamp& other) const = default;
};

/// The stamp of a file in a state.
FileStamp stampOf(const std::string& path, const FileState& state);

/// What became of a file.
enum class FileChange
{
    fresh,   ///< it was not there before
    changed, ///< it was written
    same,    ///< it is there and was not written
    missing
};

/// What became of a file between two states.
FileChange changeOf(const FileState& before, const FileState& after);

/// "new", "changed", "same" or "missing".
std::string_view changeWord(FileChange change);

/// A result file before a run.
class ResultEvidence
{
public:
    /// Looks at a result file, which may be missing. An empty path is one that is never written.
    explicit ResultEvidence(std::string path);

    /// The results that are new: those of a document with another date, and the lines behind the old size of
    /// a log.
    std::vector<ResultEntry> fresh() const;

private:
    std::string path;
    FileState before;
    std::vector<ResultEntry> old;
};

} // namespace companion
