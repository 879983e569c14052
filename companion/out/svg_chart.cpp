#include "out/svg_chart.h"

#include "findings/finding.h"
#include "out/svg_plane.h"
#include "out/text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <optional>
#include <string_view>

namespace companion {
namespace {

constexpr double degree = std::numbers::pi / 180.0;
constexpr double secondsOfDegree = 3600;

// A span that has a length though all its values may be one.
struct Span
{
    double from;
    double to;

    explicit Span(double value) : from(value), to(value)
    {
    }

    void take(double value)
    {
        from = std::min(from, value);
        to = std::max(to, value);
    }

    double length() const
    {
        return to - from;
    }

    // With room at its ends, and at least so long.
    Span widened(double least) const
    {
        constexpr double part = 0.06;
        const double more = std::max(length() * part, (least - length()) / 2.0);
        Span span(from - more);
        span.take(to + more);
        return span;
    }
};

std::string secondText(double mjd)
{
    std::string text = momentText(mjd);
    if (text.empty()) {
        return "MJD " + numberText(mjd, 3);
    }
    constexpr std::size_t place = 10;
    constexpr std::size_t length = 19;
    text[place] = ' ';
    return text.substr(0, length);
}

// "12.60 to 18.10", or one number where both are the same.
std::string rangeText(double from, double to, int decimals)
{
    const std::string first = numberText(from, decimals);
    const std::string last = numberText(to, decimals);
    return first == last ? first : first + " to " + last;
}

std::string fromTo(const Span& time)
{
    const std::string from = secondText(time.from);
    const std::string to = secondText(time.to);
    return from == to ? "at " + from : "from " + from + " to " + to;
}

// The opening of a picture with the texts that stand for it where it is not seen.
class Picture
{
public:
    Picture(Html& page, const PictureName& name, const std::string& kind, const std::string& description)
        : svg(page.in("svg",
                      {{"class", "chart"},
                       {"viewBox", "0 0 " + coordinate(pictureWidth) + ' ' + coordinate(pictureHeight)},
                       {"role", "img"},
                       {"aria-labelledby", name.id + "-t " + name.id + "-d"}}))
    {
        page.add("title", {{"id", name.id + "-t"}}, kind + " of " + name.object);
        page.add("desc", {{"id", name.id + "-d"}}, description);
        page.markup("\n");
    }

private:
    Html::Element svg;
};

// What a light curve says in numbers.
struct CurveFacts
{
    explicit CurveFacts(const std::vector<LightCurve>& curves)
    {
        for (const LightCurve& curve : curves) {
            for (const CurveMark& mark : curve.marks) {
                take(mark);
            }
        }
    }

    void take(const CurveMark& mark)
    {
        if (marks == 0) {
            time = Span(mark.mjd);
            magnitude = reach = Span(mark.magnitude);
        }
        time.take(mark.mjd);
        magnitude.take(mark.magnitude);
        reach.take(mark.magnitude - mark.error);
        reach.take(mark.magnitude + mark.error);
        sum += mark.magnitude;
        ++marks;
    }

    std::string text() const
    {
        const std::string mean = numberText(sum / static_cast<double>(marks), 2);
        return counted(marks, "mark") + ", magnitude " + rangeText(magnitude.from, magnitude.to, 2) +
               (marks == 1 ? "" : ", mean " + mean);
    }

    std::size_t marks = 0;
    Span time{0};
    Span magnitude{0};
    Span reach{0}; // with errors
    double sum = 0;
};

std::string filtersText(const std::vector<LightCurve>& curves)
{
    std::string text;
    for (const LightCurve& curve : curves) {
        text += curve.filter.empty() ? "" : (text.empty() ? "; filters: " : ", ") + curve.filter;
    }
    return text;
}

// A light curve's scales: the brighter the higher.
struct CurveScales
{
    CurveScales(const CurveFacts& facts, const PictureArea& area)
        : time{0, 1, area.left, area.right}, magnitude{0, 1, area.top, area.bottom}
    {
        constexpr double twoMinutes = 2.0 / 1440.0;
        const Span times = facts.time.widened(twoMinutes);
        const Span magnitudes = facts.reach.widened(0.2);
        time.from = times.from;
        time.to = times.to;
        magnitude.from = magnitudes.from;
        magnitude.to = magnitudes.to;
    }

    PicturePoint at(const CurveMark& mark) const
    {
        return {time.at(mark.mjd), magnitude.at(mark.magnitude)};
    }

    AxisScale time;
    AxisScale magnitude;
};

std::string errorBars(const LightCurve& curve, const CurveScales& scales)
{
    constexpr std::size_t most = 1000; // more would only blacken the picture
    std::string path;
    for (const CurveMark& mark : curve.marks) {
        if (mark.error > 0.0 && curve.marks.size() <= most) {
            path += 'M' + coordinate(scales.time.at(mark.mjd)) + ' ' +
                    coordinate(scales.magnitude.at(mark.magnitude - mark.error)) + 'V' +
                    coordinate(scales.magnitude.at(mark.magnitude + mark.error));
        }
    }
    return path;
}

void addCurves(Html& page, const std::vector<LightCurve>& curves, const CurveScales& scales)
{
    for (std::size_t i = 0; i < curves.size(); ++i) {
        std::vector<PicturePoint> points;
        for (const CurveMark& mark : curves[i].marks) {
            points.push_back(scales.at(mark));
        }
        addPath(page, "error s" + std::to_string(i % shapeCount + 1), errorBars(curves[i], scales));
        addDots(page, i, boundingPoints(points));
    }
}

void addFilters(Html& page, const std::vector<LightCurve>& curves)
{
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (!curves[i].filter.empty()) {
            page.text(i == 0 ? "; " : ", ");
            page.add("span", {{"class", "key s" + std::to_string(i % shapeCount + 1)}}, shapeSign(i));
            page.text(" ");
            page.name(curves[i].filter);
        }
    }
}

// Tracks around a middle, so that no track is torn at 0 degrees of right ascension.
struct SkyPlane
{
    SkyPlane(const std::vector<SkyTrack>& tracks, const PictureArea& pictureArea)
        : area(pictureArea), zero(tracks.front().front().ra), east(0), north(tracks.front().front().de),
          time(tracks.front().front().mjd)
    {
        for (const SkyTrack& track : tracks) {
            for (const SkyMark& mark : track) {
                east.take(eastOf(mark));
                north.take(mark.de);
                time.take(mark.mjd);
                ++marks;
            }
        }
        constexpr double least = 2.0 / secondsOfDegree;
        constexpr double nearPole = 0.02;
        shrink = std::max(std::cos(middle(north) * degree), nearPole);
        const double room = 1.0 + 2.0 * 0.07;
        scale = std::min(area.width() / std::max(east.length() * shrink * room, least),
                         area.height() / std::max(north.length() * room, least));
    }

    // Degrees of right ascension from that of the first mark.
    double eastOf(const SkyMark& mark) const
    {
        constexpr double circle = 360;
        return std::remainder(mark.ra - zero, circle);
    }

    static double middle(const Span& span)
    {
        return (span.from + span.to) / 2.0;
    }

    PicturePoint at(const SkyMark& mark) const
    {
        return {(area.left + area.right) / 2.0 - (eastOf(mark) - middle(east)) * shrink * scale,
                (area.top + area.bottom) / 2.0 - (mark.de - middle(north)) * scale};
    }

    AxisScale acrossScale() const
    {
        const double half = area.width() / 2.0 / scale / shrink;
        return {middle(east) + half, middle(east) - half, area.left, area.right};
    }

    AxisScale upwardsScale() const
    {
        const double half = area.height() / 2.0 / scale;
        return {middle(north) - half, middle(north) + half, area.bottom, area.top};
    }

    PictureArea area;
    double zero;
    Span east;
    Span north;
    Span time;
    std::size_t marks = 0;
    double shrink = 1; // of a degree of right ascension
    double scale = 1;  // of a degree
};

// Labels of right ascension stay within a circle.
Axis acrossAxis(const SkyPlane& plane, const AxisScale& scale)
{
    constexpr double half = 180;
    const double from = std::max(scale.to, SkyPlane::middle(plane.east) - half);
    const double to = std::min(scale.from, SkyPlane::middle(plane.east) + half);
    Axis axis;
    axis.title = "right ascension, degrees";
    for (Tick& tick : numberTicks(plane.zero + from, plane.zero + to, 5)) {
        const std::size_t point = tick.label.find('.');
        const int decimals = point == std::string::npos ? 0 : static_cast<int>(tick.label.size() - point - 1);
        const double turned = tick.value - std::floor(tick.value / 360.0 + 1e-12) * 360.0;
        axis.ticks.push_back({tick.value - plane.zero, numberText(turned, decimals)});
    }
    return axis;
}

Axis upwardsAxis(const AxisScale& scale)
{
    constexpr double pole = 90;
    return {numberTicks(std::max(scale.from, -pole), std::min(scale.to, pole), 6), "declination, degrees"};
}

// A length as "20\u2033", in a unit that suits it.
std::string angleText(double degrees)
{
    struct Unit
    {
        double ofDegree;
        std::string_view sign;
    };
    constexpr Unit units[] = {{1, "\u00B0"}, {60, "\u2032"}, {secondsOfDegree, "\u2033"}};
    // The last for whatever is shorter.
    const auto* const unit =
        std::find_if(std::begin(units), std::prev(std::end(units)),
                     [degrees](const Unit& each) { return degrees * each.ofDegree >= 1.0 - 1e-9; });
    const double number = degrees * unit->ofDegree;
    const int decimals = number >= 10.0 - 1e-9 ? 0 : number >= 1.0 - 1e-9 ? 1 : 2;
    std::string text = numberText(number, decimals);
    return (text.ends_with(".0") ? text.substr(0, text.size() - 2) : text) + std::string(unit->sign);
}

// Whether a mark is near the bottom of the picture, and at its left.
bool isAtLowerLeft(const std::vector<SkyTrack>& tracks, const SkyPlane& plane)
{
    const double right = plane.area.left + plane.area.width() / 2.0;
    const double top = plane.area.bottom - 35;
    return std::any_of(tracks.begin(), tracks.end(), [&](const SkyTrack& track) {
        return std::any_of(track.begin(), track.end(), [&](const SkyMark& mark) {
            const PicturePoint point = plane.at(mark);
            return point.x < right && point.y > top;
        });
    });
}

// A bar of about an eighth of the picture, in round numbers of its unit, in a lower corner.
void addScaleBar(Html& page, const std::vector<SkyTrack>& tracks, const SkyPlane& plane)
{
    const double wanted = plane.area.width() / plane.scale / 8.0;
    const double unit = wanted >= 0.5 ? 1.0 : wanted * 60.0 >= 0.5 ? 60.0 : secondsOfDegree;
    const double length = roundAbove(wanted * unit) / unit;
    const double width = length * plane.scale;
    const double x = isAtLowerLeft(tracks, plane) ? plane.area.right - 10 - width : plane.area.left + 10;
    const double y = plane.area.bottom - 10;
    addPath(page, "scale", 'M' + pointText({x, y - 4}) + "v4H" + coordinate(x + width) + "v-4");
    page.add("text", {{"x", coordinate(x + width / 2.0)}, {"y", coordinate(y - 6)}, {"class", "middle"}},
             angleText(length));
    page.markup("\n");
}

std::string linePath(const std::vector<PicturePoint>& points)
{
    std::string path;
    for (const PicturePoint& point : points) {
        path += (path.empty() ? 'M' : 'L') + pointText(point);
    }
    return path;
}

// The head of an arrow ahead of the last point, in the direction in which the track comes there.
std::string arrowPath(const std::vector<PicturePoint>& points)
{
    constexpr double ahead = 4;
    constexpr double length = 10;
    constexpr double half = 4;
    const PicturePoint last = points.back();
    const auto before = std::find_if(points.rbegin(), points.rend(), [&last](const PicturePoint& each) {
        return std::hypot(last.x - each.x, last.y - each.y) > length;
    });
    if (before == points.rend()) {
        return {};
    }
    const double distance = std::hypot(last.x - before->x, last.y - before->y);
    const double x = (last.x - before->x) / distance;
    const double y = (last.y - before->y) / distance;
    const PicturePoint base{last.x + x * ahead, last.y + y * ahead};
    const PicturePoint tip{base.x + x * length, base.y + y * length};
    return 'M' + pointText(tip) + 'L' + pointText({base.x - y * half, base.y + x * half}) + 'L' +
           pointText({base.x + y * half, base.y - x * half}) + 'Z';
}

void addTracks(Html& page, const std::vector<SkyTrack>& tracks, const SkyPlane& plane)
{
    std::string lines;
    std::string arrows;
    std::string starts;
    std::vector<PicturePoint> dots;
    for (const SkyTrack& track : tracks) {
        std::vector<PicturePoint> points;
        for (const SkyMark& mark : track) {
            points.push_back(plane.at(mark));
        }
        points = boundingPoints(points);
        lines += points.size() > 1 ? linePath(points) : "";
        arrows += arrowPath(points);
        starts += 'M' + pointText(points.front()) + "m-5 0a5 5 0 1 0 10 0a5 5 0 1 0-10 0";
        dots.insert(dots.end(), points.begin(), points.end());
    }
    addPath(page, "track", lines);
    addDots(page, 0, dots);
    addPath(page, "start", starts);
    addPath(page, "arrow", arrows);
}

constexpr std::string_view directions[] = {"north", "north-east", "east", "south-east",
                                           "south", "south-west", "west", "north-west"};

// ", 12.3\u2033 to the north-east", of a track that moves.
std::string motionOf(const SkyTrack& track, const SkyPlane& plane)
{
    const double east = std::remainder(track.back().ra - track.front().ra, 360.0) * plane.shrink;
    const double north = track.back().de - track.front().de;
    const double length = std::hypot(east, north);
    if (length * secondsOfDegree < 0.01) {
        return {};
    }
    const long eighth = std::lround(std::atan2(east, north) / degree / 45.0);
    return ", " + angleText(length) + " to the " + std::string(directions[(eighth + 8) % 8]);
}

std::string skyText(const std::vector<SkyTrack>& tracks, const SkyPlane& plane)
{
    const std::string ofTracks =
        tracks.size() == 1 ? motionOf(tracks.front(), plane) : " in " + counted(tracks.size(), "track");
    return counted(plane.marks, "mark") + ofTracks;
}

std::string skyPlaceText(const SkyPlane& plane)
{
    constexpr int decimals = 4;
    const auto turned = [](double ra) { return ra - std::floor(ra / 360.0) * 360.0; };
    return "; right ascension " +
           rangeText(turned(plane.zero + plane.east.from), turned(plane.zero + plane.east.to), decimals) +
           " degrees, declination " + rangeText(plane.north.from, plane.north.to, decimals) + " degrees";
}

} // namespace

void addLightCurve(Html& page, const PictureName& name, const std::vector<LightCurve>& curves)
{
    constexpr PictureArea area{48, 24, pictureWidth - 16, pictureHeight - 44};
    const CurveFacts facts(curves);
    const CurveScales scales(facts, area);
    const Html::Element figure = page.in("figure");
    {
        const Picture picture(page, name, "Light curve",
                              facts.text() + ", " + fromTo(facts.time) + " UTC" + filtersText(curves) + '.');
        const Axis magnitudes{numberTicks(scales.magnitude.from, scales.magnitude.to, 6), "magnitude"};
        addAxes(page, area, timeAxis(scales.time.from, scales.time.to), scales.time, magnitudes,
                scales.magnitude);
        addCurves(page, curves, scales);
    }
    const Html::Element caption = page.in("figcaption");
    page.text("Light curve: " + facts.text());
    addFilters(page, curves);
}

void addSkyTracks(Html& page, const PictureName& name, const std::vector<SkyTrack>& tracks)
{
    constexpr PictureArea area{74, 24, pictureWidth - 16, pictureHeight - 44};
    const SkyPlane plane(tracks, area);
    const Html::Element figure = page.in("figure");
    const std::string text = skyText(tracks, plane);
    {
        const Picture picture(page, name, "Sky track",
                              text + ", " + fromTo(plane.time) + " UTC" + skyPlaceText(plane) + '.');
        const AxisScale across = plane.acrossScale();
        const AxisScale upwards = plane.upwardsScale();
        addAxes(page, area, acrossAxis(plane, across), across, upwardsAxis(upwards), upwards);
        addScaleBar(page, tracks, plane);
        addTracks(page, tracks, plane);
    }
    page.add("figcaption", {}, "Sky track: " + text);
}

} // namespace companion
