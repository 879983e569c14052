// Plan: what a task would do, found out by the tool's own works with sinks that write nothing.

#pragma once

#include "findings/finding.h"
#include "receivers/track_rules.h"
#include "results/result.h"
#include "task.h"
#include "works.h"

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace companion {

/// A file that a task would write.
struct PlannedFile
{
    std::string path;
    std::string format; ///< the output word
    std::size_t tracks = 0;
    std::size_t marks = 0;
    bool isWritten =
        true; ///< false where the writer makes no file of what it is given, or of an unknown word
    std::size_t overwrittenBy =
        0; ///< the place, from 1, of a later file of the same path; 0 where there is none
};

/// A mark that is in no file of the plan.
struct MissingMark
{
    MarkPlace place;
    bool emptiesPiece = false; ///< the piece of a track that it belonged to has no mark left
};

/// What becomes of the marks of a task.
struct MarkAccount
{
    std::size_t read = 0;
    std::size_t excluded = 0;    ///< as the task says
    std::size_t narrowed = 0;    ///< left out by whatSave "object"
    std::size_t cut = 0;         ///< lost where tracks are divided by gaps
    std::size_t unnamed = 0;     ///< in a file that gets no name
    std::size_t planned = 0;     ///< handed to writers
    std::size_t overwritten = 0; ///< of these, in a file that a later one replaces
    std::size_t unwritten = 0;   ///< of these, where no file is made
    std::size_t written = 0;     ///< in files at the end
};

/// The plan of a task.
struct Plan
{
    tavelinUtils::TFuncRes result;  ///< what the tool would put into the result file
    std::vector<PlannedFile> files; ///< in the order of writing
    MarkAccount account;
    std::vector<MissingMark> cutMarks; ///< in the order of reading
    std::vector<MissingMark> unnamedMarks;
    std::size_t withoutCheckerName = 0;   ///< objects that get a running name
    std::set<std::string> runningNames{}; ///< these names
};

/// Looks at what a plan's sinks are given.
struct PlanWatch
{
    std::function<void(const PlannedFile& file)> openFile;
    std::function<void(const PlannedFile& file, const tavelinUtils::TrackVtorichka& track)> track;
};

/// The plan of a task whose out_dir is the folder that the tool would take (outputFolder). Sources and
/// settings are those of the works, sinks are the plan's own. Exceptions of sources are passed on where the
/// tool passes them on.
Plan planOf(const tavelinUtils::TConvMea& task, const Works& works, const PlanWatch& watch = {});

} // namespace companion
