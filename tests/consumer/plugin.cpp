#include "plugin.h"

#include "config/settings.h"
#include "records/track.h"

#include <tavelin/tavelin.h>

#include <cstdio>

void describeNight(const char* path)
{
    const ConsumerSettings settings;
    const RailwayTrack rails;
    const auto tracks = tavelinUtils::plMEATrack(path, settings.observatory);
    std::printf("plugin: %s of %s, %zu marks, track %d\n", tracks.front().QRVName.c_str(),
                tracks.front().originator.c_str(), tracks.front().Marks.size(), rails.number);
}

void writeNowhere()
{
    tavelinUtils::sMEA("/nowhere/night.mea", {tavelinUtils::TrackVtorichka()});
}
