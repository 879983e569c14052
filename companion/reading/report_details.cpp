#include "reading/report_details.h"

#include "base/lines.h"
#include "out/characters.h"
#include "reading/plain_text.h"
#include "receivers/report_columns.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>
#include <utility>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t\r";

using tavelinUtils::cut;
using namespace reportColumns;

constexpr double secondsOfADay = 86400.0;
constexpr double arcsecondsOfTimeSecond = 15.0;

struct HeaderText
{
    std::string_view word;
    std::string Observatory::*text;
};
constexpr HeaderText headerTexts[] = {
    {"COD", &Observatory::station},
    {"CON", &Observatory::contact},
    {"OBS", &Observatory::observers},
    {"MEA", &Observatory::measurers},
    {"TEL", &Observatory::telescope},
    {"NET", &Observatory::astrometricCatalogue},
    {"BND", &Observatory::band},
    {"COM", &Observatory::comment},
    {"ACK", &Observatory::acknowledgement},
    {"AC2", &Observatory::email},
};

std::size_t decimalsIn(std::string_view field)
{
    const std::string_view text = trimmed(field, blanks);
    const std::size_t point = std::min(text.find('.'), text.size());
    return text.size() - std::min(point + 1, text.size());
}

// The value of the last decimal of a field.
double stepOf(std::string_view field)
{
    return std::pow(10.0, -static_cast<double>(decimalsIn(field)));
}

ValueSteps stepsOf(std::string_view line)
{
    return {stepOf(cut(line, dayFraction)) * secondsOfADay,
            stepOf(cut(line, rightAscension)) * arcsecondsOfTimeSecond, stepOf(cut(line, declination)),
            stepOf(cut(line, magnitude))};
}

class ReportLineReader
{
public:
    void add(std::string_view line)
    {
        ++number;
        line = tavelinUtils::withoutLineEnd(line);
        if (!takeHeader(line)) {
            takeObservation(std::string(line));
        }
    }

    ReportDetails details{};

private:
    bool takeHeader(std::string_view line)
    {
        for (const HeaderText& row : headerTexts) {
            if (line.starts_with(row.word) &&
                (line.size() == row.word.size() || line[row.word.size()] == ' ')) {
                takeText(row, std::string(trimmed(line.substr(row.word.size()), blanks)));
                return true;
            }
        }
        return false;
    }

    // A header begins with the station, or after observations, where what it says again replaces what was
    // said. Names and comments may go on in further lines; the address has a line of its own among the
    // contacts.
    void takeText(const HeaderText& row, const std::string& text)
    {
        if (isClosed || row.word == "COD") {
            header = isClosed && row.word != "COD" ? std::make_shared<Observatory>(*header)
                                                   : std::make_shared<Observatory>();
            isClosed = false;
            said.clear();
        }
        std::string& known = (*header).*(row.text);
        const bool isFirst = said.insert(row.word).second;
        const bool areNames = row.word == "OBS" || row.word == "MEA";
        const bool goesOn = !isFirst && !known.empty() && (areNames || row.word == "COM");
        if (row.word == "CON" && text.starts_with('[') && text.ends_with(']')) {
            header->email = text.substr(1, text.size() - 2);
        } else {
            known = goesOn ? known + (areNames ? ", " : "\n") + text : text;
        }
    }

    void takeObservation(std::string line)
    {
        const std::size_t sign = declination.first - 1;
        const bool isShort = line.size() == lineLength - 1;
        if (isShort) {
            line.insert(sign, 1, ' ');
        }
        if (line.size() != lineLength) {
            return;
        }
        isClosed = true;
        details.isOfAnother = details.isOfAnother || !isOwn(line, isShort);
        ReportDetail& detail = details.lines[number];
        detail.station = trimmed(cut(line, station), blanks);
        detail.header = header;
        detail.steps = stepsOf(line);
        if (!isDigit(line[sign])) { // with a digit there its fields are in other columns
            detail.line = std::move(line);
        }
    }

    // Whether the tool may have written a line: its northern declinations have no sign, its seconds two
    // decimals and one, those of the day five, and it leaves no magnitude blank.
    static bool isOwn(std::string_view line, bool isShort)
    {
        const char sign = line[declination.first - 1];
        return cut(line, notes) == "  C" && decimalsIn(cut(line, dayFraction)) == 5 &&
               (isShort || sign == '-' || isDigit(sign)) && decimalsIn(cut(line, rightAscension)) == 2 &&
               decimalsIn(cut(line, declination)) == 1 && !trimmed(cut(line, magnitude), blanks).empty();
    }

    std::size_t number = 0;
    std::set<std::string_view> said{}; // the words of the present header
    std::shared_ptr<Observatory> header = std::make_shared<Observatory>();
    bool isClosed = false; // observations came after the header
};

} // namespace

ReportDetails reportDetails(const std::string& path)
{
    const std::string text = plainText(path).text; // as its marks are read
    ReportLineReader reader;
    tavelinUtils::takeLines(text, reader);
    return reader.details;
}

} // namespace companion
