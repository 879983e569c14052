#include "base/text_buffer.h"

#include <algorithm>

namespace tavelinUtils {

void TextBuffer::grow(std::size_t count)
{
    const std::size_t used = size();
    const std::size_t roomNow = std::max(used + count, 2 * static_cast<std::size_t>(limit - begin));
    auto grown = std::make_unique_for_overwrite<char[]>(roomNow);
    std::memcpy(grown.get(), begin, used);
    larger = std::move(grown);
    begin = larger.get();
    end = begin + used;
    limit = begin + roomNow;
}

} // namespace tavelinUtils
