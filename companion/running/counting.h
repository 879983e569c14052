// Counting: how many marks a written file holds, counted from its bytes and without the readers.
//
// A writer lays its marks out in one way only, and the count goes by that layout and not by what a line looks
// like alone: names with blanks, or that look like marks, do not disturb it. Texts of a task or of a
// configuration may hold line feeds, and still the count is right, unless such a text imitates the lines of
// marks where the layout leaves no other way to tell them apart: in the head of a telegram's block or of a
// TDM segment, and in the header of an 80-column report.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// What a file holds.
struct HeldMarks
{
    std::size_t marks = 0;
    std::optional<std::size_t>
        blocks;          ///< of the tracks, for the words that have blocks: telegram, tdm, tdm.xml, ssmas
    bool isWhole = true; ///< false where the file ends within a line or a block
};

/// "130 marks", "12 marks and breaks off".
std::string heldText(const HeldMarks& held);

/// The marks of a file of an output word, of any length in little memory; nothing for a file that cannot be
/// read and for a word that is not known.
std::optional<HeldMarks> heldMarks(const std::string& path, std::string_view word);

/// The same for the bytes of a file.
std::optional<HeldMarks> heldMarksOf(std::string_view bytes, std::string_view word);

} // namespace companion
