#include "tool.h"

#include <gtest/gtest.h>

#include <type_traits>

// The library's names in the signatures of the tool are reachable without its namespace, and are the
// library's own.

TEST(ToolNames, RecordsAreThoseOfTheLibrary)
{
    EXPECT_TRUE((std::is_same_v<::TFuncRes, tavelinUtils::TFuncRes>));
    EXPECT_TRUE((std::is_same_v<::TavelinException, tavelinUtils::TavelinException>));
    EXPECT_TRUE((std::is_same_v<::TrackVtorichka, tavelinUtils::TrackVtorichka>));
    EXPECT_TRUE((std::is_same_v<::TConvMea, tavelinUtils::TConvMea>));
    EXPECT_TRUE((std::is_same_v<::TSeria2, tavelinUtils::TSeria2>));
    EXPECT_TRUE((std::is_same_v<::TExcludBlobs, tavelinUtils::TExcludBlobs>));
}

TEST(ToolNames, ResultOperationsAreReachable)
{
    EXPECT_EQ(::GetTextCode(7), "Error opening file");
    EXPECT_EQ(::GetErrCode(7, "a.xml").Description, "a.xml");
    ::TConvMea task;
    EXPECT_FALSE(::ltaskconv("", task));
}

TEST(ToolNames, OrderOfTracksByNameIsReachable)
{
    ::TrackVtorichka a;
    ::TrackVtorichka b;
    a.MPCChecker = "K13A01A";
    b.MPCChecker = "K13A01B";
    EXPECT_TRUE(::SortTrackByName(a, b));
    EXPECT_FALSE(::SortTrackByName(b, a));
    EXPECT_FALSE(::SortTrackByName(a, a));
    EXPECT_TRUE(::mycomp("a", "ab"));
    EXPECT_FALSE(::mycomp("ab", "a"));
    EXPECT_TRUE(::mycomp("Z", "a"));
    EXPECT_FALSE(::mycomp("a", "a"));
}
