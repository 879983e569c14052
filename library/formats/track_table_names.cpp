#include "formats/track_table_names.h"

#include "base/numbers.h"
#include "files/essentials.h"
#include "text/number_text.h"

#include <algorithm>
#include <cstddef>

namespace tavelinUtils {
namespace {

constexpr std::size_t longestWholeName = 7;
constexpr std::size_t cutNameLength = 8; // one more than a whole name may have

bool isOfSatellite(const TrackVtorichka& track)
{
    return track.TrMade == THowMakeTr::GSOHO || track.TrMade == THowMakeTr::MOSKH;
}

} // namespace

std::string CalcSecondName(std::string path, int number, std::string prefix, std::string suffix)
{
    if (prefix.empty() && suffix.empty()) {
        prefix = "A";
    }
    const std::string folder = ExtractPath(path);
    const std::size_t tail = std::min<std::size_t>(number > 99 ? 1 : 2, folder.size());
    TextBuffer name(prefix);
    name.endAt(writeTwoDigits(name.room(scaledLength), number));
    name += suffix;
    name += folder.substr(folder.size() - tail);
    return name.str();
}

std::string CalcSecondNameSat(int number, std::string prefix)
{
    constexpr std::size_t digits = 3;
    const std::string text = IntToStr(number);
    if (text.size() < digits) {
        prefix.append(digits - text.size(), '0');
    }
    return prefix + text;
}

std::string shownName(const TrackVtorichka& track, const std::string& givenName, const std::string& source,
                      const std::string& prefix, const std::string& suffix, int number, bool longName)
{
    if (!givenName.empty()) {
        return givenName;
    }
    if (!longName && track.QRVName.size() > longestWholeName) {
        return track.QRVName.substr(1, cutNameLength);
    }
    return isOfSatellite(track) ? CalcSecondNameSat(number, prefix)
                                : CalcSecondName(source, number, prefix, suffix);
}

} // namespace tavelinUtils
