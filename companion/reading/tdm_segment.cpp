#include "reading/tdm_segment.h"

#include "base/numbers.h"
#include "findings/finding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace companion {
namespace {

constexpr std::string_view acceptedFrames[] = {"ICRF", "EME2000", "J2000"};

// Corrections of angles and magnitudes, and those that no addition applies: that of an aberration has a
// direction, that of a reception a time.
constexpr std::string_view raCorrection = "CORRECTION_ANGLE_1";
constexpr std::string_view deCorrection = "CORRECTION_ANGLE_2";
constexpr std::string_view magnitudeCorrection = "CORRECTION_MAG";
constexpr std::string_view otherCorrections[] = {"CORRECTION_RECEIVE", "CORRECTION_ABERRATION_YEARLY",
                                                 "CORRECTION_ABERRATION_DIURNAL"};

// Keys that end in the number of a participant.
constexpr std::string_view numberedKeys[] = {"PARTICIPANT_", "EPHEMERIS_NAME_", "TRANSMIT_DELAY_",
                                             "RECEIVE_DELAY_"};

class SegmentReading
{
public:
    SegmentReading(const TdmSegment& tdmSegment, const TrueSettings& trueSettings)
        : segment(tdmSegment), settings(trueSettings)
    {
    }

    SegmentHead head() &&
    {
        made.metadata = segment.metadata;
        if (takeType()) {
            takeParticipants();
            takeFrame();
            takeClock();
            takeCorrections();
        }
        if (made.refusals.empty()) {
            putMetadata();
        }
        return std::move(made);
    }

private:
    // The line of a key; that of the segment where it has none.
    std::size_t lineOf(std::string_view key) const
    {
        const auto at = std::find_if(segment.metadata.rbegin(), segment.metadata.rend(),
                                     [key](const TdmEntry& each) { return each.key == key; });
        return at == segment.metadata.rend() ? segment.line : at->line;
    }

    void refuse(FindingCode code, std::string_view key, FindingValues values)
    {
        made.refusals.push_back(finding(code, values).at(lineOf(key), 0));
    }

    bool takeType()
    {
        const std::string type = segment.valueOf("ANGLE_TYPE").value_or("");
        if (type == "RADEC") {
            return true;
        }
        refuse("V141", "ANGLE_TYPE", {{"type", type.empty() ? "undeclared" : type}});
        return false;
    }

    void takeParticipants()
    {
        const std::string mode = segment.valueOf("MODE").value_or("SEQUENTIAL");
        const auto isParticipant = [](const TdmEntry& each) { return each.key.starts_with("PARTICIPANT_"); };
        const auto participants =
            std::count_if(segment.metadata.begin(), segment.metadata.end(), isParticipant);
        path = segment.valueOf("PATH").value_or("");
        std::erase_if(path, [](char c) { return c == ' ' || c == '\t'; });
        constexpr std::string_view receivedByFirst[] = {"2,1", "1,2,1"};
        constexpr std::string_view receivedBySecond[] = {"1,2", "2,1,2"};
        const auto isOneOf = [this](const auto& paths) {
            return std::find(std::begin(paths), std::end(paths), path) != std::end(paths);
        };
        const std::optional<std::string> first = segment.valueOf("PARTICIPANT_1");
        const std::optional<std::string> second = segment.valueOf("PARTICIPANT_2");
        made.isExchanged = isOneOf(receivedBySecond);
        if (mode != "SEQUENTIAL") {
            refuse("V142", "MODE", {{"what", "the participants of MODE " + mode}});
        } else if (participants != 2 || !first || !second) {
            refuse("V142", "PARTICIPANT_1",
                   {{"what", participants == 0
                                 ? "no participants"
                                 : counted(static_cast<std::size_t>(participants), "participant")}});
        } else if (!made.isExchanged && !isOneOf(receivedByFirst)) {
            refuse("V142", "PATH",
                   {{"what", "the participants of " + (path.empty() ? "no PATH" : "PATH " + path)}});
        } else {
            made.observer = made.isExchanged ? *second : *first;
            made.object = made.isExchanged ? *first : *second;
        }
    }

    void takeFrame()
    {
        made.frame = segment.valueOf("REFERENCE_FRAME").value_or("");
        if (!isFrameOfIcrf(made.frame) && !settings.acceptFrame) {
            refuse("V143", "REFERENCE_FRAME", {{"word", made.frame.empty() ? "not stated" : made.frame}});
        }
    }

    void takeClock()
    {
        const std::string word = segment.valueOf("TIME_SYSTEM").value_or("");
        std::optional<TdmClock> clock = tdmClockOf(word);
        if (!clock) {
            clock = tdmClockOf(settings.timeSystem);
        }
        if (!clock) {
            refuse("V144", "TIME_SYSTEM", {{"word", word.empty() ? "not stated" : word}});
        }
        made.clock = clock.value_or(TdmClock::UTC);
    }

    double correction(std::string_view key) const
    {
        return tavelinUtils::toDouble(segment.valueOf(key).value_or(""));
    }

    void takeCorrections()
    {
        made.addedToRA = correction(raCorrection);
        made.addedToDE = correction(deCorrection);
        made.addedToMagnitude = correction(magnitudeCorrection);
        const bool hasOwn = made.addedToRA != 0.0 || made.addedToDE != 0.0 || made.addedToMagnitude != 0.0;
        const bool hasOthers = std::any_of(std::begin(otherCorrections), std::end(otherCorrections),
                                           [this](std::string_view key) { return correction(key) != 0.0; });
        const bool areApplied = segment.valueOf("CORRECTIONS_APPLIED").value_or("") == "YES";
        if (areApplied || (!hasOwn && !hasOthers)) {
            return;
        }
        if (hasOthers || !settings.applyCorrections) {
            refuse("V145", "CORRECTIONS_APPLIED", {});
        }
        made.isCorrected = true;
    }

    void putMetadata()
    {
        if (made.isExchanged) {
            for (const std::string_view key : numberedKeys) {
                exchange(std::string(key));
            }
        }
        for (TdmEntry& each : made.metadata) {
            putEntry(each);
        }
        if (made.isCorrected && !segment.valueOf("CORRECTIONS_APPLIED")) {
            made.metadata.push_back({"CORRECTIONS_APPLIED", "YES", segment.line});
        }
        if (!segment.valueOf("TIME_SYSTEM")) {
            putClock();
        }
    }

    // Behind the comments.
    void putClock()
    {
        const auto isComment = [](const TdmEntry& each) { return each.key == "COMMENT"; };
        made.metadata.insert(std::find_if_not(made.metadata.begin(), made.metadata.end(), isComment),
                             {"TIME_SYSTEM", "UTC", segment.line});
    }

    void putEntry(TdmEntry& each) const
    {
        if (each.key == "TIME_SYSTEM") {
            each.value = "UTC";
        } else if (each.key == "START_TIME" || each.key == "STOP_TIME") {
            const std::optional<MeantEpoch> epoch = meantEpoch(each.value, made.clock);
            each.value = epoch ? epoch->text : each.value;
        } else if (each.key == "PATH") {
            each.value = made.isExchanged ? (path == "1,2" ? "2,1" : "1,2,1") : path;
        } else if (each.key == "CORRECTIONS_APPLIED" && made.isCorrected) {
            each.value = "YES";
        }
    }

    // The values of the first and the second participant change places, or the one that there is its key.
    void exchange(const std::string& key)
    {
        const auto find = [this](const std::string& wanted) {
            return std::find_if(made.metadata.begin(), made.metadata.end(),
                                [&wanted](const TdmEntry& each) { return each.key == wanted; });
        };
        const auto first = find(key + '1');
        const auto second = find(key + '2');
        if (first != made.metadata.end() && second != made.metadata.end()) {
            std::swap(first->value, second->value);
        } else if (first != made.metadata.end()) {
            first->key = key + '2';
        } else if (second != made.metadata.end()) {
            second->key = key + '1';
        }
    }

    const TdmSegment& segment;
    const TrueSettings& settings;
    std::string path{};
    SegmentHead made{};
};

} // namespace

bool isFrameOfIcrf(std::string_view word)
{
    return std::find(std::begin(acceptedFrames), std::end(acceptedFrames), word) != std::end(acceptedFrames);
}

SegmentHead segmentHeadOf(const TdmSegment& segment, const TrueSettings& settings)
{
    return SegmentReading(segment, settings).head();
}

} // namespace companion
