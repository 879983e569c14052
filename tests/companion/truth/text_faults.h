// Text faults: what happens to files on their way: edited lines, cut ends, odd numbers, other encodings.

#pragma once

#include "companion/truth/random_choices.h"

#include <string>

/// Puts a fault into a text of lines.
void putFault(std::string& text, RandomChoices& choices);
