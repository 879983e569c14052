#include "formats/track_table.h"

#include "support/temporary_folder.h"
#include "support/track_tables.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Track = TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;
using Mark = TRecLabelPervichka_File;
using Lines = std::vector<std::string>;
using Blobs = std::vector<std::vector<int>>;

} // namespace

TEST(TrackTableReader, HeadValuesAreThoseOfTheLastLine)
{
    const Track track = readTrack("N:Int\tQRVName:Text\tV:Float\tTrMade:Text\tm:Float",
                                  {"1\tA\t1.5\tSTROB\t9", "2\tB\t2.5\tHOUGH\t8", "3\tC\t3.5\tMANUA\t7"});
    EXPECT_EQ(track.N, 3);
    EXPECT_EQ(track.QRVName, "C");
    EXPECT_EQ(track.V, 3.5);
    EXPECT_EQ(track.TrMade, THowMakeTr::MANUA);
    EXPECT_EQ(track.NMarks, 3);
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(double(track.Marks[0].m), 9.0);
    EXPECT_EQ(double(track.Marks[2].m), 7.0);
}

TEST(TrackTableReader, ValuesOfATrackDoNotReachTheNext)
{
    const Tracks tracks = lListTrack(
        Lines{"v2", "iB:Int\tV:Float\tQRVName:Text\tfiltr:Text", "1\t2.5\tA\tV", "---", "2", "---"});
    ASSERT_EQ(tracks.size(), 2U);
    EXPECT_EQ(tracks[1].V, 0.0);
    EXPECT_EQ(tracks[1].QRVName, "");
    ASSERT_EQ(tracks[1].Marks.size(), 1U);
    EXPECT_EQ(int(tracks[1].Marks[0].iB), 2);
    EXPECT_EQ(std::string(tracks[1].Marks[0].filtr), "R");
}

TEST(TrackTableReader, MissingFieldsLeaveTheirValues)
{
    const Track track = readTrack("iB:Int\tV:Float\tQRVName:Text\tTrMade:Text\tfiltr:Text\tiF:Int",
                                  {"1\t2.5\tA\tGSOHO\tV\t7", "2"});
    EXPECT_EQ(track.V, 2.5);
    EXPECT_EQ(track.QRVName, "A");
    EXPECT_EQ(track.TrMade, THowMakeTr::GSOHO);
    ASSERT_EQ(track.Marks.size(), 2U);
    EXPECT_EQ(std::string(track.Marks[1].filtr), "R");
    EXPECT_EQ(int(track.Marks[1].iF), 0);
    EXPECT_EQ(int(track.Marks[1].iFRaw), 0);
}

TEST(TrackTableReader, EmptyFieldsBeforeOthersAreRead)
{
    const Track track = readTrack("V:Float\tQRVName:Text\tTrMade:Text\tfiltr:Text\tiF:Int\tiB:Int",
                                  {"2.5\tA\tGSOHO\tV\t7\t1", "\t\t\t\t\t2"});
    EXPECT_EQ(track.V, 0.0);
    EXPECT_EQ(track.QRVName, "");
    EXPECT_EQ(track.TrMade, THowMakeTr::UNKNO);
    ASSERT_EQ(track.Marks.size(), 2U);
    EXPECT_EQ(std::string(track.Marks[1].filtr), "");
    EXPECT_EQ(int(track.Marks[1].iF), -1);
    EXPECT_EQ(int(track.Marks[1].iB), 2);
}

TEST(TrackTableReader, EmptyFieldsAtTheEndOfALineOfAFileAreMissing)
{
    const Tracks tracks = readTable("v2\niB:Int\tCHART:Text\tiF:Int\t\n1\t\t\t\n2\tX\t\n3\t\t5\n---\t\t\n");
    ASSERT_EQ(tracks.size(), 1U);
    const Track& track = tracks[0];
    ASSERT_EQ(track.Marks.size(), 3U);
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(std::string(track.Marks[0].CHART), "na");
    EXPECT_EQ(int(track.Marks[0].iF), 0);
    EXPECT_EQ(std::string(track.Marks[1].CHART), "X");
    EXPECT_EQ(int(track.Marks[1].iF), 0);
    EXPECT_EQ(std::string(track.Marks[2].CHART), "");
    EXPECT_EQ(int(track.Marks[2].iF), 4);
}

TEST(TrackTableReader, FieldsBeyondTheHeaderAreNotRead)
{
    const Track track = readTrack("iB:Int", {"1\t2\t3", "4\t---"});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 4}));
}

TEST(TrackTableReader, AMarkAndItsInterBlobGrowTogether)
{
    const Track track = readTrack("iB:Int\tm_MPC:Float", {"1\t17.25", "2", "3\tx"});
    ASSERT_EQ(track.Marks.size(), 3U);
    ASSERT_EQ(track.InterBlobs.size(), 3U);
    EXPECT_EQ(track.InterBlobs[0].m_MPC, 17.25);
    EXPECT_EQ(track.InterBlobs[1].m_MPC, 0.0);
    EXPECT_EQ(track.InterBlobs[2].m_MPC, 0.0);
    for (const TInterBlob& blob : track.InterBlobs) {
        EXPECT_EQ(blob.Value2, -1.0);
        EXPECT_EQ(blob.Value3, -1.0);
    }
}

TEST(TrackTableReader, VersionLineMayBeMissing)
{
    EXPECT_EQ(iBsOf(lListTrack(Lines{"iB:Int", "1", "2", "---", "3", "---"})), (Blobs{{1, 2}, {3}}));
    EXPECT_EQ(iBsOf(lListTrack(Lines{"v2", "iB:Int", "1", "2", "---", "3", "---"})), (Blobs{{1, 2}, {3}}));
}

TEST(TrackTableReader, OtherVersionLinesAreHeaders)
{
    for (const char* version : {"v1", "V2", "v2 ", " v2", "v2:Int", ""}) {
        SCOPED_TRACE(version);
        const Tracks tracks = lListTrack(Lines{version, "iB:Int", "7", "---"});
        ASSERT_EQ(tracks.size(), 1U);
        ASSERT_EQ(tracks[0].Marks.size(), 2U);
        EXPECT_EQ(iBsOf(tracks[0]), (std::vector<int>{0, 0}));
    }
}

TEST(TrackTableReader, TablesWithoutTracks)
{
    EXPECT_TRUE(lListTrack(Lines{}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2"}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2", "iB:Int"}).empty());
    EXPECT_TRUE(lListTrack(Lines{"iB:Int"}).empty());
    EXPECT_TRUE(lListTrack(Lines{""}).empty());
    EXPECT_TRUE(lListTrack(Lines{"v2", ""}).empty());
    EXPECT_TRUE(lListTrack(Lines{"---"}).empty()); // a header
    EXPECT_TRUE(lListTrack(Lines{"v2", "---"}).empty());
}

TEST(TrackTableReader, EndsOfTracks)
{
    const struct
    {
        Lines lines;
        Blobs blobs;
    } rows[] = {
        {{"1", "2"}, {{1, 2}}},
        {{"1", "2", "---"}, {{1, 2}}},
        {{"1", "---", "2", "3"}, {{1}}},
        {{"1", "---", "2", "---", "3"}, {{1}, {2}}},
        {{"---"}, {{}}},
        {{"---", "1"}, {{}}},
        {{"---", "1", "---"}, {{}, {1}}},
        {{"1", "---", "---", "2", "---"}, {{1}, {}, {2}}},
        {{"1", "--- ", "2", "---"}, {{1, 0, 2}}},
        {{"1", "----", "2", "---"}, {{1, 0, 2}}},
        {{"1", "--", "---\t", "2", "---"}, {{1, 0, 0, 2}}},
        {{"1", "---\r", "2", "---"}, {{1, 0, 2}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.lines));
        Lines lines = {"v2", "iB:Int"};
        lines.insert(lines.end(), row.lines.begin(), row.lines.end());
        const Tracks tracks = lListTrack(lines);
        EXPECT_EQ(iBsOf(tracks), row.blobs);
        for (const Track& track : tracks) {
            EXPECT_EQ(track.NMarks, int(track.Marks.size()));
            EXPECT_EQ(track.InterBlobs.size(), track.Marks.size());
        }
    }
}

TEST(TrackTableReader, AnEmptyLineIsAMark)
{
    const Track track = readTrack("iB:Int\tfiltr:Text", {"1\tV", "", "2\tB", ""});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1, 0, 2, 0}));
    EXPECT_EQ(std::string(track.Marks.at(1).filtr), "R");
    EXPECT_EQ(track.NMarks, 4);
}

TEST(TrackTableReader, ALineOfBlanksOrOfACommentIsAMark)
{
    EXPECT_EQ(iBsOf(readTrack("iB:Int", {"1", "  ", "#Source>5", "2"})), (std::vector<int>{1, 0, 0, 2}));
}

TEST(TrackTableReader, UnknownColumnsAreSkipped)
{
    const Track track = readTrack("Mood:Text\tiB:Int\tra:Float\tRA :Float\tRA:Float", {"9\t1\t2\t3\t4"});
    ASSERT_EQ(track.Marks.size(), 1U);
    EXPECT_EQ(int(track.Marks[0].iB), 1);
    EXPECT_EQ(double(track.Marks[0].RA), 4.0);

    const Track unknown = readTrack("Mood:Text", {"9", "8"});
    EXPECT_EQ(iBsOf(unknown), (std::vector<int>{0, 0}));
}

TEST(TrackTableReader, OnlyTheNameOfADescriptionMatters)
{
    for (const char* header : {"iB", "iB:", "iB:Int", "iB:Text:parsec", "iB::", "iB:RA:DE"}) {
        SCOPED_TRACE(header);
        EXPECT_EQ(int(readMark(header, "41").iB), 41);
    }
    EXPECT_EQ(int(readMark(":iB", "41").iB), 0);
    EXPECT_EQ(int(readMark("iB Int", "41").iB), 0);
    EXPECT_EQ(int(readMark("\tiB:Int", "40\t41").iB), 41);
}

TEST(TrackTableReader, FirstOfTwoEqualColumnsIsRead)
{
    const Track track = readTrack("iB:Int\tQRVName:Text\tiB:Float\tQRVName:Text", {"1\tA\t2\tB"});
    EXPECT_EQ(iBsOf(track), (std::vector<int>{1}));
    EXPECT_EQ(track.QRVName, "A");
}

TEST(TrackTableReader, LinesMayEndInCarriageReturns)
{
    const Tracks tracks = readTable("v2\r\niB:Int\tfiltr:Text\r\n1\tV\r\n2\tB\t\r\n---\r\n3\r\n---\r\n");
    EXPECT_EQ(iBsOf(tracks), (Blobs{{1, 2}, {3}}));
    EXPECT_EQ(std::string(tracks.at(0).Marks.at(0).filtr), "V");
    EXPECT_EQ(std::string(tracks.at(0).Marks.at(1).filtr), "B");
}

TEST(TrackTableReader, LastLineNeedsNoLineFeed)
{
    EXPECT_EQ(iBsOf(readTable("v2\niB:Int\n1\n---\n2\n---")), (Blobs{{1}, {2}}));
    EXPECT_EQ(iBsOf(readTable("v2\niB:Int\n1\n---\n2")), (Blobs{{1}}));
    EXPECT_EQ(iBsOf(readTable("v2\niB:Int\n1\n2")), (Blobs{{1, 2}}));
}

TEST(TrackTableReader, FilesWithoutTracks)
{
    for (const char* bytes : {"", "\n", "v2", "v2\n", "v2\niB:Int\n", "\t\t\n", "v2\n\t\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_TRUE(readTable(bytes).empty());
    }
    const TemporaryFolder folder;
    EXPECT_TRUE(lListTrack(folder / "missing.txt").empty());
    EXPECT_FALSE(exists(folder / "missing.txt"));
    EXPECT_TRUE(lListTrack(folder.path()).empty());
}

TEST(TrackTableReader, TracksOfAFileKnowTheirFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "v2\niB:Int\n1\n---\n---\n2\n---\n");
    const Tracks tracks = lListTrack(folder / "a.txt");
    ASSERT_EQ(tracks.size(), 3U);
    for (const Track& track : tracks) {
        EXPECT_EQ(track.SourceFile, folder / "a.txt");
    }
    EXPECT_EQ(lListTrack(Lines{"iB", "1"}).at(0).SourceFile, "");
}

TEST(TrackTableReader, TextsOfCast)
{
    const struct
    {
        std::string text;
        double JD, RA, DE;
    } rows[] = {
        {"", 0, 0, 0},
        {"2460000.5;15.25;-0.5;1", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25;-0.5;", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25;-0.5", 2460000.5, 15.25, -0.5},
        {"2460000.5;15.25", 2460000.5, 15.25, 0},
        {"2460000.5", 2460000.5, 0, 0},
        {"2460000.5;;-0.5", 2460000.5, 0, -0.5},
        {";15.25;-0.5;1", 0, 15.25, -0.5},
        {";", 0, 0, 0},
        {";;;", 0, 0, 0},
        {"1;2;3;4;5;6", 1, 2, 3},
        {" 1; 2 ;+3x;tag", 1, 2, 3},
        {"a;b;c;d", 0, 0, 0},
        {"1,2,3", 1, 0, 0},
        {"1e3;1e1;-1e1", 1000, 10, -10},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const TCasts cast = StrToCast(row.text);
        EXPECT_EQ(cast.JD, row.JD);
        EXPECT_EQ(cast.RA, row.RA);
        EXPECT_EQ(cast.DE, row.DE);
    }
}

TEST(TrackTableReader, LinesOfALightCurveTable)
{
    // V1021 Her on 2017-05-05, MJD 57878
    const Track track =
        readTrack("N:Int\tNBl:Int\tName:Text\tdate:Date\ttime:Time\tmjd:Float:day\ttime_bjd:Time\tbjd:Float:"
                  "day\tRA:Float:deg\t"
                  "DE:Float:deg\tm:Float:mag\tmEnsemble:Float:mag\tfiltr:Text\tMTYPE:Text\tCNAME:Text\tCMAG:"
                  "Text\tKNAME:Text\t"
                  "KMAG:Text\tCHART:Text\tiF:Int\tQRVID:Text\tDraw:Bool",
                  {"1\t23\tV1021 "
                   "Her\t2017-05-05\t05:17:01.8240000\t57878.220159999997\t00:00:00.0000000\t0.000000000000\t"
                   "239.439220\t49.465640\t13.5820\t13.5810\tV\tSTD\tENSEMBLE\tna\t130\t13.069\tX16140EI\t0\t"
                   "V1023 Her_V1021 Her\t1\t",
                   "1\t23\tV1021 "
                   "Her\t2017-05-05\t05:24:40.6080000\t57878.225469999998\t00:00:00.0000000\t0.000000000000\t"
                   "239.439220\t49.465640\t13.5840\t13.5830\tV\tSTD\tENSEMBLE\tna\t130\t13.071\tX16140EI\t0\t"
                   "V1023 Her_V1021 Her\t1\t"});
    EXPECT_EQ(track.N, 1);
    EXPECT_EQ(track.NMarks, 2);
    EXPECT_EQ(track.QRVName, "V1021 Her");
    EXPECT_EQ(track.NORAD, "");
    ASSERT_EQ(track.Marks.size(), 2U);
    const Mark& mark = track.Marks[1];
    EXPECT_EQ(int(mark.date), 57878);
    EXPECT_NEAR(double(mark.time), 0.22547, 1e-12);
    EXPECT_EQ(std::string(mark.mjd), "57878.225469999998");
    EXPECT_EQ(double(mark.RA), 239.43922);
    EXPECT_EQ(double(mark.DE), 49.46564);
    EXPECT_EQ(double(mark.m), 13.584);
    EXPECT_EQ(double(mark.mEnsemble), 13.583);
    EXPECT_EQ(std::string(mark.filtr), "V");
    EXPECT_EQ(std::string(mark.MTYPE), "STD");
    EXPECT_EQ(std::string(mark.CNAME), "ENSEMBLE");
    EXPECT_EQ(std::string(mark.KNAME), "130");
    EXPECT_EQ(std::string(mark.CHART), "X16140EI");
    EXPECT_EQ(std::string(mark.QRVID), "V1023 Her_V1021 Her");
    EXPECT_EQ(int(mark.iF), -1);
}

TEST(TrackTableReader, SatellitesOfAVisualObserver)
{
    // The observer's own list: UTC, right ascension in hours and minutes, declination in degrees.
    const struct
    {
        std::size_t track;
        int hour, minute;
        double second;
        int raHour;
        double raMinute;
        double DE;
    } observed[] = {
        {0, 1, 10, 47.59, 20, 27.142, -28.9077}, {0, 1, 13, 5.07, 19, 19.261, 9.0806},
        {0, 1, 13, 21.87, 19, 8.590, 14.4352},   {0, 1, 13, 49.78, 18, 49.582, 22.9539},
        {0, 1, 14, 19.46, 18, 27.490, 31.1236},  {1, 1, 46, 55.2, 23, 43.335, -21.7095},
        {1, 1, 47, 9.03, 23, 38.166, -25.2211},  {1, 1, 47, 53.75, 23, 23.296, -34.5679},
    };
    const Tracks tracks = lListTrack(satelliteTable());
    ASSERT_EQ(tracks.size(), 2U);
    ASSERT_EQ(tracks[0].Marks.size(), 5U);
    ASSERT_EQ(tracks[1].Marks.size(), 3U);

    for (std::size_t i = 0; i < std::size(observed); ++i) {
        SCOPED_TRACE(i);
        const auto& row = observed[i];
        const Mark& mark = tracks[row.track].Marks[row.track == 0 ? i : i - 5];
        EXPECT_EQ(int(mark.date), 52963); // 2003-11-20
        EXPECT_NEAR(double(mark.time) * 86400.0, row.hour * 3600.0 + row.minute * 60.0 + row.second, 1e-6);
        EXPECT_NEAR(double(mark.RA), (row.raHour + row.raMinute / 60.0) * 15.0, 6e-7);
        EXPECT_DOUBLE_EQ(double(mark.DE), row.DE);
        EXPECT_EQ(double(mark.m), 0.0);
        EXPECT_EQ(int(mark.iF), int(i));
        EXPECT_EQ(int(mark.iFRaw), int(i) + 1);
        EXPECT_EQ(std::string(mark.filtr), "R");
        EXPECT_EQ(std::string(mark.QRVID), "");
    }
    EXPECT_EQ(std::string(tracks[0].Marks[0].mjd), "52963.049161921299");

    EXPECT_EQ(tracks[0].QRVName, "23533");
    EXPECT_EQ(tracks[0].NORAD, "23533");
    EXPECT_EQ(tracks[0].N, 1);
    EXPECT_EQ(tracks[0].NMarks, 5);
    EXPECT_EQ(tracks[0].V, 68376.07194);
    EXPECT_EQ(tracks[0].PA, 333.518);
    EXPECT_EQ(tracks[0].V_ra, -30490.395);
    EXPECT_EQ(tracks[0].V_de, 61201.495);
    EXPECT_EQ(tracks[1].QRVName, "07816");
    EXPECT_EQ(tracks[1].NORAD, "07816");
    EXPECT_EQ(tracks[1].N, 2);
    EXPECT_EQ(tracks[1].NMarks, 3);
    for (const Track& track : tracks) {
        EXPECT_EQ(track.MPCChecker, "");
        EXPECT_EQ(track.TrMade, THowMakeTr::MANUA);
        EXPECT_EQ(track.FindOrb, 999.0);
        EXPECT_EQ(track.SourceFile, satelliteTable());
        EXPECT_EQ(track.InterBlobs.size(), track.Marks.size());
    }
}
