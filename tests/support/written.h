// Written: what a function writes to a place with room for it.

#pragma once

#include <cstddef>
#include <string>

/// The text between a place and the end that the function returns for it.
template <class Write>
std::string written(Write write)
{
    constexpr std::size_t enough = 2048;
    char room[enough];
    return {room, write(room)};
}
