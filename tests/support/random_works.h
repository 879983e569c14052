// Inputs and tasks at random, good and odd ones mixed, the same in every run of a test program.

#pragma once

#include "task.h"

#include "support/random.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

/// Makes inputs, track tables and configurations, and tasks on files of them.
class RandomWorks
{
public:
    explicit RandomWorks(std::uint64_t seed) : random(seed)
    {
    }

    /// The text of an input in the format of the word, one of those that can be read.
    std::string input(const std::string& word);
    /// The text of a track table: any columns in any order, short lines, ends of tracks in many forms.
    std::string table();
    /// The text of a configuration, now and then a broken one.
    std::string configuration();

    /// A conversion in a folder that holds the input "in/c." + word for each word, and the folder "out".
    tavelinUtils::TConvMea conversion(const std::string& folder);
    /// A report in a folder with series in the folders "s0", "s1" and so on, so many of them.
    tavelinUtils::TConvMea report(const std::string& folder, std::size_t series);

    /// The path of the table of a series below its folder.
    static std::string tablePath(std::size_t series);
    /// The path of its configuration.
    static std::string configurationPath(std::size_t series);

    /// True so many times in a hundred.
    bool chance(int percent)
    {
        return random.below(100) < percent;
    }
    /// From 0 to the number, which is included.
    int upTo(int last)
    {
        return random.below(last + 1);
    }

private:
    using Words = std::vector<const char*>;

    std::string pick(const Words& words)
    {
        return words[random.below(words.size())];
    }
    std::string pick(std::initializer_list<const char*> words)
    {
        return words.begin()[random.below(words.size())];
    }
    std::string digits(int count);
    std::string number();
    std::string packed(bool sign);
    std::string packedDate();
    std::string epoch();
    std::string name();
    std::string lineEnd();

    std::string mea();
    std::string telegram();
    std::string tdm();
    std::string ssmas();

    struct TrackTexts;
    std::string tableTrack(const std::vector<std::string>& columns);
    std::string tableField(const std::string& column, const TrackTexts& track, int minute);

    tavelinUtils::TSeria2 seria(const std::string& folder, std::size_t series);

    Random random;
};
