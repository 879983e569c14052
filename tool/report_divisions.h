// Report groups: how the tracks of a report are divided among its files.

#pragma once

#include "records/track.h"

#include <string>
#include <vector>

/// The tracks of one file, or of one series.
using TrackList = std::vector<tavelinUtils::TrackVtorichka>;

/// One list for each stretch of each track: a track is cut wherever two marks are so many minutes apart or
/// more. A track that is not cut keeps all its marks; of one that is cut each stretch loses its last mark. A
/// stretch holds head and marks alone, and may be empty. A track without marks gives none and sets the flag.
std::vector<TrackList> stretchesOf(std::vector<TrackList>&& series, double interval, bool& withoutMarks);

/// One list for each object, its tracks of equal QRVName and Series, in the order in which objects first
/// occur.
std::vector<TrackList> objectsOf(std::vector<TrackList>&& series);

/// Joins the tracks of an object under the head of the first. Marks are in order of time, those of later
/// tracks first among equal times; TInterBlobs stand later tracks first, and are not sorted. One track alone
/// stays as it is. The list may not be empty.
tavelinUtils::TrackVtorichka joined(TrackList&& tracks);

/// One list of all tracks in their order.
std::vector<TrackList> allOf(std::vector<TrackList>&& series);
