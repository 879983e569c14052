// Indexes that records hold of each other, and lists that may not have what they name.

#pragma once

#include <cstddef>

namespace tavelinUtils {

/// The element that an index names; a null pointer where the list has none.
template <class List>
auto* elementAt(List& list, int index)
{
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < list.size() ? &list[place] : nullptr;
}

} // namespace tavelinUtils
