#include "exchange/text_results.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "exchange/record_io.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "files/text_reading.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view solvedMark = "PLTSOLVD=T";
constexpr std::string_view noResultFile = "errNoFileResult";

// Calls a function with each line of a file and its number, from 0, and returns how many there are.
template <class Use>
std::size_t forEachNumberedLine(const FileBytes& file, Use use)
{
    std::size_t number = 0;
    forEachLine(file.view(), [&](std::string_view line) { use(number++, line); });
    return number;
}

// A part, counted from 0, of a text split at a separator; empty if there are fewer.
std::string_view partOf(std::string_view text, std::string_view separator, std::size_t part)
{
    for (; part != 0; --part) {
        const std::size_t end = text.find(separator);
        if (end == std::string_view::npos) {
            return {};
        }
        text.remove_prefix(end + separator.size());
    }
    return text.substr(0, text.find(separator));
}

double valueAt(const std::vector<double>& values, std::size_t index)
{
    return index < values.size() ? values[index] : 0.0;
}

// A tab follows each value, the last of a row too.
void appendTabbed(TextBuffer& out, double value)
{
    out += FloatToStr(value);
    out += '\t';
}

void appendEntry(TextBuffer& out, std::size_t number, const TRepresent& representative, std::size_t entry)
{
    const TIndVK& item = representative.Items[entry];
    out += std::to_string(number) + '\t';
    appendInt(out, representative.Index);
    out += '\t' + std::to_string(entry);
    for (const int value : {item.FrameNumber, item.BlobIndex, item.Third}) {
        out += '\t';
        appendInt(out, value);
    }
    out += representative.Index < 0 ? "\t0\t" : "\t1\t";
    appendCell(out, representative.X, 2, '\t');
    appendCell(out, representative.Y, 2, '\t');
    appendFixed(out, representative.Value, 3);
    out += '\n';
}

// The numbers of a line after its first field.
std::vector<double> rowOf(std::string_view line)
{
    std::vector<double> row;
    bool isFirst = true;
    forEachToken(line, '\t', [&](std::string_view field) {
        if (!std::exchange(isFirst, false)) {
            row.push_back(toDouble(field));
        }
    });
    return row;
}

void readPlateLine(std::size_t number, std::string_view line, TPlateRec& plate)
{
    constexpr std::size_t headLines = 3;
    if (number == 1) {
        plate.Value1 = toDouble(line);
    } else if (number == 2) {
        plate.Value2 = toDouble(line);
    } else if (number >= headLines && number - headLines < plate.List1.size()) {
        plate.List1[number - headLines] = toDouble(partOf(line, "\t", 0));
        plate.List2[number - headLines] = toDouble(partOf(line, "\t", 1));
    }
}

constexpr std::size_t firstOfMatrix = 9;
using SolutionLines = std::array<double, firstOfMatrix + std::extent_v<decltype(TFitHead::CD)>>;

void setSolution(const SolutionLines& values, TFitHead& head)
{
    constexpr std::size_t firstCentre = 3;
    head.CRVAL1 = values[firstCentre];
    head.CRVAL2 = values[firstCentre + 1];
    for (std::size_t i = 0; i < std::size(head.CD); ++i) {
        head.CD[i] = values[firstOfMatrix + i];
    }
}

// The last column that is not 0.0, whatever number the caller asked for.
int lastColumnOf(const std::vector<double>& columns, int fallback)
{
    for (std::size_t i = columns.size(); i > 0; --i) {
        if (columns[i - 1] != 0.0) {
            return static_cast<int>(i - 1);
        }
    }
    return fallback;
}

} // namespace

std::vector<std::string> lBand(std::string path)
{
    std::vector<std::string> bands;
    FileBytes file;
    if (readText(path, file)) {
        const std::string_view line = file.view().substr(0, file.view().find('\n'));
        forEachToken(withoutLineEnd(line), '\t', [&](std::string_view field) { bands.emplace_back(field); });
    }
    return bands;
}

void LoadResult61(std::string path, std::vector<double>& values)
{
    constexpr std::size_t headLines = 3;
    FileBytes file;
    if (!readText(path, file)) {
        return;
    }
    forEachNumberedLine(file, [&](std::size_t number, std::string_view line) {
        if (number >= headLines) {
            values.push_back(toDouble(line));
        }
    });
}

void arrayToTxt(std::string folder, std::string name, double* values, long width, long height)
{
    TextBuffer text;
    for (long row = 0; row < height; ++row) {
        for (long column = 0; column < width; ++column) {
            appendTabbed(text, values[row * width + column]);
        }
        text += '\n';
    }
    writeText(folder + name, text); // no separator between the two: the callers' folders end in one
}

void arrayToTxt(std::string folder, std::string name, const std::vector<pixelD>& pixels)
{
    TextBuffer text;
    for (const pixelD& place : pixels) {
        appendTabbed(text, place.X);
        appendTabbed(text, place.Y);
        appendTabbed(text, place.C);
        text += '\n';
    }
    writeText(folder + name, text);
}

void sAstroPlate(std::string path, TPlateRec plate)
{
    TextBuffer text(std::to_string(plate.List1.size()) + '\n');
    text += FloatToStr(plate.Value1);
    text += "\n";
    text += FloatToStr(plate.Value2);
    text += "\n";
    for (std::size_t i = 0; i < plate.List1.size(); ++i) {
        appendTabbed(text, plate.List1[i]);
        text += FloatToStr(valueAt(plate.List2, i));
        text += "\n";
    }
    writeText(path, text);
}

TPlateRec lAstroPlate(std::string path)
{
    TPlateRec plate;
    FileBytes file;
    if (!readText(path, file)) {
        return plate;
    }
    const std::optional<std::size_t> count = headCount(toInt(partOf(file.view(), "\n", 0)), file.size);
    if (count) {
        plate.List1.resize(*count);
        plate.List2.resize(*count);
        forEachNumberedLine(file, [&plate](std::size_t number, std::string_view line) {
            readPlateLine(number, line, plate);
        });
    }
    return plate;
}

void SaveAstroParam(std::string path, double RA0, double DE0, double Mx, double My, double PoleRA,
                    double PoleDE, double Focus, double Gamma)
{
    TextBuffer text("RA0\tDE0\tMx\tMy\tPoleRA\tPoleDE\tFocus\tGamma\n");
    for (const double value : {RA0, DE0, Mx, My, PoleRA, PoleDE}) {
        appendFixed(text, value, 2);
        text += '\t';
    }
    appendFixed(text, Focus, 6);
    text += '\t';
    appendFixed(text, Gamma, 6);
    text += '\n';
    writeText(path, text);
}

void sParamAstroQRV_61(std::string path, std::vector<double> xc, std::vector<double> xf,
                       std::vector<double> xw, int model, std::string outPath)
{
    TextBuffer text(IntToStr(model) + "\t//ModelAPl\n" + outPath + "\t//pathOUT\nXc\tXf\tXw\n");
    for (std::size_t i = 0; i < xc.size(); ++i) {
        appendTabbed(text, xc[i]);
        appendTabbed(text, valueAt(xf, i));
        text += FloatToStr(valueAt(xw, i));
        text += "\n";
    }
    writeText(path, text);
}

void SaveIndIC(std::string path, const std::vector<TRepresent>& representatives)
{
    TextBuffer text("i\tIC\tj\tframe\tiblob\tkFstar\tpr\tX\tY\tmFcat\n");
    for (std::size_t i = 0; i < representatives.size(); ++i) {
        for (std::size_t entry = 0; entry < representatives[i].Items.size(); ++entry) {
            appendEntry(text, i, representatives[i], entry);
        }
    }
    writeText(path, text);
}

int lIniASTAP(std::string path, TFitHead& head)
{
    SolutionLines values{};
    bool solved = false;
    FileBytes file;
    if (!readText(path, file)) {
        return 0;
    }
    forEachNumberedLine(file, [&](std::size_t number, std::string_view line) {
        if (number == 0) {
            solved = line == solvedMark;
        } else if (number < values.size()) {
            values[number] = toDouble(partOf(line, "=", 1)); // whatever its key
        }
    });
    if (solved) {
        setSolution(values, head);
    }
    return solved ? 1 : 0;
}

int lFisherTable(std::string path, [[maybe_unused]] double value, TFisherTable& table)
{
    if (!FileExists(path)) {
        return resultCode::noFile;
    }
    FileBytes file;
    TFisherTable read;
    const bool isReadable = readText(path, file);
    const std::size_t count = forEachNumberedLine(file, [&read](std::size_t number, std::string_view line) {
        if (number == 1) {
            read.Columns = rowOf(line);
        } else if (number > 1) {
            read.Rows.push_back(toInt(partOf(line, "\t", 0)));
            read.Values.push_back(rowOf(line));
        }
    });
    if (!isReadable || count < 3) {
        return resultCode::emptyFile;
    }
    read.Column = lastColumnOf(read.Columns, table.Column);
    table = std::move(read);
    return resultCode::success;
}

std::string DiffSysCoordSatToStr(TCoordSat differences)
{
    TextBuffer text;
    for (const double value : differences.Values) {
        if (!text.empty()) {
            text += '\t';
        }
        appendFixed(text, value, 9);
    }
    return text.str();
}

TPlateRec FitHeadToPlate(const TFitHead& head)
{
    return {.Value1 = head.CRVAL1, .Value2 = head.CRVAL2};
}

TFuncRes LoadResultExe(std::string path)
{
    TFuncRes result;
    if (!FileExists(path)) {
        result.Code = resultCode::noResultFile;
        result.Comment = noResultFile;
        result.Description = noResultFile;
        return result;
    }
    FileBytes file;
    std::string_view last;
    if (readText(path, file)) {
        forEachLine(file.view(), [&last](std::string_view line) { last = line; });
    }
    // A blank ends the text, so only the first of several words is returned.
    const std::string_view third = partOf(last, " ", 2);
    result.Code = toInt(partOf(partOf(third, "//", 0), "Code=", 1));
    result.Description = partOf(third, "//", 1);
    return result;
}

} // namespace tavelinUtils
