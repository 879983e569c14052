#include "base/numbers.h"
#include "exhaustive/sweeps.h"

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace tavelinUtils;

namespace {

// What the C library prints of a magnitude, with a minus in front that a positive number leaves out.
class PrintedNumber
{
public:
    void print(const char* format, int precision, double magnitude)
    {
        length = std::snprintf(text + 1, sizeof text - 1, format, precision, magnitude);
    }
    std::string_view positive() const
    {
        return {text + 1, static_cast<std::size_t>(length)};
    }
    std::string_view negative() const
    {
        return {text, static_cast<std::size_t>(length) + 1};
    }

private:
    char text[400] = "-";
    int length = 0;
};

void sweepWriter(std::uint64_t bits, double magnitude, Differences& differences)
{
    PrintedNumber expected;
    for (const int decimals : {4, 7, 9}) {
        expected.print("%.*f", decimals, magnitude);
        TextBuffer out;
        appendFixed(out, magnitude, decimals);
        differences.expect(out.view(), expected.positive(), "appendFixed", decimals, bits);
        out.clear();
        appendFixed(out, -magnitude, decimals);
        differences.expect(out.view(), expected.negative(), "appendFixed, negative,", decimals, bits);
    }
}

void sweepReader(std::uint64_t bits, double magnitude, Differences& differences)
{
    constexpr int digits = 9;
    PrintedNumber text;
    text.print("%.*g", digits, magnitude);
    const double expected = std::strtod(text.positive().data(), nullptr);
    differences.expect(toDouble(text.positive()), expected, "toDouble", digits, bits);
    differences.expect(toDouble(text.negative()), -expected, "toDouble, negative,", digits, bits);
}

} // namespace

void sweepFloats(const Stretch& stretch, Differences& differences)
{
    for (std::uint64_t bits = stretch.begin; bits < stretch.end; bits += stretch.step) {
        const double magnitude = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        sweepWriter(bits, magnitude, differences);
        sweepReader(bits, magnitude, differences);
    }
}
