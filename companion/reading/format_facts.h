// Format facts: what each format keeps of a mark, what it is recognised by, how its marks are counted.

#pragma once

#include <span>
#include <string_view>

namespace companion {

/// A row of the table. A step of 0 means that the format does not have the value, or has it with any number
/// of digits; the text beside it says which.
struct FormatFacts
{
    std::string_view name;       ///< of reading/signatures.h
    std::string_view what;       ///< a sentence
    std::string_view recognised; ///< what it is recognised by
    std::string_view time;
    std::string_view rightAscension;
    std::string_view declination;
    std::string_view magnitude;
    std::string_view names;    ///< which names of objects can be read back
    std::string_view marks;    ///< what is counted as a mark
    std::string_view page;     ///< below the folder of the project
    double timeStep;           ///< seconds
    double rightAscensionStep; ///< arcseconds, along the equator
    double declinationStep;    ///< arcseconds
    double magnitudeStep;
};

/// All rows: the words of a task in the order of the tool, then the others.
std::span<const FormatFacts> formatFactsTable();

/// The row of a format's name; a null pointer where there is none.
const FormatFacts* formatFacts(std::string_view name);

/// The step of declinations that stand in a file, in arcseconds: of SSMAS the reader drops digits which are
/// there.
double writtenDeclinationStep(const FormatFacts& facts);

} // namespace companion
