#include "command/page_html.h"

#include "command/page_calendar.h"
#include "command/page_findings.h"
#include "command/page_flow.h"
#include "command/page_style.h"
#include "command/page_table.h"
#include "out/characters.h"
#include "out/html.h"
#include "out/text.h"
#include "reading/account_text.h"
#include "reading/file_info.h"
#include "reading/signatures.h"

#include <algorithm>
#include <string_view>

namespace companion {
namespace {

constexpr std::size_t dateLength = 10;
constexpr std::size_t secondLength = 19;

// "2024-01-20 21:48:27".
std::string shortTime(const std::string& moment)
{
    std::string text = moment.substr(0, secondLength);
    if (text.size() > dateLength) {
        text[dateLength] = ' ';
    }
    return text;
}

// "2024-01-20 to 2024-01-21", or one date.
std::string datesText(const PageContents& contents)
{
    const std::string from = contents.first.substr(0, dateLength);
    const std::string to = contents.last.substr(0, dateLength);
    return from == to ? from : from + " to " + to;
}

std::string fileName(const std::string& path)
{
    return path.substr(path.find_last_of('/') + 1);
}

// What the page is of: the site, or how many there are, or the names of what it was made of.
std::string subject(const PageContents& contents)
{
    if (contents.sites.size() == 1 && !contents.sites.begin()->empty()) {
        return *contents.sites.begin();
    }
    if (contents.sites.size() > 1) {
        return counted(contents.sites.size(), "site");
    }
    if (contents.files.size() == 1) {
        return fileName(contents.files.front().path);
    }
    return contents.files.empty() && contents.tasks.size() == 1 ? fileName(contents.tasks.front().path)
                                                                : counted(contents.files.size(), "file");
}

std::string titleOf(const PageContents& contents)
{
    return contents.first.empty() ? subject(contents) : subject(contents) + ", " + datesText(contents);
}

// Headings of the sections, by which the navigation leads to them.
struct Section
{
    const char* id;
    const char* title;
    bool (*isThere)(const PageContents& contents);
    void (*add)(Html& page, const PageContents& contents);
};

void addTotal(Html& page, std::string_view term, const std::string& value, const std::string& style = "")
{
    const Html::Element group = page.in("div");
    page.add("dt", {}, term);
    style.empty() ? page.add("dd", {}, value) : page.add("dd", {{"class", style}}, value);
}

// A text whose numbers stay with the words behind them.
std::string keptTogether(const std::string& text)
{
    std::string kept;
    char before = 0;
    for (const char each : text) {
        kept += each == ' ' && isDigit(before) ? "\u00a0" : std::string(1, each);
        before = each;
    }
    return kept;
}

std::string magnitudesText(const PageContents& contents)
{
    bool isKnown = false;
    double brightest = 0;
    double faintest = 0;
    for (const auto& [name, object] : contents.objects) {
        for (const LightCurve& curve : object.curves) {
            for (const CurveMark& mark : curve.marks) {
                brightest = isKnown ? std::min(brightest, mark.magnitude) : mark.magnitude;
                faintest = isKnown ? std::max(faintest, mark.magnitude) : mark.magnitude;
                isKnown = true;
            }
        }
    }
    return isKnown ? magnitudeText(brightest) + " to " + magnitudeText(faintest) : "";
}

// The style of what is as severe as the worst that was found.
std::string styleOf(const FindingTotals& totals)
{
    if (totals.errors > 0) {
        return "error";
    }
    return totals.warnings > 0 ? "warning" : totals.notes > 0 ? "note" : "good";
}

void addTotals(Html& page, const PageContents& contents)
{
    const Html::Element list = page.in("dl", {{"class", "totals"}});
    if (!contents.tasks.empty()) {
        addTotal(page, "tasks", counted(contents.tasks.size()));
    }
    if (contents.batches > 0) {
        addTotal(page, "nights", counted(nightCount(contents)));
    }
    addTotal(page, "files", counted(contents.files.size()));
    addTotal(page, "objects", counted(contents.objects.size()));
    addTotal(page, "tracks", counted(contents.lines.tracks));
    addTotal(page, "marks", counted(contents.lines.marksRead));
    const std::string magnitudes = magnitudesText(contents);
    if (!magnitudes.empty()) {
        addTotal(page, "magnitudes", magnitudes, "words");
    }
    addTotal(page, "findings", keptTogether(briefTotals(contents.totals)),
             "words " + styleOf(contents.totals));
}

void addFileTable(Html& page, const PageContents& contents)
{
    const TableRegion table(page, "files", "file-table");
    addHead(page, {{"file"},
                   {"format"},
                   {"site"},
                   {"lines", true},
                   {"skipped", true},
                   {"tracks", true},
                   {"marks", true},
                   {"first"},
                   {"last"}});
    const Html::Element body = page.in("tbody");
    for (const PageFile& file : contents.files) {
        const Html::Element row = page.in("tr");
        addRowName(page, file.path);
        addCell(page, file.format.empty() ? "not certain" : formatTitle(file.format));
        addSaid(page, file.site);
        addNumber(page, counted(file.account.lines));
        addNumber(page, counted(file.account.passed + file.account.lost + file.account.refused));
        addNumber(page, counted(file.account.tracks));
        addNumber(page, counted(file.account.marksRead));
        addCell(page, shortTime(file.first));
        addCell(page, shortTime(file.last));
    }
}

std::string stateOf(const PageTask& task, const PageOutput& output)
{
    if (!output.isThere) {
        return task.wasRun() ? "missing" : "not written yet";
    }
    return output.found == output.planned ? "complete" : "other marks";
}

std::string taskText(const PageTask& task)
{
    if (!task.hasPlan) {
        return "It cannot be run, or its inputs cannot be read.";
    }
    const std::string work = task.isReport ? "A report" : "A conversion";
    const std::string files = counted(task.outputs.size(), "file") + ", " + counted(task.marks.written) +
                              " of " + counted(task.marks.read, "mark");
    return work + ": " + files +
           (task.wasRun() ? "; in the files are " + counted(task.found()) + '.' : "; it was not run yet.");
}

void addOutputs(Html& page, const PageTask& task, std::size_t number)
{
    const TableRegion table(page, "the files of " + task.path, "task-" + std::to_string(number));
    addHead(page, {{"file"}, {"format"}, {"planned", true}, {"found", true}, {"state"}});
    const Html::Element body = page.in("tbody");
    for (const PageOutput& output : task.outputs) {
        const Html::Element row = page.in("tr");
        addRowName(page, output.path);
        addCell(page, formatTitle(output.format));
        addNumber(page, counted(output.planned));
        addNumber(page, output.isThere ? counted(output.found) : "");
        addCell(page, stateOf(task, output));
    }
}

// The last result that the tool left.
void addResult(Html& page, const PageTask& task)
{
    if (task.results.empty()) {
        return;
    }
    const ResultEntry& result = task.results.back();
    const Html::Element line = page.in("p");
    page.text("Last result: code " + std::to_string(result.code) + ", ");
    page.name(result.comment + (result.description.empty() ? "" : ": " + result.description));
}

void addTasks(Html& page, const PageContents& contents)
{
    std::size_t number = 0;
    for (const PageTask& task : contents.tasks) {
        ++number;
        if (task.night) {
            continue;
        }
        const Html::Element card = page.in("article", {{"class", "card"}});
        {
            const Html::Element title = page.in("h3");
            page.name(task.path);
        }
        page.add("p", {}, taskText(task));
        addResult(page, task);
        if (!task.outputs.empty()) {
            addOutputs(page, task, number);
        }
    }
}

// A name that can be seen: some formats have tracks without one.
std::string shownName(const std::string& name)
{
    return name.find_first_not_of(' ') == std::string::npos ? "(no name)" : name;
}

std::string meanMagnitude(const PageObject& object)
{
    return object.magnitudes == 0
               ? ""
               : magnitudeText(object.sumOfMagnitudes / static_cast<double>(object.magnitudes));
}

std::string motion(const PageObject& object)
{
    if (!object.hasMotion) {
        return "";
    }
    const std::string slowest = motionText(object.slowest);
    const std::string fastest = motionText(object.fastest);
    return slowest == fastest ? slowest : slowest + " to " + fastest;
}

std::string objectId(std::size_t number)
{
    return "o" + std::to_string(number);
}

void addObjectTable(Html& page, const PageContents& contents)
{
    const TableRegion table(page, "objects", "object-table");
    addHead(page, {{"object"},
                   {"marks", true},
                   {"tracks", true},
                   {"first"},
                   {"last"},
                   {"mean magnitude", true},
                   {"motion, \u2033/min", true},
                   {"filters"}});
    const Html::Element body = page.in("tbody");
    std::size_t number = 0;
    for (const auto& [name, object] : contents.objects) {
        ++number;
        const Html::Element row = page.in("tr");
        addRowName(page, shownName(name), object.isPictured ? objectId(number) : "");
        addNumber(page, counted(object.marks));
        addNumber(page, object.tracks == 0 ? "" : counted(object.tracks));
        addCell(page, shortTime(object.first));
        addCell(page, shortTime(object.last));
        addNumber(page, meanMagnitude(object));
        addNumber(page, motion(object));
        addSaid(page, joined(object.filters, ", "));
    }
}

void addObjects(Html& page, const PageContents& contents)
{
    const std::size_t unpictured = contents.objects.size() - contents.pictured();
    if (unpictured > 0 && contents.pictured() > 0) {
        page.add("p", {{"class", "soft"}},
                 counted(contents.pictured(), "object") + " of " + counted(contents.objects.size()) +
                     " have pictures; their names lead to them.");
    }
    addObjectTable(page, contents);
}

void addPicturesOf(Html& page, const std::string& name, const PageObject& object, const std::string& id)
{
    const Html::Element card = page.in("article", {{"class", "card"}, {"id", id}});
    {
        const Html::Element title = page.in("h3");
        page.name(shownName(name));
    }
    const Html::Element pictures = page.in("div", {{"class", "pictures"}});
    if (!object.curves.empty()) {
        addLightCurve(page, {id + "l", shownName(name)}, object.curves);
    }
    if (!object.paths.empty()) {
        addSkyTracks(page, {id + "s", shownName(name)}, object.paths);
    }
}

void addPictures(Html& page, const PageContents& contents)
{
    if (contents.undrawn > 0) {
        page.add("p", {{"class", "soft"}},
                 counted(contents.undrawn, "mark") +
                     " without a time or a magnitude that can be is in no light curve.");
    }
    std::size_t number = 0;
    for (const auto& [name, object] : contents.objects) {
        ++number;
        if (object.isPictured) {
            addPicturesOf(page, name, object, objectId(number));
        }
    }
}

constexpr Section sections[] = {
    {"nights", "Nights", [](const PageContents& contents) { return contents.batches > 0; }, addNights},
    {"accounts", "Accounts", [](const PageContents& contents) { return contents.lines.lines > 0; }, addFlow},
    {"findings", "Findings", [](const PageContents&) { return true; }, addFindings},
    {"tasks", "Tasks", [](const PageContents& contents) { return contents.hasTasksAlone(); }, addTasks},
    {"files", "Files", [](const PageContents& contents) { return !contents.files.empty(); }, addFileTable},
    {"objects", "Objects", [](const PageContents& contents) { return !contents.objects.empty(); },
     addObjects},
    {"pictures", "Pictures", [](const PageContents& contents) { return contents.pictured() > 0; },
     addPictures},
};

void addDocumentHead(Html& page, const std::string& title)
{
    const Html::Element head = page.in("head");
    page.addAlone("meta", {{"charset", "utf-8"}});
    page.addAlone("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    page.addAlone("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
    // Nothing is loaded from anywhere, whatever a name holds.
    page.addAlone("meta", {{"http-equiv", "Content-Security-Policy"},
                           {"content", "default-src 'none'; style-src 'unsafe-inline'; "
                                       "script-src 'unsafe-inline'; img-src data:"}});
    page.addAlone("link", {{"rel", "icon"}, {"href", "data:,"}});
    page.add("title", {}, title);
    const Html::Element style = page.in("style");
    page.markup(pageStyle());
}

void addNavigation(Html& page, const PageContents& contents)
{
    const Html::Element navigation = page.in("nav", {{"aria-label", "Sections"}});
    const Html::Element list = page.in("ul");
    for (const Section& section : sections) {
        if (section.isThere(contents)) {
            const Html::Element item = page.in("li");
            page.add("a", {{"href", '#' + std::string(section.id)}}, section.title);
        }
    }
}

void addHeader(Html& page, const PageContents& contents)
{
    const Html::Element header = page.in("header");
    {
        const Html::Element title = page.in("h1");
        page.name(titleOf(contents));
    }
    if (!contents.first.empty()) {
        page.add("p", {{"class", "soft"}},
                 shortTime(contents.first) + " to " + shortTime(contents.last) + " UTC");
    }
    addNavigation(page, contents);
}

void addMain(Html& page, const PageContents& contents)
{
    const Html::Element main = page.in("main");
    addTotals(page, contents);
    for (const Section& section : sections) {
        if (section.isThere(contents)) {
            const std::string id = section.id;
            const Html::Element part = page.in("section", {{"aria-labelledby", id}});
            page.add("h2", {{"id", id}}, section.title);
            page.markup("\n");
            section.add(page, contents);
        }
    }
}

} // namespace

std::string pageDocument(const PageContents& contents)
{
    Html page;
    page.markup("<!DOCTYPE html>\n");
    {
        const Html::Element document = page.in("html", {{"lang", "en"}});
        addDocumentHead(page, titleOf(contents));
        const Html::Element body = page.in("body");
        addHeader(page, contents);
        addMain(page, contents);
        page.add("footer", {},
                 "Times are UTC. Marks are those that the tool's own readers take. Made by tavelin page.");
        const Html::Element script = page.in("script");
        page.markup(pageScript());
    }
    return page.bytes();
}

} // namespace companion
