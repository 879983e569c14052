// Gathered tracks: the marks of a file whose lines stand in any order, object by object.

#pragma once

#include "reading/true_reading.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace companion {

/// Gathers marks, and hands out their tracks when all are there.
class GatheredTracks
{
public:
    /// Takes a mark of an object, at a station where the format has them.
    void add(const std::string& object, const std::string& station,
             tavelinUtils::TRecLabelPervichka_File mark, const TrueMark& info);
    /// Leaves a line out, by a finding that says why.
    void leaveOut(Finding why, std::size_t line);
    /// Gives each track to a user, in the order in which the tracks first occur, and returns what was left
    /// out.
    TrueOutcome give(const std::function<void(TrueTrack&)>& use);

private:
    std::map<std::pair<std::string, std::string>, std::size_t> places{};
    std::vector<TrueTrack> tracks{};
    TrueOutcome outcome{};
};

} // namespace companion
