#include "config/settings.h"
#include "night.h"
#include "records/track.h"

#include <tavelin/tavelin.h>

#include <cstdio>

int main(int, char** arguments)
{
    const ConsumerSettings settings;
    const RailwayTrack rails;
    const auto tracks = tavelinUtils::plMEATrack(arguments[1], settings.observatory);
    std::printf("%s of %s: %zu marks, track %d\n", firstName(arguments[1]).c_str(),
                tracks.front().originator.c_str(), tracks.front().Marks.size(), rails.number);
}
