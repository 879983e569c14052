// Track streams: sources hand out the tracks of a file one after the other, sinks write them to one.
//
// A program that works with sources and sinks holds one track at a time, whatever the size of its files. The
// operations on lists of tracks are loops over the same classes.
//
//   MeaSource source("night.mea", "observatory");
//   MpcReportSink sink("night.txt");
//   for (TrackVtorichka track; source.next(track);) {
//       sink.add(track);
//   }
//   sink.save();
//
// A source has read its file to the end when it is made, and what can throw has thrown: so a sink may replace
// the file that its source has read. `count` says how many tracks are to come. `next` fills a track and uses
// its memory again: keep no reference to what was in it. `refill` does the same in less time for those who
// leave the marks as they are: in marks that the track has, it only sets the fields that the file has.
//
// A sink opens and removes nothing before the first text has to go out, which is at `save` or after a
// megabyte of text. `save`, once after the last track, also writes what a file holds without tracks; it is
// false, or throws, where the operation on lists does. A sink that is not saved leaves what it has written by
// then.

#pragma once

#include "../export.h"
#include "track.h"

#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Gives the head of a track its defaults again, and takes the lines beside its marks out. The marks stay,
/// for others to take their places; the memory stays too.
void resetHead(TrackVtorichka& track);

/// All tracks of a source.
template <class Source>
std::vector<TrackVtorichka> allTracks(Source source)
{
    std::vector<TrackVtorichka> tracks;
    tracks.reserve(source.count());
    while (source.count() > 0) {
        source.next(tracks.emplace_back());
    }
    return tracks;
}

/// Writes a list of tracks.
template <class Sink>
bool writeAll(Sink sink, const std::vector<TrackVtorichka>& tracks)
{
    for (const TrackVtorichka& track : tracks) {
        sink.add(track);
    }
    return sink.save();
}

} // namespace tavelinUtils
