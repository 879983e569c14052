#include "config/parameter_tree.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

/// The bytes of a file saved from the root.
std::string saved(const ParameterElement& root)
{
    const TemporaryFolder folder;
    EXPECT_EQ(saveParameters(folder / "a.xml", root), 0);
    return bytesOf(folder / "a.xml");
}

/// A folder with a file "a.xml" of the bytes.
class Document
{
public:
    explicit Document(const std::string& bytes)
    {
        makeFile(path, bytes);
    }

private:
    const TemporaryFolder folder{};

public:
    const std::string path = folder / "a.xml";
};

} // namespace

TEST(ParameterTree, DocumentHasADeclarationAndTheRoot)
{
    EXPECT_EQ(saved(branch("R", {})), "<?xml version=\"1.0\" ?>\n"
                                      "<R />\n");
}

TEST(ParameterTree, BranchHoldsItsElementsInTheirOrder)
{
    EXPECT_EQ(saved(branch("Fitting", {branch("Peaks", {branch("Peak", {{"X", 100}, {"Y", -200}})}),
                                       {"Second", std::string("b")},
                                       {"First", std::string("a")},
                                       branch("Empty", {})})),
              "<?xml version=\"1.0\" ?>\n"
              "<Fitting>\n"
              "    <Peaks>\n"
              "        <Peak>\n"
              "            <X>100</X>\n"
              "            <Y>-200</Y>\n"
              "        </Peak>\n"
              "    </Peaks>\n"
              "    <Second>b</Second>\n"
              "    <First>a</First>\n"
              "    <Empty />\n"
              "</Fitting>\n");
}

TEST(ParameterTree, SameNameMayStandTwice)
{
    EXPECT_EQ(saved(branch("R", {{"K", 1}, {"K", 2}})), "<?xml version=\"1.0\" ?>\n"
                                                        "<R>\n"
                                                        "    <K>1</K>\n"
                                                        "    <K>2</K>\n"
                                                        "</R>\n");
}

TEST(ParameterTree, ValuesOfEachTypeHaveTheirText)
{
    EXPECT_EQ(saved(branch("R", {{"text", std::string(" a <&>\"' ")},
                                 {"empty", std::string()},
                                 {"literal", "false"},
                                 {"on", true},
                                 {"off", false},
                                 {"integer", -2147483647 - 1},
                                 {"number", 0.5},
                                 {"small", -0.0000004},
                                 {"great", 1e20},
                                 {"none", {}}})),
              "<?xml version=\"1.0\" ?>\n"
              "<R>\n"
              "    <text> a &lt;&amp;&gt;&quot;&apos; </text>\n"
              "    <empty></empty>\n"
              "    <literal>false</literal>\n"
              "    <on>true</on>\n"
              "    <off>false</off>\n"
              "    <integer>-2147483648</integer>\n"
              "    <number>0.500000</number>\n"
              "    <small>-0.000000</small>\n"
              "    <great>100000000000000000000.000000</great>\n"
              "    <none />\n"
              "</R>\n");
}

TEST(ParameterTree, ListHoldsOneElementForEachText)
{
    EXPECT_EQ(saved(branch("R", {textList("FitsList", "string", Texts{" a ", "", "b&c", " a "}),
                                 textList("None", "string", Texts{})})),
              "<?xml version=\"1.0\" ?>\n"
              "<R>\n"
              "    <FitsList>\n"
              "        <string> a </string>\n"
              "        <string></string>\n"
              "        <string>b&amp;c</string>\n"
              "        <string> a </string>\n"
              "    </FitsList>\n"
              "    <None />\n"
              "</R>\n");
}

TEST(ParameterTree, RootMayBeAListOrAValue)
{
    EXPECT_EQ(saved(textList("L", "i", Texts{"a"})), "<?xml version=\"1.0\" ?>\n"
                                                     "<L>\n"
                                                     "    <i>a</i>\n"
                                                     "</L>\n");
    EXPECT_EQ(saved({"K", std::string("a")}), "<?xml version=\"1.0\" ?>\n"
                                              "<K>a</K>\n");
}

TEST(ParameterTree, AttributeStandsWhereItHasAName)
{
    EXPECT_EQ(saved(branch("R", {{"a", std::string("1"), {"list", "x,y"}},
                                 {"b", 2, {"comment", "<why> & \"what\""}},
                                 {"c", std::string("3"), {"", "nowhere"}},
                                 {"d", std::string("4"), {"empty", ""}},
                                 {"e", {}, {"list", "z"}, {{"f", 5}}}})),
              "<?xml version=\"1.0\" ?>\n"
              "<R>\n"
              "    <a list=\"x,y\">1</a>\n"
              "    <b comment='&lt;why&gt; &amp; &quot;what&quot;'>2</b>\n"
              "    <c>3</c>\n"
              "    <d empty=\"\">4</d>\n"
              "    <e list=\"z\">\n"
              "        <f>5</f>\n"
              "    </e>\n"
              "</R>\n");
}

TEST(ParameterTree, SavingReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", std::string(3000, 'x'));
    EXPECT_EQ(saveParameters(folder / "a.xml", branch("R", {})), 0);
    EXPECT_EQ(bytesOf(folder / "a.xml"), "<?xml version=\"1.0\" ?>\n<R />\n");
}

TEST(ParameterTree, SavingIs1WhereTheFileCannotBeWritten)
{
    const TemporaryFolder folder;
    EXPECT_EQ(saveParameters(folder / "missing/a.xml", branch("R", {})), 1);
    EXPECT_FALSE(exists(folder / "missing"));
    std::filesystem::create_directory(folder / "folder");
    EXPECT_EQ(saveParameters(folder / "folder", branch("R", {})), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder / "folder"));
    EXPECT_EQ(saveParameters("", branch("R", {})), 1);
}

// Values could not keep their blanks with the library's own setting.
TEST(ParameterTree, CondensingOfWhiteSpaceIsSwitchedOff)
{
    const Document document("<R><K>  a  b  </K></R>");
    TiXmlBase::SetCondenseWhiteSpace(true);
    std::string value;
    EXPECT_TRUE(readParameters(document.path, {{"K", &value}}));
    EXPECT_EQ(value, "  a  b  ");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());

    TiXmlBase::SetCondenseWhiteSpace(true);
    EXPECT_EQ(saved({"K", std::string("  a  b  ")}), "<?xml version=\"1.0\" ?>\n<K>  a  b  </K>\n");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
}

TEST(ParameterTree, KeysFillTargetsOfEachType)
{
    const Document document("<?xml version=\"1.0\"?>\n<!-- c -->\n"
                            "<R>\n"
                            "  <list><string>a</string><other>no</other><string> b </string></list>\n"
                            "  <optional> d </optional>\n"
                            "  <number> -1.5e2 px</number>\n"
                            "  <text>  t &lt; u </text>\n"
                            "</R>\n");
    std::string text = "old";
    double number = 7;
    std::optional<std::string> optional;
    Texts list{"old"};
    EXPECT_TRUE(readParameters(
        document.path, {{"text", &text}, {"number", &number}, {"optional", &optional}, {"list", &list}}));
    EXPECT_EQ(text, "  t < u ");
    EXPECT_EQ(number, -150.0);
    EXPECT_EQ(optional, " d ");
    EXPECT_EQ(list, (Texts{"old", "a", " b "}));
}

TEST(ParameterTree, ItemOfAListHasItsOwnName)
{
    const Document document("<R><L><i>a</i><string>b</string><j>c</j><i>d</i></L></R>");
    Texts first, second, third;
    EXPECT_TRUE(readParameters(document.path, {{"L", &first, "i"}, {"L", &second, "j"}, {"L", &third}}));
    EXPECT_EQ(first, (Texts{"a", "d"}));
    EXPECT_EQ(second, Texts{"c"});
    EXPECT_EQ(third, Texts{"b"});
}

TEST(ParameterTree, MissingAndEmptyKeysLeaveTheirTargets)
{
    for (const char* bytes :
         {"<R/>", "<R><text/><number/><optional/><list/></R>",
          "<R><text></text><number></number><optional></optional><list></list></R>",
          "<R><Text>a</Text><Number>1</Number><Optional>b</Optional><List><string>c</string></List></R>",
          "<R><R><text>a</text><number>1</number><optional>b</optional>"
          "<list><string>c</string></list></R></R>",
          "<R/><R><text>a</text><number>1</number><optional>b</optional>"
          "<list><string>c</string></list></R>"})
    {
        SCOPED_TRACE(bytes);
        const Document document(bytes);
        std::string text = "old";
        double number = 7;
        std::optional<std::string> optional;
        std::optional<std::string> preset = "old";
        Texts list{"old"};
        EXPECT_TRUE(readParameters(document.path, {{"text", &text},
                                                   {"number", &number},
                                                   {"optional", &optional},
                                                   {"optional", &preset},
                                                   {"list", &list}}));
        EXPECT_EQ(text, "old");
        EXPECT_EQ(number, 7.0);
        EXPECT_EQ(optional, std::nullopt);
        EXPECT_EQ(preset, "old");
        EXPECT_EQ(list, Texts{"old"});
    }
}

TEST(ParameterTree, EmptyTextIsTakenAndIsNoMissingKey)
{
    const Document document("<R><text><![CDATA[]]></text><optional><![CDATA[]]></optional>"
                            "<number>word</number></R>");
    std::string text = "old";
    double number = 7;
    std::optional<std::string> optional;
    EXPECT_TRUE(
        readParameters(document.path, {{"text", &text}, {"number", &number}, {"optional", &optional}}));
    EXPECT_EQ(text, "");
    EXPECT_EQ(number, 0.0);
    EXPECT_EQ(optional, "");
}

TEST(ParameterTree, FirstOfTwoElementsOfAKeyCounts)
{
    const Document document("<R><K>1</K><K>2</K><E/><E>3</E><L><string>a</string></L>"
                            "<L><string>b</string></L></R>");
    std::string twice, empty = "old";
    Texts list;
    EXPECT_TRUE(readParameters(document.path, {{"K", &twice}, {"E", &empty}, {"L", &list}}));
    EXPECT_EQ(twice, "1");
    EXPECT_EQ(empty, "old");
    EXPECT_EQ(list, Texts{"a"});
}

TEST(ParameterTree, FileThatDoesNotLoadLeavesAllTargets)
{
    const TemporaryFolder folder;
    makeFile(folder / "cut.xml", "<R><text>a</text><number>1</number><optional>b</optional>"
                                 "<list><string>c</string></list>");
    makeFile(folder / "empty.xml", "");
    for (const char* name : {"cut.xml", "empty.xml", "missing.xml", "missing/a.xml", ""}) {
        SCOPED_TRACE(name);
        std::string text = "old";
        double number = 7;
        std::optional<std::string> optional;
        Texts list{"old"};
        EXPECT_FALSE(readParameters(
            folder / name, {{"text", &text}, {"number", &number}, {"optional", &optional}, {"list", &list}}));
        EXPECT_EQ(text, "old");
        EXPECT_EQ(number, 7.0);
        EXPECT_EQ(optional, std::nullopt);
        EXPECT_EQ(list, Texts{"old"});
    }
    EXPECT_FALSE(exists(folder / "missing.xml"));
}

TEST(ParameterTree, SavedTreeReadsBack)
{
    const TemporaryFolder folder;
    const Texts sent{" a ", "b\n", "<&>"};
    ASSERT_EQ(saveParameters(folder / "a.xml", branch("R", {{"text", std::string("  \xd1\x81\t")},
                                                            {"number", 0.1234567},
                                                            textList("list", "item", sent)})),
              0);
    std::string text;
    double number = 0;
    Texts list;
    EXPECT_TRUE(
        readParameters(folder / "a.xml", {{"text", &text}, {"number", &number}, {"list", &list, "item"}}));
    EXPECT_EQ(text, "  \xd1\x81\t");
    EXPECT_EQ(number, 0.123457);
    EXPECT_EQ(list, sent);
}

TEST(ParameterTree, FileGivesItsFirstElement)
{
    const Document document("<?xml version=\"1.0\"?><!-- c --><First><K>1</K></First><Second/>");
    ParameterFile file(document.path);
    ASSERT_NE(file.root(), nullptr);
    EXPECT_STREQ(file.root()->Value(), "First");
    EXPECT_EQ(file.root(), file.root());
    std::string value;
    GetText(file.root(), "K", value);
    EXPECT_EQ(value, "1");
}

TEST(ParameterTree, FileThatDoesNotLoadGivesNoElement)
{
    const Document document("<First><K>1</K>");
    EXPECT_EQ(ParameterFile(document.path).root(), nullptr);
    const TemporaryFolder folder;
    EXPECT_EQ(ParameterFile(folder / "missing.xml").root(), nullptr);
    EXPECT_EQ(ParameterFile(folder.path()).root(), nullptr);
}
