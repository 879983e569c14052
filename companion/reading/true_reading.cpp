#include "reading/true_reading.h"

#include "base/last_answer.h"
#include "base/numbers.h"
#include "reading/file_info.h"
#include "reading/line_fates.h"
#include "reading/mark_lines.h"
#include "reading/meant_losses.h"
#include "reading/meant_text.h"
#include "reading/memory_file.h"
#include "reading/plain_text.h"
#include "reading/tdm_meaning.h"
#include "text/date_text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

namespace companion {

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

bool isOfTelescopes(std::string_view format)
{
    return format == "mea" || format == "telegram" || format == "ssmas";
}

using Use = std::function<void(TrueTrack&)>;

// Those behind the point of a number or a time; none for a number with an exponent.
signed char decimalsIn(std::string_view text)
{
    constexpr std::size_t most = 18;
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::size_t decimals = text.size() - std::min(point + 1, text.size());
    const bool hasExponent = text.find_first_of("eE") != std::string_view::npos;
    return hasExponent ? -1 : static_cast<signed char>(std::min(decimals, most));
}

// Hands out the tracks of a message.
class MessageTracks
{
public:
    explicit MessageTracks(const Use& useOfTracks) : use(useOfTracks)
    {
    }

    void hand(const TdmMeaning& meaning)
    {
        const auto originator = std::find_if(meaning.header.begin(), meaning.header.end(),
                                             [](const TdmEntry& each) { return each.key == "ORIGINATOR"; });
        for (const TdmTrack& track : meaning.tracks) {
            TrueTrack meant;
            if (originator != meaning.header.end()) {
                meant.track.originator = originator->value;
            }
            meant.track.QRVName = track.object;
            meant.track.telescope = track.observer;
            meant.track.REFERENCE_FRAME = track.frame;
            meant.station = track.observer;
            meant.track.Marks.reserve(track.marks.size());
            for (const TdmMark& mark : track.marks) {
                addMark(mark, meant);
            }
            use(meant);
        }
    }

private:
    void addMark(const TdmMark& mark, TrueTrack& meant)
    {
        TRecLabelPervichka_File& record = meant.track.Marks.emplace_back();
        int date = 0;
        double time = 0;
        tavelinUtils::readEpoch(mark.epoch.text, days, date, time);
        record.date = date;
        record.time = time;
        record.RA = tavelinUtils::toDouble(mark.RA);
        record.DE = tavelinUtils::toDouble(mark.DE);
        record.m = tavelinUtils::toDouble(mark.magnitude);
        meant.marks.push_back({mark.line,
                               true,
                               !mark.magnitude.empty(),
                               false,
                               {decimalsIn(mark.epoch.text), decimalsIn(mark.RA), decimalsIn(mark.DE),
                                decimalsIn(mark.magnitude)}});
    }

    const Use& use;
    tavelinUtils::DayNumbers days{};
};

TrueOutcome readMessage(std::string_view text, bool isXml, const std::string& path,
                        const TrueSettings& settings, const Use& use)
{
    std::optional<TdmDocument> document = isXml ? tdmOfXml(text) : tdmOfText(text);
    if (!document) {
        throw WrongUsage{finding("V003", {{"file", path}, {"what", "is not well-formed XML"}})};
    }
    TdmMeaning meaning = tdmMeaningOf(*document, settings);
    MessageTracks(use).hand(meaning);
    return {std::move(meaning.findings), meaning.leftOut};
}

// Hands out the tracks that the reader of a format makes of a text. By the first one the reader has told the
// fates of all lines.
class ReadTracks
{
public:
    ReadTracks(std::string fileFormat, const MeantText& meantText, const LineFates& lineFates,
               Use useOfTracks)
        : format(std::move(fileFormat)), text(meantText), fates(lineFates), use(std::move(useOfTracks))
    {
    }

    void take(const TrackVtorichka& track)
    {
        if (!lines) {
            lines.emplace(text.text, format, fates);
        }
        const bool isReport = format == "mpc";
        const std::string& name = isReport ? track.MPCChecker : track.QRVName;
        meant.track = track;
        meant.track.QRVName = name.empty() ? track.NORAD : name;
        meant.station = isOfTelescopes(format) ? track.telescope : "";
        meant.marks.clear();
        stations.clear();
        for (std::size_t mark = 0; mark < track.Marks.size(); ++mark) {
            const MarkLine line = lines->next(name);
            const std::size_t number = line.number == 0 ? 0 : text.lineOf(line.number);
            meant.marks.push_back({number, true, line.hasMagnitude, line.hasBand, {}});
            stations.push_back(line.station);
        }
        isReport ? handByStations() : use(meant);
    }

private:
    // Marks of an object by the codes of their own lines, which the reader does not look at.
    void handByStations()
    {
        std::vector<std::uint32_t> different;
        for (const std::uint32_t station : stations) {
            if (std::find(different.begin(), different.end(), station) == different.end()) {
                different.push_back(station);
            }
        }
        if (different.size() <= 1) {
            for (const std::uint32_t station : different) {
                putStation(meant, station);
            }
            use(meant);
            return;
        }
        for (const std::uint32_t station : different) {
            TrueTrack part;
            static_cast<tavelinUtils::THeadTrVtor&>(part.track) = meant.track;
            for (std::size_t mark = 0; mark < stations.size(); ++mark) {
                if (stations[mark] == station) {
                    part.track.Marks.push_back(meant.track.Marks[mark]);
                    part.marks.push_back(meant.marks[mark]);
                }
            }
            putStation(part, station);
            use(part);
        }
    }

    void putStation(TrueTrack& track, std::uint32_t station) const
    {
        if (station != 0) {
            track.track.MPCHeader.COD = lines->stationOf(station);
            track.station = track.track.MPCHeader.COD;
        }
    }

    std::string format;
    const MeantText& text;
    const LineFates& fates;
    Use use;
    std::optional<MarkLines> lines{};
    TrueTrack meant{};
    std::vector<std::uint32_t> stations{};
};

TrueOutcome readByReader(const PlainText& plain, const std::string& path, const std::string& format,
                         const Use& use)
{
    MeantText meant = meantText(plain.text, format, MendUse::reading);
    if (meant.isRefused) {
        return {std::move(meant.findings), 0};
    }
    const bool isAsItIs = plain.mended.empty() && meant.text == plain.text;
    std::optional<MemoryFile> file;
    if (!isAsItIs) {
        file.emplace(meant.text);
    }
    const std::string source = file ? file->path() : path;
    LineFates fates;
    ReadTracks tracks(format, meant, fates, [&path, &source, &use](TrueTrack& track) {
        if (track.track.SourceFile == source) {
            track.track.SourceFile = path;
        }
        use(track);
    });
    readWithFates({source, format, {}, [&tracks](const TrackVtorichka& track) { tracks.take(track); }},
                  fates);
    addLosses(plain.text, format, fates, meant);
    return {std::move(meant.findings), meant.leftOut};
}

} // namespace

TrueOutcome readAsMeant(const std::string& path, const std::string& format, const TrueSettings& settings,
                        const std::function<void(TrueTrack&)>& use)
{
    const PlainText plain = plainText(path);
    if (!plain.broken.empty()) {
        return {{finding("V101", {{"encoding", plain.broken}})}, 0};
    }
    if (!hasTracks(format)) {
        return {};
    }
    if (format == "tdm" || format == "tdm.xml") {
        return readMessage(plain.text, format == "tdm.xml", path, settings, use);
    }
    return readByReader(plain, path, format, use);
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
