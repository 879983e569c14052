// TDM keys: the keys of the CCSDS Tracking Data Message, version 2.0, as a table: where each stands, in which
// order, and which values it takes.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace companion {

/// The part of a message that a key belongs to.
enum class TdmPart
{
    header,
    metadata,
    data,
    bracket ///< META_START and its like, which have no value
};

/// What the value of a key is.
enum class TdmValue
{
    text,
    word,    ///< one of a closed list
    epoch,   ///< a moment in UTC
    number,  ///< with or without a point
    integer, ///< of 32 bits
    path,    ///< participants' numbers with commas
    record,  ///< a time and a number
    none
};

/// Which numbers a key takes, beside those of an angle.
enum class TdmRange
{
    any,
    notNegative,
    positive,
    percentage ///< 0 to 100
};

/// A key. In each part they are in the order of the standard; those of data have none.
struct TdmKey
{
    const char* name; ///< without the number at its end, where it has one
    bool isNumbered;  ///< ends in the number of a participant, 1 to 5
    TdmPart part;
    TdmValue value;
    const char* words; ///< of a closed list, with blanks between
    bool isDemanded;   ///< in its part
    bool isOfVersion2; ///< not in messages of version 1.0
    TdmRange range = TdmRange::any;
};

/// All keys.
std::span<const TdmKey> tdmKeys();

/// The row of a key; a null pointer for a word that is none.
const TdmKey* tdmKey(std::string_view key);

/// A line as people read it: blanks and tabs around its key and its value mean nothing.
struct TdmLine
{
    std::string_view key{};   ///< empty in a blank line
    std::string_view value{}; ///< what follows the first =; of a COMMENT, its text
    bool hasValue = false;    ///< whether there is a =
};
TdmLine tdmLineOf(std::string_view line);

/// Time and value of a record; what is missing is empty.
struct TdmRecord
{
    std::string_view epoch{};
    std::string_view value{};
    std::string_view rest{}; ///< behind the value
};
TdmRecord tdmRecordOf(std::string_view value);

/// Why a text is no moment in time, as the end of a sentence; empty where it is one: a real day, by month and
/// day or by the day of the year, and a time of it, perhaps with a Z.
std::string faultOfEpoch(std::string_view text);

/// A moment as the whole MJD of its day and the seconds of that day, of a text without a fault.
struct TdmMoment
{
    int day = 0;
    double seconds = 0;

    friend bool operator==(const TdmMoment& a, const TdmMoment& b) = default;
    friend bool operator<(const TdmMoment& a, const TdmMoment& b)
    {
        return a.day < b.day || (a.day == b.day && a.seconds < b.seconds);
    }
};
TdmMoment tdmMomentOf(std::string_view epoch);

} // namespace companion
