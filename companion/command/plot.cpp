#include "base/numbers.h"
#include "command/finding_codes.h"
#include "command/measurement_files.h"
#include "command/subcommands.h"
#include "out/characters.h"
#include "out/finding_json.h"
#include "out/gnuplot_script.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "reading/input_files.h"
#include "reading/lint.h"
#include "reading/measured_points.h"
#include "reading/residuals.h"
#include "running/gnuplot.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"output", 'o', "FILE", "the picture that is made, a .png or .svg"},
    {"kind", 0, "light|sky|residuals",
     "brightness over time, paths on the sky, or how far paths are from smooth ones; light for light curves "
     "and "
     "AAVSO reports, else sky"},
    {"object", 0, "NAME", "draw this object alone; may be given again for another"},
    {"degree", 0, "N", "of the polynomials that residuals are taken against, 0 to 9. Default 2"},
    {"against", 0, "FILE", "take residuals against this Horizons ephemeris instead"},
    {"script", 0, nullptr, "print the script for gnuplot and run nothing"},
    {"as", 0, "FORMAT", "the format of the file, instead of the one that its content shows"},
    {"force", 'f', nullptr, "replace a picture that exists"},
};

constexpr std::size_t mostObjects = 12;

// What is drawn of a file.
struct Drawing
{
    Chart chart{};
    std::size_t objects = 0; // in the file, of those that are wanted
    std::size_t drawn = 0;
    std::size_t points = 0; // that are drawn
};

int degreeOf(const Arguments& arguments)
{
    const std::string text = arguments.value("degree", "2");
    if (text.size() != 1 || !isDigit(text[0])) {
        throw wrongCall("--degree", '"' + text + "\" is not 0 to " + std::to_string(highestDegree));
    }
    return text[0] - '0';
}

std::string formatOf(const std::string& name, const std::string& path, const Arguments& arguments)
{
    std::string given = givenFormat(arguments);
    if (!given.empty()) {
        return given;
    }
    const Recognition recognition = recognisedFile(path);
    if (!recognition.isSure()) {
        throw WrongUsage{uncertainFormat(name, recognition)};
    }
    return recognition.format;
}

std::string kindOf(const Arguments& arguments, const std::string& format)
{
    const bool isLight = format == "mag" || format == "aavso";
    return arguments.value("kind", arguments.has("against") ? "residuals" : isLight ? "light" : "sky");
}

// The series of the objects that are wanted, at most so many as have room in a picture.
std::vector<MeasuredSeries> chosen(std::vector<MeasuredSeries> all, const std::vector<std::string>& wanted,
                                   Drawing& drawing)
{
    std::vector<std::string> names;
    std::vector<MeasuredSeries> series;
    for (const std::string& name : wanted) {
        const auto isIt = [&name](const MeasuredSeries& each) { return each.object == name; };
        if (std::none_of(all.begin(), all.end(), isIt)) {
            for (const MeasuredSeries& each : all) {
                names.push_back(each.object);
            }
            throw unknownWord("object", name, names);
        }
    }
    for (MeasuredSeries& each : all) {
        const bool isWanted =
            wanted.empty() || std::find(wanted.begin(), wanted.end(), each.object) != wanted.end();
        const bool isNew = std::find(names.begin(), names.end(), each.object) == names.end();
        if (!isWanted) {
            continue;
        }
        if (isNew) {
            names.push_back(each.object);
        }
        if (std::find(names.begin(), names.end(), each.object) - names.begin() <
            static_cast<std::ptrdiff_t>(mostObjects))
        {
            series.push_back(std::move(each));
        }
    }
    drawing.objects = names.size();
    drawing.drawn = std::min(names.size(), mostObjects);
    return series;
}

std::string titleOf(const MeasuredSeries& series)
{
    return series.filter.empty() ? series.object : series.object + ' ' + series.filter;
}

// The day from which times are counted, so that they have few digits: all less than a day of the first one's.
double firstDayOf(const std::vector<MeasuredSeries>& all)
{
    double first = all.front().points.front().mjd;
    for (const MeasuredSeries& series : all) {
        first = std::min(first, series.points.front().mjd);
    }
    return std::floor(first + 0.5); // Julian days begin at noon
}

// A whole Julian date as a text; MJD 0.5 is one.
std::string julianLabel(double firstDay)
{
    constexpr long long julianOfMjd = 2400000;
    return "Julian date - " + std::to_string(julianOfMjd + static_cast<long long>(firstDay));
}

Chart lightChart(const std::vector<MeasuredSeries>& all)
{
    Chart chart;
    const double firstDay = firstDayOf(all);
    chart.xLabel = julianLabel(firstDay);
    chart.yLabel = "magnitude";
    chart.yFalls = true;
    for (const MeasuredSeries& series : all) {
        ChartSeries drawn{titleOf(series)};
        for (const MeasuredPoint& point : series.points) {
            drawn.points.push_back({point.mjd + 0.5 - firstDay, point.magnitude, point.error});
        }
        chart.series.push_back(std::move(drawn));
    }
    return chart;
}

// Right ascensions go on where they pass 360 degrees, up to half a circle from the first one of all.
Chart skyChart(const std::vector<MeasuredSeries>& all)
{
    constexpr double circle = 360.0;
    Chart chart;
    chart.xLabel = "right ascension, degrees";
    chart.yLabel = "declination, degrees";
    chart.xFalls = true;
    chart.isPath = true;
    const double origin = all.front().points.front().ra;
    for (const MeasuredSeries& series : all) {
        ChartSeries drawn{titleOf(series)};
        for (const MeasuredPoint& point : series.points) {
            drawn.points.push_back({origin + std::remainder(point.ra - origin, circle), point.de, 0});
        }
        chart.series.push_back(std::move(drawn));
    }
    return chart;
}

// Paths of which no point is left are no series.
template <class ResidualsOf>
Chart residualChart(const std::vector<MeasuredSeries>& all, ResidualsOf&& residualsOfPath)
{
    Chart chart;
    chart.xLabel = "right ascension residual, arcsec";
    chart.yLabel = "declination residual, arcsec";
    chart.hasZero = true;
    for (const MeasuredSeries& series : all) {
        ChartSeries drawn{titleOf(series)};
        for (const Residual& residual : residualsOfPath(series)) {
            drawn.points.push_back({residual.ra, residual.de, 0});
        }
        if (!drawn.points.empty()) {
            chart.series.push_back(std::move(drawn));
        }
    }
    return chart;
}

// What is drawn, and of what.
struct Subject
{
    std::string name; // of the file, as the call has it
    std::string path;
    std::string format;
    std::string kind;
    std::string ephemeris; // its path; empty where there is none
};

MeasuredSeries ephemerisOf(const Subject& subject, const Arguments& arguments)
{
    std::vector<MeasuredSeries> paths = pathsIn(subject.ephemeris, "horizons");
    if (paths.empty()) {
        throw wrongCall("--against", arguments.value("against") + " has no position");
    }
    return std::move(paths.front());
}

Chart residualChart(const std::vector<MeasuredSeries>& all, const Subject& subject,
                    const Arguments& arguments)
{
    if (subject.ephemeris.empty()) {
        const int degree = degreeOf(arguments);
        return residualChart(all, [degree](const MeasuredSeries& path) { return residualsOf(path, degree); });
    }
    const MeasuredSeries ephemeris = ephemerisOf(subject, arguments);
    return residualChart(all, [&](const MeasuredSeries& path) { return residualsOf(path, ephemeris); });
}

std::vector<MeasuredSeries> seriesOf(const Subject& subject, bool isLight)
{
    return isLight ? lightCurvesIn(subject.path, subject.format) : pathsIn(subject.path, subject.format);
}

// Why a picture would be empty: for the ephemeris, which alone leaves out points of series, for what the file
// has nothing of, or for the file itself.
WrongUsage nothingToDraw(const Subject& subject, bool hasSeries, const Arguments& arguments)
{
    if (hasSeries) {
        return wrongCall("--against",
                         arguments.value("against") + " has no positions at the times of " + subject.name);
    }
    if (!seriesOf(subject, subject.kind != "light").empty()) {
        return wrongCall("--kind", std::string("there is nothing to draw for \"") + subject.kind + '"');
    }
    return wrongCall("FILE", subject.name + " has no marks to draw");
}

Chart chartOf(const std::vector<MeasuredSeries>& all, const Subject& subject, const Arguments& arguments)
{
    return subject.kind == "light" ? lightChart(all)
           : subject.kind == "sky" ? skyChart(all)
                                   : residualChart(all, subject, arguments);
}

Drawing drawingOf(const Subject& subject, const Arguments& arguments)
{
    Drawing drawing;
    std::vector<MeasuredSeries> found = seriesOf(subject, subject.kind == "light");
    const bool hasSeries = !found.empty();
    if (hasSeries) {
        const auto all = chosen(std::move(found), arguments.values("object"), drawing);
        drawing.chart = chartOf(all, subject, arguments);
    }
    if (drawing.chart.series.empty()) {
        throw nothingToDraw(subject, hasSeries, arguments);
    }
    for (const ChartSeries& series : drawing.chart.series) {
        drawing.points += series.points.size();
    }
    return drawing;
}

std::string fileName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

// The name of the picture, which a script may lack.
std::string pictureOf(const Arguments& arguments)
{
    const bool isScript = arguments.has("script");
    std::string picture = arguments.value("output", isScript ? "picture.svg" : "");
    if (picture.empty()) {
        throw wrongCall("--output", "is missing: the file that becomes the picture");
    }
    if (!isPictureName(picture)) {
        throw wrongCall("--output", '"' + picture + "\" ends neither in .png nor in .svg");
    }
    return picture;
}

// What the reader of the file lost or misread. Findings are messages here: the data are the picture.
class Losses
{
public:
    Losses(const Subject& subject, const Console& theConsole) : console(theConsole)
    {
        const LintSettings settings;
        lintFile(subject.path, subject.format, settings, [&](Finding found) {
            if (found.severity == Severity::error) {
                add(std::move(found).in(subject.name));
            }
        });
        for (const auto& [code, count] : counts) {
            if (count > most && !console.look.json && !console.look.quiet) {
                showMore(console.err, subject.name, count - most, code);
            }
        }
    }

    int status() const
    {
        return exitStatus(totals);
    }

    void show(JsonDocument& document) const
    {
        document.set("findings", list);
        document.set("totals", totalsJson(totals));
        document.set("exit", status());
    }

private:
    static constexpr std::size_t most = 3;

    void add(const Finding& found)
    {
        totals.add(found);
        if (++counts[found.code] > most) {
            return;
        }
        if (console.look.json) {
            list.push(findingJson(found));
        } else {
            showFinding({console.err, console.err, console.look}, found);
        }
    }

    const Console& console;
    std::map<FindingCode, std::size_t> counts{};
    FindingTotals totals{};
    Json list = Json::list();
};

void showJson(std::ostream& out, const std::string& kind, const std::string& picture,
              const std::string& script, const Drawing& drawing, const Losses& losses)
{
    JsonDocument document(out, "tavelin.plot/1");
    document.set("picture", script.empty() ? Json(picture) : Json());
    document.set("script", script.empty() ? Json() : Json(script));
    document.set("kind", kind);
    document.set("objects", drawing.objects);
    document.set("drawn", drawing.drawn);
    document.set("points", drawing.points);
    losses.show(document);
    document.finish();
}

void showText(std::ostream& out, const std::string& kind, const std::string& picture, const Drawing& drawing)
{
    const std::string objects = drawing.drawn < drawing.objects
                                    ? counted(drawing.drawn) + " of " + counted(drawing.objects, "object")
                                    : counted(drawing.objects, "object");
    out << printable(picture) << ": " << kind << ", " << objects << ", " << counted(drawing.points, "point")
        << '\n';
}

void draw(const Chart& chart, const std::string& picture, const std::vector<std::string>& inputs, bool force)
{
    constexpr std::size_t suffixLength = 4;
    SafeFile file(picture, force, inputs);
    file.write(drawnPicture(picture.substr(picture.size() - suffixLength),
                            [&chart](const std::string& target) { return gnuplotScript(chart, target); }));
    file.commit();
}

Subject subjectOf(const Arguments& arguments, InputFiles& files)
{
    Subject subject;
    subject.name = arguments.operands().front();
    subject.path = files.pathOf(subject.name);
    subject.format = formatOf(subject.name, subject.path, arguments);
    subject.kind = kindOf(arguments, subject.format);
    subject.ephemeris = arguments.has("against") ? files.pathOf(arguments.value("against")) : "";
    return subject;
}

int plot(const Arguments& arguments, const Console& console)
{
    const std::vector<std::string>& operands = arguments.operands();
    if (operands.size() != 1) {
        throw wrongCall("FILE", "one file is wanted");
    }
    const std::string picture = pictureOf(arguments);
    degreeOf(arguments); // a wrong number is told before anything else
    InputFiles files;
    const Subject subject = subjectOf(arguments, files);
    Drawing drawing = drawingOf(subject, arguments);
    const std::vector<ChartSeries>& series = drawing.chart.series;
    drawing.chart.title = fileName(subject.name) + (series.size() == 1 ? ": " + series.front().title : "");
    const std::string script = arguments.has("script") ? gnuplotScript(drawing.chart, picture) : "";
    if (script.empty()) {
        const std::string against = subject.ephemeris.empty() ? subject.path : subject.ephemeris;
        draw(drawing.chart, picture, {subject.path, against}, arguments.has("force"));
    }
    const Losses losses(subject, console);
    if (console.look.json) {
        showJson(console.out, subject.kind, picture, script, drawing, losses);
    } else if (!script.empty()) {
        console.out << script;
    } else if (!console.look.quiet) {
        showText(console.out, subject.kind, picture, drawing);
    }
    return losses.status();
}

} // namespace

const Subcommand plotCommand{
    "plot",
    "FILE",
    "pictures: light curves, paths on the sky, residuals",
    {"tavelin plot night.mag.txt -o light.png", "tavelin plot night.mea --kind residuals -o residuals.svg"},
    options,
    plot,
};

} // namespace companion
