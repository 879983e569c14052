#include "formats/fast_object_parameters.h"

#include "results/result.h"

#include "support/child_process.h"
#include "support/failed_writes.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Values = std::vector<double>;
using Frames = std::vector<THeadBlobs>;

/// Settings in which each value of a parameter file has a number of its own.
TPorogs distinctSettings()
{
    TPorogs porogs;
    porogs.vo.TieFrames = 5;
    porogs.vo.RejectFrames = 6;
    porogs.vo.MinSpeed = 5.5;
    porogs.vo.MaxSpeed = 6.5;
    porogs.vo.dispersion_xy = 7.5;
    porogs.vo.dispersion_mag = 8.5;
    porogs.vo.corr_meaangle_traangle = 9.5;
    porogs.vo.rms_angle = 10.5;
    porogs.vo.Strob2Res = 11.5;
    porogs.vo.BlobLengthRMS = 12.5;
    porogs.vo.BlobLengthKoef = 16.5;
    porogs.vo.DubAngle = 17.5;
    porogs.vo.DubVelocity = 18.5;
    porogs.vo.DubPosition = 19.5;
    porogs.vo.use_find_orb = true;
    porogs.vo.thresh_find_orb = 21.5;
    porogs.exe.FindOrb = "/opt/fit";
    porogs.input.PathLog = "/log/fast.txt";
    return porogs;
}

const std::string distinctFile = "night 7\n"
                                 "41//All frames\n"
                                 "42//Tress Num Frames for make track\n"
                                 "5//Num Frames for Tie\n"
                                 "6//Num Frames for Reject Branch\n"
                                 "5.5//Tress min speed\n"
                                 "6.5//Tress max speed\n"
                                 "7.5//Tress XY variance\n"
                                 "8.5//Tress mag variance\n"
                                 "9.5//correspondence of the measurement angle and the trajectory angle\n"
                                 "10.5//Tress RMS angle of blobs for track\n"
                                 "11.5//Tress RES. for Strob2\n"
                                 "12.5//Tress RMS for length blobs\n"
                                 "1024//frame width\n"
                                 "768//frame height\n"
                                 "15.5//exposure time\n"
                                 "16.5//Koef. length of blob\n"
                                 "17.5//residual angle for delete dubl track\n"
                                 "18.5//residual velosity for delete dubl track\n"
                                 "19.5//residual position for delete dubl track\n"
                                 "true//useFind_Orb\n"
                                 "21.5//threshResRADEC\n"
                                 "/opt/fit//pathFindOrb\n"
                                 "/out//pathOUT\n"
                                 "/log/fast.txt//pathLog\n"
                                 "/res//pathRes\n";

void writeDistinct(const std::string& path, const Lines& paths)
{
    sParamFAST(path, "night 7", "/out", "/res", distinctSettings(), 41, 1024, 768, 42, 15.5, paths);
}

std::string written(const Lines& paths)
{
    return writtenBy([&paths](const std::string& path) { writeDistinct(path, paths); });
}

/// A line of a text, from 0.
std::string lineOf(std::string text, int number)
{
    for (; number > 0; --number) {
        text.erase(0, text.find('\n') + 1);
    }
    return text.substr(0, text.find('\n'));
}

TFastSearchParam readOf(const std::string& bytes)
{
    return readBy([](const std::string& path) { return LTextParamForSearchFastAstroObj(path); }, bytes);
}

TParHOK hokOf(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "hok.txt", bytes);
    return lParHOKv2(folder / "hok.txt");
}

/// The first 26 lines of a file that is empty but for one line, from 0.
Lines linesWith(std::size_t number, const std::string& line)
{
    Lines lines(26);
    lines[number] = line;
    return lines;
}

TFastSearchParam readWith(std::size_t number, const std::string& line)
{
    return readOf(textOf(linesWith(number, line)));
}

void expectDefaults(const TFastSearchParam& param)
{
    EXPECT_EQ(param.AllFrames, 0);
    EXPECT_EQ(param.TrackFrames, 0);
    EXPECT_EQ(param.TieFrames, 0);
    EXPECT_EQ(param.RejectFrames, 0);
    EXPECT_EQ(param.MinSpeed, 0.0);
    EXPECT_EQ(param.MaxSpeed, 0.0);
    EXPECT_EQ(param.XYVariance, 0.0);
    EXPECT_EQ(param.MagVariance, 0.0);
    EXPECT_EQ(param.AngleMatch, 0.0);
    EXPECT_EQ(param.BlobAngleRMS, 0.0);
    EXPECT_EQ(param.Strob2Res, 0.0);
    EXPECT_EQ(param.BlobLengthRMS, 0.0);
    EXPECT_EQ(param.FrameWidth, 0);
    EXPECT_EQ(param.FrameHeight, 0);
    EXPECT_EQ(param.Exposure, 0.0);
    EXPECT_EQ(param.BlobLengthKoef, 0.0);
    EXPECT_EQ(param.DubAngle, 0.0);
    EXPECT_EQ(param.DubVelocity, 0.0);
    EXPECT_EQ(param.DubPosition, 0.0);
    EXPECT_FALSE(param.UseFindOrb);
    EXPECT_EQ(param.ThreshResRADEC, 0.1);
    EXPECT_EQ(param.PathFindOrb, "");
    EXPECT_EQ(param.PathOut, "");
    EXPECT_EQ(param.PathLog, "");
    EXPECT_EQ(param.PathRes, "");
    EXPECT_TRUE(param.BlobPaths.empty());
    EXPECT_EQ(param.AngleUpper, 360.0);
    EXPECT_EQ(param.AngleLower, -360.0);
}

void expectDistinct(const TFastSearchParam& param)
{
    EXPECT_EQ(param.AllFrames, 41);
    EXPECT_EQ(param.TrackFrames, 42);
    EXPECT_EQ(param.TieFrames, 5);
    EXPECT_EQ(param.RejectFrames, 6);
    EXPECT_EQ(param.MinSpeed, 5.5);
    EXPECT_EQ(param.MaxSpeed, 6.5);
    EXPECT_EQ(param.XYVariance, 7.5);
    EXPECT_EQ(param.MagVariance, 8.5);
    EXPECT_EQ(param.AngleMatch, 9.5);
    EXPECT_EQ(param.BlobAngleRMS, 10.5);
    EXPECT_EQ(param.Strob2Res, 11.5);
    EXPECT_EQ(param.BlobLengthRMS, 12.5);
    EXPECT_EQ(param.FrameWidth, 1024);
    EXPECT_EQ(param.FrameHeight, 768);
    EXPECT_EQ(param.Exposure, 15.5);
    EXPECT_EQ(param.BlobLengthKoef, 16.5);
    EXPECT_EQ(param.DubAngle, 17.5);
    EXPECT_EQ(param.DubVelocity, 18.5);
    EXPECT_EQ(param.DubPosition, 19.5);
    EXPECT_TRUE(param.UseFindOrb);
    EXPECT_EQ(param.ThreshResRADEC, 21.5);
    EXPECT_EQ(param.PathFindOrb, "/opt/fit");
    EXPECT_EQ(param.PathOut, "/out");
    EXPECT_EQ(param.PathLog, "/log/fast.txt");
    EXPECT_EQ(param.PathRes, "/res");
    EXPECT_EQ(param.AngleUpper, 360.0);
    EXPECT_EQ(param.AngleLower, -360.0);
}

TEST(FastObjectParameters, NewRecordHasItsDefaults)
{
    expectDefaults(TFastSearchParam{});
}

TEST(FastObjectParameters, EachLineIsItsValueAndItsComment)
{
    EXPECT_EQ(written({}), distinctFile);
}

TEST(FastObjectParameters, PathsStandBehindWithTheirNumbersFromZero)
{
    EXPECT_EQ(written({"/data/a.bin", "", "c"}), distinctFile + "/data/a.bin//path for 0 frames blobs\n"
                                                                "//path for 1 frames blobs\n"
                                                                "c//path for 2 frames blobs\n");
}

TEST(FastObjectParameters, NumbersOfPathsAreNotPadded)
{
    const std::string text = written(Lines(12, "x"));
    EXPECT_EQ(lineOf(text, 35), "x//path for 9 frames blobs");
    EXPECT_EQ(lineOf(text, 37), "x//path for 11 frames blobs");
}

TEST(FastObjectParameters, NumbersHaveSixSignificantDigits)
{
    const TemporaryFolder folder;
    TPorogs porogs = distinctSettings();
    porogs.vo.MinSpeed = 0.00001;
    porogs.vo.MaxSpeed = 1234567.0;
    porogs.vo.dispersion_xy = 1.23456789;
    porogs.vo.dispersion_mag = -2.0;
    porogs.vo.use_find_orb = false;
    sParamFAST(folder / "fast.txt", "", "", "", porogs, -1, 0, -7, 2147483647, 0.1, {});
    const std::string text = bytesOf(folder / "fast.txt");
    const std::pair<int, const char*> lines[] = {
        {0, ""},
        {1, "-1//All frames"},
        {2, "2147483647//Tress Num Frames for make track"},
        {5, "1e-05//Tress min speed"},
        {6, "1.23457e+06//Tress max speed"},
        {7, "1.23457//Tress XY variance"},
        {8, "-2//Tress mag variance"},
        {13, "0//frame width"},
        {14, "-7//frame height"},
        {15, "0.1//exposure time"},
        {20, "false//useFind_Orb"},
        {23, "//pathOUT"},
        {25, "//pathRes"},
    };
    for (const auto& [number, line] : lines) {
        SCOPED_TRACE(number);
        EXPECT_EQ(lineOf(text, number), line);
    }
}

TEST(FastObjectParameters, DefaultSettingsAreWritten)
{
    const TemporaryFolder folder;
    sParamFAST(folder / "fast.txt", "n", "o", "r", TPorogs{}, 1, 2, 3, 4, 5.0, {});
    EXPECT_EQ(bytesOf(folder / "fast.txt"),
              "n\n"
              "1//All frames\n"
              "4//Tress Num Frames for make track\n"
              "0//Num Frames for Tie\n"
              "0//Num Frames for Reject Branch\n"
              "0//Tress min speed\n"
              "0//Tress max speed\n"
              "1.25//Tress XY variance\n"
              "1.5//Tress mag variance\n"
              "360//correspondence of the measurement angle and the trajectory angle\n"
              "20//Tress RMS angle of blobs for track\n"
              "0//Tress RES. for Strob2\n"
              "0//Tress RMS for length blobs\n"
              "2//frame width\n"
              "3//frame height\n"
              "5//exposure time\n"
              "0//Koef. length of blob\n"
              "0//residual angle for delete dubl track\n"
              "0//residual velosity for delete dubl track\n"
              "0//residual position for delete dubl track\n"
              "false//useFind_Orb\n"
              "1//threshResRADEC\n"
              "//pathFindOrb\n"
              "o//pathOUT\n"
              "//pathLog\n"
              "r//pathRes\n");
}

TEST(FastObjectParameters, FileThatIsThereIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "fast.txt", std::string(5000, 'x'));
    writeDistinct(folder / "fast.txt", {});
    EXPECT_EQ(bytesOf(folder / "fast.txt"), distinctFile);
}

TEST(FastObjectParameters, FileThatCannotBeWrittenIsCode7)
{
    expectCode7([](const std::string& path) { writeDistinct(path, {"a"}); });
}

TEST(FastObjectParameters, EachLineIsReadIntoItsField)
{
    const TFastSearchParam param = readOf(distinctFile);
    expectDistinct(param);
    EXPECT_EQ(param.BlobPaths, Lines(41));
}

TEST(FastObjectParameters, ValuesNeedNoComments)
{
    const TFastSearchParam param = readOf(
        "night 7\n41\n42\n5\n6\n5.5\n6.5\n7.5\n8.5\n9.5\n10.5\n11.5\n12.5\n1024\n768\n15.5\n16.5\n17.5\n"
        "18.5\n19.5\ntrue\n21.5\n/opt/fit\n/out\n/log/fast.txt\n/res\n");
    expectDistinct(param);
    EXPECT_EQ(param.BlobPaths, Lines(41));
}

TEST(FastObjectParameters, FirstLineIsFreeText)
{
    for (const char* name : {"", "99//All frames", "//", "a b\tc"}) {
        SCOPED_TRACE(name);
        expectDistinct(readOf(name + distinctFile.substr(7)));
    }
}

TEST(FastObjectParameters, PathsAreReadWithoutTheirComments)
{
    Lines lines = linesWith(1, "3//All frames");
    lines.insert(lines.end(), {"/data/a.bin//path for 0 frames blobs", "b.bin", "/data/c d.bin//"});
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"/data/a.bin", "b.bin", "/data/c d.bin"}));
}

TEST(FastObjectParameters, ListOfPathsIsAsLongAsTheCountOfFramesSays)
{
    Lines lines = linesWith(1, "2");
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"", ""}));
    lines.push_back("a//");
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"a", ""}));
    lines.push_back("b//");
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"a", "b"}));
    lines.push_back("c//");
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"a", "b"}));
    lines[1] = "0";
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, Lines{});
}

TEST(FastObjectParameters, EmptyPathTakesItsPlace)
{
    Lines lines = linesWith(1, "3");
    lines.insert(lines.end(), {"a", "", "//comment", "d"});
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths, (Lines{"a", "", ""}));
}

TEST(FastObjectParameters, NegativeCountOfFramesGivesNoPaths)
{
    for (const char* count : {"-1", "-2147483648"}) {
        SCOPED_TRACE(count);
        Lines lines = linesWith(1, count);
        lines[2] = "7";
        lines.insert(lines.end(), {"a", "b"});
        const TFastSearchParam param = readOf(textOf(lines));
        EXPECT_TRUE(param.BlobPaths.empty());
        EXPECT_EQ(param.TrackFrames, 7);
    }
}

TEST(FastObjectParameters, CountOfFramesAboveTheFileGivesNoPaths)
{
    for (const char* count : {"65537", "1000000000", "2147483647"}) {
        SCOPED_TRACE(count);
        Lines lines = linesWith(1, count);
        lines[25] = "/res";
        lines.insert(lines.end(), {"a", "b"});
        const TFastSearchParam param = readOf(textOf(lines));
        EXPECT_TRUE(param.BlobPaths.empty());
        EXPECT_EQ(param.AllFrames, std::stoi(count));
        EXPECT_EQ(param.PathRes, "/res");
    }
}

TEST(FastObjectParameters, CountOfFramesIsTrustedUpTo65536)
{
    Lines lines = linesWith(1, "65536");
    lines.push_back("a");
    const TFastSearchParam param = readOf(textOf(lines));
    ASSERT_EQ(param.BlobPaths.size(), 65536U);
    EXPECT_EQ(param.BlobPaths[0], "a");
    EXPECT_EQ(param.BlobPaths[65535], "");
}

TEST(FastObjectParameters, CountOfFramesIsTrustedUpToTheSizeOfTheFile)
{
    Lines lines = linesWith(1, "70000");
    // 24 line feeds, the count with its own, and the path with its own.
    const std::size_t others = 25 + 6 + 1;
    lines.push_back(std::string(70000 - others, 'x'));
    ASSERT_EQ(textOf(lines).size(), 70000U);
    EXPECT_EQ(readOf(textOf(lines)).BlobPaths.size(), 70000U);
    lines.back().pop_back();
    EXPECT_TRUE(readOf(textOf(lines)).BlobPaths.empty());
}

TEST(FastObjectParameters, FileThatEndsEarlyLeavesTheDefaults)
{
    std::string text;
    for (const int lines : {0, 1, 2, 6, 21, 25}) {
        SCOPED_TRACE(lines);
        text.clear();
        for (int i = 0; i < lines; ++i) {
            text += lineOf(distinctFile, i) + "\n";
        }
        const TFastSearchParam param = readOf(text);
        EXPECT_EQ(param.AllFrames, lines > 1 ? 41 : 0);
        EXPECT_EQ(param.MinSpeed, lines > 5 ? 5.5 : 0.0);
        EXPECT_EQ(param.UseFindOrb, lines > 20);
        EXPECT_EQ(param.ThreshResRADEC, lines > 21 ? 21.5 : 0.1);
        EXPECT_EQ(param.PathLog, lines > 24 ? "/log/fast.txt" : "");
        EXPECT_EQ(param.PathRes, "");
        EXPECT_EQ(param.BlobPaths, Lines(lines > 1 ? 41 : 0));
        EXPECT_EQ(param.AngleUpper, 360.0);
    }
}

TEST(FastObjectParameters, MissingOrEmptyFileIsTheDefaults)
{
    const TemporaryFolder folder;
    expectDefaults(LTextParamForSearchFastAstroObj(folder / "missing.txt"));
    expectDefaults(LTextParamForSearchFastAstroObj(folder.path()));
    expectDefaults(readOf(""));
}

TEST(FastObjectParameters, EmptyLineIsZeroAndNotTheDefault)
{
    const TFastSearchParam param = readOf(textOf(Lines(26)));
    EXPECT_EQ(param.ThreshResRADEC, 0.0);
    EXPECT_EQ(param.AllFrames, 0);
    EXPECT_EQ(param.AngleUpper, 360.0);
    EXPECT_EQ(param.AngleLower, -360.0);
}

TEST(FastObjectParameters, BadNumberIsZero)
{
    EXPECT_EQ(readWith(1, "many//All frames").AllFrames, 0);
    EXPECT_EQ(readWith(3, "x5//").TieFrames, 0);
    EXPECT_EQ(readWith(5, "fast//").MinSpeed, 0.0);
    EXPECT_EQ(readWith(21, "n.a.//").ThreshResRADEC, 0.0);
}

TEST(FastObjectParameters, NumbersAreReadAsFarAsTheyGo)
{
    EXPECT_EQ(readWith(2, "3.9//").TrackFrames, 3);
    EXPECT_EQ(readWith(2, " +12abc").TrackFrames, 12);
    EXPECT_EQ(readWith(2, "0x10").TrackFrames, 0);
    EXPECT_EQ(readWith(2, "-5 // five").TrackFrames, -5);
    EXPECT_EQ(readWith(13, "1 024").FrameWidth, 1);
    EXPECT_EQ(readWith(5, "1e-05//").MinSpeed, 0.00001);
    EXPECT_EQ(readWith(5, "2.5.7").MinSpeed, 2.5);
    EXPECT_EQ(readWith(5, "4/2//").MinSpeed, 4.0);
}

TEST(FastObjectParameters, SwitchIsTrueForExactlyTrue)
{
    EXPECT_TRUE(readWith(20, "true//useFind_Orb").UseFindOrb);
    EXPECT_TRUE(readWith(20, "true").UseFindOrb);
    for (const char* text : {"true //", "True//", "1//", " true//", "false//", "//true", "truee"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(readWith(20, text).UseFindOrb);
    }
}

TEST(FastObjectParameters, TextEndsAtItsFirstTwoSlashes)
{
    EXPECT_EQ(readWith(22, "http://host/find//pathFindOrb").PathFindOrb, "http:");
    EXPECT_EQ(readWith(23, "//server/out//pathOUT").PathOut, "");
    EXPECT_EQ(readWith(24, "/a//b//pathLog").PathLog, "/a");
    EXPECT_EQ(readWith(25, "/a b / c//pathRes").PathRes, "/a b / c");
}

TEST(FastObjectParameters, TextThatEndsInASlashLosesIt)
{
    EXPECT_EQ(readWith(23, "/out///pathOUT").PathOut, "/out");
    EXPECT_EQ(readWith(23, "/out/").PathOut, "/out");
    const TemporaryFolder folder;
    sParamFAST(folder / "fast.txt", "n", "/out/", "/res/", TPorogs{}, 0, 0, 0, 0, 0.0, {});
    const TFastSearchParam param = LTextParamForSearchFastAstroObj(folder / "fast.txt");
    EXPECT_EQ(param.PathOut, "/out");
    EXPECT_EQ(param.PathRes, "/res");
}

TEST(FastObjectParameters, BlanksOfATextStay)
{
    EXPECT_EQ(readWith(23, " /out //pathOUT").PathOut, " /out ");
}

TEST(FastObjectParameters, WrittenParametersAreReadBack)
{
    const TemporaryFolder folder;
    Lines paths(41, "/data/blob.bin");
    paths[40] = "last";
    writeDistinct(folder / "fast.txt", paths);
    const TFastSearchParam param = LTextParamForSearchFastAstroObj(folder / "fast.txt");
    expectDistinct(param);
    EXPECT_EQ(param.BlobPaths, paths);
}

/// A frame with one mark whose bytes are `firstBlob`.
THeadBlobs firstFrame()
{
    THeadBlobs frame;
    frame.Width = 1024;
    frame.Height = 768;
    frame.Exposure = 15.5;
    frame.Marks = {{.X_bf = 1.5,
                    .Y_bf = -2.0,
                    .X_f = 90.0,
                    .Y_f = 91.0,
                    .SNRasegm = 16.0,
                    .Exc = 0.5,
                    .Angle = 90.0,
                    .Length = 8.0,
                    .Width = 4.0,
                    .date = 60369,
                    .time = 0.25,
                    .RA = 0.1,
                    .DE = -20.25,
                    .m = 13.5}};
    return frame;
}

const std::string firstBlob("\x00\x00\xC0\x3F"                  // 1.5
                            "\x00\x00\x00\xC0"                  // -2
                            "\xCD\xCC\xCC\x3D"                  // 0.1 in float precision
                            "\x00\x00\xA2\xC1"                  // -20.25
                            "\x00\x00\x00\x41"                  // 8
                            "\x00\x00\x80\x40"                  // 4
                            "\x00\x00\xB4\x42"                  // 90
                            "\x00\x00\x00\x3F"                  // 0.5
                            "\x00\x00\x80\x41"                  // 16
                            "\x00\x00\x58\x41"                  // 13.5
                            "\xD1\xEB\x00\x00"                  // 60369
                            "\x00\x00\x00\x00"                  // the gap
                            "\x00\x00\x00\x00\x00\x00\xD0\x3F", // 0.25
                            56);

// A mark of which only the position is set.
const std::string plainBlob = std::string("\x00\x00\x80\x3F\x00\x00\x00\x40", 8) + std::string(48, '\0');

TEST(FastObjectParameters, SeriesWritesAFileOfBlobsForEachFrame)
{
    const TemporaryFolder folder;
    THeadBlobs second;
    second.Width = 1;
    second.Height = 2;
    second.Exposure = 3.0;
    second.Marks = {{.X_bf = 1.0, .Y_bf = 2.0}, {.X_bf = 1.0, .Y_bf = 2.0}};
    Lines paths;
    sParamFastObjTaVeLin2(folder / "fast.txt", "night 7", "/out", "/res", distinctSettings(),
                          Frames{firstFrame(), second, THeadBlobs{}}, 42, paths);
    EXPECT_EQ(bytesOf(folder / "blobFast_0.bin"), firstBlob);
    EXPECT_EQ(bytesOf(folder / "blobFast_1.bin"), plainBlob + plainBlob);
    EXPECT_EQ(bytesOf(folder / "blobFast_2.bin"), "");
    EXPECT_EQ(paths,
              (Lines{folder / "blobFast_0.bin", folder / "blobFast_1.bin", folder / "blobFast_2.bin"}));
}

TEST(FastObjectParameters, SeriesWritesTheParametersOfItsFirstFrame)
{
    const TemporaryFolder folder;
    THeadBlobs second;
    second.Width = 1;
    second.Height = 2;
    second.Exposure = 3.0;
    Lines paths;
    sParamFastObjTaVeLin2(folder / "fast.txt", "night 7", "/out", "/res", distinctSettings(),
                          Frames{firstFrame(), second}, 42, paths);
    const std::string rest = distinctFile.substr(distinctFile.find("//All frames"));
    EXPECT_EQ(bytesOf(folder / "fast.txt"), "night 7\n2" + rest + folder.path() +
                                                "/blobFast_0.bin//path for 0 frames blobs\n" + folder.path() +
                                                "/blobFast_1.bin//path for 1 frames blobs\n");
}

TEST(FastObjectParameters, SeriesPutsItsPathsBehindThoseOfTheList)
{
    const TemporaryFolder folder;
    Lines paths = {"before.bin"};
    sParamFastObjTaVeLin2(folder / "fast.txt", "night 7", "/out", "/res", distinctSettings(),
                          Frames{firstFrame()}, 42, paths);
    EXPECT_EQ(paths, (Lines{"before.bin", folder / "blobFast_0.bin"}));
    const std::string rest = distinctFile.substr(distinctFile.find("//All frames"));
    EXPECT_EQ(bytesOf(folder / "fast.txt"), "night 7\n1" + rest + "before.bin//path for 0 frames blobs\n" +
                                                folder.path() + "/blobFast_0.bin//path for 1 frames blobs\n");
}

TEST(FastObjectParameters, NumbersOfBlobFilesAreNotPadded)
{
    const TemporaryFolder folder;
    Lines paths;
    sParamFastObjTaVeLin2(folder / "fast.txt", "", "", "", TPorogs{}, Frames(11), 0, paths);
    ASSERT_EQ(paths.size(), 11U);
    EXPECT_EQ(paths[9], folder / "blobFast_9.bin");
    EXPECT_EQ(paths[10], folder / "blobFast_10.bin");
    EXPECT_TRUE(exists(folder / "blobFast_10.bin"));
}

TEST(FastObjectParameters, SeriesWithoutFramesHasParametersOfZero)
{
    const TemporaryFolder folder;
    Lines paths;
    sParamFastObjTaVeLin2(folder / "fast.txt", "n", "o", "r", distinctSettings(), Frames{}, 42, paths);
    EXPECT_TRUE(paths.empty());
    const std::string text = bytesOf(folder / "fast.txt");
    EXPECT_EQ(lineOf(text, 1), "0//All frames");
    EXPECT_EQ(lineOf(text, 2), "42//Tress Num Frames for make track");
    EXPECT_EQ(lineOf(text, 13), "0//frame width");
    EXPECT_EQ(lineOf(text, 14), "0//frame height");
    EXPECT_EQ(lineOf(text, 15), "0//exposure time");
    EXPECT_EQ(lineOf(text, 25), "r//pathRes");
    EXPECT_EQ(text.substr(text.find("//pathRes")), "//pathRes\n");
    EXPECT_FALSE(exists(folder / "blobFast_0.bin"));
}

TEST(FastObjectParameters, BlobFilesOfABareNameAreInThePresentFolder)
{
    const TemporaryFolder folder;
    const ChildEnd end = runInChild(
        [&folder] {
            std::filesystem::current_path(folder.path());
            Lines paths;
            sParamFastObjTaVeLin2("fast.txt", "", "", "", TPorogs{}, Frames{firstFrame()}, 0, paths);
            _exit(paths == Lines{"blobFast_0.bin"} ? 3 : 4);
        },
        20);
    EXPECT_EQ(end.exitStatus, 3) << end.output;
    EXPECT_EQ(bytesOf(folder / "blobFast_0.bin"), firstBlob);
}

TEST(FastObjectParameters, BlobFileThatCannotBeWrittenIsPassedOver)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "blobFast_0.bin");
    Lines paths;
    sParamFastObjTaVeLin2(folder / "fast.txt", "", "", "", TPorogs{}, Frames{firstFrame(), firstFrame()}, 0,
                          paths);
    EXPECT_EQ(bytesOf(folder / "blobFast_1.bin"), firstBlob);
    EXPECT_EQ(paths, (Lines{folder / "blobFast_0.bin", folder / "blobFast_1.bin"}));
    EXPECT_TRUE(exists(folder / "fast.txt"));
}

TEST(FastObjectParameters, SeriesInAFolderThatIsMissingIsCode7)
{
    const TemporaryFolder folder;
    const std::string path = folder / "missing/fast.txt";
    Lines paths;
    try {
        sParamFastObjTaVeLin2(path, "", "", "", TPorogs{}, Frames{firstFrame()}, 0, paths);
        ADD_FAILURE() << "nothing was raised";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), path);
        EXPECT_STREQ(failure.what(), "Error opening file");
    }
    EXPECT_FALSE(exists(folder / "missing"));
}

// Each value is the number of its line; doubles have half more.
const Lines hokLines = {"name", "3",  "2",     "3",    "4",     "5",        "6.5",  "7",    "8.5",
                        "9",    "10", "11",    "12",   "13",    "14",       "15.5", "16.5", "17.5",
                        "18.5", "19", "20.75", "21.5", "/path", "not read", "1.25", "-2.5", "1e3"};

TEST(FastObjectParameters, LinesWithoutCommentsHaveAnOrderOfTheirOwn)
{
    const TParHOK param = hokOf(textOf(hokLines));
    EXPECT_EQ(param.Name, "name");
    EXPECT_EQ(param.Path, "/path");
    EXPECT_EQ(param.I1, 2);
    EXPECT_EQ(param.I2, 3);
    EXPECT_EQ(param.I3, 5);
    EXPECT_EQ(param.I4, 4);
    EXPECT_EQ(param.I5, 13);
    EXPECT_EQ(param.I6, 12);
    EXPECT_EQ(param.I7, 7);
    EXPECT_EQ(param.I8, 19);
    EXPECT_EQ(param.I9, 10);
    EXPECT_EQ(param.I10, 9);
    EXPECT_EQ(param.D1, 8.5);
    EXPECT_EQ(param.D2, 15.5);
    EXPECT_EQ(param.D3, 20.0);
    EXPECT_EQ(param.D4, 18.5);
    EXPECT_EQ(param.D5, 6.5);
    EXPECT_EQ(param.D6, 16.5);
    EXPECT_EQ(param.Count, 3);
    EXPECT_EQ(param.I11, 11);
    EXPECT_EQ(param.I12, 14);
    EXPECT_EQ(param.D7, 17.5);
    EXPECT_EQ(param.D8, 21.5);
    EXPECT_EQ(param.Values, (Values{1.25, -2.5, 1000.0}));
}

/// What is read where one line, from 0, holds another text.
TParHOK hokWith(std::size_t number, const std::string& line)
{
    Lines lines = hokLines;
    lines[number] = line;
    return hokOf(textOf(lines));
}

TEST(FastObjectParameters, ThirdDoubleIsReadAsAnInteger)
{
    EXPECT_EQ(hokWith(20, "-7.9").D3, -7.0);
    EXPECT_EQ(hokWith(20, "1e3").D3, 1.0);
    EXPECT_EQ(hokWith(18, "1e3").D4, 1000.0);
}

TEST(FastObjectParameters, TextsWithoutCommentsStayWhole)
{
    EXPECT_EQ(hokWith(0, "a//b c").Name, "a//b c");
    EXPECT_EQ(hokWith(22, "http://host/a//").Path, "http://host/a//");
}

TEST(FastObjectParameters, BadNumbersWithoutCommentsAreZero)
{
    EXPECT_EQ(hokWith(2, "x").I1, 0);
    EXPECT_EQ(hokWith(8, "").D1, 0.0);
    EXPECT_EQ(hokWith(3, "4.9").I2, 4);
    EXPECT_EQ(hokWith(25, "n.a.").Values, (Values{1.25, 0.0, 1000.0}));
    EXPECT_TRUE(hokWith(1, "x").Values.empty());
}

TEST(FastObjectParameters, ListOfValuesIsAsLongAsItsCountSays)
{
    EXPECT_EQ(hokWith(1, "0").Values, Values{});
    EXPECT_EQ(hokWith(1, "1").Values, Values{1.25});
    EXPECT_EQ(hokWith(1, "5").Values, (Values{1.25, -2.5, 1000.0, 0.0, 0.0}));
}

TEST(FastObjectParameters, HostileCountOfValuesGivesNone)
{
    for (const char* count : {"-1", "-2147483648", "65537", "1000000000", "2147483647"}) {
        SCOPED_TRACE(count);
        const TParHOK param = hokWith(1, count);
        EXPECT_TRUE(param.Values.empty());
        EXPECT_EQ(param.Path, "/path");
        EXPECT_EQ(param.I8, 19);
    }
}

TEST(FastObjectParameters, CountOfValuesIsTrustedUpTo65536)
{
    const TParHOK param = hokWith(1, "65536");
    ASSERT_EQ(param.Values.size(), 65536U);
    EXPECT_EQ(param.Values[2], 1000.0);
    EXPECT_EQ(param.Values[3], 0.0);
    EXPECT_EQ(param.Values[65535], 0.0);
}

TEST(FastObjectParameters, FileWithoutCommentsThatEndsEarlyLeavesTheDefaults)
{
    const TParHOK param = hokOf("name\n2\n7\n");
    EXPECT_EQ(param.Name, "name");
    EXPECT_EQ(param.Count, 2);
    EXPECT_EQ(param.I1, 7);
    EXPECT_EQ(param.I2, 0);
    EXPECT_EQ(param.D8, 0.0);
    EXPECT_EQ(param.Path, "");
    EXPECT_EQ(param.Values, (Values{0.0, 0.0}));
}

TEST(FastObjectParameters, MissingFileWithoutCommentsIsTheDefaults)
{
    const TemporaryFolder folder;
    for (const std::string& path : {folder / "missing.txt", folder.path()}) {
        SCOPED_TRACE(path);
        const TParHOK param = lParHOKv2(path);
        EXPECT_EQ(param.Name, "");
        EXPECT_EQ(param.Path, "");
        EXPECT_EQ(param.Count, 0);
        EXPECT_EQ(param.I1, 0);
        EXPECT_EQ(param.D3, 0.0);
        EXPECT_TRUE(param.Values.empty());
    }
}

} // namespace
