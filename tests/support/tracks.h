// Tracks of a test.

#pragma once

#include "records/track.h"

#include <string>
#include <vector>

/// A track of that name with the marks.
tavelinUtils::TrackVtorichka trackNamed(const std::string& name,
                                        std::vector<tavelinUtils::TRecLabelPervichka_File> marks);

/// The only mark of the tracks; fails the test where there is none or another.
tavelinUtils::TRecLabelPervichka_File onlyMark(const std::vector<tavelinUtils::TrackVtorichka>& tracks);

/// What a reader of measurements sets in the head of a track.
struct ReadHead
{
    std::string originator;
    std::string telescope;
    std::string name;
    std::string NORAD;
};

/// Checks the head of a track: what a reader of measurements sets, and that the rest is as constructed.
void expectHead(const tavelinUtils::TrackVtorichka& track, const ReadHead& expected);
