#include "task/plan.h"

#include "conversion.h"
#include "exclusions.h"
#include "file_names.h"
#include "format_words.h"
#include "multi_report.h"
#include "out/text.h"
#include "task/writable.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

// What became of a mark.
enum class Fate : std::uint8_t
{
    read,
    excluded,
    narrowed,
    planned
};

MarkPlace placeIn(const ReadTrack& track, std::size_t mark, const TConvMea& task)
{
    MarkPlace place;
    if (track.series >= 0) {
        place.series = track.series + 1;
        place.folder = seriesFolderName(task, static_cast<std::size_t>(track.series)).value_or("");
    }
    place.track = track.number;
    place.object = track.object;
    place.mark = static_cast<int>(mark - track.firstMark);
    return place;
}

// The track of a mark.
template <class Tracks>
auto& trackHolding(Tracks& tracks, std::size_t mark)
{
    const auto behind =
        std::upper_bound(tracks.begin(), tracks.end(), mark,
                         [](std::size_t wanted, const ReadTrack& track) { return wanted < track.firstMark; });
    return *(behind - 1);
}

// All marks of a task in the order of reading. A mark carries its number, from 1, in AuxInt1: no writer looks
// at that field, and reports keep it.
class MarkLedger
{
public:
    // Numbers the marks of a track that was read.
    void enter(int series, int number, const std::string& object, std::vector<TRecLabelPervichka_File>& marks)
    {
        tracks.push_back({series, number, object, times.size(), marks.size()});
        for (TRecLabelPervichka_File& mark : marks) {
            times.push_back(mark.date + mark.time);
            fates.push_back(Fate::read);
            mark.AuxInt1 = static_cast<int>(times.size());
        }
    }

    // The track of a mark. Marks are mostly asked for in their order.
    ReadTrack& trackOf(std::size_t mark)
    {
        const auto holds = [mark](const ReadTrack& track) {
            return mark >= track.firstMark && mark < track.firstMark + track.marks;
        };
        if (!holds(tracks[current])) {
            current = static_cast<std::size_t>(&trackHolding(tracks, mark) - tracks.data());
        }
        return tracks[current];
    }

    MarkPlace placeOf(std::size_t mark, const TConvMea& task)
    {
        MarkPlace place = placeIn(trackOf(mark), mark, task);
        place.time = momentText(times[mark]);
        return place;
    }

    std::vector<ReadTrack> tracks;
    std::vector<Fate> fates;

private:
    std::vector<double> times;
    std::size_t current = 0;
};

bool isNarrowed(const TConvMea& task, int series, int track)
{
    return task.whatSave == "object" && (series != 0 || track != task.object);
}

// The files of a plan and what the sinks are given.
class PlannedFiles
{
public:
    PlannedFiles(Plan& ofTask, MarkLedger& allMarks, const PlanWatch& theWatch)
        : plan(ofTask), marks(allMarks), watch(theWatch)
    {
    }

    TrackSink sink(const std::string& path, const std::string& word)
    {
        // A file is opened by its name up to a zero byte, which names of objects in UTF-16 have.
        plan.files.push_back({path.substr(0, path.find('\0')), word});
        open = &plan.files.back();
        if (watch.openFile) {
            watch.openFile(*open);
        }
        return {[this](const TrackVtorichka& track) { add(track); }, [this] { save(); }};
    }

    // The objects that had no answer of the checker, by the number of their track.
    std::map<std::size_t, std::string> withoutAnswer;

private:
    void add(const TrackVtorichka& track)
    {
        ++open->tracks;
        open->marks += track.Marks.size();
        const ReadTrack* last = nullptr;
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            const auto number = static_cast<std::size_t>(mark.AuxInt1) - 1;
            marks.fates[number] = Fate::planned;
            ReadTrack& source = marks.trackOf(number);
            if (&source != last) {
                name(source, track.QRVName);
                last = &source;
            }
        }
        if (watch.track) {
            watch.track(*open, track);
        }
    }

    void name(ReadTrack& source, const std::string& object)
    {
        source.object = object;
        const auto asked = withoutAnswer.find(static_cast<std::size_t>(&source - marks.tracks.data()));
        if (asked != withoutAnswer.end()) {
            asked->second = object;
        }
    }

    // A failed write ends the run where the format does not ignore it. The plan goes on, for the marks of all
    // files.
    void save()
    {
        open->isWritten = isMade(*open) && !plan.dies;
        if (open->isWritten && !canBeWritten(open->path, removesFirst(open->format))) {
            open->isWritten = false;
            if (!ignoresFailure(open->format)) {
                plan.dies = true;
                plan.deathPath = open->path;
            }
        }
    }

    // Two forms write a file even of nothing.
    static bool isMade(const PlannedFile& file)
    {
        return formatOpticMea_to_int(file.format) != formatUnknown &&
               (file.tracks > 0 || ignoresFailure(file.format));
    }

    static bool ignoresFailure(const std::string& word)
    {
        return word == "tdm.xml" || word == "mag";
    }

    Plan& plan;
    MarkLedger& marks;
    const PlanWatch& watch;
    PlannedFile* open = nullptr;
};

// The works of a plan.
class PlanMaker
{
public:
    PlanMaker(const TConvMea& ofTask, const Works& theWorks, const PlanWatch& theWatch)
        : task(ofTask), works(theWorks), files(plan, marks, theWatch)
    {
    }

    Plan make()
    {
        const Works planned{
            [this](const std::string& word, const std::string& path, const std::string& originator) {
                return numbered(works.source(word, path, originator));
            },
            [this](const std::string& path, const std::string& columns) {
                ++series;
                return numbered(works.table(path, columns));
            },
            [this](const std::string& table) {
                TPorogs settings = works.settings(table);
                service = settings.Service;
                return settings;
            },
            [this](const std::string& path, const std::string& word) { return files.sink(path, word); }};
        try {
            plan.result =
                task.inputformat == "vomar" ? CreateMultiReport(task, planned) : converter(task, planned);
            readTheRest();
        } catch (...) {
            plan.dies = true; // what a series throws ends the run
            isBroken = true;
        }
        settle();
        return std::move(plan);
    }

private:
    NextTrack numbered(NextTrack source)
    {
        hasMore = true;
        unread = [this, next = std::make_shared<NextTrack>(std::move(source)),
                  number = std::make_shared<int>(0)](TrackVtorichka& track) {
            hasMore = (*next)(track);
            if (hasMore) {
                enter((*number)++, track);
            }
            return hasMore;
        };
        return unread;
    }

    // A conversion that cannot name its output leaves its tracks unread.
    void readTheRest()
    {
        for (TrackVtorichka track; hasMore;) {
            unread(track);
        }
    }

    void enter(int number, TrackVtorichka& track)
    {
        marks.enter(series, number, nameOf(track), track.Marks);
        if (series < 0) {
            if (number == 0) {
                plan.fileWords = {track.originator, track.telescope, track.REFERENCE_FRAME};
            }
            return;
        }
        if (lacksAnswer(track)) {
            files.withoutAnswer.emplace(marks.tracks.size() - 1, "");
        }
        const bool narrowed = isNarrowed(task, series, number);
        if (narrowed) {
            settleAll(marks.tracks.back(), Fate::narrowed);
        }
        exclude(number, track);
    }

    static std::string nameOf(const TrackVtorichka& track)
    {
        return !track.NORAD.empty()        ? track.NORAD
               : !track.MPCChecker.empty() ? track.MPCChecker
                                           : track.QRVName;
    }

    bool lacksAnswer(const TrackVtorichka& track) const
    {
        return (service == TService::asteroids && track.MPCChecker.empty()) ||
               (service == TService::satellites && track.NORAD.empty());
    }

    void settleAll(const ReadTrack& track, Fate fate)
    {
        const auto first = marks.fates.begin() + static_cast<std::ptrdiff_t>(track.firstMark);
        std::fill(first, first + static_cast<std::ptrdiff_t>(track.marks), fate);
    }

    // The tool's own exclusion of a copy tells which marks it leaves.
    void exclude(int number, const TrackVtorichka& track)
    {
        const std::vector<TExcludBlobs>& excludes = task.paths[static_cast<std::size_t>(series)].excludes;
        if (excludes.empty()) {
            return;
        }
        TrackVtorichka copy;
        copy.Marks = track.Marks;
        Exclusions(excludes).applyTo(static_cast<std::size_t>(number), copy);
        if (copy.Marks.size() == track.Marks.size()) {
            return;
        }
        const Fate others = marks.fates.back();
        settleAll(marks.tracks.back(), Fate::excluded);
        for (const TRecLabelPervichka_File& mark : copy.Marks) {
            marks.fates[static_cast<std::size_t>(mark.AuxInt1) - 1] = others;
        }
    }

    // Counts what became of all marks, once nothing is read or written any more.
    void settle()
    {
        settleMarks();
        settleFiles();
        for (const auto& [track, name] : files.withoutAnswer) {
            if (!name.empty()) {
                plan.runningNames.push_back(name);
            }
        }
        plan.tracks = std::move(marks.tracks);
    }

    void settleMarks()
    {
        MarkAccount& account = plan.account;
        account.read = marks.fates.size();
        const bool divides = task.inputformat == "vomar" && task.toSeparateFile == "eachgroup";
        for (std::size_t mark = 0; mark < marks.fates.size(); ++mark) {
            switch (marks.fates[mark]) {
            case Fate::excluded: ++account.excluded; break;
            case Fate::narrowed: ++account.narrowed; break;
            case Fate::planned: break;
            case Fate::read:
                if (isBroken) {
                    ++account.planned;
                    ++account.unwritten;
                    break;
                }
                ++(divides ? account.cut : account.unnamed);
                (divides ? plan.cutMarks : plan.unnamedMarks)
                    .push_back({marks.placeOf(mark, task), divides && emptiesPiece(mark)});
                break;
            }
        }
    }

    // A piece of a track loses its last mark. Where the mark of the track before it, that was not excluded,
    // is lost too, or there is none, this was the piece's only one.
    bool emptiesPiece(std::size_t mark)
    {
        const std::size_t first = marks.trackOf(mark).firstMark;
        while (mark > first && marks.fates[mark - 1] == Fate::excluded) {
            --mark;
        }
        return mark == first || marks.fates[mark - 1] == Fate::read;
    }

    void settleFiles()
    {
        std::map<std::string, std::size_t> later;
        for (std::size_t i = plan.files.size(); i-- > 0;) {
            PlannedFile& file = plan.files[i];
            plan.account.planned += file.marks;
            if (!file.isWritten) {
                plan.account.unwritten += file.marks;
                continue;
            }
            const auto [place, isLast] = later.try_emplace(file.path, i + 1);
            file.replacedBy = isLast ? 0 : place->second;
            (isLast ? plan.account.written : plan.account.overwritten) += file.marks;
        }
    }

    const TConvMea& task;
    const Works& works;
    Plan plan;
    MarkLedger marks;
    PlannedFiles files;
    NextTrack unread; // the source that was opened last
    bool hasMore = false;
    bool isBroken = false; // an exception ended the work
    int series = -1;
    TService service{};
};

} // namespace

MarkPlace Plan::placeOf(int number, const TConvMea& task) const
{
    const std::size_t mark = static_cast<std::size_t>(number) - 1;
    return placeIn(trackHolding(tracks, mark), mark, task);
}

std::size_t Plan::writtenFiles() const
{
    return static_cast<std::size_t>(std::count_if(files.begin(), files.end(), [](const PlannedFile& file) {
        return file.isWritten && file.replacedBy == 0;
    }));
}

Plan planOf(const TConvMea& task, const Works& works, const PlanWatch& watch)
{
    return PlanMaker(task, works, watch).make();
}

} // namespace companion
