#include "receivers/aavso_copy.h"

#include "out/characters.h"
#include "receivers/aavso_rules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

using tavelinUtils::TRecLabelPervichka_File;

namespace companion {
namespace {

constexpr int dateDecimals = 8; // 2457878.75315000 has the 16 characters that are taken
constexpr int magnitudeDecimals = 3;
constexpr int errorDecimals = 4;
constexpr std::size_t longestName = 30;
constexpr std::size_t longestMagnitude = 8;
constexpr std::size_t longestWord = 20; // of comparison and check stars, and of charts
constexpr std::string_view delimiters = ",;!|:^~";
constexpr std::string_view notThere = "na";

Finding fieldFault(const std::string& field, const std::string& text, const std::string& why)
{
    return finding("V361", {{"field", field}, {"text", text}, {"why", why}});
}

// The Julian date of a mark: its day begins at noon.
std::string julianDate(const DayAndFraction& moment)
{
    const RoundedMoment rounded =
        roundedMoment({moment.day + 2'400'000, moment.fraction}, powerOfTen(dateDecimals));
    const std::int64_t half = powerOfTen(dateDecimals) / 2;
    return decimalText(rounded.day * powerOfTen(dateDecimals) + rounded.units + half, dateDecimals);
}

double magnitudeOf(const TRecLabelPervichka_File& mark, MagnitudeKind kind)
{
    switch (kind) {
    case MagnitudeKind::apparent: return mark.m;
    case MagnitudeKind::instrumental: return mark.mInstr;
    default: return mark.mEnsemble;
    }
}

std::string orNotThere(const std::string& text)
{
    const std::string word(trimmed(text));
    return word.empty() ? std::string(notThere) : word;
}

using Fields = std::vector<std::string>;

class AavsoCopier
{
public:
    AavsoCopier(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings)
        : tracks(theTracks), settings(theSettings), tally(theTracks, theSettings)
    {
    }

    Copy make()
    {
        for (std::size_t track = 0; track < tracks.size(); ++track) {
            addTrack(track);
        }
        std::string text;
        if (!records.empty()) {
            text = textOf(delimiterOfAll());
        }
        return copyOf(std::move(text), tally, tracks);
    }

private:
    void addTrack(std::size_t number)
    {
        const CopyTrack& track = tracks[number];
        const std::string name(trimmed(track.track.QRVName));
        const std::string code(trimmed(track.observatory->aavsoCode));
        if (const auto frame = faultOfFrame(track)) {
            tally.refuseTrack(number, *frame);
        } else if (!isObserverCode(code)) {
            tally.refuseTrack(number, notKnown("the observer's code", "--observer"));
        } else if (const auto fault = faultOfName(name)) {
            tally.refuseTrack(number, *fault);
        } else {
            for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
                addMark({number, mark}, name, code);
            }
        }
    }

    static std::optional<Finding> faultOfName(const std::string& name)
    {
        if (name.empty() || upper(name) == "NA") {
            return fieldFault("NAME", name, "a name is wanted");
        }
        if (name[0] == '#') {
            return fieldFault("NAME", name, "the line is taken for a comment");
        }
        if (name.size() > longestName) {
            return fieldFault("NAME", name, counted(name.size(), "character") + ", at most 30");
        }
        if (!isPlain(name)) {
            return fieldFault("NAME", name, "ASCII characters alone are wanted");
        }
        return std::nullopt;
    }

    static bool isPlain(const std::string& text)
    {
        return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
    }

    void addMark(const CopyPlace& place, const std::string& name, const std::string& code)
    {
        const CopyTrack& track = tracks[place.track];
        const TRecLabelPervichka_File& mark = track.track.Marks[place.mark];
        if (const auto fault = faultOfMark(place)) {
            tally.refuse(place, *fault);
            return;
        }
        Fields fields{name,
                      julianDate(momentOf(mark)),
                      exactDecimal(magnitudeOf(mark, settings.magnitude), magnitudeDecimals),
                      errorOf(mark),
                      upper(bandOf(track, place.mark)),
                      "NO",
                      kindOf(place),
                      comparisonOf(place),
                      std::string(notThere),
                      orNotThere(mark.KNAME),
                      checkMagnitudeOf(mark),
                      std::string(notThere),
                      std::string(notThere),
                      orNotThere(mark.CHART),
                      std::string(notThere)};
        tellMended(place);
        records.push_back({code, std::move(fields)});
    }

    // Why a mark has no record.
    std::optional<Finding> faultOfMark(const CopyPlace& place) const
    {
        const CopyTrack& track = tracks[place.track];
        const TRecLabelPervichka_File& mark = track.track.Marks[place.mark];
        if (mark.date < -300000 || mark.date > 2'900'000 || !(std::abs(mark.time) < 2.0)) {
            return fieldFault("DATE", shownNumber(mark.date + mark.time), "a date is wanted");
        }
        if (isInLeapSecond(momentOf(mark))) {
            return fieldFault("DATE", epochText(momentOf(mark), 3), "a Julian date cannot say a leap second");
        }
        if (auto fault = faultOfMagnitude(place)) {
            return fault;
        }
        const std::string band = bandOf(track, place.mark);
        if (band.empty()) {
            return notKnown("the filter", "--band");
        }
        if (!isAavsoFilter(band)) {
            return finding("V363",
                           {{"field", "FILT"}, {"text", band}, {"why", "not in the receiver's list"}});
        }
        return faultOfTexts(place);
    }

    const CopyMark& known(const CopyPlace& place) const
    {
        return tracks[place.track].marks[place.mark];
    }

    // Whether the source has the magnitude that is asked for: a record without it has 0.
    bool hasMagnitude(const CopyPlace& place) const
    {
        switch (settings.magnitude) {
        case MagnitudeKind::apparent: return known(place).hasMagnitude;
        case MagnitudeKind::instrumental: return known(place).known.instrumental;
        default: return known(place).known.ensemble;
        }
    }

    // STD where the source does not say it: DIF would need a comparison star.
    std::string kindOf(const CopyPlace& place) const
    {
        return known(place).known.kind ? upper(tracks[place.track].track.Marks[place.mark].MTYPE) : "STD";
    }

    std::string comparisonOf(const CopyPlace& place) const
    {
        return known(place).known.comparison ? orNotThere(tracks[place.track].track.Marks[place.mark].CNAME)
                                             : std::string(notThere);
    }

    std::optional<Finding> faultOfMagnitude(const CopyPlace& place) const
    {
        const TRecLabelPervichka_File& mark = tracks[place.track].track.Marks[place.mark];
        const double magnitude = magnitudeOf(mark, settings.magnitude);
        if (!hasMagnitude(place)) {
            return magnitudeNotKnown();
        }
        if (magnitude == 0.0 && !settings.takesZeroMagnitudes) {
            const bool isEnsemble = settings.magnitude == MagnitudeKind::ensemble;
            return notKnown(isEnsemble ? "the ensemble magnitude" : "the magnitude",
                            isEnsemble ? "--magnitude apparent or --magnitude instrumental"
                                       : "--zero-is-a-magnitude where 0 is meant");
        }
        const bool isNumber = std::abs(magnitude) < 1e6;
        const std::string text =
            isNumber ? exactDecimal(magnitude, magnitudeDecimals) : shownNumber(magnitude);
        if (!isNumber || text.size() > longestMagnitude) {
            return fieldFault("MAG", text, "a number of at most 8 characters is wanted");
        }
        const double ratio = mark.SNRpeak;
        if (ratio != 0.0 && !(1.0 / ratio >= 0.0 && errorText(ratio)[0] == '0')) {
            return fieldFault("MERR", shownNumber(1.0 / ratio),
                              "a number from 0 to below 1 is wanted, or na");
        }
        return std::nullopt;
    }

    Finding magnitudeNotKnown() const
    {
        switch (settings.magnitude) {
        case MagnitudeKind::apparent:
            return notKnown("the magnitude", "another word of --magnitude, or --leave-out");
        case MagnitudeKind::instrumental:
            return notKnown("the instrumental magnitude", "--magnitude apparent or --magnitude ensemble");
        default:
            return notKnown("the ensemble magnitude", "--magnitude apparent or --magnitude instrumental");
        }
    }

    std::optional<Finding> faultOfTexts(const CopyPlace& place) const
    {
        const TRecLabelPervichka_File& mark = tracks[place.track].track.Marks[place.mark];
        const std::string kind = kindOf(place);
        const std::string comparison = comparisonOf(place);
        if (kind != "STD" && kind != "DIF" && kind != "ABS") {
            return fieldFault("MTYPE", mark.MTYPE, "STD, DIF or ABS is wanted");
        }
        if (kind == "DIF" && upper(comparison) == "NA") {
            return fieldFault("CNAME", comparison, "MTYPE DIF wants a comparison star");
        }
        return faultOfWords({{"CNAME", comparison}, {"KNAME", mark.KNAME}, {"CHART", mark.CHART}});
    }

    static std::optional<Finding> faultOfWords(const std::vector<std::pair<const char*, std::string>>& words)
    {
        for (const auto& [field, text] : words) {
            if (trimmed(text).size() > longestWord || !isPlain(text)) {
                return fieldFault(field, text, "at most 20 ASCII characters are wanted");
            }
        }
        return std::nullopt;
    }

    // The error that the tool's own reports give.
    static std::string errorText(double signalToNoise)
    {
        const double error = 1.0 / signalToNoise;
        return error < 10.0 ? exactDecimal(error, errorDecimals) : "more";
    }

    static std::string errorOf(const TRecLabelPervichka_File& mark)
    {
        return mark.SNRpeak == 0.0 ? std::string(notThere) : errorText(mark.SNRpeak);
    }

    // The check star's magnitude, where there is a check star.
    static std::string checkMagnitudeOf(const TRecLabelPervichka_File& mark)
    {
        const bool isKnown = !trimmed(mark.KNAME).empty() && upper(trimmed(mark.KNAME)) != "NA" &&
                             mark.Spare2 != 0.0 && std::abs(mark.Spare2) < 1000.0;
        return isKnown ? exactDecimal(mark.Spare2, magnitudeDecimals) : std::string(notThere);
    }

    void tellMended(const CopyPlace& place)
    {
        const TRecLabelPervichka_File& mark = tracks[place.track].track.Marks[place.mark];
        if (!known(place).known.kind) {
            tally.mend("the kind of magnitude is STD, where none is known");
        }
        if (!known(place).known.comparison) {
            tally.mend("the comparison star is na, where none is known");
        }
        if (mark.SNRpeak == 0.0) {
            tally.mend("the error is na, where no signal-to-noise ratio is known");
        }
        if (trimmed(mark.KNAME).empty() || trimmed(mark.CHART).empty()) {
            tally.mend("what is empty is na");
        }
    }

    // One that no text holds.
    char delimiterOfAll()
    {
        for (const char delimiter : delimiters) {
            const auto holds = [delimiter](const Record& record) {
                return std::any_of(record.fields.begin(), record.fields.end(),
                                   [delimiter](const std::string& text) {
                                       return text.find(delimiter) != std::string::npos;
                                   });
            };
            if (std::none_of(records.begin(), records.end(), holds)) {
                if (delimiter != delimiters[0]) {
                    tally.mend(std::string("the delimiter is ") + delimiter + ", which no text holds",
                               records.size());
                }
                return delimiter;
            }
        }
        return '\t'; // no text has a tab
    }

    // The code of an observer holds until the next one.
    std::string textOf(char delimiter) const
    {
        const std::string word = delimiter == '\t' ? "tab" : std::string(1, delimiter);
        std::string text = "#TYPE=Extended\n#OBSCODE=" + records.front().code +
                           "\n#SOFTWARE=" + settings.software + "\n#DELIM=" + word +
                           "\n#DATE=JD\n#OBSTYPE=CCD\n";
        text += "#NAME,DATE,MAG,MERR,FILT,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AMASS,GROUP,CHART,NOTES\n";
        std::string code = records.front().code;
        for (const Record& record : records) {
            if (record.code != code) {
                code = record.code;
                text += "#OBSCODE=" + code + '\n';
            }
            for (std::size_t i = 0; i < record.fields.size(); ++i) {
                text += (i == 0 ? "" : std::string(1, delimiter)) + record.fields[i];
            }
            text += '\n';
        }
        return text;
    }

    struct Record
    {
        std::string code;
        Fields fields;
    };

    const std::vector<CopyTrack>& tracks;
    const CopySettings& settings;
    CopyTally tally;
    std::vector<Record> records{};
};

} // namespace

Copy aavsoCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings)
{
    return AavsoCopier(tracks, settings).make();
}

} // namespace companion
