#include "receivers/ades_copy.h"

#include "receivers/ades_fields.h"
#include "receivers/ades_text.h"
#include "receivers/catalogue_names.h"
#include "receivers/designation_forms.h"
#include "receivers/designations.h"
#include "receivers/mpc_copy.h"
#include "receivers/mpc_header.h"
#include "receivers/mpc_rules.h"
#include "receivers/observation_notes.h"
#include "receivers/report_mends.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

using tavelinUtils::TRecLabelPervichka_File;

namespace companion {
namespace {

constexpr double arcsecondsOfADegree = 3600.0;
constexpr int mostTimeDecimals = 6;
constexpr int mostAngleDecimals = 9;
constexpr int mostMagnitudeDecimals = 4;

AdesPart namesPart(const char* name, const std::string& list)
{
    AdesPart part{name, {}};
    for (const std::string& each : namesOf(list)) {
        part.values.emplace_back("name", each);
    }
    return part;
}

// An element of the context that is demanded, and where it comes from.
struct DemandedText
{
    std::string Observatory::*text;
    const char* field;
    const char* option;
};
constexpr DemandedText demandedTexts[] = {
    {&Observatory::submitter, "the name of the submitter", "submitter of --profile"},
    {&Observatory::measurers, "the name of the measurers", "measurers of --profile"},
    {&Observatory::design, "the design of the telescope", "telescope.design of --profile"},
    {&Observatory::aperture, "the aperture of the telescope", "telescope.aperture of --profile"},
    {&Observatory::detector, "the detector", "telescope.detector of --profile"},
    {&Observatory::mode, "the mode of observation", "mode of --profile"},
    {&Observatory::astrometricCatalogue, "the catalogue of the positions",
     "astrometricCatalogue of --profile"},
};

// The context as the table orders it; parts without a value are left out.
std::vector<AdesPart> contextOf(const Observatory& observatory)
{
    std::vector<AdesPart> parts{{"observatory", {{"mpcCode", observatory.station}}},
                                namesPart("submitter", observatory.submitter),
                                namesPart("observers", observatory.observers),
                                namesPart("measurers", observatory.measurers),
                                {"telescope", {}}};
    const AdesValue telescope[] = {{"design", observatory.design},
                                   {"aperture", observatory.aperture},
                                   {"detector", observatory.detector},
                                   {"fRatio", observatory.fRatio}};
    for (const AdesValue& value : telescope) {
        if (!value.second.empty()) {
            parts.back().values.push_back(value);
        }
    }
    std::erase_if(parts, [](const AdesPart& part) { return part.values.empty(); });
    return parts;
}

Finding elementFault(const std::string& element, const std::string& text, const AdesType& type)
{
    return finding("V380", {{"element", element}, {"rule", "is \"" + text + "\": " + type.rule}});
}

bool isOfPeople(const std::string& part)
{
    return part == "submitter" || part == "observers" || part == "measurers";
}

// What the receiver would refuse of a context.
std::vector<Finding> contextFaults(const Observatory& observatory)
{
    std::vector<Finding> faults;
    for (const DemandedText& row : demandedTexts) {
        if ((observatory.*row.text).empty()) {
            faults.push_back(notKnown(row.field, row.option));
        }
    }
    for (const AdesPart& part : contextOf(observatory)) {
        for (const auto& [name, text] : part.values) {
            const AdesType& type = *adesContextField(part.name, name)->type;
            if (!adesTakes(type, text)) {
                faults.push_back(elementFault(name, text, type));
            } else if (isOfPeople(part.name) && !isPersonName(text)) {
                faults.push_back(finding(
                    "V320", {{"what", "the name \"" + text + "\" is not written as \"J. R. Tolkien\""}}));
            }
        }
    }
    return faults;
}

// An observation with what it is sorted by.
struct Row
{
    RoundedMoment moment;
    std::vector<AdesValue> values;
    CopyPlace place;
};

struct Block
{
    std::shared_ptr<const Observatory> observatory{};
    std::vector<Row> rows{};
};

class AdesCopier
{
public:
    AdesCopier(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings)
        : tracks(theTracks), settings(theSettings), tally(theTracks, theSettings)
    {
    }

    Copy make(AdesForm form)
    {
        for (std::size_t track = 0; track < tracks.size(); ++track) {
            addTrack(track);
        }
        std::vector<AdesBlock> written;
        for (auto& [key, block] : blocks) {
            closeBlock(block, written);
        }
        std::string text;
        if (!written.empty()) {
            text = form == AdesForm::xml ? adesXml(written) : adesPsv(written);
        }
        return copyOf(std::move(text), tally, tracks);
    }

private:
    void addTrack(std::size_t number)
    {
        const CopyTrack& track = tracks[number];
        const AdesContextField* const code = adesContextField("observatory", "mpcCode");
        const std::string& station = track.observatory->station;
        if (station == "500" || !adesTakes(*code->type, station)) {
            tally.refuseTrack(number, notKnown("the station", "--station"));
            return;
        }
        std::vector<AdesValue> names;
        auto fault = faultOfTrack(track);
        if (fault || (fault = identify(track, names))) {
            tally.refuseTrack(number, *fault);
            return;
        }
        Block& block = blocks[{station, mpcHeader(*track.observatory, "") + track.observatory->mode}];
        block.observatory = track.observatory;
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            addMark({number, mark}, names, block);
        }
    }

    static std::optional<Finding> faultOfTrack(const CopyTrack& track)
    {
        auto fault = faultOfFrame(track);
        return fault || !track.isOf80Columns ? fault : faultOfNote(track.note2);
    }

    // The elements that identify the object of a track, or why it has none.
    std::optional<Finding> identify(const CopyTrack& track, std::vector<AdesValue>& values)
    {
        const std::string& name = track.track.QRVName;
        const bool isLaunch = isLaunchDesignation(name);
        const bool isSatellite = isLaunch || track.isSatellite;
        if (isSatellite && !settings.allowsSatellites) {
            return finding("V318", {{"name", name}});
        }
        if (isSatellite) {
            return identifySatellite(track, isLaunch, values);
        }
        if (!isNameOfObject(name)) {
            return finding("V312", {{"name", name}, {"why", "says that the object is not known"}});
        }
        if (const auto number = packedNumber(name); number && !track.isIdentified && !settings.areNumbers) {
            return finding("V311", {{"name", name}, {"number", std::to_string(*number)}});
        }
        values = {nameElement(name)};
        if (values[0].second != name) {
            tally.mend("the designation is unpacked", track.marks.size());
        }
        return faultOf(values);
    }

    std::optional<Finding> identifySatellite(const CopyTrack& track, bool isLaunch,
                                             std::vector<AdesValue>& values)
    {
        const std::string& name = track.track.QRVName;
        values = {isLaunch ? AdesValue("artSat", longLaunchDesignation(name)) : AdesValue("trkSub", name)};
        if (values[0].second != name) {
            tally.mend("the designation is unpacked", track.marks.size());
        }
        return faultOf(values);
    }

    static AdesValue nameElement(const std::string& name)
    {
        const auto designation = designationOf(name);
        if (!designation) {
            return {"trkSub", name};
        }
        return designation->number.empty() ? AdesValue("provID", designation->provisional)
                                           : AdesValue("permID", designation->number);
    }

    // The first of the elements that the table does not take.
    static std::optional<Finding> faultOf(const std::vector<AdesValue>& values)
    {
        for (const auto& [name, text] : values) {
            const AdesField* const field = adesField(name);
            if (!adesTakes(*field->type, text)) {
                return name == "astCat" || name == "photCat" ? catalogueFault(name, text)
                                                             : elementFault(name, text, *field->type);
            }
            const bool isWord = field->words == nullptr || isTakenWord(*field->words, text);
            if (!isWord) {
                return finding(
                    "V381", {{"element", name}, {"word", text}, {"why", whyNotTaken(*field->words, text)}});
            }
        }
        return std::nullopt;
    }

    static Finding catalogueFault(const std::string& element, const std::string& text)
    {
        const std::string key = element == "astCat" ? "astrometricCatalogue" : "photometricCatalogue";
        return finding("V380", {{"element", element},
                                {"rule", "is \"" + text + "\", which is no word for a catalogue: " + key +
                                             " of --profile would give one"}});
    }

    static bool isTakenWord(const AdesWords& words, const std::string& text)
    {
        const AdesWordState state = adesWordState(words, text);
        return state == AdesWordState::forNewWork || state == AdesWordState::historic;
    }

    static const char* whyNotTaken(const AdesWords& words, const std::string& text)
    {
        return adesWordState(words, text) == AdesWordState::unlisted ? "is not in the list"
                                                                     : "is not for new work";
    }

    void addMark(const CopyPlace& place, const std::vector<AdesValue>& names, Block& block)
    {
        const CopyTrack& track = tracks[place.track];
        const TRecLabelPervichka_File& mark = track.track.Marks[place.mark];
        if (const auto fault = faultOfNumbers(mark)) {
            tally.refuse(place, *fault);
            return;
        }
        Row row{roundedMoment(momentOf(mark), 86400 * powerOfTen(mostTimeDecimals)), names, place};
        row.values.emplace_back("mode", block.observatory->mode);
        row.values.emplace_back("stn", block.observatory->station);
        addPosition(row.values, track, place.mark);
        row.values.emplace_back("astCat", catalogueForAdes(block.observatory->astrometricCatalogue));
        if (!addMagnitude(row.values, place)) {
            return;
        }
        // What the whole block lacks is told once for all of it.
        std::erase_if(row.values, [](const AdesValue& value) { return value.second.empty(); });
        if (const auto fault = faultOf(row.values)) {
            tally.refuse(place, *fault);
            return;
        }
        if (isTwice(place, row.values)) {
            return;
        }
        tellMended(place, row.values);
        block.rows.push_back(std::move(row));
    }

    // Of a station, whatever its context says.
    bool isTwice(const CopyPlace& place, const std::vector<AdesValue>& values)
    {
        const auto time = std::find_if(values.begin(), values.end(),
                                       [](const AdesValue& value) { return value.first == "obsTime"; });
        const std::string& station = tracks[place.track].observatory->station;
        if (times.insert({station + ' ' + values.front().second, time->second}).second) {
            return false;
        }
        tally.refuse(place, finding("V381", {{"element", "obsTime"},
                                             {"word", time->second},
                                             {"why", "is the time of another position of the object"}}));
        return true;
    }

    static std::optional<Finding> faultOfNumbers(const TRecLabelPervichka_File& mark)
    {
        const auto fault = [](const char* element, double value) {
            return elementFault(element, shownNumber(value), *adesField(element)->type);
        };
        if (mark.date < -600000 || mark.date > 2'900'000 || !(std::abs(mark.time) < 2.0)) {
            return fault("obsTime", mark.date + mark.time);
        }
        if (!isRightAscension(mark.RA)) {
            return fault("ra", mark.RA);
        }
        if (!isDeclination(mark.DE)) {
            return fault("dec", mark.DE);
        }
        return std::nullopt;
    }

    static void addPosition(std::vector<AdesValue>& values, const CopyTrack& track, std::size_t number)
    {
        const TRecLabelPervichka_File& mark = track.track.Marks[number];
        const ValueSteps& steps = track.marks[number].steps;
        const int hours = decimalsOf(steps.rightAscension / arcsecondsOfADegree, 0, mostAngleDecimals);
        const int degrees = decimalsOf(steps.declination / arcsecondsOfADegree, 0, mostAngleDecimals);
        values.emplace_back("obsTime",
                            epochText(momentOf(mark), decimalsOf(steps.time, 0, mostTimeDecimals)) + 'Z');
        values.emplace_back("ra", exactCircle(mark.RA, hours));
        values.emplace_back("dec", exactDecimal(mark.DE, degrees));
    }

    // False where the mark is refused for its magnitude or band.
    bool addMagnitude(std::vector<AdesValue>& values, const CopyPlace& place)
    {
        const CopyTrack& track = tracks[place.track];
        if (!isBright(settings, track, place.mark)) {
            return true;
        }
        const double magnitude = track.track.Marks[place.mark].m;
        const std::string band = bandOf(track, place.mark);
        if (!(std::abs(magnitude) < 1000.0)) {
            tally.refuse(place, elementFault("mag", shownNumber(magnitude), *adesField("mag")->type));
            return false;
        }
        if (band.empty()) {
            tally.refuse(place, notKnown("the band of the magnitude", "--band or --no-magnitudes"));
            return false;
        }
        const int decimals = decimalsOf(track.marks[place.mark].steps.magnitude, 0, mostMagnitudeDecimals);
        values.emplace_back("mag", exactDecimal(magnitude, decimals));
        values.emplace_back("band", band);
        values.emplace_back("photCat", catalogueForAdes(track.observatory->photometricCatalogue));
        return true;
    }

    void tellMended(const CopyPlace& place, const std::vector<AdesValue>& values)
    {
        const TRecLabelPervichka_File& mark = tracks[place.track].track.Marks[place.mark];
        const std::string& read = tracks[place.track].marks[place.mark].line80;
        if (hasNotes(read)) {
            tally.mend("columns 13 and 14 of the report are not kept");
        }
        if (fillsReceiverColumns(read)) {
            tally.mend(receiverColumnsMended);
        }
        for (const auto& [name, text] : values) {
            if (name == "obsTime" && text.substr(0, 10) != dayText(mark.date, '-')) {
                tally.mend("the time is carried into the next day");
            } else if (name == "ra" && (mark.RA < 0.0 || mark.RA > 360.0)) {
                tally.mend("a right ascension is brought to below 360 degrees");
            } else if (name == "ra" && mark.RA > 359.9 && (text == "0" || text.starts_with("0."))) {
                tally.mend("a right ascension of 360 degrees is 0");
            }
        }
    }

    void closeBlock(Block& block, std::vector<AdesBlock>& written)
    {
        if (block.rows.empty()) {
            return;
        }
        const std::vector<Finding> faults = contextFaults(*block.observatory);
        std::vector<CopyPlace> places;
        for (const Row& row : block.rows) {
            places.push_back(row.place);
        }
        for (const Finding& fault : faults) {
            tally.refuseAll(places, fault);
        }
        if (!faults.empty()) {
            return;
        }
        std::stable_sort(block.rows.begin(), block.rows.end(),
                         [](const Row& a, const Row& b) { return a.moment < b.moment; });
        AdesBlock document{contextOf(*block.observatory), {}};
        for (Row& row : block.rows) {
            document.observations.push_back(std::move(row.values));
        }
        written.push_back(std::move(document));
    }

    const std::vector<CopyTrack>& tracks;
    const CopySettings& settings;
    CopyTally tally;
    std::set<std::pair<std::string, std::string>> times{};         // of each object of a station
    std::map<std::pair<std::string, std::string>, Block> blocks{}; // by station and what is said with it
};

} // namespace

Copy adesCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings, AdesForm form)
{
    return AdesCopier(tracks, settings).make(form);
}

} // namespace companion
