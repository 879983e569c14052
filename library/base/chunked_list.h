// Chunked list: a list that grows at its end without moving what it holds.

#pragma once

#include "large_room.h"

#include <cstddef>
#include <new>
#include <type_traits>
#include <vector>

namespace tavelinUtils {

/// A list of small entries. A vector that grows holds its entries twice for a moment, and leaves the smaller
/// rooms behind; this list takes room by the chunk, and touches none of it too early.
template <class Entry>
class ChunkedList
{
    static_assert(std::is_trivially_copyable_v<Entry> && alignof(Entry) <= alignof(std::max_align_t));

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

    /// Adds an entry at the end and returns it.
    Entry& add(const Entry& entry)
    {
        if (end == limit) {
            addChunk();
        }
        ++count;
        return *::new (static_cast<void*>(end++)) Entry(entry);
    }

private:
    static constexpr std::size_t entriesOfAChunk = std::size_t{1} << 14;

    // A short list takes a room for each chunk; a longer one for so many together.
    static constexpr std::size_t chunksOfARoom = 16;

    void addChunk()
    {
        constexpr std::size_t bytes = entriesOfAChunk * sizeof(Entry);
        const std::size_t place = chunks.size() % chunksOfARoom;
        const bool isShort = chunks.size() < chunksOfARoom;
        if (isShort || place == 0) {
            rooms.push_back(isShort ? plainRoom(bytes) : largeRoom(chunksOfARoom * bytes));
        }
        std::byte* const room = rooms.back().get() + (isShort ? 0 : place * bytes);
        chunks.push_back(reinterpret_cast<Entry*>(room));
        end = chunks.back();
        limit = end + entriesOfAChunk;
    }

    std::vector<Room> rooms;
    std::vector<Entry*> chunks;
    Entry* end = nullptr;   // of the entries in the last chunk
    Entry* limit = nullptr; // of its room
    std::size_t count = 0;
};

} // namespace tavelinUtils
