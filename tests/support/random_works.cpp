#include "support/random_works.h"

#include <cstddef>
#include <cstdio>
#include <iterator>
#include <utility>

using tavelinUtils::TConvMea;
using tavelinUtils::TExcludBlobs;
using tavelinUtils::TSeria2;

namespace {

const std::vector<const char*> names = {"A", "B", "C", "12345", "K13A01A", "obj", "", "two words", "99000"};
const std::vector<const char*> siteNames = {"T1", "observatory", "", "two words", "<&>", "ICRF"};
const std::vector<const char*> words = {"mea",     "telegram", "tdm",   "ssmas", "mpc",
                                        "tdm.xml", "mag",      "aavso", "mpc",   "unknown"};

// Columns of a table; those that nobody reads too.
const std::vector<std::string> columnNames = {
    "QRVName", "date",       "time",    "RA",      "DE",     "m",     "MPCChecker", "NORAD",
    "noradid", "Name",       "filtr",   "MTYPE",   "CNAME",  "KNAME", "CHART",      "mEnsemble",
    "mInstr",  "mInstr1000", "SNRpeak", "mjd",     "iF",     "iB",    "N",          "NBl",
    "V",       "PA",         "V_ra",    "mRA",     "TrMade", "QRVID", "m_MPC",      "mInstrComp",
    "X_f",     "unknown",    "Draw",    "FindOrb", "bjd",    "LymX",  "DispX",      "Angle_rms"};
// The first of them decide what a report is, so that most tables have them.
constexpr std::size_t usualColumns = 8;

// So many minutes after midnight.
std::string timeText(int minutes)
{
    char text[40];
    std::snprintf(text, sizeof text, "%02d:%02d:00", minutes / 60 % 24, minutes % 60);
    return text;
}

} // namespace

// The texts that the lines of a track have in common.
struct RandomWorks::TrackTexts
{
    std::string name;
    std::string checker;
    std::string norad;
    std::string date;
};

std::string RandomWorks::digits(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += static_cast<char>('0' + upTo(9));
    }
    return text;
}

std::string RandomWorks::number()
{
    if (chance(8)) {
        return pick({"", "abc", "nan", "1e400", "0x1F", "1.5.2", " 7", "+5", "-0", ".5", "1e5"});
    }
    return std::string(chance(40) ? "-" : "") + digits(1 + upTo(2)) + "." + digits(upTo(7));
}

std::string RandomWorks::packed(bool sign)
{
    const std::string text = digits(2) + "30" + digits(2 + upTo(4));
    if (chance(1) && chance(40)) {
        return text.substr(0, static_cast<std::size_t>(upTo(6)));
    }
    return (sign ? pick({"-", "-", "+", ""}) : "") + text;
}

std::string RandomWorks::packedDate()
{
    return pick({"250223", "260223", "010100", "290224", "310299", "2502231", chance(3) ? "25" : "2502"});
}

std::string RandomWorks::epoch()
{
    return pick({"2023-02-25", "2023-02-26", "2000-01-01", chance(10) ? "2023-02" : "2024-02-29"}) +
           (chance(97) ? "T" : "") + timeText(upTo(1439)) + (chance(30) ? "." + digits(3) : "");
}

std::string RandomWorks::name()
{
    return pick(names);
}

std::string RandomWorks::lineEnd()
{
    return chance(5) ? pick({"\r\n", "\t\n", " \n", "\n\n"}) : "\n";
}

std::string RandomWorks::mea()
{
    std::string text = pick(siteNames) + " 2000.0 UTC\n";
    for (int lines = upTo(12); lines > 0; --lines) {
        text += name() + " " + packedDate() + " " + packed(false) + " " + packed(false) + " " + packed(true) +
                " 001 " + number() + lineEnd();
    }
    return text;
}

std::string RandomWorks::telegram()
{
    std::string text;
    for (int blocks = upTo(5); blocks > 0; --blocks) {
        text += chance(90) ? "O T1 " + pick({"A", "B", "12345", "C"}) + lineEnd() : "";
        for (int lines = upTo(4); lines > 0; --lines) {
            text += packedDate() + " " + packed(false) + " " + packed(false) + " " + packed(true) + " 001" +
                    digits(3) + lineEnd();
        }
        text += chance(90) ? "END\n\n" : "";
    }
    return text;
}

std::string RandomWorks::tdm()
{
    std::string text = "ORIGINATOR = " + pick(siteNames) + "\n";
    for (int segments = upTo(5); segments > 0; --segments) {
        text += chance(90) ? "META_START" + lineEnd() : "";
        text += chance(80) ? "PARTICIPANT_2 = " + name() + lineEnd() : "";
        for (int marks = upTo(4); marks > 0; --marks) {
            text += chance(95) ? "ANGLE_1 = " + epoch() + " " + number() + lineEnd() : "";
            text += chance(95) ? "ANGLE_2 = " + epoch() + " " + number() + lineEnd() : "";
            text += chance(95) ? "MAG = " + epoch() + " " + number() + lineEnd() : "";
        }
    }
    return text;
}

std::string RandomWorks::ssmas()
{
    std::string text = "Measurements\n" + pick(siteNames) + "\nconversion\n1\n\n\n";
    for (int objects = upTo(5); objects > 0; --objects) {
        text += pick({"A", "B", "12345", ""}) + " " + pick({"A", "7", ""}) + lineEnd();
        for (int marks = upTo(4); marks > 0; --marks) {
            text += pick({"25.02.2023 ", "01.01.2000 "}) + timeText(upTo(1439)) + ".5  01:" + digits(2) +
                    ":00.00 " + pick({"-", "+", ""}) + "00.30." + digits(2) + ".00 001 " + number() +
                    lineEnd();
        }
        text += chance(80) ? "2\n" : "";
    }
    return text;
}

std::string RandomWorks::input(const std::string& word)
{
    if (word == "mea") {
        return mea();
    }
    if (word == "telegram") {
        return telegram();
    }
    return word == "tdm" ? tdm() : ssmas();
}

std::string RandomWorks::tableField(const std::string& column, const TrackTexts& track, int minute)
{
    if (chance(2)) {
        return pick({"", "x", "2023-02-31", "12", "---"});
    }
    if (column == "QRVName" || column == "Name") {
        return track.name;
    }
    if (column == "MPCChecker") {
        return track.checker;
    }
    if (column == "NORAD" || column == "noradid") {
        return track.norad;
    }
    if (column == "date") {
        return track.date;
    }
    if (column == "time") {
        return timeText(minute);
    }
    return column == "filtr" ? pick({"R", "V", "B", ""}) : number();
}

std::string RandomWorks::tableTrack(const std::vector<std::string>& columns)
{
    const TrackTexts track{name(), pick({"", "", "K13A01A", "433"}), pick({"", "", "40001"}),
                           pick({"2023-02-25", "2023-02-25", "2023-02-26"})};
    std::string text;
    int minute = 100 * upTo(7);
    for (int lines = chance(15) ? 0 : upTo(6); lines > 0; --lines) {
        minute += chance(50) ? 5 : 30 * upTo(2);
        const std::size_t fields =
            chance(90) ? columns.size() : static_cast<std::size_t>(upTo(static_cast<int>(columns.size())));
        for (std::size_t i = 0; i < fields; ++i) {
            text += (i == 0 ? "" : "\t") + tableField(columns[i], track, minute);
        }
        text += lineEnd();
    }
    return text + (chance(95) ? "---\n" : pick({"--- \n", "----\n", "", "---\t\r\n"}));
}

std::string RandomWorks::table()
{
    std::vector<std::string> columns;
    for (std::size_t i = 0; i < columnNames.size(); ++i) {
        if (chance(i < usualColumns ? 92 : 25)) {
            columns.push_back(columnNames[i]);
        }
    }
    if (chance(60)) {
        for (std::size_t i = columns.size(); i-- > 1;) {
            std::swap(columns[i], columns[random.below(i + 1)]);
        }
    }
    std::string text = chance(90) ? "v2\n" : "";
    for (const std::string& column : columns) {
        text += column + pick({":Text\t", "\t", ":Float:pix\t"});
    }
    text += "\n";
    for (int tracks = upTo(5); tracks > 0; --tracks) {
        text += tableTrack(columns);
    }
    return text;
}

std::string RandomWorks::configuration()
{
    if (chance(8)) {
        return pick({"", "<root>", "no XML", "<root><Service>asteroids</root>"});
    }
    std::string report;
    for (const char* key : {"MPCcode", "CON", "OBS", "TEL"}) {
        if (chance(50)) {
            report += "<" + std::string(key) + ">" + pick({"I41", "W84", "", "<![CDATA[]]>", "a text"}) +
                      "</" + key + ">";
        }
    }
    return "<root><Service>" +
           pick({"asteroids", "satellites", "variablestars", "asteroids", "satellites", "x"}) +
           "</Service><ReportSettings><MPCReport>" + report +
           "</MPCReport></ReportSettings><lightCurves><AAVSOCode>" + pick({"ABC", "", "X Y"}) +
           "</AAVSOCode></lightCurves></root>\n";
}

TConvMea RandomWorks::conversion(const std::string& folder)
{
    const std::string word = pick({"mea", "telegram", "tdm", "ssmas"});
    TConvMea task;
    task.path_in = folder + "/in/c." + word;
    task.out_dir = folder + pick({"/out/", "/out/", "/out/", "/in/", "/in/../in/", "/missing/"});
    task.outputextension = pick({".txt", ".txt", ".mea", ".telegram", ".tdm", ".ssmas", "", "txt"});
    task.inputformat = chance(90) ? word : pick(words);
    task.outputformat = pick(words);
    task.originator = pick(siteNames);
    task.REFERENCE_FRAME = pick(siteNames);
    task.PARTICIPANT_1 = pick(siteNames);
    task.autoname = chance(25);
    return task;
}

TSeria2 RandomWorks::seria(const std::string& folder, std::size_t series)
{
    TSeria2 made;
    made.path = folder + "/" + tablePath(random.below(series));
    if (chance(4)) {
        made.path = pick({"", "no such table", "no/such/table/anywhere.txt"});
    }
    made.filter = pick({"R", "R", "R", "V", ""});
    made.telescope = pick({"T1", "T1", "T2", ""});
    for (int entries = chance(30) ? upTo(3) : 0; entries > 0; --entries) {
        TExcludBlobs& entry = made.excludes.emplace_back();
        entry.object = upTo(6) - 1;
        for (int marks = upTo(3); marks > 0; --marks) {
            entry.blobs.push_back(upTo(6) - 1);
        }
    }
    return made;
}

TConvMea RandomWorks::report(const std::string& folder, std::size_t series)
{
    constexpr double intervals[] = {30.0, 30.0, 0.0, 4.5, -1.0, 5.0, 1e9};
    TConvMea task;
    task.inputformat = "vomar";
    task.out_dir =
        folder + pick({"/out/", "/out/", "/out/", "/out/", "/s0/", "/s1/tavelin/dataVO/", "/missing/"});
    task.outputextension = pick({"txt", "txt", "conf", ""});
    task.outputformat = pick(words);
    task.originator = pick(siteNames);
    task.PARTICIPANT_1 = pick(siteNames);
    task.longname = chance(50);
    task.autoTelescope = chance(50);
    task.whatSave = chance(15) ? "object" : pick({"", "all"});
    task.object = upTo(4) - 1;
    task.interval = intervals[random.below(std::size(intervals))];
    task.toSeparateFile = pick({"eachgroup", "eachobject", "eachseria", "allobjects", "eachgroup",
                                "eachobject", "eachseria", chance(20) ? "" : "allobjects"});
    for (int entries = chance(3) ? 0 : 1 + upTo(4); entries > 0; --entries) {
        task.paths.push_back(seria(folder, series));
    }
    return task;
}

std::string RandomWorks::tablePath(std::size_t series)
{
    return "s" + std::to_string(series) + "/tavelin/dataVO/obj.txt";
}

std::string RandomWorks::configurationPath(std::size_t series)
{
    return "s" + std::to_string(series) + "/s" + std::to_string(series) + ".conf";
}
