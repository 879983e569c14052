#include "task/copy_tracks.h"

#include "base/lines.h"
#include "base/tokens.h"
#include "formats/track_table.h"
#include "reading/format_facts.h"
#include "reading/report_details.h"
#include "reading/true_reading.h"
#include "receivers/mpc_copy.h"
#include "receivers/mpc_header.h"
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

// What the header of a series says; the defaults stand for nothing.
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
    observatory.aavsoCode = aavsoCode == THeadTrVtor().ObsCode ? "" : aavsoCode;
    return observatory;
}

// Two stations that a line and its header name are told by who asks for the copy.
std::shared_ptr<const Observatory> observatoryOf(const ReportDetail& detail)
{
    auto observatory = std::make_shared<Observatory>(*detail.header);
    observatory->station = isStationCode(detail.station) ? detail.station : "";
    observatory->mode = detail.note2 == 'C' ? "CCD" : detail.note2 == 'B' ? "CMO" : "";
    return observatory;
}

class FileReader
{
public:
    FileReader(const std::string& path, std::string ofFormat, CopyInput& result)
        : format(std::move(ofFormat)), steps(stepsOf(format)), input(result)
    {
        if (format == "mpc") {
            details = reportDetails(path);
        }
    }

    void add(TrueTrack& track)
    {
        if (format == "mpc") {
            addReport(track);
            return;
        }
        CopyTrack copy;
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
    static void addMark(CopyTrack& copy, const TrueTrack& track, std::size_t number, const ValueSteps& fine)
    {
        const TrueMark& known = track.marks[number];
        TRecLabelPervichka_File mark = track.track.Marks[number];
        if (!known.hasPosition) {
            mark.RA = std::numeric_limits<double>::quiet_NaN();
            mark.DE = mark.RA;
        }
        copy.track.Marks.push_back(std::move(mark));
        copy.marks.push_back({known.line, static_cast<int>(number), known.hasMagnitude, known.hasBand, fine});
    }

    // The lines of an object may be under several headers, and of several stations.
    void addReport(const TrueTrack& track)
    {
        std::map<std::tuple<const Observatory*, std::string, char>, std::size_t> places;
        const std::size_t first = input.tracks.size();
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            static const ReportDetail none{"", ' ', std::make_shared<const Observatory>(), {}};
            const auto line = details.lines.find(track.marks[mark].line);
            const ReportDetail& detail = line == details.lines.end() ? none : line->second;
            const auto [place, isNew] = places.try_emplace(
                {detail.header.get(), detail.station, detail.note2}, first + places.size());
            if (isNew) {
                CopyTrack copy;
                static_cast<THeadTrVtor&>(copy.track) = track.track;
                copy.observatory = observatoryOf(detail);
                copy.isIdentified = details.hasSigns; // the tool's own lines have none
                copy.isOf80Columns = true;
                input.tracks.push_back(std::move(copy));
            }
            const ValueSteps& fine = line == details.lines.end() ? steps : detail.steps;
            addMark(input.tracks[place->second], track, mark, fine);
        }
    }

    std::string format;
    ValueSteps steps;
    ReportDetails details{};
    CopyInput& input;
};

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
        readLines(path, header);
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
            copy.marks.push_back({0, plan.placeOf(mark.AuxInt1, task).mark, has.contains("m"),
                                  has.contains("filtr"), stepsOf("table")});
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

// The task's words replace those of the file.
void stamp(const TConvMea& task, CopyInput& input)
{
    for (CopyTrack& copy : input.tracks) {
        copy.track.REFERENCE_FRAME = task.REFERENCE_FRAME;
        copy.track.telescope = task.PARTICIPANT_1;
        copy.track.originator = task.originator;
        if (!copy.track.NORAD.empty()) {
            copy.track.QRVName = copy.track.NORAD;
        }
    }
}

} // namespace

CopyInput copyTracksOfFile(const std::string& path, const std::string& format, const std::string& name)
{
    CopyInput input;
    FileReader reader(path, format, input);
    TrueOutcome outcome = readAsMeant(path, format, {}, [&reader](TrueTrack& track) { reader.add(track); });
    for (Finding& each : outcome.findings) {
        input.findings.push_back(std::move(each).in(name));
    }
    input.leftOut = outcome.leftOut;
    input.files.push_back(path);
    return input;
}

CopyInput copyTracksOfTask(const CheckedTask& checked)
{
    const TConvMea& task = checked.task;
    CopyInput input;
    if (checked.isReport) {
        ReportReader(task, input).read();
    } else {
        input = copyTracksOfFile(task.path_in, task.inputformat, task.path_in);
        stamp(task, input);
    }
    input.files.push_back(checked.path);
    return input;
}

} // namespace companion
