#include "task/copy_tracks.h"

#include "base/lines.h"
#include "base/tokens.h"
#include "files/text_reading.h"
#include "formats/track_table.h"
#include "out/characters.h"
#include "reading/format_facts.h"
#include "reading/report_details.h"
#include "reading/tdm_segment.h"
#include "reading/true_reading.h"
#include "receivers/mpc_copy.h"
#include "receivers/mpc_header.h"
#include "receivers/observation_notes.h"
#include "task/configuration_checks.h"
#include "task/plan.h"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

ValueSteps stepsOf(const std::string& format)
{
    const FormatFacts* const facts = formatFacts(format);
    return facts == nullptr ? ValueSteps{}
                            : ValueSteps{facts->timeStep, facts->rightAscensionStep,
                                         writtenDeclinationStep(*facts), facts->magnitudeStep};
}

// A message writes its numbers with any decimals.
ValueSteps stepsOf(const WrittenDecimals& decimals, const ValueSteps& usual)
{
    constexpr double arcsecondsOfADegree = 3600.0;
    const auto step = [](signed char count, double unit, double otherwise) {
        return count < 0 ? otherwise : unit / static_cast<double>(powerOfTen(std::min<int>(count, 17)));
    };
    return {step(decimals.time, 1.0, usual.time),
            step(decimals.rightAscension, arcsecondsOfADegree, usual.rightAscension),
            step(decimals.declination, arcsecondsOfADegree, usual.declination),
            step(decimals.magnitude, 1.0, usual.magnitude)};
}

KnownBrightness knownOf(const std::set<std::string>& columns)
{
    return {columns.contains("mEnsemble"), columns.contains("mInstr"), columns.contains("MTYPE"),
            columns.contains("CNAME")};
}

// What the header of a series says; a default station stands for nothing.
Observatory observatoryOf(const TMPCReportHeader& header, const std::string& aavsoCode)
{
    Observatory observatory;
    observatory.station = isStationCode(header.COD) ? header.COD : "";
    observatory.contact = header.CON;
    observatory.observers = header.OBS;
    observatory.measurers = header.MEA;
    observatory.comment = header.COM;
    observatory.telescope = header.TEL;
    observatory.acknowledgement = header.ACK;
    observatory.email = header.AC2;
    observatory.astrometricCatalogue = header.NET;
    observatory.aavsoCode = aavsoCode;
    return observatory;
}

char noteOf(const ReportDetail& detail)
{
    constexpr std::size_t place = 14;
    return detail.line.empty() ? 'C' : detail.line[place]; // without a line it is one of the tool's
}

// The station is that of the line.
std::shared_ptr<const Observatory> observatoryOf(const ReportDetail& detail)
{
    auto observatory = std::make_shared<Observatory>(*detail.header);
    observatory->station = isStationCode(detail.station) ? detail.station : "";
    observatory->mode = modeOfNote(noteOf(detail));
    return observatory;
}

// Which columns a track table has.
class TableHeader
{
public:
    void add(std::string_view line)
    {
        if (++number == 2) {
            forEachToken(withoutLineEnd(line), '\t', [this](std::string_view column) {
                columns.insert(std::string(column.substr(0, column.find(':'))));
            });
        }
    }

    std::set<std::string> columns{};

private:
    int number = 0;
};

class FileReader
{
public:
    FileReader(const std::string& path, std::string ofFormat, CopyInput& result)
        : format(std::move(ofFormat)), steps(stepsOf(format)), input(result)
    {
        if (format == "mpc") {
            details = reportDetails(path);
        } else if (format == "table") {
            TableHeader header;
            readTextLines(path, header);
            columns = knownOf(header.columns);
        }
    }

    void add(TrueTrack& track)
    {
        if (format == "mpc") {
            addReport(track);
            return;
        }
        CopyTrack copy;
        const std::string& frame = track.track.REFERENCE_FRAME;
        if (isMessage() && !isFrameOfIcrf(frame)) {
            copy.otherFrame = frame.empty() ? "not stated" : frame;
        }
        Observatory observatory;
        observatory.station = isStationCode(track.station) ? track.station : "";
        copy.observatory = std::make_shared<const Observatory>(std::move(observatory));
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            addMark(copy, track, mark, steps);
        }
        static_cast<THeadTrVtor&>(copy.track) = track.track;
        input.tracks.push_back(std::move(copy));
    }

private:
    bool isMessage() const
    {
        return format == "tdm" || format == "tdm.xml";
    }

    void addMark(CopyTrack& copy, const TrueTrack& track, std::size_t number, const ValueSteps& fine) const
    {
        const TrueMark& known = track.marks[number];
        TRecLabelPervichka_File mark = track.track.Marks[number];
        if (!known.hasPosition) {
            mark.RA = std::numeric_limits<double>::quiet_NaN();
            mark.DE = mark.RA;
        }
        copy.track.Marks.push_back(std::move(mark));
        copy.marks.push_back({known.line,
                              static_cast<int>(number),
                              known.hasMagnitude,
                              known.hasBand,
                              stepsOf(known.decimals, fine),
                              columns,
                              {}});
    }

    // The lines of an object may be under several headers, and of several stations.
    void addReport(const TrueTrack& track)
    {
        std::map<std::tuple<const Observatory*, std::string, char>, std::size_t> places;
        const std::size_t first = input.tracks.size();
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            static const ReportDetail none{"", "", std::make_shared<const Observatory>(), {}};
            const auto line = details.lines.find(track.marks[mark].line);
            const ReportDetail& detail = line == details.lines.end() ? none : line->second;
            const auto [place, isNew] = places.try_emplace(
                {detail.header.get(), detail.station, noteOf(detail)}, first + places.size());
            if (isNew) {
                CopyTrack copy;
                static_cast<THeadTrVtor&>(copy.track) = track.track;
                copy.observatory = observatoryOf(detail);
                copy.isIdentified = details.isOfAnother;
                copy.isOf80Columns = true;
                copy.note2 = noteOf(detail);
                holdAgainstHeader(detail, track.marks[mark].line);
                input.tracks.push_back(std::move(copy));
            }
            const ValueSteps& fine = line == details.lines.end() ? steps : detail.steps;
            addMark(input.tracks[place->second], track, mark, fine);
            input.tracks[place->second].marks.back().line80 = detail.line;
        }
    }

    // The next track has the people and the telescope of its header, but the station of its lines.
    void holdAgainstHeader(const ReportDetail& detail, std::size_t line)
    {
        const std::string& header = detail.header->station;
        if (isStationCode(header) && isStationCode(detail.station) && header != detail.station) {
            input.contradictions[input.tracks.size()] = {header, "the header", detail.station, "the line",
                                                         line};
        }
    }

    std::string format;
    ValueSteps steps;
    KnownBrightness columns{};
    ReportDetails details{};
    CopyInput& input;
};

// Runs the plan of a report and keeps each mark with all of its columns: the report itself keeps those of its
// output.
class ReportReader
{
public:
    ReportReader(const TConvMea& ofTask, CopyInput& result) : task(ofTask), input(result)
    {
        // All tracks into one file, whose name does not depend on them.
        task.toSeparateFile = "allobjects";
        task.longname = false;
    }

    void read()
    {
        Works works = ownWorks();
        works.table = [this](const std::string& path, const std::string& /*columns*/) {
            return wholeTable(path);
        };
        works.settings = [this, own = series.forWorks()](const std::string& table) {
            TPorogs porogs = own(table);
            services.push_back(porogs.Service);
            return porogs;
        };
        std::vector<TrackVtorichka> planned;
        const Plan plan = planOf(
            task, works,
            {{}, [&planned](const PlannedFile&, const TrackVtorichka& track) { planned.push_back(track); }});
        input.unidentified.insert(plan.runningNames.begin(), plan.runningNames.end());
        for (const TrackVtorichka& track : planned) {
            add(track, plan);
        }
    }

private:
    struct KeptMark
    {
        std::size_t series;
        TRecLabelPervichka_File mark;
    };

    NextTrack wholeTable(const std::string& path)
    {
        TableHeader header;
        readTextLines(path, header);
        columns.push_back(std::move(header.columns));
        input.files.push_back(path);
        return [this, next = anySource(TrackTableSource(path))](TrackVtorichka& track) {
            const bool hasTrack = next(track);
            for (std::size_t mark = 0; hasTrack && mark < track.Marks.size(); ++mark) {
                kept.push_back({columns.size() - 1, track.Marks[mark]});
            }
            return hasTrack;
        };
    }

    void add(const TrackVtorichka& track, const Plan& plan)
    {
        if (track.Marks.empty()) {
            return;
        }
        const std::size_t ofSeries = markOf(track.Marks.front()).series;
        const TService service = services[ofSeries];
        CopyTrack copy;
        static_cast<THeadTrVtor&>(copy.track) = track;
        copy.observatory = std::make_shared<const Observatory>(observatoryOf(track.MPCHeader, track.ObsCode));
        copy.isIdentified = service == TService::asteroids && !track.MPCChecker.empty();
        copy.isSatellite = service == TService::satellites;
        copy.place = plan.placeOf(track.Marks.front().AuxInt1, task);
        copy.place.mark = -1;
        const std::set<std::string>& has = columns[ofSeries];
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            copy.track.Marks.push_back(markOf(mark).mark);
            copy.marks.push_back({0,
                                  plan.placeOf(mark.AuxInt1, task).mark,
                                  has.contains("m"),
                                  has.contains("filtr"),
                                  stepsOf("table"),
                                  knownOf(has),
                                  {}});
        }
        input.tracks.push_back(std::move(copy));
    }

    const KeptMark& markOf(const TRecLabelPervichka_File& mark) const
    {
        return kept[static_cast<std::size_t>(mark.AuxInt1) - 1];
    }

    TConvMea task;
    CopyInput& input;
    SeriesSettings series{};
    std::vector<TService> services{};             // by series
    std::vector<std::set<std::string>> columns{}; // by series
    std::vector<KeptMark> kept{};                 // in the order of reading
};

// The task's words replace those of the file. One may be the name of a telescope.
void stamp(const TConvMea& task, CopyInput& input)
{
    for (std::size_t number = 0; number < input.tracks.size(); ++number) {
        CopyTrack& copy = input.tracks[number];
        const std::string& own = copy.observatory->station;
        if (isOnlyStationCode(task.PARTICIPANT_1) && !own.empty() && own != task.PARTICIPANT_1) {
            input.contradictions.try_emplace(number, StationsOfTrack{own, "the input", task.PARTICIPANT_1,
                                                                     "PARTICIPANT_1 of the task", 0});
        }
        copy.track.REFERENCE_FRAME = task.REFERENCE_FRAME;
        copy.track.telescope = task.PARTICIPANT_1;
        copy.track.originator = task.originator;
        if (!copy.track.NORAD.empty()) {
            copy.track.QRVName = copy.track.NORAD;
        }
    }
}

CopyInput tracksOfFile(const std::string& path, const std::string& format, const std::string& name,
                       const TrueSettings& settings)
{
    CopyInput input;
    FileReader reader(path, format, input);
    TrueOutcome outcome =
        readAsMeant(path, format, settings, [&reader](TrueTrack& track) { reader.add(track); });
    for (Finding& each : outcome.findings) {
        input.findings.push_back(std::move(each).in(name));
    }
    input.leftOut = outcome.leftOut;
    input.files.push_back(path);
    return input;
}

} // namespace

CopyInput copyTracksOfFile(const std::string& path, const std::string& format, const std::string& name)
{
    TrueSettings settings;
    settings.acceptFrame = true; // some receivers take other frames; the copies for others refuse them
    return tracksOfFile(path, format, name, settings);
}

CopyInput copyTracksOfTask(const CheckedTask& checked)
{
    const TConvMea& task = checked.task;
    CopyInput input;
    if (checked.isReport) {
        ReportReader(task, input).read();
    } else {
        input = tracksOfFile(task.path_in, task.inputformat, task.path_in, {}); // the task says the frame
        stamp(task, input);
    }
    input.files.push_back(checked.path);
    input.files.insert(input.files.end(), checked.configurations.begin(), checked.configurations.end());
    return input;
}

} // namespace companion
