#include "reading/tdm_meaning.h"

#include "base/last_answer.h"
#include "base/numbers.h"
#include "base/text_buffer.h"
#include "reading/strict_fields.h"
#include "reading/tdm_segment.h"
#include "text/number_text.h"

#include <erfaextra.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace companion {
namespace {

// A decimal number and nothing else.
bool isNumber(std::string_view text)
{
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
}

// A number and an addition, with the decimals of the more exact one.
std::string corrected(std::string_view text, double addition)
{
    if (addition == 0.0) {
        return std::string(text);
    }
    const auto decimalsOf = [](std::string_view number) {
        const std::size_t point = number.find('.');
        return point == std::string_view::npos ? std::size_t{0} : number.size() - point - 1;
    };
    constexpr std::size_t most = 15;
    const std::size_t decimals = std::min(most, std::max(decimalsOf(text), decimalsOf(shortest(addition))));
    return tavelinUtils::Str9(tavelinUtils::toDouble(text) + addition, static_cast<int>(decimals));
}

// A value of a segment, at the time of a number among the segment's times.
struct Value
{
    std::size_t epoch;
    std::size_t line;
    std::string_view text;
};

// Pairs the values of a segment.
class MarkPairing
{
public:
    MarkPairing(const SegmentHead& segmentHead, const TrueSettings& trueSettings, TdmMeaning& tdmMeaning)
        : head(segmentHead), settings(trueSettings), meaning(tdmMeaning)
    {
    }

    std::vector<TdmMark> marksOf(const TdmSegment& segment)
    {
        for (const TdmDatum& datum : segment.data) {
            take(datum);
        }
        for (std::vector<Value>& list : values) {
            const auto earlier = [this](const Value& a, const Value& b) {
                return epochs[a.epoch] < epochs[b.epoch];
            };
            if (!std::is_sorted(list.begin(), list.end(), earlier)) {
                std::stable_sort(list.begin(), list.end(), earlier);
            }
        }
        pair();
        const auto above = [](const TdmMark& a, const TdmMark& b) { return a.line < b.line; };
        if (!std::is_sorted(marks.begin(), marks.end(), above)) {
            std::stable_sort(marks.begin(), marks.end(), above);
        }
        return std::move(marks);
    }

    // How many magnitudes the settings gave.
    std::size_t givenMagnitudes() const
    {
        return given;
    }

private:
    std::vector<Value>& ofQuantity(TdmQuantity quantity)
    {
        return values[static_cast<std::size_t>(quantity)];
    }

    void tell(FindingCode code, std::size_t line, FindingValues fields)
    {
        meaning.findings.push_back(finding(code, fields).at(line, 0));
    }

    void take(const TdmDatum& datum)
    {
        if (datum.epoch != lastText || epochs.empty()) {
            std::optional<MeantEpoch> epoch = meantEpoch(datum.epoch, head.clock);
            if (!epoch) {
                tell("V126", datum.line, {{"text", std::string(datum.epoch)}});
                ++unread[static_cast<std::size_t>(datum.quantity)];
                return;
            }
            lastText = datum.epoch;
            epochs.push_back(std::move(*epoch));
        }
        ofQuantity(datum.quantity).push_back({epochs.size() - 1, datum.line, datum.value});
    }

    const MeantEpoch& epochOf(const Value& value) const
    {
        return epochs[value.epoch];
    }

    void pair()
    {
        const std::vector<Value>& RAs = ofQuantity(TdmQuantity::angle1);
        const std::vector<Value>& DEs = ofQuantity(TdmQuantity::angle2);
        auto RA = RAs.begin();
        auto DE = DEs.begin();
        while (RA != RAs.end() || DE != DEs.end()) {
            const bool hasBoth = RA != RAs.end() && DE != DEs.end();
            if (hasBoth && epochOf(*RA) == epochOf(*DE)) {
                addMark(*RA++, *DE++);
            } else if (DE == DEs.end() || (hasBoth && epochOf(*RA) < epochOf(*DE))) {
                tellSingle("ANGLE_1", *RA++);
            } else {
                tellSingle("ANGLE_2", *DE++);
            }
        }
        passMagnitudes(nullptr);
        meaning.leftOut += std::max(unread[0], unread[1]);
    }

    void tellSingle(const char* key, const Value& value)
    {
        tell("V146", value.line, {{"key", key}, {"epoch", epochOf(value).text}});
        ++meaning.leftOut;
    }

    // Magnitudes before a time, or all that are left, belong to no angles.
    void passMagnitudes(const MeantEpoch* before)
    {
        const std::vector<Value>& magnitudes = ofQuantity(TdmQuantity::magnitude);
        while (magnitude < magnitudes.size() &&
               (before == nullptr || epochOf(magnitudes[magnitude]) < *before)) {
            tell("V172", magnitudes[magnitude].line, {{"key", "MAG"}, {"what", "no angles have its time"}});
            ++magnitude;
        }
    }

    std::string magnitudeAt(const MeantEpoch& epoch)
    {
        passMagnitudes(&epoch);
        const std::vector<Value>& magnitudes = ofQuantity(TdmQuantity::magnitude);
        if (magnitude < magnitudes.size() && epochOf(magnitudes[magnitude]) == epoch) {
            const Value& value = magnitudes[magnitude++];
            if (isNumber(value.text)) {
                return corrected(value.text, head.isCorrected ? head.addedToMagnitude : 0.0);
            }
            tell("V122", value.line, {{"text", std::string(value.text)}});
        }
        if (!settings.magnitude) {
            return "";
        }
        ++given;
        return shortest(*settings.magnitude);
    }

    void addMark(const Value& RA, const Value& DE)
    {
        TdmMark mark;
        mark.line = std::min(RA.line, DE.line);
        mark.epoch = epochOf(RA);
        mark.magnitude = magnitudeAt(mark.epoch);
        if (!isAngle(RA) || !isAngle(DE)) {
            ++meaning.leftOut;
            return;
        }
        mark.RA = head.isCorrected ? inCircle(corrected(RA.text, head.addedToRA)) : std::string(RA.text);
        mark.DE = corrected(DE.text, head.isCorrected ? head.addedToDE : 0.0);
        constexpr double pole = 90.0;
        if (std::abs(tavelinUtils::toDouble(mark.DE)) > pole) {
            tell("V121", DE.line, {{"value", mark.DE}, {"problem", "is outside -90 to 90"}});
            ++meaning.leftOut;
            return;
        }
        marks.push_back(std::move(mark));
    }

    bool isAngle(const Value& value)
    {
        if (isNumber(value.text)) {
            return true;
        }
        tell("V122", value.line, {{"text", std::string(value.text)}});
        return false;
    }

    static std::string inCircle(const std::string& RA)
    {
        constexpr double circle = 360.0;
        const double degrees = tavelinUtils::toDouble(RA);
        if (degrees >= 0.0 && degrees < circle) {
            return RA;
        }
        return corrected(RA, degrees < 0.0 ? circle : -circle);
    }

    const SegmentHead& head;
    const TrueSettings& settings;
    TdmMeaning& meaning;
    std::string_view lastText{};
    std::vector<MeantEpoch> epochs{};
    std::array<std::vector<Value>, 3> values{};
    std::array<std::size_t, 3> unread{};
    std::size_t magnitude = 0; // the next one
    std::vector<TdmMark> marks{};
    std::size_t given = 0;
};

std::size_t anglesOf(const TdmSegment& segment)
{
    std::array<std::size_t, 3> counts{};
    for (const TdmDatum& datum : segment.data) {
        ++counts[static_cast<std::size_t>(datum.quantity)];
    }
    return std::max(counts[0], counts[1]);
}

void tellMended(TdmMeaning& meaning, const std::string& what, std::size_t marks, std::size_t line)
{
    meaning.findings.push_back(
        finding("V423", {{"what", what}, {"marks", counted(marks, "mark")}}).at(line, 0));
}

// The notes of what is other in a track than in the message.
void tellMends(TdmMeaning& meaning, const SegmentHead& head, const TdmSegment& segment, std::size_t marks,
               std::size_t given)
{
    if (head.clock != TdmClock::UTC) {
        const std::string word = segment.valueOf("TIME_SYSTEM").value_or("");
        tellMended(meaning,
                   "times of " + (tdmClockOf(word) ? word : "the clock of --time-system") +
                       " are UTC now, by the leap seconds of ERFA " + eraVersion(),
                   marks, segment.line);
    }
    if (head.isCorrected) {
        tellMended(meaning, "corrections are applied", marks, segment.line);
    }
    if (head.isExchanged) {
        tellMended(meaning, "the observer is the first participant now", marks, segment.line);
    }
    if (given > 0) {
        tellMended(meaning, "the magnitude of --magnitude where there was none", given, segment.line);
    }
}

void takeSegment(const TdmSegment& segment, const TrueSettings& settings, TdmMeaning& meaning)
{
    SegmentHead head = segmentHeadOf(segment, settings);
    if (!head.refusals.empty()) {
        std::move(head.refusals.begin(), head.refusals.end(), std::back_inserter(meaning.findings));
        meaning.leftOut += anglesOf(segment);
        return;
    }
    MarkPairing pairing(head, settings, meaning);
    TdmTrack track;
    track.marks = pairing.marksOf(segment);
    tellMends(meaning, head, segment, track.marks.size(), pairing.givenMagnitudes());
    track.metadata = std::move(head.metadata);
    track.comments = segment.comments;
    track.observer = std::move(head.observer);
    track.object = std::move(head.object);
    track.frame = std::move(head.frame);
    if (!track.marks.empty()) {
        meaning.tracks.push_back(std::move(track));
    }
}

// Of magnitudes those of segments without angles.
void tellOthers(const TdmDocument& document, std::size_t magnitudes, TdmMeaning& meaning)
{
    std::map<std::string, std::size_t> others = document.others;
    if (magnitudes > 0) {
        others["MAG"] = magnitudes;
    }
    std::size_t lines = 0;
    std::string keys;
    for (const auto& [key, count] : others) {
        lines += count;
        keys.append(keys.empty() ? "" : ", ").append(key);
    }
    if (lines > 0) {
        meaning.findings.push_back(finding("V180", {{"lines", counted(lines, "line")}, {"keys", keys}}));
    }
}

// What is of the message as a whole comes last.
void sortByLines(std::vector<Finding>& findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return a.line != 0 && (b.line == 0 || a.line < b.line);
    });
}

void putHeader(TdmMeaning& meaning)
{
    for (TdmEntry& each : meaning.header) {
        if (each.key == "CREATION_DATE") {
            const std::optional<MeantEpoch> epoch = meantEpoch(each.value, TdmClock::UTC);
            each.value = epoch ? epoch->text : each.value;
        }
    }
}

void appendEntries(const std::vector<TdmEntry>& entries, tavelinUtils::TextBuffer& out)
{
    for (const TdmEntry& each : entries) {
        out += each.key;
        out += each.key == "COMMENT" ? " " : " = ";
        out += each.value;
        out += '\n';
    }
}

void appendRecord(std::string_view key, const TdmMark& mark, std::string_view value,
                  tavelinUtils::TextBuffer& out)
{
    out += key;
    out += " = ";
    out += mark.epoch.text;
    out += ' ';
    out += value;
    out += '\n';
}

void appendTrack(const TdmTrack& track, tavelinUtils::TextBuffer& out)
{
    out += "META_START\n";
    appendEntries(track.metadata, out);
    out += "META_STOP\nDATA_START\n";
    for (const std::string& comment : track.comments) {
        out += "COMMENT ";
        out += comment;
        out += '\n';
    }
    for (const TdmMark& mark : track.marks) {
        appendRecord("ANGLE_1", mark, mark.RA, out);
        appendRecord("ANGLE_2", mark, mark.DE, out);
        appendRecord("MAG", mark, mark.magnitude, out);
    }
    out += "DATA_STOP\n";
}

} // namespace

TdmMeaning tdmMeaningOf(const TdmDocument& document, const TrueSettings& settings)
{
    TdmMeaning meaning;
    meaning.header = document.header;
    putHeader(meaning);
    std::size_t angles = 0;
    std::size_t magnitudes = 0;
    for (const TdmSegment& segment : document.segments) {
        const std::size_t ofSegment = anglesOf(segment);
        angles += ofSegment;
        if (ofSegment > 0) {
            takeSegment(segment, settings, meaning);
        } else {
            magnitudes += segment.data.size();
        }
    }
    if (angles > 0) {
        tellOthers(document, magnitudes, meaning);
    } else if (!document.segments.empty() || document.header.empty()) {
        meaning.findings.push_back(finding("V140"));
    }
    sortByLines(meaning.findings);
    return meaning;
}

void leaveOutWithoutMagnitude(TdmMeaning& meaning)
{
    const auto isWithout = [](const TdmMark& mark) { return mark.magnitude.empty(); };
    for (TdmTrack& track : meaning.tracks) {
        const auto first = std::find_if(track.marks.begin(), track.marks.end(), isWithout);
        if (first == track.marks.end()) {
            continue;
        }
        const std::size_t line = first->line;
        const std::size_t count = std::erase_if(track.marks, isWithout);
        meaning.findings.push_back(
            finding("V147", {{"marks", counted(count, "mark")}}).at(line, 0).times(count));
        meaning.leftOut += count;
    }
    std::erase_if(meaning.tracks, [](const TdmTrack& track) { return track.marks.empty(); });
    sortByLines(meaning.findings);
}

std::string tdmText(const TdmMeaning& meaning)
{
    tavelinUtils::TextBuffer out;
    appendEntries(meaning.header, out);
    for (const TdmTrack& track : meaning.tracks) {
        appendTrack(track, out);
    }
    return std::string(out.view());
}

} // namespace companion
