// yardstick SHAPE MARKS OUTPUT FILES BYTES INPUT...: the least work of a run that meets each of its marks.
//
// It reads its inputs through one buffer and finds every line end, keeps what it found of each mark in one
// list, and then writes as many bytes as the outputs have, in as many files, by copying from one buffer to
// another. It builds no records and reads no numbers, and takes nothing down at its end. SHAPE is the number
// of lines that make a mark, or "table" for tables, where it finds every tab too.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t bufferSize = 256 * 1024;
constexpr std::size_t blockSize = 64;

// A block may be looked at that begins before the last byte of the buffer.
std::array<char, bufferSize + blockSize> inputBuffer;
std::array<char, bufferSize> outputBuffer;

#ifdef __SSE2__
// Which bytes of a block are tabs: bit 0 for the first.
std::uint64_t tabsOf(const char* block)
{
    const __m128i tab = _mm_set1_epi8('\t');
    std::uint64_t tabs = 0;
    for (std::size_t at = 0; at < blockSize; at += sizeof tab) {
        __m128i bytes;
        std::memcpy(&bytes, block + at, sizeof bytes);
        const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, tab)));
        tabs |= static_cast<std::uint64_t>(found) << at;
    }
    return tabs;
}
#else
// The same eight bytes at a time, on machines whose words begin with their lowest byte.
std::uint64_t tabsOf(const char* block)
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t lowBits = 0x7f * ones;
    constexpr std::uint64_t gatherHighBits = 0x0102040810204080;
    std::uint64_t tabs = 0;
    for (std::size_t at = 0; at < blockSize; at += sizeof tabs) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, block + at, sizeof bytes);
        bytes ^= ones * '\t';
        const std::uint64_t found = ~(((bytes & lowBits) + lowBits) | bytes | lowBits);
        tabs |= (((found >> 7) * gatherHighBits) >> 56) << at;
    }
    return tabs;
}
#endif

// Marks from files whose lines hold their fields at known places. A mark may take more than one line.
class LineMarks
{
public:
    LineMarks(std::size_t marks, std::uint64_t lines) : linesOfMark(lines)
    {
        list.reserve(marks);
    }

    // A line, and where it begins in its file.
    void add(std::string_view line, std::uint64_t begin)
    {
        if (++count % linesOfMark == 0 && list.size() < list.capacity()) {
            list.push_back({begin, begin + line.size(), count, {}});
        }
    }

private:
    struct Mark
    {
        std::uint64_t begin, end, line;
        std::array<std::uint64_t, 3> values; // room for what a reader would keep
    };
    static_assert(sizeof(Mark) == 48);

    std::vector<Mark> list;
    std::uint64_t linesOfMark;
    std::uint64_t count = 0;
};

// Marks from tables: the last places of tabs of each line.
class TableMarks
{
public:
    explicit TableMarks(std::size_t marks)
    {
        list.reserve(marks);
    }

    void add(std::string_view line, std::uint64_t begin)
    {
        Mark mark = {};
        std::size_t count = 0;
        for (std::size_t at = 0; at < line.size(); at += blockSize) {
            std::uint64_t tabs = tabsOf(line.data() + at);
            if (line.size() - at < blockSize) {
                tabs &= (std::uint64_t{1} << (line.size() - at)) - 1;
            }
            for (; tabs != 0; tabs &= tabs - 1) {
                mark[count++ % mark.size()] = begin + at + static_cast<std::uint64_t>(std::countr_zero(tabs));
            }
        }
        if (list.size() < list.capacity()) {
            list.push_back(mark);
        }
    }

private:
    using Mark = std::array<std::uint64_t, 8>;
    static_assert(sizeof(Mark) == 64);

    std::vector<Mark> list;
};

int openOrThrow(const std::string& path, int flags)
{
    const int file = open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (file < 0) {
        throw std::runtime_error("cannot open " + path);
    }
    return file;
}

// Gives the marks each line of a piece of a file; a line that goes on in the next piece comes as two.
template <class Marks>
void takeLines(std::string_view piece, std::uint64_t before, Marks& marks)
{
    const char* const end = piece.data() + piece.size();
    for (const char* line = piece.data(); line < end;) {
        const void* const found = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
        const char* const lineEnd = found == nullptr ? end : static_cast<const char*>(found);
        marks.add({line, static_cast<std::size_t>(lineEnd - line)},
                  before + static_cast<std::uint64_t>(line - piece.data()));
        line = lineEnd + 1;
    }
}

template <class Marks>
void readFiles(char** first, char** end, Marks& marks)
{
    for (char** path = first; path != end; ++path) {
        const int file = openOrThrow(*path, O_RDONLY);
        std::uint64_t before = 0;
        for (;;) {
            const ssize_t size = read(file, inputBuffer.data(), bufferSize);
            if (size <= 0) {
                break;
            }
            takeLines({inputBuffer.data(), static_cast<std::size_t>(size)}, before, marks);
            before += static_cast<std::uint64_t>(size);
        }
        close(file);
    }
}

void writeFile(const std::string& path, std::size_t bytes)
{
    const int file = openOrThrow(path, O_WRONLY | O_CREAT | O_TRUNC);
    while (bytes > 0) {
        const std::size_t piece = std::min(bytes, outputBuffer.size());
        std::memcpy(outputBuffer.data(), inputBuffer.data(), piece);
        if (write(file, outputBuffer.data(), piece) != static_cast<ssize_t>(piece)) {
            throw std::runtime_error("cannot write " + path);
        }
        bytes -= piece;
    }
    close(file);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 7) {
        return 2;
    }
    const auto number = [argv](int place) { return std::strtoull(argv[place], nullptr, 10); };
    // The lists stay until the process ends.
    if (argv[1] == std::string_view("table")) {
        readFiles(argv + 6, argv + argc, *new TableMarks(number(2)));
    } else {
        readFiles(argv + 6, argv + argc, *new LineMarks(number(2), number(1)));
    }
    const auto files = std::max(number(4), 1ULL);
    for (std::size_t file = 0; file < files; ++file) {
        writeFile(argv[3] + std::to_string(file), number(5) / files);
    }
}
