#include "reading/lint.h"

#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

using companion::FileAccount;
using companion::Finding;
using companion::LintSettings;
using testing::ElementsAre;
using testing::IsEmpty;

struct Linted
{
    FileAccount account;
    std::vector<std::string> findings{}; // "4:38 V120 the text"
    std::vector<Finding> whole{};
};

std::string shown(const Finding& found)
{
    return std::to_string(found.line) + ':' + std::to_string(found.column) + ' ' + found.code.text();
}

Linted linted(const std::string& format, const std::string& bytes, const LintSettings& settings = {})
{
    const TemporaryFolder folder;
    std::ofstream(folder / "file", std::ios::binary) << bytes;
    Linted result;
    result.account = companion::lintFile(folder / "file", format, settings, [&result](Finding found) {
        result.findings.push_back(shown(found));
        result.whole.push_back(std::move(found));
    });
    EXPECT_TRUE(result.account.agrees());
    return result;
}

const std::string site = "K88 2000.0 UTC\n";
const std::string mark = "12345   250223 1200000000 0100000000 +205301234 001 09.50\n";

TEST(LintLines, NothingIsWrongWithAGoodMeaFile)
{
    const Linted result = linted("mea", site + mark);
    EXPECT_THAT(result.findings, IsEmpty());
    EXPECT_EQ(result.account.lines, 2U);
    EXPECT_EQ(result.account.marks, 1U);
    EXPECT_EQ(result.account.tracks, 1U);
}

TEST(LintLines, FindingsNameLineColumnFieldAndValue)
{
    const Linted result =
        linted("mea", site + mark + "12345   250223 1200010000 0100000000 1205301234 001 09.50\n");
    ASSERT_THAT(result.findings, ElementsAre("3:38 V120"));
    const companion::FindingPlace& place = result.whole[0].places.at(0);
    EXPECT_EQ(place.length, 10U);
    EXPECT_EQ(place.field, "DE");
    EXPECT_EQ(place.value, "1205301234");
    EXPECT_EQ(place.snippet, "12345   250223 1200010000 0100000000 1205301234 001 09.50");
}

TEST(LintLines, LinesThatTheMeaReaderSkipsOrRefuses)
{
    EXPECT_THAT(linted("mea", site + "a b c\n" + mark).findings, ElementsAre("2:1 V150"));
    EXPECT_THAT(linted("mea", mark + mark).findings, ElementsAre("1:1 V151"));
    const std::string spoilt = "A  081121 0506103970 1825397714 6952124248 001 13,50\n"; // no sign, a comma
    EXPECT_THAT(linted("mea", spoilt + mark).findings, ElementsAre("1:1 V151"));
    EXPECT_THAT(linted("mea", site + "12345 250 1200000000 0100000000 +205301234 001 09.50\n").findings,
                ElementsAre("2:7 V061"));
    EXPECT_THAT(linted("mea", site + "12345 250223 1200000000 0100000000 +20530 001 09.50\n").findings,
                ElementsAre("2:36 V061"));
}

TEST(LintLines, FieldsThatAPersonReadsOtherwise)
{
    const auto of = [](const std::string& fields) { return linted("mea", site + "a " + fields).findings; };
    EXPECT_THAT(of("251323 120000 010000 +200000 1 9.5\n"), ElementsAre("2:3 V126"));
    EXPECT_THAT(of("310223 120000 010000 +200000 1 9.5\n"), ElementsAre("2:3 V127"));
    EXPECT_THAT(of("010199 120000 010000 +200000 1 9.5\n"), ElementsAre("2:3 V133"));
    EXPECT_THAT(of("250223 126000 010000 +200000 1 9.5\n"), ElementsAre("2:10 V128"));
    EXPECT_THAT(of("250223 12000o 010000 +200000 1 9.5\n"), ElementsAre("2:10 V123"));
    EXPECT_THAT(of("250223 120000 010000 +910000 1 9.5\n"), ElementsAre("2:24 V121"));
    EXPECT_THAT(of("250223 120000 010000 +200000 1 9,5\n"), ElementsAre("2:34 V124"));
    EXPECT_THAT(of("250223 120000 010000 +200000 1 nan\n"), ElementsAre("2:34 V125"));
    EXPECT_THAT(of("250223 120000 010000 +200000 1 faint\n"), ElementsAre("2:34 V122"));
    EXPECT_THAT(of("250223 120000 010000 +200000 1 0.0\n"), ElementsAre("2:34 V130"));
}

TEST(LintLines, MarksOfOneTimeAndMarksOutOfOrder)
{
    const std::string earlier = "12345   250223 1100000000 0100000000 +205301234 001 09.50\n";
    EXPECT_THAT(linted("mea", site + mark + mark).findings, ElementsAre("2:16 V131", "3:16 V131"));
    EXPECT_THAT(linted("mea", site + mark + earlier).findings, ElementsAre("3:16 V132"));
    const std::string earliest = "12345   250223 1000000000 0100000000 +205301234 001 09.50\n";
    EXPECT_THAT(linted("mea", site + mark + earlier + earliest).findings, ElementsAre("3:16 V132")); // once
    const std::string none = "12345   251323 1000000000 0100000000 +205301234 001 09.50\n";
    EXPECT_THAT(linted("mea", site + mark + earlier + none).findings, ElementsAre("3:16 V132", "4:9 V126"));
}

TEST(LintLines, CheckTakesOverItsOwnCodesAlone)
{
    LintSettings settings;
    settings.forCheck = true;
    const std::string spoilt = "12345   010199 1100000000 0100000000 1205301234 001 09.50";
    EXPECT_THAT(linted("mea", site + spoilt, settings).findings, ElementsAre("2:38 V120"));
}

TEST(LintLines, BytesOfLines)
{
    EXPECT_THAT(linted("mea", "\xEF\xBB\xBF" + site + mark).findings, ElementsAre("1:1 V100"));
    EXPECT_THAT(linted("mea", std::string("\xFF\xFE"
                                          "1\0 \0"
                                          "2\0\n\0",
                                          10))
                    .findings,
                ElementsAre("1:1 V101"));
    EXPECT_THAT(linted("mea", "K88 2000.0 UTC\r12345\r").findings, ElementsAre("1:15 V102"));
    EXPECT_THAT(linted("mea", "K\x01 2000.0 UTC\n" + mark).findings, ElementsAre("1:2 V103"));
    EXPECT_THAT(linted("mea", "K\x7F 2000.0 UTC\n" + mark).findings, ElementsAre("1:2 V103"));
    EXPECT_THAT(linted("mea", "K\xC3\xA9 2000.0 UTC\n" + mark).findings, ElementsAre("1:2 V104"));
    EXPECT_THAT(linted("mea", site + mark + "12345\t250223 1 1 1 1 1\n").findings,
                ElementsAre("3:6 V105", "3:1 V150"));
    EXPECT_THAT(linted("mea", "K88 2000.0 UTC\r\n" + mark + "\n").findings, ElementsAre("2:0 V106"));
    EXPECT_THAT(linted("mea", site + mark.substr(0, mark.size() - 1)).findings, ElementsAre("2:0 V106"));
}

TEST(LintLines, BlocksOfATelegram)
{
    const std::string head = "obs T1 12345\n";
    const std::string one = "250223 12000000 01000000 -00300000 001095\n";
    const std::string two = "250223 12000100 01000000 -00300000 001095\n";
    const auto of = [](const std::string& bytes) { return linted("telegram", bytes).findings; };
    EXPECT_THAT(of(head + one + two + "END\n\n"), IsEmpty());
    EXPECT_THAT(of(head + one + "END\n" + head + one + two), ElementsAre("4:1 V160"));
    EXPECT_THAT(of(head + one + head + two + "END\n"), ElementsAre("3:1 V161"));
    EXPECT_THAT(of(head + one + "STOP\n"), ElementsAre("3:1 V162"));
    EXPECT_THAT(of(head + one + "END \n" + head + two + "END\n"), ElementsAre("3:1 V163", "4:1 V161"));
    EXPECT_THAT(of(one + head + two + "END\n"), ElementsAre("1:1 V164"));
    EXPECT_THAT(of("obs T1 NGC 1\n" + one + "END\n"), ElementsAre("1:1 V165", "2:1 V164", "3:1 V168"));
    EXPECT_THAT(of(head + " " + one + two + "END\n"), ElementsAre("2:1 V166"));
    EXPECT_THAT(of(head + "250223 12000000 01000000 -00300000 0010-12\n" + "END\n"),
                ElementsAre("2:36 V167"));
    EXPECT_THAT(of("END\n"), ElementsAre("1:1 V168"));
    EXPECT_THAT(of(head + "250223 1200 01000000 -00300000 001095\nEND\n"),
                ElementsAre("2:8 V061", "3:1 V168"));
    EXPECT_THAT(of(head + "250223 12000000 01000000 -00300000 10\nEND\n"),
                ElementsAre("2:36 V061", "3:1 V168"));
    EXPECT_THAT(of(head + "250223 12000000 01000000 -00300000 001inf\nEND\n"), ElementsAre("2:36 V125"));
    EXPECT_THAT(of(head + one + one + "END\n" + head + one), ElementsAre("2:8 V131", "3:8 V131", "5:1 V160"));
}

TEST(LintLines, LinesOfATrackTable)
{
    const std::string header =
        "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float\n";
    const std::string one = "A1\t2023-02-25\t12:00:00.0\t15.0\t-0.5\t9.5\n";
    const auto of = [](const std::string& bytes) { return linted("table", bytes).findings; };
    EXPECT_THAT(of(header + one + "---\n"), IsEmpty());
    EXPECT_THAT(of(header + one + "---\n" + one), ElementsAre("5:1 V201"));
    EXPECT_THAT(of(header + one), ElementsAre("2:0 V202"));
    EXPECT_THAT(of("date\ttime\tRA\n2023-02-25\t12:00:00\t1.5\n---\n"), ElementsAre("1:0 V203"));
    EXPECT_THAT(of(header + "A1\t2023-02-25\t12:00:00.0\t15.0\t-0.5\n---\n"), ElementsAre("3:1 V204"));
    EXPECT_THAT(of(header + one + "\n---\n"), ElementsAre("4:0 V205"));
    EXPECT_THAT(of(header + one + "--- \n---\n"), ElementsAre("4:1 V206"));
    EXPECT_THAT(of("date time RA DE\n2023-02-25 12:00:00 1 2\n---\n"), ElementsAre("1:1 V207"));
    EXPECT_THAT(of("date\ttime\tRA\tDE\tcolour\n2023-02-25\t12:00:00\t1\t2\t3\n---\n"),
                ElementsAre("1:1 V208"));
    EXPECT_THAT(of("date\ttime\tRA\tDE\tRA\n2023-02-25\t12:00:00\t1\t2\t3\n---\n"), ElementsAre("1:1 V209"));
    EXPECT_THAT(of(header + "---\n" + one + "---\n"), ElementsAre("3:1 V210"));
    EXPECT_THAT(of(header + "A1\t25.02.2023\t12:00\t-15.0\t-90.5\t9,5\n---\n"),
                ElementsAre("3:4 V126", "3:21 V129", "3:27 V121", "3:33 V124"));
}

TEST(LintLines, OnlyTheNamedColumnsOfATableAreLookedAt)
{
    LintSettings settings;
    settings.columns = "date time RA";
    const std::string bytes = "date\ttime\tRA\tDE\tm\n2023-02-25\t12:00:00\tx\ty\tz\n---\n";
    EXPECT_THAT(linted("table", bytes, settings).findings, ElementsAre("2:21 V122"));
    EXPECT_THAT(linted("table", bytes).findings, ElementsAre("2:21 V122", "2:23 V122", "2:25 V122"));
}

} // namespace
