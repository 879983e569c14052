#include "reading/residuals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <erfa.h>
#include <iterator>
#include <numbers>

namespace companion {
namespace {

constexpr double degree = std::numbers::pi / 180.0;
constexpr double arcsecond = degree / 3600.0;

// Values over times, less the polynomial of best fit. Polynomials that are orthogonal over the times are
// taken off one by one, each made of the two before it, so that no equations need to be solved.
class PolynomialFit
{
public:
    explicit PolynomialFit(std::vector<double> ofTimes) : times(std::move(ofTimes))
    {
    }

    void takeOff(std::vector<double>& values, int highest) const
    {
        std::vector<double> before(times.size(), 0.0);
        std::vector<double> present(times.size(), 1.0);
        double normBefore = 1.0;
        for (int order = 0; order <= highest; ++order) {
            const double norm = product(present, present);
            if (norm <= vanishing * static_cast<double>(times.size())) {
                return; // as many different times as this have been taken
            }
            const double share = product(values, present) / norm;
            for (std::size_t i = 0; i < values.size(); ++i) {
                values[i] -= share * present[i];
            }
            advance(before, present, norm, order == 0 ? 0.0 : norm / normBefore);
            normBefore = norm;
        }
    }

private:
    static constexpr double vanishing = 1e-20; // of the square of a polynomial over times from -1 to 1

    static double product(const std::vector<double>& a, const std::vector<double>& b)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            sum += a[i] * b[i];
        }
        return sum;
    }

    void advance(std::vector<double>& before, std::vector<double>& present, double norm, double ratio) const
    {
        double center = 0.0;
        for (std::size_t i = 0; i < times.size(); ++i) {
            center += times[i] * present[i] * present[i];
        }
        center /= norm;
        for (std::size_t i = 0; i < times.size(); ++i) {
            const double next = (times[i] - center) * present[i] - ratio * before[i];
            before[i] = present[i];
            present[i] = next;
        }
    }

    std::vector<double> times; // from -1 to 1
};

using Direction = std::array<double, 3>;

Direction directionOf(const MeasuredPoint& point)
{
    Direction direction{};
    eraS2c(point.ra * degree, point.de * degree, direction.data());
    return direction;
}

// The four points of an ephemeris about a moment, or fewer where it has no more. They end with `end`.
struct Neighbours
{
    std::size_t first = 0;
    std::size_t end = 0;
};

Neighbours neighboursOf(double mjd, const std::vector<MeasuredPoint>& points)
{
    constexpr std::size_t wanted = 4;
    const auto behind =
        std::upper_bound(points.begin(), points.end(), mjd,
                         [](double moment, const MeasuredPoint& point) { return moment < point.mjd; });
    const std::size_t next = static_cast<std::size_t>(std::distance(points.begin(), behind));
    const std::size_t count = std::min(wanted, points.size());
    const std::size_t first = std::min(next - std::min(next, wanted / 2), points.size() - count);
    return {first, first + count};
}

// By the polynomial through the neighbours, of each coordinate of their directions.
Direction interpolated(double mjd, const std::vector<MeasuredPoint>& points)
{
    const Neighbours near = neighboursOf(mjd, points);
    Direction sum{};
    for (std::size_t i = near.first; i < near.end; ++i) {
        double weight = 1.0;
        for (std::size_t j = near.first; j < near.end; ++j) {
            weight *= i == j ? 1.0 : (mjd - points[j].mjd) / (points[i].mjd - points[j].mjd);
        }
        const Direction direction = directionOf(points[i]);
        for (std::size_t axis = 0; axis < sum.size(); ++axis) {
            sum[axis] += weight * direction[axis];
        }
    }
    return sum;
}

// An ephemeris with one point for each time.
std::vector<MeasuredPoint> withoutRepeats(std::vector<MeasuredPoint> points)
{
    const auto end =
        std::unique(points.begin(), points.end(),
                    [](const MeasuredPoint& a, const MeasuredPoint& b) { return a.mjd == b.mjd; });
    points.erase(end, points.end());
    return points;
}

// The points of a path on the plane that touches the sky at its first one.
struct PlanePath
{
    explicit PlanePath(const MeasuredSeries& path)
    {
        const MeasuredPoint origin = path.points.empty() ? MeasuredPoint{} : path.points.front();
        for (const MeasuredPoint& point : path.points) {
            double x = 0;
            double y = 0;
            const int farness = eraTpxes(point.ra * degree, point.de * degree, origin.ra * degree,
                                         origin.de * degree, &x, &y);
            if (farness == 0) {
                times.push_back(point.mjd - origin.mjd);
                xs.push_back(x / arcsecond);
                ys.push_back(y / arcsecond);
            }
        }
    }

    std::vector<double> times{}; // since the first point
    std::vector<double> xs{};    // arcseconds
    std::vector<double> ys{};
};

// Times as they are fitted: -1 is the first and 1 the last.
std::vector<double> scaled(const std::vector<double>& times)
{
    std::vector<double> result;
    result.reserve(times.size());
    const double half = times.empty() ? 0.0 : (times.back() - times.front()) / 2.0;
    for (const double time : times) {
        result.push_back(half > 0.0 ? (time - times.front()) / half - 1.0 : 0.0);
    }
    return result;
}

} // namespace

std::vector<Residual> residualsOf(const MeasuredSeries& path, int highest)
{
    PlanePath plane(path);
    const PolynomialFit fit(scaled(plane.times));
    fit.takeOff(plane.xs, std::min(highest, highestDegree));
    fit.takeOff(plane.ys, std::min(highest, highestDegree));
    std::vector<Residual> residuals;
    residuals.reserve(plane.times.size());
    for (std::size_t i = 0; i < plane.times.size(); ++i) {
        residuals.push_back({path.points.front().mjd + plane.times[i], plane.xs[i], plane.ys[i]});
    }
    return residuals;
}

std::vector<Residual> residualsOf(const MeasuredSeries& path, const MeasuredSeries& ephemeris)
{
    const std::vector<MeasuredPoint> expected = withoutRepeats(ephemeris.points);
    std::vector<Residual> residuals;
    for (const MeasuredPoint& point : path.points) {
        const bool isCovered =
            !expected.empty() && point.mjd >= expected.front().mjd && point.mjd <= expected.back().mjd;
        if (!isCovered) {
            continue;
        }
        Direction direction = interpolated(point.mjd, expected);
        double ra = 0;
        double de = 0;
        eraC2s(direction.data(), &ra, &de);
        const double difference = std::remainder(point.ra * degree - ra, 2.0 * std::numbers::pi);
        residuals.push_back(
            {point.mjd, difference * std::cos(de) / arcsecond, (point.de * degree - de) / arcsecond});
    }
    return residuals;
}

} // namespace companion
