// Result entries: what a result file or log says, as it stands there. The library exchanges comment and
// description when it reads a document; here each keeps its name.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace companion {

/// A result, as the tool writes it: comment and description as they are in the file.
struct ResultEntry
{
    int code = 0;
    std::string comment{};
    std::string description{};
    std::string date{};

    bool operator==(const ResultEntry& other) const = default;
};

/// Whether a result path is written as a document, and not as a log.
bool isResultDocument(const std::string& path);

/// The results of a document in their order; none where it cannot be read as one.
std::vector<ResultEntry> resultsOfDocument(const std::string& path);

/// The results of the lines of a log, from an offset of its bytes on. A description of several lines is one.
std::vector<ResultEntry> resultsOfLog(const std::string& path, std::uint64_t from = 0);

} // namespace companion
