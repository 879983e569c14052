// What the mutators share: random choices, and values to put in the place of others.

#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// Random choices of one mutation.
class Choices
{
public:
    Choices(unsigned seed, const std::vector<std::string>& dictionary) : random(seed), words(dictionary)
    {
    }

    /// At least 0 and below the end, which is not 0.
    std::size_t below(std::size_t end)
    {
        return random() / 16 % end; // the low bits of this generator are the poorer ones
    }

    /// True once in so many times.
    bool onceIn(std::size_t times)
    {
        return below(times) == 0;
    }

    /// One of a list that is not empty.
    template <class List>
    const auto& oneOf(const List& list)
    {
        return list[below(std::size(list))];
    }

    /// A number that readers may not expect, as text.
    std::string oddNumber();

    /// A word of the dictionary; an odd number where it has none.
    std::string word();

    /// A word, an odd number, or nothing.
    std::string value();

private:
    std::minstd_rand random;
    const std::vector<std::string>& words;
};
