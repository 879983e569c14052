#include "formats/tdm.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_files.h"
#include "formats/track_gathering.h"
#include "text/date_text.h"

#include <array>
#include <cstddef>

namespace tavelinUtils {
namespace {

constexpr std::string_view separator = " = ";
constexpr std::size_t segmentHeadLength = 320;
constexpr std::size_t linesOfAMarkLength = 160;

// Takes the text before the next separator, and the separator, from the front of a line. The line is read as
// if a blank followed it, so that " =" at its end is a separator too; without one the rest is the field.
std::string_view cutField(std::string_view& text)
{
    std::size_t end = text.find(separator);
    if (end == std::string_view::npos) {
        const std::string_view field = text.substr(0, text.size() - (text.ends_with(" =") ? 2 : 0));
        text = {};
        return field;
    }
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end + separator.size());
    return field;
}

// The last two fields of a data line that is cut at each blank; a blank at its end is no further field.
struct DataFields
{
    std::string_view epoch;
    std::string_view value;
};

DataFields dataFields(std::string_view line)
{
    if (line.ends_with(' ')) {
        line.remove_suffix(1);
    }
    const std::size_t beforeValue = line.rfind(' ');
    if (beforeValue == std::string_view::npos) {
        return {{}, line};
    }
    const std::string_view value = line.substr(beforeValue + 1);
    line = line.substr(0, beforeValue);
    const std::size_t beforeEpoch = line.rfind(' ');
    return {beforeEpoch == std::string_view::npos ? line : line.substr(beforeEpoch + 1), value};
}

// Takes the lines of a message one after the other.
class TdmLines
{
public:
    void reserve(std::size_t lines)
    {
        constexpr std::size_t linesOfAMark = 3;
        tracks.reserve(lines / linesOfAMark + 1);
    }

    void add(std::string_view line)
    {
        if (line.empty()) {
            return;
        }
        std::string_view rest = line;
        const std::string_view key = cutField(rest);
        if (key == "ORIGINATOR") {
            originator = cutField(rest);
        } else if (key == "PARTICIPANT_1") {
            telescope = cutField(rest);
        } else if (key == "PARTICIPANT_2") {
            object = cutField(rest);
        } else if (key == "META_START") {
            tracks.addTrack();
        } else {
            addData(key, line);
            return;
        }
        nameLastTrack();
    }

    std::vector<TrackVtorichka> takeTracks()
    {
        return tracks.takeTracks();
    }

private:
    // The last track carries the values read most recently; a segment without a value inherits it.
    void nameLastTrack()
    {
        if (!tracks.empty()) {
            TrackVtorichka& track = tracks.lastTrack();
            track.originator = originator;
            track.telescope = telescope;
            track.QRVName = object;
        }
    }

    // The values stay in the one mark of the whole file until another line sets them.
    void addData(std::string_view key, std::string_view line)
    {
        if (tracks.empty()) {
            return;
        }
        if (key == "ANGLE_1") {
            const DataFields fields = dataFields(line);
            mark.RA = toDouble(fields.value);
            readEpoch(fields.epoch, days, mark.date, mark.time);
        } else if (key == "ANGLE_2") {
            mark.DE = toDouble(dataFields(line).value);
        } else if (key == "MAG") {
            mark.m = toDouble(dataFields(line).value);
            tracks.addMark(mark);
        }
    }

    std::string originator;
    std::string telescope;
    std::string object;
    MeasuredMark mark;
    DayNumbers days;
    TrackSequence tracks;
};

void appendLine(TextBuffer& out, std::string_view key, std::string_view value)
{
    out += key;
    out += separator;
    out += value;
    out += '\n';
}

void appendEpochLine(TextBuffer& out, std::string_view key, const TRecLabelPervichka_File& mark,
                     DateTexts& dates)
{
    out += key;
    out += separator;
    appendEpoch(out, dates, mark.date, mark.time);
    out += '\n';
}

void appendMetadata(TextBuffer& out, const TrackVtorichka& track, DateTexts& dates)
{
    out += "META_START\n";
    appendLine(out, "TIME_SYSTEM", "UTC");
    appendEpochLine(out, "START_TIME", track.Marks.front(), dates);
    appendEpochLine(out, "STOP_TIME", track.Marks.back(), dates);
    appendLine(out, "PARTICIPANT_1", track.telescope);
    appendLine(out, "PARTICIPANT_2", track.QRVName);
    appendLine(out, "MODE", "SEQUENTIAL");
    appendLine(out, "PATH", "2,1");
    appendLine(out, "ANGLE_TYPE", "RADEC");
    appendLine(out, "REFERENCE_FRAME", track.REFERENCE_FRAME);
    out += "META_STOP\n";
}

void appendDataLine(TextBuffer& out, std::string_view key, std::string_view epoch, double value, int decimals)
{
    out += key;
    out += separator;
    out += epoch;
    out += ' ';
    appendCell(out, value, decimals, '\n');
}

void appendData(TextBuffer& out, const TrackVtorichka& track, DateTexts& dates)
{
    out += "DATA_START\n";
    TextBuffer epoch;
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        fetchAhead(track.Marks, i);
        const TRecLabelPervichka_File& mark = track.Marks[i];
        epoch.clear();
        appendEpoch(epoch, dates, mark.date, mark.time);
        appendDataLine(out, "ANGLE_1", epoch, mark.RA, 7);
        appendDataLine(out, "ANGLE_2", epoch, mark.DE, 7);
        appendDataLine(out, "MAG", epoch, mark.m, 4);
    }
    out += "DATA_STOP\n";
}

} // namespace

std::string zeroCreationDate()
{
    return NowToDateTimeWin(false, "T");
}

std::vector<TrackVtorichka> lTDM(std::string path)
{
    TdmLines reader;
    readLines(path, reader); // a missing file has no lines
    return reader.takeTracks();
}

void sTDM(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    if (tracks.empty()) {
        return;
    }
    TextBuffer text;
    text.reserve(countMarks(tracks) * linesOfAMarkLength + tracks.size() * segmentHeadLength +
                 segmentHeadLength);
    appendLine(text, "CCSDS_TDM_VERS", "1.0");
    appendLine(text, "CREATION_DATE", zeroCreationDate());
    appendLine(text, "ORIGINATOR", tracks.front().originator);
    DateTexts dates;
    for (const TrackVtorichka& track : tracks) {
        if (!track.Marks.empty()) {
            appendMetadata(text, track, dates);
            appendData(text, track, dates);
        }
    }
    writeText(path, text);
}

} // namespace tavelinUtils
