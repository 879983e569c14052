#include "config/xml_nesting.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <string_view>

#include <strings.h>

namespace tavelinUtils {
namespace {

// Walks a document as the library does. Where the library would stop with an error the walk may go on: the
// load fails either way. Where the library goes on, the walk must meet the same elements.
class Walk
{
public:
    explicit Walk(const char* document) : at(document)
    {
        constexpr std::string_view utf8Mark = "\xEF\xBB\xBF"; // the byte order mark
        utf8 = encodingSettled = startsWith(utf8Mark);
    }

    bool goesBeyond(int deepest, int mostAttributes)
    {
        int depth = 0;
        for (skipSpace(); *at != '\0'; skipSpace()) {
            if (depth == 0 && *at != '<') {
                return false; // the library stops at a text outside all elements
            }
            const bool isElement = *at == '<' && isNameStart(at[1]);
            if (isElement && (skipStartTag() > mostAttributes || depth >= deepest)) {
                return true;
            }
            depth += isElement ? (emptyTag ? 0 : 1) : skipOther(depth == 0);
        }
        return false;
    }

private:
    static bool isSpace(char c)
    {
        return std::isspace(static_cast<unsigned char>(c)) != 0;
    }

    // Every byte from 127 on counts as a letter.
    static bool isNameStart(char c)
    {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 127 || std::isalpha(byte) != 0 || c == '_';
    }

    static bool isNamePart(char c)
    {
        return isNameStart(c) || std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '.' ||
               c == ':';
    }

    bool startsWith(std::string_view text) const
    {
        return std::strncmp(at, text.data(), text.size()) == 0;
    }

    bool startsWithWord(std::string_view text) const
    {
        return strncasecmp(at, text.data(), text.size()) == 0;
    }

    void skipSpace()
    {
        for (;;) {
            if (utf8 &&
                (startsWith("\xEF\xBB\xBF") || startsWith("\xEF\xBF\xBE") || startsWith("\xEF\xBF\xBF"))) {
                at += 3;
            } else if (isSpace(*at)) {
                ++at;
            } else {
                return;
            }
        }
    }

    // A numeric entity reaches to the next ";", whatever is between; its digits are read from the end.
    // Without a ";" the library stops.
    void skipNumberEntity()
    {
        at += at[2] == 'x' ? 3 : 2;
        skipPast(';');
    }

    // A lead byte takes the following bytes with it, whatever they are, even a "<".
    void skipCharacter()
    {
        const auto byte = static_cast<unsigned char>(*at);
        if (byte == '&' && at[1] == '#' && at[2] != '\0') {
            skipNumberEntity();
        } else if (!utf8 || byte < 0xC2 || byte > 0xF4) {
            at += 1;
        } else if (byte < 0xE0) {
            at += 2;
        } else {
            at += byte < 0xF0 ? 3 : 4;
        }
    }

    void skipText()
    {
        while (*at != '\0' && *at != '<') {
            skipCharacter();
        }
    }

    // The text in quotes; the closing quote is passed too.
    std::string_view skipQuoted()
    {
        const char quote = *at++;
        const char* const begin = at;
        while (*at != '\0' && *at != quote) {
            skipCharacter();
        }
        const char* const end = at;
        if (*at != '\0') {
            ++at;
        }
        return {begin, static_cast<std::size_t>(end - begin)};
    }

    void skipRest()
    {
        at += std::strlen(at);
    }

    void skipPast(char end)
    {
        const char* const found = std::strchr(at, end);
        at = found == nullptr ? at + std::strlen(at) : found + 1;
    }

    void skipPast(const char* text)
    {
        const char* const found = std::strstr(at, text);
        at = found == nullptr ? at + std::strlen(at) : found + std::strlen(text);
    }

    void skipName()
    {
        while (*at != '\0' && isNamePart(*at)) {
            ++at;
        }
    }

    // Reads name, equals sign and value of an attribute and gives the value. False if there is none.
    bool skipAttribute(std::string_view& value)
    {
        if (!isNameStart(*at)) {
            return false;
        }
        skipName();
        skipSpace();
        if (*at != '=') {
            return false;
        }
        ++at;
        skipSpace();
        if (*at != '"' && *at != '\'') {
            return skipUnquoted(value);
        }
        value = skipQuoted();
        return true;
    }

    bool skipUnquoted(std::string_view& value)
    {
        const char* const begin = at;
        while (*at != '\0' && !isSpace(*at) && *at != '/' && *at != '>') {
            if (*at == '"' || *at == '\'') {
                return false;
            }
            ++at;
        }
        value = {begin, static_cast<std::size_t>(at - begin)};
        return true;
    }

    // The number of attributes; emptyTag reports whether the element ends with its start tag.
    int skipStartTag()
    {
        ++at;
        skipSpace(); // a byte order mark counts as space here too
        skipName();
        int attributes = 0;
        for (skipSpace(); !skipTagEnd(); skipSpace()) {
            std::string_view value;
            if (!skipAttribute(value)) {
                skipRest();
            }
            ++attributes;
        }
        return attributes;
    }

    // False where attributes follow.
    bool skipTagEnd()
    {
        emptyTag = *at == '/' || *at == '\0';
        if (!emptyTag && *at != '>') {
            return false;
        }
        skipPast('>');
        return true;
    }

    // Skips all that is no start tag and returns the change of depth.
    int skipOther(bool outside)
    {
        if (*at != '<') {
            skipText();
        } else if (!outside && startsWith("</")) {
            skipPast('>');
            return -1;
        } else if (startsWithWord("<?xml")) {
            skipDeclaration(outside);
        } else if (startsWith("<!--")) {
            skipComment();
        } else if (startsWith("<![CDATA[")) {
            skipPast("]]>");
        } else {
            skipPast('>');
        }
        return 0;
    }

    // What closes the comment comes after the four characters that open it.
    void skipComment()
    {
        at += 4;
        skipPast("-->");
    }

    // A declaration outside all elements settles the encoding, once.
    void skipDeclaration(bool settles)
    {
        constexpr std::string_view start = "<?xml";
        at += start.size();
        std::string_view encoding;
        while (*at != '\0' && *at != '>') {
            skipSpace();
            skipDeclarationItem(encoding);
        }
        if (*at == '>') {
            ++at;
        }
        if (settles && !encodingSettled) {
            utf8 = encoding.empty() || strncasecmp(encoding.data(), "UTF-8", 5) == 0 ||
                   strncasecmp(encoding.data(), "UTF8", 4) == 0;
            encodingSettled = true;
        }
    }

    void skipDeclarationItem(std::string_view& encoding)
    {
        const bool isEncoding = startsWithWord("encoding");
        if (isEncoding || startsWithWord("version") || startsWithWord("standalone")) {
            std::string_view value;
            if (!skipAttribute(value)) {
                skipRest();
            } else if (isEncoding) {
                encoding = value;
            }
            return;
        }
        while (*at != '\0' && *at != '>' && !isSpace(*at)) {
            ++at;
        }
    }

    const char* at;
    bool utf8 = false;
    bool encodingSettled = false;
    bool emptyTag = false;
};

} // namespace

void normalizeLineEnds(FileBytes& file)
{
    char* to = file.bytes.get();
    const char* const end = to + file.size;
    for (const char* from = to; from != end; ++from) {
        const bool beforeLineFeed = *from == '\r' && from + 1 != end && from[1] == '\n';
        if (!beforeLineFeed) {
            *to++ = *from == '\r' ? '\n' : *from;
        }
    }
    file.size = static_cast<std::size_t>(to - file.bytes.get());
    std::fill_n(to, FileBytes::spareBytes, '\0');
}

bool goesBeyond(const char* document, int deepest, int mostAttributes)
{
    return Walk(document).goesBeyond(deepest, mostAttributes);
}

} // namespace tavelinUtils
