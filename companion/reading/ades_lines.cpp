#include "base/tokens.h"
#include "out/characters.h"
#include "reading/ades_document.h"
#include "reading/xml_lines.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t\r";

AdesElement elementOf(const CheckedLine& line, std::string_view part, std::string name, std::string_view text)
{
    return {std::move(name), std::string(text), line.number, line.text, stretchOf(line.text, part)};
}

// The text form: a line for each element of the context, and a row for each observation.
class AdesText final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        if (!document) {
            document = std::make_unique<AdesDocument>(out);
        }
        bytes += line.bytes.size() + 1;
        const std::string_view text = trimmed(line.text, blanks);
        if (!line.isEnded) {
            document->tell(elementOf(line, line.text, "", ""), "the last line",
                           "has no line feed: the receiver drops its last character");
        }
        if (text.empty()) {
            return;
        }
        if (text[0] == '#') {
            takeElement(line, text.substr(1));
        } else if (text[0] == '!') {
            takeChild(line, text.substr(1));
        } else {
            takeRow(line);
        }
    }

    void end(LintOutput& out) override
    {
        AdesDocument(out).size(bytes);
    }

private:
    void takeElement(const CheckedLine& line, std::string_view text)
    {
        text = trimmed(text, blanks);
        const std::size_t sign = text.find('=');
        if (isFirst && (sign == std::string_view::npos || trimmed(text.substr(0, sign), blanks) != "version"))
        {
            document->tell(elementOf(line, text, "", ""), "version", "is not in the first line");
        }
        if (isFirst && sign != std::string_view::npos) {
            isFirst = false;
            const std::string_view value = trimmed(text.substr(sign + 1), blanks);
            document->version(elementOf(line, value, "version", value));
            document->openBlock();
            return;
        }
        isFirst = false;
        if (!names.empty()) {
            document->openBlock();
            names.clear();
            isKnownKind = true;
        }
        const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
        parent = text.substr(0, end);
        const std::string_view value = trimmed(text.substr(end), blanks);
        document->context("obsContext", elementOf(line, text, parent, value));
    }

    void takeChild(const CheckedLine& line, std::string_view text)
    {
        text = trimmed(text, blanks);
        const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
        const std::string_view value = trimmed(text.substr(end), blanks);
        document->context(
            parent, elementOf(line, value.empty() ? text : value, std::string(text.substr(0, end)), value));
    }

    // The first row of a block names the elements of those behind it.
    void takeRow(const CheckedLine& line)
    {
        if (isFirst) {
            document->tell(elementOf(line, line.text, "", ""), "version", "is not in the first line");
            isFirst = false;
        }
        std::vector<std::string_view> cells;
        tavelinUtils::forEachToken(
            line.text, '|', [&cells](std::string_view cell) { cells.push_back(trimmed(cell, blanks)); });
        if (names.empty()) {
            document->closeContext(elementOf(line, line.text, "", ""));
            names.assign(cells.begin(), cells.end());
            isKnownKind = std::find(names.begin(), names.end(), "ra") != names.end();
            return;
        }
        if (cells.size() > names.size()) {
            document->tell(elementOf(line, line.text, "", ""), "the row", "has more fields than its names");
            return;
        }
        std::vector<AdesElement> elements;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!cells[i].empty()) {
                elements.push_back(elementOf(line, cells[i], names[i], cells[i]));
            }
        }
        if (isKnownKind) {
            document->observation(elements, elementOf(line, line.text, "", ""), false);
        }
    }

    std::unique_ptr<AdesDocument> document;
    bool isFirst = true;
    std::string parent{};
    std::vector<std::string> names{}; // of the columns of the block
    bool isKnownKind = true;          // other kinds than optical ones are not in the table
    std::size_t bytes = 0;
};

// The XML form: its lines are kept, and the document is taken as a whole.
class AdesXml final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& /*out*/) override
    {
        lines.add(line.bytes);
    }

    void end(LintOutput& out) override
    {
        out.hold();
        AdesDocument document(out);
        document.size(lines.text().size());
        TiXmlDocument xml;
        const TiXmlElement* const root = lines.parse(xml);
        if (root == nullptr) {
            out.addOfFile("V380", {{"element", "the document"}, {"rule", "is not well-formed"}});
            return;
        }
        const AdesElement at = elementAt(*root);
        const char* const version = root->Attribute("version");
        AdesElement stated = at;
        stated.text = version == nullptr ? "" : version;
        document.version(stated);
        for (const TiXmlElement* block = root->FirstChildElement(); block != nullptr;
             block = block->NextSiblingElement())
        {
            if (block->ValueStr() == "obsBlock") {
                takeBlock(*block, document);
            } else {
                document.tell(elementAt(*block), block->ValueStr(), "stands outside an obsBlock");
            }
        }
    }

private:
    AdesElement elementAt(const TiXmlElement& element) const
    {
        const XmlLines::Place place = lines.placeOf(element);
        const char* const text = element.GetText();
        return {element.ValueStr(), text == nullptr ? "" : text, place.line, place.text, place.stretch};
    }

    void takeBlock(const TiXmlElement& block, AdesDocument& document) const
    {
        document.openBlock();
        const TiXmlElement* const context = block.FirstChildElement();
        const bool isContext = context != nullptr && context->ValueStr() == "obsContext";
        const TiXmlElement* const data = isContext ? context->NextSiblingElement() : context;
        if (!isContext) {
            document.tell(elementAt(block), "obsContext", "is missing at the front of the block");
        } else {
            takeContext(*context, document);
        }
        if (data == nullptr || data->ValueStr() != "obsData" || data->FirstChildElement() == nullptr) {
            document.tell(elementAt(block), "obsData", "is missing, or holds no observation");
            return;
        }
        takeData(*data, document);
    }

    void takeContext(const TiXmlElement& context, AdesDocument& document) const
    {
        for (const TiXmlElement* part = context.FirstChildElement(); part != nullptr;
             part = part->NextSiblingElement())
        {
            document.context("obsContext", elementAt(*part));
            for (const TiXmlElement* child = part->FirstChildElement(); child != nullptr;
                 child = child->NextSiblingElement())
            {
                document.context(part->ValueStr(), elementAt(*child));
            }
        }
        document.closeContext(elementAt(context));
    }

    void takeData(const TiXmlElement& data, AdesDocument& document) const
    {
        const std::string kind = data.FirstChildElement()->ValueStr();
        for (const TiXmlElement* each = data.FirstChildElement(); each != nullptr;
             each = each->NextSiblingElement()) {
            if (each->ValueStr() != kind) {
                document.tell(elementAt(*each), each->ValueStr(),
                              "is of another kind than the observations before it");
            } else if (kind == "optical") {
                std::vector<AdesElement> elements;
                for (const TiXmlElement* value = each->FirstChildElement(); value != nullptr;
                     value = value->NextSiblingElement())
                {
                    elements.push_back(elementAt(*value));
                }
                document.observation(elements, elementAt(*each), true);
            }
        }
    }

    XmlLines lines{};
};

} // namespace

std::unique_ptr<LineChecker> adesTextLines()
{
    return std::make_unique<AdesText>();
}

std::unique_ptr<LineChecker> adesXmlLines()
{
    return std::make_unique<AdesXml>();
}

} // namespace companion
