#include "reading/file_info.h"

#include "base/lines.h"
#include "files/text_reading.h"
#include "findings/finding.h"
#include "out/text.h"
#include "reading/line_fates.h"
#include "reading/lint.h"
#include "reading/sky_angle.h"
#include "reading/track_names.h"
#include "reading/track_times.h"
#include "records/track.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace companion {

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

constexpr std::string_view trackFormats[] = {"mea", "telegram", "tdm",     "ssmas",
                                             "mpc", "table",    "tdm.xml", "horizons"};

// The finding of lines of other kinds than those that are read.
constexpr FindingCode ofOtherKinds = "V180";

// A moment that can be compared without rounding.
struct Moment
{
    int date = 0;
    double time = 0;

    friend bool operator<(const Moment& a, const Moment& b)
    {
        return a.date < b.date || (a.date == b.date && a.time < b.time);
    }
};

std::string textOf(const Moment& moment)
{
    const std::string text = momentText(moment.date + moment.time);
    return text.empty() ? "?" : text;
}

Moment momentOf(const TRecLabelPervichka_File& mark)
{
    return {mark.date, mark.time};
}

// The span of the marks of a track.
struct Span
{
    const TRecLabelPervichka_File* first = nullptr;
    const TRecLabelPervichka_File* last = nullptr;
    bool isSorted = true;
    double sum = 0; // of the magnitudes that are known
    std::size_t known = 0;
    double brightest = 0;
    double faintest = 0;

    explicit Span(const TrackVtorichka& track)
    {
        const TRecLabelPervichka_File* before = nullptr;
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            isSorted = isSorted && (before == nullptr || !(momentOf(mark) < momentOf(*before)));
            before = &mark;
            if (first == nullptr || momentOf(mark) < momentOf(*first)) {
                first = &mark;
            }
            if (last == nullptr || momentOf(*last) < momentOf(mark)) {
                last = &mark;
            }
            addMagnitude(mark.m);
        }
    }

    void addMagnitude(double magnitude)
    {
        if (magnitude == 0.0 || !std::isfinite(magnitude)) {
            return; // 0 stands for none
        }
        brightest = known == 0 ? magnitude : std::min(brightest, magnitude);
        faintest = known == 0 ? magnitude : std::max(faintest, magnitude);
        sum += magnitude;
        ++known;
    }
};

TrackInfo trackInfo(const TrackVtorichka& track, const Span& span)
{
    TrackInfo info;
    info.object = objectOf(track);
    info.marks = track.Marks.size();
    if (span.first != nullptr) {
        info.first = textOf(momentOf(*span.first));
        info.last = textOf(momentOf(*span.last));
        constexpr double minutesOfDay = 1440.0;
        const double minutes =
            (span.last->date - span.first->date + (span.last->time - span.first->time)) * minutesOfDay;
        info.hasMotion = minutes > 0.0;
        const double angle = angleBetween(span.first->RA, span.first->DE, span.last->RA, span.last->DE);
        info.motion = info.hasMotion ? angle / minutes : 0.0;
    }
    info.hasMagnitude = span.known > 0;
    info.magnitude = info.hasMagnitude ? span.sum / static_cast<double>(span.known) : 0.0;
    return info;
}

// Takes the tracks of a file.
class TrackWalk
{
public:
    TrackWalk(FileInfo& fileInfo, bool withTracks) : info(fileInfo), keepTracks(withTracks)
    {
    }

    void take(const TrackVtorichka& track)
    {
        const Span span(track);
        marks += track.Marks.size();
        info.isSorted = info.isSorted && span.isSorted;
        if (span.first != nullptr) {
            first = hasMoment ? std::min(first, momentOf(*span.first)) : momentOf(*span.first);
            last = hasMoment ? std::max(last, momentOf(*span.last)) : momentOf(*span.last);
            hasMoment = true;
        }
        takeMagnitudes(span);
        takeHead(track);
        if (keepTracks) {
            info.tracks.push_back(trackInfo(track, span));
        }
    }

    void finish()
    {
        if (hasMoment) {
            info.first = textOf(first);
            info.last = textOf(last);
        }
    }

    std::size_t count() const
    {
        return marks;
    }

private:
    void takeMagnitudes(const Span& span)
    {
        if (span.known == 0) {
            return;
        }
        info.brightest = info.hasMagnitudes ? std::min(info.brightest, span.brightest) : span.brightest;
        info.faintest = info.hasMagnitudes ? std::max(info.faintest, span.faintest) : span.faintest;
        info.hasMagnitudes = true;
    }

    // What the heads of a format say; what it does not hold has defaults there.
    void takeHead(const TrackVtorichka& track)
    {
        const bool hasTelescope = info.format == "mea" || info.format == "telegram" || info.format == "tdm" ||
                                  info.format == "ssmas";
        if (hasTelescope && info.site.empty()) {
            info.site = track.telescope;
        }
        if ((info.format == "telegram" || info.format == "tdm") && info.originator.empty()) {
            info.originator = track.originator;
        }
        if (info.format == "mpc") {
            info.site = track.MPCHeader.COD;
            info.stations.insert(track.MPCHeader.COD);
        } else if (hasTelescope) {
            info.stations.insert(track.telescope);
        }
        const bool hasFilters = info.format == "mpc" || info.format == "table";
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            if (hasFilters && mark.filtr != lastFilter) {
                lastFilter = mark.filtr;
                info.filters.insert(lastFilter);
            }
        }
    }

    FileInfo& info;
    bool keepTracks;
    std::size_t marks = 0;
    bool hasMoment = false;
    Moment first{};
    Moment last{};
    std::string lastFilter{};
};

// The reference frames that a message names, which its reader does not take.
class FrameLines
{
public:
    explicit FrameLines(std::set<std::string>& set) : frames(set)
    {
    }

    void add(std::string_view line)
    {
        constexpr std::string_view key = "REFERENCE_FRAME";
        const std::size_t at = line.find(key);
        if (at == std::string_view::npos) {
            return;
        }
        line.remove_prefix(at + key.size());
        line.remove_prefix(std::min(line.find_first_not_of(" =>\t"), line.size()));
        line = line.substr(0, line.find_first_of(" <\t"));
        if (!line.empty()) {
            frames.emplace(line);
        }
    }

private:
    std::set<std::string>& frames;
};

std::size_t firstPassed(const LineFates& fates)
{
    std::size_t line = 1;
    while (line < fates.size() && fates.fate(line) != tavelinUtils::LineFate::passed) {
        ++line;
    }
    return line;
}

// Why lines were skipped: by the findings of lint, which is only asked where there are such lines.
// One finding tells of all lines of other kinds than those that are read.
std::vector<PassedLines> passedLines(const std::string& path, const std::string& format,
                                     const LineFates& fates)
{
    std::map<FindingCode, PassedLines> codes;
    LintSettings settings;
    settings.person = false;
    lintFile(path, format, settings, [&codes](const Finding& found) {
        const bool isOfLines = found.code >= FindingCode("V150") && found.severity == Severity::error;
        if (!isOfLines && found.code != ofOtherKinds && found.code != FindingCode("V061")) {
            return; // bytes and fields
        }
        PassedLines& lines = codes[found.code];
        lines.code = found.code.text();
        lines.firstLine = lines.count == 0 ? found.line : lines.firstLine;
        ++lines.count;
    });
    const auto others = codes.find(ofOtherKinds);
    if (others != codes.end()) {
        others->second.count = fates.count(tavelinUtils::LineFate::passed);
        others->second.firstLine = firstPassed(fates);
    }
    std::vector<PassedLines> all;
    all.reserve(codes.size());
    for (const auto& [code, lines] : codes) {
        all.push_back(lines);
    }
    return all;
}

} // namespace

FileInfo fileInfo(const std::string& path, const std::string& format, int confidence, bool withTracks)
{
    FileInfo info{path, format, confidence};
    info.form = textFormOf(path);
    info.bytes = info.form.bytes;
    LineFates fates;
    TrackWalk walk(info, withTracks);
    const auto use = [&walk](const TrackVtorichka& track) { walk.take(track); };
    std::size_t tracks = 0;
    try {
        tracks = readWithFates({path, format, "", use}, fates);
    } catch (const std::exception&) {
        tracks = 0; // lint tells what its reader throws
    }
    walk.finish();
    info.account = fates.account(fates.size());
    info.account.tracks = tracks;
    info.account.marksRead = walk.count() > 0 || hasTracks(format) ? walk.count() : info.account.marks;
    if (format == "tdm" || format == "tdm.xml") {
        FrameLines frames(info.frames);
        tavelinUtils::readTextLines(path, frames);
    }
    if (info.account.passed + info.account.lost + info.account.refused > 0) {
        info.passed = passedLines(path, format, fates);
    }
    return info;
}

bool hasTracks(std::string_view format)
{
    return std::find(std::begin(trackFormats), std::end(trackFormats), format) != std::end(trackFormats);
}

std::string magnitudeText(double magnitude)
{
    return tavelinUtils::Str9(magnitude, 2);
}

std::string motionText(double motion)
{
    return tavelinUtils::Str9(motion, 3);
}

} // namespace companion
