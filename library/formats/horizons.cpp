#include "formats/horizons.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view tableStart = "$$SOE";
constexpr std::string_view tableEnd = "$$EOE";

// A line of the table, 0-based. The columns are those of the observer quantities 1, 4, 9 and 47 with
// fractions of seconds; a table of other quantities is read by the same positions.
constexpr Field date{2, 11};
constexpr Field time{14, 12};
constexpr Field rightAscension{31, 11};
constexpr Field declination{43, 11};
constexpr Field magnitude{80, 6};
constexpr Field speed{96, 10};
constexpr Field positionAngle{108, 10};

using Lines = std::vector<std::string_view>;

// "2022-Sep-01". Raises where the month is none.
int dateOf(std::string_view text)
{
    static const std::map<std::string, std::string> months = GetMonthCount();
    const auto [year, month, day] = threeParts(text, '-');
    return DateToMJD(std::string(year), months.at(std::string(month)), std::string(day));
}

void addLine(TrackVtorichka& track, std::string_view line, DayNumbers& dates)
{
    TRecLabelPervichka_File mark;
    mark.date = dates.answerTo(cut(line, date), dateOf);
    mark.time = timeToDay(cut(line, time), ':');
    const auto [hours, minutes, seconds] = threeParts(cut(line, rightAscension), ' ');
    mark.RA = raOf(hours, minutes, seconds);
    const auto [degrees, arcminutes, arcseconds] = threeParts(cut(line, declination), ' ');
    mark.DE = deOf(degrees, arcminutes, arcseconds);
    mark.m = toDouble(cut(line, magnitude));
    track.V = toDouble(cut(line, speed)); // the head has one value for the track: that of the last line
    track.PA = toDouble(cut(line, positionAngle));
    track.Marks.push_back(std::move(mark));
}

int readTable(const Lines& lines, TrackVtorichka& track)
{
    const auto start = std::find(lines.begin(), lines.end(), tableStart);
    const auto end = std::find(lines.begin(), lines.end(), tableEnd);
    if (start == lines.end() || end < start) {
        return -1;
    }
    // Lines too short for the last column end the reading, so there is no room to be made for them.
    const auto isWhole = [](std::string_view line) { return line.size() >= positionAngle.first; };
    track.Marks.reserve(track.Marks.size() +
                        static_cast<std::size_t>(std::count_if(start + 1, end, isWhole)));
    DayNumbers dates;
    for (auto line = start + 1; line != end; ++line) {
        addLine(track, *line, dates);
    }
    return end == lines.end() ? -1 : 0; // what was read up to there stays
}

} // namespace

std::map<std::string, std::string> GetMonthCount()
{
    return {{"Jan", "01"}, {"Feb", "02"}, {"Mar", "03"}, {"Apr", "04"}, {"May", "05"}, {"Jun", "06"},
            {"Jul", "07"}, {"Aug", "08"}, {"Sep", "09"}, {"Oct", "10"}, {"Nov", "11"}, {"Dec", "12"}};
}

int lHorizons(const std::vector<std::string>& lines, TrackVtorichka& track)
{
    return readTable(Lines(lines.begin(), lines.end()), track);
}

int lHorizons(std::string path, TrackVtorichka& track)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return -1;
    }
    Lines lines;
    lines.reserve(countLines(file.view()));
    forEachLine(file.view(), [&lines](std::string_view line) { lines.push_back(line); });
    return readTable(lines, track);
}

} // namespace tavelinUtils
