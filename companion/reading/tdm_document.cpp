#include "reading/tdm_document.h"

#include "base/lines.h"
#include "reading/xml_lines.h"
#include "receivers/tdm_keys.h"

#include <tinyxml.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <utility>

namespace companion {
namespace {

struct QuantityRow
{
    std::string_view key;
    TdmQuantity quantity;
};
constexpr QuantityRow quantities[] = {
    {"ANGLE_1", TdmQuantity::angle1}, {"ANGLE_2", TdmQuantity::angle2}, {"MAG", TdmQuantity::magnitude}};

const QuantityRow* quantityOf(std::string_view key)
{
    const auto* const row = std::find_if(std::begin(quantities), std::end(quantities),
                                         [key](const QuantityRow& each) { return each.key == key; });
    return row == std::end(quantities) ? nullptr : row;
}

// Puts a document together from its parts.
class TdmBuilder
{
public:
    void openSegment(std::size_t line)
    {
        document.segments.emplace_back();
        document.segments.back().line = line;
        isInData = false;
    }
    void openData()
    {
        isInData = true;
    }

    // A key outside the data, a comment anywhere.
    void entry(std::string_view key, std::string_view value, std::size_t line)
    {
        if (!mayBeEntry(key) || !keep(key, value, line)) {
            other(key);
        }
    }

    // What no mark is made of.
    void other(std::string_view key)
    {
        ++document.others[std::string(key)];
    }

    void record(std::string_view key, std::string_view epoch, std::string_view value, std::size_t line)
    {
        const QuantityRow* const row = quantityOf(key);
        if (row == nullptr) {
            other(key);
            return;
        }
        if (document.segments.empty()) {
            openSegment(line);
        }
        document.segments.back().data.push_back({row->quantity, line, epoch, value});
    }

    TdmDocument document{};
    bool isInData = false;

private:
    // Puts an entry where it belongs; false where there is no place for it.
    bool keep(std::string_view key, std::string_view value, std::size_t line)
    {
        if (document.segments.empty()) {
            document.header.push_back({std::string(key), std::string(value), line});
        } else if (!isInData) {
            document.segments.back().metadata.push_back({std::string(key), std::string(value), line});
        } else if (key == "COMMENT") {
            document.segments.back().comments.emplace_back(value);
        } else {
            return false;
        }
        return true;
    }

    // Words that stand for something else where they begin a line.
    static bool mayBeEntry(std::string_view key)
    {
        constexpr std::string_view brackets[] = {"META_START", "META_STOP", "DATA_START", "DATA_STOP"};
        return !key.empty() && quantityOf(key) == nullptr &&
               std::find(std::begin(brackets), std::end(brackets), key) == std::end(brackets);
    }
};

// A carriage return within a line would end it where it comes to be its last character.
std::string withoutReturns(std::string_view text)
{
    std::string line(text);
    std::erase(line, '\r');
    return line.substr(0, line.find_last_not_of(" \t") + 1);
}

// Takes the lines of a message as text.
void takeLine(std::string_view line, std::size_t number, TdmBuilder& builder)
{
    const TdmLine read = tdmLineOf(line);
    if (read.key.empty()) {
        return;
    }
    if (read.key == "META_START") {
        builder.openSegment(number);
    } else if (read.key == "DATA_START") {
        builder.openData();
    } else if (read.key == "META_STOP" || read.key == "DATA_STOP") {
        return;
    } else if (read.hasValue && (builder.isInData || quantityOf(read.key) != nullptr)) {
        const TdmRecord record = tdmRecordOf(read.value);
        builder.record(read.key, record.epoch, record.value, number);
    } else if (!read.hasValue && read.key != "COMMENT") {
        builder.other(read.key);
    } else {
        builder.entry(read.key, withoutReturns(read.value), number);
    }
}

// The name of an element without the prefix of its namespace.
std::string_view nameOf(const TiXmlElement& element)
{
    const std::string_view name = element.ValueStr();
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view textOf(const TiXmlElement& element)
{
    const char* const text = element.GetText();
    const std::string_view whole = text == nullptr ? "" : text;
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = std::min(whole.find_first_not_of(blanks), whole.size());
    return whole.substr(begin, whole.find_last_not_of(blanks) + 1 - begin);
}

// A text of several lines in one.
std::string lineOfText(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return line;
}

template <class Take>
void eachChild(const TiXmlElement& element, Take take)
{
    for (const TiXmlElement* each = element.FirstChildElement(); each != nullptr;
         each = each->NextSiblingElement())
    {
        take(*each);
    }
}

// Takes the elements of a message as XML.
class TdmElements
{
public:
    TdmElements(const XmlLines& xmlLines, TdmBuilder& tdmBuilder) : lines(xmlLines), builder(tdmBuilder)
    {
    }

    // The root may be the message, or hold one among other messages.
    void take(const TiXmlElement& root)
    {
        if (nameOf(root) == "tdm") {
            takeMessage(root);
            return;
        }
        eachChild(root, [this](const TiXmlElement& child) {
            if (nameOf(child) == "tdm") {
                takeMessage(child);
            }
        });
    }

private:
    std::size_t lineOf(const TiXmlElement& element) const
    {
        return lines.placeOf(element).line;
    }

    void takeMessage(const TiXmlElement& message)
    {
        const char* const version = message.Attribute("version");
        if (version != nullptr && builder.document.segments.empty()) {
            builder.entry("CCSDS_TDM_VERS", lineOfText(version), lineOf(message));
        }
        eachChild(message, [this](const TiXmlElement& part) {
            if (nameOf(part) == "header" && builder.document.segments.empty()) {
                takeEntries(part);
            } else if (nameOf(part) == "body") {
                eachChild(part, [this](const TiXmlElement& segment) { takeSegment(segment); });
            }
        });
    }

    void takeEntries(const TiXmlElement& part)
    {
        eachChild(part, [this](const TiXmlElement& each) {
            builder.entry(nameOf(each), lineOfText(textOf(each)), lineOf(each));
        });
    }

    void takeSegment(const TiXmlElement& segment)
    {
        if (nameOf(segment) != "segment") {
            return;
        }
        builder.openSegment(lineOf(segment));
        eachChild(segment, [this](const TiXmlElement& part) {
            if (nameOf(part) == "metadata") {
                takeEntries(part);
            } else if (nameOf(part) == "data") {
                builder.openData();
                eachChild(part, [this](const TiXmlElement& each) { takeDatum(each); });
            }
        });
    }

    // A comment, or an observation: an epoch and its values. Some writers put the epoch in front of each
    // value instead.
    void takeDatum(const TiXmlElement& each)
    {
        if (nameOf(each) == "COMMENT") {
            builder.entry("COMMENT", lineOfText(textOf(each)), lineOf(each));
            return;
        }
        std::string_view epoch;
        eachChild(each, [this, &epoch](const TiXmlElement& part) {
            if (nameOf(part) == "EPOCH") {
                epoch = textOf(part);
                return;
            }
            const TdmRecord record = tdmRecordOf(textOf(part));
            const bool hasOwnEpoch = epoch.empty() && !record.value.empty();
            builder.record(nameOf(part), hasOwnEpoch ? record.epoch : epoch,
                           hasOwnEpoch ? record.value : record.epoch, lineOf(part));
        });
    }

    const XmlLines& lines;
    TdmBuilder& builder;
};

} // namespace

std::string_view keyOf(TdmQuantity quantity)
{
    return quantities[static_cast<std::size_t>(quantity)].key;
}

std::optional<std::string> TdmSegment::valueOf(std::string_view key) const
{
    const auto at = std::find_if(metadata.rbegin(), metadata.rend(),
                                 [key](const TdmEntry& each) { return each.key == key; });
    return at == metadata.rend() ? std::nullopt : std::optional(at->value);
}

TdmDocument tdmOfText(std::string_view text)
{
    TdmBuilder builder;
    std::size_t number = 0;
    tavelinUtils::forEachLine(text, [&](std::string_view line) { takeLine(line, ++number, builder); });
    return std::move(builder.document);
}

std::optional<TdmDocument> tdmOfXml(std::string_view text)
{
    XmlLines lines;
    tavelinUtils::forEachLine(text, [&lines](std::string_view line) { lines.add(line); });
    const auto document = std::make_shared<TiXmlDocument>();
    const TiXmlElement* const root = lines.parse(*document);
    if (root == nullptr) {
        return std::nullopt;
    }
    TdmBuilder builder;
    TdmElements(lines, builder).take(*root);
    builder.document.kept = document;
    return std::move(builder.document);
}

} // namespace companion
