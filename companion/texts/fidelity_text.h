// Fidelity text: the page that says which field survives which conversion, and to how many digits, measured
// by converting files.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace companion {

/// How far the marks of files come back from a conversion.
struct PairFidelity
{
    std::size_t marks = 0;      ///< of the files
    std::size_t found = 0;      ///< of these in the outputs, under the names of their objects
    double time = 0;            ///< the farthest that a mark is off: seconds
    double rightAscension = 0;  ///< arcseconds along the equator
    double declination = 0;     ///< arcseconds
    double magnitude = 0;       ///< of the marks that have one in both
    std::size_t magnitudes = 0; ///< marks that have one
    std::size_t magnitudesLost = 0;
    bool keepsStation = true;
};

/// Converts a file of an input word to an output word, with the texts that the file itself has, and adds what
/// became of its marks.
void addFidelity(const std::string& path, const std::string& from, const std::string& to, PairFidelity& sum);

/// The page, in Markdown, from files of the input words, each recognised by its content.
std::string fidelityPage(const std::vector<std::string>& paths);

} // namespace companion
