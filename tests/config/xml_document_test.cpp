#include "config/xml_document.h"

#include "support/child_process.h"
#include "support/failed_writes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A document of the bytes, loaded from a file.
class Loaded
{
public:
    explicit Loaded(const std::string& bytes)
    {
        makeFile(folder / "a.xml", bytes);
        document = std::make_unique<TtavelinXmlDocument>(folder / "a.xml");
        loads = document->LoadFile();
    }
    TiXmlElement* root() const
    {
        return document->FirstChildElement();
    }

    TemporaryFolder folder;
    std::unique_ptr<TtavelinXmlDocument> document;
    bool loads = false;
};

bool loads(const std::string& bytes)
{
    return Loaded(bytes).loads;
}

/// Whether the bytes load, told by a child process, so that an overflow of the stack ends that one alone.
ChildEnd loadInChild(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", bytes);
    return runInChild(
        [&folder] {
            TtavelinXmlDocument document(folder / "a.xml");
            _exit(document.LoadFile() ? 1 : 2);
        },
        60);
}

void expectLoadsInChild(const std::string& bytes, bool expected)
{
    const ChildEnd end = loadInChild(bytes);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, expected ? 1 : 2) << end.output.substr(0, 500);
}

std::string repeated(const std::string& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

std::string nested(int levels)
{
    return repeated("<a>", levels) + repeated("</a>", levels);
}

std::string withAttributes(int count)
{
    std::string text = "<a";
    for (int i = 0; i < count; ++i) {
        text += " x" + std::to_string(i) + "='1'";
    }
    return text + "/>";
}

/// An element <R><K>...</K></R> and the value that GetText makes of its K.
template <class Value>
Value valueOf(const std::string& text, Value value)
{
    const Loaded file("<R><K>" + text + "</K></R>");
    EXPECT_TRUE(file.loads) << text;
    GetText(file.root(), "K", value);
    return value;
}

/// An element as the library prints it.
std::string printed(const TiXmlElement& element)
{
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.CStr();
}

/// The printed form of an element that the caller owns, which must stand alone and have one text node.
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

TEST(XmlDocument, KeepsItsPathAndSwitchesCondensingOff)
{
    TiXmlBase::SetCondenseWhiteSpace(true);
    const TtavelinXmlDocument document("some/path.xml");
    EXPECT_EQ(document.fileName, "some/path.xml");
    EXPECT_STREQ(document.Value(), "some/path.xml");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_EQ(document.FirstChild(), nullptr);
    static_assert(std::is_base_of_v<TiXmlDocument, TtavelinXmlDocument>);
    static_assert(!std::is_convertible_v<std::string, TtavelinXmlDocument>);
}

TEST(XmlDocument, CondensingStaysOffAfterLoading)
{
    const Loaded file("<R><K>  a  b  </K></R>");
    ASSERT_TRUE(file.loads);
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_EQ(valueOf<std::string>("  a  b  ", ""), "  a  b  ");
}

TEST(XmlDocument, LoadsElementsInTheirOrder)
{
    const Loaded file("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- a comment -->\n"
                      "<task>\n  <one>1</one>\n  <two a=\"x\" b='y'/>\n</task>\n");
    ASSERT_TRUE(file.loads);
    ASSERT_NE(file.root(), nullptr);
    EXPECT_STREQ(file.root()->Value(), "task");
    const TiXmlElement* one = file.root()->FirstChildElement();
    ASSERT_NE(one, nullptr);
    EXPECT_STREQ(one->Value(), "one");
    EXPECT_STREQ(one->GetText(), "1");
    const TiXmlElement* two = one->NextSiblingElement();
    ASSERT_NE(two, nullptr);
    EXPECT_STREQ(two->Attribute("a"), "x");
    EXPECT_STREQ(two->Attribute("b"), "y");
    EXPECT_EQ(two->NextSiblingElement(), nullptr);
}

TEST(XmlDocument, LoadsWhatTheLibraryTakes)
{
    const std::string documents[] = {
        "<a/>",
        "<a></a>",
        "  \r\n\t<a/>\n\n",
        "\xef\xbb\xbf<a/>",
        "<a/><b/>",
        "<a/>text behind",
        "<!DOCTYPE a><a/>",
        "<!-- <b> --><a/>",
        "<a><![CDATA[ <b> ]]></a>",
        "<a b='<c>'/>",
        "<a b=c/>",
        "<a b=/>",
        "<a><?target data?></a>",
        "<a>&unknown;</a>",
        "<a>a > b</a>",
    };
    for (const std::string& document : documents) {
        EXPECT_TRUE(loads(document)) << document;
    }
}

TEST(XmlDocument, MissingFilesAndFoldersDoNotLoad)
{
    const TemporaryFolder folder;
    for (const std::string& path :
         {folder / "missing.xml", folder / "missing/a.xml", folder.path(), std::string()})
    {
        SCOPED_TRACE(path);
        TtavelinXmlDocument document(path);
        EXPECT_FALSE(document.LoadFile());
        EXPECT_EQ(document.FirstChildElement(), nullptr);
    }
    EXPECT_FALSE(exists(folder / "missing.xml"));
}

// The address sanitizer ends the process itself where memory runs out.
#if !defined(VOMAR_SANITIZED)
TEST(XmlDocument, FileThatTheMemoryDoesNotHoldDoesNotLoad)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<root/>");
    std::filesystem::resize_file(folder / "a.xml", std::uintmax_t{1} << 31);
    const ChildEnd end = runInChild(
        [&folder] {
            const rlimit gigabyte{1 << 30, 1 << 30};
            setrlimit(RLIMIT_AS, &gigabyte);
            TtavelinXmlDocument document(folder / "a.xml");
            _exit(document.LoadFile() ? 1 : 2);
        },
        60);
    EXPECT_EQ(end.signal, 0) << end.output;
    EXPECT_EQ(end.exitStatus, 2);
}
#endif

TEST(XmlDocument, DocumentsWithoutAnElementDoNotLoad)
{
    const std::string documents[] = {
        "",
        " ",
        "\n\r\n\t",
        "text",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
        "<?xml version=\"1.0\"?>\n",
        "<!-- a comment -->",
        "<?xml version=\"1.0\"?><!-- a comment -->\n",
        "<!DOCTYPE a>",
        "\xef\xbb\xbf",
        "\xef\xbb\xbf<?xml version=\"1.0\"?>",
        "<?target data?>",
        "< a/>",
        std::string("\0", 1),
        std::string("\0<a/>", 5),
        std::string("\x7f"
                    "ELF\x02\x01\x01\0\0",
                    9),
        std::string(5000, '\xff'),
        "<",
        "</a>",
    };
    for (const std::string& document : documents) {
        EXPECT_FALSE(loads(document)) << document;
    }
}

TEST(XmlDocument, BrokenDocumentsDoNotLoad)
{
    const std::string documents[] = {
        "<a>",      "<a><b></a>",        "<a></b>",      "<a b='1' b='2'/>", "<a b='1>",
        "<a b/>",   "<a><![CDATA[x</a>", "<a><!-- </a>", "<a>&lt;",          "<a/",
        "<a b='1'", "<a><b/>",           "<a>text",      "<a></a",           "<a></",
    };
    for (const std::string& document : documents) {
        EXPECT_FALSE(loads(document)) << document;
    }
}

TEST(XmlDocument, NoPrefixOfADocumentLoads)
{
    const std::string document =
        "<?xml version=\"1.0\"?><!-- c --><task a='1'><K min=\"2\">t&amp;x</K><![CDATA[y]]><e/></task>";
    EXPECT_TRUE(loads(document));
    for (std::size_t length = 0; length < document.size(); ++length) {
        EXPECT_FALSE(loads(document.substr(0, length))) << document.substr(0, length);
    }
}

TEST(XmlDocument, ZeroByteEndsTheDocument)
{
    EXPECT_TRUE(loads(std::string("<a/>\0<b>", 8)));
    EXPECT_FALSE(loads(std::string("<a>\0</a>", 8)));
    EXPECT_FALSE(loads(std::string("<a>1</a\0>", 9)));
    const Loaded file(std::string("<R><K>1</K></R>\0<R><K>2</K></R>", 31));
    ASSERT_TRUE(file.loads);
    EXPECT_EQ(file.root()->NextSibling(), nullptr);
}

TEST(XmlDocument, LeadByteOfALetterAsLastByteReadsNothingBehindTheFile)
{
    for (const std::string lead : {"\xc3", "\xe0", "\xef", "\xf0", "\xf4", "\xff"}) {
        SCOPED_TRACE(static_cast<int>(static_cast<unsigned char>(lead[0])));
        for (const std::string declaration : {"", "<?xml version='1.0'?>", "\xef\xbb\xbf"}) {
            for (const std::string front :
                 {"", "<", "<a", "<a>", "<a>x", "<a b", "<a b=", "<a b='", "<a b='1'", "<!--", "<a><![CDATA[",
                  "<?", "<!", "<a>&", "</", "<a></a"})
            {
                EXPECT_FALSE(loads(declaration + front + lead)) << declaration << front;
            }
        }
        EXPECT_TRUE(loads("<a/>" + lead));
    }
}

TEST(XmlDocument, LineEndsOfBothKindsReadAsLineFeeds)
{
    const Loaded file("<?xml version=\"1.0\"?>\r\n<R>\r\n  <K>one\r\ntwo\rthree\nfour</K>\r\n  <L "
                      "a=\"x\r\ny\"/>\r\n</R>\r\n");
    ASSERT_TRUE(file.loads);
    std::string text;
    GetText(file.root(), "K", text);
    EXPECT_EQ(text, "one\ntwo\nthree\nfour");
    std::string attribute;
    GetAttr(file.root(), "L", "a", attribute);
    EXPECT_EQ(attribute, "x\ny");
}

TEST(XmlDocument, TenThousandLevelsLoadAndOneMoreDoesNot)
{
    expectLoadsInChild(nested(9999), true);
    expectLoadsInChild(nested(10000), true);
    expectLoadsInChild(nested(10001), false);
}

TEST(XmlDocument, VeryDeepDocumentsAreRefusedBeforeTheStackOverflows)
{
    expectLoadsInChild(nested(100000), false);
    expectLoadsInChild(repeated("<a>", 1000000), false);
    expectLoadsInChild("<?xml version=\"1.0\"?>\n<!-- c -->\n" + repeated("<a b='1'>\n ", 100000), false);
    expectLoadsInChild("\xef\xbb\xbf" + repeated("<a>x", 100000), false);
    // The entity goes from its "&" to its ";" and takes the end tag in.
    expectLoadsInChild(repeated("<a>&#x</a>&#x41;", 200000), false);
}

TEST(XmlDocument, LevelsThatAreClosedDoNotCount)
{
    expectLoadsInChild("<r>" + repeated("<a><b/></a>", 30000) + "</r>", true);
    expectLoadsInChild("<r>" + nested(9999) + nested(9999) + "</r>", true);
    expectLoadsInChild(
        "<r><!--" + repeated("<a>", 20000) + "--><![CDATA[" + repeated("<a>", 20000) + "]]></r>", true);
}

TEST(XmlDocument, TenThousandAttributesLoadAndOneMoreDoesNot)
{
    EXPECT_TRUE(loads(withAttributes(10000)));
    EXPECT_FALSE(loads(withAttributes(10001)));
    EXPECT_FALSE(loads("<r><x/>" + withAttributes(10001) + "</r>"));
    EXPECT_TRUE(loads("<r>" + withAttributes(6000) + withAttributes(6000) + "</r>"));
}

TEST(XmlDocument, ManyAttributesAreRefusedInTime)
{
    expectLoadsInChild(withAttributes(1000000), false);
}

TEST(XmlDocument, SavesWhatWasLoaded)
{
    const Loaded file(
        "<?xml version='1.0' encoding='UTF-8'?><task a='1' b='\"'><K>a &lt; b</K><!--c--><e></e>"
        "<deep><L>  x </L></deep></task>");
    ASSERT_TRUE(file.loads);
    file.document->fileName = file.folder / "b.xml";
    EXPECT_TRUE(file.document->SaveFile());
    EXPECT_EQ(bytesOf(file.folder / "b.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                                              "<task a=\"1\" b='&quot;'>\n"
                                              "    <K>a &lt; b</K>\n"
                                              "    <!--c-->\n"
                                              "    <e />\n"
                                              "    <deep>\n"
                                              "        <L>  x </L>\n"
                                              "    </deep>\n"
                                              "</task>\n");
}

TEST(XmlDocument, SavesTheBytesOfTheLibrary)
{
    const std::string documents[] = {
        "<a/>",
        "\xef\xbb\xbf<a><b>\xd1\x81</b></a>",
        "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><a>\xe9&#233;</a>",
        "<a>text<b/>more<c>x</c></a>",
        "<a><![CDATA[ <x> & ]]></a>",
        "<!DOCTYPE a><a b='\"' c=\"'\">\x01&#x0A;</a><!--end-->",
        "<a><?target data?></a><b/>",
    };
    for (const std::string& text : documents) {
        SCOPED_TRACE(text);
        const Loaded file(text);
        ASSERT_TRUE(file.loads);
        file.document->fileName = file.folder / "ours.xml";
        EXPECT_TRUE(file.document->SaveFile());
        std::FILE* stream = std::fopen((file.folder / "library.xml").c_str(), "w");
        ASSERT_NE(stream, nullptr);
        EXPECT_TRUE(static_cast<const TiXmlDocument&>(*file.document).SaveFile(stream));
        EXPECT_EQ(std::fclose(stream), 0);
        EXPECT_EQ(bytesOf(file.folder / "ours.xml"), bytesOf(file.folder / "library.xml"));
    }
}

TEST(XmlDocument, SavingReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", std::string(3000, 'x'));
    TtavelinXmlDocument document(folder / "a.xml");
    document.LinkEndChild(new TiXmlElement("R"));
    EXPECT_TRUE(document.SaveFile());
    EXPECT_EQ(bytesOf(folder / "a.xml"), "<R />\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(XmlDocument, SavingIsFalseWhereTheFileCannotBeWritten)
{
    forUnwritablePaths([](const std::string& path) {
        TtavelinXmlDocument document(path);
        document.LinkEndChild(new TiXmlElement("R"));
        EXPECT_FALSE(document.SaveFile());
    });
    TtavelinXmlDocument document("");
    document.LinkEndChild(new TiXmlElement("R"));
    EXPECT_FALSE(document.SaveFile());
}

TEST(XmlDocument, LargeDocumentComesBackAsItWent)
{
    const TemporaryFolder folder;
    {
        TtavelinXmlDocument document(folder / "a.xml");
        auto* root = new TiXmlElement("R");
        document.LinkEndChild(root);
        for (int i = 0; i < 20000; ++i) {
            writeRecord(root, "K", i, "");
        }
        ASSERT_TRUE(document.SaveFile());
    }
    TtavelinXmlDocument document(folder / "a.xml");
    ASSERT_TRUE(document.LoadFile());
    Texts items;
    TiXmlElement holder("holder");
    holder.InsertEndChild(*document.FirstChildElement());
    GetList(&holder, "K", "R", items);
    ASSERT_EQ(items.size(), 20000u);
    EXPECT_EQ(items.front(), "0");
    EXPECT_EQ(items.back(), "19999");
}

TEST(XmlEncoding, DeclaredEncodingTellsWhatAByteIs)
{
    struct Row
    {
        std::string head, text, expected;
    };
    const std::string mark = "\xef\xbb\xbf";
    const std::string plain = "<?xml version='1.0'?>";
    const std::string utf8 = "<?xml version='1.0' encoding='UTF-8'?>";
    const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    const Row rows[] = {
        {utf8, "\xd1\x81", "\xd1\x81"}, {utf8, "&#233;", "\xc3\xa9"},
        {utf8, "&#xE9;", "\xc3\xa9"},   {utf8, "\xe2\x82\xac", "\xe2\x82\xac"},
        {plain, "&#233;", "\xc3\xa9"},  {mark, "&#233;", "\xc3\xa9"},
        {latin1, "caf\xe9", "caf\xe9"}, {latin1, "\xe0\xf0\xff", "\xe0\xf0\xff"},
        {latin1, "&#233;", "\xe9"},     {latin1, "\xd1\x81", "\xd1\x81"},
        {"", "caf\xe9", "caf\xe9"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.head + row.text);
        const Loaded file(row.head + "<R a='" + row.text + "'><K>" + row.text + "</K></R>");
        ASSERT_TRUE(file.loads);
        std::string text;
        GetText(file.root(), "K", text);
        EXPECT_EQ(text, row.expected);
        EXPECT_STREQ(file.root()->Attribute("a"), row.expected.c_str());
    }
}

// In a document of UTF-8 the byte begins a letter of three and takes the end tag's first two in.
TEST(XmlEncoding, ByteOfLatin1BeforeATagBreaksADocumentOfUtf8)
{
    EXPECT_FALSE(loads("<?xml version='1.0' encoding='UTF-8'?><R><K>caf\xe9</K></R>"));
    EXPECT_FALSE(loads("<?xml version='1.0'?><R><K>caf\xe9</K></R>"));
}

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
