#include "out/svg_chart.h"

#include "out/svg_plane.h"
#include "support/locales.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace companion;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

std::string curvePage(const std::vector<LightCurve>& curves, const std::string& object = "V1")
{
    Html page;
    addLightCurve(page, {"o1", object}, curves);
    return page.bytes();
}

std::string skyPage(const std::vector<SkyTrack>& tracks)
{
    Html page;
    addSkyTracks(page, {"o1", "V1"}, tracks);
    return page.bytes();
}

// The path of the first element of a style.
std::string pathOf(const std::string& page, const std::string& style)
{
    std::smatch found;
    const std::regex path("<path class=\"" + style + "\" d=\"([^\"]*)\"");
    return std::regex_search(page, found, path) ? found[1].str() : "";
}

// The points of dots.
std::vector<PicturePoint> dotsOf(const std::string& page, const std::string& style)
{
    const std::string path = pathOf(page, style);
    const std::regex point("M([-0-9.]+) ([-0-9.]+)");
    std::vector<PicturePoint> points;
    for (std::sregex_iterator each(path.begin(), path.end(), point); each != std::sregex_iterator(); ++each) {
        points.push_back({readInC((*each)[1]), readInC((*each)[2])});
    }
    return points;
}

TEST(SvgChart, BrighterMarksAreHigherAndLaterOnesFurtherRight)
{
    const auto points =
        dotsOf(curvePage({{"", {{60329.5, 12.0, 0}, {60329.6, 13.0, 0}, {60329.7, 12.5, 0}}}}), "dot s1");
    ASSERT_THAT(points, SizeIs(3));
    EXPECT_LT(points[0].y, points[2].y);
    EXPECT_LT(points[2].y, points[1].y);
    EXPECT_LT(points[0].x, points[1].x);
    EXPECT_NEAR(points[1].x - points[0].x, points[2].x - points[1].x, 0.11);
    EXPECT_NEAR(points[1].y - points[2].y, points[2].y - points[0].y, 0.11);
}

TEST(SvgChart, FiltersHaveDotsAndSignsOfTheirOwn)
{
    const std::string page = curvePage({{"V", {{60329.5, 12.0, 0}}}, {"B", {{60329.5, 13.0, 0.1}}}});
    EXPECT_THAT(dotsOf(page, "dot s1"), SizeIs(1));
    EXPECT_THAT(dotsOf(page, "dot s2"), SizeIs(1));
    EXPECT_EQ(pathOf(page, "error s1"), "");
    EXPECT_NE(pathOf(page, "error s2"), "");
    EXPECT_THAT(page, HasSubstr("<span class=\"key s1\">\u25CF</span> <bdi>V</bdi>, "
                                "<span class=\"key s2\">\u25A0</span> <bdi>B</bdi>"));
}

TEST(SvgChart, ErrorsReachAsFarAsTheyAreLarge)
{
    const std::string page = curvePage({{"", {{60329.5, 12.0, 0.5}, {60329.6, 13.0, 0}}}});
    const auto dots = dotsOf(page, "dot s1");
    std::smatch bar;
    const std::string path = pathOf(page, "error s1");
    ASSERT_TRUE(std::regex_match(path, bar, std::regex("M([0-9.]+) ([0-9.]+)V([0-9.]+)"))) << path;
    const double half = (dots[1].y - dots[0].y) / 2.0;
    EXPECT_NEAR(readInC(bar[2]), dots[0].y - half, 0.2);
    EXPECT_NEAR(readInC(bar[3]), dots[0].y + half, 0.2);
}

TEST(SvgChart, ErrorsOfManyMarksAreNotDrawn)
{
    std::vector<CurveMark> marks(1000, CurveMark{60329.5, 12.0, 0.5});
    EXPECT_THAT(curvePage({{"", marks}}), HasSubstr("<path class=\"error s1\" d=\"M"));
    marks.push_back(marks.front());
    EXPECT_THAT(curvePage({{"", marks}}), Not(HasSubstr("<path class=\"error s1\"")));
}

TEST(SvgChart, MomentsOfNoCalendarAreSaidAsMjd)
{
    EXPECT_THAT(curvePage({{"", {{2e9, 12.0, 0}, {2e9 + 1, 13.0, 0}}}}),
                HasSubstr("mean 12.50, at MJD 2.00e+09 UTC"));
}

TEST(SvgChart, ALightCurveSaysWhatItShows)
{
    const std::string page = curvePage({{"R", {{60329.5, 12.0, 0}, {60329.75, 13.0, 0}}}});
    EXPECT_THAT(page, HasSubstr("role=\"img\" aria-labelledby=\"o1-t o1-d\""));
    EXPECT_THAT(page, HasSubstr("<title id=\"o1-t\">Light curve of V1</title>"));
    EXPECT_THAT(page, HasSubstr("<desc id=\"o1-d\">2 marks, magnitude 12.00 to 13.00, mean 12.50, from "
                                "2024-01-20 12:00:00 to 2024-01-20 18:00:00 UTC; filters: R.</desc>"));
}

TEST(SvgChart, OneMarkAloneIsAPictureToo)
{
    EXPECT_THAT(curvePage({{"", {{60329.5, 12.0, 0}}}}), Not(HasSubstr("nan")));
    const std::string page = skyPage({{{60329.5, 120.0, 30.0}}});
    EXPECT_THAT(page, Not(HasSubstr("nan")));
    EXPECT_THAT(page, Not(HasSubstr("inf")));
    EXPECT_THAT(dotsOf(page, "dot s1"), SizeIs(1));
    EXPECT_EQ(pathOf(page, "track"), "");
    EXPECT_EQ(pathOf(page, "arrow"), "");
}

TEST(SvgChart, RightAscensionGrowsToTheLeftAndBothAxesHaveOneScale)
{
    // A degree to the north, and a degree of the sky to the east at 60 degrees of declination.
    const auto points = dotsOf(skyPage({{{1, 10.0, 59.5}, {2, 10.0, 60.5}, {3, 12.0, 60.5}}}), "dot s1");
    ASSERT_THAT(points, SizeIs(3));
    EXPECT_LT(points[1].y, points[0].y);
    EXPECT_LT(points[2].x, points[1].x);
    EXPECT_NEAR(points[1].x - points[2].x, points[0].y - points[1].y, 0.15);
}

TEST(SvgChart, ATrackThatCrossesZeroIsNotTorn)
{
    const std::string page = skyPage({{{1, 359.99, 0.0}, {2, 0.01, 0.0}}});
    const auto points = dotsOf(page, "dot s1");
    ASSERT_THAT(points, SizeIs(2));
    EXPECT_GT(points[0].x, points[1].x);
    EXPECT_THAT(page, HasSubstr(">359.995</text>"));
    EXPECT_THAT(page, HasSubstr(">0.000</text>"));
    EXPECT_THAT(page, HasSubstr("1.2\u2032 to the east"));
}

TEST(SvgChart, TheArrowIsAheadOfTheLastMark)
{
    const std::string page = skyPage({{{1, 10.0, 0.0}, {2, 11.0, 0.0}}});
    const PicturePoint last = dotsOf(page, "dot s1").back();
    const std::string arrow = pathOf(page, "arrow");
    EXPECT_EQ(arrow.substr(0, arrow.find('L')), 'M' + pointText({last.x - 14.0, last.y}));
}

TEST(SvgChart, TheScaleIsWhereNoMarkIs)
{
    const auto left = [](const std::string& page) { return readInC(pathOf(page, "scale").substr(1)); };
    EXPECT_LT(left(skyPage({{{1, 10.0, 0.0}, {2, 11.0, 1.0}}})), 220.0);
    EXPECT_GT(left(skyPage({{{1, 11.0, 0.0}, {2, 10.0, 1.0}}})), 220.0);
}

TEST(SvgChart, EachTrackIsALineOfItsOwn)
{
    const std::string page = skyPage({{{1, 10.0, 0.0}, {2, 11.0, 0.0}}, {{5, 10.0, 1.0}, {6, 11.0, 1.0}}});
    const std::string lines = pathOf(page, "track");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), 'M'), 2);
    EXPECT_THAT(page, HasSubstr("<figcaption>Sky track: 4 marks in 2 tracks</figcaption>"));
}

TEST(SvgChart, NamesAreEscapedInPictures)
{
    const std::string page = curvePage({{"<f>", {{60329.5, 12.0, 0}}}}, "<script>");
    EXPECT_THAT(page, Not(HasSubstr("<script>")));
    EXPECT_THAT(page, Not(HasSubstr("<f>")));
    EXPECT_THAT(page, HasSubstr("Light curve of &lt;script&gt;"));
}

TEST(SvgPlane, OfManyPointsThoseStayThatBoundThem)
{
    std::vector<PicturePoint> points;
    for (int i = 0; i < 100'000; ++i) {
        points.push_back({i / 1000.0, 50.0 + std::sin(i) * 10.0});
    }
    points[54'321].y = 99.0; // an outlier
    const std::vector<PicturePoint> kept = boundingPoints(points);
    EXPECT_LE(kept.size(), 202U);
    EXPECT_EQ(std::count_if(kept.begin(), kept.end(), [](const auto& each) { return each.y == 99.0; }), 1);
    EXPECT_TRUE(
        std::is_sorted(kept.begin(), kept.end(), [](const auto& a, const auto& b) { return a.x < b.x; }));
}

TEST(SvgPlane, PointsThatSpreadUpwardsAreBoundedInRows)
{
    std::vector<PicturePoint> points;
    for (int i = 0; i < 100'000; ++i) {
        points.push_back({50.0 + std::sin(i) * 10.0, i / 1000.0});
    }
    points[54'321].x = 99.0; // an outlier
    const std::vector<PicturePoint> kept = boundingPoints(points);
    EXPECT_LE(kept.size(), 202U);
    EXPECT_EQ(std::count_if(kept.begin(), kept.end(), [](const auto& each) { return each.x == 99.0; }), 1);
}

TEST(SvgPlane, FewPointsStayAsTheyAre)
{
    const std::vector<PicturePoint> points(1000, PicturePoint{1, 2});
    EXPECT_EQ(boundingPoints(points).size(), 1000U);
}

TEST(SvgPlane, CoordinatesAreShort)
{
    EXPECT_EQ(coordinate(12.0), "12");
    EXPECT_EQ(coordinate(12.34), "12.3");
    EXPECT_EQ(coordinate(-0.01), "0");
}

} // namespace
