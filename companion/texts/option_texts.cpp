#include "texts/option_texts.h"

#include "base/tokens.h"
#include "out/text.h"
#include "schema/schemas.h"

#include <algorithm>

namespace companion {

std::vector<OptionRow> allOptionsOf(const Subcommand& subcommand)
{
    std::vector<OptionRow> rows(subcommand.options.begin(), subcommand.options.end());
    rows.insert(rows.end(), commonOptions().begin(), commonOptions().end());
    return rows;
}

std::vector<std::string> wordsOf(const OptionRow& row)
{
    std::vector<std::string> words;
    const std::string_view value = row.value == nullptr ? "" : row.value;
    if (value.find('|') != std::string_view::npos) {
        tavelinUtils::forEachToken(value, '|', [&words](std::string_view word) { words.emplace_back(word); });
    }
    return words;
}

bool takesPath(const OptionRow& row)
{
    const std::string_view value = row.value == nullptr ? "" : row.value;
    return value == "FILE" || value == "DIR" || value == "PATH" || value == "XSD";
}

std::vector<std::string> operandWords(const Subcommand& subcommand)
{
    if (std::string_view(subcommand.name) != "schema") {
        return {};
    }
    std::vector<std::string> words;
    for (const Schema& each : allSchemas()) {
        tavelinUtils::forEachToken(each.name, ' ', [&words](std::string_view word) {
            if (std::find(words.begin(), words.end(), word) == words.end()) {
                words.emplace_back(word);
            }
        });
    }
    return words;
}

std::string backslashed(std::string_view text, std::string_view characters)
{
    std::string result;
    for (const char character : text) {
        result += characters.find(character) == std::string_view::npos ? "" : "\\";
        result += character;
    }
    return result;
}

} // namespace companion
