// An output that is the input under another name, which the comparison of the paths does not see: the output
// holds what it would hold elsewhere, since the input is read to its end before anything is written.

#include "support/conversions.h"
#include "support/expected_files.h"
#include "support/results.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

using namespace expectedFiles;

namespace {

// How the input gets a second name, and which names a conversion is given.
struct Naming
{
    const char* what;
    void (*name)(const TemporaryFolder& folder);
    const char* path_in;
    const char* out_dir;
    const char* outputextension;
    bool removalLeavesTheInput; // a format that removes its file first removes the second name only
};

void leaveOneName(const TemporaryFolder&)
{
}

const Naming namings[] = {
    {"symbolic link to the input",
     [](const TemporaryFolder& folder) {
         std::filesystem::create_symlink(folder / "c.in", folder / "c.txt");
     },
     "c.in", "", ".txt", true},
    {"hard link",
     [](const TemporaryFolder& folder) {
         std::filesystem::create_hard_link(folder / "c.in", folder / "c.txt");
     },
     "c.in", "", ".txt", true},
    {"another spelling", leaveOneName, "c.in", "./", ".in", false},
    {"spelling through another folder",
     [](const TemporaryFolder& folder) { std::filesystem::create_directory(folder / "out"); }, "c.in",
     "out/../", ".in", false},
    {"input that is a link to the output",
     [](const TemporaryFolder& folder) {
         std::filesystem::rename(folder / "c.in", folder / "c.txt");
         std::filesystem::create_symlink("c.txt", folder / "c.in");
     },
     "c.in", "", ".txt", false},
};

// Converts a file onto itself under its second name.
void expectOntoItself(const Naming& naming, const std::string& inputformat, const std::string& outputformat,
                      const std::string& input, const std::string& expected)
{
    SCOPED_TRACE(std::string(naming.what) + ", " + inputformat + " to " + outputformat);
    const TemporaryFolder folder;
    makeFile(folder / "c.in", input);
    naming.name(folder);
    const std::string output = folder / (naming.out_dir + std::string("c") + naming.outputextension);
    expectResult(Conversion{.path_in = folder / naming.path_in,
                            .out_dir = folder / naming.out_dir,
                            .outputextension = naming.outputextension,
                            .inputformat = inputformat,
                            .outputformat = outputformat}
                     .run(),
                 0, "OK", output);
    EXPECT_TRUE(bytesOf(output) == expected) << bytesOf(output).substr(0, 1000);
    const bool removed = outputformat == "mag" || outputformat == "aavso";
    if (removed && naming.removalLeavesTheInput) {
        EXPECT_TRUE(bytesOf(folder / "c.in") == input);
    } else {
        EXPECT_TRUE(std::filesystem::equivalent(output, folder / "c.in"));
    }
}

// Tracks whose file is somewhat longer than a megabyte in each format, by their names.
Outlines aMegabyte()
{
    Outlines tracks;
    for (int i = 0; i < 1100; ++i) {
        tracks.push_back({std::to_string(i) + std::string(1000, 'x'), 1});
    }
    return tracks;
}

} // namespace

TEST(SameFile, HoldsTheSameAsElsewhere)
{
    const Outlines tracks = {{"A", 2}, {"12345", 1}, {"B", 3}};
    for (const Naming& naming : namings) {
        for (const std::string& inputformat : inputWords) {
            for (const std::string& outputformat : words) {
                expectOntoItself(naming, inputformat, outputformat, inputOf(inputformat, tracks),
                                 fileOf(outputformat, tracks));
            }
        }
    }
}

TEST(SameFile, HoldsTheSameAboveAMegabyte)
{
    const Outlines tracks = aMegabyte();
    for (const std::string& outputformat : words) {
        const std::string expected = fileOf(outputformat, tracks);
        EXPECT_GT(expected.size(), std::size_t{1} << 20);
        for (const std::string& inputformat : inputWords) {
            const std::string input = inputOf(inputformat, tracks);
            EXPECT_GT(input.size(), std::size_t{1} << 20);
            expectOntoItself(namings[0], inputformat, outputformat, input, expected);
        }
    }
}

// An output that is shorter than its input, and two for which the input's name is removed: nothing of the
// input may stay in them.
TEST(SameFile, HoldsTheSameAboveAMegabyteUnderEachName)
{
    Outlines tracks = aMegabyte();
    tracks.push_back({"many marks", 5000});
    const std::string input = inputOf("tdm", tracks);
    for (const char* outputformat : {"telegram", "mag", "aavso"}) {
        const std::string expected = fileOf(outputformat, tracks);
        for (const Naming& naming : namings) {
            expectOntoItself(naming, "tdm", outputformat, input, expected);
        }
    }
}

TEST(SameFile, InputWithoutTracksStaysWhereTheFormatMakesNoFile)
{
    for (const std::string& outputformat : words) {
        if (!isMadeOfNoTracks(outputformat)) {
            for (const Naming& naming : namings) {
                expectOntoItself(naming, "mea", outputformat, "T1 2000.0 UTC\n", "T1 2000.0 UTC\n");
            }
        }
    }
}
