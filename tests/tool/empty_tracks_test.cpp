// Tracks without marks, and no tracks at all, from each format that has them into each that is written.

#include "support/conversions.h"
#include "support/expected_files.h"
#include "support/report_series.h"
#include "support/results.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace expectedFiles;

namespace {

const std::vector<Outlines> emptyTracks = {
    {{"E", 0}},
    {{"E", 0}, {"A", 2}},
    {{"A", 2}, {"E", 0}},
    {{"A", 1}, {"E", 0}, {"B", 2}},
    {{"E", 0}, {"F", 0}, {"A", 1}, {"G", 0}},
    {{"E", 0}, {"F", 0}},
};

std::string described(const Outlines& tracks)
{
    std::string text;
    for (const Outline& track : tracks) {
        text += track.name + std::to_string(track.marks) + " ";
    }
    return text;
}

// Checks what an input becomes in each output word.
void expectConverted(const std::string& inputformat, const std::string& bytes, const Outlines& tracks)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(inputformat + " to " + word + ": " + described(tracks));
        const TemporaryFolder folder;
        makeFile(folder / "c.in", bytes);
        makeFile(folder / "c.txt", std::string(9000, 'x'));
        expectResult(Conversion{.path_in = folder / "c.in",
                                .out_dir = folder / "",
                                .inputformat = inputformat,
                                .outputformat = word}
                         .run(),
                     0, "OK", folder / "c.txt");
        EXPECT_EQ(bytesOf(folder / "c.txt"), fileOf(word, tracks));
    }
}

// A report of one series, whose table holds those lines below its header, in each output word.
void expectReported(const std::string& lines, const Outlines& tracks)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word + ": " + described(tracks));
        report_series::Bench bench;
        bench.task.outputformat = word;
        bench.add("s1", lines);
        makeFile(bench / "out/out.txt", std::string(9000, 'x'));
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"),
                  fileOf(word, tracks, {.telescope = "T1", .observerCode = "CODEAAVSO"}));
    }
}

std::string marks(const std::string& name, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += name + "\t\t\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n";
    }
    return text;
}

} // namespace

TEST(EmptyTracks, SegmentsWithoutData)
{
    for (const Outlines& tracks : emptyTracks) {
        expectConverted("tdm", inputOf("tdm", tracks), tracks);
    }
}

TEST(EmptyTracks, BlocksOfATelegramWithoutMarks)
{
    for (const Outlines& tracks : emptyTracks) {
        expectConverted("telegram", inputOf("telegram", tracks), tracks);
    }
}

// An object without marks has no name either.
TEST(EmptyTracks, ObjectsOfSsmasWithoutMarks)
{
    const std::string front = "Measurements\nT1\nconversion\n\n\n\n";
    const std::string mark = ssmasLines::markLine + "\n";
    expectConverted("ssmas", front + "E E\n", {{"", 0}});
    expectConverted("ssmas", front + "E 1\nA A\n" + mark + mark, {{"", 0}, {"A", 2}});
    expectConverted("ssmas", front + "A A\n" + mark + "2\nE E\n", {{"A", 1}, {"", 0}});
    expectConverted("ssmas", front + "A A\n" + mark + "E 5\n" + mark + "3\nB B\n" + mark + mark + "4\nF F\n",
                    {{"A", 1}, {"", 0}, {"B", 2}, {"", 0}});
}

TEST(EmptyTracks, TracksOfATableWithoutMarks)
{
    expectReported("---\n", {{"", 0}});
    expectReported("---\n---\n", {{"", 0}, {"", 0}});
    expectReported("---\n" + marks("A", 2) + "---\n", {{"", 0}, {"A", 2}});
    expectReported(marks("A", 2) + "---\n---\n", {{"A", 2}, {"", 0}});
    expectReported(marks("A", 1) + "---\n---\n---\n" + marks("B", 2) + "---\n---\n",
                   {{"A", 1}, {"", 0}, {"", 0}, {"B", 2}, {"", 0}});
}

TEST(EmptyTracks, LinesAfterTheLastEndOfATableAreNoTrackUnlessThereIsNoEnd)
{
    expectReported("---\n" + marks("A", 2), {{"", 0}});
    expectReported(marks("A", 2) + "---\n" + marks("B", 1), {{"A", 2}});
    expectReported(marks("A", 2) + "---\n---\n" + marks("B", 1), {{"A", 2}, {"", 0}});
    expectReported(marks("A", 2), {{"A", 2}});
}

TEST(EmptyTracks, TrackThatLostItsMarksByExclusions)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        report_series::Bench bench;
        bench.task.outputformat = word;
        bench.add("s1", marks("A", 1) + "---\n" + marks("B", 2) + "---\n" + marks("C", 1) + "---\n")
            .excludes = {{0, {0}}, {2, {0}}};
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), fileOf(word, {{"A", 0}, {"B", 2}, {"C", 0}},
                                                 {.telescope = "T1", .observerCode = "CODEAAVSO"}));
    }
}

TEST(EmptyTracks, EachObjectHasAFileOfItsOwn)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        report_series::Bench bench;
        bench.task.outputformat = word;
        bench.task.toSeparateFile = "eachobject";
        bench.add("s1", "---\n" + marks("A", 1) + "---\n---\n");
        bench.add("s2", marks("A", 1) + "---\n---\n");
        bench.expectWell({".txt", "A.txt"});
        const Stamps stamps{.telescope = "T1", .observerCode = "CODEAAVSO"};
        EXPECT_EQ(bench.bytes(".txt"), fileOf(word, {{"", 0}}, stamps));
        EXPECT_EQ(bench.bytes("A.txt"), fileOf(word, {{"A", 2}}, stamps));
    }
}

TEST(EmptyTracks, InputWithoutTracksMakesTwoFormatsOnly)
{
    const std::string inputs[] = {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"};
    for (const std::string& inputformat : inputs) {
        for (const std::string& word : words) {
            SCOPED_TRACE(inputformat + " to " + word);
            const TemporaryFolder folder;
            makeFile(folder / "c.in", "Nothing that any format takes\n");
            const Conversion conversion{.path_in = folder / "c.in",
                                        .out_dir = folder / "",
                                        .inputformat = inputformat,
                                        .outputformat = word};
            expectResult(conversion.run(), 0, "OK", folder / "c.txt");
            EXPECT_EQ(exists(folder / "c.txt"), isMadeOfNoTracks(word));
            makeFile(folder / "c.txt", "old\n");
            expectResult(conversion.run(), 0, "OK", folder / "c.txt");
            EXPECT_EQ(bytesOf(folder / "c.txt"), isMadeOfNoTracks(word) ? fileOfNoTracks(word) : "old\n");
        }
    }
}

TEST(EmptyTracks, ReportWithoutTracksMakesTwoFormatsOnly)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        report_series::Bench bench;
        bench.task.outputformat = word;
        bench.add("s1", "");
        bench.addPath(bench / "missing/tavelin/dataVO/obj.txt");
        makeFile(bench / "out/out.txt", "old\n");
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), isMadeOfNoTracks(word) ? fileOfNoTracks(word) : "old\n");
    }
}

TEST(EmptyTracks, FirstTrackWithoutMarksHasNoAutomaticName)
{
    for (const std::string& inputformat : {std::string("tdm"), std::string("telegram")}) {
        for (const std::string& word : words) {
            SCOPED_TRACE(inputformat + " to " + word);
            const TemporaryFolder folder;
            const std::string path = folder / "c.in";
            makeFile(path, inputOf(inputformat, {{"E", 0}, {"A", 1}}));
            expectResult(Conversion{.path_in = path,
                                    .out_dir = folder / "",
                                    .inputformat = inputformat,
                                    .outputformat = word,
                                    .autoname = true}
                             .run(),
                         -1, path, path);
            EXPECT_EQ(filesBelow(folder.path()), (std::set<std::string>{"c.in"}));
        }
    }
}

TEST(EmptyTracks, LaterTrackWithoutMarksLeavesTheAutomaticNameOfTheFirst)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        const TemporaryFolder folder;
        makeFile(folder / "c.in", inputOf("tdm", {{"A", 1}, {"E", 0}}));
        const std::string output = folder / "T9-A-2023-02-25T12-00-00-.txt";
        expectResult(Conversion{.path_in = folder / "c.in",
                                .out_dir = folder / "",
                                .inputformat = "tdm",
                                .outputformat = word,
                                .autoname = true}
                         .run(),
                     0, "OK", output);
        EXPECT_EQ(bytesOf(output), fileOf(word, {{"A", 1}, {"E", 0}}));
    }
}
