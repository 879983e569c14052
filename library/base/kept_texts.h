// Kept texts: many texts in little memory, each at a place of its own that never moves.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// Keeps texts one after another. Nothing is looked up: who keeps a text again names the place where it may
/// be already.
class KeptTexts
{
public:
    /// Where a text is; 0 for every empty one.
    using Place = std::uint64_t;

    /// Keeps a text and returns its place. Throws std::length_error for a text of four gigabytes.
    Place keep(std::string_view text);

    /// The same, but for the text at a likely place only that place is returned.
    Place keep(std::string_view text, Place likely)
    {
        return (*this)[likely] == text ? likely : keep(text);
    }

    /// The text at a place.
    std::string_view operator[](Place place) const
    {
        if (place == 0) {
            return {};
        }
        const char* const at = chunks[place >> 32].get() + (place & 0xffffffff);
        Length length = 0;
        std::memcpy(&length, at, sizeof length);
        return {at + sizeof length, length};
    }

private:
    using Length = std::uint32_t;

    void addChunk(std::size_t length);

    std::vector<std::unique_ptr<char[]>> chunks; // the first stays empty: no text is at place 0
    std::size_t used = 0;                        // of the last chunk
    std::size_t room = 0;                        // behind that
};

} // namespace tavelinUtils
