#include "receivers/mpc_copy.h"

#include "out/characters.h"
#include "receivers/designation_forms.h"
#include "receivers/designations.h"
#include "receivers/mpc_header.h"
#include "receivers/mpc_rules.h"
#include "receivers/observation_notes.h"
#include "receivers/report_mends.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

using tavelinUtils::TRecLabelPervichka_File;

namespace companion {
namespace {

// Places in a line, from 0.
constexpr std::size_t nameWidth = 12;
constexpr std::size_t note2Place = 14;
constexpr std::size_t datePlace = 15;
constexpr std::size_t timeWidth = 17;
constexpr std::size_t rightAscensionPlace = 32;
constexpr std::size_t declinationPlace = 44;
constexpr std::size_t magnitudePlace = 65;
constexpr std::size_t bandPlace = 70;
constexpr std::size_t stationPlace = 77;
constexpr std::size_t lineLength = 80;
constexpr std::size_t magnitudeWidth = 5;
constexpr int usualTimeDecimals = 5;
constexpr int mostTimeDecimals = 6;
constexpr const char* twice = "another position of the object has this time";
constexpr const char* twiceByRounding = "another position of the object has this time, rounded; "
                                        "--for ades may tell them apart";

void put(std::string& line, std::size_t place, std::string_view text)
{
    line.replace(place, text.size(), text);
}

// A magnitude in its five columns: the point in the third, or in the fourth of a negative one with one
// decimal. Nothing for one that has no room.
std::optional<std::string> magnitudeColumns(double magnitude, int decimals)
{
    if (!(std::abs(magnitude) <= 100.0)) {
        return std::nullopt;
    }
    std::string text = exactDecimal(magnitude, decimals);
    if (text[0] == '-' && text.size() > magnitudeWidth) {
        text = exactDecimal(magnitude, 1);
    }
    if (text[0] != '-') {
        text += std::string(2 - static_cast<std::size_t>(decimals), ' ');
    }
    const bool fits = text.size() <= magnitudeWidth;
    return fits ? std::optional(std::string(magnitudeWidth - text.size(), ' ') + text) : std::nullopt;
}

Finding columnsFault(const char* columns, const std::string& text, const std::string& why)
{
    return finding("V316", {{"columns", columns}, {"text", text}, {"why", why}});
}

// An observation: what it is sorted by, and its line.
struct Row
{
    std::string name;
    RoundedMoment moment;
    std::string line;
    CopyPlace place;
};

// Observations under one header.
struct Block
{
    std::shared_ptr<const Observatory> observatory{};
    std::vector<Row> rows{};
};

// The columns of a name, or why it has none.
struct NamePlace
{
    std::string columns{};
    std::optional<Finding> fault{};
};

class MpcCopier
{
public:
    MpcCopier(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings)
        : tracks(theTracks), settings(theSettings), tally(theTracks, theSettings)
    {
    }

    Copy make()
    {
        for (std::size_t track = 0; track < tracks.size(); ++track) {
            addTrack(track);
        }
        std::string text;
        bool isFirst = true;
        for (auto& [key, block] : blocks) {
            text += blockText(block, isFirst);
            isFirst = isFirst && text.empty();
        }
        return copyOf(std::move(text), tally, tracks);
    }

private:
    void addTrack(std::size_t number)
    {
        const CopyTrack& track = tracks[number];
        if (!isStationCode(track.observatory->station)) {
            tally.refuseTrack(number, notKnown("the station", "--station"));
            return;
        }
        if (const auto fault = faultOfTrack(track)) {
            tally.refuseTrack(number, *fault);
            return;
        }
        const NamePlace name = namePlaceOf(track);
        if (name.fault) {
            tally.refuseTrack(number, *name.fault);
            return;
        }
        Block& block = blocks[{track.observatory->station, mpcHeader(*track.observatory, "")}];
        block.observatory = track.observatory;
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            addMark({number, mark}, name.columns, block);
        }
    }

    static std::optional<Finding> faultOfTrack(const CopyTrack& track)
    {
        if (auto fault = faultOfFrame(track)) {
            return fault;
        }
        if (auto fault = track.isOf80Columns ? faultOfNote(track.note2) : std::nullopt) {
            return fault;
        }
        const std::string& mode = track.observatory->mode;
        return letterOf(track) ? std::nullopt
                               : std::optional(columnsFault("column 15", mode, "the mode has no letter"));
    }

    static std::optional<char> letterOf(const CopyTrack& track)
    {
        const std::string& mode = track.observatory->mode;
        return track.isOf80Columns ? noteOfCopy(track.note2, mode) : noteOfMode(mode);
    }

    NamePlace namePlaceOf(const CopyTrack& track) const
    {
        const std::string& name = track.track.QRVName;
        if ((isLaunchDesignation(name) || track.isSatellite) && !settings.allowsSatellites) {
            return {"", finding("V318", {{"name", name}})};
        }
        if (!isNameOfObject(name)) {
            return {"", finding("V312", {{"name", name}, {"why", "says that the object is not known"}})};
        }
        const auto number = packedNumber(name);
        if (number && !track.isIdentified && !settings.areNumbers) {
            return {"", finding("V311", {{"name", name}, {"number", std::to_string(*number)}})};
        }
        const auto designation = designationOf(name);
        const auto columns = designation ? packedColumns(*designation) : std::nullopt;
        if (columns) {
            return {*columns, std::nullopt};
        }
        const bool isTaken = isTemporaryName(name) || (isLaunchDesignation(name) && name.size() < 8);
        if (!designation && isTaken) {
            return {(std::string(5, ' ') + name).append(7 - name.size(), ' '), std::nullopt};
        }
        return {"", finding("V312", {{"name", name}, {"why", whyNotTaken(name, designation.has_value())}})};
    }

    static std::string whyNotTaken(const std::string& name, bool isDesignation)
    {
        if (name.empty()) {
            return "is empty";
        }
        return isDesignation                                                  ? "has no packed form"
               : isTemporaryName("A" + name.substr(0, 6)) && name.size() <= 7 ? "does not begin with a letter"
               : name.size() > 7 ? "has " + counted(name.size(), "character")
                                 : "has more than letters and digits";
    }

    void addMark(const CopyPlace& place, const std::string& name, Block& block)
    {
        const TRecLabelPervichka_File& mark = tracks[place.track].track.Marks[place.mark];
        if (!isPossible(place, mark)) {
            return;
        }
        std::string line(lineLength, ' ');
        put(line, 0, name);
        line[note2Place] = *letterOf(tracks[place.track]);
        const RoundedMoment moment = putMoment(line, mark, timeDecimals());
        const bool isFiner = settings.timeDecimals == 0 && isRoundedOnto(place, name, line);
        if (isFiner) {
            putMoment(line, mark, mostTimeDecimals);
        }
        putAngles(line, place, mark);
        put(line, stationPlace, block.observatory->station);
        if (putMagnitude(line, place) && !isTwice(place, name, line)) {
            tellMended(place, mark, line, moment);
            if (isFiner) {
                tally.mend(
                    "the time has six decimals: with five, two positions of the object would have one");
            }
            block.rows.push_back({name, moment, std::move(line), place});
        }
    }

    bool isPossible(const CopyPlace& place, const TRecLabelPervichka_File& mark)
    {
        const bool isDay = mark.date > -300000 && mark.date < 2'900'000;
        const auto refuse = [&](const char* columns, const std::string& text, const char* why) {
            tally.refuse(place, columnsFault(columns, text, why));
            return false;
        };
        if (!isDay || !(mark.time >= 0.0 && mark.time <= 2.0)) {
            return refuse("columns 16 to 32", shownNumber(mark.date + mark.time), "no date");
        }
        if (isInLeapSecond(momentOf(mark))) {
            return refuse("columns 16 to 32", epochText(momentOf(mark), 3),
                          "the fraction of a day cannot say a leap second");
        }
        if (!isRightAscension(mark.RA)) {
            return refuse("columns 33 to 44", shownNumber(mark.RA), "a right ascension is wanted");
        }
        if (!isDeclination(mark.DE)) {
            return refuse("columns 45 to 56", shownNumber(mark.DE), "a declination is at most 90 degrees");
        }
        return true;
    }

    bool isTwice(const CopyPlace& place, const std::string& name, const std::string& line)
    {
        const std::string time = line.substr(datePlace, timeWidth);
        const DayAndFraction moment = momentOf(tracks[place.track].track.Marks[place.mark]);
        const auto [known, isNew] = times.try_emplace(keyOf(place, name, line), moment);
        if (isNew) {
            return false;
        }
        tally.refuse(place, columnsFault("columns 16 to 32", std::string(trimmed(time)),
                                         isSame(known->second, moment) ? twice : twiceByRounding));
        return true;
    }

    // Whether the time of a line is that of another position of the object, and the moment is not.
    bool isRoundedOnto(const CopyPlace& place, const std::string& name, const std::string& line) const
    {
        const auto known = times.find(keyOf(place, name, line));
        return known != times.end() &&
               !isSame(known->second, momentOf(tracks[place.track].track.Marks[place.mark]));
    }

    // Five decimals and six of one time are the same. Of a station, whatever its headers say.
    std::pair<std::string, std::string> keyOf(const CopyPlace& place, const std::string& name,
                                              const std::string& line) const
    {
        std::string time = line.substr(datePlace, timeWidth);
        time.back() = time.back() == ' ' ? '0' : time.back();
        return {tracks[place.track].observatory->station + name, std::move(time)};
    }

    static bool isSame(const DayAndFraction& one, const DayAndFraction& other)
    {
        return one.day == other.day && one.fraction == other.fraction;
    }

    int timeDecimals() const
    {
        return settings.timeDecimals == 0 ? usualTimeDecimals : settings.timeDecimals;
    }

    static RoundedMoment putMoment(std::string& line, const TRecLabelPervichka_File& mark, int decimals)
    {
        const RoundedMoment moment = roundedMoment(momentOf(mark), powerOfTen(decimals));
        put(line, datePlace, dayText(moment.day, ' ') + decimalText(moment.units, decimals).substr(1));
        return moment;
    }

    void putAngles(std::string& line, const CopyPlace& place, const TRecLabelPervichka_File& mark) const
    {
        constexpr double arcsecondsOfTimeSecond = 15.0;
        const ValueSteps& steps = tracks[place.track].marks[place.mark].steps;
        const int hours = settings.rightAscensionDecimals != 0
                              ? settings.rightAscensionDecimals
                              : decimalsOf(steps.rightAscension / arcsecondsOfTimeSecond, 2, 3);
        const int degrees = settings.declinationDecimals != 0 ? settings.declinationDecimals
                                                              : decimalsOf(steps.declination, 1, 2);
        put(line, rightAscensionPlace, exactHours(mark.RA, hours, ' '));
        put(line, declinationPlace, exactDegrees(mark.DE, degrees, ' '));
    }

    // False where the mark is refused for its magnitude or band.
    bool putMagnitude(std::string& line, const CopyPlace& place)
    {
        const CopyTrack& track = tracks[place.track];
        if (!isBright(settings, track, place.mark)) {
            return true;
        }
        const double magnitude = track.track.Marks[place.mark].m;
        const int decimals = decimalsOf(track.marks[place.mark].steps.magnitude, 1, 2);
        const auto columns = magnitudeColumns(magnitude, decimals);
        const std::string band = bandOf(track, place.mark);
        if (const auto fault = columns ? bandFault(band) : magnitudeFault(magnitude)) {
            tally.refuse(place, *fault);
            return false;
        }
        put(line, magnitudePlace, *columns);
        put(line, bandPlace, band);
        return true;
    }

    static std::optional<Finding> magnitudeFault(double magnitude)
    {
        return columnsFault("columns 66 to 70", shownNumber(magnitude),
                            "a number with its point in column 68 is wanted");
    }

    static std::optional<Finding> bandFault(const std::string& band)
    {
        if (band.empty() || band[0] == ' ') {
            return notKnown("the band of the magnitude", "--band or --no-magnitudes");
        }
        const std::string_view fault = band.size() > 1 ? bandOfSeveral : faultOfBand(band);
        if (!fault.empty()) {
            return columnsFault("column 71", band, std::string(fault));
        }
        return std::nullopt;
    }

    // What the line has other than the tool would write it, or other than the line that was read.
    void tellMended(const CopyPlace& place, const TRecLabelPervichka_File& mark, const std::string& line,
                    const RoundedMoment& moment)
    {
        const CopyTrack& track = tracks[place.track];
        const std::string& read = track.marks[place.mark].line80;
        if (!read.empty()) {
            tellOfReport(track, read, line);
            return;
        }
        tellForm(track, line);
        tellCarried(mark, line, moment);
    }

    void tellCarried(const TRecLabelPervichka_File& mark, const std::string& line,
                     const RoundedMoment& moment)
    {
        if (moment.day != mark.date) {
            tally.mend("the time is carried into the next day");
        }
        const double turns = std::floor(mark.RA / 360.0);
        if (isCarried((mark.RA - turns * 360.0) / 15.0, line.substr(rightAscensionPlace, 12)) ||
            isCarried(std::abs(mark.DE), line.substr(declinationPlace + 1, 11)))
        {
            tally.mend("seconds of 60 are carried");
        }
        if (mark.RA < 0.0 || mark.RA > 360.0) {
            tally.mend("a right ascension is brought to below 24 h");
        } else if (mark.RA > 359.0 && line.substr(rightAscensionPlace, 2) == "00") {
            tally.mend("a right ascension of 24 h is 0 h");
        }
    }

    void tellOfReport(const CopyTrack& track, const std::string& read, const std::string& line)
    {
        const bool isNone = line[bandPlace] == ' ' && settings.leavesMagnitudesOut;
        for (const std::string_view mend : reportMends(read, line)) {
            if (!isNone || mend != magnitudeMended) {
                tally.mend(mend);
            }
        }
        if (line.compare(0, nameWidth, read, 0, nameWidth) != 0) {
            tellName(track, line);
        }
    }

    // What only lines that were not in 80 columns before get.
    void tellForm(const CopyTrack& track, const std::string& line)
    {
        if (line[declinationPlace] == '+') {
            tally.mend("the declination has its sign in column 45");
        }
        if (line[bandPlace] == ' ' && !settings.leavesMagnitudesOut) {
            tally.mend(magnitudeMended);
        }
        tellName(track, line);
    }

    void tellName(const CopyTrack& track, const std::string& line)
    {
        if (trimmed(std::string_view(line).substr(0, nameWidth)) != track.track.QRVName) {
            tally.mend("the designation is packed");
        }
    }

    // Whether the minutes of a text are later than those of the value, so that seconds of 60 were carried.
    static bool isCarried(double value, const std::string& text)
    {
        const auto minutes = static_cast<int>(std::fmod(value * 60.0, 60.0));
        return minutes != std::atoi(text.substr(3, 2).c_str()) && text.substr(6, 2) == "00";
    }

    std::string blockText(Block& block, bool isFirst)
    {
        if (block.rows.empty()) {
            return {};
        }
        const std::vector<Finding> faults = mpcHeaderFaults(*block.observatory, isFirst);
        if (!faults.empty()) {
            refuseBlock(block, faults);
            return {};
        }
        sortRows(block.rows);
        std::string text = mpcHeader(*block.observatory, acknowledgementOf(block));
        for (const Row& row : block.rows) {
            text += row.line + '\n';
        }
        return text;
    }

    void refuseBlock(const Block& block, const std::vector<Finding>& faults)
    {
        std::vector<CopyPlace> places;
        for (const Row& row : block.rows) {
            places.push_back(row.place);
        }
        for (const Finding& fault : faults) {
            tally.refuseAll(places, fault);
        }
    }

    void sortRows(std::vector<Row>& rows)
    {
        const auto before = [](const Row& a, const Row& b) {
            return std::tie(a.name, a.moment) < std::tie(b.name, b.moment);
        };
        if (!std::is_sorted(rows.begin(), rows.end(), before)) {
            std::stable_sort(rows.begin(), rows.end(), before);
            tally.mend("the lines are in the order of object and time", rows.size());
        }
    }

    static std::string acknowledgementOf(const Block& block)
    {
        const auto first = std::min_element(block.rows.begin(), block.rows.end(),
                                            [](const Row& a, const Row& b) { return a.moment < b.moment; });
        return "Observations of " + block.observatory->station + ", " + dayText(first->moment.day, '-');
    }

    const std::vector<CopyTrack>& tracks;
    const CopySettings& settings;
    CopyTally tally;
    // Of each object of a station, the first moment of each time.
    std::map<std::pair<std::string, std::string>, DayAndFraction> times{};
    std::map<std::pair<std::string, std::string>, Block> blocks{}; // by station and header
};

} // namespace

bool isStationCode(std::string_view text)
{
    const auto isTaken = [](char c) { return (c >= 'A' && c <= 'Z') || isDigit(c); };
    return text.size() == 3 && text != "500" && std::all_of(text.begin(), text.end(), isTaken);
}

bool isOnlyStationCode(std::string_view text)
{
    return isStationCode(text) && isDigit(text[1]) && isDigit(text[2]);
}

Copy mpcCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings)
{
    return MpcCopier(tracks, settings).make();
}

} // namespace companion
