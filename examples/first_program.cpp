// A first program with the library: reads a MEA file and prints each object with the number of its marks and
// the time and place of the first.
//
//   first_program K88_20240120.mea

#include <tavelin/tavelin.h>

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    using namespace tavelinUtils;

    if (argc != 2) {
        std::fprintf(stderr, "first_program FILE.mea\n");
        return 1;
    }
    const auto tracks = plMEATrack(argv[1], "observatory");
    if (tracks.empty()) {
        // The reader reports neither a missing file nor one without a readable line.
        std::fprintf(stderr, "%s: nothing to read\n", argv[1]);
        return 1;
    }
    for (const TrackVtorichka& track : tracks) {
        const TRecLabelPervichka_File& first = track.Marks.front(); // a track of this reader has a mark
        const std::string time = MJDToDate(first.date, "-") + " " + DayToTime(first.time, 2, ":");
        const std::string place = RAToStr(first.RA, 2, " ", true) + "  " + DEToStr(first.DE, 1, " ", true);
        std::printf("%s  %zu marks, first %s at %s\n", track.QRVName.c_str(), track.Marks.size(),
                    time.c_str(), place.c_str());
    }
    return 0;
}
