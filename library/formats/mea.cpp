#include "formats/mea.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view siteEpoch = " 2000.0 UTC";
constexpr std::string_view ephemerisColumns = "\tMJD\tRAmea\tDEmea\tRAtle\tDEtle\tresRA\tresDE";
constexpr std::size_t nameWidth = 7;
constexpr std::size_t usualLineLength = 64;
constexpr std::size_t ephemerisLineLength = 160;

// The tokens of a mark's line, in their order. The sixth is a number that nothing uses.
enum Token : std::size_t
{
    name,
    date,
    time,
    rightAscension,
    declination,
    literal,
    magnitude,
    tokenCount
};

using Tokens = std::array<std::string_view, tokenCount>;

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
            return count == tokenCount;
        }
        if (count == tokenCount) {
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
            gathering.add(tokens[name], {dates.answerTo(tokens[date], packedDate), packedTime(tokens[time]),
                                         packedRA(tokens[rightAscension]), packedDE(tokens[declination]),
                                         toDouble(tokens[magnitude])});
        }
    }

    std::vector<TrackVtorichka> tracks(const std::string& originator) const
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
    DayNumbers dates;
    TrackGathering<MeasuredMark> gathering;
};

// Two digits before the point; the sign stands in front of the padding: -01.20.
void appendMagnitude(std::string& out, double m)
{
    if (m < 0.0) {
        out += '-';
    }
    if (std::abs(m) < 10.0) {
        out += '0';
    }
    appendFixed(out, std::abs(m), 2);
}

// Everything up to the magnitude.
void appendPosition(std::string& out, const std::string& object, const TRecLabelPervichka_File& mark,
                    DateTexts& dates)
{
    appendPaddedRight(out, object, nameWidth);
    out += ' ';
    out += dates.answerTo(int{mark.date}, MJDToDateMEA);
    out += ' ';
    appendTimeMEA(out, mark.time, 3, false);
    out += "0 ";
    appendPackedRA(out, mark.RA, 4);
    out += ' ';
    appendPackedDE(out, mark.DE, 4);
    out += " 001 ";
}

void appendMarkLine(std::string& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    const TRecLabelPervichka_File& mark = track.Marks[index];
    appendPosition(out, track.QRVName, mark, dates);
    appendMagnitude(out, mark.m);
    out += '\n';
}

void appendComparedLine(std::string& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    constexpr double arcseconds = 3600.0;
    const TRecLabelPervichka_File& mark = track.Marks[index];
    const TInterBlob ephemeris = index < track.InterBlobs.size() ? track.InterBlobs[index] : TInterBlob{};
    appendPosition(out, track.QRVName, mark, dates);
    appendFixed(out, mark.m, 2); // plain: neither the padding nor the sign of the other form
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
    std::string text;
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
    MeaLines reading;
    reading.reserve(lines.size());
    for (const std::string& line : lines) {
        reading.add(line);
    }
    return reading.tracks(originator);
}

std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator)
{
    if (!FileExists(path)) {
        return {};
    }
    std::setlocale(LC_NUMERIC, "C");
    MeaLines reading;
    readLines(path, reading);
    return reading.tracks(originator);
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
