// Track tables of a test: what the reader makes of a few lines, and what the writers make of a few tracks.

#pragma once

#include "records/track.h"

#include <string>
#include <vector>

/// The standard header.
extern const std::string headerOf62Columns;

/// The only track of a table of this header and these lines; fails the test where there are more or none.
tavelinUtils::TrackVtorichka readTrack(const std::string& header, std::vector<std::string> lines);

/// The only mark of a table of this header and this line.
tavelinUtils::TRecLabelPervichka_File readMark(const std::string& header, const std::string& line);

/// The tracks of a file of these bytes.
std::vector<tavelinUtils::TrackVtorichka> readTable(const std::string& bytes);

/// The iB of the marks of a track.
std::vector<int> iBsOf(const tavelinUtils::TrackVtorichka& track);

/// The iB of all marks, a list for each track.
std::vector<std::vector<int>> iBsOf(const std::vector<tavelinUtils::TrackVtorichka>& tracks);

/// What sTrack writes under the name "given" and number 5.
std::string writtenLines(const tavelinUtils::TrackVtorichka& track, const std::string& header);

/// What sListTrack writes, with the rewrite flag and without prefix and suffix.
std::string writtenTable(const std::vector<tavelinUtils::TrackVtorichka>& tracks, const std::string& header);

/// A table of two satellites, as a visual observer measured them.
std::string satelliteTable();
