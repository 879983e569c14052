// JSON: values, and documents that are written as their parts are found. The keys of an object keep their
// order.
//
//   JsonDocument document(std::cout, "tavelin.check/1");
//   document.openList("tasks");
//   document.element(Json::object().set("task", path).set("marks", 23));
//   document.closeList();
//   document.set("exit", 0);
//   document.finish();

#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A JSON value. Texts that are not UTF-8 get U+FFFD for what is not.
class Json
{
public:
    /// null.
    Json();
    /// A text.
    Json(std::string_view text);
    Json(const std::string& text);
    Json(const char* text);
    /// A number; the texts "nan", "inf" and "-inf" where JSON has none.
    Json(double number);
    /// true or false.
    Json(bool value);
    /// An integer.
    template <std::integral Number>
    Json(Number number) : Json(static_cast<std::int64_t>(number), 0)
    {
    }
    Json(const Json& other);
    Json(Json&& other) noexcept;
    Json& operator=(Json other);
    ~Json();

    /// An object without members.
    static Json object();
    /// A list without elements.
    static Json list();

    /// Gives an object a member and returns the object.
    Json& set(std::string_view key, const Json& value);
    /// Adds an element to a list and returns the list.
    Json& push(const Json& value);
    /// Whether an object or a list is empty.
    bool empty() const;

    /// The value on one line.
    std::string text() const;

private:
    friend class JsonView;
    struct Value;
    Json(std::int64_t number, int);

    std::unique_ptr<Value> value;
};

/// A document that goes out member by member, so that a list may have any length. It is one line of text.
class JsonDocument
{
public:
    /// Opens a document; its first member is "schema".
    JsonDocument(std::ostream& stream, std::string_view schema);

    /// Writes a member.
    void set(std::string_view key, const Json& value);
    /// Opens a member that is a list: what follows are its elements.
    void openList(std::string_view key);
    /// Writes an element of the list.
    void element(const Json& value);
    /// Closes the list.
    void closeList();
    /// Closes the document, with a line feed at its end.
    void finish();

private:
    void separate();

    std::ostream& out;
    bool first = true;
};

/// A value of a JSON text that is neither an object nor a list.
struct JsonLeaf
{
    std::string path; ///< the keys to it, with / between; those of a list's elements are equal
    std::string text; ///< a text without its quotes, a number as it is written in the fewest digits
};

/// What was read of a JSON text.
struct JsonLeaves
{
    std::vector<JsonLeaf> leaves{}; ///< in their order; none of a text with a fault
    std::string fault{};            ///< "is not well-formed JSON in line 3, column 5"; empty where it is
};

/// All values of a JSON text whose outermost value is an object.
JsonLeaves jsonLeaves(std::string_view text);

/// Gives an object a text member and, where the text is not UTF-8, a member "bytes" with its bytes in
/// base 16.
void setBytes(Json& object, std::string_view key, std::string_view bytes);

/// A value of a JSON text that was read, for as long as that is there. What is missing, or of another kind
/// than asked for, is empty, 0 or the fallback.
class JsonView
{
public:
    /// The member of an object.
    JsonView operator[](std::string_view key) const;
    /// The element of a list, from 0.
    JsonView operator[](std::size_t place) const;
    /// How many elements a list or members an object has.
    std::size_t size() const;
    bool isList() const;
    /// Whether there is a value.
    explicit operator bool() const
    {
        return node != nullptr;
    }

    std::string text() const;
    std::int64_t integer(std::int64_t fallback = 0) const;
    bool isTrue() const;
    /// A copy of the value.
    Json value() const;

private:
    friend class ReadJson;
    explicit JsonView(const void* ofNode) : node(ofNode)
    {
    }

    const void* node; // of the library for JSON; a null pointer where there is none
};

/// A JSON text that was read.
class ReadJson
{
public:
    /// Reads a text.
    explicit ReadJson(std::string_view text);
    ~ReadJson();
    ReadJson(const ReadJson&) = delete;
    ReadJson& operator=(const ReadJson&) = delete;

    /// Its value; none where the text is no JSON.
    JsonView root() const;

private:
    struct Value;

    std::unique_ptr<Value> value;
};

/// The bytes of a text member that setBytes has written.
std::string bytesMember(const JsonView& object, std::string_view key);

} // namespace companion
