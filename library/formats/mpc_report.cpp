#include "formats/mpc_report.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_file.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "formats/watched_lines.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/written_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
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

char* writeName(char* to, std::string_view name)
{
    return name.size() == permanentNumberLength ? writePaddedRight(to, name, nameField.width)
                                                : writePaddedLeft(to, name, nameField.width);
}

char* writeDayFraction(char* to, double time)
{
    // Without its first character. A fraction that rounds to 1 keeps its date: nothing is carried over.
    constexpr int decimals = 5;
    if (time >= 0.0 && time < 1.0 && !std::signbit(time)) {
        *to = '.';
        return writeDigits(to + 1, scaledMagnitude(time, decimals), decimals);
    }
    char* const end = writeFixed(to, time, decimals);
    return std::copy(to + 1, end, to);
}

char* writeObservation(char* to, std::string_view name, std::string_view code,
                       const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    to = writeName(to, name);
    to = writeBlank(to, discovery);
    to = writeBlank(to, note1);
    to = writeText(to, ccd);
    to = writeDate(to, dates, mark.date, ' ');
    to = writeDayFraction(to, mark.time);
    to = writeBlank(to, endOfDayFraction);
    to = writeRA(to, mark.RA, 2, ' ');
    to = writeBlank(to, endOfRightAscension);
    to = writeDE(to, mark.DE, 1, ' ');
    to = writeBlank(to, endOfDeclination);
    to = writeBlank(to, unset);
    // The "0" looks at the rounded text: 9.96 gives 10.0.
    to = writeFixedTwoDigits(to, mark.m, 1);
    to = writeBlank(to, endOfMagnitude);
    to = writePaddedRight(to, mark.filtr, band.width);
    return writeText(to, code);
}

void appendObservation(TextBuffer& out, std::string_view name, std::string_view code,
                       const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    constexpr std::size_t numbersRoom = 5 * sexagesimalRoom;
    char* const to = out.room(lineLength + name.size() + mark.filtr.size() + code.size() + numbersRoom);
    out.endAt(writeObservation(to, name, code, mark, dates));
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
    constexpr std::size_t width = 5;
    const std::string text = Str9(residual, 2);
    out.endAt(writePaddedLeft(out.room(lineLength + text.size()), text, width));
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
    appendRA(out, ephemeris.RA, 2, ' ');
    out += ' ';
    appendDE(out, ephemeris.DE, 1, ' ');
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

MeasuredMark measuredOf(std::string_view line, DayNumbers& days)
{
    MeasuredMark mark;
    mark.date = days.answerTo(cut(line, dateField),
                              [](std::string_view text) { return DateToMJD(std::string(text), " "); });
    mark.time = timeOf(line);
    const auto [hours, minutes, seconds] = threeParts(cut(line, rightAscension), ' ');
    mark.RA = raOf(hours, minutes, seconds);
    const auto [degrees, arcminutes, arcseconds] = threeParts(cut(line, declination), ' ');
    mark.DE = deOf(degrees, arcminutes, arcseconds);
    mark.m = numberOf(line, magnitude);
    return mark;
}

// An observation, whose band is the number of a text.
struct Observation
{
    MeasuredMark mark;
    std::uint32_t band;
};

// What is kept of a report.
struct KeptReport
{
    TMPCReportHeader header;
    TextIndex bands;
    TrackGathering<Observation> gathering;
};

// Takes the lines of a report one after the other.
template <class Watch = Unwatched>
class MpcReportLines
{
public:
    explicit MpcReportLines(KeptReport& report, Watch lineWatch = {}) : kept(report), watch(lineWatch)
    {
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { takeLine(line); });
    }

    void finish() const
    {
    }

private:
    void takeLine(std::string_view line)
    {
        for (const HeaderLine& row : headerLines) {
            if (line.starts_with(row.keyword)) {
                kept.header.*row.text = line.substr(4); // throws where the line ends with the keyword
                watch.head();
                return;
            }
        }
        if (line.size() != lineLength) {
            watch.passed(line, PassedReason::lineLength);
            return;
        }
        const std::size_t filter = kept.bands.numberOf(withoutBlanks(cut(line, band)));
        kept.gathering.add(withoutBlanks(cut(line, nameField)),
                           {measuredOf(line, days), static_cast<std::uint32_t>(filter)});
        watch.mark();
    }

    KeptReport& kept;
    [[no_unique_address]] Watch watch;
    DayNumbers days;
};

// A report of marks. Its header is that of the first track.
class ReportFile
{
public:
    explicit ReportFile(std::string path) : file(std::move(path))
    {
    }

    // The end of a line is appended behind the observation of the mark at an index.
    template <class AppendEnd>
    void add(const TrackVtorichka& track, std::string_view name, AppendEnd appendEnd)
    {
        if (!headed) {
            headed = true;
            appendHeader(file.text(), track.MPCHeader);
        }
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            appendObservation(file.text(), name, track.MPCHeader.COD, track.Marks[index], dates);
            appendEnd(file.text(), index);
            file.text() += '\n';
            file.writeFull();
        }
    }

    void save()
    {
        if (headed) {
            file.close();
        }
    }

private:
    TextFile file;
    bool headed = false;
    DateTexts dates;
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

struct TAVELIN_INTERNAL MpcReportSource::Store
{
    KeptReport kept{};

    bool next(TrackVtorichka& track, OldMarks old);
};

bool MpcReportSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    return kept.gathering.next(
        track, old,
        [this](TrackVtorichka& filled, std::string_view name) {
            filled.MPCChecker = name;
            filled.MPCHeader = kept.header;
        },
        [this](TRecLabelPervichka_File& mark, const Observation& observation) {
            setMeasured(mark, observation.mark);
            mark.filtr = kept.bands[observation.band];
        });
}

MpcReportSource::MpcReportSource(std::string path) : store(new Store)
{
    takeFile(path, MpcReportLines(store->kept), store->kept);
}

MpcReportSource::MpcReportSource(std::string path, LineWatch& watch) : store(new Store)
{
    takeFile(path, MpcReportLines(store->kept, Watched(watch)), store->kept);
}

MpcReportSource::MpcReportSource(const std::vector<std::string>& lines) : store(new Store)
{
    takeList(lines, MpcReportLines(store->kept));
}

MpcReportSource::MpcReportSource(const std::vector<std::string>& lines, LineWatch& watch) : store(new Store)
{
    takeList(lines, MpcReportLines(store->kept, Watched(watch)));
}

MpcReportSource::MpcReportSource(MpcReportSource&& other) noexcept = default;
MpcReportSource::~MpcReportSource() = default;

std::size_t MpcReportSource::count() const
{
    return store->kept.gathering.count();
}

bool MpcReportSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool MpcReportSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct MpcReportSink::State
{
    ReportFile file;
};

MpcReportSink::MpcReportSink(std::string path) : state(new State{ReportFile(std::move(path))})
{
}

MpcReportSink::MpcReportSink(MpcReportSink&& other) noexcept = default;
MpcReportSink::~MpcReportSink() = default;

void MpcReportSink::add(const TrackVtorichka& track)
{
    const std::string& name = track.MPCChecker.empty() ? track.QRVName : track.MPCChecker;
    state->file.add(track, name, [](TextBuffer& /*out*/, std::size_t /*index*/) {});
}

bool MpcReportSink::save()
{
    state->file.save();
    return true;
}

struct MpcComparisonSink::State
{
    ReportFile file;
};

MpcComparisonSink::MpcComparisonSink(std::string path) : state(new State{ReportFile(std::move(path))})
{
}

MpcComparisonSink::MpcComparisonSink(MpcComparisonSink&& other) noexcept = default;
MpcComparisonSink::~MpcComparisonSink() = default;

void MpcComparisonSink::add(const TrackVtorichka& track, const TrackVtorichka* ephemeris)
{
    state->file.add(track, track.MPCChecker, [&](TextBuffer& out, std::size_t index) {
        if (ephemeris != nullptr && index < ephemeris->Marks.size()) {
            appendComparison(out, ephemeris->Marks[index], track.Marks[index].time);
        } else {
            out += "???";
        }
    });
}

bool MpcComparisonSink::save()
{
    state->file.save();
    return true;
}

void sMPC(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(MpcReportSink(path), tracks);
}

void sMPCAndHorRes(std::string path, const std::vector<TrackVtorichka>& tracks,
                   const std::vector<TrackVtorichka>& ephemerisTracks)
{
    MpcComparisonSink sink(path);
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        sink.add(tracks[i], i < ephemerisTracks.size() ? &ephemerisTracks[i] : nullptr);
    }
    sink.save();
}

std::vector<TrackVtorichka> lMPC(const std::vector<std::string>& lines)
{
    return allTracks(MpcReportSource(lines));
}

std::vector<TrackVtorichka> lMPC(const std::vector<std::string>& lines, LineWatch& watch)
{
    return allTracks(MpcReportSource(lines, watch));
}

std::vector<TrackVtorichka> lMPC(std::string path)
{
    return allTracks(MpcReportSource(path));
}

std::vector<TrackVtorichka> lMPC(std::string path, LineWatch& watch)
{
    return allTracks(MpcReportSource(path, watch));
}

TMPCMea ParsMPCMea(std::string line)
{
    DayNumbers days;
    const MeasuredMark mark = measuredOf(line, days);
    return {.Name = withoutBlanks(cut(line, nameField)),
            .filtr = withoutBlanks(cut(line, band)),
            .date = mark.date,
            .time = mark.time,
            .RA = mark.RA,
            .DE = mark.DE,
            .m = mark.m};
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
