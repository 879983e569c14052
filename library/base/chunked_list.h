// Chunked list: a list that grows at its end without moving what it holds.

#pragma once

#include <cstddef>
#include <vector>

namespace tavelinUtils {

/// A list of small entries. A vector that grows holds its entries twice for a moment, and leaves the smaller
/// rooms behind; this list takes room by the chunk.
template <class Entry>
class ChunkedList
{
public:
    std::size_t size() const
    {
        return count;
    }

    bool empty() const
    {
        return count == 0;
    }

    Entry& operator[](std::size_t index)
    {
        return chunks[index / entriesOfAChunk][index % entriesOfAChunk];
    }

    const Entry& operator[](std::size_t index) const
    {
        return chunks[index / entriesOfAChunk][index % entriesOfAChunk];
    }

    void add(const Entry& entry)
    {
        if (count == chunks.size() * entriesOfAChunk) {
            chunks.emplace_back().reserve(entriesOfAChunk);
        }
        chunks.back().push_back(entry);
        ++count;
    }

    /// Gives back the memory of entries before an index, which are not asked for any more.
    void forgetBefore(std::size_t index)
    {
        for (; forgotten < index / entriesOfAChunk; ++forgotten) {
            std::vector<Entry>().swap(chunks[forgotten]);
        }
    }

private:
    static constexpr std::size_t entriesOfAChunk = std::size_t{1} << 14;

    std::vector<std::vector<Entry>>
        chunks; // with room for all their entries, of which none is touched too early
    std::size_t count = 0;
    std::size_t forgotten = 0; // chunks
};

} // namespace tavelinUtils
