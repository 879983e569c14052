#include "out/svg_plane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace companion {
namespace {

constexpr std::size_t drawnAsTheyAre = 1000;

// A dot: drawn by its line's round or square end, or as an outline around its point.
struct Shape
{
    std::string_view path; ///< behind the point
    std::string_view sign;
};

constexpr std::array<Shape, shapeCount> shapes{{
    {"h0", "\u25CF"},
    {"h0", "\u25A0"},
    {"m-3.5 0l3.5-3.5 3.5 3.5-3.5 3.5z", "\u25C6"},
    {"m-3.5 2.5h7l-3.5-6z", "\u25B2"},
    {"m-3.5 0h7m-3.5-3.5v7", "+"},
}};

bool spreadsUpwards(const std::vector<PicturePoint>& points)
{
    const auto [left, right] = std::minmax_element(points.begin(), points.end(),
                                                   [](const auto& a, const auto& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](const auto& a, const auto& b) { return a.y < b.y; });
    return bottom->y - top->y > right->x - left->x;
}

void addLabel(Html& page, double x, double y, const std::string& style, const std::string& text)
{
    page.add("text", {{"x", coordinate(x)}, {"y", coordinate(y)}, {"class", style}}, text);
    page.markup("\n");
}

void addFrame(Html& page, const PictureArea& area)
{
    addPath(page, "frame",
            'M' + pointText({area.left, area.top}) + 'H' + coordinate(area.right) + 'V' +
                coordinate(area.bottom) + 'H' + coordinate(area.left) + 'Z');
}

// The middle of a label that would reach beyond the right edge of the picture is moved to the left.
double withinPicture(double middle, const std::string& label)
{
    constexpr double halfDigit = 4.25; // of the larger letters of narrow windows
    return std::min(middle, pictureWidth - halfDigit * static_cast<double>(label.size()));
}

} // namespace

std::string coordinate(double value)
{
    std::string text = numberText(value, 1);
    if (text.ends_with(".0")) {
        text.resize(text.size() - 2);
    }
    return text;
}

std::string pointText(const PicturePoint& point)
{
    return coordinate(point.x) + ' ' + coordinate(point.y);
}

std::vector<PicturePoint> boundingPoints(const std::vector<PicturePoint>& points)
{
    if (points.size() <= drawnAsTheyAre) {
        return points;
    }
    const bool areRows = spreadsUpwards(points);
    const auto outward = [&](std::size_t i) { return areRows ? points[i].x : points[i].y; };
    std::map<long, std::pair<std::size_t, std::size_t>> outermost; // of a column or row
    for (std::size_t i = 0; i < points.size(); ++i) {
        const long place = std::lround(areRows ? points[i].y : points[i].x);
        auto& [least, most] = outermost.try_emplace(place, i, i).first->second;
        least = outward(i) < outward(least) ? i : least;
        most = outward(i) > outward(most) ? i : most;
    }
    std::vector<bool> stays(points.size(), false);
    for (const auto& [place, each] : outermost) {
        stays[each.first] = stays[each.second] = true;
    }
    std::vector<PicturePoint> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (stays[i]) {
            kept.push_back(points[i]);
        }
    }
    return kept;
}

void addPath(Html& page, const std::string& style, const std::string& path)
{
    if (!path.empty()) {
        page.add("path", {{"class", style}, {"d", path}}, "");
        page.markup("\n");
    }
}

void addDots(Html& page, std::size_t shape, const std::vector<PicturePoint>& points)
{
    const std::size_t number = shape % shapeCount;
    std::string path;
    for (const PicturePoint& point : points) {
        path += 'M' + pointText(point);
        path += shapes[number].path;
    }
    addPath(page, "dot s" + std::to_string(number + 1), path);
}

std::string shapeSign(std::size_t shape)
{
    return std::string(shapes[shape % shapeCount].sign);
}

void addAxes(Html& page, const PictureArea& area, const Axis& across, const AxisScale& acrossScale,
             const Axis& upwards, const AxisScale& upwardsScale)
{
    constexpr double gap = 6;
    constexpr double lineHeight = 16;
    std::string grid;
    for (const Tick& tick : across.ticks) {
        grid += 'M' + pointText({acrossScale.at(tick.value), area.top}) + 'V' + coordinate(area.bottom);
    }
    for (const Tick& tick : upwards.ticks) {
        grid += 'M' + pointText({area.left, upwardsScale.at(tick.value)}) + 'H' + coordinate(area.right);
    }
    addPath(page, "grid", grid);
    addFrame(page, area);
    for (const Tick& tick : across.ticks) {
        addLabel(page, withinPicture(acrossScale.at(tick.value), tick.label), area.bottom + lineHeight,
                 "middle", tick.label);
    }
    for (const Tick& tick : upwards.ticks) {
        addLabel(page, area.left - gap, upwardsScale.at(tick.value) + 4, "end", tick.label);
    }
    addLabel(page, (area.left + area.right) / 2, area.bottom + 2.25 * lineHeight, "middle title",
             across.title);
    addLabel(page, area.left, area.top - gap, "title", upwards.title);
}

} // namespace companion
