#include "out/json.h"

#include "out/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <ostream>

namespace companion {
namespace {

// NOLINTNEXTLINE(misc-no-recursion): as deep as the text, which the parser has been through
void addLeaves(const nlohmann::ordered_json& json, const std::string& path, std::vector<JsonLeaf>& leaves)
{
    if (json.is_object()) {
        const std::string start = path.empty() ? "" : path + '/';
        for (const auto& [key, member] : json.items()) {
            addLeaves(member, start + key, leaves);
        }
    } else if (json.is_array()) {
        for (const auto& element : json) {
            addLeaves(element, path, leaves);
        }
    } else {
        leaves.push_back({path, json.is_string() ? json.get<std::string>() : json.dump()});
    }
}

// The place of a byte, counted from 1.
std::string placeInText(std::string_view text, std::size_t byte)
{
    const std::string_view before = text.substr(0, byte - 1);
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 where there is none
    return "in line " + std::to_string(lines + 1) + ", column " +
           std::to_string(before.size() - lineStart + 1);
}

const nlohmann::ordered_json& nodeOf(const void* node)
{
    return *static_cast<const nlohmann::ordered_json*>(node);
}

} // namespace

struct Json::Value
{
    nlohmann::ordered_json json;
};

Json::Json() : value(std::make_unique<Value>())
{
}

Json::Json(std::string_view text) : Json()
{
    value->json = text;
}

Json::Json(const std::string& text) : Json(std::string_view(text))
{
}

Json::Json(const char* text) : Json(std::string_view(text))
{
}

Json::Json(double number) : Json()
{
    if (std::isfinite(number)) {
        value->json = number;
    } else {
        value->json = std::isnan(number) ? "nan" : number > 0.0 ? "inf" : "-inf";
    }
}

Json::Json(bool truth) : Json()
{
    value->json = truth;
}

Json::Json(std::int64_t number, int /*isInteger*/) : Json()
{
    value->json = number;
}

Json::Json(const Json& other) : value(std::make_unique<Value>(*other.value))
{
}

Json::Json(Json&& other) noexcept = default;

Json& Json::operator=(Json other)
{
    value = std::move(other.value);
    return *this;
}

Json::~Json() = default;

Json Json::object()
{
    Json json;
    json.value->json = nlohmann::ordered_json::object();
    return json;
}

Json Json::list()
{
    Json json;
    json.value->json = nlohmann::ordered_json::array();
    return json;
}

Json& Json::set(std::string_view key, const Json& member)
{
    value->json[std::string(key)] = member.value->json;
    return *this;
}

Json& Json::push(const Json& element)
{
    value->json.push_back(element.value->json);
    return *this;
}

bool Json::empty() const
{
    return value->json.empty();
}

std::string Json::text() const
{
    return value->json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

JsonDocument::JsonDocument(std::ostream& stream, std::string_view schema) : out(stream)
{
    out << '{';
    set("schema", schema);
}

void JsonDocument::set(std::string_view key, const Json& value)
{
    separate();
    out << Json(key).text() << ':' << value.text();
}

void JsonDocument::openList(std::string_view key)
{
    separate();
    out << Json(key).text() << ":[";
    first = true;
}

void JsonDocument::element(const Json& value)
{
    separate();
    out << value.text();
}

void JsonDocument::closeList()
{
    out << ']';
    first = false;
}

void JsonDocument::finish()
{
    out << "}\n";
    out.flush();
}

void JsonDocument::separate()
{
    if (!first) {
        out << ',';
    }
    first = false;
}

JsonLeaves jsonLeaves(std::string_view text)
{
    JsonLeaves read;
    try {
        const auto json = nlohmann::ordered_json::parse(text);
        if (json.is_object()) {
            addLeaves(json, "", read.leaves);
        } else {
            read.fault = "is no JSON object";
        }
    } catch (const nlohmann::ordered_json::parse_error& error) {
        read.fault = "is not well-formed JSON " + placeInText(text, error.byte);
    } catch (const nlohmann::ordered_json::out_of_range&) {
        read.fault = "has a number that is too large";
    }
    return read;
}

void setBytes(Json& object, std::string_view key, std::string_view bytes)
{
    object.set(key, bytes);
    if (!isUtf8(bytes)) {
        object.set("bytes", hexadecimal(bytes));
    }
}

struct ReadJson::Value
{
    nlohmann::ordered_json json;
};

ReadJson::ReadJson(std::string_view text) : value(std::make_unique<Value>())
{
    value->json = nlohmann::ordered_json::parse(text, nullptr, false);
}

ReadJson::~ReadJson() = default;

JsonView ReadJson::root() const
{
    return JsonView(value->json.is_discarded() ? nullptr : &value->json);
}

JsonView JsonView::operator[](std::string_view key) const
{
    if (node == nullptr || !nodeOf(node).is_object()) {
        return JsonView(nullptr);
    }
    const auto found = nodeOf(node).find(std::string(key));
    return JsonView(found == nodeOf(node).end() ? nullptr : &*found);
}

JsonView JsonView::operator[](std::size_t place) const
{
    const bool isThere = node != nullptr && nodeOf(node).is_array() && place < nodeOf(node).size();
    return JsonView(isThere ? &nodeOf(node)[place] : nullptr);
}

std::size_t JsonView::size() const
{
    return node != nullptr && nodeOf(node).is_structured() ? nodeOf(node).size() : 0;
}

bool JsonView::isList() const
{
    return node != nullptr && nodeOf(node).is_array();
}

std::string JsonView::text() const
{
    return node != nullptr && nodeOf(node).is_string() ? nodeOf(node).get<std::string>() : std::string();
}

std::int64_t JsonView::integer(std::int64_t fallback) const
{
    return node != nullptr && nodeOf(node).is_number_integer() ? nodeOf(node).get<std::int64_t>() : fallback;
}

bool JsonView::isTrue() const
{
    return node != nullptr && nodeOf(node).is_boolean() && nodeOf(node).get<bool>();
}

Json JsonView::value() const
{
    Json copy;
    if (node != nullptr) {
        copy.value->json = nodeOf(node);
    }
    return copy;
}

std::string bytesMember(const JsonView& object, std::string_view key)
{
    const JsonView raw = object["bytes"];
    if (!raw) {
        return object[key].text();
    }
    const std::string digits = raw.text();
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        bytes += static_cast<char>(std::strtol(digits.substr(i, 2).c_str(), nullptr, 16));
    }
    return bytes;
}

} // namespace companion
