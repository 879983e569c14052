#include "schema/converted_keys.h"

#include "base/tokens.h"
#include "schema/key_rows.h"

namespace companion {
namespace {

constexpr const char* catalogues =
    "TYCHO2 UCAC4 UCAC5 USNOB1 NOMAD1 GAIA2 PanSTARRS1 SDSS9 APASS9 VSX AAVSOvsp";

constexpr ConvertedKey convertedKeys[] = {
    {"Service", "service", "asteroids satellites variablestars alignment identification airfly", ""},
    {"PixelWidth", "number", "", "0"},
    {"PixelHeight", "number", "", "0"},
    {"WaitLastFrame", "end", "ByTime ByCount", ""},
    {"FittingType", "fitting", "Auto Diurnal Stroke DiffFrame", "Auto"},
    {"DoNotSelectStarsOnFrame", "areas", "", ""},
    {"AreaWithBadImages", "areas", "", ""},
    {"INetAstrometric", "catalogue", catalogues, ""},
    {"INetPhotometric", "catalogue", catalogues, ""},
    {"TypeSpeedLimit", "speedUnit", "VisibleMotion ArcsecPerMin", ""},
    {"SetApertureSize", "aperture", "AutoCalculation ByRadius ByFWHM", "ByRadius"},
};

} // namespace

std::span<const ConvertedKey> convertedKeyTable()
{
    return convertedKeys;
}

const ConvertedKey& convertedKey(std::string_view key)
{
    return rowOfKey(convertedKeys, &ConvertedKey::key, key);
}

std::vector<std::string> wordsOf(const ConvertedKey& row)
{
    std::vector<std::string> words;
    tavelinUtils::forEachToken(row.words, ' ', [&words](std::string_view word) { words.emplace_back(word); });
    return words;
}

} // namespace companion
