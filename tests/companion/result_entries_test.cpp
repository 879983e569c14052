#include "reading/result_entries.h"

#include "results/result_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace {

using companion::ResultEntry;
using companion::resultsOfDocument;
using companion::resultsOfLog;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string date = "2024-03-09 04:05:06.000789";

std::vector<ResultEntry> entriesOf(const std::string& log)
{
    const TemporaryFolder folder;
    makeFile(folder / "run.log", log);
    return resultsOfLog(folder / "run.log");
}

TEST(ResultEntries, CommentAndDescriptionOfADocumentAreInTheirPlaces)
{
    const TemporaryFolder folder;
    tavelinUtils::sResXML(folder / "result.xml", {-3, "input file = output file", "a.mea = a.mea", {}});
    const auto entries = resultsOfDocument(folder / "result.xml");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.front().code, -3);
    EXPECT_EQ(entries.front().comment, "input file = output file");
    EXPECT_EQ(entries.front().description, "a.mea = a.mea");
    EXPECT_EQ(entries.front().date.size(), date.size());
}

TEST(ResultEntries, DocumentHasAllItsResults)
{
    const TemporaryFolder folder;
    tavelinUtils::sResXML(folder / "result.xml",
                          std::vector<tavelinUtils::TFuncRes>{{0, "OK", "a.tdm", {}}, {7, "no", "", {}}});
    const auto entries = resultsOfDocument(folder / "result.xml");
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries.back().code, 7);
    EXPECT_EQ(entries.back().description, "");
}

TEST(ResultEntries, LogOfTheLibraryIsRead)
{
    const TemporaryFolder folder;
    tavelinUtils::sResTXT(folder / "run.log", {0, "OK", "out/night.tdm", {}});
    const auto entries = resultsOfLog(folder / "run.log");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.front().description, "out/night.tdm");
}

TEST(ResultEntries, LogLinesAreSplitAtTheFirstSeparator)
{
    const std::string front = date + " Code=";
    EXPECT_THAT(entriesOf(front + "0//OK//out//night.tdm\n"),
                ElementsAre(ResultEntry{0, "OK", "out//night.tdm", date}));
    EXPECT_THAT(entriesOf(front + "-1////\n"), ElementsAre(ResultEntry{-1, "", "", date}));
    EXPECT_THAT(entriesOf(front + "-1//OK//\n"), ElementsAre(ResultEntry{-1, "OK", "", date}));
    EXPECT_THAT(entriesOf(front + "-1//OK\n"), ElementsAre(ResultEntry{-1, "OK", "", date}));
    EXPECT_THAT(entriesOf(front + "-1\n"), ElementsAre(ResultEntry{-1, "", "", date}));
}

TEST(ResultEntries, PathThatIsBothTextsMayHoldTheSeparator)
{
    EXPECT_THAT(entriesOf(date + " Code=-1//data//n.mea//data//n.mea\n"),
                ElementsAre(ResultEntry{-1, "data//n.mea", "data//n.mea", date}));
}

TEST(ResultEntries, OtherLinesOfTheLogAreNotPartOfAResult)
{
    EXPECT_THAT(entriesOf(date + " Code=0//OK//a\n" + date + " another program\n"),
                ElementsAre(ResultEntry{0, "OK", "a", date}));
    EXPECT_THAT(entriesOf(date + " Code=0//OK//a\nb\n"), ElementsAre(ResultEntry{0, "OK", "a\nb", date}));
    EXPECT_THAT(entriesOf("Code=0//OK//a\n"), IsEmpty());
    EXPECT_THAT(entriesOf("2024-03-09 Code=0//OK//a\n"), IsEmpty());
    EXPECT_THAT(entriesOf("2024-03-09 at 04:05 Code=0//OK//a\n"), IsEmpty());
    EXPECT_THAT(entriesOf(date + " Code=0//OK//a\na line as long as a stamp\n"),
                ElementsAre(ResultEntry{0, "OK", "a\na line as long as a stamp", date}));
}

TEST(ResultEntries, ALogIsReadFromAPlace)
{
    const TemporaryFolder folder;
    const std::string first = date + " Code=0//OK//a\n";
    makeFile(folder / "run.log", first + date + " Code=0//OK//b\n");
    EXPECT_THAT(resultsOfLog(folder / "run.log", first.size()), ElementsAre(ResultEntry{0, "OK", "b", date}));
    EXPECT_THAT(resultsOfLog(folder / "run.log", std::uint64_t{1} << 63), IsEmpty()); // no place of a file
}

} // namespace
