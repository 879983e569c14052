#include "command/page_calendar.h"

#include "base/digits.h"
#include "command/page_table.h"
#include "out/characters.h"
#include "out/text.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace companion {
namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::year_month;
using std::chrono::year_month_day;

bool isDigitAt(std::string_view text, std::size_t at)
{
    return at < text.size() && isDigit(text[at]);
}

// The number of so many digits at a place.
std::optional<int> numberAt(std::string_view text, std::size_t at, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        if (!isDigitAt(text, at + i)) {
            return std::nullopt;
        }
    }
    int number = 0;
    std::from_chars(text.data() + at, text.data() + at + length, number);
    return number;
}

// The date at a place: 20240120, or with separators 2024-01-20. No other digits stand beside it.
std::optional<sys_days> dateAt(std::string_view text, std::size_t at)
{
    const auto year = numberAt(text, at, 4);
    if (!year || (at > 0 && isDigitAt(text, at - 1)) || at + 4 == text.size()) {
        return std::nullopt;
    }
    const char separator = text[at + 4];
    const std::size_t gap = isDigitAt(text, at + 4) ? 0 : 1;
    const auto month = numberAt(text, at + 4 + gap, 2);
    const auto day = numberAt(text, at + 6 + 2 * gap, 2);
    if (!month || !day || isDigitAt(text, at + 8 + 2 * gap)) {
        return std::nullopt;
    }
    const bool isSeparated =
        std::string_view("-_./").find(separator) != std::string_view::npos && text[at + 7] == separator;
    const year_month_day date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                              std::chrono::day(static_cast<unsigned>(*day))};
    return date.ok() && (gap == 0 || isSeparated) ? std::optional(sys_days(date)) : std::nullopt;
}

std::string digitsOf(unsigned number, int width)
{
    char room[8];
    return {room, tavelinUtils::writeDigits(room, number, width)};
}

std::string dateText(const year_month_day& date)
{
    return digitsOf(static_cast<unsigned>(static_cast<int>(date.year())), 4) + '-' +
           digitsOf(static_cast<unsigned>(date.month()), 2) + '-' +
           digitsOf(static_cast<unsigned>(date.day()), 2);
}

std::string monthText(const year_month& month)
{
    constexpr const char* names[] = {"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
    return names[static_cast<unsigned>(month.month()) - 1] +
           (' ' + std::to_string(static_cast<int>(month.year())));
}

// How a state is shown. The styles differ in more than their colors.
struct StateLook
{
    const char* style;
    const char* meaning;
};

// From the best to the worst: a night is shown as the worst of its tasks.
constexpr StateLook looks[] = {{"good", "good or up to date"},
                               {"waiting", "to be run"},
                               {"error", "failed, refused, with findings or without input"}};

std::size_t lookOf(BatchStatus status)
{
    switch (status) {
    case BatchStatus::upToDate:
    case BatchStatus::good: return 0;
    case BatchStatus::toRun:
    case BatchStatus::leftOut:
    case BatchStatus::elsewhere: return 1;
    case BatchStatus::findings:
    case BatchStatus::failed:
    case BatchStatus::refused:
    case BatchStatus::gone: break;
    }
    return 2;
}

// A task of a batch with its place among all tasks.
struct PlacedTask
{
    const PageTask* task;
    std::size_t place;

    std::string id() const
    {
        return "night-" + std::to_string(place + 1);
    }
};

using TasksOfNights = std::map<std::string, std::vector<PlacedTask>>;

// By the dates of the nights; tasks of no known night are left out.
TasksOfNights tasksOfNights(const PageContents& contents)
{
    TasksOfNights nights;
    for (std::size_t place = 0; place < contents.tasks.size(); ++place) {
        const PageTask& task = contents.tasks[place];
        if (task.night && !task.night->date.empty()) {
            nights[task.night->date].push_back({&task, place});
        }
    }
    return nights;
}

// Those of no known night are the last.
std::vector<PlacedTask> tasksInOrder(const PageContents& contents, const TasksOfNights& nights)
{
    std::vector<PlacedTask> tasks;
    for (const auto& [date, ofNight] : nights) {
        tasks.insert(tasks.end(), ofNight.begin(), ofNight.end());
    }
    for (std::size_t place = 0; place < contents.tasks.size(); ++place) {
        const PageTask& task = contents.tasks[place];
        if (task.night && task.night->date.empty()) {
            tasks.push_back({&task, place});
        }
    }
    return tasks;
}

std::size_t lookOf(const std::vector<PlacedTask>& tasks)
{
    std::size_t worst = 0;
    for (const PlacedTask& each : tasks) {
        worst = std::max(worst, lookOf(each.task->night->status));
    }
    return worst;
}

std::string dayText(const year_month_day& date)
{
    return std::to_string(static_cast<unsigned>(date.day()));
}

// "20 January 2024: 2 tasks, 1 up to date, 1 failed": it begins with what stands in the calendar.
std::string nightText(const year_month_day& date, const std::vector<PlacedTask>& tasks)
{
    BatchCounts counts;
    for (const PlacedTask& each : tasks) {
        ++counts[each.task->night->status];
    }
    return dayText(date) + ' ' + monthText(date.year() / date.month()) + ": " +
           counted(tasks.size(), "task") + ", " + batchCountsText(counts);
}

void addNight(Html& page, const year_month_day& date, const std::vector<PlacedTask>& tasks)
{
    const StateLook& look = looks[lookOf(tasks)];
    const std::string text = nightText(date, tasks);
    const Html::Element cell = page.in("td", {{"class", look.style}});
    const Html::Element link =
        page.in("a", {{"href", '#' + tasks.front().id()}, {"aria-label", text}, {"title", text}});
    page.text(dayText(date));
}

void addDay(Html& page, const year_month_day& date, const TasksOfNights& nights)
{
    const auto known = nights.find(dateText(date));
    if (known != nights.end()) {
        addNight(page, date, known->second);
    } else {
        addCell(page, dayText(date));
    }
}

// A week from a Monday; days of other months are left empty.
void addWeek(Html& page, sys_days monday, const year_month& month, const TasksOfNights& nights)
{
    const Html::Element row = page.in("tr");
    for (sys_days day = monday; day < monday + days{7}; day += days{1}) {
        const year_month_day date = day;
        if (date.year() / date.month() == month) {
            addDay(page, date, nights);
        } else {
            addCell(page, "");
        }
    }
}

void addWeekdays(Html& page)
{
    constexpr std::pair<const char*, const char*> weekdays[] = {
        {"Mo", "Monday"}, {"Tu", "Tuesday"},  {"We", "Wednesday"}, {"Th", "Thursday"},
        {"Fr", "Friday"}, {"Sa", "Saturday"}, {"Su", "Sunday"}};
    const Html::Element head = page.in("thead");
    const Html::Element row = page.in("tr");
    for (const auto& [brief, full] : weekdays) {
        page.add("th", {{"scope", "col"}, {"abbr", full}}, brief);
    }
}

void addMonth(Html& page, const year_month& month, const TasksOfNights& nights)
{
    const Html::Element table = page.in("table", {{"class", "month"}});
    page.add("caption", {}, monthText(month));
    addWeekdays(page);
    const Html::Element body = page.in("tbody");
    const sys_days first = month / 1;
    const sys_days next = (month + months{1}) / 1;
    for (sys_days monday = first - (std::chrono::weekday(first) - std::chrono::Monday); monday < next;
         monday += days{7})
    {
        addWeek(page, monday, month, nights);
    }
}

// Months without a night are left out.
void addMonths(Html& page, const TasksOfNights& nights)
{
    const Html::Element grid = page.in("div", {{"class", "months"}});
    std::optional<year_month> last;
    for (const auto& [text, tasks] : nights) {
        const year_month_day date = dateAt(text, 0).value_or(sys_days{});
        const year_month month = date.year() / date.month();
        if (month != last) {
            addMonth(page, month, nights);
            last = month;
        }
    }
}

// What the looks mean, and how many nights have each.
void addLegend(Html& page, const TasksOfNights& nights)
{
    std::size_t counts[std::size(looks)]{};
    for (const auto& [date, tasks] : nights) {
        ++counts[lookOf(tasks)];
    }
    const Html::Element list = page.in("ul", {{"class", "parts"}});
    for (std::size_t look = 0; look < std::size(looks); ++look) {
        if (counts[look] > 0) {
            const Html::Element item = page.in("li");
            page.add("i", {{"class", std::string("night ") + looks[look].style}}, "");
            page.add("b", {}, counted(counts[look]));
            page.text(std::string(counts[look] == 1 ? " night " : " nights ") + looks[look].meaning);
        }
    }
}

void addTaskRow(Html& page, const PlacedTask& placed, bool hasReasons)
{
    const PageTask& task = *placed.task;
    const PageNight& night = *task.night;
    const Html::Element row = page.in("tr", {{"id", placed.id()}});
    addCell(page, night.date);
    addRowName(page, task.path);
    page.add("td", {{"class", looks[lookOf(night.status)].style}}, batchStatusWord(night.status));
    addNumber(page, counted(task.hasPlan ? task.marks.read : night.read));
    addNumber(page, counted(task.hasPlan ? task.found() : night.found));
    if (hasReasons) {
        const Html::Element cell = page.in("td", {{"class", "words"}});
        page.name(night.why);
    }
}

void addTaskTable(Html& page, const std::vector<PlacedTask>& tasks)
{
    const bool hasReasons = std::any_of(
        tasks.begin(), tasks.end(), [](const PlacedTask& each) { return !each.task->night->why.empty(); });
    const TableRegion table(page, "the tasks of the nights", "night-table");
    addHead(page, {{"night"},
                   {"task"},
                   {"state"},
                   {"marks read", true},
                   {"in the files", true},
                   {hasReasons ? "why" : nullptr}});
    const Html::Element body = page.in("tbody");
    for (const PlacedTask& each : tasks) {
        addTaskRow(page, each, hasReasons);
    }
}

} // namespace

std::string nightOf(const std::string& path, const std::string& first)
{
    const auto ofMark = dateAt(first, 0);
    std::string night = ofMark ? dateText(*ofMark) : "";
    for (std::size_t at = 0; at < path.size(); ++at) {
        const auto date = dateAt(path, at);
        if (date && (!ofMark || (*date - *ofMark <= days{1} && *ofMark - *date <= days{1}))) {
            night = dateText(*date);
        }
    }
    return night;
}

std::size_t nightCount(const PageContents& contents)
{
    return tasksOfNights(contents).size();
}

void addNights(Html& page, const PageContents& contents)
{
    const TasksOfNights nights = tasksOfNights(contents);
    const std::vector<PlacedTask> tasks = tasksInOrder(contents, nights);
    if (tasks.empty()) {
        page.add("p", {}, "The batch has no tasks.");
        return;
    }
    page.add("p", {}, counted(tasks.size(), "task") + ": " + batchCountsText(contents.states) + '.');
    addLegend(page, nights);
    addMonths(page, nights);
    addTaskTable(page, tasks);
}

} // namespace companion
