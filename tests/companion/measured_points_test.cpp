// The points that a plot has of a file.

#include "reading/measured_points.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::MeasuredSeries;
using testing::ElementsAre;

const std::string header = "QRVName\tdate\ttime\tRA\tDE\tm\tfiltr\n";
const std::string good = "A\t2025-02-23\t12:00:00\t15\t-0.5\t9.5\tV\n";

// Object and number of points of each series.
std::vector<std::string> shown(const std::vector<MeasuredSeries>& all)
{
    std::vector<std::string> texts;
    for (const MeasuredSeries& each : all) {
        texts.push_back(each.object + ' ' + each.filter + ' ' + std::to_string(each.points.size()));
    }
    return texts;
}

std::vector<std::string> paths(const std::string& table)
{
    return shown(readBy([](const std::string& path) { return companion::pathsIn(path, "table"); }, table));
}

std::vector<std::string> curves(const std::string& format, const std::string& bytes)
{
    return shown(
        readBy([&](const std::string& path) { return companion::lightCurvesIn(path, format); }, bytes));
}

} // namespace

TEST(MeasuredPoints, PointsOfAPathHaveTimeAndPlace)
{
    EXPECT_THAT(paths(header + good +
                      "A\t2025-02-23\t12:00:01\tnan\t-0.5\t9.5\tV\n"
                      "A\t2025-02-23\t12:00:02\t15\t90.5\t9.5\tV\n"
                      "A\t2025-02-23\t12:00:inf\t15\t-0.5\t9.5\tV\n---\n"
                      "B\t2025-02-23\t12:00:00\t15\tnan\t9.5\tV\n---\n"),
                ElementsAre("A  1"));
}

TEST(MeasuredPoints, PointsOfALightCurveHaveTimeAndMagnitude)
{
    EXPECT_THAT(curves("table", header + good +
                                    "A\t2025-02-23\t12:00:01\t15\t-0.5\tinf\tV\n"
                                    "A\t2025-02-23\t12:00:02\t15\t-0.5\t0\tV\n"
                                    "A\t2025-02-23\t12:00:inf\t15\t-0.5\t9.5\tV\n---\n"),
                ElementsAre("A V 1"));
}

TEST(MeasuredPoints, ReportsHaveObjectsAndFilters)
{
    const std::string behind = "  C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01\n";
    EXPECT_THAT(curves("mpc", "     K24Y04R" + behind + "     K24Y05R" + behind),
                ElementsAre("K24Y04R G 1", "K24Y05R G 1"));
}
