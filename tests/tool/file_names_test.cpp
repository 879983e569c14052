#include "file_names.h"

#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>

using namespace tavelinUtils;

namespace {

std::string nameAt(int date, double time)
{
    TrackVtorichka track;
    track.Marks = {{.date = date, .time = time}};
    track.Series = "R";
    return CreateAutoName(track, "T1", "1234");
}

} // namespace

TEST(CreateAutoName, PartsAreJoinedWithHyphens)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}, {.date = 50000, .time = 0.1}});
    track.Series = "R";
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-2023-02-25T12-00-00-R");
}

TEST(CreateAutoName, EmptyPartsLeaveTheirHyphens)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}});
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-2023-02-25T12-00-00-");
    EXPECT_EQ(CreateAutoName(track, "", ""), "--2023-02-25T12-00-00-");
}

TEST(CreateAutoName, OnlyTheTimeIsCutAtItsPoint)
{
    TrackVtorichka track = trackNamed("other", {{.date = 60000, .time = 0.5}});
    track.Series = "s.1";
    EXPECT_EQ(CreateAutoName(track, "T.1", "a.b/c"), "T.1-a.b/c-2023-02-25T12-00-00-s.1");
}

TEST(CreateAutoName, SecondsAreRoundedToTenthsAndThenCut)
{
    const struct
    {
        double seconds;
        const char* name;
    } rows[] = {{0.0, "T1-1234-2023-02-25T12-00-00-R"},   {9.94, "T1-1234-2023-02-25T12-00-09-R"},
                {9.96, "T1-1234-2023-02-25T12-00-10-R"},  {12.9, "T1-1234-2023-02-25T12-00-12-R"},
                {12.94, "T1-1234-2023-02-25T12-00-12-R"}, {12.96, "T1-1234-2023-02-25T12-00-13-R"},
                {59.94, "T1-1234-2023-02-25T12-00-59-R"}, {59.96, "T1-1234-2023-02-25T12-00-60-R"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(nameAt(60000, 0.5 + row.seconds / 86400.0), row.name);
    }
}

TEST(CreateAutoName, TimesOfDay)
{
    EXPECT_EQ(nameAt(60000, 0.0), "T1-1234-2023-02-25T00-00-00-R");
    EXPECT_EQ(nameAt(60000, 0.25), "T1-1234-2023-02-25T06-00-00-R");
    EXPECT_EQ(nameAt(60000, (23.0 + 59.0 / 60.0 + 30.0 / 3600.0) / 24.0), "T1-1234-2023-02-25T23-59-30-R");
    EXPECT_EQ(nameAt(51544, 0.0), "T1-1234-2000-01-01T00-00-00-R");
    EXPECT_EQ(nameAt(60003, 0.75), "T1-1234-2023-02-28T18-00-00-R");
    EXPECT_EQ(nameAt(60004, 0.75), "T1-1234-2023-03-01T18-00-00-R");
}

TEST(CreateAutoName, DateAndTimeCountAsOneNumber)
{
    EXPECT_EQ(nameAt(60000, 1.5), "T1-1234-2023-02-26T12-00-00-R");
    EXPECT_EQ(nameAt(60001, -0.5), "T1-1234-2023-02-25T12-00-00-R");
}

TEST(CreateAutoName, TrackWithoutMarksHasTheTimeZero)
{
    const TrackVtorichka track;
    EXPECT_EQ(CreateAutoName(track, "T1", "1234"), "T1-1234-1858-11-17T00-00-00-");
}

TEST(ConversionPath, PartsAreSimplyJoined)
{
    TConvMea task;
    task.path_in = "/nights/c.tdm.old";
    task.out_dir = "/out/";
    task.outputextension = "xml";
    EXPECT_EQ(conversionPath(task, nullptr), "/out/c.tdmxml");
    task.outputextension = ".xml";
    EXPECT_EQ(conversionPath(task, nullptr), "/out/c.tdm.xml");
    EXPECT_EQ(conversionPath(TConvMea(), nullptr), "");
}

TEST(ConversionPath, AutomaticNameIsThatOfTheFirstTrack)
{
    TConvMea task;
    task.path_in = "/nights/c.mea";
    task.out_dir = "/out/";
    task.outputextension = ".mea";
    task.PARTICIPANT_1 = "T9";
    task.autoname = true;
    const TrackVtorichka first = trackNamed("A", {{.date = 60000, .time = 0.5}});
    EXPECT_EQ(conversionPath(task, &first), "/out/T9-A-2023-02-25T12-00-00-.mea");
    const TrackVtorichka withoutMarks = trackNamed("A", {});
    EXPECT_EQ(conversionPath(task, &withoutMarks), std::nullopt);
    EXPECT_EQ(conversionPath(task, nullptr), std::nullopt);
}

TEST(BaseName, ObjectIsThatOfTheFirstTrack)
{
    const TrackVtorichka named = trackNamed("A", {});
    const TrackVtorichka nameless = trackNamed("", {});
    EXPECT_EQ(objectName(&named), "A");
    EXPECT_EQ(objectName(&nameless), "");
    EXPECT_EQ(objectName(nullptr), std::nullopt);
}

TEST(BaseName, SeriesFolderIsTheFourthPartFromTheEnd)
{
    TConvMea task;
    for (const char* const path : {"/data/s1/a/b/table", "s2/a/b/table", "a/b/table", ""}) {
        task.paths.emplace_back().path = path;
    }
    EXPECT_EQ(seriesFolderName(task, 0), "s1");
    EXPECT_EQ(seriesFolderName(task, 1), "s2");
    for (const std::size_t number : {std::size_t{2}, std::size_t{3}, std::size_t{4}}) {
        EXPECT_EQ(seriesFolderName(task, number), std::nullopt);
    }
}

TEST(BaseName, OutputFolderIsTheLastPartOfItsPath)
{
    TConvMea task;
    EXPECT_EQ(outputFolderName(task), "");
    task.out_dir = "/data/out/";
    EXPECT_EQ(outputFolderName(task), "out");
    task.out_dir = "/";
    EXPECT_EQ(outputFolderName(task), "");
}

TEST(ReportPath, ShortNameIsTheBaseName)
{
    TConvMea task;
    task.longname = false;
    task.out_dir = "/out/";
    task.outputextension = "txt";
    EXPECT_EQ(reportPath(task, nullptr, "s1"), "/out/s1.txt");
    EXPECT_EQ(reportPath(task, nullptr, ""), "/out/.txt");
    const TrackVtorichka first = trackNamed("A", {{}});
    EXPECT_EQ(reportPath(task, &first, std::nullopt), std::nullopt);
}

TEST(ReportPath, LongNameHasTheTelescopeAndTheTimeOfTheFirstTrack)
{
    TConvMea task;
    task.out_dir = "/out/";
    task.outputextension = ".txt";
    TrackVtorichka first = trackNamed("A", {{.date = 60000, .time = 0.5}});
    first.telescope = "T1";
    first.Series = "R";
    EXPECT_EQ(reportPath(task, &first, "s1"), "/out/T1-s1-2023-02-25T12-00-00-R..txt");
    EXPECT_EQ(reportPath(task, &first, std::nullopt), std::nullopt);
    const TrackVtorichka withoutMarks = trackNamed("B", {});
    EXPECT_EQ(reportPath(task, &withoutMarks, "s1"), std::nullopt);
    EXPECT_EQ(reportPath(task, nullptr, "s1"), std::nullopt);
}
