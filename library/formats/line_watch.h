// Line watch: what a reader makes of each line of its file, told line by line.
//
//   struct Printed : LineWatch
//   {
//       void settled(const LineReport& report) override
//       {
//           if (report.fate == LineFate::passed) {
//               std::printf("line %zu is passed over\n", report.line);
//           }
//       }
//   } watch;
//   plMEATrack("night.mea", "observatory", watch);

#pragma once

#include "../export.h"

#include <cstddef>

namespace TAVELIN_API tavelinUtils {

/// What became of a line. Each line has one fate.
enum class LineFate
{
    head,   ///< it says something of the file, a block or an object
    blank,  ///< it is empty, or blanks alone
    mark,   ///< it made a mark
    part,   ///< it gave a value to a mark that a later line made
    end,    ///< it ended a block
    passed, ///< the reader takes nothing from it
    lost,   ///< the reader took it, but what it says is in no track
    refused ///< the reader without a watch throws here, and takes nothing of the file
};

/// Why a line was passed over, lost or refused.
enum class PassedReason
{
    none,             ///< it was not
    unknownKey,       ///< nothing is read from a line of this key
    wordCount,        ///< no line of the format has so many words
    lineLength,       ///< no line of the format is so long
    outsideBlock,     ///< a mark before the head of its block, or behind its end
    unclosedBlock,    ///< a line of a block that nothing closes
    replaced,         ///< another line gave the value before a mark was made of it
    withoutMagnitude, ///< no line with a magnitude follows, which would make the mark
    tooShort          ///< a word, or the line, ends before what is read from it
};

/// What is told of a line.
struct LineReport
{
    std::size_t line = 0; ///< its number, from 1
    LineFate fate = LineFate::blank;
    PassedReason reason = PassedReason::none;
};

/// Is told the fate of each line as soon as it is settled: mostly in the order of lines, but the lines of a
/// block when it is closed, or at the end of the file.
class LineWatch
{
public:
    virtual ~LineWatch() = default;

    /// Takes the report of a line.
    virtual void settled(const LineReport& report) = 0;
};

} // namespace tavelinUtils
