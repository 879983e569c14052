// Lint tells the truth: where an edit of a good file makes its reader take a line otherwise than a person
// would, lint has a finding on that line. The person is this file: regular expressions and plain arithmetic.

#include "formats/mea.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "reading/line_fates.h"
#include "reading/lint.h"

#include "support/folders.h"
#include "support/locales.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

using companion::Finding;
using companion::LineFates;
using tavelinUtils::LineFate;
using tavelinUtils::TrackVtorichka;

using Lines = std::vector<std::string>;

struct Values
{
    double day = 0; // MJD
    double ra = 0;
    double de = 0;
    double magnitude = 0;
};

bool areEqual(const Values& a, const Values& b)
{
    const auto near = [](double x, double y) { return std::abs(x - y) < 1e-7; };
    return near(a.day, b.day) && near(a.ra, b.ra) && near(a.de, b.de) && near(a.magnitude, b.magnitude);
}

// What a person makes of a line.
struct Meaning
{
    LineFate fate = LineFate::passed; // passed: it is no line of the format
    std::optional<Values> values{};
};

std::optional<double> dayOf(int year, unsigned month, unsigned day)
{
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
    if (!date.ok()) {
        return std::nullopt;
    }
    constexpr double mjdOfEpoch = 40587.0;
    return mjdOfEpoch + static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count());
}

// A number of any size: also one that no double holds.
double valueOf(const std::string& text)
{
    return readInC(text);
}

unsigned numberOf(const std::string& text, std::size_t place, std::size_t length = 2)
{
    return static_cast<unsigned>(std::stoul(text.substr(place, length)));
}

// Hours or degrees of digits in pairs and decimals; nothing for more than 59 minutes or seconds.
std::optional<double> packed(const std::string& digits, unsigned limit)
{
    const double seconds = valueOf(digits.substr(4, 2) + '.' + digits.substr(6) + '0');
    if (numberOf(digits, 0) >= limit || numberOf(digits, 2) > 59 || seconds >= 60.0) {
        return std::nullopt;
    }
    return numberOf(digits, 0) + numberOf(digits, 2) / 60.0 + seconds / 3600.0;
}

// Date, time, right ascension and declination of packed texts.
std::optional<Values> packedValues(const std::string& date, const std::string& time, const std::string& ra,
                                   const std::string& de, double magnitude)
{
    const auto day = dayOf(static_cast<int>(2000 + numberOf(date, 4)), numberOf(date, 2), numberOf(date, 0));
    const auto hours = packed(time, 24);
    const auto hoursOfRA = packed(ra, 24);
    const auto degrees = packed(de.substr(1), 90);
    if (!day || !hours || !hoursOfRA || !degrees) {
        return std::nullopt;
    }
    const double sign = de[0] == '-' ? -1.0 : 1.0;
    return Values{*day + *hours / 24.0, *hoursOfRA * 15.0, sign * *degrees, magnitude};
}

bool isBlank(const std::string& line)
{
    return line.find_first_not_of(" \t") == std::string::npos;
}

std::string withoutTabsAtEnd(std::string line)
{
    while (line.ends_with('\t')) {
        line.pop_back();
    }
    return line;
}

Meaning meaningInMea(const std::string& whole, std::size_t number)
{
    static const std::regex mark(R"( *(\S+) +(\d{6}) +(\d{6,}) +(\d{6,}) +([+-]\d{6,}) +(\S+) +)"
                                 R"(([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?) *)");
    const std::string line = withoutTabsAtEnd(whole);
    if (number == 1 || isBlank(line)) {
        return {number == 1 ? LineFate::head : LineFate::blank};
    }
    std::smatch parts;
    if (!std::regex_match(line, parts, mark)) {
        return {};
    }
    const auto values = packedValues(parts[2], parts[3], parts[4], parts[5], valueOf(parts[7]));
    return values ? Meaning{LineFate::mark, values} : Meaning{};
}

Meaning meaningInTelegram(const std::string& whole, std::size_t /*number*/)
{
    static const std::regex head(R"((?!\d{6} )\S+ \S+ \S+)");
    static const std::regex mark(R"((\d{6}) (\d{6,}) (\d{6,}) ([+-]\d{6,}) \d{3}(\d{3}))");
    const std::string line = withoutTabsAtEnd(whole);
    std::smatch parts;
    if (line == "END") {
        return {LineFate::end};
    }
    if (isBlank(line)) {
        return {LineFate::blank};
    }
    if (std::regex_match(line, parts, mark)) {
        const auto values = packedValues(parts[1], parts[2], parts[3], parts[4], valueOf(parts[5]) / 10.0);
        return values ? Meaning{LineFate::mark, values} : Meaning{};
    }
    return std::regex_match(line, head) ? Meaning{LineFate::head} : Meaning{};
}

Meaning meaningInTable(const std::string& whole, std::size_t number)
{
    static const std::string decimal = R"(([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?))";
    static const std::regex mark(R"([^\t]*\t(\d{4})-(\d{1,2})-(\d{1,2})\t(\d{1,2}):(\d{1,2}))"
                                 R"((?::(\d+\.?\d*|\.\d+))?\t)" +
                                 decimal + R"(\t)" + decimal + R"(\t)" + decimal +
                                 R"(\t*)"); // empty fields after the last say nothing
    if (number <= 2 || withoutTabsAtEnd(whole) == "---") {
        return {number <= 2 ? LineFate::head : LineFate::end};
    }
    std::smatch parts;
    if (!std::regex_match(whole, parts, mark)) {
        return {};
    }
    const auto day = dayOf(std::stoi(parts[1]), numberOf(parts[2], 0), numberOf(parts[3], 0));
    const double seconds = parts[6].matched ? valueOf(parts[6]) : 0.0;
    const double ra = valueOf(parts[7]);
    const double de = valueOf(parts[8]);
    const bool isInRange = std::stoi(parts[4]) < 24 && std::stoi(parts[5]) < 60 && seconds < 60.0 &&
                           ra >= 0.0 && ra <= 360.0 && std::abs(de) <= 90.0;
    if (!day || !isInRange) {
        return {};
    }
    const double time = (std::stoi(parts[4]) + std::stoi(parts[5]) / 60.0 + seconds / 3600.0) / 24.0;
    return {LineFate::mark, Values{*day + time, ra, de, valueOf(parts[9])}};
}

Lines goodMea(std::mt19937& random)
{
    Lines lines{"K88 2000.0 UTC"};
    for (unsigned i = 0; i < 6 + random() % 4; ++i) {
        const std::string sign = random() % 2 == 0 ? "+" : "-";
        lines.push_back("NAME" + std::to_string(random() % 3) + "   250223 1" + std::to_string(i) +
                        "12345670 0100000000 " + sign + "205301234 001 1" + std::to_string(i) + ".50");
    }
    return lines;
}

Lines goodTelegram(std::mt19937& random)
{
    Lines lines;
    for (int block = 0; block < 3; ++block) {
        lines.push_back("MPC 807 NAME" + std::to_string(block));
        for (unsigned i = 0; i < 2 + random() % 3; ++i) {
            const std::string sign = random() % 2 == 0 ? "+" : "-";
            lines.push_back("250223 1" + std::to_string(i) + "123456 01000000 " + sign + "20530123 00115" +
                            std::to_string(i));
        }
        lines.insert(lines.end(), {"END", ""});
    }
    return lines;
}

Lines goodTable(std::mt19937& random)
{
    Lines lines{"v2", "QRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag"};
    for (int track = 0; track < 3; ++track) {
        for (unsigned i = 0; i < 2 + random() % 3; ++i) {
            lines.push_back("NAME" + std::to_string(track) + "\t2023-02-25\t1" + std::to_string(i) +
                            ":12:34.5678900\t15.100000\t-20.500000\t15.3000\t");
        }
        lines.emplace_back("---");
    }
    return lines;
}

// Changes one character of one line, from a line on; gives its number.
std::size_t edit(Lines& lines, std::size_t from, std::mt19937& random)
{
    static const std::string characters = "0123456789 +-.,:xeEn\t";
    const std::size_t index = from - 1 + random() % (lines.size() - from + 1);
    std::string& line = lines[index];
    const char character = characters[random() % characters.size()];
    const std::size_t place = line.empty() ? 0 : random() % line.size();
    const auto kind = line.empty() ? 2 : random() % 3;
    if (kind == 0) {
        line[place] = character;
    } else if (kind == 1) {
        line.erase(place, 1);
    } else {
        line.insert(place, 1, character);
    }
    return index + 1;
}

struct TestedFormat
{
    std::string name;
    Lines (*good)(std::mt19937& random);
    Meaning (*meaning)(const std::string& line, std::size_t number);
    std::size_t firstEdited;
    // A line alone in a good file.
    std::function<std::vector<TrackVtorichka>(const std::string& line)> readAlone;
};

// What the reader makes of a mark's line.
std::optional<Values> valuesOf(const TestedFormat& format, const std::string& line)
{
    const std::vector<TrackVtorichka> tracks = format.readAlone(line);
    if (tracks.size() != 1 || tracks[0].Marks.size() != 1) {
        return std::nullopt;
    }
    const auto& mark = tracks[0].Marks[0];
    return Values{mark.date + mark.time, mark.RA, mark.DE, mark.m};
}

struct Linted
{
    std::set<std::size_t> lines{};
    bool tellsLostBlock = false;
    LineFates fates{};
};

Linted linted(const std::string& path, const std::string& format)
{
    Linted result;
    const auto found = [&result](const Finding& each) {
        result.lines.insert(each.line);
        result.tellsLostBlock = result.tellsLostBlock || each.code == companion::FindingCode("V160") ||
                                each.code == companion::FindingCode("V201");
    };
    EXPECT_TRUE(companion::lintFile(path, format, {}, found).agrees());
    companion::readWithFates({path, format}, result.fates);
    return result;
}

// Whether the reader takes a line as a person does.
bool isUnderstood(const TestedFormat& format, const Lines& lines, std::size_t number, const Linted& result)
{
    const std::string& line = lines[number - 1];
    const Meaning meaning = format.meaning(line, number);
    if (meaning.fate != result.fates.fate(number) || meaning.fate == LineFate::passed) {
        return false;
    }
    if (meaning.fate != LineFate::mark) {
        return true;
    }
    const auto values = valuesOf(format, line);
    return values.has_value() && areEqual(*values, *meaning.values);
}

void expectTruth(const TestedFormat& format)
{
    const TemporaryFolder folder;
    std::mt19937 random(20230225);
    int told = 0;
    constexpr int edits = 1000;
    for (int i = 0; i < edits; ++i) {
        Lines lines = format.good(random);
        const std::size_t number = edit(lines, format.firstEdited, random);
        {
            std::ofstream file(folder / "file", std::ios::binary);
            for (const std::string& line : lines) {
                file << line << '\n';
            }
        }
        const Linted result = linted(folder / "file", format.name);
        if (isUnderstood(format, lines, number, result)) {
            continue;
        }
        ++told;
        const bool isLost = result.fates.fate(number) == LineFate::lost && result.tellsLostBlock;
        EXPECT_TRUE(isLost || result.lines.contains(number))
            << format.name << ", line " << number << ": \"" << lines[number - 1] << '"';
    }
    EXPECT_GT(told, edits / 10);
    EXPECT_LT(told, edits);
}

TEST(LintTruth, EachEditOfMeaThatIsMisreadHasAFinding)
{
    expectTruth({"mea", goodMea, meaningInMea, 2, [](const std::string& line) {
                     return tavelinUtils::lMEATrack({"K88 2000.0 UTC", line}, "");
                 }});
}

TEST(LintTruth, EachEditOfATelegramThatIsMisreadHasAFinding)
{
    expectTruth({"telegram", goodTelegram, meaningInTelegram, 1, [](const std::string& line) {
                     return tavelinUtils::lTelegramma(std::vector<std::string>{"a b c", line, "END"});
                 }});
}

TEST(LintTruth, EachEditOfATrackTableThatIsMisreadHasAFinding)
{
    std::mt19937 random(1);
    const std::string header = goodTable(random)[1];
    expectTruth({"table", goodTable, meaningInTable, 3, [header](const std::string& line) {
                     return tavelinUtils::lListTrack(
                         std::vector<std::string>{"v2", header, withoutTabsAtEnd(line), "---"});
                 }});
}

} // namespace
