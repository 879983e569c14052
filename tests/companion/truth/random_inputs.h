// Random inputs: measurement files, track tables and configurations, good ones and ones with faults.

#pragma once

#include "companion/truth/random_choices.h"

#include <string>
#include <vector>

/// Makes the texts of inputs.
class RandomInputs
{
public:
    /// Writers of the library put their files at the scratch path. The choices must outlive the object.
    RandomInputs(RandomChoices& theChoices, std::string scratchPath)
        : choices(theChoices), scratch(std::move(scratchPath))
    {
    }

    /// The text of a measurement file in the format of a word that can be read.
    std::string measurements(const std::string& word);
    /// The text of a track table.
    std::string table();
    /// The text of the configuration of a series.
    std::string configuration();

private:
    std::string written(const std::string& word);
    std::string tableTrack(const std::vector<std::string>& columns);
    std::string faulty(std::string text);
    std::string configurationKeys();

    RandomChoices& choices;
    std::string scratch;
};
