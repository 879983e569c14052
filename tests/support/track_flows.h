// The tracks of a source and the file of a sink.

#pragma once

#include "records/track.h"

#include "support/head_fields.h"
#include "support/measured_marks.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// A track in which no field of the head and no list is as in a new one.
inline tavelinUtils::TrackVtorichka usedTrack()
{
    tavelinUtils::TrackVtorichka track = trackNamed("used", {{.iF = 7, .LinkList = {1, 2}, .filtr = "V"}});
    for (const auto number : headFields::numbers) {
        track.*number = 7.5;
    }
    for (const auto text : headFields::texts) {
        track.*text = "used before, and longer than short texts are";
    }
    for (const auto text : headFields::headerTexts) {
        track.MPCHeader.*text = "used";
    }
    track.MPCHeader.HeaderOn = false;
    track.MPCHeader.HeaderFlag2 = true;
    track.N = track.NMarks = track.HeadInt = 7;
    track.TrMade = tavelinUtils::THowMakeTr::MANUA;
    track.ResidFirst = track.ResidSecond = {1.0, 2.0, 3.0, 4.0, {5.0}, {6.0}, {7.0}, {8.0}};
    track.InterBlobs.resize(2);
    track.Candidates = track.Cast = {"used", "used"};
    return track;
}

/// Checks a track whose marks have measured values alone.
inline void expectSameTrack(const tavelinUtils::TrackVtorichka& track,
                            const tavelinUtils::TrackVtorichka& expected)
{
    expectSameHead(track, expected);
    ASSERT_EQ(track.Marks.size(), expected.Marks.size());
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        EXPECT_EQ(measured(track.Marks[i]), measured(expected.Marks[i])) << i;
        expectMark(track.Marks[i], measured(expected.Marks[i]));
    }
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}

/// Checks that a source hands out those tracks, each into a track that was used before.
template <class Source>
void expectHandedOut(Source source, const std::vector<tavelinUtils::TrackVtorichka>& expected)
{
    std::size_t number = 0;
    for (tavelinUtils::TrackVtorichka track = usedTrack(); source.next(track); track = usedTrack()) {
        SCOPED_TRACE(number);
        ASSERT_LT(number, expected.size());
        expectSameTrack(track, expected[number]);
        EXPECT_EQ(source.count(), expected.size() - ++number);
    }
    EXPECT_EQ(number, expected.size());
}

/// Checks that a sink that takes no track leaves a file, and the place of none, as they are. `make(path)`
/// gives it.
template <class MakeSink>
void expectNoTracksLeaveTheFile(MakeSink make)
{
    const TemporaryFolder folder;
    makeFile(folder / "old.txt", "kept");
    EXPECT_TRUE(make(folder / "old.txt").save());
    EXPECT_TRUE(make(folder / "new.txt").save());
    EXPECT_EQ(bytesOf(folder / "old.txt"), "kept");
    EXPECT_FALSE(exists(folder / "new.txt"));
}

/// Checks that the tracks, one a time, make the file of the bytes, which are to be more than a megabyte: that
/// nothing is opened before them, and the first megabyte is written before the end.
template <class MakeSink>
void expectWrittenInPieces(MakeSink make, const std::vector<tavelinUtils::TrackVtorichka>& tracks,
                           const std::string& bytes)
{
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    ASSERT_GT(bytes.size(), megabyte);
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    auto sink = make(path);
    for (const tavelinUtils::TrackVtorichka& track : tracks) {
        EXPECT_FALSE(exists(path));
        sink.add(track);
    }
    EXPECT_EQ(std::filesystem::file_size(path), bytes.size() / megabyte * megabyte);
    EXPECT_TRUE(sink.save());
    EXPECT_TRUE(bytesOf(path) == bytes);
}
