#include "task/task_checks.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "file_names.h"
#include "format_words.h"
#include "out/characters.h"
#include "out/text.h"
#include "reading/brightness_reading.h"
#include "report_divisions.h"
#include "task/key_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <string_view>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

constexpr std::string_view blanks = " \t\n\v\f\r";

std::string inQuotes(std::string_view text)
{
    return '"' + printable(text) + '"';
}

// The findings of one task.
class Report
{
public:
    Report(const TaskDocument& ofTask, const TConvMea& theTask) : document(ofTask), task(theTask)
    {
    }

    void add(Finding found, SourcePlace place)
    {
        all.push_back(findingAt(document, place, std::move(found)));
    }

    // At the first key of the name, or without a place where there is none.
    void addAt(std::string_view key, Finding found)
    {
        all.push_back(atKey(document, std::move(found), key));
    }

    void addInSeria(std::size_t number, std::string_view key, Finding found)
    {
        all.push_back(atKeyOfSeria(document, std::move(found), number, key));
    }

    const TaskDocument& document;
    const TConvMea& task;
    std::vector<Finding> all{};
};

// Keys.

// The table to which a key does not belong here tells where it counts.
std::string questionOf(std::string_view name, bool inSeria)
{
    const auto here = inSeria ? seriaKeyTable() : taskKeyTable();
    const auto elsewhere = inSeria ? taskKeyTable() : seriaKeyTable();
    if (keyOf(elsewhere, name) != nullptr) {
        return inSeria ? ", which counts below the root" : ", which counts in a seria";
    }
    return nearestQuestion(name, namesOf(here));
}

void findUnknownKey(Report& report, const DocumentKey& key, bool inSeria)
{
    report.add(finding("V020", {{"key", printable(key.name)}, {"question", questionOf(key.name, inSeria)}}),
               key.place);
}

void findBlanks(Report& report, const DocumentKey& key, const TaskKey& row)
{
    const bool isWhole = row.type == KeyType::text || row.type == KeyType::words;
    const std::string_view inner = trimmed(key.value, blanks);
    if (!isWhole || key.first != FirstNode::text || inner.empty() || inner.size() == key.value.size()) {
        return;
    }
    const bool atFront = inner.data() != key.value.data();
    const bool atEnd = inner.data() + inner.size() != key.value.data() + key.value.size();
    report.add(finding("V022",
                       {{"key", key.name}, {"where", atFront ? (atEnd ? "front and end" : "front") : "end"}}),
               key.place);
}

// A known key in a key.
const DocumentKey* innerKey(const DocumentKey& key)
{
    const auto inner = std::find_if(key.children.begin(), key.children.end(), [](const DocumentKey& child) {
        return keyOf(taskKeyTable(), child.name) != nullptr || keyOf(seriaKeyTable(), child.name) != nullptr;
    });
    return inner == key.children.end() ? nullptr : &*inner;
}

void findInnerKey(Report& report, const DocumentKey& key)
{
    if (const DocumentKey* const inner = innerKey(key)) {
        report.add(finding("V029", {{"key", printable(key.name)}, {"inner", inner->name}}), inner->place);
    }
}

void findOtherThanText(Report& report, const DocumentKey& key)
{
    const bool isTold = key.first == FirstNode::element && innerKey(key) != nullptr;
    if (key.first == FirstNode::none || key.first == FirstNode::text || isTold) {
        return;
    }
    const std::string what = key.first == FirstNode::comment   ? "a comment"
                             : key.first == FirstNode::element ? "an element"
                                                               : "something that is no text";
    report.add(finding("V023", {{"key", key.name}, {"what", what}}), key.place);
}

void findEmptyValue(Report& report, const DocumentKey& key, const TaskKey& row)
{
    if (key.first == FirstNode::none) {
        const std::string_view stays = row.ofNone.empty() ? "no text" : row.ofNone;
        report.add(finding("V024", {{"key", key.name}, {"default", std::string(stays)}}), key.place);
    }
}

// Values.

bool isText(const DocumentKey& key)
{
    return key.first == FirstNode::text;
}

void findFalseTruth(Report& report, const DocumentKey& key, const TaskKey& row)
{
    if (row.type == KeyType::boolean && isText(key) && key.value != "true" && key.value != "false") {
        report.add(finding("V025", {{"key", key.name}, {"value", printable(key.value)}}), key.place);
    }
}

std::string numberText(double number)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

// Whether a text is a number to its end. Blanks around it do no harm.
template <class Number>
bool isNumber(std::string_view text, Number& number)
{
    text = trimmed(text, blanks);
    const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    text.remove_prefix(hasPlus ? 1 : 0);
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failure == std::errc() && end == text.data() + text.size();
}

bool isInteger(std::string_view text)
{
    int number = 0;
    return isNumber(text, number);
}

void findMisreadNumber(Report& report, const DocumentKey& key, const TaskKey& row)
{
    double number = 0;
    const bool isMisread = (row.type == KeyType::integer && !isInteger(key.value)) ||
                           (row.type == KeyType::number && !isNumber(key.value, number));
    if (isMisread && isText(key)) {
        const std::string read =
            row.type == KeyType::integer ? std::to_string(toInt(key.value)) : numberText(toDouble(key.value));
        report.add(finding("V026", {{"key", key.name}, {"value", printable(key.value)}, {"number", read}}),
                   key.place);
    }
}

void findKeyOfOtherWork(Report& report, const DocumentKey& key, const TaskKey& row)
{
    const bool ofReport = isReport(report.task);
    const bool isWanted = key.name == "autoname"; // every task of an operator has it
    if (!isWanted && row.work != KeyWork::both && (row.work == KeyWork::report) != ofReport) {
        report.add(finding("V027", {{"key", key.name}, {"work", ofReport ? "report" : "conversion"}}),
                   key.place);
    }
}

// All that is wrong with a key of a table; of two that are equal only the first is looked at.
void lookAt(Report& report, const DocumentKey& key, bool inSeria, std::set<std::string_view>& seen)
{
    const TaskKey* const row = keyOf(inSeria ? seriaKeyTable() : taskKeyTable(), key.name);
    if (row == nullptr) {
        findUnknownKey(report, key, inSeria);
        findInnerKey(report, key);
        return;
    }
    if (!seen.insert(key.name).second) {
        report.add(finding("V021", {{"key", key.name}}), key.place);
        return;
    }
    if (!inSeria) {
        findKeyOfOtherWork(report, key, *row);
    }
    if (row->type == KeyType::series) {
        return;
    }
    findBlanks(report, key, *row);
    findOtherThanText(report, key);
    findEmptyValue(report, key, *row);
    findFalseTruth(report, key, *row);
    findMisreadNumber(report, key, *row);
    findInnerKey(report, key);
}

void lookAtAll(Report& report, const std::vector<DocumentKey>& keys, bool inSeria)
{
    std::set<std::string_view> seen;
    for (const DocumentKey& key : keys) {
        lookAt(report, key, inSeria, seen);
    }
}

void lookIntoPaths(Report& report)
{
    const DocumentKey* const paths = report.document.key("paths");
    for (const DocumentKey& child : paths == nullptr ? std::vector<DocumentKey>{} : paths->children) {
        if (child.name != "seria") {
            const bool isOfSeria = keyOf(seriaKeyTable(), child.name) != nullptr;
            const std::string question =
                isOfSeria ? ", which counts in a seria" : nearestQuestion(child.name, {"seria"});
            report.add(finding("V020", {{"key", printable(child.name)}, {"question", question}}),
                       child.place);
        }
    }
    for (const DocumentSeria& seria : report.document.series) {
        lookAtAll(report, seria.keys, true);
    }
}

void findMissingAutoname(Report& report)
{
    if (!isReport(report.task) && report.document.key("autoname") == nullptr) {
        report.add(finding("V028"), {});
    }
}

// Words.

void findInputWord(Report& report)
{
    const std::string& word = report.task.inputformat;
    if (isReport(report.task)) {
        return;
    }
    const FormatWord* const row = formatWord(formatOpticMea_to_int(word));
    if (row == nullptr) {
        const std::string question = nearestQuestion(word, wordsOf(*keyOf(taskKeyTable(), "inputformat")));
        report.addAt(
            "inputformat",
            finding("V040", {{"direction", "input"}, {"word", printable(word)}, {"question", question}}));
    } else if (row->read == nullptr) {
        report.addAt("inputformat", writtenOnly(word));
    }
}

void findOutputWord(Report& report)
{
    const std::string& word = report.task.outputformat;
    if (word == "vomar") {
        report.addAt("outputformat", finding("V042"));
    } else if (formatOpticMea_to_int(word) == formatUnknown) {
        report.addAt("outputformat", finding("V040", {{"direction", "output"},
                                                      {"word", printable(word)},
                                                      {"question", nearestQuestion(word, outputWords())}}));
    }
}

void findOddExtension(Report& report)
{
    const std::string& extension = report.task.outputextension;
    const auto add = [&](Finding found) { report.addAt("outputextension", std::move(found)); };
    const bool hasPoint = extension.starts_with('.');
    if (extension.empty()) {
        add(finding("V045", {{"problem", "is empty"}}));
    } else if (extension.find('/') != std::string::npos) {
        add(finding("V045", {{"problem", inQuotes(extension) + " contains a slash"}}));
    } else if (isReport(report.task) && hasPoint) {
        add(finding("V044", {{"extension", printable(extension)}}));
    } else if (!isReport(report.task) && !hasPoint) {
        add(finding("V043", {{"extension", printable(extension)}}));
    }
}

// Reports.

void findNoSeries(Report& report)
{
    if (!report.task.paths.empty()) {
        return;
    }
    const DocumentKey* const paths = report.document.key("paths");
    const std::string reason = paths == nullptr                 ? "there is no paths"
                               : report.document.series.empty() ? "paths has no seria"
                                                                : "the first seria has no key";
    report.addAt("paths", finding("V231", {{"reason", reason}}));
}

void findMissingPaths(Report& report)
{
    for (std::size_t i = 0; i < report.task.paths.size(); ++i) {
        const std::string& path = report.task.paths[i].path;
        if (path.empty()) {
            report.addInSeria(i, "path", finding("V232"));
        } else if (report.task.toSeparateFile == "eachseria" && !seriesFolderName(report.task, i)) {
            report.addInSeria(i, "path", finding("V233", {{"path", printable(path)}}));
        }
    }
}

bool isExclusion(std::string_view item)
{
    bool isOne = true;
    forEachToken(item, ';', [&isOne](std::string_view number) { isOne = isOne && isInteger(number); });
    return isOne;
}

void findOddExclusions(Report& report, std::size_t number)
{
    const DocumentKey* const key = firstKey(report.document.series[number].keys, "excludes");
    if (key == nullptr || !isText(*key)) {
        return;
    }
    bool areNumbers = true;
    forEachToken(key->value, ' ', [&areNumbers](std::string_view item) {
        areNumbers = areNumbers && (item.empty() || isExclusion(item));
    });
    if (!areNumbers) {
        report.add(finding("V235", {{"text", printable(key->value)}}), key->place);
    }
    std::map<int, int> times;
    for (const TExcludBlobs& exclusion : report.task.paths[number].excludes) {
        if (++times[exclusion.object] == 2) {
            report.add(finding("V236", {{"track", std::to_string(exclusion.object)}}), key->place);
        }
    }
}

void findUnknownDivision(Report& report)
{
    const std::string& word = report.task.toSeparateFile;
    if (reportDivision(word) == nullptr) {
        const auto words = wordsOf(*keyOf(taskKeyTable(), "toSeparateFile"));
        report.addAt("toSeparateFile", finding("V238", {{"word", printable(word)},
                                                        {"question", nearestQuestion(word, words)}}));
    }
}

void findOddNarrowing(Report& report)
{
    const std::string& word = report.task.whatSave;
    const auto words = wordsOf(*keyOf(taskKeyTable(), "whatSave"));
    if (!word.empty() && std::find(words.begin(), words.end(), word) == words.end()) {
        report.addAt("whatSave", finding("V239", {{"word", printable(word)}}));
    }
}

void findOddInterval(Report& report)
{
    const double interval = report.task.interval;
    if (report.task.toSeparateFile != "eachgroup" || (std::isfinite(interval) && interval > 0)) {
        return;
    }
    const std::string what = std::isnan(interval)   ? "not a number"
                             : std::isinf(interval) ? "infinite"
                             : interval < 0         ? "negative"
                                                    : "read as 0";
    const DocumentKey& key = *report.document.key("interval"); // without it the interval is a good one
    report.addAt("interval", finding("V242", {{"text", printable(key.value)}, {"what", what}}));
}

// The series in which a text keeps its default, once for all of them.
void findDefaultWord(Report& report, std::string TSeria2::*member, std::string_view key)
{
    const std::string standard = TSeria2{}.*member;
    const auto keeps = [&](const TSeria2& seria) { return seria.*member == standard; };
    const auto& series = report.task.paths;
    const auto first = std::find_if(series.begin(), series.end(), keeps);
    if (first != series.end()) {
        const auto count = static_cast<std::size_t>(std::count_if(first, series.end(), keeps));
        report.addInSeria(static_cast<std::size_t>(first - series.begin()), key,
                          finding("V252", {{"key", std::string(key)}, {"word", standard}}).times(count));
    }
}

void findDefaultWords(Report& report)
{
    if (report.task.longname) {
        findDefaultWord(report, &TSeria2::filter, "filtr");
    }
    if (report.task.autoTelescope) {
        findDefaultWord(report, &TSeria2::telescope, "telescope");
    } else if (report.task.PARTICIPANT_1 == TConvMea{}.PARTICIPANT_1) {
        report.addAt("PARTICIPANT_1",
                     finding("V252", {{"key", "PARTICIPANT_1"}, {"word", report.task.PARTICIPANT_1}}));
    }
}

void lookAtReport(Report& report)
{
    findNoSeries(report);
    findMissingPaths(report);
    for (std::size_t i = 0; i < std::min(report.task.paths.size(), report.document.series.size()); ++i) {
        findOddExclusions(report, i);
    }
    findUnknownDivision(report);
    findOddNarrowing(report);
    findOddInterval(report);
    findDefaultWords(report);
}

// Tracks and marks of a plan.

// The marks of the tracks of a series, as they were read; nothing without a plan.
std::vector<std::size_t> marksOfSeries(const Plan& plan, std::size_t series)
{
    std::vector<std::size_t> marks;
    for (const ReadTrack& track : plan.tracks) {
        if (track.series == static_cast<int>(series)) {
            marks.push_back(track.marks);
        }
    }
    return marks;
}

bool isOneOf(int number, std::size_t count)
{
    return number >= 0 && static_cast<std::size_t>(number) < count;
}

// The first of the numbers of an exclusion that does not exist: "track" or "mark"; empty where all do.
std::string missingOf(const TExcludBlobs& exclusion, const std::vector<std::size_t>* marks)
{
    const bool isTrack = marks == nullptr ? exclusion.object >= 0 : isOneOf(exclusion.object, marks->size());
    if (!isTrack) {
        return "track";
    }
    const auto isMark = [&](int mark) {
        return marks == nullptr ? mark >= 0
                                : isOneOf(mark, (*marks)[static_cast<std::size_t>(exclusion.object)]);
    };
    const bool haveMarks = std::all_of(exclusion.blobs.begin(), exclusion.blobs.end(), isMark);
    return haveMarks ? "" : "mark";
}

std::string exclusionText(const TExcludBlobs& exclusion)
{
    std::string text = std::to_string(exclusion.object);
    for (const int mark : exclusion.blobs) {
        text += ';' + std::to_string(mark);
    }
    return text;
}

void findMissingExclusions(Report& report, const Plan* plan)
{
    for (std::size_t i = 0; i < report.task.paths.size(); ++i) {
        const auto marks = plan == nullptr ? std::vector<std::size_t>{} : marksOfSeries(*plan, i);
        for (const TExcludBlobs& exclusion : report.task.paths[i].excludes) {
            const std::string what = missingOf(exclusion, plan == nullptr ? nullptr : &marks);
            if (!what.empty()) {
                report.addInSeria(i, "excludes",
                                  finding("V234", {{"item", exclusionText(exclusion)}, {"what", what}}));
            }
        }
    }
}

void findMissingObject(Report& report, const Plan* plan)
{
    const int number = report.task.object;
    const bool exists = plan == nullptr ? number >= 0 : isOneOf(number, marksOfSeries(*plan, 0).size());
    if (report.task.whatSave == "object" && !exists) {
        const bool isNamed = report.document.key("object") != nullptr;
        report.addAt(isNamed ? "object" : "whatSave", finding("V237", {{"number", std::to_string(number)}}));
    }
}

} // namespace

bool isReport(const TConvMea& task)
{
    return task.inputformat == "vomar";
}

Finding writtenOnly(const std::string& word)
{
    const char* const hint = isOfBrightness(word) ? "" : "; tavelin ready reads it";
    return finding("V041", {{"word", word}, {"hint", hint}});
}

std::vector<Finding> taskFindings(const TaskDocument& document, const TConvMea& task)
{
    Report report(document, task);
    if (!document.goesOn()) {
        return {};
    }
    lookAtAll(report, document.keys, false);
    lookIntoPaths(report);
    findMissingAutoname(report);
    findInputWord(report);
    findOutputWord(report);
    findOddExtension(report);
    if (isReport(task)) {
        lookAtReport(report);
    }
    return std::move(report.all);
}

std::vector<Finding> trackFindings(const TaskDocument& document, const TConvMea& task, const Plan* plan)
{
    Report report(document, task);
    if (isReport(task)) {
        findMissingExclusions(report, plan);
        findMissingObject(report, plan);
    }
    return std::move(report.all);
}

} // namespace companion
