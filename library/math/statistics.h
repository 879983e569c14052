// Basic statistics: means, sums, deviations, clipping, extremes and medians.
//
// The system's word for a root-mean-square deviation is SKO. It is the population form everywhere: squares
// are divided by the count, never by the count less one. Results have the unit of the values, sums of squares
// and products its square. In a mask, true means left out; places after the end of a mask are not left out.

#pragma once

#include "../export.h"
#include "../records/pixel.h"

#include <vector>

namespace TAVELIN_API tavelinMath {

/// Means; 0.0 of an empty list. That of pixels is the mean of C.
double CalculateAverage(const std::vector<double>& values);
double CalculateAverage(const std::vector<pixel>& pixels);
double CalculateAverage(const std::vector<unsigned long>& values);

/// The mean of n values without the masked ones, and the number of those that count; not-a-number where none
/// does.
double CalculateAverage(int n, double* values, bool* mask, unsigned long& count);

/// Sums; 0.0 of an empty list.
double CalculateSumma(const std::vector<double>& values);
double CalculateSumma(const std::vector<double>& values, std::vector<bool> mask);

/// The sum of the first list times the sum of the second: the sum over all pairs. 0.0 where the first is
/// empty.
double CalculateMulti(std::vector<double> a, std::vector<double> b);

/// The dot product over the length of the first list, or of the second if that is shorter.
double CalculateUmn(std::vector<double> a, std::vector<double> b);
double CalculateUmn(std::vector<double> a, std::vector<double> b, std::vector<bool> mask);

/// The power of each value; 0.0 at the masked places.
std::vector<double> CalculatePow(std::vector<double> values, const double& power, std::vector<bool> mask);

/// The square, and sums of squares; 0.0 of an empty list.
double CalculateSqr(double value);
double CalculateSqr(std::vector<double> values);
double CalculateSqr(std::vector<double> values, std::vector<bool> mask);

/// The sum of squares; no root is taken in spite of the name. 0.0 of an empty list.
double CalculateRSS(const std::vector<double>& values);

/// The root of the mean squared deviation from a given mean; 0.0 of an empty list. That of pixels is over C.
double CalculateSKO(const std::vector<double>& values, double mean);
double CalculateSKO(const std::vector<pixel>& pixels, double mean);

/// The same in one pass: the root of the mean of the squares less the square of the mean. Rounding can make
/// that slightly negative, and the result is then not-a-number.
double CalculateSKO(const std::vector<double>& values);

/// The same for n values without the masked ones, and the number of those that count; not-a-number where none
/// does.
double CalculateSKO(int n, double* values, bool* mask, unsigned long& count, double mean);

/// Masks each value outside the limits; one equal to a limit is kept, and what was masked stays so.
void BlankARR(int n, double* values, bool* mask, double lower, double upper);

/// Removes each value, or each pixel with a C, outside the limits; order is kept. The upper limit comes
/// first.
void BracData(std::vector<double>& values, double upper, double lower);
void BracData(std::vector<pixel>& pixels, double upper, double lower);

/// Iterative sigma clipping of a block of width times height values, which is not changed: mean and sigma of
/// what the clip before the last left. A clip keeps what is within k sigma of the mean. It stops where sigma
/// changes by no more than eps, which has the unit of the values, or after the given number of iterations; a
/// negative number makes one. An eps of 1000.0 or more, or 0 iterations, asks for no clipping: sigma is -1.0
/// and mean stays as it was. With nothing left both are not-a-number.
void pcMathSKO(int width, int height, double* values, int iterations, double k, double eps, double& mean,
               double& sigma);

/// The signal above the background in units of sigma, all three in the same unit; 0.0 unless sigma is above
/// 0.
double cSN3(double signal, double background, double sigma);

/// The largest of n values. The first is read also where n is 0.
int FindMax(int* values, unsigned long n);

/// The largest and the smallest; 0 of an empty list.
double FindMax(const std::vector<double>& values);
double FindMin(const std::vector<double>& values);
int FindMax(const std::vector<int>& values);
int FindMin(const std::vector<int>& values);

/// The index of the first largest and of the first smallest value; 0 of an empty list.
unsigned long FindMaxInd(const std::vector<double>& values);
unsigned long FindMinInd(const std::vector<double>& values);

/// The smallest C; 0.0 of an empty list.
double cMinC(std::vector<pixel>& pixels);

/// The median by the rule that measurements of the pipeline were tuned with: of an odd number of values the
/// one above the middle (3 of 1, 2, 3), of an even number the mean of the upper one of the two middle values
/// and of the one that is after it when that was selected. The mean of two, the value of one, 0.0 of
/// none. The list is reordered; not-a-number counts as the largest.
double Median(std::vector<double>& values);

/// The lower median: 2 of 1, 2, 3 and of 1, 2, 3, 4. Fewer than three values give the first of
/// them, none give 0.0. The list is not changed. Not-a-number values are where QuickSort1 puts them.
double Median2(std::vector<double>& values);

} // namespace tavelinMath
