#include "conversion.h"

#include "support/results.h"
#include "support/temporary_folder.h"
#include "support/watched_works.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

const std::string oneMark = "T1 2000.0 UTC\n"
                            "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";

const std::string oneMarkInMpc =
    "COD 500\n"
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n";

// The arguments of a conversion, with the values that most tests use.
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

TEST(Converter, MeaToMeaHasTheTelescopeOfTheTask)
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
    std::vector<std::vector<TrackVtorichka>> files;
    expectResult(converter(task, watchedWorks(files)), 0, "OK", folder / "c.txt");
    ASSERT_EQ(files.size(), 1u);
    const std::vector<TrackVtorichka>& tracks = files[0];
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
    std::vector<std::vector<TrackVtorichka>> files;
    converter(task, watchedWorks(files));
    ASSERT_EQ(files.size(), 1u);
    const std::vector<TrackVtorichka>& tracks = files[0];
    ASSERT_EQ(tracks.size(), 1u);
    EXPECT_EQ(tracks[0].REFERENCE_FRAME, "");
    EXPECT_EQ(tracks[0].telescope, "");
    EXPECT_EQ(tracks[0].originator, "");
    EXPECT_EQ(bytesOf(folder / "c.txt"), oneMarkInMpc);
}

TEST(Converter, TaskFormTakesTheFolderAsItIs)
{
    const TemporaryFolder folder;
    makeFile(folder / "c.mea", oneMark);
    TConvMea task;
    task.path_in = folder / "c.mea";
    task.out_dir = folder / "x";
    task.inputformat = "mea";
    task.outputformat = "mpc";
    expectResult(converter(task), 0, "OK", folder / "xc");
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
    // The year of a date of four characters is "20", that of a date of five is "20Y".
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

TEST(Converter, BrokenInputIsReportedBeforeItsPath)
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

TEST(Converter, UnknownOutputWordReportsThePathAndWritesNothing)
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
            ADD_FAILURE() << "nothing was thrown";
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
    makeFile(folder / "skipped.mea", "T1 2000.0 UTC\nsix tokens are not a mark\n");
    for (const char* name : {"missing.mea", "empty.mea", "site.mea", "skipped.mea"}) {
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
    // Three empty texts joined are the empty input path.
    expectResult(Conversion{.path_in = "", .out_dir = "", .outputextension = ""}.run(), -3,
                 "input file = output file", " = ");
}
