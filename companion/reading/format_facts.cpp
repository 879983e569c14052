#include "reading/format_facts.h"

#include <algorithm>

namespace companion {
namespace {

constexpr std::string_view inFull = "as many digits as the file gives";
constexpr std::string_view none = "none";

constexpr double julianDateStep = 86400.0 * 1e-7;
constexpr double arcsecondsOfTimeSecond = 15.0;

constexpr FormatFacts rows[] = {
    {"mea", "A site line, then a line for each mark; a task reads and writes it.",
     "lines of seven words: name, three groups of digits without points, the declination with or without its "
     "sign, a number, a magnitude",
     "0.001 s, cut", "0.0001 s of time, rounded", "0.0001 arcseconds, rounded; a positive one has no sign",
     "0.01", "without blanks; those of more than seven characters move the rest of the line",
     "lines of seven words after the first line", "docs/formats/mea.md", 0.001,
     0.0001 * arcsecondsOfTimeSecond, 0.0001, 0.01},
    {"telegram",
     "For each object a head line, a line for each mark, and a closing line; a task reads and writes it.",
     "heads of three words, marks of five groups of digits, END after each object", "0.01 s, rounded",
     "0.01 s of time, rounded", "0.01 arcseconds, rounded; a positive one has no sign",
     "0.1; not below 0, from 9.95 to 10, or from 100 on", "without blanks",
     "lines of five words between a head and the line that closes it", "docs/formats/telegram.md", 0.01,
     0.01 * arcsecondsOfTimeSecond, 0.01, 0.1},
    {"tdm", "A message of keys and values, a segment for each track; a task reads and writes it.",
     "its first key, CCSDS_TDM_VERS", "0.00001 s, rounded", "0.0000001 degrees, rounded",
     "0.0000001 degrees, rounded", "0.0001", "any, blanks inside too", "lines that begin with \"MAG = \"",
     "docs/formats/tdm.md", 0.00001, 0.00036, 0.00036, 0.0001},
    {"ssmas",
     "A report of satellites: three lines of its own, then a block for each object; a task reads and writes "
     "it.",
     "the line Measurements and the titles #SSMAS", "0.01 s, rounded", "0.01 s of time, rounded",
     "0.01 arcseconds written, whole arcseconds read", "0.1; a negative one is read as 0", "without blanks",
     "lines of seven fields between an object and the next number", "docs/formats/ssmas.md", 0.01,
     0.01 * arcsecondsOfTimeSecond, 1.0, 0.1},
    {"mpc", "A report in 80 columns: header lines, then a line for each mark; a task only writes it.",
     "lines of 79 to 81 columns with a date, two angles and a station at their places",
     "0.00001 days, rounded", "0.01 s of time, rounded",
     "0.1 arcseconds, rounded; a positive one has no sign", "0.1",
     "at most 12 characters; those of five stand where a permanent number has its place",
     "lines other than header lines", "docs/formats/mpc_report.md", 0.864, 0.01 * arcsecondsOfTimeSecond, 0.1,
     0.1},
    {"tdm.xml", "The message TDM as an XML document; a task only writes it.", "its root element, tdm",
     "0.00001 s, rounded", "0.0000001 degrees, rounded", "0.0000001 degrees, rounded", "0.0001",
     "any, blanks inside too", "elements MAG", "docs/formats/tdm_xml.md", 0.00001, 0.00036, 0.00036, 0.0001},
    {"mag", "A table of brightness over time; a task only writes it.",
     "its column line, which begins with JD and names apparent, ensemble and instrumental magnitudes",
     "0.0000001 days, rounded", none, none, "0.00001", "without tabs", "lines after the column line",
     "docs/formats/light_curve.md", julianDateStep, 0.0, 0.0, 0.00001},
    {"aavso",
     "A report of brightness of variable stars: header lines, then a line for each mark; a task only writes "
     "it.",
     "the line #TYPE=Extended", "0.0000001 days, rounded", none, none, "0.001", "without commas",
     "lines that do not begin with #", "docs/formats/aavso.md", julianDateStep, 0.0, 0.0, 0.001},
    {"table",
     "A table of tracks with a typed header; multi-series reports read it, and the library writes it.",
     "the line v2 and a header of names and types", "0.0000001 s", "0.000001 degrees", "0.000001 degrees",
     "0.0001", "without tabs", "lines after the header other than ---", "docs/formats/track_table.md",
     0.0000001, 0.0036, 0.0036, 0.0001},
    {"ades.xml",
     "Astrometry in the exchange format of the Minor Planet Center, as XML; tasks neither read nor write it.",
     "its root element, ades", inFull, inFull, inFull, inFull, "any", "elements optical",
     "docs/companion/info.md", 0.0, 0.0, 0.0, 0.0},
    {"ades.psv", "The same in lines with vertical bars; tasks neither read nor write it.",
     "lines with vertical bars below a line # version=", inFull, inFull, inFull, inFull, "any",
     "lines with vertical bars that do not name columns", "docs/companion/info.md", 0.0, 0.0, 0.0, 0.0},
    {"horizons", "A computed path of one object; the library reads it, tasks do not.",
     "the lines $$SOE and $$EOE", inFull, inFull, inFull, inFull, none, "lines between $$SOE and $$EOE",
     "docs/formats/horizons.md", 0.0, 0.0, 0.0, 0.0},
    {"elements", "Orbits of satellites in two lines each, or three; the library reads them, tasks do not.",
     "pairs of lines of 69 columns that begin with 1 and 2", none, none, none, none, "24 characters", none,
     "docs/formats/element_sets.md", 0.0, 0.0, 0.0, 0.0},
    {"task", "What one run of the tool is to do.", "XML with the keys of a task", none, none, none, none,
     none, none, "docs/task_file.md", 0.0, 0.0, 0.0, 0.0},
    {"configuration",
     "The settings of a series, which a multi-series report looks for beside its track table.",
     "XML with the sections of a configuration", none, none, none, none, none, none, "docs/configuration.md",
     0.0, 0.0, 0.0, 0.0},
    {"result", "How a run ended: an XML document, or a log of one line for each run.",
     "the root element ResultsList, or lines with a time and Code=", none, none, none, none, none, none,
     "docs/result_file.md", 0.0, 0.0, 0.0, 0.0},
};

} // namespace

std::span<const FormatFacts> formatFactsTable()
{
    return rows;
}

const FormatFacts* formatFacts(std::string_view name)
{
    const auto* const row = std::find_if(std::begin(rows), std::end(rows),
                                         [name](const FormatFacts& each) { return each.name == name; });
    return row == std::end(rows) ? nullptr : row;
}

double writtenDeclinationStep(const FormatFacts& facts)
{
    constexpr double stepOfSsmas = 0.01;
    return facts.name == "ssmas" ? stepOfSsmas : facts.declinationStep;
}

} // namespace companion
