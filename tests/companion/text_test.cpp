#include "out/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace companion;

TEST(Text, WellFormedUtf8)
{
    for (const std::string text : {"", "night", "Übung", "\xe0\xa4\x85", "\xe2\x82\xac", "\xed\x9f\xbf",
                                   "\xf0\x90\x80\x80", "\xf0\x9f\x9a\x80", "\xf4\x8f\xbf\xbf"})
    {
        EXPECT_TRUE(isUtf8(text)) << text;
    }
}

TEST(Text, BytesThatAreNotUtf8)
{
    for (const std::string text :
         {"\xe9", "a\xc0\xaf", "\xc1\x81", "\xe0\x80\x80", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf",
          "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xe2\x82", "\x80", "\xff"})
    {
        EXPECT_FALSE(isUtf8(text)) << printable(text);
    }
}

TEST(Text, ControlCharactersAndForeignBytesAreShownByTheirNumbers)
{
    EXPECT_EQ(printable("Ü\xe9\n\t\x1b[31m\x7f"), "Ü\\xE9\\x0A\\x09\\x1B[31m\\x7F");
    EXPECT_EQ(printable(std::string("a\0b", 3)), "a\\x00b");
}

TEST(Text, BytesInBase16)
{
    EXPECT_EQ(hexadecimal("A\xe9\n"), "41e90a");
}

TEST(Text, FindingWithAPlace)
{
    const Finding found = finding("V005", {{"file", "night.mea"}}).in("night.xml").at(12, 5);
    EXPECT_EQ(findingLine(found), "night.xml:12:5: error: night.mea is the input itself [V005]");
}

TEST(Text, FindingWithoutAPlace)
{
    EXPECT_EQ(findingLine(finding("V005", {{"file", "a"}}).in("b")),
              "b: error: a is the input itself [V005]");
    EXPECT_EQ(findingLine(finding("V005", {{"file", "a"}})), "error: a is the input itself [V005]");
}

TEST(Text, OnlyTheSeverityIsColored)
{
    EXPECT_EQ(findingLine(finding("V005", {{"file", "a"}}).in("b"), true),
              "b: \x1b[1;31merror\x1b[0m: a is the input itself [V005]");
    EXPECT_EQ(findingLine(finding("V423", {{"what", "the time"}, {"marks", "1 mark"}}), true).substr(0, 17),
              "\x1b[1;36mnote\x1b[0m: ");
    EXPECT_EQ(findingLine(finding("V021", {{"key", "a"}}), true),
              "\x1b[1;35mwarning\x1b[0m: key \"a\" occurs twice [V021]");
}

TEST(Text, PlaceOfAMark)
{
    EXPECT_EQ(markPlaceText({2, "ptf", 0, "Z6433", 1, "2010-11-06T04:30:13.824"}),
              "series 2 ptf, track 0 Z6433, mark 1, 2010-11-06T04:30:13.824");
    EXPECT_EQ(markPlaceText({0, "", 3, "", 0, ""}), "track 3, mark 0");
    EXPECT_EQ(markPlaceText({0, "", -1, "Z6433", 1, ""}), "Z6433, mark 1");
    EXPECT_EQ(markPlaceText({}), "");
}

TEST(Text, LinesAreWrappedBetweenWords)
{
    const std::string forty(40, 'a');
    EXPECT_EQ(wrapped("  key:", forty + " b " + forty, 2), "  key: " + forty + " b\n  " + forty + "\n");
    const std::string hundred(100, 'a');
    EXPECT_EQ(wrapped("", hundred + " b", 0), hundred + "\nb\n"); // a word is never broken
}

TEST(Text, QuietConsolesShowErrorsAlone)
{
    std::ostringstream out;
    std::ostringstream err;
    Console console{out, err};
    console.look.quiet = true;
    showFinding(console, finding("V013"));
    showFinding(console, finding("V030"));
    EXPECT_EQ(out.str().substr(0, 7), "error: ");
    EXPECT_EQ(out.str().find("V030"), std::string::npos);
    EXPECT_EQ(err.str(), "");
}

TEST(Text, NoMoreThanThreePlacesAreShown)
{
    Finding found = finding("V030").in("t.xml");
    for (int mark = 0; mark < 5; ++mark) {
        FindingPlace place;
        place.mark = {1, "", 0, "A", mark, ""};
        found.places.push_back(place);
    }
    std::ostringstream out;
    std::ostringstream err;
    showFinding({out, err}, found);
    const std::string text = out.str();
    EXPECT_NE(text.find("    series 1, track 0 A, mark 2\n"), std::string::npos);
    EXPECT_EQ(text.find("mark 3"), std::string::npos);
}

TEST(Text, MomentCarriesIntoTheNextMinuteAndDay)
{
    EXPECT_EQ(momentText(55506.1876600), "2010-11-06T04:30:13.824");
    EXPECT_EQ(momentText(60000.0 + 13.0 / 24 + 9.0 / 1440 + 59.9999 / 86400), "2023-02-25T13:10:00.000");
    EXPECT_EQ(momentText(60000.9999999999), "2023-02-26T00:00:00.000");
}

TEST(Text, MomentOfNoDayIsEmpty)
{
    EXPECT_EQ(momentText(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(momentText(1e300), "");
    EXPECT_EQ(momentText(-1e9), "");
}

TEST(Text, NearestWordIsTheOneWithTheFewestChanges)
{
    const std::vector<std::string> known{"check", "run", "explain", "schema"};
    EXPECT_EQ(nearestWord("chek", known), "check");
    EXPECT_EQ(nearestWord("CHECK", known), "check");
    EXPECT_EQ(nearestWord("shcema", known), "schema");
    EXPECT_EQ(nearestWord("rn", known), "run");
}

TEST(Text, WordThatIsFarFromAllHasNoNearest)
{
    const std::vector<std::string> known{"check", "run"};
    EXPECT_EQ(nearestWord("banana", known), "");
    EXPECT_EQ(nearestWord("", known), "");
}

TEST(Findings, NumbersGetTheirNoun)
{
    EXPECT_EQ(counted(1, "mark"), "1 mark");
    EXPECT_EQ(counted(0, "mark"), "0 marks");
    EXPECT_EQ(counted(1000, "mark"), "1,000 marks");
    EXPECT_EQ(counted(1234567), "1,234,567");
}

TEST(Findings, TextTakesItsValuesByName)
{
    EXPECT_THROW(finding("V005"), std::logic_error);
    EXPECT_THROW(finding("V999"), std::logic_error);
}

TEST(Findings, CodesAreAVAndThreeDigits)
{
    EXPECT_EQ(FindingCode::of("V240")->text(), "V240");
    for (const char* text : {"", "V", "V24", "V2400", "240", "v240", "V24x"}) {
        EXPECT_FALSE(FindingCode::of(text)) << text;
    }
}

TEST(Findings, OrderIsByFileAndPlaceAndThenByCode)
{
    std::vector<Finding> findings;
    findings.push_back(finding("V013").in("b").at(1, 1));
    findings.push_back(finding("V244", {{"objects", "2"}, {"names", "a"}}).in("t"));
    findings.push_back(finding("V030").in("t"));
    findings.push_back(finding("V013").in("t").at(12, 5));
    findings.push_back(finding("V013").in("a").at(1, 1));
    findings.push_back(finding("V013").in("t").at(2, 7));
    findings.push_back(finding("V013").in("t").at(2, 5));
    sortFindings(findings, "t");
    std::string order;
    for (const Finding& each : findings) {
        order += each.file + ' ' + std::to_string(each.line) + ':' + std::to_string(each.column) + ' ' +
                 each.code.text() + ", ";
    }
    EXPECT_EQ(order, "t 2:5 V013, t 2:7 V013, t 12:5 V013, t 0:0 V030, t 0:0 V244, b 1:1 V013, a 1:1 V013, ");
}

TEST(Findings, TotalsCountSeverities)
{
    FindingTotals totals;
    totals.add(finding("V013"));
    totals.add(finding("V030"));
    totals.add(finding("V030"));
    EXPECT_EQ(totalsText(totals), "1 error, 2 warnings, 0 notes");
}

} // namespace
