// Broken, cut and unsuitable files, given to the built tool.

#include "support/child_process.h"
#include "support/task_folder.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::size_t megabyte = 1 << 20;

const std::string site = "T1 2000.0 UTC\n";
const std::string good = "12345   250223 1200000000 0100000000 -0030000000 001 09.50\n";
const std::string writtenSite = "T9 2000.0 UTC\n";

const std::string goodInMpc =
    "COD 500\n"
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n";

using Names = std::set<std::string>;
using Lines = std::vector<std::string>;

std::string everyByte()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::string taskFor(const std::string& path_in, const std::string& format)
{
    return taskText({{"path_in", path_in},
                     {"out_dir", "out"},
                     {"outputextension", ".txt"},
                     {"inputformat", "mea"},
                     {"outputformat", format},
                     {"PARTICIPANT_1", "T9"},
                     {"autoname", "false"},
                     {"path_res", "./r.xml"}});
}

// A folder in which inputs are converted.
class Conversion : public TaskFolder
{
public:
    ChildEnd run(const std::string& bytes, const std::string& format)
    {
        makeFile(*this / "night.mea", bytes);
        return runOn("night.mea", format);
    }
    ChildEnd runOn(const std::string& path_in, const std::string& format)
    {
        return TaskFolder::run(taskFor(path_in, format));
    }
};

// Checks that the input holds no mark: the run succeeds, its result names the path, and neither format writes
// a file.
void expectNoMarks(const std::string& bytes)
{
    for (const char* format : {"mea", "mpc"}) {
        SCOPED_TRACE(format);
        Conversion conversion;
        expectQuietEnd(conversion.run(bytes, format));
        EXPECT_EQ(resultOf(conversion / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
        EXPECT_FALSE(exists(conversion / "out/night.txt"));
        EXPECT_EQ(bytesOf(conversion / "night.mea"), bytes);
    }
}

// Checks that the input is written as MEA with these marks.
void expectMarks(const std::string& bytes, const std::string& marks)
{
    Conversion conversion;
    expectQuietEnd(conversion.run(bytes, "mea"));
    EXPECT_EQ(resultOf(conversion / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
    ASSERT_TRUE(exists(conversion / "out/night.txt"));
    const std::string written = bytesOf(conversion / "out/night.txt");
    EXPECT_TRUE(written == writtenSite + marks) << written.size() << " bytes: " << written.substr(0, 300);
}

// Checks that the input is refused: both texts of the result are its path, and nothing is written.
void expectBroken(const std::string& bytes)
{
    for (const char* format : {"mea", "mpc"}) {
        SCOPED_TRACE(format);
        Conversion conversion;
        makeFile(conversion / "out/night.txt", "old\n");
        expectQuietEnd(conversion.run(bytes, format));
        EXPECT_EQ(resultOf(conversion / "r.xml"), resultDocument(-1, "night.mea", "night.mea"));
        EXPECT_EQ(bytesOf(conversion / "out/night.txt"), "old\n");
    }
}

// A copy of the tool with a night, for runs whose result goes to the log beside the program.
class Bench
{
public:
    Bench()
    {
        copyOfTool(folder / "vomar");
        makeFile(folder / "night.mea", site + good);
        std::filesystem::create_directory(folder / "out");
    }
    ChildEnd run(const std::string& task)
    {
        makeFile(folder / "task.xml", task);
        return runOn("task.xml");
    }
    ChildEnd runOn(const std::string& path)
    {
        return runProgram(folder / "vomar", std::vector<std::string>{path}, folder.path());
    }
    void expectConverted() const
    {
        EXPECT_EQ(bytesOf(folder / "out/night.txt"), goodInMpc);
        EXPECT_EQ(resultOf(folder / "r.xml"), resultDocument(0, "OK", "out/night.txt"));
        EXPECT_FALSE(exists(folder / "vomar.log"));
    }
    void expectRefused(const std::string& path) const
    {
        EXPECT_EQ(logOf(folder / "vomar.log"), (Lines{"Code=7//Error opening file//" + path}));
        EXPECT_FALSE(exists(folder / "out/night.txt"));
        EXPECT_FALSE(exists(folder / "r.xml"));
    }
    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

private:
    TemporaryFolder folder;
};

} // namespace

TEST(BrokenInput, GoodNight)
{
    expectMarks(site + good, good);
    Conversion conversion;
    expectQuietEnd(conversion.run(site + good, "mpc"));
    EXPECT_EQ(bytesOf(conversion / "out/night.txt"), goodInMpc);
}

TEST(BrokenInput, InputThatIsNoFileHasNoMarks)
{
    const struct
    {
        const char* path;
        const char* output;
    } rows[] = {{"missing.mea", "out/missing.txt"},
                {"no/such/folder/night.mea", "out/night.txt"},
                {"/no/such/folder/night.mea", "out/night.txt"},
                {"task.xml/night.mea", "out/night.txt"},
                {"folder.mea", "out/folder.txt"},
                {"folder.mea/", "out/.txt"},
                {"/dev/null", "out/null.txt"},
                {"link.mea", "out/link.txt"}};
    for (const auto& row : rows) {
        for (const char* format : {"mea", "mpc"}) {
            SCOPED_TRACE(std::string(row.path) + " to " + format);
            Conversion conversion;
            std::filesystem::create_directory(conversion / "folder.mea");
            std::filesystem::create_symlink("nowhere", conversion / "link.mea");
            expectQuietEnd(conversion.runOn(row.path, format));
            EXPECT_EQ(resultOf(conversion / "r.xml"), resultDocument(0, "OK", row.output));
            EXPECT_EQ(filesBelow(conversion / "out"), Names{});
        }
    }
}

TEST(BrokenInput, FilesWithoutAMark)
{
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"empty", ""},
        {"one line feed", "\n"},
        {"line feeds", "\n\n\n\n"},
        {"blanks", "     "},
        {"site line without line feed", "T1"},
        {"site line", site},
        {"site line and empty lines", site + "\n\n"},
        {"mark line in the place of the site line", good},
        {"mark line alone, without line feed", good.substr(0, good.size() - 1)},
        {"carriage returns in the place of line feeds",
         "T1 2000.0 UTC\r12345 250223 1200000000 0100000000 -0030000000 001 09.50\r"},
        {"mark of six tokens", site + "12345 250223 1200000000 0100000000 -0030000000 09.50\n"},
        {"mark of eight tokens", site + "12 345 250223 1200000000 0100000000 -0030000000 001 09.50\n"},
        {"tabs in the place of blanks",
         "T1\t2000.0\tUTC\n12345\t250223\t1200000000\t0100000000\t-0030000000\t001\t09.50\n"},
        {"a tab in the place of one blank",
         site + "12345 250223\t1200000000 0100000000 -0030000000 001 09.50\n"},
        {"every byte", everyByte()},
        {"every byte, many times", repeated(everyByte(), 64)},
        {"zero bytes", std::string(4096, '\0')},
        {"a megabyte in one line", std::string(megabyte, 'x')},
        {"a megabyte in the second line", site + std::string(megabyte, 'x') + "\n"},
        {"a megabyte of blanks in a line", site + std::string(megabyte, ' ') + "\n"},
        {"half a million tokens in a line", site + repeated("x ", 500000) + "\n"},
        {"half a million empty lines", site + std::string(500000, '\n')},
        {"XML", "<?xml version=\"1.0\"?>\n<task>\n</task>\n"},
        {"UTF-16", std::string("\xFF\xFE"
                               "T\0001\0\n\0A\0 \0",
                               12)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        expectNoMarks(row.bytes);
    }
}

TEST(BrokenInput, MarksThatAreReadAllTheSame)
{
    const std::string bare = good.substr(0, good.size() - 1);
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"no line feed at the end", site + bare},
        {"carriage returns before the line feeds", "T1 2000.0 UTC\r\n" + bare + "\r\n"},
        {"carriage return at the end of the file", "T1\r\n" + bare + "\r"},
        {"two carriage returns", "T1\r\r\n" + bare + "\r\r\n"},
        {"tabs at the ends of lines", "T1\t\n" + bare + "\t\t\t\n"},
        {"tabs and carriage returns mixed", "T1\t\r\n" + bare + "\t\r\t\r\n"},
        {"blanks at the ends of lines", "T1  \n" + bare + "   \n"},
        {"blanks before the marks", "T1\n    " + good},
        {"empty site line", "\n" + good},
        {"site line of tabs", "\t\t\n" + good},
        {"site line of any bytes", "\x01\xFF\x80\n" + good},
        {"site line of a megabyte", std::string(megabyte, 'T') + "\n" + good},
        {"empty lines between", site + "\n\n" + good + "\n"},
        {"lines of other token counts around it", site + "a\na b c d e f\n" + good + "a b c d e f g h\n"},
        {"a megabyte of tokens before it", site + repeated("x ", 500000) + "\n" + good},
        {"a megabyte of one token behind it", site + good + std::string(megabyte, 'x')},
        {"a megabyte of blanks between two fields", site + "12345 250223 1200000000 0100000000" +
                                                        std::string(megabyte, ' ') +
                                                        "-0030000000 001 09.50\n"},
        {"other sixth tokens", site + "12345 250223 1200000000 0100000000 -0030000000 x 09.50\n"},
        {"more digits than are written",
         site + "12345 250223 1200000000000000 010000000000000000 -003000000000000 0000000001 9.5000000\n"},
        {"fewer digits than are written", site + "12345 250223 120000 010000 -003000 1 9.5\n"},
        {"more digits in the date", site + "12345 250223999 1200000000 0100000000 -0030000000 1 9.5\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        expectMarks(row.bytes, good);
    }
}

TEST(BrokenInput, NamesOfAnyBytesAreKept)
{
    const std::string rest = " 250223 1200000000 0100000000 -0030000000 001 09.50\n";
    const struct
    {
        const char* what;
        std::string name;
        std::string written;
    } rows[] = {{"one letter", "A", "A      "},
                {"seven letters", "1234567", "1234567"},
                {"nine letters", "123456789", "123456789"},
                {"a tab inside", "12\t45", "12\t45  "},
                {"bytes that are no text", "\xFF\xFE\x01", "\xFF\xFE\x01    "},
                {"letters of two bytes", "\xD0\x90\xD0\x91", "\xD0\x90\xD0\x91   "},
                {"a word of the XML form", "<a>&", "<a>&   "},
                {"a path", "../../x", "../../x"},
                {"a megabyte", std::string(megabyte, 'N'), std::string(megabyte, 'N')}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        expectMarks(site + row.name + rest, row.written + rest);
    }
}

TEST(BrokenInput, LongNameMovesTheColumnsOfAReport)
{
    Conversion conversion;
    const std::string name(megabyte, 'N');
    expectQuietEnd(
        conversion.run(site + name + " 250223 1200000000 0100000000 -0030000000 001 09.50\n", "mpc"));
    EXPECT_TRUE(bytesOf(conversion / "out/night.txt") ==
                "COD 500\n" + name +
                    "  C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n");
}

TEST(BrokenInput, TokensThatAreNoNumbersCountAsZero)
{
    const struct
    {
        const char* line;
        const char* written;
    } rows[] = {{"A abcdef abcdef abcdef abcdefg abc abc",
                 "A       171158 0000000000 0000000000 0000000000 001 00.00"},
                {"A abcd 1200000000 0100000000 -0030000000 001 09.50",
                 "A       171158 1200000000 0100000000 -0030000000 001 09.50"},
                {"A 250223 xxxxxx 0100000000 -0030000000 001 09.50",
                 "A       250223 0000000000 0100000000 -0030000000 001 09.50"},
                {"A 250223 1200000000 ------ -0030000000 001 09.50",
                 "A       250223 1200000000 0000000000 -0030000000 001 09.50"},
                {"A 250223 1200000000 0100000000 xxxxxxx 001 09.50",
                 "A       250223 1200000000 0100000000 0000000000 001 09.50"},
                {"A 250223 1200000000 0100000000 -0030000000 001 x",
                 "A       250223 1200000000 0100000000 -0030000000 001 00.00"},
                // A refused month gives day 0; a day beyond its month counts into the next one.
                {"A 251323 1200000000 0100000000 -0030000000 001 09.50",
                 "A       171158 1200000000 0100000000 -0030000000 001 09.50"},
                {"A 250023 1200000000 0100000000 -0030000000 001 09.50",
                 "A       171158 1200000000 0100000000 -0030000000 001 09.50"},
                {"A 310223 1200000000 0100000000 -0030000000 001 09.50",
                 "A       030323 1200000000 0100000000 -0030000000 001 09.50"},
                {"A 000323 1200000000 0100000000 -0030000000 001 09.50",
                 "A       280223 1200000000 0100000000 -0030000000 001 09.50"},
                {"A 990123 1200000000 0100000000 -0030000000 001 09.50",
                 "A       090423 1200000000 0100000000 -0030000000 001 09.50"},
                // A tab is no separator, and a number may follow it.
                {"A \t10323 1200000000 0100000000 -0030000000 001 09.50",
                 "A       010323 1200000000 0100000000 -0030000000 001 09.50"},
                // The hour may exceed the day, and the date stays.
                {"A 250223 2400000000 0100000000 -0030000000 001 09.50",
                 "A       250223 0000000000 0100000000 -0030000000 001 09.50"},
                {"A 250223 2500000000 0100000000 -0030000000 001 09.50",
                 "A       250223 0100000000 0100000000 -0030000000 001 09.50"},
                {"A 250223 1200000000 9900000000 -9900000000 001 09.50",
                 "A       250223 1200000000 9900000000 -9900000000 001 09.50"},
                // The degrees of a declination without a sign are read one digit too far.
                {"A 250223 1200000000 0100000000 0030000000 001 09.50",
                 "A       250223 1200000000 0100000000 0300000000 001 09.50"},
                {"A 250223 1200000000 0100000000 1205301234 001 09.50",
                 "A       250223 1200000000 0100000000 12053012340 001 09.50"},
                {"A 250223 1200000000 0100000000 +1205301234 001 09.50",
                 "A       250223 1200000000 0100000000 1205301234 001 09.50"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        expectMarks(site + row.line + "\n", std::string(row.written) + "\n");
    }
}

TEST(BrokenInput, OddMagnitudes)
{
    const struct
    {
        const char* token;
        const char* written;
    } rows[] = {{"9", "09.00"},       {".5", "00.50"},     {"5.", "05.00"},       {"+7.25", "07.25"},
                {"-1.2", "-01.20"},   {"-12.5", "-12.50"}, {"-0.001", "-00.00"},  {"0", "00.00"},
                {"12,5", "12.00"},    {"1e1", "10.00"},    {"9.996", "010.00"},   {"10", "10.00"},
                {"15.3mag", "15.30"}, {"x15.3", "00.00"},  {"99999", "99999.00"}, {"-", "00.00"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.token);
        const std::string begin = "A       250223 1200000000 0100000000 -0030000000 001 ";
        expectMarks(site + begin + row.token + "\n", begin + row.written + "\n");
    }
}

TEST(BrokenInput, ShortPackedTokensAreRefused)
{
    const char* lines[] = {"A 2 1200000000 0100000000 -0030000000 001 09.50",
                           "A 250 1200000000 0100000000 -0030000000 001 09.50",
                           "A 250223 1 0100000000 -0030000000 001 09.50",
                           "A 250223 12000 0100000000 -0030000000 001 09.50",
                           "A 250223 1200000000 0 -0030000000 001 09.50",
                           "A 250223 1200000000 01000 -0030000000 001 09.50",
                           "A 250223 1200000000 0100000000 - 001 09.50",
                           "A 250223 1200000000 0100000000 -00300 001 09.50",
                           "seven short words are not a mark"};
    for (const char* line : lines) {
        SCOPED_TRACE(line);
        expectBroken(site + line + "\n");
        expectBroken(site + good + line + "\n" + good);
        expectBroken("T1\r\n" + std::string(line) + "\t\r\n");
    }
}

TEST(BrokenInput, FileCutAnywhereLosesItsLastMarkOnly)
{
    const std::string last = "67890   250223 1200000000 0100000000 -0030000000 001 09.5";
    const std::size_t magnitude = last.size() - 4;
    for (std::size_t size = 0; size <= magnitude; ++size) {
        SCOPED_TRACE(last.substr(0, size));
        expectMarks(site + good + last.substr(0, size), good);
    }
    const std::string begin = last.substr(0, magnitude);
    expectMarks(site + good + begin + "0", good + begin + "00.00\n");
    expectMarks(site + good + begin + "09", good + begin + "09.00\n");
    expectMarks(site + good + begin + "09.", good + begin + "09.00\n");
    expectMarks(site + good + begin + "09.5", good + begin + "09.50\n");
}

// Task files.

TEST(BrokenTask, FilesThatAreNoTask)
{
    const std::string task = taskFor("night.mea", "mpc");
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {
        {"empty", ""},
        {"one line feed", "\n"},
        {"one line of text", "night.mea\n"},
        {"keys without XML", "path_in=night.mea\r\ninputformat=mea\r\n"},
        {"a night", site + good},
        {"every byte", everyByte()},
        {"zero bytes", std::string(4096, '\0')},
        {"a megabyte in one line", std::string(megabyte, 'x')},
        {"a megabyte of an opening tag", "<" + std::string(megabyte, 'x')},
        {"declaration alone", "<?xml version=\"1.0\"?>\n"},
        {"comment alone", "<!-- task -->\n"},
        {"cut behind a value", task.substr(0, task.find("</path_in>"))},
        {"cut inside a closing tag", task.substr(0, task.find("</path_in>") + 5)},
        {"cut before the root's end", task.substr(0, task.find("</task>"))},
        {"cut inside the root's end", task.substr(0, task.find("</task>") + 6)},
        {"wrong closing tag", "<task><path_in>night.mea</path_out></task>"},
        {"100,000 nested levels", "<task>" + repeated("<a>", 100000) + repeated("</a>", 100000) + "</task>"},
        {"100,000 levels that nobody closes", repeated("<a>", 100000)},
        {"a million levels that nobody closes", repeated("<a>", 1000000)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        expectQuietEnd(bench.run(row.bytes));
        bench.expectRefused("task.xml");
    }
}

TEST(BrokenTask, PathsThatAreNoFile)
{
    for (const char* path : {"missing.xml", "no/such/folder/task.xml", "out", "out/", "night.mea/task.xml",
                             "vomar", "/dev/null", "C:\\tasks\\task.xml"})
    {
        SCOPED_TRACE(path);
        Bench bench;
        expectQuietEnd(bench.runOn(path));
        bench.expectRefused(path);
    }
}

TEST(BrokenTask, TasksThatAreReadAllTheSame)
{
    const std::string task = taskFor("night.mea", "mpc");
    const std::size_t root = task.find("<task>") + 6;
    const auto withInside = [&](const std::string& inside) { return std::string(task).insert(root, inside); };
    const auto withLineEndings = [&](const std::string& ending) {
        std::string text;
        for (const char c : task) {
            text += c == '\n' ? ending : std::string(1, c);
        }
        return text;
    };
    const struct
    {
        const char* what;
        std::string bytes;
    } rows[] = {{"as it is", task},
                {"carriage returns before the line feeds", withLineEndings("\r\n")},
                {"carriage returns in the place of line feeds", withLineEndings("\r")},
                {"tabs around everything", withLineEndings("\t\t\n\t\t")},
                {"all in one line", withLineEndings("")},
                {"a megabyte of blanks in one line", withInside(std::string(megabyte, ' '))},
                {"a comment of a megabyte", withInside("<!--" + std::string(megabyte, 'x') + "-->")},
                {"an unknown value of a megabyte", withInside("<a>" + std::string(megabyte, 'x') + "</a>")},
                {"a known value of a megabyte",
                 withInside("<originator>" + std::string(megabyte, 'x') + "</originator>")},
                {"900 nested levels", withInside(repeated("<a>", 900) + repeated("</a>", 900))},
                {"200,000 elements side by side", withInside(repeated("<a/>", 200000))}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        expectQuietEnd(bench.run(row.bytes));
        bench.expectConverted();
    }
}

TEST(BrokenTask, TabsInAValueBelongToIt)
{
    Bench bench;
    expectQuietEnd(bench.run(taskFor("\tnight.mea", "mpc")));
    EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", "out/&#x09;night.txt"));
    EXPECT_EQ(filesBelow(bench / "out"), Names{});
}

TEST(BrokenTask, PathsOfAMegabyte)
{
    const std::string longName(megabyte, 'n');
    {
        SCOPED_TRACE("input");
        Bench bench;
        expectQuietEnd(bench.run(taskFor(longName, "mpc")));
        EXPECT_TRUE(resultOf(bench / "r.xml") == resultDocument(0, "OK", "out/" + longName + ".txt"));
        EXPECT_EQ(filesBelow(bench / "out"), Names{});
    }
    {
        SCOPED_TRACE("output folder");
        Bench bench;
        expectQuietEnd(bench.run(taskText({{"path_in", bench / "night.mea"},
                                           {"out_dir", longName},
                                           {"outputextension", ".txt"},
                                           {"inputformat", "mea"},
                                           {"outputformat", "mpc"},
                                           {"path_res", "./r.xml"}})));
        EXPECT_EQ(resultOf(bench / "r.xml"), resultDocument(0, "OK", bench / "night.txt"));
        EXPECT_EQ(bytesOf(bench / "night.txt"), goodInMpc);
    }
    {
        SCOPED_TRACE("extension");
        Bench bench;
        const ChildEnd end = bench.run(taskText({{"path_in", "night.mea"},
                                                 {"out_dir", "out"},
                                                 {"outputextension", longName},
                                                 {"inputformat", "mea"},
                                                 {"outputformat", "mpc"},
                                                 {"path_res", "./r.xml"}}));
        EXPECT_EQ(end.signal, SIGABRT);
        EXPECT_FALSE(exists(bench / "r.xml"));
    }
    {
        SCOPED_TRACE("result file");
        Bench bench;
        expectQuietEnd(bench.run(taskText({{"path_in", "night.mea"},
                                           {"out_dir", "out"},
                                           {"outputextension", ".txt"},
                                           {"inputformat", "mea"},
                                           {"outputformat", "mpc"},
                                           {"path_res", "./" + longName}})));
        EXPECT_EQ(bytesOf(bench / "out/night.txt"), goodInMpc);
        EXPECT_FALSE(exists(bench / "r.xml"));
    }
}
