// Seen texts: whether a text came before, for many short texts, each of which takes 8 bytes or little more.
//
//   if (!seen.insert("K88 00433 2025-02-23.51234")) { ... }   // the second time

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace companion {

/// A set of texts. It keeps their hashes, of 64 bits: of a million texts two different ones are taken for one
/// in one of eighteen million sets.
class SeenTexts
{
public:
    /// Takes a text in; false where it is in already.
    bool insert(std::string_view text)
    {
        if (count >= slots.size() / 4 * 3) {
            grow();
        }
        const std::uint64_t hash = std::hash<std::string_view>()(text) | 1U; // 0 is an empty place
        std::uint64_t& slot = slotOf(hash);
        if (slot == hash) {
            return false;
        }
        slot = hash;
        ++count;
        return true;
    }

private:
    // The place of a hash, or the empty one where it belongs.
    std::uint64_t& slotOf(std::uint64_t hash)
    {
        constexpr unsigned lowestBit = 1; // the same in all
        std::size_t at = (hash >> lowestBit) & (slots.size() - 1);
        while (slots[at] != 0 && slots[at] != hash) {
            at = (at + 1) & (slots.size() - 1);
        }
        return slots[at];
    }

    void grow()
    {
        constexpr std::size_t fewest = 64;
        std::vector<std::uint64_t> old(slots.empty() ? fewest : slots.size() * 2);
        old.swap(slots);
        for (const std::uint64_t hash : old) {
            if (hash != 0) {
                slotOf(hash) = hash;
            }
        }
    }

    std::vector<std::uint64_t> slots{}; // a power of two, open addressing
    std::size_t count = 0;
};

} // namespace companion
