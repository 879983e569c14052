// What the manual pages list, held against what programs read and write.

#include "texts/manual_tables.h"

#include "config/configuration_keys.h"
#include "format_words.h"
#include "formats/track_table_columns.h"
#include "reading/signatures.h"
#include "results/code_table.h"
#include "schema/converted_keys.h"
#include "texts/page_columns.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace companion;

// A page without the backslashes before marks of emphasis.
std::string pageOf(const std::string& name)
{
    std::string page = bytesOf(std::string(VOMAR_PROJECT) + "/packaging/man/" + name + ".scd");
    page.erase(std::remove(page.begin(), page.end(), '\\'), page.end());
    return page;
}

// Pages are too long to be shown.
bool holds(const std::string& page, const std::string& text)
{
    return page.find(text) != std::string::npos;
}

// A row of a table as the pages write it.
std::string rowOf(const std::string& first)
{
    return "\n|[ *" + first + "*\n";
}

// All that a pattern finds in a text, by its first group.
std::vector<std::string> found(const std::string& pattern, const std::string& text)
{
    std::vector<std::string> all;
    const std::regex expression(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        all.push_back((*at)[1]);
    }
    return all;
}

// What a format writes of a track with a mark.
std::string written(const std::string& format)
{
    const TemporaryFolder folder;
    tavelinUtils::TrackVtorichka track;
    track.QRVName = "A1";
    track.Marks.emplace_back();
    std::vector<tavelinUtils::TrackVtorichka> tracks{track};
    SelectFormatAndSave(folder / "file", format, tracks);
    return bytesOf(folder / "file");
}

void expectAll(const std::vector<std::string>& words, const std::string& page)
{
    EXPECT_FALSE(words.empty());
    for (const std::string& word : words) {
        EXPECT_TRUE(holds(page, '*' + word + '*')) << word;
    }
}

TEST(ManualTables, EveryCodeIsOnThePageOfResults)
{
    const std::string page = pageOf("vomar-result.5");
    for (const int code : tavelinUtils::codesWithText()) {
        EXPECT_TRUE(holds(page, rowOf(std::to_string(code)))) << code;
    }
    EXPECT_EQ(tavelinUtils::codesWithText().size(), 154U);
}

TEST(ManualTables, EveryColumnIsOnThePageOfTrackTables)
{
    const std::string page = pageOf("vomar-track-table.5");
    for (const tavelinUtils::TableColumn* const column : tavelinUtils::knownColumns()) {
        EXPECT_TRUE(holds(page, rowOf(std::string(column->name())))) << column->name();
    }
    EXPECT_EQ(tavelinUtils::knownColumns().size(), 62U + 17U);
}

TEST(ManualTables, EveryFormatIsOnThePageOfFormats)
{
    const std::string page = pageOf("tavelin-formats.7");
    for (const std::string& name : formatNames()) {
        EXPECT_TRUE(holds(page, rowOf(name))) << name;
        EXPECT_TRUE(holds(page, "\n; made: format " + name + '\n')) << name;
    }
}

TEST(ManualTables, WordsOfLinesThatAreWrittenAreOnThePageOfFormats)
{
    const std::string page = pageOf("tavelin-formats.7");
    expectAll(found("([A-Z_0-9]+) = ", written("tdm")), page);
    expectAll(found("<([A-Z_0-9]+)>", written("tdm.xml")), page);
    expectAll(found("\t([^\t\n]+)", written("mag").substr(0, written("mag").find('\n'))), page);
}

TEST(ManualTables, FieldsOfTheAavsoHaveARow)
{
    const std::string page = pageOf("tavelin-formats.7");
    const std::string header = written("aavso");
    const std::vector<std::string> fields =
        found("[#,]([A-Z]+)(?=[,\n])",
              header.substr(header.find("#NAME"), header.find("NOTES") - header.find("#NAME") + 6));
    EXPECT_EQ(fields.size(), 15U);
    for (const std::string& field : fields) {
        EXPECT_EQ(found("\n\\|\\[ [A-Z, ]*\\b(" + field + ")\\b", page).size(), 1U) << field;
    }
}

std::string defaultOf(const tavelinUtils::ConfigurationKey& key)
{
    return key.value == tavelinUtils::ConfigurationValue::converted ? convertedKey(key.key).ofNone
                                                                    : key.ofNone;
}

// A default as the page for people says it: "`Auto`" a text, "empty", "none" and "no catalogue" nothing,
// "3.0" and "2" a number, where words that no one knows have a number too.
bool saysDefault(const std::string& cell, const std::string& text)
{
    if (text.empty()) {
        return cell == "empty" || cell == "none" || cell == "no catalogue" || cell == "unknown" ||
               cell == "2";
    }
    return cell == text || cell == '`' + text + '`' || cell == text + ".0";
}

TEST(ManualTables, DefaultsOfConfigurationsAreThoseThatThePageSays)
{
    const std::string page = bytesOf(std::string(VOMAR_PROJECT) + "/docs/configuration.md");
    const std::vector<std::string> names = found("\n\\| `(\\w+)` \\| [^|]* \\| [^|]* \\|", page);
    const std::vector<std::string> defaults = found("\n\\| `\\w+` \\| [^|]* \\| ([^|]*) \\|", page);
    std::size_t row = 0;
    for (const tavelinUtils::ConfigurationKey& key : tavelinUtils::configurationKeys()) {
        if (key.section != "TLEs/TLE") {
            ASSERT_LT(row, names.size());
            EXPECT_EQ(names[row], key.key);
            EXPECT_TRUE(saysDefault(defaults[row], defaultOf(key))) << key.key << ": " << defaults[row];
            ++row;
        }
    }
    EXPECT_EQ(row, names.size() - 1); // the last is the element of element sets
}

TEST(ManualTables, UnknownNamesMakeNothing)
{
    EXPECT_EQ(madeTable("author"), "");
    EXPECT_EQ(madeTable("format MEA"), "");
}

TEST(PageColumns, ATableOfAPageBecomesOneOfAManualPage)
{
    const std::string page = "# Page\n\n| What | Else |\n|---|---|\n| `no` | x |\n\n"
                             "| `Field` | Width | Form |\n|---|---|---|\n"
                             "| `a_b` | 7 | [more](m.md#x), [`b`](b.md) or `*` |\n| c | | |\n\nText\n";
    EXPECT_EQ(manualTableOfPage(page, {1, 3}, "`Field`"),
              "|[ *Field*\n:< *Form*\n|[ *a\\_b*\n:< more, *b* or *\\**\n|[ c\n:<\n\n");
}

TEST(PageColumns, ATableThatThePageDoesNotHaveIsAFault)
{
    const std::string page = "| Field | Width |\n|---|---|\n| a | 7 |\n\n";
    EXPECT_THROW(manualTableOfPage(page, {1}, "Width"), std::runtime_error);
    EXPECT_THROW(manualTableOfPage("| Field |\n", {1}, "Field"), std::runtime_error);
    EXPECT_THROW(manualTableOfPage(page, {3}, "Field"), std::out_of_range);
}

} // namespace
