#include "base/text_index.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <stdexcept>

namespace tavelinUtils {

// The slot of a text, or the free one that it would take. The number of slots is a power of two.
std::size_t TextIndex::slotOf(std::string_view text, std::uint32_t hash) const
{
    const auto isIn = [&](std::size_t number) { return hashes[number] == hash && (*this)[number] == text; };
    const std::size_t mask = slots.size() - 1;
    std::size_t slot = hash & mask;
    while (slots[slot] != 0 && !isIn(slots[slot] - 1)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

std::size_t TextIndex::findOrAdd(std::string_view text)
{
    if (slots.size() < 2 * (ends.size() + 1)) {
        growSlots();
    }
    const std::uint64_t longHash = std::hash<std::string_view>{}(text);
    const auto hash = static_cast<std::uint32_t>(longHash ^ longHash >> 32);
    const std::size_t slot = slotOf(text, hash);
    if (slots[slot] == 0) {
        if (ends.size() >= std::numeric_limits<std::uint32_t>::max()) {
            throw std::length_error("more different texts than can be numbered");
        }
        characters += text;
        ends.push_back(characters.size());
        hashes.push_back(hash);
        slots[slot] = static_cast<std::uint32_t>(ends.size());
    }
    return slots[slot] - 1;
}

void TextIndex::growSlots()
{
    constexpr std::size_t fewest = 16;
    slots.assign(std::max(fewest, 2 * slots.size()), 0);
    const std::size_t mask = slots.size() - 1;
    for (std::size_t number = 0; number < hashes.size(); ++number) {
        std::size_t slot = hashes[number] & mask;
        while (slots[slot] != 0) {
            slot = (slot + 1) & mask;
        }
        slots[slot] = static_cast<std::uint32_t>(number + 1);
    }
}

} // namespace tavelinUtils
