#include "works.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace tavelinUtils;

TEST(Works, AFileOfAnUnknownFormatHasNoTracks)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "T1 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    TrackVtorichka track;
    EXPECT_TRUE(ownWorks().source("mea", folder / "a.mea", "")(track));
    EXPECT_FALSE(ownWorks().source("MEA", folder / "a.mea", "")(track));
}
