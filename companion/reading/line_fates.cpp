#include "reading/line_fates.h"

#include "base/lines.h"
#include "base/tokens.h"
#include "files/text_reading.h"
#include "formats/horizons.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include <algorithm>
#include <stdexcept>

namespace companion {

using tavelinUtils::LineFate;
using tavelinUtils::LineReport;
using tavelinUtils::PassedReason;
using tavelinUtils::TrackVtorichka;

namespace {

constexpr unsigned reasonShift = 4;
constexpr std::uint8_t fateBits = 0x0F;
constexpr std::uint8_t untold = 0xFF;

// Gives the tracks of a source to the user of a reading.
template <class Source>
std::size_t useTracks(Source source, const FileReading& reading)
{
    const std::size_t tracks = source.count();
    if (reading.use) {
        for (TrackVtorichka track; source.refill(track);) {
            reading.use(track);
        }
    }
    return tracks;
}

// Lines that are counted by their form.
class CountedLines
{
public:
    CountedLines(LineFate (*fateByForm)(std::string_view line, bool& inData), LineFates& lineFates)
        : fateOf(fateByForm), fates(lineFates)
    {
    }

    void add(std::string_view line)
    {
        const bool isBlank = line.find_first_not_of(' ') == std::string_view::npos;
        fates.settled({++number, isBlank ? LineFate::blank : fateOf(line, inData), PassedReason::none});
    }

private:
    LineFate (*fateOf)(std::string_view line, bool& inData);
    LineFates& fates;
    std::size_t number = 0;
    bool inData = false; // for the form to keep
};

LineFate allHead(std::string_view /*line*/, bool& /*inData*/)
{
    return LineFate::head;
}

// A header line, then a line per mark.
LineFate fateInLightCurve(std::string_view /*line*/, bool& inData)
{
    const LineFate fate = inData ? LineFate::mark : LineFate::head;
    inData = true;
    return fate;
}

LineFate fateInAavso(std::string_view line, bool& /*inData*/)
{
    return line.front() == '#' ? LineFate::head : LineFate::mark;
}

// A magnitude completes a mark. The reader takes the first segment alone.
LineFate fateInTdmXml(std::string_view line, bool& isBehind)
{
    isBehind = isBehind || line.find("</segment>") != std::string_view::npos;
    if (isBehind && line.find("<MAG>") != std::string_view::npos) {
        return LineFate::passed;
    }
    if (line.find("<MAG>") != std::string_view::npos) {
        return LineFate::mark;
    }
    return line.find("<ANGLE_") != std::string_view::npos ? LineFate::part : LineFate::head;
}

LineFate fateInElements(std::string_view line, bool& /*inData*/)
{
    switch (line.front()) {
    case '2': return LineFate::mark;
    case '1': return LineFate::part;
    case '0': return LineFate::head;
    default: return LineFate::passed;
    }
}

LineFate fateInAdesText(std::string_view line, bool& inData)
{
    if (line.front() == '#' || line.front() == '!') {
        inData = false;
        return LineFate::head;
    }
    const LineFate fate = inData ? LineFate::mark : LineFate::head; // the line that names the columns
    inData = true;
    return fate;
}

LineFate fateInAdesXml(std::string_view line, bool& /*inData*/)
{
    constexpr std::string_view ends[] = {"</optical>", "</radar>", "</offset>", "</occultation>"};
    const bool closes = std::any_of(std::begin(ends), std::end(ends),
                                    [line](std::string_view end) { return line.find(end) != line.npos; });
    return closes ? LineFate::mark : LineFate::head;
}

template <LineFate (*fateByForm)(std::string_view line, bool& inData)>
void countLines(const FileReading& reading, LineFates& fates)
{
    CountedLines lines(fateByForm, fates);
    tavelinUtils::readTextLines(reading.path, lines);
}

// The lines of an ephemeris, of which the reader makes marks from the first on, or none where the columns are
// those of another table.
class HorizonsLines
{
public:
    HorizonsLines(LineFates& lineFates, std::size_t readMarks) : fates(lineFates), marksLeft(readMarks)
    {
    }

    void add(std::string_view line)
    {
        fates.settled({++number, fateOf(line), PassedReason::none});
    }

private:
    LineFate fateOf(std::string_view line)
    {
        if (line.find_first_not_of(' ') == std::string_view::npos) {
            return LineFate::blank;
        }
        if (line.find("$$SOE") != std::string_view::npos) {
            inData = true;
            return LineFate::head;
        }
        if (line.find("$$EOE") != std::string_view::npos) {
            inData = false;
            return LineFate::end;
        }
        if (!inData) {
            return LineFate::head;
        }
        if (marksLeft == 0) {
            return LineFate::passed;
        }
        --marksLeft;
        return LineFate::mark;
    }

    LineFates& fates;
    std::size_t marksLeft;
    std::size_t number = 0;
    bool inData = false;
};

std::size_t readMea(const FileReading& reading, LineFates& fates)
{
    return useTracks(tavelinUtils::MeaSource(reading.path, "", fates), reading);
}

std::size_t readTelegram(const FileReading& reading, LineFates& fates)
{
    return useTracks(tavelinUtils::TelegramSource(reading.path, fates), reading);
}

std::size_t readTdm(const FileReading& reading, LineFates& fates)
{
    return useTracks(tavelinUtils::TdmSource(reading.path, fates), reading);
}

std::size_t readSsmas(const FileReading& reading, LineFates& fates)
{
    return useTracks(tavelinUtils::SsmasSource(reading.path, "", fates), reading);
}

std::size_t readMpc(const FileReading& reading, LineFates& fates)
{
    return useTracks(tavelinUtils::MpcReportSource(reading.path, fates), reading);
}

std::size_t readTable(const FileReading& reading, LineFates& fates)
{
    if (reading.columns.empty()) {
        return useTracks(tavelinUtils::TrackTableSource(reading.path, fates), reading);
    }
    return useTracks(tavelinUtils::TrackTableSource(reading.path, reading.columns, fates), reading);
}

std::size_t readTdmXml(const FileReading& reading, LineFates& fates)
{
    countLines<fateInTdmXml>(reading, fates);
    std::vector<TrackVtorichka> tracks;
    tavelinUtils::lTDMxml(reading.path, tracks);
    if (reading.use) {
        std::for_each(tracks.begin(), tracks.end(), reading.use);
    }
    return tracks.size();
}

std::size_t readHorizons(const FileReading& reading, LineFates& fates)
{
    TrackVtorichka track;
    try {
        tavelinUtils::lHorizons(reading.path, track);
    } catch (const std::out_of_range&) {
        // The marks of the lines before the one that is too short are there.
    }
    HorizonsLines lines(fates, track.Marks.size());
    tavelinUtils::readTextLines(reading.path, lines);
    if (reading.use) {
        reading.use(track);
    }
    return 1;
}

template <LineFate (*fateByForm)(std::string_view line, bool& inData)>
std::size_t readByForm(const FileReading& reading, LineFates& fates)
{
    countLines<fateByForm>(reading, fates);
    return 0;
}

struct FormatReader
{
    std::string_view format;
    std::size_t (*read)(const FileReading& reading, LineFates& fates);
    bool isWatched;
};

constexpr FormatReader readers[] = {
    {"mea", readMea, true},
    {"telegram", readTelegram, true},
    {"tdm", readTdm, true},
    {"ssmas", readSsmas, true},
    {"mpc", readMpc, true},
    {"table", readTable, true},
    {"tdm.xml", readTdmXml, false},
    {"horizons", readHorizons, false},
    {"mag", readByForm<fateInLightCurve>, false},
    {"aavso", readByForm<fateInAavso>, false},
    {"elements", readByForm<fateInElements>, false},
    {"ades.psv", readByForm<fateInAdesText>, false},
    {"ades.xml", readByForm<fateInAdesXml>, false},
    {"task", readByForm<allHead>, false},
    {"configuration", readByForm<allHead>, false},
    {"result", readByForm<allHead>, false},
};

const FormatReader& readerOf(std::string_view format)
{
    for (const FormatReader& reader : readers) {
        if (reader.format == format) {
            return reader;
        }
    }
    throw std::logic_error("no reader of the format " + std::string(format));
}

} // namespace

void LineFates::settled(const LineReport& report)
{
    if (report.line > fates.size()) {
        fates.resize(report.line, untold);
    }
    const auto fate = static_cast<std::uint8_t>(report.fate);
    fates[report.line - 1] =
        static_cast<std::uint8_t>(fate | static_cast<unsigned>(report.reason) << reasonShift);
    ++counts[fate];
}

LineFate LineFates::fate(std::size_t line) const
{
    const std::uint8_t told = line <= fates.size() ? fates[line - 1] : untold;
    return told == untold ? LineFate::passed : static_cast<LineFate>(told & fateBits);
}

PassedReason LineFates::reason(std::size_t line) const
{
    const std::uint8_t told = line <= fates.size() ? fates[line - 1] : untold;
    return told == untold ? PassedReason::none : static_cast<PassedReason>(told >> reasonShift);
}

FileAccount LineFates::account(std::size_t lines) const
{
    FileAccount account;
    account.lines = lines;
    account.head = count(LineFate::head);
    account.blank = count(LineFate::blank);
    account.marks = count(LineFate::mark);
    account.parts = count(LineFate::part);
    account.ends = count(LineFate::end);
    account.passed = count(LineFate::passed);
    account.lost = count(LineFate::lost);
    account.refused = count(LineFate::refused);
    return account;
}

std::size_t readWithFates(const FileReading& reading, LineFates& fates)
{
    return readerOf(reading.format).read(reading, fates);
}

bool hasWatchedReader(std::string_view format)
{
    return readerOf(format).isWatched;
}

} // namespace companion
