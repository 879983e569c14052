#include "task/new_task.h"

#include "out/text.h"
#include "out/xml_text.h"

#include <algorithm>

namespace companion {
namespace {

std::string lines(const std::vector<TaskValue>& keys, std::size_t indent)
{
    std::string text;
    for (const auto& [key, value] : keys) {
        text.append(indent, ' ').append("<").append(key).append(">");
        text.append(xmlText(value)).append("</").append(key).append(">\n");
    }
    return text;
}

} // namespace

void NewTask::set(std::string_view key, const std::string& value)
{
    const auto place =
        std::find_if(keys.begin(), keys.end(), [key](const TaskValue& each) { return each.first == key; });
    if (value.empty()) {
        keys.erase(place, place == keys.end() ? place : place + 1);
    } else if (place == keys.end()) {
        keys.emplace_back(key, value);
    } else {
        place->second = value;
    }
}

void NewTask::addSeries(const std::vector<TaskValue>& ofSeries)
{
    std::vector<TaskValue>& added = series.emplace_back(ofSeries);
    std::erase_if(added, [](const TaskValue& each) { return each.second.empty(); });
}

std::string NewTask::text() const
{
    std::string text = "<task>\n" + lines(keys, 4);
    if (!series.empty()) {
        text += "    <paths>\n";
        for (const std::vector<TaskValue>& each : series) {
            text += "        <seria>\n" + lines(each, 12) + "        </seria>\n";
        }
        text += "    </paths>\n";
    }
    text += "</task>\n";
    // The parser of the tool takes the byte after a Latin letter with an accent for a part of it, unless it
    // is told of another encoding.
    const char* const encoding = isUtf8(text) ? "UTF-8" : "ISO-8859-1";
    return std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?>\n" + text;
}

} // namespace companion
