#include "formats/aavso.h"

#include "results/result.h"

#include "support/no_room.h"
#include "support/photo_blobs.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;
using Blobs = std::vector<TLocPhotoBlob>;
using Lists = std::vector<std::vector<TLocPhotoBlob>>;

constexpr double infinity = std::numeric_limits<double>::infinity();

// The seven lines above the marks.
std::string headOf(const std::string& obsCode)
{
    return "#TYPE=Extended\n"
           "#OBSCODE=" +
           obsCode +
           "\n"
           "#SOFTWARE=Vomar\n"
           "#DELIM=,\n"
           "#DATE=JD\n"
           "#OBSTYPE=CCD\n"
           "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n";
}

std::string written(const Tracks& tracks)
{
    return writtenBy([&tracks](const std::string& path) { sAAVSO(path, tracks); });
}

std::string written(const Blobs& objects, const Lists& checkStars)
{
    return writtenBy(
        [&](const std::string& path) { sAAVSO(path, "XYZ", "V", "STD", objects, checkStars, "X123"); });
}

// The data lines of a report under the code.
std::vector<std::string> linesBelow(const std::string& obsCode, const std::string& report)
{
    const std::string head = headOf(obsCode);
    EXPECT_EQ(report.substr(0, head.size()), head);
    std::vector<std::string> lines;
    std::istringstream stream(report.substr(std::min(head.size(), report.size())));
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    EXPECT_EQ(report.back(), '\n');
    return lines;
}

// The only data line of a track N that has this one mark.
std::string lineOf(const TRecLabelPervichka_File& mark)
{
    const std::vector<std::string> lines = linesBelow("aavso", written({trackNamed("N", {mark})}));
    EXPECT_EQ(lines.size(), 1u);
    return lines.empty() ? "" : lines[0];
}

// A field of a line, counted from 1.
std::string field(const std::string& line, int number)
{
    std::istringstream stream(line);
    std::string text;
    for (int i = 0; i < number; ++i) {
        std::getline(stream, text, ',');
    }
    return text;
}

Tracks oneTrack()
{
    return {trackNamed("V1023 Her", {{.SNRpeak = 100.0,
                                      .date = 57878,
                                      .time = 0.2654321,
                                      .filtr = "V",
                                      .mEnsemble = 12.345,
                                      .KNAME = "000-BCD"}})};
}

const std::string oneTrackLine =
    "V1023 Her,2457878.7654321,12.345,0.0100,V,NO,DIF,ENSEMBLE,na,000-BCD,na,na,na,na,na\n";

// One object on one frame, with one check star on it.
const Blobs oneObject = {
    blob({.SNRpeak = 50.0, .date = 57878, .time = 0.2654321, .mEnsemble = 12.345, .SpareText = "V1023 Her"})};
const Lists oneCheckStar = {{blob({.Spare2 = 13.25, .KNAME = "000-BCD"})}};
const std::string oneObjectLine =
    "V1023 Her,57878.2654321,12.345,0.0200,V,NO,STD,ENSEMBLE,na,000-BCD,13.250,na,na,X123,na\n";

// Checks that `write(path)` throws code 7 with the path, for paths that no writer can write.
void expectRefusal(const std::function<void(const std::string&)>& write)
{
    const auto codeAt = [&](const std::string& path) {
        try {
            write(path);
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getComment(), path);
            EXPECT_STREQ(failure.what(), "Error opening file");
            return failure.getCode();
        }
        return 0;
    };
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    makeFile(folder / "folder/kept.txt", "kept\n");
    EXPECT_EQ(codeAt(folder / "folder"), 7);
    EXPECT_EQ(bytesOf(folder / "folder/kept.txt"), "kept\n");
    EXPECT_EQ(codeAt(folder / "missing/a.txt"), 7);
    EXPECT_FALSE(exists(folder / "missing"));

    const ChildEnd end = runWithoutRoom([&](const std::string& path) { _exit(codeAt(path)); });
    EXPECT_EQ(end.exitStatus, 7);
    EXPECT_EQ(end.output, "");
}

} // namespace

TEST(Aavso, OneMarkIsOneLineBelowTheHead)
{
    EXPECT_EQ(written(oneTrack()),
              "#TYPE=Extended\n"
              "#OBSCODE=aavso\n"
              "#SOFTWARE=Vomar\n"
              "#DELIM=,\n"
              "#DATE=JD\n"
              "#OBSTYPE=CCD\n"
              "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n"
              "V1023 Her,2457878.7654321,12.345,0.0100,V,NO,DIF,ENSEMBLE,na,000-BCD,na,na,na,na,na\n");
}

TEST(Aavso, DefaultMarkOfADefaultTrack)
{
    TrackVtorichka track;
    track.Marks.resize(1);
    EXPECT_EQ(written({track}),
              headOf("aavso") + ",2400000.5000000,0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
}

TEST(Aavso, EachColumnHasItsField)
{
    TRecLabelPervichka_File mark;
    mark.SNRafit = 11.0;
    mark.SNRasegm = 12.0;
    mark.SNRpeak = 8.0;
    mark.mInstr = -5.0;
    mark.mInstr1000 = -6.0;
    mark.mInstrComp = -7.0;
    mark.date = 60000;
    mark.time = 0.5;
    mark.bjd = 60001;
    mark.time_bjd = 0.75;
    mark.RA = 15.0;
    mark.DE = -0.5;
    mark.m = 9.5;
    mark.filtr = "Ic";
    mark.mjd = "59999.5";
    mark.QRVID = "id";
    mark.mEnsemble = 14.25;
    mark.Spare2 = 13.5;
    mark.Spare5 = 0.75;
    mark.SpareText = "spare";
    mark.KNAME = "check";
    mark.MTYPE = "STD";
    mark.CNAME = "comp";
    mark.CHART = "X42";
    TrackVtorichka track = trackNamed("SS Cyg", {mark});
    track.NORAD = "99001";
    track.MPCChecker = "checker";
    track.telescope = "T1";
    track.originator = "somebody";
    track.Series = "series";
    track.ObsCode = "ABCD";
    EXPECT_EQ(written({track}), headOf("ABCD") + "SS Cyg,2460001.0000000,14.250,0.1250,Ic,NO,STD,ENSEMBLE,na,"
                                                 "check,na,na,na,X42,na\n");
}

TEST(Aavso, EachTextMayBeLong)
{
    const std::string text(20000, 'x');
    EXPECT_EQ(lineOf({.filtr = text}),
              "N,2400000.5000000,0.000,inf," + text + ",NO,DIF,ENSEMBLE,na,,na,na,na,na,na");
    EXPECT_EQ(lineOf({.KNAME = text}),
              "N,2400000.5000000,0.000,inf,R,NO,DIF,ENSEMBLE,na," + text + ",na,na,na,na,na");
    EXPECT_EQ(lineOf({.MTYPE = text}),
              "N,2400000.5000000,0.000,inf,R,NO," + text + ",ENSEMBLE,na,,na,na,na,na,na");
    EXPECT_EQ(lineOf({.CHART = text}),
              "N,2400000.5000000,0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na," + text + ",na");
}

TEST(Aavso, DateIsTheJulianDateWithSevenDecimals)
{
    const struct
    {
        int date;
        double time;
        const char* text;
    } rows[] = {
        {60000, 0.5, "2460001.0000000"},
        {60000, 0.0, "2460000.5000000"},
        {0, 0.0, "2400000.5000000"},
        {51544, 0.25, "2451544.7500000"},
        {60000, 0.12345678, "2460000.6234568"},
        {60329, 0.90865, "2460330.4086500"},
        {60000, 0.99999999, "2460001.5000000"},
        {60000, 1.5, "2460002.0000000"},
        {60000, -0.25, "2460000.2500000"},
        {-1, 0.25, "2399999.7500000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(field(lineOf({.date = row.date, .time = row.time}), 2), row.text);
    }
}

TEST(Aavso, MagnitudeIsThatOfTheEnsembleWithThreeDecimals)
{
    const struct
    {
        double magnitude;
        const char* text;
    } rows[] = {
        {12.345, "12.345"}, {12.3456, "12.346"}, {9.5, "9.500"},       {0.0, "0.000"},
        {-1.5, "-1.500"},   {-0.0001, "-0.000"}, {99.9996, "100.000"}, {6.0625, "6.062"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(field(lineOf({.m = 7.0, .mEnsemble = row.magnitude}), 3), row.text);
    }
    EXPECT_EQ(field(lineOf({.mInstr = 8.0, .m = 9.5, .mInstrComp = 7.0}), 3), "0.000");
}

TEST(Aavso, ErrorIsTheReciprocalOfTheSignalToNoiseAtThePeak)
{
    const struct
    {
        double ratio;
        const char* text;
    } rows[] = {
        {100.0, "0.0100"},   {8.0, "0.1250"},   {3.0, "0.3333"},      {1.5, "0.6667"},        {1.0, "1.0000"},
        {0.5, "2.0000"},     {0.0, "inf"},      {-0.0, "-inf"},       {-100.0, "-0.0100"},    {1e6, "0.0000"},
        {20000.0, "0.0001"}, {-1e6, "-0.0000"}, {infinity, "0.0000"}, {0.0001, "10000.0000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(field(lineOf({.SNRafit = 7.0, .SNRasegm = 9.0, .SNRpeak = row.ratio}), 4), row.text);
    }
}

TEST(Aavso, LineOfASignalToNoiseOfZeroIsWritten)
{
    EXPECT_EQ(written({trackNamed("N", {{.SNRpeak = 0.0, .date = 60000, .mEnsemble = 9.5},
                                        {.SNRpeak = 10.0, .date = 60001, .mEnsemble = 9.25}})}),
              headOf("aavso") + "N,2460000.5000000,9.500,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n"
                                "N,2460001.5000000,9.250,0.1000,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
}

TEST(Aavso, FilterIsThatOfTheFirstTracksMarkAtTheSamePlace)
{
    const Tracks tracks = {trackNamed("A", {{.filtr = "V"}, {.filtr = "B"}}),
                           trackNamed("B", {{.filtr = "I"}, {.filtr = "U"}, {.filtr = "Z"}, {.filtr = "Y"}}),
                           trackNamed("C", {{.filtr = "SG"}})};
    const std::vector<std::string> lines = linesBelow("aavso", written(tracks));
    const std::vector<std::string> names = {"A", "A", "B", "B", "B", "B", "C"};
    // Beyond the end of the first track a mark has its own.
    const std::vector<std::string> filters = {"V", "B", "V", "B", "Z", "Y", "V"};
    ASSERT_EQ(lines.size(), filters.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(field(lines[i], 1), names[i]);
        EXPECT_EQ(field(lines[i], 5), filters[i]);
    }
}

TEST(Aavso, EmptyFilterOfTheFirstTrackStaysEmpty)
{
    const std::vector<std::string> lines =
        linesBelow("aavso", written({trackNamed("A", {{.filtr = ""}}), trackNamed("B", {{.filtr = "V"}})}));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "A,2400000.5000000,0.000,inf,,NO,DIF,ENSEMBLE,na,,na,na,na,na,na");
    EXPECT_EQ(lines[1], "B,2400000.5000000,0.000,inf,,NO,DIF,ENSEMBLE,na,,na,na,na,na,na");
}

TEST(Aavso, MarksHaveTheirOwnFilterWhereTheFirstTrackHasNone)
{
    const std::vector<std::string> lines =
        linesBelow("aavso", written({trackNamed("A", {}), trackNamed("B", {{.filtr = "V"}, {.filtr = "B"}}),
                                     trackNamed("C", {{.filtr = "I"}})}));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(field(lines[0], 5), "V");
    EXPECT_EQ(field(lines[1], 5), "B");
    EXPECT_EQ(field(lines[2], 5), "I");
}

TEST(Aavso, ComparisonStarIsAlwaysTheEnsemble)
{
    for (const char* name : {"", "ENSEMBLE", "000-XYZ", "na"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(lineOf({.SNRpeak = 10.0, .CNAME = name}),
                  "N,2400000.5000000,0.000,0.1000,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na");
    }
}

TEST(Aavso, TextsStandAsTheyAre)
{
    const std::string expected = "N,2400000.5000000,0.000,0.1000, clear ,NO,,ENSEMBLE,na,a,b,na,na,na,,na";
    EXPECT_EQ(lineOf({.SNRpeak = 10.0, .filtr = " clear ", .KNAME = "a,b", .MTYPE = "", .CHART = ""}),
              expected);
}

TEST(Aavso, TracksAndMarksStandInTheirOrder)
{
    const Tracks tracks = {trackNamed("B", {{.SNRpeak = 10.0, .date = 60002, .mEnsemble = 3.0},
                                            {.SNRpeak = 10.0, .date = 60000, .mEnsemble = 1.0}}),
                           trackNamed("empty", {}),
                           trackNamed("A", {{.SNRpeak = 10.0, .date = 60001, .mEnsemble = 2.0}})};
    EXPECT_EQ(written(tracks), headOf("aavso") +
                                   "B,2460002.5000000,3.000,0.1000,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n"
                                   "B,2460000.5000000,1.000,0.1000,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n"
                                   "A,2460001.5000000,2.000,0.1000,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
}

TEST(Aavso, ObserverCodeIsThatOfTheFirstTrack)
{
    Tracks tracks = {trackNamed("A", {}), trackNamed("B", {})};
    tracks[0].ObsCode = "FIRST";
    tracks[1].ObsCode = "SECOND";
    EXPECT_EQ(written(tracks), headOf("FIRST"));
    tracks[0].ObsCode = "";
    EXPECT_EQ(written(tracks), headOf(""));
}

TEST(Aavso, TracksWithoutMarksAreTheHeadAlone)
{
    EXPECT_EQ(written({trackNamed("A", {})}), headOf("aavso"));
    EXPECT_EQ(written({trackNamed("A", {}), trackNamed("B", {}), trackNamed("C", {})}), headOf("aavso"));
}

TEST(Aavso, EmptyListLeavesAnExistingFileAndMakesNone)
{
    const TemporaryFolder folder;
    makeFile(folder / "old.txt", "old\n");
    sAAVSO(folder / "old.txt", Tracks{});
    EXPECT_EQ(bytesOf(folder / "old.txt"), "old\n");
    sAAVSO(folder / "new.txt", Tracks{});
    EXPECT_FALSE(exists(folder / "new.txt"));
    EXPECT_NO_THROW(sAAVSO(folder / "missing/new.txt", Tracks{}));
    EXPECT_FALSE(exists(folder / "missing"));
}

// The old file goes and a new one comes: another name of the old file still shows the old bytes.
TEST(Aavso, OldFileIsRemovedFirst)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, std::string(5000, 'x'));
    std::filesystem::create_hard_link(path, folder / "same.txt");
    sAAVSO(path, oneTrack());
    EXPECT_EQ(bytesOf(path), headOf("aavso") + oneTrackLine);
    EXPECT_EQ(bytesOf(folder / "same.txt"), std::string(5000, 'x'));
}

TEST(Aavso, WhatCannotBeWrittenIsRaised)
{
    expectRefusal([](const std::string& path) { sAAVSO(path, oneTrack()); });
}

TEST(AavsoOfAStar, OneFrameIsOneLineBelowTheHead)
{
    EXPECT_EQ(written(oneObject, oneCheckStar),
              "#TYPE=Extended\n"
              "#OBSCODE=XYZ\n"
              "#SOFTWARE=Vomar\n"
              "#DELIM=,\n"
              "#DATE=JD\n"
              "#OBSTYPE=CCD\n"
              "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n"
              "V1023 Her,57878.2654321,12.345,0.0200,V,NO,STD,ENSEMBLE,na,000-BCD,13.250,na,na,X123,na\n");
}

TEST(AavsoOfAStar, EachColumnHasItsField)
{
    TLocPhotoBlob object;
    object.Head.date = 50000;
    object.Head.time = 0.125;
    object.Head.Filter = "Head";
    object.Mark = {.SNRafit = 11.0,
                   .SNRasegm = 12.0,
                   .SNRpeak = 8.0,
                   .mInstr = -5.0,
                   .date = 60000,
                   .time = 0.5,
                   .bjd = 60001,
                   .time_bjd = 0.75,
                   .m = 9.5,
                   .filtr = "own",
                   .QRVID = "id",
                   .Spare1 = 1.0,
                   .mEnsemble = 14.25,
                   .Spare2 = 2.0,
                   .Spare5 = 5.0,
                   .SpareText = "SS Cyg",
                   .KNAME = "its own",
                   .MTYPE = "MTYPE",
                   .CNAME = "comp",
                   .CHART = "CHART"};
    TLocPhotoBlob star;
    star.Mark = {.SNRpeak = 1.0,
                 .mEnsemble = 3.0,
                 .Spare2 = 13.0625,
                 .Spare3 = 4.0,
                 .SpareText = "spare",
                 .KNAME = "check",
                 .CNAME = "comp of check"};
    const TemporaryFolder folder;
    sAAVSO(folder / "a.txt", "", "Ic", "", Blobs{object}, Lists{{star}}, "");
    EXPECT_EQ(bytesOf(folder / "a.txt"),
              headOf("") + "SS Cyg,60000.5000000,14.250,0.1250,Ic,NO,,ENSEMBLE,na,check,13.062,na,na,,na\n");
}

TEST(AavsoOfAStar, DateIsTheMjdWithSevenDecimals)
{
    const struct
    {
        int date;
        double time;
        const char* text;
    } rows[] = {
        {60000, 0.5, "60000.5000000"},        {0, 0.0, "0.0000000"},    {60000, 0.12345678, "60000.1234568"},
        {60000, 0.99999999, "60001.0000000"}, {-1, 0.25, "-0.7500000"}, {51544, 0.25, "51544.2500000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const std::vector<std::string> lines =
            linesBelow("XYZ", written({blob({.date = row.date, .time = row.time})}, oneCheckStar));
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_EQ(field(lines[0], 2), row.text);
    }
}

TEST(AavsoOfAStar, CheckStarIsNamedByTheFirstListAndMeasuredOnEachFrame)
{
    const Blobs objects = {blob({.SNRpeak = 10.0, .date = 1, .mEnsemble = 1.0, .SpareText = "A"}),
                           blob({.SNRpeak = 20.0, .date = 2, .mEnsemble = 2.0, .SpareText = "B"}),
                           blob({.SNRpeak = 40.0, .date = 3, .mEnsemble = 3.0, .SpareText = "C"})};
    const Lists checkStars = {
        {blob({.Spare2 = 10.5, .KNAME = "first"}), blob({.Spare2 = 1.0, .KNAME = "not this"})},
        {blob({.Spare2 = -0.25, .KNAME = "second"}), blob({.Spare2 = 2.0, .KNAME = "nor this"})},
        {blob({.Spare2 = 12.3456, .KNAME = "third"})},
        {blob({.Spare2 = 99.0, .KNAME = "of no frame"})}};
    EXPECT_EQ(written(objects, checkStars),
              headOf("XYZ") + "A,1.0000000,1.000,0.1000,V,NO,STD,ENSEMBLE,na,first,10.500,na,na,X123,na\n"
                              "B,2.0000000,2.000,0.0500,V,NO,STD,ENSEMBLE,na,first,-0.250,na,na,X123,na\n"
                              "C,3.0000000,3.000,0.0250,V,NO,STD,ENSEMBLE,na,first,12.346,na,na,X123,na\n");
}

TEST(AavsoOfAStar, MissingCheckStarsHaveNoNameAndNoMagnitude)
{
    const Blobs objects = {blob({.SNRpeak = 10.0, .date = 1, .SpareText = "A"}),
                           blob({.SNRpeak = 10.0, .date = 2, .SpareText = "B"})};
    const TLocPhotoBlob star = blob({.Spare2 = 10.5, .KNAME = "K"});
    const struct
    {
        const char* what;
        Lists checkStars;
        const char* name;
        const char* magnitudes[2];
    } rows[] = {
        {"no lists", {}, "", {"na", "na"}},
        {"empty lists", {{}, {}}, "", {"na", "na"}},
        {"fewer lists than frames", {{star}}, "K", {"10.500", "na"}},
        {"no star on the first frame", {{}, {star}}, "", {"na", "10.500"}},
        {"no star on the second frame", {{star}, {}}, "K", {"10.500", "na"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::string name = row.name;
        EXPECT_EQ(written(objects, row.checkStars), headOf("XYZ") +
                                                        "A,1.0000000,0.000,0.1000,V,NO,STD,ENSEMBLE,na," +
                                                        name + "," + row.magnitudes[0] +
                                                        ",na,na,X123,na\n"
                                                        "B,2.0000000,0.000,0.1000,V,NO,STD,ENSEMBLE,na," +
                                                        name + "," + row.magnitudes[1] + ",na,na,X123,na\n");
    }
}

TEST(AavsoOfAStar, SignalToNoiseOfZeroGivesAnInfinity)
{
    const std::vector<std::string> lines =
        linesBelow("XYZ", written({blob({.SNRpeak = 0.0, .SpareText = "N"})}, oneCheckStar));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "N,0.0000000,0.000,inf,V,NO,STD,ENSEMBLE,na,000-BCD,13.250,na,na,X123,na");
}

TEST(AavsoOfAStar, NoFramesAreTheHeadAlone)
{
    EXPECT_EQ(written(Blobs{}, oneCheckStar), headOf("XYZ"));
    EXPECT_EQ(written(Blobs{}, Lists{}), headOf("XYZ"));
}

TEST(AavsoOfAStar, OldFileIsRemovedFirst)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, std::string(5000, 'x'));
    std::filesystem::create_hard_link(path, folder / "same.txt");
    sAAVSO(path, "XYZ", "V", "STD", oneObject, oneCheckStar, "X123");
    EXPECT_EQ(bytesOf(path), headOf("XYZ") + oneObjectLine);
    EXPECT_EQ(bytesOf(folder / "same.txt"), std::string(5000, 'x'));
}

TEST(AavsoOfAStar, WhatCannotBeWrittenIsRaised)
{
    expectRefusal(
        [](const std::string& path) { sAAVSO(path, "XYZ", "V", "STD", oneObject, oneCheckStar, "X123"); });
}

TEST(AavsoSink, NothingIsRemovedBeforeItIsSaved)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, "old");
    std::filesystem::create_hard_link(path, folder / "same.txt");
    AavsoSink sink(path);
    sink.add(oneTrack()[0]);
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(path), headOf("aavso") + oneTrackLine);
    EXPECT_EQ(bytesOf(folder / "same.txt"), "old");
}

TEST(AavsoSink, WithoutATrackTheFileStays)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", "old");
    EXPECT_TRUE(AavsoSink(folder / "a.txt").save());
    EXPECT_EQ(bytesOf(folder / "a.txt"), "old");
    EXPECT_TRUE(AavsoSink(folder / "new.txt").save());
    EXPECT_FALSE(exists(folder / "new.txt"));
}

// The filters are kept, and the first track is not.
TEST(AavsoSink, FirstTracksFiltersOutliveIt)
{
    const std::vector<std::string> first = {"V", "V", "B", "V", "", "", "a filter with a long name"};
    TrackVtorichka track = trackNamed("A", {});
    for (const std::string& filter : first) {
        track.Marks.push_back({.filtr = filter});
    }
    const std::string bytes = writtenBy([&track](const std::string& path) {
        AavsoSink sink(path);
        sink.add(track);
        track = trackNamed("B", std::vector<TRecLabelPervichka_File>(9, {.filtr = "own"}));
        sink.add(track);
        track.Marks.resize(3);
        sink.add(track);
        sink.save();
    });
    std::vector<std::string> expected = first;
    expected.insert(expected.end(), first.begin(), first.end());
    expected.insert(expected.end(), {"own", "own", "V", "V", "B"});
    const std::vector<std::string> lines = linesBelow("aavso", bytes);
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(field(lines[i], 5), expected[i]) << i;
    }
}

TEST(AavsoSink, MegabytesGoOutBeforeItIsSaved)
{
    const TemporaryFolder folder;
    const std::string path = folder / "a.txt";
    makeFile(path, std::string(5000000, 'x'));
    AavsoSink sink(path);
    TrackVtorichka track = oneTrack()[0];
    track.Marks.resize(15000, TRecLabelPervichka_File(track.Marks[0]));
    sink.add(track);
    EXPECT_EQ(bytesOf(path).size(), std::size_t{1} << 20);
    EXPECT_TRUE(sink.save());
    EXPECT_TRUE(bytesOf(path) == headOf("aavso") + repeated(oneTrackLine, 15000));
}
