// Export: the marks around what the shared library offers.

#pragma once

/// Stands above the namespace of a public header. An attribute of the namespace would not do: Clang hides a
/// function that a source defines in a block without it.
#define TAVELIN_EXPORT_BEGIN _Pragma("GCC visibility push(default)")

/// Stands below the namespace.
#define TAVELIN_EXPORT_END _Pragma("GCC visibility pop")
