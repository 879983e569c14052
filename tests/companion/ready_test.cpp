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
                               HasSubstr("ready: 3 marks in, 2 out, 1 refused")));
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
    for (const char* name : {"AST10000", "ABC", "AST10001", "AST10000", "X1"}) {
        text += std::string(name) + " 250223 1200000000 0100000000 +0030000000 001 09.50\n";
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
