#include "reading/tdm_message.h"
#include "reading/xml_lines.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace companion {
namespace {

constexpr std::size_t longestLine = 254;

// The text form: a line for each key.
class TdmReceiver final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        if (!message) {
            message = std::make_unique<TdmMessage>(out);
        }
        const TdmLine read = tdmLineOf(line.text);
        if (read.key.empty()) {
            return;
        }
        const TdmPlace place{line.number, line.text, stretchOf(line.text, read.key, "key")};
        if (line.text.size() > longestLine) {
            message->tell(read.key, "is in a line of more than 254 characters", place);
        }
        if (isFirst && read.key != "CCSDS_TDM_VERS") {
            message->tell("CCSDS_TDM_VERS", "is not the first key of the message", place);
        }
        isFirst = false;
        lastLine = line.number;
        take(read, line, place);
    }

    void end(LintOutput& out) override
    {
        if (!message) {
            message = std::make_unique<TdmMessage>(out);
        }
        message->close({lastLine, {}, {}});
    }

private:
    void take(const TdmLine& read, const CheckedLine& line, const TdmPlace& place)
    {
        const TdmPlace valuePlace{line.number, line.text, stretchOf(line.text, read.value, "value")};
        if (read.key == "CCSDS_TDM_VERS") {
            message->version(read.value, valuePlace);
            message->openHeader();
        } else if (read.key == "COMMENT") {
            message->comment(place);
        } else if (read.key == "META_START") {
            message->openMetadata(place);
        } else if (read.key == "META_STOP") {
            message->closeMetadata(place);
        } else if (read.key == "DATA_START") {
            message->openData(place);
        } else if (read.key == "DATA_STOP") {
            message->closeData(place);
        } else {
            takeKey(read, valuePlace, place);
        }
    }

    void takeKey(const TdmLine& read, const TdmPlace& valuePlace, const TdmPlace& place)
    {
        const TdmKey* const row = tdmKey(read.key);
        if (row == nullptr) {
            message->otherKey(read.key, place);
        } else if (row->part == TdmPart::data) {
            const TdmRecord record = tdmRecordOf(read.value);
            if (!record.rest.empty()) {
                message->tell(read.key, "has more than a time and a value", place);
            }
            message->record(read.key, record.epoch, record.value, valuePlace);
        } else {
            message->value(read.key, read.value, valuePlace);
        }
    }

    std::unique_ptr<TdmMessage> message;
    bool isFirst = true;
    std::size_t lastLine = 0;
};

// The XML form: its lines are kept, and the document is taken as a whole.
class TdmXmlReceiver final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& /*out*/) override
    {
        lines.add(line.bytes);
    }

    void end(LintOutput& out) override
    {
        out.hold();
        TiXmlDocument document;
        const TiXmlElement* const root = lines.parse(document);
        if (root == nullptr) {
            out.addOfFile("V342", {{"key", "tdm"}, {"why", "is missing: the document is not well-formed"}});
            return;
        }
        TdmMessage message(out);
        takeRoot(*root, message);
    }

private:
    static std::string_view valueOf(const TiXmlElement& element)
    {
        const char* const value = element.GetText();
        return value == nullptr ? std::string_view() : std::string_view(value);
    }

    TdmPlace placeOf(const TiXmlNode& node) const
    {
        const XmlLines::Place place = lines.placeOf(node);
        return {place.line, place.text, place.stretch};
    }

    static std::string_view nameOf(const TiXmlElement& element)
    {
        const std::string_view name = element.Value();
        return name.substr(name.find(':') + 1); // without its prefix
    }

    void takeRoot(const TiXmlElement& root, TdmMessage& message) const
    {
        const char* const id = root.Attribute("id");
        const char* const version = root.Attribute("version");
        if (nameOf(root) != "tdm" || id == nullptr || std::string_view(id) != "CCSDS_TDM_VERS") {
            message.tell("tdm", "is not the root, or has no id CCSDS_TDM_VERS", placeOf(root));
        }
        message.version(version == nullptr ? "" : version, placeOf(root));
        message.openHeader();
        for (const TiXmlElement* part = root.FirstChildElement(); part != nullptr;
             part = part->NextSiblingElement()) {
            if (nameOf(*part) == "header") {
                takeValues(*part, message);
            } else if (nameOf(*part) == "body") {
                takeBody(*part, message);
            } else {
                message.otherKey(nameOf(*part), placeOf(*part));
            }
        }
        message.close(placeOf(root));
    }

    void takeValues(const TiXmlElement& part, TdmMessage& message) const
    {
        for (const TiXmlElement* key = part.FirstChildElement(); key != nullptr;
             key = key->NextSiblingElement()) {
            if (nameOf(*key) == "COMMENT") {
                message.comment(placeOf(*key));
            } else {
                message.value(nameOf(*key), valueOf(*key), placeOf(*key));
            }
        }
    }

    void takeBody(const TiXmlElement& body, TdmMessage& message) const
    {
        for (const TiXmlElement* segment = body.FirstChildElement(); segment != nullptr;
             segment = segment->NextSiblingElement())
        {
            for (const TiXmlElement* part = segment->FirstChildElement(); part != nullptr;
                 part = part->NextSiblingElement())
            {
                takePart(*part, message);
            }
        }
    }

    void takePart(const TiXmlElement& part, TdmMessage& message) const
    {
        const TdmPlace place = placeOf(part);
        if (nameOf(part) == "metadata") {
            message.openMetadata(place);
            takeValues(part, message);
            message.closeMetadata(place);
        } else if (nameOf(part) == "data") {
            message.openData(place);
            takeData(part, message);
            message.closeData(place);
        } else {
            message.otherKey(nameOf(part), place);
        }
    }

    void takeData(const TiXmlElement& data, TdmMessage& message) const
    {
        for (const TiXmlElement* each = data.FirstChildElement(); each != nullptr;
             each = each->NextSiblingElement()) {
            if (nameOf(*each) == "COMMENT") {
                message.comment(placeOf(*each));
                continue;
            }
            const TiXmlElement* const epoch = each->FirstChildElement();
            const TiXmlElement* const value = epoch == nullptr ? nullptr : epoch->NextSiblingElement();
            if (value == nullptr || nameOf(*epoch) != "EPOCH" || value->NextSiblingElement() != nullptr) {
                message.tell("observation", "has other elements than EPOCH and one value", placeOf(*each));
            } else {
                message.record(nameOf(*value), valueOf(*epoch), valueOf(*value), placeOf(*value));
            }
        }
    }

    XmlLines lines{};
};

} // namespace

std::unique_ptr<LineChecker> tdmReceiverLines()
{
    return std::make_unique<TdmReceiver>();
}

std::unique_ptr<LineChecker> tdmXmlReceiverLines()
{
    return std::make_unique<TdmXmlReceiver>();
}

} // namespace companion
