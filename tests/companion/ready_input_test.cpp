// The inputs of `tavelin ready`: what is told of files and tasks that give no copy, or not the one that was
// meant.

#include "companion/golden.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* table = "v2\n"
                              "QRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\t"
                              "filtr:Text\n";

class ReadyInput : public testing::Test
{
protected:
    CommandEnd ready(const std::string& input, std::vector<std::string> more = {},
                     const std::string& receiver = "mpc") const
    {
        more.insert(more.begin(), {"ready", input, "--for", receiver, "-o", "out.txt"});
        return callCommand(more);
    }

    static std::string conversion(const std::string& keys)
    {
        return "<task>\n<path_in>night.mea</path_in>\n<out_dir>nowhere</out_dir>\n"
               "<REFERENCE_FRAME>ICRF</REFERENCE_FRAME>\n" +
               keys + "</task>\n";
    }

    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

constexpr const char* night = "K88 2000.0 UTC\n"
                              "AST1000 250223 1200000000 0100000000 +0030000000 001 09.50\n";

TEST_F(ReadyInput, AFormatWhoseMarksAreNotReadCannotBeCopied)
{
    makeFile("night.txt", "#TYPE=Extended\n#OBSCODE=TST01\n#SOFTWARE=x\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n"
                          "A,2460001.00000000,9.500,na,V,NO,DIF,ENSEMBLE,na,na,na,na,na,na,na\n");
    const CommandEnd end = ready("night.txt");
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: night.txt: its marks are not read: the format is AAVSO report [V003]\n");
    EXPECT_EQ(ready("night.txt", {"--as", "ades.xml"}).err,
              "tavelin: night.txt: its marks are not read: the format is ADES XML [V003]\n");
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyInput, AFileWithoutMarksGivesAnError)
{
    for (const char* text : {"", "K88 2000.0 UTC\n"}) {
        makeFile("night.mea", text);
        const CommandEnd end = ready("night.mea", {"--as", "mea"});
        EXPECT_EQ(end.status, 1);
        EXPECT_EQ(end.out, "night.mea: error: no tracks can be read from night.mea [V062]\n"
                           "ready: 0 marks in, 0 out, 0 refused\n");
    }
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyInput, ATaskWhoseWordHasNoReaderCannotBeRead)
{
    makeFile("night.mea", night);
    makeFile("task.xml", conversion("<inputformat>meaa</inputformat>\n"));
    const CommandEnd unknown = ready("task.xml");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.out, StartsWith("task.xml:5:1: error: unknown input format \"meaa\"; did you mean "
                                        "\"mea\"? [V040]\n"));
    EXPECT_THAT(unknown.out, Not(HasSubstr("output format")));
    makeFile("task.xml", conversion("<inputformat>mpc</inputformat>\n"));
    const CommandEnd written = ready("task.xml");
    EXPECT_EQ(written.status, 2);
    EXPECT_THAT(written.out,
                StartsWith("task.xml:5:1: error: the format \"mpc\" can be written but not read; "
                           "tavelin ready reads it [V041]\n"));
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyInput, ATaskWhoseInputIsMissingCannotBeRead)
{
    makeFile("task.xml", conversion("<inputformat>mea</inputformat>\n"));
    const CommandEnd end = ready("task.xml");
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.out, StartsWith("task.xml:2:1: error: the input night.mea does not exist [V060]\n"));
}

TEST_F(ReadyInput, AWordOfAnotherFormatIsTold)
{
    makeFile("night.mea", night);
    makeFile("task.xml", conversion("<inputformat>telegram</inputformat>\n"));
    const CommandEnd end = ready("task.xml");
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(end.out, "task.xml: warning: the input looks like MEA, but inputformat is \"telegram\" [V063]\n"
                       "night.mea:1:1: error: block without END: 0 marks lost [V160]\n"
                       "night.mea:2:1: error: line of 7 words: skipped [V166]\n"
                       "task.xml: error: 1 mark refused, nothing written [V422]\n"
                       "ready: 1 mark in, 0 out, 1 refused\n");
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyInput, WhereARunWouldWriteDoesNotMatter)
{
    makeFile("night.mea", night);
    makeFile("task.xml", conversion("<path_res>result.xml</path_res>\n<inputformat>mea</inputformat>\n"
                                    "<outputformat>unknown</outputformat>\n"));
    const CommandEnd end = ready("task.xml", {"--creation-date", "2025-01-01T00:00:00"}, "ccsds");
    EXPECT_EQ(end.status, 0);
    EXPECT_EQ(end.out, "ready: 1 mark in, 1 out, 0 refused\n");
}

TEST_F(ReadyInput, LinesAreThoseOfTheFileOfAConversion)
{
    makeFile("night.mea", night);
    makeFile("task.xml", conversion("<inputformat>mea</inputformat>\n"));
    EXPECT_EQ(ready("task.xml", {"--no-magnitudes", "--station", "K88"}).out,
              "night.mea: error: the name of the observers is not known: give it by observers of --profile "
              "[V420]\n"
              "night.mea: note: mended: the declination has its sign in column 45, 1 mark [V423]\n"
              "task.xml: error: 1 mark refused, nothing written [V422]\n"
              "ready: 1 mark in, 0 out, 1 refused\n");
    EXPECT_THAT(ready("task.xml").out, StartsWith("night.mea:2: error: the band of the magnitude"));
}

TEST_F(ReadyInput, AStationOfTheTaskThatIsNotThatOfTheFileIsRefused)
{
    makeFile("night.mea", night);
    makeFile("task.xml", conversion("<inputformat>mea</inputformat>\n<PARTICIPANT_1>H21</PARTICIPANT_1>\n"));
    const CommandEnd end = ready("task.xml", {}, "ccsds");
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(end.out, "night.mea: error: the station is given twice: \"K88\" by the input, \"H21\" by "
                       "PARTICIPANT_1 of the task; --station would decide [V421]\n"
                       "ready: 1 mark in, 0 out, 1 refused\n");
    EXPECT_EQ(ready("task.xml", {"--station", "H21"}, "ccsds").status, 0);
    EXPECT_THAT(bytesOf("out.txt"), HasSubstr("\nPARTICIPANT_1 = H21\n"));
    for (const char* telescope : {"K88", "AZT", "T21x"}) {
        makeFile("task.xml", conversion("<inputformat>mea</inputformat>\n<PARTICIPANT_1>" +
                                        std::string(telescope) + "</PARTICIPANT_1>\n"));
        EXPECT_EQ(ready("task.xml", {"--force"}, "ccsds").status, 0) << telescope;
    }
}

TEST_F(ReadyInput, AStationOfLinesThatIsNotThatOfTheirHeaderIsRefused)
{
    makeFile("in.txt", "COD K88\nOBS A. First\nMEA A. First\nTEL 0.5-m reflector\nNET Gaia-DR3\n"
                       "     AST1000  C2023 02 25.50000 01 00 00.00 +00 30 00.0           9.5 V      K88\n"
                       "     AST1001  C2023 02 25.50000 01 00 00.00 +00 30 00.0           9.5 V      L01\n"
                       "     AST1001  C2023 02 25.60000 01 00 00.00 +00 30 00.0           9.5 V      L01\n");
    const CommandEnd end = ready("in.txt");
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(end.out,
              "in.txt:7: error: the station is given twice: \"K88\" by the header, \"L01\" by the line; "
              "--station would decide [V421]\n"
              "ready: 3 marks in, 0 out, 2 refused\n");
    EXPECT_THAT(ready("in.txt", {"--json"}).out,
                HasSubstr(R"("marks":{"in":3,"out":0,"refused":2,"heldBack":1})"));
    EXPECT_FALSE(exists("out.txt"));
    EXPECT_EQ(ready("in.txt", {"--station", "L01"}).status, 0);
    EXPECT_THAT(bytesOf("out.txt"), StartsWith("COD L01\n"));
}

// A report over the tables of series.
class ReadyTables : public ReadyInput
{
protected:
    ReadyTables()
    {
        makeSeries("a");
        makeSeries("b");
        makeTask({"a", "b"});
    }

    static std::string row(const char* time, const char* name)
    {
        return std::string(name) + "\t2023-02-25\t" + time + "\t15.0\t-0.5\t9.5\tR\n";
    }

    void makeSeries(const std::string& name) const
    {
        std::filesystem::create_directories(name + "/tavelin/dataVO");
        makeFile(tableOf(name), table + row("12:00:00", name.c_str()) + "---\n");
    }

    static std::string tableOf(const std::string& series)
    {
        return series + "/tavelin/dataVO/table.txt";
    }

    static void makeTask(const std::vector<std::string>& series)
    {
        std::string text =
            "<task>\n<inputformat>vomar</inputformat>\n<outputformat>mpc</outputformat>\n<paths>\n";
        for (const std::string& each : series) {
            text += "<seria><path>" + tableOf(each) +
                    "</path><filtr>R</filtr><telescope>T1</telescope></seria>\n";
        }
        makeFile("task.xml", text + "</paths>\n</task>\n");
    }

    CommandEnd readyTask(std::vector<std::string> more = {}) const
    {
        more.insert(more.end(), {"--creation-date", "2025-01-01T00:00:00"});
        return ready("task.xml", more, "ccsds");
    }
};

TEST_F(ReadyTables, AreAllInTheCopyAndASeriesWithoutAConfigurationIsTold)
{
    const CommandEnd end = readyTask();
    EXPECT_EQ(end.status, 0) << end.out;
    EXPECT_THAT(end.out, AllOf(HasSubstr("warning: no configuration below a/ [V216]\n"),
                               HasSubstr("ready: 2 marks in, 2 out, 0 refused\n")));
    for (const char* code : {"V024", "V027", "V028", "V030", "V037", "V053", "V224", "V301"}) {
        EXPECT_THAT(end.out, Not(HasSubstr(code)));
    }
}

TEST_F(ReadyTables, OneThatIsMissingRefusesTheCopy)
{
    std::filesystem::remove(tableOf("b"));
    const CommandEnd end = readyTask();
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out,
                AllOf(HasSubstr("task.xml:6:8: error: the track table b/tavelin/dataVO/table.txt does not "
                                "exist [V200]\n"),
                      testing::EndsWith("\nready: 0 marks in, 0 out, 0 refused\n")));
    makeTask({"b"});
    EXPECT_EQ(readyTask().status, 1);
    makeTask({});
    const CommandEnd without = readyTask();
    EXPECT_EQ(without.status, 1);
    EXPECT_THAT(without.out, HasSubstr("task.xml:4:1: error: no series: paths has no seria [V231]\n"));
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyTables, MarksThatBelongToNoTrackRefuseTheCopy)
{
    makeFile(tableOf("b"), table + row("12:00:00", "b") + "---\n" + row("13:00:00", "b"));
    const CommandEnd end = readyTask();
    EXPECT_EQ(end.status, 1);
    EXPECT_THAT(end.out,
                HasSubstr("b/tavelin/dataVO/table.txt:5:1: error: 1 mark after the last ---: lost [V201]\n"));
    EXPECT_FALSE(exists("out.txt"));
}

TEST_F(ReadyTables, HaveConfigurationsThatAreInputsToo)
{
    const std::string configuration =
        "<root><ReportSettings><MPCReport><MPCcode>K88</MPCcode></MPCReport></ReportSettings></root>\n";
    makeFile("a/a.conf", configuration);
    const CommandEnd end = callCommand({"ready", "task.xml", "--for", "ccsds", "--force", "-o", "a/a.conf"});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.err, "tavelin: a/a.conf is the input itself [V005]\n");
    EXPECT_EQ(bytesOf("a/a.conf"), configuration);
    EXPECT_EQ(callCommand({"ready", "task.xml", "--for", "ccsds", "--force", "-o", tableOf("a")}).status, 2);
}

TEST_F(ReadyInput, CopyForTheAavsoNeedsNoNameWhereNothingIsWritten)
{
    makeFile("night.mea", night);
    EXPECT_THAT(callCommand({"ready", "--for=aavso", "--dry-run", "night.mea"}).err,
                Not(HasSubstr("--output")));
    EXPECT_THAT(callCommand({"ready", "--for=aavso", "-o", "a.xyz", "night.mea"}).err,
                HasSubstr("--output: "));
}

TEST_F(ReadyInput, TaskOfAnInputOfNoSureFormatIsCopiedByItsWord)
{
    makeFile("odd.txt", "what is this?\n");
    makeFile("t.xml", "<task><path_in>./odd.txt</path_in><inputformat>mea</inputformat></task>\n");
    EXPECT_THAT(callCommand({"ready", "--for=mpc", "--dry-run", "t.xml"}).out, Not(HasSubstr("[V063]")));
    makeFile("odd.txt", "K88 T1 A\n250223 12000000 01000000 00300000 001095\nEND\n\n");
    EXPECT_THAT(callCommand({"ready", "--for=mpc", "--dry-run", "t.xml"}).out, HasSubstr("[V063]"));
}

// An error that says more stands for the one that there is nothing.
TEST_F(ReadyInput, FileOfBrokenLinesAloneHasTheirFindings)
{
    makeFile("broken.mea", "K88 2000.0 UTC\nA 250223 12\n");
    const CommandEnd end = callCommand({"ready", "--for=mpc", "--dry-run", "--as=mea", "broken.mea"});
    EXPECT_THAT(end.out, HasSubstr("broken.mea:2:1: error: "));
    EXPECT_THAT(end.out, Not(HasSubstr("[V062]")));
}

TEST_F(ReadyInput, BlockWithoutMarksHasTheFindingOfItsEnd)
{
    makeFile("a.tel", "K88 T1 A\n");
    const CommandEnd end = callCommand({"ready", "--for=mpc", "--dry-run", "--as=telegram", "a.tel"});
    EXPECT_THAT(end.out, HasSubstr("a.tel:1:1: error: block without END: 0 marks lost [V160]\n"));
    EXPECT_THAT(end.out, Not(HasSubstr("[V062]")));
}

TEST_F(ReadyInput, FindingsOfATaskOfTheStandardInputHaveItsName)
{
    makeFile("night.mea", night);
    makeFile("t.xml", "<task><path_in>./night.mea</path_in><inputformat>meaa</inputformat></task>\n");
    const char* const command = "exec " VOMAR_COMMAND " ready - --for mpc --dry-run <t.xml >shown 2>&1";
    EXPECT_NE(std::system(command), -1);
    EXPECT_THAT(bytesOf("shown"), StartsWith("-:1:37: error: unknown input format \"meaa\""));
}

TEST_F(ReadyInput, FindingsOfTheStandardInputHaveItsName)
{
    makeFile("broken.mea", night + std::string("A 250223 12\n"));
    const char* const command =
        "exec " VOMAR_COMMAND " ready - --as mea --for mpc --dry-run <broken.mea >shown 2>&1";
    EXPECT_NE(std::system(command), -1);
    EXPECT_THAT(bytesOf("shown"), HasSubstr("-:3:1: error: "));
}

} // namespace
