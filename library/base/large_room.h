// Large room: memory for what may become large.

#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace tavelinUtils {

struct FreeRoom
{
    void operator()(std::byte* room) const
    {
        std::free(room);
    }
};

/// Memory that nothing has been written to.
using Room = std::unique_ptr<std::byte[], FreeRoom>;

/// So many bytes. Throws std::bad_alloc.
Room plainRoom(std::size_t bytes);

/// The same in large pages, where the system has them: in the usual ones the first touch of so much memory
/// takes longer than writing all of it.
Room largeRoom(std::size_t bytes);

/// Wishes for large pages in a room that nothing has been written to.
void wishForLargePages(void* room, std::size_t bytes);

} // namespace tavelinUtils
