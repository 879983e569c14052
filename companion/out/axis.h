// Axes: which places of an axis have a label, and what the label says.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A place of an axis and its label.
struct Tick
{
    double value;
    std::string label;
};

/// The ticks of an axis, and its title where the labels leave something to it.
struct Axis
{
    std::vector<Tick> ticks{};
    std::string title{};
};

/// The smallest of 1, 2, 5, 10, 20, 50 and so on, and of their tenths, that is not below a positive number.
double roundAbove(double number);

/// A number with so many decimals, without a sign where that is 0; one of more than seven digits in
/// scientific notation.
std::string numberText(double number, int decimals);

/// The round numbers of a span: at most so many and one; none where the span is empty or not finite.
std::vector<Tick> numberTicks(double from, double to, int most);

/// The axis of a span of moments, given as MJD: times of a day, or dates where the span is long.
Axis timeAxis(double from, double to);

} // namespace companion
