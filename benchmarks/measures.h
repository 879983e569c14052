// Measures: the rows of the table, each made by running the tool in turn with what it is held against.

#pragma once

#include "processes.h"
#include "rows.h"
#include "works.h"

#include <string>

/// The tool that is measured, and the place where.
struct Bench
{
    std::string tool;
    TemporaryFolder folder;
    MadeInputs inputs;
    std::string nothing;   // the task that asks for nothing
    double startBytes = 0; // the peak of a run of it

    explicit Bench(const std::string& tool);
};

/// A work against the yardstick: time, and memory above that of the tool's start.
Row compared(Bench& bench, const std::string& name, const Work& work, int rounds);

/// Two sizes of a work, the second larger by the factor: the exponent by which the time grows.
Row grown(const Bench& bench, const std::string& name, const Work& small, const Work& large, double factor,
          Asked asked, int rounds);

/// The start of the tool against that of an empty program.
Row comparedStart(const Bench& bench, const std::string& name, int rounds);

/// A comparison of two files of so many marks by the command, against another program that reads both.
Row comparedDiff(Bench& bench, const std::string& name, const std::string& command,
                 const std::string& reading, long marks, int rounds);

/// At least so many small tasks, each its own run, against starts of a static program that reads and writes
/// as many bytes.
Row comparedSmallTasks(Bench& bench, const std::string& name, int tasks, int rounds);
