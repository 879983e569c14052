#include "command/explanation.h"
#include "findings/finding_examples.h"
#include "reading/code_meanings.h"
#include "results/code_table.h"

#include "companion/golden.h"

#include <gmock/gmock.h>

#include <set>

namespace {

using namespace companion;
using testing::HasSubstr;

constexpr int rowsOfCodeTable = 154;

// Whether a text is made of sentences: from a capital letter to a full stop.
bool isSentences(std::string_view text)
{
    return text.size() > 2 && text.front() >= 'A' && text.front() <= 'Z' && text.back() == '.' &&
           text.find('{') == std::string_view::npos;
}

// What follows "tavelin " in a text, word by word.
std::vector<std::string> subcommandsIn(std::string_view text)
{
    const std::string_view name = "tavelin ";
    std::vector<std::string> words;
    for (std::size_t at = text.find(name); at != std::string_view::npos; at = text.find(name, at)) {
        at += name.size();
        words.emplace_back(text.substr(at, text.find_first_not_of("abcdefghijklmnopqrstuvwxyz", at) - at));
    }
    return words;
}

TEST(FindingTable, SaysWhatHappensAndWhatToDoInWholeSentences)
{
    for (const FindingRow& row : findingTable()) {
        SCOPED_TRACE(row.code.text());
        EXPECT_TRUE(isSentences(row.happens)) << row.happens;
        EXPECT_TRUE(isSentences(row.remedy)) << row.remedy;
    }
}

TEST(FindingTable, NamesOnlySubcommandsThatThereAre)
{
    const std::set<std::string> known{"check", "run",     "explain",   "info",   "lint", "schema",
                                      "ready", "convert", "normalise", "report", "diff", "help"};
    for (const FindingRow& row : findingTable()) {
        SCOPED_TRACE(row.code.text());
        for (const std::string_view text : {row.happens, row.remedy}) {
            for (const std::string& word : subcommandsIn(text)) {
                EXPECT_TRUE(known.count(word) == 1) << word;
            }
        }
    }
}

TEST(Explain, ExplainsEachRowOfBothTablesInItsOwnWords)
{
    std::set<std::string> texts;
    for (const FindingRow& row : findingTable()) {
        const CommandEnd end = callCommand({"explain", row.code.text()});
        EXPECT_EQ(end.status, 0) << row.code.text();
        EXPECT_TRUE(texts.insert(end.out).second) << end.out;
    }
    int codes = 0;
    for (int code = -2000; code < 3000; ++code) {
        if (isResultCode(code)) {
            const CommandEnd end = callCommand({"explain", std::to_string(code)});
            EXPECT_EQ(end.status, 0) << code;
            EXPECT_TRUE(texts.insert(end.out).second) << end.out;
            ++codes;
        }
    }
    EXPECT_EQ(codes, rowsOfCodeTable);
}

TEST(Explain, ExplainsEachFormatWithItsPage)
{
    for (const FormatFacts& facts : formatFactsTable()) {
        const CommandEnd end = callCommand({"explain", std::string(facts.name)});
        EXPECT_EQ(end.status, 0) << facts.name;
        EXPECT_THAT(end.out, HasSubstr(std::string(facts.page)));
    }
}

TEST(Explain, ListHasALineForEachFinding)
{
    const std::string list = callCommand({"explain", "--list"}).out;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), std::ssize(findingTable()));
    EXPECT_THAT(list, HasSubstr("\nV240: warning: {lost} of {marks} would be in no file"));
}

TEST(Explain, MarkdownListHasASectionForEachFinding)
{
    const std::string page = callCommand({"explain", "--list", "--markdown"}).out;
    for (const FindingRow& row : findingTable()) {
        EXPECT_THAT(page, HasSubstr("\n## " + row.code.text() + "\n\n`" + std::string(row.text) + "`\n"));
    }
    EXPECT_THAT(page, HasSubstr("values are written &amp;amp; and &amp;lt;."));
}

TEST(CodeMeanings, OnlyZeroAndOneHundredTellOfSuccess)
{
    EXPECT_FALSE(tellsOfFailure({0, "OK", "a.tdm"}));
    EXPECT_FALSE(tellsOfFailure({100, "", ""}));
    EXPECT_TRUE(tellsOfFailure({-1, "OK", ""}));
    EXPECT_TRUE(tellsOfFailure({116, "", ""}));
}

TEST(CodeMeanings, FilesAreNamedByResultsOfTheToolAlone)
{
    EXPECT_THAT(namedFiles({0, "OK", "a;b.tdm"}), testing::ElementsAre("a;b.tdm"));
    EXPECT_THAT(namedFiles({-1, "OK", "a.tdm;b.tdm;"}), testing::ElementsAre("a.tdm", "b.tdm"));
    EXPECT_THAT(namedFiles({0, "OK", ""}), testing::IsEmpty());
    EXPECT_THAT(namedFiles({-1, "OK", "paths.size() == 0"}), testing::IsEmpty());
    EXPECT_THAT(namedFiles({-1, "a.mea", "a.mea"}), testing::IsEmpty());
    EXPECT_THAT(namedFiles({4, "File does not exist", "a.mea;"}), testing::IsEmpty());
}

} // namespace
