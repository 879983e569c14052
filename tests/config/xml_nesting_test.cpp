#include "config/xml_nesting.h"

#include "support/child_process.h"
#include "support/random.h"
#include "support/texts.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

#include <tinyxml.h>

using namespace tavelinUtils;

namespace {

constexpr int manyAttributes = 10000;
constexpr int manyLevels = 10000;

const std::string spareZeros(8, '\0');

bool goesBeyondLevels(const std::string& document, int deepest)
{
    const std::string bytes = document + spareZeros;
    return goesBeyond(bytes.c_str(), deepest, manyAttributes);
}

bool goesBeyondAttributes(const std::string& document, int most)
{
    const std::string bytes = document + spareZeros;
    return goesBeyond(bytes.c_str(), manyLevels, most);
}

/// What the library finds in a document.
struct Shape
{
    bool parsed = false; ///< without an error, and not given up at a declaration
    int depth = 0;       ///< of its elements
    int attributes = 0;  ///< the most of one element
};

Shape shapeOf(const std::string& document)
{
    TiXmlBase::SetCondenseWhiteSpace(false);
    TiXmlDocument parsed;
    parsed.SetTabSize(0);
    const std::string bytes = document + spareZeros;
    parsed.Parse(bytes.c_str(), nullptr, TIXML_ENCODING_UNKNOWN);
    Shape shape;
    shape.parsed = !parsed.Error() && parsed.LastChild()->ToDeclaration() == nullptr;
    int depth = 0;
    const TiXmlNode* node = parsed.FirstChild();
    while (node != nullptr) {
        if (const TiXmlElement* element = node->ToElement()) {
            shape.depth = std::max(shape.depth, depth + 1);
            int attributes = 0;
            for (const TiXmlAttribute* attribute = element->FirstAttribute(); attribute != nullptr;
                 attribute = attribute->Next())
            {
                ++attributes;
            }
            shape.attributes = std::max(shape.attributes, attributes);
        }
        if (node->FirstChild() != nullptr) {
            ++depth;
            node = node->FirstChild();
            continue;
        }
        while (node != &parsed && node->NextSibling() == nullptr) {
            node = node->Parent();
            --depth;
        }
        node = node == &parsed ? nullptr : node->NextSibling();
    }
    return shape;
}

std::string escaped(const std::string& text)
{
    std::string shown;
    for (const char letter : text) {
        if (letter >= ' ' && letter <= '~') {
            shown += letter;
        } else {
            const char* digits = "0123456789abcdef";
            const auto byte = static_cast<unsigned char>(letter);
            shown += std::string("\\x") + digits[byte / 16] + digits[byte % 16];
        }
    }
    return shown;
}

/// Compares the answer for a document with what the library finds in it.
void expectAgreement(const std::string& document, const Shape& shape)
{
    if (shape.depth >= 1) {
        EXPECT_TRUE(goesBeyondLevels(document, shape.depth - 1))
            << "depth " << shape.depth << ": " << escaped(document);
    }
    if (shape.attributes >= 1) {
        EXPECT_TRUE(goesBeyondAttributes(document, shape.attributes - 1))
            << shape.attributes << " attributes: " << escaped(document);
    }
    if (shape.parsed) {
        EXPECT_FALSE(goesBeyondLevels(document, shape.depth))
            << "depth " << shape.depth << ": " << escaped(document);
        EXPECT_FALSE(goesBeyondAttributes(document, shape.attributes))
            << shape.attributes << " attributes: " << escaped(document);
    }
}

/// The kinds of random documents of a run: a run over nothing but errors would show nothing.
struct Met
{
    int parsed = 0, parsedWithElements = 0, broken = 0, brokenWithElements = 0, deep = 0, attributes = 0;

    void add(const Shape& shape)
    {
        ++(shape.parsed ? parsed : broken);
        if (shape.depth > 0) {
            ++(shape.parsed ? parsedWithElements : brokenWithElements);
        }
        deep += shape.depth >= 4;
        attributes += shape.attributes >= 2;
    }
};

const std::string fragments[] = {
    "<a>",
    "<a>",
    "<a>",
    "</a>",
    "</a>",
    "</a>",
    "<b>",
    "</b>",
    "<a/>",
    "<a x='1'>",
    "<a x=\"</a>\" y='<b>'>",
    "</a >",
    "<!--",
    "-->",
    "<!-- <a> -->",
    "<![CDATA[",
    "]]>",
    "<![CDATA[<a>]]>",
    "<!",
    "<?",
    "?>",
    "<?xml version='1.0' encoding='UTF-8'?>",
    "<?xml version='1.0' encoding='ISO-8859-1'?>",
    "<?xml version='1.0'?>",
    "<?xml",
    "encoding='",
    "encoding=",
    "UTF-8",
    "\xe0",
    "\xf0",
    "\xc3",
    "\xd1\x81",
    "\xe2\x82\xac",
    "\xc3\xa9",
    "\xff",
    "'",
    "\"",
    "=",
    "/",
    ">",
    "<",
    "</",
    "/>",
    "&#",
    "&amp;",
    "&",
    ";",
    "&#x41;",
    "&#60;",
    "&lt;",
    "&#x",
    "x",
    "a",
    "-",
    "]",
    "!",
    " ",
    "  ",
    "\t",
    "\n",
    "\xef\xbb\xbf",
    "\xef",
    "\xbf",
    "1",
    "x='1'",
    " y=\"2\" ",
    " z=3 ",
    " x",
    "_:.",
};

/// Appends a well-formed element with random contents, at most so many levels deep.
void appendElement(std::string& text, Random& random, int levels, bool utf8)
{
    const std::string name = random.below(2) == 0 ? "a" : "b-1";
    text += "<" + name;
    const std::size_t attributes = random.below(4u);
    for (std::size_t i = 0; i < attributes; ++i) {
        const std::string values[] = {"='<a>'", "=\"'\"", "=1", " = ''", "='&lt;'", "='\xd1\x81'", "='>'"};
        text += " x" + std::to_string(i) + values[random.below(std::size(values))];
    }
    if (random.below(6) == 0) {
        text += random.below(2) == 0 ? "/>" : " />";
        return;
    }
    text += random.below(4) == 0 ? "\n>" : ">";
    for (std::size_t count = random.below(4u); count > 0; --count) {
        const std::string others[] = {"text",
                                      " ",
                                      "<!-- </a> -->",
                                      "<![CDATA[<a>]]>",
                                      "&amp;<?p <a?>",
                                      "\xd1\x81",
                                      "\n\t",
                                      "a>b",
                                      "<![CDATA[ ]] > ]]>",
                                      "&#233;",
                                      "<!x>",
                                      utf8 ? "\xe0"
                                             "xx"
                                           : "\xe0"};
        if (levels > 1 && random.below(2) == 0) {
            appendElement(text, random, levels - 1, utf8);
        } else {
            text += others[random.below(std::size(others))];
        }
    }
    text += "</" + name + (random.below(8) == 0 ? " >" : ">");
}

} // namespace

TEST(XmlNesting, CountsTheElementsInEachOther)
{
    struct Row
    {
        std::string document;
        int depth;
    };
    const Row rows[] = {
        {"<a/>", 1},
        {"<a></a>", 1},
        {"<a>text</a>", 1},
        {"<a><b/></a>", 2},
        {"<a><b/><b/><b/></a>", 2},
        {"<a><b></b><c><d/></c></a>", 3},
        {"<a/><b><c/></b>", 2},
        {"<a><a><a></a></a></a>", 3},
        {"<?xml version='1.0' encoding='UTF-8'?><a><b/></a>", 2},
        {"\xef\xbb\xbf<a><b/></a>", 2},
        {"\xef\xbb\xbf\xef\xbf\xbe<a>\xef\xbf\xbf<b/></a>", 2},
        {"\xef\xbb\xbf\xef\xbf\xbf<a/>", 1},
        {"<!DOCTYPE a><a/>", 1},
        {"<!-- <a><b><c> --><a/>", 1},
        {"<a><!-- <b><c> --></a>", 1},
        {"<a><![CDATA[<b><c>]]></a>", 1},
        {"<a><![CDATA[<b>]]><b><c/></b></a>", 3},
        {"<a x='<b><c>'/>", 1},
        {"<a x=\"<b>'<c>\"/>", 1},
        {"<a x='/>'><b/></a>", 2},
        {"<p:a p:x='1'><p:b.c-d/></p:a>", 2},
        {"<a>&lt;b&gt;<b/></a>", 2},
        {"<a> > <b/></a>", 2},
        {"<a\n x = '1' ><b/></a>", 2},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe0<b/></a>", 2},
        {"<a>\xe0<b/></a>", 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.document);
        EXPECT_TRUE(goesBeyondLevels(row.document, row.depth - 1));
        EXPECT_FALSE(goesBeyondLevels(row.document, row.depth));
        EXPECT_FALSE(goesBeyondLevels(row.document, row.depth + 1));
        const Shape shape = shapeOf(row.document);
        EXPECT_TRUE(shape.parsed);
        EXPECT_EQ(shape.depth, row.depth);
    }
}

TEST(XmlNesting, DocumentsWithoutElementsHaveNoLevels)
{
    for (const std::string document : {"", " ", "text", "<!-- <a> -->", "<?xml version='1.0'?>",
                                       "<!DOCTYPE <a>", "\xef\xbb\xbf", "</a>", "<1>", "\xe0", "\xf0"})
    {
        EXPECT_FALSE(goesBeyondLevels(document, 0)) << document;
    }
}

TEST(XmlNesting, CountsTheAttributesOfOneElement)
{
    struct Row
    {
        std::string document;
        int attributes;
    };
    const Row rows[] = {
        {"<a/>", 0},
        {"<a x='1'/>", 1},
        {"<a x='1' y=\"2\" z=3 />", 3},
        {"<a x='1' y='2'><b x='1'/></a>", 2},
        {"<a x='1'><b x='1' y='2' z='3'></b><b u='4'/></a>", 3},
        {"<a x='y=\"1\" z=\"2\"'/>", 1},
        {"<a><!-- <b x='1' y='2'/> --></a>", 0},
        {"<?xml version='1.0' encoding='UTF-8' standalone='yes'?><a/>", 0},
        {"<a>x='1' y='2'</a>", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.document);
        if (row.attributes > 0) {
            EXPECT_TRUE(goesBeyondAttributes(row.document, row.attributes - 1));
        }
        EXPECT_FALSE(goesBeyondAttributes(row.document, row.attributes));
        const Shape shape = shapeOf(row.document);
        EXPECT_TRUE(shape.parsed);
        EXPECT_EQ(shape.attributes, row.attributes);
    }
}

TEST(XmlNesting, FirstZeroByteEndsTheDocument)
{
    EXPECT_FALSE(goesBeyondLevels("<a>" + std::string(8, '\0') + "<b><c>", 1));
    EXPECT_TRUE(goesBeyondLevels("<a>" + std::string(8, '\0') + "<b><c>", 0));
}

// An open element is met as soon as its tag is: the document need not be whole.
TEST(XmlNesting, UnfinishedDocumentsCountAsFarAsTheyGo)
{
    EXPECT_TRUE(goesBeyondLevels("<a><b><c>", 2));
    EXPECT_TRUE(goesBeyondLevels("<a><b>text", 1));
    EXPECT_TRUE(goesBeyondLevels(repeated("<a>", 10001), 10000));
    EXPECT_TRUE(goesBeyondLevels(repeated("<a>", 1000000), 10000));
}

TEST(XmlNesting, LimitIsTheLastLevelThatIsTaken)
{
    for (const int levels : {1, 2, 100, 9999, 10000, 10001, 200000}) {
        SCOPED_TRACE(levels);
        EXPECT_TRUE(goesBeyondLevels(nested(levels), levels - 1));
        EXPECT_FALSE(goesBeyondLevels(nested(levels), levels));
    }
}

TEST(XmlNesting, ElementsBesideEachOtherDoNotAddUp)
{
    EXPECT_FALSE(goesBeyondLevels("<r>" + repeated("<a></a>", 50000) + repeated("<a/>", 50000) + "</r>", 2));
    EXPECT_FALSE(goesBeyondLevels(repeated("<a></a>", 50000), 1));
}

// A byte that begins a letter takes in the bytes after it, even the bracket of a tag.
TEST(XmlNesting, LettersOfUtf8TakeInTheBytesBehindTheirFirst)
{
    const std::string declaration = "<?xml version='1.0' encoding='UTF-8'?>";
    const std::string documents[] = {
        declaration + "<a>\xe0</a><b></a>",
        declaration + "<a>\xf0</a><b></a>",
        declaration + "<a>\xc3</a><b></a>",
        declaration + "<a>\xc3<b></a>",
        declaration + "<a x='\xc3'><b y='></b></a>",
        declaration + "<a><!--\xe0--><b>--></a>",
        declaration + "<a>\xe0]]<b></b></a>",
        "\xef\xbb\xbf<a>\xe0</a><b></a>",
        "<a>\xe0</a><b></b>",
    };
    for (const std::string& document : documents) {
        SCOPED_TRACE(escaped(document));
        expectAgreement(document, shapeOf(document));
    }
}

// A numeric entity ends at the next ";" wherever that is, and its digits are read from there back to the
// nearest "#" or "x": what comes before them goes with it, even tags.
TEST(XmlNesting, NumericEntityTakesInAllUpToItsSemicolon)
{
    struct Row
    {
        std::string document;
        int depth;
    };
    const Row rows[] = {
        {"<a>&#x</a>&#x41;<b><c></c></b></a>", 3}, {"<a>&#</a>&#41;<b><c></c></b></a>", 3},
        {"<a>&#</a>#4;<b><c></c></b></a>", 3},     {"<a>&#x</a>x4;<b><c></c></b></a>", 3},
        {"<a>&#</a>x&#41;<b></b></a>", 2},         {"<a>&#x<!--&#x41;<b></b></a>", 2},
        {"<a>&#x<![CDATA[&#x41;<b></b></a>", 2},   {"<a>&#x<b><c><d>&#x41;</a>", 1},
        {"<a y='&#x'><b><c>&#x41;'/>", 1},         {"<a y='&#\"/>#41;'><b></b></a>", 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.document);
        const Shape shape = shapeOf(row.document);
        EXPECT_TRUE(shape.parsed);
        EXPECT_EQ(shape.depth, row.depth);
        EXPECT_TRUE(goesBeyondLevels(row.document, row.depth - 1));
        EXPECT_FALSE(goesBeyondLevels(row.document, row.depth));
    }
    EXPECT_TRUE(goesBeyondLevels(repeated("<a>&#x</a>&#x41;", 20000), 10000));
    EXPECT_TRUE(goesBeyondLevels(repeated("<a>&#</a>&#41;", 20000), 10000));
}

// The library reports no error there, and reads nothing after it.
TEST(XmlNesting, DeclarationThatTheLibraryGivesUpEndsTheDocument)
{
    for (const std::string document :
         {"<?xml version=1.0' ?><a/>", "<?xml version='1.0' encoding=UTF-8'?><a/>"}) {
        SCOPED_TRACE(document);
        ASSERT_EQ(shapeOf(document).depth, 0);
        EXPECT_FALSE(goesBeyondLevels(document, 0));
    }
    const std::string behindAnElement = "<a/><?xml version=1.0' ?><a><a></a></a>";
    ASSERT_EQ(shapeOf(behindAnElement).depth, 1);
    EXPECT_FALSE(goesBeyondLevels(behindAnElement, 1));
}

TEST(XmlNesting, AgreesWithTheLibraryOnRandomFragments)
{
    Random random(20240309);
    Met met;
    for (int i = 0; i < 40000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        std::string document;
        const std::size_t heads = random.below(4u);
        if (heads == 1) {
            document = "<?xml version='1.0' encoding='UTF-8'?>";
        } else if (heads == 2) {
            document = "\xef\xbb\xbf";
        }
        for (std::size_t count = random.below(16u) + 1; count > 0; --count) {
            document += fragments[random.below(std::size(fragments))];
        }
        const Shape shape = shapeOf(document);
        met.add(shape);
        expectAgreement(document, shape);
    }
    EXPECT_GT(met.parsed, 1000);
    EXPECT_GT(met.broken, 1000);
    EXPECT_GT(met.brokenWithElements, 100);
}

// Few fragments, so that tags close what they should more often.
TEST(XmlNesting, AgreesWithTheLibraryOnRandomTags)
{
    const std::string tags[] = {"<a>",  "<a>",  "</a>", "</a>", "<a/>", "<a x='1'>",
                                "\xe0", "\xc3", "\xf0", "<!--", "-->",  "<![CDATA[",
                                "]]>",  "x",    " ",    "<b>",  "</b>"};
    Random random(7);
    Met met;
    for (int i = 0; i < 40000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        std::string document = random.below(2) == 0 ? "<?xml version='1.0'?><a>" : "<a>";
        for (std::size_t count = random.below(10u); count > 0; --count) {
            document += tags[random.below(std::size(tags))];
        }
        document += random.below(4) == 0 ? "" : "</a>";
        const Shape shape = shapeOf(document);
        met.add(shape);
        expectAgreement(document, shape);
    }
    EXPECT_GT(met.parsedWithElements, 1000);
    EXPECT_GT(met.brokenWithElements, 1000);
    EXPECT_GT(met.deep, 100);
}

TEST(XmlNesting, AgreesWithTheLibraryOnRandomEntities)
{
    const std::string parts[] = {"<a>",   "<a>",  "</a>", "</a>", "<a y='", "'>", "\"",     "&#x",   "&#",
                                 "&",     "#",    "x",    "4",    "41;",    ";",  "&#x41;", "&#60;", "&lt;",
                                 "&amp;", "&#0;", "\xc3", "<!--", "-->",    " ",  "f",      "g"};
    Random random(4711);
    Met met;
    for (int i = 0; i < 40000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        std::string document = random.below(3) == 0 ? "<?xml version='1.0'?><a>" : "<a>";
        for (std::size_t count = random.below(12u); count > 0; --count) {
            document += parts[random.below(std::size(parts))];
        }
        document += random.below(4) == 0 ? "" : "</a>";
        const Shape shape = shapeOf(document);
        met.add(shape);
        expectAgreement(document, shape);
    }
    EXPECT_GT(met.parsedWithElements, 1000);
    EXPECT_GT(met.brokenWithElements, 1000);
}

TEST(XmlNesting, AgreesWithTheLibraryOnWholeDocuments)
{
    Random random(31);
    Met met;
    for (int i = 0; i < 10000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const bool utf8 = random.below(2) == 0;
        std::string document = utf8 ? "<?xml version='1.0' encoding='UTF-8'?>"
                                    : "<?xml version='1.0' encoding='windows-1251'?>\n<!-- a comment -->\n";
        appendElement(document, random, 8, utf8);
        const Shape shape = shapeOf(document);
        met.add(shape);
        expectAgreement(document, shape);
    }
    EXPECT_GT(met.parsedWithElements, 9000);
    EXPECT_GT(met.deep, 500);
    EXPECT_GT(met.attributes, 1000);
}

TEST(XmlNesting, AgreesWithTheLibraryOnDamagedDocuments)
{
    const std::string damage = std::string("<>/'\"=!-[]?& ax\n\t;#") + "\xe0\xf0\xc3\xef\xbb\xbf\xff\x81";
    Random random(99);
    Met met;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        std::string document = random.below(2) == 0 ? "<?xml version='1.0' encoding='UTF-8'?>" : "";
        appendElement(document, random, 5, true);
        for (std::size_t count = random.below(3u) + 1; count > 0; --count) {
            const std::size_t place = random.below(document.size());
            const char letter = damage[random.below(damage.size())];
            switch (random.below(4)) {
            case 0: document[place] = letter; break;
            case 1: document.insert(place, 1, letter); break;
            case 2: document.erase(place, random.below(4u) + 1); break;
            default: document += letter; break;
            }
            if (document.empty()) {
                break;
            }
        }
        const Shape shape = shapeOf(document);
        met.add(shape);
        expectAgreement(document, shape);
    }
    EXPECT_GT(met.parsedWithElements, 1000);
    EXPECT_GT(met.brokenWithElements, 1000);
}

TEST(XmlNesting, AnswersInTimeWhateverTheDocument)
{
    const std::string repeats[] = {
        "<!--",
        "<![CDATA[",
        "<?",
        "<!",
        "<?xml ",
        "<a b='",
        "<a b=\"",
        "<a ",
        "<a/>",
        "</a>",
        "&#x",
        "&#",
        "&",
        "\xe0",
        "\xf0",
        "<",
        "/",
        "'",
        " ",
        "-",
        "]",
        "<a b=",
        "<a b c ",
        "<!-- -->",
        "<![CDATA[x]]>",
        "\xef\xbb\xbf",
        "<a><!--",
        "<a>&#x41",
        "<a>&#x41;",
        "<a></",
        "x",
        "encoding='",
    };
    for (const std::string& text : repeats) {
        SCOPED_TRACE(escaped(text));
        // Each search costs a sanitized build a look at the whole rest of the document.
        const std::string document = repeated(text, static_cast<int>(200000 / text.size()));
        const std::string front = "<?xml version='1.0' encoding='UTF-8'?><a>";
        const ChildEnd end = runInChild(
            [&] {
                goesBeyondLevels(document, manyLevels);
                goesBeyondLevels(front + document, manyLevels);
            },
            20);
        EXPECT_FALSE(end.timedOut);
        EXPECT_EQ(end.signal, 0) << end.output.substr(0, 500);
        EXPECT_EQ(end.exitStatus, 0) << end.output.substr(0, 500);
    }
}
