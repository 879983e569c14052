#include "formats/track_gathering.h"

#include "support/measured_marks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tavelinUtils;

std::vector<std::string> marksOf(const std::vector<TrackVtorichka>& tracks)
{
    std::vector<std::string> shown;
    for (const TrackVtorichka& track : tracks) {
        std::string text = track.QRVName + ":";
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            text += " " + std::to_string(mark.date);
        }
        shown.push_back(text);
    }
    return shown;
}

void nameTrack(TrackVtorichka& track, std::string_view name)
{
    track.QRVName = name;
}

using NamedSequence = TrackSequence<const char*>;

std::vector<TrackVtorichka> tracksOf(TrackGathering<MeasuredMark>& gathering)
{
    std::vector<TrackVtorichka> tracks;
    for (TrackVtorichka track; gathering.next(track, OldMarks::renewed, nameTrack, setMeasured);) {
        tracks.push_back(track);
    }
    return tracks;
}

std::vector<TrackVtorichka> tracksOf(NamedSequence& sequence)
{
    std::vector<TrackVtorichka> tracks;
    for (TrackVtorichka track; sequence.next(track, OldMarks::renewed, nameTrack);) {
        tracks.push_back(track);
    }
    return tracks;
}

const Measured nothing{0, 0.0, 0.0, 0.0, 0.0};

// Gives a track so many marks, whose dates count from the first.
void giveMarks(TrackVtorichka& track, std::size_t count, int firstDate)
{
    NewMarks newMarks(track, count, OldMarks::renewed);
    for (std::size_t i = 0; i < count; ++i) {
        TRecLabelPervichka_File& mark = newMarks.next();
        expectMark(mark, nothing);
        mark.date = firstDate++;
        mark.filtr = "a filter with a name of more than fifteen letters";
        mark.LinkList = {1, 2, 3};
    }
}

} // namespace

TEST(SetMeasured, SetsItsFieldsAndLeavesTheOthers)
{
    TRecLabelPervichka_File mark;
    mark.filtr = "V";
    mark.iF = 7;
    setMeasured(mark, {60000, 0.5, 15.25, -0.5, 9.5});
    EXPECT_EQ(measured(mark), (Measured{60000, 0.5, 15.25, -0.5, 9.5}));
    EXPECT_EQ(std::string(mark.filtr), "V");
    EXPECT_EQ(int{mark.iF}, 7);
}

TEST(TrackGathering, TracksStandInTheOrderOfTheirFirstMarks)
{
    TrackGathering<MeasuredMark> gathering;
    const char* const names[] = {"b", "a", "b", "c", "a", "a", "b"};
    int date = 0;
    for (const char* name : names) {
        gathering.add(name, {++date, 0, 0, 0, 0});
    }
    EXPECT_EQ(gathering.count(), 3U);
    const auto tracks = tracksOf(gathering);
    EXPECT_EQ(marksOf(tracks), (std::vector<std::string>{"b: 1 3 7", "a: 2 5 6", "c: 4"}));
    EXPECT_EQ(gathering.count(), 0U);
}

TEST(TrackGathering, NamesOfManyObjectsStayTold)
{
    TrackGathering<MeasuredMark> gathering;
    for (int round = 0; round < 2; ++round) {
        for (int object = 0; object < 5000; ++object) {
            gathering.add("object with a long name " + std::to_string(object), {object, 0, 0, 0, 0});
        }
    }
    const auto tracks = tracksOf(gathering);
    ASSERT_EQ(tracks.size(), 5000U);
    EXPECT_EQ(tracks[4321].QRVName, "object with a long name 4321");
    EXPECT_EQ(tracks[4321].Marks.size(), 2U);
}

TEST(TrackGathering, NothingGivesNothing)
{
    TrackGathering<MeasuredMark> gathering;
    EXPECT_TRUE(tracksOf(gathering).empty());
}

TEST(TrackGathering, ATrackOfManyChunksKeepsItsOrder)
{
    TrackGathering<MeasuredMark> gathering;
    for (int date = 0; date < 100000; ++date) {
        gathering.add(date % 3 == 0 ? "a" : "b", {date, 0, 0, 0, 0});
    }
    TrackVtorichka track;
    ASSERT_TRUE(gathering.next(track, OldMarks::renewed, nameTrack, setMeasured));
    ASSERT_EQ(track.Marks.size(), 33334U);
    EXPECT_EQ(int{track.Marks[12345].date}, 37035);
    ASSERT_TRUE(gathering.next(track, OldMarks::renewed, nameTrack, setMeasured));
    EXPECT_EQ(int{track.Marks.back().date}, 99998);
    EXPECT_FALSE(gathering.next(track, OldMarks::renewed, nameTrack, setMeasured));
}

TEST(TrackSequence, MarksGoToTheTrackThatWasAddedLast)
{
    NamedSequence sequence;
    EXPECT_TRUE(sequence.empty());
    sequence.addTrack("a");
    sequence.addMark({1, 0, 0, 0, 0});
    sequence.addTrack("");
    sequence.addTrack("b");
    sequence.addMark({2, 0, 0, 0, 0});
    sequence.addMark({3, 0, 0, 0, 0});
    sequence.lastHead() = "c";
    EXPECT_FALSE(sequence.empty());
    EXPECT_EQ(sequence.count(), 3U);
    EXPECT_EQ(marksOf(tracksOf(sequence)), (std::vector<std::string>{"a: 1", ":", "c: 2 3"}));
    EXPECT_EQ(sequence.count(), 0U);
}

TEST(TrackSequence, ATrackMayRepeatMarks)
{
    NamedSequence sequence;
    sequence.addTrack("a");
    sequence.addMark({1, 0, 0, 0, 0});
    sequence.addMark({2, 0, 0, 0, 0});
    sequence.addTrack("b");
    sequence.addMark({3, 0, 0, 0, 0});
    sequence.beginLastTrackAt(1);
    EXPECT_EQ(sequence.markCount(), 3U);
    EXPECT_EQ(sequence.marksOfTracks(), 4U);
    EXPECT_EQ(marksOf(tracksOf(sequence)), (std::vector<std::string>{"a: 1 2", "b: 2 3"}));
}

TEST(TrackSequence, MarksMayWaitForTheirTrack)
{
    NamedSequence sequence;
    sequence.addWaitingMark({1, 0, 0, 0, 0});
    sequence.addWaitingMark({2, 0, 0, 0, 0});
    EXPECT_TRUE(sequence.empty());
    EXPECT_EQ(sequence.markCount(), 2U);
    sequence.addTrack("a");
    sequence.beginLastTrackAt(1);
    sequence.addWaitingMark({3, 0, 0, 0, 0});
    sequence.addTrack("b");
    sequence.addWaitingMark({4, 0, 0, 0, 0});
    EXPECT_EQ(sequence.marksOfTracks(), 1U);
    EXPECT_EQ(marksOf(tracksOf(sequence)), (std::vector<std::string>{"a: 2", "b:"}));
}

TEST(NewMarks, TakeThePlacesOfThoseBefore)
{
    TrackVtorichka track;
    for (const std::size_t count : {3U, 5U, 2U, 0U, 1U}) {
        giveMarks(track, count, 100);
        ASSERT_EQ(track.Marks.size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(int{track.Marks[i].date}, 100 + static_cast<int>(i));
        }
    }
}

TEST(NewMarks, KeepTheMemory)
{
    TrackVtorichka track;
    giveMarks(track, 5, 0);
    const TRecLabelPervichka_File* const memory = track.Marks.data();
    giveMarks(track, 2, 0);
    giveMarks(track, 5, 0);
    EXPECT_EQ(track.Marks.data(), memory);
}
