// Configuration checks: the settings of the series of a report, searched as the tool does it, but not where
// the search may go through the whole machine, and not loaded where the load never ends.

#pragma once

#include "config/settings.h"
#include "findings/finding.h"
#include "task/task_document.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace companion {

/// What the search for the configuration of a series has found.
struct SeriesConfiguration
{
    std::string folder{};             ///< of the series
    bool isSearched = false;          ///< false where the folder is too high up
    bool tellsKinds = true;           ///< the file system tells folders from files
    std::vector<std::string> files{}; ///< configurations in the order of the file system: the first counts
    std::string emptyList{};          ///< a list with an empty item, which the reader does not get past
    std::string problem{};            ///< why it does not load, or gives nothing
    std::string unknownService{};     ///< the word of an unknown service
    tavelinUtils::TPorogs settings{}; ///< the defaults where there is no configuration
};

/// The settings of series. Each folder is searched once for all tasks that ask the same object.
class SeriesSettings
{
public:
    /// What was found for the series of a track table. Throws std::out_of_range for an empty path.
    const SeriesConfiguration& of(const std::string& table);

    /// The settings of a series for the works of the tool; the object must outlive the function.
    std::function<tavelinUtils::TPorogs(const std::string& table)> forWorks();

    /// The configurations that the series of a task take, each once, in the order of the series.
    std::vector<std::string> takenBy(const tavelinUtils::TConvMea& task);

    /// What is wrong with the configurations of a report: V216 to V225 and V255. A finding that several
    /// series have is told once, with its count.
    std::vector<Finding> findings(const TaskDocument& document, const tavelinUtils::TConvMea& task);

private:
    std::map<std::string, SeriesConfiguration> found;
};

} // namespace companion
