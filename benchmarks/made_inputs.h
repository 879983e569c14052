// Made inputs of whole runs: measurement files of any number of marks and objects.

#pragma once

#include <string>

/// Makes a measurement file in the format of the word ("mea", "telegram", "tdm" or "ssmas"): so many marks,
/// object by object, over nights of some hundred marks.
void makeInput(const std::string& path, const std::string& word, long marks, long objects);
