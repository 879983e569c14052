#include "reading/text_front.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace companion {
namespace {

constexpr std::size_t enoughBytes = std::size_t{1} << 16;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct WideMark
{
    std::string_view bytes;
    const char* encoding;
};

// Those of four bytes first: one of two bytes is their front.
constexpr WideMark wideMarks[] = {
    {{"\xFF\xFE\0\0", 4}, "UTF-32"},
    {{"\0\0\xFE\xFF", 4}, "UTF-32"},
    {"\xFF\xFE", "UTF-16"},
    {"\xFE\xFF", "UTF-16"},
};

std::string markedEncoding(std::string_view front)
{
    for (const WideMark& mark : wideMarks) {
        if (front.starts_with(mark.bytes)) {
            return mark.encoding;
        }
    }
    return {};
}

tavelinUtils::OpenFile opened(const std::string& path)
{
    errno = 0;
    tavelinUtils::OpenFile stream = tavelinUtils::openForReading(path);
    if (stream == nullptr) {
        const char* const reason = errno != 0 ? std::strerror(errno) : "is a folder";
        throw WrongUsage{finding("V003", {{"file", path}, {"what", reason}})};
    }
    return stream;
}

// Whether a byte is none of ASCII: eight at a time, for files of any size.
bool hasHighBytes(std::string_view bytes)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::uint64_t all = 0;
    std::size_t at = 0;
    for (; at + sizeof all <= bytes.size(); at += sizeof all) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        all |= eight;
    }
    for (; at < bytes.size(); ++at) {
        all |= static_cast<std::uint8_t>(bytes[at]);
    }
    return (all & highBits) != 0;
}

// Looks at all bytes of a file.
struct FormWalk
{
    bool hasFeeds = false;         // alone
    bool hasReturnedFeeds = false; // behind a carriage return
    bool hasReturns = false;       // alone
    bool isAscii = true;
    bool isUtf8 = true;
    std::size_t bytes = 0;

    // Whole lines, so that no character is cut.
    void take(std::string_view lines)
    {
        bytes += lines.size();
        if (lines.find('\r') == std::string_view::npos) {
            hasFeeds = hasFeeds || lines.find('\n') != std::string_view::npos;
        } else {
            takeLineEnds(lines);
        }
        if (hasHighBytes(lines)) {
            isAscii = false;
            isUtf8 = isUtf8 && companion::isUtf8(lines);
        }
    }

    std::string lineEnds() const
    {
        if (hasFeeds && hasReturnedFeeds) {
            return "mixed";
        }
        return hasFeeds ? "LF" : hasReturnedFeeds ? "CRLF" : hasReturns ? "CR" : "none";
    }

private:
    void takeLineEnds(std::string_view lines)
    {
        for (std::size_t at = 0; at < lines.size(); ++at) {
            if (lines[at] == '\n') {
                const bool isReturned = at > 0 && lines[at - 1] == '\r';
                (isReturned ? hasReturnedFeeds : hasFeeds) = true;
            } else if (lines[at] == '\r') {
                hasReturns = true;
            }
        }
    }
};

} // namespace

std::string wideEncoding(std::string_view front)
{
    std::string marked = markedEncoding(front);
    if (!marked.empty()) {
        return marked;
    }
    // Latin letters have a zero byte in each of the other places of their characters.
    constexpr std::size_t enough = 8;
    constexpr std::size_t looked = 256;
    front = front.substr(0, looked);
    std::array<std::size_t, 4> zeros{};
    for (std::size_t i = 0; i < front.size(); ++i) {
        zeros[i % zeros.size()] += front[i] == '\0' ? 1U : 0U;
    }
    const std::size_t most = front.size() / 5; // of the quarter of the bytes that a place has
    const auto many = std::count_if(zeros.begin(), zeros.end(), [most](std::size_t n) { return n > most; });
    if (front.size() < enough || many < 2 || many > 3) {
        return {};
    }
    return many == 3 ? "UTF-32" : "UTF-16";
}

std::string textFront(std::string_view bytes)
{
    bytes = bytes.substr(0, enoughBytes);
    const std::string wide = wideEncoding(bytes);
    std::string text(bytes);
    if (!wide.empty()) {
        text.erase(0, markedEncoding(bytes).empty() ? 0 : (wide == "UTF-16" ? 2 : 4));
        std::erase(text, '\0');
    } else if (bytes.starts_with(byteOrderMark)) {
        text.erase(0, byteOrderMark.size());
    }
    if (text.find('\n') == std::string::npos) {
        std::replace(text.begin(), text.end(), '\r', '\n');
    }
    return text;
}

std::string frontOfFile(const std::string& path)
{
    const tavelinUtils::OpenFile stream = opened(path);
    std::string bytes(enoughBytes, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream.get()));
    mustHaveBeenRead(stream.get(), path);
    return bytes;
}

void mustHaveBeenRead(std::FILE* stream, const std::string& path)
{
    if (std::ferror(stream) != 0) {
        throw WrongUsage{finding("V003", {{"file", path}, {"what", "cannot be read to its end"}})};
    }
}

TextForm textFormOf(const std::string& path)
{
    const std::string front = frontOfFile(path);
    TextForm form;
    form.encoding = wideEncoding(front);
    form.hasMark = !markedEncoding(front).empty() || front.starts_with(byteOrderMark);
    const tavelinUtils::OpenFile stream = opened(path);
    tavelinUtils::LinePieces pieces(stream.get());
    FormWalk walk;
    while (pieces.next()) {
        walk.take(pieces.lines());
    }
    mustHaveBeenRead(stream.get(), path);
    form.lineEnds = walk.lineEnds();
    form.bytes = walk.bytes;
    if (form.encoding.empty()) {
        form.encoding = walk.isAscii ? "ASCII" : walk.isUtf8 ? "UTF-8" : "other";
    }
    return form;
}

} // namespace companion
