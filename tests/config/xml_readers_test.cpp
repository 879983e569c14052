#include "config/xml_document.h"

#include "support/child_process.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(GetText, TakesATextAsItStands)
{
    EXPECT_EQ(valueOf<std::string>("abc", "old"), "abc");
    EXPECT_EQ(valueOf<std::string>("  leading blanks", "old"), "  leading blanks");
    EXPECT_EQ(valueOf<std::string>("trailing blanks  ", "old"), "trailing blanks  ");
    EXPECT_EQ(valueOf<std::string>("a  b\t\nc", "old"), "a  b\t\nc");
    EXPECT_EQ(valueOf<std::string>("&lt;&gt;&amp;&quot;&apos;", "old"), "<>&\"'");
    EXPECT_EQ(valueOf<std::string>("&#x0A;&#x01;&#65;", "old"), "\n\x01"
                                                                "A");
    // The library drops the sign of an entity that it does not know.
    EXPECT_EQ(valueOf<std::string>("&unknown; a & b", "old"), "unknown; a  b");
    EXPECT_EQ(valueOf<std::string>("c:\\data\\", "old"), "c:\\data\\");
}

TEST(GetText, DoubleIsReadFromTheFront)
{
    const std::pair<std::string, double> rows[] = {
        {"0.5", 0.5},        {"-1e3", -1000.0}, {" +2.5", 2.5},    {"12abc", 12.0},     {"1,5", 1.0},
        {"0x10", 16.0},      {"abc", 0.0},      {"inf", infinity}, {"-inf", -infinity}, {"1e999", infinity},
        {"5000000000", 5e9}, {".", 0.0},        {"1e", 1.0},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(valueOf<double>(text, 7.0), expected) << text;
    }
    EXPECT_TRUE(std::isnan(valueOf<double>("nan", 7.0)));
    EXPECT_TRUE(std::signbit(valueOf<double>("-0.0", 7.0)));
}

struct IntegerRow
{
    const char* text;
    int asInt;
    short asShort;
    long asLong;
    unsigned long long asUnsigned;
};

// Every form goes through 32 bits, the wider ones with the sign.
const IntegerRow integerRows[] = {
    {"12", 12, 12, 12, 12},
    {"-7", -7, -7, -7, 18446744073709551609u},
    {" +3", 3, 3, 3, 3},
    {"12abc", 12, 12, 12, 12},
    {"3.9", 3, 3, 3, 3},
    {"1e3", 1, 1, 1, 1},
    {"0x10", 0, 0, 0, 0},
    {"010", 10, 10, 10, 10},
    {"abc", 0, 0, 0, 0},
    {"true", 0, 0, 0, 0},
    {"\n\t 5 ", 5, 5, 5, 5},
    {"32767", 32767, 32767, 32767, 32767},
    {"32768", 32768, -32768, 32768, 32768},
    {"40000", 40000, -25536, 40000, 40000},
    {"70000", 70000, 4464, 70000, 70000},
    {"-32769", -32769, 32767, -32769, 18446744073709518847u},
    {"2147483647", 2147483647, -1, 2147483647, 2147483647},
    {"2147483648", -2147483647 - 1, 0, -2147483648, 18446744071562067968u},
    {"3000000000", -1294967296, 24064, -1294967296, 18446744072414584320u},
    {"4294967295", -1, -1, -1, 18446744073709551615u},
    {"4294967296", 0, 0, 0, 0},
    {"5000000000", 705032704, -3584, 705032704, 705032704},
    {"9223372036854775807", -1, -1, -1, 18446744073709551615u},
    {"99999999999999999999", -1, -1, -1, 18446744073709551615u}, // the greatest long, cut
    {"-99999999999999999999", 0, 0, 0, 0},
};

TEST(GetText, IntegersAreCutTo32BitsAndShortTo16)
{
    for (const IntegerRow& row : integerRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(valueOf<int>(row.text, 77), row.asInt);
        EXPECT_EQ(valueOf<short>(row.text, short(77)), row.asShort);
        EXPECT_EQ(valueOf<long>(row.text, 77L), row.asLong);
        EXPECT_EQ(valueOf<unsigned long long>(row.text, 77ULL), row.asUnsigned);
    }
}

TEST(GetText, BoolIsTrueForExactlyTrue)
{
    EXPECT_TRUE(valueOf<bool>("true", false));
    EXPECT_TRUE(valueOf<bool>("true", true));
    for (const std::string text :
         {"TRUE", "True", " true", "true ", "1", "yes", "false", "tru", "truee", "true\n"})
    {
        EXPECT_FALSE(valueOf<bool>(text, true)) << text;
        EXPECT_FALSE(valueOf<bool>(text, false)) << text;
    }
}

TEST(GetText, MissingOrEmptyChildLeavesTheDefault)
{
    for (const std::string document :
         {"<R/>", "<R><k>1</k></R>", "<R><K/></R>", "<R><K></K></R>", "<R><K>   </K></R>",
          "<R><K>\r\n\t</K></R>", "<R>K</R>", "<R><a><K>1</K></a></R>", "<R K='1'/>", "<K>1</K>",
          "<R><K min='1' max='2' list='x'/></R>"})
    {
        SCOPED_TRACE(document);
        const Loaded file(document);
        ASSERT_TRUE(file.loads);
        std::string text = "kept";
        double number = 1.5;
        int integer = 2;
        short little = 3;
        long wide = 4;
        unsigned long long widest = 5;
        bool flag = true;
        GetText(file.root(), "K", text);
        GetText(file.root(), "K", number);
        GetText(file.root(), "K", integer);
        GetText(file.root(), "K", little);
        GetText(file.root(), "K", wide);
        GetText(file.root(), "K", widest);
        GetText(file.root(), "K", flag);
        EXPECT_EQ(text, "kept");
        EXPECT_EQ(number, 1.5);
        EXPECT_EQ(integer, 2);
        EXPECT_EQ(little, 3);
        EXPECT_EQ(wide, 4);
        EXPECT_EQ(widest, 5u);
        EXPECT_TRUE(flag);
    }
}

TEST(GetText, FirstChildOfTheNameCounts)
{
    const Loaded file("<R><a>1</a><K>2</K><K>3</K></R>");
    int value = 0;
    GetText(file.root(), "K", value);
    EXPECT_EQ(value, 2);
    const Loaded empty("<R><K/><K>3</K></R>");
    value = 9;
    GetText(empty.root(), "K", value);
    EXPECT_EQ(value, 9);
}

TEST(GetText, FirstNodeCountsWhateverItsKind)
{
    EXPECT_EQ(valueOf<std::string>("<!-- a comment -->text", "old"), " a comment ");
    EXPECT_EQ(valueOf<std::string>("<inner>x</inner>text", "old"), "inner");
    EXPECT_EQ(valueOf<std::string>("  <inner/>", "old"), "inner");
    EXPECT_EQ(valueOf<std::string>("text<inner/>more", "old"), "text");
    EXPECT_EQ(valueOf<std::string>("<![CDATA[ <a> & ]]>", "old"), " <a> & ");
    EXPECT_EQ(valueOf<std::string>("<?target data?>", "old"), "?target data?");
    EXPECT_EQ(valueOf<int>("<!--5-->6", 1), 5);
    EXPECT_EQ(valueOf<double>("<inner>5</inner>", 1.0), 0.0);
    EXPECT_TRUE(std::isnan(valueOf<double>("<nan/>", 1.0)));
    EXPECT_EQ(valueOf<int>("<![CDATA[42]]>", 1), 42);
    EXPECT_TRUE(valueOf<bool>("<true/>", false));
}

TEST(GetText, EmptyCdataIsANodeWithAnEmptyText)
{
    EXPECT_EQ(valueOf<std::string>("<![CDATA[]]>", "old"), "");
    EXPECT_EQ(valueOf<int>("<![CDATA[]]>", 5), 0);
    EXPECT_FALSE(valueOf<bool>("<![CDATA[]]>", true));
}

TEST(GetTextWithBounds, ReadsValueMinAndMax)
{
    const Loaded file("<R><K min='-1.5' max='70000'>12abc</K></R>");
    double value = 0, least = 0, most = 0;
    GetText(file.root(), "K", value, least, most);
    EXPECT_EQ(value, 12.0);
    EXPECT_EQ(least, -1.5);
    EXPECT_EQ(most, 70000.0);
    int integer = 0, leastInteger = 0, mostInteger = 0;
    GetText(file.root(), "K", integer, leastInteger, mostInteger);
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(leastInteger, -1);
    EXPECT_EQ(mostInteger, 70000);
    short little = 0, leastLittle = 0, mostLittle = 0;
    GetText(file.root(), "K", little, leastLittle, mostLittle);
    EXPECT_EQ(little, 12);
    EXPECT_EQ(leastLittle, -1);
    EXPECT_EQ(mostLittle, 4464); // 70000 cut to 16 bits
}

TEST(GetTextWithBounds, EachAttributeCountsOnlyWherePresent)
{
    struct Row
    {
        std::string attributes;
        int least, most;
    };
    for (const Row& row : {Row{"", 5, 6}, Row{"min='1'", 1, 6}, Row{"max='2'", 5, 2},
                           Row{"max='2' min='1'", 1, 2}, Row{"MIN='1' Max='2'", 5, 6}})
    {
        SCOPED_TRACE(row.attributes);
        const Loaded file("<R><K " + row.attributes + ">9</K></R>");
        ASSERT_TRUE(file.loads);
        double value = 4, least = 5, most = 6;
        GetText(file.root(), "K", value, least, most);
        EXPECT_EQ(value, 9.0);
        EXPECT_EQ(least, row.least);
        EXPECT_EQ(most, row.most);
        int integer = 4, leastInteger = 5, mostInteger = 6;
        GetText(file.root(), "K", integer, leastInteger, mostInteger);
        EXPECT_EQ(integer, 9);
        EXPECT_EQ(leastInteger, row.least);
        EXPECT_EQ(mostInteger, row.most);
        short little = 4, leastLittle = 5, mostLittle = 6;
        GetText(file.root(), "K", little, leastLittle, mostLittle);
        EXPECT_EQ(little, 9);
        EXPECT_EQ(leastLittle, row.least);
        EXPECT_EQ(mostLittle, row.most);
    }
}

TEST(GetTextWithBounds, ElementWithoutTextChangesNothing)
{
    for (const std::string document :
         {"<R/>", "<R><K min='1' max='2'/></R>", "<R><K min='1' max='2'> </K></R>"}) {
        SCOPED_TRACE(document);
        const Loaded file(document);
        ASSERT_TRUE(file.loads);
        double value = 4, least = 5, most = 6;
        GetText(file.root(), "K", value, least, most);
        EXPECT_EQ(value, 4.0);
        EXPECT_EQ(least, 5.0);
        EXPECT_EQ(most, 6.0);
        int integer = 4, leastInteger = 5, mostInteger = 6;
        GetText(file.root(), "K", integer, leastInteger, mostInteger);
        EXPECT_EQ(integer, 4);
        EXPECT_EQ(leastInteger, 5);
        EXPECT_EQ(mostInteger, 6);
        short little = 4, leastLittle = 5, mostLittle = 6;
        GetText(file.root(), "K", little, leastLittle, mostLittle);
        EXPECT_EQ(little, 4);
        EXPECT_EQ(leastLittle, 5);
        EXPECT_EQ(mostLittle, 6);
    }
}

TEST(GetTextWithBounds, NoBoundIsAppliedToTheValue)
{
    const Loaded file("<R><K min='1' max='2'>100</K></R>");
    int value = 0, least = 0, most = 0;
    GetText(file.root(), "K", value, least, most);
    EXPECT_EQ(value, 100);
}

TEST(GetTextWithList, ReadsTheTextAndTheAttribute)
{
    const Loaded file("<R><K list='a;b;'>70000x</K><L>text</L></R>");
    std::string text = "old", list = "kept";
    GetText(file.root(), "K", text, list);
    EXPECT_EQ(text, "70000x");
    EXPECT_EQ(list, "a;b;");
    short little = 1;
    list = "kept";
    GetText(file.root(), "K", little, list);
    EXPECT_EQ(little, 4464);
    EXPECT_EQ(list, "a;b;");
    list = "kept";
    GetText(file.root(), "L", text, list);
    EXPECT_EQ(text, "text");
    EXPECT_EQ(list, "kept");
    GetText(file.root(), "L", little, list);
    EXPECT_EQ(little, 0);
    EXPECT_EQ(list, "kept");
}

TEST(GetTextWithList, ElementWithoutTextChangesNothing)
{
    for (const std::string document : {"<R/>", "<R><K list='a'/></R>", "<R><K list='a'>  </K></R>"}) {
        SCOPED_TRACE(document);
        const Loaded file(document);
        ASSERT_TRUE(file.loads);
        std::string text = "old", list = "kept";
        GetText(file.root(), "K", text, list);
        EXPECT_EQ(text, "old");
        EXPECT_EQ(list, "kept");
        short little = 5;
        GetText(file.root(), "K", little, list);
        EXPECT_EQ(little, 5);
        EXPECT_EQ(list, "kept");
    }
}

TEST(GetAttr, ReadsAnAttributeWherePresent)
{
    const Loaded file("<R name='root'><K name='  a &lt; b' empty=''/><K name='second'/></R>");
    ASSERT_TRUE(file.loads);
    std::string value = "old";
    GetAttr(file.root(), "K", "name", value);
    EXPECT_EQ(value, "  a < b");
    GetAttr(file.root(), "K", "empty", value);
    EXPECT_EQ(value, "");
    value = "old";
    GetAttr(file.root(), "K", "Name", value);
    EXPECT_EQ(value, "old");
    GetAttr(file.root(), "missing", "name", value);
    EXPECT_EQ(value, "old");
    GetAttr(file.root(), "R", "name", value);
    EXPECT_EQ(value, "old");
}

TEST(GetAttrMinMax, ReadsEachWherePresentAndNeedsNoText)
{
    const Loaded file(
        "<R><both min='-1.5' max='70000.5'/><least min='3'>9</least><most max='4'/><none/></R>");
    ASSERT_TRUE(file.loads);
    struct Row
    {
        std::string key;
        double least, most;
        int leastInteger, mostInteger;
        short leastLittle, mostLittle;
    };
    const Row rows[] = {
        {"both", -1.5, 70000.5, -1, 70000, -1, 4464},
        {"least", 3, 6, 3, 6, 3, 6},
        {"most", 5, 4, 5, 4, 5, 4},
        {"none", 5, 6, 5, 6, 5, 6},
        {"missing", 5, 6, 5, 6, 5, 6},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        double least = 5, most = 6;
        GetAttrMinMax(file.root(), row.key, least, most);
        EXPECT_EQ(least, row.least);
        EXPECT_EQ(most, row.most);
        int leastInteger = 5, mostInteger = 6;
        GetAttrMinMax(file.root(), row.key, leastInteger, mostInteger);
        EXPECT_EQ(leastInteger, row.leastInteger);
        EXPECT_EQ(mostInteger, row.mostInteger);
        short leastLittle = 5, mostLittle = 6;
        GetAttrMinMax(file.root(), row.key, leastLittle, mostLittle);
        EXPECT_EQ(leastLittle, row.leastLittle);
        EXPECT_EQ(mostLittle, row.mostLittle);
    }
}

TEST(GetAttrMinMax, NumbersAreReadAsThoseOfTexts)
{
    for (const IntegerRow& row : integerRows) {
        SCOPED_TRACE(row.text);
        const std::string text = row.text;
        const Loaded file("<R><K min='" + text + "' max='" + text + "'>1</K></R>");
        ASSERT_TRUE(file.loads);
        int least = 77, most = 77;
        GetAttrMinMax(file.root(), "K", least, most);
        EXPECT_EQ(least, row.asInt);
        EXPECT_EQ(most, row.asInt);
        short leastLittle = 77, mostLittle = 77;
        GetAttrMinMax(file.root(), "K", leastLittle, mostLittle);
        EXPECT_EQ(leastLittle, row.asShort);
        EXPECT_EQ(mostLittle, row.asShort);
    }
    const Loaded file("<R><K min='1.5x' max='abc'/></R>");
    double least = 5, most = 6;
    GetAttrMinMax(file.root(), "K", least, most);
    EXPECT_EQ(least, 1.5);
    EXPECT_EQ(most, 0.0);
}

TEST(GetList, AppendsTheItemsInTheirOrder)
{
    const Loaded file("<R><paths><path>one</path><other/><path> two </path><path>three<x/></path></paths>"
                      "<paths><path>of a second list</path></paths></R>");
    ASSERT_TRUE(file.loads);
    Texts items{"old"};
    GetList(file.root(), "path", "paths", items);
    EXPECT_EQ(items, (Texts{"old", "one", " two ", "three"}));
}

TEST(GetList, FirstNodeOfAnItemCountsWhateverItsKind)
{
    const Loaded file("<R><L><i><![CDATA[]]></i><i><!--c-->x</i><i><e/></i><i><![CDATA[<]]></i></L></R>");
    ASSERT_TRUE(file.loads);
    Texts items;
    GetList(file.root(), "i", "L", items);
    EXPECT_EQ(items, (Texts{"", "c", "e", "<"}));
}

TEST(GetList, MissingOrEmptyListLeavesTheTarget)
{
    const Loaded file("<R><empty/><blank>  </blank><texts>path</texts><others><a>1</a><b/></others>"
                      "<deep><x><path>1</path></x></deep></R>");
    ASSERT_TRUE(file.loads);
    for (const std::string list : {"missing", "empty", "blank", "texts", "others", "deep", ""}) {
        SCOPED_TRACE(list);
        Texts items{"old"};
        GetList(file.root(), "path", list, items);
        EXPECT_EQ(items, Texts{"old"});
    }
}

TEST(GetList, WalkStaysOnAnItemWithoutANode)
{
    for (const std::string items : {"<i>one</i><i/>", "<i>one</i><i>  </i><i>three</i>"}) {
        SCOPED_TRACE(items);
        const Loaded file("<R><L>" + items + "</L></R>");
        ASSERT_TRUE(file.loads);
        const ChildEnd end = runInChild(
            [&file] {
                Texts target;
                GetList(file.root(), "i", "L", target);
            },
            endlessAfter);
        EXPECT_TRUE(end.timedOut) << end.output;
    }
}

TEST(StayForever, NeverReturns)
{
    EXPECT_TRUE(runInChild([] { stayForever(); }, endlessAfter).timedOut);
}

TEST(GetTXT, TellsWhetherThereIsANode)
{
    struct Row
    {
        std::string inner, text;
        bool found;
    };
    const Row rows[] = {
        {"<K>text</K>", "text", true},
        {"<K>  text </K>", "  text ", true},
        {"<K><![CDATA[]]></K>", "", true},
        {"<K><e/>text</K>", "e", true},
        {"<K><!--c--></K>", "c", true},
        {"<K/>", "", false},
        {"<K></K>", "", false},
        {"<K> </K>", "", false},
        {"", "", false},
        {"<k>text</k>", "", false},
        {"<a><K>text</K></a>", "", false},
        {"<K/><K>text</K>", "", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.inner);
        const Loaded file("<R>" + row.inner + "</R>");
        ASSERT_TRUE(file.loads);
        for (const bool preset : {false, true}) {
            bool found = preset;
            EXPECT_EQ(GetTXT(file.root(), "K", found), row.text);
            EXPECT_EQ(found, row.found);
        }
    }
}
