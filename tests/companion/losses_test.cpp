// Losses: marks that a reader makes nothing of, and values that it misreads, are told wherever a file is read
// as it is meant.

#include "companion/golden.h"
#include "reading/true_reading.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::readAsMeant;
using companion::TrueFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TrueFile meant(const std::string& format, const std::string& bytes)
{
    return readBy([&](const std::string& path) { return readAsMeant(path, format); }, bytes);
}

// "3:9 V126": line, column and code of each finding.
std::vector<std::string> foundIn(const TrueFile& file)
{
    std::vector<std::string> all;
    for (const companion::Finding& each : file.findings) {
        all.push_back(std::to_string(each.line) + ':' + std::to_string(each.column) + ' ' + each.code.text());
    }
    return all;
}

const std::string good = "X1 061110 0430138240 0255387401 -0313126984 001 18.87\n";

TEST(Losses, MeaLineOfOtherWordsIsLeftOut)
{
    const TrueFile file =
        meant("mea", "K88 2000.0 UTC\n" + good + "X1 061110 0430138240 0255387401 18.87\n" + good);
    EXPECT_THAT(foundIn(file), ElementsAre("3:1 V150"));
    EXPECT_EQ(file.leftOut, 1U);
    EXPECT_EQ(file.tracks.at(0).marks.size(), 2U);
}

TEST(Losses, MeaBlankLinesAndHeadsAreNone)
{
    const TrueFile file = meant("mea", "K88 2000.0 UTC\n\n" + good + "\n");
    EXPECT_THAT(foundIn(file), IsEmpty());
    EXPECT_EQ(file.leftOut, 0U);
}

TEST(Losses, MeaFirstLineThatIsAMarkIsLeftOut)
{
    const TrueFile file = meant("mea", good + good);
    EXPECT_THAT(foundIn(file), ElementsAre("1:1 V151"));
    EXPECT_EQ(file.leftOut, 1U);
}

TEST(Losses, MeaShortFieldIsLeftOut)
{
    const TrueFile file =
        meant("mea", "K88 2000.0 UTC\n" + good + "X1 061110 04301 0255387401 -0313126984 001 18.87\n");
    EXPECT_THAT(foundIn(file), ElementsAre("3:11 V061"));
    EXPECT_EQ(file.leftOut, 1U);
}

// Each mark stays, as its reader reads it.
TEST(Losses, MeaValuesThatAreMisreadAreTold)
{
    const TrueFile file = meant("mea", "K88 2000.0 UTC\n"
                                       "X1 061110 0430138240 0255387401 -0313126984 001 xx\n"
                                       "X1 321310 0430138240 0255387401 -0313126984 001 18.87\n"
                                       "X1 061110 04301,0000 0255387401 -0313126984 001 18.87\n"
                                       "X1 061110 0430138240 0255387401 +9930000000 001 18.87\n"
                                       "X1 061110 0430138240 2555387401 -0313126984 001 18.87\n");
    EXPECT_THAT(foundIn(file), ElementsAre("2:49 V122", "3:4 V126", "4:11 V124", "5:33 V121", "6:22 V129"));
    EXPECT_EQ(file.leftOut, 0U);
    EXPECT_EQ(file.tracks.at(0).marks.size(), 5U);
}

// The sign that is put in front moves nothing of what is told.
TEST(Losses, PlacesAreThoseOfTheFile)
{
    const TrueFile file = meant("mea", "K88 2000.0 UTC\n"
                                       "X1 061110 0430138240 0255387401 12053 001 18.87\n"
                                       "X1 061110 0430138240 0255387401 0313126984 001 xx\n");
    EXPECT_THAT(foundIn(file), ElementsAre("2:33 V121", "3:33 V423", "3:48 V122"));
    EXPECT_EQ(file.findings.back().places.at(0).snippet, "X1 061110 0430138240 0255387401 0313126984 001 xx");
    EXPECT_EQ(file.findings.back().places.at(0).value, "xx");
}

const std::string telegramMark = "061110 04301382 02553874 -03131270 000189\n";

TEST(Losses, TelegramWithoutHeadIsLeftOut)
{
    const TrueFile file = meant("telegram", telegramMark + telegramMark + "END\n");
    EXPECT_THAT(foundIn(file), ElementsAre("1:1 V164", "2:1 V164"));
    EXPECT_EQ(file.leftOut, 2U);
}

TEST(Losses, TelegramWithoutEndIsLeftOut)
{
    const TrueFile file = meant("telegram", "10145 10989 6001\n" + telegramMark + "END\n10145 10989 6002\n" +
                                                telegramMark + telegramMark);
    EXPECT_THAT(foundIn(file), ElementsAre("4:1 V160"));
    EXPECT_EQ(file.leftOut, 2U);
    EXPECT_EQ(file.tracks.size(), 1U);
}

TEST(Losses, TelegramValuesThatAreMisreadAreTold)
{
    const TrueFile file =
        meant("telegram", "10145 10989 6001\n061110  04301382 02553874 -03131270 0001x9\nEND\n");
    ASSERT_EQ(file.findings.size(), 2U);
    EXPECT_EQ(file.findings[1].code.text(), "V167");
    EXPECT_EQ(file.findings[1].column, 37U) << "behind the blank that is too many";
}

std::string ssmas(const std::string& mark)
{
    return "Measurements\n807\nconversion\n1\n\n#SSMAS   #INTER\nX1 X1\n"
           "   Data        UT           CU           DE      RMS  m\n"
           "06.11.2010 04:30:13.82  02:55:38.74 -03.13.12.70 001 18.9\n" +
           mark + "\n";
}

TEST(Losses, SsmasMarkWithOneBlankBehindItsTimeIsLeftOut)
{
    const TrueFile file = meant("ssmas", ssmas("06.11.2010 04:31:13.82 02:55:38.74 -03.13.12.70 001 18.9"));
    EXPECT_THAT(foundIn(file), ElementsAre("10:1 V187"));
    EXPECT_EQ(file.leftOut, 1U);
}

TEST(Losses, SsmasValuesThatAreMisreadAreTold)
{
    const TrueFile file = meant("ssmas", ssmas("06.13.2010 04:31:13.82  02:55:38.74 -03.13.12.70 001 xx"));
    EXPECT_THAT(foundIn(file), ElementsAre("10:1 V126", "10:54 V122"));
}

// A file in the present folder, which is a new one.
class LossesOfCommands : public testing::Test
{
protected:
    CommandEnd called(const std::vector<std::string>& arguments, const std::string& bytes)
    {
        makeFile("night.mea", bytes);
        return callCommand(arguments);
    }

    const TemporaryFolder folder;
    const PresentFolder present{folder.path()};
    const std::string lossy = "K88 2000.0 UTC\n" + good + "X1 061110 0430148240 0255387401 18.87\n";
    const std::string told = "night.mea:3:1: error: line of 5 words: skipped [V150]\n";
};

TEST_F(LossesOfCommands, DiffTellsThem)
{
    const CommandEnd end = called({"diff", "-s", "night.mea", "night.mea"}, lossy);
    EXPECT_EQ(end.err, told + told);
    EXPECT_EQ(end.status, 1);
}

TEST_F(LossesOfCommands, NormaliseTellsThem)
{
    const CommandEnd end = called({"normalise", "night.mea", "-o", "copy.mea"}, lossy);
    EXPECT_EQ(end.out, told + "night.mea: 2 marks in, 1 out, 1 left out; 1 error; unchanged\n");
    EXPECT_EQ(end.status, 1);
}

TEST_F(LossesOfCommands, NormaliseTellsSkippedLinesOfAReport)
{
    const CommandEnd end =
        called({"normalise", "--from", "mpc", "night.mea", "-o", "copy.txt"},
               "COD I41\n"
               "     AST1000  C2010 11 04.11276 02 57 00.43 +12 11 00.7          19.4 R      I41\n"
               "     AST1000  C2010 11 04.14304 02 56 59.60 +12 11 01.0\n");
    EXPECT_EQ(end.out, "night.mea: note: 1 line of other kinds than observations skipped [V180]\n"
                       "night.mea: 1 mark in, 1 out, 0 left out; 1 note; unchanged\n");
    EXPECT_EQ(end.status, 0);
}

TEST_F(LossesOfCommands, NormaliseTellsValuesThatAreMisread)
{
    const CommandEnd end = called({"normalise", "night.mea", "-o", "copy.mea"},
                                  "K88 2000.0 UTC\nX1 321310 0430138240 0255387401 -0313126984 001 xx\n");
    EXPECT_EQ(end.out, "night.mea:2:4: error: \"321310\" is no date [V126]\n"
                       "night.mea:2:49: error: \"xx\" is no number [V122]\n"
                       "night.mea: 1 mark in, 1 out, 0 left out; 2 errors; unchanged\n");
    EXPECT_EQ(end.status, 1);
}

TEST_F(LossesOfCommands, NormaliseOfATelegramWithoutEndWritesNothing)
{
    const CommandEnd end = called({"normalise", "--from", "telegram", "night.mea", "-o", "copy.tel"},
                                  "10145 10989 6002\n" + telegramMark + telegramMark);
    EXPECT_EQ(end.out, "night.mea:1:1: error: block without END: 2 marks lost [V160]\n"
                       "night.mea: 2 marks in, 0 out, 2 left out; 1 error; nothing is written\n");
    EXPECT_EQ(end.status, 1);
}

TEST_F(LossesOfCommands, ReadyRefusesThem)
{
    const CommandEnd end =
        called({"ready", "night.mea", "--for", "ccsds", "--station", "K88", "-o", "copy.tdm"}, lossy);
    EXPECT_THAT(end.out + end.err, HasSubstr(told));
    EXPECT_THAT(end.out + end.err, HasSubstr("[V422]"));
    EXPECT_EQ(end.status, 1);
}

TEST_F(LossesOfCommands, PlotTellsThem)
{
    const CommandEnd end = called({"plot", "--script", "night.mea"}, lossy);
    EXPECT_EQ(end.err, told);
    EXPECT_THAT(end.out, HasSubstr("plot "));
    EXPECT_EQ(end.status, 1);
}

} // namespace
