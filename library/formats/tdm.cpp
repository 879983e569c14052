#include "formats/tdm.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_file.h"
#include "formats/track_gathering.h"
#include "formats/watched_lines.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view separator = " = ";
constexpr std::string_view separatorAtEnd = " =";

// A line is read as if a blank followed it, so that a separator at its end may lack its own.

// Whether the text before the first separator of a line is the key.
inline bool hasKey(std::string_view line, std::string_view key)
{
    if (!line.starts_with(key)) {
        return false;
    }
    const std::string_view rest = line.substr(key.size());
    return rest.starts_with(separator) || rest.empty() || rest == separatorAtEnd;
}

// The text between a line's key and the next separator, or the end of the line.
std::string_view valueOf(std::string_view line, std::string_view key)
{
    std::string_view rest = line.substr(key.size());
    rest.remove_prefix(rest.starts_with(separator) ? separator.size() : rest.size());
    const std::size_t end = rest.find(separator);
    if (end != std::string_view::npos) {
        return rest.substr(0, end);
    }
    return rest.substr(0, rest.size() - (rest.ends_with(separatorAtEnd) ? separatorAtEnd.size() : 0));
}

// Takes the last item of a data line, of those between its blanks, from its end.
std::string_view takeLast(std::string_view& line)
{
    const std::size_t blank = line.rfind(' ');
    const std::size_t begin = blank == std::string_view::npos ? 0 : blank + 1;
    const std::string_view item = line.substr(begin);
    line = line.substr(0, begin == 0 ? 0 : blank);
    return item;
}

// The number at the end of a data line, which is taken from it; a blank after it is no further item.
double takeNumber(std::string_view& line)
{
    if (line.ends_with(' ')) {
        line.remove_suffix(1);
    }
    return toDouble(takeLast(line));
}

// What is kept of a segment's head: its texts, by their numbers.
struct SegmentHead
{
    std::uint32_t originator;
    std::uint32_t telescope;
    std::uint32_t object;
};

// The lines of a head, and where their values go.
struct HeadLine
{
    std::string_view key;
    std::uint32_t SegmentHead::*text;
};
constexpr HeadLine headLines[] = {
    {"ORIGINATOR", &SegmentHead::originator},
    {"PARTICIPANT_1", &SegmentHead::telescope},
    {"PARTICIPANT_2", &SegmentHead::object},
};

// What is kept of a message.
struct KeptMessage
{
    TextIndex texts;
    TrackSequence<SegmentHead> segments;
};

// Takes the lines of a message one after the other.
template <class Watch = Unwatched>
class TdmLines
{
public:
    explicit TdmLines(KeptMessage& message, Watch lineWatch = {}) : kept(message), watch(lineWatch)
    {
        const std::uint32_t noText = numberOf("");
        head = {noText, noText, noText};
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { takeLine(line); });
    }

    // After the last line.
    void finish()
    {
        watch.loseParts(PassedReason::withoutMagnitude);
    }

private:
    void takeLine(std::string_view line)
    {
        if (kept.segments.empty() || !takeData(line)) {
            takeHead(line) ? watch.head() : watch.passed(line, reasonOf(line));
        }
    }

    // Why a line that is neither data of a segment nor of its head is passed over.
    static PassedReason reasonOf(std::string_view line)
    {
        const bool isData = hasKey(line, "ANGLE_1") || hasKey(line, "ANGLE_2") || hasKey(line, "MAG");
        return isData ? PassedReason::outsideBlock : PassedReason::unknownKey;
    }

    // The values stay in the one mark of the whole file until another line sets them.
    bool takeData(std::string_view line)
    {
        if (hasKey(line, "ANGLE_1")) {
            mark.RA = takeNumber(line);
            readEpoch(takeLast(line), days, mark.date, mark.time);
            watch.part(0);
        } else if (hasKey(line, "ANGLE_2")) {
            mark.DE = takeNumber(line);
            watch.part(1);
        } else if (hasKey(line, "MAG")) {
            mark.m = takeNumber(line);
            kept.segments.addMark(mark);
            watch.markOfParts();
        } else {
            return false;
        }
        return true;
    }

    // The last track carries the values read most recently; a segment without a value inherits it.
    // False where the line is none of a head.
    bool takeHead(std::string_view line)
    {
        if (hasKey(line, "META_START")) {
            kept.segments.addTrack(head);
            return true;
        }
        bool taken = false;
        for (const HeadLine& row : headLines) {
            if (hasKey(line, row.key)) {
                taken = true;
                head.*row.text = numberOf(valueOf(line, row.key));
                if (!kept.segments.empty()) {
                    kept.segments.lastHead() = head;
                }
            }
        }
        return taken;
    }

    std::uint32_t numberOf(std::string_view text)
    {
        return static_cast<std::uint32_t>(kept.texts.numberOf(text));
    }

    KeptMessage& kept;
    [[no_unique_address]] Watch watch;
    SegmentHead head{};
    MeasuredMark mark;
    DayNumbers days;
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

void appendHeader(TextBuffer& out, std::string_view originator)
{
    appendLine(out, "CCSDS_TDM_VERS", "1.0");
    appendLine(out, "CREATION_DATE", zeroCreationDate());
    appendLine(out, "ORIGINATOR", originator);
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

char* writeDataLine(char* to, std::string_view key, std::string_view epoch, double value, int decimals)
{
    to = writeText(writeText(to, key), separator);
    to = writeText(writeText(to, epoch), ' ');
    return writeCell(to, value, decimals, '\n');
}

void appendMark(TextBuffer& out, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    constexpr std::size_t lines = 3;
    char epoch[sexagesimalRoom];
    const char* const end = writeEpoch(epoch, dates, mark.date, mark.time);
    const std::string_view text(epoch, static_cast<std::size_t>(end - epoch));
    char* to = out.room(lines * 2 * sexagesimalRoom);
    to = writeDataLine(to, "ANGLE_1", text, mark.RA, 7);
    to = writeDataLine(to, "ANGLE_2", text, mark.DE, 7);
    out.endAt(writeDataLine(to, "MAG", text, mark.m, 4));
}

} // namespace

std::string zeroCreationDate()
{
    return NowToDateTimeWin(false, "T");
}

struct TAVELIN_INTERNAL TdmSource::Store
{
    KeptMessage kept{};

    bool next(TrackVtorichka& track, OldMarks old);
};

bool TdmSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    return kept.segments.next(track, old, [this](TrackVtorichka& filled, const SegmentHead& head) {
        filled.originator = kept.texts[head.originator];
        filled.telescope = kept.texts[head.telescope];
        filled.QRVName = kept.texts[head.object];
    });
}

TdmSource::TdmSource(std::string path) : store(new Store)
{
    takeFile(path, TdmLines(store->kept), store->kept);
}

TdmSource::TdmSource(std::string path, LineWatch& watch) : store(new Store)
{
    takeFile(path, TdmLines(store->kept, Watched(watch)), store->kept);
}

TdmSource::TdmSource(TdmSource&& other) noexcept = default;
TdmSource::~TdmSource() = default;

std::size_t TdmSource::count() const
{
    return store->kept.segments.count();
}

bool TdmSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool TdmSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct TdmSink::State
{
    void add(const TrackVtorichka& track)
    {
        if (!headed) {
            headed = true;
            appendHeader(file.text(), track.originator);
        }
        if (!track.Marks.empty()) {
            appendMetadata(file.text(), track, dates);
            addMarks(track.Marks);
        }
    }

    void addMarks(const std::vector<TRecLabelPervichka_File>& marks)
    {
        file.text() += "DATA_START\n";
        for (const TRecLabelPervichka_File& mark : marks) {
            appendMark(file.text(), mark, dates);
            file.writeFull();
        }
        file.text() += "DATA_STOP\n";
    }

    TextFile file;
    bool headed = false;
    DateTexts dates{};
};

TdmSink::TdmSink(std::string path) : state(new State{TextFile(std::move(path))})
{
}

TdmSink::TdmSink(TdmSink&& other) noexcept = default;
TdmSink::~TdmSink() = default;

void TdmSink::add(const TrackVtorichka& track)
{
    state->add(track);
}

bool TdmSink::save()
{
    if (state->headed) {
        state->file.close();
    }
    return true;
}

std::vector<TrackVtorichka> lTDM(std::string path)
{
    return allTracks(TdmSource(path));
}

std::vector<TrackVtorichka> lTDM(std::string path, LineWatch& watch)
{
    return allTracks(TdmSource(path, watch));
}

void sTDM(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(TdmSink(path), tracks);
}

} // namespace tavelinUtils
