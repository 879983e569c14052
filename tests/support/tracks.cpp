#include "support/tracks.h"

#include <gtest/gtest.h>

#include <utility>

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

TrackVtorichka trackNamed(const std::string& name, std::vector<TRecLabelPervichka_File> marks)
{
    TrackVtorichka track;
    track.QRVName = name;
    track.Marks = std::move(marks);
    return track;
}

TRecLabelPervichka_File onlyMark(const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.size() != 1 || tracks[0].Marks.size() != 1) {
        ADD_FAILURE() << "not one mark";
        return {};
    }
    return tracks[0].Marks[0];
}

void expectHead(const TrackVtorichka& track, const ReadHead& expected)
{
    EXPECT_EQ(track.originator, expected.originator);
    EXPECT_EQ(track.telescope, expected.telescope);
    EXPECT_EQ(track.QRVName, expected.name);
    EXPECT_EQ(track.NORAD, expected.NORAD);
    EXPECT_EQ(track.REFERENCE_FRAME, "ICRF");
    EXPECT_EQ(track.MPCChecker, "");
    EXPECT_EQ(track.FindOrb, 999.0);
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}
