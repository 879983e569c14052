// Broken files: regular ones that can be opened and not be read.

#pragma once

/// A regular file whose first read fails with EIO: the memory of the process, which has nothing at its front.
inline constexpr const char* brokenFile = "/proc/self/mem";
