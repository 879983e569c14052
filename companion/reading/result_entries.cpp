#include "reading/result_entries.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "config/xml_document.h"
#include "files/essentials.h"
#include "out/characters.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace companion {
namespace {

constexpr std::string_view codeMark = " Code=";
constexpr std::string_view separator = "//";

constexpr std::string_view stampForm = "0000-00-00 00:00:00";

// Whether a line begins as each line of a log does, that of a result or another.
bool isStamped(std::string_view line)
{
    return line.size() >= stampForm.size() &&
           std::equal(stampForm.begin(), stampForm.end(), line.begin(),
                      [](char wanted, char c) { return wanted == '0' ? isDigit(c) : c == wanted; });
}

// The length of the time stamp at the front of an entry, "2024-03-09 04:05:06.000789"; 0 where there is none.
std::size_t stampLength(std::string_view line)
{
    const std::size_t end = line.find(codeMark);
    if (end == std::string_view::npos || end < stampForm.size() || !isStamped(line)) {
        return 0;
    }
    const std::string_view fraction = line.substr(stampForm.size(), end - stampForm.size());
    return std::all_of(fraction.begin(), fraction.end(), [](char c) { return c == '.' || isDigit(c); }) ? end
                                                                                                        : 0;
}

// Comment and description. An input that cannot be read has its path as both, and may hold the separator.
void splitTexts(std::string_view texts, ResultEntry& entry)
{
    const std::size_t half = texts.size() < separator.size() ? 0 : (texts.size() - separator.size()) / 2;
    const bool isTwice = texts.size() == 2 * half + separator.size() &&
                         texts.substr(half, separator.size()) == separator &&
                         texts.substr(0, half) == texts.substr(half + separator.size());
    const std::size_t end = std::min(isTwice ? half : texts.find(separator), texts.size());
    entry.comment = texts.substr(0, end);
    entry.description = texts.substr(std::min(end + separator.size(), texts.size()));
}

// The entry that begins with a line; nothing for a line that begins none.
std::optional<ResultEntry> entryOf(std::string_view line)
{
    const std::size_t stamp = stampLength(line);
    if (stamp == 0) {
        return std::nullopt;
    }
    ResultEntry entry{.date = std::string(line.substr(0, stamp))};
    std::string_view rest = line.substr(stamp + codeMark.size());
    entry.code = tavelinUtils::toInt(rest);
    rest.remove_prefix(std::min(rest.find(separator), rest.size() - std::min(rest.size(), separator.size())));
    rest.remove_prefix(std::min(separator.size(), rest.size()));
    splitTexts(rest, entry);
    return entry;
}

ResultEntry entryOf(TiXmlElement* element)
{
    ResultEntry entry;
    tavelinUtils::GetText(element, "Code", entry.code);
    tavelinUtils::GetText(element, "Comment", entry.comment);
    tavelinUtils::GetText(element, "Description", entry.description);
    tavelinUtils::GetText(element, "Date", entry.date);
    return entry;
}

} // namespace

bool isResultDocument(const std::string& path)
{
    const std::string extension = tavelinUtils::GetFileExt(path);
    return extension == ".xml" || extension == ".result";
}

std::vector<ResultEntry> resultsOfDocument(const std::string& path)
{
    tavelinUtils::TtavelinXmlDocument document(path);
    std::vector<ResultEntry> entries;
    if (!document.LoadFile()) {
        return entries;
    }
    TiXmlElement* const list = document.FirstChildElement("ResultsList");
    TiXmlElement* element = list == nullptr ? nullptr : list->FirstChildElement("Result");
    for (; element != nullptr; element = element->NextSiblingElement("Result")) {
        entries.push_back(entryOf(element));
    }
    return entries;
}

std::vector<ResultEntry> resultsOfLog(const std::string& path, std::uint64_t from)
{
    std::vector<ResultEntry> entries;
    const tavelinUtils::OpenFile file = tavelinUtils::openForReading(path);
    if (file == nullptr || fseeko(file.get(), static_cast<off_t>(from), SEEK_SET) != 0) {
        return entries;
    }
    const auto take = [&entries](std::string_view line) {
        if (auto entry = entryOf(line)) {
            entries.push_back(std::move(*entry));
        } else if (!entries.empty() && !isStamped(line)) {
            entries.back().description.append("\n").append(line);
        }
    };
    tavelinUtils::LinePieces pieces(file.get());
    while (pieces.next()) {
        tavelinUtils::forEachToken(pieces.lines(), '\n', take);
    }
    return entries;
}

} // namespace companion
