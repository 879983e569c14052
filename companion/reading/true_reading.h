// True reading: a file as it is meant, where the tool's own reader takes it for something else. Declinations
// without a sign are north, blanks and line ends are what they look like, and messages of other makers are
// read by the standard.
//
//   const TrueFile file = readAsMeant("night.mea", "mea");

#pragma once

#include "findings/finding.h"
#include "records/track.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace companion {

/// What the caller decides where a file leaves it open, or holds what the tool has no place for.
struct TrueSettings
{
    std::string timeSystem{};          ///< UTC, TAI, GPS or TT: instead of what a message states
    bool acceptFrame = false;          ///< angles of any frame are taken as they are
    bool applyCorrections = false;     ///< corrections that are given and not applied are added
    std::optional<double> magnitude{}; ///< of each mark of a message that has none
};

/// How many decimals the numbers of a mark have in a message; below 0 where the format has them by rule.
struct WrittenDecimals
{
    signed char time = -1; ///< of the second
    signed char rightAscension = -1;
    signed char declination = -1;
    signed char magnitude = -1;
};

/// What a mark's record alone does not tell.
struct TrueMark
{
    std::size_t line = 0;      ///< of the file, from 1
    bool hasPosition = true;   ///< the format has right ascension and declination
    bool hasMagnitude = false; ///< its magnitude is in the file, or is that of the settings
    bool hasBand = false;      ///< its band is in the file
    WrittenDecimals decimals{};
};

/// A track, with a TrueMark for each of its marks.
struct TrueTrack
{
    tavelinUtils::TrackVtorichka track{};
    std::string station{}; ///< what the file says of the place or telescope; empty where it says nothing
    std::vector<TrueMark> marks{};
};

/// What a file comes to besides its tracks.
struct TrueOutcome
{
    std::vector<Finding>
        findings{};          ///< what is mended, left out or cannot be taken, by lines; without a file
    std::size_t leftOut = 0; ///< marks of the file that are in no track; findings tell of each
};

/// The tracks of a file.
struct TrueFile
{
    std::vector<TrueTrack> tracks{};
    std::vector<Finding> findings{}; ///< as in TrueOutcome
    std::size_t leftOut = 0;         ///< as in TrueOutcome
};

/// Reads a file as it is meant, and gives each track to a user, who may change it; it is refilled for the
/// next. Each has its name in QRVName. Declinations that have no sign are north; times of TAI, GPS and TT
/// become UTC; the reference frame of a track is that of its message. Marks without a magnitude stay, with 0.
/// The format is a name of reading/signatures.h; one that holds no tracks gives none. Throws WrongUsage
/// (V003) for a file that cannot be read.
TrueOutcome readAsMeant(const std::string& path, const std::string& format, const TrueSettings& settings,
                        const std::function<void(TrueTrack&)>& use);

/// The same, with all tracks at once.
TrueFile readAsMeant(const std::string& path, const std::string& format, const TrueSettings& settings = {});

} // namespace companion
