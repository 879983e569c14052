// Chunked list: a list that grows at its end without moving what it holds.

#pragma once

#include <cstddef>
#include <memory>
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
            chunks.push_back(std::make_unique_for_overwrite<Entry[]>(entriesOfAChunk));
        }
        (*this)[count++] = entry;
    }

    /// Gives back the memory of entries before an index, which are not asked for any more.
    void forgetBefore(std::size_t index)
    {
        for (; forgotten < index / entriesOfAChunk; ++forgotten) {
            chunks[forgotten].reset();
        }
    }

private:
    static constexpr std::size_t entriesOfAChunk = std::size_t{1} << 14;

    std::vector<std::unique_ptr<Entry[]>> chunks;
    std::size_t count = 0;
    std::size_t forgotten = 0; // chunks
};

} // namespace tavelinUtils
