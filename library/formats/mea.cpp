#include "formats/mea.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_file.h"
#include "files/text_reading.h"
#include "formats/track_gathering.h"
#include "formats/watched_lines.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view siteEpoch = " 2000.0 UTC";
constexpr std::string_view ephemerisColumns = "\tMJD\tRAmea\tDEmea\tRAtle\tDEtle\tresRA\tresDE";
constexpr std::size_t nameWidth = 7;

// What a mark's line is read into.
struct ReadMark
{
    DayNumbers& days;
    std::string_view object;
    MeasuredMark mark;
};

// What a mark's line is written from.
struct WrittenMark
{
    const TrackVtorichka& track;
    const TRecLabelPervichka_File& mark;
    DateTexts& dates;
    bool plainMagnitude; // as printf gives it: the form of the lines with an ephemeris
};

// Two digits before the point; the sign comes before the padding: -01.20.
char* writeMagnitude(char* to, double m)
{
    if (m < 0.0) {
        *to++ = '-';
    }
    if (std::abs(m) < 10.0) {
        *to++ = '0';
    }
    return writeFixed(to, std::abs(m), 2);
}

// A mark's line. The writer puts one blank between two fields, the reader takes any number of them.
//
//   name        7 or more   the object; padded on its right, and a longer name stays whole
//   date        6           DDMMYY
//   time        10          HHMMSSsss, cut and not rounded, and a 0: times have one decimal less than angles
//   RA          10          HHMMSSssss
//   DE          10, 11      sign (of a negative one only) DDMMSSssss
//   number      3           001; other programs write other numbers here, and nothing uses them
//   magnitude   5 or more   sign (of a negative one only) MM.mm
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.object = text; },
     [](char* to, const WrittenMark& from) { return writePaddedRight(to, from.track.QRVName, nameWidth); }},
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, packedDate); },
     [](char* to, const WrittenMark& from) {
         return writeText(to, from.dates.answerTo(int{from.mark.date}, MJDToDateMEA));
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = packedTime(text); },
     [](char* to, const WrittenMark& from) {
         return writeText(writeTimeMEA(to, from.mark.time, 3, false), '0');
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = packedRA(text); },
     [](char* to, const WrittenMark& from) { return writePackedRA(to, from.mark.RA, 4); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = packedDE(text); },
     [](char* to, const WrittenMark& from) { return writePackedDE(to, from.mark.DE, 4); }},
    {takeNothing, [](char* to, const WrittenMark& /*from*/) { return writeText(to, "001"); }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(text); },
     [](char* to, const WrittenMark& from) {
         return from.plainMagnitude ? writeFixed(to, from.mark.m, 2) : writeMagnitude(to, from.mark.m);
     }},
};

// The room of a line besides its name.
constexpr std::size_t lineRoom = std::size(markFields) * sexagesimalRoom;

// What is kept of a file.
struct KeptMarks
{
    std::string telescope;
    TrackGathering<MeasuredMark> gathering;
};

// Takes the lines of a file one after the other.
template <class Watch = Unwatched>
class MeaLines
{
public:
    explicit MeaLines(KeptMarks& marks, Watch lineWatch = {}) : kept(marks), watch(lineWatch)
    {
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { takeLine(line); });
    }

private:
    void takeLine(std::string_view line)
    {
        if (!siteSeen) {
            siteSeen = true;
            kept.telescope = line.substr(0, line.find(' '));
            watch.head();
        } else if (cutRuns(line, ' ', tokens)) {
            ReadMark read{days, {}, {}};
            readFields<markFields>(tokens, read);
            kept.gathering.add(read.object, read.mark);
            watch.mark();
        } else {
            watch.passed(line, PassedReason::wordCount);
        }
    }

    KeptMarks& kept;
    [[no_unique_address]] Watch watch;
    bool siteSeen = false;
    DayNumbers days;
    std::array<std::string_view, std::size(markFields)> tokens; // of the line, here so that none clears them
};

// Written only where it is another one: threads that find it set may read side by side.
void setNumericLocale()
{
    const std::string_view present = std::setlocale(LC_NUMERIC, nullptr);
    if (present != "C") {
        std::setlocale(LC_NUMERIC, "C");
    }
}

// Reads a file; a missing one has no lines.
template <class... Watch>
void readFile(const std::string& path, KeptMarks& kept, Watch... watch)
{
    const OpenFile file = openFile(path, "rb");
    if (!file) {
        return;
    }
    setNumericLocale(); // also for a folder, which opens and has no lines
    MeaLines reader(kept, watch...);
    if (!readTextLines(file.get(), path, reader)) {
        kept = {};
    }
}

void appendMarkLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    char* const to = out.room(track.QRVName.size() + lineRoom);
    const WrittenMark mark{track, track.Marks[index], dates, false};
    out.endAt(writeText(writeFields<markFields>(to, mark), '\n'));
}

void appendComparedLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    constexpr double arcseconds = 3600.0;
    const TRecLabelPervichka_File& mark = track.Marks[index];
    const TInterBlob ephemeris = index < track.InterBlobs.size() ? track.InterBlobs[index] : TInterBlob{};
    char* const to = out.room(track.QRVName.size() + lineRoom);
    out.endAt(writeFields<markFields>(to, WrittenMark{track, mark, dates, true}));
    for (const double value :
         {mark.date + mark.time, double{mark.RA}, double{mark.DE}, ephemeris.Value2, ephemeris.Value3,
          (mark.RA - ephemeris.Value2) * arcseconds, (mark.DE - ephemeris.Value3) * arcseconds})
    {
        out += '\t';
        appendFixed(out, value, 7);
    }
    out += '\n';
}

// A file of marks, whose site line is that of the first track.
class MeaFile
{
public:
    MeaFile(std::string path, std::string_view columnTitles) : file(std::move(path)), columns(columnTitles)
    {
    }

    template <class AppendLine>
    void add(const TrackVtorichka& track, AppendLine appendLine)
    {
        if (!headed) {
            headed = true;
            appendSite(track.telescope);
        }
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            appendLine(file.text(), track, index, dates);
            file.writeFull();
        }
    }

    void save()
    {
        if (headed) {
            file.close();
        }
    }

private:
    void appendSite(std::string_view telescope)
    {
        file.text() += telescope;
        file.text() += siteEpoch;
        file.text() += columns;
        file.text() += '\n';
    }

    TextFile file;
    std::string_view columns;
    bool headed = false;
    DateTexts dates;
};

} // namespace

struct TAVELIN_INTERNAL MeaSource::Store
{
    std::string originator;
    KeptMarks kept{};

    bool next(TrackVtorichka& track, OldMarks old);
};

bool MeaSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    return kept.gathering.next(
        track, old,
        [this](TrackVtorichka& filled, std::string_view object) {
            filled.telescope = kept.telescope;
            filled.originator = originator;
            filled.QRVName = object;
            filled.NORAD = object;
        },
        setMeasured);
}

MeaSource::MeaSource(std::string path, std::string originator) : store(new Store{std::move(originator)})
{
    readFile(path, store->kept);
}

MeaSource::MeaSource(std::string path, std::string originator, LineWatch& watch)
    : store(new Store{std::move(originator)})
{
    readFile(path, store->kept, Watched(watch));
}

MeaSource::MeaSource(const std::vector<std::string>& lines, std::string originator)
    : store(new Store{std::move(originator)})
{
    MeaLines reader(store->kept);
    takeLines(lines, reader);
}

MeaSource::MeaSource(const std::vector<std::string>& lines, std::string originator, LineWatch& watch)
    : store(new Store{std::move(originator)})
{
    MeaLines reader(store->kept, Watched(watch));
    takeLines(lines, reader);
}

MeaSource::MeaSource(MeaSource&& other) noexcept = default;
MeaSource::~MeaSource() = default;

std::size_t MeaSource::count() const
{
    return store->kept.gathering.count();
}

bool MeaSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool MeaSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct MeaSink::State
{
    MeaFile file;
};

MeaSink::MeaSink(std::string path) : state(new State{{std::move(path), ""}})
{
}

MeaSink::MeaSink(MeaSink&& other) noexcept = default;
MeaSink::~MeaSink() = default;

void MeaSink::add(const TrackVtorichka& track)
{
    state->file.add(track, appendMarkLine);
}

bool MeaSink::save()
{
    state->file.save();
    return true;
}

struct MeaEphemerisSink::State
{
    MeaFile file;
};

MeaEphemerisSink::MeaEphemerisSink(std::string path) : state(new State{{std::move(path), ephemerisColumns}})
{
}

MeaEphemerisSink::MeaEphemerisSink(MeaEphemerisSink&& other) noexcept = default;
MeaEphemerisSink::~MeaEphemerisSink() = default;

void MeaEphemerisSink::add(const TrackVtorichka& track)
{
    state->file.add(track, appendComparedLine);
}

bool MeaEphemerisSink::save()
{
    state->file.save();
    return true;
}

std::vector<TrackVtorichka> lMEATrack(const std::vector<std::string>& lines, std::string originator)
{
    return allTracks(MeaSource(lines, originator));
}

std::vector<TrackVtorichka> lMEATrack(const std::vector<std::string>& lines, std::string originator,
                                      LineWatch& watch)
{
    return allTracks(MeaSource(lines, originator, watch));
}

std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator)
{
    return allTracks(MeaSource(path, originator));
}

std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator, LineWatch& watch)
{
    return allTracks(MeaSource(path, originator, watch));
}

void sMEA(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(MeaSink(path), tracks);
}

void sMEA_TLE(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(MeaEphemerisSink(path), tracks);
}

} // namespace tavelinUtils
