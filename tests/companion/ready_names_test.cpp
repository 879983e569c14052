#include "command/ready_names.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace companion;

using Words = std::vector<std::string>;

// A track of a name.
CopyTrack namedTrack(const std::string& name, bool isSatellite = false)
{
    CopyTrack track;
    track.track.QRVName = name;
    track.isSatellite = isSatellite;
    return track;
}

Words newNamesOf(const CopyInput& input, const std::string& base)
{
    Words names;
    for (const auto& [old, now] : newNames(input, base)) {
        names.push_back(old + ' ' + now);
    }
    return names;
}

TEST(ReadyNames, ObjectsThatNobodyHasIdentifiedGetNewNames)
{
    CopyInput input;
    input.tracks = {namedTrack("AST1000"),   namedTrack("an odd name"), namedTrack("an odd name"),
                    namedTrack("2016-033A"), namedTrack("K23B01A"),     namedTrack("9_odd", true)};
    input.unidentified = {"AST1000"};
    EXPECT_EQ(newNamesOf(input, "NEW"), (Words{"AST1000 NEW1", "an odd name NEW2"}));
}

// Ten of base 36 is A: K23B01A is a designation, and so on up to I, which designations have not.
TEST(ReadyNames, NewNamesAreNoDesignations)
{
    CopyInput input;
    for (int number = 0; number < 10; ++number) {
        input.tracks.push_back(namedTrack("odd name " + std::to_string(number)));
    }
    EXPECT_EQ(newNamesOf(input, "K23B01").back(), "odd name 9 K23B01I");
}

TEST(ReadyNames, BaseMustLeaveRoomForTheNumbers)
{
    CopyInput input;
    for (int number = 0; number < 36; ++number) {
        input.tracks.push_back(namedTrack("odd name " + std::to_string(number)));
    }
    EXPECT_EQ(newNamesOf(input, "ABCDE").back(), "odd name 35 ABCDE10");
    EXPECT_THROW(newNames(input, "ABCDEF"), WrongUsage);
}

TEST(ReadyNames, EmptyLinesOfAFileAreSkipped)
{
    const TemporaryFolder folder;
    makeFile(folder / "names", "# old and new\n\nA\tB\n");
    EXPECT_EQ(namesOfFile(folder / "names"), (NewNames{{"A", "B"}}));
}

} // namespace
