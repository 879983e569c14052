#include "companion/truth/input_reading.h"

#include "format_words.h"
#include "formats/line_watch.h"
#include "formats/mea.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "records/track.h"
#include "works.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

using companion::FileAccount;
using tavelinUtils::LineFate;
using tavelinUtils::LineReport;
using tavelinUtils::TrackVtorichka;

namespace {

struct AllReports : tavelinUtils::LineWatch
{
    void settled(const LineReport& report) override
    {
        reports.push_back(report);
    }

    std::vector<LineReport> reports{};
};

struct Input
{
    std::string path;
    std::string format;
};

std::vector<std::string> linesOf(const std::string& path)
{
    std::vector<std::string> lines;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string columnsOf(const companion::CheckedTask& checked)
{
    const FormatWord* const row = formatWord(formatOpticMea_to_int(checked.task.outputformat));
    return row == nullptr ? "date time" : row->columns;
}

void readWatched(const Input& input, const std::string& columns, AllReports& watch)
{
    if (input.format == "mea") {
        tavelinUtils::MeaSource(input.path, "", watch);
    } else if (input.format == "telegram") {
        tavelinUtils::TelegramSource(input.path, watch);
    } else if (input.format == "tdm") {
        tavelinUtils::TdmSource(input.path, watch);
    } else if (input.format == "ssmas") {
        tavelinUtils::SsmasSource(input.path, "", watch);
    } else {
        tavelinUtils::TrackTableSource(input.path, columns, watch);
    }
}

// The marks that the tool itself would read; none where its reader throws.
std::size_t marksOf(const Input& input, const std::string& columns)
{
    std::size_t marks = 0;
    try {
        const Works works = ownWorks();
        const NextTrack next = input.format == "table" ? works.table(input.path, columns)
                                                       : works.source(input.format, input.path, "");
        for (TrackVtorichka track; next(track);) {
            marks += track.Marks.size();
        }
    } catch (...) {
        return 0;
    }
    return marks;
}

// Whether a line is that of a mark, as far as a person can tell: most of its words are numbers.
bool looksLikeMark(std::string_view line)
{
    constexpr std::string_view blanks = " \t\r";
    int numbers = 0;
    for (std::size_t at = line.find_first_not_of(blanks); at != std::string_view::npos;) {
        const std::size_t digit = line[at] == '+' || line[at] == '-' ? at + 1 : at;
        numbers += digit < line.size() && line[digit] >= '0' && line[digit] <= '9' ? 1 : 0;
        at = line.find_first_not_of(blanks, std::min(line.find_first_of(blanks, at), line.size()));
    }
    return numbers >= 4;
}

// Whether a line is that of a mark's value in a message.
bool looksLikeData(std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line.starts_with("ANGLE_1") || line.starts_with("ANGLE_2") || line.starts_with("MAG");
}

// Whether a mark goes with a line of this fate.
bool losesMark(const LineReport& report, std::string_view line, const std::string& format)
{
    switch (report.fate) {
    case LineFate::lost:
    case LineFate::refused: return true;
    case LineFate::head:
    case LineFate::end:
    case LineFate::passed:
        return format == "tdm" ? looksLikeData(line) : format != "table" && looksLikeMark(line);
    default: return false;
    }
}

FileAccount accountOf(const AllReports& watch, std::size_t lines)
{
    const auto count = [&watch](LineFate fate) {
        return static_cast<std::size_t>(
            std::count_if(watch.reports.begin(), watch.reports.end(),
                          [fate](const LineReport& report) { return report.fate == fate; }));
    };
    FileAccount account;
    account.lines = lines;
    account.head = count(LineFate::head);
    account.blank = count(LineFate::blank);
    account.marks = count(LineFate::mark);
    account.parts = count(LineFate::part);
    account.ends = count(LineFate::end);
    account.passed = count(LineFate::passed);
    account.lost = count(LineFate::lost);
    account.refused = count(LineFate::refused);
    return account;
}

bool sameLines(const FileAccount& a, const FileAccount& b)
{
    return a.lines == b.lines && a.head == b.head && a.blank == b.blank && a.marks == b.marks &&
           a.parts == b.parts && a.ends == b.ends && a.passed == b.passed && a.lost == b.lost &&
           a.refused == b.refused;
}

} // namespace

InputReading readInputs(const companion::CheckedTask& checked)
{
    InputReading reading;
    const std::string columns = columnsOf(checked);
    std::size_t marks = 0;
    for (const companion::CheckedInput& read : checked.inputs) {
        const Input input{read.path, read.format};
        const std::vector<std::string> lines = linesOf(read.path);
        AllReports watch;
        readWatched(input, columns, watch);
        if (!read.account.agrees()) {
            reading.disagreements.push_back("the account of " + read.path + " does not agree");
        }
        if (!sameLines(accountOf(watch, lines.size()), read.account)) {
            reading.disagreements.push_back("the account of " + read.path + " is not that of its lines");
        }
        for (const LineReport& report : watch.reports) {
            const bool isThere = report.line >= 1 && report.line <= lines.size();
            if (isThere && losesMark(report, lines[report.line - 1], read.format)) {
                ++reading.linesLost;
            }
        }
        marks += marksOf(input, columns);
    }
    // A report that dies while it reads leaves later series unread.
    if (!checked.plan.dies && marks != checked.plan.account.read) {
        reading.disagreements.push_back("the readers give " + std::to_string(marks) +
                                        " marks, the plan has " + std::to_string(checked.plan.account.read));
    }
    return reading;
}
