// Text index: different texts, numbered in the order in which they first occur.

#pragma once

#include "same_text.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// Gives each different text a number, from 0 on. Takes little more memory than the texts, for files that
/// name an object for every second mark.
class TextIndex
{
public:
    /// The number of a text, which it gets here if it has none.
    std::size_t numberOf(std::string_view text)
    {
        // As a rule a text is asked for several times in a row.
        if (!ends.empty() && isSameText((*this)[last], text)) {
            return last;
        }
        return last = findOrAdd(text);
    }

    /// How many different texts there are.
    std::size_t size() const
    {
        return ends.size();
    }

    /// The text of a number, until the next text is added.
    std::string_view operator[](std::size_t number) const
    {
        const std::size_t begin = number == 0 ? 0 : ends[number - 1];
        return {characters.data() + begin, ends[number] - begin};
    }

private:
    std::size_t findOrAdd(std::string_view text);
    std::size_t slotOf(std::string_view text, std::uint32_t hash) const;
    void growSlots();

    std::string characters;            // of all texts
    std::vector<std::size_t> ends;     // of each text
    std::vector<std::uint32_t> hashes; // of each text: an index that grows does not look at the texts again
    std::vector<std::uint32_t> slots;  // numbers plus 1 by these hashes; 0 where there is none
    std::size_t last = 0;
};

} // namespace tavelinUtils
