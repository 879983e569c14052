#include "reading/tdm_message.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "out/characters.h"
#include "receivers/tdm_rules.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

namespace companion {

using tavelinUtils::toDouble;

namespace {

// The words of two schemas and of the registry of time systems.
constexpr std::string_view timeSystems[] = {"UTC", "TAI",    "GPS",     "SCLK",    "TT",    "TDB",
                                            "TCB", "TCG",    "UT1",     "GMST",    "TOD",   "MET",
                                            "MRT", "BEIDOU", "GALILEO", "GLONASS", "NAVIC", "ET"};
constexpr const char* partNames[] = {"header", "metadata", "data"};
constexpr std::size_t mostParticipants = 5;
constexpr double largestInteger = 2147483647.0;
constexpr double halfCircle = 180.0;
constexpr double fullCircle = 360.0;

// Words of the standard are all in capital letters or all in small ones.
bool isInOneCase(std::string_view text)
{
    const auto has = [text](int (*is)(int)) {
        return std::any_of(text.begin(), text.end(), [is](unsigned char c) { return is(c) != 0; });
    };
    return !has(std::islower) || !has(std::isupper);
}

// Digits, perhaps a point with digits behind it, perhaps an exponent.
bool isNumber(std::string_view text)
{
    text = withoutSign(text);
    const std::size_t exponent = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, exponent);
    if (exponent < text.size() && !areDigits(withoutSign(text.substr(exponent + 1)))) {
        return false;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    return areDigits(mantissa.substr(0, point)) &&
           (point == mantissa.size() || areDigits(mantissa.substr(point + 1)));
}

// The row of a key, as its place in the table, where keys of metadata are in their order.
std::ptrdiff_t placeOf(const TdmKey& row)
{
    return &row - tdmKeys().data();
}

bool isAngle(std::string_view key)
{
    return key == "ANGLE_1" || key == "ANGLE_2";
}

std::string inQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

} // namespace

void TdmMessage::tell(std::string_view key, const std::string& why, const TdmPlace& place)
{
    out.addAt({place.line, place.text, place.text}, "V342", place.stretch,
              {{"key", std::string(key)}, {"why", why}});
}

bool TdmMessage::hasKey(std::string_view key) const
{
    return std::any_of(said.begin(), said.end(), [key](const auto& each) { return each.first == key; });
}

std::string TdmMessage::valueOf(std::string_view key) const
{
    const auto found =
        std::find_if(said.begin(), said.end(), [key](const auto& each) { return each.first == key; });
    return found == said.end() ? "" : found->second;
}

void TdmMessage::version(std::string_view text, const TdmPlace& place)
{
    isOld = toDouble(text) < 2.0;
    if (text != "1.0" && text != "2.0") {
        tell("CCSDS_TDM_VERS", "has the value " + inQuotes(text) + ", which is no version", place);
    } else if (isDocument && isOld) {
        tell("CCSDS_TDM_VERS", "has the value " + inQuotes(text) + ", and documents are of version 2.0",
             place);
    }
}

void TdmMessage::openHeader()
{
    part = Part::header;
    mayComment = true;
}

void TdmMessage::openMetadata(const TdmPlace& place)
{
    if (part == Part::header || part == Part::front) {
        for (const char* key : {"CREATION_DATE", "ORIGINATOR"}) {
            if (!hasKey(key)) {
                tell(key, "is missing in the header", place);
            }
        }
    } else if (part != Part::betweenSegments) {
        tell("META_START", "stands inside a segment", place);
    }
    ++segments;
    part = Part::metadata;
    mayComment = true;
    said.clear();
    last.clear();
    records = 0;
    isToldOfNeeds = false;
    start = {};
    stop = {};
}

void TdmMessage::closeMetadata(const TdmPlace& place)
{
    if (part != Part::metadata) {
        tell("META_STOP", "has no META_START", place);
        return;
    }
    part = Part::betweenParts;
    mayComment = false;
    checkDemands(place);
}

void TdmMessage::checkDemands(const TdmPlace& place)
{
    const auto demand = [&](bool isNeeded, const char* key, const char* why) {
        if (isNeeded && !hasKey(key)) {
            tell(key, why, place);
        }
    };
    const bool hasParticipant = std::any_of(said.begin(), said.end(), [this](const auto& each) {
        return isDocument ? each.first == "PARTICIPANT_1" : each.first.starts_with("PARTICIPANT_");
    });
    if (!hasParticipant) {
        tell("PARTICIPANT_1", "is missing in the metadata", place);
    }
    const std::string mode = upper(valueOf("MODE"));
    const bool isCorrected = std::any_of(
        said.begin(), said.end(), [](const auto& each) { return each.first.starts_with("CORRECTION_"); });
    if (hasKey("PATH") && (hasKey("PATH_1") || hasKey("PATH_2"))) {
        tell("PATH", "stands beside PATH_1 or PATH_2", place);
    }
    demand(true, "TIME_SYSTEM", "is missing in the metadata");
    demand(mode == "SEQUENTIAL", "PATH", "is missing beside the mode SEQUENTIAL");
    demand(mode == "SINGLE_DIFF", "PATH_1", "is missing beside the mode SINGLE_DIFF");
    demand(mode == "SINGLE_DIFF", "PATH_2", "is missing beside the mode SINGLE_DIFF");
    demand(upper(valueOf("ANGLE_TYPE")) == "RADEC", "REFERENCE_FRAME",
           "is missing beside angles of the type RADEC");
    demand(hasKey("INTERPOLATION"), "INTERPOLATION_DEGREE", "is missing beside INTERPOLATION");
    demand(isCorrected, "CORRECTIONS_APPLIED", "is missing beside corrections");
}

void TdmMessage::openData(const TdmPlace& place)
{
    if (part != Part::betweenParts) {
        tell("DATA_START", "does not follow the end of metadata", place);
    }
    part = Part::data;
    mayComment = true;
}

void TdmMessage::closeData(const TdmPlace& place)
{
    if (part != Part::data) {
        tell("DATA_STOP", "has no DATA_START", place);
        return;
    }
    part = Part::betweenSegments;
    mayComment = false;
    if (records == 0) {
        tell("DATA_STOP", "closes data without a record", place);
        return;
    }
    checkBound(start, "START_TIME", earliest, "earliest");
    checkBound(stop, "STOP_TIME", latest, "latest");
}

void TdmMessage::close(const TdmPlace& place)
{
    if (segments == 0) {
        tell("META_START", "is missing: the message has no segment", place);
    } else if (part != Part::betweenSegments) {
        tell("DATA_STOP", "is missing at the end of the message", place);
    }
}

// Both are in UTC only where the data are.
void TdmMessage::checkBound(const Bound& bound, const char* key, const TdmMoment& wanted, const char* is)
{
    if (bound.line == 0 || upper(valueOf("TIME_SYSTEM")) != "UTC" || tdmMomentOf(bound.epoch) == wanted) {
        return;
    }
    out.addAt({bound.line, bound.text, bound.text}, "V345", bound.stretch,
              {{"key", key}, {"epoch", bound.epoch}, {"is", is}});
}

void TdmMessage::comment(const TdmPlace& place)
{
    if (!mayComment) {
        tell("COMMENT", "stands elsewhere than at the beginning of header, metadata or data", place);
    }
}

void TdmMessage::otherKey(std::string_view key, const TdmPlace& place)
{
    tell(key, "is no key of the message", place);
}

// Elements may have the name of any key, also of those that only lines have.
const TdmKey* TdmMessage::keyOfPart(std::string_view key, const TdmPlace& place)
{
    const TdmKey* const row = tdmKey(key);
    if (row == nullptr || row->part == TdmPart::bracket || key == "CCSDS_TDM_VERS") {
        otherKey(key, place);
        return nullptr;
    }
    if (!isIn(row->part)) {
        tell(key, std::string("stands outside the ") + partNames[static_cast<std::size_t>(row->part)], place);
        return nullptr;
    }
    return row;
}

bool TdmMessage::isIn(TdmPart wanted) const
{
    if (wanted == TdmPart::header) {
        return part == Part::header || part == Part::front;
    }
    return part == (wanted == TdmPart::metadata ? Part::metadata : Part::data);
}

void TdmMessage::value(std::string_view key, std::string_view text, const TdmPlace& place)
{
    mayComment = false;
    const TdmKey* const row = keyOfPart(key, place);
    if (row == nullptr) {
        return;
    }
    checkOrder(*row, key, place);
    said.emplace_back(key, text);
    checkVersion(*row, place);
    if (text.empty()) {
        tell(key, "has no value", place);
    } else {
        checkValue(*row, key, text, place);
    }
}

void TdmMessage::checkOrder(const TdmKey& row, std::string_view key, const TdmPlace& place)
{
    if (hasKey(key)) {
        tell(key, "stands twice", place);
        return;
    }
    for (const auto& [other, value] : said) {
        const std::ptrdiff_t before = placeOf(*tdmKey(other)); // what was said is a key
        const bool isLater = before == placeOf(row) ? other > key : before > placeOf(row);
        if (isLater) {
            tell(key, "stands out of order, behind " + other, place);
            return;
        }
    }
}

void TdmMessage::checkValue(const TdmKey& row, std::string_view key, std::string_view text,
                            const TdmPlace& place)
{
    switch (row.value) {
    case TdmValue::word: checkWord(row, key, text, place); break;
    case TdmValue::epoch: checkTime(key, text, place); break;
    case TdmValue::path: checkPath(key, text, place); break;
    case TdmValue::number:
    case TdmValue::integer: checkNumeral(row, key, text, place); break;
    default: checkNames(key, text, place);
    }
}

void TdmMessage::checkNumeral(const TdmKey& row, std::string_view key, std::string_view text,
                              const TdmPlace& place)
{
    const bool isWhole = row.value == TdmValue::integer;
    const bool isRead =
        isWhole ? areDigits(withoutSign(text)) && std::abs(toDouble(text)) <= largestInteger : isNumber(text);
    if (isRead) {
        checkRange(row, key, text, place);
    } else {
        tell(key, "has the value " + inQuotes(text) + ", which is no " + (isWhole ? "integer" : "number"),
             place);
    }
}

void TdmMessage::checkNames(std::string_view key, std::string_view text, const TdmPlace& place)
{
    if (key == "REFERENCE_FRAME" && !(isDocument ? isTdmSchemaFrame(text) : isTdmFrame(text))) {
        tell(key, "has the value " + inQuotes(text) + ", which is no frame of the standard", place);
    }
    const bool isKnown = isInOneCase(text) && std::find(std::begin(timeSystems), std::end(timeSystems),
                                                        upper(text)) != std::end(timeSystems);
    if (key == "TIME_SYSTEM" && !isKnown) {
        tell(key, "has the value " + inQuotes(text) + ", which is no time system of the standard", place);
    }
}

void TdmMessage::checkWord(const TdmKey& row, std::string_view key, std::string_view text,
                           const TdmPlace& place)
{
    bool isKnown = false;
    tavelinUtils::forEachToken(row.words, ' ',
                               [&](std::string_view word) { isKnown = isKnown || word == upper(text); });
    if (!isKnown || !isInOneCase(text)) {
        tell(key, "has the value " + inQuotes(text) + "; it takes " + row.words, place);
    }
}

void TdmMessage::checkPath(std::string_view key, std::string_view text, const TdmPlace& place)
{
    std::size_t participants = 0;
    bool isPath = true;
    tavelinUtils::forEachToken(text, ',', [&](std::string_view word) {
        ++participants;
        const bool isOne =
            word.size() == 1 && word[0] >= '1' && word[0] <= '0' + static_cast<int>(mostParticipants);
        isPath = isPath && isOne;
        if (isOne && !hasKey("PARTICIPANT_" + std::string(word))) {
            tell(key, "names participant " + std::string(word) + ", which the metadata do not have", place);
        }
    });
    if (!isPath || participants < 2 || text.ends_with(',')) {
        tell(key,
             "has the value " + inQuotes(text) + "; it takes numbers of participants with commas between",
             place);
    }
}

// Of CREATION_DATE, START_TIME and STOP_TIME.
void TdmMessage::checkTime(std::string_view key, std::string_view epoch, const TdmPlace& place)
{
    const std::string fault = faultOfEpoch(epoch);
    if (key == "CREATION_DATE" && !fault.empty()) {
        out.addAt({place.line, place.text, place.text}, "V340", place.stretch,
                  {{"date", std::string(epoch)}});
    } else if (!fault.empty()) {
        tell(key, "is no time: " + fault, place);
    } else if (key != "CREATION_DATE") {
        (key == "START_TIME" ? start : stop) = {place.line, std::string(place.text), place.stretch,
                                                std::string(epoch)};
        out.hold(); // the end of the data tells whether it is theirs
    }
}

void TdmMessage::checkVersion(const TdmKey& row, const TdmPlace& place)
{
    if (isOld && row.isOfVersion2 && !isToldOfVersion) {
        isToldOfVersion = true;
        out.addAt({place.line, place.text, place.text}, "V341", place.stretch, {{"key", row.name}});
    }
}

void TdmMessage::record(std::string_view key, std::string_view epoch, std::string_view number,
                        const TdmPlace& place)
{
    mayComment = false;
    const TdmKey* const row = keyOfPart(key, place);
    if (row == nullptr) {
        return;
    }
    checkVersion(*row, place);
    checkNeeds(key, place);
    if (epoch.empty() || number.empty()) {
        tell(key, "has no time and value", place);
        return;
    }
    const std::string fault = faultOfEpoch(epoch);
    if (!fault.empty()) {
        tell(key, "is of no time: " + fault, place);
    } else {
        checkMoment(key, epoch, place);
    }
    checkNumber(*row, key, number, place);
}

// What angles and magnitudes want in the metadata.
void TdmMessage::checkNeeds(std::string_view key, const TdmPlace& place)
{
    if (isToldOfNeeds || (!isAngle(key) && key != "MAG")) {
        return;
    }
    isToldOfNeeds = true;
    for (const char* wanted : {"MODE", "PATH", "ANGLE_TYPE"}) {
        const bool isWanted = isAngle(key) || std::strcmp(wanted, "ANGLE_TYPE") != 0;
        if (isWanted && !hasKey(wanted)) {
            tell(wanted, "is missing in the metadata of " + std::string(key), place);
        }
    }
}

void TdmMessage::checkMoment(std::string_view key, std::string_view epoch, const TdmPlace& place)
{
    const TdmMoment moment = tdmMomentOf(epoch);
    earliest = records == 0 ? moment : std::min(earliest, moment);
    latest = records == 0 ? moment : std::max(latest, moment);
    ++records;
    auto found = last.find(key);
    if (found == last.end()) {
        found = last.emplace(std::string(key), LastRecord{}).first;
    }
    LastRecord& before = found->second;
    constexpr double noon = 43200.0;
    if (before.isKnown && moment == before.moment) {
        out.addAt({place.line, place.text, place.text}, "V344", place.stretch,
                  {{"key", std::string(key)}, {"what", "a second value at " + std::string(epoch)}});
    } else if (before.isKnown && moment < before.moment) {
        const bool isDayEarly =
            moment.day == before.moment.day && moment.seconds < 1e-6 && before.moment.seconds >= noon;
        if (isDayEarly) {
            out.addAt({place.line, place.text, place.text}, "V346", place.stretch,
                      {{"epoch", std::string(epoch)}});
        } else {
            tell(key, "has times out of order, at " + std::string(epoch), place);
        }
    }
    before = {true, std::max(before.isKnown ? before.moment : moment, moment)};
}

// Of a text that is a number.
void TdmMessage::checkRange(const TdmKey& row, std::string_view key, std::string_view number,
                            const TdmPlace& place)
{
    const double value = toDouble(number);
    const auto misses = [&](bool isOutside, const char* what) {
        if (isOutside) {
            tell(key, "has the value " + inQuotes(number) + ", which is " + what, place);
        }
    };
    if (row.range == TdmRange::notNegative) {
        misses(value < 0.0, "below 0");
    } else if (row.range == TdmRange::positive) {
        misses(value <= 0.0, "not above 0");
    } else if (row.range == TdmRange::percentage) {
        misses(value < 0.0 || value > 100.0, "not from 0 to 100");
    }
}

void TdmMessage::checkNumber(const TdmKey& row, std::string_view key, std::string_view number,
                             const TdmPlace& place)
{
    const double value = toDouble(number);
    const bool isMinusZero = number.starts_with('-') && value == 0.0;
    if (!std::isfinite(value)) {
        out.addAt({place.line, place.text, place.text}, "V344", place.stretch,
                  {{"key", std::string(key)}, {"what", "no finite number, " + inQuotes(number)}});
    } else if (!isNumber(number)) {
        tell(key, "has the value " + inQuotes(number) + ", which is no number", place);
    } else if (isAngle(key) && !(value >= -halfCircle && value < fullCircle)) {
        out.addAt({place.line, place.text, place.text}, "V343", place.stretch,
                  {{"value", std::string(number)}});
    } else if (isMinusZero) {
        tell(key, "has the value " + inQuotes(number) + ", and zero has no sign", place);
    } else {
        checkRange(row, key, number, place);
    }
}

} // namespace companion
