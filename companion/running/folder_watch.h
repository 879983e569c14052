// Folder watch: files that appear in the folders of the outputs and that no task was to write.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace companion {

/// Watches the folders of a call. A folder of very many names is not watched: its list would be read again
/// for each task.
class FolderWatch
{
public:
    /// Watches a folder from now on, for a task that writes into it; what was seen of one that is watched
    /// already stays.
    void watch(const std::string& folder);

    /// A task that had the folder watched does not run any more.
    void leave(const std::string& folder);

    /// Whether more than one task has the folder watched: then nobody knows whose a file is that appears.
    bool isShared(const std::string& folder);

    /// Expects a file, in any folder.
    void expect(const std::string& path);

    /// The paths of the files that have appeared in a folder since the last look and that nobody expects, in
    /// the order of bytes, each with the folder in front as it is given.
    std::vector<std::string> strangers(const std::string& folder);

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const
        {
            return std::hash<std::string_view>()(name);
        }
    };
    using Names = std::unordered_set<std::string, Hash, std::equal_to<>>;

    const std::string& placeOf(const std::string& folder);

    std::map<std::string, std::string> places;   // of folders, by their names
    std::map<std::string, std::size_t> watchers; // by the places of folders
    std::map<std::string, Names> seen;           // names, by the places of their folders
    std::set<std::string> expected;
};

/// A path by which two spellings of one file are the same: that of its folder without links, and its name.
std::string placeOfFile(const std::string& path);

} // namespace companion
