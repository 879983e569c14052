// Line fates: what became of each line of a file, kept in a byte a line, and the tracks that the reader made.

#pragma once

#include "formats/line_watch.h"
#include "reading/file_account.h"
#include "records/track.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// The fates of the lines of a file, told by its reader.
class LineFates final : public tavelinUtils::LineWatch
{
public:
    /// Takes the report of a line, in any order of lines.
    void settled(const tavelinUtils::LineReport& report) override;

    /// How many lines were told of, up to the last one.
    std::size_t size() const
    {
        return fates.size();
    }

    /// The fate of a line, counted from 1; passed for one that nothing was told of.
    tavelinUtils::LineFate fate(std::size_t line) const;

    /// Why it was passed over, lost or refused.
    tavelinUtils::PassedReason reason(std::size_t line) const;

    /// How many lines have a fate.
    std::size_t count(tavelinUtils::LineFate fate) const
    {
        return counts[static_cast<std::size_t>(fate)];
    }

    /// The sums of all fates, of so many lines. Tracks and marks are not set.
    FileAccount account(std::size_t lines) const;

private:
    static constexpr std::size_t kinds = 9;

    std::vector<std::uint8_t> fates; // fate and reason; untold where nothing was told
    std::array<std::size_t, kinds> counts{};
};

/// How a file is read.
struct FileReading
{
    std::string path;
    std::string format;    ///< a name of reading/signatures.h
    std::string columns{}; ///< of a track table: only these are read, with blanks between; empty: all
    /// Is given each track that the reader makes, which is refilled for the next; may be empty.
    std::function<void(const tavelinUtils::TrackVtorichka&)> use{};
};

/// Reads a file by the library's reader of its format, which tells the fates of its lines. Formats without
/// such a reader have their lines counted by their form, and are no tracks unless the library reads them in
/// another way. Gives the number of tracks. Passes on what a reader throws for the file as a whole.
std::size_t readWithFates(const FileReading& reading, LineFates& fates);

/// Whether the library's reader of a format tells the fates of lines itself.
bool hasWatchedReader(std::string_view format);

} // namespace companion
