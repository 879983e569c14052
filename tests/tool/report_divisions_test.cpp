#include "report_divisions.h"

#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using TrackList = std::vector<TrackVtorichka>;

// Tracks as a report keeps them: each with a head of its own.
ReportTracks kept(const std::vector<TrackList>& series)
{
    ReportTracks tracks("iB RA m filtr CHART");
    for (const TrackList& list : series) {
        for (const TrackVtorichka& track : list) {
            tracks.addSeries(track);
            tracks.add(track);
        }
    }
    return tracks;
}

// The tracks of files, as they are handed to the writers.
std::vector<TrackList> listsOf(const ReportTracks& tracks, const ReportFiles& files, bool joined)
{
    std::vector<TrackList> lists(files.count());
    for (std::size_t file = 0; file < files.count(); ++file) {
        if (joined) {
            tracks.fillJoined(files[file], lists[file].emplace_back());
            continue;
        }
        for (const TrackPart& part : files[file]) {
            tracks.fill(part, lists[file].emplace_back());
        }
    }
    return lists;
}

// The files of series by stretches, by objects, and of all tracks.
std::vector<TrackList> stretchLists(const std::vector<TrackList>& series, double interval, bool& withoutMarks)
{
    const ReportTracks tracks = kept(series);
    return listsOf(tracks, stretchesOf(tracks, interval, withoutMarks), false);
}

std::vector<TrackList> joinedObjects(const std::vector<TrackList>& series)
{
    const ReportTracks tracks = kept(series);
    return listsOf(tracks, objectsOf(tracks), true);
}

std::vector<TrackList> allLists(const std::vector<TrackList>& series)
{
    const ReportTracks tracks = kept(series);
    return listsOf(tracks, allOf(tracks), false);
}

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Marks = std::vector<TRecLabelPervichka_File>;

// A mark on the day 60000, with a number to tell it apart.
TRecLabelPervichka_File markAt(double time, int number)
{
    TRecLabelPervichka_File mark;
    mark.date = 60000;
    mark.time = time;
    mark.iB = number;
    return mark;
}

// Marks numbered from 0, at minutes of the day.
Marks marksAtMinutes(const std::vector<double>& minutes)
{
    Marks marks;
    for (std::size_t i = 0; i < minutes.size(); ++i) {
        marks.push_back(markAt(minutes[i] / 1440.0, static_cast<int>(i)));
    }
    return marks;
}

std::vector<int> numbersOf(const Marks& marks)
{
    std::vector<int> numbers;
    for (const auto& mark : marks) {
        numbers.push_back(mark.iB);
    }
    return numbers;
}

TrackVtorichka trackOf(const std::string& name, const std::string& series, Marks marks)
{
    TrackVtorichka track = trackNamed(name, std::move(marks));
    track.Series = series;
    return track;
}

// All lists in one text, so that a difference shows where it is.
std::string described(const std::vector<TrackList>& lists)
{
    std::string text;
    for (const TrackList& list : lists) {
        text += "[";
        for (const TrackVtorichka& track : list) {
            text += " " + track.QRVName + "/" + track.Series + "/" + track.SourceFile + " marks";
            for (const auto& mark : track.Marks) {
                text += " " + std::to_string(mark.iB);
            }
        }
        text += " ]\n";
    }
    return text;
}

// The numbers of the marks of each stretch of one track.
std::vector<std::vector<int>> stretches(Marks marks, double interval)
{
    bool withoutMarks = false;
    std::vector<std::vector<int>> numbers;
    for (const TrackList& list :
         stretchLists({{trackOf("A", "R", std::move(marks))}}, interval, withoutMarks)) {
        EXPECT_EQ(list.size(), 1U);
        numbers.push_back(numbersOf(list.at(0).Marks));
    }
    EXPECT_FALSE(withoutMarks);
    return numbers;
}

using Numbers = std::vector<std::vector<int>>;

// The objects of series, joined one pair at a time as an operator would by hand.
std::vector<TrackList> joinedPairByPair(const std::vector<TrackList>& series)
{
    std::vector<TrackList> reports;
    for (const TrackList& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            reports.push_back({track});
        }
    }
    for (std::size_t i = 0; i + 1 < reports.size(); ++i) {
        for (std::size_t j = i + 1; j < reports.size();) {
            TrackVtorichka& first = reports[i][0];
            const TrackVtorichka& second = reports[j][0];
            if (first.QRVName == second.QRVName && first.Series == second.Series) {
                first.Marks.insert(first.Marks.begin(), second.Marks.begin(), second.Marks.end());
                reports.erase(reports.begin() + static_cast<std::ptrdiff_t>(j));
                std::stable_sort(first.Marks.begin(), first.Marks.end(), SortTrackByTime);
            } else {
                ++j;
            }
        }
    }
    return reports;
}

// The stretches of series, from ranges of which only the last has its end.
std::vector<TrackList> cutRangeByRange(const std::vector<TrackList>& series, double interval)
{
    std::vector<TrackList> reports;
    for (const TrackList& tracks : series) {
        for (const TrackVtorichka& track : tracks) {
            const int n = static_cast<int>(track.Marks.size());
            if (n == 0) {
                continue;
            }
            std::vector<std::pair<int, int>> ranges{{0, n}};
            for (int k = 0; k <= n - 2; ++k) {
                const auto& mark = track.Marks[static_cast<std::size_t>(k)];
                const auto& next = track.Marks[static_cast<std::size_t>(k) + 1];
                const double gap = ((next.date + next.time) - mark.date - mark.time) * 1440.0;
                if (gap >= interval) {
                    ranges.back().second = k;
                    ranges.emplace_back(k + 1, n - 1);
                }
            }
            for (const auto& [first, end] : ranges) {
                TrackVtorichka piece;
                static_cast<THeadTrVtor&>(piece) = track;
                piece.Marks.assign(track.Marks.begin() + first, track.Marks.begin() + end);
                reports.push_back({piece});
            }
        }
    }
    return reports;
}

// Small random series with many equal names, equal times and tracks without marks.
class RandomSeries
{
public:
    explicit RandomSeries(unsigned seed) : engine(seed)
    {
    }

    std::vector<TrackList> next()
    {
        int number = 0;
        int source = 0;
        std::vector<TrackList> series(upTo(4));
        for (TrackList& tracks : series) {
            tracks.resize(upTo(7));
            for (TrackVtorichka& track : tracks) {
                track.QRVName = std::string(1, static_cast<char>('A' + upTo(2)));
                track.Series = upTo(3) == 0 ? "V" : "R";
                track.SourceFile = std::to_string(source++);
                const std::size_t marks = upTo(6);
                for (std::size_t i = 0; i < marks; ++i) {
                    track.Marks.push_back(markAt(static_cast<double>(upTo(5)) / 8.0, number++));
                    track.Marks.back().date += static_cast<int>(upTo(1));
                }
            }
        }
        return series;
    }

    // A number from 0 to the limit, which is included.
    std::size_t upTo(std::size_t limit)
    {
        return engine() % (limit + 1);
    }

private:
    std::mt19937 engine;
};

double secondsOf(const std::vector<TrackList>& series, std::size_t objects)
{
    const auto begin = std::chrono::steady_clock::now();
    const std::vector<TrackList> lists = joinedObjects(series);
    const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(lists.size(), objects);
    return lasted.count();
}

// Twenty thousand tracks of one mark each in two series, with so many names in all.
std::vector<TrackList> manyTracks(std::size_t names)
{
    std::vector<TrackList> series(2);
    for (std::size_t i = 0; i < 20000; ++i) {
        const int number = static_cast<int>(i);
        series[i % 2].push_back(trackOf("N" + std::to_string(i % names), "R",
                                        {markAt(static_cast<double>(i * 7919 % 20000) / 20000.0, number)}));
    }
    return series;
}

} // namespace

// Words.

TEST(ReportDivisions, WordsAreComparedExactly)
{
    for (const char* const word : {"eachgroup", "eachobject", "eachseria", "allobjects"}) {
        ASSERT_NE(reportDivision(word), nullptr);
        EXPECT_STREQ(reportDivision(word)->word, word);
    }
    for (const char* const text : {"", "eachseries", "Eachgroup", "eachobject ", " allobjects", "object"}) {
        EXPECT_EQ(reportDivision(text), nullptr) << text;
    }
}

TEST(ReportDivisions, EachWordDividesAndNames)
{
    TConvMea task;
    task.out_dir = "/data/out/";
    task.interval = 5.0;
    task.paths.emplace_back().path = "/data/s1/a/b/table";
    const struct
    {
        const char* word;
        std::size_t files;
        const char* name;
    } rows[] = {
        {"eachgroup", 3, "A"}, {"eachobject", 1, "A"}, {"eachseria", 1, "s1"}, {"allobjects", 1, "out"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word);
        const ReportDivision& division = *reportDivision(row.word);
        bool withoutMarks = false;
        ReportTracks tracks("");
        tracks.addSeries(trackOf("A", "R", {}));
        tracks.add(trackOf("A", "R", marksAtMinutes({0, 1, 9, 10})));
        tracks.add(trackOf("A", "R", marksAtMinutes({5})));
        const ReportFiles files = division.divide(tracks, task, withoutMarks);
        ASSERT_EQ(files.count(), row.files);
        EXPECT_FALSE(withoutMarks);
        TrackVtorichka first;
        tracks.fill(files[0].front(), first);
        EXPECT_EQ(division.baseName(task, &first, 0), row.name);
        EXPECT_EQ(division.joins, row.word == std::string("eachobject"));
    }
}

TEST(ReportDivisions, OnlyGroupsReportATrackWithoutMarks)
{
    for (const char* const word : {"eachgroup", "eachobject", "eachseria", "allobjects"}) {
        SCOPED_TRACE(word);
        bool withoutMarks = false;
        reportDivision(word)->divide(kept({{trackOf("A", "R", {})}}), TConvMea(), withoutMarks);
        EXPECT_EQ(withoutMarks, word == std::string("eachgroup"));
    }
}

// Stretches of a track.

TEST(ReportDivisions, TrackWithoutGapKeepsAllItsMarks)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 10, 20, 30, 40, 50}), 30.0), (Numbers{{0, 1, 2, 3, 4, 5}}));
}

TEST(ReportDivisions, EachStretchOfACutTrackLosesItsLastMark)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 10, 20, 120, 130, 140}), 30.0), (Numbers{{0, 1}, {3, 4}}));
}

TEST(ReportDivisions, EveryGapCuts)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 10, 120, 130, 140, 240, 250}), 30.0), (Numbers{{0}, {2, 3}, {5}}));
}

TEST(ReportDivisions, CutAfterTheFirstMarkLeavesAnEmptyStretch)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 100, 110, 120}), 30.0), (Numbers{{}, {1, 2}}));
}

TEST(ReportDivisions, CutBeforeTheLastMarkLeavesAnEmptyStretch)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 10, 20, 120}), 30.0), (Numbers{{0, 1}, {}}));
}

TEST(ReportDivisions, TwoMarksApartLeaveTwoEmptyStretches)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 100}), 30.0), (Numbers{{}, {}}));
}

TEST(ReportDivisions, OneMarkIsAStretch)
{
    EXPECT_EQ(stretches(marksAtMinutes({0}), 30.0), (Numbers{{0}}));
    EXPECT_EQ(stretches(marksAtMinutes({0}), 0.0), (Numbers{{0}}));
}

TEST(ReportDivisions, MarksLessThanTheIntervalApartStayTogether)
{
    EXPECT_EQ(stretches({markAt(0.25, 0), markAt(0.25 + 29.9 / 1440.0, 1)}, 30.0), (Numbers{{0, 1}}));
}

TEST(ReportDivisions, MarksTheIntervalApartAreCut)
{
    EXPECT_EQ(stretches({markAt(0.25, 0), markAt(0.5, 1)}, 360.0), (Numbers{{}, {}}));
    EXPECT_EQ(stretches({markAt(0.25, 0), markAt(0.5, 1)}, 360.1), (Numbers{{0, 1}}));
}

TEST(ReportDivisions, ExactlyThirtyMinutesAreCut)
{
    // Without a whole day the gap is 1.0 / 48.0, and 1440.0 times that is exactly 30.
    Marks marks{markAt(0.0, 0), markAt(1.0 / 48.0, 1)};
    marks[0].date = 0;
    marks[1].date = 0;
    EXPECT_EQ(stretches(marks, 30.0), (Numbers{{}, {}}));
}

TEST(ReportDivisions, HalfHoursOfTheDayAreCutAsTheirSumsComeOut)
{
    // The whole day is part of the sum, so half an hour is a little more or less than 30 minutes.
    const struct
    {
        double first;
        double second;
        bool cut;
    } rows[] = {
        {12.5 / 24.0, 13.0 / 24.0, false}, // 29.9999999965
        {12.0 / 24.0, 12.5 / 24.0, true},  // 30.0000000035
        {13.0 / 24.0, 13.5 / 24.0, true},  // 30.0000000035
        {14.0 / 24.0, 14.5 / 24.0, false}, // 29.9999999965
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.first * 24.0);
        for (const int date : {55504, 60000, 61365}) {
            Marks marks{markAt(row.first, 0), markAt(row.second, 1)};
            marks[0].date = date;
            marks[1].date = date;
            EXPECT_EQ(stretches(marks, 30.0), row.cut ? (Numbers{{}, {}}) : (Numbers{{0, 1}}));
        }
    }
}

TEST(ReportDivisions, GapRunsOverMidnight)
{
    Marks marks{markAt(0.96875, 0), markAt(0.984375, 1), markAt(0.0078125, 2), markAt(0.015625, 3)};
    marks[2].date = 60001;
    marks[3].date = 60001;
    EXPECT_EQ(stretches(marks, 45.0), (Numbers{{0, 1, 2, 3}}));
    EXPECT_EQ(stretches(marks, 33.75), (Numbers{{0}, {2}}));
}

TEST(ReportDivisions, IntervalZeroLeavesNoMarks)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 10, 20, 30}), 0.0), (Numbers{{}, {}, {}, {}}));
}

TEST(ReportDivisions, IntervalZeroCutsBetweenEqualTimes)
{
    EXPECT_EQ(stretches(marksAtMinutes({10, 10}), 0.0), (Numbers{{}, {}}));
}

TEST(ReportDivisions, NegativeGapDoesNotCut)
{
    EXPECT_EQ(stretches(marksAtMinutes({50, 10, 0}), 0.0), (Numbers{{0, 1, 2}}));
    EXPECT_EQ(stretches(marksAtMinutes({500, 10, 20}), 30.0), (Numbers{{0, 1, 2}}));
}

TEST(ReportDivisions, NegativeIntervalCutsAtGapsAboveIt)
{
    EXPECT_EQ(stretches(marksAtMinutes({100, 80, 20, 10}), -30.0), (Numbers{{}, {1}, {}}));
}

TEST(ReportDivisions, WhatIsNoNumberDoesNotCut)
{
    EXPECT_EQ(stretches(marksAtMinutes({0, 1000}), notANumber), (Numbers{{0, 1}}));
    EXPECT_EQ(stretches({markAt(0.0, 0), markAt(notANumber, 1), markAt(0.5, 2)}, 30.0), (Numbers{{0, 1, 2}}));
}

TEST(ReportDivisions, StretchHoldsHeadAndMarksAlone)
{
    for (const double second : {0.01, 0.5}) {
        SCOPED_TRACE(second);
        TrackVtorichka track =
            trackOf("A", "R", {markAt(0.0, 0), markAt(second, 1), markAt(second + 0.01, 2)});
        track.NORAD = "12345";
        track.MPCChecker = "K13A01A";
        track.telescope = "T1";
        track.originator = "origin";
        track.REFERENCE_FRAME = "EME2000";
        track.ObsCode = "ABC";
        track.SourceFile = "table.txt";
        track.N = 7;
        track.NMarks = 3;
        track.V = 1.5;
        track.MPCHeader.COD = "I41";
        track.MPCHeader.HeaderOn = false;
        track.ResidFirst.List1 = {1.0, 2.0};
        track.InterBlobs.resize(3);
        track.Candidates = std::vector<std::string>{"a", "b", "c"};
        track.Cast = std::vector<std::string>{"d", "e", "f"};

        bool withoutMarks = false;
        const std::vector<TrackList> lists = stretchLists({{track}}, 60.0, withoutMarks);
        ASSERT_EQ(lists.size(), second < 0.1 ? 1U : 2U);
        for (const TrackList& list : lists) {
            ASSERT_EQ(list.size(), 1U);
            const TrackVtorichka& piece = list[0];
            EXPECT_EQ(piece.QRVName, "A");
            EXPECT_EQ(piece.Series, "R");
            EXPECT_EQ(piece.NORAD, "12345");
            EXPECT_EQ(piece.MPCChecker, "K13A01A");
            EXPECT_EQ(piece.telescope, "T1");
            EXPECT_EQ(piece.originator, "origin");
            EXPECT_EQ(piece.REFERENCE_FRAME, "EME2000");
            EXPECT_EQ(piece.ObsCode, "ABC");
            EXPECT_EQ(piece.SourceFile, "table.txt");
            EXPECT_EQ(piece.N, 7);
            EXPECT_EQ(piece.NMarks, 3);
            EXPECT_EQ(piece.V, 1.5);
            EXPECT_EQ(piece.MPCHeader.COD, "I41");
            EXPECT_FALSE(piece.MPCHeader.HeaderOn);
            EXPECT_EQ(piece.ResidFirst.List1, (std::vector<double>{1.0, 2.0}));
            EXPECT_TRUE(piece.InterBlobs.empty());
            EXPECT_TRUE(piece.Candidates.empty());
            EXPECT_TRUE(piece.Cast.empty());
        }
    }
}

TEST(ReportDivisions, MarkHasTheColumnsThatAreKept)
{
    Marks marks = marksAtMinutes({0, 10});
    marks[1].RA = 15.0;
    marks[1].m = 9.5;
    marks[1].filtr = "V";
    marks[1].CHART = "X1";
    marks[1].mInstr = 7.5;
    marks[1].AuxInt1 = 3;
    bool withoutMarks = false;
    const std::vector<TrackList> lists = stretchLists({{trackNamed("A", marks)}}, 30.0, withoutMarks);
    ASSERT_EQ(lists.size(), 1U);
    const TRecLabelPervichka_File& mark = lists[0].at(0).Marks.at(1);
    EXPECT_EQ(double(mark.RA), 15.0);
    EXPECT_EQ(double(mark.m), 9.5);
    EXPECT_EQ(std::string(mark.filtr), "V");
    EXPECT_EQ(std::string(mark.CHART), "X1");
    EXPECT_EQ(double(mark.mInstr), 0.0);
    EXPECT_EQ(int{mark.AuxInt1}, 3);
}

TEST(ReportDivisions, StretchesAreInTheOrderOfSeriesAndTracks)
{
    bool withoutMarks = false;
    const std::vector<TrackList> lists = stretchLists(
        {{trackOf("B", "R", marksAtMinutes({0, 10, 100, 110})), trackOf("A", "R", marksAtMinutes({0, 10}))},
         {},
         {trackOf("B", "R", marksAtMinutes({0}))}},
        30.0, withoutMarks);
    EXPECT_EQ(described(lists), "[ B/R/ marks 0 ]\n"
                                "[ B/R/ marks 2 ]\n"
                                "[ A/R/ marks 0 1 ]\n"
                                "[ B/R/ marks 0 ]\n");
    EXPECT_FALSE(withoutMarks);
}

TEST(ReportDivisions, TrackWithoutMarksGivesNoStretchAndSetsTheFlag)
{
    bool withoutMarks = false;
    const std::vector<TrackList> lists =
        stretchLists({{trackOf("A", "R", {}), trackOf("B", "R", marksAtMinutes({0}))}}, 30.0, withoutMarks);
    EXPECT_EQ(described(lists), "[ B/R/ marks 0 ]\n");
    EXPECT_TRUE(withoutMarks);
}

TEST(ReportDivisions, EmptyStretchIsNoTrackWithoutMarks)
{
    bool withoutMarks = false;
    EXPECT_EQ(stretchLists({{trackOf("A", "R", marksAtMinutes({0, 100}))}}, 30.0, withoutMarks).size(), 2U);
    EXPECT_FALSE(withoutMarks);
}

TEST(ReportDivisions, NoTracksGiveNoStretches)
{
    bool withoutMarks = false;
    EXPECT_TRUE(stretchLists({}, 30.0, withoutMarks).empty());
    EXPECT_TRUE(stretchLists({{}, {}}, 30.0, withoutMarks).empty());
    EXPECT_FALSE(withoutMarks);
}

TEST(ReportDivisions, StretchesAreThoseOfTheRanges)
{
    RandomSeries cases(20101104);
    for (int i = 0; i < 400; ++i) {
        SCOPED_TRACE(i);
        const std::vector<TrackList> series = cases.next();
        for (const double interval : {-1e9, -180.0, 0.0, 180.0, 181.0, 1440.0, 1e9}) {
            bool withoutMarks = false;
            EXPECT_EQ(described(stretchLists(series, interval, withoutMarks)),
                      described(cutRangeByRange(series, interval)));
        }
    }
}

// Objects.

TEST(ReportDivisions, TracksOfEqualNameAndSeriesAreOneObject)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", marksAtMinutes({0, 10}))}, {trackOf("A", "R", {markAt(0.5, 7)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 0 1 7 ]\n");
}

TEST(ReportDivisions, TracksOfOneSeriesAreJoinedToo)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.5, 1)}), trackOf("A", "R", {markAt(0.25, 2)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 2 1 ]\n");
}

TEST(ReportDivisions, AnotherSeriesOrNameIsAnotherObject)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.5, 1)}), trackOf("a", "R", {markAt(0.5, 2)})},
                       {trackOf("A", "V", {markAt(0.5, 3)}), trackOf("A ", "R", {markAt(0.5, 4)}),
                        trackOf("", "AR", {markAt(0.5, 5)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 1 ]\n"
                                "[ a/R/ marks 2 ]\n"
                                "[ A/V/ marks 3 ]\n"
                                "[ A /R/ marks 4 ]\n"
                                "[ /AR/ marks 5 ]\n");
}

TEST(ReportDivisions, NameAndSeriesAreComparedApart)
{
    const std::vector<TrackList> lists = joinedObjects(
        {{trackOf("AB", "C", {}), trackOf("A", "BC", {}), trackOf("ABC", "", {}), trackOf("", "ABC", {}),
          trackOf(std::string("A\0", 2), "BC", {}), trackOf("A\nB", "C", {}), trackOf("A", "\nBC", {}),
          trackOf("A", std::string("\0BC", 3), {})}});
    EXPECT_EQ(lists.size(), 8U);
}

TEST(ReportDivisions, ObjectsAreInTheOrderOfTheirFirstTracks)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("C", "R", {markAt(0.1, 0)}), trackOf("A", "R", {markAt(0.1, 1)})},
                       {trackOf("B", "R", {markAt(0.2, 2)}), trackOf("A", "R", {markAt(0.2, 3)})},
                       {trackOf("A", "R", {markAt(0.3, 4)}), trackOf("C", "R", {markAt(0.3, 5)})}});
    EXPECT_EQ(described(lists), "[ C/R/ marks 0 5 ]\n"
                                "[ A/R/ marks 1 3 4 ]\n"
                                "[ B/R/ marks 2 ]\n");
}

TEST(ReportDivisions, OfEqualTimesTheLaterSeriesComesFirst)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.5, 10), markAt(0.5, 11)})},
                       {trackOf("A", "R", {markAt(0.5, 20), markAt(0.5, 21)})},
                       {trackOf("A", "R", {markAt(0.5, 30), markAt(0.5, 31)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 30 31 20 21 10 11 ]\n");
}

TEST(ReportDivisions, TimesOfThreeSeriesAreOneOrder)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.75, 10), markAt(0.25, 11)})},
                       {trackOf("A", "R", {markAt(0.5, 20), markAt(0.25, 21)})},
                       {trackOf("A", "R", {markAt(0.5, 30), markAt(0.75, 31)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 21 11 30 20 31 10 ]\n");
}

TEST(ReportDivisions, TimeOfAMarkIsDayAndFraction)
{
    TRecLabelPervichka_File early = markAt(0.9, 1);
    TRecLabelPervichka_File late = markAt(0.1, 2);
    late.date = 60001;
    // A fraction above 1 counts as it is.
    TRecLabelPervichka_File between = markAt(1.05, 3);
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {late}), trackOf("A", "R", {between, early})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 1 3 2 ]\n");
}

TEST(ReportDivisions, TrackThatIsNotJoinedKeepsTheOrderOfItsMarks)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.5, 0), markAt(0.25, 1)}), trackOf("B", "R", {})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 0 1 ]\n"
                                "[ B/R/ marks ]\n");
}

TEST(ReportDivisions, JoiningATrackWithoutMarksOrdersTheOthers)
{
    const std::vector<TrackList> lists =
        joinedObjects({{trackOf("A", "R", {markAt(0.5, 0), markAt(0.25, 1)}), trackOf("A", "R", {})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 1 0 ]\n");
}

TEST(ReportDivisions, HeadOfTheFirstTrackIsTheHeadOfTheObject)
{
    TrackVtorichka first = trackOf("A", "R", {markAt(0.5, 0)});
    first.telescope = "T1";
    first.MPCHeader.COD = "I41";
    first.SourceFile = "first";
    first.NMarks = 1;
    first.N = 4;
    TrackVtorichka second = trackOf("A", "R", {markAt(0.25, 1), markAt(0.75, 2)});
    second.telescope = "T2";
    second.MPCHeader.COD = "I42";
    second.SourceFile = "second";
    second.NMarks = 2;
    second.N = 5;
    const std::vector<TrackList> lists = joinedObjects({{first}, {second}});
    ASSERT_EQ(lists.size(), 1U);
    const TrackVtorichka& object = lists[0].at(0);
    EXPECT_EQ(object.telescope, "T1");
    EXPECT_EQ(object.MPCHeader.COD, "I41");
    EXPECT_EQ(object.SourceFile, "first");
    EXPECT_EQ(object.NMarks, 1);
    EXPECT_EQ(object.N, 4);
    EXPECT_EQ(numbersOf(object.Marks), (std::vector<int>{1, 0, 2}));
}

TEST(ReportDivisions, NoTracksGiveNoObjects)
{
    EXPECT_TRUE(joinedObjects({}).empty());
    EXPECT_TRUE(joinedObjects({{}, {}}).empty());
}

TEST(ReportDivisions, ObjectsAreThoseThatPairsGive)
{
    RandomSeries cases(20101106);
    for (int i = 0; i < 600; ++i) {
        SCOPED_TRACE(i);
        const std::vector<TrackList> series = cases.next();
        EXPECT_EQ(described(joinedObjects(series)), described(joinedPairByPair(series)));
    }
}

TEST(ReportDivisions, TwentyThousandTracksAreGroupedInASecondOrTwo)
{
    for (const std::size_t names : {std::size_t{1}, std::size_t{3}, std::size_t{200}, std::size_t{20000}}) {
        SCOPED_TRACE(names);
        EXPECT_LT(secondsOf(manyTracks(names), names), 4.0);
    }
}

TEST(ReportDivisions, MarksOfManyTracksAreInTheOrderOfTime)
{
    const std::vector<TrackList> lists = joinedObjects(manyTracks(1));
    ASSERT_EQ(lists.size(), 1U);
    const Marks& marks = lists[0].at(0).Marks;
    ASSERT_EQ(marks.size(), 20000U);
    EXPECT_TRUE(std::is_sorted(marks.begin(), marks.end(), SortTrackByTime));
}

// All tracks.

TEST(ReportDivisions, AllTracksAreOneListInTheirOrder)
{
    TrackVtorichka first = trackOf("A", "R", {markAt(0.5, 0), markAt(0.25, 1)});
    const std::vector<TrackList> lists =
        allLists({{first, trackOf("B", "R", {})}, {}, {trackOf("A", "R", {markAt(0.1, 2)})}});
    EXPECT_EQ(described(lists), "[ A/R/ marks 0 1"
                                " B/R/ marks"
                                " A/R/ marks 2 ]\n");
}

TEST(ReportDivisions, AllOfNoTracksIsOneEmptyList)
{
    EXPECT_EQ(described(allLists({})), "[ ]\n");
    EXPECT_EQ(described(allLists({{}, {}})), "[ ]\n");
}

TEST(ReportDivisions, FileOfAnObjectHoldsItsTracksUntilTheyAreJoined)
{
    const ReportTracks tracks = kept(
        {{trackOf("A", "R", {}), trackOf("B", "R", {})}, {trackOf("A", "R", {}), trackOf("B", "R", {})}});
    const std::vector<TrackList> objects = listsOf(tracks, objectsOf(tracks), false);
    ASSERT_EQ(objects.size(), 2U);
    ASSERT_EQ(objects[0].size(), 2U);
    EXPECT_EQ(objects[0][1].QRVName, "A");
    ASSERT_EQ(objects[1].size(), 2U);
    EXPECT_EQ(objects[1][0].QRVName, "B");
}

// One track of all.

TEST(ReportTracks, OneTrackOfTheFirstSeriesIsKept)
{
    ReportTracks tracks("iB");
    tracks.addSeries(trackOf("", "R", {}));
    tracks.add(trackOf("A", "", {markAt(0.5, 1)}));
    tracks.add(trackOf("B", "", {markAt(0.5, 2), markAt(0.6, 3)}));
    tracks.addSeries(trackOf("", "V", {}));
    tracks.add(trackOf("C", "", {markAt(0.5, 4)}));
    EXPECT_FALSE(tracks.keepOnly(-1));
    EXPECT_FALSE(tracks.keepOnly(2));
    EXPECT_EQ(tracks.size(), 3U);
    ASSERT_TRUE(tracks.keepOnly(1));
    EXPECT_EQ(described(listsOf(tracks, allOf(tracks), false)), "[ B/R/ marks 2 3 ]\n");
    EXPECT_EQ(tracks.seriesCount(), 1U);
    EXPECT_EQ(seriesOf(tracks).count(), 1U);
}

TEST(ReportTracks, SeriesWithoutTracksHasAFile)
{
    ReportTracks tracks("iB");
    tracks.addSeries(trackOf("", "R", {}));
    tracks.addSeries(trackOf("", "V", {}));
    tracks.add(trackOf("A", "", {markAt(0.5, 1)}));
    tracks.addSeries(trackOf("", "B", {}));
    EXPECT_FALSE(tracks.keepOnly(0));
    EXPECT_EQ(described(listsOf(tracks, seriesOf(tracks), false)), "[ ]\n[ A/V/ marks 1 ]\n[ ]\n");
}
