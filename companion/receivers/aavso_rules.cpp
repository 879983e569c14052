#include "receivers/aavso_rules.h"

#include "base/numbers.h"
#include "out/characters.h"
#include "receivers/rule_tally.h"
#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

using namespace tavelinUtils;

namespace companion {
namespace {

constexpr std::string_view filters[] = {"U",   "B",     "V",     "RJ", "IJ",  "R",  "I",   "J",   "H",
                                        "K",   "SU",    "SG",    "SR", "SI",  "SZ", "STU", "STV", "STB",
                                        "STY", "STHBW", "STHBN", "MA", "MB",  "MI", "ZS",  "Y",   "TB",
                                        "TG",  "TR",    "CV",    "CR", "CBB", "HA", "HAC"};

constexpr std::string_view placeholders[] = {"AAVSO", "CODEAAVSO", "N/A", "NA", "NONE"};

constexpr std::size_t nameLength = 30;
constexpr std::size_t magnitudeLength = 8;
constexpr std::size_t fieldCount = 15;

// By the codes of their findings.
enum Rule : std::size_t
{
    comma,
    tooLong,
    badMagnitude,
    badError,
    badText,
    badName,
    noMagnitude,
    badFilter,
    badFileName
};

bool isKind(std::string_view word)
{
    const std::string kind = upper(word);
    return kind == "STD" || kind == "DIF" || kind == "ABS";
}

bool isThere(std::string_view text)
{
    return !text.empty();
}

bool isAnything(std::string_view /*text*/)
{
    return true;
}

// A text of each mark, which mostly is that of the mark before.
struct TextField
{
    const char* name;
    std::size_t longest;
    bool (*isTaken)(std::string_view text);
    const char* wanted;
};
constexpr TextField textFields[] = {
    {"MTYPE", 3, isKind, "STD, DIF or ABS is wanted"},
    {"KNAME", 20, isAnything, ""}, // counted by itself where it is empty
    {"CHART", 20, isThere, "empty, where na is wanted"},
};

// The filters of the first track's marks, which the lines of all tracks get. Equal neighbours are one run.
class FirstFilters
{
public:
    void add(std::string_view filter)
    {
        if (runs.empty() || runs.back().filter != filter) {
            runs.push_back({std::string(filter), 0});
        }
        runs.back().end = ++rows;
    }

    // Goes to the first row.
    void rewind()
    {
        row = 0;
        run = 0;
    }

    // The filter of the next row; after the last the given one.
    std::string_view next(std::string_view otherwise)
    {
        if (row == rows) {
            return otherwise;
        }
        const std::string_view filter = runs[run].filter;
        if (++row == runs[run].end) {
            ++run;
        }
        return filter;
    }

private:
    struct Run
    {
        std::string filter;
        std::size_t end; // the row after its last
    };

    std::vector<Run> runs;
    std::size_t rows = 0;
    std::size_t row = 0;
    std::size_t run = 0;
};

class AavsoTrackRules : public TrackRules
{
public:
    void openFile(const std::string& path) override
    {
        headed = false;
        firstFilters = {};
        if (!isAavsoFileName(path) && tally.count(badFileName)) {
            const std::string what = "the name of " + path + " ends in none of .txt, .csv and .tsv";
            tally.keep(badFileName, finding("V364", {{"what", what}}), {});
        }
    }

    void add(const TrackVtorichka& track) override
    {
        if (!headed) {
            headed = true;
            for (const TRecLabelPervichka_File& mark : track.Marks) {
                firstFilters.add(mark.filtr);
            }
        }
        if (track.Marks.empty()) {
            return;
        }
        firstFilters.rewind();
        lookAtName(track);
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            lookAtNumbers(track, index);
            lookAtFilter(track, index);
            lookAtTexts(track, index);
        }
    }

    std::vector<Finding> findings() const override
    {
        return tally.findings();
    }

    std::vector<Finding> findingsOfForm() const override
    {
        if (withoutCheckStar == 0) {
            return {};
        }
        return {finding("V363", {{"field", "KNAME"}, {"text", ""}, {"why", "empty, where na is wanted"}})
                    .times(withoutCheckStar)};
    }

private:
    void tell(Rule rule, const TrackVtorichka& track, std::size_t mark, FindingCode code,
              FindingValues values)
    {
        if (tally.count(rule)) {
            tally.keep(rule, finding(code, values), placeOf(track, mark));
        }
    }

    void lookAtName(const TrackVtorichka& track)
    {
        const std::string& name = track.QRVName;
        const auto tellOfName = [&](Rule rule, const Finding& found) {
            if (tally.count(rule, track.Marks.size())) {
                tally.keep(rule, found, placeOf(track, 0));
            }
        };
        if (name.find(',') != std::string::npos) {
            tellOfName(comma, commaIn("NAME", name));
        }
        if (name.size() > nameLength) {
            tellOfName(tooLong, tooLongField("NAME", name, nameLength));
        }
        if (name.empty() || name.starts_with('#')) {
            const char* const why = name.empty() ? "a name is wanted" : "the line is taken for a comment";
            tellOfName(badName, finding("V361", {{"field", "NAME"}, {"text", name}, {"why", why}}));
        }
    }

    static Finding commaIn(const std::string& field, const std::string& text)
    {
        const auto commas = static_cast<std::size_t>(std::count(text.begin(), text.end(), ','));
        return finding("V360",
                       {{"n", std::to_string(fieldCount + commas)}, {"field", field}, {"text", text}});
    }

    static Finding tooLongField(const std::string& field, const std::string& text, std::size_t longest)
    {
        return finding("V361",
                       {{"field", field},
                        {"text", text},
                        {"why", counted(text.size(), "character") + ", at most " + std::to_string(longest)}});
    }

    void lookAtNumbers(const TrackVtorichka& track, std::size_t index)
    {
        const TRecLabelPervichka_File& mark = track.Marks[index];
        const double magnitude = mark.mEnsemble;
        const bool isUsual =
            magnitude > 0.001 && magnitude < 999.0 && mark.SNRpeak > 1.001 && mark.SNRpeak < 1e9;
        if (isUsual) {
            return;
        }
        const std::string text = Str9(magnitude, 3);
        if (text == "0.000" || text == "-0.000") {
            tell(noMagnitude, track, index, "V362", {});
        } else if (!std::isfinite(magnitude)) {
            tell(badMagnitude, track, index, "V361",
                 {{"field", "MAG"}, {"text", text}, {"why", "a number is wanted"}});
        } else if (text.size() > magnitudeLength && tally.count(badMagnitude)) {
            tally.keep(badMagnitude, tooLongField("MAG", text, magnitudeLength), placeOf(track, index));
        }
        lookAtError(track, index);
    }

    // One that is in its range is not too long either.
    void lookAtError(const TrackVtorichka& track, std::size_t index)
    {
        const double error = 1.0 / track.Marks[index].SNRpeak;
        const std::string text = Str9(error, 4);
        const bool isInRange = std::isfinite(error) && !text.starts_with('-') && toDouble(text) < 1.0;
        if (!isInRange) {
            tell(badError, track, index, "V361",
                 {{"field", "MAGERR"},
                  {"text", text},
                  {"why", "a number from 0 to below 1 is wanted, or na"}});
        }
    }

    void lookAtFilter(const TrackVtorichka& track, std::size_t index)
    {
        const std::string_view filter = firstFilters.next(track.Marks[index].filtr);
        if (filter != lastFilter || !hasFilter) {
            hasFilter = true;
            lastFilter = filter;
            isFilter = isAavsoFilter(filter);
        }
        if (isFilter) {
            return;
        }
        tell(badFilter, track, index, "V363",
             {{"field", "FILT"}, {"text", lastFilter}, {"why", "not in the receiver's list"}});
        lookForComma(track, index, "FILT", lastFilter);
    }

    void lookAtTexts(const TrackVtorichka& track, std::size_t index)
    {
        const TRecLabelPervichka_File& mark = track.Marks[index];
        const std::string_view texts[] = {mark.MTYPE, mark.KNAME, mark.CHART};
        if (texts[1].empty()) {
            ++withoutCheckStar;
        }
        for (std::size_t place = 0; place < std::size(textFields); ++place) {
            const bool isKnown = goodTexts[place] == texts[place];
            if (!isKnown && lookAtText(track, index, textFields[place], std::string(texts[place]))) {
                goodTexts[place] = texts[place];
            }
        }
    }

    // False where the text breaks a rule.
    bool lookAtText(const TrackVtorichka& track, std::size_t index, const TextField& field,
                    const std::string& text)
    {
        const bool hasComma = lookForComma(track, index, field.name, text);
        const bool isTooLong = text.size() > field.longest;
        const bool isWrong = !field.isTaken(text);
        if (isWrong) {
            tell(badText, track, index, "V361",
                 {{"field", field.name}, {"text", text}, {"why", field.wanted}});
        } else if (isTooLong && tally.count(tooLong)) {
            tally.keep(tooLong, tooLongField(field.name, text, field.longest), placeOf(track, index));
        }
        return !hasComma && !isTooLong && !isWrong;
    }

    bool lookForComma(const TrackVtorichka& track, std::size_t index, const std::string& field,
                      const std::string& text)
    {
        if (text.find(',') == std::string::npos) {
            return false;
        }
        if (tally.count(comma)) {
            tally.keep(comma, commaIn(field, text), placeOf(track, index));
        }
        return true;
    }

    RuleTally tally;
    std::size_t withoutCheckStar = 0;
    bool headed = false;
    FirstFilters firstFilters;
    std::string lastFilter;
    bool hasFilter = false;
    bool isFilter = false;
    std::array<std::optional<std::string>, std::size(textFields)> goodTexts; // the last ones, by field
};

} // namespace

bool isAavsoFilter(std::string_view word)
{
    return std::find(std::begin(filters), std::end(filters), upper(word)) != std::end(filters);
}

bool isObserverCode(std::string_view code)
{
    const std::string word = upper(code);
    return !code.empty() &&
           std::find(std::begin(placeholders), std::end(placeholders), word) == std::end(placeholders);
}

std::optional<char> aavsoDelimiter(std::string_view value)
{
    const std::string word = upper(value);
    char delimiter = ' ';
    if (word == "COMMA" || word == "TAB") {
        delimiter = word == "TAB" ? '\t' : ',';
    } else if (value.size() == 1) {
        delimiter = value[0];
    } else if (std::all_of(value.begin(), value.end(), isDigit)) {
        const double code = toDouble(value);
        delimiter = code > 32.0 && code <= 126.0 ? static_cast<char>(code) : ' ';
    }
    return delimiter == '#' || delimiter == ' ' ? std::nullopt : std::optional(delimiter);
}

bool isAavsoFileName(const std::string& path)
{
    const std::string name = upper(path.substr(path.rfind('/') + 1));
    return name.ends_with(".TXT") || name.ends_with(".CSV") || name.ends_with(".TSV");
}

std::unique_ptr<TrackRules> aavsoTrackRules()
{
    return std::make_unique<AavsoTrackRules>();
}

} // namespace companion
