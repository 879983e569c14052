// Indexes by which records refer to each other; one may be outside its list.

#pragma once

#include <cstddef>

namespace tavelinUtils {

/// The element at an index; a null pointer if the list has none there.
template <class List>
auto* elementAt(List& list, int index)
{
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < list.size() ? &list[place] : nullptr;
}

} // namespace tavelinUtils
