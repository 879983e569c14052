#include "formats/light_curve.h"

#include "base/numbers.h"
#include "files/text_files.h"
#include "text/calendar.h"

#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view columnNames =
    "\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n";
constexpr std::size_t usualLineLength = 96;

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
    appendCell(out, MJDtoJD(mark.date) + mark.time, 7, '\t');
    for (const double magnitude : {double{mark.m}, double{mark.mEnsemble}, double{mark.mInstr},
                                   double{mark.mInstr1000}, double{mark.mInstrComp}})
    {
        appendCell(out, magnitude, 5, '\t');
    }
    out += object;
    out += "\t\n"; // the last field too; the column line ends without a tab
}

} // namespace

void SaveLightCurve(std::string path, const std::vector<TrackVtorichka>& tracks, std::string timeLabel)
{
    TextBuffer text;
    text.reserve((countMarks(tracks) + 2) * usualLineLength);
    text += timeLabel;
    text += columnNames;
    for (const TrackVtorichka& track : tracks) {
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            appendMark(text, track.Marks[i], track.QRVName);
        }
    }
    rewriteText(path, text);
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
