// Plot: pictures that gnuplot really draws, and what stands in its way.

#include "companion/golden.h"
#include "out/gnuplot_script.h"
#include "reading/measured_points.h"
#include "reading/residuals.h"
#include "support/folders.h"
#include "support/search_path.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace companion;

constexpr const char* night = "926 2000.0 UTC\n"
                              "A 010213 1150392640 1011333900 +2431260000 001 19.80\n"
                              "A 010213 1213572160 1011323200 +2431314000 001 19.70\n"
                              "A 010213 1237125760 1011313600 +2431350000 001 19.40\n";

class Plot : public testing::Test
{
protected:
    void SetUp() override
    {
        makeFile("night.mea", night);
    }

    static CommandEnd plot(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "plot");
        return callCommand(arguments);
    }

private:
    TemporaryFolder folder;
    PresentFolder present{folder.path()};
};

void makeProgram(const std::string& path, const std::string& script)
{
    makeFile(path, "#!/bin/sh\n" + script);
    fs::permissions(path, fs::perms::owner_all);
}

std::string pngSize(const std::string& bytes)
{
    const auto number = [&bytes](std::size_t at) {
        int value = 0;
        for (std::size_t i = at; i < at + 4; ++i) {
            value = value * 256 + static_cast<unsigned char>(bytes.at(i));
        }
        return std::to_string(value);
    };
    return number(16) + "x" + number(20);
}

} // namespace

TEST_F(Plot, PngHasTheSizeAndIsNotBlank)
{
    const CommandEnd end = plot({"night.mea", "-o", "night.png"});
    EXPECT_EQ(end.out, "night.png: sky, 1 object, 3 points\n");
    EXPECT_EQ(end.err, "");
    EXPECT_EQ(end.status, 0);
    const std::string bytes = bytesOf("night.png");
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_EQ(pngSize(bytes), "900x540");
    EXPECT_GT(bytes.size(), 5000U); // one without marks has less than 3,000
}

TEST_F(Plot, SvgIsTheSameEachTimeAndHasAPointForEachMark)
{
    EXPECT_EQ(plot({"night.mea", "-o", "one.svg"}).status, 0);
    EXPECT_EQ(plot({"night.mea", "-o", "two.svg"}).status, 0);
    const std::string picture = bytesOf("one.svg");
    EXPECT_EQ(picture, bytesOf("two.svg"));
    std::size_t points = 0;
    for (std::size_t at = picture.find("xlink:href='#gpPt6'"); at != std::string::npos;
         at = picture.find("xlink:href='#gpPt6'", at + 1))
    {
        ++points;
    }
    EXPECT_EQ(points, 3U);
}

TEST_F(Plot, JsonNamesThePicture)
{
    EXPECT_EQ(plot({"night.mea", "-o", "night.svg", "--json"}).out,
              "{\"schema\":\"tavelin.plot/1\",\"picture\":\"night.svg\",\"script\":null,\"kind\":\"sky\","
              "\"objects\":1,\"drawn\":1,\"points\":3,\"findings\":[],"
              "\"totals\":{\"errors\":0,\"warnings\":0,\"notes\":0},\"exit\":0}\n");
}

// What a picture says: its texts, one after the other.
std::string textsOf(const std::string& picture)
{
    std::string texts;
    for (std::size_t at = picture.find("<text>"); at != std::string::npos;
         at = picture.find("<text>", at + 1)) {
        texts += picture.substr(at, picture.find("</text>", at) - at);
    }
    return texts;
}

// Other versions draw the same in other bytes: of these the texts are compared.
TEST(PlottedSvg, IsByteForByteThatOfItsVersionAndSaysTheSameInOthers)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    ASSERT_EQ(std::system("gnuplot --version > version"), 0);
    const bool isKeptVersion = bytesOf("version") == "gnuplot 5.4 patchlevel 4\n";
    const fs::path cases = fs::path(VOMAR_PROJECT) / "tests/companion";
    for (const std::string name : {"light_curve", "paths_on_the_sky", "residuals"}) {
        std::istringstream words(bytesOf(cases / "plot" / name / "call"));
        std::vector<std::string> arguments;
        for (std::string word; words >> word;) {
            if (fs::exists(cases / "plot" / name / word)) {
                makeFile(word, bytesOf(cases / "plot" / name / word));
            }
            if (word != "--script") {
                arguments.push_back(word);
            }
        }
        arguments.insert(arguments.end(), {"-o", name + ".svg"});
        EXPECT_EQ(callCommand(arguments).status, 0) << name;
        const std::string picture = bytesOf(name + ".svg");
        const std::string kept = bytesOf(cases / "plotted" / (name + ".svg"));
        EXPECT_NE(textsOf(kept), "") << name;
        EXPECT_EQ(textsOf(picture), textsOf(kept)) << name;
        EXPECT_TRUE(!isKeptVersion || picture == kept) << name;
    }
}

TEST_F(Plot, HostileNamesAreDrawnAndNotRun)
{
    makeFile("night.mea",
             std::string("926 2000.0 UTC\n") +
                 "';system(\"touch${IFS}hit\");' 010213 1150392640 1011333900 +2431260000 001 19.80\n"
                 "`touch${IFS}hit` 010213 1150392640 1011333900 +2431260000 001 19.80\n"
                 "<script> 010213 1150392640 1011333900 +2431260000 001 19.80\n");
    EXPECT_EQ(plot({"night.mea", "-o", "night.svg", "--as", "mea"}).status, 0);
    EXPECT_FALSE(fs::exists("hit"));
    EXPECT_EQ(bytesOf("night.svg").find("<script>"), std::string::npos);
}

TEST_F(Plot, ExistingPictureStaysUnlessForced)
{
    makeFile("night.svg", "old\n");
    EXPECT_EQ(plot({"night.mea", "-o", "night.svg"}).err,
              "tavelin: night.svg exists; --force would replace it [V004]\n");
    EXPECT_EQ(bytesOf("night.svg"), "old\n");
    EXPECT_EQ(plot({"night.mea", "-o", "night.svg", "-f"}).status, 0);
    EXPECT_NE(bytesOf("night.svg"), "old\n");
}

TEST_F(Plot, InputIsNeverThePicture)
{
    fs::create_hard_link("night.mea", "link.svg");
    const CommandEnd end = plot({"night.mea", "-o", "link.svg", "-f"});
    EXPECT_EQ(end.status, 2);
    EXPECT_NE(end.err.find("[V005]"), std::string::npos) << end.err;
    EXPECT_EQ(bytesOf("night.mea"), night);
}

TEST_F(Plot, MissingGnuplotLeavesNoPicture)
{
    const SearchPath nowhere("/nonexistent");
    const CommandEnd end = plot({"night.mea", "-o", "night.svg"});
    EXPECT_EQ(end.err, "tavelin: gnuplot was not found [V470]\n");
    EXPECT_EQ(end.status, 2);
    EXPECT_FALSE(fs::exists("night.svg"));
}

TEST_F(Plot, WhatGnuplotSaysIsTold)
{
    fs::create_directory("bin");
    makeProgram("bin/gnuplot", "echo no terminal; exit 1\n");
    const SearchPath other(fs::absolute("bin").string());
    const CommandEnd end = plot({"night.mea", "-o", "night.svg"});
    EXPECT_EQ(end.err, "tavelin: gnuplot said \"no terminal\\x0A\" [V470]\n");
    EXPECT_EQ(end.status, 2);
    EXPECT_FALSE(fs::exists("night.svg"));
}

TEST_F(Plot, SilentGnuplotThatDrawsNothingIsTold)
{
    fs::create_directory("bin");
    makeProgram("bin/gnuplot", "exit 0\n");
    const SearchPath other(fs::absolute("bin").string());
    EXPECT_EQ(plot({"night.mea", "-o", "night.svg"}).err, "tavelin: gnuplot has drawn nothing [V470]\n");
}

TEST_F(Plot, WrongUsageIsToldBeforeAnythingIsRead)
{
    EXPECT_EQ(plot({"missing.mea"}).err,
              "tavelin: --output: is missing: the file that becomes the picture [V001]\n");
    EXPECT_EQ(plot({"missing.mea", "-o", "a.png", "--degree", "10"}).err,
              "tavelin: --degree: \"10\" is not 0 to 9 [V001]\n");
    EXPECT_EQ(plot({"night.mea", "other.mea", "-o", "a.png"}).status, 2);
}

TEST(GnuplotScript, NumbersAreShortAndWithoutNoise)
{
    Chart chart;
    chart.series = {{"a", {{60329.5, 12.25, 0}, {1.25, -0.000000001, 2e16}}}};
    const std::string script = gnuplotScript(chart, "a.svg");
    EXPECT_NE(script.find("\n60329.5 12.25 0\n1.25 0 2.00000000e+16\nEND\n"), std::string::npos) << script;
}

TEST(GnuplotScript, AxisOfOneValueHasRoomBesideIt)
{
    Chart chart;
    chart.series = {{"a", {{0.0, 3e15, 0}, {2e-13, 3e15, 0}}}};
    const std::string script = gnuplotScript(chart, "a.svg");
    EXPECT_NE(script.find("set xrange [-0.5:0.5]\nset yrange [2.99999700e+15:3.00000300e+15]\n"),
              std::string::npos)
        << script;
}

TEST(GnuplotScript, TheArrowOfAPathComesFromTheLastOtherPlace)
{
    Chart chart;
    chart.isPath = true;
    chart.series = {{"a", {{1, 2, 0}, {5, 3, 0}, {5, 4, 0}, {5, 4, 0}}}};
    EXPECT_NE(gnuplotScript(chart, "a.svg").find("set arrow from 5,3 to 5,4 size"), std::string::npos);
    chart.series = {{"a", {{5, 4, 0}, {5, 4, 0}}}};
    EXPECT_EQ(gnuplotScript(chart, "a.svg").find("set arrow"), std::string::npos);
}

TEST(Residuals, PathOfTheDegreeThatIsFittedHasNone)
{
    MeasuredSeries path{"A"};
    for (int i = 0; i < 20; ++i) {
        const double time = i / 100.0;
        path.points.push_back({60000.0 + time, 10.0 + 1e-3 * time, 1e-3 * time + 2e-3 * time * time, 0, 0});
    }
    for (const Residual& residual : residualsOf(path, 2)) {
        EXPECT_NEAR(residual.ra, 0.0, 1e-6);
        EXPECT_NEAR(residual.de, 0.0, 1e-6);
    }
    // 7.2 arcseconds a day and day, less the best line through 20 points of a hundredth of a day.
    EXPECT_NEAR(residualsOf(path, 1).front().de, 7.2 * 0.01 * 0.01 * 19 * 18 / 6, 1e-4);
}

TEST(Residuals, PathWithFewerTimesThanTheDegreeWantsFitsExactly)
{
    const MeasuredSeries path{
        "A", "", {{60000.0, 10, 5, 0, 0}, {60000.0, 10.001, 5, 0, 0}, {60000.5, 11, 6, 0, 0}}};
    const std::vector<Residual> residuals = residualsOf(path, 9);
    ASSERT_EQ(residuals.size(), 3U);
    EXPECT_NEAR(residuals[2].ra, 0.0, 1e-6);
    EXPECT_NEAR(residuals[0].ra, -residuals[1].ra, 1e-6); // two marks at one time share the fit
    EXPECT_NEAR(residuals[1].ra, 0.0005 * 3600 * std::cos(5 * std::numbers::pi / 180), 1e-3);
}

TEST(Residuals, OneMarkHasNone)
{
    const std::vector<Residual> residuals = residualsOf({"A", "", {{60000.0, 10, 5, 0, 0}}}, 2);
    ASSERT_EQ(residuals.size(), 1U);
    EXPECT_EQ(residuals[0].ra, 0.0);
}

TEST(Residuals, EphemerisAcrossZeroHoursHasTheCosine)
{
    const MeasuredSeries ephemeris{"E", "", {{60000, 359.9, 60, 0, 0}, {60001, 0.1, 60, 0, 0}}};
    const MeasuredSeries path{
        "A", "", {{60000.0, 359.901, 60, 0, 0}, {59999, 0, 60, 0, 0}, {60002, 0, 60, 0, 0}}};
    const std::vector<Residual> residuals = residualsOf(path, ephemeris);
    ASSERT_EQ(residuals.size(), 1U); // the others are outside its time
    EXPECT_NEAR(residuals[0].ra, 1.8, 1e-6);
    EXPECT_NEAR(residuals[0].de, 0.0, 1e-6);
}
