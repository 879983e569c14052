#include "command/page_table.h"

namespace companion {

TableRegion::TableRegion(Html& page, const std::string& label, const std::string& id)
    : region(page.in("section", {{"class", "wide"}, {"tabindex", "0"}, {"aria-label", "Table of " + label}})),
      table(page.in("table", {{"id", id}}))
{
}

void addHead(Html& page, std::initializer_list<Column> columns)
{
    const Html::Element head = page.in("thead");
    const Html::Element row = page.in("tr");
    for (const Column& each : columns) {
        if (each.title == nullptr) {
            continue;
        }
        each.isNumber ? page.add("th", {{"scope", "col"}, {"class", "number"}}, each.title)
                      : page.add("th", {{"scope", "col"}}, each.title);
    }
}

void addRowName(Html& page, const std::string& name, const std::string& target)
{
    const Html::Element cell = page.in("th", {{"scope", "row"}});
    if (target.empty()) {
        page.name(name);
        return;
    }
    const Html::Element link = page.in("a", {{"href", '#' + target}});
    page.name(name);
}

void addCell(Html& page, const std::string& text)
{
    page.add("td", {}, text);
}

void addSaid(Html& page, const std::string& text)
{
    const Html::Element cell = page.in("td");
    page.name(text);
}

void addNumber(Html& page, const std::string& text)
{
    page.add("td", {{"class", "number"}}, text);
}

} // namespace companion
