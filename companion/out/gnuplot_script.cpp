#include "out/gnuplot_script.h"

#include "out/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

namespace companion {
namespace {

// Seven colors that people with color blindness can tell apart; with each round through them another sign.
constexpr std::string_view colors[] = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                       "#56b4e9", "#e69f00", "#000000"};
constexpr int signs[] = {7, 5, 9, 13};

// More decimals than any measurement has, so that the noise of calculation stays out.
std::string numberText(double number)
{
    constexpr int decimals = 8;
    constexpr double large = 1e15; // beyond it decimals say nothing
    char room[40];
    const bool isLarge = !(std::abs(number) < large);
    const auto form = isLarge ? std::chars_format::scientific : std::chars_format::fixed;
    const auto [end, error] = std::to_chars(std::begin(room), std::end(room), number, form, decimals);
    std::string text(room, end);
    if (!isLarge) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

// Between single quotes nothing but the quote itself means anything. One comes in between double quotes:
// where two stand for one, gnuplot misreads them at the front of a text.
std::string inQuotes(std::string_view text)
{
    std::string result = "'";
    for (const char c : printable(text)) {
        result += c == '\'' ? "'.\"'\".'" : std::string(1, c);
    }
    return result + '\'';
}

// The values of an axis, with a little room beside them, and some where all are one.
class Range
{
public:
    void add(double value)
    {
        least = std::min(least, value);
        most = std::max(most, value);
    }

    std::string text(bool falls) const
    {
        constexpr double part = 0.05;
        // Values that differ by noise alone are one: gnuplot draws nothing where both ends have one text.
        const bool isWide = numberText(least) != numberText(most);
        const double room = isWide ? part * (most - least) : std::max(0.5, 1e-6 * std::abs(most));
        const std::string low = numberText(least - room);
        const std::string high = numberText(most + room);
        return falls ? '[' + high + ':' + low + ']' : '[' + low + ':' + high + ']';
    }

private:
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();
};

std::string_view colorOf(std::size_t number)
{
    return colors[number % std::size(colors)];
}

int signOf(std::size_t number)
{
    return signs[number / std::size(colors) % std::size(signs)];
}

std::string dataName(std::size_t number)
{
    return "$series" + std::to_string(number + 1);
}

std::string dataOf(const Chart& chart)
{
    std::string text;
    for (std::size_t i = 0; i < chart.series.size(); ++i) {
        text += dataName(i) + " << END\n";
        for (const ChartPoint& point : chart.series[i].points) {
            text += numberText(point.x) + ' ' + numberText(point.y) + ' ' + numberText(point.error) + '\n';
        }
        text += "END\n";
    }
    return text;
}

// The last point, and the last before it at another place.
std::string arrowOf(const ChartSeries& series, std::size_t number)
{
    const ChartPoint& end = series.points.back();
    const auto before =
        std::find_if(series.points.rbegin(), series.points.rend(),
                     [&end](const ChartPoint& point) { return point.x != end.x || point.y != end.y; });
    if (before == series.points.rend()) {
        return "";
    }
    return "set arrow from " + numberText(before->x) + ',' + numberText(before->y) + " to " +
           numberText(end.x) + ',' + numberText(end.y) + " size graph 0.02,18 filled front linecolor rgb '" +
           std::string(colorOf(number)) + "'\n";
}

std::string axesOf(const Chart& chart)
{
    Range x;
    Range y;
    for (const ChartSeries& series : chart.series) {
        for (const ChartPoint& point : series.points) {
            x.add(point.x);
            y.add(point.y - point.error);
            y.add(point.y + point.error);
        }
    }
    return "set xlabel " + inQuotes(chart.xLabel) + "\nset ylabel " + inQuotes(chart.yLabel) +
           "\nset xrange " + x.text(chart.xFalls) + "\nset yrange " + y.text(chart.yFalls) +
           "\nset format '%.10g'\nset errorbars 0\nset grid linetype 1 linewidth 0.5 linecolor rgb "
           "'#d8d8d8'\n"
           "set border linecolor rgb '#606060'\n" +
           (chart.hasZero ? "set xzeroaxis linetype 1 linecolor rgb '#606060'\n" : "");
}

std::string terminalOf(std::string_view picture)
{
    return picture.ends_with(".svg")
               ? "set terminal svg size 900,540 font 'sans,14' background 'white'\n"
               : "set terminal pngcairo size 900,540 font 'sans,12' background 'white'\n";
}

// Bars are drawn first and paler, so that the points stay what is seen.
std::string barsOf(const ChartSeries& series, std::size_t number)
{
    const bool hasErrors = std::any_of(series.points.begin(), series.points.end(),
                                       [](const ChartPoint& point) { return point.error > 0.0; });
    const std::string pale = "#a0" + std::string(colorOf(number).substr(1));
    return hasErrors ? dataName(number) + " using 1:2:3 with yerrorbars pointtype 0 linecolor rgb '" + pale +
                           "' notitle, \\\n    "
                     : "";
}

std::string drawingOf(const ChartSeries& series, std::size_t number, bool isPath)
{
    return barsOf(series, number) + dataName(number) + " using 1:2 with " +
           (isPath ? "linespoints" : "points") + " pointtype " + std::to_string(signOf(number)) +
           " pointsize 0.7 linecolor rgb '" + std::string(colorOf(number)) + "' title " +
           inQuotes(series.title);
}

std::string keyOf(const Chart& chart)
{
    return chart.series.size() > 1 ? "set key noenhanced outside right top Left reverse samplen 1\n"
                                   : "unset key\n";
}

} // namespace

bool isPictureName(std::string_view name)
{
    return name.ends_with(".png") || name.ends_with(".svg");
}

std::string gnuplotScript(const Chart& chart, std::string_view picture)
{
    std::string text = terminalOf(picture) + "set encoding utf8\nset output " + inQuotes(picture) + '\n' +
                       dataOf(chart) + "set title " + inQuotes(chart.title) + " noenhanced\n" + keyOf(chart) +
                       axesOf(chart);
    for (std::size_t i = 0; chart.isPath && i < chart.series.size(); ++i) {
        text += arrowOf(chart.series[i], i);
    }
    text += "plot ";
    for (std::size_t i = 0; i < chart.series.size(); ++i) {
        text += (i == 0 ? "" : ", \\\n    ") + drawingOf(chart.series[i], i, chart.isPath);
    }
    return text + '\n';
}

} // namespace companion
