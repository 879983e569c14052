#include "running/counting.h"

#include "format_words.h"
#include "support/broken_files.h"
#include "support/expected_files.h"
#include "support/random.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace {

using companion::HeldMarks;
using companion::heldMarks;
using companion::heldMarksOf;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

// The count of the file that the library writes of the tracks.
HeldMarks heldAfterWriting(const std::string& word, std::vector<TrackVtorichka> tracks)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    EXPECT_EQ(SelectFormatAndSave(path, word, tracks).Code, 0);
    const auto held = heldMarks(path, word);
    EXPECT_TRUE(held) << word;
    return held.value_or(HeldMarks{});
}

std::vector<TrackVtorichka> twoTracks()
{
    const TRecLabelPervichka_File mark{.date = 60000, .time = 0.5, .RA = 15.0, .DE = 0.5, .m = 9.5};
    return {trackNamed("12345", {mark, mark, mark}), trackNamed("Z 6433", {mark, mark})};
}

void expectFive(const std::vector<TrackVtorichka>& tracks)
{
    for (const std::string& word : expectedFiles::words) {
        SCOPED_TRACE(word);
        const HeldMarks held = heldAfterWriting(word, tracks);
        EXPECT_EQ(held.marks, 5u);
        EXPECT_TRUE(held.isWhole);
    }
}

TEST(Counting, EachWordsMarksAreCounted)
{
    expectFive(twoTracks());
}

TEST(Counting, BlocksAreCountedWhereTheFormatHasThem)
{
    for (const char* word : {"telegram", "tdm", "tdm.xml", "ssmas"}) {
        EXPECT_EQ(heldAfterWriting(word, twoTracks()).blocks, 2u) << word;
    }
    for (const char* word : {"mea", "mpc", "mag", "aavso"}) {
        EXPECT_EQ(heldAfterWriting(word, twoTracks()).blocks, std::nullopt) << word;
    }
}

TEST(Counting, FilesWithoutMarksHoldNone)
{
    for (const char* word : {"tdm.xml", "mag"}) {
        EXPECT_EQ(heldAfterWriting(word, {}).marks, 0u) << word;
        EXPECT_TRUE(heldAfterWriting(word, {}).isWhole) << word;
    }
    for (const std::string& word : expectedFiles::words) {
        EXPECT_EQ(heldAfterWriting(word, {trackNamed("", {})}).marks, 0u) << word;
    }
}

TEST(Counting, NamesThatLookLikePartsOfAFileAreNames)
{
    for (const char* name : {"",
                             " ",
                             "END",
                             "001 9.5",
                             "a 001 9.5",
                             "A  C2023 02 25.50000 ",
                             "#NAME,DATE,MAG,NOTES",
                             "a,na",
                             "a\t\t\t\t\t\t\t",
                             "conversion",
                             "#SSMAS   #INTER",
                             "META_START",
                             "<MAG>",
                             "&#x<MAG>",
                             "DATA_STOP",
                             "\xe9\xff",
                             "a\rb",
                             "250223 12000000 01000000 00300000 001095",
                             "JD geocentric\tapparent",
                             "T 2000.0 UTC"})
    {
        SCOPED_TRACE(name);
        std::vector<TrackVtorichka> tracks = twoTracks();
        for (TrackVtorichka& track : tracks) {
            track.QRVName = name;
        }
        expectFive(tracks);
    }
}

TEST(Counting, HeadsOfSeveralLinesAreHeads)
{
    std::vector<TrackVtorichka> tracks = twoTracks();
    for (TrackVtorichka& track : tracks) {
        track.telescope = "\n  T9 2000.0 UTC\nx 250223 1200000000 0100000000 0030000000 001 09.50\n"
                          "25.02.2023 12:00:00.00  01:00:00.00 00.30.00.00 001 09.5\nEND\n\nT9\n";
        track.originator = "\nDATA_START\nANGLE_1 = 1\nANGLE_2 = 2\nMAG = 3\nDATA_STOP\n observatory\n";
        track.REFERENCE_FRAME = "\nICRF\nMETA_STOP\nDATA_START\nMAG = 1\n";
        track.MPCHeader.COD = "\nK88\n";
        track.MPCHeader.OBS = "A. Observer\nB. Observer";
        track.ObsCode = "A\n#NAME,DATE,MAG,NOTES\na,1,2,3,V,NO,DIF,ENSEMBLE,na,na,na,na,na,na,na\n";
    }
    expectFive(tracks);
}

// Marks of the lines that a writer makes of the values of broken inputs.
double oddNumber(Random& random)
{
    constexpr double numbers[] = {0.0,
                                  -0.0,
                                  0.5,
                                  360.0,
                                  -90.0,
                                  99.99,
                                  1e9,
                                  -1e300,
                                  std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN()};
    return numbers[random.below(std::size(numbers))];
}

std::string oddName(Random& random)
{
    constexpr const char* parts[] = {"",      " ",          "  C",        "001", " 001 ",  "END", ",na", "\t",
                                     "Z6433", "2023 02 25", "          ", "1",   "MAG = ", ",",   "\r",  "-"};
    std::string name;
    for (auto left = random.below(6); left > 0; --left) {
        name += parts[random.below(std::size(parts))];
    }
    return name;
}

TrackVtorichka oddTrack(Random& random)
{
    TrackVtorichka track = trackNamed(oddName(random), {});
    track.MPCChecker = oddName(random);
    track.HeadText2 = oddName(random);
    track.HeadText3 = oddName(random);
    for (auto left = random.below(4); left > 0; --left) {
        TRecLabelPervichka_File mark{.time = oddNumber(random),
                                     .RA = oddNumber(random),
                                     .DE = oddNumber(random),
                                     .m = oddNumber(random)};
        constexpr int dates[] = {0, 60000, -700000, 1 << 30, -(1 << 30), 2147483647, -2147483647 - 1};
        mark.date = dates[random.below(std::size(dates))];
        mark.mEnsemble = oddNumber(random);
        mark.SNRpeak = oddNumber(random);
        mark.filtr = oddName(random);
        mark.KNAME = oddName(random);
        mark.CHART = oddName(random);
        track.Marks.push_back(mark);
    }
    return track;
}

TEST(Counting, AgreesWithWhatIsWrittenOfOddTracks)
{
    Random random(5);
    for (int round = 0; round < 400; ++round) {
        std::vector<TrackVtorichka> tracks;
        for (auto left = random.below(4) + 1; left > 0; --left) {
            tracks.push_back(oddTrack(random));
        }
        const std::string& word = expectedFiles::words[random.below(expectedFiles::words.size())];
        const HeldMarks held = heldAfterWriting(word, tracks);
        ASSERT_EQ(held.marks, countMarks(tracks)) << word << " in round " << round;
        ASSERT_TRUE(held.isWhole) << word << " in round " << round;
    }
}

TEST(Counting, FilesThatBreakOffHoldTheMarksUpToThere)
{
    for (const std::string& word : expectedFiles::words) {
        SCOPED_TRACE(word);
        const std::string whole = expectedFiles::fileOf(word, {{"A", 3}});
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const auto held = heldMarksOf(std::string_view(whole).substr(0, size), word);
            ASSERT_TRUE(held);
            ASSERT_LE(held->marks, 3u);
            ASSERT_TRUE(!held->isWhole || size == 0 || whole[size - 1] == '\n') << size;
        }
        EXPECT_EQ(heldMarksOf(whole, word)->marks, 3u);
    }
}

TEST(Counting, LinesOfAnotherShapeAreNoMarks)
{
    for (const std::string& word : expectedFiles::words) {
        SCOPED_TRACE(word);
        const std::string file = expectedFiles::fileOf(word, {{"A", 2}});
        const std::size_t left = word == "tdm" ? 0 : 2; // what looks like data there is a text of metadata
        EXPECT_EQ(heldMarksOf(file + "nonsense\n\n", word)->marks, left);
        EXPECT_EQ(heldMarksOf("nonsense\n" + repeated("x y z\n", 5), word)->marks, 0u);
    }
}

TEST(Counting, WhatCannotBeReadIsNotCounted)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(heldMarks(folder / "missing.mea", "mea"));
    EXPECT_FALSE(heldMarks(folder.path(), "mea"));
    EXPECT_FALSE(heldMarksOf("", "vomar"));
}

TEST(Counting, NeitherUnknownWordsNorBrokenFilesAreCounted)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "T9 2000.0 UTC\n");
    EXPECT_FALSE(heldMarks(folder / "a.mea", "vomar"));
    EXPECT_FALSE(heldMarks(brokenFile, "mea"));
}

// Texts in which one line looks like a mark in part.
struct NearlyMarks
{
    const char* word;
    const char* text;
    std::size_t marks;
};

const NearlyMarks nearlyMarks[] = {
    {"mea", "T9 2000.0 UTC\n12345   250223 1200000000 0100000000 0030000000 001 \n", 0},
    {"telegram", "O T9 A\na 001\nEND\n\n", 0},
    {"telegram",
     "O\n250223 12000000 01000000 00300000 001095\nEND\n250223 12000000 01000000 00300000 001095\n"
     "END\n\n",
     1},
    {"ssmas",
     "Measurements\nT9\nconversion\n1\n\n#SSMAS   #INTER\nA A\nno titles\n"
     "25.02.2023 12:00:00.00  01:00:00.00 00.30.00.00 001 09.5\n",
     0},
    {"mpc", "COM a comment  Certainly          \n", 0},
    {"mpc", "COM a comment  C2023-02-25          \n", 0},
    {"mpc", "COM a comment  C2023 02-25          \n", 0},
    {"mpc", "COM a comment  C2023 02 the day          \n", 0},
    {"mpc", "COM a comment  C2023 02 25.5 of two blanks\n", 0},
    {"mag", "JD\tm\n2460000.5\t9.5\t\n", 0},
    {"aavso", "#NAME,DATE,NOTES\na,na\n", 0},
};

TEST(Counting, LinesThatLookLikeMarksInPartAreNone)
{
    for (const NearlyMarks& row : nearlyMarks) {
        EXPECT_EQ(heldMarksOf(row.text, row.word)->marks, row.marks) << row.word << ": " << row.text;
    }
}

} // namespace
