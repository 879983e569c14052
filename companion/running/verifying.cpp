#include "running/verifying.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "formats/mpc_report.h"
#include "out/text.h"
#include "text/calendar.h"
#include "works.h"

#include <tinyxml.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace companion {
namespace {

using tavelinUtils::toDouble;
using tavelinUtils::toInt;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;

// The lines of a file, one after the other.
class FileLines
{
public:
    explicit FileLines(const std::string& path) : file(tavelinUtils::openForReading(path))
    {
        if (file != nullptr) {
            pieces = std::make_unique<tavelinUtils::LinePieces>(file.get());
        }
    }

    // The next line; an empty one behind the last.
    std::string_view next()
    {
        if (rest.empty() && pieces != nullptr && pieces->next()) {
            rest = pieces->lines();
        }
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        return line;
    }

    // The next lines as one text, without the last line feed.
    std::string next(std::size_t count)
    {
        std::string text(count == 0 ? "" : next());
        for (std::size_t line = 1; line < count; ++line) {
            text.append("\n").append(next());
        }
        return text;
    }

private:
    tavelinUtils::OpenFile file;
    std::unique_ptr<tavelinUtils::LinePieces> pieces;
    std::string_view rest;
};

// How many lines a text takes.
std::size_t linesIn(std::string_view text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

// What a file says of a mark.
struct ReadMark
{
    bool nameAgrees = true;
    double timeOff = 0; // days by which it is later than the mark
    double RA = 0;      // degrees
    double DE = 0;
    std::array<double, 5> magnitudes{};
};

// Units of the last digit.
constexpr double second = 1.0 / 86400;
constexpr double secondOfRA = 15.0 / 3600;
constexpr double arcsecond = 1.0 / 3600;

// How far a file's numbers may lie from the mark's, by its digits. A form without positions has none for
// them.
struct Tolerance
{
    double time; // days
    double RA;   // degrees
    double DE;
    double m;
};

// The last tokens of a line, cut at single blanks; the front of the line stays. False where there are fewer.
template <std::size_t count>
bool takeLast(std::string_view& line, std::array<std::string_view, count>& tokens)
{
    for (std::size_t i = count; i-- > 0;) {
        const std::size_t blank = line.rfind(' ');
        if (blank == line.npos) {
            return false;
        }
        tokens[i] = line.substr(blank + 1);
        line = line.substr(0, blank);
    }
    return true;
}

// A magnitude, whose sign may stand behind a zero.
double magnitudeOf(std::string_view text)
{
    const std::size_t sign = text.find('-');
    return sign == text.npos ? toDouble(text) : -toDouble(text.substr(sign + 1));
}

// Hours or degrees of a packed text: two digits, two digits, and all others are seconds with so many
// decimals.
double packed(std::string_view text, int decimals)
{
    const double sign = text.starts_with('-') ? -1.0 : 1.0;
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    const auto part = [text](std::size_t at, std::size_t size) {
        return at < text.size() ? toDouble(text.substr(at, size)) : 0.0;
    };
    return sign * (part(0, 2) + part(2, 2) / 60 + part(4, text.npos) / std::pow(10.0, decimals) / 3600);
}

// Hours or degrees of three texts; a sign belongs to all of them.
double sexagesimal(std::string_view whole, std::string_view minutes, std::string_view seconds)
{
    const double sign = whole.starts_with('-') ? -1.0 : 1.0;
    return sign * (std::abs(toDouble(whole)) + toDouble(minutes) / 60 + toDouble(seconds) / 3600);
}

// The same of one text; the point of the seconds may be the separator too.
double separated(std::string_view text, char separator)
{
    const std::size_t first = std::min(text.find(separator), text.size());
    const std::size_t last = std::min(text.find(separator, first + 1), text.size());
    return sexagesimal(text.substr(0, first), text.substr(std::min(first + 1, text.size()), last - first - 1),
                       text.substr(std::min(last + 1, text.size())));
}

int dateOf(std::string_view year, std::string_view month, std::string_view day)
{
    return static_cast<int>(tavelinUtils::YMDToMJD(toInt(year), toInt(month), toInt(day)));
}

// The date of DDMMYY in the century of a mark.
int packedDate(std::string_view text, const TRecLabelPervichka_File& mark)
{
    int year = 0;
    int month = 0;
    int day = 0;
    tavelinUtils::MJDToYMD(int{mark.date}, year, month, day);
    const std::string ofMark =
        std::to_string(year / 100) + std::string(text.substr(std::min<std::size_t>(4, text.size())));
    return text.size() == 6 ? dateOf(ofMark, text.substr(2, 2), text.substr(0, 2)) : 0;
}

double timeOff(int date, double time, const TRecLabelPervichka_File& mark)
{
    return (date - int{mark.date}) + (time - double{mark.time});
}

// How far an epoch "2023-02-25T12:00:00.00000" is behind a mark.
double epochOff(std::string_view text, const TRecLabelPervichka_File& mark)
{
    const std::size_t middle = std::min(text.find('T'), text.size());
    const std::string_view date = text.substr(0, middle);
    const std::size_t day = date.rfind('-');
    const std::size_t month = day == date.npos || day == 0 ? date.npos : date.rfind('-', day - 1);
    if (month == date.npos) {
        return 1e9;
    }
    const double time = separated(text.substr(std::min(middle + 1, text.size())), ':') / 24;
    return timeOff(
        dateOf(date.substr(0, month), date.substr(month + 1, day - month - 1), date.substr(day + 1)), time,
        mark);
}

std::string padded(std::string_view text, std::size_t width, bool onTheLeft = false)
{
    const std::string blanks(width - std::min(width, text.size()), ' ');
    return onTheLeft ? blanks + std::string(text) : std::string(text) + blanks;
}

// A form: how its head, its blocks and its marks are read. Each is false where the file says something else.
class Form
{
public:
    virtual ~Form() = default;
    /// The lines before the first track.
    virtual void head(FileLines& lines, const TrackVtorichka& first) = 0;
    /// The lines before the marks of a track; false where the name is another.
    virtual bool begin(FileLines& /*lines*/, const TrackVtorichka& /*track*/)
    {
        return true;
    }
    /// A mark of a track; false where its lines have another layout.
    virtual bool read(FileLines& lines, const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
                      ReadMark& read) = 0;
    /// The lines after the marks of a track.
    virtual void end(FileLines& /*lines*/, const TrackVtorichka& /*track*/)
    {
    }
    /// The magnitudes of a mark that the form writes.
    virtual std::array<double, 5> magnitudes(const TRecLabelPervichka_File& mark) const
    {
        return {mark.m};
    }
    /// How far the numbers may be off.
    virtual Tolerance tolerance() const = 0;
    /// Whether the moments before midnight may stand as 0 h of the same date: nothing is carried over.
    virtual bool losesDay() const
    {
        return false;
    }
};

class MeaForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        lines.next(linesIn(first.telescope));
    }
    bool read(FileLines& lines, const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        std::string_view line = lines.next();
        std::array<std::string_view, 6> tokens;
        if (!takeLast(line, tokens)) {
            return false;
        }
        const auto [date, time, RA, DE, number, magnitude] = tokens;
        read.nameAgrees = line == padded(track.QRVName, 7);
        read.timeOff = timeOff(packedDate(date, mark), packed(time, 4) / 24, mark);
        read.RA = packed(RA, 4) * 15;
        read.DE = packed(DE, 4);
        read.magnitudes = {magnitudeOf(magnitude)};
        return number == "001";
    }
    Tolerance tolerance() const override
    {
        return {1e-3 * second, 5e-5 * secondOfRA, 5e-5 * arcsecond, 5e-3};
    }
};

class TelegramForm : public Form
{
public:
    void head(FileLines& /*lines*/, const TrackVtorichka& /*first*/) override
    {
    }
    bool begin(FileLines& lines, const TrackVtorichka& track) override
    {
        const std::string text = track.originator + " " + track.telescope + " " + track.QRVName;
        return lines.next(linesIn(text)) == text;
    }
    bool read(FileLines& lines, const TrackVtorichka& /*track*/, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        constexpr std::string_view prefix = "001";
        std::array<std::string_view, 5> tokens;
        if (tavelinUtils::cutParts(lines.next(), ' ', tokens) != tokens.size()) {
            return false;
        }
        const auto [date, time, RA, DE, magnitude] = tokens;
        read.timeOff = timeOff(packedDate(date, mark), packed(time, 2) / 24, mark);
        read.RA = packed(RA, 2) * 15;
        read.DE = packed(DE, 2);
        read.magnitudes = {magnitudeOf(magnitude.substr(std::min(prefix.size(), magnitude.size()))) / 10};
        return magnitude.starts_with(prefix);
    }
    void end(FileLines& lines, const TrackVtorichka& /*track*/) override
    {
        lines.next(2);
    }
    Tolerance tolerance() const override
    {
        return {5e-3 * second, 5e-3 * secondOfRA, 5e-3 * arcsecond, 5e-2};
    }
};

class SsmasForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        lines.next(2 + linesIn(first.telescope));
    }
    bool begin(FileLines& lines, const TrackVtorichka& track) override
    {
        lines.next(3);
        const std::string object =
            track.QRVName + " " + (track.HeadText3.empty() ? track.QRVName : track.HeadText3);
        const bool isSame = lines.next() == object;
        lines.next();
        return isSame;
    }
    bool read(FileLines& lines, const TrackVtorichka& /*track*/, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        std::array<std::string_view, 7> tokens;
        if (tavelinUtils::cutParts(lines.next(), ' ', tokens) != tokens.size()) {
            return false;
        }
        const auto [date, time, nothing, RA, DE, error, magnitude] = tokens;
        const auto [day, month, year] = tavelinUtils::threeParts(date, '.');
        read.timeOff = timeOff(dateOf(year, month, day), separated(time, ':') / 24, mark);
        read.RA = separated(RA, ':') * 15;
        read.DE = separated(DE, '.');
        read.magnitudes = {magnitudeOf(magnitude)};
        return nothing.empty() && error == "001";
    }
    Tolerance tolerance() const override
    {
        return {5e-3 * second, 5e-3 * secondOfRA, 5e-3 * arcsecond, 5e-2};
    }
};

class TdmForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        lines.next(2 + linesIn(first.originator));
    }
    bool begin(FileLines& lines, const TrackVtorichka& track) override
    {
        if (track.Marks.empty()) {
            return true;
        }
        lines.next(4 + linesIn(track.telescope));
        const bool isSame = lines.next(linesIn(track.QRVName)) == "PARTICIPANT_2 = " + track.QRVName;
        lines.next(5 + linesIn(track.REFERENCE_FRAME));
        return isSame;
    }
    bool read(FileLines& lines, const TrackVtorichka& /*track*/, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        return takeValue(lines, "ANGLE_1 = ", mark, read.RA, read.timeOff) &&
               takeValue(lines, "ANGLE_2 = ", mark, read.DE, read.timeOff) &&
               takeValue(lines, "MAG = ", mark, read.magnitudes[0], read.timeOff);
    }
    void end(FileLines& lines, const TrackVtorichka& track) override
    {
        lines.next(track.Marks.empty() ? 0 : 1);
    }
    Tolerance tolerance() const override
    {
        return {5e-6 * second, 5e-8, 5e-8, 5e-5};
    }
    bool losesDay() const override
    {
        return true;
    }

private:
    // A value and its epoch; of the epochs of a mark the one that is off the most counts.
    static bool takeValue(FileLines& lines, std::string_view key, const TRecLabelPervichka_File& mark,
                          double& value, double& off)
    {
        std::string_view line = lines.next();
        std::array<std::string_view, 1> last;
        if (!line.starts_with(key)) {
            return false;
        }
        line.remove_prefix(key.size());
        if (!takeLast(line, last)) {
            return false;
        }
        value = toDouble(last[0]);
        const double epoch = epochOff(line, mark);
        off = std::abs(epoch) > std::abs(off) ? epoch : off;
        return true;
    }
};

class TdmXmlForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        lines.next(5 + linesIn(escaped(first.originator)));
    }
    bool begin(FileLines& lines, const TrackVtorichka& track) override
    {
        if (track.Marks.empty()) {
            return true;
        }
        lines.next(isBodyOpen ? 0 : 1);
        isBodyOpen = true;
        lines.next(5 + linesIn(escaped(track.telescope)));
        const std::string name =
            "                <PARTICIPANT_2>" + escaped(track.QRVName) + "</PARTICIPANT_2>";
        const bool isSame = lines.next(linesIn(name)) == name;
        lines.next(5 + linesIn(escaped(track.REFERENCE_FRAME)));
        return isSame;
    }
    bool read(FileLines& lines, const TrackVtorichka& /*track*/, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        return takeValue(lines, "<ANGLE_1>", mark, read.RA, read.timeOff) &&
               takeValue(lines, "<ANGLE_2>", mark, read.DE, read.timeOff) &&
               takeValue(lines, "<MAG>", mark, read.magnitudes[0], read.timeOff);
    }
    void end(FileLines& lines, const TrackVtorichka& track) override
    {
        lines.next(track.Marks.empty() ? 0 : 2);
    }
    Tolerance tolerance() const override
    {
        return TdmForm().tolerance();
    }
    bool losesDay() const override
    {
        return true;
    }

private:
    static std::string escaped(const std::string& text)
    {
        std::string result;
        TiXmlBase::EncodeString(text, &result);
        return result;
    }

    static bool takeValue(FileLines& lines, std::string_view tag, const TRecLabelPervichka_File& mark,
                          double& value, double& off)
    {
        constexpr std::string_view epochTag = "<EPOCH>";
        lines.next();
        const std::string epochLine(lines.next());
        const std::string valueLine(lines.next());
        lines.next();
        const std::size_t epochAt = epochLine.find(epochTag);
        const std::size_t valueAt = valueLine.find(tag);
        if (epochAt == epochLine.npos || valueAt == valueLine.npos) {
            return false;
        }
        const std::string_view epochText = std::string_view(epochLine).substr(epochAt + epochTag.size());
        value = toDouble(std::string_view(valueLine).substr(valueAt + tag.size()));
        const double epoch = epochOff(epochText.substr(0, epochText.find('<')), mark);
        off = std::abs(epoch) > std::abs(off) ? epoch : off;
        return true;
    }

    bool isBodyOpen = false;
};

class MpcForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        for (const std::string& line : tavelinUtils::GetListHeadMPC(first.MPCHeader)) {
            lines.next(linesIn(line));
        }
    }
    bool read(FileLines& lines, const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        constexpr std::size_t width = 12;
        constexpr std::size_t permanent = 5;
        const std::string& name = track.MPCChecker.empty() ? track.QRVName : track.MPCChecker;
        const std::string line = lines.next(linesIn(track.MPCHeader.COD) + linesIn(mark.filtr) - 1);
        const std::string front = padded(name, width, name.size() != permanent) + "  C";
        read.nameAgrees = line.starts_with(front);
        return !read.nameAgrees || readFields(std::string_view(line).substr(front.size()), mark, read);
    }
    Tolerance tolerance() const override
    {
        return {5e-6, 5e-3 * secondOfRA, 5e-2 * arcsecond, 5e-2};
    }
    bool losesDay() const override
    {
        return true;
    }

private:
    static bool readFields(std::string_view text, const TRecLabelPervichka_File& mark, ReadMark& read)
    {
        std::array<std::string_view, 10> tokens;
        std::size_t count = 0;
        tavelinUtils::forEachToken(text, ' ', [&](std::string_view token) {
            if (!token.empty() && count < tokens.size()) {
                tokens[count++] = token;
            }
        });
        if (count < tokens.size()) {
            return false;
        }
        const auto [year, month, day, hours, minutes, seconds, degrees, arcminutes, arcseconds, magnitude] =
            tokens;
        const std::size_t point = std::min(day.find('.'), day.size());
        read.timeOff = timeOff(dateOf(year, month, day.substr(0, point)), toDouble(day.substr(point)), mark);
        read.RA = sexagesimal(hours, minutes, seconds) * 15;
        read.DE = sexagesimal(degrees, arcminutes, arcseconds);
        read.magnitudes = {magnitudeOf(magnitude)};
        return true;
    }
};

// How far a Julian date is behind a mark.
double julianOff(std::string_view text, const TRecLabelPervichka_File& mark)
{
    return toDouble(text) - (tavelinUtils::MJDtoJD(int{mark.date}) + double{mark.time});
}

class LightCurveForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& /*first*/) override
    {
        lines.next();
    }
    bool read(FileLines& lines, const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        std::array<std::string_view, 6> cells;
        std::string_view line = lines.next();
        for (std::string_view& cell : cells) {
            const std::size_t tab = line.find('\t');
            if (tab == line.npos) {
                return false;
            }
            cell = line.substr(0, tab);
            line.remove_prefix(tab + 1);
        }
        read.nameAgrees = line == track.QRVName + "\t";
        read.timeOff = julianOff(cells[0], mark);
        std::transform(cells.begin() + 1, cells.end(), read.magnitudes.begin(), toDouble);
        return true;
    }
    std::array<double, 5> magnitudes(const TRecLabelPervichka_File& mark) const override
    {
        return {mark.m, mark.mEnsemble, mark.mInstr, mark.mInstr1000, mark.mInstrComp};
    }
    Tolerance tolerance() const override
    {
        return {5e-8, 0, 0, 5e-6};
    }
};

class AavsoForm : public Form
{
public:
    void head(FileLines& lines, const TrackVtorichka& first) override
    {
        lines.next(6 + linesIn(first.ObsCode));
    }
    bool read(FileLines& lines, const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
              ReadMark& read) override
    {
        std::string_view line = lines.next();
        read.nameAgrees = line.starts_with(track.QRVName + ",");
        if (!read.nameAgrees) {
            return true;
        }
        const auto [date, magnitude, error] =
            tavelinUtils::threeParts(line.substr(track.QRVName.size() + 1), ',');
        read.timeOff = julianOff(date, mark);
        read.magnitudes = {toDouble(magnitude)};
        return !error.empty();
    }
    std::array<double, 5> magnitudes(const TRecLabelPervichka_File& mark) const override
    {
        return {mark.mEnsemble};
    }
    Tolerance tolerance() const override
    {
        return {5e-8, 0, 0, 5e-4};
    }
};

template <class OfWord>
std::unique_ptr<Form> newForm()
{
    return std::make_unique<OfWord>();
}

struct FormRow
{
    std::string_view word;
    std::unique_ptr<Form> (*make)();
};
constexpr FormRow forms[] = {
    {"mea", newForm<MeaForm>},        {"telegram", newForm<TelegramForm>}, {"tdm", newForm<TdmForm>},
    {"ssmas", newForm<SsmasForm>},    {"mpc", newForm<MpcForm>},           {"tdm.xml", newForm<TdmXmlForm>},
    {"mag", newForm<LightCurveForm>}, {"aavso", newForm<AavsoForm>},
};

// Whether a value agrees with that of a mark. Sums and quotients of doubles are off by a hair.
bool agrees(double value, double ofMark, double tolerance)
{
    const double hair = 1e-9 + 1e-9 * tolerance;
    return std::abs(value - ofMark) <= tolerance + hair * std::max(1.0, std::abs(ofMark));
}

// A time has digits for the days of the years that calendars agree on.
bool hasDigitsForTime(const TRecLabelPervichka_File& mark)
{
    constexpr int year1000 = -313698;
    constexpr int year9999 = 2973119;
    return mark.date >= year1000 && mark.date <= year9999 && mark.time >= 0.0 && mark.time < 1.0;
}

// Compares the marks of a file with those of the plan.
class FileComparison
{
public:
    FileComparison(const PlannedFile& plannedFile, std::unique_ptr<Form> itsForm)
        : planned(plannedFile), form(std::move(itsForm)), lines(planned.path)
    {
    }

    void see(const TrackVtorichka& track)
    {
        if (!difference.empty()) {
            return;
        }
        if (!isHeaded) {
            isHeaded = true;
            form->head(lines, track);
        }
        if (!form->begin(lines, track)) {
            tell(track, nullptr, "name");
        }
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            compare(track, mark);
        }
        form->end(lines, track);
    }

    std::vector<Finding> difference; // the first

private:
    void compare(const TrackVtorichka& track, const TRecLabelPervichka_File& mark)
    {
        ReadMark read;
        if (!form->read(lines, track, mark, read)) {
            tell(track, &mark, "layout of the line");
            return;
        }
        const Tolerance tolerance = form->tolerance();
        if (!read.nameAgrees) {
            tell(track, &mark, "name");
        } else if (hasDigitsForTime(mark) && !timeAgrees(read.timeOff, tolerance.time)) {
            tell(track, &mark, "time");
        } else if (tolerance.RA > 0 && mark.RA >= 0.0 && mark.RA <= 360.0 &&
                   !agrees(read.RA, mark.RA, tolerance.RA)) {
            tell(track, &mark, "right ascension");
        } else if (tolerance.DE > 0 && std::abs(double{mark.DE}) <= 90.0 &&
                   !agrees(read.DE, mark.DE, tolerance.DE)) {
            tell(track, &mark, "declination");
        } else {
            compareMagnitudes(track, mark, read);
        }
    }

    bool timeAgrees(double off, double tolerance) const
    {
        return agrees(off, 0.0, tolerance) || (form->losesDay() && agrees(off + 1.0, 0.0, tolerance));
    }

    void compareMagnitudes(const TrackVtorichka& track, const TRecLabelPervichka_File& mark,
                           const ReadMark& read)
    {
        const std::array<double, 5> ofMark = form->magnitudes(mark);
        for (std::size_t i = 0; i < ofMark.size(); ++i) {
            constexpr double beyondAnyStar = 1000.0;
            if (std::abs(ofMark[i]) < beyondAnyStar &&
                !agrees(read.magnitudes[i], ofMark[i], form->tolerance().m)) {
                tell(track, &mark, "magnitude");
                return;
            }
        }
    }

    void tell(const TrackVtorichka& track, const TRecLabelPervichka_File* mark, const std::string& field)
    {
        if (!difference.empty()) {
            return;
        }
        const std::string time =
            mark == nullptr ? "the head of its marks" : momentText(mark->date + mark->time);
        difference.push_back(finding(
            "V417", {{"path", planned.path}, {"object", track.QRVName}, {"time", time}, {"field", field}}));
    }

    const PlannedFile& planned;
    std::unique_ptr<Form> form;
    FileLines lines;
    bool isHeaded = false;
};

} // namespace

std::vector<Finding> differences(const tavelinUtils::TConvMea& task, const Plan& plan,
                                 std::span<const PlannedFile* const> files)
{
    std::vector<Finding> all;
    std::size_t opened = 0;
    std::unique_ptr<FileComparison> comparison;
    const auto settle = [&all, &comparison] {
        if (comparison != nullptr) {
            std::move(comparison->difference.begin(), comparison->difference.end(), std::back_inserter(all));
        }
        comparison.reset();
    };
    const auto open = [&](const PlannedFile& /*again*/) {
        settle();
        const PlannedFile* const file = opened < plan.files.size() ? &plan.files[opened] : nullptr;
        ++opened;
        const auto* const row = std::find_if(std::begin(forms), std::end(forms), [file](const FormRow& each) {
            return file != nullptr && each.word == file->format;
        });
        if (row != std::end(forms) && std::find(files.begin(), files.end(), file) != files.end()) {
            comparison = std::make_unique<FileComparison>(*file, row->make());
        }
    };
    planOf(task, ownWorks(), {open, [&comparison](const PlannedFile& /*file*/, const TrackVtorichka& track) {
                                  if (comparison != nullptr) {
                                      comparison->see(track);
                                  }
                              }});
    settle();
    return all;
}

} // namespace companion
