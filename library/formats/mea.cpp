#include "formats/mea.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_file.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"

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
void appendMagnitude(TextBuffer& out, double m)
{
    if (m < 0.0) {
        out += '-';
    }
    if (std::abs(m) < 10.0) {
        out += '0';
    }
    appendFixed(out, std::abs(m), 2);
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
     [](TextBuffer& out, const WrittenMark& from) { appendPaddedRight(out, from.track.QRVName, nameWidth); }},
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, packedDate); },
     [](TextBuffer& out, const WrittenMark& from) {
         out += from.dates.answerTo(int{from.mark.date}, MJDToDateMEA);
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = packedTime(text); },
     [](TextBuffer& out, const WrittenMark& from) {
         appendTimeMEA(out, from.mark.time, 3, false);
         out += '0';
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = packedRA(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedRA(out, from.mark.RA, 4); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = packedDE(text); },
     [](TextBuffer& out, const WrittenMark& from) { appendPackedDE(out, from.mark.DE, 4); }},
    {takeNothing, [](TextBuffer& out, const WrittenMark& /*from*/) { out += "001"; }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(text); },
     [](TextBuffer& out, const WrittenMark& from) {
         from.plainMagnitude ? appendFixed(out, from.mark.m, 2) : appendMagnitude(out, from.mark.m);
     }},
};

// The tokens of a line, as far as they are looked at: one more than a mark has says that there are too many.
using Tokens = std::array<std::string_view, std::size(markFields) + 2>;

// Cuts a line at blanks, where runs of them count as one; false unless it has as many tokens as a mark.
bool cutTokens(std::string_view line, Tokens& tokens)
{
    std::size_t count = 0;
    std::size_t begin = 0;
    const auto takeUpTo = [&](std::size_t end) {
        tokens[count] = {line.data() + begin, end - begin};
        count = std::min(count + (end > begin ? 1 : 0), std::size(markFields) + 1);
        begin = end + 1;
    };
    forEachSeparator(line, ' ', takeUpTo);
    takeUpTo(line.size());
    return count == std::size(markFields);
}

// What is kept of a file.
struct KeptMarks
{
    std::string telescope;
    TrackGathering<MeasuredMark> gathering;
};

// Takes the lines of a file one after the other.
class MeaLines
{
public:
    explicit MeaLines(KeptMarks& marks) : kept(marks)
    {
    }

    void add(std::string_view line)
    {
        if (!siteSeen) {
            siteSeen = true;
            kept.telescope = line.substr(0, line.find(' '));
            return;
        }
        Tokens tokens;
        if (cutTokens(line, tokens)) {
            ReadMark read{days, {}, {}};
            readFields<markFields>(tokens, read);
            kept.gathering.add(read.object, read.mark);
        }
    }

private:
    KeptMarks& kept;
    bool siteSeen = false;
    DayNumbers days;
};

void appendMarkLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    appendFields<markFields>(out, WrittenMark{track, track.Marks[index], dates, false});
    out += '\n';
}

void appendComparedLine(TextBuffer& out, const TrackVtorichka& track, std::size_t index, DateTexts& dates)
{
    constexpr double arcseconds = 3600.0;
    const TRecLabelPervichka_File& mark = track.Marks[index];
    const TInterBlob ephemeris = index < track.InterBlobs.size() ? track.InterBlobs[index] : TInterBlob{};
    appendFields<markFields>(out, WrittenMark{track, mark, dates, true});
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

struct MeaSource::Store
{
    std::string originator;
    KeptMarks kept{};
};

MeaSource::MeaSource(std::string path, std::string originator) : store(new Store{std::move(originator)})
{
    const OpenFile file = openFile(path, "rb");
    if (!file) {
        return;
    }
    std::setlocale(LC_NUMERIC, "C"); // also for a folder, which opens and has no lines
    MeaLines reader(store->kept);
    if (!readLines(file.get(), reader)) {
        store->kept = {};
    }
}

MeaSource::MeaSource(const std::vector<std::string>& lines, std::string originator)
    : store(new Store{std::move(originator)})
{
    MeaLines reader(store->kept);
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
    return store->kept.gathering.next(
        track,
        [this](TrackVtorichka& filled, std::string_view object) {
            filled.telescope = store->kept.telescope;
            filled.originator = store->originator;
            filled.QRVName = object;
            filled.NORAD = object;
        },
        setMeasured);
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

std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator)
{
    return allTracks(MeaSource(path, originator));
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
