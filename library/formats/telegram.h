// Telegram, a compact format of optical measurements: one block per object, closed by a single word.
//
//   observatory T1 12345
//   250223 12000000 01000000 -00300000 001095
//   END
//
//   date   time     RA       DE        m

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Hands out the tracks of a telegram, or of its lines, one after the other (records/track_stream.h); what
/// they are, and what is thrown when the source is made, is told with lTelegramma.
class TelegramSource
{
public:
    /// Reads the file to its end.
    explicit TelegramSource(std::string path);

    /// Reads the lines, which are not needed afterwards.
    explicit TelegramSource(const std::vector<std::string>& lines);

    /// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
    TelegramSource(std::string path, LineWatch& watch);
    TelegramSource(const std::vector<std::string>& lines, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    TelegramSource(TelegramSource&& other) noexcept;
    ~TelegramSource();

    /// How many tracks are to come.
    std::size_t count() const;

    /// Fills the track with the next one; false, and the track as it was, after the last.
    bool next(TrackVtorichka& track);

    /// The same in less time: of the marks that the track has, only the fields that the file has are set.
    bool refill(TrackVtorichka& track);

private:
    struct Store;
    std::unique_ptr<Store> store;
};

/// Writes tracks as sTelegramma does, one after the other. `add` and `save` throw as sTelegramma does;
/// without a track the file stays as it is.
class TelegramSink
{
public:
    /// Opens and removes nothing yet.
    explicit TelegramSink(std::string path);

    /// Takes over what the other has to write.
    TelegramSink(TelegramSink&& other) noexcept;
    ~TelegramSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The tracks of a telegram, one for each closed block. Three words open a block or rename the open one,
/// one word of any kind closes it, five are a mark of an open block, and everything else is skipped.
/// Each blank separates two words, so that two blanks in a row, or one at the end of a line, make one more.
/// Throws std::out_of_range for a date below 4 characters, a time or right ascension below 6, a
/// declination below 7, a magnitude field below 3.
std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines);

/// The same of a file; none for a missing one.
std::vector<TrackVtorichka> lTelegramma(std::string path);

/// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines, LineWatch& watch);
std::vector<TrackVtorichka> lTelegramma(std::string path, LineWatch& watch);

/// Replaces the file by the tracks as a telegram. An empty list leaves the file as it is. Throws
/// TavelinException with code 7 and the path for a file that cannot be written.
void sTelegramma(std::string path, const std::vector<TrackVtorichka>& tracks);

} // namespace tavelinUtils
