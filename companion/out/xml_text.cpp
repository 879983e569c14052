#include "out/xml_text.h"

namespace companion {
namespace {

// "&#xA;", which is one line feed to every parser.
void appendReference(std::string& result, unsigned char control)
{
    constexpr const char* digits = "0123456789ABCDEF";
    result += "&#x";
    if (control >= 0x10) {
        result += digits[control / 0x10];
    }
    result += digits[control % 0x10];
    result += ';';
}

} // namespace

std::string xmlText(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        switch (character) {
        case '&': result += "&amp;"; break;
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        case '"': result += "&quot;"; break;
        default:
            if (byte < ' ') {
                appendReference(result, byte);
            } else {
                result += character;
            }
        }
    }
    return result;
}

} // namespace companion
