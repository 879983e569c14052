#include "math/series_measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

using namespace tavelinMath;
using tavelinUtils::THeadBlobs;
using tavelinUtils::TIndVK;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;
using tavelinUtils::TRepresent;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

using Indexes = std::vector<int>;
using Tags = std::vector<std::vector<int>>;

THeadBlobs frameAt(int date, double time)
{
    THeadBlobs frame;
    frame.date = date;
    frame.time = time;
    return frame;
}

// Frames with these gaps between them, in 1024ths of a day: gaps that are equal here are equal as doubles.
std::vector<THeadBlobs> framesWithGaps(const Indexes& gaps)
{
    int place = 1020; // the first night goes over midnight
    std::vector<THeadBlobs> frames;
    const auto add = [&] { frames.push_back(frameAt(60000 + place / 1024, (place % 1024) / 1024.0)); };
    add();
    for (const int gap : gaps) {
        place += gap;
        add();
    }
    return frames;
}

std::vector<THeadBlobs> evenFrames(std::size_t count)
{
    if (count == 0) {
        return {};
    }
    return framesWithGaps(Indexes(count - 1, 1));
}

struct Runs
{
    Indexes starts, ends;
};

Runs runsOf(double factor, const std::vector<THeadBlobs>& frames, bool split = false)
{
    Runs runs{{77, 78, 79}, {87}};
    SetSubSeries2(factor, frames, split, runs.starts, runs.ends);
    return runs;
}

void expectRuns(const Runs& runs, const Indexes& starts, const Indexes& ends)
{
    EXPECT_EQ(runs.starts, starts);
    EXPECT_EQ(runs.ends, ends);
}

TrackVtorichka trackOf(const std::string& secondName, const std::vector<double>& amplitudes, double distance)
{
    TrackVtorichka track;
    track.NORAD = secondName;
    for (const double amplitude : amplitudes) {
        TRecLabelPervichka_File mark;
        mark.A = amplitude;
        mark.mInstr = 90.0;
        mark.mInstr1000 = 91.0;
        mark.SpareTail = distance;
        track.Marks.push_back(mark);
    }
    return track;
}

void expectMagnitudes(const TRecLabelPervichka_File& mark, double instrumental, double atReference)
{
    const double first = mark.mInstr;
    const double second = mark.mInstr1000;
    EXPECT_DOUBLE_EQ(first, instrumental);
    EXPECT_DOUBLE_EQ(second, atReference);
}

THeadBlobs frameOfBlobs(int number, std::size_t blobs)
{
    THeadBlobs frame;
    frame.FrameNumber = number;
    frame.Marks.resize(blobs);
    for (TRecLabelPervichka_File& mark : frame.Marks) {
        mark.Tag1 = -9;
    }
    return frame;
}

TRepresent groupOf(const std::vector<TIndVK>& items)
{
    TRepresent group;
    group.Index = 99;
    group.Items = items;
    return group;
}

Tags tagsOf(const std::vector<THeadBlobs>& frames)
{
    Tags tags;
    for (const THeadBlobs& frame : frames) {
        tags.emplace_back();
        for (const TRecLabelPervichka_File& mark : frame.Marks) {
            const int tag = mark.Tag1;
            tags.back().push_back(tag);
        }
    }
    return tags;
}

} // namespace

static_assert(std::is_same_v<decltype(&CalcInstrMagnitude), void (*)(std::vector<TrackVtorichka>&, double)>);
static_assert(std::is_same_v<decltype(&cInstrumentMag), double (*)(double)>);
static_assert(std::is_same_v<decltype(&cInstrumentMag_addbyrange), double (*)(double, double)>);
static_assert(std::is_same_v<decltype(&SetSubSeries2),
                             void (*)(double, const std::vector<THeadBlobs>&, bool, Indexes&, Indexes&)>);
static_assert(std::is_same_v<decltype(&cdeltaMin), double (*)(int, int, const std::vector<THeadBlobs>&)>);
static_assert(std::is_same_v<decltype(&CalcDeltaUTC), int (*)(double)>);
static_assert(
    std::is_same_v<decltype(&iICtoBlob), void (*)(const std::vector<TRepresent>&, std::vector<THeadBlobs>&)>);

TEST(InstrumentalMagnitude, FluxAgainstTenToTheTenth)
{
    const struct
    {
        double flux, magnitude;
    } rows[] = {
        {1e10, 0.0},  {0.0, 0.0},  {-0.0, 0.0},  {1e8, 5.0},
        {1e12, -5.0}, {1.0, 25.0}, {1e11, -2.5}, {5e9, 0.7525749891599529},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.flux);
        EXPECT_DOUBLE_EQ(cInstrumentMag(row.flux), row.magnitude);
    }
    EXPECT_TRUE(std::isnan(cInstrumentMag(-1e10)));
    EXPECT_TRUE(std::isnan(cInstrumentMag(notANumber)));
    EXPECT_EQ(cInstrumentMag(infinity), -infinity);
}

TEST(InstrumentalMagnitude, DistanceAgainstTheReference)
{
    const struct
    {
        double range, reference, added;
    } rows[] = {
        {1000.0, 1000.0, 0.0},  {10000.0, 1000.0, -5.0},
        {100.0, 1000.0, 5.0},   {2000.0, 1000.0, -1.505149978319906},
        {-10.0, -1000.0, 10.0}, {500.0, 0.0, 0.0},
        {0.0, 0.0, 0.0},        {500.0, -0.0, 0.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.range << " over " << row.reference);
        EXPECT_DOUBLE_EQ(cInstrumentMag_addbyrange(row.range, row.reference), row.added);
    }
    EXPECT_EQ(cInstrumentMag_addbyrange(0.0, 1000.0), infinity);
    EXPECT_TRUE(std::isnan(cInstrumentMag_addbyrange(-1.0, 1000.0)));
    EXPECT_TRUE(std::isnan(cInstrumentMag_addbyrange(1.0, notANumber)));
    EXPECT_EQ(cInstrumentMag_addbyrange(notANumber, 0.0), 0.0);
}

TEST(InstrumentalMagnitude, TrackWithSecondNameIsBroughtToTheReference)
{
    std::vector<TrackVtorichka> tracks{trackOf("25544", {1e8, 1e12, 0.0}, 10000.0)};
    CalcInstrMagnitude(tracks, 1000.0);
    expectMagnitudes(tracks[0].Marks[0], 5.0, 0.0);
    expectMagnitudes(tracks[0].Marks[1], -5.0, -10.0);
    expectMagnitudes(tracks[0].Marks[2], 0.0, -5.0);
}

TEST(InstrumentalMagnitude, EachMarkHasADistanceOfItsOwn)
{
    std::vector<TrackVtorichka> tracks{trackOf("25544", {1e8, 1e8}, 100.0)};
    tracks[0].Marks[1].SpareTail = 1000.0;
    CalcInstrMagnitude(tracks, 1000.0);
    expectMagnitudes(tracks[0].Marks[0], 5.0, 10.0);
    expectMagnitudes(tracks[0].Marks[1], 5.0, 5.0);
}

TEST(InstrumentalMagnitude, TrackWithoutSecondNameKeepsWhatItHad)
{
    for (const double reference : {1000.0, 0.0}) {
        SCOPED_TRACE(reference);
        std::vector<TrackVtorichka> tracks{trackOf("", {1e8, 1e12}, 10000.0)};
        tracks[0].QRVName = "25544";
        CalcInstrMagnitude(tracks, reference);
        expectMagnitudes(tracks[0].Marks[0], 5.0, 91.0);
        expectMagnitudes(tracks[0].Marks[1], -5.0, 91.0);
    }
}

TEST(InstrumentalMagnitude, ReferenceOfZeroAddsNothing)
{
    std::vector<TrackVtorichka> tracks{trackOf(" ", {1e8, 1e12}, 10000.0)};
    CalcInstrMagnitude(tracks, 0.0);
    expectMagnitudes(tracks[0].Marks[0], 5.0, 5.0);
    expectMagnitudes(tracks[0].Marks[1], -5.0, -5.0);
}

TEST(InstrumentalMagnitude, AllTracksAreFilledAndThoseWithoutMarksPassedOver)
{
    std::vector<TrackVtorichka> tracks{trackOf("A", {}, 1.0), trackOf("B", {1e8}, 100.0),
                                       trackOf("", {1e9}, 100.0), trackOf("", {}, 1.0),
                                       trackOf("C", {1e8}, 1000.0)};
    CalcInstrMagnitude(tracks, 1000.0);
    ASSERT_EQ(tracks.size(), 5u);
    EXPECT_TRUE(tracks[0].Marks.empty());
    expectMagnitudes(tracks[1].Marks[0], 5.0, 10.0);
    expectMagnitudes(tracks[2].Marks[0], 2.5, 91.0);
    EXPECT_TRUE(tracks[3].Marks.empty());
    expectMagnitudes(tracks[4].Marks[0], 5.0, 5.0);
    std::vector<TrackVtorichka> none;
    CalcInstrMagnitude(none, 1000.0);
    EXPECT_TRUE(none.empty());
}

TEST(InstrumentalMagnitude, OddDistancesAndAmplitudesPassThrough)
{
    std::vector<TrackVtorichka> tracks{trackOf("A", {-1.0, 1e8}, 0.0)};
    CalcInstrMagnitude(tracks, 1000.0);
    const double dark = tracks[0].Marks[0].mInstr, near = tracks[0].Marks[1].mInstr1000;
    EXPECT_TRUE(std::isnan(dark));
    EXPECT_EQ(near, infinity);
    CalcInstrMagnitude(tracks, notANumber);
    const double nowhere = tracks[0].Marks[1].mInstr1000;
    EXPECT_TRUE(std::isnan(nowhere));
}

TEST(FrameGap, MinutesFromTheSecondFrameToTheFirst)
{
    const std::vector<THeadBlobs> frames{frameAt(60000, 0.75), frameAt(60001, 0.25), frameAt(60001, 0.5)};
    EXPECT_EQ(cdeltaMin(1, 0, frames), 720.0);
    EXPECT_EQ(cdeltaMin(0, 1, frames), -720.0);
    EXPECT_EQ(cdeltaMin(2, 1, frames), 360.0);
    EXPECT_EQ(cdeltaMin(2, 0, frames), 1080.0);
    EXPECT_EQ(cdeltaMin(1, 1, frames), 0.0);
}

// Day and fraction are one number first, which has no room for less than about a microsecond.
TEST(FrameGap, FractionsThatTheDayHasNoRoomForAreLost)
{
    const std::vector<THeadBlobs> frames{frameAt(60000, 0.0), frameAt(60000, 1e-13)};
    EXPECT_EQ(cdeltaMin(1, 0, frames), 0.0);
}

TEST(FrameGap, FramesThatAreNotThereAreZeroApart)
{
    const std::vector<THeadBlobs> frames{frameAt(60000, 0.75), frameAt(60001, 0.25)};
    for (const int place : {-1, 2, lowest, highest}) {
        SCOPED_TRACE(place);
        EXPECT_EQ(cdeltaMin(place, 0, frames), 0.0);
        EXPECT_EQ(cdeltaMin(0, place, frames), 0.0);
        EXPECT_EQ(cdeltaMin(place, place, frames), 0.0);
        EXPECT_EQ(cdeltaMin(place, place, {}), 0.0);
    }
}

TEST(FrameGap, OddTimesPassThrough)
{
    const std::vector<THeadBlobs> frames{frameAt(60000, notANumber), frameAt(highest, infinity),
                                         frameAt(lowest, 0.5)};
    EXPECT_TRUE(std::isnan(cdeltaMin(0, 2, frames)));
    EXPECT_EQ(cdeltaMin(1, 2, frames), infinity);
    EXPECT_TRUE(std::isnan(cdeltaMin(1, 1, frames)));
}

TEST(SubSeries, FewerThanFourFramesAreOneRun)
{
    for (const bool split : {false, true}) {
        SCOPED_TRACE(split);
        expectRuns(runsOf(1.0, {}, split), {0}, {-1});
        expectRuns(runsOf(1.0, evenFrames(1), split), {0}, {0});
        expectRuns(runsOf(1.0, evenFrames(2), split), {0}, {1});
        expectRuns(runsOf(1.0, evenFrames(3), split), {0}, {2});
        expectRuns(runsOf(1.0, framesWithGaps({100, 1}), split), {0}, {2});
    }
}

TEST(SubSeries, EvenGapsAreOneRun)
{
    for (const int count : {4, 5, 6, 7, 20, 50}) {
        SCOPED_TRACE(count);
        expectRuns(runsOf(1.0, evenFrames(static_cast<std::size_t>(count))), {0}, {count - 1});
    }
}

TEST(SubSeries, FrameBehindALargeGapStartsARun)
{
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 1, 1, 1})), {0, 4}, {3, 7});
}

TEST(SubSeries, EachLargeGapStartsARun)
{
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 1, 1, 1, 20, 1, 1, 1, 1, 15, 1, 1, 1})),
               {0, 4, 8, 13}, {3, 7, 12, 16});
}

TEST(SubSeries, LastTwoFramesStartNoRun)
{
    // Frame 4 has one, then two frames after it.
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 1})), {0}, {5});
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 1, 1})), {0, 4}, {3, 6});
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10})), {0}, {4});
}

TEST(SubSeries, FirstThreeFramesStartNoRun)
{
    expectRuns(runsOf(1.0, framesWithGaps({1, 10, 1, 1, 1, 1})), {0}, {6});
    expectRuns(runsOf(1.0, framesWithGaps({10, 1, 1, 1, 1, 1})), {0}, {6});
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 10, 1, 1, 1})), {0, 3}, {2, 6});
}

TEST(SubSeries, GapMustShrinkAgain)
{
    // Frame 4 is between gaps of 10 and 10, frame 5 between 10 and 1.
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 10, 1, 1, 1})), {0, 5}, {4, 8});
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, 10, 11, 12, 13, 14})), {0}, {8});
}

TEST(SubSeries, RunOfOneOrTwoFramesIsGoneOnWith)
{
    // The gaps before frames 5, 6 and 7 (8, 6, 4) are all larger than half of those before them and shrink;
    // only the run that starts at 4 is long enough by frame 7.
    expectRuns(runsOf(0.5, framesWithGaps({1, 1, 1, 10, 8, 6, 4, 1, 1, 1, 1})), {0, 4, 7}, {3, 6, 11});
    expectRuns(runsOf(0.5, framesWithGaps({1, 1, 1, 10, 8, 6, 1, 1, 1, 1})), {0, 4}, {3, 10});
}

TEST(SubSeries, GapMustReachTheFactorTimesTheOneBefore)
{
    expectRuns(runsOf(2.0, framesWithGaps({1, 1, 6, 10, 1, 1, 1})), {0}, {7});
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 6, 10, 1, 1, 1})), {0, 4}, {3, 7});
    // At the limit it starts a run: 2 times 5 is not above 10.
    expectRuns(runsOf(2.0, framesWithGaps({1, 1, 5, 10, 1, 1, 1})), {0, 4}, {3, 7});
}

TEST(SubSeries, ShrinkingGapsAreHeldTogetherByTheFactor)
{
    const std::vector<THeadBlobs> frames = framesWithGaps({9, 8, 7, 6, 5, 4, 3, 2, 1});
    expectRuns(runsOf(1.0, frames), {0}, {9});
    expectRuns(runsOf(infinity, frames), {0}, {9});
    // Seven eighths of 8 are 7, so frame 3 starts a run; of 5 they are more than 4.
    expectRuns(runsOf(0.875, frames), {0, 3}, {2, 9});
    for (const double factor : {0.0, -1.0, -infinity, notANumber}) {
        SCOPED_TRACE(factor);
        expectRuns(runsOf(factor, frames), {0, 3, 6}, {2, 5, 9});
    }
}

TEST(SubSeries, FramesOfOneTimeAreOneRun)
{
    expectRuns(runsOf(1.0, framesWithGaps({0, 0, 0, 0, 0, 0, 0})), {0}, {7});
    // Zero times infinity is no number, and not above the gap either.
    expectRuns(runsOf(infinity, framesWithGaps({0, 0, 0, 5, 0, 0, 0})), {0, 4}, {3, 7});
}

TEST(SubSeries, FramesThatGoBackInTimeHaveGapsBelowZero)
{
    // Before frame 4 there are 2 backwards, after it 5 backwards, and -3 is not above -2.
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, -3, -2, -5, 1, 1, 1})), {0, 4}, {3, 8});
    // A step back is smaller than the gap before it, so the frame that it leaves starts a run.
    expectRuns(runsOf(1.0, framesWithGaps({1, 1, 1, -2, 1, 1, 1})), {0, 3}, {2, 7});
}

TEST(SubSeries, TimesThatAreNoNumbersStartARunBehindEveryThreeFrames)
{
    const std::vector<THeadBlobs> frames(10, frameAt(60000, notANumber));
    expectRuns(runsOf(1.0, frames), {0, 3, 6}, {2, 5, 9});
    expectRuns(runsOf(1.0, std::vector<THeadBlobs>(10, frameAt(60000, infinity))), {0, 3, 6}, {2, 5, 9});
}

TEST(SubSeries, UpToTwentyFramesAreNotSplit)
{
    for (const int count : {4, 10, 19, 20}) {
        SCOPED_TRACE(count);
        expectRuns(runsOf(1.0, evenFrames(static_cast<std::size_t>(count)), true), {0}, {count - 1});
    }
}

TEST(SubSeries, OneRunOfMoreThanTwentyFramesIsSplitIntoTens)
{
    expectRuns(runsOf(1.0, evenFrames(21), true), {0, 10}, {9, 20});
    expectRuns(runsOf(1.0, evenFrames(29), true), {0, 10}, {9, 28});
    expectRuns(runsOf(1.0, evenFrames(30), true), {0, 10, 20}, {9, 19, 29});
    expectRuns(runsOf(1.0, evenFrames(35), true), {0, 10, 20}, {9, 19, 34});
    expectRuns(runsOf(1.0, evenFrames(109), true), {0, 10, 20, 30, 40, 50, 60, 70, 80, 90},
               {9, 19, 29, 39, 49, 59, 69, 79, 89, 108});
    expectRuns(runsOf(1.0, evenFrames(35), false), {0}, {34});
}

TEST(SubSeries, SeveralRunsAreNotSplit)
{
    Indexes gaps(29, 1);
    gaps[14] = 10;
    expectRuns(runsOf(1.0, framesWithGaps(gaps), true), {0, 15}, {14, 29});
    expectRuns(runsOf(1.0, framesWithGaps(gaps), false), {0, 15}, {14, 29});
}

TEST(FrameAngle, LineBetweenTwoPointsWithYUpwards)
{
    const struct
    {
        const char* where;
        double x1, y1, x2, y2, angle;
    } rows[] = {
        {"to the right", 0, 0, 10, 0, 0.0},
        {"to the left", 10, 0, 0, 0, 180.0},
        {"downwards", 0, 0, 0, 10, 90.0},
        {"upwards", 0, 10, 0, 0, 90.0},
        {"down to the right", 0, 0, 10, 10, 135.0},
        {"up to the left", 10, 10, 0, 0, 135.0},
        {"up to the right", 0, 10, 10, 0, 45.0},
        {"down to the left", 10, 0, 0, 10, 45.0},
        {"flat up to the right", 0, 1, 1.7320508075688772, 0, 30.0},
        {"flat down to the right", 0, 0, 1.7320508075688772, 1, 150.0},
        {"steep up to the right", 20, 31.7320508075688772, 21, 30, 60.0},
    };
    const struct
    {
        int width, height;
    } sizes[] = {{100, 200}, {101, 203}, {0, 0}, {4096, 1}};
    for (const auto& row : rows) {
        for (const auto& size : sizes) {
            SCOPED_TRACE(testing::Message() << row.where << " of " << size.width << " x " << size.height);
            EXPECT_NEAR(cAngleBetweenPoints(row.y1, row.x1, row.y2, row.x2, size.width, size.height),
                        row.angle, 1e-9);
        }
    }
}

TEST(FrameAngle, EqualPointsHaveNone)
{
    EXPECT_TRUE(std::isnan(cAngleBetweenPoints(5.0, 7.0, 5.0, 7.0, 100, 100)));
    EXPECT_TRUE(std::isnan(cAngleBetweenPoints(0.0, 0.0, 0.0, 0.0, 0, 0)));
}

TEST(FrameAngle, PointsThatAreNoNumbersHaveNone)
{
    EXPECT_TRUE(std::isnan(cAngleBetweenPoints(notANumber, 0.0, 1.0, 1.0, 100, 100)));
    EXPECT_TRUE(std::isnan(cAngleBetweenPoints(0.0, infinity, 1.0, 1.0, 100, 100)));
}

TEST(FrameAngle, FramesOfAnySizeAreTaken)
{
    for (const int size : {lowest, -1, highest}) {
        SCOPED_TRACE(size);
        EXPECT_NEAR(cAngleBetweenPoints(0.0, 0.0, 16.0, 16.0, size, size), 135.0, 1e-9);
    }
}

TEST(RangeDoppler, DistanceCountsRowsFromTheEnd)
{
    double distance = 0, velocity = 0;
    cDistAndVelo(1024, 512, 3.0, 6.0, 1.0, 0.5, 512.0, 500.0, distance, velocity);
    EXPECT_DOUBLE_EQ(distance, 18.0);
    EXPECT_DOUBLE_EQ(velocity, 0.0);
    cDistAndVelo(1024, 512, 3.0, 6.0, 1.0, 0.5, 512.0, 512.0, distance, velocity);
    EXPECT_DOUBLE_EQ(distance, 0.0);
    cDistAndVelo(1024, 512, 3.0, 6.0, 1.0, 0.5, 512.0, 514.5, distance, velocity);
    EXPECT_DOUBLE_EQ(distance, -3.75);
}

TEST(RangeDoppler, VelocityCountsColumnsFromTheMiddle)
{
    const struct
    {
        int columns;
        double column, velocity;
    } rows[] = {
        {1024, 514.0, -149896229.0}, {1024, 510.0, 149896229.0}, {1024, 512.0, 0.0},
        {1025, 514.0, -149896229.0}, {1025, 512.0, 0.0},         {1025, 512.5, -37474057.25},
        {1, 2.0, -149896229.0},      {0, -2.0, 149896229.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.column << " of " << row.columns);
        double distance = 0, velocity = -1;
        cDistAndVelo(row.columns, 512, 3.0, 6.0, 3.0, 0.5, row.column, 500.0, distance, velocity);
        EXPECT_DOUBLE_EQ(velocity, row.velocity);
        EXPECT_DOUBLE_EQ(distance, 18.0);
    }
}

TEST(RangeDoppler, OddNumbersPassThrough)
{
    double distance = 0, velocity = 0;
    cDistAndVelo(1024, 512, 3.0, 0.0, 1.0, 0.5, 514.0, 500.0, distance, velocity);
    EXPECT_EQ(velocity, -infinity);
    cDistAndVelo(1024, 512, 3.0, 0.0, 1.0, 0.5, 512.0, 500.0, distance, velocity);
    EXPECT_TRUE(std::isnan(velocity));
    cDistAndVelo(highest, lowest, 1.0, 1.0, 1.0, 1.0, 0.0, highest, distance, velocity);
    EXPECT_DOUBLE_EQ(distance, -4294967295.0);
    cDistAndVelo(lowest, highest, 1.0, 1.0, 1.0, 1.0, 0.0, notANumber, distance, velocity);
    EXPECT_TRUE(std::isnan(distance));
    EXPECT_DOUBLE_EQ(velocity, -1073741824.0 * 149896229.0);
}

TEST(TimeZone, WholeHoursCutTowardsZero)
{
    const struct
    {
        double longitude;
        int hours;
    } rows[] = {
        {0.0, 0},      {14.999, 0}, {15.0, 1},   {15.999, 1}, {29.999, 1},   {30.0, 2},    {37.6, 2},
        {179.99, 11},  {180.0, 12}, {359.9, 23}, {360.0, 24}, {-0.5, 0},     {-14.999, 0}, {-15.0, -1},
        {-29.999, -1}, {-30.0, -2}, {-37.6, -2}, {-70.4, -4}, {-180.0, -12}, {725.0, 48},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.longitude);
        EXPECT_EQ(CalcDeltaUTC(row.longitude), row.hours);
    }
}

TEST(TimeZone, LongitudesBeyondTheRangeCountAsItsEnds)
{
    EXPECT_EQ(CalcDeltaUTC(notANumber), 0);
    for (const double large : {3e9, 1e300, infinity}) {
        SCOPED_TRACE(large);
        EXPECT_EQ(CalcDeltaUTC(large), 143165576);
        EXPECT_EQ(CalcDeltaUTC(-large), -143165576);
    }
}

TEST(GroupsInBlobs, BlobsTakeTheNumberOfTheirGroup)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(1, 3), frameOfBlobs(2, 2), frameOfBlobs(7, 1)};
    iICtoBlob({groupOf({{1, 0, 55}, {2, 1, 55}}), groupOf({{7, 0, 55}, {1, 2, 55}})}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{0, -9, 1}, {-9, 0}, {1}}));
}

TEST(GroupsInBlobs, FramesAreFoundByTheirNumberAndNotByTheirPlace)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(2, 2), frameOfBlobs(0, 2), frameOfBlobs(-5, 2)};
    iICtoBlob({groupOf({}), groupOf({{0, 0, 0}}), groupOf({{-5, 1, 0}}), groupOf({{2, 0, 0}})}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{3, -9}, {1, -9}, {-9, 2}}));
}

TEST(GroupsInBlobs, UnknownFramesArePassedOver)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(1, 1), frameOfBlobs(2, 1)};
    iICtoBlob({groupOf({{3, 0, 0}, {0, 0, 0}, {-1, 0, 0}, {lowest, 0, 0}, {2, 0, 0}})}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{-9}, {0}}));
}

TEST(GroupsInBlobs, BlobsThatAFrameDoesNotHaveArePassedOver)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(1, 2), frameOfBlobs(2, 0)};
    iICtoBlob({groupOf({{1, 2, 0}, {1, -1, 0}, {1, highest, 0}, {1, lowest, 0}, {2, 0, 0}, {1, 1, 0}})},
              frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{-9, 0}, {}}));
}

TEST(GroupsInBlobs, FirstOfTwoFramesOfOneNumberIsTaken)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(5, 1), frameOfBlobs(5, 3)};
    iICtoBlob({groupOf({{5, 0, 0}, {5, 2, 0}})}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{0}, {-9, -9, -9}}));
}

TEST(GroupsInBlobs, LastGroupThatHasABlobCounts)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(5, 2)};
    iICtoBlob({groupOf({{5, 0, 0}, {5, 1, 0}}), groupOf({{5, 1, 0}}), groupOf({})}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{0, 1}}));
}

TEST(GroupsInBlobs, OtherTagsAndFieldsStay)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(5, 1)};
    frames[0].Marks[0].Tag2 = 2;
    frames[0].Marks[0].LinkIndex = 3;
    iICtoBlob({groupOf({{5, 0, 44}})}, frames);
    const int second = frames[0].Marks[0].Tag2, link = frames[0].Marks[0].LinkIndex;
    EXPECT_EQ(second, 2);
    EXPECT_EQ(link, 3);
    EXPECT_EQ(frames[0].FrameNumber, 5);
}

TEST(GroupsInBlobs, NothingToCarry)
{
    std::vector<THeadBlobs> frames{frameOfBlobs(5, 1)};
    iICtoBlob({}, frames);
    EXPECT_EQ(tagsOf(frames), (Tags{{-9}}));
    std::vector<THeadBlobs> none;
    iICtoBlob({groupOf({{5, 0, 0}})}, none);
    EXPECT_TRUE(none.empty());
}
