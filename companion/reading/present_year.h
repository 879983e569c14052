// Present year: the year up to which measurements can have been made.

#pragma once

namespace companion {

/// The year of now in UTC, or that of SOURCE_DATE_EPOCH where it is set, for output that is the same on
/// another day. Asked for once.
int presentYear();

} // namespace companion
