#include "formats/ssmas.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "config/xml_document.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <array>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view title = "Measurements";
constexpr std::string_view kind = "conversion";
constexpr std::string_view numbersTitle = "#SSMAS   #INTER";
constexpr std::string_view columnTitles = "   Data        UT           CU           DE      RMS  m";
constexpr std::string_view rms = "001";
constexpr std::size_t usualLineLength = 64;
constexpr std::size_t blockHeadLength = 128;

// The reader starts with the line of the first object's numbers.
constexpr std::size_t telescopeLine = 1;
constexpr std::size_t firstObjectLine = 6;

// The items of a mark's line, in their order; two blanks leave an empty one, and RMS is not read.
enum Item : std::size_t
{
    dateItem,
    timeItem,
    emptyItem,
    rightAscension,
    declination,
    rmsItem,
    magnitude,
    itemCount
};
constexpr std::size_t objectItems = 2;

// Takes the lines of a report one after the other.
//
// There is one working track, and with each mark it is the last track of the result. Here it is a head and
// the place where its marks begin; the tracks get their marks when all lines are read.
class ReportLines
{
public:
    explicit ReportLines(std::string originator) : observatory(std::move(originator))
    {
    }

    void reserve(std::size_t lines)
    {
        marks.reserve(lines);
    }

    void add(std::string_view line)
    {
        if (lineNumber++ < firstObjectLine) {
            if (lineNumber == telescopeLine + 1) {
                telescope = line;
            }
            return;
        }
        std::array<std::string_view, itemCount> items;
        const std::size_t count = cutParts(line, ' ', items);
        if (count == objectItems) {
            openObject(items);
        } else if (!open) {
            return;
        }
        if (count == itemCount) {
            addMark(items);
        }
        open = true;
        if (count < itemCount && workingBegin != marks.size() && !items[0].empty()) {
            working = THeadTrVtor{};
            workingBegin = marks.size();
            open = false;
        }
    }

    std::vector<TrackVtorichka> takeTracks()
    {
        std::size_t total = 0;
        for (const Span& span : spans) {
            total += span.end - span.begin;
        }
        constexpr std::size_t mostRepeated = 1'000'000;
        if (total > marks.size() + mostRepeated) {
            throw std::length_error("SSMAS: objects that repeat each other's marks");
        }
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            tracks[i].Marks.reserve(spans[i].end - spans[i].begin);
            for (std::size_t mark = spans[i].begin; mark < spans[i].end; ++mark) {
                setMeasured(tracks[i].Marks.emplace_back(), marks[mark]);
            }
        }
        return std::exchange(tracks, {});
    }

private:
    using Items = std::array<std::string_view, itemCount>;

    // The marks of a track of the result.
    struct Span
    {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    void openObject(const Items& items)
    {
        working.originator = observatory;
        working.telescope = telescope;
        working.QRVName = items[0];
        working.NORAD = items[0];
        working.HeadText3 = items[1];
        tracks.emplace_back();
        spans.emplace_back();
    }

    void addMark(const Items& items)
    {
        MeasuredMark mark;
        mark.date = dates.answerTo(items[dateItem], dateOf);
        mark.time = timeToDay(items[timeItem], ':');
        mark.RA = raToDecimal(items[rightAscension]);
        mark.DE = deToDecimal(items[declination]);
        mark.m = toDouble(items[magnitude]);
        marks.push_back(mark);
        Span& last = spans.back();
        if (last.end == 0) {
            static_cast<THeadTrVtor&>(tracks.back()) = working;
            last.begin = workingBegin;
        }
        last.end = marks.size();
    }

    static int dateOf(std::string_view text)
    {
        std::array<std::string_view, 3> parts;
        cutParts(text, '.', parts);
        return DateToMJD(std::string(parts[2]), std::string(parts[1]), std::string(parts[0]));
    }

    std::string observatory;
    std::string telescope;
    std::size_t lineNumber = 0;
    bool open = false;
    THeadTrVtor working;
    std::size_t workingBegin = 0;
    std::vector<MeasuredMark> marks;
    std::vector<TrackVtorichka> tracks;
    std::vector<Span> spans; // of each track
    DayNumbers dates;
};

// The "0" looks at the value, but not where the text came to 10.0 by rounding.
void appendMagnitude(std::string& out, double m)
{
    const std::string text = Str9(m, 1);
    if (m < 10.0 && text != "10.0") {
        out += '0';
    }
    out += text;
}

void appendMark(std::string& out, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    out += dates.answerTo(int{mark.date}, MJDToDateTEL);
    out += ' ';
    appendTimeTEL(out, mark.time);
    out += "  ";
    appendRA(out, mark.RA, 2, ":");
    out += ' ';
    appendDE(out, mark.DE, 2, ".");
    out += ' ';
    out += rms;
    out += ' ';
    appendMagnitude(out, mark.m);
    out += '\n';
}

void appendLine(std::string& out, std::string_view line)
{
    out += line;
    out += '\n';
}

void appendBlockHead(std::string& out, const TrackVtorichka& track, std::size_t number)
{
    appendLine(out, std::to_string(number));
    appendLine(out, "");
    appendLine(out, numbersTitle);
    out += track.HeadText2.empty() ? track.QRVName : track.HeadText2;
    out += ' ';
    appendLine(out, track.HeadText3.empty() ? track.QRVName : track.HeadText3);
    appendLine(out, columnTitles);
}

} // namespace

std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory)
{
    ReportLines reading(std::move(observatory));
    for (const std::string& line : lines) {
        reading.add(line);
    }
    return reading.takeTracks();
}

std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory)
{
    ReportLines reading(std::move(observatory));
    readLines(path, reading); // a missing file has no lines
    return reading.takeTracks();
}

void sSSMAS(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    std::string text;
    text.reserve(countMarks(tracks) * usualLineLength + (tracks.size() + 1) * blockHeadLength);
    appendLine(text, title);
    appendLine(text, tracks.front().telescope);
    appendLine(text, kind);
    DateTexts dates;
    std::size_t number = 0;
    for (const TrackVtorichka& track : tracks) {
        appendBlockHead(text, track, ++number);
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            appendMark(text, track.Marks[i], dates);
        }
    }
    writeText(path, text);
}

void lHeadersSSMAS(std::string path, std::vector<TSSMASHAED>& headers)
{
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return;
    }
    TiXmlElement* const root = document.FirstChildElement();
    std::map<std::string_view, std::vector<TSSMASHAED>> records;
    for (TiXmlElement* child = root->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        TSSMASHAED record;
        GetText(child, "addtofilename", record.addtofilename);
        GetText(child, "telescop", record.telescop);
        records[child->Value()].push_back(std::move(record));
    }
    constexpr std::size_t mostRecords = 1'000'000;
    std::size_t total = 0;
    for (const auto& [name, same] : records) {
        total += same.size() * same.size();
    }
    if (total > mostRecords) {
        return;
    }
    // All children of a child's name come again with each of them; readers of these files count on it.
    for (TiXmlElement* child = root->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        const std::vector<TSSMASHAED>& same = records[child->Value()];
        headers.insert(headers.end(), same.begin(), same.end());
    }
}

} // namespace tavelinUtils
