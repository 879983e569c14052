// Track table, the pipeline's own text file of tracks: a typed header, a line per mark, "---" after a track.
//
//   v2
//   N:Int	QRVName:Text	date:Date	time:Time	RA:Float:deg	DE:Float:deg	m:Float:mag
//   1	A0125	2023-02-25	12:00:00.0000000	15.000000	-0.500000	9.5000
//   ---
//
// A file may hold any subset of the known columns in any order. Only the name before the first colon of a
// description has an effect; type and unit are for people who read the file.

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A column, by the name that precedes the first colon of its description.
struct THeadTrack
{
    std::string Name{};
};

/// Hands out the tracks of a table, or of its lines, one after the other (records/track_stream.h); what they
/// are is told with lListTrack.
class TrackTableSource
{
public:
    /// Reads the file to its end.
    explicit TrackTableSource(std::string path);

    /// Reads the lines, which are not needed afterwards.
    explicit TrackTableSource(const std::vector<std::string>& lines);

    /// Reads the columns of marks that are looked at, whose names have blanks between them, and of the head
    /// QRVName, Name, NORAD, noradid and MPCChecker. Other columns are skipped, and what they would set has
    /// its default.
    TrackTableSource(std::string path, std::string wantedColumns);

    /// The same, telling a watch what becomes of each line.
    TrackTableSource(std::string path, LineWatch& watch);
    TrackTableSource(const std::vector<std::string>& lines, LineWatch& watch);
    TrackTableSource(std::string path, std::string wantedColumns, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    TrackTableSource(TrackTableSource&& other) noexcept;
    ~TrackTableSource();

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

/// Writes a table as sListTrack does, track after track. A failed write is not reported.
class TrackTableSink
{
public:
    /// Opens and removes nothing yet.
    TrackTableSink(std::string path, std::string source, std::string prefix, std::string suffix,
                   bool longName, bool rewrite, std::string header);

    /// Takes over what the other has to write.
    TrackTableSink(TrackTableSink&& other) noexcept;
    ~TrackTableSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The tracks of the lines of a table, whose version line may be missing. A field that a line lacks leaves
/// its value as it was; text that is no number counts as 0. Values of a track are on each of its lines, and
/// the last line wins. Lines after the last "---" are dropped, unless there is none: then all lines are one
/// track. Candidates and Cast stay empty, FindOrb keeps its default. A table without lines, or of the version
/// line alone, has no tracks.
std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines);

/// The tracks of a file, with its path as SourceFile of each; none for a missing file.
std::vector<TrackVtorichka> lListTrack(std::string path);

/// The same, telling a watch what becomes of each line.
std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines, LineWatch& watch);
std::vector<TrackVtorichka> lListTrack(std::string path, LineWatch& watch);

/// Writes a table: the version line and the header (the standard one for an empty text), then the lines of
/// each track under its N and QRVName, with "---" after them. Appends to an existing file, or replaces it.
/// With an empty header the lines of the marks are empty too. A failed write is not reported.
void sListTrack(std::string path, std::string source, std::string prefix,
                const std::vector<TrackVtorichka>& tracks, std::string suffix, bool longName, bool rewrite,
                std::string header);

/// Appends the lines of a track's marks to a file: the columns of the header, in its order, with a tab after
/// each but Cast. The track has the given name, or where that is empty a short one (track_table_names.h). The
/// last argument has no effect. A failed write is not reported.
void sTrack(std::string path, std::string source, std::string prefix, std::string suffix, int number,
            bool longName, const TrackVtorichka& track, std::string givenName, std::string header, bool flag);

/// Appends the version line and a header, the standard one for an empty text, to a file; does nothing without
/// the flag.
void sHeadTrack(std::string path, bool flag, std::string header);

/// Replaces a file by the version line and the header of satellite tables. Throws a TavelinException of code
/// 7 with the path when it cannot be written.
void sHeadSatTrack(std::string path);

/// The standard header of 62 columns, with tabs between them.
std::string getHeadTrack();

/// The field of a column for the mark at an index, and a tab. A name that is not known gives "0", as Name,
/// Candidates and Cast do, which only sListTrack and sTrack write; a mark that the track does not have counts
/// as a new one.
std::string GetDataTrack(THeadTrack column, const TrackVtorichka& track, int index);

/// The entry of a column Cast, "jd;ra;de;tag", whose tag is not read: the Julian Date, right ascension and
/// declination. What is missing is 0.
TCasts StrToCast(std::string text);

} // namespace tavelinUtils
