#include "receivers/copy_input.h"

#include "base/lines.h"
#include "out/characters.h"

namespace companion {
namespace {

std::string mapped(const Observatory& observatory, const std::string& word)
{
    const auto row = observatory.bands.find(word);
    return row == observatory.bands.end() ? word : row->second;
}

// The text of columns 71 to 77, of which only the first is the band's.
std::string bandOfReport(const Observatory& observatory, const std::string& line)
{
    const std::string text(trimmed(tavelinUtils::cut(line, {71, 7})));
    if (observatory.bands.contains(text)) {
        return mapped(observatory, text);
    }
    const std::string letter(tavelinUtils::cut(line, {71, 1}));
    return letter == " " ? "" : mapped(observatory, letter);
}

std::string ownBand(const CopyTrack& track, std::size_t mark)
{
    const CopyMark& known = track.marks[mark];
    if (!known.line80.empty()) {
        return bandOfReport(*track.observatory, known.line80);
    }
    const std::string& own = track.track.Marks[mark].filtr;
    const bool isKnown = known.hasBand && own.find_first_not_of(' ') != std::string::npos;
    return isKnown ? mapped(*track.observatory, own) : "";
}

} // namespace

bool isBright(const CopySettings& settings, const CopyTrack& track, std::size_t mark)
{
    const bool isZero = track.track.Marks[mark].m == 0.0 && !settings.takesZeroMagnitudes;
    return track.marks[mark].hasMagnitude && !settings.leavesMagnitudesOut && !isZero;
}

std::string bandOf(const CopyTrack& track, std::size_t mark)
{
    const Observatory& observatory = *track.observatory;
    std::string own = ownBand(track, mark);
    if (!own.empty()) {
        return own;
    }
    return observatory.bandOfCall.empty() ? mapped(observatory, observatory.band) : observatory.bandOfCall;
}

std::optional<Finding> faultOfFrame(const CopyTrack& track)
{
    return track.otherFrame.empty() ? std::nullopt
                                    : std::optional(finding("V143", {{"word", track.otherFrame}}));
}

} // namespace companion
