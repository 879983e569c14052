// Separator bits: where a separator stands in a block of text, all places found at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tavelinUtils {

/// The place of the lowest bit that is set; there must be one. std::countr_zero also has an answer for none,
/// which takes time.
inline std::size_t lowestBit(std::uint64_t bits)
{
    return static_cast<std::size_t>(__builtin_ctzll(bits));
}

/// Finds a separator in blocks of text, sixteen characters in one step.
class SeparatorBits
{
public:
    /// How many characters a block has at most.
    static constexpr std::size_t blockLength = 64;

    explicit SeparatorBits(char separator)
        : one(separator), sixteen(Characters{} + static_cast<unsigned char>(separator))
    {
    }

    /// A bit for each character of a block, from the lowest on; it is set for a separator.
    std::uint64_t of(const char* block, std::size_t length) const
    {
        if (length < width) {
            return ofShort(block, length);
        }
        // The last step may repeat characters of the one before: the same bits.
        std::uint64_t bits = ofSixteen(block + length - width) << (length - width);
        for (std::size_t at = 0; at + width < length; at += width) {
            bits |= ofSixteen(block + at) << at;
        }
        return bits;
    }

private:
    // The compilers' own vectors, which the machine compares in one step.
    using Characters [[gnu::vector_size(16)]] = unsigned char;
    using Words [[gnu::vector_size(16)]] = std::uint64_t;
    static constexpr std::size_t width = sizeof(Characters);

    std::uint64_t ofShort(const char* block, std::size_t length) const
    {
        std::uint64_t bits = 0;
        for (std::size_t at = 0; at < length; ++at) {
            bits |= std::uint64_t{block[at] == one} << at;
        }
        return bits;
    }

    std::uint64_t ofSixteen(const char* text) const
    {
        Characters characters;
        std::memcpy(&characters, text, width);
        const auto equal = characters == sixteen;
#ifdef __SSE2__
        using Signed [[gnu::vector_size(16)]] = char;
        return static_cast<unsigned>(__builtin_ia32_pmovmskb128(reinterpret_cast<Signed>(equal)));
#else
        constexpr std::uint64_t ownBits = 0x8040201008040201; // a bit of its own for each character of a word
        constexpr std::uint64_t sum = 0x0101010101010101;     // brings them together in its highest byte
        const Words words = reinterpret_cast<Words>(equal) & ownBits;
        return words[0] * sum >> 56 | words[1] * sum >> 56 << 8;
#endif
    }

    char one;
    Characters sixteen;
};

} // namespace tavelinUtils
