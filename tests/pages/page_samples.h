// Samples of formats on the pages, each read by the reader of its format.

#pragma once

#include "pages/page_blocks.h"

#include <string>

/// Checks a sample: the path of a file of it, and its text.
using SampleCheck = void (*)(const std::string& path, const std::string& text);

/// The check for a block that is a sample of a format, by its kind or, for XML, by its note; a null pointer
/// for any other.
SampleCheck sampleCheckOf(const PageBlock& block);
