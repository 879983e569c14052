// Histograms, and the search for their peak.

#pragma once

#include "../export.h"

#include <vector>

namespace TAVELIN_API tavelinUtils {

/// One bin.
struct THisto
{
    double Lo = 0;          ///< lower limit, included, in the unit of the values
    double Hi = 0;          ///< upper limit, excluded
    int Count = 0;          ///< how many values it holds
    std::vector<int> Ind{}; ///< which ones: their indexes
};

} // namespace tavelinUtils

namespace TAVELIN_API tavelinMath {

using tavelinUtils::THisto;

/// The histogram of values between the smallest and the largest, which come back sorted; a bin's indexes are
/// those of the sorted list. Bins exclude their upper limit, so the largest value is in none, unless rounding
/// puts it into the last bin. No values, or fewer than one bin, give an empty histogram. Not-a-number counts
/// as the largest, and then nothing is in a bin.
std::vector<THisto> calcGisto(std::vector<double>& values, int bins);

/// The histogram of the values about the peak: of each histogram the values in the first greatest bin and its
/// two neighbours make the next, `iterations` times over. A peak in the first or the last bin moves one
/// inwards; where no bin beats the first, the peak of the previous pass stays, initially the first bin. The
/// values are not changed. An `iterations` of -1 or less gives an empty histogram, and so does a pass that
/// has no values left.
std::vector<THisto> calcGistoIteratio(const std::vector<double>& values, int bins, int iterations);

/// Adds a value to the first bin that holds it. A value in no bin changes nothing.
void PutDataToHisto(double value, int index, std::vector<THisto>& histogram);

} // namespace tavelinMath
