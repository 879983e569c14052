#include "reading/mark_comparison.h"

#include "reading/brightness_reading.h"
#include "reading/sky_angle.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace companion;
using testing::ElementsAre;

constexpr double secondsOfDay = 86400;

// Two files of marks of one form, and what a comparison says of them.
class Comparison
{
public:
    explicit Comparison(const char* format = "mpc") : form(*comparedForm(format))
    {
    }

    // A mark at so many seconds of a day.
    ComparedMark mark(double seconds, double RA = 100, double DE = 20, double magnitude = 18,
                      const std::string& object = "X1")
    {
        ComparedMark result{};
        result.day = 60000;
        result.fraction = seconds / secondsOfDay;
        result.RA = RA;
        result.DE = DE;
        result.magnitude = magnitude;
        result.object = texts.objects.numberOf(object);
        return result;
    }

    // "*0-0": a sign and the seconds of both marks, for each pair.
    std::vector<std::string> byObject()
    {
        std::vector<std::string> all;
        MarkComparison(form, form, tolerance, texts).byObject(a, b, adding(all));
        return all;
    }

    std::vector<std::string> byPosition()
    {
        std::vector<std::string> all;
        MarkComparison(form, form, tolerance, texts).byPosition(a, b, adding(all));
        return all;
    }

    const ComparedForm& form;
    MarkTolerance tolerance{};
    ComparedTexts texts{};
    std::vector<ComparedMark> a{};
    std::vector<ComparedMark> b{};

private:
    static std::string secondsText(const ComparedMark* mark)
    {
        return mark == nullptr ? "" : std::to_string(std::lround(mark->fraction * secondsOfDay));
    }

    static MarkComparison::Use adding(std::vector<std::string>& all)
    {
        return [&all](const ComparedPair& pair) {
            const char* const sign = pair.isEqual()                           ? "="
                                     : pair.a != nullptr && pair.b != nullptr ? "*"
                                                                              : "!";
            all.push_back(sign + secondsText(pair.a) + "-" + secondsText(pair.b));
        };
    }
};

TEST(SkyAngle, FollowsTheGreatCircle)
{
    constexpr double hair = 1e-9;
    EXPECT_NEAR(angleBetween(359.9999, 0, 0.0001, 0), 0.72, 1e-6);
    EXPECT_NEAR(angleBetween(10, 60, 10 + 1.0 / 3600, 60), 0.5, 1e-6);
    EXPECT_NEAR(angleBetween(10, 89.9999, 190, 89.9999), 0.72, 1e-6);
    EXPECT_NEAR(angleBetween(10, 90, 190, -90), 180 * 3600.0, 1e-6);
    EXPECT_NEAR(angleBetween(10, 20, 10, 20 + 1e-7), 0.00036, hair);
    EXPECT_EQ(angleBetween(123.456, -78.9, 123.456, -78.9), 0);
}

TEST(MarkComparison, MarksBelongTogetherWithinTheTimeTolerance)
{
    Comparison files;
    files.tolerance.time = 2;
    files.a = {files.mark(10), files.mark(20), files.mark(30)};
    files.b = {files.mark(12), files.mark(23), files.mark(29)};
    EXPECT_THAT(files.byObject(), ElementsAre("=10-12", "!20-", "!-23", "=30-29"));
}

TEST(MarkComparison, OrderInTheFilesDoesNotMatter)
{
    Comparison files;
    files.a = {files.mark(30), files.mark(10), files.mark(20)};
    files.b = {files.mark(20), files.mark(30), files.mark(10)};
    EXPECT_THAT(files.byObject(), ElementsAre("=10-10", "=20-20", "=30-30"));
}

TEST(MarkComparison, MissingMarkDoesNotShiftTheOthersWhereTheToleranceIsWiderThanTheirSpacing)
{
    Comparison files;
    files.tolerance.time = 7;
    for (int i = 0; i < 5; ++i) {
        files.a.push_back(files.mark(5 * i, 100 + 0.01 * i));
    }
    files.b.assign(files.a.begin() + 1, files.a.end());
    EXPECT_THAT(files.byObject(), ElementsAre("!0-", "=5-5", "=10-10", "=15-15", "=20-20"));
    std::swap(files.a, files.b);
    EXPECT_THAT(files.byObject(), ElementsAre("!-0", "=5-5", "=10-10", "=15-15", "=20-20"));
}

TEST(MarkComparison, MarksOfOneMomentFindTheirsInAnyOrder)
{
    Comparison files;
    for (int i = 0; i < 10; ++i) {
        files.a.push_back(files.mark(5, 100 + i));
    }
    files.b.assign(files.a.rbegin(), files.a.rend());
    EXPECT_THAT(files.byObject(), testing::Each("=5-5"));
}

TEST(MarkComparison, AMarkOfOneMomentThatHasItsOwnIsNotTakenTwice)
{
    Comparison files;
    files.a = {files.mark(5, 100, 20, 18), files.mark(5, 100, 20, 18)};
    files.b = {files.mark(5, 100, 20, 20), files.mark(5, 100, 20, 18)};
    EXPECT_THAT(files.byObject(), ElementsAre("=5-5", "*5-5"));
}

TEST(MarkComparison, OfVeryManyNearEachOtherEachFindsOne)
{
    constexpr int many = 40000;
    Comparison files;
    files.tolerance.time = 60;
    for (int i = 0; i < many; ++i) {
        files.a.push_back(files.mark(0.001 * i, 100, 20, 18));
        files.b.push_back(files.mark(0.001 * i, 100, 20, 19));
    }
    const std::vector<std::string> pairs = files.byObject();
    EXPECT_EQ(pairs.size(), std::size_t{many});
    EXPECT_THAT(pairs, testing::Each(testing::StartsWith("*")));
}

TEST(MarkComparison, TimesThatAreRoundedToOneKeepTheirOrder)
{
    Comparison files;
    files.tolerance.time = 0.432;
    for (int i = 0; i < 40; ++i) {
        const double seconds = 0.1 * i;
        files.a.push_back(files.mark(seconds, 100 + 0.001 * i));
        files.b.push_back(files.mark(std::round(seconds / 0.864) * 0.864, 100 + 0.001 * i));
    }
    const auto pairs = files.byObject();
    EXPECT_EQ(pairs.size(), 40u);
    EXPECT_EQ(std::count_if(pairs.begin(), pairs.end(), [](const auto& each) { return each[0] != '='; }), 0);
}

TEST(MarkComparison, MarksThatDifferBelongToTheNearestTime)
{
    Comparison files;
    files.tolerance.time = 6;
    files.a = {files.mark(10), files.mark(15), files.mark(20)};
    files.b = {files.mark(15, 100, 20, 18.03), files.mark(20, 100, 20, 18.03)};
    EXPECT_THAT(files.byObject(), ElementsAre("!10-", "*15-15", "*20-20"));
    std::swap(files.a, files.b);
    EXPECT_THAT(files.byObject(), ElementsAre("!-10", "*15-15", "*20-20"));
}

TEST(MarkComparison, MarksThatAgreeBelongToTheNearestTime)
{
    Comparison files;
    files.tolerance.time = 6;
    files.a = {files.mark(10), files.mark(15), files.mark(20)};
    files.b = {files.mark(16), files.mark(21)};
    EXPECT_THAT(files.byObject(), ElementsAre("!10-", "=15-16", "=20-21"));
}

TEST(MarkComparison, OneThatAgreesComesBeforeOneThatIsNearer)
{
    Comparison files;
    files.tolerance.time = 6;
    files.a = {files.mark(10), files.mark(14, 101)};
    files.b = {files.mark(11, 101), files.mark(15)};
    EXPECT_THAT(files.byObject(), ElementsAre("=10-15", "=14-11"));
}

TEST(MarkComparison, NoMarkIsAloneBesideOneOfItsTimeThatIsAloneToo)
{
    Comparison files;
    files.tolerance.time = 1000;
    for (int i = 0; i < 200; ++i) {
        files.a.push_back(files.mark(i));
        files.b.push_back(files.mark(i % 7, 100, 20, 18.03));
    }
    EXPECT_THAT(files.byObject(), testing::Each(testing::StartsWith("*")));
}

TEST(MarkComparison, TimesMeetAcrossMidnight)
{
    Comparison files;
    files.tolerance.time = 1;
    files.a = {files.mark(secondsOfDay - 0.25)};
    files.b = {files.mark(0.25)};
    ++files.b[0].day;
    EXPECT_THAT(files.byObject(), ElementsAre("=86400-0"));
}

TEST(MarkComparison, ObjectsComeInTheOrderOfTheirBytes)
{
    Comparison files;
    files.a = {files.mark(1, 100, 20, 18, "b"), files.mark(2, 100, 20, 18, "Z")};
    files.b = {files.mark(3, 100, 20, 18, "a"), files.mark(1, 100, 20, 18, "b")};
    EXPECT_THAT(files.byObject(), ElementsAre("!2-", "!-3", "=1-1"));
}

TEST(MarkComparison, ATrackHasTheFirstOfItsNames)
{
    TrueTrack track;
    const auto nameOf = [&track] {
        ComparedTexts texts;
        MarkGathering gathering(*comparedForm("mpc"), *comparedForm("mpc"), texts);
        track.track.Marks.resize(1);
        track.marks.resize(1);
        gathering.add(track);
        return texts.objects.text(gathering.marks.at(0).object);
    };
    track.track.NORAD = "third";
    EXPECT_EQ(nameOf(), "third");
    track.track.MPCChecker = "second";
    EXPECT_EQ(nameOf(), "second");
    track.track.QRVName = "first";
    EXPECT_EQ(nameOf(), "first");
}

TEST(MarkComparison, ATimeThatIsNoneIsOfNoDay)
{
    ComparedTexts texts;
    MarkGathering gathering(*comparedForm("mpc"), *comparedForm("mpc"), texts);
    TrueTrack track;
    for (const double time : {std::numeric_limits<double>::quiet_NaN(), 1e12, -0.25}) {
        track.track.Marks.emplace_back().date = 60000;
        track.track.Marks.back().time = time;
        track.marks.emplace_back();
    }
    gathering.add(track);
    EXPECT_EQ(gathering.marks[0].day, ComparedMark::unknownDay);
    EXPECT_EQ(gathering.marks[1].day, ComparedMark::unknownDay);
    EXPECT_EQ(gathering.marks[2].day, 59999);
    EXPECT_EQ(gathering.marks[2].fraction, 0.75);
}

TEST(MarkComparison, ADesignationIsOneObjectInAllItsForms)
{
    Comparison files;
    files.a = {files.mark(10, 100, 20, 18, "K24Y04R"), files.mark(20, 100, 20, 18, "00433"),
               files.mark(30, 100, 20, 18, "AST1000")};
    files.b = {files.mark(10, 100, 20, 18, "2024 YR4"), files.mark(20, 100, 20, 18, "433"),
               files.mark(30, 100, 20, 18, "AST10000")};
    EXPECT_THAT(files.byObject(), ElementsAre("=20-20", "!30-", "!-30", "=10-10"));
    EXPECT_EQ(files.texts.objects.text(files.a[0].object), "00433");
    EXPECT_EQ(files.texts.objects.text(files.b[0].object), "00433"); // as in the first file
}

TEST(MarkComparison, EachFieldThatDiffersIsTold)
{
    Comparison files;
    files.tolerance.rightAscension = 0.075;
    files.tolerance.declination = 0.05;
    files.tolerance.magnitude = 0.05;
    const MarkComparison comparison(files.form, files.form, files.tolerance, files.texts);
    const ComparedMark mark = files.mark(5, 100, 60);
    ComparedMark other = mark;
    EXPECT_FALSE(comparison.difference(mark, other).any());
    other.DE += 0.05 / 3600;
    EXPECT_FALSE(comparison.difference(mark, other).any());
    other.DE += 0.02 / 3600;
    EXPECT_TRUE(comparison.difference(mark, other).inAngle) << "0.0625 at this declination";
    other = mark;
    other.magnitude = 18.06;
    EXPECT_TRUE(comparison.difference(mark, other).inMagnitude);
    other.magnitude = 0;
    EXPECT_TRUE(comparison.difference(mark, other).inKnownMagnitude);
    other = mark;
    other.band = files.texts.others.numberOf("V");
    EXPECT_TRUE(comparison.difference(mark, other).inBand);
    other = mark;
    other.station = files.texts.others.numberOf("K88");
    EXPECT_FALSE(comparison.difference(mark, other).any()) << "one does not tell it";
    ComparedMark elsewhere = mark;
    elsewhere.station = files.texts.others.numberOf("L01");
    EXPECT_TRUE(comparison.difference(elsewhere, other).any());
}

TEST(MarkComparison, TelescopesAndCodesAreDifferentThingsUnlessBothAreCodes)
{
    ComparedTexts texts;
    const MarkComparison comparison(*comparedForm("tdm"), *comparedForm("mpc"), {}, texts);
    const auto differ = [&](const char* a, const char* b) {
        ComparedMark first{};
        ComparedMark second{};
        first.station = texts.others.numberOf(a);
        second.station = texts.others.numberOf(b);
        return comparison.difference(first, second).inStation;
    };
    EXPECT_FALSE(differ("PTF48", "I41"));
    EXPECT_FALSE(differ("I41", "I41"));
    EXPECT_FALSE(differ("I41", "500"));
    EXPECT_TRUE(differ("K88", "I41"));
}

TEST(MarkComparison, NumbersThatAreNoneAreEqualToThemselvesAlone)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    Comparison files;
    files.a = {files.mark(1, none), files.mark(2, none), files.mark(3, 100, 20, none)};
    files.b = {files.mark(1, none), files.mark(2, 100), files.mark(3, 100, 20, none)};
    EXPECT_THAT(files.byObject(), ElementsAre("=1-1", "*2-2", "=3-3"));
    files.b[2].magnitude = 18;
    EXPECT_THAT(files.byObject(), ElementsAre("=1-1", "*2-2", "*3-3"));
    std::swap(files.a, files.b);
    EXPECT_THAT(files.byObject(), ElementsAre("=1-1", "*2-2", "*3-3"));
}

TEST(MarkComparison, TheNearestPlaceCountsWhateverTheObject)
{
    Comparison files;
    files.tolerance.time = 1;
    files.tolerance.angle = 10;
    constexpr double arcsecond = 1.0 / 3600;
    files.a = {files.mark(1, 100, 0, 18, "A"), files.mark(1, 100, 8 * arcsecond, 18, "B"),
               files.mark(9, 0.0001, 50, 18, "C"), files.mark(20, 7, 7, 18, "D")};
    files.b = {files.mark(1, 100, 9 * arcsecond, 18, "E"), files.mark(1, 100, arcsecond, 18, "F"),
               files.mark(9, 359.9999, 50, 18, "G"), files.mark(20, 7, 7 + 11 * arcsecond, 18, "H")};
    EXPECT_THAT(files.byPosition(), ElementsAre("=1-1", "=1-1", "=9-9", "!20-", "!-20"));
    EXPECT_EQ(files.texts.objects.text(files.b[1].object), "F");
}

// One that is exactly there is not left alone for an earlier one that is near.
TEST(MarkComparison, CompetingMarksGoToTheNearest)
{
    constexpr double arcsecond = 1.0 / 3600;
    Comparison files;
    files.tolerance.angle = 5;
    files.a = {files.mark(1, 100, arcsecond, 18, "A1"), files.mark(1, 100, 0, 18, "A2")};
    files.b = {files.mark(1, 100, 0, 18, "B2")};
    const auto objects = [&files] {
        std::vector<std::string> all;
        const auto add = [&](const ComparedPair& pair) {
            const auto name = [&files](const ComparedMark* mark) {
                return mark == nullptr ? "" : files.texts.objects.text(mark->object);
            };
            all.push_back(name(pair.a) + "-" + name(pair.b));
        };
        MarkComparison(files.form, files.form, files.tolerance, files.texts)
            .byPosition(files.a, files.b, add);
        return all;
    };
    EXPECT_THAT(objects(), ElementsAre("A1-", "A2-B2"));
    // A1 would take B2, which A2 has; A2 is nearer to B3, which A3 is on.
    files.a.push_back(files.mark(1, 100, -2.5 * arcsecond, 18, "A3"));
    files.a[1].DE = -1 * arcsecond;
    files.a[0].DE = 2 * arcsecond;
    files.b.push_back(files.mark(1, 100, -1.5 * arcsecond, 18, "B3"));
    files.b.push_back(files.mark(1, 100, -2.5 * arcsecond, 18, "B4"));
    EXPECT_THAT(objects(), testing::UnorderedElementsAre("A1-B2", "A2-B3", "A3-B4"));
    files.b.pop_back();
    EXPECT_THAT(objects(), testing::UnorderedElementsAre("A1-B2", "A2-B3", "A3-"));
}

TEST(MarkComparison, ManyMarksAtOnePlaceAndTimeEachFindOne)
{
    constexpr std::size_t count = 20000;
    Comparison files;
    files.tolerance.angle = 5;
    files.a.assign(count, files.mark(1));
    files.b.assign(count, files.mark(1, 100 + 1.0 / 3600));
    for (const auto& pairs : {files.byObject(), files.byPosition()}) {
        EXPECT_EQ(static_cast<std::size_t>(std::count(pairs.begin(), pairs.end(), "=1-1")), count);
    }
}

// Marks at random, some left out on either side, some changed.
TEST(MarkComparison, WhatWasDoneToMarksIsFound)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        Comparison files;
        files.tolerance.time = 0.4;
        files.tolerance.angle = 0.1;
        std::size_t left = 0;
        std::size_t added = 0;
        std::size_t changed = 0;
        for (int i = 0; i < 100; ++i) {
            const std::string object = "X" + std::to_string(random() % 5);
            ComparedMark mark = files.mark(i, 100 + 0.1 * i, 20, 18, object);
            const auto fate = random() % 10;
            if (fate != 0) {
                files.a.push_back(mark);
            }
            mark.fraction += 0.3 / secondsOfDay;
            mark.DE += fate == 2 ? 0.01 : 0;
            if (fate != 1) {
                files.b.push_back(mark);
            }
            added += fate == 0 ? 1U : 0U;
            left += fate == 1 ? 1U : 0U;
            changed += fate == 2 ? 1U : 0U;
        }
        std::shuffle(files.a.begin(), files.a.end(), random);
        std::shuffle(files.b.begin(), files.b.end(), random);
        const auto pairs = files.byObject();
        const auto count = [&pairs](char sign) {
            return static_cast<std::size_t>(std::count_if(
                pairs.begin(), pairs.end(), [sign](const std::string& each) { return each[0] == sign; }));
        };
        EXPECT_EQ(count('!'), left + added) << seed;
        EXPECT_EQ(count('*'), changed) << seed;
        EXPECT_EQ(count('='), 100 - left - added - changed) << seed;
    }
}

TEST(Tolerance, IsHalfOfTheLastDigitOfTheCoarserFormat)
{
    const MarkTolerance tolerance = toleranceOf(*formatFacts("tdm"), *formatFacts("mpc"));
    EXPECT_DOUBLE_EQ(tolerance.time, 0.432);
    EXPECT_DOUBLE_EQ(tolerance.rightAscension, 0.075);
    EXPECT_DOUBLE_EQ(tolerance.declination, 0.05);
    EXPECT_DOUBLE_EQ(tolerance.magnitude, 0.05);
    EXPECT_DOUBLE_EQ(tolerance.angleAt(90), 0.05);
    EXPECT_DOUBLE_EQ(toleranceOf(*formatFacts("ades.psv"), *formatFacts("mpc")).time, 0.432);
    EXPECT_DOUBLE_EQ(toleranceOf(*formatFacts("ssmas"), *formatFacts("ssmas")).declination, 0.005);
    EXPECT_DOUBLE_EQ(toleranceOf(*formatFacts("ssmas"), *formatFacts("mpc")).declination, 0.05);
    EXPECT_DOUBLE_EQ(toleranceOf(*formatFacts("ades.psv"), *formatFacts("ades.xml")).time, 0);
}

// The tracks of a file of brightness.
std::vector<TrueTrack> brightnessOf(const std::string& bytes, const char* format)
{
    const TemporaryFolder folder;
    makeFile(folder / "in.txt", bytes);
    std::vector<TrueTrack> tracks;
    readBrightness(folder / "in.txt", format, [&tracks](const TrueTrack& track) { tracks.push_back(track); });
    return tracks;
}

TEST(BrightnessReading, JulianDatesKeepAllTheirDigits)
{
    const auto tracks = brightnessOf("JD\tm\n"
                                     "2457878.4999999\t12\t0\t0\t0\t0\ta\t\n"
                                     "2457878.5000000\t12\t0\t0\t0\t0\ta\t\n"
                                     "2457878.0000001\t12\t0\t0\t0\t0\tb c\t\n",
                                     "mag");
    ASSERT_EQ(tracks.size(), 2u);
    ASSERT_EQ(tracks[0].track.Marks.size(), 2u);
    EXPECT_EQ(tracks[0].track.Marks[0].date, 57877);
    EXPECT_DOUBLE_EQ(tracks[0].track.Marks[0].time, 0.9999999);
    EXPECT_EQ(tracks[0].track.Marks[1].date, 57878);
    EXPECT_DOUBLE_EQ(tracks[0].track.Marks[1].time, 0.0);
    EXPECT_EQ(tracks[1].track.QRVName, "b c");
    EXPECT_NEAR(tracks[1].track.Marks[0].time, 0.5000001, 1e-15);
    EXPECT_EQ(tracks[1].marks[0].line, 4u);
}

TEST(BrightnessReading, ReportsOfOtherProgramsHaveTheirDelimiter)
{
    const auto tracks = brightnessOf("#TYPE=EXTENDED\n#DELIM=tab\n#DATE=JD\n"
                                     "SS CYG\t2450702.1234\t11.135\t0.003\tV\tNO\tSTD\n"
                                     "SS CYG\t2450702.1254\t<13.7\tna\tV\tNO\tSTD\n",
                                     "aavso");
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].marks.size(), 2u);
    EXPECT_TRUE(tracks[0].marks[0].hasMagnitude);
    EXPECT_FALSE(tracks[0].marks[0].hasPosition);
    EXPECT_TRUE(tracks[0].marks[0].hasBand);
    EXPECT_EQ(tracks[0].track.Marks[0].filtr, "V");
    EXPECT_FALSE(tracks[0].marks[1].hasMagnitude);
}

TEST(BrightnessReading, EmptyFieldsAreNoNumbers)
{
    const auto tracks = brightnessOf("#TYPE=EXTENDED\n#DELIM=,\n#DATE=JD\n"
                                     "SS CYG,,11.135,0.003,V\n"
                                     "SS CYG,2450702.1254,,na,V\n",
                                     "aavso");
    ASSERT_EQ(tracks.size(), 1u);
    ASSERT_EQ(tracks[0].marks.size(), 1u);
    EXPECT_EQ(tracks[0].marks[0].line, 5u);
    EXPECT_FALSE(tracks[0].marks[0].hasMagnitude);
}

} // namespace
