// Random choices: mostly what is right, and now and then a fault, as often as a test wants.

#pragma once

#include "support/random.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Makes choices, the same in every run for a seed.
class RandomChoices
{
public:
    using Words = std::vector<std::string>;

    /// `faultsOfThousand`: how often a choice that has an odd side takes it.
    RandomChoices(std::uint64_t seed, int faultsOfThousand) : random(seed), faults(faultsOfThousand)
    {
    }

    /// True so many times in a hundred.
    bool chance(int percent)
    {
        return random.below(100) < percent;
    }
    /// True once in so many times.
    bool onceIn(int times)
    {
        return random.below(times) == 0;
    }
    /// Whether the next choice is a fault.
    bool fault()
    {
        return random.below(1000) < faults;
    }
    /// From the first to the last number, both included.
    int between(int first, int last)
    {
        return first + random.below(last - first + 1);
    }
    /// At least 0 and below 1.
    double fraction()
    {
        return random.fraction();
    }
    /// A place in a list that is not empty.
    std::size_t place(std::size_t size)
    {
        return random.below(size);
    }
    /// One of the words.
    std::string pick(const Words& words)
    {
        return words[place(words.size())];
    }
    /// One of the right words, or as a fault one of the odd ones.
    std::string oddly(const Words& right, const Words& odd)
    {
        return pick(fault() ? odd : right);
    }
    /// A seed for choices of another kind.
    std::uint64_t seed()
    {
        return random.bits();
    }

private:
    Random random;
    int faults;
};
