#include "formats/track_table.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_files.h"
#include "formats/track_table_columns.h"
#include "formats/track_table_lines.h"
#include "formats/track_table_names.h"
#include "formats/watched_lines.h"
#include "records/new_marks.h"
#include "records/track_stream.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// The unit "degt" is spelled so.
constexpr std::string_view satelliteColumns =
    "N:Int\tNBl:Int\tdate:Date\ttime:Time\tnoradid:Text\tRA:Float:deg\tDE:Float:degt\tDraw:Bool";

// Takes the lines of a table and tells a watch of them.
class WatchedTableLines
{
public:
    WatchedTableLines(KeptTable& kept, const WantedColumns& wanted, LineWatch& lineWatch)
        : lines(kept, wanted), watch(lineWatch)
    {
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { tell(lines.add(line)); });
    }

    void finish()
    {
        if (lines.finish()) {
            watch.settleWaiting();
        } else {
            watch.loseWaiting(PassedReason::unclosedBlock);
        }
    }

private:
    void tell(TableLine line)
    {
        switch (line) {
        case TableLine::front: watch.head(); break;
        case TableLine::mark: watch.waits(LineFate::mark); break;
        case TableLine::end:
            watch.settleWaiting();
            watch.end();
            break;
        }
    }

    TrackTableLines lines;
    Watched watch;
};

// Writes the lines of marks under one header.
class LineWriter
{
public:
    explicit LineWriter(std::string_view header) : columns(columnsToWrite(header))
    {
    }

    void append(TextBuffer& out, const TrackVtorichka& track, std::size_t index, std::string_view name,
                int number)
    {
        const MarkToWrite mark = markToWrite(track, index, name, number, dates);
        for (const TableColumn* const column : columns) {
            column->append(out, mark);
        }
        out += '\n';
    }

private:
    std::vector<const TableColumn*> columns;
    DateTexts dates;
};

std::string headLines(const std::string& header)
{
    std::string lines(tableVersion);
    lines += '\n';
    lines += header.empty() ? getHeadTrack() : header;
    lines += '\n';
    return lines;
}

} // namespace

struct TAVELIN_INTERNAL TrackTableSource::Store
{
    std::string path{};
    KeptTable kept{};
    std::size_t taken = 0;

    // The number of marks in all tracks before one.
    std::size_t marksBefore(std::size_t track) const
    {
        return track == 0 ? 0 : kept.ends[track - 1];
    }
    bool next(TrackVtorichka& track, OldMarks old);
};

bool TrackTableSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    if (taken == kept.ends.size()) {
        return false;
    }
    const std::size_t begin = marksBefore(taken);
    const std::size_t count = marksBefore(taken + 1) - begin;
    std::vector<TInterBlob> interBlobs;
    if (old == OldMarks::kept) {
        interBlobs.swap(track.InterBlobs);
    }
    resetHead(track);
    interBlobs.swap(track.InterBlobs);
    kept.heads.restore<THeadTrVtor&>(taken, track);
    track.NMarks = static_cast<int>(count);
    track.SourceFile = path;
    track.InterBlobs.resize(count);
    NewMarks newMarks(track, count, old);
    for (std::size_t i = 0; i < count; ++i) {
        kept.marks.restore(begin + i, newMarks.next(), track.InterBlobs[i]);
    }
    ++taken;
    kept.heads.forgetBefore(taken);
    kept.marks.forgetBefore(begin + count);
    return true;
}

TrackTableSource::TrackTableSource(std::string path) : store(new Store{std::move(path)})
{
    takeFile(store->path, TrackTableLines(store->kept, {}), store->kept);
}

TrackTableSource::TrackTableSource(std::string path, LineWatch& watch) : store(new Store{std::move(path)})
{
    takeFile(store->path, WatchedTableLines(store->kept, {}, watch), store->kept);
}

TrackTableSource::TrackTableSource(std::string path, std::string wantedColumns)
    : store(new Store{std::move(path)})
{
    const WantedColumns wanted(wantedColumns);
    takeFile(store->path, TrackTableLines(store->kept, wanted), store->kept);
}

TrackTableSource::TrackTableSource(std::string path, std::string wantedColumns, LineWatch& watch)
    : store(new Store{std::move(path)})
{
    const WantedColumns wanted(wantedColumns);
    takeFile(store->path, WatchedTableLines(store->kept, wanted, watch), store->kept);
}

TrackTableSource::TrackTableSource(const std::vector<std::string>& lines) : store(new Store)
{
    takeList(lines, TrackTableLines(store->kept, {}));
}

TrackTableSource::TrackTableSource(const std::vector<std::string>& lines, LineWatch& watch) : store(new Store)
{
    takeList(lines, WatchedTableLines(store->kept, {}, watch));
}

TrackTableSource::TrackTableSource(TrackTableSource&& other) noexcept = default;
TrackTableSource::~TrackTableSource() = default;

std::size_t TrackTableSource::count() const
{
    return store->kept.ends.size() - store->taken;
}

bool TrackTableSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool TrackTableSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct TrackTableSink::State
{
    std::string source;
    std::string prefix;
    std::string suffix;
    bool longName;
    PieceFile file;
    LineWriter writer;
};

TrackTableSink::TrackTableSink(std::string path, std::string source, std::string prefix, std::string suffix,
                               bool longName, bool rewrite, std::string header)
    : state(new State{std::move(source), std::move(prefix), std::move(suffix), longName,
                      PieceFile(std::move(path),
                                rewrite ? PieceFile::Old::removedAndAppendedTo : PieceFile::Old::appendedTo),
                      LineWriter(header)})
{
    state->file.text() += headLines(header);
}

TrackTableSink::TrackTableSink(TrackTableSink&& other) noexcept = default;
TrackTableSink::~TrackTableSink() = default;

void TrackTableSink::add(const TrackVtorichka& track)
{
    PieceFile& file = state->file;
    const std::string name = shownName(track, track.QRVName, state->source, state->prefix, state->suffix,
                                       track.N, state->longName);
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        state->writer.append(file.text(), track, i, name, track.N);
        file.writeFull();
    }
    file.text() += trackEnd;
    file.text() += '\n';
    file.writeFull();
}

bool TrackTableSink::save()
{
    state->file.close(); // a failed write is not reported
    return true;
}

std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines)
{
    return allTracks(TrackTableSource(lines));
}

std::vector<TrackVtorichka> lListTrack(std::string path)
{
    return allTracks(TrackTableSource(path));
}

std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines, LineWatch& watch)
{
    return allTracks(TrackTableSource(lines, watch));
}

std::vector<TrackVtorichka> lListTrack(std::string path, LineWatch& watch)
{
    return allTracks(TrackTableSource(path, watch));
}

void sListTrack(std::string path, std::string source, std::string prefix,
                const std::vector<TrackVtorichka>& tracks, std::string suffix, bool longName, bool rewrite,
                std::string header)
{
    writeAll(TrackTableSink(path, source, prefix, suffix, longName, rewrite, header), tracks);
}

void sTrack(std::string path, std::string source, std::string prefix, std::string suffix, int number,
            bool longName, const TrackVtorichka& track, std::string givenName, std::string header,
            bool /*flag*/)
{
    TextBuffer text;
    const std::string name = shownName(track, givenName, source, prefix, suffix, number, longName);
    LineWriter writer(header);
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        writer.append(text, track, i, name, number);
    }
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
    Write(path, std::vector<std::string>{std::string(tableVersion), std::string(satelliteColumns)});
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
