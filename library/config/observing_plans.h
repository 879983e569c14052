// Observing plans: the field, the site, and how many frames of which points are to be taken.
//
// All values are texts, as the file has them; the members are named after their keys. A reader takes the
// children of the document's first element, whatever its name. A key that is missing or empty leaves its
// member, and a file that cannot be loaded leaves the plan.

#pragma once

#include "../export.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// A plan for satellites.
struct TAPTScriptSat
{
    std::string planName{};

    // The field of view and how fields overlap.
    std::string fovRA{};
    std::string fovDE{};
    std::string overlap{};

    std::string delta_min{};
    std::string delta_max{};

    // The site.
    std::string longitude{};
    std::string latitude{};
    std::string altitude{};

    std::string settingPoints{};
    std::string setPointsList{};
    std::string calculationArea{};

    // "diurnal" or "static".
    std::string motionType{};

    std::string frames{};
    std::string exposure{};
    std::string deltaTime{};
    std::string maxPointToFile{};
    std::string corners{};
    std::string pointsList{};
};

/// A plan for satellites of the geostationary ring, with three more keys.
struct TAPTScriptGEOTLE : TAPTScriptSat
{
    std::string gain{};
    std::string slew_time{};
    std::string load_time{};
};

/// Reads a plan for satellites.
void LoadAPTScriptSat(std::string path, TAPTScriptSat& plan);

/// Reads a plan for satellites of the geostationary ring.
void LoadAPTScriptGEOTLE(std::string path, TAPTScriptGEOTLE& plan);

} // namespace tavelinUtils
