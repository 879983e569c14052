#include "reading/lint.h"

#include "base/lines.h"
#include "findings/finding_table.h"
#include "reading/line_checker.h"
#include "reading/text_front.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace companion {

using tavelinUtils::LinePieces;
using tavelinUtils::TrackVtorichka;

namespace {

// A line may have any length; what is shown of it may not.
constexpr std::size_t longestSnippet = 4096;

struct FormatChecker
{
    std::string_view format;
    std::unique_ptr<LineChecker> (*make)();
};

// The checkers of the reader's and the person's layers.
constexpr FormatChecker formatCheckers[] = {
    {"mea", meaLines}, {"telegram", telegramLines}, {"table", tableLines},
    {"tdm", tdmLines}, {"ssmas", ssmasLines},       {"mpc", mpcLines},
};

struct ReceiverChecker
{
    std::string_view receiver;
    std::string_view format;
    std::unique_ptr<LineChecker> (*make)();
};

// The checkers of the receivers' rules.
constexpr ReceiverChecker receiverCheckers[] = {
    {"mpc", "mpc", mpcReceiverLines},          {"ccsds", "tdm", tdmReceiverLines},
    {"ccsds", "tdm.xml", tdmXmlReceiverLines}, {"aavso", "aavso", aavsoReceiverLines},
    {"ades", "ades.psv", adesTextLines},       {"ades", "ades.xml", adesXmlLines},
};

// All checkers of a file but that of its bytes.
std::vector<std::unique_ptr<LineChecker>> checkersOf(const std::string& format, const std::string& receiver)
{
    std::vector<std::unique_ptr<LineChecker>> checkers;
    for (const FormatChecker& row : formatCheckers) {
        if (row.format == format) {
            checkers.push_back(row.make());
        }
    }
    for (const ReceiverChecker& row : receiverCheckers) {
        if (row.receiver == receiver && row.format == format) {
            checkers.push_back(row.make());
        }
    }
    return checkers;
}

// Gives each line of a file to its checkers.
class LintedLines
{
public:
    LintedLines(const std::string& format, LintOutput& output)
        : out(output), encoding(format), checkers(checkersOf(format, output.settings().receiver))
    {
    }

    void add(std::string_view bytes, bool isEnded)
    {
        const std::size_t number = ++count;
        const CheckedLine line{number,
                               tavelinUtils::withoutLineEnd(bytes),
                               bytes,
                               isEnded,
                               out.fates().fate(number),
                               out.fates().reason(number)};
        out.begin(line);
        encoding.line(line, out);
        if (encoding.stopsLines()) {
            return;
        }
        for (const auto& checker : checkers) {
            checker->line(line, out);
        }
    }

    std::size_t finish()
    {
        out.begin({});
        encoding.end(out);
        if (!encoding.stopsLines()) {
            for (const auto& checker : checkers) {
                checker->end(out);
            }
        }
        return count;
    }

private:
    LintOutput& out;
    EncodingChecker encoding;
    std::vector<std::unique_ptr<LineChecker>> checkers;
    std::size_t count = 0;
};

// Gives each line of a text, with what stands before its line feed, and whether it has one.
template <class Use>
void forEachWholeLine(std::string_view rest, Use use)
{
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        use(rest.substr(0, end), end != std::string_view::npos);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
}

// The lines are those of tavelinUtils::readTextLines, here with their ends.
std::size_t walk(std::FILE* stream, const std::string& path, LintedLines& lines)
{
    LinePieces pieces(stream);
    while (pieces.next()) {
        forEachWholeLine(pieces.lines(),
                         [&lines](std::string_view line, bool isEnded) { lines.add(line, isEnded); });
    }
    mustHaveBeenRead(stream, path);
    return lines.finish();
}

tavelinUtils::OpenFile opened(const std::string& path)
{
    errno = 0;
    tavelinUtils::OpenFile stream = tavelinUtils::openForReading(path);
    if (stream == nullptr) {
        const char* const reason = errno != 0 ? std::strerror(errno) : "is a folder";
        throw WrongUsage{finding("V003", {{"file", path}, {"what", reason}})};
    }
    return stream;
}

// The account of a file by the fates of its lines and by the tracks of its reader.
FileAccount accountOf(const std::string& format, const LineFates& fates, std::size_t lines,
                      std::size_t tracks, std::size_t marks)
{
    FileAccount account = fates.account(lines);
    account.tracks = tracks;
    account.marksRead = hasWatchedReader(format) ? marks : account.marks;
    if (format == "tdm" || format == "ssmas") {
        account.repeated = marks - std::min(marks, account.marks);
    }
    return account;
}

// Marks that are lost, and values that are read as others than stand there.
constexpr CodeRange lossCodes[] = {
    {"V061", "V061"}, {"V121", "V127"}, {"V129", "V129"}, {"V150", "V151"},
    {"V160", "V161"}, {"V163", "V167"}, {"V180", "V180"}, {"V185", "V189"},
    {"V195", "V195"}, {"V197", "V197"}, {"V201", "V201"}, {"V205", "V206"},
};

} // namespace

std::size_t tellLosses(const ReadText& read, const std::function<void(Finding)>& found)
{
    const LintSettings settings;
    const TrackTimes times(false); // what the times of neighbours are like is no loss
    LintOutput out("", settings, read.fates, times, [&found](Finding each) {
        if (isAmong(lossCodes, each.code)) {
            found(std::move(each));
        }
    });
    const auto checkers = checkersOf(read.format, "");
    std::size_t count = 0;
    forEachWholeLine(read.text, [&](std::string_view bytes, bool isEnded) {
        ++count;
        const CheckedLine line{read.numberOf(count),
                               tavelinUtils::withoutLineEnd(bytes),
                               bytes,
                               isEnded,
                               read.fates.fate(count),
                               read.fates.reason(count)};
        out.begin(line);
        for (const auto& checker : checkers) {
            checker->line(line, out);
        }
    });
    out.begin({});
    for (const auto& checker : checkers) {
        checker->end(out);
    }
    out.finish();
    return out.lost();
}

LintLayer layerOf(FindingCode code)
{
    if (code >= FindingCode("V120") && code < FindingCode("V140")) {
        return LintLayer::person;
    }
    return code >= FindingCode("V310") && code < FindingCode("V400") ? LintLayer::receiver
                                                                     : LintLayer::reader;
}

LintOutput::LintOutput(std::string file, const LintSettings& lintSettings, const LineFates& lineFates,
                       const TrackTimes& trackTimes, std::function<void(Finding)> use)
    : path(std::move(file)), wanted(lintSettings), fatesOfLines(lineFates), timesOfTracks(trackTimes),
      found(std::move(use))
{
}

void LintOutput::add(FindingCode code, const Stretch& stretch, FindingValues values)
{
    addAt(present, code, stretch, values);
}

void LintOutput::addAt(const CheckedLine& line, FindingCode code, const Stretch& stretch,
                       FindingValues values)
{
    if (!isWanted(code)) {
        return;
    }
    FindingPlace place;
    place.line = line.number;
    place.column = stretch.column;
    place.length = stretch.length;
    place.snippet = line.text.substr(0, longestSnippet);
    place.field = stretch.field;
    if (stretch.column > 0 && stretch.column <= line.text.size()) {
        place.value = line.text.substr(stretch.column - 1, std::min(stretch.length, longestSnippet));
    }
    Finding each = finding(code, values).in(path).at(line.number, stretch.column);
    each.places.push_back(std::move(place));
    give(std::move(each));
}

void LintOutput::addOfFile(FindingCode code, FindingValues values)
{
    if (isWanted(code)) {
        give(finding(code, values).in(path));
    }
}

void LintOutput::mustAgree(const FileAccount& account)
{
    if (!account.agrees()) {
        const std::string sum = counted(account.lines, "line") + " and " +
                                counted(account.marksRead, "mark") + " do not come to the fates of the lines";
        give(finding("V490", {{"sum", sum}}).in(path));
    }
}

void LintOutput::hold()
{
    isHolding = true;
}

bool LintOutput::wants(LintLayer layer) const
{
    if (layer == LintLayer::receiver) {
        return !wanted.receiver.empty();
    }
    return layer == LintLayer::reader ? wanted.reader : wanted.person;
}

void LintOutput::begin(const CheckedLine& line)
{
    present = line;
}

void LintOutput::finish()
{
    sortFindings(held);
    for (Finding& each : held) {
        found(std::move(each));
    }
    held.clear();
}

bool LintOutput::isWanted(FindingCode code) const
{
    return wants(layerOf(code)) &&
           (!wanted.forCheck || findingRow(code)->by.find('c') != std::string_view::npos);
}

void LintOutput::give(Finding each)
{
    if (isHolding) {
        held.push_back(std::move(each));
    } else {
        found(std::move(each));
    }
}

FileAccount lintFile(const std::string& path, const std::string& format, const LintSettings& settings,
                     const std::function<void(Finding)>& found)
{
    const tavelinUtils::OpenFile stream = opened(path);
    LineFates fates;
    TrackTimes times(format == "mea" || format == "mpc");
    LintOutput out(path, settings, fates, times, found);
    std::size_t marks = 0;
    std::size_t tracks = 0;
    const auto use = [&](const TrackVtorichka& track) {
        marks += track.Marks.size();
        times.add(track);
    };
    try {
        tracks = readWithFates({path, format, "date time", use}, fates);
    } catch (const std::exception& thrown) {
        out.thrown = thrown.what();
    }
    times.finish();

    LintedLines lines(format, out);
    const FileAccount account = accountOf(format, fates, walk(stream.get(), path, lines), tracks, marks);
    if (out.thrown.empty()) {
        out.mustAgree(account);
    }
    out.finish();
    return account;
}

} // namespace companion
