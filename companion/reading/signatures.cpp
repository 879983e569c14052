#include "reading/signatures.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/tokens.h"
#include "findings/finding.h"
#include "formats/track_table_columns.h"
#include "out/characters.h"
#include "reading/strict_fields.h"
#include "reading/text_front.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <vector>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t";

// So many lines of a file are looked at.
constexpr std::size_t enoughLines = 400;

constexpr int certain = 100; // a mark that no other format has
constexpr int nearlyCertain = 95;
constexpr int sure = 90;

// The lines of the front of a file, without those that are empty.
using Lines = std::vector<std::string_view>;

Lines linesOf(std::string_view front)
{
    Lines lines;
    tavelinUtils::forEachLine(front, [&lines](std::string_view line) {
        if (lines.size() < enoughLines && line.find_first_not_of(" \t") != std::string_view::npos) {
            lines.push_back(line);
        }
    });
    return lines;
}

std::vector<std::string_view> wordsOf(std::string_view line)
{
    std::vector<std::string_view> words;
    tavelinUtils::forEachToken(line, ' ', [&words](std::string_view word) {
        if (!word.empty()) {
            words.push_back(word);
        }
    });
    return words;
}

// Mostly digits, as a spoilt number is.
bool isNumeric(std::string_view text)
{
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    return digits * 2 > static_cast<std::ptrdiff_t>(text.size());
}

template <class Is>
std::size_t countOf(const Lines& lines, Is is)
{
    return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(), is));
}

// Of lines, so many of a hundred.
int share(std::size_t part, std::size_t whole)
{
    return whole == 0 ? 0 : static_cast<int>(part * 100 / whole);
}

// A line of a mark of MEA, spoilt in one place at most.
bool isMeaMark(std::string_view line)
{
    const std::vector<std::string_view> words = wordsOf(line);
    constexpr std::size_t fields = 7;
    return words.size() == fields && words[1].size() == 6 && isNumeric(words[1]) && words[2].size() >= 6 &&
           isNumeric(words[2]) && words[3].size() >= 6 && isNumeric(words[3]) && words[4].size() >= 7 &&
           isNumeric(words[4]);
}

int pointsOfMea(const Lines& lines)
{
    const std::size_t marks = countOf(lines, isMeaMark);
    const bool hasSite = trimmed(lines.front(), blanks).ends_with(" 2000.0 UTC");
    const int points = share(marks, lines.size() - (hasSite ? 1 : 0));
    const bool isEnough = marks > 0 || lines.size() == 1;
    return hasSite && isEnough ? std::max(points, nearlyCertain) : points;
}

bool isTelegramMark(std::string_view line)
{
    const std::vector<std::string_view> words = wordsOf(line);
    constexpr std::size_t fields = 5;
    return words.size() == fields && words[0].size() == 6 && isNumeric(words[0]) && words[1].size() >= 6 &&
           isNumeric(words[1]) && words[2].size() >= 6 && isNumeric(words[2]) && words[3].size() >= 7 &&
           isNumeric(words[3]) && words[4].size() >= 4 && isNumeric(words[4]);
}

int pointsOfTelegram(const Lines& lines)
{
    const std::size_t marks = countOf(lines, isTelegramMark);
    const std::size_t ends =
        countOf(lines, [](std::string_view line) { return trimmed(line, blanks) == "END"; });
    const std::size_t heads = countOf(lines, [](std::string_view line) { return wordsOf(line).size() == 3; });
    const int points = share(marks + ends + std::min(heads, marks), lines.size());
    if (marks == 0 || ends == 0) {
        return points;
    }
    constexpr int ofEnds = 20;
    return std::min(certain, std::max(points, share(marks, lines.size()) + ofEnds));
}

bool beginsWithKey(std::string_view line, std::string_view key)
{
    return trimmed(line, blanks).starts_with(key);
}

int pointsOfTdm(const Lines& lines)
{
    const auto has = [&lines](std::string_view key) {
        return countOf(lines, [key](std::string_view line) { return beginsWithKey(line, key); }) > 0;
    };
    if (has("CCSDS_TDM_VERS")) {
        return certain;
    }
    return has("META_START") && has("DATA_START") ? nearlyCertain : 0;
}

// Date and time of a mark: 20.01.2024 21:48:27.36.
bool isSsmasMark(std::string_view line)
{
    const std::vector<std::string_view> words = wordsOf(line);
    constexpr std::size_t fewest = 4;
    return words.size() >= fewest && words[0].size() == 10 && words[0][2] == '.' && words[0][5] == '.' &&
           std::count(words[1].begin(), words[1].end(), ':') == 2;
}

int pointsOfSsmas(const Lines& lines)
{
    const bool hasTitle = trimmed(lines.front(), blanks) == "Measurements";
    const bool hasHead =
        countOf(lines, [](std::string_view line) { return beginsWithKey(line, "#SSMAS"); }) > 0;
    const std::size_t marks = countOf(lines, isSsmasMark);
    if (hasTitle && (hasHead || marks > 0)) {
        return certain;
    }
    return hasHead ? nearlyCertain : share(marks, lines.size());
}

// An observation of 80 columns, or a little more or less: year, month and day stand in columns 16 to 25.
bool isMpcObservation(std::string_view line)
{
    constexpr std::size_t shortest = 60;
    constexpr std::size_t longest = 90;
    if (line.size() < shortest || line.size() > longest) {
        return false;
    }
    const std::string_view date = line.substr(15, 10);
    return isNumeric(date.substr(0, 4)) && date[4] == ' ' && date[7] == ' ' && isNumeric(date.substr(5, 2)) &&
           date.find_first_not_of("0123456789. ") == std::string_view::npos;
}

constexpr std::string_view mpcKeys[] = {"COD", "CON", "OBS", "MEA", "TEL", "ACK",
                                        "AC2", "NET", "COM", "BND", "NUM"};

bool isMpcHeader(std::string_view line)
{
    return line.size() >= 3 && (line.size() == 3 || line[3] == ' ') &&
           std::find(std::begin(mpcKeys), std::end(mpcKeys), line.substr(0, 3)) != std::end(mpcKeys);
}

int pointsOfMpc(const Lines& lines)
{
    const std::size_t marks = countOf(lines, isMpcObservation);
    const std::size_t heads = countOf(lines, isMpcHeader);
    const int points = share(marks + heads, lines.size());
    const bool hasStation = lines.front().starts_with("COD ");
    return hasStation && marks > 0 ? std::max(points, nearlyCertain) : marks > 0 ? points : points / 2;
}

// A header. Lists of stars have columns of the same names, but neither date nor time.
int pointsOfHeader(std::string_view header, bool hasVersion)
{
    const tavelinUtils::ColumnsToRead known = tavelinUtils::columnsToRead(header);
    const std::size_t count = known.ofHead.size() + known.ofMarks.size();
    const bool isTyped = header.find(':') != std::string_view::npos;
    constexpr int doubt = 50;
    if (hasVersion) {
        return count > 0 || isTyped ? nearlyCertain : doubt;
    }
    const bool hasTimes = std::any_of(known.ofMarks.begin(), known.ofMarks.end(), [](const auto& column) {
        return column.column->name() == "date" || column.column->name() == "time";
    });
    constexpr std::size_t few = 3;
    return count < few ? 0 : !hasTimes ? doubt : isTyped ? nearlyCertain : sure;
}

int pointsOfTable(const Lines& lines)
{
    const bool hasVersion = lines.front() == "v2";
    if (hasVersion && lines.size() == 1) {
        return nearlyCertain;
    }
    return pointsOfHeader(lines[hasVersion ? 1 : 0], hasVersion);
}

int pointsOfAavso(const Lines& lines)
{
    std::string first;
    for (const char c : lower(lines.front())) {
        first += c == ' ' || c == '\t' ? "" : std::string(1, c);
    }
    return first.starts_with("#type=extended") ? certain : first.starts_with("#type=") ? 60 : 0;
}

int pointsOfLightCurve(const Lines& lines)
{
    return lines.front().starts_with("JD geocentric\tapparent") ? certain : 0;
}

int pointsOfAdesText(const Lines& lines)
{
    const std::string_view first = trimmed(lines.front(), blanks);
    if (first.starts_with("# version=") || first.starts_with("#version=")) {
        return certain;
    }
    const bool hasColumns =
        countOf(lines, [](std::string_view line) {
            return line.find('|') != std::string_view::npos && line.find("obsTime") != std::string_view::npos;
        }) > 0;
    return hasColumns ? nearlyCertain : 0;
}

int pointsOfHorizons(const Lines& lines)
{
    const auto has = [&lines](std::string_view text) {
        return countOf(lines, [text](std::string_view line) {
                   return line.find(text) != std::string_view::npos;
               }) > 0;
    };
    if (has("$$SOE")) {
        return certain;
    }
    return has("Horizons") && has("Ephemeris") ? 90 : 0;
}

// Number of a satellite's element line: "1 25544U 98067A ...".
bool isElementLine(std::string_view line, char number)
{
    constexpr std::size_t shortest = 60;
    return line.size() >= shortest && line[0] == number && line[1] == ' ' &&
           isNumeric(trimmed(line.substr(2, 5), blanks));
}

int pointsOfElements(const Lines& lines)
{
    std::size_t pairs = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        pairs += isElementLine(lines[i - 1], '1') && isElementLine(lines[i], '2') ? 1U : 0U;
    }
    const std::size_t others = countOf(lines, [](std::string_view line) { return line[0] == '#'; });
    const std::size_t told = lines.size() - others;
    return pairs == 0 ? 0 : std::min(certain, 40 + share(pairs * 3, std::max<std::size_t>(told, 1)));
}

// A line of a result log: "2024-03-09 04:05:06.000789 Code=0//OK//...".
bool isResultLine(std::string_view line)
{
    const std::size_t code = line.find(" Code=");
    return code != std::string_view::npos && line.find("//", code) != std::string_view::npos &&
           line[4] == '-';
}

int pointsOfResultLog(const Lines& lines)
{
    return share(countOf(lines, isResultLine), lines.size());
}

// Whether a document has an element of that name.
bool hasElement(std::string_view text, std::string_view name)
{
    const std::string opening = std::string("<").append(name);
    for (std::size_t at = text.find(opening); at != std::string_view::npos; at = text.find(opening, at + 1)) {
        const std::size_t behind = at + opening.size();
        if (behind >= text.size() || std::strchr(" \t\r\n/>", text[behind]) != nullptr) {
            return true;
        }
    }
    return false;
}

// The name of the first element; empty where there is none.
std::string_view rootOf(std::string_view text)
{
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::string_view rest = text.substr(at + 1);
        if (!rest.empty() && (std::isalpha(static_cast<unsigned char>(rest[0])) != 0 || rest[0] == '_')) {
            return rest.substr(0, rest.find_first_of(" \t\r\n/>"));
        }
        if (rest.starts_with("!--")) {
            at = std::min(text.find("-->", at), text.size());
        }
    }
    return {};
}

template <std::size_t count>
int countElements(std::string_view text, const std::array<std::string_view, count>& names)
{
    return static_cast<int>(std::count_if(names.begin(), names.end(),
                                          [text](std::string_view name) { return hasElement(text, name); }));
}

constexpr std::array<std::string_view, 9> taskElements = {"path_in",     "out_dir",      "outputextension",
                                                          "inputformat", "outputformat", "PARTICIPANT_1",
                                                          "path_res",    "autoname",     "toSeparateFile"};
constexpr std::array<std::string_view, 9> settingsElements = {
    "basicSettings", "Service",    "lightCurves",     "ReportSettings", "MPCReport",
    "asteroids",     "satellites", "frameProcessing", "astrometry"};

// The points of a count of elements: two are enough, one is a doubt.
int pointsOfElementCount(int count)
{
    constexpr int doubt = 60;
    return count >= 2 ? nearlyCertain : count * doubt;
}

struct Format
{
    std::string_view name;
    std::string_view title;
    int (*pointsOfLines)(const Lines& lines);       // of a text; may be a null pointer
    int (*pointsOfDocument)(std::string_view text); // of an XML document; may be a null pointer
};

// In the order in which equal points win.
constexpr Format formats[] = {
    {"mea", "MEA", pointsOfMea, nullptr},
    {"telegram", "telegram", pointsOfTelegram, nullptr},
    {"tdm", "TDM", pointsOfTdm, nullptr},
    {"ssmas", "SSMAS", pointsOfSsmas, nullptr},
    {"mpc", "MPC report", pointsOfMpc, nullptr},
    {"tdm.xml", "TDM XML", nullptr,
     [](std::string_view text) {
         return rootOf(text) == "tdm" ? certain : hasElement(text, "tdm") ? 90 : 0;
     }},
    {"mag", "light curve", pointsOfLightCurve, nullptr},
    {"aavso", "AAVSO report", pointsOfAavso, nullptr},
    {"table", "track table", pointsOfTable, nullptr},
    {"ades.xml", "ADES XML", nullptr,
     [](std::string_view text) { return rootOf(text) == "ades" ? certain : 0; }},
    {"ades.psv", "ADES PSV", pointsOfAdesText, nullptr},
    {"horizons", "Horizons ephemeris", pointsOfHorizons, nullptr},
    {"elements", "element sets", pointsOfElements, nullptr},
    {"task", "task", nullptr,
     [](std::string_view text) { return pointsOfElementCount(countElements(text, taskElements)); }},
    {"configuration", "configuration", nullptr,
     [](std::string_view text) { return pointsOfElementCount(countElements(text, settingsElements)); }},
    {"result", "result", pointsOfResultLog,
     [](std::string_view text) {
         return rootOf(text) == "ResultsList"                             ? certain
                : hasElement(text, "Code") && hasElement(text, "Comment") ? nearlyCertain
                                                                          : 0;
     }},
};

} // namespace

Recognition recognised(std::string_view bytes)
{
    const std::string front = textFront(bytes);
    const Lines lines = linesOf(front);
    Recognition best;
    if (lines.empty()) {
        return best;
    }
    const bool isDocument = trimmed(lines.front(), blanks).starts_with('<');
    for (const Format& format : formats) {
        int points = 0;
        if (isDocument && format.pointsOfDocument != nullptr) {
            points = format.pointsOfDocument(front);
        } else if (!isDocument && format.pointsOfLines != nullptr) {
            points = format.pointsOfLines(lines);
        }
        if (points > best.points) {
            best.second = best.format;
            best.secondPoints = best.points;
            best.format = format.name;
            best.points = points;
        } else if (points > best.secondPoints) {
            best.second = format.name;
            best.secondPoints = points;
        }
    }
    return best;
}

Recognition recognisedFile(const std::string& path)
{
    return recognised(frontOfFile(path));
}

bool isFormatName(std::string_view word)
{
    return std::any_of(std::begin(formats), std::end(formats),
                       [word](const Format& format) { return format.name == word; });
}

std::string formatTitle(std::string_view word)
{
    for (const Format& format : formats) {
        if (format.name == word) {
            return std::string(format.title);
        }
    }
    return std::string(word);
}

std::vector<std::string> formatNames()
{
    std::vector<std::string> names;
    for (const Format& format : formats) {
        names.emplace_back(format.name);
    }
    return names;
}

} // namespace companion
