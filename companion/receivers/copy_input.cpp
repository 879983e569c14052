#include "receivers/copy_input.h"

namespace companion {

bool isBright(const CopySettings& settings, const CopyTrack& track, std::size_t mark)
{
    const bool isZero = track.track.Marks[mark].m == 0.0 && !settings.takesZeroMagnitudes;
    return track.marks[mark].hasMagnitude && !settings.leavesMagnitudesOut && !isZero;
}

std::string bandOf(const CopyTrack& track, std::size_t mark)
{
    const Observatory& observatory = *track.observatory;
    const std::string& own = track.track.Marks[mark].filtr;
    const bool isKnown = track.marks[mark].hasBand && own.find_first_not_of(' ') != std::string::npos;
    const std::string& word = isKnown ? own : observatory.band;
    const auto row = observatory.bands.find(word);
    return row == observatory.bands.end() ? word : row->second;
}

} // namespace companion
