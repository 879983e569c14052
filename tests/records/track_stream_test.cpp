#include "records/track_stream.h"

#include "support/head_fields.h"
#include "support/track_flows.h"

#include <gtest/gtest.h>

using namespace tavelinUtils;

TEST(ResetHead, LeavesTheMarks)
{
    TrackVtorichka track = usedTrack();
    resetHead(track);
    expectSameHead(track, THeadTrVtor{});
    EXPECT_EQ(track.Marks.size(), 1U);
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}
