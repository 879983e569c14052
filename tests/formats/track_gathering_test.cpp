#include "formats/track_gathering.h"

#include "support/measured_marks.h"

#include <gtest/gtest.h>

#include <string>
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

void nameTrack(TrackVtorichka& track, const std::string& name)
{
    track.QRVName = name;
}

} // namespace

TEST(SetMeasured, SetsFiveFieldsAndLeavesTheOthers)
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
    const auto tracks = gathering.tracks(nameTrack, setMeasured);
    EXPECT_EQ(marksOf(tracks), (std::vector<std::string>{"b: 1 3 7", "a: 2 5 6", "c: 4"}));
    EXPECT_EQ(tracks[0].Marks.capacity(), 3U);
}

TEST(TrackGathering, NamesOfManyObjectsStayTold)
{
    TrackGathering<MeasuredMark> gathering;
    for (int round = 0; round < 2; ++round) {
        for (int object = 0; object < 5000; ++object) {
            gathering.add("object with a long name " + std::to_string(object), {object, 0, 0, 0, 0});
        }
    }
    const auto tracks = gathering.tracks(nameTrack, setMeasured);
    ASSERT_EQ(tracks.size(), 5000U);
    EXPECT_EQ(tracks[4321].QRVName, "object with a long name 4321");
    EXPECT_EQ(tracks[4321].Marks.size(), 2U);
}

TEST(TrackGathering, NothingGivesNothing)
{
    const TrackGathering<MeasuredMark> gathering;
    EXPECT_TRUE(gathering.tracks(nameTrack, setMeasured).empty());
}

TEST(TrackSequence, MarksGoToTheTrackThatWasAddedLast)
{
    TrackSequence sequence;
    EXPECT_TRUE(sequence.empty());
    sequence.addTrack().QRVName = "a";
    sequence.addMark({1, 0, 0, 0, 0});
    sequence.addTrack();
    sequence.addTrack().QRVName = "c";
    sequence.addMark({2, 0, 0, 0, 0});
    sequence.addMark({3, 0, 0, 0, 0});
    sequence.lastTrack().NORAD = "n";
    EXPECT_FALSE(sequence.empty());
    const auto tracks = sequence.takeTracks();
    EXPECT_EQ(marksOf(tracks), (std::vector<std::string>{"a: 1", ":", "c: 2 3"}));
    EXPECT_EQ(tracks[2].NORAD, "n");
    EXPECT_TRUE(sequence.empty());
    sequence.addTrack().QRVName = "d";
    sequence.addMark({4, 0, 0, 0, 0});
    EXPECT_EQ(marksOf(sequence.takeTracks()), (std::vector<std::string>{"d: 4"}));
}
