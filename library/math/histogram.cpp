#include "math/histogram.h"

#include "math/scalars.h"

#include <algorithm>
#include <cstddef>

namespace tavelinMath {
namespace {

bool holds(const THisto& bin, double value)
{
    return bin.Lo <= value && value < bin.Hi;
}

void put(int index, THisto& bin)
{
    ++bin.Count;
    bin.Ind.push_back(index);
}

std::vector<THisto> emptyBins(double smallest, double largest, std::size_t count)
{
    const double step = (largest - smallest) / static_cast<double>(count);
    std::vector<THisto> bins(count);
    for (std::size_t k = 0; k < count; ++k) {
        bins[k].Lo = smallest + static_cast<double>(k) * step;
        bins[k].Hi = bins[k].Lo + step;
    }
    return bins;
}

// The first bin whose count is greater than that of all before it; `fallback` where none beats bin 0.
std::size_t peakOf(const std::vector<THisto>& bins, std::size_t fallback)
{
    const auto isLower = [](const THisto& a, const THisto& b) { return a.Count < b.Count; };
    const auto peak = std::max_element(bins.begin(), bins.end(), isLower);
    return peak == bins.begin() ? fallback : static_cast<std::size_t>(peak - bins.begin());
}

// Moves a peak in the first or the last bin by one.
std::size_t inwards(std::size_t peak, std::size_t bins)
{
    peak = std::max<std::size_t>(peak, 1);
    return peak == bins - 1 ? peak - 1 : peak;
}

// The values of the bins about a peak, in the order of the bins.
std::vector<double> valuesAbout(std::size_t peak, const std::vector<THisto>& bins,
                                const std::vector<double>& values)
{
    std::vector<double> gathered;
    for (std::size_t k = peak - std::min<std::size_t>(peak, 1); k <= peak + 1 && k < bins.size(); ++k) {
        for (const int index : bins[k].Ind) {
            gathered.push_back(values[static_cast<std::size_t>(index)]);
        }
    }
    return gathered;
}

} // namespace

std::vector<THisto> calcGisto(std::vector<double>& values, int bins)
{
    std::stable_sort(values.begin(), values.end(), isBelowNanLast);
    if (values.empty() || bins < 1) {
        return {};
    }
    std::vector<THisto> histogram = emptyBins(values.front(), values.back(), static_cast<std::size_t>(bins));
    // Values and limits both rise, so PutDataToHisto would never go back to an earlier bin.
    std::size_t k = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        while (k < histogram.size() && histogram[k].Hi <= values[i]) {
            ++k;
        }
        if (k < histogram.size() && holds(histogram[k], values[i])) {
            put(static_cast<int>(i), histogram[k]);
        }
    }
    return histogram;
}

std::vector<THisto> calcGistoIteratio(const std::vector<double>& values, int bins, int iterations)
{
    std::vector<double> working = values;
    std::vector<THisto> histogram;
    std::size_t peak = 0;
    for (long pass = 0; pass <= iterations; ++pass) {
        histogram = calcGisto(working, bins);
        if (histogram.empty()) {
            break;
        }
        peak = peakOf(histogram, peak);
        peak = inwards(peak, histogram.size());
        working = valuesAbout(peak, histogram, working);
    }
    return histogram;
}

void PutDataToHisto(double value, int index, std::vector<THisto>& histogram)
{
    const auto bin = std::find_if(histogram.begin(), histogram.end(),
                                  [value](const THisto& candidate) { return holds(candidate, value); });
    if (bin != histogram.end()) {
        put(index, *bin);
    }
}

} // namespace tavelinMath
