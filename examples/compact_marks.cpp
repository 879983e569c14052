// A third program with the library: the marks of a MEA file as a binary file of the secondary processing,
// read back and listed by brightness.
//
//   compact_marks K88_20240120.mea marks.bin

#include <tavelin/tavelin.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <vector>

namespace {

using namespace tavelinUtils;

std::vector<TVOBlobFile> compactMarksOf(const std::vector<TrackVtorichka>& tracks)
{
    std::vector<TVOBlobFile> compact;
    for (const TrackVtorichka& track : tracks) {
        const std::vector<TVOBlobFile> marks = TRecLabelPervichkaToTVOBlob(track.Marks);
        compact.insert(compact.end(), marks.begin(), marks.end());
    }
    return compact;
}

void list(const std::vector<TVOBlobFile>& marks)
{
    std::vector<double> magnitudes;
    for (const TVOBlobFile& mark : marks) {
        magnitudes.push_back(mark.m);
    }
    std::printf("%zu marks, median magnitude %.2f\n", marks.size(), tavelinMath::Median2(magnitudes));

    // The keys are sorted apart from the records; the index says where each came from.
    std::vector<unsigned long> index;
    QuickSort(magnitudes, index);
    index.resize(std::min<std::size_t>(index.size(), 3));
    for (const unsigned long place : index) {
        const TVOBlobFile& mark = marks[place];
        std::printf("%.2f  %s %s  %s %s\n", mark.m, MJDToDate(mark.date, "-").c_str(),
                    DayToTime(mark.time, 0, ":").c_str(), RAToStr(mark.RA, 1, ":", true).c_str(),
                    DEToStr(mark.DE, 0, ":", true).c_str());
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "compact_marks FILE.mea FILE.bin\n");
        return 1;
    }
    try {
        sBlobFastVO(argv[2], compactMarksOf(plMEATrack(argv[1], "observatory")));
    } catch (const std::exception& failure) {
        // A date, time or angle that is too short leaves the reader as std::out_of_range.
        std::fprintf(stderr, "%s: %s\n", argv[1], failure.what());
        return 1;
    }
    list(lBlobFastVO(argv[2]));
    return 0;
}
