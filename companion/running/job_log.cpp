#include "running/job_log.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "findings/finding.h"
#include "out/characters.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace companion {
namespace {

constexpr std::string_view titles =
    "Seq\tHost\tStarttime\tJobRuntime\tSend\tReceive\tExitval\tSignal\tCommand\n";

WrongUsage unusable(const std::string& path)
{
    return {finding("V003", {{"file", path}, {"what", std::strerror(errno)}})};
}

bool isPlain(char c)
{
    constexpr std::string_view others = "%+,-./:=@_";
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || others.find(c) != others.npos ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == 0x7f;
}

// In the quotes that take escapes: a line of the log has neither tabs nor line feeds of its own.
std::string escaped(std::string_view word)
{
    std::string text = "$'";
    for (const char c : word) {
        if (isControl(c)) {
            char octal[5];
            std::snprintf(octal, sizeof octal, "\\%03o",
                          static_cast<unsigned>(static_cast<unsigned char>(c)));
            text += octal;
        } else {
            text += c == '\'' || c == '\\' ? "\\" : "";
            text += c;
        }
    }
    return text + "'";
}

JobLine lineOf(const std::array<std::string_view, 9>& fields)
{
    using tavelinUtils::toDouble;
    using tavelinUtils::toInt;
    return {static_cast<std::size_t>(std::max(toInt(fields[0]), 0)),
            toDouble(fields[2]),
            toDouble(fields[3]),
            toInt(fields[6]),
            toInt(fields[7]),
            std::string(fields[8])};
}

} // namespace

std::string shellWord(std::string_view word)
{
    if (!word.empty() && std::all_of(word.begin(), word.end(), isPlain)) {
        return std::string(word);
    }
    if (std::any_of(word.begin(), word.end(), isControl)) {
        return escaped(word);
    }
    std::string text = "'";
    for (const char c : word) {
        text += c == '\'' ? "'\\''" : std::string(1, c);
    }
    return text + "'";
}

std::string jobText(const JobLine& line)
{
    constexpr std::size_t widthOfSeconds = 10;
    tavelinUtils::TextBuffer seconds;
    tavelinUtils::appendFixed(seconds, line.seconds, 3);
    tavelinUtils::TextBuffer text(std::to_string(line.number) + "\t:\t");
    tavelinUtils::appendCell(text, line.began, 3, '\t');
    text += std::string(widthOfSeconds - std::min(widthOfSeconds, seconds.size()), ' ');
    text += seconds.view();
    text += "\t0\t0\t" + std::to_string(line.exitValue) + '\t' + std::to_string(line.signal) + '\t';
    text += line.command + '\n';
    return text.str();
}

std::map<std::string, JobLine> readJobLog(const std::string& path)
{
    std::map<std::string, JobLine> lines;
    tavelinUtils::FileBytes bytes;
    if (!tavelinUtils::readBytes(path, bytes)) {
        return lines;
    }
    std::string_view text = bytes.view();
    text = text.substr(0, text.rfind('\n') + 1);
    tavelinUtils::forEachToken(text, '\n', [&lines](std::string_view line) {
        std::array<std::string_view, 9> fields;
        if (tavelinUtils::cutParts(line, '\t', fields) == fields.size() && tavelinUtils::toInt(fields[0]) > 0)
        {
            JobLine job = lineOf(fields);
            lines[job.command] = std::move(job);
        }
    });
    return lines;
}

JobLog::JobLog(const std::string& logPath, bool isContinued)
    : path(logPath), file(std::fopen(path.c_str(), isContinued ? "a+e" : "we"))
{
    if (file == nullptr) {
        throw unusable(path);
    }
    const bool isEmpty = std::fseek(file.get(), -1, SEEK_END) != 0;
    if (isEmpty) {
        write(titles);
    } else if (std::fgetc(file.get()) != '\n') {
        write("\n"); // behind a line that was cut short
    }
}

void JobLog::add(const JobLine& line)
{
    write(jobText(line));
}

void JobLog::write(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() || std::fflush(file.get()) != 0) {
        throw unusable(path);
    }
}

} // namespace companion
