#include "formats/telegram.h"
#include "records/track_stream.h"

#include "support/expected_files.h"
#include "support/failed_writes.h"
#include "support/measured_marks.h"
#include "support/temporary_folder.h"
#include "support/track_flows.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Tracks = std::vector<TrackVtorichka>;

const std::string markLine = "250223 12000000 01000000 -00300000 001095";

// A track of the usual mark, so many times, as it is read.
TrackVtorichka readTrack(const std::string& originator, const std::string& telescope, const std::string& name,
                         std::size_t marks)
{
    TrackVtorichka track = trackNamed(name, {});
    track.originator = originator;
    track.telescope = telescope;
    track.NORAD = name;
    track.Marks.assign(marks, theMark());
    return track;
}

} // namespace

TEST(TelegramSource, AUsedTrackHasItsDefaultsAgain)
{
    expectHandedOut(TelegramSource(Lines{"O T A", markLine, markLine, "END", "END", "O U B", "END", "P T A",
                                         markLine, "x"}),
                    {readTrack("O", "T", "A", 2), TrackVtorichka{}, readTrack("O", "U", "B", 0),
                     readTrack("P", "T", "A", 1)});
}

TEST(TelegramSource, MarksOfABlockThatNothingClosesAreInNoTrack)
{
    const Lines lines = {"O T A", markLine, "END", "O T B", markLine, "O T C", markLine};
    expectHandedOut(TelegramSource(lines), {readTrack("O", "T", "A", 1)});

    Lines closed = lines;
    closed.push_back("END");
    expectHandedOut(TelegramSource(closed), {readTrack("O", "T", "A", 1), readTrack("O", "T", "C", 2)});
}

TEST(TelegramSource, FileOfManyPiecesIsTheListOfItsLines)
{
    constexpr std::size_t pieces = 4;
    Lines lines;
    std::string bytes;
    for (int block = 0; bytes.size() < pieces * 256 * 1024; ++block) {
        lines.push_back("O T" + std::to_string(block / 9) + " N" + std::to_string(block));
        bytes += lines.back() + "\n";
        for (int mark = 0; mark < block % 40; ++mark) {
            lines.push_back("250223 12000000 01000000 -00300000 0011" + std::to_string(10 + mark));
            bytes += lines.back() + "\r\n";
        }
        if (block % 7 != 0) {
            lines.push_back("END");
            bytes += "END\n\n";
        }
    }
    const TemporaryFolder folder;
    makeFile(folder / "a.tel", bytes);
    const Tracks tracks = lTelegramma(lines);
    ASSERT_GT(tracks.size(), 1000U);
    expectHandedOut(TelegramSource(folder / "a.tel"), tracks);
}

TEST(TelegramSource, ThrowsWhenItIsMade)
{
    EXPECT_THROW(TelegramSource(Lines{"O T A", markLine, "a b c d e"}), std::out_of_range);
}

TEST(TelegramSource, MayBeReplacedByItsSink)
{
    const TemporaryFolder folder;
    const std::string bytes = "O T A\n" + markLine + "\nEND\n\n";
    makeFile(folder / "a.tel", bytes);
    writeAll(TelegramSink(folder / "a.tel"), allTracks(TelegramSource(folder / "a.tel")));
    EXPECT_EQ(bytesOf(folder / "a.tel"), bytes);
}

TEST(TelegramSink, NoTracksLeaveTheFile)
{
    expectNoTracksLeaveTheFile([](const std::string& path) { return TelegramSink(path); });
}

TEST(TelegramSink, MoreThanAMegabyteGoesOutInPieces)
{
    const auto make = [](const std::string& path) { return TelegramSink(path); };
    const expectedFiles::Outlines outlines = {{"A", 3}, {"B", 0}, {"C", 60000}};
    expectWrittenInPieces(make, expectedFiles::tracksOf(outlines),
                          expectedFiles::fileOf("telegram", outlines));
}

TEST(TelegramSink, MegabytesOfTracksWithoutMarksGoOutInPieces)
{
    const auto make = [](const std::string& path) { return TelegramSink(path); };
    const expectedFiles::Outlines outlines = {{"A", 0}, {std::string(3'000'000, 'B'), 0}};
    expectWrittenInPieces(make, expectedFiles::tracksOf(outlines),
                          expectedFiles::fileOf("telegram", outlines));
}

TEST(TelegramSink, FailedWriteThrowsCode7)
{
    expectCode7([](const std::string& path) {
        TelegramSink sink(path);
        sink.add(trackNamed("A", {theMark()}));
        sink.save();
    });
}
