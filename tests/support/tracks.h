// Tracks of a test.

#pragma once

#include "records/track.h"

#include <string>
#include <utility>
#include <vector>

/// A track of that name with the marks.
inline tavelinUtils::TrackVtorichka trackNamed(const std::string& name,
                                               std::vector<tavelinUtils::TRecLabelPervichka_File> marks)
{
    tavelinUtils::TrackVtorichka track;
    track.QRVName = name;
    track.Marks = std::move(marks);
    return track;
}
