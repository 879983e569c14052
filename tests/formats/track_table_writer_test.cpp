#include "formats/track_table.h"

#include "results/result.h"

#include "support/no_room.h"
#include "support/temporary_folder.h"
#include "support/track_tables.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Track = TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;
using Mark = TRecLabelPervichka_File;
using Blobs = std::vector<std::vector<int>>;

} // namespace

TEST(TrackTableWriter, HeadIsAppendedUnderTheFlag)
{
    const TemporaryFolder folder;
    sHeadTrack(folder / "none.txt", false, "iB:Int");
    EXPECT_FALSE(exists(folder / "none.txt"));

    sHeadTrack(folder / "a.txt", true, "");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\n" + headerOf62Columns + "\n");

    makeFile(folder / "b.txt", "before\n");
    sHeadTrack(folder / "b.txt", true, "iB:Int\tQRVName:Text");
    sHeadTrack(folder / "b.txt", false, "RA:Float");
    EXPECT_EQ(bytesOf(folder / "b.txt"), "before\nv2\niB:Int\tQRVName:Text\n");
}

TEST(TrackTableWriter, HeadOfSatelliteTablesReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before\n");
    for (int i = 0; i < 2; ++i) {
        sHeadSatTrack(folder / "a.txt");
        EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\nN:Int\tNBl:Int\tdate:Date\ttime:Time\tnoradid:Text\tRA:"
                                             "Float:deg\tDE:Float:degt\tDraw:Bool\n");
    }
}

TEST(TrackTableWriter, HeadOfSatelliteTablesThatCannotBeWrittenThrowsCode7)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    makeFile(folder / "folder/kept.txt", "kept\n");
    for (const std::string& path : {folder / "folder", folder / "missing/a.txt"}) {
        SCOPED_TRACE(path);
        try {
            sHeadSatTrack(path);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_EQ(failure.getComment(), path);
        }
    }
    EXPECT_EQ(bytesOf(folder / "folder/kept.txt"), "kept\n");
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST(TrackTableWriter, LinesOfATrackAreAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "before\n");
    const Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    sTrack(folder / "a.txt", "", "", "", 3, false, track, "X", "iB:Int\tN:Int\tName:Text\tQRVName:Text",
           false);
    sTrack(folder / "a.txt", "", "", "", 4, false, track, "Y", "iB:Int\tN:Int\tName:Text\tQRVName:Text",
           true);
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before\n1\t3\tX\tX\t\n2\t3\tX\tX\t\n1\t4\tY\tY\t\n2\t4\tY\tY\t\n");
}

TEST(TrackTableWriter, TrackWithoutMarksOpensNoFile)
{
    const TemporaryFolder folder;
    sTrack(folder / "a.txt", "", "", "", 1, false, Track(), "A", "iB:Int", false);
    EXPECT_FALSE(exists(folder / "a.txt"));
}

TEST(TrackTableWriter, UnknownColumnsOfAHeaderAreWrittenAsZero)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}}), "Mood:Text\tiB\t:Int\tMood"), "0\t1\t0\t0\t\n");
}

TEST(TrackTableWriter, WithoutHeaderTheLinesAreEmpty)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 1}, {.iB = 2}}), ""), "\n\n");
    EXPECT_EQ(writtenTable({trackNamed("A", {{.iB = 1}, {.iB = 2}}), trackNamed("B", {Mark()})}, ""),
              "v2\n" + headerOf62Columns + "\n\n\n---\n\n---\n");
}

TEST(TrackTableWriter, CandidatesAreWrittenWithATab)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    track.Candidates = {"one two", "three"};
    EXPECT_EQ(writtenLines(track, "Candidates:Text\tiB:Int"), "one two\t1\t\nthree\t2\t\n");
}

TEST(TrackTableWriter, CastIsWrittenWithoutATab)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    track.Cast = {"2460000.5;15.25;-0.5;1", "c"};
    EXPECT_EQ(writtenLines(track, "iB:Int\tCast:Float:jd_ra_de_tag"), "1\t2460000.5;15.25;-0.5;1\n2\tc\n");
    EXPECT_EQ(writtenLines(track, "Cast\tiB"), "2460000.5;15.25;-0.5;11\t\nc2\t\n");
    EXPECT_EQ(writtenLines(track, "Cast"), "2460000.5;15.25;-0.5;1\nc\n");
}

TEST(TrackTableWriter, MissingCandidatesAndCastAreEmpty)
{
    Track track = trackNamed("A", {{.iB = 1}, {.iB = 2}});
    EXPECT_EQ(writtenLines(track, "Candidates\tiB\tCast"), "\t1\t\n\t2\t\n");
    track.Candidates = {"one"};
    track.Cast = {"c"};
    EXPECT_EQ(writtenLines(track, "Candidates\tiB\tCast"), "one\t1\tc\n\t2\t\n");
}

TEST(TrackTableWriter, BothOfTwoEqualColumnsAreWritten)
{
    EXPECT_EQ(writtenLines(trackNamed("A", {{.iB = 3}}), "iB:Int\tN:Int\tiB:Float\tN:Text"),
              "3\t5\t3\t5\t\n");
}

TEST(TrackTableWriter, TableIsAddedOrReplaces)
{
    const TemporaryFolder folder;
    const Tracks tracks = {trackNamed("A", {{.iB = 1}}), trackNamed("B", {{.iB = 2}, {.iB = 3}})};
    const std::string table = "v2\nName\tiB\nA\t1\t\n---\nB\t2\t\nB\t3\t\n---\n";

    makeFile(folder / "a.txt", "before\n");
    sListTrack(folder / "a.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), "before\n" + table);
    sListTrack(folder / "a.txt", "", "", tracks, "", false, true, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), table);
    sListTrack(folder / "a.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "a.txt"), table + table);

    sListTrack(folder / "new.txt", "", "", tracks, "", false, false, "Name\tiB");
    EXPECT_EQ(bytesOf(folder / "new.txt"), table);
}

TEST(TrackTableWriter, EmptyListLeavesAHeaderAlone)
{
    EXPECT_EQ(writtenTable({}, "iB:Int"), "v2\niB:Int\n");
    EXPECT_EQ(writtenTable({}, ""), "v2\n" + headerOf62Columns + "\n");
}

TEST(TrackTableWriter, TracksWithoutMarksAreAnEndAlone)
{
    const std::string bytes = writtenTable({Track(), trackNamed("A", {{.iB = 1}}), Track()}, "iB:Int");
    EXPECT_EQ(bytes, "v2\niB:Int\n---\n1\t\n---\n---\n");
    EXPECT_EQ(iBsOf(readTable(bytes)), (Blobs{{}, {1}, {}}));
}

TEST(TrackTableWriter, FailedWritesAreNotReported)
{
    const Tracks tracks = {trackNamed("A", {{.iB = 1}})};
    for (const bool rewrite : {false, true}) {
        SCOPED_TRACE(rewrite);
        expectSilence(
            [&](const std::string& path) { sListTrack(path, "", "", tracks, "", false, rewrite, "iB:Int"); });
    }
    expectSilence(
        [&](const std::string& path) { sTrack(path, "", "", "", 1, false, tracks[0], "", "iB:Int", false); });
    expectSilence([](const std::string& path) { sHeadTrack(path, true, ""); });
}

TEST(TrackTableWriter, ARealTableIsWrittenAsItWas)
{
    EXPECT_EQ(writtenTable(lListTrack(satelliteTable()), headerOf62Columns), bytesOf(satelliteTable()));
}
