// Page contents: what a page shows, gathered from the files and tasks that it is made of.

#pragma once

#include "findings/finding.h"
#include "out/svg_chart.h"
#include "reading/file_account.h"
#include "reading/result_entries.h"
#include "task/checked_task.h"

#include <cstddef>
#include <map>
#include <memory>
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

/// A task.
struct PageTask
{
    std::string path;
    bool isReport = false;
    bool hasPlan = false;
    MarkAccount marks{};
    std::vector<PageOutput> outputs{};  ///< those that are there at the end of a run
    std::vector<ResultEntry> results{}; ///< of its result file

    /// Whether any of its files is there.
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
};

/// Gathers the contents of a page.
class PageGatherer
{
public:
    PageGatherer();
    ~PageGatherer();
    PageGatherer(const PageGatherer&) = delete;
    PageGatherer& operator=(const PageGatherer&) = delete;

    /// Adds a measurement file or a task by the name that the call gives it; it is read from a path. An empty
    /// format is found out. Throws WrongUsage for a file that cannot be read (V003), and for one that holds
    /// neither (V001).
    void add(const std::string& name, const std::string& path, std::string format);

    /// The contents, with pictures for the objects of these names, or for those with the most marks where
    /// none is named. Throws WrongUsage (V002) for a name that no object has.
    PageContents finish(const std::vector<std::string>& pictured);

    /// The files that were read, for those that are not to be written over.
    std::vector<std::string> inputs() const;

private:
    struct State;

    std::unique_ptr<State> state;
};

} // namespace companion
