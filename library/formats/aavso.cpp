#include "formats/aavso.h"

#include "base/numbers.h"
#include "files/text_files.h"
#include "text/calendar.h"
#include "text/number_text.h"

#include <cstddef>
#include <cstdio>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view columnNames =
    "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n";
constexpr std::string_view ensemble = "ENSEMBLE"; // whatever CNAME of a mark says
constexpr std::string_view notKnown = "na";
constexpr std::size_t headLength = 256;
constexpr std::size_t usualLineLength = 112;

// The fields of a line that its mark does not hold, or not in this form.
struct Line
{
    std::string_view name;
    double date;
    std::string_view filter;
    std::string_view kind;
    std::string_view checkName;
    std::string_view checkMagnitude;
    std::string_view chart;
};

void appendHead(TextBuffer& out, std::string_view observerCode)
{
    out += "#TYPE=Extended\n#OBSCODE=";
    out += observerCode;
    out += "\n#SOFTWARE=Vomar\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n";
    out += columnNames;
}

void appendField(TextBuffer& out, std::string_view field)
{
    out += field;
    out += ',';
}

void appendLine(TextBuffer& out, const Line& line, double magnitude, double signalToNoise)
{
    appendField(out, line.name);
    appendCell(out, line.date, 7, ',');
    appendCell(out, magnitude, 3, ',');
    appendCell(out, 1.0 / signalToNoise, 4, ','); // "inf" for a signal of 0
    appendField(out, line.filter);
    appendField(out, "NO");
    appendField(out, line.kind);
    appendField(out, ensemble);
    appendField(out, notKnown); // CMAG
    appendField(out, line.checkName);
    appendField(out, line.checkMagnitude);
    appendField(out, notKnown); // AIRMASS
    appendField(out, notKnown); // GROUP
    appendField(out, line.chart);
    out += notKnown; // NOTES
    out += '\n';
}

} // namespace

void sAAVSO(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    std::remove(path.c_str());
    TextBuffer text;
    text.reserve(headLength + countMarks(tracks) * usualLineLength);
    appendHead(text, tracks.front().ObsCode);
    const std::vector<TRecLabelPervichka_File>& firstMarks = tracks.front().Marks;
    for (const TrackVtorichka& track : tracks) {
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            const TRecLabelPervichka_File& mark = track.Marks[i];
            // Row by row from the first track, also for the tracks after it.
            const std::string_view filter = i < firstMarks.size() ? firstMarks[i].filtr : mark.filtr;
            appendLine(text,
                       {track.QRVName, MJDtoJD(mark.date) + mark.time, filter, mark.MTYPE, mark.KNAME,
                        notKnown, mark.CHART},
                       mark.mEnsemble, mark.SNRpeak);
        }
    }
    writeText(path, text);
}

void sAAVSO(std::string path, std::string obsCode, std::string filter, std::string mType,
            std::vector<TLocPhotoBlob> objects, std::vector<std::vector<TLocPhotoBlob>> checkStars,
            std::string chart)
{
    std::remove(path.c_str());
    TextBuffer text;
    appendHead(text, obsCode);
    const bool named = !checkStars.empty() && !checkStars.front().empty();
    const std::string checkName = named ? checkStars.front().front().Mark.KNAME : "";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const TRecLabelPervichka_File& mark = objects[i].Mark;
        const bool checked = i < checkStars.size() && !checkStars[i].empty();
        const std::string checkMagnitude =
            checked ? Str9(checkStars[i].front().Mark.Spare2, 3) : std::string(notKnown);
        // An MJD, although the header says JD.
        appendLine(text,
                   {mark.SpareText, mark.date + mark.time, filter, mType, checkName, checkMagnitude, chart},
                   mark.mEnsemble, mark.SNRpeak);
    }
    writeText(path, text);
}

} // namespace tavelinUtils
