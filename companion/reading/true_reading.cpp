#include "reading/true_reading.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/tokens.h"
#include "reading/line_fates.h"
#include "reading/text_front.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace companion {

using tavelinUtils::LineFate;
using tavelinUtils::TrackVtorichka;

namespace {

constexpr std::string_view trackFormats[] = {"mea", "telegram", "tdm",     "ssmas",
                                             "mpc", "table",    "tdm.xml", "horizons"};

bool holdsTracks(std::string_view format)
{
    return std::find(std::begin(trackFormats), std::end(trackFormats), format) != std::end(trackFormats);
}

// The object of a mark's line, where the reader gathers the marks of an object from wherever they are.
std::string objectOf(std::string_view format, std::string_view line)
{
    constexpr tavelinUtils::Field nameColumns{1, 12};
    if (format == "mea") {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        return std::string(line.substr(0, line.find(' ')));
    }
    return format == "mpc" ? tavelinUtils::withoutBlanks(tavelinUtils::cut(line, nameColumns))
                           : std::string();
}

// The lines of the marks, by objects where these are gathered.
class MarkLines
{
public:
    MarkLines(std::string wantedFormat, const LineFates& lineFates)
        : format(std::move(wantedFormat)), fates(lineFates)
    {
    }

    void add(std::string_view line)
    {
        ++number;
        if (fates.fate(number) == LineFate::mark) {
            lines[objectOf(format, line)].push_back(number);
        }
    }

    // The line of the next mark of a track; 0 where there is none.
    std::size_t next(const TrackVtorichka& track)
    {
        const bool isGathered = format == "mea" || format == "mpc";
        const std::string& name = format == "mpc" ? track.MPCChecker : track.QRVName;
        const auto at = lines.find(isGathered ? name : std::string());
        if (at == lines.end()) {
            return 0;
        }
        std::size_t& taken = used[at->first];
        return taken < at->second.size() ? at->second[taken++] : 0;
    }

private:
    std::string format;
    const LineFates& fates;
    std::size_t number = 0;
    std::map<std::string, std::vector<std::size_t>> lines{};
    std::map<std::string, std::size_t> used{};
};

std::string stationOf(const TrackVtorichka& track, std::string_view format)
{
    constexpr std::string_view ofTelescope[] = {"mea", "telegram", "tdm", "ssmas"};
    if (format == "mpc") {
        return track.MPCHeader.COD;
    }
    const bool isTold =
        std::find(std::begin(ofTelescope), std::end(ofTelescope), format) != std::end(ofTelescope);
    return isTold ? track.telescope : std::string();
}

} // namespace

TrueOutcome readAsMeant(const std::string& path, const std::string& format, const TrueSettings& /*settings*/,
                        const std::function<void(TrueTrack&)>& use)
{
    frontOfFile(path); // throws where it cannot be read
    if (!holdsTracks(format)) {
        return {};
    }
    LineFates fates;
    readWithFates({path, format, {}, {}}, fates);
    MarkLines lines(format, fates);
    tavelinUtils::readLines(path, lines);
    LineFates again;
    TrueTrack meant;
    const auto take = [&](const TrackVtorichka& track) {
        meant.track = track;
        meant.track.QRVName = format == "mpc" ? track.MPCChecker : track.QRVName;
        meant.track.QRVName = meant.track.QRVName.empty() ? track.NORAD : meant.track.QRVName;
        meant.station = stationOf(track, format);
        meant.marks.clear();
        for (const tavelinUtils::TRecLabelPervichka_File& mark : track.Marks) {
            const bool hasBand = (format == "mpc" || format == "table") && !mark.filtr.empty();
            meant.marks.push_back({lines.next(track), true, mark.m != 0.0, hasBand});
        }
        use(meant);
    };
    readWithFates({path, format, {}, take}, again);
    return {};
}

TrueFile readAsMeant(const std::string& path, const std::string& format, const TrueSettings& settings)
{
    TrueFile file;
    TrueOutcome outcome =
        readAsMeant(path, format, settings, [&file](TrueTrack& track) { file.tracks.push_back(track); });
    file.findings = std::move(outcome.findings);
    file.leftOut = outcome.leftOut;
    return file;
}

} // namespace companion
