// Differences that a sweep finds between what the library gives and what is expected of it.

#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Differences
{
public:
    /// Values of which an operation, with its decimals, gives something else than expected are counted, and
    /// the first of them told.
    void expect(std::string_view found, std::string_view expected, const char* operation, int decimals,
                std::uint64_t value)
    {
        if (found != expected) {
            add(operation, decimals, value, found, expected);
        }
    }
    /// The same of a number, of which each bit counts.
    void expect(double found, double expected, const char* operation, int decimals, std::uint64_t value)
    {
        const auto bits = [](double of) { return std::bit_cast<std::uint64_t>(of); };
        if (bits(found) != bits(expected)) {
            add(operation, decimals, value, std::to_string(bits(found)), std::to_string(bits(expected)));
        }
    }

    void add(const Differences& others)
    {
        number += others.number;
        for (const std::string& sentence : others.sentences) {
            keep(sentence);
        }
    }

    std::uint64_t count() const
    {
        return number;
    }
    const std::vector<std::string>& first() const
    {
        return sentences;
    }

private:
    void add(const char* operation, int decimals, std::uint64_t value, std::string_view found,
             std::string_view expected)
    {
        ++number;
        keep(std::string(operation) + " with " + std::to_string(decimals) + " decimals of " +
             std::to_string(value) + ": \"" + std::string(found) + "\", expected \"" + std::string(expected) +
             "\"");
    }

    void keep(const std::string& sentence)
    {
        constexpr std::size_t most = 20;
        if (sentences.size() < most) {
            sentences.push_back(sentence);
        }
    }

    std::uint64_t number = 0;
    std::vector<std::string> sentences;
};
