// A track that is filled again keeps of its marks what the format does not have, and is else like a new one.

#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include "support/head_fields.h"
#include "support/mark_fields.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

// Tracks that become longer and shorter again.
Tracks someTracks()
{
    Tracks tracks;
    for (const std::size_t marks : {std::size_t{3}, std::size_t{1}, std::size_t{7}, std::size_t{2}}) {
        TrackVtorichka& track = tracks.emplace_back();
        track.QRVName = "object" + std::to_string(tracks.size());
        track.MPCChecker = "object" + std::to_string(tracks.size());
        track.telescope = "T1";
        track.originator = "observatory";
        track.MPCHeader.COD = "500";
        for (std::size_t i = 0; i < marks; ++i) {
            track.Marks.push_back(
                {.date = 60000 + static_cast<int>(i), .time = 0.5, .RA = 15.0, .DE = -1.0, .m = 9.5});
        }
        track.InterBlobs.resize(marks);
    }
    return tracks;
}

void expectSameTrack(const TrackVtorichka& track, const TrackVtorichka& expected)
{
    expectSameHead(track, expected);
    EXPECT_EQ(track.InterBlobs.size(), expected.InterBlobs.size());
    ASSERT_EQ(track.Marks.size(), expected.Marks.size());
    for (std::size_t i = 0; i < expected.Marks.size(); ++i) {
        expectSame(track.Marks[i], expected.Marks[i]);
    }
}

// Compares the refilled tracks of a source with the new ones of another of the same file.
template <class Source>
void expectRefilled(Source refilled, Source fresh)
{
    TrackVtorichka again;
    for (TrackVtorichka track; fresh.next(track);) {
        ASSERT_TRUE(refilled.refill(again));
        expectSameTrack(again, track);
    }
    EXPECT_FALSE(refilled.refill(again));
    EXPECT_EQ(again.Marks.size(), 2u);
}

// Changes a field that no format here has, and looks at it after each of the two ways.
template <class Source>
void expectOthersKept(Source source)
{
    TrackVtorichka track;
    ASSERT_TRUE(source.next(track));
    ASSERT_EQ(track.Marks.size(), 3u);
    track.Marks[0].Tag4 = 5;
    ASSERT_TRUE(source.refill(track));
    ASSERT_EQ(track.Marks.size(), 1u);
    EXPECT_EQ(int{track.Marks[0].Tag4}, 5);
    ASSERT_TRUE(source.next(track));
    ASSERT_EQ(track.Marks.size(), 7u);
    EXPECT_EQ(int{track.Marks[0].Tag4}, 0);
}

} // namespace

TEST(RefilledTracks, AreAsNewOnesInEachFormat)
{
    const TemporaryFolder folder;
    const std::string path = folder / "tracks";
    const Tracks tracks = someTracks();
    sMEA(path, tracks);
    expectRefilled(MeaSource(path, "o"), MeaSource(path, "o"));
    sTelegramma(path, tracks);
    expectRefilled(TelegramSource(path), TelegramSource(path));
    sTDM(path, tracks);
    expectRefilled(TdmSource(path), TdmSource(path));
    sSSMAS(path, tracks);
    expectRefilled(SsmasSource(path, "o"), SsmasSource(path, "o"));
    sMPC(path, tracks);
    expectRefilled(MpcReportSource(path), MpcReportSource(path));
    sListTrack(path, "", "", tracks, "", true, true, "");
    expectRefilled(TrackTableSource(path), TrackTableSource(path));
    expectRefilled(TrackTableSource(path, "date time m"), TrackTableSource(path, "date time m"));
}

TEST(RefilledTracks, KeepWhatTheFormatDoesNotHave)
{
    const TemporaryFolder folder;
    const std::string path = folder / "tracks";
    const Tracks tracks = someTracks();
    sMEA(path, tracks);
    expectOthersKept(MeaSource(path, "o"));
    sTelegramma(path, tracks);
    expectOthersKept(TelegramSource(path));
    sTDM(path, tracks);
    expectOthersKept(TdmSource(path));
    sSSMAS(path, tracks);
    expectOthersKept(SsmasSource(path, "o"));
    sMPC(path, tracks);
    expectOthersKept(MpcReportSource(path));
    sListTrack(path, "", "", tracks, "", true, true, "");
    expectOthersKept(TrackTableSource(path));
}
