#include "mutation.h"

namespace {

constexpr const char* oddNumbers[] = {
    "0",           "-0",          "1",           "-1",         "00",
    "+1",          "0.5",         "-0.0000001",  "59.9999999", "60",
    "359.9999999", "360",         "-90",         "90.0000001", "2147483647",
    "2147483648",  "-2147483648", "-2147483649", "4294967296", "9223372036854775808",
    "1e308",       "-1e308",      "1e-320",      "1e999",      "nan",
    "-nan",        "inf",         "-inf",        "0x1p4",      "1e",
    ".",           "-",           "1,5",         "2",          "3",
    "4",           "5",           "65535",       "32768",      "99999999999999999999"};

} // namespace

std::string Choices::oddNumber()
{
    return onceIn(4) ? std::to_string(static_cast<int>(below(100000)) - 1000) : oneOf(oddNumbers);
}

std::string Choices::word()
{
    return words.empty() ? oddNumber() : oneOf(words);
}

std::string Choices::value()
{
    switch (below(8)) {
    case 0: return "";
    case 1:
    case 2:
    case 3: return oddNumber();
    default: return word();
    }
}
