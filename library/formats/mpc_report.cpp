#include "formats/mpc_report.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// The header lines, in their order; the reader compares keywords in it too.
struct HeaderLine
{
    std::string_view keyword;
    std::string TMPCReportHeader::*text;
};
constexpr HeaderLine headerLines[] = {
    {"COD", &TMPCReportHeader::COD}, {"CON", &TMPCReportHeader::CON}, {"OBS", &TMPCReportHeader::OBS},
    {"MEA", &TMPCReportHeader::MEA}, {"COM", &TMPCReportHeader::COM}, {"TEL", &TMPCReportHeader::TEL},
    {"ACK", &TMPCReportHeader::ACK}, {"AC2", &TMPCReportHeader::AC2}, {"NET", &TMPCReportHeader::NET},
};

// An observation line, 0-based. Columns 12-14 and 77-79 have no row: nothing reads them, and the station of
// a track comes from the COD line of the header.
constexpr LineColumn nameColumn{0, 12};
constexpr LineColumn dateColumn{15, 10};
constexpr LineColumn dayFraction{25, 7};
constexpr LineColumn rightAscension{32, 12};
constexpr LineColumn declination{44, 12};
constexpr LineColumn magnitude{65, 5};
constexpr LineColumn band{70, 7};
constexpr std::size_t lineLength = 80;

constexpr std::size_t permanentNumberLength = 5;
constexpr std::string_view blanksBeforeMagnitude = "          ";
constexpr std::string_view markTable =
    "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg\tm:Float:mag";
constexpr std::string_view markTableEnd = "\tNEORatio:Float\tDraw:Bool";

// A permanent number stands at the left of its columns, a provisional designation at their right.
void appendName(std::string& out, std::string_view name)
{
    if (name.size() == permanentNumberLength) {
        appendPaddedRight(out, name, nameColumn.width);
    } else {
        appendPaddedLeft(out, name, nameColumn.width);
    }
}

void appendDayFraction(std::string& out, double time)
{
    // Without its first character. A fraction that rounds to 1 keeps its date: nothing is carried over.
    const std::size_t begin = out.size();
    appendFixed(out, time, 5);
    out.erase(begin, 1);
}

void appendObservation(std::string& out, std::string_view name, std::string_view code,
                       const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    appendName(out, name);
    out += "  C";
    appendDate(out, dates, mark.date, " ");
    appendDayFraction(out, mark.time);
    out += ' ';
    appendRA(out, mark.RA, 2, " ");
    out += ' ';
    appendDE(out, mark.DE, 1, " ");
    out += blanksBeforeMagnitude;
    // The "0" looks at the rounded text: 9.96 stands as 10.0.
    appendFixedTwoDigits(out, mark.m, 1);
    out += ' ';
    appendPaddedRight(out, mark.filtr, band.width);
    out += code;
}

void appendHeader(std::string& out, const TMPCReportHeader& header)
{
    for (const std::string& line : GetListHeadMPC(header)) {
        out += line;
        out += '\n';
    }
}

void appendResidual(std::string& out, double residual)
{
    appendPaddedLeft(out, Str9(residual, 2), 5);
}

std::string_view residualFlag(const TRecLabelPervichka_File& residuals)
{
    const auto oneExceeds = [&residuals](double limit) {
        return std::abs(residuals.RefValue4) > limit || std::abs(residuals.RefValue5) > limit;
    };
    if (oneExceeds(2.0)) {
        return "!!";
    }
    return oneExceeds(1.0) ? " !" : "  ";
}

// Residuals and position of the ephemeris; the time alone is that of the observed mark.
void appendComparison(std::string& out, const TRecLabelPervichka_File& ephemeris, double observedTime)
{
    out += "   ";
    out += residualFlag(ephemeris);
    out += "   ";
    appendResidual(out, ephemeris.RefValue4);
    out += ' ';
    appendResidual(out, ephemeris.RefValue5);
    out += ' ';
    appendResidual(out, ephemeris.RefValue6);
    out += "      (";
    appendRA(out, ephemeris.RA, 2, " ");
    out += ' ';
    appendDE(out, ephemeris.DE, 1, " ");
    out += ' ';
    appendFixed(out, ephemeris.m, 2);
    out += ' ';
    out += DayToTime(observedTime, 3, ":");
    out += ')';
}

// A text without its blanks.
std::string packed(std::string_view text)
{
    std::string rest(text);
    std::erase(rest, ' ');
    return rest;
}

TMPCMea observationOf(std::string_view line, DayNumbers& dates)
{
    TMPCMea observation;
    observation.Name = packed(cutColumn(line, nameColumn));
    observation.date = dates.answerTo(
        cutColumn(line, dateColumn), [](std::string_view text) { return DateToMJD(std::string(text), " "); });
    observation.time = toDouble(std::string("0").append(packed(cutColumn(line, dayFraction))));
    const auto [hours, minutes, seconds] = threeParts(cutColumn(line, rightAscension), ' ');
    observation.RA = raOf(hours, minutes, seconds);
    const auto [degrees, arcminutes, arcseconds] = threeParts(cutColumn(line, declination), ' ');
    observation.DE = deOf(degrees, arcminutes, arcseconds);
    observation.m = toDouble(packed(cutColumn(line, magnitude)));
    observation.filtr = packed(cutColumn(line, band));
    return observation;
}

// Takes the lines of a report one after the other.
class ReportLines
{
public:
    void reserve(std::size_t lines)
    {
        gathering.reserve(lines);
    }

    void add(std::string_view line)
    {
        for (const HeaderLine& row : headerLines) {
            if (line.starts_with(row.keyword)) {
                header.*row.text = line.substr(4); // raises where nothing stands behind the keyword
                return;
            }
        }
        if (line.size() == lineLength) {
            TMPCMea observation = observationOf(line, dates);
            const std::string name = std::move(observation.Name);
            gathering.add(name, std::move(observation));
        }
    }

    std::vector<TrackVtorichka> tracks() const
    {
        return gathering.tracks(
            [this](TrackVtorichka& track, const std::string& name) {
                track.MPCChecker = name;
                track.MPCHeader = header;
            },
            [](TRecLabelPervichka_File& mark, const TMPCMea& observation) {
                mark.date = observation.date;
                mark.time = observation.time;
                mark.RA = observation.RA;
                mark.DE = observation.DE;
                mark.m = observation.m;
                mark.filtr = observation.filtr;
            });
    }

private:
    TMPCReportHeader header;
    DayNumbers dates;
    TrackGathering<TMPCMea> gathering;
};

} // namespace

std::vector<std::string> GetListHeadMPC(const TMPCReportHeader& header)
{
    std::vector<std::string> lines;
    for (const HeaderLine& row : headerLines) {
        const std::string& text = header.*row.text;
        if (!text.empty()) {
            lines.push_back(std::string(row.keyword) + " " + text);
        }
    }
    return lines;
}

std::string GetStringMPC(std::string name, std::string code, const TRecLabelPervichka_File& mark)
{
    std::string line;
    DateTexts dates;
    appendObservation(line, name, code, mark, dates);
    return line;
}

void sMPC(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    std::string text;
    text.reserve((countMarks(tracks) + 10) * (lineLength + 2));
    appendHeader(text, tracks.front().MPCHeader);
    DateTexts dates;
    for (const TrackVtorichka& track : tracks) {
        const std::string& name = track.MPCChecker.empty() ? track.QRVName : track.MPCChecker;
        for (std::size_t j = 0; j < track.Marks.size(); ++j) {
            fetchAhead(track.Marks, j);
            appendObservation(text, name, track.MPCHeader.COD, track.Marks[j], dates);
            text += '\n';
        }
    }
    writeText(path, text);
}

void sMPCAndHorRes(std::string path, const std::vector<TrackVtorichka>& tracks,
                   const std::vector<TrackVtorichka>& ephemerisTracks)
{
    if (tracks.empty()) {
        return;
    }
    std::string text;
    appendHeader(text, tracks.front().MPCHeader);
    DateTexts dates;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const TrackVtorichka& track = tracks[i];
        for (std::size_t j = 0; j < track.Marks.size(); ++j) {
            const TRecLabelPervichka_File& mark = track.Marks[j];
            appendObservation(text, track.MPCChecker, track.MPCHeader.COD, mark, dates);
            if (i < ephemerisTracks.size() && j < ephemerisTracks[i].Marks.size()) {
                appendComparison(text, ephemerisTracks[i].Marks[j], mark.time);
            } else {
                text += "???";
            }
            text += '\n';
        }
    }
    writeText(path, text);
}

std::vector<TrackVtorichka> lMPC(const std::vector<std::string>& lines)
{
    ReportLines reading;
    reading.reserve(lines.size());
    for (const std::string& line : lines) {
        reading.add(line);
    }
    return reading.tracks();
}

std::vector<TrackVtorichka> lMPC(std::string path)
{
    ReportLines reading;
    readLines(path, reading); // a missing file has no lines
    return reading.tracks();
}

TMPCMea ParsMPCMea(std::string line)
{
    DayNumbers dates;
    return observationOf(line, dates);
}

std::string getHeadMPC()
{
    return std::string(markTable) + std::string(markTableEnd);
}

void sMPCHeadTrack(std::string path)
{
    Write(path, std::vector<std::string>{"v2", getHeadMPC()});
}

} // namespace tavelinUtils
