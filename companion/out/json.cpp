#include "out/json.h"

#include "out/text.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <ostream>

namespace companion {

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

void setBytes(Json& object, std::string_view key, std::string_view bytes)
{
    object.set(key, bytes);
    if (!isUtf8(bytes)) {
        object.set("bytes", hexadecimal(bytes));
    }
}

} // namespace companion
