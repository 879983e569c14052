#include "config/settings.h"
#include "night.h"
#include "records/track.h"

#include <tavelin/tavelin.h>

#include <cstdio>

#if defined(OWN_TINYXML_EXPECTED) && !defined(OWN_TINYXML)
#error "TinyXML's header is that of the system"
#endif

// An exception and a class of TinyXML come from the library, whichever kind it is.
int codeOf(const std::vector<tavelinUtils::TrackVtorichka>& tracks)
{
    try {
        tavelinUtils::sMEA("/nowhere/night.mea", tracks);
    } catch (const tavelinUtils::TavelinException& failure) {
        return failure.getCode();
    }
    return 0;
}

int main(int, char** arguments)
{
    const ConsumerSettings settings;
    const RailwayTrack rails;
    const auto tracks = tavelinUtils::plMEATrack(arguments[1], settings.observatory);
    tavelinUtils::TtavelinXmlDocument document("/nowhere/task.xml");
    std::printf("%s of %s: %zu marks, track %d, code %d, %s\n", firstName(arguments[1]).c_str(),
                tracks.front().originator.c_str(), tracks.front().Marks.size(), rails.number, codeOf(tracks),
                document.LoadFile() ? "a task" : "no task");
}
