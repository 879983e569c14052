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

// An observation line.
//
//    1-12   name           a permanent number at the left, all else at the right; a wider one stays whole
//   13      discovery      the asterisk of a new object: never set
//   14      note 1         never set
//   15      note 2         C, a CCD: there is no other kind of camera here
//   16-25   date           year month day
//   26-32   day fraction   .ddddd, and 32, a sixth digit, is blank
//   33-44   RA             hours minutes seconds.ss, and 44, a third decimal, is blank
//   45-56   DE             sign (of a negative one only) degrees minutes seconds.s, and 56, a second decimal,
//                          is blank
//   57-65   unset          blank by the standard
//   66-70   magnitude      MM.m, and 70, a second decimal, is blank
//   71-77   band           71 by the standard; a wider one is here as it is
//   78-80   station        not read: the COD line of the header says it
//
// Other programs write those further decimals, so the reader takes each field whole.
constexpr Field nameField{1, 12};
constexpr Field discovery{13, 1};
constexpr Field note1{14, 1};
constexpr Field note2{15, 1};
constexpr Field dateField{16, 10};
constexpr Field dayFraction{26, 7};
constexpr Field rightAscension{33, 12};
constexpr Field declination{45, 12};
constexpr Field unset{57, 9};
constexpr Field magnitude{66, 5};
constexpr Field band{71, 7};
constexpr Field station{78, 3};
constexpr Field observationFields[] = {nameField,      discovery,   note1, note2,     dateField, dayFraction,
                                       rightAscension, declination, unset, magnitude, band,      station};
constexpr std::size_t lineLength = 80;
static_assert(fillLine(observationFields, lineLength));

// The ends of four fields, where a finer measurement has one more decimal.
constexpr Field endOfDayFraction{32, 1};
constexpr Field endOfRightAscension{44, 1};
constexpr Field endOfDeclination{56, 1};
constexpr Field endOfMagnitude{70, 1};

constexpr std::string_view ccd = "C";
static_assert(ccd.size() == note2.width);

constexpr std::size_t permanentNumberLength = 5;
constexpr std::string_view markTable =
    "N:Int\tNBl:Int\tdate:Date\ttime:Time\tName:Text\tRA:Float:deg\tDE:Float:deg\tm:Float:mag";
constexpr std::string_view markTableEnd = "\tNEORatio:Float\tDraw:Bool";

void appendName(TextBuffer& out, std::string_view name)
{
    if (name.size() == permanentNumberLength) {
        appendPaddedRight(out, name, nameField.width);
    } else {
        appendPaddedLeft(out, name, nameField.width);
    }
}

void appendDayFraction(TextBuffer& out, double time)
{
    // Without its first character. A fraction that rounds to 1 keeps its date: nothing is carried over.
    const std::size_t begin = out.size();
    appendFixed(out, time, 5);
    out.erase(begin, 1);
}

void appendObservation(TextBuffer& out, std::string_view name, std::string_view code,
                       const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    appendName(out, name);
    appendBlank(out, discovery);
    appendBlank(out, note1);
    out += ccd;
    appendDate(out, dates, mark.date, " ");
    appendDayFraction(out, mark.time);
    appendBlank(out, endOfDayFraction);
    appendRA(out, mark.RA, 2, " ");
    appendBlank(out, endOfRightAscension);
    appendDE(out, mark.DE, 1, " ");
    appendBlank(out, endOfDeclination);
    appendBlank(out, unset);
    // The "0" looks at the rounded text: 9.96 gives 10.0.
    appendFixedTwoDigits(out, mark.m, 1);
    appendBlank(out, endOfMagnitude);
    appendPaddedRight(out, mark.filtr, band.width);
    out += code;
}

void appendHeader(TextBuffer& out, const TMPCReportHeader& header)
{
    for (const std::string& line : GetListHeadMPC(header)) {
        out += line;
        out += '\n';
    }
}

void appendResidual(TextBuffer& out, double residual)
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
void appendComparison(TextBuffer& out, const TRecLabelPervichka_File& ephemeris, double observedTime)
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

// The number of a field, whose blanks do not count.
double numberOf(std::string_view line, Field field)
{
    return toDouble(withoutBlanks(cut(line, field)));
}

// The fraction of the day: its field begins with the point, or with a blank before a digit.
double timeOf(std::string_view line)
{
    return toDouble(std::string("0").append(withoutBlanks(cut(line, dayFraction))));
}

TMPCMea observationOf(std::string_view line, DayNumbers& days)
{
    TMPCMea observation;
    observation.Name = withoutBlanks(cut(line, nameField));
    observation.date = days.answerTo(cut(line, dateField),
                                     [](std::string_view text) { return DateToMJD(std::string(text), " "); });
    observation.time = timeOf(line);
    const auto [hours, minutes, seconds] = threeParts(cut(line, rightAscension), ' ');
    observation.RA = raOf(hours, minutes, seconds);
    const auto [degrees, arcminutes, arcseconds] = threeParts(cut(line, declination), ' ');
    observation.DE = deOf(degrees, arcminutes, arcseconds);
    observation.m = numberOf(line, magnitude);
    observation.filtr = withoutBlanks(cut(line, band));
    return observation;
}

// Takes the lines of a report one after the other.
class MpcReportLines
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
                header.*row.text = line.substr(4); // throws where the line ends with the keyword
                return;
            }
        }
        if (line.size() == lineLength) {
            TMPCMea observation = observationOf(line, days);
            const std::string name = std::move(observation.Name);
            gathering.add(name, std::move(observation));
        }
    }

    std::vector<TrackVtorichka> takeTracks() const
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
    DayNumbers days;
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
    TextBuffer line;
    DateTexts dates;
    appendObservation(line, name, code, mark, dates);
    return line.str();
}

void sMPC(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    TextBuffer text;
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
    TextBuffer text;
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
    MpcReportLines reader;
    takeLines(lines, reader);
    return reader.takeTracks();
}

std::vector<TrackVtorichka> lMPC(std::string path)
{
    MpcReportLines reader;
    readLines(path, reader); // a missing file has no lines
    return reader.takeTracks();
}

TMPCMea ParsMPCMea(std::string line)
{
    DayNumbers days;
    return observationOf(line, days);
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
