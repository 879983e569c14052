#include "formats/ssmas.h"
#include "records/track_stream.h"

#include "support/expected_files.h"
#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/ssmas_lines.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/track_flows.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;
using namespace ssmasLines;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const Lines front = {"Measurements", "T", "conversion", "1", "", "#SSMAS   #INTER"};

// The front of a report and the lines.
Lines report(const Lines& lines)
{
    Lines all = front;
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
}

// A track of the usual mark, so many times, as it is read.
TrackVtorichka readTrack(const std::string& name, const std::string& number, std::size_t marks)
{
    TrackVtorichka track = trackNamed(name, {});
    track.originator = "O";
    track.telescope = "T";
    track.NORAD = name;
    track.HeadText3 = number;
    track.Marks.assign(marks, theMark());
    return track;
}

} // namespace

TEST(SsmasSource, AUsedTrackHasItsDefaultsAgain)
{
    expectHandedOut(SsmasSource(report({"A 1", markLine, markLine, "2", "B 2", "C 3", markLine, " ", markLine,
                                        "3", "D D", columnLine}),
                                "O"),
                    {readTrack("A", "1", 2), TrackVtorichka{}, readTrack("C", "3", 1), readTrack("", "", 2),
                     TrackVtorichka{}});
}

TEST(SsmasSource, FileOfManyPiecesIsTheListOfItsLines)
{
    constexpr std::size_t pieces = 4;
    Lines lines = front;
    std::string bytes = textOf(front);
    for (int object = 0; bytes.size() < pieces * 256 * 1024; ++object) {
        Lines block = {std::to_string(object), "N" + std::to_string(object) + " 7", columnLine};
        for (int mark = 0; mark < object % 40; ++mark) {
            block.push_back(markOf("1" + std::to_string(mark % 10) + ".5"));
        }
        lines.insert(lines.end(), block.begin(), block.end());
        bytes += textOf(block);
    }
    const TemporaryFolder folder;
    makeFile(folder / "a.ssm", bytes);
    const Tracks tracks = lckako_meas(lines, "O");
    ASSERT_GT(tracks.size(), 500U);
    expectHandedOut(SsmasSource(folder / "a.ssm", "O"), tracks);
}

TEST(SsmasSource, ThrowsWhenItIsMade)
{
    Lines lines = report({"A 1"});
    lines.insert(lines.end(), 1500, markLine);
    for (int i = 0; i < 700; ++i) {
        lines.emplace_back(" ");
        lines.push_back(markLine);
    }
    EXPECT_THROW(SsmasSource(lines, "O"), std::length_error);

    const TemporaryFolder folder;
    makeFile(folder / "a.ssm", textOf(lines));
    EXPECT_THROW(SsmasSource(folder / "a.ssm", "O"), std::length_error);
}

TEST(SsmasSource, MayBeReplacedByItsSink)
{
    const TemporaryFolder folder;
    const std::string bytes = textOf(report({"A A", columnLine, markLine}));
    makeFile(folder / "a.ssm", bytes);
    writeAll(SsmasSink(folder / "a.ssm"), allTracks(SsmasSource(folder / "a.ssm", "O")));
    EXPECT_EQ(bytesOf(folder / "a.ssm"), bytes);
}

TEST(SsmasSink, NoTracksLeaveTheFile)
{
    expectNoTracksLeaveTheFile([](const std::string& path) { return SsmasSink(path); });
}

TEST(SsmasSink, MoreThanAMegabyteGoesOutInPieces)
{
    const auto make = [](const std::string& path) { return SsmasSink(path); };
    const expectedFiles::Outlines outlines = {{"A", 3}, {"B", 0}, {"C", 60000}};
    expectWrittenInPieces(make, expectedFiles::tracksOf(outlines), expectedFiles::fileOf("ssmas", outlines));
}

TEST(SsmasSink, MegabytesOfTracksWithoutMarksGoOutInPieces)
{
    const auto make = [](const std::string& path) { return SsmasSink(path); };
    const expectedFiles::Outlines outlines = {{"A", 0}, {std::string(1'500'000, 'B'), 0}};
    expectWrittenInPieces(make, expectedFiles::tracksOf(outlines), expectedFiles::fileOf("ssmas", outlines));
}

TEST(SsmasSink, FailedWriteThrowsCode7)
{
    expectCode7([](const std::string& path) {
        SsmasSink sink(path);
        sink.add(trackNamed("A", {theMark()}));
        sink.save();
    });
}
