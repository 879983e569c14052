#include "texts/manual_tables.h"

#include "base/tokens.h"
#include "config/configuration_keys.h"
#include "format_words.h"
#include "formats/track_table_columns.h"
#include "out/text.h"
#include "reading/code_meanings.h"
#include "reading/format_facts.h"
#include "reading/signatures.h"
#include "results/code_table.h"
#include "schema/converted_keys.h"
#include "task/key_table.h"
#include "texts/manual_layout.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

namespace companion {
namespace {

using tavelinUtils::ConfigurationKey;
using tavelinUtils::ConfigurationValue;
using tavelinUtils::TableColumn;
using Rows = std::vector<std::vector<std::string>>;

std::string boldList(const std::vector<std::string>& words)
{
    std::vector<std::string> marked;
    std::transform(words.begin(), words.end(), std::back_inserter(marked), bold);
    return joined(marked, ", ");
}

// Keys of tasks.

template <class IsMeant>
std::string taskKeys(std::span<const TaskKey> keys, IsMeant isMeant)
{
    std::string text;
    for (const TaskKey& key : keys) {
        if (isMeant(key)) {
            const std::vector<std::string> words = wordsOf(key);
            text += manualItem(bold(key.name), plain(documentationOf(key)) +
                                                   (words.empty() ? "" : " Words: " + boldList(words) + '.'));
        }
    }
    return text;
}

std::string conversionKeys()
{
    return taskKeys(taskKeyTable(), [](const TaskKey& key) { return key.work != KeyWork::report; });
}

std::string reportKeys()
{
    return taskKeys(taskKeyTable(), [](const TaskKey& key) { return key.work == KeyWork::report; });
}

std::string seriesKeys()
{
    return taskKeys(seriaKeyTable(), [](const TaskKey&) { return true; });
}

// Keys of configurations.

std::string valueOfConverted(const std::string& key)
{
    const ConvertedKey& row = convertedKey(key);
    const std::vector<std::string> words = wordsOf(row);
    if (words.empty()) {
        return row.type;
    }
    return boldList(words) +
           (*row.ofNone == 0 ? "; any other is unknown" : "; any other is " + bold(row.ofNone));
}

std::string valueOf(const ConfigurationKey& key)
{
    switch (key.value) {
    case ConfigurationValue::number: return "number";
    case ConfigurationValue::integer: return "integer";
    case ConfigurationValue::flag: return "*true* or *false*";
    case ConfigurationValue::text: return "text";
    case ConfigurationValue::list: return "elements " + bold(key.item) + ", a text each";
    default: return valueOfConverted(key.key);
    }
}

std::string defaultOf(const ConfigurationKey& key)
{
    return key.value == ConfigurationValue::converted ? convertedKey(key.key).ofNone : key.ofNone;
}

std::string configurationKeyTables()
{
    std::string text;
    std::string section;
    Rows rows;
    const auto close = [&] {
        text += rows.empty()
                    ? ""
                    : "## " + (section.empty() ? "The root" : plain(section)) + "\n\n" + manualTable(rows);
        rows = {{"*Key*", "*Default*", "*Value*"}};
    };
    for (const ConfigurationKey& key : tavelinUtils::configurationKeys()) {
        if (rows.empty() || key.section != section) {
            close();
            section = key.section;
        }
        rows.push_back({bold(key.key), plain(defaultOf(key)), valueOf(key)});
    }
    close();
    return text;
}

std::string headerWords()
{
    return boldList(tavelinUtils::configurationHeaderWords()) + ".\n\n";
}

std::string filterLetters()
{
    return boldList(tavelinUtils::configurationFilterLetters()) + ".\n\n";
}

// Codes.

std::string toolCodes()
{
    std::string text;
    for (const CodeMeaning& each : toolMeanings()) {
        text += manualItem(bold(std::to_string(each.code)) + ", " + plain(each.texts),
                           plain(each.meaning) + ' ' + plain(each.remedy));
    }
    return text;
}

// The texts that the caller adds something to end in a blank.
std::string_view withoutEnd(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string codes()
{
    Rows rows{{"*Code*", "*Text*"}};
    for (const int code : tavelinUtils::codesWithText()) {
        rows.push_back({bold(std::to_string(code)), plain(withoutEnd(tavelinUtils::GetTextCode(code)))});
    }
    return manualTable(rows);
}

std::string libraryCodes()
{
    Rows rows{{"*Code*", "*Meaning*"}};
    for (const int code : tavelinUtils::codesWithText()) {
        if (!libraryMeaning(code).empty()) {
            rows.push_back({bold(std::to_string(code)), plain(libraryMeaning(code))});
        }
    }
    return manualTable(rows);
}

// Columns.

// What a column holds of a mark that nothing was set of.
std::string unsetText(const TableColumn& column)
{
    const tavelinUtils::TrackVtorichka track;
    tavelinUtils::DateTexts dates;
    tavelinUtils::TextBuffer out;
    column.write(out, tavelinUtils::markToWrite(track, 0, track.QRVName, track.N, dates));
    return std::string(out.view());
}

std::string_view readInto(const TableColumn& column)
{
    return column.ofMark.read != nullptr ? "mark" : column.isRead() ? "track" : "no";
}

// Whether a column has a description, name, type and unit: a standard one, or a name alone.
std::string columns(bool areStandard)
{
    Rows rows{{"*Column*", "*Type*", "*Unit*", "*Read*", "*Unset*"}};
    for (const TableColumn* const column : tavelinUtils::knownColumns()) {
        std::vector<std::string> parts;
        tavelinUtils::forEachToken(column->description, ':',
                                   [&parts](std::string_view part) { parts.push_back(plain(part)); });
        if ((parts.size() > 1) == areStandard) {
            parts.resize(3);
            rows.push_back({bold(column->name()), parts[1], parts[2], std::string(readInto(*column)),
                            plain(unsetText(*column))});
        }
    }
    return manualTable(rows);
}

std::string standardColumns()
{
    return columns(true);
}

std::string furtherColumns()
{
    return columns(false);
}

// Formats.

std::string_view yesOrNo(bool isSo)
{
    return isSo ? "yes" : "no";
}

std::string formats()
{
    Rows rows{{"*Format*", "*Input*", "*Output*", "*What it is*"}};
    for (const FormatFacts& each : formatFactsTable()) {
        const FormatWord* const word = formatWord(formatOpticMea_to_int(std::string(each.name)));
        rows.push_back({bold(each.name), std::string(yesOrNo(word != nullptr && word->read != nullptr)),
                        std::string(yesOrNo(word != nullptr)), plain(formatTitle(each.name))});
    }
    return manualTable(rows);
}

std::string formatOf(std::string_view name)
{
    const FormatFacts* const facts = formatFacts(name);
    if (facts == nullptr) {
        return "";
    }
    const std::pair<const char*, std::string_view> kept[] = {
        {"Recognised by", facts->recognised},
        {"Marks", facts->marks},
        {"Names", facts->names},
        {"Time", facts->time},
        {"Right ascension", facts->rightAscension},
        {"Declination", facts->declination},
        {"Magnitude", facts->magnitude},
    };
    std::string text = plain(facts->what) + "\n\n";
    for (const auto& [what, value] : kept) {
        text += value == "none" ? "" : manualItem(what, plain(value));
    }
    return text;
}

struct MadeTable
{
    std::string_view name;
    std::string (*make)();
};

constexpr MadeTable tables[] = {
    {"task-keys", conversionKeys},
    {"report-keys", reportKeys},
    {"series-keys", seriesKeys},
    {"configuration-keys", configurationKeyTables},
    {"header-words", headerWords},
    {"filter-letters", filterLetters},
    {"tool-codes", toolCodes},
    {"library-codes", libraryCodes},
    {"codes", codes},
    {"standard-columns", standardColumns},
    {"further-columns", furtherColumns},
    {"formats", formats},
};

} // namespace

std::string madeTable(std::string_view name)
{
    constexpr std::string_view ofFormat = "format ";
    if (name.starts_with(ofFormat)) {
        return formatOf(name.substr(ofFormat.size()));
    }
    const auto* const row = std::find_if(std::begin(tables), std::end(tables),
                                         [name](const MadeTable& each) { return each.name == name; });
    return row == std::end(tables) ? "" : row->make();
}

} // namespace companion
