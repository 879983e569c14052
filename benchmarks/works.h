// Works of the tool: single conversions and reports, with the inputs and tasks that are made for them.

#pragma once

#include "rows.h"

#include <filesystem>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

/// Made inputs on the disk, each in a folder of its own. The two that were asked for last are kept.
class MadeInputs
{
public:
    explicit MadeInputs(std::filesystem::path folder);

    /// The folder of that name. Unless it is one of those kept, the function fills it, in a process of its
    /// own.
    std::filesystem::path folder(const std::string& name,
                                 const std::function<void(const std::filesystem::path&)>& fill);

    void removeAll();

private:
    std::filesystem::path place;
    std::list<std::string> kept; // the latest first
};

/// A work that is ready to run.
struct Work
{
    std::string task;
    std::filesystem::path output; // the folder of its output, with nothing else in it
    std::vector<std::string> inputs;
    std::string shape; // of the inputs, as the yardstick takes it
    long marks;
    long longestTrack;
    Asked ratio;               // of processor time to the yardstick's
    Asked bytesOfMark;         // beside what each mark of the longest track may take
    std::optional<Asked> peak; // in GB
};

/// A file of so many marks converted from one format to another.
struct Conversion
{
    std::string input; // words of the formats
    std::string output;
    long marks;
    long objects;
    bool mixed = false; // line by line
};

std::string nameOf(const Conversion& conversion);
Work prepared(MadeInputs& inputs, const Conversion& conversion);

/// A report over the track tables of several series, each of which has a configuration of its own.
struct Report
{
    std::string division; // toSeparateFile
    std::string output;   // word of the format
    long series;
    long tracks; // of each series
    long marks;  // of each track
    long names;

    long allTracks() const
    {
        return series * tracks;
    }

    long allMarks() const
    {
        return series * tracks * marks;
    }
};

std::string nameOf(const Report& report);
Work prepared(MadeInputs& inputs, const Report& report);
