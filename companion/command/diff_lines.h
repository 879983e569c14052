// Diff lines: what became of a mark of two files, as a line for people and as a value for programs.

#pragma once

#include "out/json.h"
#include "reading/mark_comparison.h"

#include <cstddef>
#include <string>

namespace companion {

/// Shows pairs of marks.
class DiffLines
{
public:
    /// Of formats and a tolerance, which say how many digits are worth showing. Texts are those of the marks.
    DiffLines(const FormatFacts& a, const FormatFacts& b, const MarkTolerance& tolerance,
              const ComparedTexts& sharedTexts);

    /// "* AST1000 2010-11-04T02:42:22.656  time +0.4 s  angle 0.31\"  magnitude -0.02": a sign for what it
    /// is, the object, the time, and in what the two marks differ; without a line feed.
    std::string text(const ComparedPair& pair) const;

    /// The same as an object.
    Json json(const ComparedPair& pair) const;

    /// "0.432 s, 0.090\", 0.05": the tolerance, its angle at the equator.
    std::string toleranceText() const;

    /// The same as an object.
    Json toleranceJson() const;

private:
    std::string difference(const ComparedPair& pair) const;
    std::string words(const ComparedPair& pair) const;
    const std::string& other(std::uint32_t number) const
    {
        return texts.others.text(number);
    }

    MarkTolerance tolerance;
    const ComparedTexts& texts;
    std::size_t width; // of the objects
    int timeDecimals;
    int angleDecimals;
    int magnitudeDecimals;
};

} // namespace companion
