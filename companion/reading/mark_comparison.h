// Mark comparison: which marks of two files are the same, and in what those differ that belong together.

#pragma once

#include "reading/compared_marks.h"
#include "reading/format_facts.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace companion {

/// How far two marks may be from each other and still be the same.
struct MarkTolerance
{
    double time = 0;           ///< seconds
    double rightAscension = 0; ///< arcseconds along the equator
    double declination = 0;    ///< arcseconds
    double magnitude = 0;
    std::optional<double> angle{}; ///< arcseconds, instead of the two

    /// The angle at a declination: there the right ascension counts by its cosine.
    double angleAt(double DE) const;
};

/// Half of the last digit of the coarser of two formats, value by value. Formats that take any number of
/// digits are finer than all others.
MarkTolerance toleranceOf(const FormatFacts& a, const FormatFacts& b);

/// In what two marks that belong together differ.
struct MarkDifference
{
    double time = 0;      ///< seconds by which the second is later
    double angle = 0;     ///< arcseconds between them
    double magnitude = 0; ///< by which the second is fainter, where both have one
    bool inAngle = false; ///< beyond the tolerance, as those that follow
    bool inMagnitude = false;
    bool inKnownMagnitude = false; ///< one of them has none
    bool inBand = false;
    bool inStation = false;
    bool inFrame = false;

    /// Whether they differ in anything beyond the tolerance.
    bool any() const
    {
        return inAngle || inMagnitude || inKnownMagnitude || inBand || inStation || inFrame;
    }
};

/// What became of a mark: a null pointer stands for the mark that is missing in a file.
struct ComparedPair
{
    const ComparedMark* a = nullptr;
    const ComparedMark* b = nullptr;
    MarkDifference difference{};

    /// The mark of the first file, or that of the second where there is none.
    const ComparedMark& mark() const
    {
        return a != nullptr ? *a : *b;
    }
    /// Whether both are there and the same.
    bool isEqual() const
    {
        return a != nullptr && b != nullptr && !difference.any();
    }
};

/// Compares the marks of two files.
class MarkComparison
{
public:
    /// Of files of two forms. Texts are those of their marks.
    MarkComparison(const ComparedForm& formOfA, const ComparedForm& formOfB, const MarkTolerance& allowed,
                   const ComparedTexts& sharedTexts)
        : a(formOfA), b(formOfB), tolerance(allowed), texts(sharedTexts)
    {
    }

    using Use = std::function<void(const ComparedPair&)>;

    /// Marks of equal objects within the time tolerance: of several those that agree, then those of the
    /// nearest times. Gives each pair to a user, by objects in the order of their bytes, then by time. The
    /// marks are sorted for it.
    void byObject(std::vector<ComparedMark>& ofA, std::vector<ComparedMark>& ofB, const Use& use) const;

    /// Marks of any objects within the tolerances of time and angle: pairs of which neither has a nearer
    /// place, then such pairs of those that are left. Gives each pair to a user by time.
    void byPosition(std::vector<ComparedMark>& ofA, std::vector<ComparedMark>& ofB, const Use& use) const;

    /// In what two marks differ.
    MarkDifference difference(const ComparedMark& ofA, const ComparedMark& ofB) const;

private:
    bool stationsDiffer(const ComparedMark& ofA, const ComparedMark& ofB) const;

    const ComparedForm& a;
    const ComparedForm& b;
    MarkTolerance tolerance;
    const ComparedTexts& texts;
};

} // namespace companion
