#include "reading/report_details.h"

#include "base/lines.h"
#include "out/characters.h"
#include "reading/text_front.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace companion {
namespace {

constexpr std::string_view blanks = " \t\r";

using tavelinUtils::cut;
using tavelinUtils::Field;

constexpr std::size_t lineLength = 80;
constexpr Field note2{15, 1};
constexpr Field dayFraction{26, 7};
constexpr Field rightAscension{33, 12};
constexpr Field declination{45, 12};
constexpr Field magnitude{66, 5};
constexpr Field station{78, 3};
constexpr double secondsOfADay = 86400.0;
constexpr double arcsecondsOfTimeSecond = 15.0;

struct HeaderText
{
    std::string_view word;
    std::string Observatory::*text;
};
constexpr HeaderText headerTexts[] = {
    {"COD", &Observatory::station},   {"CON", &Observatory::contact},
    {"OBS", &Observatory::observers}, {"MEA", &Observatory::measurers},
    {"TEL", &Observatory::telescope}, {"NET", &Observatory::astrometricCatalogue},
    {"COM", &Observatory::comment},   {"ACK", &Observatory::acknowledgement},
    {"AC2", &Observatory::email},
};

// The value of the last decimal of a field.
double stepOf(std::string_view field)
{
    const std::string_view text = trimmed(field, blanks);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::size_t decimals = text.size() - std::min(point + 1, text.size());
    return std::pow(10.0, -static_cast<double>(decimals));
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

    // A header begins with the station, or after observations. Names may go on in further lines; the address
    // has a line of its own among the contacts.
    void takeText(const HeaderText& row, const std::string& text)
    {
        if (isClosed || row.word == "COD") {
            header = isClosed && row.word != "COD" ? std::make_shared<Observatory>(*header)
                                                   : std::make_shared<Observatory>();
            isClosed = false;
        }
        std::string& known = (*header).*(row.text);
        const bool goesOn = row.word == "OBS" || row.word == "MEA";
        if (row.word == "CON" && text.starts_with('[') && text.ends_with(']')) {
            header->email = text.substr(1, text.size() - 2);
        } else {
            known = goesOn && !known.empty() ? known + ", " + text : text;
        }
    }

    void takeObservation(std::string line)
    {
        const std::size_t sign = declination.first - 1;
        if (line.size() == lineLength - 1) {
            line.insert(sign, 1, ' ');
        }
        if (line.size() != lineLength) {
            return;
        }
        isClosed = true;
        details.hasSigns = details.hasSigns || line[sign] == '+';
        const double day = stepOf(cut(line, dayFraction));
        const double seconds = stepOf(cut(line, rightAscension));
        details.lines[number] = {std::string(trimmed(cut(line, station), blanks)),
                                 cut(line, note2)[0],
                                 header,
                                 {day * secondsOfADay, seconds * arcsecondsOfTimeSecond,
                                  stepOf(cut(line, declination)), stepOf(cut(line, magnitude))}};
    }

    std::size_t number = 0;
    std::shared_ptr<Observatory> header = std::make_shared<Observatory>();
    bool isClosed = false; // observations came after the header
};

} // namespace

ReportDetails reportDetails(const std::string& path)
{
    frontOfFile(path); // throws where it cannot be read
    ReportLineReader reader;
    tavelinUtils::readLines(path, reader);
    return reader.details;
}

} // namespace companion
