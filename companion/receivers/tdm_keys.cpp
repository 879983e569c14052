#include "receivers/tdm_keys.h"

#include "base/numbers.h"
#include "out/characters.h"
#include "text/calendar.h"

#include <algorithm>
#include <array>

namespace companion {
namespace {

constexpr auto header = TdmPart::header;
constexpr auto metadata = TdmPart::metadata;
constexpr auto data = TdmPart::data;
constexpr auto bracket = TdmPart::bracket;

constexpr TdmKey keys[] = {
    {"CCSDS_TDM_VERS", false, header, TdmValue::text, "", true, false},
    {"CREATION_DATE", false, header, TdmValue::epoch, "", true, false},
    {"ORIGINATOR", false, header, TdmValue::text, "", true, false},
    {"MESSAGE_ID", false, header, TdmValue::text, "", false, false},

    {"TRACK_ID", false, metadata, TdmValue::text, "", false, false},
    {"DATA_TYPES", false, metadata, TdmValue::text, "", false, false},
    {"TIME_SYSTEM", false, metadata, TdmValue::text, "", true, false},
    {"START_TIME", false, metadata, TdmValue::epoch, "", false, false},
    {"STOP_TIME", false, metadata, TdmValue::epoch, "", false, false},
    {"PARTICIPANT_", true, metadata, TdmValue::text, "", true, false},
    {"MODE", false, metadata, TdmValue::word, "SEQUENTIAL SINGLE_DIFF", false, false},
    {"PATH", false, metadata, TdmValue::path, "", false, false},
    {"PATH_", true, metadata, TdmValue::path, "", false, false},
    {"EPHEMERIS_NAME_", true, metadata, TdmValue::text, "", false, false},
    {"TRANSMIT_BAND", false, metadata, TdmValue::text, "", false, false},
    {"RECEIVE_BAND", false, metadata, TdmValue::text, "", false, false},
    {"TURNAROUND_NUMERATOR", false, metadata, TdmValue::integer, "", false, false},
    {"TURNAROUND_DENOMINATOR", false, metadata, TdmValue::integer, "", false, false},
    {"TIMETAG_REF", false, metadata, TdmValue::word, "TRANSMIT RECEIVE", false, false},
    {"INTEGRATION_INTERVAL", false, metadata, TdmValue::number, "", false, false, TdmRange::positive},
    {"INTEGRATION_REF", false, metadata, TdmValue::word, "START MIDDLE END", false, false},
    {"FREQ_OFFSET", false, metadata, TdmValue::number, "", false, false},
    {"RANGE_MODE", false, metadata, TdmValue::word, "COHERENT CONSTANT ONE_WAY", false, false},
    {"RANGE_MODULUS", false, metadata, TdmValue::number, "", false, false, TdmRange::notNegative},
    {"RANGE_UNITS", false, metadata, TdmValue::word, "KM S RU", false, false},
    {"ANGLE_TYPE", false, metadata, TdmValue::word, "AZEL RADEC XEYN XSYE", false, false},
    {"REFERENCE_FRAME", false, metadata, TdmValue::text, "", false, false},
    {"INTERPOLATION", false, metadata, TdmValue::text, "", false, false},
    {"INTERPOLATION_DEGREE", false, metadata, TdmValue::integer, "", false, false, TdmRange::positive},
    {"DOPPLER_COUNT_BIAS", false, metadata, TdmValue::number, "", false, true, TdmRange::positive},
    {"DOPPLER_COUNT_SCALE", false, metadata, TdmValue::integer, "", false, true, TdmRange::positive},
    {"DOPPLER_COUNT_ROLLOVER", false, metadata, TdmValue::word, "YES NO", false, true},
    {"TRANSMIT_DELAY_", true, metadata, TdmValue::number, "", false, false, TdmRange::notNegative},
    {"RECEIVE_DELAY_", true, metadata, TdmValue::number, "", false, false, TdmRange::notNegative},
    {"DATA_QUALITY", false, metadata, TdmValue::word, "RAW VALIDATED DEGRADED", false, false},
    {"CORRECTION_ANGLE_1", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_ANGLE_2", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_DOPPLER", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_MAG", false, metadata, TdmValue::number, "", false, true},
    {"CORRECTION_RANGE", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_RCS", false, metadata, TdmValue::number, "", false, true},
    {"CORRECTION_RECEIVE", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_TRANSMIT", false, metadata, TdmValue::number, "", false, false},
    {"CORRECTION_ABERRATION_YEARLY", false, metadata, TdmValue::number, "", false, true},
    {"CORRECTION_ABERRATION_DIURNAL", false, metadata, TdmValue::number, "", false, true},
    {"CORRECTIONS_APPLIED", false, metadata, TdmValue::word, "YES NO", false, false},

    {"ANGLE_1", false, data, TdmValue::record, "", false, false},
    {"ANGLE_2", false, data, TdmValue::record, "", false, false},
    {"CARRIER_POWER", false, data, TdmValue::record, "", false, false},
    {"CLOCK_BIAS", false, data, TdmValue::record, "", false, false},
    {"CLOCK_DRIFT", false, data, TdmValue::record, "", false, false},
    {"DOPPLER_COUNT", false, data, TdmValue::record, "", false, true},
    {"DOPPLER_INSTANTANEOUS", false, data, TdmValue::record, "", false, false},
    {"DOPPLER_INTEGRATED", false, data, TdmValue::record, "", false, false},
    {"DOR", false, data, TdmValue::record, "", false, false},
    {"MAG", false, data, TdmValue::record, "", false, true},
    {"PC_N0", false, data, TdmValue::record, "", false, false},
    {"PR_N0", false, data, TdmValue::record, "", false, false},
    {"PRESSURE", false, data, TdmValue::record, "", false, false},
    {"RANGE", false, data, TdmValue::record, "", false, false},
    {"RCS", false, data, TdmValue::record, "", false, true},
    {"RECEIVE_FREQ", false, data, TdmValue::record, "", false, false},
    {"RECEIVE_FREQ_", true, data, TdmValue::record, "", false, false},
    {"RECEIVE_PHASE_CT_", true, data, TdmValue::record, "", false, true},
    {"RHUMIDITY", false, data, TdmValue::record, "", false, false, TdmRange::percentage},
    {"STEC", false, data, TdmValue::record, "", false, false},
    {"TEMPERATURE", false, data, TdmValue::record, "", false, false, TdmRange::notNegative},
    {"TRANSMIT_FREQ_", true, data, TdmValue::record, "", false, false, TdmRange::positive},
    {"TRANSMIT_FREQ_RATE_", true, data, TdmValue::record, "", false, false},
    {"TRANSMIT_PHASE_CT_", true, data, TdmValue::record, "", false, true},
    {"TROPO_DRY", false, data, TdmValue::record, "", false, false, TdmRange::notNegative},
    {"TROPO_WET", false, data, TdmValue::record, "", false, false, TdmRange::notNegative},
    {"VLBI_DELAY", false, data, TdmValue::record, "", false, false},

    {"META_START", false, bracket, TdmValue::none, "", true, false},
    {"META_STOP", false, bracket, TdmValue::none, "", true, false},
    {"DATA_START", false, bracket, TdmValue::none, "", true, false},
    {"DATA_STOP", false, bracket, TdmValue::none, "", true, false},
};

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Takes the text up to a blank from the front of another one.
std::string_view takeWord(std::string_view& text)
{
    text = trimmed(text, isBlank);
    const auto length = std::find_if(text.begin(), text.end(), isBlank) - text.begin();
    const std::string_view word = text.substr(0, static_cast<std::size_t>(length));
    text.remove_prefix(word.size());
    return word;
}

bool isLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

bool isDay(int year, int month, int day)
{
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || day < 1) {
        return false;
    }
    const int leap = month == 2 && isLeapYear(year) ? 1 : 0;
    return day <= days[static_cast<std::size_t>(month - 1)] + leap;
}

// YYYY-MM-DD or YYYY-DDD.
bool isDate(std::string_view text)
{
    constexpr std::size_t ofMonth = 10;
    constexpr std::size_t ofYear = 8;
    if ((text.size() != ofMonth && text.size() != ofYear) || !areDigits(text.substr(0, 4)) || text[4] != '-')
    {
        return false;
    }
    const int year = tavelinUtils::toInt(text.substr(0, 4));
    if (text.size() == ofYear) {
        const int day = tavelinUtils::toInt(text.substr(5));
        return areDigits(text.substr(5)) && day >= 1 && day <= (isLeapYear(year) ? 366 : 365);
    }
    return areDigits(text.substr(5, 2)) && text[7] == '-' && areDigits(text.substr(8)) &&
           isDay(year, tavelinUtils::toInt(text.substr(5, 2)), tavelinUtils::toInt(text.substr(8)));
}

// hh:mm:ss and decimals; 60 only for the seconds of a leap second.
bool isTime(std::string_view text)
{
    constexpr std::size_t whole = 8;
    if (text.size() < whole || text[2] != ':' || text[5] != ':') {
        return false;
    }
    const std::string_view parts[] = {text.substr(0, 2), text.substr(3, 2), text.substr(6, 2)};
    const std::string_view fraction = text.substr(whole);
    if (!std::all_of(std::begin(parts), std::end(parts), areDigits) ||
        !(fraction.empty() || (fraction[0] == '.' && areDigits(fraction.substr(1)))))
    {
        return false;
    }
    const int minute = tavelinUtils::toInt(parts[1]);
    const int second = tavelinUtils::toInt(parts[2]);
    const bool isLeapSecond = second == 60 && minute == 59;
    return tavelinUtils::toInt(parts[0]) < 24 && minute < 60 && (second < 60 || isLeapSecond);
}

} // namespace

std::span<const TdmKey> tdmKeys()
{
    return keys;
}

const TdmKey* tdmKey(std::string_view key)
{
    const auto matches = [key](const TdmKey& row) {
        const std::string_view name = row.name;
        if (!row.isNumbered) {
            return key == name;
        }
        return key.size() == name.size() + 1 && key.starts_with(name) && key.back() >= '1' &&
               key.back() <= '5';
    };
    const auto* const row = std::find_if(std::begin(keys), std::end(keys), matches);
    return row == std::end(keys) ? nullptr : row;
}

TdmLine tdmLineOf(std::string_view line)
{
    constexpr std::string_view comment = "COMMENT";
    const std::string_view text = trimmed(line, isBlank);
    if (text.starts_with(comment) && (text.size() == comment.size() || isBlank(text[7]))) {
        return {text.substr(0, comment.size()), trimmed(text.substr(comment.size()), isBlank), false};
    }
    const std::size_t sign = text.find('=');
    if (sign == std::string_view::npos) {
        return {text, text.substr(text.size()), false};
    }
    return {trimmed(text.substr(0, sign), isBlank), trimmed(text.substr(sign + 1), isBlank), true};
}

TdmRecord tdmRecordOf(std::string_view value)
{
    TdmRecord record;
    record.epoch = takeWord(value);
    record.value = takeWord(value);
    record.rest = trimmed(value, isBlank);
    return record;
}

std::string faultOfEpoch(std::string_view text)
{
    const std::size_t middle = std::min(text.find('T'), text.size());
    const std::string_view date = text.substr(0, middle);
    std::string_view time = text.substr(std::min(middle + 1, text.size()));
    if (time.ends_with('Z')) {
        time.remove_suffix(1);
    }
    if (!isDate(date)) {
        return "\"" + std::string(date) + "\" is no date";
    }
    return isTime(time) ? "" : "\"" + std::string(time) + "\" is no time";
}

TdmMoment tdmMomentOf(std::string_view epoch)
{
    using tavelinUtils::toInt;
    constexpr std::size_t ofYear = 8;
    const std::size_t middle = epoch.find('T');
    const std::string_view date = epoch.substr(0, middle);
    const std::string_view time = epoch.substr(middle + 1);
    const int year = toInt(date.substr(0, 4));
    const double mjd = date.size() == ofYear
                           ? tavelinUtils::YMDToMJD(year, 1, 1) + toInt(date.substr(5)) - 1
                           : tavelinUtils::YMDToMJD(year, toInt(date.substr(5, 2)), toInt(date.substr(8)));
    const double seconds = toInt(time.substr(0, 2)) * 3600.0 + toInt(time.substr(3, 2)) * 60.0 +
                           tavelinUtils::toDouble(time.substr(6));
    return {static_cast<int>(mjd), seconds};
}

} // namespace companion
