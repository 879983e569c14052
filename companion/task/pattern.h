// Pattern: the paths of an archive, with fields whose values go into tasks: "archive/{night}/{scope}_*.mea".
//
// A field is one or more bytes without a slash, the shortest that fits; where its name comes again it is the
// same bytes again. "*" is any bytes without a slash, "**" any bytes, and "**/" also no folder at all. "{{"
// is a brace. Names that begin with a point are hidden: only a point of the pattern takes theirs.

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Values of fields by their names.
using FieldValues = std::map<std::string, std::string, std::less<>>;

/// A piece of a pattern.
struct PatternPiece
{
    enum class Kind
    {
        text,
        star,    ///< bytes without a slash
        deep,    ///< any bytes
        folders, ///< any folders, each with its slash
        field
    };

    Kind kind = Kind::text;
    std::string text{}; ///< or the name of the field
};

/// A pattern of paths.
class Pattern
{
public:
    /// Throws WrongUsage (V001) for a brace that is not closed, a field without a name or with that of a
    /// fixed field, and a pattern longer than a path.
    explicit Pattern(const std::string& text);

    /// The pattern as it was given.
    const std::string& text() const
    {
        return whole;
    }
    /// The names of its fields, each once.
    const std::vector<std::string>& fields() const
    {
        return names;
    }

    /// The values of its fields in a path; nothing where the path is another one. Throws WrongUsage (V001)
    /// for a pattern with fields that come again and that takes too long.
    std::optional<FieldValues> match(std::string_view path) const;

    /// The regular files whose paths fit, in the order of bytes. Links are followed, but not by "**".
    std::vector<std::pair<std::string, FieldValues>> files() const;

private:
    std::string whole;
    std::vector<PatternPiece> pieces;
    std::vector<std::string> names{};
    bool hasRepeats;
};

/// Whether a name is that of a field that every match has: path, folder, name, stem, number.
bool isFixedField(std::string_view name);

/// A brace of a text with fields, and what follows it.
struct FieldBrace
{
    bool isDoubled = false;  ///< it stands for a brace
    std::string_view name{}; ///< of the field
    std::size_t length = 0;  ///< of all that it takes; 0 where the field is not closed, or has no proper name
};

/// Reads a brace at the front of a text. A name is of letters, digits, "_" and "-".
FieldBrace fieldBraceOf(std::string_view text);

} // namespace companion
