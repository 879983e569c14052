#include "math/scalars.h"

#include "base/numbers.h"

#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>

namespace tavelinMath {
namespace {

constexpr double pi = 3.141592653589793;

bool isInside(int coordinate, int size)
{
    return coordinate >= 0 && coordinate < size;
}

// An index of a flat array; one beyond 32 bits wraps.
int place(std::int64_t slow, std::int64_t size, std::int64_t fast)
{
    return static_cast<int>(static_cast<std::int32_t>(slow * size + fast));
}

// In 64 bits, where the least index divided by -1 has a result.
int quotient(std::int64_t index, std::int64_t size)
{
    return size == 0 ? 0 : static_cast<int>(index / size);
}

int remainder(std::int64_t index, std::int64_t size)
{
    return size == 0 ? 0 : static_cast<int>(index % size);
}

} // namespace

double Frac(const double& x)
{
    constexpr double wholeFromHere = 4503599627370496.0; // 2 to the power 52
    if (std::abs(x) >= wholeFromHere) {
        return x - x;
    }
    return x - std::floor(x);
}

bool IsNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("-+.,0123456789") == std::string::npos;
}

int RoundInt(double x)
{
    return tavelinUtils::cutToInt(std::floor(x + 0.5));
}

double RoundDouble(double x)
{
    return x > 0.0 ? std::floor(x + 0.5) : std::ceil(x - 0.5);
}

bool IsEquals(double a, double b, double eps)
{
    return std::abs(a - b) <= eps;
}

bool IsEquals(double a, double b)
{
    return std::abs(a - b) < std::numeric_limits<double>::epsilon();
}

bool IsEven(int value)
{
    return (static_cast<unsigned>(value) & 1U) == 0;
}

bool IsEven(unsigned long value)
{
    return (value & 1U) == 0;
}

double ToRadian(double degrees)
{
    return degrees * pi / 180.0;
}

double ToDegree(double radians)
{
    return radians * 180.0 / pi;
}

double RaDelta(double a, double b, double declination)
{
    return std::cos(ToRadian(declination)) * (a - b) * 3600.0;
}

double DeDelta(double a, double b)
{
    return (a - b) * 3600.0;
}

int GetCountData(int n, int least, double fraction)
{
    if (n < least) {
        return n;
    }
    const int count = tavelinUtils::cutToInt(n * fraction);
    return count < least ? least : count;
}

int GetMapCount(const std::map<std::string, int>& map, std::string key)
{
    const auto found = map.find(key);
    return found == map.end() ? -1 : static_cast<int>(std::distance(map.begin(), found));
}

int Ind2DTo1D(const int& x, const int& y, const int& width, const int& height)
{
    return isInside(x, width) && isInside(y, height) ? place(y, width, x) : -1;
}

void Ind1DTo2D(const int& index, const int& width, int& x, int& y)
{
    const int row = quotient(index, width);
    x = remainder(index, width);
    y = row;
}

int Ind2DTo1D_(const int& i, const int& j, const int& sizeI, const int& sizeJ)
{
    return isInside(i, sizeI) && isInside(j, sizeJ) ? place(i, sizeJ, j) : -1;
}

void Ind1DTo2D_(const int& index, const int& sizeJ, int& i, int& j)
{
    const int slow = quotient(index, sizeJ);
    j = remainder(index, sizeJ);
    i = slow;
}

int Ind3DTo1D_(const int& i, const int& j, const int& k, const int& sizeI, const int& sizeJ, const int& sizeK)
{
    if (!isInside(i, sizeI) || !isInside(j, sizeJ) || !isInside(k, sizeK)) {
        return -1;
    }
    return place(place(i, sizeJ, j), sizeK, k);
}

void Ind1DTo3D_(const int& index, const int& sizeJ, const int& sizeK, int& i, int& j, int& k)
{
    const int rest = quotient(index, sizeK);
    const int slow = quotient(index, static_cast<std::int64_t>(sizeJ) * sizeK);
    k = remainder(index, sizeK);
    j = remainder(rest, sizeJ);
    i = slow;
}

bool isBelowNanLast(double a, double b)
{
    return a < b || (std::isnan(b) && !std::isnan(a));
}

} // namespace tavelinMath
