// Copy input: tracks on their way to a receiver, with what their records alone do not tell, and what an
// observatory says in each of its reports.

#pragma once

#include "findings/finding.h"
#include "receivers/exact_text.h"
#include "records/track.h"

#include <cmath>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace companion {

/// What an observatory says in each report; what is not known is empty.
struct Observatory
{
    std::string station{};
    std::string contact{};
    std::string email{};
    std::string observers{}; ///< names with ", " between them
    std::string measurers{};
    std::string submitter{};
    std::string telescope{}; ///< in one line, where a configuration has it so
    std::string design{};
    std::string aperture{}; ///< metres
    std::string fRatio{};
    std::string detector{};
    std::string mode{}; ///< CCD, CMO ...
    std::string astrometricCatalogue{};
    std::string photometricCatalogue{};
    std::string aavsoCode{};
    std::string acknowledgement{};
    std::string comment{};                      ///< lines with line feeds between them
    std::string band{};                         ///< of magnitudes whose band is not known
    std::string bandOfCall{};                   ///< the same by an option, as the receiver calls it
    std::map<std::string, std::string> bands{}; ///< from our filter words to those of the receiver
};

/// How fine the values of a mark are in its source, a step each; 0 where any number of digits is kept.
struct ValueSteps
{
    double time = 0;           ///< seconds
    double rightAscension = 0; ///< arcseconds, along the equator
    double declination = 0;    ///< arcseconds
    double magnitude = 0;
};

/// Which texts and magnitudes of a record its source has; what it does not have is a default of the record.
struct KnownBrightness
{
    bool ensemble = false;
    bool instrumental = false;
    bool kind = false;       ///< MTYPE
    bool comparison = false; ///< CNAME
};

/// What the record of a mark does not tell.
struct CopyMark
{
    std::size_t line = 0; ///< of its file, from 1; 0 in a task
    int number = -1;      ///< of its track, from 0
    bool hasMagnitude = false;
    bool hasBand = false;
    ValueSteps steps{};
    KnownBrightness known{};
    std::string line80{}; ///< its line in a report in 80 columns; empty for one of another width
};

/// A track, with a CopyMark for each of its marks.
struct CopyTrack
{
    tavelinUtils::TrackVtorichka track{};
    std::vector<CopyMark> marks{};
    std::shared_ptr<const Observatory> observatory{};
    MarkPlace place{};          ///< in a task
    bool isIdentified = false;  ///< five digits of its name are the number of a minor planet
    bool isSatellite = false;   ///< an artificial one
    bool isOf80Columns = false; ///< of a report in 80 columns
    char note2 = ' ';           ///< column 15 of such a report
    std::string otherFrame{};   ///< of a message, where its places are not those of ICRF
};

/// Where the magnitude of a report of variable stars comes from.
enum class MagnitudeKind
{
    ensemble,
    apparent,
    instrumental
};

/// What the call asks for.
struct CopySettings
{
    std::string file{};             ///< the input, as findings name it
    int timeDecimals = 0;           ///< of a day in 80 columns; 0: five
    int rightAscensionDecimals = 0; ///< of a second in 80 columns; 0: what the source has
    int declinationDecimals = 0;
    bool allowsSatellites = false;
    bool areNumbers = false; ///< names of five digits are numbers of minor planets
    bool leavesMagnitudesOut = false;
    bool takesZeroMagnitudes = false;
    MagnitudeKind magnitude = MagnitudeKind::ensemble;
    std::string creationDate{}; ///< an epoch
    std::string software{};     ///< name and version of this program
};

/// The moment of a mark.
inline DayAndFraction momentOf(const tavelinUtils::TRecLabelPervichka_File& mark)
{
    return {mark.date, mark.time};
}

/// Whether a number of degrees can be brought to a right ascension: not one that is none, nor one of many
/// turns.
inline bool isRightAscension(double degrees)
{
    return std::abs(degrees) <= 1e6;
}

/// Whether a number of degrees is a declination.
inline bool isDeclination(double degrees)
{
    return std::abs(degrees) <= 90.0;
}

/// Whether a mark has a magnitude that is to be written.
bool isBright(const CopySettings& settings, const CopyTrack& track, std::size_t mark);

/// The band of a mark as the receiver calls it; empty where it is not known. Of a report in 80 columns it is
/// the letter of column 71, unless the profile has a word for all that stands there.
std::string bandOf(const CopyTrack& track, std::size_t mark);

/// Why no place of a track can be written as one of ICRF; nothing for one that can.
std::optional<Finding> faultOfFrame(const CopyTrack& track);

} // namespace companion
