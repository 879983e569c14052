// Scalars: fractions and rounding, comparison, angular differences, and the indexes of flat arrays.

#pragma once

#include "../export.h"

#include <map>
#include <string>

namespace TAVELIN_API tavelinMath {

/// The part of a number above its floor, 0 to 1 also for negative numbers: -1.25 gives 0.75. Numbers of
/// 4503599627370496 and more in magnitude have no fraction and give x - x: 0, or not-a-number for an infinity
/// or a not-a-number.
double Frac(const double& x);

/// Whether a text is made of the characters "-+.,0123456789" alone. Their order does not
/// matter; an empty text is no number.
bool IsNumber(const std::string& text);

/// The floor of x + 0.5: 2.5 gives 3, -2.5 gives -2. A value that does not fit gives the nearest end of the
/// range.
int RoundInt(double x);

/// The nearest whole number, halves away from zero: 2.5 gives 3.0, -2.5 gives -3.0.
double RoundDouble(double x);

/// Whether two numbers differ by at most eps.
bool IsEquals(double a, double b, double eps);

/// Whether two numbers differ by less than the double epsilon, 2.220446049250313e-16, whatever their size.
bool IsEquals(double a, double b);

/// Whether the lowest bit is 0.
bool IsEven(int value);
bool IsEven(unsigned long value);

/// Degrees to radians, and back.
double ToRadian(double degrees);
double ToDegree(double radians);

/// The difference of two right ascensions in degrees as arc seconds on the sky, at a declination in degrees.
double RaDelta(double a, double b, double declination);

/// The difference of two declinations in degrees, in arc seconds.
double DeDelta(double a, double b);

/// A fraction of n, cut to an integer, but at least `least`; an n below `least` is returned as it is.
int GetCountData(int n, int least, double fraction);

/// The position of a key in the order of the map, from 0; -1 where it is missing.
int GetMapCount(const std::map<std::string, int>& map, std::string key);

/// The index of column x and row y in an array that is stored row by row; -1 out of range. An index beyond 32
/// bits keeps its lowest 32, here and in the two functions like it.
int Ind2DTo1D(const int& x, const int& y, const int& width, const int& height);

/// The opposite, without a check of the range; a width of 0 gives 0 and 0.
void Ind1DTo2D(const int& index, const int& width, int& x, int& y);

/// The index of the element i, j where i varies slowest; -1 out of range.
int Ind2DTo1D_(const int& i, const int& j, const int& sizeI, const int& sizeJ);

/// The opposite, without a check of the range; a size of 0 gives 0 and 0.
void Ind1DTo2D_(const int& index, const int& sizeJ, int& i, int& j);

/// The index of the element i, j, k where i varies slowest; -1 out of range.
int Ind3DTo1D_(const int& i, const int& j, const int& k, const int& sizeI, const int& sizeJ,
               const int& sizeK);

/// The opposite, without a check of the range; a size of 0 gives 0 for the indexes that it divides.
void Ind1DTo3D_(const int& index, const int& sizeJ, const int& sizeK, int& i, int& j, int& k);

/// An order of numbers in which not-a-number comes after all others.
bool isBelowNanLast(double a, double b);

} // namespace tavelinMath
