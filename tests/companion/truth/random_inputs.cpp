#include "companion/truth/random_inputs.h"

#include "companion/truth/text_faults.h"
#include "format_words.h"
#include "support/random_works.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <utility>

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

namespace {

using Words = RandomChoices::Words;

const Words tidyNames = {"12345", "99000", "K13A01A", "433", "obj7", "A", "Z6433", "AST1000"};
const Words oddNames = {"",
                        "two words",
                        "a/b",
                        "../x",
                        "longer than seven",
                        "\xc3\x9c"
                        "bung",
                        "a,b",
                        "a\\b",
                        ".",
                        "..",
                        "END",
                        "T1 12345",
                        " lead",
                        "1858-11-17"};

// Columns of a table: the type of each is what its writer names.
struct ColumnRow
{
    const char* name;
    const char* type;
};
constexpr ColumnRow usualColumns[] = {{"QRVName", ":Text"}, {"MPCChecker", ":Text"}, {"NORAD", ":Text"},
                                      {"date", ":Date"},    {"time", ":Time"},       {"RA", ":Float:deg"},
                                      {"DE", ":Float:deg"}, {"m", ":Float:mag"},     {"filtr", ":Text"}};
constexpr ColumnRow furtherColumns[] = {{"mEnsemble", ":Float"},
                                        {"SNRpeak", ":Float"},
                                        {"MTYPE", ":Text"},
                                        {"KNAME", ":Text"},
                                        {"CHART", ":Text"},
                                        {"mInstr", ":Float"},
                                        {"mInstr1000", ":Float"},
                                        {"mInstrComp", ":Float"},
                                        {"iF", ":Int"},
                                        {"iB", ":Int"},
                                        {"N", ":Int"},
                                        {"mjd", ":Float:day"},
                                        {"V", ":Float"},
                                        {"TrMade", ":Text"},
                                        {"X_f", ":Float:pix"},
                                        {"CNAME", ":Text"},
                                        {"noradid", ":Text"},
                                        {"Name", ":Text"},
                                        {"bjd", ":Float:day"},
                                        {"unknown", ":Text"}};

std::string formatted(const char* form, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, form, value);
    return text;
}

std::string clockText(int seconds)
{
    char text[64];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
    return text;
}

std::string fileText(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string element(const std::string& name, const std::string& value)
{
    return "<" + name + ">" + value + "</" + name + ">";
}

// Declinations are mostly south of the equator: writers put no sign before others, which readers then take
// wrongly.
TRecLabelPervichka_File randomMark(RandomChoices& choices, double moment)
{
    TRecLabelPervichka_File mark;
    mark.date = static_cast<int>(moment);
    mark.time = moment - mark.date;
    mark.RA = 359.99 * choices.fraction();
    mark.DE = -0.1 - 89.0 * choices.fraction();
    mark.m = 9.0 + 10.0 * choices.fraction();
    if (choices.fault()) {
        mark.DE = -mark.DE;
    }
    if (choices.fault()) {
        mark.m = choices.between(-3, 3) * 3.33;
    }
    if (choices.fault()) {
        mark.time = 0.9999999;
    }
    return mark;
}

TrackVtorichka randomTrack(RandomChoices& choices)
{
    TrackVtorichka track;
    track.QRVName = choices.oddly(tidyNames, oddNames);
    track.telescope = choices.oddly({"T1", "K88"}, {"", "two words"});
    track.originator = choices.oddly({"observatory", "MPC"}, {"", "two words"});
    double moment = 59000 + choices.between(0, 1000) + choices.fraction() / 2;
    for (int marks = choices.fault() ? 0 : choices.between(1, 6); marks > 0; --marks) {
        track.Marks.push_back(randomMark(choices, moment));
        moment += choices.between(1, 40) / 1440.0;
    }
    return track;
}

} // namespace

std::string RandomInputs::written(const std::string& word)
{
    std::vector<TrackVtorichka> tracks;
    for (int count = choices.between(1, 4); count > 0; --count) {
        tracks.push_back(randomTrack(choices));
    }
    std::remove(scratch.c_str());
    SelectFormatAndSave(scratch, word, tracks); // four of the words are never unknown
    return fileText(scratch);
}

std::string RandomInputs::measurements(const std::string& word)
{
    if (choices.fault() && choices.chance(30)) {
        return RandomWorks(choices.seed()).input(word);
    }
    return faulty(written(word));
}

// Every third text that may be faulty is.
std::string RandomInputs::faulty(std::string text)
{
    for (int faults = choices.fault() ? choices.between(1, 4) : 0; faults > 0; --faults) {
        putFault(text, choices);
    }
    return text;
}

namespace {

// The texts that the lines of a track of a table have in common, and the moment of each.
struct TableTrack
{
    std::string name;
    std::string checker;
    std::string norad;
    std::string date;
    int second = 0;
};

std::string tableField(RandomChoices& choices, const std::string& column, const TableTrack& track)
{
    const std::pair<const char*, std::string> texts[] = {{"QRVName", track.name},
                                                         {"Name", track.name},
                                                         {"MPCChecker", track.checker},
                                                         {"NORAD", track.norad},
                                                         {"noradid", track.norad},
                                                         {"date", track.date},
                                                         {"filtr", "R"},
                                                         {"time", clockText(track.second) + ".5"},
                                                         {"MTYPE", "STD"},
                                                         {"KNAME", "000-BBV"},
                                                         {"CHART", "na"},
                                                         {"CNAME", "ENSEMBLE"},
                                                         {"TrMade", "STROB"},
                                                         {"unknown", "x"}};
    for (const auto& [name, text] : texts) {
        if (name == column) {
            return text;
        }
    }
    if (column == "RA" || column == "DE") {
        return formatted("%.7f",
                         column == "RA" ? 359.9 * choices.fraction() : -89.0 * choices.fraction() - 0.1);
    }
    return formatted("%.3f", 9.0 + 10.0 * choices.fraction());
}

std::string lineOf(RandomChoices& choices, const std::vector<std::string>& columns, const TableTrack& track)
{
    std::string line;
    for (const std::string& column : columns) {
        const std::string field = tableField(choices, column, track);
        line += (line.empty() && &column == columns.data() ? "" : "\t");
        line += choices.fault() && choices.chance(20)
                    ? choices.pick({"", "x", "2023-02-31", "12", "---", "9,5", "nan", "1e400", "12:00"})
                    : field;
    }
    return line + "\n";
}

std::vector<std::string> columnsOfTable(RandomChoices& choices)
{
    std::vector<std::string> columns;
    for (const ColumnRow& row : usualColumns) {
        if (!choices.fault()) {
            columns.emplace_back(row.name);
        }
    }
    for (const ColumnRow& row : furtherColumns) {
        if (choices.chance(15)) {
            columns.emplace_back(row.name);
        }
    }
    if (choices.fault() && !columns.empty()) {
        columns.push_back(columns[choices.place(columns.size())]);
    }
    if (choices.chance(30)) {
        for (std::size_t i = columns.size(); i > 1; --i) {
            std::swap(columns[i - 1], columns[choices.place(i)]);
        }
    }
    return columns;
}

std::string headerOf(RandomChoices& choices, const std::vector<std::string>& columns)
{
    std::string header;
    for (const std::string& column : columns) {
        header += header.empty() ? "" : "\t";
        header += column;
        const auto typeOf = [&column](const ColumnRow& row) { return row.name == column; };
        const auto* usual = std::find_if(std::begin(usualColumns), std::end(usualColumns), typeOf);
        const auto* further = std::find_if(std::begin(furtherColumns), std::end(furtherColumns), typeOf);
        if (choices.chance(95)) {
            header += usual != std::end(usualColumns) ? usual->type : further->type;
        }
    }
    return header + "\n";
}

} // namespace

std::string RandomInputs::tableTrack(const std::vector<std::string>& columns)
{
    TableTrack track;
    track.name = choices.oddly(tidyNames, oddNames);
    if (choices.fault() && choices.chance(10)) {
        track.name = std::string(300, 'n');
    }
    track.checker = choices.oddly({"", "K13A01A", "00433", "K10VK8K"}, oddNames);
    track.norad = choices.oddly({"", "40001", "40002"}, oddNames);
    track.date = choices.pick({"2023-02-25", "2023-02-25", "2023-02-26", "2024-02-29"});
    track.second = choices.between(0, 40000);
    std::string text;
    for (int marks = choices.fault() ? 0 : choices.between(1, 6); marks > 0; --marks) {
        text += lineOf(choices, columns, track);
        track.second += 60 * (choices.chance(90) ? choices.between(1, 29) : choices.between(30, 200));
    }
    return text + choices.oddly({"---\n"}, {"--- \n", "----\n", "", "---\t\r\n", "---\n---\n", "\n---\n"});
}

std::string RandomInputs::table()
{
    if (choices.fault() && choices.chance(20)) {
        return RandomWorks(choices.seed()).table();
    }
    const std::vector<std::string> columns = columnsOfTable(choices);
    std::string text = choices.oddly({"v2\n"}, {"", "v1\n", "v2 \n"}) + headerOf(choices, columns);
    for (int tracks = choices.fault() ? 0 : choices.between(1, 4); tracks > 0; --tracks) {
        text += tableTrack(columns);
    }
    return faulty(std::move(text));
}

std::string RandomInputs::configurationKeys()
{
    std::string report =
        element("MPCcode", choices.oddly({"I41", "W84", "K88"}, {"", "500", "long code", "<![CDATA[]]>"}));
    for (const char* key : {"CON", "OBS", "MEA", "TEL", "ACK"}) {
        if (choices.chance(50)) {
            report += element(key, choices.oddly({"A. Observer", "1.2-m reflector"},
                                                 {"", "\xc3\x9c &amp; Co", "two\nlines"}));
        }
    }
    std::string keys = element("Service", choices.oddly({"asteroids", "satellites", "variablestars"},
                                                        {"", "ASTEROIDS", "Service_Uncknown", "stars"}));
    keys += element("ReportSettings", element("MPCReport", report));
    return keys + element("lightCurves",
                          element("AAVSOCode", choices.oddly({"ABC", "XYZ"}, {"", "a,b", "<![CDATA[]]>"})));
}

std::string RandomInputs::configuration()
{
    if (choices.fault()) {
        return RandomWorks(choices.seed()).configuration();
    }
    std::string keys = configurationKeys();
    if (choices.fault() && choices.onceIn(60)) {
        keys +=
            choices.pick({"<HeaderSettings><filterKeys><c><R><string/></R></c></filterKeys></HeaderSettings>",
                          "<intraframeProcessing><brightnessFramesAlignment><ProcessingRawBias><path> </path>"
                          "</ProcessingRawBias></brightnessFramesAlignment></intraframeProcessing>"});
    }
    if (choices.fault() && choices.onceIn(10)) {
        keys = element("settings", keys);
    }
    return element("root", keys) + "\n";
}
