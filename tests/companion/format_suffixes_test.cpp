#include "task/format_suffixes.h"

#include "task/key_table.h"

#include <gtest/gtest.h>

namespace {

using namespace companion;

TEST(FormatSuffixes, NameTheWord)
{
    const std::pair<const char*, const char*> taken[] = {
        {"a.mea", "mea"},   {"out/a.tel", "telegram"}, {"a.tdm", "tdm"},     {"a.kvn", "tdm"},
        {"a.ssm", "ssmas"}, {"a.ssmas", "ssmas"},      {"a.mpc.txt", "mpc"}, {"a.mpc", "mpc"},
        {"a.obs", "mpc"},   {"a.tdm.xml", "tdm.xml"},  {"a.mag", "mag"},     {"a.aavso.txt", "aavso"},
        {"a.b.mea", "mea"}, {".mea", "mea"},           {"a.tdm.mea", "mea"},
    };
    for (const auto& [path, word] : taken) {
        ASSERT_NE(formatSuffixOf(path), nullptr) << path;
        EXPECT_EQ(formatSuffixOf(path)->word, word) << path;
    }
    for (const char* path :
         {"", "a", "a.txt", "a.xml", "a.MEA", "mea", "a.mea/b", "a.mea.", "a.aavso", "a.result.xml"})
    {
        EXPECT_EQ(formatSuffixOf(path), nullptr) << path;
    }
}

TEST(FormatSuffixes, EachWordThatCanBeWrittenHasOne)
{
    for (const std::string& word : outputWords()) {
        const FormatSuffix* const row = formatSuffixOf("a" + usualSuffix(word));
        ASSERT_NE(row, nullptr) << word;
        EXPECT_EQ(row->word, word);
        EXPECT_NE(knownSuffixes().find(usualSuffix(word)), std::string::npos);
    }
    EXPECT_EQ(usualSuffix("vomar"), "");
}

} // namespace
