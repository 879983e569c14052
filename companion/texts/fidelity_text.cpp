#include "texts/fidelity_text.h"

#include "conversion.h"
#include "findings/finding.h"
#include "reading/compared_marks.h"
#include "reading/format_facts.h"
#include "reading/mark_comparison.h"
#include "reading/signatures.h"
#include "running/private_folder.h"
#include "task/key_table.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace companion {
namespace {

constexpr double arcseconds = 3600;

// A file of either side of a conversion.
struct ReadFile
{
    std::vector<ComparedMark> marks{};
    std::string station{};    // of its first track
    std::string originator{}; // of its first track
};

ReadFile readFile(const std::string& path, const std::string& format, const std::string& other,
                  ComparedTexts& texts)
{
    ReadFile file;
    MarkGathering gathering(*comparedForm(format), *comparedForm(other), texts);
    bool isFirst = true;
    const auto use = [&](TrueTrack& track) {
        if (std::exchange(isFirst, false)) {
            file.station = track.station;
            file.originator = track.track.originator;
        }
        gathering.add(track);
    };
    readMarks(path, *comparedForm(format), use);
    file.marks = std::move(gathering.marks);
    return file;
}

std::string convertedFile(const std::string& path, const std::string& from, const std::string& to,
                          const ReadFile& source, const std::string& folder)
{
    tavelinUtils::TConvMea task;
    task.path_in = path;
    task.out_dir = folder + "/";
    task.outputextension = ".out";
    task.inputformat = from;
    task.outputformat = to;
    task.originator = source.originator;
    task.PARTICIPANT_1 = source.station;
    task.REFERENCE_FRAME = "ICRF";
    return converter(task, ownWorks()).Description; // the path of the output
}

// Adds up what pairs of marks show.
class PairSum
{
public:
    PairSum(PairFidelity& pairFidelity, bool withPlaces) : sum(pairFidelity), hasPlaces(withPlaces)
    {
    }

    void add(const ComparedPair& pair)
    {
        if (pair.a == nullptr) {
            return;
        }
        ++sum.marks;
        sum.magnitudes += pair.a->hasMagnitude() ? 1U : 0U;
        if (pair.b == nullptr) {
            return;
        }
        ++sum.found;
        sum.keepsStation = sum.keepsStation && pair.a->station == pair.b->station;
        raise(sum.time, pair.difference.time);
        if (hasPlaces) {
            raise(sum.rightAscension, std::remainder(pair.b->RA - pair.a->RA, 360.0) * arcseconds);
            raise(sum.declination, (pair.b->DE - pair.a->DE) * arcseconds);
        }
        if (pair.difference.inKnownMagnitude) {
            ++sum.magnitudesLost;
        } else {
            raise(sum.magnitude, pair.difference.magnitude);
        }
    }

private:
    static void raise(double& most, double value)
    {
        most = std::max(most, std::abs(value));
    }

    PairFidelity& sum;
    bool hasPlaces;
};

// A value of marks in a cell of the table.
struct Value
{
    const char* unit;
    double FormatFacts::*step;
    std::string_view FormatFacts::*text;
    double PairFidelity::*off;
};

constexpr Value values[] = {
    {" s", &FormatFacts::timeStep, &FormatFacts::time, &PairFidelity::time},
    {"\"", &FormatFacts::rightAscensionStep, &FormatFacts::rightAscension, &PairFidelity::rightAscension},
    {"\"", &FormatFacts::declinationStep, &FormatFacts::declination, &PairFidelity::declination},
    {"", &FormatFacts::magnitudeStep, &FormatFacts::magnitude, &PairFidelity::magnitude},
};

// "0.43" of a number above 0: two significant digits, which are the same on every machine.
std::string twoDigits(double value)
{
    const int decimals = static_cast<int>(std::ceil(-std::log10(value) - 1e-6)) + 1;
    return tavelinUtils::Str9(value, std::clamp(decimals, 0, 9));
}

// What a format says of its digits, without how it comes to them: "0.001 s".
std::string digitsText(std::string_view text)
{
    return std::string(text.substr(0, std::min(text.find_first_of(",;"), text.find(" written"))));
}

// All digits of the input are there where half of its last one is not reached.
std::string cellOf(const Value& value, const PairFidelity& sum, const FormatFacts& from,
                   const FormatFacts& to)
{
    constexpr double hair = 1e-7;
    if (to.*value.text == "none") {
        return "no";
    }
    const double off = sum.*value.off;
    if (off <= std::max(from.*value.step / 2 - hair, 0.0)) {
        return "all";
    }
    const std::string how = off <= to.*value.step / 2 + hair ? "" : "cut, ";
    return digitsText(to.*value.text) + " (" + how + "off by " + twoDigits(off) + value.unit + ")";
}

std::string magnitudeCell(const PairFidelity& sum, const FormatFacts& from, const FormatFacts& to)
{
    return sum.magnitudes > 0 && sum.magnitudesLost == sum.magnitudes ? "no"
                                                                      : cellOf(values[3], sum, from, to);
}

std::string marksCell(const PairFidelity& sum)
{
    return sum.found == sum.marks ? "all" : counted(sum.found);
}

std::string rowOf(const std::string& to, const PairFidelity& sum, const FormatFacts& from)
{
    const FormatFacts& facts = *formatFacts(to);
    std::string row = "| `" + to + "` | " + marksCell(sum);
    for (std::size_t i = 0; i < 3; ++i) {
        row += " | " + cellOf(values[i], sum, from, facts);
    }
    row += " | " + magnitudeCell(sum, from, facts);
    row += std::string(" | ") + (sum.keepsStation ? "yes" : "no");
    return row + " |\n";
}

constexpr const char* front = R"(# What conversions keep

Which field of a mark survives which conversion, and to how many digits. This page is measured: its program
converts real nights with the tool, reads each output as it is meant, and holds it against its input mark by mark,
as [`tavelin diff`](companion/diff.md) does. `scripts/make_companion_texts` makes it anew and the tests fail where
it has become another.

*all* says that every digit which the nights have comes back. Otherwise the cell says which digits the output has,
and by how much the worst mark is off; *cut* where that is more than half of the last digit: a time in MEA is cut and
not rounded, and of an SSMAS file the tool reads whole arcseconds. *no* says that the output has no such field, or not
the one of the input: the tool writes the station 500 into a report in 80 columns, and into an AAVSO report an
ensemble magnitude, which none of these inputs has. Marks count as kept where they are found under the name of their
object.

Bands are not in the tables, since no input has them; `mpc` and `aavso` say R of every mark. The frame of `tdm` and
`tdm.xml` is that of the task, whatever the input says.

)";

// With "102 nights, 3,241 marks."
std::string titleOf(const std::string& from, std::size_t files, std::size_t marks)
{
    return "## From `" + from + "`\n\n" + counted(files, "night") + ", " + counted(marks, "mark") +
           ".\n\n"
           "| To | Marks | Time | Right ascension | Declination | Magnitude | Station |\n"
           "|---|---|---|---|---|---|---|\n";
}

std::string sectionOf(const std::string& from, const std::vector<std::string>& paths)
{
    std::string rows;
    std::size_t marks = 0;
    for (const std::string& to : outputWords()) {
        PairFidelity sum;
        for (const std::string& path : paths) {
            addFidelity(path, from, to, sum);
        }
        marks = sum.marks;
        rows += rowOf(to, sum, *formatFacts(from));
    }
    return titleOf(from, paths.size(), marks) + rows;
}

} // namespace

void addFidelity(const std::string& path, const std::string& from, const std::string& to, PairFidelity& sum)
{
    const PrivateFolder folder;
    ComparedTexts texts;
    ReadFile source = readFile(path, from, to, texts);
    const std::string output = convertedFile(path, from, to, source, folder.path());
    ReadFile copy = readFile(output, to, from, texts);
    MarkTolerance tolerance = toleranceOf(*formatFacts(from), *formatFacts(to));
    tolerance.time *= 2; // a time that is cut is off by up to its last digit
    const ComparedForm& form = *comparedForm(to);
    PairSum pairs(sum, form.hasPlaces);
    MarkComparison(*comparedForm(from), form, tolerance, texts)
        .byObject(source.marks, copy.marks, [&pairs](const ComparedPair& pair) { pairs.add(pair); });
}

std::string fidelityPage(const std::vector<std::string>& paths)
{
    std::map<std::string, std::vector<std::string>> files; // by word
    for (const std::string& path : paths) {
        files[recognisedFile(path).format].push_back(path);
    }
    std::string page = front;
    for (const std::string& from : inputWords()) {
        page += (page.ends_with("|\n") ? "\n" : "") + sectionOf(from, files[from]);
    }
    return page;
}

} // namespace companion
