// Track rules: what the receiver of an output format would refuse of tracks that are to be written.

#pragma once

#include "findings/finding.h"
#include "records/track.h"

#include <memory>
#include <string>
#include <vector>

namespace companion {

/// The rules of one receiver, which look at each track of one work.
class TrackRules
{
public:
    virtual ~TrackRules() = default;

    /// Opens a file of the work.
    virtual void openFile(const std::string& path) = 0;

    /// Looks at a track of the file.
    virtual void add(const tavelinUtils::TrackVtorichka& track) = 0;

    /// The findings that change data, one for each code with its count.
    virtual std::vector<Finding> findings() const = 0;

    /// The rules of form that every file of the format breaks, as the tool writes it, as findings of their
    /// own.
    virtual std::vector<Finding> findingsOfForm() const = 0;
};

/// The rules for files of an output word; a null pointer for a word whose files no receiver's rules are known
/// of.
std::unique_ptr<TrackRules> trackRulesOf(const std::string& word);

/// The receiver of the files of an output word, as options name it: "mpc", "ccsds" or "aavso"; empty for
/// another word.
std::string receiverOf(const std::string& word);

} // namespace companion
