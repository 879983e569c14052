#include "math/statistics.h"

#include "math/quick_sort.h"
#include "math/scalars.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

namespace tavelinMath {
namespace {

bool isMasked(const std::vector<bool>& mask, std::size_t place)
{
    return place < mask.size() && mask[place];
}

// The sum of a function over the indexes that are not masked.
template <class Term>
double sumOver(std::size_t count, const std::vector<bool>& mask, Term term)
{
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isMasked(mask, i)) {
            sum += term(i);
        }
    }
    return sum;
}

template <class Term>
double meanOver(std::size_t count, Term term)
{
    return count == 0 ? 0.0 : sumOver(count, {}, term) / static_cast<double>(count);
}

double square(double value)
{
    return value * value;
}

// The mean of a function over the values that are not masked, and how many there are.
template <class Term>
double maskedMean(int n, const double* values, const bool* mask, unsigned long& count, Term term)
{
    double sum = 0;
    count = 0;
    for (int i = 0; i < n; ++i) {
        if (!mask[i]) {
            sum += term(values[i]);
            ++count;
        }
    }
    return sum / static_cast<double>(count); // zero over zero if none is left
}

// Sides below 0 count as 0; a block has at most as many values as an int counts.
int sizeOfBlock(int width, int height)
{
    const auto side = [](int size) { return static_cast<std::size_t>(std::max(size, 0)); };
    return static_cast<int>(
        std::min<std::size_t>(side(width) * side(height), std::numeric_limits<int>::max()));
}

// Brings the value of a sorted place there.
void select(std::vector<double>& values, std::size_t place)
{
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), at, values.end(), isBelowNanLast);
}

template <class Value>
Value largest(const std::vector<Value>& values)
{
    return values.empty() ? Value() : *std::max_element(values.begin(), values.end());
}

template <class Value>
Value smallest(const std::vector<Value>& values)
{
    return values.empty() ? Value() : *std::min_element(values.begin(), values.end());
}

} // namespace

double CalculateAverage(const std::vector<double>& values)
{
    return meanOver(values.size(), [&](std::size_t i) { return values[i]; });
}

double CalculateAverage(const std::vector<pixel>& pixels)
{
    return meanOver(pixels.size(), [&](std::size_t i) { return pixels[i].C; });
}

double CalculateAverage(const std::vector<unsigned long>& values)
{
    return meanOver(values.size(), [&](std::size_t i) { return static_cast<double>(values[i]); });
}

double CalculateAverage(int n, double* values, bool* mask, unsigned long& count)
{
    return maskedMean(n, values, mask, count, [](double value) { return value; });
}

double CalculateSumma(const std::vector<double>& values)
{
    return CalculateSumma(values, {});
}

double CalculateSumma(const std::vector<double>& values, std::vector<bool> mask)
{
    return sumOver(values.size(), mask, [&](std::size_t i) { return values[i]; });
}

double CalculateMulti(std::vector<double> a, std::vector<double> b)
{
    return a.empty() ? 0.0 : CalculateSumma(a) * CalculateSumma(b);
}

double CalculateUmn(std::vector<double> a, std::vector<double> b)
{
    return CalculateUmn(std::move(a), std::move(b), {});
}

double CalculateUmn(std::vector<double> a, std::vector<double> b, std::vector<bool> mask)
{
    return sumOver(std::min(a.size(), b.size()), mask, [&](std::size_t i) { return a[i] * b[i]; });
}

std::vector<double> CalculatePow(std::vector<double> values, const double& power, std::vector<bool> mask)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = isMasked(mask, i) ? 0.0 : std::pow(values[i], power);
    }
    return values;
}

double CalculateSqr(double value)
{
    return square(value);
}

double CalculateSqr(std::vector<double> values)
{
    return CalculateRSS(values);
}

double CalculateSqr(std::vector<double> values, std::vector<bool> mask)
{
    return sumOver(values.size(), mask, [&](std::size_t i) { return square(values[i]); });
}

double CalculateRSS(const std::vector<double>& values)
{
    return sumOver(values.size(), {}, [&](std::size_t i) { return square(values[i]); });
}

double CalculateSKO(const std::vector<double>& values, double mean)
{
    return std::sqrt(meanOver(values.size(), [&](std::size_t i) { return square(values[i] - mean); }));
}

double CalculateSKO(const std::vector<pixel>& pixels, double mean)
{
    return std::sqrt(meanOver(pixels.size(), [&](std::size_t i) { return square(pixels[i].C - mean); }));
}

double CalculateSKO(const std::vector<double>& values)
{
    if (values.empty()) {
        return 0.0;
    }
    double sum = 0;
    double squares = 0;
    for (const double value : values) {
        sum += value;
        squares += square(value);
    }
    const auto count = static_cast<double>(values.size());
    // May be the root of a negative number: rounding is not corrected here.
    return std::sqrt(squares / count - square(sum / count));
}

double CalculateSKO(int n, double* values, bool* mask, unsigned long& count, double mean)
{
    return std::sqrt(maskedMean(n, values, mask, count, [=](double value) { return square(value - mean); }));
}

void BlankARR(int n, double* values, bool* mask, double lower, double upper)
{
    for (int i = 0; i < n; ++i) {
        mask[i] = mask[i] || values[i] < lower || values[i] > upper;
    }
}

void BracData(std::vector<double>& values, double upper, double lower)
{
    std::erase_if(values, [=](double value) { return value > upper || value < lower; });
}

void BracData(std::vector<pixel>& pixels, double upper, double lower)
{
    std::erase_if(pixels, [=](const pixel& point) { return point.C > upper || point.C < lower; });
}

void pcMathSKO(int width, int height, double* values, int iterations, double k, double eps, double& mean,
               double& sigma)
{
    constexpr double noClipping = 1000.0;
    sigma = -1.0;
    if (eps >= noClipping || iterations == 0) {
        return;
    }
    const int n = sizeOfBlock(width, height);
    const auto mask = std::make_unique<bool[]>(static_cast<std::size_t>(n));
    double previousSigma = -1.0;
    for (int passes = 1;; ++passes) {
        unsigned long count = 0;
        mean = CalculateAverage(n, values, mask.get(), count);
        sigma = CalculateSKO(n, values, mask.get(), count, mean);
        // After mean and sigma, which are those of the block before the last clip.
        BlankARR(n, values, mask.get(), mean - k * sigma, mean + k * sigma);
        // With nothing left sigma is not-a-number, and the difference is then not above eps.
        if (!(std::abs(sigma - previousSigma) > eps) || passes >= iterations) {
            return;
        }
        previousSigma = sigma;
    }
}

double cSN3(double signal, double background, double sigma)
{
    return sigma > 0.0 ? (signal - background) / sigma : 0.0;
}

int FindMax(int* values, unsigned long n)
{
    int largest = values[0];
    for (unsigned long i = 1; i < n; ++i) {
        largest = std::max(largest, values[i]);
    }
    return largest;
}

double FindMax(const std::vector<double>& values)
{
    return largest(values);
}

double FindMin(const std::vector<double>& values)
{
    return smallest(values);
}

int FindMax(const std::vector<int>& values)
{
    return largest(values);
}

int FindMin(const std::vector<int>& values)
{
    return smallest(values);
}

unsigned long FindMaxInd(const std::vector<double>& values)
{
    return static_cast<unsigned long>(std::max_element(values.begin(), values.end()) - values.begin());
}

unsigned long FindMinInd(const std::vector<double>& values)
{
    return static_cast<unsigned long>(std::min_element(values.begin(), values.end()) - values.begin());
}

double cMinC(std::vector<pixel>& pixels)
{
    const auto isDarker = [](const pixel& a, const pixel& b) { return a.C < b.C; };
    const auto darkest = std::min_element(pixels.begin(), pixels.end(), isDarker);
    return darkest == pixels.end() ? 0.0 : darkest->C;
}

double Median(std::vector<double>& values)
{
    if (values.empty()) {
        return 0.0;
    }
    if (values.size() == 1) {
        return values[0];
    }
    if (values.size() == 2) {
        return (values[0] + values[1]) / 2.0;
    }
    const std::size_t middle = values.size() / 2;
    select(values, middle + 1); // one above the middle of an odd count: measurements were tuned with it
    if (values.size() % 2 == 1) {
        return values[middle + 1];
    }
    select(values, middle);
    return (values[middle] + values[middle + 1]) / 2.0;
}

double Median2(std::vector<double>& values)
{
    if (values.empty()) {
        return 0.0;
    }
    if (values.size() < 3) {
        return values[0]; // unsorted: of 7 and 5 it is 7
    }
    std::vector<double> sorted = values;
    const std::size_t even = values.size() % 2 == 0 ? 1 : 0;
    return tavelinUtils::keyAtSortedPlace(sorted, static_cast<int>(values.size() / 2 - even));
}

} // namespace tavelinMath
