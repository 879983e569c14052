// The order of a conversion: read, stamp, name, compare the paths, write. What fails early leaves everything
// of the later steps undone: nothing is opened and nothing removed.

#include "support/conversions.h"
#include "support/expected_files.h"
#include "support/results.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace expectedFiles;

namespace {

using Words = std::vector<std::string>;

// Those that can be written and one that cannot.
Words wordsAndAnUnknownOne()
{
    Words all = words;
    all.emplace_back("unknown");
    return all;
}

bool removesItsFile(const std::string& word)
{
    return word == "mag" || word == "aavso";
}

// An input whose reader throws at its last line.
struct BrokenInput
{
    std::string word;
    std::string bytes;
};

BrokenInput brokenMea(int goodLines)
{
    return {"mea", "T1 2000.0 UTC\n" +
                       repeated("A 250223 1200000000 0100000000 -0030000000 001 09.50\n", goodLines) +
                       "A 250 1200000000 0100000000 -0030000000 001 09.50\n"};
}

BrokenInput brokenTelegram(int goodLines)
{
    return {"telegram", "O T A\n" + repeated("250223 12000000 01000000 -00300000 001095\n", goodLines) +
                            "250223 12000000 01000000 -00300000 00\n"};
}

// Too many marks are repeated, which shows at the end of the file only.
BrokenInput brokenSsmas(int goodLines)
{
    const std::string mark = ssmasLines::markLine + "\n";
    return {"ssmas", "Measurements\nT1\nconversion\n\n\n\nA A\n" + repeated(mark, goodLines) +
                         repeated(" B\n" + mark, 1'000'000 / goodLines + 1)};
}

std::vector<BrokenInput> brokenInputs(int goodLines)
{
    return {brokenMea(goodLines), brokenTelegram(goodLines), brokenSsmas(goodLines)};
}

// A folder with an input, and with an output of earlier: a link to a file.
class Bench
{
public:
    explicit Bench(const std::string& input)
    {
        makeFile(folder / "c.in", input);
        makeFile(folder / "old", old);
        std::filesystem::create_symlink(folder / "old", folder / "c.txt");
    }

    Conversion conversion(const std::string& inputformat, const std::string& outputformat) const
    {
        return {.path_in = folder / "c.in",
                .out_dir = folder / "",
                .inputformat = inputformat,
                .outputformat = outputformat};
    }

    bool outputIsTheLink() const
    {
        return std::filesystem::is_symlink(folder / "c.txt");
    }

    void expectUntouched() const
    {
        EXPECT_TRUE(outputIsTheLink());
        EXPECT_EQ(bytesOf(folder / "old"), old);
    }

    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

    const std::string old = "the output of the run before\n";

private:
    TemporaryFolder folder;
};

void expectOldOutput(const BrokenInput& input, const Words& outputWords, bool autoname)
{
    for (const std::string& word : outputWords) {
        SCOPED_TRACE(input.word + " to " + word);
        const Bench bench(input.bytes);
        Conversion conversion = bench.conversion(input.word, word);
        conversion.autoname = autoname;
        expectResult(conversion.run(), -1, bench / "c.in", bench / "c.in");
        bench.expectUntouched();
    }
}

} // namespace

TEST(ConversionOrder, ReaderThatThrowsLeavesTheOutput)
{
    for (const bool autoname : {false, true}) {
        expectOldOutput(brokenMea(1), wordsAndAnUnknownOne(), autoname);
        expectOldOutput(brokenTelegram(1), wordsAndAnUnknownOne(), autoname);
    }
}

TEST(ConversionOrder, ReaderThatThrowsAfterManyMarksLeavesTheOutput)
{
    for (const BrokenInput& input : brokenInputs(10000)) {
        expectOldOutput(input, wordsAndAnUnknownOne(), false);
    }
}

// The output would be more than a writer holds back.
TEST(ConversionOrder, ReaderThatThrowsAfterMegabytesLeavesTheOutput)
{
    for (const BrokenInput& input : {brokenMea(40000), brokenTelegram(40000)}) {
        expectOldOutput(input, {"mea", "tdm.xml", "mag", "aavso"}, false);
    }
}

TEST(ConversionOrder, BrokenInputComesBeforeTheComparisonOfThePaths)
{
    for (const BrokenInput& input : brokenInputs(2000)) {
        for (const std::string& word : wordsAndAnUnknownOne()) {
            SCOPED_TRACE(input.word + " to " + word);
            const Bench bench(input.bytes);
            Conversion conversion = bench.conversion(input.word, word);
            conversion.outputextension = ".in";
            expectResult(conversion.run(), -1, bench / "c.in", bench / "c.in");
            EXPECT_EQ(bytesOf(bench / "c.in"), input.bytes);
        }
    }
}

TEST(ConversionOrder, MissingNameComesBeforeTheComparisonOfThePaths)
{
    for (const std::string& word : wordsAndAnUnknownOne()) {
        SCOPED_TRACE(word);
        const Bench bench("END\n");
        Conversion conversion = bench.conversion("telegram", word);
        conversion.autoname = true;
        conversion.outputextension = ".in";
        expectResult(conversion.run(), -1, bench / "c.in", bench / "c.in");
        bench.expectUntouched();
    }
}

TEST(ConversionOrder, ComparisonOfThePathsComesBeforeTheOutputWord)
{
    for (const std::string& inputformat : inputWords) {
        for (const std::string& word : wordsAndAnUnknownOne()) {
            SCOPED_TRACE(inputformat + " to " + word);
            const std::string input = inputOf(inputformat, {{"A", 1}});
            const Bench bench(input);
            // Another name of the input tells whether it was removed and made again.
            std::filesystem::create_hard_link(bench / "c.in", bench / "same");
            Conversion conversion = bench.conversion(inputformat, word);
            conversion.outputextension = ".in";
            expectResult(conversion.run(), -3, "input file = output file",
                         bench / "c.in" + " = " + (bench / "c.in"));
            EXPECT_EQ(bytesOf(bench / "c.in"), input);
            EXPECT_TRUE(std::filesystem::equivalent(bench / "c.in", bench / "same"));
        }
    }
}

TEST(ConversionOrder, UnknownOutputWordIsNamedAndTouchesNothing)
{
    for (const std::string& inputformat : inputWords) {
        SCOPED_TRACE(inputformat);
        const Bench bench(inputOf(inputformat, {{"A", 1}}));
        Conversion conversion = bench.conversion(inputformat, "unknown");
        expectResult(conversion.run(), 0, "OK", bench / "c.txt");
        bench.expectUntouched();
        conversion.autoname = true;
        expectResult(conversion.run(), 0, "OK", bench / "T9-A-2023-02-25T12-00-00-.txt");
        EXPECT_FALSE(exists(bench / "T9-A-2023-02-25T12-00-00-.txt"));
    }
}

TEST(ConversionOrder, TwoFormatsReplaceALinkAndTheOthersWriteThroughIt)
{
    for (const std::string& inputformat : inputWords) {
        for (const std::string& word : words) {
            SCOPED_TRACE(inputformat + " to " + word);
            const Bench bench(inputOf(inputformat, {{"A", 2}, {"B", 1}}));
            expectResult(bench.conversion(inputformat, word).run(), 0, "OK", bench / "c.txt");
            const std::string expected = fileOf(word, {{"A", 2}, {"B", 1}});
            EXPECT_EQ(bytesOf(bench / "c.txt"), expected);
            EXPECT_EQ(bench.outputIsTheLink(), !removesItsFile(word));
            EXPECT_EQ(bytesOf(bench / "old"), removesItsFile(word) ? bench.old : expected);
        }
    }
}

TEST(ConversionOrder, WithoutTracksTheLightCurveAloneReplacesALink)
{
    for (const char* inputformat : {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"}) {
        for (const std::string& word : words) {
            SCOPED_TRACE(std::string(inputformat) + " to " + word);
            const Bench bench("");
            expectResult(bench.conversion(inputformat, word).run(), 0, "OK", bench / "c.txt");
            if (word == "mag") {
                EXPECT_FALSE(bench.outputIsTheLink());
                EXPECT_EQ(bytesOf(bench / "c.txt"), fileOfNoTracks(word));
                EXPECT_EQ(bytesOf(bench / "old"), bench.old);
            } else if (word == "tdm.xml") {
                EXPECT_TRUE(bench.outputIsTheLink());
                EXPECT_EQ(bytesOf(bench / "old"), fileOfNoTracks(word));
            } else {
                bench.expectUntouched();
            }
        }
    }
}
