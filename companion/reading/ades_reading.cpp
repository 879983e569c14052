#include "reading/ades_reading.h"

#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "reading/gathered_tracks.h"
#include "reading/plain_text.h"
#include "reading/text_front.h"
#include "text/calendar.h"

#include <libxml/xmlreader.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t\r\n";

using tavelinUtils::toDouble;
using tavelinUtils::toInt;
using tavelinUtils::TRecLabelPervichka_File;

// The time of "2024-01-20T21:48:27.36Z"; false for any other text.
bool setTime(std::string_view text, TRecLabelPervichka_File& mark)
{
    constexpr std::string_view shape = "dddd-dd-ddTdd:dd:dd";
    if (text.size() <= shape.size() || text.back() != 'Z') {
        return false;
    }
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == 'd' ? !isDigit(text[i]) : text[i] != shape[i]) {
            return false;
        }
    }
    const auto part = [text](std::size_t at, std::size_t size) { return toInt(text.substr(at, size)); };
    mark.date = static_cast<int>(tavelinUtils::YMDToMJD(part(0, 4), part(5, 2), part(8, 2)));
    mark.time = tavelinUtils::TimeToDay(part(11, 2), part(14, 2), toDouble(text.substr(17)));
    return true;
}

// Makes marks of the values of observations.
class AdesObservations
{
public:
    GatheredTracks tracks{};

    // Of the blocks' context.
    void setObservatory(std::string_view code)
    {
        observatory = code;
    }

    // A value of the present observation.
    void set(std::string_view name, std::string_view text)
    {
        if (!text.empty()) {
            values.insert_or_assign(std::string(name), std::string(text));
        }
    }

    // The observation is complete.
    void finish(std::size_t line)
    {
        TRecLabelPervichka_File mark;
        const std::string& time = value("obsTime");
        if (!setTime(time, mark)) {
            tracks.leaveOut(finding("V126", {{"text", time}}), line);
        } else if (value("ra").empty() || value("dec").empty()) {
            tracks.leaveOut(finding("V140"), line);
        } else {
            addMark(std::move(mark), line);
        }
        values.clear();
    }

private:
    const std::string& value(const char* name) const
    {
        static const std::string none;
        const auto place = values.find(name);
        return place == values.end() ? none : place->second;
    }

    const std::string& name() const
    {
        for (const char* each : {"permID", "provID", "artSat"}) {
            if (!value(each).empty()) {
                return value(each);
            }
        }
        return value("trkSub");
    }

    void addMark(TRecLabelPervichka_File mark, std::size_t line)
    {
        mark.RA = toDouble(value("ra"));
        mark.DE = toDouble(value("dec"));
        mark.m = toDouble(value("mag"));
        mark.filtr = value("band");
        const TrueMark info{line, true, !value("mag").empty(), !value("band").empty()};
        tracks.add(name(), value("stn").empty() ? observatory : value("stn"), std::move(mark), info);
    }

    std::string observatory{};
    std::map<std::string, std::string, std::less<>> values{};
};

// The text form: context lines with # and !, a row of names, a row for each observation.
class AdesRows
{
public:
    void add(std::string_view line)
    {
        ++number;
        line = trimmed(line, blanks);
        if (line.empty()) {
            return;
        }
        if (line[0] == '#' || line[0] == '!') {
            takeContext(trimmed(line.substr(1), blanks));
        } else if (names.empty()) {
            tavelinUtils::forEachToken(
                line, '|', [this](std::string_view cell) { names.emplace_back(trimmed(cell, blanks)); });
        } else {
            takeRow(line);
        }
    }

    AdesObservations observations{};

private:
    void takeContext(std::string_view text)
    {
        constexpr std::string_view key = "mpcCode";
        names.clear(); // a context ends the rows before it
        if (text.starts_with(key)) {
            observations.setObservatory(trimmed(text.substr(key.size()), blanks));
        }
    }

    void takeRow(std::string_view line)
    {
        std::size_t column = 0;
        tavelinUtils::forEachToken(line, '|', [this, &column](std::string_view cell) {
            if (column < names.size()) {
                observations.set(names[column], trimmed(cell, blanks));
            }
            ++column;
        });
        observations.finish(number);
    }

    std::size_t number = 0;
    std::vector<std::string> names{};
};

// The reader of a document, element by element.
class AdesElements
{
public:
    explicit AdesElements(const std::string& path)
        : reader(xmlReaderForFile(path.c_str(), nullptr, options), xmlFreeTextReader)
    {
    }

    // A reader that could not be made reads nothing, and its end is none of a document.
    void read()
    {
        int state = xmlTextReaderRead(reader.get());
        for (; state == 1; state = xmlTextReaderRead(reader.get())) {
            take();
        }
        if (state != 0) {
            observations.tracks.leaveOut(
                finding("V380", {{"element", "the document"}, {"rule", "is not well-formed"}}), line());
        }
    }

    AdesObservations observations{};

private:
    static constexpr int options =
        XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_BIG_LINES;

    // Also of a null pointer, which is no text.
    static std::string text(const xmlChar* characters)
    {
        return {reinterpret_cast<const char*>(characters), static_cast<std::size_t>(xmlStrlen(characters))};
    }

    std::size_t line() const
    {
        const xmlNode* const node = xmlTextReaderCurrentNode(reader.get());
        return static_cast<std::size_t>(node == nullptr ? 1 : std::max(xmlGetLineNo(node), 1L));
    }

    void take()
    {
        const int type = xmlTextReaderNodeType(reader.get());
        if (type == XML_READER_TYPE_ELEMENT) {
            open(text(xmlTextReaderConstLocalName(reader.get())));
        } else if (type == XML_READER_TYPE_TEXT || type == XML_READER_TYPE_CDATA) {
            said += text(xmlTextReaderConstValue(reader.get()));
        } else if (type == XML_READER_TYPE_END_ELEMENT) {
            close(text(xmlTextReaderConstLocalName(reader.get())));
        }
    }

    void open(const std::string& name)
    {
        if (name == "optical" || name == "radar" || name == "offset" || name == "occultation") {
            observation = name;
            began = line();
        }
        said.clear();
    }

    void close(const std::string& name)
    {
        if (name == "mpcCode") {
            observations.setObservatory(trimmed(said, blanks));
        } else if (name == observation) {
            observations.finish(began);
            observation.clear();
        } else if (!observation.empty()) {
            observations.set(name, trimmed(said, blanks));
        }
        said.clear();
    }

    std::unique_ptr<xmlTextReader, void (*)(xmlTextReader*)> reader;
    std::string observation{}; // the element that is open
    std::size_t began = 0;
    std::string said{};
};

} // namespace

bool isAdes(std::string_view format)
{
    return format == "ades.xml" || format == "ades.psv";
}

TrueOutcome readAdes(const std::string& path, std::string_view format,
                     const std::function<void(TrueTrack&)>& use)
{
    frontOfFile(path); // throws for one that cannot be read
    if (format == "ades.xml") {
        AdesElements elements(path);
        elements.read();
        return elements.observations.tracks.give(use);
    }
    const PlainText plain = plainText(path);
    if (!plain.broken.empty()) {
        return {{finding("V101", {{"encoding", plain.broken}})}, 0};
    }
    AdesRows rows;
    tavelinUtils::takeLines(plain.text, rows);
    return rows.observations.tracks.give(use);
}

} // namespace companion
