// Present year: the year up to which measurements can have been made.

#pragma once

namespace companion {

/// The year in UTC of a SOURCE_DATE_EPOCH, or of now for a null pointer; 1900 for one beyond the calendar.
int yearOf(const char* epoch);

/// The year of now in UTC, or that of SOURCE_DATE_EPOCH where it is set, for output that is the same on
/// another day. Asked for once.
int presentYear();

} // namespace companion
