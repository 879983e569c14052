// What the tool says with its codes and texts.

#include "reading/code_meanings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using companion::ResultEntry;
using testing::ElementsAre;
using testing::IsEmpty;

// Which texts an entry is told to have.
std::string textsOf(int code, const std::string& comment, const std::string& description)
{
    const companion::CodeMeaning* const meaning = companion::toolMeaning({code, comment, description, ""});
    return meaning == nullptr ? "" : std::string(meaning->texts);
}

} // namespace

TEST(CodeMeanings, TextsOfARunThatFailed)
{
    EXPECT_EQ(textsOf(-1, "OK", "paths.size() == 0"),
              "the comment \"OK\" and the description \"paths.size() == 0\"");
    EXPECT_EQ(textsOf(-1, "OK", ""), "the comment \"OK\" and an empty description");
    EXPECT_EQ(textsOf(-1, "OK", "a.tdm;"), "the comment \"OK\" and the paths that were tried");
    EXPECT_EQ(textsOf(-1, "a.mea", "a.mea"), "the path of the input as comment and description");
    EXPECT_EQ(textsOf(-1, "something", "else"), "");
}

TEST(CodeMeanings, TextsOfARunThatWasDone)
{
    EXPECT_EQ(textsOf(0, "OK", ""), "the comment \"OK\" and an empty description");
    EXPECT_EQ(textsOf(0, "OK", "a.tdm"), "the comment \"OK\" and one path");
    EXPECT_EQ(textsOf(0, "done", "a.tdm"), "");
}

TEST(CodeMeanings, FilesThatAnEntryNames)
{
    EXPECT_THAT(companion::namedFiles({0, "OK", "a.tdm", ""}), ElementsAre("a.tdm"));
    EXPECT_THAT(companion::namedFiles({0, "OK", "", ""}), IsEmpty());
    EXPECT_THAT(companion::namedFiles({0, "done", "a.tdm", ""}), IsEmpty());
    EXPECT_THAT(companion::namedFiles({-1, "a.mea", "a.mea", ""}), IsEmpty());
}
