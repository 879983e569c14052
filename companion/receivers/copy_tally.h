// Copy tally: what becomes of the marks of a copy: refused, mended, or written as they are.
//
//   tally.refuse(track, mark, finding("V420", {{"field", "the band"}, {"option", "--band"}}));
//   tally.mend("declinations have their sign in column 45");

#pragma once

#include "receivers/copy_input.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A mark of the input.
struct CopyPlace
{
    std::size_t track;
    std::size_t mark;
};

/// Counts the marks of a copy.
class CopyTally
{
public:
    /// Takes the tracks of the copy, which outlive it.
    CopyTally(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings);

    /// A mark that the receiver would refuse, with the reason. One mark may have several.
    void refuse(const CopyPlace& place, Finding why);
    /// All marks of a track.
    void refuseTrack(std::size_t track, const Finding& why);
    /// Something that marks share and that is not known: one finding, and all these marks are refused.
    void refuseAll(const std::vector<CopyPlace>& places, Finding why);
    /// A change of form, of one mark or of several.
    void mend(std::string_view what, std::size_t marks = 1);

    /// Whether a mark is refused.
    bool isRefused(const CopyPlace& place) const
    {
        return refused[place.track][place.mark];
    }
    /// How many marks are refused.
    std::size_t refusedMarks() const
    {
        return refusedCount;
    }
    /// The reasons, in the order of finding them.
    const std::vector<Finding>& reasons() const
    {
        return found;
    }
    /// A note for each change of form, with the number of its marks.
    std::vector<Finding> mended() const;

private:
    struct Mended
    {
        std::string what;
        std::size_t marks;
    };

    void markRefused(const CopyPlace& place);
    Finding placed(const CopyPlace& place, Finding why) const;

    const std::vector<CopyTrack>& tracks;
    const CopySettings& settings;
    std::vector<std::vector<bool>> refused;
    std::size_t refusedCount = 0;
    std::vector<Finding> found{};
    std::vector<Mended> changes{};
};

/// A copy.
struct Copy
{
    std::string text{}; ///< of the marks that are not refused; empty where there is none
    std::size_t marks = 0;
    std::size_t refused = 0;
    std::vector<Finding> reasons{}; ///< why marks are refused
    std::vector<Finding> mended{};
};

/// A copy of a text and its tally.
Copy copyOf(std::string text, const CopyTally& tally, const std::vector<CopyTrack>& tracks);

/// What is not known, and how to tell it.
Finding notKnown(const std::string& field, const std::string& option);

} // namespace companion
