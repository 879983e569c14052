#include "exchange/representatives.h"

#include "support/failed_writes.h"
#include "support/no_room.h"
#include "support/record_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Representatives = std::vector<TRepresent>;
using Places = std::vector<std::pair<int, int>>;

/// Frames and blobs of the entries of a representative.
Places placesOf(const TRepresent& representative)
{
    Places places;
    for (const TIndVK& entry : representative.Items) {
        places.emplace_back(entry.FrameNumber, entry.BlobIndex);
    }
    return places;
}

Representatives threeRepresentatives()
{
    return {{10.5, 20.25, 3.0, 7, {{1, 2, 99}, {3, 4, 98}}},
            {-1.0, 0.5, 4.0, 8, {}},
            {7.0, 8.0, 5.0, -1, {{5, 6, 97}}}};
}

const std::string bytesOfThreeMembers = int32s({12, 3}) +            // frames, count
                                        int32s({0, 2, 1, 2, 3, 4}) + // index, n, entries
                                        int32s({1, 0}) + int32s({2, 1, 5, 6});
const std::string bytesOfThreePositions = doubles({10.5, 20.25, -1.0, 0.5, 7.0, 8.0});

/// What stood in a list and a number before a reader came.
const Representatives before = {{1.0, 2.0, 3.0, 4, {{5, 6, 7}}}};

void expectAsBefore(const Representatives& list)
{
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].X, 1.0);
    EXPECT_EQ(list[0].Y, 2.0);
    EXPECT_EQ(list[0].Value, 3.0);
    EXPECT_EQ(list[0].Index, 4);
    EXPECT_EQ(placesOf(list[0]), (Places{{5, 6}}));
    EXPECT_EQ(list[0].Items[0].Third, 7);
}

/// Reads members out of the bytes into an empty list and expects success.
Representatives membersIn(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytes);
    Representatives list;
    int frames = 0;
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    return list;
}

} // namespace

TEST(Representatives, MembersAreCountsIndicesAndEntries)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sIndVKBin(folder / "a.bin", 12, threeRepresentatives()), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfThreeMembers);
}

TEST(Representatives, BytesOfAnEntryAreLittleEndian)
{
    using namespace std::string_literals;
    const TemporaryFolder folder;
    EXPECT_EQ(sIndVKBin(folder / "a.bin", 258, Representatives{{0.0, 0.0, 0.0, 5, {{-2, 66051, 1}}}}), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), "\x02\x01\x00\x00\x01\x00\x00\x00"
                                         "\x00\x00\x00\x00\x01\x00\x00\x00"
                                         "\xfe\xff\xff\xff\x03\x02\x01\x00"s);
}

TEST(Representatives, EmptyListIsAHeadAlone)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sIndVKBin(folder / "a.bin", -5, Representatives{}), 0);
    EXPECT_EQ(bytesOf(folder / "a.bin"), int32s({-5, 0}));
    EXPECT_EQ(sXYIndVKBin(folder / "a.XY", Representatives{}), 0);
    EXPECT_EQ(bytesOf(folder / "a.XY"), "");
}

TEST(Representatives, PositionsAreTwoDoublesEach)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sXYIndVKBin(folder / "a.XY", threeRepresentatives()), 0);
    EXPECT_EQ(bytesOf(folder / "a.XY"), bytesOfThreePositions);
}

TEST(Representatives, WritersReplaceWhatStoodThere)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", std::string(500, 'x'));
    makeFile(folder / "a.XY", std::string(500, 'x'));
    psIndVKBin(folder / "a.bin", 12, threeRepresentatives());
    EXPECT_EQ(bytesOf(folder / "a.bin"), bytesOfThreeMembers);
    EXPECT_EQ(bytesOf(folder / "a.XY"), bytesOfThreePositions);
}

TEST(Representatives, FailedWriteIsOne)
{
    forUnwritablePaths([](const std::string& path) {
        EXPECT_EQ(sIndVKBin(path, 12, threeRepresentatives()), 1);
        EXPECT_EQ(sIndVKBin(path, 12, Representatives{}), 1);
        EXPECT_EQ(sXYIndVKBin(path, threeRepresentatives()), 1);
    });
}

TEST(Representatives, MembersComeBackWithoutTheirThirdNumber)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytesOfThreeMembers);
    Representatives list;
    int frames = -1;
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    EXPECT_EQ(frames, 12);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}, {3, 4}}));
    EXPECT_EQ(placesOf(list[1]), (Places{}));
    EXPECT_EQ(placesOf(list[2]), (Places{{5, 6}}));
    for (const TRepresent& representative : list) {
        EXPECT_EQ(representative.X, 0.0);
        EXPECT_EQ(representative.Y, 0.0);
        EXPECT_EQ(representative.Value, 0.0);
        EXPECT_EQ(representative.Index, -1);
        for (const TIndVK& entry : representative.Items) {
            EXPECT_EQ(entry.Third, 0);
        }
    }
}

TEST(Representatives, StoredIndexDecidesThePlace)
{
    const Representatives list = membersIn(int32s({12, 3}) + int32s({2, 1, 20, 21}) +
                                           int32s({0, 2, 1, 2, 3, 4}) + int32s({1, 1, 10, 11}));
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}, {3, 4}}));
    EXPECT_EQ(placesOf(list[1]), (Places{{10, 11}}));
    EXPECT_EQ(placesOf(list[2]), (Places{{20, 21}}));
}

TEST(Representatives, LaterRecordOfAnIndexTakesThePlaceOfTheEarlier)
{
    const Representatives list =
        membersIn(int32s({12, 2}) + int32s({1, 2, 1, 2, 3, 4}) + int32s({1, 1, 5, 6}));
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(placesOf(list[0]), (Places{}));
    EXPECT_EQ(placesOf(list[1]), (Places{{5, 6}}));
}

TEST(Representatives, IndexOutsideTheListIsPassedOverWithItsEntries)
{
    for (const int index : {3, 4, 65536, INT_MAX, -1, INT_MIN}) {
        SCOPED_TRACE(index);
        const Representatives list = membersIn(int32s({12, 3}) + int32s({index, 2, 1, 2, 3, 4}) +
                                               int32s({1, 1, 5, 6}) + int32s({0, 1, 7, 8}));
        ASSERT_EQ(list.size(), 3u);
        EXPECT_EQ(placesOf(list[0]), (Places{{7, 8}}));
        EXPECT_EQ(placesOf(list[1]), (Places{{5, 6}}));
        EXPECT_EQ(placesOf(list[2]), (Places{}));
    }
}

TEST(Representatives, RecordsBeyondTheCountAreNotRead)
{
    const Representatives list =
        membersIn(int32s({12, 2}) + int32s({9, 0}) + int32s({0, 1, 1, 2}) + int32s({1, 1, 3, 4}));
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}}));
    EXPECT_EQ(placesOf(list[1]), (Places{}));
}

TEST(Representatives, MissingFileIsASuccessWithoutEffect)
{
    const TemporaryFolder folder;
    for (const std::string& path : {folder / "missing.bin", folder / "missing/a.bin", std::string()}) {
        SCOPED_TRACE(path);
        Representatives list = before;
        int frames = 77;
        EXPECT_EQ(lIndVKBin(path, frames, list), 0);
        EXPECT_EQ(frames, 77);
        expectAsBefore(list);
        EXPECT_EQ(lXYIndVKBin(path, list), 0);
        expectAsBefore(list);
        plIndVKBin(path, frames, list);
        EXPECT_EQ(frames, 77);
        expectAsBefore(list);
    }
}

TEST(Representatives, FolderInPlaceOfTheFileIsAFailureWithoutEffect)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    Representatives list = before;
    int frames = 77;
    EXPECT_EQ(lIndVKBin(folder / "folder", frames, list), 1);
    EXPECT_EQ(frames, 77);
    expectAsBefore(list);
    EXPECT_EQ(lXYIndVKBin(folder / "folder", list), 1);
    expectAsBefore(list);
}

TEST(Representatives, CountAboveTheLimitAndTheFileIsRefused)
{
    const TemporaryFolder folder;
    for (const int count : {65537, 1000000, INT_MAX}) {
        SCOPED_TRACE(count);
        makeFile(folder / "a.bin", int32s({12, count}) + int32s({0, 1, 1, 2}));
        Representatives list = before;
        int frames = 77;
        EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 1);
        EXPECT_EQ(frames, 77);
        expectAsBefore(list);
    }
}

TEST(Representatives, CountIsHeldAgainstTheSizeOfTheFile)
{
    const TemporaryFolder folder;
    Representatives list;
    int frames = 0;
    makeFile(folder / "a.bin", int32s({12, 65537}) + int32s({65536, 1, 1, 2}) + std::string(65512, '\xff'));
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 1); // 65536 bytes
    EXPECT_TRUE(list.empty());
    makeFile(folder / "a.bin", int32s({12, 65537}) + int32s({65536, 1, 1, 2}) + std::string(65513, '\xff'));
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    ASSERT_EQ(list.size(), 65537u);
    EXPECT_EQ(placesOf(list[65536]), (Places{{1, 2}}));
    EXPECT_EQ(placesOf(list[0]), (Places{}));
}

TEST(Representatives, CountUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const Representatives list = membersIn(int32s({12, count}) + int32s({0, 1, 1, 2}));
        ASSERT_EQ(list.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(placesOf(list.front()), (Places{{1, 2}}));
        EXPECT_EQ(list.back().Index, -1);
        EXPECT_TRUE(list.back().Items.empty());
    }
}

TEST(Representatives, NegativeCountEmptiesTheList)
{
    const TemporaryFolder folder;
    for (const int count : {0, -1, -65537, INT_MIN}) {
        SCOPED_TRACE(count);
        makeFile(folder / "a.bin", int32s({12, count}) + int32s({0, 1, 1, 2}));
        Representatives list = before;
        int frames = 77;
        EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
        EXPECT_EQ(frames, 12);
        EXPECT_TRUE(list.empty());
    }
}

TEST(Representatives, FileWithoutACountEmptiesTheList)
{
    const TemporaryFolder folder;
    for (const std::size_t size : {0u, 3u, 4u, 7u}) {
        SCOPED_TRACE(size);
        makeFile(folder / "a.bin", int32s({12, 3}).substr(0, size));
        Representatives list = before;
        int frames = 77;
        EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
        EXPECT_EQ(frames, size < 4 ? 77 : 12);
        EXPECT_TRUE(list.empty());
    }
}

TEST(Representatives, CountOfEntriesUpToTheLimitIsBelieved)
{
    for (const int count : {2, 1000, 65536}) {
        SCOPED_TRACE(count);
        const Representatives list = membersIn(int32s({12, 3}) + int32s({1, count, 1, 2}));
        ASSERT_EQ(list.size(), 3u);
        ASSERT_EQ(list[1].Items.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(list[1].Items.front().FrameNumber, 1);
        EXPECT_EQ(list[1].Items.front().BlobIndex, 2);
        EXPECT_EQ(list[1].Items.back().FrameNumber, 0);
        EXPECT_EQ(list[1].Items.back().BlobIndex, 0);
        EXPECT_TRUE(list[0].Items.empty());
        EXPECT_TRUE(list[2].Items.empty());
    }
}

TEST(Representatives, CountOfEntriesThatTheFileCannotHoldEndsTheReading)
{
    for (const int index : {1, 5, -1}) {
        for (const int count : {65537, INT_MAX}) {
            SCOPED_TRACE(std::to_string(index) + ", " + std::to_string(count));
            const Representatives list = membersIn(int32s({12, 3}) + int32s({0, 1, 1, 2}) +
                                                   int32s({index, count}) + int32s({2, 1, 3, 4}));
            ASSERT_EQ(list.size(), 3u);
            EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}}));
            EXPECT_EQ(placesOf(list[1]), (Places{}));
            EXPECT_EQ(placesOf(list[2]), (Places{}));
        }
    }
}

TEST(Representatives, LargeCountOfEntriesThatTheFileHoldsIsRead)
{
    std::string entries;
    for (int i = 0; i < 65537; ++i) {
        entries += int32s({i, -i});
    }
    const Representatives list =
        membersIn(int32s({12, 2}) + int32s({1, 65537}) + entries + int32s({0, 1, 7, 8}));
    ASSERT_EQ(list.size(), 2u);
    ASSERT_EQ(list[1].Items.size(), 65537u);
    EXPECT_EQ(list[1].Items[65536].FrameNumber, 65536);
    EXPECT_EQ(list[1].Items[65536].BlobIndex, -65536);
    EXPECT_EQ(placesOf(list[0]), (Places{{7, 8}}));
    // One byte less, and the file ends within them.
    const Representatives shorter =
        membersIn(int32s({12, 2}) + int32s({1, 65537}) + entries.substr(0, 8 * 65537 - 1));
    ASSERT_EQ(shorter.size(), 2u);
    EXPECT_TRUE(shorter[1].Items.empty());
}

TEST(Representatives, NegativeCountOfEntriesIsNone)
{
    for (const int count : {-1, INT_MIN}) {
        SCOPED_TRACE(count);
        const Representatives list = membersIn(int32s({12, 2}) + int32s({0, count}) + int32s({1, 1, 3, 4}));
        ASSERT_EQ(list.size(), 2u);
        EXPECT_EQ(placesOf(list[0]), (Places{}));
        EXPECT_EQ(placesOf(list[1]), (Places{{3, 4}}));
    }
}

TEST(Representatives, RecordsThatTheFileLacksTakeNothingAway)
{
    const Representatives list =
        membersIn(int32s({12, 1000}) + int32s({0, 1, 1, 2}) + int32s({999, 1, 3, 4}));
    ASSERT_EQ(list.size(), 1000u);
    EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}}));
    EXPECT_EQ(placesOf(list[999]), (Places{{3, 4}}));
}

TEST(Representatives, EveryCutLeavesTheWholeEntriesBeforeIt)
{
    const std::string whole = int32s({7, 2}) + int32s({1, 2, 10, 11, 12, 13}) + int32s({0, 1, 20, 21});
    for (std::size_t size = 8; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        const Representatives list = membersIn(whole.substr(0, size));
        ASSERT_EQ(list.size(), 2u);
        EXPECT_EQ(list[1].Items.size(), size < 16 ? 0u : 2u);
        if (size >= 24) {
            EXPECT_EQ(list[1].Items[0].FrameNumber, 10);
            EXPECT_EQ(list[1].Items[0].BlobIndex, 11);
        }
        if (size >= 32) {
            EXPECT_EQ(list[1].Items[1].FrameNumber, 12);
            EXPECT_EQ(list[1].Items[1].BlobIndex, 13);
        } else if (size == 24) {
            EXPECT_EQ(list[1].Items[1].FrameNumber, 0);
            EXPECT_EQ(list[1].Items[1].BlobIndex, 0);
        }
        EXPECT_EQ(list[0].Items.size(), size < 40 ? 0u : 1u);
    }
    EXPECT_EQ(placesOf(membersIn(whole)[0]), (Places{{20, 21}}));
}

TEST(Representatives, BytesBehindTheLastRecordAreIgnored)
{
    const Representatives list = membersIn(bytesOfThreeMembers + "tail");
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(placesOf(list[2]), (Places{{5, 6}}));
}

TEST(Representatives, ListIsResizedAndItsEntriesAreReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", int32s({12, 2}) + int32s({0, 2, 8, 9, 10, 11}) + int32s({1, 1, 12, 13}));
    Representatives list = before;
    int frames = 0;
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(placesOf(list[0]), (Places{{8, 9}, {10, 11}}));
    EXPECT_EQ(placesOf(list[1]), (Places{{12, 13}}));

    makeFile(folder / "a.bin", int32s({12, 1}) + int32s({0, 1, 14, 15}));
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(placesOf(list[0]), (Places{{14, 15}}));
}

TEST(Representatives, MembersLeaveThePositionsOfTheList)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", int32s({12, 2}) + int32s({0, 1, 8, 9}) + int32s({1, 0}));
    Representatives list = before;
    int frames = 0;
    EXPECT_EQ(lIndVKBin(folder / "a.bin", frames, list), 0);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].X, 1.0);
    EXPECT_EQ(list[0].Y, 2.0);
    EXPECT_EQ(list[0].Value, 3.0);
    EXPECT_EQ(list[0].Index, 4);
    EXPECT_EQ(list[1].X, 0.0);
}

TEST(Representatives, PositionsGoIntoTheListAsItIs)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.XY", bytesOfThreePositions);
    Representatives list(2);
    list[0] = {1.0, 2.0, 3.0, 4, {{5, 6, 7}}};
    EXPECT_EQ(lXYIndVKBin(folder / "a.XY", list), 0);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].X, 10.5);
    EXPECT_EQ(list[0].Y, 20.25);
    EXPECT_EQ(list[0].Value, 3.0);
    EXPECT_EQ(list[0].Index, 4);
    EXPECT_EQ(list[0].Items[0].Third, 7);
    EXPECT_EQ(list[1].X, -1.0);
    EXPECT_EQ(list[1].Y, 0.5);

    Representatives none;
    EXPECT_EQ(lXYIndVKBin(folder / "a.XY", none), 0);
    EXPECT_TRUE(none.empty());
}

TEST(Representatives, PositionsThatTheFileLacksStay)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.XY", doubles({10.5, 20.25}) + doubles({7.0}));
    Representatives list = {{1.0, 2.0, 0.0, -1, {}}, {3.0, 4.0, 0.0, -1, {}}, {5.0, 6.0, 0.0, -1, {}}};
    EXPECT_EQ(lXYIndVKBin(folder / "a.XY", list), 0);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].X, 10.5);
    EXPECT_EQ(list[0].Y, 20.25);
    EXPECT_EQ(list[1].X, 3.0); // the 8 bytes are a tail
    EXPECT_EQ(list[1].Y, 4.0);
    EXPECT_EQ(list[2].X, 5.0);
    EXPECT_EQ(list[2].Y, 6.0);

    makeFile(folder / "a.XY", "");
    EXPECT_EQ(lXYIndVKBin(folder / "a.XY", list), 0);
    EXPECT_EQ(list[0].X, 10.5);
}

TEST(Representatives, CompanionHasTheExtensionXY)
{
    const struct
    {
        std::string members, positions;
    } rows[] = {{"b.bin", "b.XY"},     {"b", "b.XY"},         {"b.", "b.XY"},
                {"b.c.bin", "b.c.XY"}, {"d.x/b", "d.x/b.XY"}, {"d.x/b.bin", "d.x/b.XY"},
                {".bin", ".XY"},       {"b.xy", "b.XY"},      {"d.x/b\\c.bin", "d.x/b\\c.XY"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.members);
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / "d.x");
        psIndVKBin(folder / row.members, 12, threeRepresentatives());
        EXPECT_EQ(bytesOf(folder / row.members), bytesOfThreeMembers);
        EXPECT_EQ(bytesOf(folder / row.positions), bytesOfThreePositions);

        int frames = 0;
        Representatives list;
        plIndVKBin(folder / row.members, frames, list);
        EXPECT_EQ(frames, 12);
        ASSERT_EQ(list.size(), 3u);
        EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}, {3, 4}}));
        EXPECT_EQ(list[0].X, 10.5);
        EXPECT_EQ(list[0].Y, 20.25);
        EXPECT_EQ(list[0].Index, -1);
        EXPECT_EQ(list[0].Value, 0.0);
        EXPECT_EQ(list[2].X, 7.0);
        EXPECT_EQ(list[2].Y, 8.0);
    }
}

TEST(Representatives, MembersUnderTheCompanionsNameAreOverwritten)
{
    const TemporaryFolder folder;
    psIndVKBin(folder / "a.XY", 12, threeRepresentatives());
    EXPECT_EQ(bytesOf(folder / "a.XY"), bytesOfThreePositions);
}

TEST(Representatives, CompanionAloneIsNotRead)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.XY", bytesOfThreePositions);
    Representatives list = before;
    int frames = 77;
    plIndVKBin(folder / "a.bin", frames, list);
    EXPECT_EQ(frames, 77);
    expectAsBefore(list);
}

TEST(Representatives, MembersWithoutCompanionHaveNoPositions)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", bytesOfThreeMembers);
    Representatives list;
    int frames = 0;
    plIndVKBin(folder / "a.bin", frames, list);
    EXPECT_EQ(frames, 12);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(placesOf(list[0]), (Places{{1, 2}, {3, 4}}));
    EXPECT_EQ(list[0].X, 0.0);
    EXPECT_EQ(list[2].Y, 0.0);
}

TEST(Representatives, PositionsAreReadAlsoBehindMembersThatAreRefused)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.bin", int32s({12, 65537}));
    makeFile(folder / "a.XY", bytesOfThreePositions);
    Representatives list = before;
    int frames = 77;
    plIndVKBin(folder / "a.bin", frames, list);
    EXPECT_EQ(frames, 77);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].X, 10.5);
    EXPECT_EQ(list[0].Y, 20.25);
    EXPECT_EQ(placesOf(list[0]), (Places{{5, 6}}));
}

TEST(Representatives, EachOfThePairIsWrittenWithoutTheOther)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a.bin");
    psIndVKBin(folder / "a.bin", 12, threeRepresentatives());
    EXPECT_EQ(bytesOf(folder / "a.XY"), bytesOfThreePositions);

    std::filesystem::create_directory(folder / "b.XY");
    psIndVKBin(folder / "b.bin", 12, threeRepresentatives());
    EXPECT_EQ(bytesOf(folder / "b.bin"), bytesOfThreeMembers);
}

TEST(Representatives, PairThatCannotBeWrittenIsPassedOver)
{
    expectSilence([](const std::string& path) { psIndVKBin(path, 12, threeRepresentatives()); });
}
