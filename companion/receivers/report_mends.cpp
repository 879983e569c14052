#include "receivers/report_mends.h"

#include "base/lines.h"
#include "out/characters.h"
#include "receivers/report_columns.h"

#include <cstddef>

namespace companion {
namespace {

using tavelinUtils::cut;
using tavelinUtils::Field;
using namespace reportColumns;

bool isBlank(std::string_view text)
{
    return trimmed(text).empty();
}

bool hasSecondsOf60(std::string_view angle)
{
    return angle.substr(6, 2) == "60";
}

// A right ascension at or next to the end of the circle that became 0 h.
bool isBroughtToZero(std::string_view read, std::string_view written)
{
    return written.starts_with("00") && (read.starts_with("24") || read.starts_with("23"));
}

} // namespace

std::vector<std::string_view> reportMends(std::string_view read, std::string_view written)
{
    std::vector<std::string_view> mends;
    if (read.size() != lineLength || written.size() != lineLength) {
        return mends;
    }
    const auto tell = [&mends](bool isSo, std::string_view what) {
        if (isSo) {
            mends.push_back(what);
        }
    };
    const auto isOther = [&](Field field) { return cut(read, field) != cut(written, field); };
    const auto isDropped = [&](Field field) {
        return !isBlank(cut(read, field)) && isBlank(cut(written, field));
    };
    tell(isDropped(notesBefore), "columns 13 and 14 are blank");
    tell(isOther(note2), "column 15 is that of the mode");
    tell(isOther(dateField), "the time is carried into the next day");
    tell(trimmed(cut(read, dayFraction)).size() > trimmed(cut(written, dayFraction)).size(),
         "the day has fewer decimals");
    tell(hasSecondsOf60(cut(read, rightAscension)) || hasSecondsOf60(cut(read, declination).substr(1)),
         "seconds of 60 are carried");
    tell(isBroughtToZero(cut(read, rightAscension), cut(written, rightAscension)),
         "a right ascension of 24 h is 0 h");
    tell(isDropped(unset), "columns 57 to 65 are blank");
    tell(isDropped(magnitude), magnitudeMended);
    tell(isBlank(cut(read, magnitude)) && isDropped(bandField), "a band without a magnitude is left blank");
    tell(fillsReceiverColumns(read), receiverColumnsMended);
    return mends;
}

bool hasNotes(std::string_view line)
{
    return line.size() == lineLength && !isBlank(cut(line, notesBefore));
}

bool fillsReceiverColumns(std::string_view line)
{
    return line.size() == lineLength && !isBlank(cut(line, ofReceiver));
}

} // namespace companion
