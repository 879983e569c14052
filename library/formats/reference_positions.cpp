#include "formats/reference_positions.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "files/text_reading.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// A line of the table of fixed columns; what lies between these fields is not read.
constexpr Field date{28, 10};
constexpr Field time{39, 13};
constexpr Field rightAscension{73, 10};
constexpr Field declination{86, 10};

constexpr std::string_view namePrefix = "radec_";
constexpr double degreesOfHour = 15.0;

std::string upTo(const std::string& text, char separator)
{
    return text.substr(0, text.find(separator));
}

int dateOf(std::string_view text)
{
    return DateToMJD(std::string(text), "-");
}

// Takes the lines of a table one after the other.
class AmuLines
{
public:
    explicit AmuLines(TrackVtorichka& target) : track(target)
    {
    }

    void add(std::string_view line)
    {
        if (!columnLineSeen) {
            columnLineSeen = true;
            return;
        }
        TRecLabelPervichka_File mark;
        mark.date = days.answerTo(cutIfThere(line, date), dateOf);
        mark.time = timeToDay(cutIfThere(line, time), ':');
        mark.RA = toDouble(cutIfThere(line, rightAscension));
        mark.DE = toDouble(cutIfThere(line, declination));
        track.Marks.push_back(std::move(mark));
    }

private:
    TrackVtorichka& track;
    bool columnLineSeen = false;
    DayNumbers days;
};

// Takes the lines of a list of reference measurements one after the other.
class EtalonAmuLines
{
public:
    explicit EtalonAmuLines(TrackVtorichka& target) : track(target)
    {
    }

    void add(std::string_view line)
    {
        if (line.starts_with('#')) {
            return;
        }
        const auto [epoch, hours, degrees] = threeParts(line, ' ');
        TRecLabelPervichka_File mark;
        int day = 0;
        double dayFraction = 0;
        readEpoch(epoch, days, day, dayFraction);
        mark.date = day;
        mark.time = dayFraction;
        mark.RA = toDouble(hours) * degreesOfHour;
        mark.DE = toDouble(degrees);
        track.Marks.push_back(std::move(mark));
    }

private:
    TrackVtorichka& track;
    DayNumbers days;
};

// Adds the marks of a file to the track; a file that is missing or cannot be read has none.
template <class Lines>
void readMarks(const std::string& path, TrackVtorichka& track)
{
    const std::size_t before = track.Marks.size();
    Lines reader(track);
    if (!readTextLines(path, reader)) {
        track.Marks.resize(before);
    }
}

} // namespace

void loadAMU(std::string path, TrackVtorichka& track)
{
    track.NORAD = upTo(ExtractFileName(path, Slash), '_');
    track.ResidFile = path;
    readMarks<AmuLines>(path, track);
}

void loadEtalonAMU(std::string path, TrackVtorichka& track)
{
    track.NORAD = upTo(replace(ExtractFileName(path, Slash), std::string(namePrefix), ""), '-');
    track.ResidFile = path;
    readMarks<EtalonAmuLines>(path, track);
}

} // namespace tavelinUtils
