// Templates of tasks and patterns of paths: any bytes are refused or give the values of their fields, and a
// task that the tool can read.
//
// The first line of an input is a pattern, the second a path, the rest a template.

#include "task/template.h"

#include "findings/finding.h"
#include "input_file.h"
#include "out/xml_text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace companion;

std::string takenLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

// A pattern without stars is the path again once its fields are filled in.
void checkMatch(const std::string& pattern, const std::string& path, const FieldValues& values)
{
    for (const auto& [name, value] : values) {
        mustHold(!value.empty() && value.find('/') == std::string::npos);
        mustHold(path.find(value) != std::string::npos);
    }
    if (pattern.find('*') != std::string::npos) {
        return;
    }
    std::string filled;
    for (std::string_view left = pattern; !left.empty();) {
        const FieldBrace brace = left.front() == '{' ? fieldBraceOf(left) : FieldBrace{false, {}, 1};
        filled += brace.name.empty() ? std::string(1, left.front()) : values.at(std::string(brace.name));
        left.remove_prefix(brace.length);
    }
    mustHold(filled == path);
}

std::optional<FieldValues> matched(const std::string& pattern, const std::string& path)
{
    const Pattern taken(pattern);
    auto values = taken.match(path);
    if (values) {
        mustHold(values->size() == taken.fields().size());
        checkMatch(pattern, path, *values);
    }
    return values;
}

void checkTask(const std::string& text, const ArchiveFile& file, bool isGroup)
{
    TaskTemplate taskTemplate("t.xml", text, {{"originator", "{stem}"}});
    if (isGroup) {
        taskTemplate.divideForGroups();
    }
    std::vector<Finding> findings;
    const std::vector<ArchiveFile> files{file, file};
    const std::string task = taskTemplate.task(1, "group", files, findings);
    mustHold(findings.empty()); // the files have the same fields
    const bool isField = text.find("{originator}") != std::string::npos;
    mustHold(isField || task.find(xmlText(*file.value("stem"))) != std::string::npos);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const std::string pattern = takenLine(text);
    const std::string path = takenLine(text);
    for (const bool isGroup : {false, true}) {
        try {
            const auto values = matched(pattern, path);
            checkTask(std::string(text), archiveFile(path, values.value_or(FieldValues())), isGroup);
        } catch (const WrongUsage& wrong) {
            mustHold(!wrong.why.text.empty());
        }
    }
    return 0;
}
