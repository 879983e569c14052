// File account: the lines of a file by what became of them, and what its reader made of them.

#pragma once

#include <cstddef>

namespace companion {

/// The lines of a file by their fates (formats/line_watch.h), and the tracks and marks that the reader made
/// of them.
struct FileAccount
{
    std::size_t lines = 0;
    std::size_t head = 0;
    std::size_t blank = 0;
    std::size_t marks = 0; ///< lines that made a mark
    std::size_t parts = 0;
    std::size_t ends = 0;
    std::size_t passed = 0;
    std::size_t lost = 0;
    std::size_t refused = 0;
    std::size_t tracks = 0;    ///< of the reader
    std::size_t marksRead = 0; ///< of its tracks
    std::size_t repeated = 0;  ///< of these, those that no line of their own made (SSMAS, TDM)

    /// Adds the account of another file.
    FileAccount& operator+=(const FileAccount& other);

    /// Whether each line has a fate, and each mark a line that made it or another reason.
    bool agrees() const
    {
        return lines == head + blank + marks + parts + ends + passed + lost + refused &&
               marksRead == marks + repeated;
    }

    friend bool operator==(const FileAccount& a, const FileAccount& b) = default;
};

} // namespace companion
