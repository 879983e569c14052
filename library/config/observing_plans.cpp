#include "config/observing_plans.h"

#include "config/key_table.h"
#include "config/parameter_tree.h"

namespace tavelinUtils {
namespace {

constexpr KeyRow<TAPTScriptSat> planKeys[] = {
    {"planName", &TAPTScriptSat::planName},
    {"fovRA", &TAPTScriptSat::fovRA},
    {"fovDE", &TAPTScriptSat::fovDE},
    {"overlap", &TAPTScriptSat::overlap},
    {"delta_min", &TAPTScriptSat::delta_min},
    {"delta_max", &TAPTScriptSat::delta_max},
    {"longitude", &TAPTScriptSat::longitude},
    {"latitude", &TAPTScriptSat::latitude},
    {"altitude", &TAPTScriptSat::altitude},
    {"settingPoints", &TAPTScriptSat::settingPoints},
    {"setPointsList", &TAPTScriptSat::setPointsList},
    {"calculationArea", &TAPTScriptSat::calculationArea},
    {"motionType", &TAPTScriptSat::motionType},
    {"frames", &TAPTScriptSat::frames},
    {"exposure", &TAPTScriptSat::exposure},
    {"deltaTime", &TAPTScriptSat::deltaTime},
    {"maxPointToFile", &TAPTScriptSat::maxPointToFile},
    {"corners", &TAPTScriptSat::corners},
    {"pointsList", &TAPTScriptSat::pointsList},
};

// Those of the geostationary form alone.
constexpr KeyRow<TAPTScriptGEOTLE> geoKeys[] = {
    {"gain", &TAPTScriptGEOTLE::gain},
    {"slew_time", &TAPTScriptGEOTLE::slew_time},
    {"load_time", &TAPTScriptGEOTLE::load_time},
};

} // namespace

void LoadAPTScriptSat(std::string path, TAPTScriptSat& plan)
{
    readKeys(ParameterFile(path).root(), planKeys, plan);
}

void LoadAPTScriptGEOTLE(std::string path, TAPTScriptGEOTLE& plan)
{
    ParameterFile file(path);
    TAPTScriptSat& common = plan;
    readKeys(file.root(), planKeys, common);
    readKeys(file.root(), geoKeys, plan);
}

} // namespace tavelinUtils
