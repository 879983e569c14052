#include "reading/line_checker.h"
#include "reading/text_front.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace companion {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Formats whose fields have blanks between them, or columns of their own. In a TDM a tab mostly is in front
// of a key, and the finding of the key tells it.
constexpr std::string_view blankFormats[] = {"mea", "telegram", "ssmas", "mpc"};

// A control byte other than a tab, or a byte of no ASCII character.
bool isOdd(char c)
{
    const auto byte = static_cast<std::uint8_t>(c);
    return byte >= 0x7F || (byte < 0x20 && byte != '\t');
}

// Eight bytes at a time: the highest bit of each byte is 1 where it is odd.
std::uint64_t oddBits(std::uint64_t eight)
{
    constexpr std::uint64_t each = 0x0101010101010101;
    constexpr std::uint64_t high = 0x80 * each;
    constexpr std::uint64_t low = 0x7F * each;
    constexpr std::uint64_t tabs = 0x09 * each;
    const std::uint64_t sevens = eight & low;
    const std::uint64_t isTab = ~((((eight ^ tabs) & low) + low) | (eight ^ tabs)) & high;
    const std::uint64_t isPrintable = (sevens + 0x60 * each) & high; // or not ASCII
    const std::uint64_t isDelete = (sevens + each) & high;
    return (~isPrintable & high & ~isTab) | isDelete | (eight & high);
}

bool hasOdd(std::string_view text)
{
    std::uint64_t odd = 0;
    std::size_t at = 0;
    for (; at + sizeof odd <= text.size(); at += sizeof odd) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + at, sizeof eight);
        odd |= oddBits(eight);
    }
    for (; at < text.size(); ++at) {
        odd |= isOdd(text[at]) ? 1U : 0U;
    }
    return odd != 0;
}

bool isControl(char c)
{
    const auto byte = static_cast<std::uint8_t>(c);
    return byte == 0x7F || (byte < 0x20 && byte != '\t');
}

bool isHigh(char c)
{
    return static_cast<std::uint8_t>(c) >= 0x80;
}

// The first run of bytes of a kind; empty where there is none.
template <class IsOne>
std::string_view firstRun(std::string_view text, IsOne isOne)
{
    const auto begin = std::find_if(text.begin(), text.end(), isOne);
    const auto end = std::find_if_not(begin, text.end(), isOne);
    return text.substr(static_cast<std::size_t>(begin - text.begin()), static_cast<std::size_t>(end - begin));
}

bool endsInReturn(std::string_view bytes)
{
    return bytes.ends_with('\r');
}

} // namespace

EncodingChecker::EncodingChecker(std::string_view format)
    : tabsAreOdd(std::find(std::begin(blankFormats), std::end(blankFormats), format) !=
                 std::end(blankFormats))
{
}

void EncodingChecker::line(const CheckedLine& line, LintOutput& out)
{
    if (line.number == 1) {
        lookAtFront(line, out);
    }
    if (stopped) {
        return;
    }
    lookAtEnd(line, out);
    if (hasOdd(line.text)) {
        lookAtOddBytes(line, out);
    }
    if (tabsAreOdd) {
        const std::size_t tab = line.text.find('\t');
        if (tab != std::string_view::npos) {
            out.add("V105", {tab + 1, 1}, {{"what", "a tab where the fields have blanks between them"}});
        }
    }
}

void EncodingChecker::end(LintOutput& /*out*/)
{
}

void EncodingChecker::lookAtFront(const CheckedLine& line, LintOutput& out)
{
    firstHasReturn = endsInReturn(line.bytes);
    const std::string wide = wideEncoding(line.bytes);
    if (!wide.empty()) {
        out.add("V101", {1, 2}, {{"encoding", wide}});
        stopped = true;
        return;
    }
    if (line.bytes.starts_with(byteOrderMark)) {
        out.add("V100", {1, byteOrderMark.size()});
    }
    const std::size_t inner = line.text.find('\r');
    if (inner != std::string_view::npos && !line.isEnded) {
        out.add("V102", {inner + 1, 1});
        stopped = true;
    }
}

void EncodingChecker::lookAtEnd(const CheckedLine& line, LintOutput& out)
{
    if (!line.isEnded) {
        out.add("V106", {}, {{"what", "no line feed at the end of the file"}});
    } else if (!toldMixedEnds && endsInReturn(line.bytes) != firstHasReturn) {
        toldMixedEnds = true;
        out.add("V106", {},
                {{"what", firstHasReturn ? "a line that ends in a line feed alone, unlike those before it"
                                         : "a line that ends in a carriage return and a line feed, unlike "
                                           "those before it"}});
    }
}

void EncodingChecker::lookAtOddBytes(const CheckedLine& line, LintOutput& out)
{
    std::string_view text = line.text;
    const std::size_t front = line.number == 1 && text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    text.remove_prefix(front);
    const std::string_view control = firstRun(text, isControl);
    if (!control.empty()) {
        out.add("V103", stretchOf(line.text, control));
    }
    const std::string_view high = firstRun(text, isHigh);
    if (!high.empty()) {
        out.add("V104", stretchOf(line.text, high));
    }
}

} // namespace companion
