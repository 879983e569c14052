#include "exclusions.h"

#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

// A track of so many marks, with the magnitudes 0, 1, 2 ... to tell them apart.
TrackVtorichka trackOf(int marks)
{
    TrackVtorichka track;
    for (int i = 0; i < marks; ++i) {
        track.Marks.push_back({.m = static_cast<double>(i)});
        track.InterBlobs.emplace_back();
        track.Candidates.emplace_back("c");
        track.Cast.emplace_back("p");
    }
    return track;
}

// The magnitudes of the marks that are left, "0 2 3".
std::string left(const TrackVtorichka& track)
{
    std::string text;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(mark.m));
    }
    return text;
}

} // namespace

TEST(DeleteBlobs, ExcludedMarksGoAndTheListsBesideThemStay)
{
    std::vector<TrackVtorichka> tracks{trackOf(3), trackOf(3)};
    DeleteBlobs({{.object = 0, .blobs = {1}}}, tracks);
    EXPECT_EQ(left(tracks[0]), "0 2");
    EXPECT_EQ(left(tracks[1]), "0 1 2");
    EXPECT_EQ(tracks[0].InterBlobs.size(), 3u);
    EXPECT_EQ(tracks[0].Candidates.size(), 3u);
    EXPECT_EQ(tracks[0].Cast.size(), 3u);
}

TEST(DeleteBlobs, IndicesOfOneEntryCountInTheMarksBeforeIt)
{
    const struct
    {
        std::vector<TExcludBlobs> excludes;
        const char* marks;
    } rows[] = {{{}, "0 1 2 3 4"},
                {{{0, {0}}}, "1 2 3 4"},
                {{{0, {4}}}, "0 1 2 3"},
                {{{0, {0, 1}}}, "2 3 4"},
                {{{0, {3, 1, 0}}}, "2 4"},
                {{{0, {2, 2}}}, "0 1 3 4"},
                {{{0, {0, 1, 2, 3, 4}}}, ""},
                {{{0, {0}}, {0, {0}}}, "2 3 4"},
                {{{0, {1, 3}}, {0, {1}}}, "0 4"},
                {{{0, {0}}, {0, {4}}}, "1 2 3 4"},
                {{{0, {}}}, "0 1 2 3 4"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.marks);
        std::vector<TrackVtorichka> tracks{trackOf(5)};
        DeleteBlobs(row.excludes, tracks);
        EXPECT_EQ(left(tracks[0]), row.marks);
    }
}

TEST(DeleteBlobs, BadMarksGoWithTheFirstEntryOfTheirTrack)
{
    std::vector<TrackVtorichka> tracks{trackOf(4), trackOf(4)};
    for (TrackVtorichka& track : tracks) {
        track.Marks[0].BlobCode = BlobCode::bad_parts;
        track.Marks[3].BlobCode = BlobCode::bad_parts;
    }
    DeleteBlobs({{.object = 0}}, tracks);
    EXPECT_EQ(left(tracks[0]), "1 2");
    EXPECT_EQ(left(tracks[1]), "0 1 2 3");
    DeleteBlobs({{.object = 1, .blobs = {1}}}, tracks);
    EXPECT_EQ(left(tracks[0]), "1 2");
    EXPECT_EQ(left(tracks[1]), "2");
}

TEST(DeleteBlobs, MarksOfEveryOtherCodeStay)
{
    std::vector<TrackVtorichka> tracks{trackOf(12)};
    for (int code = 0; code < 12; ++code) {
        tracks[0].Marks[static_cast<std::size_t>(code)].BlobCode =
            static_cast<BlobCode>(code == 9 ? -1 : code);
    }
    DeleteBlobs({{.object = 0}}, tracks);
    EXPECT_EQ(left(tracks[0]), "0 1 2 3 4 5 6 7 8 9 10 11");
    EXPECT_EQ(static_cast<int>(BlobCode(tracks[0].Marks[8].BlobCode)), 8);
}

TEST(DeleteBlobs, TracksAndMarksThatDoNotExistAreSkipped)
{
    std::vector<TrackVtorichka> tracks{trackOf(3), trackOf(0)};
    DeleteBlobs({{.object = -1, .blobs = {0}},
                 {.object = 2, .blobs = {0}},
                 {.object = 2147483647, .blobs = {0}},
                 {.object = 1, .blobs = {0, 1}},
                 {.object = 0, .blobs = {-1, 3, 2147483647, 1, -2147483647 - 1}}},
                tracks);
    EXPECT_EQ(left(tracks[0]), "0 2");
    EXPECT_EQ(left(tracks[1]), "");
    std::vector<TrackVtorichka> none;
    DeleteBlobs({{.object = 0, .blobs = {0}}}, none);
    EXPECT_TRUE(none.empty());
}

TEST(DeleteBlobs, WhatIsLeftIsUnchanged)
{
    std::vector<TrackVtorichka> tracks{trackNamed(
        "A",
        {{.m = 1.0},
         {.date = 60000, .time = 0.5, .RA = 15.0, .DE = -0.5, .m = 9.5, .filtr = "V", .KNAME = "check"}})};
    DeleteBlobs({{.object = 0, .blobs = {0}}}, tracks);
    EXPECT_EQ(tracks[0].QRVName, "A");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    const TRecLabelPervichka_File mark = tracks[0].Marks[0];
    EXPECT_EQ(int(mark.date), 60000);
    EXPECT_EQ(double(mark.time), 0.5);
    EXPECT_EQ(double(mark.RA), 15.0);
    EXPECT_EQ(double(mark.DE), -0.5);
    EXPECT_EQ(double(mark.m), 9.5);
    EXPECT_EQ(std::string(mark.filtr), "V");
    EXPECT_EQ(std::string(mark.KNAME), "check");
    EXPECT_EQ(BlobCode(mark.BlobCode), BlobCode::ok);
}
