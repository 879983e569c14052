#include "conversion.h"

#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

const std::string oneMark = "T1 2000.0 UTC\n"
                            "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";

const std::string oneMarkInMpc =
    "COD 500\n"
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n";

// A conversion in one folder, with what most of the tests have in common.
struct Conversion
{
    std::string path_in{};
    std::string out_dir{};
    std::string outputextension = ".txt";
    std::string inputformat = "mea";
    std::string outputformat = "mea";
    std::string originator = "observatory";
    std::string REFERENCE_FRAME{};
    std::string PARTICIPANT_1 = "T9";
    bool autoname = false;

    TFuncRes run() const
    {
        return converter(path_in, out_dir, outputextension, inputformat, outputformat, originator,
                         REFERENCE_FRAME, PARTICIPANT_1, autoname);
    }
};

void expectResult(const TFuncRes& result, int code, const std::string& comment,
                  const std::string& description)
{
    EXPECT_EQ(result.Code, code);
    EXPECT_EQ(result.Comment, comment);
    EXPECT_EQ(result.Description, description);
    EXPECT_TRUE(result.Details.empty());
}

// Marks told apart by their magnitudes 0, 1, 2 ...
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

// "0 2 3" for the marks that are left.
std::string left(const TrackVtorichka& track)
{
    std::string text;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(mark.m));
    }
    return text;
}

std::string nameAt(int date, double time)
{
    TrackVtorichka track;
    track.Marks = {{.date = date, .time = time}};
    track.Series = "R";
    return CreateAutoName(track, "T1", "1234");
}

} // namespace

TEST(Converter, MeaToMpc)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    const TFuncRes result =
        Conversion{.path_in = folder / "c.mea", .out_dir = folder / "", .outputformat = "mpc"}.run();
    expectResult(result, 0, "OK", folder / "c.txt");
    EXPECT_EQ(bytesOf(folder / "c.txt"), oneMarkInMpc);
    EXPECT_EQ(bytesOf(folder / "c.mea"), oneMark);
}

TEST(Converter, MeaToMeaBearsTheTelescopeOfTheTask)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    const TFuncRes result = Conversion{.path_in = folder / "c.mea", .out_dir = folder / ""}.run();
    expectResult(result, 0, "OK", folder / "c.txt");
    EXPECT_EQ(bytesOf(folder / "c.txt"),
              "T9 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(Converter, EmptyTelescopeOfTheTaskClearsThatOfTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    Conversion{.path_in = folder / "c.mea", .out_dir = folder / "", .PARTICIPANT_1 = ""}.run();
    EXPECT_EQ(bytesOf(folder / "c.txt"),
              " 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(Converter, EachTrackIsStamped)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", "T1 2000.0 UTC\n"
                               "A   250223 1200000000 0100000000 -0030000000 001 09.50\n"
                               "B   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    TConvMea task;
    task.path_in = folder / "c.mea";
    task.out_dir = folder / "";
    task.outputextension = ".txt";
    task.inputformat = "mea";
    task.outputformat = "mpc";
    task.originator = "somebody";
    task.REFERENCE_FRAME = "EME2000";
    task.PARTICIPANT_1 = "T9";
    std::vector<TrackVtorichka> tracks;
    expectResult(converter(task, tracks), 0, "OK", folder / "c.txt");
    ASSERT_EQ(tracks.size(), 2u);
    EXPECT_EQ(tracks[0].QRVName, "A");
    EXPECT_EQ(tracks[1].QRVName, "B");
    for (const TrackVtorichka& track : tracks) {
        EXPECT_EQ(track.REFERENCE_FRAME, "EME2000");
        EXPECT_EQ(track.telescope, "T9");
        EXPECT_EQ(track.originator, "somebody");
        EXPECT_EQ(track.QRVName, track.NORAD);
        EXPECT_EQ(track.Marks.size(), 1u);
    }
}

TEST(Converter, EmptyTextsOfTheTaskAreStampedToo)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    TConvMea task;
    task.path_in = folder / "c.mea";
    task.out_dir = folder / "";
    task.outputextension = ".txt";
    task.inputformat = "mea";
    task.outputformat = "mpc";
    task.originator = "";
    task.PARTICIPANT_1 = "";
    std::vector<TrackVtorichka> tracks;
    converter(task, tracks);
    ASSERT_EQ(tracks.size(), 1u);
    EXPECT_EQ(tracks[0].REFERENCE_FRAME, "");
    EXPECT_EQ(tracks[0].telescope, "");
    EXPECT_EQ(tracks[0].originator, "");
    EXPECT_EQ(bytesOf(folder / "c.txt"), oneMarkInMpc);
}

TEST(Converter, TaskFormTakesTheFolderAsItStands)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    TConvMea task;
    task.path_in = folder / "c.mea";
    task.out_dir = folder / "x";
    task.inputformat = "mea";
    task.outputformat = "mpc";
    std::vector<TrackVtorichka> tracks;
    expectResult(converter(task, tracks), 0, "OK", folder / "xc");
    EXPECT_EQ(bytesOf(folder / "xc"), oneMarkInMpc);
}

TEST(Converter, OutputPathIsSimplyJoined)
{
    const struct
    {
        const char* file;
        const char* out;
        const char* extension;
        const char* made;
    } rows[] = {{"c.mea", "", ".mpc", "c.mpc"},
                {"c.mea", "", "mpc", "cmpc"},
                {"c.mea", "", "", "c"},
                {"c.mea", "pre_", ".txt", "pre_c.txt"},
                {"c.tdm.old", "", ".xml", "c.tdm.xml"},
                {"c", "", ".txt", "c.txt"},
                {".hidden", "", ".txt", ".txt"},
                {"a b.mea", "", " c.txt", "a b c.txt"},
                {"c.", "", ".txt", "c.txt"},
                {"c..mea", "", ".txt", "c..txt"},
                {"d\\c.mea", "", ".txt", "c.txt"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.made);
        const TemporaryFolder folder;
        makeFile(folder / row.file, oneMark);
        const TFuncRes result = Conversion{.path_in = folder / row.file,
                                           .out_dir = folder / row.out,
                                           .outputextension = row.extension,
                                           .outputformat = "mpc"}
                                    .run();
        expectResult(result, 0, "OK", folder / row.made);
        EXPECT_EQ(bytesOf(folder / row.made), oneMarkInMpc);
    }
}

TEST(Converter, ExistingOutputIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    makeFile(folder / "c.txt", std::string(1000, 'x'));
    Conversion{.path_in = folder / "c.mea", .out_dir = folder / "", .outputformat = "mpc"}.run();
    EXPECT_EQ(bytesOf(folder / "c.txt"), oneMarkInMpc);
}

TEST(Converter, AutomaticNameIsThatOfTheFirstTrackAndItsFirstMark)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", "T1 2000.0 UTC\n"
                               "1234 250223 1200000000 0100000000 -0030000000 001 09.50\n"
                               "5678 250223 0600000000 0100000000 -0030000000 001 09.50\n"
                               "1234 250223 0300000000 0100000000 -0030000000 001 09.50\n");
    const TFuncRes result =
        Conversion{
            .path_in = folder / "c.mea", .out_dir = folder / "", .outputextension = ".mea", .autoname = true}
            .run();
    expectResult(result, 0, "OK", folder / "T9-1234-2023-02-25T12-00-00-.mea");
    EXPECT_EQ(bytesOf(folder / "T9-1234-2023-02-25T12-00-00-.mea"),
              "T9 2000.0 UTC\n"
              "1234    250223 1200000000 0100000000 -0030000000 001 09.50\n"
              "1234    250223 0300000000 0100000000 -0030000000 001 09.50\n"
              "5678    250223 0600000000 0100000000 -0030000000 001 09.50\n");
    EXPECT_FALSE(exists(folder / "c.txt"));
}

TEST(Converter, UnknownInputWordComesFirst)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    for (const char* word : {"MEA", "", "vomar", "mea ", "xml"}) {
        for (const bool autoname : {false, true}) {
            SCOPED_TRACE(word);
            expectResult(Conversion{.path_in = folder / "c.mea",
                                    .out_dir = folder / "",
                                    .outputextension = ".mea",
                                    .inputformat = word,
                                    .outputformat = "nothing",
                                    .autoname = autoname}
                             .run(),
                         -1, "unknown input format", "format_in");
        }
    }
    EXPECT_EQ(bytesOf(folder / "c.mea"), oneMark);
}

TEST(Converter, ExceptionOfTheReaderNamesTheInputTwice)
{
    const struct
    {
        const char* what;
        const char* line;
    } rows[] = {{"date of 3 characters", "A 250 1200000000 0100000000 -0030000000 001 09.50"},
                {"date of 1 character", "A 2 1200000000 0100000000 -0030000000 001 09.50"},
                {"time of 5 characters", "A 250223 12000 0100000000 -0030000000 001 09.50"},
                {"right ascension of 5 characters", "A 250223 1200000000 01000 -0030000000 001 09.50"},
                {"declination of 6 characters", "A 250223 1200000000 0100000000 -00300 001 09.50"}};
    for (const auto& row : rows) {
        for (const bool autoname : {false, true}) {
            SCOPED_TRACE(row.what);
            const TemporaryFolder folder;
            const std::string path = folder / "c.mea";
            const std::string bytes = oneMark + row.line + "\n";
            makeFile(path, bytes);
            makeFile(folder / "c.txt", "old\n");
            expectResult(
                Conversion{
                    .path_in = path, .out_dir = folder / "", .outputformat = "mpc", .autoname = autoname}
                    .run(),
                -1, path, path);
            EXPECT_EQ(bytesOf(folder / "c.txt"), "old\n");
            EXPECT_EQ(bytesOf(path), bytes);
        }
    }
}

TEST(Converter, ShortestPackedTextsAreTaken)
{
    const TemporaryFolder folder;
    // The year of a date of four characters is "20", that of one of five "20Y".
    makeFile(folder / "c.mea", "T1 2000.0 UTC\n"
                               "A 2502 120000 010000 -003000 001 9\n"
                               "A 25021 120000 010000 -003000 001 9\n");
    expectResult(Conversion{.path_in = folder / "c.mea", .out_dir = folder / "", .outputformat = "mpc"}.run(),
                 0, "OK", folder / "c.txt");
    EXPECT_EQ(bytesOf(folder / "c.txt"),
              "COD 500\n"
              "           A  C20 02 25.50000 01 00 00.00 -00 30 00.0          09.0 R      500\n"
              "           A  C201 02 25.50000 01 00 00.00 -00 30 00.0          09.0 R      500\n");
}

TEST(Converter, OutputThatIsTheInputIsRefused)
{
    const TemporaryFolder folder;
    const std::string path = folder / "c.mea";
    makeFile(path, oneMark);
    for (const char* word : {"mea", "mpc", "nothing", "vomar", ""}) {
        SCOPED_TRACE(word);
        expectResult(
            Conversion{
                .path_in = path, .out_dir = folder / "", .outputextension = ".mea", .outputformat = word}
                .run(),
            -3, "input file = output file", path + " = " + path);
        EXPECT_EQ(bytesOf(path), oneMark);
    }
}

TEST(Converter, AutomaticNameThatIsTheInputIsRefused)
{
    const TemporaryFolder folder;
    const std::string path = folder / "T9-12345-2023-02-25T12-00-00-.mea";
    makeFile(path, oneMark);
    expectResult(
        Conversion{.path_in = path, .out_dir = folder / "", .outputextension = ".mea", .autoname = true}
            .run(),
        -3, "input file = output file", path + " = " + path);
    EXPECT_EQ(bytesOf(path), oneMark);
}

TEST(Converter, MissingInputCanBeItsOwnOutput)
{
    const TemporaryFolder folder;
    const std::string path = folder / "c.mea";
    expectResult(Conversion{.path_in = path, .out_dir = folder / "", .outputextension = ".mea"}.run(), -3,
                 "input file = output file", path + " = " + path);
    EXPECT_FALSE(exists(path));
}

TEST(Converter, BrokenInputIsToldBeforeItsPath)
{
    const TemporaryFolder folder;
    const std::string path = folder / "c.mea";
    makeFile(path, "T1\nA 250 1200000000 0100000000 -0030000000 001 09.50\n");
    expectResult(Conversion{.path_in = path, .out_dir = folder / "", .outputextension = ".mea"}.run(), -1,
                 path, path);
}

TEST(Converter, OtherSpellingOfTheInputPathIsNotCaught)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    expectResult(
        Conversion{.path_in = folder / "c.mea", .out_dir = folder / "./", .outputextension = ".mea"}.run(), 0,
        "OK", folder.path() + "/./c.mea");
    EXPECT_EQ(bytesOf(folder / "c.mea"),
              "T9 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(Converter, UnknownOutputWordTellsThePathAndWritesNothing)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    for (const char* word : {"vomar", "MPC", "", "mpc "}) {
        SCOPED_TRACE(word);
        expectResult(
            Conversion{.path_in = folder / "c.mea", .out_dir = folder / "", .outputformat = word}.run(), 0,
            "OK", folder / "c.txt");
        EXPECT_FALSE(exists(folder / "c.txt"));
    }
}

TEST(Converter, FailedWriteIsPassedOn)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    for (const char* word : {"mea", "mpc"}) {
        SCOPED_TRACE(word);
        try {
            Conversion{.path_in = folder / "c.mea", .out_dir = folder / "missing/", .outputformat = word}
                .run();
            ADD_FAILURE() << "nothing was raised";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_STREQ(failure.what(), "Error opening file");
            EXPECT_EQ(failure.getComment(), folder / "missing/c.txt");
        }
        EXPECT_FALSE(exists(folder / "missing"));
    }
}

TEST(Converter, InputWithoutTracksLeavesAnExistingOutput)
{
    const TemporaryFolder folder;
    makeFile(folder / "empty.mea", "");
    makeFile(folder / "site.mea", "T1 2000.0 UTC\n");
    for (const char* name : {"missing", "empty", "site"}) {
        for (const char* word : {"mea", "mpc"}) {
            SCOPED_TRACE(std::string(name) + " to " + word);
            const std::string output = folder / (std::string(name) + ".txt");
            const Conversion conversion{.path_in = folder / (std::string(name) + ".mea"),
                                        .out_dir = folder / "",
                                        .outputformat = word};
            expectResult(conversion.run(), 0, "OK", output);
            EXPECT_FALSE(exists(output));
            makeFile(output, "old\n");
            expectResult(conversion.run(), 0, "OK", output);
            EXPECT_EQ(bytesOf(output), "old\n");
            std::filesystem::remove(output);
        }
    }
}

TEST(Converter, AutomaticNameWithoutATrackIsRefused)
{
    const TemporaryFolder folder;
    makeFile(folder / "empty.mea", "");
    makeFile(folder / "site.mea", "T1 2000.0 UTC\n");
    makeFile(folder / "passed.mea", "T1 2000.0 UTC\nsix tokens are not a mark\n");
    for (const char* name : {"missing.mea", "empty.mea", "site.mea", "passed.mea"}) {
        SCOPED_TRACE(name);
        const std::string path = folder / name;
        expectResult(
            Conversion{.path_in = path, .out_dir = folder / "out_", .outputformat = "mpc", .autoname = true}
                .run(),
            -1, path, path);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        EXPECT_EQ(entry.path().extension(), ".mea");
    }
}

TEST(Converter, OutputOnlyWordsGiveNoTracks)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    const std::string path = folder / "c.mea";
    for (const char* word : {"mpc", "tdm.xml", "mag", "aavso"}) {
        SCOPED_TRACE(word);
        Conversion conversion{
            .path_in = path, .out_dir = folder / "", .inputformat = word, .outputformat = "mpc"};
        expectResult(conversion.run(), 0, "OK", folder / "c.txt");
        EXPECT_FALSE(exists(folder / "c.txt"));
        conversion.outputextension = ".mea";
        expectResult(conversion.run(), -3, "input file = output file", path + " = " + path);
        conversion.autoname = true;
        expectResult(conversion.run(), -1, path, path);
    }
    EXPECT_EQ(bytesOf(path), oneMark);
}

TEST(Converter, EmptyInputPath)
{
    const TemporaryFolder folder;
    expectResult(Conversion{.path_in = "", .out_dir = folder / ""}.run(), 0, "OK", folder / ".txt");
    EXPECT_FALSE(exists(folder / ".txt"));
    expectResult(Conversion{.path_in = "", .out_dir = folder / "", .autoname = true}.run(), -1, "", "");
    // Nothing joined is the input path again.
    expectResult(Conversion{.path_in = "", .out_dir = "", .outputextension = ""}.run(), -3,
                 "input file = output file", " = ");
}

TEST(CreateAutoName, PartsStandWithHyphensBetweenThem)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}, {.date = 50000, .time = 0.1}});
    track.Series = "R";
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-2023-02-25T12-00-00-R");
}

TEST(CreateAutoName, EmptyPartsLeaveTheirHyphens)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}});
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-2023-02-25T12-00-00-");
    EXPECT_EQ(CreateAutoName(track, "", ""), "--2023-02-25T12-00-00-");
}

TEST(CreateAutoName, OnlyTheTimeIsCutAtItsPoint)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}});
    track.Series = "s.1";
    EXPECT_EQ(CreateAutoName(track, "T.1", "a.b/c"), "T.1-a.b/c-2023-02-25T12-00-00-s.1");
}

TEST(CreateAutoName, SecondsAreRoundedToTenthsAndThenCut)
{
    const struct
    {
        double seconds;
        const char* name;
    } rows[] = {{0.0, "T1-1234-2023-02-25T12-00-00-R"},   {9.94, "T1-1234-2023-02-25T12-00-09-R"},
                {9.96, "T1-1234-2023-02-25T12-00-10-R"},  {12.9, "T1-1234-2023-02-25T12-00-12-R"},
                {12.94, "T1-1234-2023-02-25T12-00-12-R"}, {12.96, "T1-1234-2023-02-25T12-00-13-R"},
                {59.94, "T1-1234-2023-02-25T12-00-59-R"}, {59.96, "T1-1234-2023-02-25T12-00-60-R"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(nameAt(60000, 0.5 + row.seconds / 86400.0), row.name);
    }
}

TEST(CreateAutoName, TimesOfDay)
{
    EXPECT_EQ(nameAt(60000, 0.0), "T1-1234-2023-02-25T00-00-00-R");
    EXPECT_EQ(nameAt(60000, 0.25), "T1-1234-2023-02-25T06-00-00-R");
    EXPECT_EQ(nameAt(60000, (23.0 + 59.0 / 60.0 + 30.0 / 3600.0) / 24.0), "T1-1234-2023-02-25T23-59-30-R");
    EXPECT_EQ(nameAt(51544, 0.0), "T1-1234-2000-01-01T00-00-00-R");
    EXPECT_EQ(nameAt(60003, 0.75), "T1-1234-2023-02-28T18-00-00-R");
    EXPECT_EQ(nameAt(60004, 0.75), "T1-1234-2023-03-01T18-00-00-R");
}

TEST(CreateAutoName, DateAndTimeCountAsOneNumber)
{
    EXPECT_EQ(nameAt(60000, 1.5), "T1-1234-2023-02-26T12-00-00-R");
    EXPECT_EQ(nameAt(60001, -0.5), "T1-1234-2023-02-25T12-00-00-R");
}

TEST(CreateAutoName, TrackWithoutMarksHasTheTimeZero)
{
    const TrackVtorichka track;
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-1858-11-17T00-00-00-");
}

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

TEST(DeleteBlobs, TracksAndMarksThatDoNotExistArePassedOver)
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
