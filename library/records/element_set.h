// Element sets, plates and the small lists that settings nest.

#pragma once

#include <string>
#include <vector>

namespace tavelinUtils {

/// A three-line element set of a satellite.
struct TTLEstr
{
    std::string Line0{}; ///< the name line
    std::string Line1{};
    std::string Line2{};
};

/// The astrometric plate of a frame; of the texts only the first two values and the lists are stored.
struct TPlateRec
{
    double Value1 = 0;
    double Value2 = 0;
    double Value3 = 0;
    double Value4 = 0;
    int Int1 = 0;
    int Int2 = 0;
    std::vector<double> List1{}; ///< as long as List2
    std::vector<double> List2{};
};

static_assert(sizeof(TPlateRec) == 88);

/// Carried by the settings.
struct TKMTN
{
    std::vector<double> List{};
    std::vector<std::string> Texts{};
};

/// Carried by the settings.
struct TForms123
{
    std::vector<double> Form1{};
    std::vector<double> Form2{};
    std::vector<double> Form3{};
};

} // namespace tavelinUtils
