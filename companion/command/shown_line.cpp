#include "command/shown_line.h"

#include <algorithm>
#include <string_view>

namespace companion {
namespace {

constexpr std::string_view indent = "    ";
constexpr std::size_t longestLine = 200; // bytes that are shown whole
constexpr std::size_t beforePlace = 60;  // bytes of a longer one, before the place and from its begin on
constexpr std::size_t fromPlace = 120;
constexpr std::string_view gap = "...";

// Bytes as characters that a terminal shows one by one, whatever its encoding.
std::string escaped(std::string_view bytes)
{
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte > 0x7E) {
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        } else {
            text += c;
        }
    }
    return text;
}

} // namespace

std::string shownLine(const FindingPlace& place)
{
    if (place.column == 0 || place.snippet.empty() || place.column > place.snippet.size() + 1) {
        return {};
    }
    const std::string_view line = place.snippet;
    const std::size_t at = place.column - 1;
    const bool isLong = line.size() > longestLine;
    const std::size_t begin = isLong && at > beforePlace ? at - beforePlace : 0;
    const std::size_t end = isLong ? std::min(line.size(), at + fromPlace) : line.size();
    const std::size_t marked = std::min(std::max<std::size_t>(place.length, 1), std::max(end, at + 1) - at);

    const std::string before =
        (begin > 0 ? std::string(gap) : std::string()) + escaped(line.substr(begin, at - begin));
    const std::size_t width =
        std::max<std::size_t>(escaped(line.substr(std::min(at, line.size()), marked)).size(), 1);
    std::string text = std::string(indent) + before + escaped(line.substr(at, end - at));
    text += end < line.size() ? gap : "";
    text += '\n' + std::string(indent) + std::string(before.size(), ' ') + '^' + std::string(width - 1, '~');
    return text + '\n';
}

} // namespace companion
