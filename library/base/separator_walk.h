// Separator walk: the separators of a text, one after the other, or many passed at once.

#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavelinUtils {

/// Walks over the separators of a text. Examines 64 bytes at a time and no more of the text than it is asked
/// for, which suits long lines of which the first fields are read.
class SeparatorWalk
{
public:
    SeparatorWalk(std::string_view walkedText, char separator)
        : text(walkedText), wanted(ones * static_cast<unsigned char>(separator)), found(findFrom(0))
    {
    }

    /// The position of the next separator after so many others, and the size of the text where it has none.
    std::size_t next(std::size_t others = 0)
    {
        for (;; --others) {
            while (found == 0) {
                if (text.size() - begin <= blockLength) {
                    return text.size();
                }
                begin += blockLength;
                found = findFrom(begin);
            }
            const std::size_t at = begin + static_cast<std::size_t>(std::countr_zero(found));
            found &= found - 1;
            if (others == 0) {
                return at;
            }
        }
    }

private:
    static constexpr std::uint64_t ones = 0x0101010101010101;
    static constexpr std::size_t wordLength = sizeof(std::uint64_t);
    static constexpr std::size_t blockLength = 64;

    // A bit for each byte of a block; it is set for a separator.
    std::uint64_t findFrom(std::size_t place) const
    {
        const char* const block = text.data() + place;
        const std::size_t length = std::min(text.size() - place, blockLength);
        std::uint64_t bits = 0;
        std::size_t at = 0;
        for (; at + wordLength <= length; at += wordLength) {
            std::uint64_t word = 0;
            std::memcpy(&word, block + at, wordLength);
            bits |= findIn(word) << at;
        }
        for (; at < length; ++at) {
            bits |= std::uint64_t{block[at] == static_cast<char>(wanted)} << at;
        }
        return bits;
    }

    // The same for eight bytes.
    std::uint64_t findIn(std::uint64_t word) const
    {
        constexpr std::uint64_t lowBits = 0x7f * ones;
        constexpr std::uint64_t gather = 0x0102040810204080; // brings bit 8 i to bit 56 + i
        word ^= wanted;
        const std::uint64_t high = ~(((word & lowBits) + lowBits) | word | lowBits);
        return (high >> 7) * gather >> 56;
    }

    std::string_view text;
    std::uint64_t wanted;
    std::size_t begin = 0;
    std::uint64_t found; // of the block there, what is still to come
};

} // namespace tavelinUtils
