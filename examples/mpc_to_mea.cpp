// Makes a MEA file, an input for tasks, from a report to the Minor Planet Center.
//
//   mpc_to_mea W85_20180216.mpc.txt out/W85_20180216.mea

#include <tavelin/tavelin.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

// The reader of reports puts the name of an object into MPCChecker, the writer of MEA takes it from QRVName.
// Without this line all objects would lose their names, and such lines are not read as marks.
void fillWhatMeaNeeds(TrackVtorichka& track)
{
    track.QRVName = track.MPCChecker;
    track.telescope = track.MPCHeader.COD; // for the site line
}

// The writer gives a positive declination no sign, and the reader wants one: it takes three characters for
// the sign and the degrees. The declination is the field before "001".
void signPositiveDeclinations(const std::string& path)
{
    std::vector<std::string> lines = ReadFromFile(path);
    for (std::string& line : lines) {
        const std::size_t end = line.rfind(" 001 ");
        if (end == std::string::npos) {
            continue; // the site line
        }
        const std::size_t declination = line.rfind(' ', end - 1) + 1;
        if (line[declination] != '-') {
            line.insert(declination, 1, '+');
        }
    }
    Write(path, lines);
}

int convert(const std::string& report, const std::string& mea)
{
    std::vector<TrackVtorichka> tracks = lMPC(report);
    if (tracks.empty()) {
        std::fprintf(stderr, "%s: no line of 80 columns\n", report.c_str());
        return 1;
    }
    for (TrackVtorichka& track : tracks) {
        fillWhatMeaNeeds(track);
    }
    sMEA(mea, tracks);
    signPositiveDeclinations(mea);
    std::printf("%s: %zu objects, %zu marks of station %s\n", mea.c_str(), tracks.size(), countMarks(tracks),
                tracks.front().telescope.c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "mpc_to_mea REPORT.txt FILE.mea\n");
        return 1;
    }
    try {
        return convert(argv[1], argv[2]);
    } catch (const TavelinException& failure) {
        std::fprintf(stderr, "%s: %s (code %d)\n", failure.getComment().c_str(), failure.what(),
                     failure.getCode());
    } catch (const std::exception& failure) {
        // A keyword of the report's header with nothing after it leaves the reader as std::out_of_range.
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
    }
    return 1;
}
