// Makes a report to the Minor Planet Center from a MEA file of any size, one track after the other.
//
//   night_to_report K88_20240120.mea K88 report.txt

#include <tavelin/tavelin.h>

#include <cstddef>
#include <cstdio>
#include <exception>
#include <string>

using namespace tavelinUtils;

namespace {

// The track is the same memory each time: the program needs the room of the longest one, however many follow.
int report(const std::string& mea, const std::string& code, const std::string& path)
{
    MeaSource source(mea, "observatory");
    MpcReportSink sink(path);
    std::size_t marks = 0;
    for (TrackVtorichka track; source.next(track);) {
        track.MPCHeader.COD = code;
        sink.add(track);
        marks += track.Marks.size();
    }
    sink.save();
    std::printf("%s: %zu marks\n", path.c_str(), marks);
    return marks == 0 ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "night_to_report FILE.mea CODE REPORT.txt\n");
        return 1;
    }
    try {
        return report(argv[1], argv[2], argv[3]);
    } catch (const TavelinException& failure) {
        std::fprintf(stderr, "%s: %s (code %d)\n", failure.getComment().c_str(), failure.what(),
                     failure.getCode());
    } catch (const std::exception& failure) {
        // A field of a mark that is too short to be cut.
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
    }
    return 1;
}
