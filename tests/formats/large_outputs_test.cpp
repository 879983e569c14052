// Outputs about as long as the megabyte that a writer holds back, and longer ones, and outputs that are no
// regular file.

#include "format_words.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/residual_report.h"
#include "formats/tdm_xml.h"
#include "formats/track_table.h"
#include "results/result.h"

#include "support/expected_files.h"
#include "support/measured_marks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tavelinUtils;
using namespace expectedFiles;

namespace {

using Tracks = std::vector<TrackVtorichka>;

constexpr std::size_t megabyte = 1 << 20;
const std::size_t lengths[] = {megabyte - 1, megabyte, megabyte + 1, 2 * megabyte + 1};

// A file of a first object whose text has any length and of so many marks of another.
struct File
{
    std::string text;
    std::size_t marks;
};

// The file of exactly that length. `make` must give one that is a byte longer for a text that is.
std::string fileOfLength(std::size_t length, const std::function<std::string(const File&)>& make, File& file)
{
    file.marks = 2000;
    file.text = std::string(length - make({"", file.marks}).size(), 't');
    std::string bytes = make(file);
    EXPECT_EQ(bytes.size(), length);
    return bytes;
}

// Checks a writer at each length.
void expectEachLength(const std::function<std::string(const File&)>& make,
                      const std::function<void(const std::string& path, const File&)>& write)
{
    for (const std::size_t length : lengths) {
        SCOPED_TRACE(length);
        File file;
        const std::string expected = fileOfLength(length, make, file);
        EXPECT_TRUE(writtenBy([&](const std::string& path) { write(path, file); }) == expected);
    }
}

// The text is in each format but SSMAS the name of the first object; there it would be in the file twice.
Outlines outlinesOf(const std::string& word, const File& file)
{
    const std::string name = word == "ssmas" ? "A" : "twelve chars" + file.text;
    return {{name, 1}, {"B", file.marks + 1}};
}

Stamps stampsOf(const std::string& word, const File& file)
{
    return {.telescope = word == "ssmas" ? file.text : "T1"};
}

void save(const std::string& path, const std::string& word, Tracks tracks)
{
    EXPECT_EQ(SelectFormatAndSave(path, word, tracks).Code, 0);
}

const std::string observation = "  C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500";

Tracks checkedTracks(const File& file)
{
    Tracks tracks = {trackNamed("", {theMark()}), trackNamed("", {})};
    tracks[0].MPCChecker = "twelve chars" + file.text;
    tracks[1].Marks.assign(file.marks, theMark());
    return tracks;
}

// What comes out of a pipe that a writer writes into.
std::string throughAPipe(const std::function<void(const std::string& path)>& write)
{
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::string bytes;
    std::thread reader([&] { bytes = bytesOf(path); });
    write(path);
    close(open(path.c_str(), O_WRONLY | O_NONBLOCK)); // lets go a reader that nobody has written to
    reader.join();
    return bytes;
}

} // namespace

TEST(LargeOutputs, OfEachWordAroundAMegabyte)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        expectEachLength(
            [&](const File& file) { return fileOf(word, outlinesOf(word, file), stampsOf(word, file)); },
            [&](const std::string& path, const File& file) {
                save(path, word, tracksOf(outlinesOf(word, file), stampsOf(word, file)));
            });
    }
}

// One text alone is longer than what is held back.
TEST(LargeOutputs, OfEachWordWithANameOfTwoMegabytes)
{
    const std::string name(2 * megabyte + 3, 'n');
    for (const Outlines& tracks : {Outlines{{name, 1}}, Outlines{{"A", 1}, {name, 2}, {"B", 1}}}) {
        for (const std::string& word : words) {
            SCOPED_TRACE(word);
            EXPECT_TRUE(writtenBy([&](const std::string& path) { save(path, word, tracksOf(tracks)); }) ==
                        fileOf(word, tracks));
        }
    }
}

TEST(LargeOutputs, MpcComparisonsAroundAMegabyte)
{
    expectEachLength(
        [](const File& file) {
            return "COD 500\ntwelve chars" + file.text + observation + "???\n" +
                   repeated("            " + observation + "???\n", static_cast<int>(file.marks));
        },
        [](const std::string& path, const File& file) { sMPCAndHorRes(path, checkedTracks(file), {}); });
}

TEST(LargeOutputs, MeaWithEphemeridesAroundAMegabyte)
{
    const std::string mark =
        "\t60000.5000000\t15.0000000\t-0.5000000\t-1.0000000\t-1.0000000\t57600.0000000\t"
        "1800.0000000\n";
    expectEachLength(
        [&](const File& file) {
            return "T1 2000.0 UTC\tMJD\tRAmea\tDEmea\tRAtle\tDEtle\tresRA\tresDE\n"
                   "twelve chars" +
                   file.text + " 250223 1200000000 0100000000 -0030000000 001 9.50" + mark +
                   repeated("B       250223 1200000000 0100000000 -0030000000 001 9.50" + mark,
                            static_cast<int>(file.marks + 1));
        },
        [](const std::string& path, const File& file) {
            sMEA_TLE(path, tracksOf(outlinesOf("mea", file), stampsOf("mea", file)));
        });
}

TEST(LargeOutputs, XmlOfOneObservationForEachMarkAroundAMegabyte)
{
    const std::string mark = "                <observation>\n"
                             "                    <ANGLE_1>2023-02-25T12:00:00.00000 15.0000000</ANGLE_1>\n"
                             "                    <ANGLE_2>2023-02-25T12:00:00.00000 -0.5000000</ANGLE_2>\n"
                             "                    <MAG>2023-02-25T12:00:00.00000 9.5000</MAG>\n"
                             "                </observation>\n";
    expectEachLength(
        [&](const File& file) {
            return "<?xml version=\"1.0\" ?>\n<tdm>\n    <header>\n"
                   "        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>\n        <ORIGINATOR>" +
                   file.text +
                   "</ORIGINATOR>\n    </header>\n    <body>\n        <segment>\n            <metadata>\n"
                   "                <TIME_SYSTEM>UTC</TIME_SYSTEM>\n"
                   "                <START_TIME>2023-02-25T12:00:00.00000</START_TIME>\n"
                   "                <STOP_TIME>2023-02-25T12:00:00.00000</STOP_TIME>\n"
                   "                <PARTICIPANT_1>T9</PARTICIPANT_1>\n"
                   "                <PARTICIPANT_2>B</PARTICIPANT_2>\n"
                   "                <MODE>SEQUENTIAL</MODE>\n"
                   "                <PATH>2, 1</PATH>\n"
                   "                <ANGLE_TYPE>RADEC</ANGLE_TYPE>\n"
                   "                <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>\n"
                   "                <MAG_TYPE>APPARENT</MAG_TYPE>\n"
                   "            </metadata>\n            <data>\n" +
                   repeated(mark, static_cast<int>(file.marks + 1)) +
                   "            </data>\n        </segment>\n    </body>\n</tdm>\n";
        },
        [](const std::string& path, const File& file) {
            EXPECT_TRUE(sTDMxml(path, tracksOf({{"B", file.marks + 1}}, {.originator = file.text})));
        });
}

TEST(LargeOutputs, TrackTablesAroundAMegabyte)
{
    const std::string header = "QRVName:Text\tdate:Date\ttime:Time\tm:Float";
    const std::string mark = "\t2023-02-25\t12:00:00.0000000\t9.5000\t\n";
    expectEachLength(
        [&](const File& file) {
            return "v2\n" + header + "\ntwelve chars" + file.text + mark + "---\n" +
                   repeated("B" + mark, static_cast<int>(file.marks + 1)) + "---\n";
        },
        [&](const std::string& path, const File& file) {
            sListTrack(path, "", "", tracksOf(outlinesOf("", file)), "", false, true, header);
        });
}

// No text of this file is free: pixels of many digits make up its length.
TEST(LargeOutputs, ResidualsAroundAMegabyte)
{
    const std::string front =
        "mean\trms\nRA: 0.00\t0.00\nDE: 0.00\t0.00\n"
        "dateTtime\tday\tsign\tresRA\tresDE\tfi\tlen\tRAoDec\tDEoDec\tRAo\tDEo\tRAc\tDEc\txo\tyo\txc\t"
        "yc\n";
    const std::string beforePixels =
        "2023-02-25T12:00:00.000000\t0.5000000000\t         \t0.00\t0.00\t0.00\t0.00\t15.0000000000\t"
        "-0.5000000000\t01:00:00.000\t-00:30:00.00\t01:00:00.000\t-00:30:00.00\t1";
    const std::string afterPixels = "\t0\t0\t0\t\n";
    for (const std::size_t length : lengths) {
        SCOPED_TRACE(length);
        const std::size_t marks = (length - front.size()) / (beforePixels + afterPixels).size();
        std::size_t missing = length - front.size() - marks * (beforePixels + afterPixels).size();
        TrackVtorichka track = trackNamed("", {});
        track.Marks.assign(marks, theMark());
        std::string expected = front;
        for (TRecLabelPervichka_File& mark : track.Marks) {
            const std::size_t digits = std::min<std::size_t>(missing, 5);
            missing -= digits;
            mark.RefValue4 = 15.0;
            mark.RefValue5 = -0.5;
            mark.X_f = std::pow(10.0, digits);
            expected += beforePixels + std::string(digits, '0') + afterPixels;
        }
        EXPECT_EQ(expected.size(), length);
        const TemporaryFolder folder;
        SaveResidAMU(folder.path(), "test", {track});
        EXPECT_TRUE(bytesOf(folder / " 2023-02-25 12-00-00_etalon-_result-_test.resid") == expected);
    }
}

TEST(LargeOutputs, AFullDiskIsCode7BeforeTheEndToo)
{
    const std::vector<TrackVtorichka> tracks = tracksOf({{"A", 30000}});
    for (const char* word : {"mea", "telegram", "tdm", "ssmas", "mpc"}) {
        SCOPED_TRACE(word);
        try {
            save("/dev/full", word, tracks);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_EQ(failure.getComment(), "/dev/full");
        }
    }
}

TEST(LargeOutputs, PipesForTheFormatsThatRemoveNothing)
{
    const Outlines tracks = {{std::string(700000, 'n'), 1}, {"B", 9000}};
    for (const char* word : {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml"}) {
        SCOPED_TRACE(word);
        const std::string bytes =
            throughAPipe([&](const std::string& path) { save(path, word, tracksOf(tracks)); });
        EXPECT_GT(bytes.size(), megabyte);
        EXPECT_TRUE(bytes == fileOf(word, tracks));
    }
}
