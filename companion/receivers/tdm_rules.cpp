#include "receivers/tdm_rules.h"

#include "base/last_answer.h"
#include "base/text_buffer.h"
#include "formats/tdm.h"
#include "receivers/rule_tally.h"
#include "text/number_text.h"
#include "text/written_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace companion {
namespace {

// The book's words and those of its XML schemas.
constexpr std::string_view frames[] = {"EME2000", "ICRF",    "ITRF1993", "ITRF2000",
                                       "ITRF-93", "ITRF-97", "TOD",      "TOD_EARTH"};

// By the codes of their findings.
enum Rule : std::size_t
{
    emptyValue,
    unorderedTimes,
    fullCircle,
    notANumber,
    timeTwice,
    startOrStop,
    endOfDay
};

// Below what the writer can round to the next decimal of an epoch, in days.
constexpr double epochStep = 2e-10;

std::string epochOf(const TRecLabelPervichka_File& mark)
{
    TextBuffer text;
    DateTexts dates;
    appendEpoch(text, dates, mark.date, mark.time);
    return text.str();
}

bool isBlank(const std::string& text)
{
    return text.find_first_not_of(' ') == std::string::npos;
}

// How much later one mark is than another, in days.
double stepBetween(const TRecLabelPervichka_File& from, const TRecLabelPervichka_File& to)
{
    return (to.date - from.date) + (to.time - from.time);
}

class TdmTrackRules : public TrackRules
{
public:
    explicit TdmTrackRules(bool isXml) : xml(isXml)
    {
    }

    void openFile(const std::string& /*path*/) override
    {
        headed = false;
    }

    void add(const TrackVtorichka& track) override
    {
        const bool isFirst = !headed;
        headed = true;
        files += isFirst ? 1 : 0;
        if (track.Marks.empty()) {
            return;
        }
        if (isFirst) {
            lookAtValue(track, "ORIGINATOR", track.originator);
        }
        lookAtValue(track, "PARTICIPANT_1", track.telescope);
        lookAtValue(track, "PARTICIPANT_2", track.QRVName);
        lookAtMarks(track);
    }

    std::vector<Finding> findings() const override
    {
        return tally.findings();
    }

    std::vector<Finding> findingsOfForm() const override
    {
        if (files == 0) {
            return {};
        }
        std::vector<Finding> found{finding("V340", {{"date", zeroCreationDate()}}).times(files)};
        if (!xml) {
            found.push_back(finding("V341", {{"key", "MAG"}}).times(files));
        }
        return found;
    }

private:
    void tell(Rule rule, const TrackVtorichka& track, std::size_t mark, FindingCode code,
              FindingValues values)
    {
        if (tally.count(rule)) {
            tally.keep(rule, finding(code, values), placeOf(track, mark));
        }
    }

    // A value of the segment's head is told once for all of its marks.
    void tellOfHead(Rule rule, const TrackVtorichka& track, const std::string& key, const std::string& why)
    {
        if (tally.count(rule, track.Marks.size())) {
            tally.keep(rule, finding("V342", {{"key", key}, {"why", why}}), placeOf(track, 0));
        }
    }

    void lookAtValue(const TrackVtorichka& track, const char* key, const std::string& value)
    {
        if (isBlank(value)) {
            tellOfHead(emptyValue, track, key, "has no value");
        } else if (value.find_first_of("\r\n") != std::string::npos) {
            tellOfHead(emptyValue, track, key, "has a value of several lines");
        }
    }

    void lookAtMarks(const TrackVtorichka& track)
    {
        bool isAscending = true;
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            const TRecLabelPervichka_File& mark = track.Marks[index];
            const bool isUsual = mark.RA >= -180.0 && mark.RA < 359.999999 && std::isfinite(mark.DE) &&
                                 std::isfinite(mark.m) && mark.time < 0.999999;
            if (!isUsual) {
                lookAtNumbers(track, index);
            }
            isAscending =
                isAscending && (index == 0 || stepBetween(track.Marks[index - 1], mark) > epochStep);
        }
        if (!isAscending) {
            lookAtTimes(track);
        }
    }

    void lookAtNumbers(const TrackVtorichka& track, std::size_t index)
    {
        const TRecLabelPervichka_File& mark = track.Marks[index];
        const std::string epoch = epochOf(mark);
        const std::string ra = Str9(mark.RA, 7);
        const bool isNumber = std::isfinite(mark.RA) && std::isfinite(mark.DE) && std::isfinite(mark.m);
        if (!isNumber) {
            tell(notANumber, track, index, "V344",
                 {{"key", keyWithoutNumber(mark)}, {"what", "no finite number at " + epoch}});
        } else if (mark.RA < -180.0 || toDouble(ra) >= 360.0) {
            tell(fullCircle, track, index, "V343", {{"value", ra}});
        }
        if (mark.time > 0.5 && mark.time < 1.0 && epoch.find("T00:00:00") != std::string::npos) {
            tell(endOfDay, track, index, "V346", {{"epoch", epoch}});
        }
    }

    static std::string keyWithoutNumber(const TRecLabelPervichka_File& mark)
    {
        return !std::isfinite(mark.RA) ? "ANGLE_1" : !std::isfinite(mark.DE) ? "ANGLE_2" : "MAG";
    }

    // Of a track whose marks do not follow each other in time.
    void lookAtTimes(const TrackVtorichka& track)
    {
        struct Timed
        {
            std::string epoch;
            std::size_t mark;
        };
        std::vector<Timed> times;
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            times.push_back({epochOf(track.Marks[index]), index});
        }
        for (std::size_t index = 1; index < times.size(); ++index) {
            if (times[index].epoch < times[index - 1].epoch) {
                tell(unorderedTimes, track, index, "V342",
                     {{"key", "ANGLE_1"}, {"why", "has times out of order, at " + times[index].epoch}});
            }
        }
        const std::string start = times.front().epoch;
        const std::string stop = times.back().epoch;
        std::stable_sort(times.begin(), times.end(),
                         [](const Timed& a, const Timed& b) { return a.epoch < b.epoch; });
        for (std::size_t place = 1; place < times.size(); ++place) {
            if (times[place].epoch == times[place - 1].epoch) {
                tell(timeTwice, track, times[place].mark, "V344",
                     {{"key", "ANGLE_1"}, {"what", "a second value at " + times[place].epoch}});
            }
        }
        lookAtSpan(track, start, stop, times.front().epoch, times.back().epoch);
    }

    void lookAtSpan(const TrackVtorichka& track, const std::string& start, const std::string& stop,
                    const std::string& earliest, const std::string& latest)
    {
        if (start != earliest) {
            tell(startOrStop, track, 0, "V345",
                 {{"key", "START_TIME"}, {"epoch", start}, {"is", "earliest"}});
        }
        if (stop != latest) {
            tell(startOrStop, track, track.Marks.size() - 1, "V345",
                 {{"key", "STOP_TIME"}, {"epoch", stop}, {"is", "latest"}});
        }
    }

    bool xml;
    bool headed = false;
    std::size_t files = 0;
    RuleTally tally;
};

} // namespace

bool isTdmFrame(std::string_view word)
{
    return std::find(std::begin(frames), std::end(frames), word) != std::end(frames);
}

bool isTdmSchemaFrame(std::string_view word)
{
    constexpr std::string_view words[] = {"EME2000", "ICRF", "ITRF2000", "ITRF-93", "ITRF-97", "TOD",
                                          "eme2000", "icrf", "itrf2000", "itrf-93", "itrf-97", "tod"};
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

std::unique_ptr<TrackRules> tdmTrackRules(bool xml)
{
    return std::make_unique<TdmTrackRules>(xml);
}

} // namespace companion
