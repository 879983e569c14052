// Read inputs: what is found in the files that tasks read, looked at once for all tasks.

#pragma once

#include "findings/finding.h"
#include "reading/lint.h"

#include <memory>
#include <string>
#include <vector>

namespace companion {

/// What was found in an input.
struct ReadInput
{
    FileAccount account{};
    std::vector<Finding> findings{}; ///< one for each code, with its count and its first places
};

/// Looks at inputs. One that several tasks read in the same way is looked at once, as long as it is the same
/// file of the same size and time.
class InputReader
{
public:
    InputReader();
    ~InputReader();
    InputReader(const InputReader&) = delete;
    InputReader& operator=(const InputReader&) = delete;

    /// What the check of a task finds in a file of the format; of a track table, in these columns alone.
    const ReadInput& read(const std::string& path, const std::string& format, const std::string& columns);

private:
    struct Cache;

    std::unique_ptr<Cache> cache;
};

} // namespace companion
