#include "base/kept_texts.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace tavelinUtils {

KeptTexts::Place KeptTexts::keep(std::string_view text)
{
    if (text.empty()) {
        return 0;
    }
    if (text.size() > std::numeric_limits<Length>::max()) {
        throw std::length_error("a text is too long to be kept");
    }
    const auto length = static_cast<Length>(text.size());
    const std::size_t needed = sizeof length + text.size();
    if (room < needed) {
        addChunk(needed);
    }
    char* const to = chunks.back().get() + used;
    std::memcpy(to, &length, sizeof length);
    std::memcpy(to + sizeof length, text.data(), text.size());
    const Place place = Place{chunks.size() - 1} << 32 | used;
    used += needed;
    room -= needed;
    return place;
}

void KeptTexts::addChunk(std::size_t length)
{
    constexpr std::size_t usual = std::size_t{1} << 16;
    if (chunks.empty()) {
        chunks.emplace_back();
    }
    room = std::max(usual, length);
    used = 0;
    chunks.push_back(std::make_unique_for_overwrite<char[]>(room));
}

} // namespace tavelinUtils
