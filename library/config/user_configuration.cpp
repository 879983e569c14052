#include "config/user_configuration.h"

#include "config/configuration_sections.h"
#include "config/xml_document.h"
#include "files/essentials.h"
#include "results/code_table.h"

#include <tuple>
#include <utility>
#include <vector>

namespace tavelinUtils {
namespace {

// A flag that master frames are used, and the raw frames that they are made of.
struct MasterFrames
{
    bool TMasterFrame::*use;
    std::vector<std::string> TMasterFrame::*raw;
};

constexpr MasterFrames masterFrames[] = {
    {&TMasterFrame::UseMasterBias, &TMasterFrame::ProcessingRawBias},
    {&TMasterFrame::UseMasterDark, &TMasterFrame::ProcessingRawDark},
    {&TMasterFrame::UseMasterDarkFlat, &TMasterFrame::ProcessingRawDarkFlat},
    {&TMasterFrame::UseMasterFlat, &TMasterFrame::ProcessingRawFlat},
};

TFuncRes failure(int code, std::string description, std::string detail)
{
    TFuncRes result = GetErrCode(code, std::move(description));
    result.Details.push_back(std::move(detail));
    return result;
}

TService serviceOf(TiXmlElement* root)
{
    bool found = false;
    return StrToService(GetTXT(root, "Service", found)); // a missing word counts as an unknown one
}

void dropUnused(TMasterFrame& frames)
{
    for (const auto& [use, raw] : masterFrames) {
        if (!(frames.*use)) {
            (frames.*raw).clear();
        }
    }
}

// The coefficients of a polynomial of two variables. A degree that the reduction does not know keeps the
// present number.
int coefficientsOf(short degree, int present)
{
    switch (degree) {
    case 1: return 3;
    case 3: return 10;
    case 5: return 21;
    default: return present;
    }
}

void readSections(TiXmlElement* root, TPorogs& porogs, bool loadTLE)
{
    const int coefficients = porogs.astro.CoefficientsNumber;
    GetText(root, "Version", porogs.Version);
    porogs.Service = serviceOf(root);
    porogs.basicSettings = GetBasicSettings(root, "basicSettings");
    porogs.zunek = GetZUNEK(root, "ZUNEK");
    std::tie(porogs.fitt, porogs.intraThresh) = GetIntraFrame(root, "intraframeProcessing");
    porogs.masterFrame = GetBrightnessFrame(root, "intraframeProcessing");
    porogs.astro = GetIdentification(root, "Identification");
    porogs.vo = GetInterFrameAsteroids(root, "interframeasteroids");
    porogs.interIC = GetInterFrameIC(root, "interframeasteroids");
    porogs.interSat = GetInterFrameSatellites(root, "interframesatellites");
    porogs.stacking = GetAutoFrameStacking(root, "autoframestacking");
    porogs.curves = GetLightCurves(root, "lightCurves");
    porogs.mpc = GetReportSettings(root, "ReportSettings");
    porogs.headerKeys = HeaderKeyXML(root, "HeaderSettings");
    porogs.filtersID = GetFiltersID(root, "HeaderSettings");
    if (loadTLE) {
        porogs.interSat.TLEs = GetTLEs(root, "TLEs");
    }
    dropUnused(porogs.masterFrame);
    porogs.astro.CoefficientsNumber = coefficientsOf(porogs.astro.AstrometryReductionDegree, coefficients);
}

} // namespace

TFuncRes LoadUserConfXML(std::string path, TPorogs& porogs, bool loadTLE)
{
    TtavelinXmlDocument document(path);
    return LoadUserConfXML(document, porogs, loadTLE);
}

TFuncRes LoadUserConfXML(TtavelinXmlDocument& document, TPorogs& porogs, bool loadTLE)
{
    const std::string& path = document.fileName;
    if (!FileExists(path)) {
        const std::string description = "Load user conf.=" + path;
        return failure(resultCode::noConfiguration, description, description);
    }
    if (!document.LoadFile()) {
        return failure(resultCode::brokenConfiguration, "Load user conf. " + path, path);
    }
    readSections(document.FirstChildElement(), porogs, loadTLE);
    return GetErrCode(resultCode::success, "");
}

} // namespace tavelinUtils
