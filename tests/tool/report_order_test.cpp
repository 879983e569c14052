// The order of a report: all tables and configurations are read, then file after file is written. What a
// track, a series or a file has is not found in the next.

#include "support/expected_files.h"
#include "support/report_series.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace expectedFiles;
using report_series::Bench;
using report_series::configuration;
using report_series::line;
using report_series::nameless;
using report_series::withCode;

namespace {

const Stamps stamps{.telescope = "T1", .observerCode = "CODEAAVSO"};

// Divisions whose first file is the one named.
struct DividedReport
{
    const char* division;
    const char* firstFile;
};
const DividedReport dividedReports[] = {
    {"eachgroup", "A.txt"}, {"eachobject", "A.txt"}, {"eachseria", "s1.txt"}, {"allobjects", "out.txt"}};

bool removesItsFile(const std::string& word)
{
    return word == "mag" || word == "aavso";
}

// A series whose table has the names at the ends of its lines, so that a line may lack them.
void addNamesLast(Bench& bench, const std::string& name, const std::string& lines, const std::string& conf)
{
    bench.add(name, "", conf);
    makeFile(bench / (name + report_series::tableInSeries),
             "v2\ndate:Date\ttime:Time\tRA:Float\tDE:Float\tm:Float\tQRVName:Text\tMPCChecker:Text\t"
             "NORAD:Text\tREFERENCE_FRAME:Text\n" +
                 lines);
}

const std::string position = "2023-02-25\t12:00:00\t15.0\t-0.5\t9.5";

// Three tracks: the second and the third have no names, the third no mark either.
const std::string namesOfTheFirstOnly =
    position + "\tA\tK13A01A\t40001\tEME2000\n---\n" + position + "\n---\n---\n";

// Checks a report of two series whose first file is the table of the second, which holds those lines.
void expectTableReplaced(const std::string& word, const std::string& lines, const Outlines& tracks)
{
    Bench bench;
    bench.task.outputformat = word;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", nameless("obj"));
    bench.add("s2", lines);
    const std::string table = bench.task.paths[1].path;
    bench.task.out_dir = table.substr(0, table.rfind('/') + 1);
    bench.expectWell({"obj.txt", tracks[0].name + ".txt"});
    EXPECT_EQ(bytesOf(table), fileOf(word, {{"obj", 1}}, stamps));
    EXPECT_TRUE(bytesOf(bench.task.out_dir + tracks[0].name + ".txt") == fileOf(word, tracks, stamps));
}

} // namespace

TEST(ReportOrder, NamesOfATrackAreNotThoseOfTheNext)
{
    const struct
    {
        const char* service;
        Outlines tracks;
    } rows[] = {
        {"asteroids",
         {{"K13A01A", 1}, {"AST1000", 1}, {"AST1001", 0}, {"K13A01A", 1}, {"AST1002", 1}, {"AST1003", 0}}},
        {"satellites", {{"40001", 1}, {"99000", 1}, {"99001", 0}, {"40001", 1}, {"99002", 1}, {"99003", 0}}},
        {"variablestars", {{"A", 1}, {"", 1}, {"", 0}, {"A", 1}, {"", 1}, {"", 0}}},
    };
    for (const auto& row : rows) {
        for (const char* word : {"telegram", "tdm", "ssmas", "tdm.xml", "mag", "aavso", "mea"}) {
            SCOPED_TRACE(row.service + std::string(" to ") + word);
            Bench bench;
            bench.task.outputformat = word;
            addNamesLast(bench, "s1", namesOfTheFirstOnly, configuration(row.service));
            addNamesLast(bench, "s2", namesOfTheFirstOnly, configuration(row.service));
            bench.expectWell({"out.txt"});
            EXPECT_EQ(bench.bytes("out.txt"), fileOf(word, row.tracks, stamps));
        }
    }
}

TEST(ReportOrder, CheckedNameOfATrackIsNotThatOfTheNext)
{
    Bench bench;
    addNamesLast(bench, "s1", namesOfTheFirstOnly, configuration("satellites"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("     K13A01A", "25.50000", "09.5") +
                                          "99000         C2023 02 25.50000 01 00 00.00 -00 30 00.0"
                                          "          09.5 R      500\n");
}

TEST(ReportOrder, ConfigurationOfASeriesIsNotThatOfTheNext)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.add("s1", nameless("A"), configuration("asteroids", withCode("I41")));
    bench.add("s2", nameless("B"));
    bench.add("s3", nameless("C"), "<broken");
    bench.add("s4", nameless("D"), configuration("satellites", withCode("W84")));
    bench.add("s5", nameless("E"), "<root><Service>asteroids</Service></root>");
    bench.expectWell({"s1.txt", "s2.txt", "s3.txt", "s4.txt", "s5.txt"});
    EXPECT_EQ(bench.bytes("s1.txt"), "COD I41\n" + line("     AST1000", "25.50000", "09.5", "I41"));
    EXPECT_EQ(bench.bytes("s2.txt"), "COD 500\n" + line("           B", "25.50000", "09.5"));
    EXPECT_EQ(bench.bytes("s3.txt"), "COD 500\n" + line("           C", "25.50000", "09.5"));
    EXPECT_EQ(bench.bytes("s4.txt"), "COD W84\n" + line("99000       ", "25.50000", "09.5", "W84"));
    EXPECT_EQ(bench.bytes("s5.txt"), "COD 500\n" + line("     AST1001", "25.50000", "09.5"));
}

TEST(ReportOrder, MpcHeaderWithoutAnyLine)
{
    const std::string noCode = configuration("", withCode("<![CDATA[]]>"));
    Bench bench;
    bench.add("s1", nameless("A"), noCode);
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), line("           A", "25.50000", "09.5", ""));
    bench.add("s2", nameless("B"), configuration("", withCode("W84")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"),
              line("           A", "25.50000", "09.5", "") + line("           B", "25.50000", "09.5", "W84"));
}

// The file is made, and holds nothing.
TEST(ReportOrder, MpcHeaderWithoutAnyLineAboveNoMarks)
{
    const std::string noCode = configuration("", withCode("<![CDATA[]]>"));
    Bench bench;
    bench.add("s1", "---\n---\n", noCode);
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "");
    makeFile(bench / "out/out.txt", "old\n");
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "");
}

// The first track has no marks, and yet its header is that of the report.
TEST(ReportOrder, MpcHeaderIsThatOfAFirstTrackWithoutMarks)
{
    Bench bench;
    bench.add("s1", "", configuration("", withCode("F51")));
    bench.add("s2", "---\n", configuration("", withCode("I41")));
    bench.add("s3", nameless("A"), configuration("", withCode("W84")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\n" + line("           A", "25.50000", "09.5", "W84"));
}

TEST(ReportOrder, FiltersOfVariableStarsAreThoseOfTheFirstTrackInEachFile)
{
    Bench bench;
    bench.task.outputformat = "aavso";
    bench.task.toSeparateFile = "eachseria";
    const std::string header = "v2\nQRVName\tdate\ttime\tfiltr\n";
    const auto marks = [](const std::string& name, const std::vector<std::string>& filters) {
        std::string lines;
        for (const std::string& filter : filters) {
            lines += name + "\t2023-02-25\t12:00:00\t" + filter + "\n";
        }
        return lines + "---\n";
    };
    bench.add("s1", "");
    makeFile(bench / "s1/tavelin/dataVO/obj.txt",
             header + marks("A", {"V", "B"}) + marks("C", {"I", "U", "Z"}) + marks("D", {"Y"}));
    bench.add("s2", "");
    makeFile(bench / "s2/tavelin/dataVO/obj.txt", header + "---\n" + marks("C", {"I", "U"}));
    bench.expectWell({"s1.txt", "s2.txt"});
    const std::string head = fileOf("aavso", {{"", 0}}, stamps);
    const auto row = [](const std::string& name, const std::string& filter) {
        return name + ",2460001.0000000,0.000,inf," + filter + ",NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n";
    };
    EXPECT_EQ(bench.bytes("s1.txt"), head + row("A", "V") + row("A", "B") + row("C", "V") + row("C", "B") +
                                         row("C", "Z") + row("D", "V"));
    EXPECT_EQ(bench.bytes("s2.txt"), head + row("C", "I") + row("C", "U"));
}

TEST(ReportOrder, ExceptionWhileReadingLeavesEveryFile)
{
    for (const DividedReport& report : dividedReports) {
        for (const std::string& word : words) {
            SCOPED_TRACE(report.division + std::string(" to ") + word);
            Bench bench;
            bench.task.outputformat = word;
            bench.task.toSeparateFile = report.division;
            bench.add("s1", nameless("A"));
            bench.addPath("");
            bench.add("s3", nameless("B"));
            makeFile(bench / "old", "old\n");
            const std::string output = bench / (std::string("out/") + report.firstFile);
            std::filesystem::create_symlink(bench / "old", output);
            EXPECT_THROW(CreateMultiReport(bench.task), std::out_of_range);
            EXPECT_TRUE(std::filesystem::is_symlink(output));
            EXPECT_EQ(bytesOf(bench / "old"), "old\n");
            EXPECT_EQ(bench.written(), (report_series::Names{report.firstFile}));
        }
    }
}

TEST(ReportOrder, TwoFormatsReplaceALinkAndTheOthersWriteThroughIt)
{
    for (const DividedReport& report : dividedReports) {
        for (const std::string& word : words) {
            SCOPED_TRACE(report.division + std::string(" to ") + word);
            Bench bench;
            bench.task.outputformat = word;
            bench.task.toSeparateFile = report.division;
            bench.add("s1", nameless("A"));
            makeFile(bench / "old", "old\n");
            const std::string output = bench / (std::string("out/") + report.firstFile);
            std::filesystem::create_symlink(bench / "old", output);
            bench.expectWell({report.firstFile});
            const std::string expected = fileOf(word, {{"A", 1}}, stamps);
            EXPECT_EQ(bytesOf(output), expected);
            EXPECT_EQ(std::filesystem::is_symlink(output), !removesItsFile(word));
            EXPECT_EQ(bytesOf(bench / "old"), removesItsFile(word) ? "old\n" : expected);
        }
    }
}

// The files before the one that cannot be written stay, and those after it are not made.
TEST(ReportOrder, ExceptionBetweenTwoFiles)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.task.toSeparateFile = "eachobject";
        bench.add("s1", nameless("A") + nameless("missing/B") + nameless("C"));
        if (word == "mag" || word == "tdm.xml") { // they pass over it in silence
            bench.expectWell({"A.txt", "missing/B.txt", "C.txt"});
            EXPECT_EQ(bench.written(), (report_series::Names{"A.txt", "C.txt"}));
        } else {
            EXPECT_THROW(CreateMultiReport(bench.task), TavelinException);
            EXPECT_EQ(bench.written(), (report_series::Names{"A.txt"}));
        }
        EXPECT_EQ(bench.bytes("A.txt"), fileOf(word, {{"A", 1}}, stamps));
    }
}

// The first file of the report is the table of its second series, which has been read before.
TEST(ReportOrder, FileThatIsTheTableOfALaterSeries)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        expectTableReplaced(word, nameless("B"), {{"B", 1}});
    }
}

TEST(ReportOrder, FileThatIsTheTableOfALaterSeriesAboveAMegabyte)
{
    const std::string mark = "B\t\t\t2023-02-25\t12:00:00\t15.0\t-0.5\t9.5\n";
    const std::string tracks = repeated(mark, 30000) + "---\n";
    EXPECT_GT(tracks.size(), std::size_t{1} << 20);
    for (const char* word : {"telegram", "aavso"}) {
        SCOPED_TRACE(word);
        expectTableReplaced(word, tracks, {{"B", 30000}});
    }
}

// The first file of the report is the configuration of its second series.
TEST(ReportOrder, FileThatIsTheConfigurationOfALaterSeries)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.outputextension = "conf";
    bench.add("s1", nameless("s2"), configuration("", withCode("I41")));
    bench.add("s2", nameless("B"), configuration("asteroids", withCode("W84")));
    bench.task.out_dir = bench / "s2/";
    bench.expectWell({"s2.conf", "AST1000.conf"});
    EXPECT_EQ(bytesOf(bench / "s2/s2.conf"), "COD I41\n" + line("          s2", "25.50000", "09.5", "I41"));
    EXPECT_EQ(bytesOf(bench / "s2/AST1000.conf"),
              "COD W84\n" + line("     AST1000", "25.50000", "09.5", "W84"));
}

// Names of equal text are one file: each replaces the one before.
TEST(ReportOrder, LaterFileOfANameReplacesTheEarlier)
{
    for (const std::string& word : words) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.task.toSeparateFile = "eachobject";
        bench.add("s1", repeated(nameless("A"), 3));
        bench.add("s2", nameless("A")).filter = "V";
        bench.expectWell({"A.txt", "A.txt"});
        EXPECT_EQ(bench.bytes("A.txt"), fileOf(word, {{"A", 1}}, stamps));
    }
}
