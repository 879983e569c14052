#include "formats/ssmas.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/text_index.h"
#include "base/tokens.h"
#include "config/xml_document.h"
#include "files/text_file.h"
#include "formats/track_gathering.h"
#include "formats/watched_lines.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view title = "Measurements";
constexpr std::string_view kind = "conversion";
constexpr std::string_view numbersTitle = "#SSMAS   #INTER";
constexpr std::string_view columnTitles = "   Data        UT           CU           DE      RMS  m";

// The lines before the numbers of the first object are not read but for one; both are counted from 0.
constexpr std::size_t telescopeLine = 1;
constexpr std::size_t firstObjectLine = 6;

// The two numbers of an object, which may be any texts, by the numbers of these texts.
struct ObjectNumbers
{
    std::uint32_t ssmas;
    std::uint32_t inter;
};

// What the line of an object is read into.
struct ReadObject
{
    TextIndex& texts;
    ObjectNumbers numbers;
};

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

// The line of an object, its two numbers with one blank between them. The writer falls back to QRVName where
// a track has no such number.
//
//   SSMAS number   as it is; read into the names of the track, and not into HeadText2
//   INTER number   as it is
constexpr TokenField<ReadObject, TrackVtorichka> objectFields[] = {
    {[](ReadObject& to, std::string_view text) {
         to.numbers.ssmas = static_cast<std::uint32_t>(to.texts.numberOf(text));
     },
     [](char* to, const TrackVtorichka& from) {
         return writeText(to, from.HeadText2.empty() ? from.QRVName : from.HeadText2);
     }},
    {[](ReadObject& to, std::string_view text) {
         to.numbers.inter = static_cast<std::uint32_t>(to.texts.numberOf(text));
     },
     [](char* to, const TrackVtorichka& from) {
         return writeText(to, from.HeadText3.empty() ? from.QRVName : from.HeadText3);
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
//   magnitude   4 or more   MM.m; a negative one gets the "0" too: 0-1.2
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, dateOf); },
     [](char* to, const WrittenMark& from) {
         return writeText(to, from.dates.answerTo(int{from.mark.date}, MJDToDateTEL));
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = timeToDay(text, ':'); },
     [](char* to, const WrittenMark& from) { return writeTimeTEL(to, from.mark.time); }},
    {takeNothing, [](char* to, const WrittenMark& /*from*/) { return to; }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = raToDecimal(text); },
     [](char* to, const WrittenMark& from) { return writeRA(to, from.mark.RA, 2, ':'); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = deToDecimal(text); },
     [](char* to, const WrittenMark& from) { return writeDE(to, from.mark.DE, 2, '.'); }},
    {takeNothing, [](char* to, const WrittenMark& /*from*/) { return writeText(to, "001"); }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(text); },
     [](char* to, const WrittenMark& from) { return writeFixedTwoDigits(to, from.mark.m, 1); }},
};

// The room of a mark's line.
constexpr std::size_t lineRoom = std::size(markFields) * sexagesimalRoom;

// What is kept of a report. An object without marks has no numbers.
struct KeptReport
{
    std::string telescope;
    TextIndex texts;
    TrackSequence<std::optional<ObjectNumbers>> sequence;
};

// Takes the lines of a report one after the other.
//
// There is one working track, and with each mark it is the last track of the result. Here it is the numbers
// of its object and the number of the mark that it begins with.
template <class Watch = Unwatched>
class SsmasLines
{
public:
    explicit SsmasLines(KeptReport& report, Watch lineWatch = {}) : kept(report), watch(lineWatch)
    {
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { takeLine(line); });
    }

    // After the last line. Refuses objects that repeat each other's marks without end.
    void finish() const
    {
        constexpr std::size_t mostRepeated = 1'000'000;
        if (kept.sequence.marksOfTracks() > kept.sequence.markCount() + mostRepeated) {
            throw std::length_error("SSMAS: objects that repeat each other's marks");
        }
    }

private:
    using Tokens = std::array<std::string_view, std::size(markFields)>;

    // After the first lines of the report, the number of fields alone says what a line is:
    //
    //   object    fields                     what happens
    //   any       2                          an object opens; it closes at once if the object before
    //                                        is open with marks and the line has a first field
    //   closed    any other number           nothing: the line is skipped
    //   open      7                          a mark of the object
    //   open      below 7, a first field     the object closes if it has marks, else nothing
    //   open      all others                 nothing
    void takeLine(std::string_view line)
    {
        const std::size_t number = lineNumber++;
        if (number < firstObjectLine) {
            addFrontLine(number, line);
            return;
        }
        const std::size_t count = cutParts(line, ' ', tokens);
        if (count == std::size(objectFields)) {
            openObject();
        }
        const bool wasOpen = open;
        if (open && count == tokens.size()) {
            addMark();
            watch.mark();
            return;
        }
        if (open && count < tokens.size() && !tokens[0].empty()) {
            closeObject();
        }
        tellFate(line, count, wasOpen);
    }

    // Of a line behind the front that made no mark.
    void tellFate(std::string_view line, std::size_t count, bool wasOpen)
    {
        if (count == std::size(objectFields)) {
            watch.head();
        } else if (wasOpen && !open) {
            watch.end();
        } else {
            watch.passed(line, open ? PassedReason::wordCount : PassedReason::outsideBlock);
        }
    }

    void addFrontLine(std::size_t number, std::string_view line)
    {
        if (number == telescopeLine) {
            kept.telescope = line;
        }
        watch.head();
    }

    // The working track keeps its marks. The track that the result gets stays as constructed without a mark.
    void openObject()
    {
        ReadObject read{kept.texts, {}};
        readFields<objectFields>(tokens, read);
        working = read.numbers;
        kept.sequence.addTrack(std::nullopt);
        open = true;
    }

    void addMark()
    {
        ReadMark read{days, {}};
        readFields<markFields>(tokens, read);
        kept.sequence.addMark(read.mark);
        if (!kept.sequence.lastHead()) {
            kept.sequence.lastHead() = working;
            kept.sequence.beginLastTrackAt(workingBegin);
        }
    }

    void closeObject()
    {
        if (workingBegin != kept.sequence.markCount()) {
            workingBegin = kept.sequence.markCount();
            open = false;
        }
    }

    KeptReport& kept;
    [[no_unique_address]] Watch watch;
    std::size_t lineNumber = 0;
    bool open = false;
    ObjectNumbers working{};
    std::size_t workingBegin = 0;
    DayNumbers days;
    Tokens tokens; // of the line, here so that none clears them
};

void appendLine(TextBuffer& out, std::string_view line)
{
    out += line;
    out += '\n';
}

void appendFront(TextBuffer& out, std::string_view telescope)
{
    appendLine(out, title);
    appendLine(out, telescope);
    appendLine(out, kind);
}

void appendBlockHead(TextBuffer& out, const TrackVtorichka& track, std::size_t number)
{
    appendLine(out, std::to_string(number));
    appendLine(out, "");
    appendLine(out, numbersTitle);
    const std::size_t longest =
        std::max(track.QRVName.size(), track.HeadText2.size() + track.HeadText3.size());
    char* const to = out.room(2 * longest + std::size(objectFields));
    out.endAt(writeText(writeFields<objectFields>(to, track), '\n'));
    appendLine(out, columnTitles);
}

} // namespace

struct TAVELIN_INTERNAL SsmasSource::Store
{
    std::string observatory;
    KeptReport kept{};

    bool next(TrackVtorichka& track, OldMarks old);
};

bool SsmasSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    const auto fillHead = [this](TrackVtorichka& filled, const std::optional<ObjectNumbers>& numbers) {
        if (numbers) {
            filled.originator = observatory;
            filled.telescope = kept.telescope;
            filled.QRVName = kept.texts[numbers->ssmas];
            filled.NORAD = kept.texts[numbers->ssmas];
            filled.HeadText3 = kept.texts[numbers->inter];
        }
    };
    return kept.sequence.next(track, old, fillHead);
}

SsmasSource::SsmasSource(std::string path, std::string observatory) : store(new Store{std::move(observatory)})
{
    takeFile(path, SsmasLines(store->kept), store->kept);
}

SsmasSource::SsmasSource(std::string path, std::string observatory, LineWatch& watch)
    : store(new Store{std::move(observatory)})
{
    takeFile(path, SsmasLines(store->kept, Watched(watch)), store->kept);
}

SsmasSource::SsmasSource(const std::vector<std::string>& lines, std::string observatory)
    : store(new Store{std::move(observatory)})
{
    takeList(lines, SsmasLines(store->kept));
}

SsmasSource::SsmasSource(const std::vector<std::string>& lines, std::string observatory, LineWatch& watch)
    : store(new Store{std::move(observatory)})
{
    takeList(lines, SsmasLines(store->kept, Watched(watch)));
}

SsmasSource::SsmasSource(SsmasSource&& other) noexcept = default;
SsmasSource::~SsmasSource() = default;

std::size_t SsmasSource::count() const
{
    return store->kept.sequence.count();
}

bool SsmasSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool SsmasSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct SsmasSink::State
{
    TextFile file;
    std::size_t tracks = 0;
    DateTexts dates{};
};

SsmasSink::SsmasSink(std::string path) : state(new State{TextFile(std::move(path))})
{
}

SsmasSink::SsmasSink(SsmasSink&& other) noexcept = default;
SsmasSink::~SsmasSink() = default;

void SsmasSink::add(const TrackVtorichka& track)
{
    TextBuffer& text = state->file.text();
    if (state->tracks == 0) {
        appendFront(text, track.telescope);
    }
    appendBlockHead(text, track, ++state->tracks);
    state->file.writeFull(); // there may be many tracks without marks
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        char* const line = text.room(lineRoom);
        text.endAt(writeText(writeFields<markFields>(line, WrittenMark{mark, state->dates}), '\n'));
        state->file.writeFull();
    }
}

bool SsmasSink::save()
{
    if (state->tracks > 0) {
        state->file.close();
    }
    return true;
}

std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory)
{
    return allTracks(SsmasSource(lines, observatory));
}

std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory)
{
    return allTracks(SsmasSource(path, observatory));
}

std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory,
                                        LineWatch& watch)
{
    return allTracks(SsmasSource(lines, observatory, watch));
}

std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory, LineWatch& watch)
{
    return allTracks(SsmasSource(path, observatory, watch));
}

void sSSMAS(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(SsmasSink(path), tracks);
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
