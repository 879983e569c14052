// Run essentials: the path separator, the tokeniser, files and folders, parts of a path, the clock text.
//
// Paths come in either spelling, with "/" or with "\", and leave with "/". They are plain byte strings:
// nothing resolves ".", "..", links or drive letters.

#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavelinUtils {

/// The separator that is appended to paths and that they are split on.
inline const std::string Slash = "/";
/// The same, under the name that other modules know.
inline const std::string PathSeparator = "/";

/// The canonical form of a folder's path: backslashes become slashes, and slashes at the end go. A path
/// of separators only is "/"; an empty one stays empty.
std::string normalizeSeparatorDir(const std::string& path);

/// Puts the separator behind a path that does not end in it. An empty path stays empty.
void AddSlash(std::string& path, std::string separator);

/// From the last "." of the whole text to its end, the point included, or "" where there is none. Not
/// limited to the last component: "a.d/file" gives ".d/file".
std::string GetFileExt(std::string name);

/// The last component, cut at its last ".": ".hidden" gives "".
std::string ExtractOnlyFileName(std::string path);

/// What stands behind the last backslash or character of the separator text; the whole path where there
/// is none.
std::string ExtractFileName(std::string path, std::string separator);

/// What stands before the last separator of either spelling. A bare name comes back whole, not as "";
/// "/name" gives "".
std::string ExtractPath(std::string path);

/// The one door to the C stream library: nothing is translated. A null pointer when it fails.
std::FILE* fopen(std::string path, std::string mode);

/// Whether the path can be opened for reading. An unreadable file counts as absent, and a folder, which
/// opens, as present.
bool FileExists(std::string path);

/// Whether the path, in either spelling, is a folder. False for an empty path.
bool DirectoryExists(std::string path);

/// Cuts a text at each separator, which may be of any length. Each separator ends a token, empty tokens
/// are kept, and what follows the last separator is lost only if it is empty: "/a/b" at "/" gives "",
/// "a", "b". An empty text leaves the tokens as they were; an empty separator gives none.
void Pars9(std::string text, std::vector<std::string>& tokens, std::string separator);

/// Removes line feeds, carriage returns and tabs from the end. Blanks stay.
void mytrim_r(std::string& text);

/// The local date and time of this moment, to the microsecond: "2024-03-09 04:05:06.000789".
std::string NowToDateTimeLin();

/// The same text. The argument is not used: a blank stands in the middle whatever it says.
std::string NowToDateTime(std::string separator);

/// Never returns. For walks that stay on an element by contract: a loop without effect is none to the
/// compilers.
[[noreturn]] void stayForever();

struct CloseFile
{
    void operator()(std::FILE* file) const
    {
        std::fclose(file);
    }
};

/// A stream that closes itself.
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file for reading as one stream of bytes, without a buffer of the stream's own. A null pointer
/// where it cannot be opened, or is a folder.
OpenFile openForReading(const std::string& path);

/// The size of an open file in bytes; 0 for what is no regular file.
std::size_t sizeOf(std::FILE* file);

/// The bytes of a file.
struct FileBytes
{
    /// Zero bytes behind the last, so that a scanner may look a few bytes ahead at the end.
    static constexpr std::size_t spareBytes = 8;

    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    std::string_view view() const
    {
        return {bytes.get(), size};
    }
};

/// Reads a file to its end in one step, with spare zero bytes behind the last. False when it cannot be
/// opened or read, as with a folder; the target is then untouched.
bool readBytes(const std::string& path, FileBytes& file);

/// Opens a file in the mode and hands the bytes to the system in one write. False when opening, writing or
/// closing fails.
bool writeBytes(const std::string& path, const std::string& mode, std::string_view bytes);

/// A text without the line feeds, carriage returns and tabs at its end.
inline std::string_view withoutLineEnd(std::string_view line)
{
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r' || line.back() == '\t')) {
        line.remove_suffix(1);
    }
    return line;
}

/// Hands each token of a text to a function, by the rule of Pars9 for a separator of one character.
template <class Use>
void forEachToken(std::string_view text, char separator, Use use)
{
    while (!text.empty()) {
        const std::size_t end = text.find(separator);
        use(text.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

/// Cuts a text at a separator as Pars9 does with the separator put behind the text, so that a text that
/// ends in the separator has an empty last part. Keeps as many parts as there is room for, leaves the rest
/// of the room as it was, and returns how many parts there are.
template <std::size_t room>
std::size_t cutParts(std::string_view text, char separator, std::array<std::string_view, room>& parts)
{
    std::size_t count = 0;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (count < room) {
            parts[count] = text.substr(0, end);
        }
        ++count;
        if (end == text.size()) {
            return count;
        }
        text.remove_prefix(end + 1);
    }
}

/// The first three parts of a text, by the rule of cutParts; a part that is not there is empty.
inline std::array<std::string_view, 3> threeParts(std::string_view text, char separator)
{
    std::array<std::string_view, 3> parts;
    cutParts(text, separator, parts);
    return parts;
}

/// A field of fixed place in a line, 0-based.
struct LineColumn
{
    std::size_t first;
    std::size_t width;
};

/// The text of a field. Throws std::out_of_range where the line ends before the field; where it ends within
/// the field, the text is shorter.
inline std::string_view cutColumn(std::string_view line, LineColumn column)
{
    return line.substr(column.first, column.width);
}

/// Hands the position of each separator in a text to a function. Looks at eight bytes at a time, which for
/// the short fields of a table is a few times as fast as one search for each.
template <class Use>
void forEachSeparator(std::string_view text, char separator, Use use)
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t lowBits = 0x7f * ones;
    const std::uint64_t wanted = ones * static_cast<unsigned char>(separator);
    std::size_t at = 0;
    for (; at + sizeof wanted <= text.size(); at += sizeof wanted) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        bytes ^= wanted;
        // The high bit of each byte that is 0 now, and of no other.
        std::uint64_t found = ~(((bytes & lowBits) + lowBits) | bytes | lowBits);
        for (; found != 0; found &= found - 1) {
            use(at + static_cast<std::size_t>(std::countr_zero(found)) / 8);
        }
    }
    for (; at < text.size(); ++at) {
        if (text[at] == separator) {
            use(at);
        }
    }
}

/// Hands each line of a file's bytes to a function, without its line end and without the tabs before
/// that. A line feed at the end of the bytes makes no further line.
template <class Use>
void forEachLine(std::string_view bytes, Use use)
{
    forEachToken(bytes, '\n', [&use](std::string_view line) { use(withoutLineEnd(line)); });
}

/// How many lines the bytes of a file hold at most.
inline std::size_t countLines(std::string_view bytes)
{
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

/// Hands each line of a file to a reading that takes lines one after the other, after it has reserved room
/// for them. False for a file that cannot be read.
template <class Reading>
bool readLines(const std::string& path, Reading& reading)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return false;
    }
    reading.reserve(countLines(file.view()));
    forEachLine(file.view(), [&reading](std::string_view line) { reading.add(line); });
    return true;
}

} // namespace tavelinUtils
