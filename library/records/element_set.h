// Element sets, plates and the small lists that settings nest.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A three-line element set of a satellite.
struct TTLEstr
{
    std::string Line0{}; ///< the name line
    std::string Line1{}; ///< the first element line
    std::string Line2{}; ///< the second element line
};

/// The astrometric plate of a frame. Files store its first two values and its lists. No units are given.
struct TPlateRec
{
    double Value1 = 0;           ///< the centre's CRVAL1, degrees, where FitHeadToPlate made the plate
    double Value2 = 0;           ///< the centre's CRVAL2, degrees, where FitHeadToPlate made the plate
    double Value3 = 0;           ///< carried
    double Value4 = 0;           ///< carried
    int Int1 = 0;                ///< carried
    int Int2 = 0;                ///< carried
    std::vector<double> List1{}; ///< as long as List2
    std::vector<double> List2{}; ///< as long as List1
};

static_assert(sizeof(TPlateRec) == 88);

/// Carried by the settings.
struct TKMTN
{
    std::vector<double> List{};       ///< carried
    std::vector<std::string> Texts{}; ///< carried
};

/// Carried by the settings.
struct TForms123
{
    std::vector<double> Form1{}; ///< carried
    std::vector<double> Form2{}; ///< carried
    std::vector<double> Form3{}; ///< carried
};

} // namespace tavelinUtils
