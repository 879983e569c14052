#include "files/text_files.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "files/text_reading.h"
#include "results/code_table.h"
#include "text/number_text.h"

namespace tavelinUtils {
namespace {

constexpr int writtenDecimals = 5;

std::string linesOf(const std::vector<std::string>& lines)
{
    std::size_t size = 0;
    for (const std::string& line : lines) {
        size += line.size() + 1;
    }
    std::string text;
    text.reserve(size);
    for (const std::string& line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

std::string linesOf(const std::vector<double>& values)
{
    std::string text;
    for (const double value : values) {
        text += FloatToStr(value);
        text += '\n';
    }
    return text;
}

} // namespace

std::vector<std::string> ReadFromFile(std::string path)
{
    std::vector<std::string> lines;
    FileBytes file;
    if (readText(path, file)) {
        forEachLine(file.view(), [&lines](std::string_view line) { lines.emplace_back(line); });
    }
    return lines;
}

std::vector<int> ReadFromFileInt(std::string path)
{
    std::vector<int> numbers;
    FileBytes file;
    if (readText(path, file)) {
        forEachLine(file.view(), [&numbers](std::string_view line) { numbers.push_back(toInt(line)); });
    }
    return numbers;
}

// Callers that append to a file go on without it: the result is dropped on purpose.
void appendText(const std::string& path, std::string_view text)
{
    writeBytes(path, "a", text);
}

void rewriteText(const std::string& path, std::string_view text)
{
    std::remove(path.c_str());
    appendText(path, text);
}

void writeText(const std::string& path, std::string_view text)
{
    if (!writeBytes(path, "w", text)) {
        throwErrCode(resultCode::unopenedFile, path);
    }
}

void Write(std::string path, const std::string& line)
{
    writeBytes(path, "w", line + '\n'); // only the form for a list of texts reports a failure
}

void Write(std::string path, const std::vector<std::string>& lines)
{
    writeText(path, linesOf(lines));
}

void Write(std::string path, const std::vector<double>& values)
{
    TextBuffer text;
    for (const double value : values) {
        appendFixed(text, value, writtenDecimals);
        text += '\n';
    }
    writeBytes(path, "w", text); // only the form for a list of texts reports a failure
}

void Write(std::string path, const std::vector<std::vector<double>>& rows)
{
    TextBuffer text;
    for (const std::vector<double>& row : rows) {
        const char* separator = "";
        for (const double value : row) {
            text += separator;
            appendFixed(text, value, writtenDecimals);
            separator = "\t";
        }
        text += '\n';
    }
    writeBytes(path, "w", text); // only the form for a list of texts reports a failure
}

void append(std::string path, std::string line)
{
    appendText(path, line + '\n');
}

void append(std::string path, double value)
{
    appendText(path, FloatToStr(value) + '\n');
}

void append(std::string path, const std::vector<std::string>& lines)
{
    appendText(path, linesOf(lines));
}

void append(std::string path, const std::vector<double>& values)
{
    appendText(path, linesOf(values));
}

void rewrite(std::string path, std::string line)
{
    rewriteText(path, line + '\n');
}

void rewrite(std::string path, double value)
{
    rewriteText(path, FloatToStr(value) + '\n');
}

void rewrite(std::string path, const std::vector<std::string>& lines)
{
    rewriteText(path, linesOf(lines));
}

void rewrite(std::string path, const std::vector<double>& values)
{
    rewriteText(path, linesOf(values));
}

} // namespace tavelinUtils
