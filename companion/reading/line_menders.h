// Line menders: the lines of a format as they are meant, in the form that its reader takes for that.

#pragma once

#include "reading/mend_notes.h"

#include <memory>
#include <string>
#include <string_view>

namespace companion {

/// What mended lines are for.
enum class MendUse
{
    copy,   ///< a copy that the tool reads: what the tool reads right stays as it is
    reading ///< this reading alone: what a reader cuts is put so that it does not
};

/// Mends the lines of a file.
class LineMender
{
public:
    virtual ~LineMender() = default;

    /// Appends a line, without its line end, as it is meant. False, and nothing appended, for one that is
    /// left out.
    virtual bool mend(std::string_view line, std::string& out, MendNotes& notes) = 0;
};

/// MEA: a plus sign in front of a declination without a sign; seconds that were rounded up to 10 as 10. The
/// text is that of the whole file, which tells how many digits its writer uses.
std::unique_ptr<LineMender> meaMender(std::string_view text);

/// Telegram: the same, single blanks between words, and magnitudes from 9.95 on or below 0.
std::unique_ptr<LineMender> telegramMender(std::string_view text);

/// SSMAS: magnitudes below 0, and for reading the fraction of the arcsecond.
std::unique_ptr<LineMender> ssmasMender(MendUse use);

/// MPC report: each field in its columns, with the sign of a declination; for reading only observations of
/// one line.
std::unique_ptr<LineMender> mpcMender(MendUse use);

} // namespace companion
