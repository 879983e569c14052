#include "formats/track_table.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_files.h"
#include "formats/track_table_columns.h"
#include "formats/track_table_names.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view version = "v2";
constexpr std::string_view trackEnd = "---";
// The unit "degt" is spelled so.
constexpr std::string_view satelliteColumns =
    "N:Int\tNBl:Int\tdate:Date\ttime:Time\tnoradid:Text\tRA:Float:deg\tDE:Float:degt\tDraw:Bool";

using LineViews = std::span<const std::string_view>;

// Reads the tracks under one header.
class TrackReader
{
public:
    explicit TrackReader(std::string_view header) : columns(columnsToRead(header))
    {
        for (const ColumnToRead& column : columns.ofHead) {
            lastHeadField = std::max(lastHeadField, column.field);
        }
    }

    // Reads the lines of a track, one for each mark, into a new track.
    void read(LineViews lines, TrackVtorichka& track)
    {
        track.Marks.reserve(lines.size());
        track.InterBlobs.resize(lines.size());
        for (const std::string_view line : lines) {
            track.Marks.emplace_back();
            split(line);
            readFields(columns.ofMarks, track, track.Marks.size() - 1);
        }
        track.NMarks = static_cast<int>(lines.size());
        if (!lines.empty()) {
            readHead(lines, track);
        }
    }

private:
    void split(std::string_view line)
    {
        fieldCount = splitFields(line, fields);
    }

    // Takes the last line as it was split: it wins, and so it is enough where it has all fields of the head.
    void readHead(LineViews lines, TrackVtorichka& track)
    {
        if (fieldCount > lastHeadField) {
            readFields(columns.ofHead, track, lines.size() - 1);
            return;
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            split(lines[i]);
            readFields(columns.ofHead, track, i);
        }
    }

    // Reads the fields that the line has.
    void readFields(const std::vector<ColumnToRead>& wanted, TrackVtorichka& track, std::size_t index)
    {
        const MarkToFill mark{track, track.Marks[index], track.InterBlobs[index], days};
        for (const ColumnToRead& column : wanted) {
            if (column.field < fieldCount) {
                column.read(mark, fields[column.field]);
            }
        }
    }

    ColumnsToRead columns;
    std::size_t lastHeadField = 0;
    std::vector<std::string_view> fields; // of the line that was split last, at the front of the list
    std::size_t fieldCount = 0;
    DayNumbers days;
};

std::vector<TrackVtorichka> tracksUnder(std::string_view header, LineViews lines)
{
    std::vector<TrackVtorichka> tracks;
    const auto ends = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), trackEnd));
    tracks.reserve(std::max<std::size_t>(ends, 1));
    TrackReader reader(header);
    auto first = lines.begin();
    for (std::size_t i = 0; i < ends; ++i) {
        const auto end = std::find(first, lines.end(), trackEnd);
        reader.read({first, end}, tracks.emplace_back());
        first = end + 1;
    }
    // Lines after the last end belong to no track, unless the table has none.
    if (ends == 0 && !lines.empty()) {
        reader.read(lines, tracks.emplace_back());
    }
    return tracks;
}

std::vector<TrackVtorichka> tracksOf(LineViews lines)
{
    if (!lines.empty() && lines.front() == version) {
        lines = lines.subspan(1);
    }
    return lines.empty() ? std::vector<TrackVtorichka>{} : tracksUnder(lines.front(), lines.subspan(1));
}

// Writes the lines of tracks under one header.
class TrackWriter
{
public:
    explicit TrackWriter(std::string_view header) : columns(columnsToWrite(header))
    {
    }

    void append(TextBuffer& out, const TrackVtorichka& track, std::string_view name, int number)
    {
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            const MarkToWrite mark = markToWrite(track, i, name, number, dates);
            for (const TableColumn* const column : columns) {
                column->append(out, mark);
            }
            out += '\n';
        }
    }

private:
    std::vector<const TableColumn*> columns;
    DateTexts dates;
};

std::string headLines(const std::string& header)
{
    std::string lines(version);
    lines += '\n';
    lines += header.empty() ? getHeadTrack() : header;
    lines += '\n';
    return lines;
}

} // namespace

std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines)
{
    return tracksOf(std::vector<std::string_view>(lines.begin(), lines.end()));
}

std::vector<TrackVtorichka> lListTrack(std::string path)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return {};
    }
    std::vector<std::string_view> lines;
    forEachLine(file.view(), [&lines](std::string_view line) { lines.push_back(line); });
    std::vector<TrackVtorichka> tracks = tracksOf(lines);
    for (TrackVtorichka& track : tracks) {
        track.SourceFile = path;
    }
    return tracks;
}

void sListTrack(std::string path, std::string source, std::string prefix,
                const std::vector<TrackVtorichka>& tracks, std::string suffix, bool longName, bool rewrite,
                std::string header)
{
    TextBuffer text(headLines(header));
    TrackWriter writer(header);
    for (const TrackVtorichka& track : tracks) {
        const std::string name = shownName(track, track.QRVName, source, prefix, suffix, track.N, longName);
        writer.append(text, track, name, track.N);
        text += trackEnd;
        text += '\n';
    }
    (rewrite ? rewriteText : appendText)(path, text);
}

void sTrack(std::string path, std::string source, std::string prefix, std::string suffix, int number,
            bool longName, const TrackVtorichka& track, std::string givenName, std::string header,
            bool /*flag*/)
{
    TextBuffer text;
    const std::string name = shownName(track, givenName, source, prefix, suffix, number, longName);
    TrackWriter(header).append(text, track, name, number);
    if (!text.empty()) {
        appendText(path, text); // a track without marks opens nothing
    }
}

void sHeadTrack(std::string path, bool flag, std::string header)
{
    if (flag) {
        appendText(path, headLines(header));
    }
}

void sHeadSatTrack(std::string path)
{
    Write(path, std::vector<std::string>{std::string(version), std::string(satelliteColumns)});
}

std::string getHeadTrack()
{
    return standardHeader();
}

std::string GetDataTrack(THeadTrack column, const TrackVtorichka& track, int index)
{
    TextBuffer text;
    DateTexts dates;
    const std::size_t mark = index < 0 ? track.Marks.size() : static_cast<std::size_t>(index);
    columnOfTrack(column.Name).append(text, markToWrite(track, mark, track.QRVName, track.N, dates));
    return text.str();
}

TCasts StrToCast(std::string text)
{
    const std::array<std::string_view, 3> parts = threeParts(text, ';');
    return {.RA = toDouble(parts[1]), .DE = toDouble(parts[2]), .JD = toDouble(parts[0])};
}

} // namespace tavelinUtils
