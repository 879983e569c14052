#include "config/configuration_sections.h"

#include "base/numbers.h"
#include "config/configuration_keys.h"
#include "config/key_table.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tavelinUtils {
namespace {

// The file may give micrometres where the record holds millimetres: no pixel is wider than one of these.
double millimetres(std::string text)
{
    constexpr double widestPixel = 1.0;
    constexpr double micrometres = 1000.0;
    const double size = toDouble(text);
    return size > widestPixel ? size / micrometres : size;
}

// An entry of a wrong form is left out in silence.
std::vector<TBadAreaFrame> badAreas(std::string text)
{
    bool ok = true;
    return ParsBadAreaFrame(std::move(text), ok);
}

constexpr KeyRow<TBasicSettings> basicKeys[] = {
    {"Filter", &TBasicSettings::Filter},
    {"Telescope", &TBasicSettings::Telescope},
    {"FocalLength", &TBasicSettings::FocalLength},
    {"Longitude", &TBasicSettings::Longitude},
    {"Latitude", &TBasicSettings::Latitude},
    {"Altitude", &TBasicSettings::Altitude},
    {"Observatory", &TBasicSettings::Observatory},
    {"PixelWidth", through<millimetres, &TBasicSettings::PixelWidth>},
    {"PixelHeight", through<millimetres, &TBasicSettings::PixelHeight>},
    {"PixelScale", &TBasicSettings::PixelScale},
    {"UseBinningFromHeader", &TBasicSettings::UseBinningFromHeader},
};

constexpr KeyRow<TZunek> zunekKeys[] = {
    {"QuidanceError", &TZunek::QuidanceError},
    {"AddDate", &TZunek::AddDate},
    {"AddObject", &TZunek::AddObject},
    {"AddFilter", &TZunek::AddFilter},
    {"AddRADE", &TZunek::AddRADE},
    {"AddCamera", &TZunek::AddCamera},
    {"IsSeriesFormed", &TZunek::IsSeriesFormed},
    {"WaitLastFrame", through<StrToTypeNextFormation, &TZunek::WaitLastFrame>},
    {"WaitLastFrameTime", &TZunek::WaitLastFrameTime},
    {"SubseriesCount", &TZunek::SubseriesCount},
    {"SaveTableBlob", &TZunek::SaveTableBlob},
};

constexpr KeyRow<TFitt> artifactsFilterKeys[] = {
    {"HotPixels", &TFitt::HotPixels},
    {"NegativePixels", &TFitt::NegativePixels},
    {"IsDetect", &TFitt::IsDetect},
};

constexpr KeyRow<TFitt> imageDetectionKeys[] = {
    {"FittingType", through<StrToModeFitting, &TFitt::FittingType>},
    {"DetectionAtEqualityPixels", &TFitt::DetectionAtEqualityPixels},
    {"snrPeakPointObject", &TFitt::snrPeakPointObject},
    {"snrPeakStrokeStar", &TFitt::snrPeakStrokeStar},
    {"CorrelationResponse", &TFitt::CorrelationResponse},
    {"DoNotSelectStarsOnFrame", through<badAreas, &TFitt::DoNotSelectStarsOnFrame>},
    {"AreaWithBadImages", through<badAreas, &TFitt::AreaWithBadImages>},
};

constexpr KeyRow<TQRVDIntraframeThresh> differenceFrameKeys[] = {
    {"filter", &TQRVDIntraframeThresh::filter},
    {"numberMedianFrames", &TQRVDIntraframeThresh::numberMedianFrames},
    {"numberSkipFrames", &TQRVDIntraframeThresh::numberSkipFrames},
    {"sigmaFit", &TQRVDIntraframeThresh::sigmaFit},
    {"nSigmaNegative", &TQRVDIntraframeThresh::nSigmaNegative},
    {"threshLengthSegment", &TQRVDIntraframeThresh::threshLengthSegment},
    {"threshNumPixSegment", &TQRVDIntraframeThresh::threshNumPixSegment},
    {"snrPeak", &TQRVDIntraframeThresh::snrPeak},
    {"SNRNeNormCorrelationResponse", &TQRVDIntraframeThresh::SNRNeNormCorrelationResponse},
    {"combineRadius", &TQRVDIntraframeThresh::combineRadius},
    {"threshRMSContour", &TQRVDIntraframeThresh::threshRMSContour},
    {"threshRMSContourPlato", &TQRVDIntraframeThresh::threshRMSContourPlato},
};

constexpr KeyRow<TMasterFrame> brightnessKeys[] = {
    {"MedianWindow", &TMasterFrame::MedianWindow},
    {"BinningCoefficient", &TMasterFrame::BinningCoefficient},
    {"ProcessingRawFolder", &TMasterFrame::ProcessingRawFolder},
    {"UseCommonFolder", &TMasterFrame::UseCommonFolder},
    {"UseMasterBias", &TMasterFrame::UseMasterBias},
    {"UseMasterDark", &TMasterFrame::UseMasterDark},
    {"UseMasterDarkFlat", &TMasterFrame::UseMasterDarkFlat},
    {"UseMasterFlat", &TMasterFrame::UseMasterFlat},
    {"UseFHF", &TMasterFrame::UseFHF},
    {"IgnoreTimeFactor", &TMasterFrame::IgnoreTimeFactor},
    {"ExposureAutoDetermination", &TMasterFrame::ExposureAutoDetermination},
    {"HorizontalBandsFilter", &TMasterFrame::HorizontalBandsFilter},
    {"ProcessingRawBias", &TMasterFrame::ProcessingRawBias, "path"},
    {"ProcessingRawDark", &TMasterFrame::ProcessingRawDark, "path"},
    {"ProcessingRawDarkFlat", &TMasterFrame::ProcessingRawDarkFlat, "path"},
    {"ProcessingRawFlat", &TMasterFrame::ProcessingRawFlat, "path"},
};

constexpr KeyRow<TAstro> catalogueKeys[] = {
    {"INetAstrometric", through<StrToiCat, &TAstro::INetAstrometric>},
    {"INetPhotometric", through<StrToiCat, &TAstro::INetPhotometric>},
};

constexpr KeyRow<TAstro> astroPhotoMetryKeys[] = {
    {"XCropInitialAstro", &TAstro::XCropInitialAstro},
    {"YCropInitialAstro", &TAstro::YCropInitialAstro},
    {"MarksFromFrame", &TAstro::MarksFromFrame},
    {"PercentOfMatching", &TAstro::PercentOfMatching},
    {"StarsResearch", &TAstro::StarsResearch},
    {"DifferentBetweenAngles", &TAstro::DifferentBetweenAngles},
    {"DistanceTo3DVertex", &TAstro::DistanceTo3DVertex},
    {"AstrometryReductionDegree", &TAstro::AstrometryReductionDegree},
    {"StarsRejectionThreshold", &TAstro::StarsRejectionThreshold},
    {"CriticalSNR3forMeasurements", &TAstro::CriticalSNR3forMeasurements},
    {"FragmentsNumber", &TAstro::FragmentsNumber},
    {"MinPixelScale", &TAstro::MinPixelScale},
    {"MaxPixelScale", &TAstro::MaxPixelScale},
    {"use_astrometry_net", &TAstro::use_astrometry_net},
};

constexpr KeyRow<TVO> asteroidKeys[] = {
    {"mpc_ident_angle", &TVO::mpc_ident_angle},
    {"mpc_load_mag", &TVO::mpc_load_mag},
    {"thresh_find_orb", &TVO::thresh_find_orb},
    {"use_find_orb", &TVO::use_find_orb},
    {"DoDetectionSlow", &TVO::DoDetectionSlow},
    {"DoDetectionHough", &TVO::DoDetectionHough},
    {"DoDetectionFast", &TVO::DoDetectionFast},
    {"MakeTracksOnFrames", &TVO::MakeTracksOnFrames},
    {"DispersionThresholdsResid", &TVO::DispersionThresholdsResid},
    {"DispersionThresholdsSumResid", &TVO::DispersionThresholdsSumResid},
    {"DispersionThresholdsMagnitudeDisp", &TVO::DispersionThresholdsMagnitudeDisp},
    {"ThresholdFSignificance", &TVO::ThresholdFSignificance},
    {"ThresholdSNR3segment", &TVO::ThresholdSNR3segment},
    {"VelocityPointThreshold2", &TVO::VelocityPointThreshold2},
    {"VelocityPointThreshold3", &TVO::VelocityPointThreshold3},
    {"TypeSpeedLimit", through<StrToTSpeedLimit, &TVO::TypeSpeedLimit>},
    {"speedlimit", &TVO::speedlimit},
    {"confstrobe", &TVO::confstrobe},
    {"rms_angle", &TVO::rms_angle},
    {"corr_meaangle_traangle", &TVO::corr_meaangle_traangle},
    {"snr_segment", &TVO::snr_segment},
    {"snr_peak", &TVO::snr_peak},
    {"dispersion_xy", &TVO::dispersion_xy},
    {"dispersion_mag", &TVO::dispersion_mag},
    {"only_stroke", &TVO::only_stroke},
    {"allow_plato", &TVO::allow_plato},
};

constexpr KeyRow<TInterIC> representativeKeys[] = {
    {"DmThreshold", &TInterIC::DmThreshold},
    {"RadiusOfFixidity", &TInterIC::RadiusOfFixidity},
    {"MakeICFromFrames", &TInterIC::MakeICFromFrames},
};

constexpr KeyRow<TInterSat> satelliteKeys[] = {
    {"DoDetectionGEO", &TInterSat::DoDetectionGEO},
    {"DoDetectionLEO", &TInterSat::DoDetectionLEO},
    {"deltaSpeedSat", &TInterSat::deltaSpeedSat},
    {"VelocityFast", &TInterSat::VelocityFast},
    {"maxSpeedHough", &TInterSat::maxSpeedHough},
    {"minSpeedHough", &TInterSat::minSpeedHough},
    {"identification_radius_leo", &TInterSat::identification_radius_leo},
    {"identification_radius_geo", &TInterSat::identification_radius_geo},
};

constexpr KeyRow<TStacking> stackingKeys[] = {
    {"run_stacking", &TStacking::run_stacking},
    {"subseries_autodetermination", &TStacking::subseries_autodetermination},
    {"search_objects", &TStacking::search_objects},
    {"useAllFrames", &TStacking::useAllFrames},
    {"subseries_time_coefficient", &TStacking::subseries_time_coefficient},
    {"userSubseries", &TStacking::userSubseries},
    {"rangeX", &TStacking::rangeX},
    {"rangeY", &TStacking::rangeY},
    {"horizon_request", &TStacking::horizon_request},
    {"pa", &TStacking::pa},
    {"velocity", &TStacking::velocity},
    {"rms_x", &TStacking::rms_x},
    {"rms_xy", &TStacking::rms_xy},
    {"rms_m", &TStacking::rms_m},
    {"snr_peak", &TStacking::snr_peak},
};

constexpr KeyRow<TCurves> lightCurveKeys[] = {
    {"SetApertureSize", through<StrToTApertureSize, &TCurves::SetApertureSize>},
    {"ApertureSize", &TCurves::ApertureSize},
    {"ApertureSizeByFWHM", &TCurves::ApertureSizeByFWHM},
    {"InstrBrightFolderPath", &TCurves::InstrBrightFolderPath},
    {"AAVSOCode", &TCurves::AAVSOCode},
};

constexpr KeyRow<TMPCReportHeader> reportHeaderKeys[] = {
    {"MPCcode", &TMPCReportHeader::COD},
    {"CON", &TMPCReportHeader::CON},
    {"OBS", &TMPCReportHeader::OBS},
    {"MEA", &TMPCReportHeader::MEA},
    {"TEL", &TMPCReportHeader::TEL},
    {"ACK", &TMPCReportHeader::ACK},
    {"AC2", &TMPCReportHeader::AC2},
    {"IsMagnitudeValueToReport", &TMPCReportHeader::HeaderOn},
    {"IsImprovedAccuracy", &TMPCReportHeader::HeaderFlag2},
};

constexpr KeyRow<TMPC> trackMaskKeys[] = {
    {"NumberingTracksInZoneMask1", &TMPC::NumberingTracksInZoneMask1},
    {"NumberingTracksInZoneMask2", &TMPC::NumberingTracksInZoneMask2},
};

constexpr KeyRow<TTLEstr> elementSetKeys[] = {
    {"Line0", &TTLEstr::Line0},
    {"Line1", &TTLEstr::Line1},
    {"Line2", &TTLEstr::Line2},
};

// A word of the header keys, and the list of its spellings.
struct HeaderWord
{
    std::string_view word;
    std::vector<std::string> THeaderKeys::*spellings;
};

constexpr HeaderWord headerWords[] = {
    {"ObservationDate", &THeaderKeys::ObservationDate},
    {"ObservationTime", &THeaderKeys::ObservationTime},
    {"ExposureTime", &THeaderKeys::ExposureTime},
    {"Telescope", &THeaderKeys::Telescope},
    {"Filter", &THeaderKeys::Filter},
    {"RA", &THeaderKeys::RA},
    {"DE", &THeaderKeys::DE},
    {"FocalLength", &THeaderKeys::FocalLength},
    {"PixelWidth", &THeaderKeys::PixelWidth},
    {"PixelHeight", &THeaderKeys::PixelHeight},
    {"Temperature", &THeaderKeys::Temperature},
    {"ImageType", &THeaderKeys::ImageType},
    {"Aperture", &THeaderKeys::Aperture},
    {"Instrument", &THeaderKeys::Instrument},
    {"Altitude", &THeaderKeys::Altitude},
    {"Latitude", &THeaderKeys::Latitude},
    {"Longitude", &THeaderKeys::Longitude},
    {"Observer", &THeaderKeys::Observer},
    {"XBIN", &THeaderKeys::XBIN},
    {"YBIN", &THeaderKeys::YBIN},
};

// A letter of the filter keys, and its lists of names.
struct FilterLetter
{
    const char* letter;
    std::vector<std::vector<std::string>> TFiltersID::*names;
};

constexpr FilterLetter filterLetters[] = {
    {"R", &TFiltersID::R},
    {"V", &TFiltersID::V},
    {"B", &TFiltersID::B},
    {"I", &TFiltersID::I},
};

// The list of a name in a section. A file of header keys alone has no section around them.
TiXmlElement* listIn(TiXmlElement* root, const std::string& section, const std::string& list)
{
    TiXmlElement* const element = childOf(root, section);
    return section == list ? element : childOf(element, list);
}

template <class Record, std::size_t count>
Record recordIn(TiXmlElement* section, const KeyRow<Record> (&rows)[count])
{
    Record record;
    readKeys(section, rows, record);
    return record;
}

// The row of a key's name; a null pointer if it has no name, or an unknown one.
const HeaderWord* headerWordOf(const TiXmlElement& element)
{
    const char* const name = element.Attribute("name");
    if (name == nullptr) {
        return nullptr;
    }
    const auto* const row = std::find_if(std::begin(headerWords), std::end(headerWords),
                                         [name](const HeaderWord& each) { return each.word == name; });
    return row == std::end(headerWords) ? nullptr : row;
}

// An empty element is skipped here, unlike in GetList.
void appendSpellings(TiXmlElement& element, std::vector<std::string>& spellings)
{
    for (const TiXmlElement* each = element.FirstChildElement("string"); each != nullptr;
         each = each->NextSiblingElement("string"))
    {
        if (const TiXmlNode* const text = each->FirstChild()) {
            spellings.emplace_back(text->Value());
        }
    }
}

// What the value of a key is, by its target.
struct ValueOfTarget
{
    template <class Record>
    ConfigurationValue operator()(double Record::*) const
    {
        return ConfigurationValue::number;
    }
    template <class Record>
    ConfigurationValue operator()(int Record::*) const
    {
        return ConfigurationValue::integer;
    }
    template <class Record>
    ConfigurationValue operator()(short Record::*) const
    {
        return ConfigurationValue::integer;
    }
    template <class Record>
    ConfigurationValue operator()(bool Record::*) const
    {
        return ConfigurationValue::flag;
    }
    template <class Record>
    ConfigurationValue operator()(std::string Record::*) const
    {
        return ConfigurationValue::text;
    }
    template <class Record>
    ConfigurationValue operator()(std::vector<std::string> Record::*) const
    {
        return ConfigurationValue::list;
    }
    template <class Record>
    ConfigurationValue operator()(void (*)(Record&, std::string)) const
    {
        return ConfigurationValue::converted;
    }
};

std::string textOf(double value)
{
    char text[32];
    return {text, std::to_chars(std::begin(text), std::end(text), value).ptr};
}

std::string textOf(int value)
{
    return std::to_string(value);
}

std::string textOf(bool value)
{
    return value ? "true" : "false";
}

const std::string& textOf(const std::string& value)
{
    return value;
}

// No list has an element unless the file gives it.
std::string textOf(const std::vector<std::string>& /*value*/)
{
    return "";
}

// What a key sets where the file lacks it: the initialiser of its member, as a file would say it.
template <class Record>
std::string ofNone(const KeyTarget<Record>& target)
{
    const Record unset{};
    return std::visit(
        [&unset](auto to) -> std::string {
            if constexpr (std::is_member_object_pointer_v<decltype(to)>) {
                return textOf(unset.*to);
            } else {
                return "";
            }
        },
        target);
}

template <class Record, std::size_t count>
void appendKeys(std::vector<ConfigurationKey>& keys, const char* section, const KeyRow<Record> (&rows)[count])
{
    for (const KeyRow<Record>& row : rows) {
        const ConfigurationValue value = std::visit(ValueOfTarget{}, row.target);
        const std::string item = value == ConfigurationValue::list ? row.item : "";
        keys.push_back({section, row.key, value, item, ofNone(row.target)});
    }
}

} // namespace

TBasicSettings GetBasicSettings(TiXmlElement* root, std::string key)
{
    TBasicSettings settings = recordIn(childOf(root, key), basicKeys);
    settings.SiteKnown = settings.Longitude != 0 || settings.Latitude != 0;
    return settings;
}

TZunek GetZUNEK(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), zunekKeys);
}

std::pair<TFitt, TQRVDIntraframeThresh> GetIntraFrame(TiXmlElement* root, std::string key)
{
    std::pair<TFitt, TQRVDIntraframeThresh> settings;
    for (TiXmlElement* section = childOf(root, key); section != nullptr;
         section = section->NextSiblingElement(key.c_str()))
    {
        readKeys(childOf(section, "artifactsFilter"), artifactsFilterKeys, settings.first);
        readKeys(childOf(section, "ImageDetection"), imageDetectionKeys, settings.first);
        readKeys(childOf(section, "DifferenceFrame"), differenceFrameKeys, settings.second);
    }
    return settings;
}

TMasterFrame GetBrightnessFrame(TiXmlElement* root, std::string key)
{
    // The first section only, although detection reads them all.
    return recordIn(childOf(childOf(root, key), "brightnessFramesAlignment"), brightnessKeys);
}

TAstro GetIdentification(TiXmlElement* root, std::string key)
{
    TiXmlElement* const section = childOf(root, key);
    TAstro settings;
    readKeys(childOf(section, "astroPhotoMetryCatalogs"), catalogueKeys, settings);
    readKeys(childOf(section, "astroPhotoMetry"), astroPhotoMetryKeys, settings);
    return settings;
}

TVO GetInterFrameAsteroids(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), asteroidKeys);
}

TInterIC GetInterFrameIC(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), representativeKeys);
}

TInterSat GetInterFrameSatellites(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), satelliteKeys);
}

TStacking GetAutoFrameStacking(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), stackingKeys);
}

TCurves GetLightCurves(TiXmlElement* root, std::string key)
{
    return recordIn(childOf(root, key), lightCurveKeys);
}

TMPC GetReportSettings(TiXmlElement* root, std::string key)
{
    TiXmlElement* const report = childOf(childOf(root, key), "MPCReport");
    TMPC settings = recordIn(report, trackMaskKeys);
    settings.MPCHeader = recordIn(report, reportHeaderKeys);
    return settings;
}

THeaderKeys HeaderKeyXML(TiXmlElement* root, std::string key)
{
    THeaderKeys keys;
    for (TiXmlElement* element = childOf(listIn(root, key, "headerKeys"), "key"); element != nullptr;
         element = element->NextSiblingElement("key"))
    {
        if (const HeaderWord* const row = headerWordOf(*element)) {
            appendSpellings(*element, keys.*row->spellings);
        }
    }
    return keys;
}

TFiltersID GetFiltersID(TiXmlElement* root, std::string key)
{
    TFiltersID filters;
    TiXmlElement* const list = listIn(root, key, "filterKeys");
    for (TiXmlElement* element = list == nullptr ? nullptr : list->FirstChildElement(); element != nullptr;
         element = element->NextSiblingElement())
    {
        for (const auto& [letter, names] : filterLetters) {
            GetList(element, "string", letter, (filters.*names).emplace_back());
        }
    }
    return filters;
}

std::vector<TTLEstr> GetTLEs(TiXmlElement* root, std::string key)
{
    std::vector<TTLEstr> sets;
    TiXmlElement* element = childOf(childOf(root, key), "TLE");
    // An empty one ends the list, whatever follows.
    while (element != nullptr && element->FirstChildElement() != nullptr) {
        sets.push_back(recordIn(element, elementSetKeys));
        element = element->NextSiblingElement("TLE");
    }
    return sets;
}

std::vector<ConfigurationKey> configurationKeys()
{
    std::vector<ConfigurationKey> keys{
        {"", "Version", ConfigurationValue::text, "", ""},
        {"", "Service", ConfigurationValue::converted, "", ""},
    };
    appendKeys(keys, "basicSettings", basicKeys);
    appendKeys(keys, "ZUNEK", zunekKeys);
    appendKeys(keys, "intraframeProcessing/artifactsFilter", artifactsFilterKeys);
    appendKeys(keys, "intraframeProcessing/ImageDetection", imageDetectionKeys);
    appendKeys(keys, "intraframeProcessing/DifferenceFrame", differenceFrameKeys);
    appendKeys(keys, "intraframeProcessing/brightnessFramesAlignment", brightnessKeys);
    appendKeys(keys, "Identification/astroPhotoMetryCatalogs", catalogueKeys);
    appendKeys(keys, "Identification/astroPhotoMetry", astroPhotoMetryKeys);
    appendKeys(keys, "interframeasteroids", asteroidKeys);
    appendKeys(keys, "interframeasteroids", representativeKeys);
    appendKeys(keys, "interframesatellites", satelliteKeys);
    appendKeys(keys, "autoframestacking", stackingKeys);
    appendKeys(keys, "lightCurves", lightCurveKeys);
    appendKeys(keys, "ReportSettings/MPCReport", reportHeaderKeys);
    appendKeys(keys, "ReportSettings/MPCReport", trackMaskKeys);
    appendKeys(keys, "TLEs/TLE", elementSetKeys);
    return keys;
}

std::vector<std::string> configurationHeaderWords()
{
    std::vector<std::string> words;
    for (const HeaderWord& row : headerWords) {
        words.emplace_back(row.word);
    }
    return words;
}

std::vector<std::string> configurationFilterLetters()
{
    std::vector<std::string> letters;
    for (const FilterLetter& row : filterLetters) {
        letters.emplace_back(row.letter);
    }
    return letters;
}

} // namespace tavelinUtils
