#include "formats/track_table.h"

#include "records/track_stream.h"

#include "support/temporary_folder.h"
#include "support/track_tables.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Track = TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;
using Mark = TRecLabelPervichka_File;
using Lines = std::vector<std::string>;

// The tracks of a source of a file's bytes that reads only the wanted columns.
Tracks readWanted(const std::string& wanted, const std::string& bytes)
{
    return readBy([&](const std::string& path) { return allTracks(TrackTableSource(path, wanted)); }, bytes);
}

// A text of so many lines, each with its number from 1 on.
std::string numberedLines(int count, const std::string& behind)
{
    std::string lines;
    for (int number = 1; number <= count; ++number) {
        lines += std::to_string(number) + behind + '\n';
    }
    return lines;
}

// The names of tracks.
Lines namesOf(const Tracks& tracks)
{
    Lines names;
    for (const Track& track : tracks) {
        names.push_back(track.QRVName);
    }
    return names;
}

} // namespace

TEST(TrackTableSource, TracksComeOneAfterTheOther)
{
    TrackTableSource source(Lines{"v2", "iB:Int", "1", "2", "---", "---", "3", "---"});
    EXPECT_EQ(source.count(), 3U);
    Track track;
    ASSERT_TRUE(source.next(track));
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2}));
    EXPECT_EQ(source.count(), 2U);
    TrackTableSource moved = std::move(source);
    ASSERT_TRUE(moved.next(track));
    EXPECT_TRUE(track.Marks.empty());
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_EQ(track.NMarks, 0);
    ASSERT_TRUE(moved.next(track));
    EXPECT_EQ(iBsOf(track), (std::vector<int>{3}));
    EXPECT_EQ(moved.count(), 0U);
    EXPECT_FALSE(moved.next(track));
}

TEST(TrackTableSource, ATrackThatIsUsedAgainHasItsDefaults)
{
    TrackTableSource source(Lines{"iB:Int\tQRVName\tNORAD\tMPCChecker\tV\tTrMade\tN\tfiltr\tm_MPC\tLymX",
                                  "1\tA\tB\tC\t2.5\tGSOHO\t7\tV\t9.5\t3.5", "---", "2", "---", "---"});
    Track track;
    ASSERT_TRUE(source.next(track));
    EXPECT_EQ(track.QRVName + track.NORAD + track.MPCChecker, "ABC");
    EXPECT_EQ(track.N, 7);
    EXPECT_EQ(track.InterBlobs.at(0).m_MPC, 9.5);
    track.Series = "series";
    track.X0 = 1.0;
    track.Marks.at(0).RA = 1.0;
    track.InterBlobs.at(0).Value2 = 1.0;
    track.Candidates = {"candidate"};
    track.Cast = {"cast"};
    for (const bool hasMark : {true, false}) {
        ASSERT_TRUE(source.next(track));
        EXPECT_EQ(track.QRVName + track.NORAD + track.MPCChecker + track.Series, "");
        EXPECT_EQ(track.V + track.LymX + track.X0, 0.0);
        EXPECT_EQ(track.N, 0);
        EXPECT_EQ(track.TrMade, THowMakeTr::STROB);
        EXPECT_EQ(track.NMarks, hasMark ? 1 : 0);
        EXPECT_TRUE(track.Candidates.empty());
        EXPECT_TRUE(track.Cast.empty());
        ASSERT_EQ(track.Marks.size(), hasMark ? 1U : 0U);
        ASSERT_EQ(track.InterBlobs.size(), hasMark ? 1U : 0U);
        if (hasMark) {
            EXPECT_EQ(int(track.Marks[0].iB), 2);
            EXPECT_EQ(track.Marks[0].filtr, "R");
            EXPECT_EQ(double(track.Marks[0].RA), 0.0);
            EXPECT_EQ(track.InterBlobs[0].m_MPC, 0.0);
            EXPECT_EQ(track.InterBlobs[0].Value2, -1.0);
        }
    }
}

TEST(TrackTableSource, OnlyWantedColumnsAreRead)
{
    const Tracks tracks =
        readWanted("RA filtr mood V", "v2\nV\tfiltr\tDE\tRA\tN\tTrMade\tQRVName\tMPCChecker\tNORAD\tm_MPC\n"
                                      "1.5\tB\t2.5\t3.5\t4\tGSOHO\tA\tM\tN\t5.5\n---\n");
    ASSERT_EQ(tracks.size(), 1U);
    const Track& track = tracks[0];
    EXPECT_EQ(track.QRVName, "A");
    EXPECT_EQ(track.MPCChecker, "M");
    EXPECT_EQ(track.NORAD, "N");
    EXPECT_EQ(track.NMarks, 1);
    EXPECT_EQ(track.V, 0.0);
    EXPECT_EQ(track.N, 0);
    EXPECT_EQ(track.TrMade, THowMakeTr::STROB);
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_EQ(double(track.Marks[0].RA), 3.5);
    EXPECT_EQ(track.Marks[0].filtr, "B");
    EXPECT_EQ(double(track.Marks[0].DE), 0.0);
    ASSERT_EQ(track.InterBlobs.size(), 1U);
    EXPECT_EQ(track.InterBlobs[0].m_MPC, 0.0);
}

TEST(TrackTableSource, NamesAreReadWhateverIsWanted)
{
    const std::string table = "v2\nnoradid\tName\tNORAD\tiB\tQRVName\n1\tA\t2\t7\tB\n---\n3\tC\t4\t8\n---\n";
    const Tracks tracks = readWanted("", table);
    EXPECT_EQ(namesOf(tracks), (Lines{"B", "C"}));
    EXPECT_EQ(tracks.at(0).NORAD, "1");
    EXPECT_EQ(tracks.at(1).NORAD, "3");
    EXPECT_EQ(iBsOf(tracks), (std::vector<std::vector<int>>{{0}, {0}}));
    EXPECT_EQ(tracks.at(1).NMarks, 1);
}

TEST(TrackTableSource, TracksOfWantedColumnsKnowTheirFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "iB\n1\n---\n2\n---\n");
    for (const Track& track : allTracks(TrackTableSource(folder / "a.txt", "iB"))) {
        EXPECT_EQ(track.SourceFile, folder / "a.txt");
    }
    EXPECT_EQ(TrackTableSource(folder / "missing.txt", "iB").count(), 0U);
    EXPECT_EQ(TrackTableSource(folder.path(), "iB").count(), 0U);
}

// What a line says of the head holds until another line says it, whether the lines are whole or not.
TEST(TrackTableSource, HeadOfShortLines)
{
    const struct
    {
        Lines lines;
        std::string name, NORAD;
        double V;
    } rows[] = {
        {{"1\tA\tB\t2"}, "A", "B", 2},
        {{"1\tA\tB\t2", "2\tC\tD\t3"}, "C", "D", 3},
        {{"1\tA\tB\t2", "2\tC"}, "C", "B", 2},
        {{"1\tA\tB\t2", "2\tC\tD", "3"}, "C", "D", 2},
        {{"1\tA", "2\tC\tD\t3", "3\tE"}, "E", "D", 3},
        {{"1", "2", ""}, "", "", 0},
        {{"1\tA\tB\t2", ""}, "A", "B", 2},
        {{"1\tA\tB\t2", "2\t\tD"}, "", "D", 2},
        {{"1\tA", "2\tC\tD\t3", "3\tE\tF\t4", "4\tG"}, "G", "F", 4},
        {{"1\tA\tB\t2", "2\tC\tD\t"}, "C", "D", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.lines));
        const Track track = readTrack("iB:Int\tQRVName:Text\tNORAD:Text\tV:Float\tfiltr:Text", row.lines);
        EXPECT_EQ(track.QRVName, row.name);
        EXPECT_EQ(track.NORAD, row.NORAD);
        EXPECT_EQ(track.V, row.V);
        EXPECT_EQ(track.Marks.size(), row.lines.size());
    }
}

TEST(TrackTableSource, WhatALaterColumnSaysHoldsInShortLinesToo)
{
    EXPECT_EQ(readTrack("Name\tQRVName", {"A\tB"}).QRVName, "B");
    EXPECT_EQ(readTrack("Name\tQRVName", {"A\tB", "C"}).QRVName, "C");
    EXPECT_EQ(readTrack("QRVName\tName", {"A\tB", "C"}).QRVName, "C");
    EXPECT_EQ(readTrack("V_ra\tmRA\tmDE\tV_de", {"1\t2\t3\t4", "5"}).V_ra, 5.0);
    EXPECT_EQ(readTrack("V_ra\tmRA\tmDE\tV_de", {"1\t2\t3\t4", "5"}).V_de, 3.0);
}

TEST(TrackTableSource, ColumnsOfMarksBeforeAndAfterTheHead)
{
    const Track track =
        readTrack("iB\tfiltr\tQRVName\tRA\tDE", {"1\tV\tA\t2.5\t3.5", "2\tB\tC\t4.5", "3\tB", "4"});
    EXPECT_EQ(track.QRVName, "C");
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(double(track.Marks.at(0).DE), 3.5);
    EXPECT_EQ(double(track.Marks.at(1).RA), 4.5);
    EXPECT_EQ(double(track.Marks.at(1).DE), 0.0);
    EXPECT_EQ(double(track.Marks.at(2).RA), 0.0);
    EXPECT_EQ(track.Marks.at(2).filtr, "B");
    EXPECT_EQ(track.Marks.at(3).filtr, "R");
}

TEST(TrackTableSource, LinesWithoutAnEndAreOneTrack)
{
    const std::string table = "iB:Int\tQRVName:Text\n" + numberedLines(9, "\tA");
    for (const Tracks& tracks : {readTable(table), readWanted("iB", table)}) {
        ASSERT_EQ(tracks.size(), 1U);
        EXPECT_EQ(tracks[0].QRVName, "A");
        EXPECT_EQ(iBsOf(tracks[0]), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    }
    const Tracks ended = readTable("iB:Int\tQRVName:Text\n---\n" + numberedLines(9, "\tA"));
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_TRUE(ended[0].Marks.empty());
    EXPECT_EQ(ended[0].QRVName, "");
}

TEST(TrackTableSource, EndsAlone)
{
    for (const Tracks& tracks : {readTable("v2\niB:Int\tQRVName\n---\n---\n---\n"),
                                 readWanted("iB", "v2\niB:Int\tQRVName\n---\n---\n---")})
    {
        ASSERT_EQ(tracks.size(), 3U);
        for (const Track& track : tracks) {
            EXPECT_TRUE(track.Marks.empty());
            EXPECT_EQ(track.NMarks, 0);
            EXPECT_EQ(track.QRVName, "");
        }
    }
}

// A file is read in pieces of a quarter of a megabyte, and marks are kept in chunks of some thousands.
TEST(TrackTableSource, TracksOfAnySize)
{
    constexpr int marks = 20000;
    std::string table = "iB:Int\tmood\tQRVName:Text\n";
    for (const char* name : {"\tvery good indeed\tA", "\t\tB", "\t\tC"}) {
        table += numberedLines(marks, name) + "---\n";
    }
    ASSERT_GT(table.size(), std::size_t{3} << 18);
    const Tracks tracks = readTable(table);
    EXPECT_EQ(namesOf(tracks), (Lines{"A", "B", "C"}));
    for (const Track& track : tracks) {
        ASSERT_EQ(track.Marks.size(), std::size_t{marks});
        EXPECT_EQ(track.NMarks, marks);
        for (int i = 0; i < marks; ++i) {
            ASSERT_EQ(int(track.Marks[std::size_t(i)].iB), i + 1);
        }
    }
}

TEST(TrackTableSource, TracksOfAnyNumber)
{
    std::string table = "iB:Int\tQRVName:Text\tNORAD:Text\n";
    for (int i = 0; i < 5000; ++i) {
        const std::string number = std::to_string(i);
        table += number + "\tname " + number + "\t" + std::to_string(i / 3) + "\n---\n";
    }
    const Tracks tracks = readTable(table);
    ASSERT_EQ(tracks.size(), 5000U);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(iBsOf(tracks[std::size_t(i)]), (std::vector<int>{i}));
        ASSERT_EQ(tracks[std::size_t(i)].QRVName, "name " + std::to_string(i));
        ASSERT_EQ(tracks[std::size_t(i)].NORAD, std::to_string(i / 3));
    }
}

TEST(TrackTableSink, WritesWhatTheListOperationWrites)
{
    const Tracks tracks = lListTrack(satelliteTable());
    const TemporaryFolder folder;
    sListTrack(folder / "list.txt", "/data/night25/t.txt", "P", tracks, "S", true, true, getHeadTrack());
    TrackTableSource source(satelliteTable());
    TrackTableSink sink(folder / "sink.txt", "/data/night25/t.txt", "P", "S", true, true, getHeadTrack());
    for (Track track; source.next(track);) {
        sink.add(track);
    }
    TrackTableSink moved = std::move(sink);
    EXPECT_FALSE(exists(folder / "sink.txt"));
    EXPECT_TRUE(moved.save());
    EXPECT_EQ(bytesOf(folder / "sink.txt"), bytesOf(folder / "list.txt"));
}

TEST(TrackTableSink, WithoutATrackItWritesTheHeader)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before\n");
    EXPECT_TRUE(TrackTableSink(folder / "a.txt", "", "", "", false, false, "iB").save());
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before\nv2\niB\n");
    EXPECT_TRUE(TrackTableSink(folder / "a.txt", "", "", "", false, true, "iB").save());
    EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\niB\n");
}

TEST(TrackTableSink, TablesOfMoreThanAPieceAreWhole)
{
    const Track track = trackNamed(std::string(100, 'A'), std::vector<Mark>(9000));
    std::string lines;
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        lines += track.QRVName + "\t0\t\n";
    }
    ASSERT_GT(2 * lines.size(), std::size_t{1} << 20);
    EXPECT_EQ(writtenTable({track, track, track}, "QRVName\tiB"),
              "v2\nQRVName\tiB\n" + lines + "---\n" + lines + "---\n" + lines + "---\n");
}
