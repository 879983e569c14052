// The call `tavelin ready`: where its facts come from, what it writes and when it does not.

#include "command/profile.h"
#include "companion/copies.h"
#include "companion/golden.h"
#include "findings/finding.h"
#include "receivers/mpc_header.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using companion::Observatory;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* profile =
    R"({"schema": "tavelin.profile/1", "station": "K88", "email": "a@example.org", "observers": ["A. B. Sender"]})";

constexpr const char* night = "K88 2000.0 UTC\n"
                              "AST1000 250223 1200000000 0100000000 +0030000000 001 09.50\n"
                              "AST1000 250223 1300000000 0100000000 -0030000000 001 00.00\n";

class Ready : public testing::Test
{
protected:
    Ready()
    {
        makeFile(folder / "profile.json", profile);
        makeFile(folder / "night.mea", night);
    }

    CommandEnd call(const std::vector<std::string>& more, const std::string& input = "night.mea",
                    const std::string& receiver = "mpc") const
    {
        std::vector<std::string> arguments{"ready", folder / input, "--for", receiver};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return callCommand(arguments);
    }

    CommandEnd copy(std::vector<std::string> more = {}, const std::string& input = "night.mea",
                    const std::string& receiver = "mpc") const
    {
        more.insert(more.end(),
                    {"--profile", folder / "profile.json", "--band", "V", "-o", folder / "out.txt"});
        return call(more, input, receiver);
    }

    std::string written() const
    {
        return bytesOf(folder / "out.txt");
    }

    static int timesIn(const std::string& text, const std::string& word)
    {
        int count = 0;
        for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
            ++count;
        }
        return count;
    }

    TemporaryFolder folder;
};

TEST_F(Ready, WritesTheCopyAndTellsTheTotalsLast)
{
    const CommandEnd end = copy();
    EXPECT_EQ(end.status, 0);
    EXPECT_THAT(end.out, testing::EndsWith("\nready: 2 marks in, 2 out, 0 refused\n"));
    EXPECT_EQ(written(),
              "COD K88\n"
              "OBS A. B. Sender\n"
              "MEA A. B. Sender\n"
              "ACK Observations of K88, 2023-02-25\n"
              "AC2 a@example.org\n"
              "     AST1000  C2023 02 25.50000 01 00 00.000+00 30 00.00          9.50V      K88\n"
              "     AST1000  C2023 02 25.54167 01 00 00.000-00 30 00.00                     K88\n");
}

TEST_F(Ready, TheCopyMayGoToStandardOutput)
{
    const CommandEnd end = call({"--profile", folder / "profile.json", "--band", "V", "-o", "-"});
    EXPECT_THAT(end.out, AllOf(StartsWith("COD K88\n"), Not(HasSubstr("ready:"))));
    EXPECT_THAT(end.err, HasSubstr("ready: 2 marks in, 2 out, 0 refused\n"));
}

TEST_F(Ready, WritesNothingWhereAMarkIsRefused)
{
    makeFile(folder / "night.mea",
             std::string(night) + "AST10000 250223 1400000000 0100000000 +0030000000 001 09.50\n");
    const CommandEnd end = copy();
    EXPECT_EQ(end.status, 1);
    EXPECT_FALSE(exists(folder / "out.txt"));
    EXPECT_THAT(end.out, AllOf(HasSubstr("night.mea:4: error: the name \"AST10000\" has 8 characters"),
                               HasSubstr("error: 1 mark refused, nothing written [V422]"),
                               HasSubstr("ready: 3 marks in, 0 out, 1 refused")));
}

TEST_F(Ready, LeavesRefusedMarksOutWhereTheCallSaysSo)
{
    makeFile(folder / "night.mea",
             std::string(night) + "AST10000 250223 1400000000 0100000000 +0030000000 001 09.50\n");
    const CommandEnd end = copy({"--leave-out"});
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out, AllOf(HasSubstr("[V312]"), Not(HasSubstr("[V422]"))));
    EXPECT_EQ(copies::linesOf(written()).size(), 7U);
}

TEST_F(Ready, MarksOfJsonAreOutRefusedOrHeldBack)
{
    makeFile(folder / "night.mea",
             std::string(night) + "AST10000 250223 1400000000 0100000000 +0030000000 001 09.50\n");
    EXPECT_THAT(copy({"--json"}).out,
                HasSubstr(R"("output":null,"marks":{"in":3,"out":0,"refused":1,"heldBack":2})"));
    EXPECT_THAT(copy({"--json", "--dry-run"}).out,
                HasSubstr(R"("marks":{"in":3,"out":0,"refused":1,"heldBack":2})"));
    EXPECT_THAT(copy({"--json", "--leave-out", "--dry-run"}).out,
                HasSubstr(R"("marks":{"in":3,"out":2,"refused":1,"heldBack":0})"));
    EXPECT_THAT(copy({"--json", "--leave-out"}).out,
                HasSubstr(R"("marks":{"in":3,"out":2,"refused":1,"heldBack":0})"));
}

TEST_F(Ready, AllThatIsRefusedOrNamedAnewIsListedUnlessTheCallSaysHowMuch)
{
    std::string marks = "K88 2000.0 UTC\n";
    std::string names;
    for (int number = 100; number < 230; ++number) {
        const std::string name = "AST" + std::to_string(number);
        marks += name + "OLD 250223 1200000000 0100000000 +0030000000 001 09.50\n";
        names += name + "OLD\t" + name + "_\n";
    }
    makeFile(folder / "night.mea", marks);
    makeFile(folder / "names", names);
    const CommandEnd whole = copy({"--leave-out", "--rename", folder / "names"});
    EXPECT_EQ(timesIn(whole.out, "[V312]"), 130);
    EXPECT_EQ(timesIn(whole.out, "[V424]"), 130);
    EXPECT_THAT(whole.out, Not(HasSubstr(" more of ")));
    const CommandEnd cut = copy({"--leave-out", "--rename", folder / "names", "--max", "100"});
    EXPECT_EQ(timesIn(cut.out, "[V312]"), 100);
    EXPECT_THAT(cut.out,
                AllOf(HasSubstr("night.mea: 30 more of V312\n"), HasSubstr("night.mea: 30 more of V424\n")));
}

TEST_F(Ready, ADryRunWritesNothing)
{
    const CommandEnd end = call({"--profile", folder / "profile.json", "--band", "V", "--dry-run"});
    EXPECT_EQ(end.status, 0);
    EXPECT_THAT(end.out, HasSubstr("ready: 2 marks in, 2 out, 0 refused"));
    EXPECT_FALSE(exists(folder / "out.txt"));
}

TEST_F(Ready, AnInputIsNeverWrittenOverAndAFileOnlyByForce)
{
    makeFile(folder / "out.txt", "old");
    EXPECT_EQ(copy().status, 2);
    EXPECT_EQ(written(), "old");
    EXPECT_EQ(copy({"--force"}).status, 0);
    const CommandEnd end =
        call({"--profile", folder / "profile.json", "--band", "V", "--force", "-o", folder / "night.mea"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("[V005]"));
    EXPECT_EQ(bytesOf(folder / "night.mea"), night);
}

TEST_F(Ready, ProfileAndNamesAreInputsToo)
{
    const std::string names = "AST1000\tAST1\n";
    makeFile(folder / "names", names);
    for (const char* target : {"profile.json", "names"}) {
        const CommandEnd end = call({"--profile", folder / "profile.json", "--rename", folder / "names",
                                     "--band", "V", "--force", "-o", folder / target});
        EXPECT_EQ(end.status, 2) << target;
        EXPECT_THAT(end.err, HasSubstr(std::string(target) + " is the input itself [V005]"));
    }
    EXPECT_EQ(bytesOf(folder / "profile.json"), profile);
    EXPECT_EQ(bytesOf(folder / "names"), names);
}

TEST_F(Ready, AListOfNamesThatExistsIsReplacedByForceAlone)
{
    makeFile(folder / "night.mea",
             "K88 2000.0 UTC\nAST10000 250223 1200000000 0100000000 +0030000000 001 09.50\n");
    makeFile(folder / "out.txt.names", "old");
    const CommandEnd end = copy({"--new-names", "X"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("out.txt.names exists; --force would replace it [V004]"));
    EXPECT_FALSE(exists(folder / "out.txt"));
    EXPECT_EQ(bytesOf(folder / "out.txt.names"), "old");
    EXPECT_EQ(copy({"--new-names", "X", "--force"}).status, 0);
    EXPECT_EQ(bytesOf(folder / "out.txt.names"), "AST10000\tX1\n");
    EXPECT_THAT(written(), HasSubstr("\n     X1       C2023 02 25.50000 "));
}

TEST_F(Ready, AStationOfTheInputThatTheProfileContradictsIsRefused)
{
    makeFile(folder / "night.mea", "A77" + std::string(night).substr(3));
    const CommandEnd end = copy();
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out,
                HasSubstr("error: the station is given twice: \"A77\" by the input, \"K88\" by the profile; "
                          "--station would decide [V421]"));
    EXPECT_FALSE(exists(folder / "out.txt"));
    EXPECT_EQ(copy({"--station", "Z99"}).status, 0);
    EXPECT_THAT(written(), StartsWith("COD Z99\n"));
    EXPECT_EQ(copy({"--force", "--station", "Z99"}, "night.mea", "ccsds").status, 0);
    EXPECT_THAT(written(), HasSubstr("\nPARTICIPANT_1 = Z99\n"));
}

TEST_F(Ready, NamesAreReplacedByAFile)
{
    makeFile(folder / "names", "# old and new\nAST1000\t2024 YR4\n");
    const CommandEnd end = copy({"--rename", folder / "names"});
    EXPECT_THAT(end.out, HasSubstr("note: AST1000 is now 2024 YR4 [V424]"));
    EXPECT_THAT(written(), HasSubstr("\n     K24Y04R  C2023"));
}

TEST_F(Ready, ANameThatNoObjectHasIsTold)
{
    makeFile(folder / "names", "AST1000\tAST1\nAST999\tAST2\n");
    const CommandEnd end = copy({"--rename", folder / "names"});
    EXPECT_EQ(end.status, 0);
    EXPECT_THAT(end.out,
                AllOf(HasSubstr("note: AST1000 is now AST1 [V424]\n"),
                      HasSubstr("note: mended: nothing for \"AST999\" of --rename, which no object is "
                                "called, 0 marks [V423]\n"),
                      Not(HasSubstr("AST999 is now"))));
}

TEST_F(Ready, AFileOfNamesOfAnotherFormIsRefused)
{
    for (const char* names : {"AST1000\n", "A B\nA C\n"}) {
        makeFile(folder / "names", names);
        EXPECT_EQ(copy({"--rename", folder / "names"}).status, 2) << names;
    }
}

TEST_F(Ready, ObjectsThatHaveNoNameForTheReceiverGetNewOnes)
{
    std::string text = "K88 2000.0 UTC\n";
    int hour = 10;
    for (const char* name : {"AST10000", "ABC", "AST10001", "AST10000", "X1"}) {
        text += std::string(name) + " 250223 " + std::to_string(hour++) +
                "00000000 0100000000 +0030000000 001 09.50\n";
    }
    makeFile(folder / "night.mea", text);
    const CommandEnd end = copy({"--new-names", "X"});
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_EQ(bytesOf(folder / "out.txt.names"), "AST10000\tX2\nAST10001\tX3\n"); // X1 is another object
    EXPECT_THAT(end.out, AllOf(HasSubstr("AST10000 is now X2"), HasSubstr("AST10001 is now X3")));
    for (const char* base : {"", "1X", "ABCDEFG", "A-B"}) {
        EXPECT_EQ(copy({"--force", "--new-names", base}).status, 2) << base;
    }
}

TEST_F(Ready, HowToSendNamesTheTestFormFirst)
{
    const CommandEnd end = callCommand({"ready", "--for", "ades", "--how-to-send"});
    EXPECT_EQ(end.status, 0);
    EXPECT_LT(end.out.find("submit_xml_test"), end.out.find("submit_xml -F"));
    EXPECT_THAT(copy({"--how-to-send"}).out,
                HasSubstr("submit_obs_test -F \"source=<" + folder.path() + "/out.txt\""));
}

TEST_F(Ready, TheCreationDateIsThatOfTheCallOrOfTheEnvironment)
{
    EXPECT_EQ(copy({"--creation-date", "2025-01-01T00:00:00"}, "night.mea", "ccsds").status, 0);
    EXPECT_THAT(written(), HasSubstr("CREATION_DATE = 2025-01-01T00:00:00\n"));
    setenv("SOURCE_DATE_EPOCH", "1735689600", 1);
    EXPECT_EQ(copy({"--force"}, "night.mea", "ccsds").status, 0);
    unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_THAT(written(), HasSubstr("CREATION_DATE = 2025-01-01T00:00:00\n"));
    EXPECT_EQ(copy({"--force", "--creation-date", "yesterday"}, "night.mea", "ccsds").status, 2);
}

TEST_F(Ready, AnEpochOfTheEnvironmentThatIsNoNumberIsWrong)
{
    for (const char* epoch : {"yesterday", "-1", "1735689600.5", "123456789012"}) {
        setenv("SOURCE_DATE_EPOCH", epoch, 1);
        const CommandEnd end = copy({}, "night.mea", "ccsds");
        const CommandEnd dated =
            copy({"--dry-run", "--creation-date", "2025-01-01T00:00:00"}, "night.mea", "ccsds");
        unsetenv("SOURCE_DATE_EPOCH");
        EXPECT_EQ(end.status, 2);
        EXPECT_THAT(end.err, HasSubstr("SOURCE_DATE_EPOCH: \"" + std::string(epoch) +
                                       "\" is no number of seconds since 1970 [V001]"));
        EXPECT_EQ(dated.status, 0);
    }
    EXPECT_FALSE(exists(folder / "out.txt"));
}

TEST_F(Ready, AReportToTheAavsoIsMadeOfMagnitudes)
{
    const CommandEnd end = copy({"--no-magnitudes", "--observer", "TST"}, "night.mea", "aavso");
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("--no-magnitudes: a report to the AAVSO is made of magnitudes [V001]"));
    EXPECT_FALSE(exists(folder / "out.txt"));
}

TEST_F(Ready, VerboseCallsTellWhatWasLookedAt)
{
    EXPECT_EQ(copy({"--verbose"}).err, "ready: read " + folder.path() +
                                           "/night.mea as MEA: 2 marks, 1 track\n" + "ready: read " +
                                           folder.path() + "/profile.json\n" +
                                           "ready: track AST1000: 2 marks, station K88 by the profile\n");
    EXPECT_THAT(call({"--dry-run", "--verbose"}, "night.mea", "ccsds").err,
                HasSubstr("ready: track AST1000: 2 marks, station K88 by the input\n"));
    EXPECT_THAT(copy({"--dry-run", "--verbose", "--station", "Z99"}).err,
                HasSubstr(", station Z99 by --station\n"));
    makeFile(folder / "night.mea", "500" + std::string(night).substr(3));
    EXPECT_THAT(call({"--dry-run", "--verbose"}, "night.mea", "ccsds").err,
                HasSubstr("ready: track AST1000: 2 marks, no station\n"));
    EXPECT_EQ(copy({"--dry-run"}).err, "");
}

TEST_F(Ready, ADelimiterOtherThanTheCommaKeepsTheCopy)
{
    makeFile(folder / "night.mea",
             "K88 2000.0 UTC\nAST,1000 250223 1200000000 0100000000 +0030000000 001 09.50\n");
    const CommandEnd end = copy({"--observer", "TST01", "--magnitude", "apparent"}, "night.mea", "aavso");
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_THAT(end.out, HasSubstr("ready: 1 mark in, 1 out, 0 refused\n"));
    EXPECT_THAT(written(),
                HasSubstr("\nAST,1000;2460001.00000000;9.500;na;V;NO;STD;na;na;na;na;na;na;na;na\n"));
}

TEST_F(Ready, RowsOfBarsAreMarksWhateverTheWidthsOfTimesAndNames)
{
    makeFile(folder / "in.txt",
             "COD K88\nOBS A. First\nMEA A. First\nTEL 0.5-m reflector + CCD\nNET Gaia-DR3\n"
             "     AST100Z  C2023 02 25.50000 01 00 00.00 +00 30 00.0           9.5 V      K88\n"
             "     AST100Z  C2023 02 25.600   01 00 00.00 +00 30 00.0           9.5 V      K88\n");
    makeFile(folder / "ades.json",
             R"({"schema": "tavelin.profile/1", "submitter": "A. First", "mode": "CCD"})");
    const CommandEnd end =
        call({"--profile", folder / "ades.json", "-o", folder / "out.txt"}, "in.txt", "ades.psv");
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_THAT(end.out, HasSubstr("ready: 2 marks in, 2 out, 0 refused\n"));
    EXPECT_THAT(written(),
                testing::EndsWith("trkSub |mode|stn|obsTime               |      ra|    dec|astCat|mag|band\n"
                                  "AST100Z|CCD |K88|2023-02-25T12:00:00.0Z|15.00000|0.50000|Gaia3 |9.5|V\n"
                                  "AST100Z|CCD |K88|2023-02-25T14:24:00Z  |15.00000|0.50000|Gaia3 |9.5|V\n"));
}

TEST_F(Ready, ACallThatLacksSomethingIsWrong)
{
    EXPECT_EQ(callCommand({"ready", folder / "night.mea", "-o", "x"}).status, 2);
    EXPECT_EQ(callCommand({"ready", folder / "night.mea", "--for", "mpc"}).status, 2);
    EXPECT_EQ(callCommand({"ready", "--for", "mpc"}).status, 2);
    EXPECT_EQ(call({"-o", "x", "--max", "many"}).status, 2);
    EXPECT_EQ(call({"-o", folder / "x.mea"}, "night.mea", "aavso").status, 2);
    EXPECT_EQ(call({"-o", "-", "--json"}).status, 2);
    EXPECT_EQ(call({"-o", folder / "x"}, "missing.mea").status, 2);
}

constexpr const char* message = "CCSDS_TDM_VERS = 2.0\nCREATION_DATE = 2016-01-01T00:00:00\n"
                                "ORIGINATOR = A\nMETA_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\n"
                                "PARTICIPANT_2 = AST1000\nMODE = SEQUENTIAL\nPATH = 2,1\nANGLE_TYPE = RADEC\n"
                                "REFERENCE_FRAME = EME2000\nMETA_STOP\nDATA_START\n"
                                "ANGLE_1 = 2016-06-11T08:20:38.869008 321.25\n"
                                "ANGLE_2 = 2016-06-11T08:20:38.869008 5.23646136\n"
                                "MAG = 2016-06-11T08:20:38.869008 18.5\n"
                                "ANGLE_1 = 2016-06-11T08:20:39.02 321.2612345\n"
                                "ANGLE_2 = 2016-06-11T08:20:39.02 -5\n"
                                "MAG = 2016-06-11T08:20:39.02 18.512\n"
                                "DATA_STOP\n";

std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    return text.replace(text.find(what), what.size(), by);
}

TEST_F(Ready, DecimalsOfAdesAreThoseThatAMessageWrites)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "submitter": "A. B. Sender",
        "measurers": ["C. Reader"], "mode": "CCD", "astrometricCatalogue": "Gaia3",
        "telescope": {"design": "reflector", "aperture": 0.6, "detector": "CCD"}})");
    makeFile(folder / "night.tdm", message);
    EXPECT_EQ(copy({}, "night.tdm", "ades").status, 0);
    EXPECT_THAT(written(), AllOf(HasSubstr("<obsTime>2016-06-11T08:20:38.869008Z</obsTime>\n"
                                           "        <ra>321.25</ra>\n        <dec>5.23646136</dec>\n"),
                                 HasSubstr("<mag>18.5</mag>"),
                                 HasSubstr("<obsTime>2016-06-11T08:20:39.02Z</obsTime>\n"
                                           "        <ra>321.2612345</ra>\n        <dec>-5</dec>\n"),
                                 HasSubstr("<mag>18.512</mag>")));
}

TEST_F(Ready, DecimalsOfAdesAreThoseOfANightsMessage)
{
    makeFile(folder / "profile.json", R"({"schema": "tavelin.profile/1", "submitter": "A. B. Sender",
        "measurers": ["C. Reader"], "mode": "CCD", "astrometricCatalogue": "Gaia3",
        "telescope": {"design": "reflector", "aperture": 0.6, "detector": "CCD"}})");
    makeFile(folder / "night.tdm",
             bytesOf(std::string(VOMAR_PROJECT) + "/tests/fixtures/nights/291_20160608.tdm"));
    EXPECT_EQ(copy({}, "night.tdm", "ades").status, 0);
    EXPECT_THAT(written(), HasSubstr("        <obsTime>2016-06-08T08:09:55.00800Z</obsTime>\n"
                                     "        <ra>245.3410833</ra>\n        <dec>-15.7589167</dec>\n"
                                     "        <astCat>Gaia3</astCat>\n        <mag>21.5000</mag>\n"));
}

TEST_F(Ready, OtherFramesOfAMessageAreForMessagesAlone)
{
    for (const char* frame : {"TOD_EARTH", "ITRF1993"}) {
        makeFile(folder / "night.tdm", replaced(message, "EME2000", frame));
        EXPECT_EQ(copy({"--force"}, "night.tdm", "ccsds").status, 0) << frame;
        EXPECT_THAT(written(), HasSubstr("\nREFERENCE_FRAME = " + std::string(frame) + '\n'));
        for (const char* receiver : {"mpc", "ades", "aavso"}) {
            const CommandEnd end = copy({"--force"}, "night.tdm", receiver);
            EXPECT_EQ(end.status, 1);
            EXPECT_THAT(end.out, HasSubstr("error: the frame is " + std::string(frame) + " [V143]"));
        }
    }
    makeFile(folder / "night.tdm", replaced(message, "EME2000", "MOON"));
    EXPECT_THAT(copy({"--force"}, "night.tdm", "ccsds").out, HasSubstr("REFERENCE_FRAME has the value"));
}

TEST_F(Ready, AnObjectThatIsNotKnownHasNoName)
{
    makeFile(folder / "night.tdm", replaced(message, "AST1000", "UNKNOWN"));
    EXPECT_THAT(copy({}, "night.tdm").out,
                HasSubstr("error: the name \"UNKNOWN\" says that the object is not known"));
    EXPECT_THAT(copy({}, "night.tdm", "ades").out, HasSubstr("[V312]"));
    EXPECT_EQ(copy({"--new-names", "X", "--time-decimals", "6"}, "night.tdm").status, 0);
    EXPECT_THAT(written(), HasSubstr("\n     X1       C2016"));
    EXPECT_EQ(bytesOf(folder / "out.txt.names"), "UNKNOWN\tX1\n");
}

TEST_F(Ready, AMagnitudeThatTheSourceDoesNotHaveIsNo0ForTheAavso)
{
    for (const char* kind : {"ensemble", "instrumental"}) {
        const CommandEnd end =
            copy({"--observer", "TST", "--zero-is-a-magnitude", "--magnitude", kind}, "night.mea", "aavso");
        EXPECT_EQ(end.status, 1);
        EXPECT_THAT(end.out, HasSubstr("the " + std::string(kind) + " magnitude is not known")) << kind;
    }
    makeFile(folder / "report.txt",
             "     AST1000  C2025 02 23.50000 12 30 10.00 +41 20 30.1                      K88\n");
    const CommandEnd end = copy({"--observer", "TST", "--zero-is-a-magnitude", "--magnitude", "apparent"},
                                "report.txt", "aavso");
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out, HasSubstr("the magnitude is not known"));
    EXPECT_FALSE(exists(folder / "out.txt"));
}

TEST_F(Ready, AReportInSeveralHeadersKeepsThem)
{
    const std::string report =
        "COD A77\nOBS A. First\nMEA A. First\nTEL 0.5-m reflector\nNET Gaia-DR3\nACK one\n"
        "     AST1000  C2023 02 25.50000 01 00 00.00 +00 30 00.0           9.5 V      A77\n"
        "COD K88\nOBS B. Second\nMEA B. Second\nTEL 0.6-m reflector\nNET Gaia-DR3\nACK two\n"
        "     AST1000  C2023 02 25.60000 01 00 00.000-00 00 00.05          -1.0V      K88\n"
        "     AST1001  B2025 02 23.60000 01 00 00.00 -00 00 00.0                      K88\n";
    makeFile(folder / "in.txt", report);
    const CommandEnd end = call({"-o", folder / "out.txt"}, "in.txt");
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_EQ(written(), report);
}

TEST_F(Ready, LinesOfACopyEndInALineFeedAlone)
{
    makeFile(folder / "in.txt",
             "COD K88\r\nOBS A. B. Sender\r\nMEA C. Reader\r\nTEL 0.6-m f/4 reflector + CCD\r\n"
             "NET Gaia-DR3\r\nAC2 report@example.org\r\n"
             "     AST1000  C2025 02 23.50000 01 00 00.00 +00 30 00.0          "
             " 9.5 V      K88\r\n");
    const CommandEnd end = call({"-o", folder / "out.txt"}, "in.txt");
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_EQ(written().find('\r'), std::string::npos) << written();
    EXPECT_THAT(written(), HasSubstr("\nOBS A. B. Sender\nMEA C. Reader\nTEL 0.6-m f/4 reflector + CCD\n"));
}

TEST_F(Ready, ATelescopeLineTellsItsParts)
{
    Observatory observatory;
    observatory.telescope = "0.41-m f/10 Schmidt-Cassegrain + CCD + f/6.3 focal reducer";
    companion::readTelescopeLine(observatory);
    EXPECT_EQ(observatory.aperture, "0.41");
    EXPECT_EQ(observatory.fRatio, "10");
    EXPECT_EQ(observatory.design, "Schmidt-Cassegrain");
    EXPECT_EQ(observatory.detector, "CCD");
    Observatory other;
    other.telescope = "600mm f/4";
    companion::readTelescopeLine(other);
    EXPECT_EQ(other.aperture, "");
    other.telescope =
        "0.41-m " + std::string(1'000'000, 'x') + " + CCD"; // no room for what a pattern recalls
    companion::readTelescopeLine(other);
    EXPECT_EQ(other.aperture, "");
}

class Profile : public testing::Test
{
protected:
    Observatory read(const std::string& text) const
    {
        makeFile(folder / "p.json", text);
        return companion::profileOf(folder / "p.json");
    }

    std::string fault(const std::string& text) const
    {
        try {
            read(text);
        } catch (const companion::WrongUsage& usage) {
            return usage.why.code.text() + ' ' + usage.why.text.substr(usage.why.text.find("p.json") + 1);
        }
        return "";
    }

    TemporaryFolder folder;
};

TEST_F(Profile, HoldsWhatAnObservatorySays)
{
    const Observatory observatory =
        read(R"({"schema": "tavelin.profile/1", "station": "K88", "contact": "A. B. C",
        "email": "a@b", "observers": ["A. One", "B. Two"], "measurers": "C. Three", "submitter": "D. Four",
        "telescope": {"design": "reflector", "aperture": 0.6, "fRatio": 4.5, "detector": "CCD"}, "mode": "CMO",
        "astrometricCatalogue": "Gaia3", "photometricCatalogue": "Gaia2", "aavsoCode": "TST",
        "bands": {"Clear": "CV", "r'": "SR"}})");
    EXPECT_EQ(observatory.station, "K88");
    EXPECT_EQ(observatory.observers, "A. One, B. Two");
    EXPECT_EQ(observatory.measurers, "C. Three");
    EXPECT_EQ(observatory.submitter, "D. Four");
    EXPECT_EQ(observatory.aperture, "0.6");
    EXPECT_EQ(observatory.fRatio, "4.5");
    EXPECT_EQ(observatory.mode, "CMO");
    EXPECT_EQ(observatory.photometricCatalogue, "Gaia2");
    EXPECT_EQ(observatory.bands.at("r'"), "SR");
}

TEST_F(Profile, OneThatIsNoneIsRefused)
{
    EXPECT_THAT(fault("{\"schema\": \"tavelin.profile/1\",\n \"station\" \"K88\"}"),
                HasSubstr("is not well-formed JSON in line 2, column 16"));
    EXPECT_THAT(fault("[]"), HasSubstr("is no JSON object"));
    EXPECT_THAT(fault("{}"), HasSubstr("has no \"schema\": \"tavelin.profile/1\""));
    EXPECT_THAT(fault(R"({"schema": "tavelin.profile/2"})"), HasSubstr("has no \"schema\""));
    EXPECT_THAT(fault(R"({"schema": "tavelin.profile/1", "stations": "K88"})"), StartsWith("V002 "));
    EXPECT_THAT(fault(R"({"schema": "tavelin.profile/1", "contact": "Road\nTown"})"),
                HasSubstr("has a line feed or another control character in \"contact\""));
}

TEST_F(Profile, OneThatIsNotThereIsNotEmpty)
{
    try {
        companion::profileOf(folder / "missing.json");
        FAIL() << "is read";
    } catch (const companion::WrongUsage& usage) {
        EXPECT_EQ(usage.why.code.text(), "V003");
        EXPECT_EQ(usage.why.text, folder.path() + "/missing.json: No such file or directory");
    }
    EXPECT_THAT(fault(""), HasSubstr("V003 "));
    EXPECT_THAT(fault(""), HasSubstr(": is empty"));
}

TEST_F(Profile, ATelescopeOfPartsReplacesALine)
{
    Observatory observatory;
    observatory.telescope = "1.0-m reflector";
    observatory.station = "A77";
    Observatory first;
    first.aperture = "0.6";
    companion::putBefore(observatory, first);
    EXPECT_EQ(observatory.telescope, "");
    EXPECT_EQ(observatory.station, "A77");
}

} // namespace
