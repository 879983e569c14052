#include "formats/telegram.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view blockEnd = "END";
constexpr std::size_t usualLineLength = 44;

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

// The field of a magnitude: three characters that are no part of it, then the tenths. The reader ignores
// what follows the sixth character.
constexpr std::string_view magnitudePrefix = "001";
constexpr Field tenths{4, 3};

// A negative magnitude gets the "0" too: 0010-12.
void appendMagnitude(TextBuffer& out, double m)
{
    out += magnitudePrefix;
    if (m < 10.0) {
        out += '0';
    }
    const std::size_t begin = out.size();
    appendFixed(out, m, 1);
    erasePoint(out, begin);
}

// The head line of a block, its fields with one blank between them.
//
//   originator   as it is
//   telescope    as it is
//   object       as it is
constexpr TokenField<THeadTrVtor, TrackVtorichka> headFields[] = {
    {[](THeadTrVtor& to, std::string_view text) { to.originator = text; },
     [](TextBuffer& out, const TrackVtorichka& from) { out += from.originator; }},
    {[](THeadTrVtor& to, std::string_view text) { to.telescope = text; },
     [](TextBuffer& out, const TrackVtorichka& from) { out += from.telescope; }},
    {[](THeadTrVtor& to, std::string_view text) { to.NORAD = to.QRVName = text; },
     [](TextBuffer& out, const TrackVtorichka& from) { out += from.QRVName; }},
};

// A mark's line, its fields with one blank between them.
//
//   date        6           DDMMYY
//   time        8           HHMMSSss, rounded
//   RA          8           HHMMSSss
//   DE          8, 9        sign (of a negative one only) DDMMSSss
//   magnitude   6 or more   001 and tenths of a magnitude, MMm
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, packedDate); },
     [](TextBuffer& out, const WrittenMark& from) {
         out += from.dates.answerTo(int{from.mark.date}, MJDToDateMEA);
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = packedTime(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendTimeMEA(out, from.mark.time, 2, true); }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = packedRA(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedRA(out, from.mark.RA, 2); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = packedDE(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedDE(out, from.mark.DE, 2); }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(cut(text, tenths)) / 10.0; },
     [](TextBuffer& out, const WrittenMark& from) { appendMagnitude(out, from.mark.m); }},
};

// Takes the lines of a file one after the other.
class TelegramLines
{
public:
    void reserve(std::size_t lines)
    {
        tracks.reserve(lines);
    }

    // The number of fields alone says what a line is. A blank at its end is one more, empty field.
    void add(std::string_view line)
    {
        Tokens tokens;
        switch (cutParts(line, ' ', tokens)) {
        case std::size(headFields): open(tokens); break;
        case std::size(markFields): addMark(tokens); break;
        case 1:
            if (!tokens[0].empty()) {
                close();
            }
            break;
        default: break;
        }
    }

    std::vector<TrackVtorichka> takeTracks()
    {
        return tracks.takeTracks();
    }

private:
    using Tokens = std::array<std::string_view, std::size(markFields)>;

    // A second head line overwrites the head and keeps the marks.
    void open(const Tokens& tokens)
    {
        readFields<headFields>(tokens, head);
        inBlock = true;
    }

    void addMark(const Tokens& tokens)
    {
        if (inBlock) {
            ReadMark read{days, {}};
            readFields<markFields>(tokens, read);
            block.push_back(read.mark);
        }
    }

    void close()
    {
        static_cast<THeadTrVtor&>(tracks.addTrack()) = std::exchange(head, {});
        for (const MeasuredMark& mark : block) {
            tracks.addMark(mark);
        }
        block.clear();
        inBlock = false;
    }

    bool inBlock = false;
    THeadTrVtor head;
    std::vector<MeasuredMark> block;
    TrackSequence tracks;
    DayNumbers days;
};

} // namespace

std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines)
{
    TelegramLines reader;
    takeLines(lines, reader);
    return reader.takeTracks();
}

std::vector<TrackVtorichka> lTelegramma(std::string path)
{
    TelegramLines reader;
    readLines(path, reader); // a missing file has no lines
    return reader.takeTracks();
}

void sTelegramma(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    TextBuffer text;
    text.reserve((countMarks(tracks) + 2 * tracks.size()) * usualLineLength);
    DateTexts dates;
    for (const TrackVtorichka& track : tracks) {
        appendFields<headFields>(text, track);
        text += '\n';
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            appendFields<markFields>(text, WrittenMark{track.Marks[i], dates});
            text += '\n';
        }
        text += blockEnd;
        text += "\n\n";
    }
    writeText(path, text);
}

} // namespace tavelinUtils
