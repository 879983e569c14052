#include "reading/gathered_tracks.h"

#include <algorithm>

namespace companion {

void GatheredTracks::add(const std::string& object, const std::string& station,
                         tavelinUtils::TRecLabelPervichka_File mark, const TrueMark& info)
{
    const auto [place, isNew] = places.try_emplace({object, station}, tracks.size());
    if (isNew) {
        tracks.emplace_back();
        tracks.back().track.QRVName = object;
        tracks.back().station = station;
    }
    TrueTrack& track = tracks[place->second];
    track.track.Marks.push_back(std::move(mark));
    track.marks.push_back(info);
}

void GatheredTracks::leaveOut(Finding why, std::size_t line)
{
    outcome.findings.push_back(std::move(why).at(line, 1));
    ++outcome.leftOut;
}

TrueOutcome GatheredTracks::give(const std::function<void(TrueTrack&)>& use)
{
    std::for_each(tracks.begin(), tracks.end(), use);
    return std::move(outcome);
}

} // namespace companion
