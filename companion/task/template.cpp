#include "task/template.h"

#include "findings/finding.h"
#include "out/text.h"
#include "out/xml_text.h"
#include "task/key_table.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <set>
#include <utility>

namespace companion {
namespace {

WrongUsage wrongTemplate(const std::string& path, const std::string& problem)
{
    return wrongCall(printable(path), problem);
}

std::string noField(const std::string& path, std::size_t line)
{
    return "line " + std::to_string(line) + " of " + path +
           " has a brace that is neither a field nor doubled";
}

// The names of the fields that a text has.
std::set<std::string> fieldsIn(std::string_view text)
{
    std::set<std::string> fields;
    for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at)) {
        const FieldBrace brace = fieldBraceOf(text.substr(at));
        if (!brace.name.empty()) {
            fields.insert(std::string(brace.name));
        }
        at += std::max<std::size_t>(brace.length, 1);
    }
    return fields;
}

// A stretch of a text.
struct Stretch
{
    std::size_t begin = std::string_view::npos;
    std::size_t end = std::string_view::npos;

    bool isThere() const
    {
        return begin != std::string_view::npos && end != std::string_view::npos;
    }
};

// The next tag of a name, comments left out: "<seria>", "<seria/>", "</seria>".
Stretch nextTag(std::string_view text, std::string_view start, std::size_t from)
{
    while (from < text.size()) {
        const std::size_t at = text.find(start, from);
        const std::size_t comment = text.find("<!--", from);
        if (at == std::string_view::npos || at < comment) {
            const char behind =
                at == std::string_view::npos ? '\0' : text[std::min(at + start.size(), text.size() - 1)];
            const bool isWhole = behind == '>' || behind == '/' || behind == ' ' || behind == '\t' ||
                                 behind == '\r' || behind == '\n';
            if (at == std::string_view::npos || isWhole) {
                const std::size_t end = text.find('>', at);
                return {at, end == std::string_view::npos ? end : end + 1};
            }
            from = at + start.size();
        } else {
            const std::size_t end = text.find("-->", comment);
            from = end == std::string_view::npos ? text.size() : end + 3;
        }
    }
    return {};
}

// An element from its start tag to its end tag.
Stretch nextElement(std::string_view text, const std::string& name, std::size_t from)
{
    const Stretch start = nextTag(text, '<' + name, from);
    if (!start.isThere() || text[start.end - 2] == '/') {
        return start;
    }
    const Stretch end = nextTag(text, "</" + name, start.end);
    return {start.begin, end.end};
}

// The lines of an element, where nothing else is on them.
Stretch wholeLines(std::string_view text, Stretch element)
{
    const std::size_t lineFeed = text.rfind('\n', element.begin);
    const std::size_t begin = lineFeed == std::string_view::npos ? 0 : lineFeed + 1;
    const std::string_view before = text.substr(begin, element.begin - begin);
    const bool isAlone = before.find_first_not_of(" \t") == std::string_view::npos;
    const bool endsLine = element.end < text.size() && text[element.end] == '\n';
    return isAlone && endsLine ? Stretch{begin, element.end + 1} : element;
}

std::size_t lineAt(std::string_view text, std::size_t place)
{
    return 1 + static_cast<std::size_t>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

// Gives a key of the task a value, which may have fields.
void setKey(std::string& text, const std::string& key, const std::string& value)
{
    const std::string element = '<' + key + '>' + xmlText(value) + "</" + key + '>';
    const Stretch known = nextElement(text, key, 0);
    if (known.isThere()) {
        text.replace(known.begin, known.end - known.begin, element);
        return;
    }
    const std::size_t end = text.rfind("</");
    text.insert(end == std::string::npos ? text.size() : end, "    " + element + '\n');
}

} // namespace

const std::string* ArchiveFile::value(std::string_view field) const
{
    const auto found = values.find(field);
    return found == values.end() ? nullptr : &found->second;
}

ArchiveFile archiveFile(std::string path, FieldValues values)
{
    const std::filesystem::path parts(path);
    const std::string folder = parts.parent_path();
    values["path"] = path;
    values["folder"] = folder.empty() ? "." : folder;
    values["name"] = parts.filename();
    values["stem"] = parts.stem();
    return {std::move(path), std::move(values)};
}

std::vector<ArchiveFile> archiveFiles(std::span<const Pattern> patterns)
{
    std::map<std::string, FieldValues> all;
    for (const Pattern& pattern : patterns) {
        auto files = pattern.files();
        if (files.empty()) {
            throw WrongUsage{finding("V450", {{"pattern", '"' + pattern.text() + '"'}})};
        }
        for (auto& [path, values] : files) {
            all.try_emplace(path, std::move(values));
        }
    }
    std::vector<ArchiveFile> files;
    files.reserve(all.size());
    for (auto& [path, values] : all) {
        files.push_back(archiveFile(path, std::move(values)));
    }
    return files;
}

TaskTemplate::TaskTemplate(std::string thePath, std::string theBytes,
                           const std::map<std::string, std::string>& settings)
    : path(std::move(thePath)), bytes(std::move(theBytes))
{
    const std::set<std::string> fields = fieldsIn(bytes);
    for (const auto& [name, value] : settings) {
        if (fields.contains(name)) {
            set[name] = value;
        } else if (keyOf(taskKeyTable(), name) != nullptr) {
            setKey(bytes, name, value);
        } else {
            std::vector<std::string> known = namesOf(taskKeyTable());
            known.insert(known.end(), fields.begin(), fields.end());
            throw WrongUsage{finding(
                "V002",
                {{"kind", "field or key"}, {"word", name}, {"question", nearestQuestion(name, known)}})};
        }
    }
    front = piecesOf(bytes, 1);
}

void TaskTemplate::divideForGroups()
{
    const Stretch first = nextElement(bytes, "seria", 0);
    if (!first.isThere() || nextTag(bytes, "<seria", first.end).isThere()) {
        throw wrongTemplate(path, "for --group it needs just one seria");
    }
    const Stretch lines = wholeLines(bytes, first);
    const std::string_view text = bytes;
    front = piecesOf(text.substr(0, lines.begin), 1);
    seria = piecesOf(text.substr(lines.begin, lines.end - lines.begin), lineAt(text, lines.begin));
    back = piecesOf(text.substr(lines.end), lineAt(text, lines.end));
}

std::string TaskTemplate::task(std::size_t number, const std::string& group,
                               std::span<const ArchiveFile> files, std::vector<Finding>& findings) const
{
    std::string text;
    const auto addOnce = [&](const Piece& piece) {
        const auto values = piece.isField ? valuesOf(piece.text, number, files) : std::set{piece.text};
        if (values.size() > 1) {
            findings.push_back(finding("V451", {{"name", '{' + piece.text + '}'},
                                                {"values", counted(values.size(), "value")},
                                                {"group", printable(group)}})
                                   .in(path));
        }
        text += piece.isField ? xmlText(*values.begin()) : piece.text;
    };
    std::for_each(front.begin(), front.end(), addOnce);
    for (const ArchiveFile& file : files) {
        for (const Piece& each : seria) {
            text += each.isField ? xmlText(valueOf(each.text, number, file)) : each.text;
        }
    }
    std::for_each(back.begin(), back.end(), addOnce);
    return text;
}

TaskTemplate::Pieces TaskTemplate::piecesOf(std::string_view text, std::size_t firstLine) const
{
    Pieces pieces{{"", false}};
    const std::string_view whole = text;
    while (!text.empty()) {
        const std::size_t at = std::min(text.find('{'), text.size());
        pieces.back().text += text.substr(0, at);
        text.remove_prefix(at);
        if (text.empty()) {
            break;
        }
        const FieldBrace brace = fieldBraceOf(text);
        if (brace.length == 0) {
            const std::size_t line = firstLine + lineAt(whole, whole.size() - text.size()) - 1;
            throw wrongTemplate(path, noField(path, line));
        }
        if (brace.isDoubled) {
            pieces.back().text += '{';
        } else {
            pieces.push_back({std::string(brace.name), true});
            pieces.push_back({"", false});
        }
        text.remove_prefix(brace.length);
    }
    return pieces;
}

std::string TaskTemplate::valueOf(const std::string& field, std::size_t number, const ArchiveFile& file) const
{
    if (field == "number") {
        return numberText(number);
    }
    if (const auto known = set.find(field); known != set.end()) {
        return known->second;
    }
    if (const std::string* const value = file.value(field)) {
        return *value;
    }
    std::vector<std::string> known{"number"};
    for (const FieldValues* const values : {&file.values, &set}) {
        for (const auto& [name, value] : *values) {
            known.push_back(name);
        }
    }
    throw WrongUsage{
        finding("V002", {{"kind", "field"}, {"word", field}, {"question", nearestQuestion(field, known)}})};
}

std::set<std::string> TaskTemplate::valuesOf(const std::string& field, std::size_t number,
                                             std::span<const ArchiveFile> files) const
{
    std::set<std::string> values;
    for (const ArchiveFile& file : files) {
        values.insert(valueOf(field, number, file));
    }
    return values;
}

std::string numberText(std::size_t number)
{
    char text[24];
    std::snprintf(text, sizeof text, "%06zu", number);
    return text;
}

} // namespace companion
