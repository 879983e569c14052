#include "out/finding_json.h"

namespace companion {
namespace {

void setNumber(Json& object, const char* key, std::size_t number)
{
    if (number > 0) {
        object.set(key, number);
    }
}

void setText(Json& object, const char* key, const std::string& text)
{
    if (!text.empty()) {
        object.set(key, text);
    }
}

void setIndex(Json& object, const char* key, int index)
{
    if (index >= 0) {
        object.set(key, index);
    }
}

Json placeJson(const FindingPlace& place)
{
    Json object = Json::object();
    setNumber(object, "line", place.line);
    setNumber(object, "column", place.column);
    setNumber(object, "length", place.length);
    if (!place.snippet.empty()) {
        setBytes(object, "snippet", place.snippet);
    }
    setText(object, "field", place.field);
    setText(object, "value", place.value);
    setNumber(object, "series", static_cast<std::size_t>(place.mark.series));
    setText(object, "folder", place.mark.folder);
    setIndex(object, "track", place.mark.track);
    setText(object, "object", place.mark.object);
    setIndex(object, "mark", place.mark.mark);
    setText(object, "time", place.mark.time);
    return object;
}

} // namespace

Json findingJson(const Finding& found)
{
    Json object = Json::object();
    object.set("code", found.code.text()).set("severity", severityWord(found.severity));
    if (!found.file.empty()) {
        setBytes(object, "file", found.file);
    }
    setNumber(object, "line", found.line);
    setNumber(object, "column", found.column);
    object.set("text", found.text).set("count", found.count);
    Json places = Json::list();
    for (const FindingPlace& place : found.places) {
        places.push(placeJson(place));
    }
    if (!places.empty()) {
        object.set("places", places);
    }
    return object;
}

std::optional<Finding> findingIn(const JsonView& object)
{
    const auto code = FindingCode::of(object["code"].text());
    const std::string severity = object["severity"].text();
    if (!code) {
        return std::nullopt;
    }
    for (const Severity each : {Severity::error, Severity::warning, Severity::note}) {
        if (severity == severityWord(each)) {
            const auto number = [&object](const char* key, std::int64_t fallback) {
                return static_cast<std::size_t>(object[key].integer(fallback));
            };
            return Finding{*code,
                           each,
                           object["text"].text(),
                           bytesMember(object, "file"),
                           number("line", 0),
                           number("column", 0),
                           number("count", 1)};
        }
    }
    return std::nullopt;
}

Json totalsJson(const FindingTotals& totals)
{
    return Json::object()
        .set("errors", totals.errors)
        .set("warnings", totals.warnings)
        .set("notes", totals.notes);
}

} // namespace companion
