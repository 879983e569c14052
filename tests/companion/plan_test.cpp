#include "task/plan.h"

#include "support/report_series.h"
#include "support/temporary_folder.h"
#include "task/writable.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using companion::MarkAccount;
using companion::MissingMark;
using companion::Plan;
using companion::PlannedFile;
using companion::planOf;
using report_series::Bench;
using report_series::track;
using tavelinUtils::TConvMea;
using testing::ElementsAre;
using testing::IsEmpty;

struct FileCounts
{
    std::string name;
    std::size_t tracks;
    std::size_t marks;

    bool operator==(const FileCounts&) const = default;
};

void PrintTo(const FileCounts& file, std::ostream* out)
{
    *out << file.name << ' ' << file.tracks << ' ' << file.marks;
}

// The files of a plan without the folder of the output.
std::vector<FileCounts> filesOf(const Plan& plan, const TConvMea& task)
{
    std::vector<FileCounts> files;
    for (const PlannedFile& file : plan.files) {
        EXPECT_EQ(file.path.substr(0, task.out_dir.size()), task.out_dir);
        files.push_back({file.path.substr(task.out_dir.size()), file.tracks, file.marks});
    }
    return files;
}

std::vector<std::string> placesOf(const std::vector<MissingMark>& marks)
{
    std::vector<std::string> places;
    for (const MissingMark& mark : marks) {
        const auto& place = mark.place;
        places.push_back(std::to_string(place.series) + ' ' + place.folder + ' ' +
                         std::to_string(place.track) + ' ' + place.object + ' ' + std::to_string(place.mark) +
                         ' ' + place.time + (mark.emptiesPiece ? " empty" : ""));
    }
    return places;
}

Plan planOf(const Bench& bench)
{
    Plan plan = companion::planOf(bench.task, ownWorks());
    EXPECT_TRUE(plan.account.agrees());
    EXPECT_THAT(bench.written(), IsEmpty());
    return plan;
}

TEST(MarkAccount, AgreesWhereBothSumsDo)
{
    MarkAccount account;
    EXPECT_TRUE(account.agrees());
    account.read = 2;
    EXPECT_FALSE(account.agrees());
    account.excluded = 1;
    account.planned = 1;
    EXPECT_FALSE(account.agrees());
    account.overwritten = 1;
    EXPECT_TRUE(account.agrees());
}

TEST(Plan, ReportOfAllObjectsHasAllMarks)
{
    Bench bench;
    addTwoSeries(bench);
    const Plan plan = planOf(bench);
    EXPECT_EQ(plan.result.Code, 0);
    EXPECT_EQ(plan.result.Description, bench / "out/out.txt;");
    EXPECT_THAT(filesOf(plan, bench.task), ElementsAre(FileCounts{"out.txt", 3, 9}));
    EXPECT_EQ(plan.account.read, 9U);
    EXPECT_EQ(plan.account.written, 9U);
}

TEST(Plan, MarksThatADivisionByGapsLosesAreNamed)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.toSeparateFile = "eachgroup";
    const Plan plan = planOf(bench);
    EXPECT_THAT(filesOf(plan, bench.task), ElementsAre(FileCounts{"A.txt", 1, 2}, FileCounts{"A.txt", 1, 2},
                                                       FileCounts{"B.txt", 1, 2}, FileCounts{"A.txt", 1, 1}));
    EXPECT_EQ(plan.account.cut, 2U);
    EXPECT_THAT(placesOf(plan.cutMarks),
                ElementsAre("1 s1 0 A 2 2023-02-25T12:20:00.000", "1 s1 0 A 5 2023-02-25T13:40:00.000"));
}

TEST(Plan, PieceOfOneMarkIsLeftEmpty)
{
    Bench bench;
    bench.add("s", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"13:10:00", "3"}}));
    bench.task.toSeparateFile = "eachgroup";
    const Plan plan = planOf(bench);
    EXPECT_THAT(placesOf(plan.cutMarks),
                ElementsAre("1 s 0 A 0 2023-02-25T12:00:00.000 empty", "1 s 0 A 2 2023-02-25T13:10:00.000"));
}

TEST(Plan, FilesOfOnePathReplaceEachOther)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.toSeparateFile = "eachgroup";
    const Plan plan = planOf(bench);
    ASSERT_EQ(plan.files.size(), 4U);
    EXPECT_EQ(plan.files[0].replacedBy, 4U);
    EXPECT_EQ(plan.files[1].replacedBy, 4U);
    EXPECT_EQ(plan.files[2].replacedBy, 0U);
    EXPECT_EQ(plan.account.overwritten, 4U);
    EXPECT_EQ(plan.account.written, 3U);
}

TEST(Plan, ExcludedMarksAreCountedAsTheToolLeavesThemOut)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.paths[0].excludes = {{0, {0, 1}}, {0, {0}}, {7, {0}}, {1, {9}}};
    const Plan plan = planOf(bench);
    EXPECT_EQ(plan.account.excluded, 3U);
    EXPECT_EQ(plan.account.written, 6U);
}

TEST(Plan, OneObjectNarrowsAllOthersAway)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.whatSave = "object";
    bench.task.object = 1;
    bench.task.paths[0].excludes = {{1, {0}}};
    const Plan plan = planOf(bench);
    EXPECT_EQ(plan.account.narrowed, 7U);
    EXPECT_EQ(plan.account.excluded, 1U);
    EXPECT_EQ(plan.account.written, 1U);
}

TEST(Plan, ObjectThatIsNotThereNarrowsEverythingAway)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.whatSave = "object";
    bench.task.object = 2;
    const Plan plan = planOf(bench);
    EXPECT_EQ(plan.result.Code, -1);
    EXPECT_EQ(plan.account.narrowed, 9U);
}

TEST(Plan, SeriesOfNoNameHasItsMarksInNoFile)
{
    Bench bench;
    bench.addPath("a/b/t.txt"); // of which there is no file
    bench.add("s", track("A", "", "", {{"12:00:00", "1"}}));
    bench.task.toSeparateFile = "eachseria";
    const Plan plan = planOf(bench);
    EXPECT_EQ(plan.result.Code, -1);
    EXPECT_THAT(filesOf(plan, bench.task), ElementsAre(FileCounts{"s.txt", 1, 1}));
}

TEST(Plan, UnknownDivisionLeavesAllMarksWithoutAFile)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.toSeparateFile = "eachObject";
    const Plan plan = planOf(bench);
    EXPECT_THAT(plan.files, IsEmpty());
    EXPECT_EQ(plan.account.unnamed, 9U);
    EXPECT_EQ(placesOf(plan.unnamedMarks).front(), "1 s1 0 A 0 2023-02-25T12:00:00.000");
}

TEST(Plan, UnknownOutputWordWritesNothing)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.outputformat = "MPC";
    const Plan plan = planOf(bench);
    ASSERT_EQ(plan.files.size(), 1U);
    EXPECT_FALSE(plan.files[0].isWritten);
    EXPECT_EQ(plan.account.unwritten, 9U);
}

TEST(Plan, FailedWriteEndsTheRunAndLeavesTheRestUnwritten)
{
    Bench bench;
    bench.add("s", track("A", "", "", {{"12:00:00", "1"}}) + track("B/C", "", "", {{"12:00:00", "2"}}) +
                       track("D", "", "", {{"12:00:00", "3"}}));
    bench.task.toSeparateFile = "eachobject";
    const Plan plan = planOf(bench);
    EXPECT_TRUE(plan.dies);
    EXPECT_EQ(plan.deathPath, bench / "out/B/C.txt");
    EXPECT_EQ(plan.account.written, 1U);
    EXPECT_EQ(plan.account.unwritten, 2U);
}

TEST(Plan, FailedWriteOfALightCurveIsIgnored)
{
    Bench bench;
    bench.add("s", track("B/C", "", "", {{"12:00:00", "2"}}) + track("D", "", "", {{"12:00:00", "3"}}));
    bench.task.toSeparateFile = "eachobject";
    bench.task.outputformat = "mag";
    const Plan plan = planOf(bench);
    EXPECT_FALSE(plan.dies);
    EXPECT_EQ(plan.account.written, 1U);
    EXPECT_EQ(plan.account.unwritten, 1U);
}

TEST(Plan, FolderWhosePathEndsInASlashCannotBeReplaced)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "empty");
    EXPECT_TRUE(companion::canBeWritten(folder / "empty", true));
    EXPECT_FALSE(companion::canBeWritten(folder / "empty/", true));
    EXPECT_FALSE(companion::canBeWritten(folder / "empty", false));
}

TEST(Plan, ObjectsWithoutAnAnswerGetRunningNames)
{
    Bench bench;
    bench.add("s1", track("x", "Z1", "", {{"12:00:00", "1"}}) + report_series::nameless("y"),
              report_series::configuration("asteroids"));
    bench.add("s2", report_series::nameless("z"), report_series::configuration("satellites"));
    const Plan plan = planOf(bench);
    EXPECT_THAT(plan.runningNames, ElementsAre("AST1000", "99000"));
    ASSERT_EQ(plan.tracks.size(), 3U);
    EXPECT_EQ(plan.tracks[0].object, "Z1");
    EXPECT_EQ(plan.tracks[1].object, "AST1000");
    EXPECT_EQ(plan.tracks[2].object, "99000");
}

TEST(Plan, SeriesWithoutAPathEndsTheRun)
{
    Bench bench;
    addTwoSeries(bench);
    bench.addPath("");
    const Plan plan = planOf(bench);
    EXPECT_TRUE(plan.dies);
    EXPECT_EQ(plan.deathPath, "");
    EXPECT_EQ(plan.account.unwritten, 9U);
}

// A conversion in a folder of its own.
struct ConversionBench
{
    TemporaryFolder folder;
    TConvMea task;

    explicit ConversionBench(const std::string& night =
                                 "T1 2000.0 UTC\n"
                                 "A 250223 1200000000 0100000000 -003000000 001 09.50\n"
                                 "B 250223 1200000000 0100000000 -003000000 001 09.50\n")
    {
        makeFile(folder / "night.mea", night);
        task.path_in = folder / "night.mea";
        task.out_dir = folder / "";
        task.inputformat = "mea";
        task.outputformat = "tdm";
        task.outputextension = ".tdm";
    }
};

TEST(Plan, ConversionHasOneFile)
{
    const ConversionBench bench;
    const Plan plan = companion::planOf(bench.task, ownWorks());
    EXPECT_THAT(filesOf(plan, bench.task), ElementsAre(FileCounts{"night.tdm", 2, 2}));
    EXPECT_EQ(plan.result.Description, bench.folder / "night.tdm");
    EXPECT_TRUE(plan.account.agrees());
    EXPECT_FALSE(exists(bench.folder / "night.tdm"));
}

TEST(Plan, NameOfAFileEndsAtAZeroByteAsInTheSystem)
{
    using std::string_literals::operator""s;
    ConversionBench bench("T1 2000.0 UTC\n\0A 250223 1200000000 0100000000 -003000000 001 09.50\n"s);
    bench.task.autoname = true;
    bench.task.outputextension = "/x.tdm";
    const Plan plan = companion::planOf(bench.task, ownWorks());
    EXPECT_THAT(filesOf(plan, bench.task), ElementsAre(FileCounts{"telescope-", 1, 1}));
    EXPECT_TRUE(plan.files.at(0).isWritten);
    EXPECT_FALSE(plan.dies);
}

TEST(Plan, MarksOfAConversionWithoutAnOutputAreCountedNevertheless)
{
    ConversionBench bench;
    bench.task.outputextension = ".mea";
    const Plan plan = companion::planOf(bench.task, ownWorks());
    EXPECT_EQ(plan.result.Code, -3);
    EXPECT_EQ(plan.account.read, 2U);
    EXPECT_EQ(plan.account.unnamed, 2U);
}

TEST(Plan, ConversionOfNothingWritesOnlyTheFormsThatWriteNothing)
{
    ConversionBench bench("");
    EXPECT_FALSE(companion::planOf(bench.task, ownWorks()).files.at(0).isWritten);
    bench.task.outputformat = "tdm.xml";
    EXPECT_TRUE(companion::planOf(bench.task, ownWorks()).files.at(0).isWritten);
}

} // namespace
