#include "formats/horizons.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/text_reading.h"
#include "formats/track_gathering.h"
#include "text/angle_text.h"
#include "text/date_text.h"

#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view tableStart = "$$SOE";
constexpr std::string_view tableEnd = "$$EOE";

// A line of the table. These are the fields of the observer quantities 1, 4, 9 and 47 with fractions of
// seconds that are read; a table of other quantities is read by the same columns.
//
//    2-12   date             year-month-day, the month by its name
//   14-25   time             hours:minutes:seconds.sss
//   31-41   RA               hours minutes seconds.ss
//   43-53   DE               sign degrees minutes seconds.s
//   80-85   magnitude
//   96-105  speed
//  108-117  position angle   degrees
constexpr Field date{2, 11};
constexpr Field time{14, 12};
constexpr Field rightAscension{31, 11};
constexpr Field declination{43, 11};
constexpr Field magnitude{80, 6};
constexpr Field speed{96, 10};
constexpr Field positionAngle{108, 10};

// "2022-Sep-01". Throws where the month is none.
int dateOf(std::string_view text)
{
    static const std::map<std::string, std::string> months = GetMonthCount();
    const auto [year, month, day] = threeParts(text, '-');
    return DateToMJD(std::string(year), months.at(std::string(month)), std::string(day));
}

// Takes the lines of a file one after the other.
class HorizonsLines
{
public:
    explicit HorizonsLines(TrackVtorichka& target) : track(target)
    {
    }

    void add(std::string_view line)
    {
        if (place == Place::before) {
            place = line == tableStart ? Place::inside : line == tableEnd ? Place::withoutTable : place;
        } else if (place == Place::inside && line == tableEnd) {
            place = Place::after;
        } else if (place == Place::inside) {
            addMark(line);
        }
    }

    void appendMarks() const
    {
        track.Marks.reserve(track.Marks.size() + marks.size());
        for (const MeasuredMark& mark : marks) {
            setMeasured(track.Marks.emplace_back(), mark);
        }
    }

    // Drops what a file gave that then could not be read to its end.
    void forget()
    {
        marks.clear();
        place = Place::before;
    }

    bool tableIsWhole() const
    {
        return place == Place::after;
    }

private:
    enum class Place
    {
        before,
        inside,
        after,
        withoutTable // its end mark came first: what follows is not looked at
    };

    void addMark(std::string_view line)
    {
        MeasuredMark mark;
        mark.date = days.answerTo(cut(line, date), dateOf);
        mark.time = timeToDay(cut(line, time), ':');
        const auto [hours, minutes, seconds] = threeParts(cut(line, rightAscension), ' ');
        mark.RA = raOf(hours, minutes, seconds);
        const auto [degrees, arcminutes, arcseconds] = threeParts(cut(line, declination), ' ');
        mark.DE = deOf(degrees, arcminutes, arcseconds);
        mark.m = toDouble(cut(line, magnitude));
        track.V = toDouble(cut(line, speed)); // the head has one value for the track: that of the last line
        track.PA = toDouble(cut(line, positionAngle));
        marks.push_back(mark);
    }

    TrackVtorichka& track;
    Place place = Place::before;
    std::vector<MeasuredMark> marks;
    DayNumbers days;
};

// Reads what giveLines(reader) gives a reader of lines.
template <class GiveLines>
int readTable(TrackVtorichka& track, GiveLines giveLines)
{
    HorizonsLines reader(track);
    try {
        giveLines(reader);
    } catch (...) {
        reader.appendMarks(); // those of the lines before the one that throws
        throw;
    }
    reader.appendMarks();
    return reader.tableIsWhole() ? 0 : -1;
}

} // namespace

std::map<std::string, std::string> GetMonthCount()
{
    return {{"Jan", "01"}, {"Feb", "02"}, {"Mar", "03"}, {"Apr", "04"}, {"May", "05"}, {"Jun", "06"},
            {"Jul", "07"}, {"Aug", "08"}, {"Sep", "09"}, {"Oct", "10"}, {"Nov", "11"}, {"Dec", "12"}};
}

int lHorizons(const std::vector<std::string>& lines, TrackVtorichka& track)
{
    return readTable(track, [&lines](HorizonsLines& reader) { takeLines(lines, reader); });
}

int lHorizons(std::string path, TrackVtorichka& track)
{
    return readTable(track, [&path](HorizonsLines& reader) {
        if (!readTextLines(path, reader)) {
            reader.forget(); // a missing file has no lines
        }
    });
}

} // namespace tavelinUtils
