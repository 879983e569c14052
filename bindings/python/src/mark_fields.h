// Fields of a mark by the names under which Python knows them: numbers, which arrays show, and texts.

#pragma once

#include "records/mark.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace python {

using Mark = tavelinUtils::TRecLabelPervichka_File;

/// A number of a mark: where it is in the record, and what it means.
struct NumberField
{
    const char* name;
    const char* unit;    ///< as astropy writes it; empty where there is none
    const char* meaning; ///< a few words, without a full stop
    const char* format;  ///< the type as NumPy writes it
    std::size_t offset;  ///< in bytes
    std::size_t size;    ///< in bytes
};

/// All numbers, in the order of the record.
std::span<const NumberField> numberFields();

/// A text of a mark.
struct TextField
{
    const char* name;
    const char* meaning;
    std::string Mark::*text;
};

/// All texts, in the order of the record.
std::span<const TextField> textFields();

/// The place of a text among those of a mark. Throws std::invalid_argument for a name that no text has.
std::size_t textPlace(std::string_view name);

/// Copies the numbers of a mark, and nothing between them: the texts of either may be in any state.
void copyNumbers(const std::byte* from, std::byte* to);

} // namespace python
