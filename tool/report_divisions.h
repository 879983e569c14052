// Report divisions: how the tracks of a report are divided among its files, and what each file is named
// after.

#pragma once

#include "records/track.h"
#include "report_tracks.h"
#include "task.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The files of a report: the parts of tracks that each holds, in the order of writing.
class ReportFiles
{
public:
    std::size_t count() const
    {
        return ends.size();
    }

    std::span<const TrackPart> operator[](std::size_t file) const
    {
        const std::size_t first = file == 0 ? 0 : ends[file - 1];
        return std::span(parts).subspan(first, ends[file] - first);
    }

    /// Adds a part to the file that is not closed yet.
    void add(const TrackPart& part)
    {
        parts.push_back(part);
    }

    /// Closes a file: later parts belong to the next.
    void close()
    {
        ends.push_back(parts.size());
    }

private:
    std::vector<TrackPart> parts;
    std::vector<std::size_t> ends; // of each file
};

/// A division: a word of the key toSeparateFile and what it does.
struct ReportDivision
{
    /// The files. Sets the flag where a track has no place in any, since it has no marks.
    using Division = ReportFiles (*)(const ReportTracks& tracks, const tavelinUtils::TConvMea& task,
                                     bool& withoutMarks);
    /// The base name of a file, counted from 0, by its first track, a null pointer where there is none;
    /// nothing where what it needs is missing.
    using Naming = std::optional<std::string> (*)(const tavelinUtils::TConvMea& task,
                                                  const tavelinUtils::TrackVtorichka* first,
                                                  std::size_t number);

    const char* word;
    Division divide;
    Naming baseName;
    bool joins; ///< whether the parts of a file are joined into one track
};

/// All divisions.
std::span<const ReportDivision> reportDivisionTable();

/// The division of a word, compared exactly: "eachgroup", "eachobject", "eachseria" or "allobjects"; a null
/// pointer for any other text.
const ReportDivision* reportDivision(const std::string& word);

/// One file for each stretch of each track: a track is cut wherever two marks are `interval` minutes or more
/// apart. A track that is not cut keeps all its marks; in a track that is cut, each stretch loses its last
/// mark, and may be empty. A track without marks gives no stretch and sets the flag.
ReportFiles stretchesOf(const ReportTracks& tracks, double interval, bool& withoutMarks);

/// One file for each object: its tracks, which have the same QRVName and Series, in the order in which
/// objects first occur.
ReportFiles objectsOf(const ReportTracks& tracks);

/// One file for each series, also for one without tracks.
ReportFiles seriesOf(const ReportTracks& tracks);

/// One file of all tracks in their order.
ReportFiles allOf(const ReportTracks& tracks);
