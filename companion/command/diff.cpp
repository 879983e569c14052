#include "command/diff_lines.h"
#include "command/diff_tolerance.h"
#include "command/finding_codes.h"
#include "command/measurement_files.h"
#include "command/subcommands.h"
#include "out/finding_json.h"
#include "out/json.h"
#include "out/progress.h"
#include "reading/account_text.h"
#include "reading/input_files.h"
#include "reading/mark_comparison.h"
#include "reading/signatures.h"

#include <algorithm>
#include <map>
#include <optional>
#include <ostream>
#include <utility>

namespace companion {
namespace {

constexpr OptionRow options[] = {
    {"tolerance", 0, "TOLERANCE",
     "how far marks may differ: auto, half of the last digit of the coarser format; exact; or a file"},
    {"time", 0, "T", "two marks belong together up to this time apart: 0.5, 500ms, 1m"},
    {"angle", 0, "A", "they are the same up to this angle: 0.5, 500mas, 1arcmin"},
    {"magnitude", 0, "VALUE", "they are the same up to this difference of magnitudes"},
    {"by", 0, "object|position",
     "marks of equal objects belong together, or those that are nearest on the sky"},
    {"as", 0, "FORMAT",
     "the format of both files, instead of those that their contents show; given again, that of the second"},
    {"changes", 'c', nullptr, "leave out the marks that are the same"},
    {"sums", 's', nullptr, "show the sums only"},
};

// One of the two files.
struct DiffFile
{
    std::string name;
    std::string path;
    const FormatFacts* facts = nullptr;
    const ComparedForm* form = nullptr;
    std::vector<ComparedMark> marks{};
    std::size_t count = 0; // of the marks
};

// What became of the marks.
struct DiffSums
{
    std::size_t equal = 0;
    std::size_t different = 0;
    std::size_t onlyInA = 0;
    std::size_t onlyInB = 0;

    void add(const ComparedPair& pair)
    {
        std::size_t& sum = pair.b == nullptr   ? onlyInA
                           : pair.a == nullptr ? onlyInB
                           : pair.isEqual()    ? equal
                                               : different;
        ++sum;
    }

    bool isSame() const
    {
        return different + onlyInA + onlyInB == 0;
    }
};

// The formats that a call gives to the two files; empty where their contents are to tell.
std::pair<std::string, std::string> givenFormats(const Arguments& arguments)
{
    std::vector<std::string> given = arguments.values("as");
    if (given.size() > 2) {
        throw wrongCall("--as", "is taken twice at most: there are two files");
    }
    std::transform(given.begin(), given.end(), given.begin(), knownFormat);
    return given.empty() ? std::pair<std::string, std::string>() : std::pair(given.front(), given.back());
}

std::string formatOf(const std::string& name, const std::string& path)
{
    const Recognition recognition = recognisedFile(path);
    if (!recognition.isSure()) {
        Finding why = uncertainFormat(name, recognition);
        why.text = name + ": " + why.text;
        throw WrongUsage{why};
    }
    return recognition.format;
}

DiffFile diffFile(const std::string& name, const std::string& path, const std::string& given)
{
    const std::string format = given.empty() ? formatOf(name, path) : given;
    DiffFile file{name, path, formatFacts(format), comparedForm(format)};
    if (file.form == nullptr) {
        const std::string what = "the format is " + formatTitle(format) + ", which has no marks to compare";
        throw WrongUsage{finding("V003", {{"file", name}, {"what", what}})};
    }
    return file;
}

void mustHavePlaces(const DiffFile& file)
{
    if (!file.form->hasPlaces) {
        throw wrongCall("--by position", file.name + " is of the format " + formatTitle(file.form->format) +
                                             ", which has no places");
    }
}

// Reads the marks of a file; gives what was found.
std::vector<Finding> readFile(DiffFile& file, const ComparedForm& other, ComparedTexts& texts)
{
    MarkGathering gathering(*file.form, other, texts);
    const auto use = [&gathering](TrueTrack& track) { gathering.add(track); };
    TrueOutcome outcome = readMarks(file.path, *file.form, use);
    file.marks = std::move(gathering.marks);
    file.count = file.marks.size();
    for (Finding& found : outcome.findings) {
        found.file = file.name;
    }
    return std::move(outcome.findings);
}

// Shows what a call asks for.
class Presentation
{
public:
    Presentation(const Arguments& arguments, const Console& theConsole)
        : console(theConsole), changesOnly(arguments.has("changes")),
          sumsOnly(arguments.has("sums") || console.look.quiet)
    {
        if (console.look.json) {
            document.emplace(console.out, "tavelin.diff/1");
        }
    }

    void begin(const DiffFile& a, const DiffFile& b, const DiffLines& lines)
    {
        if (document) {
            document->openList("files");
            document->element(fileJson(a));
            document->element(fileJson(b));
            document->closeList();
            document->set("tolerance", lines.toleranceJson());
            document->openList("marks");
        } else if (console.look.verbose) {
            console.out << printable(a.name) << ": " << formatTitle(a.form->format) << ", "
                        << counted(a.count, "mark") << '\n'
                        << printable(b.name) << ": " << formatTitle(b.form->format) << ", "
                        << counted(b.count, "mark") << '\n'
                        << "tolerance: " << lines.toleranceText() << '\n';
        }
    }

    void add(const ComparedPair& pair, const DiffLines& lines)
    {
        sums.add(pair);
        if (sumsOnly || (changesOnly && pair.isEqual())) {
            return;
        }
        if (document) {
            document->element(lines.json(pair));
        } else {
            console.out << lines.text(pair) << '\n';
        }
    }

    // Findings are messages here: the data are the marks.
    void addFindings(const std::string& name, const std::vector<Finding>& all)
    {
        constexpr std::size_t most = 3;
        std::map<FindingCode, std::size_t> counts;
        for (const Finding& each : all) {
            totals.add(each);
            if (++counts[each.code] > most) {
                continue;
            }
            if (document) {
                findings.push_back(findingJson(each));
            } else {
                showFinding({console.err, console.err, console.look}, each);
            }
        }
        for (const auto& [code, count] : counts) {
            if (count > most) {
                tellMore(name, code, count - most);
            }
        }
    }

    int finish(const DiffFile& a, const DiffFile& b)
    {
        const int status = sums.isSame() ? exitStatus(totals) : 1;
        if (document) {
            finishDocument(status);
        } else {
            console.out << printable(a.name) << ' ' << printable(b.name) << ": " << counted(sums.equal)
                        << " equal, " << counted(sums.different)
                        << (sums.different == 1 ? " differs, " : " differ, ") << counted(sums.onlyInA)
                        << " only in " << printable(a.name) << ", " << counted(sums.onlyInB) << " only in "
                        << printable(b.name) << (totals.errors > 0 ? "; " + briefTotals(totals) : "") << '\n';
        }
        return status;
    }

private:
    static Json fileJson(const DiffFile& file)
    {
        Json object = Json::object();
        setBytes(object, "file", file.name);
        return object.set("format", file.form->format).set("marks", file.count);
    }

    void tellMore(const std::string& name, FindingCode code, std::size_t count)
    {
        if (document) {
            Json object = Json::object();
            setBytes(object, "file", name);
            more.push_back(object.set("code", code.text()).set("count", count));
        } else if (!console.look.quiet) {
            showMore(console.err, name, count, code);
        }
    }

    void finishDocument(int status)
    {
        document->closeList();
        document->openList("findings");
        for (const Json& each : findings) {
            document->element(each);
        }
        document->closeList();
        document->openList("more");
        for (const Json& each : more) {
            document->element(each);
        }
        document->closeList();
        document->set("sums", Json::object()
                                  .set("equal", sums.equal)
                                  .set("different", sums.different)
                                  .set("only_in_a", sums.onlyInA)
                                  .set("only_in_b", sums.onlyInB));
        document->set("totals", totalsJson(totals));
        document->set("exit", status);
        document->finish();
    }

    const Console& console;
    bool changesOnly;
    bool sumsOnly;
    std::optional<JsonDocument> document{};
    std::vector<Json> findings{};
    std::vector<Json> more{};
    FindingTotals totals{};
    DiffSums sums{};
};

std::pair<std::string, std::string> twoFiles(const Arguments& arguments)
{
    const std::vector<std::string>& operands = arguments.operands();
    if (operands.size() != 2) {
        throw wrongCall("diff", "takes two files");
    }
    return {operands[0], operands[1]};
}

int diff(const Arguments& arguments, const Console& console)
{
    const auto [nameOfA, nameOfB] = twoFiles(arguments);
    const auto [formatOfA, formatOfB] = givenFormats(arguments);
    const bool isByPosition = arguments.value("by") == "position";
    InputFiles files;
    DiffFile a = diffFile(nameOfA, files.pathOf(nameOfA), formatOfA);
    DiffFile b = diffFile(nameOfB, files.pathOf(nameOfB), formatOfB);
    if (isByPosition) {
        mustHavePlaces(a);
        mustHavePlaces(b);
    }
    const MarkTolerance tolerance = wantedTolerance(arguments, *a.facts, *b.facts, files);

    ComparedTexts texts;
    Progress progress(console, "files", 2);
    const std::vector<Finding> foundInA = readFile(a, *b.form, texts);
    progress.at(1);
    const std::vector<Finding> foundInB = readFile(b, *a.form, texts);
    progress.wipe();

    Presentation shown(arguments, console);
    shown.addFindings(a.name, foundInA);
    shown.addFindings(b.name, foundInB);
    const DiffLines lines(*a.facts, *b.facts, tolerance, texts);
    shown.begin(a, b, lines);
    const MarkComparison comparison(*a.form, *b.form, tolerance, texts);
    const auto use = [&shown, &lines](const ComparedPair& pair) { shown.add(pair, lines); };
    isByPosition ? comparison.byPosition(a.marks, b.marks, use) : comparison.byObject(a.marks, b.marks, use);
    return shown.finish(a, b);
}

} // namespace

const Subcommand diffCommand{"diff",
                             "A B",
                             "two measurement files, mark by mark, across formats",
                             {"tavelin diff night.mea night.tdm", "tavelin diff -c report.tdm report.txt"},
                             options,
                             diff};

} // namespace companion
