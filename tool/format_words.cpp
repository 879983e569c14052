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

using Text = const std::string&;

constexpr const char* measuredColumns = "date time RA DE m";

// A format's number is the place of its row.
constexpr FormatWord formatWords[] = {
    {"mea", [](Text path, Text originator) { return anySource(tavelinUtils::MeaSource(path, originator)); },
     [](Text path) { return anySink(tavelinUtils::MeaSink(path)); }, measuredColumns},
    {"telegram", [](Text path, Text) { return anySource(tavelinUtils::TelegramSource(path)); },
     [](Text path) { return anySink(tavelinUtils::TelegramSink(path)); }, measuredColumns},
    {"tdm", [](Text path, Text) { return anySource(tavelinUtils::TdmSource(path)); },
     [](Text path) { return anySink(tavelinUtils::TdmSink(path)); }, measuredColumns},
    {"ssmas",
     [](Text path, Text originator) { return anySource(tavelinUtils::SsmasSource(path, originator)); },
     [](Text path) { return anySink(tavelinUtils::SsmasSink(path)); }, measuredColumns},
    {"mpc", nullptr, [](Text path) { return anySink(tavelinUtils::MpcReportSink(path)); },
     "date time RA DE m filtr"},
    {"tdm.xml", nullptr, [](Text path) { return anySink(tavelinUtils::TdmXmlSink(path)); }, measuredColumns},
    {"mag", nullptr, [](Text path) { return anySink(tavelinUtils::LightCurveSink(path, "JD geocentric")); },
     "date time m mEnsemble mInstr mInstr1000 mInstrComp"},
    {"aavso", nullptr, [](Text path) { return anySink(tavelinUtils::AavsoSink(path)); },
     "date time mEnsemble SNRpeak filtr MTYPE KNAME CHART"},
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
    const TrackSink sink = row->write(path);
    for (const TrackVtorichka& track : tracks) {
        sink.add(track);
    }
    sink.save();
    return {};
}
