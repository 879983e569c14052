// Report divisions: how the tracks of a report are divided among its files, and what each file is named
// after.

#pragma once

#include "records/track.h"
#include "task.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The tracks of one file, or of one series.
using TrackList = std::vector<tavelinUtils::TrackVtorichka>;

/// A division: a word of the key toSeparateFile and what it does.
struct ReportDivision
{
    /// One list for each file. Sets the flag where a track has no place in any list, since it has no marks.
    using Division = std::vector<TrackList> (*)(std::vector<TrackList>&& series,
                                                const tavelinUtils::TConvMea& task, bool& withoutMarks);
    /// The base name of a file, counted from 0; nothing where what it needs is missing.
    using Naming = std::optional<std::string> (*)(const tavelinUtils::TConvMea& task, const TrackList& report,
                                                  std::size_t number);

    const char* word;
    Division divide;
    Naming baseName;
    bool joins; ///< whether the tracks of a list are joined into one before they are written
};

/// The division of a word, compared exactly: "eachgroup", "eachobject", "eachseria" or "allobjects"; a null
/// pointer for any other text.
const ReportDivision* reportDivision(const std::string& word);

/// One list for each stretch of each track: a track is cut wherever two marks are `interval` minutes or more
/// apart. A track that is not cut keeps all its marks; in a track that is cut, each stretch loses its last
/// mark. A stretch holds only head and marks, and may be empty. A track without marks gives no stretch and
/// sets the flag.
std::vector<TrackList> stretchesOf(std::vector<TrackList>&& series, double interval, bool& withoutMarks);

/// One list for each object: its tracks, which have the same QRVName and Series, in the order in which
/// objects first occur.
std::vector<TrackList> objectsOf(std::vector<TrackList>&& series);

/// Joins the tracks of an object under the head of the first. Marks are in the order of time; among equal
/// times those of later tracks come first. The InterBlobs of later tracks come first, and are not sorted.
/// Candidates and Cast are those of the first track. A single track stays as it is. The list must not be
/// empty.
tavelinUtils::TrackVtorichka joined(TrackList&& tracks);

/// The joined track as a list of its own.
TrackList joinedAlone(TrackList&& tracks);

/// One list of all tracks in their order.
std::vector<TrackList> allOf(std::vector<TrackList>&& series);
