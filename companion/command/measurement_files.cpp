#include "command/measurement_files.h"

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
    if (!word.empty() && !isFormatName(word)) {
        const std::string near = nearestWord(word, formatNames());
        const std::string question = near.empty() ? "" : "; did you mean \"" + near + "\"?";
        throw WrongUsage{finding("V002", {{"kind", "format"}, {"word", word}, {"question", question}})};
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
