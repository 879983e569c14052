#include "task/read_inputs.h"

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <iterator>
#include <map>
#include <sys/stat.h>
#include <tuple>
#include <utility>

namespace companion {
namespace {

constexpr std::size_t shownPlaces = 3;

// Findings of a file, one for each code, with the first places.
class GroupedFindings
{
public:
    void add(Finding found)
    {
        const auto [place, isNew] = places.try_emplace(found.code, groups.size());
        if (isNew) {
            groups.push_back(std::move(found));
            return;
        }
        Finding& group = groups[place->second];
        group.count += found.count;
        // The first place, if there is one and room for it.
        const std::size_t room = shownPlaces - std::min(shownPlaces, group.places.size());
        const std::size_t added = std::min({std::size_t{1}, found.places.size(), room});
        std::move(found.places.begin(), found.places.begin() + static_cast<std::ptrdiff_t>(added),
                  std::back_inserter(group.places));
    }

    std::vector<Finding> all() const
    {
        return groups;
    }

private:
    std::map<FindingCode, std::size_t> places;
    std::vector<Finding> groups;
};

using InputState = std::tuple<dev_t, ino_t, off_t, time_t, long, std::string, std::string>;

// What tells whether an input was looked at before: the file as it is, how it is read, and what of it.
InputState stateOf(const std::string& path, const std::string& format, const std::string& columns)
{
    struct stat status = {}; // of zeros where the file cannot be looked at
    stat(path.c_str(), &status);
    return InputState{status.st_dev,          status.st_ino,       status.st_size, status.st_mtim.tv_sec,
                      status.st_mtim.tv_nsec, path + ' ' + format, columns};
}

} // namespace

struct InputReader::Cache
{
    std::map<InputState, ReadInput> inputs{};
};

InputReader::InputReader() : cache(std::make_unique<Cache>())
{
}

InputReader::~InputReader() = default;

const ReadInput& InputReader::read(const std::string& path, const std::string& format,
                                   const std::string& columns)
{
    const auto [place, isNew] = cache->inputs.try_emplace(stateOf(path, format, columns));
    ReadInput& input = place->second;
    if (isNew) {
        LintSettings settings;
        settings.forCheck = true;
        settings.columns = columns;
        GroupedFindings groups;
        input.account =
            lintFile(path, format, settings, [&groups](Finding found) { groups.add(std::move(found)); });
        input.findings = groups.all();
    }
    return input;
}

} // namespace companion
