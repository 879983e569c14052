// Sexagesimal texts that are digits alone are read as integers. Here each is read the long way too: cut at
// its separators, its parts read by the C library.

#include "text/angle_text.h"
#include "text/calendar.h"
#include "text/date_text.h"

#include "support/locales.h"
#include "support/random.h"
#include "support/same_bits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

using namespace tavelinUtils;

namespace {

// The parts of a text at a separator, of which the first four are kept. A missing part is empty.
class Parts
{
public:
    Parts(const std::string& text, char separator) : copy(text)
    {
        for (char* at = copy.data(); at != nullptr; ++count) {
            char* const end = std::strchr(at, separator);
            if (count < std::size(parts)) {
                parts[count] = at;
            }
            if (end != nullptr) {
                *end = '\0';
            }
            at = end == nullptr ? nullptr : end + 1;
        }
    }
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    double number(int part) const
    {
        return readInC(parts[part]);
    }
    int wholeNumber(int part) const
    {
        return static_cast<int>(static_cast<unsigned>(std::strtol(parts[part], nullptr, 10)));
    }
    bool isNegative() const
    {
        return *parts[0] == '-';
    }

    std::size_t count = 0;

private:
    std::string copy;
    const char* parts[4] = {"", "", "", ""};
};

double plainRA(const Parts& parts)
{
    return (parts.number(0) + parts.number(1) / 60.0 + parts.number(2) / 3600.0) * 15.0;
}

double plainDE(const Parts& parts)
{
    const double angle = std::abs(parts.number(0)) + parts.number(1) / 60.0 + parts.number(2) / 3600.0;
    return parts.isNegative() ? -angle : angle;
}

// What a text is read as in the long way.
struct PlainReading
{
    explicit PlainReading(const std::string& text)
    {
        const double number = readInC(text);
        const Parts blanks(text, ' ');
        const Parts colons(text, ':');
        const Parts points(text, '.');
        const Parts& first = blanks.count >= 2 ? blanks : colons;
        if (first.count >= 2) {
            RA = first.count == 3 ? plainRA(first) : -100.0;
            DE = first.count == 3 ? plainDE(first) : -100.0;
        } else {
            RA = number;
            DE = points.count == 4 ? plainDE(points) : number;
        }
        time = TimeToDay(colons.wholeNumber(0), colons.wholeNumber(1), colons.number(2));
    }

    double RA;
    double DE;
    double time; // cut at colons
};

bool readsAsPlain(std::string_view text)
{
    const PlainReading plain{std::string(text)};
    return sameBits(raToDecimal(text), plain.RA) && sameBits(deToDecimal(text), plain.DE) &&
           sameBits(timeToDay(text, ':'), plain.time);
}

class Texts
{
public:
    // A sign or none, two digits thrice with a separator between, and up to 15 decimals; every second text
    // has one or two characters in it that may be anything.
    const std::string& next()
    {
        text.clear();
        text += signs[random.below(sizeof signs)];
        const char separator = random.below(2) == 0 ? ':' : '.';
        appendDigits(text.front() == '0' ? 1 : 2);
        for (int part = 0; part < 2; ++part) {
            text += separator;
            appendDigits(2);
        }
        if (random.below(8) != 0) {
            text += '.';
            appendDigits(random.below(4) == 0 ? random.below(16) : 2);
        }
        for (int changes = random.below(2) * (1 + random.below(2)); changes > 0; --changes) {
            change();
        }
        return text;
    }

private:
    void appendDigits(int count)
    {
        for (; count > 0; --count) {
            text += static_cast<char>('0' + random.below(10));
        }
    }

    // Puts a character into the text or in place of another, or cuts the text there.
    void change()
    {
        const std::size_t place = random.below(text.size() + 1);
        const char character = odd[random.below(sizeof odd - 1)];
        switch (random.below(3)) {
        case 0: text.insert(place, 1, character); break;
        case 1: text.replace(place, 1, 1, character); break;
        default: text.resize(place); break;
        }
    }

    static constexpr char signs[] = {'-', '+', '0', '0'};
    static constexpr char odd[] = "0123456789 ::..+-eExX/;\t\r~\x80";
    Random random{20230225};
    std::string text;
};

} // namespace

TEST(SexagesimalReading, AMillionTextsReadAsTheLongWay)
{
    Texts texts;
    for (int i = 0; i < 1'000'000 && !HasFailure(); ++i) {
        const std::string& text = texts.next();
        if (!readsAsPlain(text)) {
            ADD_FAILURE() << '"' << text << '"';
        }
    }
}

TEST(SexagesimalReading, OddTextsReadAsTheLongWay)
{
    for (const char* text : {"",
                             ":",
                             "::",
                             "...",
                             "12:34:56",
                             "12:34:56.",
                             "-12:34:56.",
                             "+12:34:56.7",
                             "+-12:34:56",
                             "--12:34:56",
                             "-+12.34.56.7",
                             "12:34:56.78:",
                             "12.34.56",
                             "12.34.56.",
                             "12.34.56..",
                             "12.34.56.7.8",
                             "12.34.56.7:8",
                             "12.34.56.7 8",
                             "12:34:56,7",
                             "12:34:56.7e",
                             "12:34:56.7e1",
                             "12:34:5a.7",
                             "12:34:56.0x",
                             "12:34:0x6",
                             "12:34.56.7",
                             "12.34:56.7",
                             "00:00:00",
                             "-00:00:00.0",
                             "-00.00.00.0",
                             "99:99:99.999",
                             "1:02:03.45",
                             "001:02:03.4",
                             "12:34:56.7\t",
                             "\t12:34:56.7",
                             "/2:34:56.7",
                             ":2:34:56.7",
                             "12:34:56.7\xff"})
    {
        EXPECT_TRUE(readsAsPlain(text)) << text;
    }
}

TEST(SexagesimalReading, AnyNumberOfDecimalsReadsAsTheLongWay)
{
    for (const char* whole : {"12:34:56.", "-12:34:00.", "12.34.56.", "+00.00.00."}) {
        for (std::size_t decimals = 0; decimals < 30; ++decimals) {
            EXPECT_TRUE(readsAsPlain(whole + std::string(decimals, '7'))) << whole << decimals;
            EXPECT_TRUE(readsAsPlain(whole + std::string(decimals, '9'))) << whole << decimals;
        }
    }
}

// A field is a view into its line: what comes after it is none of it.
TEST(SexagesimalReading, ViewsEndWhereTheyEnd)
{
    for (const std::string_view line : {"12:34:56.78901", "-12:34:56.78901", "-12.34.56.78901"}) {
        for (std::size_t size = 0; size <= line.size(); ++size) {
            EXPECT_TRUE(readsAsPlain(line.substr(0, size))) << line.substr(0, size);
        }
    }
}
