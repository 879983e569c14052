#include "receivers/mpc_rules.h"

#include "base/tokens.h"
#include "formats/mpc_report.h"
#include "receivers/designations.h"
#include "receivers/rule_tally.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <utility>

using namespace tavelinUtils;

namespace companion {
namespace {

constexpr std::size_t lineLength = 80;
constexpr std::size_t nameColumns = 12;
constexpr std::string_view bands = "BVRIJWULHKYGgriwyzocvu"; // without C, which new reports must not have

// By the codes of their findings.
enum Rule : std::size_t
{
    length,
    readAsNumber,
    nameNotTaken,
    sixtySeconds,
    noMagnitude,
    notABand,
    dayRoundedUp,
    satellite,
    notPacked
};

// The name as the writer puts it into its columns: five characters on their left, others on their right.
std::string inColumns(const std::string& name)
{
    const std::string blanks(nameColumns - name.size(), ' ');
    return name.size() == 5 ? name + blanks : blanks + name;
}

// Objects of a report get these names where its service is that of satellites: their own number, or a running
// one. A conversion gives no sign of what its objects are.
bool isOfSatelliteService(const TrackVtorichka& track)
{
    const bool isOfReport = track.ObsCode != THeadTrVtor().ObsCode;
    const bool isRunning =
        track.NORAD.empty() && track.QRVName.size() == 5 && track.QRVName.starts_with("99");
    return isOfReport && track.MPCChecker.empty() &&
           (isRunning || (!track.NORAD.empty() && track.NORAD == track.QRVName));
}

// Whether the seconds of an angle may be printed as 60.
bool mayRoundUp(double value, double least)
{
    const double minutes = (value - std::trunc(value)) * 60.0;
    return !((minutes - std::trunc(minutes)) * 60.0 < least);
}

// Whether the line of a mark has the usual width, and none of its numbers breaks a rule.
bool isUsual(const TRecLabelPervichka_File& mark)
{
    return mark.time >= 0.0 && mark.time < 0.99999 && mark.m >= 0.06 && mark.m < 99.0 && mark.RA >= 0.0 &&
           mark.RA < 360.0 && std::abs(mark.DE) <= 90.0 && mark.date > 0 && mark.date < 1'000'000 &&
           !mayRoundUp(mark.RA / 15.0, 59.99) && !mayRoundUp(std::abs(mark.DE), 59.9);
}

std::string dayText(const TRecLabelPervichka_File& mark)
{
    return MJDToDate(mark.date, "-");
}

class MpcTrackRules : public TrackRules
{
public:
    void openFile(const std::string& /*path*/) override
    {
    }

    void add(const TrackVtorichka& track) override
    {
        if (track.Marks.empty()) {
            return;
        }
        const std::string& name = track.MPCChecker.empty() ? track.QRVName : track.MPCChecker;
        lookAtName(track, name);
        lastBand.clear();
        fault = {};
        const bool isNarrow = name.size() <= nameColumns && track.MPCHeader.COD.size() == 3;
        for (std::size_t index = 0; index < track.Marks.size(); ++index) {
            const TRecLabelPervichka_File& mark = track.Marks[index];
            lookAtBand(track, index);
            unsignedDeclinations += mark.DE < 0.0 ? 0 : 1;
            if (!isNarrow || !isUsual(mark) || mark.filtr.size() > 7) {
                lookAtLine(track, index, name);
            }
        }
    }

    std::vector<Finding> findings() const override
    {
        return tally.findings();
    }

    std::vector<Finding> findingsOfForm() const override
    {
        if (unsignedDeclinations == 0) {
            return {};
        }
        const std::string shorter = std::to_string(lineLength - 1);
        return {finding("V310", {{"n", shorter}}).times(unsignedDeclinations),
                finding("V314").times(unsignedDeclinations)};
    }

private:
    void tell(Rule rule, const TrackVtorichka& track, std::size_t mark, FindingCode code,
              FindingValues values)
    {
        if (tally.count(rule)) {
            tally.keep(rule, finding(code, values), placeOf(track, mark));
        }
    }

    // A name is in the line of each mark.
    void tellOfName(Rule rule, const TrackVtorichka& track, FindingCode code, FindingValues values)
    {
        if (tally.count(rule, track.Marks.size())) {
            tally.keep(rule, finding(code, values), placeOf(track, 0));
        }
    }

    void lookAtName(const TrackVtorichka& track, const std::string& name)
    {
        if (isLaunchDesignation(name) || isOfSatelliteService(track)) {
            tellOfName(satellite, track, "V318", {{"name", name}});
        }
        if (name.size() > nameColumns) {
            const std::string why = "has " + counted(name.size(), "character");
            tellOfName(nameNotTaken, track, "V312", {{"name", name}, {"why", why}});
            return;
        }
        // The checker gives numbers of minor planets; what others call five characters is another matter.
        if (const auto number = packedNumber(name); number && track.MPCChecker.empty()) {
            tellOfName(readAsNumber, track, "V311", {{"name", name}, {"number", std::to_string(*number)}});
            return;
        }
        const NameVerdict verdict = verdictOnName(inColumns(name));
        if (verdict.fault == NameFault::notPacked) {
            tellOfName(notPacked, track, "V319", {{"name", name}});
        } else if (verdict.fault != NameFault::none) {
            tellOfName(nameNotTaken, track, "V312", {{"name", name}, {"why", verdict.why}});
        }
    }

    void lookAtBand(const TrackVtorichka& track, std::size_t index)
    {
        const TRecLabelPervichka_File& mark = track.Marks[index];
        if (lastBand != std::string_view(mark.filtr)) {
            lastBand = mark.filtr;
            fault = faultOfBand(lastBand);
        }
        if (!fault.empty()) {
            tell(notABand, track, index, "V316",
                 {{"columns", "columns 71 to 77"}, {"text", lastBand}, {"why", std::string(fault)}});
        }
    }

    void lookAtLine(const TrackVtorichka& track, std::size_t index, const std::string& name)
    {
        const TRecLabelPervichka_File& mark = track.Marks[index];
        lookAtSeconds(track, index, "right ascension", RAToStr(mark.RA, 2, " ", true));
        lookAtSeconds(track, index, "declination", DEToStr(mark.DE, 1, " ", true));
        if (mark.time > 0.5 && mark.time < 1.0 && Str9(mark.time, 5).starts_with('1')) {
            tell(dayRoundedUp, track, index, "V317", {{"date", dayText(mark)}});
        }
        if (Str9(std::abs(mark.m), 1) == "0.0" && !std::signbit(mark.m)) {
            tell(noMagnitude, track, index, "V315", {});
        }
        // As long as it would be with the sign that each line lacks.
        const std::size_t width =
            GetStringMPC(name, track.MPCHeader.COD, mark).size() + (mark.DE < 0.0 ? 0 : 1);
        if (width != lineLength) {
            tell(length, track, index, "V310", {{"n", std::to_string(width)}});
        }
    }

    void lookAtSeconds(const TrackVtorichka& track, std::size_t index, const char* field,
                       const std::string& text)
    {
        if (text.substr(text.rfind(' ') + 1).starts_with("60")) {
            tell(sixtySeconds, track, index, "V313", {{"field", field}, {"text", text}});
        }
    }

    RuleTally tally;
    std::size_t unsignedDeclinations = 0;
    std::string lastBand;
    std::string_view fault;
};

// "J." or "J.-F."
bool isInitial(std::string_view word)
{
    const auto isOne = [](std::string_view part) {
        return part.size() == 2 && std::isupper(static_cast<unsigned char>(part[0])) != 0 && part[1] == '.';
    };
    const std::size_t hyphen = word.find('-');
    return isOne(word.substr(0, hyphen)) && (hyphen == word.npos || isOne(word.substr(hyphen + 1)));
}

} // namespace

std::string_view faultOfBand(std::string_view band)
{
    const std::size_t letter = band.find_first_not_of(' ');
    if (letter == std::string_view::npos) {
        return "";
    }
    if (band.find_first_not_of(' ', 1) != std::string_view::npos) {
        return bandOfSeveral;
    }
    if (band[0] == 'C') {
        return "the band C is no longer taken";
    }
    return bands.find(band[0]) == std::string_view::npos ? "not a band of the receiver" : "";
}

bool isPersonName(std::string_view name)
{
    std::size_t initials = 0;
    std::string surname;
    tavelinUtils::forEachToken(name, ' ', [&](std::string_view word) {
        if (surname.empty() && isInitial(word)) {
            ++initials;
        } else {
            surname += std::string(word) + ' ';
        }
    });
    const bool hasSmall =
        std::any_of(surname.begin(), surname.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    return initials > 0 && hasSmall && surname.find('.') == surname.npos;
}

std::unique_ptr<TrackRules> mpcTrackRules()
{
    return std::make_unique<MpcTrackRules>();
}

} // namespace companion
