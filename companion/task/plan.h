// Plan: what a task would do, found out by the tool's own works with sinks that write nothing.

#pragma once

#include "findings/finding.h"
#include "results/result.h"
#include "task.h"
#include "works.h"

#include <cstddef>
#include <functional>
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
        true; ///< false where no file is made: of an unknown word, of nothing, behind a failed write
    std::size_t replacedBy =
        0; ///< the place, from 1, of a later file of the same path; 0 where there is none
};

/// A track as it was read.
struct ReadTrack
{
    int series = -1;           ///< counted from 0; -1 in a conversion
    int number = 0;            ///< of the series or file, counted from 0
    std::string object;        ///< its name in the file it is written to, or that of its source
    std::size_t firstMark = 0; ///< counted through all tracks
    std::size_t marks = 0;
};

/// What the first track of a file says before the names of the task replace it.
struct FileWords
{
    std::string originator;
    std::string telescope;
    std::string frame;
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
    std::size_t unnamed = 0;     ///< in a file that gets no name, or of no known division
    std::size_t planned = 0;     ///< handed to writers
    std::size_t overwritten = 0; ///< of these, in a file that a later one replaces
    std::size_t unwritten = 0;   ///< of these, where no file is made
    std::size_t written = 0;     ///< in files at the end

    /// Whether what was read is what became of it, and what was planned is what was written, replaced or not
    /// written.
    bool agrees() const
    {
        return read == excluded + narrowed + cut + unnamed + planned &&
               planned == written + overwritten + unwritten;
    }
};

/// The plan of a task.
struct Plan
{
    tavelinUtils::TFuncRes result{};  ///< what the tool would put into the result file
    bool dies = false;                ///< an exception that nobody catches would end the run
    std::string deathPath{};          ///< the file whose write it is; empty where it is none
    std::vector<PlannedFile> files{}; ///< in the order of writing
    std::vector<ReadTrack> tracks{};  ///< in the order of reading
    MarkAccount account{};
    std::vector<MissingMark> cutMarks{}; ///< in the order of reading
    std::vector<MissingMark> unnamedMarks{};
    std::vector<std::string> runningNames{}; ///< of objects without an answer of the checker
    FileWords fileWords{};                   ///< of the input of a conversion

    /// Where the mark of a number was read: series, track, mark.
    MarkPlace placeOf(int number, const tavelinUtils::TConvMea& task) const;

    /// How many files there are at the end.
    std::size_t writtenFiles() const;
};

/// Looks at what a plan's sinks are given.
struct PlanWatch
{
    std::function<void(const PlannedFile& file)> openFile{};
    std::function<void(const PlannedFile& file, const tavelinUtils::TrackVtorichka& track)> track{};
};

/// The plan of a task whose out_dir is the folder that the tool would take. Sources and settings are those of
/// the works, sinks are the plan's own. Nothing is written.
Plan planOf(const tavelinUtils::TConvMea& task, const Works& works, const PlanWatch& watch = {});

} // namespace companion
