// Separator walk: the separators of a text, one after the other, or many passed at once.

#pragma once

#include "separator_bits.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavelinUtils {

/// Walks over the separators of a text. Examines a block at a time and no more of the text than it is asked
/// for, which suits long lines of which the first fields are read.
class SeparatorWalk
{
public:
    SeparatorWalk(std::string_view walkedText, char separator)
        : text(walkedText), bits(separator), found(findFrom(0))
    {
    }

    /// The position of the next separator after so many others, and the size of the text where it has none.
    std::size_t next(std::size_t others = 0)
    {
        for (;;) {
            for (; others > 0 && found != 0; --others) {
                found &= found - 1;
            }
            if (found != 0) {
                const std::size_t at = begin + lowestBit(found);
                found &= found - 1;
                return at;
            }
            if (text.size() - begin <= SeparatorBits::blockLength) {
                return text.size();
            }
            begin += SeparatorBits::blockLength;
            found = findFrom(begin);
        }
    }

private:
    std::uint64_t findFrom(std::size_t place) const
    {
        return bits.of(text.data() + place, std::min(SeparatorBits::blockLength, text.size() - place));
    }

    std::string_view text;
    SeparatorBits bits;
    std::size_t begin = 0;
    std::uint64_t found; // of the block there, what is still to come
};

} // namespace tavelinUtils
