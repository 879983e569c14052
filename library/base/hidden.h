// Hidden: the mark of what belongs to a public class and no caller outside the library needs.

#pragma once

/// Stands before a function of the store that a public class declares: the shared library does not offer it.
#define TAVELIN_HIDDEN [[gnu::visibility("hidden")]]
