#include "base/large_room.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace tavelinUtils {
namespace {

constexpr std::size_t largePage = std::size_t{1} << 21;

Room owned(void* room)
{
    if (room == nullptr) {
        throw std::bad_alloc();
    }
    return Room(static_cast<std::byte*>(room));
}

} // namespace

Room plainRoom(std::size_t bytes)
{
    return owned(std::malloc(bytes));
}

Room largeRoom(std::size_t bytes)
{
    const std::size_t wholePages = (bytes + largePage - 1) / largePage * largePage;
    Room room = owned(std::aligned_alloc(largePage, wholePages));
    wishForLargePages(room.get(), wholePages);
    return room;
}

void wishForLargePages([[maybe_unused]] void* room, [[maybe_unused]] std::size_t bytes)
{
#ifdef MADV_HUGEPAGE
    std::size_t whole = bytes;
    void* pages = room;
    if (std::align(largePage, largePage, pages, whole) != nullptr) {
        madvise(pages, whole / largePage * largePage, MADV_HUGEPAGE); // refused, the wish changes nothing
    }
#endif
}

} // namespace tavelinUtils
