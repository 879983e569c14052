#include "command/ready_settings.h"

#include "command/profile.h"
#include "receivers/aavso_copy.h"
#include "receivers/ades_copy.h"
#include "receivers/mpc_copy.h"
#include "receivers/mpc_header.h"
#include "receivers/tdm_copy.h"
#include "receivers/tdm_keys.h"
#include "version.h"

#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace companion {
namespace {

using Tracks = std::vector<CopyTrack>;

constexpr const char* toMpc[] = {
    "curl https://minorplanetcenter.net/submit_obs_test -F \"source=<FILE\"",
    "curl https://minorplanetcenter.net/submit_obs -F \"source=<FILE\"",
};
constexpr const char* toAdesXml[] = {
    "curl https://minorplanetcenter.net/submit_xml_test -F \"ack=TEXT\" -F \"ac2=ADDRESS\" -F "
    "\"source=<FILE\"",
    "curl https://minorplanetcenter.net/submit_xml -F \"ack=TEXT\" -F \"ac2=ADDRESS\" -F \"source=<FILE\"",
};
constexpr const char* toAdesPsv[] = {
    "curl https://minorplanetcenter.net/submit_psv_test -F \"ack=TEXT\" -F \"ac2=ADDRESS\" -F "
    "\"source=<FILE\"",
    "curl https://minorplanetcenter.net/submit_psv -F \"ack=TEXT\" -F \"ac2=ADDRESS\" -F \"source=<FILE\"",
};
constexpr const char* toAavso[] = {
    "FILE is uploaded by a web page of the AAVSO, which needs a login; there is no test form.",
};
constexpr const char* toCcsds[] = {
    "FILE is sent as agreed with its receiver; the standard names no address.",
};

constexpr Receiver receivers[] = {
    {"mpc", "mpc", mpcCopy, toMpc},
    {"ccsds", "tdm",
     [](const Tracks& tracks, const CopySettings& settings) {
         return tdmCopy(tracks, settings, TdmForm::text);
     },
     toCcsds},
    {"ccsds.xml", "tdm.xml",
     [](const Tracks& tracks, const CopySettings& settings) {
         return tdmCopy(tracks, settings, TdmForm::xml);
     },
     toCcsds},
    {"aavso", "aavso", aavsoCopy, toAavso},
    {"ades", "ades.xml",
     [](const Tracks& tracks, const CopySettings& settings) {
         return adesCopy(tracks, settings, AdesForm::xml);
     },
     toAdesXml},
    {"ades.psv", "ades.psv",
     [](const Tracks& tracks, const CopySettings& settings) {
         return adesCopy(tracks, settings, AdesForm::psv);
     },
     toAdesPsv},
};

std::string utcText(std::time_t time)
{
    std::tm parts = {};
    gmtime_r(&time, &parts);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    return {text, length};
}

// The time of the environment, where it has one, or of the call.
std::time_t timeOfEnvironment()
{
    constexpr std::size_t mostDigits = 11;
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const std::string seconds = epoch == nullptr ? "" : epoch;
    if (seconds.empty()) {
        return std::time(nullptr);
    }
    if (seconds.size() > mostDigits || seconds.find_first_not_of("0123456789") != std::string::npos) {
        throw wrongCall("SOURCE_DATE_EPOCH", '"' + seconds + "\" is no number of seconds since 1970");
    }
    return static_cast<std::time_t>(std::stoll(seconds));
}

// The time of the option, of the environment, or of the call.
std::string creationDate(const Arguments& arguments)
{
    if (arguments.has("creation-date")) {
        std::string date = arguments.value("creation-date");
        const std::string fault = faultOfEpoch(date);
        if (!fault.empty()) {
            throw wrongCall("--creation-date",
                            '"' + date + "\" is no time such as 2025-02-23T12:00:00: " + fault);
        }
        return date;
    }
    return utcText(timeOfEnvironment());
}

int decimals(const Arguments& arguments, const char* option)
{
    const std::string text = arguments.value(option); // its words are those of its row
    return text.empty() ? 0 : text[0] - '0';
}

MagnitudeKind magnitudeKind(const Arguments& arguments)
{
    const std::string word = arguments.value("magnitude");
    return word == "apparent"       ? MagnitudeKind::apparent
           : word == "instrumental" ? MagnitudeKind::instrumental
                                    : MagnitudeKind::ensemble;
}

// What the options say of the observatory.
Observatory optionsSay(const Arguments& arguments)
{
    Observatory observatory;
    observatory.station = arguments.value("station");
    observatory.aavsoCode = arguments.value("observer");
    observatory.bandOfCall = arguments.value("band");
    return observatory;
}

Finding stationTwice(const StationsOfTrack& stations)
{
    return finding("V421", {{"field", "the station"},
                            {"first", stations.first},
                            {"source", stations.source},
                            {"second", stations.second},
                            {"other", stations.other},
                            {"option", "--station"}});
}

// Who says the station of a track.
const char* sourceOf(const std::string& ownStation, const Observatory& profile, const Observatory& options)
{
    if (!options.station.empty()) {
        return "--station";
    }
    return !profile.station.empty() ? "the profile" : ownStation.empty() ? "" : "the input";
}

void settle(CopyTrack& track, const Observatory& profile, const Observatory& options)
{
    auto settled = std::make_shared<Observatory>(*track.observatory);
    putBefore(*settled, profile);
    putBefore(*settled, options);
    settled->bandOfCall = options.bandOfCall;
    readTelescopeLine(*settled);
    if (!options.station.empty()) {
        track.track.telescope = options.station;
    }
    track.observatory = std::move(settled);
}

// The two stations of a track between which nothing decides.
std::optional<StationsOfTrack> contradiction(const CopyInput& input, std::size_t track,
                                             const std::string& ofProfile)
{
    const auto twice = input.contradictions.find(track);
    if (twice != input.contradictions.end()) {
        return twice->second;
    }
    const std::string& own = input.tracks[track].observatory->station;
    if (own.empty() || ofProfile.empty() || own == ofProfile) {
        return std::nullopt;
    }
    return StationsOfTrack{own, "the input", ofProfile, "the profile", 0};
}

} // namespace

const Receiver& receiverNamed(const std::string& word)
{
    for (const Receiver& each : receivers) {
        if (word == each.word) {
            return each;
        }
    }
    throw wrongCall("--for", "is missing: mpc, ccsds, ccsds.xml, aavso, ades or ades.psv");
}

CopySettings copySettings(const Arguments& arguments, const std::string& input)
{
    CopySettings settings;
    settings.file = input;
    settings.timeDecimals = decimals(arguments, "time-decimals");
    settings.rightAscensionDecimals = decimals(arguments, "ra-decimals");
    settings.declinationDecimals = decimals(arguments, "dec-decimals");
    settings.allowsSatellites = arguments.has("allow-artificial");
    settings.areNumbers = arguments.has("numbers");
    settings.leavesMagnitudesOut = arguments.has("no-magnitudes");
    settings.takesZeroMagnitudes = arguments.has("zero-is-a-magnitude");
    settings.magnitude = magnitudeKind(arguments);
    settings.creationDate = creationDate(arguments);
    settings.software = "tavelin " + std::string(tavelinUtils::version);
    return settings;
}

SettledObservatories settleObservatories(const Arguments& arguments, CopyInput& input,
                                         const std::string& file)
{
    const Observatory options = optionsSay(arguments);
    const Observatory profile =
        arguments.has("profile") ? profileOf(arguments.value("profile")) : Observatory();
    SettledObservatories settled;
    std::set<std::pair<std::string, std::string>> told;
    for (std::size_t number = 0; number < input.tracks.size(); ++number) {
        CopyTrack& track = input.tracks[number];
        const auto twice = contradiction(input, number, profile.station);
        if (twice && options.station.empty()) {
            settled.refused += track.marks.size();
            if (told.emplace(twice->first, twice->second).second) {
                settled.contradictions.push_back(stationTwice(*twice).in(file).at(twice->line, 0));
            }
        }
        settled.sources.emplace_back(sourceOf(track.observatory->station, profile, options));
        settle(track, profile, options);
    }
    return settled;
}

} // namespace companion
