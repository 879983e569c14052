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

#include <array>
#include <cstddef>
#include <iterator>
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
constexpr std::size_t usualLineLength = 64;
constexpr std::size_t blockHeadLength = 128;

// The lines before the numbers of the first object are not read but for one; both are counted from 0.
constexpr std::size_t telescopeLine = 1;
constexpr std::size_t firstObjectLine = 6;

// What a mark's line is read into.
struct ReadMark
{
    DayNumbers& days;
    MeasuredMark mark;
};

// What a mark's line is written from.
struct WrittenMark
{
    const TRecLabelPervichka_File& mark;
    DateTexts& dates;
};

// DD.MM.YYYY
int dateOf(std::string_view text)
{
    const auto [day, month, year] = threeParts(text, '.');
    return DateToMJD(std::string(year), std::string(month), std::string(day));
}

// The "0" looks at the value, but not where the text came to 10.0 by rounding.
void appendMagnitude(TextBuffer& out, double m)
{
    const std::size_t begin = out.size();
    appendFixed(out, m, 1);
    if (m < 10.0 && out.view().substr(begin) != "10.0") {
        const std::string text(out.view().substr(begin));
        out.shorten(begin);
        out += '0';
        out += text;
    }
}

// The line of an object, its two numbers with one blank between them. The writer falls back to QRVName where
// a track has no such number.
//
//   SSMAS number   as it is; read into the names of the track, and not into HeadText2
//   INTER number   as it is
constexpr TokenField<THeadTrVtor, TrackVtorichka> objectFields[] = {
    {[](THeadTrVtor& to, std::string_view text) { to.NORAD = to.QRVName = text; },
     [](TextBuffer& out, const TrackVtorichka& from) {
         out += from.HeadText2.empty() ? from.QRVName : from.HeadText2;
     }},
    {[](THeadTrVtor& to, std::string_view text) { to.HeadText3 = text; },
     [](TextBuffer& out, const TrackVtorichka& from) {
         out += from.HeadText3.empty() ? from.QRVName : from.HeadText3;
     }},
};

// A mark's line, its fields with one blank between them.
//
//   date        10, 11      DD.MM.YYYY
//   time        11          HH:MM:SS.ss
//   nothing     0           between the two blanks after the time; readers of these files count on it
//   RA          11          HH:MM:SS.ss
//   DE          11, 12      sign (of a negative one only) DD.MM.SS.ss, with points and not with colons
//   RMS         3           001; the error is not known here, and not read
//   magnitude   4 or more   MM.m
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, dateOf); },
     [](TextBuffer& out, const WrittenMark& from) {
         out += from.dates.answerTo(int{from.mark.date}, MJDToDateTEL);
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = timeToDay(text, ':'); },
     [](TextBuffer& out, const WrittenMark& from) { appendTimeTEL(out, from.mark.time); }},
    {takeNothing, [](TextBuffer& /*out*/, const WrittenMark& /*from*/) {}},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = raToDecimal(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendRA(out, from.mark.RA, 2, ":"); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = deToDecimal(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendDE(out, from.mark.DE, 2, "."); }},
    {takeNothing, [](TextBuffer& out, const WrittenMark& /*from*/) { out += "001"; }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendMagnitude(out, from.mark.m); }},
};

// Takes the lines of a report one after the other.
//
// There is one working track, and with each mark it is the last track of the result. Here it is a head and
// the number of the mark that it begins with; the tracks get their marks when all lines are read.
class SsmasLines
{
public:
    explicit SsmasLines(std::string originator) : observatory(std::move(originator))
    {
    }

    void reserve(std::size_t lines)
    {
        sequence.reserve(lines);
    }

    // After the first lines of the report, the number of fields alone says what a line is:
    //
    //   object    fields                     what happens
    //   any       2                          an object opens; it closes at once if the object before
    //                                        is open with marks and the line has a first field
    //   closed    any other number           nothing: the line is skipped
    //   open      7                          a mark of the object
    //   open      below 7, a first field     the object closes if it has marks, else nothing
    //   open      all others                 nothing
    void add(std::string_view line)
    {
        const std::size_t number = lineNumber++;
        if (number < firstObjectLine) {
            addFrontLine(number, line);
            return;
        }
        Tokens tokens;
        const std::size_t count = cutParts(line, ' ', tokens);
        if (count == std::size(objectFields)) {
            openObject(tokens);
        }
        if (open && count == tokens.size()) {
            addMark(tokens);
        } else if (open && count < tokens.size() && !tokens[0].empty()) {
            closeObject();
        }
    }

    std::vector<TrackVtorichka> takeTracks()
    {
        constexpr std::size_t mostRepeated = 1'000'000;
        if (sequence.marksOfTracks() > sequence.markCount() + mostRepeated) {
            throw std::length_error("SSMAS: objects that repeat each other's marks");
        }
        return sequence.takeTracks();
    }

private:
    using Tokens = std::array<std::string_view, std::size(markFields)>;

    void addFrontLine(std::size_t number, std::string_view line)
    {
        if (number == telescopeLine) {
            telescope = line;
        }
    }

    // The working track keeps its marks. The track that the result gets stays as constructed without a mark.
    void openObject(const Tokens& tokens)
    {
        working.originator = observatory;
        working.telescope = telescope;
        readFields<objectFields>(tokens, working);
        sequence.addTrack();
        lastIsWorking = false;
        open = true;
    }

    void addMark(const Tokens& tokens)
    {
        ReadMark read{days, {}};
        readFields<markFields>(tokens, read);
        sequence.addMark(read.mark);
        if (!lastIsWorking) {
            static_cast<THeadTrVtor&>(sequence.lastTrack()) = working;
            sequence.beginLastTrackAt(workingBegin);
            lastIsWorking = true;
        }
    }

    void closeObject()
    {
        if (workingBegin != sequence.markCount()) {
            working = THeadTrVtor{};
            workingBegin = sequence.markCount();
            open = false;
        }
    }

    std::string observatory;
    std::string telescope;
    std::size_t lineNumber = 0;
    bool open = false;
    THeadTrVtor working;
    std::size_t workingBegin = 0;
    bool lastIsWorking = false; // whether the last track of the result has the working track's head
    TrackSequence sequence;
    DayNumbers days;
};

void appendLine(TextBuffer& out, std::string_view line)
{
    out += line;
    out += '\n';
}

void appendBlockHead(TextBuffer& out, const TrackVtorichka& track, std::size_t number)
{
    appendLine(out, std::to_string(number));
    appendLine(out, "");
    appendLine(out, numbersTitle);
    appendFields<objectFields>(out, track);
    out += '\n';
    appendLine(out, columnTitles);
}

} // namespace

std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory)
{
    SsmasLines reader(std::move(observatory));
    takeLines(lines, reader);
    return reader.takeTracks();
}

std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory)
{
    SsmasLines reader(std::move(observatory));
    readLines(path, reader); // a missing file has no lines
    return reader.takeTracks();
}

void sSSMAS(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    TextBuffer text;
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
            appendFields<markFields>(text, WrittenMark{track.Marks[i], dates});
            text += '\n';
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
