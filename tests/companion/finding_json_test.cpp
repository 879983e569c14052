// Findings as JSON, written and read again.

#include "out/finding_json.h"

#include <gtest/gtest.h>

namespace {

using companion::Finding;
using companion::finding;
using companion::findingIn;
using companion::findingJson;
using companion::ReadJson;

TEST(FindingJson, AFindingIsReadAsItWasWritten)
{
    const Finding written =
        finding("V415", {{"path", "reports/\"a\".txt"}}).in("t\xE9.xml").at(3, 5).times(4);
    const ReadJson json(findingJson(written).text());
    const auto read = findingIn(json.root());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->code, written.code);
    EXPECT_EQ(read->severity, written.severity);
    EXPECT_EQ(read->text, "reports/\"a\".txt is missing");
    EXPECT_EQ(read->file, "t\xE9.xml");
    EXPECT_EQ(read->line, 3U);
    EXPECT_EQ(read->column, 5U);
    EXPECT_EQ(read->count, 4U);
}

TEST(FindingJson, AFindingOfNoFileHasNone)
{
    const ReadJson json(findingJson(finding("V415", {{"path", "a.txt"}})).text());
    EXPECT_EQ(json.root()["text"].text(), "a.txt is missing");
    EXPECT_FALSE(json.root()["file"]);
}

TEST(FindingJson, WhatIsNoFindingIsNone)
{
    for (const char* text : {"{}", "[]", "7", R"({"code":"X415","severity":"error"})",
                             R"({"code":"V415","severity":"fatal"})", R"({"code":415,"severity":"error"})"})
    {
        EXPECT_FALSE(findingIn(ReadJson(text).root())) << text;
    }
}

} // namespace
