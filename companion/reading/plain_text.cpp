#include "reading/plain_text.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/text.h"
#include "reading/text_front.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace companion {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

void appendUtf8(std::string& text, char32_t character)
{
    constexpr char32_t fronts[] = {0, 0xC0, 0xE0, 0xF0}; // by the number of bytes that follow
    const auto add = [&text](char32_t bits) { text += static_cast<char>(static_cast<std::uint8_t>(bits)); };
    const unsigned rest = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    add(fronts[rest] | character >> 6 * rest);
    for (unsigned i = rest; i-- > 0;) {
        add(0x80U | (character >> 6 * i & 0x3FU));
    }
}

// Text of two or four bytes a character.
class WideText
{
public:
    WideText(std::string_view bytesOfFile, std::size_t widthOfUnit)
        : bytes(bytesOfFile), width(widthOfUnit), isBigEnded(bigEnded())
    {
    }

    // False where the bytes are no such text.
    bool appendTo(std::string& text)
    {
        if (bytes.size() % width != 0) {
            return false;
        }
        for (std::size_t at = 0; at < bytes.size(); at += width) {
            char32_t character = unit(at);
            if (isHighHalf(character) && width == 2 && at + 2 * width <= bytes.size()) {
                const char32_t low = unit(at += width);
                if (!isLowHalf(low)) {
                    return false;
                }
                character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
            }
            if (!isCharacter(character)) {
                return false;
            }
            appendUtf8(text, character);
        }
        return true;
    }

private:
    static bool isHighHalf(char32_t unit)
    {
        return unit >= 0xD800 && unit < 0xDC00;
    }
    static bool isLowHalf(char32_t unit)
    {
        return unit >= 0xDC00 && unit < 0xE000;
    }
    static bool isCharacter(char32_t character)
    {
        return character != 0 && character <= 0x10FFFF && !isHighHalf(character) && !isLowHalf(character);
    }

    char32_t unit(std::size_t at) const
    {
        char32_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t byte = isBigEnded ? at + i : at + width - 1 - i;
            value = value << 8 | static_cast<std::uint8_t>(bytes[byte]);
        }
        return value;
    }

    // By the mark, or where Latin letters have their zeros.
    bool bigEnded() const
    {
        if (bytes.starts_with("\xFF\xFE")) {
            return false;
        }
        std::size_t first = 0;
        std::size_t last = 0;
        for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
            first += bytes[at] == '\0' ? 1U : 0U;
            last += bytes[at + width - 1] == '\0' ? 1U : 0U;
        }
        return first > last;
    }

    std::string_view bytes;
    std::size_t width;
    bool isBigEnded;
};

// How many bytes at the front of a text are byte order marks.
std::size_t marksAtFront(std::string_view text)
{
    std::size_t size = 0;
    while (text.substr(size).starts_with(byteOrderMark)) {
        size += byteOrderMark.size();
    }
    return size;
}

PlainText ofWide(std::string_view bytes, const std::string& encoding)
{
    PlainText plain;
    WideText wide(bytes, encoding == "UTF-16" ? 2 : 4);
    if (wide.appendTo(plain.text)) {
        plain.text.erase(0, marksAtFront(plain.text));
        plain.mended.push_back(encoding + " is UTF-8 now");
    } else {
        plain.text.clear();
        plain.broken = "broken " + encoding;
    }
    return plain;
}

PlainText ofBytes(std::string_view bytes)
{
    PlainText plain;
    const bool isMarked = bytes.starts_with(byteOrderMark);
    if (isMarked) {
        bytes.remove_prefix(marksAtFront(bytes));
        plain.mended.emplace_back("the byte order mark is taken away");
    }
    if (bytes.find('\0') != std::string_view::npos) {
        plain.broken = "partly of two bytes a character";
    } else if (isMarked && !isUtf8(bytes)) {
        plain.broken = "broken UTF-8";
    } else {
        plain.text = bytes;
    }
    return plain;
}

void mendLineEnds(PlainText& plain)
{
    const bool hasFeed = plain.text.find('\n') != std::string::npos;
    if (!hasFeed && plain.text.find('\r') != std::string::npos) {
        std::replace(plain.text.begin(), plain.text.end(), '\r', '\n');
        plain.mended.emplace_back("carriage returns are line feeds now");
    }
}

} // namespace

PlainText plainText(const std::string& path)
{
    tavelinUtils::FileBytes file;
    if (!tavelinUtils::readBytes(path, file)) {
        frontOfFile(path); // throws with a reason where even the front cannot be read
        throw WrongUsage{finding("V003", {{"file", path}, {"what", "cannot be read to its end"}})};
    }
    const std::string wide = wideEncoding(file.view());
    PlainText plain = wide.empty() ? ofBytes(file.view()) : ofWide(file.view(), wide);
    mendLineEnds(plain);
    return plain;
}

} // namespace companion
