#include "formats/mea.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view siteEpoch = " 2000.0 UTC";
constexpr std::string_view ephemerisColumns = "\tMJD\tRAmea\tDEmea\tRAtle\tDEtle\tresRA\tresDE";
constexpr std::size_t nameWidth = 7;
constexpr std::size_t usualLineLength = 64;
constexpr std::size_t ephemerisLineLength = 160;

// What a mark's line is read into.
struct ReadMark
{
    DayNumbers& days;
    std::string_view object;
    MeasuredMark mark;
};

// What a mark's line is written from.
struct WrittenMark
{
    const TrackVtorichka& track;
    const TRecLabelPervichka_File& mark;
    DateTexts& dates;
    bool plainMagnitude; // as printf gives it: the form of the lines with an ephemeris
};

// Two digits before the point; the sign comes before the padding: -01.20.
void appendMagnitude(TextBuffer& out, double m)
{
    if (m < 0.0) {
        out += '-';
    }
    if (std::abs(m) < 10.0) {
        out += '0';
    }
    appendFixed(out, std::abs(m), 2);
}

// A mark's line. The writer puts one blank between two fields, the reader takes any number of them.
//
//   name        7 or more   the object; padded on its right, and a longer name stays whole
//   date        6           DDMMYY
//   time        10          HHMMSSsss, cut and not rounded, and a 0: times have one decimal less than angles
//   RA          10          HHMMSSssss
//   DE          10, 11      sign (of a negative one only) DDMMSSssss
//   number      3           001; other programs write other numbers here, and nothing uses them
//   magnitude   5 or more   sign (of a negative one only) MM.mm
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.object = text; },
     [](TextBuffer& out, const WrittenMark& from) { appendPaddedRight(out, from.track.QRVName, nameWidth); }},
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, packedDate); },
     [](TextBuffer& out, const WrittenMark& from) {
         out += from.dates.answerTo(int{from.mark.date}, MJDToDateMEA);
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = packedTime(text); },
     [](TextBuffer& out, const WrittenMark& from) {
         appendTimeMEA(out, from.mark.time, 3, false);
         out += '0';
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = packedRA(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedRA(out, from.mark.RA, 4); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = packedDE(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedDE(out, from.mark.DE, 4); }},
    {takeNothing, [](TextBuffer& out, const WrittenMark& /*from*/) { out += "001"; }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(text); },
     [](TextBuffer& out, const WrittenMark& from) {
         from.plainMagnitude ? appendFixed(out, from.mark.m, 2) : appendMagnitude(out, from.mark.m);
     }},
};

using Tokens = std::array<std::string_view, std::size(markFields)>;

// Cuts a line at blanks, where runs of them count as one; false unless it has as many tokens as a mark.
bool cutTokens(std::string_view line, Tokens& tokens)
{
    std::size_t count = 0;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && line[at] == ' ') {
            ++at;
        }
        if (at == line.size()) {
            return count == tokens.size();
        }
        if (count == tokens.size()) {
            return false;
        }
        const std::size_t begin = at;
        while (at < line.size() && line[at] != ' ') {
            ++at;
        }
        tokens[count++] = line.substr(begin, at - begin);
    }
}

// Takes the lines of a file one after the other.
class MeaLines
{
public:
    void reserve(std::size_t lines)
    {
        gathering.reserve(lines);
    }

    void add(std::string_view line)
    {
        if (!siteSeen) {
            siteSeen = true;
            telescope = line.substr(0, line.find(' '));
            return;
        }
        Tokens tokens;
        if (cutTokens(line, tokens)) {
            ReadMark read{days, {}, {}};
            readFields<markFields>(tokens, read);
            gathering.add(read.object, read.mark);
        }
    }

    std::vector<TrackVtorichka> takeTracks(const std::string& originator) const
    {
        return gathering.tracks(
            [&](TrackVtorichka& track, const std::string& object) {
                track.telescope = telescope;
                track.originator = originator;
                track.QRVName = object;
                track.NORAD = object;
            },
            setMeasured);
    }

private:
    bool siteSeen = false;
    std::string telescope;
    DayNumbers days;
    TrackGathering<MeasuredMark> gathering;
};

void appendMarkLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    appendFields<markFields>(out, WrittenMark{track, track.Marks[index], dates, false});
    out += '\n';
}

void appendComparedLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    constexpr double arcseconds = 3600.0;
    const TRecLabelPervichka_File& mark = track.Marks[index];
    const TInterBlob ephemeris = index < track.InterBlobs.size() ? track.InterBlobs[index] : TInterBlob{};
    appendFields<markFields>(out, WrittenMark{track, mark, dates, true});
    for (const double value :
         {mark.date + mark.time, double{mark.RA}, double{mark.DE}, ephemeris.Value2, ephemeris.Value3,
          (mark.RA - ephemeris.Value2) * arcseconds, (mark.DE - ephemeris.Value3) * arcseconds})
    {
        out += '\t';
        appendFixed(out, value, 7);
    }
    out += '\n';
}

// Writes the site line, from the first track alone, and a line for each mark.
template <class AppendLine>
void writeMea(const std::string& path, const std::vector<TrackVtorichka>& tracks, std::string_view columns,
              std::size_t lineLength, AppendLine appendLine)
{
    if (tracks.empty()) {
        return;
    }
    TextBuffer text;
    text.reserve((countMarks(tracks) + 1) * lineLength);
    text += tracks.front().telescope;
    text += siteEpoch;
    text += columns;
    text += '\n';
    DateTexts dates;
    for (const TrackVtorichka& track : tracks) {
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            fetchAhead(track.Marks, index);
            appendLine(text, track, index, dates);
        }
    }
    writeText(path, text);
}

} // namespace

std::vector<TrackVtorichka> lMEATrack(const std::vector<std::string>& lines, std::string originator)
{
    MeaLines reader;
    takeLines(lines, reader);
    return reader.takeTracks(originator);
}

std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator)
{
    const OpenFile file = openFile(path, "rb");
    if (!file) {
        return {};
    }
    std::setlocale(LC_NUMERIC, "C"); // also for a folder, which opens and has no lines
    MeaLines reader;
    readLines(file.get(), reader);
    return reader.takeTracks(originator);
}

void sMEA(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeMea(path, tracks, "", usualLineLength, appendMarkLine);
}

void sMEA_TLE(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeMea(path, tracks, ephemerisColumns, ephemerisLineLength, appendComparedLine);
}

} // namespace tavelinUtils
