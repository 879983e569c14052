// Works that are watched: the tool's own, whose sinks also keep the tracks that they are given.

#pragma once

#include "works.h"

#include <string>
#include <vector>

/// The tool's own works. Each sink adds a list for its file and keeps copies of its tracks there. The lists
/// must outlive the works.
inline Works watchedWorks(std::vector<std::vector<tavelinUtils::TrackVtorichka>>& files)
{
    Works works = ownWorks();
    works.sink = [&files, own = works.sink](const std::string& path, const std::string& word) {
        files.emplace_back();
        const TrackSink sink = own(path, word);
        return TrackSink{[&files, sink](const tavelinUtils::TrackVtorichka& track) {
                             files.back().push_back(track);
                             sink.add(track);
                         },
                         sink.save};
    };
    return works;
}
