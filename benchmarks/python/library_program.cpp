// Reads a file into a list of tracks and writes the list again, by the library alone, so many times; prints
// the processor seconds of both for each time.
//
//   library_program mea night.mea copy.mea 5

#include <tavelin/tavelin.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace {

using tavelinUtils::TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;

struct Format
{
    std::string_view word;
    Tracks (*read)(const std::string& path);
    void (*write)(const std::string& path, const Tracks& tracks);
};

constexpr Format formats[] = {
    {"mea", [](const std::string& path) { return tavelinUtils::plMEATrack(path, "observatory"); },
     [](const std::string& path, const Tracks& tracks) { tavelinUtils::sMEA(path, tracks); }},
    {"tdm", [](const std::string& path) { return tavelinUtils::lTDM(path); },
     [](const std::string& path, const Tracks& tracks) { tavelinUtils::sTDM(path, tracks); }},
    {"mpc", [](const std::string& path) { return tavelinUtils::lMPC(path); },
     [](const std::string& path, const Tracks& tracks) { tavelinUtils::sMPC(path, tracks); }},
};

double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void measure(const Format& format, const std::string& from, const std::string& to)
{
    const double begin = processorSeconds();
    const Tracks tracks = format.read(from);
    const double middle = processorSeconds();
    format.write(to, tracks);
    std::printf("%.6f %.6f\n", middle - begin, processorSeconds() - middle);
}

} // namespace

int main(int argc, char** argv)
{
    for (const Format& format : formats) {
        if (argc == 5 && format.word == argv[1]) {
            for (int round = 0; round < std::atoi(argv[4]); ++round) {
                measure(format, argv[2], argv[3]);
            }
            return 0;
        }
    }
    std::fputs("usage: library_program mea|tdm|mpc FROM TO ROUNDS\n", stderr);
    return 2;
}
