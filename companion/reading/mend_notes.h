// Mend notes: what is other in a copy of a text than in the text itself, counted by its kind, and what of it
// is refused.

#pragma once

#include "findings/finding.h"
#include "reading/line_checker.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Takes notes while the lines of a file go by.
class MendNotes
{
public:
    /// The next line, whose text stays while it is the present one.
    void begin(std::string_view text)
    {
        ++line;
        present = text;
    }

    /// The number of the present line.
    std::size_t number() const
    {
        return line;
    }

    /// A part of the present line is mended, in a way that a literal names.
    void mended(std::string_view what, std::string_view part);

    /// A mark is left out, for a reason that is a finding; its place becomes a part of the present line.
    void refused(Finding why, std::string_view part);

    /// The present line, of a kind that a literal names, is no mark of its own and is left out.
    void skipped(std::string_view kind);

    /// How many marks are left out.
    std::size_t leftOut() const
    {
        return refusals;
    }

    /// A finding for each kind of mend (V423) with its first places, and one for each kind of
    /// skipped lines (V180) and each refusal, by lines.
    std::vector<Finding> findings() &&;

private:
    struct Kind
    {
        std::string_view what;
        std::size_t count = 0;
        std::vector<FindingPlace> places{};
    };

    static Kind& kindOf(std::vector<Kind>& list, std::string_view what);
    static Finding findingOf(Kind kind);
    FindingPlace placeOf(std::string_view part) const;

    std::size_t line = 0;
    std::string_view present{};
    std::vector<Kind> kinds{};
    std::vector<Kind> skips{};
    std::vector<Finding> refusalFindings{};
    std::size_t refusals = 0;
};

} // namespace companion
