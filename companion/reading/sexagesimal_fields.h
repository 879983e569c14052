// Sexagesimal fields: what a person would read in the dates and angles of SSMAS and 80-column lines, and the
// findings where the reader reads something else.

#pragma once

#include "reading/line_checker.h"

#include <array>
#include <string_view>

namespace companion {

/// Which angle a field holds.
enum class AngleKind
{
    rightAscension, ///< in hours
    declination
};

/// The findings of an angle of two or three parts, which the reader takes for so many degrees: a text of
/// another form (V122 to V125), minutes or seconds above 59 (V128), an angle outside its range (V121, V129).
void checkSexagesimal(AngleKind kind, const Stretch& stretch, std::string_view text, char separator,
                      double read, LintOutput& out);

/// The findings of an angle in decimal degrees.
void checkDegrees(AngleKind kind, const Stretch& stretch, std::string_view text, double read,
                  LintOutput& out);

/// The findings of a date whose year, month and day are given: none (V126), or a day that its month does not
/// have (V127).
void checkDay(const Stretch& stretch, std::string_view text,
              const std::array<std::string_view, 3>& yearMonthDay, LintOutput& out);

/// The finding of a text that is no number as people write it: nothing is read (V122), or something (V123,
/// V124), or no finite number (V125).
void tellMisreadNumber(const Stretch& stretch, std::string_view text, double read, LintOutput& out);

} // namespace companion
