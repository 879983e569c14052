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
        : text(walkedText), wanted(Bytes{} + static_cast<unsigned char>(separator)), found(findFrom(0))
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
                const std::size_t at = begin + static_cast<std::size_t>(std::countr_zero(found));
                found &= found - 1;
                return at;
            }
            if (text.size() - begin <= blockLength) {
                return text.size();
            }
            begin += blockLength;
            found = findFrom(begin);
        }
    }

private:
    // The compilers' own vectors, which the machine compares in one step.
    using Bytes [[gnu::vector_size(16)]] = unsigned char;
    using Words [[gnu::vector_size(16)]] = std::uint64_t;
    static constexpr std::size_t blockLength = 64;

    // A bit for each byte of a block; it is set for a separator.
    std::uint64_t findFrom(std::size_t place) const
    {
        const std::size_t length = text.size() - place;
        if (length >= blockLength) {
            return findIn(text.data() + place);
        }
        if (text.size() >= blockLength) {
            return findIn(text.data() + text.size() - blockLength) >> (blockLength - length);
        }
        char block[blockLength] = {};
        std::copy(text.begin(), text.end(), block);
        return findIn(block) & ((std::uint64_t{1} << length) - 1);
    }

    std::uint64_t findIn(const char* block) const
    {
        constexpr std::uint64_t ownBits = 0x8040201008040201; // a bit of its own for each byte of a word
        constexpr std::uint64_t sum =
            0x0101010101010101; // brings the bytes of a word together in its highest
        std::uint64_t bits = 0;
        for (std::size_t at = 0; at < blockLength; at += sizeof(Bytes)) {
            Bytes bytes;
            std::memcpy(&bytes, block + at, sizeof bytes);
            const Words equal = reinterpret_cast<Words>(bytes == wanted) & ownBits;
            bits |= (equal[0] * sum >> 56 | equal[1] * sum >> 56 << 8) << at;
        }
        return bits;
    }

    std::string_view text;
    Bytes wanted;
    std::size_t begin = 0;
    std::uint64_t found; // of the block there, what is still to come
};

} // namespace tavelinUtils
