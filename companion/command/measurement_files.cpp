#include "command/measurement_files.h"

#include <utility>

namespace companion {
namespace {

struct OwnReceiver
{
    std::string_view format;
    std::string_view receiver;
};

// Formats that one receiver alone takes.
constexpr OwnReceiver ownReceivers[] = {
    {"mpc", "mpc"},     {"tdm", "ccsds"},     {"tdm.xml", "ccsds"},
    {"aavso", "aavso"}, {"ades.xml", "ades"}, {"ades.psv", "ades"},
};

} // namespace

std::string givenFormat(const Arguments& arguments, std::string_view option)
{
    std::string word = arguments.value(option);
    return word.empty() ? word : knownFormat(std::move(word));
}

std::string knownFormat(std::string word)
{
    if (!isFormatName(word)) {
        throw unknownWord("format", word, formatNames());
    }
    return word;
}

std::string ownReceiver(std::string_view format)
{
    for (const OwnReceiver& row : ownReceivers) {
        if (row.format == format) {
            return std::string(row.receiver);
        }
    }
    return {};
}

Finding uncertainFormat(const std::string& path, const Recognition& recognition)
{
    const auto guess = [](const std::string& format, int points) {
        return format.empty() ? std::string("none that is known")
                              : formatTitle(format) + " (" + std::to_string(points) + " of 100)";
    };
    std::string text = guess(recognition.format, recognition.points);
    if (!recognition.format.empty()) {
        text += " or " + guess(recognition.second, recognition.secondPoints);
    }
    return finding("V302", {{"guess", text}}).in(path);
}

} // namespace companion
