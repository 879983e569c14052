#include "reading/brightness_reading.h"

#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "reading/gathered_tracks.h"
#include "reading/plain_text.h"
#include "receivers/aavso_rules.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace companion {
namespace {

using tavelinUtils::toDouble;
using tavelinUtils::TRecLabelPervichka_File;

// A Julian date as date and time, with all digits of its text: its day begins at noon.
void setJulianDate(std::string_view text, TRecLabelPervichka_File& mark)
{
    constexpr double dayOfMJD = 2400001; // the Julian day in which the first day of MJD begins
    const std::size_t point = std::min(text.find('.'), text.size());
    const double fraction = toDouble(text.substr(point)) - 0.5;
    const double day = toDouble(text.substr(0, point)) - dayOfMJD + (fraction < 0 ? 0 : 1);
    mark.date = tavelinUtils::cutToInt(day);
    mark.time = fraction < 0 ? fraction + 1 : fraction;
}

bool isNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("+-.0123456789") == text.npos;
}

// The ratio of signal to noise that the tool makes an error of; 0 for none.
double signalOf(std::string_view error)
{
    const double number = toDouble(error);
    return std::isfinite(number) && number > 0.0 ? 1.0 / number : 0.0;
}

// The lines of a light curve: seven cells each, after a line with their titles.
class LightCurveLines
{
public:
    void add(std::string_view line)
    {
        if (++number == 1 || line.empty()) {
            return;
        }
        std::array<std::string_view, 7> cells;
        const std::size_t count = tavelinUtils::cutParts(line, '\t', cells);
        if (count != cells.size()) {
            tracks.leaveOut(finding("V150", {{"words", counted(count, "cell")}}), number);
        } else if (!isNumber(cells[0])) {
            tracks.leaveOut(finding("V122", {{"text", std::string(cells[0])}}), number);
        } else {
            addMark(cells);
        }
    }

    GatheredTracks tracks{};

private:
    void addMark(const std::array<std::string_view, 7>& cells)
    {
        TRecLabelPervichka_File mark;
        setJulianDate(cells[0], mark);
        mark.m = toDouble(cells[1]);
        mark.mEnsemble = toDouble(cells[2]);
        mark.mInstr = toDouble(cells[3]);
        mark.mInstr1000 = toDouble(cells[4]);
        mark.mInstrComp = toDouble(cells[5]);
        const TrueMark info{number, false, isNumber(cells[1]), false};
        tracks.add(std::string(cells[6]), "", std::move(mark), info);
    }

    std::size_t number = 0;
};

// The lines of an AAVSO report: header lines with #, and a line for each mark.
class AavsoLines
{
public:
    void add(std::string_view line)
    {
        ++number;
        if (line.starts_with('#')) {
            takeHeader(line.substr(1));
            return;
        }
        std::array<std::string_view, 5> fields;
        const std::size_t count = tavelinUtils::cutParts(line, delimiter, fields);
        if (line.empty()) {
            return;
        }
        if (count < fields.size()) {
            tracks.leaveOut(finding("V150", {{"words", counted(count, "field")}}), number);
        } else if (system != "JD") {
            tracks.leaveOut(finding("V144", {{"word", system}}), number);
        } else if (!isNumber(fields[1])) {
            tracks.leaveOut(finding("V122", {{"text", std::string(fields[1])}}), number);
        } else {
            addMark(fields);
        }
    }

    GatheredTracks tracks{};

private:
    void takeHeader(std::string_view text)
    {
        const std::size_t equals = text.find('=');
        const std::string_view key = text.substr(0, equals);
        const std::string_view value = equals == text.npos ? std::string_view() : text.substr(equals + 1);
        if (key == "DATE") {
            system = value;
        } else if (key == "DELIM") {
            delimiter = aavsoDelimiter(value).value_or(delimiter);
        }
    }

    void addMark(const std::array<std::string_view, 5>& fields)
    {
        const auto [object, date, magnitude, error, band] = fields;
        TRecLabelPervichka_File mark;
        setJulianDate(date, mark);
        mark.m = isNumber(magnitude) ? toDouble(magnitude) : 0.0; // a limit, "<13.7", is none
        mark.mEnsemble = mark.m;
        mark.SNRpeak = signalOf(error);
        mark.filtr = band;
        const TrueMark info{number, false, isNumber(magnitude), !band.empty()};
        tracks.add(std::string(object), "", std::move(mark), info);
    }

    std::size_t number = 0;
    char delimiter = ',';
    std::string system = "JD";
};

template <class Lines>
TrueOutcome readBy(std::string_view text, const std::function<void(TrueTrack&)>& use)
{
    Lines lines;
    tavelinUtils::takeLines(text, lines);
    return lines.tracks.give(use);
}

} // namespace

bool isOfBrightness(std::string_view format)
{
    return format == "mag" || format == "aavso";
}

TrueOutcome readBrightness(const std::string& path, std::string_view format,
                           const std::function<void(TrueTrack&)>& use)
{
    const PlainText plain = plainText(path);
    if (!plain.broken.empty()) {
        return {{finding("V101", {{"encoding", plain.broken}})}, 0};
    }
    return format == "mag" ? readBy<LightCurveLines>(plain.text, use) : readBy<AavsoLines>(plain.text, use);
}

} // namespace companion
