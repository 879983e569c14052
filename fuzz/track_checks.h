// Checks of tracks that hold for every format: lists and flows give the same, and what is written is read
// again.

#pragma once

#include "files/text_files.h"
#include "records/track.h"

#include "told_lines.h"
#include "written_bytes.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using Tracks = std::vector<tavelinUtils::TrackVtorichka>;

/// Whether two numbers have the same bits.
bool sameNumber(double a, double b);

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

/// The tracks with the names of their objects where the writer looks for them.
template <class Format>
Tracks namedTracks(Tracks tracks)
{
    if constexpr (requires { Format::named(tracks); }) {
        return Format::named(std::move(tracks));
    } else {
        return tracks;
    }
}

/// Holds the reader and the writer of a format to all this, given any bytes. The format has
///     exactness
///     read(path) and read(path, watch)
///     write(path, tracks)
///     source(path), sink(path)
///     writable(tracks)       ordinary tracks as its lines bring them back
///     more(path, tracks)     what holds besides
/// and may have read(lines), named(tracks) where its reader puts the names of objects elsewhere, and
/// throwsOutOfRange where it throws for a text that is too short to be cut. A watched reader never throws.
template <class Format>
void checkFormat(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const std::string path = file.path();
    const auto written = [](const Tracks& tracks) {
        return bytesWritten([&](const std::string& to) { Format::write(to, tracks); });
    };
    ToldLines told;
    const Tracks watched = Format::read(path, told);
    told.mustBeAllOf(bytes, size);
    const Tracks ordinary = Format::writable(ordinaryTracks(namedTracks<Format>(watched)));
    const WrittenFile again(written(ordinary));
    mustBeReadAgain(namedTracks<Format>(Format::read(again.path())), ordinary, Format::exactness);
    Tracks tracks;
    try {
        tracks = Format::read(path);
    } catch (const std::out_of_range&) {
        mustHold(requires { Format::throwsOutOfRange; });
        return;
    }
    mustHold(sameTracks(watched, tracks));
    if constexpr (requires(const std::vector<std::string>& lines) { Format::read(lines); }) {
        mustHold(sameTracks(Format::read(tavelinUtils::ReadFromFile(path)), tracks));
    }
    mustHandOut(Format::source(path), Format::source(path), tracks);
    mustHold(bytesOfFlow(Format::source(path), [](const std::string& to) { return Format::sink(to); }) ==
             written(tracks));
    Format::more(path, tracks);
}
