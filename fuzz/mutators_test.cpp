#include "dictionary.h"
#include "table_mutator.h"
#include "xml_mutator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using Texts = std::set<std::string>;

constexpr unsigned enough = 20000; // choices, for each change of so small a text to be among them
constexpr unsigned few = 500;      // for a text whose changes are only to end

const std::vector<std::string> words{"path", "seria"};

// What a mutator makes of a text in so many choices.
template <class Mutator>
Texts changesOf(Mutator mutator, const std::string& text, unsigned count = enough)
{
    Texts texts;
    for (unsigned seed = 1; seed <= count; ++seed) {
        Choices choices(seed * 7919, words);
        texts.insert(mutator(text, choices));
    }
    return texts;
}

void expectAmong(const Texts& texts, std::initializer_list<const char*> expected)
{
    for (const char* const text : expected) {
        EXPECT_TRUE(texts.contains(text)) << text;
    }
}

// Each opened element is closed, in order.
bool isNested(std::string_view text)
{
    std::vector<std::string> open;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::string tag(text.substr(at + 1, text.find('>', at) - at - 1));
        const std::string name = tag.substr(tag.starts_with('/') ? 1 : 0, tag.find(' '));
        if (!tag.starts_with('/') && !tag.ends_with('/')) {
            open.push_back(name);
        } else if (tag.starts_with('/')) {
            if (open.empty() || open.back() != name) {
                return false;
            }
            open.pop_back();
        }
    }
    return open.empty();
}

} // namespace

TEST(Dictionary, WordsStandBetweenTheirQuotes)
{
    const std::vector<std::string> expected{"META_START\n", "a\\b\"c", "#"};
    EXPECT_EQ(
        wordsOfDictionary("# a remark with a \"word\"\n\"META_START\\x0A\"\nname=\"a\\\\b\\\"c\"\n\n\"#\""),
        expected);
}

TEST(XmlMutator, ElementsAreRepeatedDroppedSwappedNestedAndRenamed)
{
    expectAmong(changesOf(changedXml, "<r><a>1</a><b/></r>"),
                {"<r><a>1</a><a>1</a><b/></r>", "<r><b/></r>", "<r><b/><a>1</a></r>",
                 "<r><a><b/>1</a><b/></r>", "<r><path>1</path><b/></r>", "<r><a>1</a><seria><b/></seria></r>",
                 "<r>1<b/></r>", "<r><a>1</a><path/></r>"});
}

TEST(XmlMutator, ValuesAndAttributesAreChanged)
{
    expectAmong(changesOf(changedXml, "<r><a n=\"1\">1</a></r>"),
                {"<r><a n=\"1\">nan</a></r>", "<r><a n=\"1\"></a></r>", "<r><a n=\"1\">seria</a></r>",
                 "<r><a/></r>", "<r><a></a></r>", "<r><a>1</a></r>",
                 "<r><a path=\"seria\" n=\"1\">1</a></r>"});
}

TEST(XmlMutator, TreesStayTrees)
{
    for (const std::string& text : changesOf(changedXml, "<?xml?><r><a>1</a><!-- <b> --><c><d/></c></r>")) {
        std::string withoutRemark = text;
        for (std::size_t at; (at = withoutRemark.find("<!-- <b> -->")) != std::string::npos;) {
            withoutRemark.erase(at, 12);
        }
        for (std::size_t at; (at = withoutRemark.find("<?xml?>")) != std::string::npos;) {
            withoutRemark.erase(at, 7);
        }
        EXPECT_TRUE(isNested(withoutRemark)) << text;
    }
}

TEST(XmlMutator, TornTagsAreTakenAsTheyAre)
{
    for (const char* const text :
         {"<", "<a", "</", "</a></b><c>", "<a><b></a>", "x<a>y<b z>w", "<a/><", "<!--<a>"})
    {
        EXPECT_FALSE(changesOf(changedXml, text, few).empty());
    }
    EXPECT_FALSE(holdsElement("<!-- <a> --> </a> < 1"));
    EXPECT_TRUE(holdsElement("x<a"
                             ">"));
}

TEST(TableMutator, LinesAndTokensAreRepeatedDroppedSwappedAndJoined)
{
    expectAmong(changesOf(changedTable, "a b\nc d\n"), {"a b\na b\nc d\n", "c d\n", "c d\na b\n", "a bc d\n",
                                                        "a a b\nc d\n", "b\nc d\n", "ab\nc d\n"});
}

TEST(TableMutator, ValuesMayKeepTheirWidth)
{
    expectAmong(changesOf(changedTable, "12345 x\n"),
                {"nan x\n", "nan00 x\n", "nan   x\n", "seria x\n", "path  x\n", " x\n", "12-45 x\n"});
}

TEST(TableMutator, ColumnsChangeInAllLines)
{
    expectAmong(changesOf(changedTable, "1\t2\t3\n4\t5\t6\n"), {"2\t3\n5\t6\n", "2\t1\t3\n5\t4\t6\n"});
}

TEST(TableMutator, AnyTextIsTaken)
{
    for (const char* const text : {"", "\n", " ", "\n\n  \n", "a", "::\t"}) {
        EXPECT_FALSE(changesOf(changedTable, text, few).empty());
    }
}
