// Scalars: fractions, integers out of doubles, and the test for a number.

#pragma once

#include <string>

namespace tavelinMath {

/// The part of a number behind its floor, 0 to 1 also for negative numbers: -1.25 gives 0.75.
/// Numbers of 4503599627370496 and more in magnitude, which have no fraction, give x - x: 0, and
/// not-a-number for an infinity or a not-a-number.
double Frac(const double& x);

/// Whether a text is made of the characters "-+.,0123456789" alone. Their order is not looked at;
/// an empty text is no number.
bool IsNumber(const std::string& text);

/// A double cut to an integer: towards zero, 0 for not-a-number, and the nearest end of the range for
/// what does not fit.
int cutToInt(double x);

} // namespace tavelinMath
