#include "formats/light_curve_task.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "config/xml_document.h"
#include "text/angle_text.h"
#include "text/number_text.h"

#include <array>
#include <string_view>

namespace tavelinUtils {
namespace {

// Calls use(element) for each element named `item` below each child of the root named `group`.
template <class Use>
void forEachBelow(TiXmlElement* root, const char* group, const char* item, Use use)
{
    for (TiXmlElement* each = root->FirstChildElement(group); each != nullptr;
         each = each->NextSiblingElement(group))
    {
        for (TiXmlElement* star = each->FirstChildElement(item); star != nullptr;
             star = star->NextSiblingElement(item))
        {
            use(star);
        }
    }
}

TInvestObj investigated(TiXmlElement* element)
{
    TInvestObj object;
    GetText(element, "name", object.name);
    bool hasRA = false;
    bool hasDE = false;
    const std::string ra = GetTXT(element, "ra", hasRA);
    const std::string de = GetTXT(element, "de", hasDE);
    if (hasRA && hasDE) {
        object.ra.push_back(raToDecimal(ra));
        object.de.push_back(deToDecimal(de));
    }
    return object;
}

// "V=12.5;R=12.1"; an item of another shape is dropped.
std::vector<std::pair<std::string, double>> filtersOf(std::string_view text)
{
    std::vector<std::pair<std::string, double>> filters;
    forEachToken(text, ';', [&filters](std::string_view item) {
        std::array<std::string_view, 2> parts;
        std::size_t count = 0;
        forEachToken(item, '=', [&](std::string_view part) {
            if (count < parts.size()) {
                parts[count] = part;
            }
            ++count;
        });
        if (count == parts.size()) {
            filters.emplace_back(parts[0], toDouble(parts[1]));
        }
    });
    return filters;
}

TCompareStar compared(TiXmlElement* element)
{
    TCompareStar star;
    GetText(element, "name", star.name);
    bool found = false;
    const std::string ra = GetTXT(element, "ra", found);
    if (found) {
        star.ra = raToDecimal(ra);
    }
    const std::string de = GetTXT(element, "de", found);
    if (found) {
        star.de = deToDecimal(de);
    }
    star.filters = filtersOf(GetTXT(element, "filters", found));
    return star;
}

} // namespace

TLCTask lLCTask(std::string path)
{
    TLCTask task; // its guards are 0 and stay so: each star is taken
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return task;
    }
    TiXmlElement* const root = document.FirstChildElement();
    GetText(root, "type", task.type);
    GetText(root, "telescope", task.telescope);
    GetText(root, "series", task.series);
    forEachBelow(root, "research", "res",
                 [&task](TiXmlElement* element) { task.research.push_back(investigated(element)); });
    forEachBelow(root, "comparison", "cmp",
                 [&task](TiXmlElement* element) { task.comparison.push_back(compared(element)); });
    return task;
}

int sHeadLightCurve(std::string path, const TPorogs& porogs, const THeadBlobs& frame,
                    const TLocPhotoBlob& target, const TLocPhotoBlob& comparison, const TLCTask& /*task*/,
                    TReportVS& report)
{
    TtavelinXmlDocument document(path);
    document.LinkEndChild(new TiXmlDeclaration("1.0", "", ""));
    auto* note = new TiXmlElement("Note");
    document.LinkEndChild(note);
    const std::string position =
        RAToStr(target.Mark.RA, 2, ":", true) + " " + DEToStr(target.Mark.DE, 1, ":", true);
    writeRecord(note, "Observatory", porogs.basicSettings.Observatory, "");
    writeRecord(note, "Observer", porogs.mpc.MPCHeader.OBS, "");
    writeRecord(note, "Telescope", porogs.basicSettings.Telescope, "");
    writeRecord(note, "Instrument", frame.Instrument, "");
    writeRecord(note, "Filter", frame.Filter, "");
    writeRecord(note, "Exposure", Str9(frame.Exposure, 2), "");
    writeRecord(note, "Target", target.Mark.SpareText, "");
    writeRecord(note, "Position", position, "");
    writeRecord(note, "MainComp", target.Mark.KNAME, "");
    writeRecord(note, "Source", true, "");
    writeRecord(note, "ReferenceMagnitude", Str9(comparison.Mark.Spare3, 3), "");
    writeRecord(note, "MagnitudeSystem", "User", "");
    writeRecord(note, "TimeSystem", report.TimeSystem, "");
    writeRecord(note, "Reduction", "Ensemble photometry with Vomar", "");
    writeRecord(note, "Comment", true, "");
    return document.SaveFile() ? 0 : 1;
}

} // namespace tavelinUtils
