// Strict fields: what a person would accept in each field of each format, as a table of forms, and the
// findings of fields that hold something else.
//
//   checkField({"DE", FieldForm::packedDE}, line, tokens[4], out);   // V120 at the token, where it has no
//   sign

#pragma once

#include "reading/line_checker.h"

#include <span>
#include <string_view>

namespace companion {

/// The form of a field, and with it the range of its values.
enum class FieldForm
{
    text,       ///< anything
    number,     ///< a decimal number
    integer,    ///< a whole number of 32 bits
    magnitude,  ///< a number, -30 to 35
    packedDate, ///< DDMMYY, years of 2000 to 2099
    packedTime, ///< HHMMSS and decimals without a point
    packedRA,   ///< HHMMSS and decimals without a point
    packedDE,   ///< a sign, DDMMSS and decimals without a point
    date,       ///< YYYY-MM-DD
    time,       ///< HH:MM:SS and decimals
    degreesRA,  ///< a number, 0 to 360
    degreesDE   ///< a number, -90 to 90
};

/// A field of a format.
struct StrictField
{
    std::string_view name;
    FieldForm form;
};

/// The fields of a mark's line of MEA and of a telegram, in their order.
std::span<const StrictField> meaFields();
std::span<const StrictField> telegramFields();

/// The form of a column of a track table, by its name; text for one that is not known.
FieldForm formOfTableColumn(std::string_view name);

/// Whether a text is plainly what a person would accept. One that is not may still be: `tellField` looks
/// closer.
bool isPlain(FieldForm form, std::string_view text);

/// The finding of a text that is not plain, at its place in the present line; the text is a view into the
/// line.
void tellField(const StrictField& field, std::string_view line, std::string_view text, LintOutput& out);

/// Looks at a field.
inline void checkField(const StrictField& field, std::string_view line, std::string_view text,
                       LintOutput& out)
{
    if (!isPlain(field.form, text)) {
        tellField(field, line, text, out);
    }
}

/// Whether a line has as many words that begin like numbers as the line of a mark, whatever they go on with:
/// four at least.
bool hasManyNumbers(std::string_view line);

/// The findings of a magnitude that was read: one that stands for none, or that no object has.
void checkMagnitude(double magnitude, const Stretch& stretch, LintOutput& out);

/// A number in the fewest digits that give it back.
std::string shortest(double number);

} // namespace companion
