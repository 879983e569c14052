// Page contents: what a page shows, gathered from the files and tasks that it is made of.

#pragma once

#include "command/batch_outcome.h"
#include "findings/finding.h"
#include "out/svg_chart.h"
#include "reading/file_account.h"
#include "reading/result_entries.h"
#include "task/checked_task.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace companion {

/// Objects that have pictures on a page, at most.
inline constexpr std::size_t mostPictured = 200;

/// A measurement file.
struct PageFile
{
    std::string path;
    std::string format; ///< a name of reading/signatures.h; empty where it is not certain
    std::string site{};
    FileAccount account{};
    std::string first{}; ///< the earliest time of a mark; empty where none is known
    std::string last{};
};

/// A file that a task writes.
struct PageOutput
{
    std::string path;
    std::string format;
    std::size_t planned = 0; ///< marks
    bool isThere = false;
    std::size_t found = 0; ///< marks
};

/// What a batch knows of one of its tasks.
struct PageNight
{
    BatchStatus status = BatchStatus::toRun;
    std::string date{};    ///< of the night: "2024-01-20"; empty where it is not known
    std::string why{};     ///< it is not up to date
    std::size_t read = 0;  ///< marks of the last run
    std::size_t found = 0; ///< marks in its outputs after the last run
};

/// A task.
struct PageTask
{
    std::string path;
    bool isReport = false;
    bool hasPlan = false;
    std::string first{}; ///< the earliest time of a mark that it reads; empty where none is known
    std::optional<PageNight> night{}; ///< of a task of a batch
    MarkAccount marks{};
    std::vector<PageOutput> outputs{};  ///< those that are there at the end of a run
    std::vector<ResultEntry> results{}; ///< of its result file

    /// Whether any of its files is there, or it was run in a batch without leaving one.
    bool wasRun() const;
    /// The marks in all files that are there.
    std::size_t found() const;
};

/// An object, with what all files say of it.
struct PageObject
{
    std::size_t tracks = 0;
    std::size_t marks = 0;
    std::string first{};
    std::string last{};
    std::set<std::string> filters{};
    double sumOfMagnitudes = 0;
    std::size_t magnitudes = 0;
    bool hasMotion = false;
    double slowest = 0; ///< of its tracks, arcseconds per minute
    double fastest = 0;
    std::vector<LightCurve> curves{};
    std::vector<SkyTrack> paths{};
    bool isPictured = false;

    /// Whether there is anything to draw.
    bool canBePictured() const
    {
        return !curves.empty() || !paths.empty();
    }
};

/// The findings of one code.
struct FindingGroup
{
    std::size_t count = 0;
    std::vector<Finding> first{}; ///< of many the first ones
};

/// What a page shows.
struct PageContents
{
    std::size_t batches = 0;
    BatchCounts states{}; ///< of the tasks of batches
    std::vector<PageFile> files{};
    std::vector<PageTask> tasks{};
    std::map<std::string, PageObject> objects{};
    std::map<std::pair<Severity, FindingCode>, FindingGroup> findings{};
    FindingTotals totals{};
    std::set<std::string> sites{};
    std::string first{};
    std::string last{};
    FileAccount lines{};     ///< of all files
    MarkAccount marks{};     ///< of all tasks
    std::size_t undrawn = 0; ///< marks whose time or magnitude is not one that can be drawn

    /// How many objects have pictures.
    std::size_t pictured() const;
    /// Whether there are tasks that are no part of a batch.
    bool hasTasksAlone() const;
};

/// Gathers the contents of a page.
class PageGatherer
{
public:
    /// Progress of long work goes to the console, which must outlive the gatherer.
    explicit PageGatherer(const Console& console);
    ~PageGatherer();
    PageGatherer(const PageGatherer&) = delete;
    PageGatherer& operator=(const PageGatherer&) = delete;

    /// Adds a measurement file or a task by the name that the call gives it; it is read from a path. An empty
    /// format is found out. Throws WrongUsage for a file that cannot be read (V003), and for one that holds
    /// neither (V001).
    void add(const std::string& name, const std::string& path, std::string format);

    /// Adds the folder of a batch, with all its tasks. Throws WrongUsage for a folder that is none (V001),
    /// and where its plan cannot be read (V003, V454).
    void addBatch(const std::string& folder);

    /// The contents, with pictures for the objects of these names, or for those with the most marks where
    /// none is named. Throws WrongUsage (V002) for a name that no object has.
    PageContents finish(const std::vector<std::string>& pictured);

    /// The files that were read, which are not to be written over. Their paths are absolute.
    const std::vector<std::string>& sources() const;

private:
    struct State;

    std::unique_ptr<State> state;
};

} // namespace companion
