// Copies: tracks on their way to a receiver, for the tests of what comes out there.

#pragma once

#include "receivers/copy_tally.h"

#include <string>
#include <vector>

namespace copies {

/// An observatory that says all that any receiver asks for.
companion::Observatory completeObservatory();

/// A mark at a place, 2025-02-23 in the fraction of the day, of magnitude 18.5 in the band G.
tavelinUtils::TRecLabelPervichka_File markAt(double fraction, double rightAscension, double declination);

/// A track whose marks have magnitude and band and are as fine as those of MEA.
companion::CopyTrack trackOf(const std::string& name,
                             std::vector<tavelinUtils::TRecLabelPervichka_File> marks,
                             const companion::Observatory& observatory = completeObservatory());

/// A call of the file night.mea.
companion::CopySettings usualSettings();

/// The findings as "CODE text".
std::vector<std::string> textsOf(const std::vector<companion::Finding>& findings);

/// The lines of a text.
std::vector<std::string> linesOf(const std::string& text);

/// What lint says of a copy as a file of a name, by the rules of its receiver: "LINE CODE text".
std::vector<std::string> linted(const std::string& text, const std::string& format,
                                const std::string& receiver, const std::string& name = "copy.txt");

} // namespace copies
