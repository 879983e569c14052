#include "base/last_answer.h"
#include "base/lines.h"
#include "out/characters.h"
#include "reading/strict_fields.h"
#include "receivers/tdm_keys.h"
#include "text/date_text.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

namespace companion {

using tavelinUtils::LineFate;
using tavelinUtils::PassedReason;
using tavelinUtils::toDouble;

namespace {

// The keys that the reader takes something from.
constexpr std::string_view readKeys[] = {
    "META_START", "ORIGINATOR", "PARTICIPANT_1", "PARTICIPANT_2", "ANGLE_1", "ANGLE_2", "MAG"};
constexpr std::string_view frameOfReader = "ICRF";
constexpr std::string_view timeOfReader = "UTC";
constexpr std::string_view angleOfReader = "RADEC";

// What the reader makes of a data line: the last of the items between blanks, and the one before it.
struct ReadRecord
{
    std::string_view epoch;
    std::string_view value;
};

std::string_view takeLast(std::string_view& line)
{
    const std::size_t blank = line.rfind(' ');
    const std::string_view item = line.substr(blank + 1); // all of it without a blank
    line = line.substr(0, blank == std::string_view::npos ? 0 : blank);
    return item;
}

ReadRecord readRecordOf(std::string_view line)
{
    if (line.ends_with(' ')) {
        line.remove_suffix(1);
    }
    const std::string_view value = takeLast(line);
    return {takeLast(line), value};
}

bool isReadKey(std::string_view key)
{
    return std::find(std::begin(readKeys), std::end(readKeys), key) != std::end(readKeys);
}

// A date by the day of the year: YYYY-DDD.
bool isDayOfYear(std::string_view date)
{
    return date.size() == 8 && date[4] == '-' && std::all_of(date.begin() + 5, date.end(), isDigit);
}

// What a person reads of the head of a segment, as far as the reader does not.
struct Segment
{
    bool isTold = false; // at its first mark
    bool hasObject = false;
    bool hasMark = false;
    std::string timeSystem{};
    std::string angleType{};
    std::string frame{};
};

class TdmChecker final : public LineChecker
{
public:
    void line(const CheckedLine& line, LintOutput& out) override
    {
        switch (line.fate) {
        case LineFate::part:
        case LineFate::mark: takeData(line, out); break;
        case LineFate::lost: tellLost(line, out); break;
        case LineFate::head: takeHead(line); break;
        case LineFate::passed: takePassed(line, out); break;
        default: break;
        }
    }

    void end(LintOutput& out) override
    {
        if (segments == 0 && !isToldOfStart) {
            out.addOfFile("V170", {{"where", "in the file"}});
        }
        closeSegment();
        if (emptySegments > 0) {
            out.addOfFile("V168", {{"what", counted(emptySegments, "segment") + " without a mark"}});
        }
        if (skippedLines > 0) {
            out.addOfFile("V180", {{"lines", counted(skippedLines, "line")}, {"keys", skippedText()}});
        }
    }

private:
    void closeSegment()
    {
        if (segments > 0 && !segment.hasMark) {
            ++emptySegments;
        }
    }

    void takeHead(const CheckedLine& line)
    {
        const TdmLine read = tdmLineOf(line.text);
        if (read.key == "META_START") {
            closeSegment();
            ++segments;
            segment = {};
            hasAngle[0] = false;
            hasAngle[1] = false;
        } else if (read.key == "PARTICIPANT_2") {
            segment.hasObject = true;
            object = read.value;
        }
    }

    void takePassed(const CheckedLine& line, LintOutput& out)
    {
        const TdmLine read = tdmLineOf(line.text);
        const Stretch stretch = stretchOf(line.text, read.key, "key");
        if (line.reason == PassedReason::outsideBlock) {
            isToldOfStart = true;
            out.add("V170", stretch, {{"where", "before this line"}});
        } else if (isReadKey(read.key)) {
            out.add("V171", stretch, {{"key", std::string(read.key)}});
        } else if (read.key == "TIME_SYSTEM") {
            segment.timeSystem = read.value;
        } else if (read.key == "ANGLE_TYPE") {
            segment.angleType = read.value;
        } else if (read.key == "REFERENCE_FRAME") {
            segment.frame = read.value;
        } else if (!read.key.empty() && read.key != "COMMENT") {
            countSkipped(read.key);
        }
    }

    // Keys of the standard that say nothing of a measurement are skipped without a word.
    void countSkipped(std::string_view key)
    {
        const TdmKey* const row = tdmKey(key);
        if (row != nullptr && row->part != TdmPart::data) {
            return;
        }
        ++skippedLines;
        constexpr std::size_t mostNames = 8;
        if (skippedKeys.size() < mostNames &&
            std::find(skippedKeys.begin(), skippedKeys.end(), key) == skippedKeys.end())
        {
            skippedKeys.emplace_back(key);
        }
    }

    std::string skippedText() const
    {
        std::string text;
        for (const std::string& key : skippedKeys) {
            text += (text.empty() ? "" : ", ") + key;
        }
        return text;
    }

    void tellLost(const CheckedLine& line, LintOutput& out)
    {
        const TdmLine read = tdmLineOf(line.text);
        const bool isReplaced = line.reason == PassedReason::replaced;
        out.add("V172", stretchOf(line.text, read.key, "key"),
                {{"key", std::string(read.key)},
                 {"what", isReplaced ? "the next " + std::string(read.key) + " comes before a MAG"
                                     : "no MAG follows"}});
    }

    void takeData(const CheckedLine& line, LintOutput& out)
    {
        const TdmLine read = tdmLineOf(line.text);
        tellOfSegment(line, out);
        const ReadRecord record = readRecordOf(line.text);
        const TdmRecord meant = tdmRecordOf(read.value);
        const bool isMisread = tellMisread(line, meant, record, out);
        if (read.key == "ANGLE_1") {
            hasAngle[0] = true;
            takeEpoch(line, record, meant, isMisread, out);
            angleEpoch = meant.epoch;
        } else {
            compareEpochs(line, meant, out);
        }
        if (read.key == "ANGLE_2") {
            hasAngle[1] = true;
        } else if (read.key == "MAG") {
            takeMark(line, meant, out);
        }
        if (!isMisread) {
            checkValue(line, read.key, record.value, out);
        }
    }

    // What the reader does not look at in the head of a segment matters where it makes a mark.
    void tellOfSegment(const CheckedLine& line, LintOutput& out)
    {
        if (segment.isTold) {
            return;
        }
        segment.isTold = true;
        const TdmRecord record = tdmRecordOf(tdmLineOf(line.text).value);
        const Stretch epoch = stretchOf(line.text, record.epoch, "epoch");
        const Stretch value = stretchOf(line.text, record.value, "value");
        if (!segment.timeSystem.empty() && segment.timeSystem != timeOfReader) {
            out.add("V176", epoch, {{"system", segment.timeSystem}});
        }
        if (!segment.angleType.empty() && segment.angleType != angleOfReader) {
            out.add("V177", value, {{"type", segment.angleType}});
        }
        if (!segment.hasObject) {
            out.add("V178", {1, line.text.size()}, {{"name", object}});
        }
        if (!segment.frame.empty() && segment.frame != frameOfReader) {
            out.add("V181", value, {{"word", segment.frame}});
        }
    }

    // The reader may take another word for the value.
    static bool tellMisread(const CheckedLine& line, const TdmRecord& meant, const ReadRecord& read,
                            LintOutput& out)
    {
        if (meant.value.empty() || meant.value == read.value) {
            return false;
        }
        const bool isFollowed = meant.value.data() + meant.value.size() <= read.value.data();
        out.add("V179", stretchOf(line.text, meant.value, "value"),
                {{"value", std::string(meant.value)},
                 {"number", shortest(toDouble(read.value))},
                 {"what", isFollowed ? "a unit or a blank follows it" : "no blank stands before it"}});
        return true;
    }

    // The epoch of the mark, as the reader finds it.
    void takeEpoch(const CheckedLine& line, const ReadRecord& read, const TdmRecord& meant, bool isMisread,
                   LintOutput& out)
    {
        tavelinUtils::readEpoch(read.epoch, days, date, time);
        const std::size_t middle = read.epoch.find('T');
        if (isMisread) {
            return; // one finding is enough
        }
        if (read.epoch.empty() || middle == std::string_view::npos) {
            const char* const what = read.epoch.empty() && !meant.epoch.empty()
                                         ? "several blanks before the value"
                                     : meant.value.empty() ? "no time before the value"
                                                           : "no T in the time";
            const std::string_view shown = meant.value.empty() ? meant.epoch : meant.value;
            out.add("V174", stretchOf(line.text, shown, "epoch"), {{"what", what}});
            return;
        }
        checkEpoch(line, read.epoch, middle, out);
    }

    static void checkEpoch(const CheckedLine& line, std::string_view epoch, std::size_t middle,
                           LintOutput& out)
    {
        const std::string_view dateText = epoch.substr(0, middle);
        std::string_view timeText = epoch.substr(middle + 1);
        if (timeText.ends_with('Z')) {
            timeText.remove_suffix(1);
        }
        if (isDayOfYear(dateText)) {
            out.add("V175", stretchOf(line.text, dateText, "epoch"), {{"text", std::string(dateText)}});
        } else {
            checkField({"epoch", FieldForm::date}, line.text, dateText, out);
        }
        checkField({"epoch", FieldForm::time}, line.text, timeText, out);
    }

    // Of ANGLE_2 and MAG, which the reader does not read.
    void compareEpochs(const CheckedLine& line, const TdmRecord& meant, LintOutput& out)
    {
        const bool areAlike = angleEpoch.find('T') == meant.epoch.find('T') &&
                              angleEpoch.find('T') != std::string::npos; // dates of one form
        if (!hasAngle[0] || !areAlike || meant.epoch == angleEpoch) {
            return;
        }
        int ownDate = 0;
        double ownTime = -1.0;
        int firstDate = 0;
        double firstTime = -1.0;
        tavelinUtils::readEpoch(meant.epoch, days, ownDate, ownTime);
        tavelinUtils::readEpoch(angleEpoch, days, firstDate, firstTime);
        if (ownDate != firstDate || ownTime != firstTime) {
            out.add("V182", stretchOf(line.text, meant.epoch, "epoch"), {{"epoch", angleEpoch}});
        }
    }

    void takeMark(const CheckedLine& line, const TdmRecord& meant, LintOutput& out)
    {
        if (!hasAngle[0] || !hasAngle[1]) {
            const char* const missing = !hasAngle[0] && !hasAngle[1] ? "angles"
                                        : hasAngle[0]                ? "ANGLE_2"
                                                                     : "ANGLE_1";
            out.add("V173", stretchOf(line.text, tdmLineOf(line.text).key, "key"), {{"missing", missing}});
        }
        hasAngle[0] = false;
        hasAngle[1] = false;
        segment.hasMark = true;
        if (out.times().areOdd()) {
            times.mark(std::to_string(segments - 1), date, time, stretchOf(line.text, meant.epoch, "epoch"),
                       out);
        }
    }

    void checkValue(const CheckedLine& line, std::string_view key, std::string_view value,
                    LintOutput& out) const
    {
        const bool isOnSky = segment.angleType.empty() || segment.angleType == angleOfReader;
        if (key == "MAG") {
            checkField({"value", FieldForm::magnitude}, line.text, value, out);
        } else if (!isOnSky) {
            checkField({"value", FieldForm::number}, line.text, value, out);
        } else {
            checkField({"value", key == "ANGLE_1" ? FieldForm::degreesRA : FieldForm::degreesDE}, line.text,
                       value, out);
        }
    }

    std::size_t segments = 0; // that the reader knows of
    std::size_t emptySegments = 0;
    Segment segment{};
    std::string object{}; // as the reader has it, from one segment to the next
    bool hasAngle[2] = {false, false};
    std::string angleEpoch{};
    int date = 0;
    double time = 0;
    tavelinUtils::DayNumbers days{};
    TimeFindings times{};
    bool isToldOfStart = false;
    std::size_t skippedLines = 0;
    std::vector<std::string> skippedKeys{};
};

} // namespace

std::unique_ptr<LineChecker> tdmLines()
{
    return std::make_unique<TdmChecker>();
}

} // namespace companion
