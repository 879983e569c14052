// Lint outputs: what checkers of lines say without a file.

#pragma once

#include "reading/line_checker.h"

#include <functional>
#include <string>
#include <vector>

namespace lintOutputs {

/// What is said by `tell(out)`, of a file "night.txt" whose reader told nothing.
inline std::vector<companion::Finding> toldBy(const std::function<void(companion::LintOutput&)>& tell,
                                              const companion::LintSettings& settings = {})
{
    const companion::LineFates fates;
    const companion::TrackTimes times(false);
    std::vector<companion::Finding> told;
    companion::LintOutput out("night.txt", settings, fates, times,
                              [&told](companion::Finding found) { told.push_back(std::move(found)); });
    tell(out);
    return told;
}

} // namespace lintOutputs
