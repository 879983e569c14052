// Works: what the two works of the tool read from and write to.
//
// A program that hands in works of its own looks at what a task would do without doing it: sources that
// report, sinks that only count.

#pragma once

#include "config/settings.h"
#include "records/track.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A source of tracks of any format: gives a track the next one; false after the last. Of the marks that the
/// track has, only the fields that its file has are set: a track that another source has filled comes without
/// marks.
using NextTrack = std::function<bool(tavelinUtils::TrackVtorichka& track)>;

/// A sink of tracks of any format (records/track_stream.h). A failed write is an exception, or ignored where
/// the format ignores it.
struct TrackSink
{
    std::function<void(const tavelinUtils::TrackVtorichka& track)> add;
    std::function<void()> save;
};

/// A source of one format as one of any.
template <class Source>
NextTrack anySource(Source source)
{
    const auto shared = std::make_shared<Source>(std::move(source));
    return [shared](tavelinUtils::TrackVtorichka& track) { return shared->refill(track); };
}

/// A sink of one format as one of any. A failed write that the format tells by a false is ignored.
template <class Sink>
TrackSink anySink(Sink sink)
{
    const auto shared = std::make_shared<Sink>(std::move(sink));
    return {[shared](const tavelinUtils::TrackVtorichka& track) { shared->add(track); },
            [shared] { shared->save(); }};
}

/// The tracks of a source on their way to a sink. The first is there before the sink is made, since it names
/// the file.
class TrackFlow
{
public:
    /// Takes the first track. The memory of the given one is used for all.
    TrackFlow(tavelinUtils::TrackVtorichka& track, NextTrack source);

    /// The first track; a null pointer where there is none.
    const tavelinUtils::TrackVtorichka* first() const;

    /// Gives all tracks to a sink and saves it.
    void writeTo(const TrackSink& sink);

private:
    tavelinUtils::TrackVtorichka& current;
    NextTrack next;
    bool hasTrack;
};

/// Where tracks and settings come from and tracks go to.
struct Works
{
    /// The source of a file whose format has a word; one without tracks for a format that is only written.
    /// Throws what its reader throws.
    std::function<NextTrack(const std::string& word, const std::string& path, const std::string& originator)>
        source;
    /// The source of a track table, of which only the named columns of marks are looked at.
    std::function<NextTrack(const std::string& path, const std::string& columns)> table;
    /// The settings of the series of a track table.
    std::function<tavelinUtils::TPorogs(const std::string& table)> settings;
    /// The sink of a path and a format's word; one that writes nothing for a word that is not known.
    std::function<TrackSink(const std::string& path, const std::string& word)> sink;
};

/// The folder of the series of a track table: three levels above the table. Throws std::out_of_range for an
/// empty path.
std::string seriesFolder(const std::string& table);

/// The configurations below the folder of a series in the order of the file system: the first one counts.
std::vector<std::string> configurationsBelow(const std::string& folder);

/// The tool's own: files, and the configurations beside the tables.
Works ownWorks();
