#include "receivers/observation_notes.h"

#include <algorithm>
#include <iterator>

namespace companion {
namespace {

struct Note
{
    char letter;
    std::string_view mode; // empty where ADES has none
};

// What one line of a new report may have. Of letters for one word the first is the one that the word gets.
constexpr Note notes[] = {
    {'C', "CCD"}, {'B', "CMO"}, {'P', "PHO"}, {' ', "PHO"}, {'A', "PHO"}, {'n', "VID"},
    {'E', "OCC"}, {'e', "ENC"}, {'T', "MER"}, {'M', "MIC"}, {'N', ""},    {'O', ""},
};

constexpr std::string_view ofTwoLines = "SsVvRr";

const Note* noteFor(char letter)
{
    const auto* const row = std::find_if(std::begin(notes), std::end(notes),
                                         [letter](const Note& each) { return each.letter == letter; });
    return row == std::end(notes) ? nullptr : row;
}

} // namespace

std::string modeOfNote(char letter)
{
    const Note* const row = noteFor(letter);
    return std::string(row == nullptr ? "" : row->mode);
}

std::optional<char> noteOfMode(std::string_view mode)
{
    if (mode.empty()) {
        return 'C';
    }
    const auto* const row = std::find_if(std::begin(notes), std::end(notes),
                                         [mode](const Note& each) { return each.mode == mode; });
    return row == std::end(notes) ? std::nullopt : std::optional(row->letter);
}

std::optional<char> noteOfCopy(char ofReport, std::string_view mode)
{
    const Note* const own = noteFor(ofReport);
    const bool isKept = own != nullptr && (own->mode.empty() || own->mode == mode);
    return isKept ? std::optional(ofReport) : noteOfMode(mode);
}

std::optional<Finding> faultOfNote(char letter)
{
    if (noteFor(letter) != nullptr) {
        return std::nullopt;
    }
    const bool isOfTwo = ofTwoLines.find(letter) != std::string_view::npos;
    return finding("V316", {{"columns", "column 15"},
                            {"text", std::string(1, letter)},
                            {"why", isOfTwo ? "the observation has a second line, which a copy does not keep"
                                            : "the note is not for new observations"}});
}

} // namespace companion
