// Same text: whether two texts are equal, for short texts that mostly are.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavelinUtils {

/// Whether two texts are equal: of up to sixteen characters in two steps that may overlap, which take less
/// time than a call.
inline bool isSameText(std::string_view a, std::string_view b)
{
    const std::size_t size = a.size();
    if (size != b.size()) {
        return false;
    }
    const auto differ = [&]<class Word>(Word /*of so many characters*/) {
        const auto at = [](const char* text) {
            Word word = 0;
            std::memcpy(&word, text, sizeof word);
            return word;
        };
        const std::size_t last = size - sizeof(Word);
        return ((at(a.data()) ^ at(b.data())) | (at(a.data() + last) ^ at(b.data() + last))) != 0;
    };
    if (size >= 8 && size <= 16) {
        return !differ(std::uint64_t{});
    }
    if (size >= 4 && size < 8) {
        return !differ(std::uint32_t{});
    }
    return a == b;
}

} // namespace tavelinUtils
