// Ephemeris: any bytes give marks, with or without an end, or the standard out-of-range exception; the same
// from a file and from its lines.

#include "files/text_files.h"
#include "formats/horizons.h"
#include "track_checks.h"

#include <algorithm>
#include <stdexcept>

namespace {

using namespace tavelinUtils;

// A line that is too short for its columns, or a month that is none.
constexpr int outOfRange = 1;

int resultOf(const std::string& path, TrackVtorichka& track)
{
    try {
        return lHorizons(path, track);
    } catch (const std::out_of_range&) {
        return outOfRange;
    }
}

int resultOf(const std::vector<std::string>& lines, TrackVtorichka& track)
{
    try {
        return lHorizons(lines, track);
    } catch (const std::out_of_range&) {
        return outOfRange;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    const std::vector<std::string> lines = ReadFromFile(file.path());
    TrackVtorichka fromFile;
    TrackVtorichka fromLines;
    const int result = resultOf(file.path(), fromFile);
    mustHold(result == resultOf(lines, fromLines));
    mustHold(sameTracks({fromFile}, {fromLines}));
    mustHold(fromFile.Marks.empty() || std::find(lines.begin(), lines.end(), "$$SOE") != lines.end());
    mustHold(result != 0 || std::find(lines.begin(), lines.end(), "$$EOE") != lines.end());
    return 0;
}
