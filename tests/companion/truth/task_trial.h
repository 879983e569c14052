// Task trial: one random task is checked, then run, and what the check said is held against what the run did.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What a trial found.
struct TrialOutcome
{
    std::vector<std::string> failures{}; ///< sentences; none: the check told the truth
    std::vector<std::string> findings{}; ///< of the check, one line each
    bool wasRun = true;                  ///< false where the run would write into the root folder
    bool isClean = false;                ///< the check had no errors
    bool isReport = false;
    bool hung = false;
    bool died = false;
    std::size_t marksRead = 0;
    std::size_t marksWritten = 0;
};

/// Makes the task of a seed in the folder "trial/case" of a folder that is empty, checks it, runs the tool on
/// it and compares. Changes the present folder to that of the case.
TrialOutcome tryTask(std::uint64_t seed, const std::string& folder, const std::string& tool);
