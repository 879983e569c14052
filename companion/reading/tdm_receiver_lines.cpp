#include "reading/tdm_message.h"
#include "reading/xml_lines.h"

#include <algorithm>
#include <array>
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
            message = std::make_unique<TdmMessage>(out, false);
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
            message = std::make_unique<TdmMessage>(out, false);
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
        TdmMessage message(out, true);
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

    // An element of keys or of other elements has no text of its own.
    void lookAtContainer(const TiXmlElement& element, TdmMessage& message) const
    {
        lookAtAttributes(element, message);
        for (const TiXmlNode* node = element.FirstChild(); node != nullptr; node = node->NextSibling()) {
            const TiXmlText* const text = node->ToText();
            if (text != nullptr && text->ValueStr().find_first_not_of(" \t\r\n") != std::string::npos) {
                message.tell(nameOf(element), "has a text beside its elements", placeOf(element));
                return;
            }
        }
    }

    void lookAtKey(const TiXmlElement& element, TdmMessage& message) const
    {
        lookAtAttributes(element, message);
        if (element.FirstChildElement() != nullptr) {
            message.tell(nameOf(element), "has an element inside", placeOf(element));
        }
    }

    // Beside those of the root, and those that XML itself has, there are units alone.
    void lookAtAttributes(const TiXmlElement& element, TdmMessage& message) const
    {
        const bool isRoot = element.Parent()->ToElement() == nullptr;
        for (const TiXmlAttribute* each = element.FirstAttribute(); each != nullptr; each = each->Next()) {
            const std::string_view name = each->Name();
            const std::string_view value = each->Value();
            const bool isOfXml = name.starts_with("xmlns") || name.starts_with("xsi:");
            const bool isOfRoot = isRoot && (name == "id" || name == "version");
            const bool isUnit = name == "units" && value == unitsOf(nameOf(element));
            if (!isOfXml && !isOfRoot && !isUnit) {
                message.tell(nameOf(element), "has the attribute " + std::string(name), placeOf(element));
            }
        }
    }

    static std::string_view unitsOf(std::string_view key)
    {
        return key == "ANGLE_1" || key == "ANGLE_2" ? "deg" : key == "RHUMIDITY" ? "%" : "-";
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
        takeParts(root, {"header", "body"}, message, [&](const TiXmlElement& part) {
            if (nameOf(part) == "header") {
                takeValues(part, message);
            } else {
                takeBody(part, message);
            }
        });
        message.close(placeOf(root));
    }

    // The two parts of an element, each of them once and in this order.
    template <class Take>
    void takeParts(const TiXmlElement& element, const std::array<std::string_view, 2>& names,
                   TdmMessage& message, const Take& take) const
    {
        lookAtContainer(element, message);
        std::size_t next = 0;
        for (const TiXmlElement* part = element.FirstChildElement(); part != nullptr;
             part = part->NextSiblingElement())
        {
            const auto* const found = std::find(names.begin(), names.end(), nameOf(*part));
            if (found == names.end()) {
                message.otherKey(nameOf(*part), placeOf(*part));
                continue;
            }
            const auto place = static_cast<std::size_t>(found - names.begin());
            if (place != next) {
                message.tell(*found, "stands twice, or out of order", placeOf(*part));
            }
            next = place + 1;
            take(*part);
        }
    }

    void takeValues(const TiXmlElement& part, TdmMessage& message) const
    {
        lookAtContainer(part, message);
        for (const TiXmlElement* key = part.FirstChildElement(); key != nullptr;
             key = key->NextSiblingElement()) {
            lookAtKey(*key, message);
            if (nameOf(*key) == "COMMENT") {
                message.comment(placeOf(*key));
            } else {
                message.value(nameOf(*key), valueOf(*key), placeOf(*key));
            }
        }
    }

    void takeBody(const TiXmlElement& body, TdmMessage& message) const
    {
        lookAtContainer(body, message);
        for (const TiXmlElement* segment = body.FirstChildElement(); segment != nullptr;
             segment = segment->NextSiblingElement())
        {
            if (nameOf(*segment) != "segment") {
                message.otherKey(nameOf(*segment), placeOf(*segment));
                continue;
            }
            takeParts(*segment, {"metadata", "data"}, message,
                      [&](const TiXmlElement& part) { takePart(part, message); });
        }
    }

    void takePart(const TiXmlElement& part, TdmMessage& message) const
    {
        const TdmPlace place = placeOf(part);
        if (nameOf(part) == "metadata") {
            message.openMetadata(place);
            takeValues(part, message);
            message.closeMetadata(place);
        } else {
            message.openData(place);
            takeData(part, message);
            message.closeData(place);
        }
    }

    void takeData(const TiXmlElement& data, TdmMessage& message) const
    {
        lookAtContainer(data, message);
        for (const TiXmlElement* each = data.FirstChildElement(); each != nullptr;
             each = each->NextSiblingElement()) {
            if (nameOf(*each) == "COMMENT") {
                lookAtKey(*each, message);
                message.comment(placeOf(*each));
            } else if (nameOf(*each) == "observation") {
                takeObservation(*each, message);
            } else {
                message.otherKey(nameOf(*each), placeOf(*each));
            }
        }
    }

    void takeObservation(const TiXmlElement& observation, TdmMessage& message) const
    {
        lookAtContainer(observation, message);
        const TiXmlElement* const epoch = observation.FirstChildElement();
        const TiXmlElement* const value = epoch == nullptr ? nullptr : epoch->NextSiblingElement();
        if (value == nullptr || nameOf(*epoch) != "EPOCH" || value->NextSiblingElement() != nullptr) {
            message.tell("observation", "has other elements than EPOCH and one value", placeOf(observation));
            return;
        }
        lookAtKey(*epoch, message);
        lookAtKey(*value, message);
        message.record(nameOf(*value), valueOf(*epoch), valueOf(*value), placeOf(*value));
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
