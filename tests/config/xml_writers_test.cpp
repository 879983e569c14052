#include "config/xml_document.h"

#include "support/temporary_folder.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <utility>

using namespace tavelinUtils;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The printed form of an element that the caller owns, which must have no parent and one text node.
std::string printedText(TiXmlElement* made)
{
    const std::unique_ptr<TiXmlElement> element(made);
    EXPECT_EQ(element->Parent(), nullptr);
    const TiXmlNode* node = element->FirstChild();
    if (node == nullptr || node->ToText() == nullptr) {
        ADD_FAILURE() << "no text node";
        return {};
    }
    EXPECT_FALSE(node->ToText()->CDATA());
    EXPECT_EQ(node->NextSibling(), nullptr);
    return printed(*element);
}

// The greatest double in fixed notation.
const std::string greatestDouble =
    "17976931348623157081452742373170435679807056752584499659891747680315726078002853876058955863276687817154"
    "0458953"
    "51438246423432132688946418276846754670353751698604991057655128207624549009038932894407586850845513394230"
    "4583236"
    "903222948165808559332123348274797826204144723168738177180919299881250404026184124858368.000000";

} // namespace

TEST(SetTextNode, HoldsATextAsItStands)
{
    EXPECT_EQ(printedText(setTextNode("K", std::string("text"), "")), "<K>text</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", std::string(), "")), "<K></K>\n");
    EXPECT_EQ(printedText(setTextNode("K", std::string("  a  "), "")), "<K>  a  </K>\n");
    EXPECT_EQ(printedText(setTextNode("K", std::string("<a>&\"'\n\x01"), "")),
              "<K>&lt;a&gt;&amp;&quot;&apos;&#x0A;&#x01;</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", std::string("\xd1\x81\xe9"), "")), "<K>\xd1\x81\xe9</K>\n");
}

// A literal is a pointer, which would sooner turn into a bool than into a string.
TEST(SetTextNode, LiteralIsATextAndNoBool)
{
    EXPECT_EQ(printedText(setTextNode("K", "text", "")), "<K>text</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", "", "")), "<K></K>\n");
    EXPECT_EQ(printedText(setTextNode("K", "false", "")), "<K>false</K>\n");
    const char* text = "pointer";
    EXPECT_EQ(printedText(setTextNode("K", text, "")), "<K>pointer</K>\n");
    char letters[] = "letters";
    EXPECT_EQ(printedText(setTextNode("K", letters, "")), "<K>letters</K>\n");
}

TEST(SetTextNode, BoolIsAWord)
{
    EXPECT_EQ(printedText(setTextNode("K", true, "")), "<K>true</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", false, "")), "<K>false</K>\n");
}

TEST(SetTextNode, IntegersAreDecimal)
{
    EXPECT_EQ(printedText(setTextNode("K", 0, "")), "<K>0</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", -1, "")), "<K>-1</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 2147483647, "")), "<K>2147483647</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", -2147483647 - 1, "")), "<K>-2147483648</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 0ul, "")), "<K>0</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 18446744073709551615ul, "")), "<K>18446744073709551615</K>\n");
}

TEST(SetTextNode, DoubleHasSixDecimalsAndNoExponent)
{
    const std::pair<double, std::string> rows[] = {
        {0.5, "0.500000"},
        {0.0, "0.000000"},
        {-0.0, "-0.000000"},
        {-12.3456789, "-12.345679"},
        {0.0000004, "0.000000"},
        {-0.0000004, "-0.000000"},
        {0.9999996, "1.000000"},
        {1e20, "100000000000000000000.000000"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan"},
        {std::numeric_limits<double>::max(), greatestDouble},
        {-std::numeric_limits<double>::max(), "-" + greatestDouble},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(printedText(setTextNode("K", value, "")), "<K>" + text + "</K>\n");
    }
}

TEST(SetTextNode, CommentBecomesAnAttribute)
{
    EXPECT_EQ(printedText(setTextNode("K", std::string("v"), "why")), "<K comment=\"why\">v</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", "v", "why")), "<K comment=\"why\">v</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", true, "why")), "<K comment=\"why\">true</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 1, "why")), "<K comment=\"why\">1</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 0.5, "why")), "<K comment=\"why\">0.500000</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 1ul, "why")), "<K comment=\"why\">1</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 1, " ")), "<K comment=\" \">1</K>\n");
    EXPECT_EQ(printedText(setTextNode("K", 1, "a<&>'")), "<K comment=\"a&lt;&amp;&gt;&apos;\">1</K>\n");
}

TEST(SetTextNode, EmptyCommentMakesNoAttribute)
{
    for (TiXmlElement* made :
         {setTextNode("K", std::string("v"), ""), setTextNode("K", "v", ""), setTextNode("K", true, ""),
          setTextNode("K", 1, ""), setTextNode("K", 0.5, ""), setTextNode("K", 1ul, "")})
    {
        const std::unique_ptr<TiXmlElement> element(made);
        EXPECT_EQ(element->FirstAttribute(), nullptr);
    }
}

TEST(WriteRecord, LinksAnElementToTheEndOfItsParent)
{
    auto parent = std::make_unique<TiXmlElement>("R");
    TiXmlElement* root = parent.get();
    writeRecord(root, "text", std::string("a<b"), "");
    writeRecord(root, "literal", "text", "");
    writeRecord(root, "literal", "", "c");
    writeRecord(root, "bool", true, "");
    writeRecord(root, "bool", false, "");
    writeRecord(root, "int", -5, "");
    writeRecord(root, "double", 0.5, "");
    writeRecord(root, "text", std::string(), "why");
    writeRecord(root, "bool", true, "why");
    writeRecord(root, "int", 2147483647, "why");
    writeRecord(root, "double", -1e20, "why");
    EXPECT_EQ(root, parent.get());
    EXPECT_EQ(printed(*root), "<R>\n"
                              "    <text>a&lt;b</text>\n"
                              "    <literal>text</literal>\n"
                              "    <literal comment=\"c\"></literal>\n"
                              "    <bool>true</bool>\n"
                              "    <bool>false</bool>\n"
                              "    <int>-5</int>\n"
                              "    <double>0.500000</double>\n"
                              "    <text comment=\"why\"></text>\n"
                              "    <bool comment=\"why\">true</bool>\n"
                              "    <int comment=\"why\">2147483647</int>\n"
                              "    <double comment=\"why\">-100000000000000000000.000000</double>\n"
                              "</R>\n");
}

TEST(WriteRecord, ValuesComeBackThroughTheReaders)
{
    const TemporaryFolder folder;
    {
        TtavelinXmlDocument document(folder / "a.xml");
        auto* root = new TiXmlElement("R");
        document.LinkEndChild(root);
        writeRecord(root, "text", "  a <b>\nc & \"d\"  ", "");
        writeRecord(root, "flag", true, "");
        writeRecord(root, "integer", -2147483647 - 1, "");
        writeRecord(root, "number", -0.125, "");
        ASSERT_TRUE(document.SaveFile());
    }
    TtavelinXmlDocument document(folder / "a.xml");
    ASSERT_TRUE(document.LoadFile());
    TiXmlElement* root = document.FirstChildElement();
    std::string text;
    bool flag = false;
    int integer = 0;
    double number = 0;
    GetText(root, "text", text);
    GetText(root, "flag", flag);
    GetText(root, "integer", integer);
    GetText(root, "number", number);
    EXPECT_EQ(text, "  a <b>\nc & \"d\"  ");
    EXPECT_TRUE(flag);
    EXPECT_EQ(integer, -2147483647 - 1);
    EXPECT_EQ(number, -0.125);
}
