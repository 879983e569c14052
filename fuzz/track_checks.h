// Checks of tracks that hold for every format: lists and flows give the same, and what is written is read
// again.

#pragma once

#include "records/track.h"

#include "written_bytes.h"

#include <string>
#include <vector>

using Tracks = std::vector<tavelinUtils::TrackVtorichka>;

/// Whether two lists have the same tracks: the texts of the heads, and of the marks what measurement formats
/// hold, bit by bit.
bool sameTracks(const Tracks& a, const Tracks& b);

/// Holds two sources of one file to a list: one hands out its tracks by `next`, the other by `refill`, each
/// into one track that is used again.
template <class Source>
void mustHandOut(Source byNext, Source byRefill, const Tracks& tracks)
{
    Tracks handedOut;
    Tracks refilled;
    for (tavelinUtils::TrackVtorichka track; byNext.next(track);) {
        handedOut.push_back(track);
    }
    for (tavelinUtils::TrackVtorichka track; byRefill.refill(track);) {
        refilled.push_back(track);
    }
    mustHold(sameTracks(handedOut, tracks) && sameTracks(refilled, tracks));
    mustHold(byNext.count() == 0 && byRefill.count() == 0);
}

/// The bytes that a flow from a source writes. `makeSink(path)` gives the sink.
template <class Source, class MakeSink>
std::string bytesOfFlow(Source source, MakeSink makeSink)
{
    return bytesWritten([&](const std::string& path) {
        auto sink = makeSink(path);
        for (tavelinUtils::TrackVtorichka track; source.refill(track);) {
            sink.add(track);
        }
        mustHold(sink.save());
    });
}

/// How exact a format is: the largest error of a value that is written and read again.
struct Exactness
{
    double seconds; ///< of the time, in seconds of a day
    double RA;      ///< degrees
    double DE;      ///< degrees
    double magnitude = 0;
};

/// Tracks that every format can hold, made of any: those of their marks whose values are of this century, in
/// the usual ranges and not so near to their ends that rounding passes them, and names that are not so long
/// that they are cut and have nothing that separates words; others are replaced. Magnitudes are not negative:
/// the packed forms do not bring back the sign. Tracks without such marks are left out.
Tracks ordinaryTracks(const Tracks& tracks);

/// The tracks with negative declinations: where the writer leaves out the sign of a positive one, the reader
/// does not find its columns.
Tracks southernTracks(Tracks tracks);

/// Ordinary tracks that were written and read again have their names, and all marks as exactly as the format
/// is.
void mustBeReadAgain(const Tracks& again, const Tracks& tracks, const Exactness& exactness);
