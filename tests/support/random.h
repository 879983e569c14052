// Random numbers of a test: fast also where nothing is optimised, and the same in every run.

#pragma once

#include <cstdint>
#include <type_traits>

class Random
{
public:
    explicit Random(std::uint64_t seed) : state(seed)
    {
    }
    /// The next number, each of its bits random.
    std::uint64_t bits()
    {
        state += 0x9e3779b97f4a7c15u;
        std::uint64_t z = state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }
    /// At least 0 and below the end.
    template <class Integer>
    Integer below(Integer end)
    {
        return static_cast<Integer>(bits() % static_cast<std::make_unsigned_t<Integer>>(end));
    }
    /// At least 0 and below 1.
    double fraction()
    {
        return static_cast<double>(bits() >> 11) / 9007199254740992.0;
    }

private:
    std::uint64_t state;
};
