#include "format_words.h"

#include "formats/aavso.h"
#include "formats/light_curve.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "results/code_table.h"

#include <cstddef>
#include <iterator>

using tavelinUtils::TFuncRes;
using tavelinUtils::TrackVtorichka;

namespace {

using Tracks = std::vector<TrackVtorichka>;
using Text = const std::string&;

// A format's number is the place of its row.
constexpr FormatWord formatWords[] = {
    {"mea", [](Text path, Text originator) { return tavelinUtils::plMEATrack(path, originator); },
     [](Text path, const Tracks& tracks) { tavelinUtils::sMEA(path, tracks); }},
    {"telegram", [](Text path, Text) { return tavelinUtils::lTelegramma(path); },
     [](Text path, const Tracks& tracks) { tavelinUtils::sTelegramma(path, tracks); }},
    {"tdm", [](Text path, Text) { return tavelinUtils::lTDM(path); },
     [](Text path, const Tracks& tracks) { tavelinUtils::sTDM(path, tracks); }},
    {"ssmas", [](Text path, Text originator) { return tavelinUtils::lckako_meas(path, originator); },
     [](Text path, const Tracks& tracks) { tavelinUtils::sSSMAS(path, tracks); }},
    {"mpc", nullptr, [](Text path, const Tracks& tracks) { tavelinUtils::sMPC(path, tracks); }},
    // A failed write is a false, which a run ignores.
    {"tdm.xml", nullptr, [](Text path, const Tracks& tracks) { tavelinUtils::sTDMPOLxml(path, tracks); }},
    {"mag", nullptr,
     [](Text path, const Tracks& tracks) { tavelinUtils::SaveLightCurve(path, tracks, "JD geocentric"); }},
    {"aavso", nullptr, [](Text path, const Tracks& tracks) { tavelinUtils::sAAVSO(path, tracks); }},
};

} // namespace

const FormatWord* formatWord(int number)
{
    const bool known = number >= 0 && number < static_cast<int>(std::size(formatWords));
    return known ? &formatWords[number] : nullptr;
}

int formatOpticMea_to_int(std::string word)
{
    int number = 0;
    for (const FormatWord& row : formatWords) {
        if (row.word == word) {
            return number;
        }
        ++number;
    }
    return formatUnknown;
}

TFuncRes SelectFormatAndSave(std::string path, std::string format, std::vector<TrackVtorichka>& tracks)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(format));
    if (row == nullptr) {
        return {tavelinUtils::resultCode::unknownOutputFormat, "unknown output format", "format_out", {}};
    }
    row->write(path, tracks);
    return {};
}
