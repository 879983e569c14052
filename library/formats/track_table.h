// Track table, the pipeline's own text file of tracks: a typed header, a line per mark, "---" after a track.
//
//   v2
//   N:Int	QRVName:Text	date:Date	time:Time	RA:Float:deg	DE:Float:deg	m:Float:mag
//   1	A0125	2023-02-25	12:00:00.0000000	15.000000	-0.500000	9.5000
//   ---
//
// A file may hold any subset of the known columns in any order. Only the name before the first colon of a
// description has an effect; type and unit are for the reader's eye.

#pragma once

#include "../records/track.h"

#include <string>
#include <vector>

namespace tavelinUtils {

/// A column, by the name in front of its description's first colon.
struct THeadTrack
{
    std::string Name{};
};

/// The tracks of the lines of a table; the version line may be missing. Fields that a line lacks leave their
/// values as they were; text that is no number counts as 0. Head values stand on every line of a track, and
/// the last one wins. Lines behind the last "---" are dropped, unless there is none: then all lines are
/// one track. Candidates and Cast stay empty, FindOrb keeps its default. A table of no lines, or of the
/// version line alone, is empty.
std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines);

/// The same of a file, with its path as SourceFile of every track; none for a missing file.
std::vector<TrackVtorichka> lListTrack(std::string path);

/// Writes a table: the version line and the header (the standard one for an empty text), then each track
/// under its N and QRVName, closed by "---". Adds to a file that stands there, or replaces it. With an empty
/// header the lines of the marks are empty too. What cannot be written is passed over.
void sListTrack(std::string path, std::string source, std::string prefix,
                const std::vector<TrackVtorichka>& tracks, std::string suffix, bool longName, bool rewrite,
                std::string header);

/// Adds the lines of a track's marks to a file: the columns of the header, in its order, each followed by a
/// tab but Cast. The name is the given one, or where that is empty made by the rules of short names. The last
/// argument has no effect.
void sTrack(std::string path, std::string source, std::string prefix, std::string suffix, int number,
            bool longName, const TrackVtorichka& track, std::string givenName, std::string header, bool flag);

/// Adds the version line and a header, the standard one for an empty text, to a file; nothing without the
/// flag.
void sHeadTrack(std::string path, bool flag, std::string header);

/// Replaces a file by the version line and the header of satellite tables.
void sHeadSatTrack(std::string path);

/// The standard header of 62 columns.
std::string getHeadTrack();

/// The text of a column for a mark, and one tab. A name that is not known gives "0"; a mark that the track
/// does not have counts as a new one.
std::string GetDataTrack(THeadTrack column, const TrackVtorichka& track, int index);

/// The short name of a track: prefix ("A" where prefix and suffix are empty), number in at least two digits,
/// suffix, and the last two characters of the path's folder, one for a number above 99.
std::string CalcSecondName(std::string path, int number, std::string prefix, std::string suffix);

/// The short name of a satellite's track: prefix and number in at least three digits.
std::string CalcSecondNameSat(int number, std::string prefix);

/// The text of a column Cast, "jd;ra;de;tag": all zero for an empty one, the tag is not read.
TCasts StrToCast(std::string text);

} // namespace tavelinUtils
