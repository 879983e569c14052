// Reads MEA files as the command means them, each mark once, and keeps none: what a comparison of files is
// held against.

#include "reading/compared_marks.h"

#include <cstddef>

int main(int argc, char** argv)
{
    std::size_t marks = 0;
    for (int i = 1; i < argc; ++i) {
        companion::readMarks(argv[i], *companion::comparedForm("mea"),
                             [&marks](companion::TrueTrack& track) { marks += track.marks.size(); });
    }
    return marks > 0 ? 0 : 1;
}
