// Report tracks: the tracks of all series of a report, kept small until they are written.

#pragma once

#include "base/text_index.h"
#include "formats/track_table_rows.h"
#include "records/track.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A part of a track: some of its marks, from the first up to but not including the end. Marks are counted
/// through all tracks of a report.
struct TrackPart
{
    std::size_t track;
    std::size_t first;
    std::size_t end;
};

/// The tracks of the series of a report in the order in which they were added. Of a track it keeps the names,
/// of its marks the columns that the output is made of; what the tracks of a series have in common is there
/// once.
class ReportTracks
{
public:
    /// Keeps the named columns of a track table, with a blank between their names.
    explicit ReportTracks(const std::string& columns);

    /// Opens a series whose tracks have the values of a head, but for their names.
    void addSeries(const tavelinUtils::THeadTrVtor& head);

    /// Adds a track to the series that was opened last.
    void add(const tavelinUtils::TrackVtorichka& track);

    /// Leaves one series with one track of the first; false where the first series has no such track.
    bool keepOnly(int track);

    std::size_t seriesCount() const
    {
        return heads.size();
    }

    std::size_t size() const
    {
        return tracks.size();
    }

    /// All of a track.
    TrackPart whole(std::size_t track) const;

    /// The series of a track.
    std::size_t seriesOf(std::size_t track) const
    {
        return tracks[track].series;
    }

    /// A number that two tracks have in common if and only if their QRVName and Series are equal.
    std::uint64_t objectOf(std::size_t track) const;

    /// Day and fraction of a mark.
    int date(std::size_t mark) const
    {
        return marks.date(mark);
    }
    double time(std::size_t mark) const
    {
        return marks.time(mark);
    }

    /// Gives a track the head and the marks of a part.
    void fill(const TrackPart& part, tavelinUtils::TrackVtorichka& track) const;

    /// Joins parts under the head of the first. Marks are in the order of time; among equal times those of
    /// later parts come first. A single part stays as it is.
    void fillJoined(std::span<const TrackPart> parts, tavelinUtils::TrackVtorichka& track) const;

private:
    struct KeptTrack
    {
        std::uint32_t name; // texts, by their numbers
        std::uint32_t checker;
        std::uint32_t norad;
        std::uint32_t series;
        std::size_t end; // of its marks; those of a track follow those of the track before
    };

    std::uint32_t numberOf(const std::string& text);
    void fillHead(std::size_t number, tavelinUtils::TrackVtorichka& track) const;
    void restore(std::size_t number, tavelinUtils::TRecLabelPervichka_File& mark) const;

    std::vector<tavelinUtils::THeadTrVtor> heads; // of the series
    std::vector<std::uint32_t> labels;            // their Series, by the number of the text
    std::vector<KeptTrack> tracks;
    std::size_t firstMark = 0; // of the first track
    tavelinUtils::TextIndex texts;
    tavelinUtils::MarkRows marks;
};
