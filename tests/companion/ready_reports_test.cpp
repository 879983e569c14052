// Copies of reports in 80 columns: what of their lines is mended, what is kept and what is refused.

#include "companion/copies.h"
#include "companion/golden.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string header = "COD K88\n"
                           "OBS A. B. Sender\n"
                           "MEA C. Reader\n"
                           "TEL 0.6-m f/4 reflector + CCD\n"
                           "NET Gaia-DR3\n"
                           "ACK one\n";

// Of 80 columns, northern, without anything to mend.
const std::string good = "     AST1000  C2025 02 23.50000 12 30 10.00 +41 20 30.1          18.5 G      K88";

// The line with a text from a column on, which counts from 1.
std::string with(std::size_t column, const std::string& text, std::string line = good)
{
    return line.replace(column - 1, text.size(), text);
}

class ReadyReport : public testing::Test
{
protected:
    // The copy of observations under the header.
    CommandEnd copy(const std::string& observations, std::vector<std::string> more = {},
                    const std::string& receiver = "mpc") const
    {
        makeFile(folder / "in.txt", observations.starts_with("COD") ? observations : header + observations);
        std::vector<std::string> arguments{"ready", folder / "in.txt", "--for", receiver, "--force",
                                           "-o",    folder / "out.txt"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return callCommand(arguments);
    }

    // The observations of the copy.
    std::vector<std::string> observations() const
    {
        std::vector<std::string> lines;
        for (const std::string& line : copies::linesOf(bytesOf(folder / "out.txt"))) {
            if (line.size() == 80) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    // What is told of the copy of one line that becomes another one.
    std::string told(const std::string& line, const std::string& written) const
    {
        const CommandEnd end = copy(line + '\n');
        EXPECT_EQ(end.status, 0) << end.out;
        EXPECT_THAT(observations(), ElementsAre(written));
        return end.out;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(ReadyReport, ALineWithoutAnythingToMendStaysAsItIs)
{
    EXPECT_THAT(told(good, good), Not(HasSubstr("mended")));
    EXPECT_EQ(bytesOf(folder / "out.txt"), header + good + '\n');
}

TEST_F(ReadyReport, ABlankInColumn45IsAPlusSign)
{
    EXPECT_THAT(told(with(45, " "), good),
                HasSubstr("in.txt:7:46: note: mended: the sign of a declination in column 45, which is "
                          "blank, 1 line [V423]"));
}

TEST_F(ReadyReport, ABlankInColumn45BeforeOtherDigitsIsRefused)
{
    for (const char* text : {"  1 20 30.1", " 41 20 30  ", " 4120 30.10"}) {
        const CommandEnd end = copy(with(45, text) + '\n');
        EXPECT_EQ(end.status, 1);
        EXPECT_THAT(end.out, HasSubstr("in.txt:7:1: error: observation of 80 bytes: skipped [V195]")) << text;
    }
}

TEST_F(ReadyReport, Columns72To77AreBlank)
{
    const char* const note = "note: mended: columns 72 to 77 are blank, 1 mark [V423]";
    EXPECT_THAT(told(with(72, "V"), good), HasSubstr(note));
    EXPECT_THAT(told(with(72, "VEK123"), good), HasSubstr(note));
    const CommandEnd end = copy(with(71, " V") + '\n');
    EXPECT_THAT(end.out, HasSubstr("the band of the magnitude is not known"));
    EXPECT_EQ(copy(with(71, " V") + '\n', {"--band", "R"}).status, 0);
    EXPECT_THAT(observations(), ElementsAre(with(71, "R")));
}

TEST_F(ReadyReport, Columns72To77AreNotTakenForABandOfAdesEither)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "submitter": "A. B. Sender"})");
    const CommandEnd end =
        copy(with(14, "K", with(72, "VEK123")) + '\n', {"--profile", folder / "profile.json"}, "ades");
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_THAT(end.out,
                HasSubstr("note: mended: columns 13 and 14 of the report are not kept, 1 mark [V423]"));
    EXPECT_THAT(end.out, HasSubstr("note: mended: columns 72 to 77 are blank, 1 mark [V423]"));
    EXPECT_THAT(bytesOf(folder / "out.txt"), HasSubstr("<band>G</band>"));
}

TEST_F(ReadyReport, ARowOfTheProfileMayNameAllThatStandsInTheBandsColumns)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "bands": {"Clear": "G"}})");
    EXPECT_EQ(copy(with(71, "Clear") + '\n', {"--profile", folder / "profile.json"}).status, 0);
    EXPECT_THAT(observations(), ElementsAre(good));
}

TEST_F(ReadyReport, TheLettersOfColumn15ThatOneLineMayHaveAreKept)
{
    for (const char* note : {"C", "B", "P", " ", "n", "E", "e", "T", "M", "A", "N", "O"}) {
        const std::string line = with(15, note);
        EXPECT_THAT(told(line, line), Not(HasSubstr("mended"))) << note;
    }
}

TEST_F(ReadyReport, OtherLettersOfColumn15AreRefused)
{
    for (const char* note : {"H", "c", "D", "Z", "W", "Q", "t", "q"}) {
        EXPECT_THAT(copy(with(15, note) + '\n').out,
                    HasSubstr("error: column 15 hold \"" + std::string(note) +
                              "\": the note is not for new observations [V316]"));
    }
    for (const char* note : {"S", "V"}) {
        EXPECT_THAT(copy(with(15, note) + '\n').out,
                    HasSubstr("the observation has a second line, which a copy does not keep [V316]"));
    }
}

TEST_F(ReadyReport, TheModeOfAProfileReplacesTheLetterOfColumn15)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "mode": "VID"})");
    const CommandEnd end = copy(good + '\n', {"--profile", folder / "profile.json"});
    EXPECT_THAT(observations(), ElementsAre(with(15, "n")));
    EXPECT_THAT(end.out, HasSubstr("note: mended: column 15 is that of the mode, 1 mark [V423]"));
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "mode": "TDI"})");
    EXPECT_THAT(copy(good + '\n', {"--profile", folder / "profile.json"}).out,
                HasSubstr("column 15 hold \"TDI\": the mode has no letter [V316]"));
}

TEST_F(ReadyReport, MendsOfItsLinesAreTold)
{
    EXPECT_THAT(told(with(33, "12 30 60.00"), with(33, "12 31 00.00")),
                HasSubstr("seconds of 60 are carried, 1 mark"));
    EXPECT_THAT(told(with(46, "41 20 60.0"), with(46, "41 21 00.0")),
                HasSubstr("seconds of 60 are carried, 1 mark"));
    EXPECT_THAT(told(with(33, "24 00 00.00"), with(33, "00 00 00.00")),
                HasSubstr("a right ascension of 24 h is 0 h, 1 mark"));
    EXPECT_THAT(told(with(33, "23 59 60.00"), with(33, "00 00 00.00")),
                AllOf(HasSubstr("seconds of 60 are carried, 1 mark"),
                      HasSubstr("a right ascension of 24 h is 0 h, 1 mark")));
    EXPECT_THAT(told(with(66, "00.0 G"), with(66, "      ")),
                HasSubstr("a magnitude that is none is left blank, 1 mark"));
    EXPECT_THAT(told(with(66, "     G"), with(66, "      ")),
                HasSubstr("a band without a magnitude is left blank, 1 mark"));
    EXPECT_THAT(told(with(13, "*"), good), HasSubstr("columns 13 and 14 are blank, 1 mark"));
    EXPECT_THAT(told(with(14, "T"), good), HasSubstr("columns 13 and 14 are blank, 1 mark"));
    EXPECT_THAT(told(with(60, "x"), good), HasSubstr("columns 57 to 65 are blank, 1 mark"));
    EXPECT_THAT(told(with(26, ".500004"), good), HasSubstr("the day has fewer decimals, 1 mark"));
    EXPECT_THAT(told(with(26, ".999996"), with(24, "24.00000")),
                HasSubstr("the time is carried into the next day, 1 mark"));
}

TEST_F(ReadyReport, ACopyOfASouthernNightIsNotTakenForAReportOfTheTool)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "observers": ["A. B. Sender"]})");
    makeFile(folder / "night.mea", "K88 2000.0 UTC\n"
                                   "433 250223 1200000000 0100000000 -0030000000 001 09.50\n");
    const CommandEnd first = callCommand({"ready", folder / "night.mea", "--for", "mpc", "--band", "V",
                                          "--profile", folder / "profile.json", "-o", folder / "a.txt"});
    EXPECT_EQ(first.status, 0) << first.out;
    const std::string copied = bytesOf(folder / "a.txt");
    EXPECT_THAT(copied,
                HasSubstr("\n00433         C2023 02 25.50000 01 00 00.000-00 30 00.00          9.50V "));
    const CommandEnd second =
        callCommand({"ready", folder / "a.txt", "--for", "mpc", "-o", folder / "b.txt"});
    EXPECT_EQ(second.status, 0) << second.out;
    EXPECT_EQ(bytesOf(folder / "b.txt"), copied);
}

TEST_F(ReadyReport, AnotherDetectorOrDecimalsAreNotThoseOfTheTool)
{
    const std::string south = with(1, "00433       ", with(45, "-"));
    EXPECT_THAT(copy(south + '\n').out, HasSubstr("[V311]"));
    EXPECT_EQ(copy(with(15, "B", south) + '\n').status, 0);
    EXPECT_EQ(copy(with(14, "K", south) + '\n').status, 0);
    EXPECT_EQ(copy(with(26, ".500001", south) + '\n').status, 0);
    EXPECT_EQ(copy(with(33, "12 30 10.000", south) + '\n').status, 0);
    EXPECT_EQ(copy(with(46, "41 20 30.10", south) + '\n').status, 0);
    EXPECT_EQ(copy(with(66, "      ", south) + '\n').status, 0);
}

TEST_F(ReadyReport, TheBandOfTheHeaderIsThatOfMagnitudesWithoutOne)
{
    const std::string night = header + "BND G\n" + with(71, " ") + '\n' + with(30, "1", with(71, "R")) + '\n';
    EXPECT_EQ(copy(night).status, 0);
    EXPECT_THAT(observations(), ElementsAre(good, with(30, "1", with(71, "R"))));
}

TEST_F(ReadyReport, AllCommentsOfTheHeaderAreKept)
{
    const std::string commented =
        std::string(header).insert(header.find("ACK"), "COM one comment\nCOM and another\n");
    EXPECT_EQ(copy(commented + good + '\n').status, 0);
    EXPECT_EQ(bytesOf(folder / "out.txt"), commented + good + '\n');
}

TEST_F(ReadyReport, WhatIsSaidAgainBetweenObservationsReplacesWhatWasSaid)
{
    const std::string later = with(29, "1");
    EXPECT_EQ(copy(header + good + "\nOBS D. Other\n" + later + '\n').status, 0);
    EXPECT_THAT(bytesOf(folder / "out.txt"),
                AllOf(HasSubstr("\nOBS D. Other\n"), Not(HasSubstr("A. B. Sender, D. Other"))));
}

TEST_F(ReadyReport, TwoPositionsOfAnObjectAtOneTimeAreRefused)
{
    const std::string other = with(45, "-");
    const CommandEnd end = copy(good + '\n' + other + '\n');
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out, HasSubstr("in.txt:8: error: columns 16 to 32 hold \"2025 02 23.50000\": another "
                                   "position of the object has this time [V316]"));
    const std::string named = with(6, "AST1001", other);
    EXPECT_EQ(copy(good + '\n' + named + '\n').status, 0);
    makeFile(folder / "names", "AST1001\tAST1000\n");
    EXPECT_THAT(copy(good + '\n' + named + '\n', {"--rename", folder / "names"}).out, HasSubstr("[V316]"));
}

TEST_F(ReadyReport, TheBandOfTheCallIsNotReplacedByTheProfile)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "bands": {"V": "G"}})");
    const std::vector<std::string> call{"--band", "V", "--profile", folder / "profile.json"};
    EXPECT_EQ(copy(with(71, " ") + '\n', call).status, 0);
    EXPECT_THAT(observations(), ElementsAre(with(71, "V")));
    EXPECT_EQ(copy(with(71, "V") + '\n', call).status, 0);
    EXPECT_THAT(observations(), ElementsAre(good));
}
