#include "results/result_files.h"

#include "support/failed_writes.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ctime>
#include <filesystem>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include <sys/time.h>

using namespace tavelinUtils;

namespace {

using Results = std::vector<TFuncRes>;

const std::string stampForm = "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}";
constexpr std::size_t stampLength = 26;

/// The local time of this moment in the form of a stamp, so that texts compare as times do.
std::string localNow()
{
    timeval now{};
    gettimeofday(&now, nullptr);
    const std::tm parts = *std::localtime(&now.tv_sec);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S.", &parts);
    const std::string microseconds = std::to_string(now.tv_usec);
    return std::string(text, length) + std::string(6 - microseconds.size(), '0') + microseconds;
}

/// The stamps of a text.
std::vector<std::string> stampsOf(const std::string& text)
{
    const std::regex form(stampForm);
    std::vector<std::string> stamps;
    for (std::sregex_iterator found(text.begin(), text.end(), form), end; found != end; ++found) {
        stamps.push_back(found->str());
    }
    return stamps;
}

/// The bytes of a file with STAMP for each of its stamps.
std::string stampedBytesOf(const std::string& path)
{
    return std::regex_replace(bytesOf(path), std::regex(stampForm), "STAMP");
}

/// The Result element of a document, its values as they are to be there.
std::string element(const std::string& code, const std::string& comment, const std::string& description)
{
    return "    <Result>\n"
           "        <Code>" +
           code +
           "</Code>\n"
           "        <Comment>" +
           comment +
           "</Comment>\n"
           "        <Description>" +
           description +
           "</Description>\n"
           "        <Date>STAMP</Date>\n"
           "    </Result>\n";
}

std::string document(const std::string& elements)
{
    return "<?xml version=\"1.0\" ?>\n<ResultsList>\n" + elements + "</ResultsList>\n";
}

TFuncRes record(int code, const std::string& comment, const std::string& description)
{
    return TFuncRes{code, comment, description, {"a detail that no file shows"}};
}

void expectRead(const TFuncRes& result, int code, const std::string& comment, const std::string& description)
{
    EXPECT_EQ(result.Code, code);
    EXPECT_EQ(result.Comment, comment);
    EXPECT_EQ(result.Description, description);
    EXPECT_TRUE(result.Details.empty());
}

} // namespace

TEST(SResXML, WritesTheDocumentOfOneResult)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sResXML(folder / "r.result", record(7, "Error opening file", "in/night.mea")), 1);
    EXPECT_EQ(stampedBytesOf(folder / "r.result"), "<?xml version=\"1.0\" ?>\n"
                                                   "<ResultsList>\n"
                                                   "    <Result>\n"
                                                   "        <Code>7</Code>\n"
                                                   "        <Comment>Error opening file</Comment>\n"
                                                   "        <Description>in/night.mea</Description>\n"
                                                   "        <Date>STAMP</Date>\n"
                                                   "    </Result>\n"
                                                   "</ResultsList>\n");
}

TEST(SResXML, WritesSeveralResultsInTheirOrder)
{
    const TemporaryFolder folder;
    const Results results{record(0, "OK", "OK"), record(-3, "c", "d"), record(1000, "", "x")};
    EXPECT_EQ(sResXML(folder / "r.xml", results), 1);
    EXPECT_EQ(stampedBytesOf(folder / "r.xml"),
              document(element("0", "OK", "OK") + element("-3", "c", "d") + element("1000", "", "x")));
}

TEST(SResXML, NoResultsGiveARootAlone)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sResXML(folder / "r.xml", Results{}), 1);
    EXPECT_EQ(bytesOf(folder / "r.xml"), "<?xml version=\"1.0\" ?>\n<ResultsList />\n");
}

TEST(SResXML, DatesAreTheLocalMomentsOfTheSave)
{
    const TemporaryFolder folder;
    const std::string before = localNow();
    sResXML(folder / "one.xml", record(0, "OK", "OK"));
    sResXML(folder / "many.xml", Results(50, record(0, "OK", "OK")));
    const std::string after = localNow();
    std::vector<std::string> stamps = stampsOf(bytesOf(folder / "one.xml"));
    ASSERT_EQ(stamps.size(), 1u);
    for (const std::string& stamp : stampsOf(bytesOf(folder / "many.xml"))) {
        stamps.push_back(stamp);
    }
    ASSERT_EQ(stamps.size(), 51u);
    EXPECT_LE(before, stamps.front());
    EXPECT_LE(stamps.back(), after);
    EXPECT_TRUE(std::is_sorted(stamps.begin(), stamps.end()));
}

TEST(SResXML, CodesAreDecimal)
{
    const TemporaryFolder folder;
    const std::pair<int, std::string> rows[] = {
        {-2147483647 - 1, "-2147483648"}, {2147483647, "2147483647"}, {-1, "-1"}, {1901, "1901"}};
    for (const auto& [code, text] : rows) {
        sResXML(folder / "r.xml", record(code, "c", "d"));
        EXPECT_EQ(stampedBytesOf(folder / "r.xml"), document(element(text, "c", "d")));
    }
}

TEST(SResXML, TextsAreEscaped)
{
    const std::pair<std::string, std::string> rows[] = {
        {"a<b", "a&lt;b"},
        {"a>b", "a&gt;b"},
        {"a&b", "a&amp;b"},
        {"&amp;", "&amp;amp;"},
        {"&#x41;", "&amp;#x41;"},
        {"\"q\"", "&quot;q&quot;"},
        {"it's", "it&apos;s"},
        {"]]>", "]]&gt;"},
        {"a\nb", "a&#x0A;b"},
        {"a\r\nb", "a&#x0D;&#x0A;b"},
        {"a\tb", "a&#x09;b"},
        {"\x01\x1f", "&#x01;&#x1F;"},
        {"\x7f", "\x7f"},
        {" a ", " a "},
        {"   ", "   "},
        {"", ""},
        {"c:\\data\\n.mea", "c:\\data\\n.mea"},
        {"\xd1\x81\xc3\xa9", "\xd1\x81\xc3\xa9"},
        {"\xe9", "\xe9"},
        {"one;two;", "one;two;"},
    };
    const TemporaryFolder folder;
    for (const auto& [text, written] : rows) {
        SCOPED_TRACE(written);
        EXPECT_EQ(sResXML(folder / "r.xml", record(1, text, "d")), 1);
        EXPECT_EQ(stampedBytesOf(folder / "r.xml"), document(element("1", written, "d")));
        EXPECT_EQ(sResXML(folder / "r.xml", Results{record(1, "c", text)}), 1);
        EXPECT_EQ(stampedBytesOf(folder / "r.xml"), document(element("1", "c", written)));
    }
}

TEST(SResXML, ReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.xml", std::string(5000, 'x'));
    EXPECT_EQ(sResXML(folder / "r.xml", record(1, "c", "d")), 1);
    EXPECT_EQ(stampedBytesOf(folder / "r.xml"), document(element("1", "c", "d")));
    EXPECT_EQ(sResXML(folder / "r.xml", Results{record(2, "e", "f")}), 1);
    EXPECT_EQ(stampedBytesOf(folder / "r.xml"), document(element("2", "e", "f")));
    EXPECT_EQ(namesIn(folder.path()), Names{"r.xml"});
}

TEST(SResXML, GivesZeroWhereTheFileCannotBeWritten)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_EQ(sResXML(path, record(1, "c", "d")), 0);
        EXPECT_EQ(sResXML(path, Results{record(1, "c", "d")}), 0);
    });
    EXPECT_EQ(sResXML("", record(1, "c", "d")), 0);
    EXPECT_EQ(sResXML("", Results{}), 0);
}

TEST(SResTXT, WritesOneLine)
{
    const TemporaryFolder folder;
    const std::string before = localNow();
    sResTXT(folder / "r.log", record(7, "Error opening file", "in/night.mea"));
    const std::string after = localNow();
    EXPECT_EQ(stampedBytesOf(folder / "r.log"), "STAMP Code=7//Error opening file//in/night.mea\n");
    const std::string stamp = bytesOf(folder / "r.log").substr(0, stampLength);
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, after);
}

TEST(SResTXT, EachSaveAddsALine)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.log", "old\n");
    sResTXT(folder / "r.log", record(0, "OK", "OK"));
    sResTXT(folder / "r.log", record(-2147483647 - 1, "c", "d"));
    EXPECT_EQ(stampedBytesOf(folder / "r.log"), "old\n"
                                                "STAMP Code=0//OK//OK\n"
                                                "STAMP Code=-2147483648//c//d\n");
}

TEST(SResTXT, NothingIsEscaped)
{
    const TemporaryFolder folder;
    sResTXT(folder / "r.log", record(1, "a//b", "<&>\"'\t\xe9"));
    sResTXT(folder / "r.log", record(2, "one\ntwo", "three\r\n"));
    sResTXT(folder / "r.log", record(3, "", ""));
    EXPECT_EQ(stampedBytesOf(folder / "r.log"), "STAMP Code=1//a//b//<&>\"'\t\xe9\n"
                                                "STAMP Code=2//one\n"
                                                "two//three\r\n"
                                                "\n"
                                                "STAMP Code=3////\n");
}

TEST(SResTXT, SeveralResultsBearOneStamp)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.log", "old\n");
    std::string expected = "old\n";
    Results results;
    for (int code = 0; code < 200; ++code) {
        results.push_back(record(code, "c", "d"));
        expected += "STAMP Code=" + std::to_string(code) + "//c//d\n";
    }
    sResTXT(folder / "r.log", results);
    EXPECT_EQ(stampedBytesOf(folder / "r.log"), expected);
    const std::vector<std::string> stamps = stampsOf(bytesOf(folder / "r.log"));
    ASSERT_EQ(stamps.size(), 200u);
    for (const std::string& stamp : stamps) {
        EXPECT_EQ(stamp, stamps.front());
    }
}

TEST(SResTXT, NoResultsWriteNothing)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.log", "old\n");
    sResTXT(folder / "r.log", Results{});
    EXPECT_EQ(bytesOf(folder / "r.log"), "old\n");
}

TEST(SResTXT, WhatCannotBeWrittenIsPassedOver)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_NO_THROW(sResTXT(path, record(1, "c", "d")));
        EXPECT_NO_THROW(sResTXT(path, Results{record(1, "c", "d")}));
    });
    EXPECT_NO_THROW(sResTXT("", record(1, "c", "d")));
    EXPECT_NO_THROW(sResTXT("", Results{}));
}

TEST(SaveLogCode, ExtensionChoosesTheForm)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a.xml");
    std::filesystem::create_directories(folder / "a.log");
    const std::string xml = document(element("7", "c", "d"));
    const std::string line = "STAMP Code=7//c//d\n";
    const std::pair<std::string, std::string> rows[] = {
        {"r.xml", xml},        {"r.result", xml},       {"r.log.xml", xml}, {".xml", xml},
        {".result", xml},      {"a.log/r.xml", xml},    {"r.XML", line},    {"r.RESULT", line},
        {"r.Result", line},    {"r.log", line},         {"r.txt", line},    {"r", line},
        {"r.xmlx", line},      {"r.xml.log", line},     {"r.xml ", line},   {"r.results", line},
        {"xml", line},         {"result", line},        {"r.", line},       {"a.xml/r", line},
        {"a.xml/r.log", line}, {"a.xml/r.result", xml},
    };
    for (const auto& [name, expected] : rows) {
        SCOPED_TRACE(name);
        SaveLogCode(folder / name, record(7, "c", "d"));
        EXPECT_EQ(stampedBytesOf(folder / name), expected);
        std::filesystem::remove(folder / name);
        SaveLogCode(folder / name, 7, "c", "d");
        EXPECT_EQ(stampedBytesOf(folder / name), expected);
        std::filesystem::remove(folder / name);
        SaveLogCode(folder / name, Results{record(7, "c", "d")});
        EXPECT_EQ(stampedBytesOf(folder / name), expected);
        std::filesystem::remove(folder / name);
    }
}

TEST(SaveLogCode, DocumentHoldsTheLastSaveOnly)
{
    const TemporaryFolder folder;
    SaveLogCode(folder / "r.result", record(1, "a", "b"));
    SaveLogCode(folder / "r.result", 2, "c", "d");
    EXPECT_EQ(stampedBytesOf(folder / "r.result"), document(element("2", "c", "d")));
    SaveLogCode(folder / "r.result", Results{record(3, "e", "f"), record(4, "g", "h")});
    EXPECT_EQ(stampedBytesOf(folder / "r.result"), document(element("3", "e", "f") + element("4", "g", "h")));
    SaveLogCode(folder / "r.result", record(5, "i", "j"));
    EXPECT_EQ(stampedBytesOf(folder / "r.result"), document(element("5", "i", "j")));
}

TEST(SaveLogCode, LogHoldsEverySave)
{
    const TemporaryFolder folder;
    SaveLogCode(folder / "r.log", record(1, "a", "b"));
    SaveLogCode(folder / "r.log", 2, "c", "d");
    SaveLogCode(folder / "r.log", Results{record(3, "e", "f"), record(4, "g", "h")});
    EXPECT_EQ(stampedBytesOf(folder / "r.log"), "STAMP Code=1//a//b\n"
                                                "STAMP Code=2//c//d\n"
                                                "STAMP Code=3//e//f\n"
                                                "STAMP Code=4//g//h\n");
}

TEST(SaveLogCode, MissingFolderIsPassedOver)
{
    const TemporaryFolder folder;
    for (const std::string name : {"missing/r.log", "missing/r.result", "missing/deep/r.xml"}) {
        SCOPED_TRACE(name);
        EXPECT_NO_THROW(SaveLogCode(folder / name, record(1, "c", "d")));
        EXPECT_NO_THROW(SaveLogCode(folder / name, 1, "c", "d"));
        EXPECT_NO_THROW(SaveLogCode(folder / name, Results{record(1, "c", "d")}));
    }
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(SaveLogCode, BareNameIsWrittenByTheFormOfSeveralResultsOnly)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    for (const std::string name : {"r.log", "r.xml", "r.result", "r"}) {
        SaveLogCode(name, record(1, "c", "d"));
        SaveLogCode(name, 1, "c", "d");
    }
    EXPECT_TRUE(namesIn(".").empty());
    SaveLogCode("r.log", Results{record(1, "c", "d")});
    SaveLogCode("r.result", Results{record(1, "c", "d")});
    EXPECT_EQ(namesIn("."), (Names{"r.log", "r.result"}));
    EXPECT_EQ(stampedBytesOf("r.log"), "STAMP Code=1//c//d\n");
    EXPECT_EQ(stampedBytesOf("r.result"), document(element("1", "c", "d")));
}

TEST(SaveLogCode, NameBelowThePresentFolderIsWritten)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    SaveLogCode("./r.log", record(1, "c", "d"));
    EXPECT_EQ(stampedBytesOf("r.log"), "STAMP Code=1//c//d\n");
}

TEST(SaveLogCode, NameBelowTheRootIsNotWritten)
{
    const std::string path = "/vomar_result_files_test.log";
    ASSERT_FALSE(exists(path));
    SaveLogCode(path, record(1, "c", "d"));
    SaveLogCode(path, 1, "c", "d");
    EXPECT_FALSE(exists(path));
}

TEST(SaveLogCode, EmptyPathDoesNothing)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    EXPECT_NO_THROW(SaveLogCode("", record(1, "c", "d")));
    EXPECT_NO_THROW(SaveLogCode("", 1, "c", "d"));
    EXPECT_NO_THROW(SaveLogCode("", Results{record(1, "c", "d")}));
    EXPECT_TRUE(namesIn(".").empty());
}

// The folder is looked for in either spelling, but the name is not translated at opening.
TEST(SaveLogCode, BackslashFindsTheFolderAndStaysInTheName)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    SaveLogCode(folder / "in\\r.log", record(1, "c", "d"));
    EXPECT_EQ(stampedBytesOf(folder / "in\\r.log"), "STAMP Code=1//c//d\n");
    EXPECT_TRUE(namesIn(folder / "in").empty());
    SaveLogCode(folder / "missing\\r.log", record(1, "c", "d"));
    EXPECT_FALSE(exists(folder / "missing\\r.log"));
}

TEST(SaveLogCode, WhatCannotBeWrittenIsPassedOver)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    std::filesystem::create_directory(folder / "in.xml");
    for (const std::string& path :
         {folder / "in", folder / "in.xml", folder / "in/", std::string("/dev/full")}) {
        SCOPED_TRACE(path);
        EXPECT_NO_THROW(SaveLogCode(path, record(1, "c", "d")));
        EXPECT_NO_THROW(SaveLogCode(path, 1, "c", "d"));
        EXPECT_NO_THROW(SaveLogCode(path, Results{record(1, "c", "d")}));
    }
    EXPECT_EQ(namesIn(folder.path()), (Names{"in", "in.xml"}));
    EXPECT_TRUE(namesIn(folder / "in").empty());
    EXPECT_TRUE(namesIn(folder / "in.xml").empty());
}

TEST(SaveLogCode, PrintsNothing)
{
    const TemporaryFolder folder;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    SaveLogCode(folder / "r.log", record(1, "c", "d"));
    SaveLogCode(folder / "r.xml", record(1, "c", "d"));
    SaveLogCode(folder / "missing/r.xml", record(1, "c", "d"));
    SaveLogCode(folder.path() + "/", Results{record(1, "c", "d")});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(LResXML, CommentAndDescriptionChangePlaces)
{
    const TemporaryFolder folder;
    sResXML(folder / "r.xml", record(7, "A", "B"));
    expectRead(lResXML(folder / "r.xml"), 7, "B", "A");
}

TEST(LResXML, GivesTextsBackAsTheyWere)
{
    const std::string texts[] = {
        "a<b>&\"'",     "&amp;",      "&#x41;",   "one\ntwo\n", "a\r\nb", "\ttab",
        "\x01\x1f\x7f", "  blanks  ", "\xd1\x81", "c:\\d",      "]]>",
    };
    const TemporaryFolder folder;
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        sResXML(folder / "r.xml", record(1, text, "d"));
        expectRead(lResXML(folder / "r.xml"), 1, "d", text);
        sResXML(folder / "r.xml", record(1, "c", text));
        expectRead(lResXML(folder / "r.xml"), 1, text, "c");
    }
}

// An element of blanks alone is one without a node when it is read, and so is an empty one.
TEST(LResXML, EmptyAndBlankTextsLeaveOK)
{
    const TemporaryFolder folder;
    for (const std::string text : {"", " ", "    "}) {
        SCOPED_TRACE(text.size());
        sResXML(folder / "r.xml", record(4, text, "d"));
        expectRead(lResXML(folder / "r.xml"), 4, "d", "OK");
        sResXML(folder / "r.xml", record(4, "c", text));
        expectRead(lResXML(folder / "r.xml"), 4, "OK", "c");
    }
}

TEST(LResXML, LastResultCountsKeyByKey)
{
    const TemporaryFolder folder;
    sResXML(folder / "r.xml", Results{record(1, "a", "b"), record(2, "", "c"), record(3, "d", "")});
    expectRead(lResXML(folder / "r.xml"), 3, "c", "d");
    makeFile(folder / "r.xml",
             "<ResultsList>"
             "<Result><Code>1</Code><Comment>a</Comment><Description>b</Description></Result>"
             "<Result><Comment>c</Comment></Result>"
             "<Other><Code>9</Code></Other>"
             "<Result><Code>x</Code></Result>"
             "<Result/>"
             "</ResultsList>");
    expectRead(lResXML(folder / "r.xml"), 0, "b", "c");
}

TEST(LResXML, TakesTheFirstElementWhateverItsName)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.xml",
             "<?xml version=\"1.0\"?><!-- a comment --><anything>"
             "<Result><Code>5</Code><Comment>a</Comment><Description>b</Description></Result>"
             "</anything>");
    expectRead(lResXML(folder / "r.xml"), 5, "b", "a");
    makeFile(folder / "r.xml", "<first/><ResultsList><Result><Code>5</Code></Result></ResultsList>");
    expectRead(lResXML(folder / "r.xml"), 0, "OK", "OK");
}

TEST(LResXML, DocumentWithoutResultIsOK)
{
    const TemporaryFolder folder;
    for (const std::string text :
         {"<ResultsList/>", "<ResultsList><result><Code>5</Code></result></ResultsList>",
          "<Result><Code>5</Code></Result>",
          "<ResultsList><a><Result><Code>5</Code></Result></a></ResultsList>"})
    {
        SCOPED_TRACE(text);
        makeFile(folder / "r.xml", text);
        expectRead(lResXML(folder / "r.xml"), 0, "OK", "OK");
    }
}

TEST(LResXML, MissingFileIsCodeMinus1)
{
    const TemporaryFolder folder;
    expectRead(lResXML(folder / "r.xml"), -1, "result file not found", folder / "r.xml");
    expectRead(lResXML(""), -1, "result file not found", "result file not found");
    EXPECT_FALSE(exists(folder / "r.xml"));
}

TEST(LResXML, FileThatCannotBeLoadedIsCode5)
{
    const TemporaryFolder folder;
    for (const std::string& text :
         {std::string(), std::string("text"), std::string("<?xml version=\"1.0\" ?>"),
          std::string("<ResultsList><Result>"),
          std::string("\x7f"
                      "ELF\0\x01\x02",
                      7)})
    {
        SCOPED_TRACE(text);
        makeFile(folder / "r.xml", text);
        expectRead(lResXML(folder / "r.xml"), 5, "Failed to read parameter", folder / "r.xml");
    }
    expectRead(lResXML(folder.path()), 5, "Failed to read parameter", folder.path());
}

// The document is one of UTF-8, and there this byte begins a letter that takes in the end tag after it.
TEST(LResXML, ByteOfAnotherEncodingAtTheEndOfATextBreaksTheDocument)
{
    const TemporaryFolder folder;
    sResXML(folder / "r.xml", record(1, "caf\xe9", "d"));
    expectRead(lResXML(folder / "r.xml"), 5, "Failed to read parameter", folder / "r.xml");
}

TEST(LArrResXML, GivesEveryResultWithItsTextsExchanged)
{
    const TemporaryFolder folder;
    sResXML(folder / "r.xml", Results{record(1, "a", "b"), record(-2, "c", "d"), record(1000, "e", "f")});
    const Results results = lArrResXML(folder / "r.xml");
    ASSERT_EQ(results.size(), 3u);
    expectRead(results[0], 1, "b", "a");
    expectRead(results[1], -2, "d", "c");
    expectRead(results[2], 1000, "f", "e");
}

TEST(LArrResXML, EachResultStartsFromOK)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.xml",
             "<ResultsList>"
             "<Result><Code>1</Code><Comment>a</Comment><Description>b</Description></Result>"
             "<Result><Comment>c</Comment></Result>"
             "<Other/>"
             "<Result><Description>d</Description></Result>"
             "<Result/>"
             "</ResultsList>");
    const Results results = lArrResXML(folder / "r.xml");
    ASSERT_EQ(results.size(), 4u);
    expectRead(results[0], 1, "b", "a");
    expectRead(results[1], 0, "OK", "c");
    expectRead(results[2], 0, "d", "OK");
    expectRead(results[3], 0, "OK", "OK");
}

TEST(LArrResXML, ListWithoutResultsIsEmpty)
{
    const TemporaryFolder folder;
    sResXML(folder / "r.xml", Results{});
    EXPECT_TRUE(lArrResXML(folder / "r.xml").empty());
}

TEST(LArrResXML, AnotherRootHasNoResults)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.xml", "<anything><Result><Code>5</Code></Result></anything>");
    EXPECT_TRUE(lArrResXML(folder / "r.xml").empty());
    makeFile(folder / "r.xml", "<Result><Code>5</Code></Result>");
    EXPECT_TRUE(lArrResXML(folder / "r.xml").empty());
}

TEST(LArrResXML, FindsItsListBehindAnotherElement)
{
    const TemporaryFolder folder;
    makeFile(folder / "r.xml", "<first/><ResultsList><Result><Code>5</Code></Result></ResultsList>");
    const Results results = lArrResXML(folder / "r.xml");
    ASSERT_EQ(results.size(), 1u);
    expectRead(results[0], 5, "OK", "OK");
}

TEST(LArrResXML, MissingFileIsOneResultOfCodeMinus1)
{
    const TemporaryFolder folder;
    const Results results = lArrResXML(folder / "r.xml");
    ASSERT_EQ(results.size(), 1u);
    expectRead(results[0], -1, "result file not found", folder / "r.xml");
}

TEST(LArrResXML, FileThatCannotBeLoadedIsOneResultOfCode7)
{
    const TemporaryFolder folder;
    for (const std::string text : {"", "text", "<?xml version=\"1.0\" ?>", "<ResultsList><Result>"}) {
        SCOPED_TRACE(text);
        makeFile(folder / "r.xml", text);
        const Results results = lArrResXML(folder / "r.xml");
        ASSERT_EQ(results.size(), 1u);
        expectRead(results[0], 7, "Error opening file", folder / "r.xml");
    }
    const Results results = lArrResXML(folder.path());
    ASSERT_EQ(results.size(), 1u);
    expectRead(results[0], 7, "Error opening file", folder.path());
}

TEST(Slog, AddsTheTextBehindAStamp)
{
    const TemporaryFolder folder;
    const std::string before = localNow();
    slog(folder / "a.log", "one");
    slog(folder / "a.log", "");
    slog(folder / "a.log", "two\nlines");
    slog(folder / "a.xml", "<no document>");
    const std::string after = localNow();
    EXPECT_EQ(stampedBytesOf(folder / "a.log"), "STAMP one\nSTAMP \nSTAMP two\nlines\n");
    EXPECT_EQ(stampedBytesOf(folder / "a.xml"), "STAMP <no document>\n");
    for (const std::string& stamp : stampsOf(bytesOf(folder / "a.log"))) {
        EXPECT_LE(before, stamp);
        EXPECT_LE(stamp, after);
    }
}

TEST(Slog, BareNameIsWritten)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    slog("a.log", "one");
    EXPECT_EQ(stampedBytesOf("a.log"), "STAMP one\n");
}

TEST(Slog, EmptyPathDoesNothing)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    EXPECT_NO_THROW(slog("", "one"));
    EXPECT_TRUE(namesIn(".").empty());
}

TEST(Slog, WhatCannotBeWrittenIsPassedOver)
{
    forUnwritablePaths([](const std::string& path) { EXPECT_NO_THROW(slog(path, "one")); });
}
