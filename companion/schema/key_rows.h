// Key rows: the row of a table that belongs to a key.

#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace companion {

/// The row of a table whose member is the key. Throws std::logic_error where the table has none.
template <class Rows, class Member>
const auto& rowOfKey(const Rows& rows, Member member, std::string_view key)
{
    const auto row = std::find_if(std::begin(rows), std::end(rows), [member, key](const auto& each) {
        return std::invoke(member, each) == key;
    });
    if (row == std::end(rows)) {
        throw std::logic_error("a table without a row for " + std::string(key));
    }
    return *row;
}

} // namespace companion
