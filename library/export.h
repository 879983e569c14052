// Export: the mark of what the shared library offers.

#pragma once

/// Stands in front of the name of each namespace block in a public header: what the block declares is visible
/// outside the shared library, exceptions and the types of records included. Everything else is hidden.
#define TAVELIN_API [[gnu::visibility("default")]]

/// Stands on what such a block declares and a source alone defines, the store of a class: it is hidden.
#define TAVELIN_INTERNAL [[gnu::visibility("hidden")]]
