#include "receivers/ades_text.h"

#include "out/xml_text.h"
#include "receivers/ades_fields.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace companion {
namespace {

void appendElements(std::string& out, const std::vector<AdesValue>& values, const std::string& indent)
{
    for (const auto& [name, text] : values) {
        out.append(indent).append("<").append(name).append(">");
        out.append(xmlText(text)).append("</").append(name).append(">\n");
    }
}

// A column of a block: an element that one observation at least has.
struct Column
{
    std::string name;
    std::size_t width;
};

const std::string& textOf(const std::vector<AdesValue>& values, const std::string& name)
{
    static const std::string none;
    const auto value = std::find_if(values.begin(), values.end(),
                                    [&name](const AdesValue& each) { return each.first == name; });
    return value == values.end() ? none : value->second;
}

std::vector<Column> columnsOf(const AdesBlock& block)
{
    std::vector<Column> columns;
    for (const AdesField& field : adesOptical()) {
        Column column{field.name, 0};
        for (const auto& observation : block.observations) {
            column.width = std::max(column.width, textOf(observation, column.name).size());
        }
        if (column.width > 0) {
            column.width = std::max(column.width, column.name.size());
            columns.push_back(column);
        }
    }
    return columns;
}

// Texts at the left, numbers at the right.
void appendCell(std::string& out, const Column& column, const std::string& text)
{
    const AdesField* const field = adesField(column.name);
    const std::string blanks(column.width - text.size(), ' ');
    out += field->type->kind == AdesKind::decimal ? blanks + text : text + blanks;
}

template <class TextOf>
void appendRow(std::string& out, const std::vector<Column>& columns, const TextOf& text)
{
    bool isFirst = true;
    for (const Column& column : columns) {
        out += isFirst ? "" : "|";
        isFirst = false;
        appendCell(out, column, text(column.name));
    }
    out.erase(out.find_last_not_of(' ') + 1);
    out += '\n';
}

void appendBlock(std::string& out, const AdesBlock& block)
{
    out += "  <obsBlock>\n    <obsContext>\n";
    for (const AdesPart& part : block.context) {
        out += "      <" + part.name + ">\n";
        appendElements(out, part.values, "        ");
        out += "      </" + part.name + ">\n";
    }
    out += "    </obsContext>\n    <obsData>\n";
    for (const auto& observation : block.observations) {
        out += "      <optical>\n";
        appendElements(out, observation, "        ");
        out += "      </optical>\n";
    }
    out += "    </obsData>\n  </obsBlock>\n";
}

void appendContext(std::string& out, const std::vector<AdesPart>& context)
{
    for (const AdesPart& part : context) {
        out += "# " + part.name + '\n';
        for (const auto& [name, text] : part.values) {
            out.append("! ").append(name).append(" ").append(text) += '\n';
        }
    }
}

} // namespace

std::string adesXml(const std::vector<AdesBlock>& blocks)
{
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ades version=\"";
    out += std::string(adesVersion) + "\">\n";
    for (const AdesBlock& block : blocks) {
        appendBlock(out, block);
    }
    return out + "</ades>\n";
}

std::string adesPsv(const std::vector<AdesBlock>& blocks)
{
    std::string out = "# version=" + std::string(adesVersion) + '\n';
    for (const AdesBlock& block : blocks) {
        appendContext(out, block.context);
        const std::vector<Column> columns = columnsOf(block);
        appendRow(out, columns, [](const std::string& name) { return name; });
        for (const auto& observation : block.observations) {
            appendRow(out, columns,
                      [&observation](const std::string& name) { return textOf(observation, name); });
        }
    }
    return out;
}

} // namespace companion
