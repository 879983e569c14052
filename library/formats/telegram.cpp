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
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view blockEnd = "END";
constexpr std::size_t usualLineLength = 44;

// The words of a head line and of a mark line, in their order.
enum HeadWord : std::size_t
{
    originator,
    telescope,
    objectName,
    headWords
};
enum MarkWord : std::size_t
{
    date,
    time,
    rightAscension,
    declination,
    magnitude,
    markWords
};

// The tenths of a magnitude in its field; the three characters before it are not read.
constexpr LineColumn tenths{3, 3};

// Takes the lines of a file one after the other.
class TelegramLines
{
public:
    void reserve(std::size_t lines)
    {
        tracks.reserve(lines);
    }

    void add(std::string_view line)
    {
        std::array<std::string_view, markWords> words;
        switch (cutParts(line, ' ', words)) {
        case headWords: open(words); break;
        case 1:
            if (!words[0].empty()) {
                close();
            }
            break;
        case markWords:
            if (inBlock) {
                block.push_back(markOf(words));
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
    using Words = std::array<std::string_view, markWords>;

    // A second head line overwrites the head and keeps the marks.
    void open(const Words& words)
    {
        head.originator = words[originator];
        head.telescope = words[telescope];
        head.QRVName = words[objectName];
        head.NORAD = words[objectName];
        inBlock = true;
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

    MeasuredMark markOf(const Words& words)
    {
        MeasuredMark mark;
        mark.date = dates.answerTo(words[date], packedDate);
        mark.time = packedTime(words[time]);
        mark.RA = packedRA(words[rightAscension]);
        mark.DE = packedDE(words[declination]);
        mark.m = toDouble(cutColumn(words[magnitude], tenths)) / 10.0;
        return mark;
    }

    bool inBlock = false;
    THeadTrVtor head;
    std::vector<MeasuredMark> block;
    TrackSequence tracks;
    DayNumbers dates;
};

void appendHead(std::string& out, const TrackVtorichka& track)
{
    out += track.originator;
    out += ' ';
    out += track.telescope;
    out += ' ';
    out += track.QRVName;
    out += '\n';
}

// A negative magnitude gets the "0" too: 0010-12.
void appendMagnitude(std::string& out, double m)
{
    out += "001";
    if (m < 10.0) {
        out += '0';
    }
    const std::size_t begin = out.size();
    appendFixed(out, m, 1);
    erasePoint(out, begin);
}

void appendMark(std::string& out, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    out += dates.answerTo(int{mark.date}, MJDToDateMEA);
    out += ' ';
    appendTimeMEA(out, mark.time, 2, true);
    out += ' ';
    appendPackedRA(out, mark.RA, 2);
    out += ' ';
    appendPackedDE(out, mark.DE, 2);
    out += ' ';
    appendMagnitude(out, mark.m);
    out += '\n';
}

} // namespace

std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines)
{
    TelegramLines reading;
    for (const std::string& line : lines) {
        reading.add(line);
    }
    return reading.takeTracks();
}

std::vector<TrackVtorichka> lTelegramma(std::string path)
{
    TelegramLines reading;
    readLines(path, reading); // a missing file has no lines
    return reading.takeTracks();
}

void sTelegramma(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    std::string text;
    text.reserve((countMarks(tracks) + 2 * tracks.size()) * usualLineLength);
    DateTexts dates;
    for (const TrackVtorichka& track : tracks) {
        appendHead(text, track);
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            appendMark(text, track.Marks[i], dates);
        }
        text += blockEnd;
        text += "\n\n";
    }
    writeText(path, text);
}

} // namespace tavelinUtils
