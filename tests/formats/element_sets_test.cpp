#include "formats/element_sets.h"

#include "support/failed_writes.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Sets = std::vector<TTLEstr>;

const std::string stationLine1 = "1 25544U 98067A   24001.50000000  .00016717  00000-0  10270-3 0  9991";
const std::string stationLine2 = "2 25544  51.6400 247.4627 0001013  37.6900 322.4251 15.50030129000011";
const std::string palaceLine1 = "1 48274U 21035A   24001.50000000  .00002605  00000-0  43346-4 0  9999";
const std::string palaceLine2 = "2 48274  41.4689 226.7056 0005390 251.8025 108.2351 15.59646707000014";

Sets readOf(const std::string& bytes)
{
    return readBy([](const std::string& path) { return l3LEstr(path); }, bytes);
}

std::string written(const Sets& sets)
{
    return writtenBy([&sets](const std::string& path) { s3LEstr(path, sets); });
}

void expectSets(const Sets& sets, const Sets& expected)
{
    ASSERT_EQ(sets.size(), expected.size());
    for (std::size_t i = 0; i < sets.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(sets[i].Line0, expected[i].Line0);
        EXPECT_EQ(sets[i].Line1, expected[i].Line1);
        EXPECT_EQ(sets[i].Line2, expected[i].Line2);
    }
}

TEST(ElementSets, LinesAreKeptWhole)
{
    expectSets(readOf("0 ISS (ZARYA)\n" + stationLine1 + "\n" + stationLine2 + "\n"),
               {{"0 ISS (ZARYA)", stationLine1, stationLine2}});
}

TEST(ElementSets, FirstCharacterAloneTellsWhatALineIs)
{
    expectSets(readOf("0\n1\n2\n0name\n11\n2x\n"), {{"0", "1", "2"}, {"0name", "11", "2x"}});
}

TEST(ElementSets, OtherLinesArePassedOver)
{
    expectSets(readOf("# remark\n0 A\n\nName\n1 a\n 1 blank in front\n3 x\n-\n2 b\n\n9\n"),
               {{"0 A", "1 a", "2 b"}});
}

TEST(ElementSets, SetWithoutANameLineHasTheNameBefore)
{
    expectSets(readOf("0 A\n1 a\n2 b\n1 c\n2 d\n"), {{"0 A", "1 a", "2 b"}, {"0 A", "1 c", "2 d"}});
}

TEST(ElementSets, SetWithoutItsFirstElementLineHasTheOneBefore)
{
    expectSets(readOf("0 A\n1 a\n2 b\n0 B\n2 d\n"), {{"0 A", "1 a", "2 b"}, {"0 B", "1 a", "2 d"}});
}

TEST(ElementSets, SecondElementLineAloneIsASetEachTime)
{
    expectSets(readOf("2 b\n2 c\n"), {{"", "", "2 b"}, {"", "", "2 c"}});
}

TEST(ElementSets, LastOfSeveralLinesOfOneKindCounts)
{
    expectSets(readOf("0 A\n0 B\n1 a\n1 c\n2 b\n"), {{"0 B", "1 c", "2 b"}});
}

TEST(ElementSets, OrderOfNameAndFirstElementLineIsFree)
{
    expectSets(readOf("1 a\n0 A\n2 b\n"), {{"0 A", "1 a", "2 b"}});
}

TEST(ElementSets, SetWithoutItsSecondElementLineIsDropped)
{
    expectSets(readOf("0 A\n1 a\n2 b\n0 B\n1 c\n"), {{"0 A", "1 a", "2 b"}});
    expectSets(readOf("0 A\n1 a\n"), {});
}

TEST(ElementSets, NothingInALineIsTested)
{
    expectSets(readOf("1 25544 bad checksum 7\n2 99999 another number\n"),
               {{"", "1 25544 bad checksum 7", "2 99999 another number"}});
}

TEST(ElementSets, BlanksAtTheEndStayAndTabsGo)
{
    expectSets(readOf("0 A  \r\n1 a \t\r\n2 b\t\t\r\n"), {{"0 A  ", "1 a ", "2 b"}});
}

TEST(ElementSets, MissingOrEmptyFileHasNone)
{
    const TemporaryFolder folder;
    EXPECT_TRUE(l3LEstr(folder / "missing.tle").empty());
    EXPECT_TRUE(l3LEstr(folder.path()).empty());
    EXPECT_TRUE(readOf("").empty());
}

TEST(ElementSets, ThreeLinesAreWrittenForEachSet)
{
    EXPECT_EQ(
        written({{"0 ISS (ZARYA)", stationLine1, stationLine2}, {"0 TIANGONG", palaceLine1, palaceLine2}}),
        "0 ISS (ZARYA)\n"
        "1 25544U 98067A   24001.50000000  .00016717  00000-0  10270-3 0  9991\n"
        "2 25544  51.6400 247.4627 0001013  37.6900 322.4251 15.50030129000011\n"
        "0 TIANGONG\n"
        "1 48274U 21035A   24001.50000000  .00002605  00000-0  43346-4 0  9999\n"
        "2 48274  41.4689 226.7056 0005390 251.8025 108.2351 15.59646707000014\n");
}

TEST(ElementSets, EmptyNameIsWrittenAsZero)
{
    EXPECT_EQ(written({{"0 A", "1 a", "2 b"}, {"", "1 c", "2 d"}}), "0 A\n1 a\n2 b\n0\n1 c\n2 d\n");
}

TEST(ElementSets, NameWithoutItsZeroIsWrittenAsItIs)
{
    EXPECT_EQ(written({{"ISS", "1 a", "2 b"}, {" ", "1 a", "2 b"}}), "ISS\n1 a\n2 b\n \n1 a\n2 b\n");
}

TEST(ElementSets, EmptyElementLinesAreWrittenEmpty)
{
    EXPECT_EQ(written({{"", "", ""}}), "0\n\n\n");
}

TEST(ElementSets, SetWithAnEmptyNameIsReadBackAsItsOwn)
{
    const TemporaryFolder folder;
    s3LEstr(folder / "a.tle", {{"0 A", "1 a", "2 b"}, {"", "1 c", "2 d"}});
    expectSets(l3LEstr(folder / "a.tle"), {{"0 A", "1 a", "2 b"}, {"0", "1 c", "2 d"}});
}

TEST(ElementSets, NoSetsGiveAnEmptyFile)
{
    EXPECT_EQ(written({}), "");
}

TEST(ElementSets, FileThatIsThereIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.tle", "0 OLD\n1 old\n2 old\nmore\n");
    s3LEstr(folder / "a.tle", {{"0 A", "1 a", "2 b"}});
    EXPECT_EQ(bytesOf(folder / "a.tle"), "0 A\n1 a\n2 b\n");
}

TEST(ElementSets, FileThatCannotBeWrittenIsCode7)
{
    expectCode7([](const std::string& path) { s3LEstr(path, {{"0 A", "1 a", "2 b"}}); });
}

TEST(ElementSets, RealListWithZeroHasItsNames)
{
    expectSets(l3LEstr(fixture("element_sets/names_with_zero.txt")),
               {{"0 ISS (ZARYA)", stationLine1, stationLine2}, {"0 TIANGONG", palaceLine1, palaceLine2}});
}

TEST(ElementSets, RealListWithoutZeroHasNoNames)
{
    expectSets(l3LEstr(fixture("element_sets/names_without_zero.txt")),
               {{"", stationLine1, stationLine2}, {"", palaceLine1, palaceLine2}});
}

TEST(ElementSets, ListIsWrittenAsItWasRead)
{
    const std::string path = fixture("element_sets/names_with_zero.txt");
    EXPECT_EQ(written(l3LEstr(path)), bytesOf(path));
}

TEST(ElementSets, RealListOfLinesThatEndInTwoBytesHasWholeLines)
{
    const Sets sets = l3LEstr(fixture("element_sets/line_ends_of_two_bytes.tle"));
    ASSERT_EQ(sets.size(), 27U);
    EXPECT_EQ(sets[0].Line0, "");
    EXPECT_EQ(sets[0].Line1, "1 25544U 98067A   24130.36689744  .00016024  00000+0  27777-3 0  9992");
    EXPECT_EQ(sets[0].Line2, "2 25544  51.6381 147.8590 0003466 150.4670 338.5502 15.51043222452521");
    EXPECT_EQ(sets[1].Line1, "1 48274U 21035A   24130.00580162  .00044782  00000+0  47178-3 0  9992");
    for (const TTLEstr& set : sets) {
        EXPECT_EQ(set.Line0, "");
        EXPECT_EQ(set.Line1.size(), 69U);
        EXPECT_EQ(set.Line2.size(), 69U);
        EXPECT_EQ(set.Line1.substr(1, 6), set.Line2.substr(1, 6));
    }
}

TEST(ElementSets, RealListWithRemarksKeepsWhatStandsBehindTheElements)
{
    const Sets sets = l3LEstr(fixture("element_sets/remarks_and_further_columns.tle"));
    ASSERT_EQ(sets.size(), 33U);
    EXPECT_EQ(sets[0].Line1, "1 00005U 58002B   00179.78495062  .00000023  00000-0  28098-4 0  4753");
    EXPECT_EQ(sets[0].Line2,
              "2 00005  34.2682 348.7242 1859667 331.7664  19.3264 10.82419157413667     0.00   "
              "   4320.0        360.00");
    EXPECT_EQ(sets[32].Line1, "1 20413U 83020D   05363.79166667  .00000000  00000-0  00000+0 0  7041");
    for (const TTLEstr& set : sets) {
        EXPECT_EQ(set.Line0, "");
        EXPECT_EQ(set.Line1.substr(1, 6), set.Line2.substr(1, 6));
    }
}

} // namespace
