#include "formats/light_curve.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "records/track_stream.h"
#include "text/calendar.h"

#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view columnNames =
    "\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n";

constexpr std::string_view trackTableColumns[] = {
    "N:Int\tNBl:Int\tName:Text\tdate:Date\ttime:Time\tmjd:Float:day\ttime_bjd:Time\tbjd:Float:day\t",
    "RA:Float:deg\tDE:Float:deg\tX_f:Float:pix\tY_f:Float:pix\t",
    "m:Float:mag\tmEnsemble:Float:mag\tmInstr:Float:mag\tmInstrComp:Float:mag\t",
    "A:Float\tAsegm:Float\tAstrob:Float\t",
    "SNRafit:Float\tSNRasegm:Float\tSNRpeak:Float\t",
    "filtr:Text\tMTYPE:Text\tCNAME:Text\tCMAG:Text\tKNAME:Text\tKMAG:Text\tCHART:Text\t",
    "FWHM:Float:pix\tRadius:Float\tSigFit:Float:pix\tRMSFit:Float:ADU\t",
    "Exc:Float\tWidth:Float\tiF:Int\tiB:Int\tQRVID:Text\t",
    "Draw:Bool",
};

void appendMark(TextBuffer& out, const TRecLabelPervichka_File& mark, std::string_view object)
{
    constexpr std::size_t numbers = 6;
    char* to = out.room(numbers * numberRoom(7) + object.size() + 2);
    to = writeCell(to, MJDtoJD(mark.date) + mark.time, 7, '\t');
    to = writeCell(to, mark.m, 5, '\t');
    to = writeCell(to, mark.mEnsemble, 5, '\t');
    to = writeCell(to, mark.mInstr, 5, '\t');
    to = writeCell(to, mark.mInstr1000, 5, '\t');
    to = writeCell(to, mark.mInstrComp, 5, '\t');
    to = writeText(to, object);
    out.endAt(writeText(to, "\t\n")); // the last field too; the column line ends without a tab
}

} // namespace

struct LightCurveSink::State
{
    PieceFile file;
};

LightCurveSink::LightCurveSink(std::string path, std::string timeLabel)
    : state(new State{{std::move(path), PieceFile::Old::removedAndAppendedTo}})
{
    state->file.text() += timeLabel;
    state->file.text() += columnNames;
}

LightCurveSink::LightCurveSink(LightCurveSink&& other) noexcept = default;
LightCurveSink::~LightCurveSink() = default;

void LightCurveSink::add(const TrackVtorichka& track)
{
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        appendMark(state->file.text(), mark, track.QRVName);
        state->file.writeFull(); // the callers go on without the file
    }
}

bool LightCurveSink::save()
{
    state->file.close(); // the same
    return true;
}

void SaveLightCurve(std::string path, const std::vector<TrackVtorichka>& tracks, std::string timeLabel)
{
    writeAll(LightCurveSink(path, timeLabel), tracks);
}

std::string getHeadLightCurve()
{
    std::string header;
    for (const std::string_view columns : trackTableColumns) {
        header += columns;
    }
    return header;
}

} // namespace tavelinUtils
