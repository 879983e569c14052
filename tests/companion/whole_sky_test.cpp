// 4,000 marks from all over the sky come out of `ready` 4,000 times, from each format that is read and for
// each receiver, at their places.

#include "companion/copies.h"
#include "companion/golden.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "reading/true_reading.h"
#include "support/locales.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;
using testing::HasSubstr;
using testing::IsEmpty;
using Tracks = std::vector<TrackVtorichka>;

constexpr int objects = 40;
constexpr int marksOfAnObject = 100;
constexpr std::size_t allMarks = std::size_t{objects} * marksOfAnObject;

// Evenly over the sphere; each mark is a second and a half after the one before it.
Tracks wholeSky()
{
    std::mt19937_64 random(4000);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Tracks tracks;
    for (int object = 0; object < objects; ++object) {
        TrackVtorichka track;
        track.QRVName = "AST" + std::to_string(1000 + object);
        track.MPCChecker = track.QRVName;
        track.NORAD = track.QRVName;
        track.telescope = "K88";
        track.originator = "MPC";
        track.MPCHeader.COD = "K88";
        track.MPCHeader.OBS = "A. B. Sender";
        for (int i = 0; i < marksOfAnObject; ++i) {
            TRecLabelPervichka_File mark;
            mark.date = 60729;
            mark.time = (1000.0 + (object * marksOfAnObject + i) * 20.5) / 86400.0;
            mark.RA = unit(random) * 360.0;
            mark.DE = std::asin(unit(random) * 2.0 - 1.0) * 57.29577951308232;
            mark.m = std::round(100.0 + unit(random) * 100.0) / 10.0;
            mark.filtr = "V";
            track.Marks.push_back(mark);
        }
        tracks.push_back(track);
    }
    return tracks;
}

// Puts the signs into lines of so many words: declinations are the word of that place.
std::string withSigns(const std::string& text, std::size_t words, std::size_t place)
{
    std::string signedText;
    for (const std::string& line : copies::linesOf(text)) {
        std::istringstream stream(line);
        std::vector<std::string> parts;
        for (std::string part; stream >> part;) {
            parts.push_back(part);
        }
        if (parts.size() == words && parts[place][0] != '-') {
            parts[place].insert(0, 1, '+');
        }
        std::string joined;
        for (const std::string& part : parts) {
            joined += (joined.empty() ? "" : " ") + part;
        }
        signedText += joined + '\n';
    }
    return signedText;
}

std::string tableOf(const Tracks& tracks)
{
    const ReferenceLocale reference;
    std::string text =
        "v2\nQRVName:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:deg\tm:Float:mag\tfiltr:Text\n";
    for (const TrackVtorichka& track : tracks) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            const double seconds = mark.time * 86400.0;
            const int whole = static_cast<int>(seconds);
            char line[256];
            std::snprintf(line, sizeof line, "%s\t2025-02-23\t%02d:%02d:%010.7f\t%.6f\t%.6f\t%.4f\tV\n",
                          track.QRVName.c_str(), whole / 3600, whole / 60 % 60, seconds - whole / 60 * 60,
                          mark.RA, mark.DE, mark.m);
            text += line;
        }
        text += "---\n";
    }
    return text;
}

struct Source
{
    const char* name;
    void (*write)(const std::string& path, const Tracks& tracks);
    double angle; ///< how far a place may be off, arcseconds along each axis
};

constexpr Source sources[] = {
    {"mea",
     [](const std::string& path, const Tracks& tracks) {
         tavelinUtils::sMEA(path, tracks);
         makeFile(path, withSigns(bytesOf(path), 7, 4));
     },
     0.001},
    {"telegram",
     [](const std::string& path, const Tracks& tracks) {
         tavelinUtils::sTelegramma(path, tracks);
         makeFile(path, withSigns(bytesOf(path), 5, 3));
     },
     0.08},
    {"tdm", [](const std::string& path, const Tracks& tracks) { tavelinUtils::sTDM(path, tracks); }, 0.0005},
    {"ssmas", [](const std::string& path, const Tracks& tracks) { tavelinUtils::sSSMAS(path, tracks); },
     1.01},
    {"table", [](const std::string& path, const Tracks& tracks) { makeFile(path, tableOf(tracks)); }, 0.005},
    {"mpc", [](const std::string& path, const Tracks& tracks) { tavelinUtils::sMPC(path, tracks); }, 0.08},
};

struct Form
{
    const char* word;
    const char* format;
    const char* receiver;
    double angle; ///< half its last digit, arcseconds
};

constexpr Form forms[] = {
    {"mpc", "mpc", "mpc", 0.08},
    {"ccsds", "tdm", "ccsds", 0.0001},
    {"ccsds.xml", "tdm.xml", "ccsds", 0.0001},
    {"aavso", "aavso", "aavso", 0},
    {"ades", "ades.xml", "ades", 0.02},
    {"ades.psv", "ades.psv", "ades", 0.02},
};

// A place on the sky by the time, to the tenth of a second.
struct Place
{
    double RA;
    double DE;
};
using Places = std::map<std::int64_t, Place>;

std::int64_t timeKey(double mjd)
{
    return std::llround((mjd - 60729.0) * 86400.0 / 20.5);
}

Places placesOf(const Tracks& tracks)
{
    Places places;
    for (const TrackVtorichka& track : tracks) {
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            places[timeKey(mark.date + mark.time)] = {mark.RA, mark.DE};
        }
    }
    return places;
}

// The places of a copy that the command itself can read.
Places placesOfCopy(const std::string& path, const std::string& format)
{
    Tracks tracks;
    for (const companion::TrueTrack& track : companion::readAsMeant(path, format).tracks) {
        tracks.push_back(track.track);
    }
    return placesOf(tracks);
}

// Those of rows of ADES, by the texts themselves.
Places placesOfRows(const std::string& text)
{
    Places places;
    for (const std::string& line : copies::linesOf(text)) {
        const std::size_t time = line.find("|2025-02-23T");
        if (time != std::string::npos) {
            const std::string clock = line.substr(time + 12, line.find('Z', time) - time - 12);
            const double seconds = readInC(clock.substr(0, 2)) * 3600 + readInC(clock.substr(3, 2)) * 60 +
                                   readInC(clock.substr(6));
            const std::size_t angles = line.find('|', time + 1) + 1;
            const std::size_t second = line.find('|', angles) + 1;
            places[timeKey(60729.0 + seconds / 86400.0)] = {readInC(line.substr(angles)),
                                                            readInC(line.substr(second))};
        }
    }
    return places;
}

void expectPlaces(const Places& found, const Places& expected, double angle)
{
    ASSERT_EQ(found.size(), expected.size());
    for (const auto& [time, place] : expected) {
        const auto other = found.find(time);
        ASSERT_NE(other, found.end()) << time;
        const double turn = std::remainder(other->second.RA - place.RA, 360.0);
        EXPECT_LE(std::abs(turn) * 3600.0, angle * 1.2 + 1e-6) << time;
        EXPECT_LE(std::abs(other->second.DE - place.DE) * 3600.0, angle + 1e-6) << time;
    }
}

constexpr const char* profile =
    R"({"schema": "tavelin.profile/1", "station": "K88", "observers": ["A. B. Sender"], "measurers": ["A. B. Sender"],
 "submitter": "A. B. Sender", "telescope": {"design": "reflector", "aperture": 0.6, "detector": "CCD"},
 "mode": "CCD", "astrometricCatalogue": "Gaia3", "aavsoCode": "TST01"})";

CommandEnd ready(const TemporaryFolder& folder, const std::string& input, const std::string& format,
                 const std::string& receiver, const std::string& output)
{
    return callCommand({"ready", folder / input, "--as", format, "--for", receiver, "--profile",
                        folder / "profile.json", "--band", "V", "--magnitude", "apparent", "--creation-date",
                        "2025-02-24T00:00:00", "-o", folder / output});
}

// A source and its copies, each named after its form. They are made once for all that is looked at.
class WholeSky : public testing::TestWithParam<Source>
{
protected:
    WholeSky()
    {
        makeFile(folder / "profile.json", profile);
        GetParam().write(folder / "in.txt", sky);
        for (const Form& form : forms) {
            ends.push_back(ready(folder, "in.txt", GetParam().name, form.word, nameOf(form)));
        }
    }

    static std::string nameOf(const Form& form)
    {
        return std::string(form.word) + ".txt";
    }

    void expectAllMarks() const
    {
        for (std::size_t i = 0; i < std::size(forms); ++i) {
            SCOPED_TRACE(forms[i].word);
            EXPECT_EQ(ends[i].status, 0);
            EXPECT_THAT(ends[i].out, HasSubstr("ready: 4,000 marks in, 4,000 out, 0 refused\n"));
            const std::string text = bytesOf(folder / nameOf(forms[i]));
            EXPECT_THAT(copies::linted(text, forms[i].format, forms[i].receiver), IsEmpty());
        }
    }

    void expectTheirPlaces() const
    {
        const Places expected = placesOf(sky);
        ASSERT_EQ(expected.size(), allMarks);
        for (const Form& form : {forms[0], forms[1], forms[2]}) {
            SCOPED_TRACE(form.word);
            const Places found = placesOfCopy(folder / nameOf(form), form.format);
            expectPlaces(found, expected, GetParam().angle + form.angle);
        }
        const Form& rows = forms[5];
        const Places found = placesOfRows(bytesOf(folder / nameOf(rows)));
        expectPlaces(found, expected, GetParam().angle + rows.angle);
    }

    // Its tolerance is half of the last digit of the coarser form.
    void expectNoDifference() const
    {
        for (const Form& form : forms) {
            if (form.angle > 0) {
                const CommandEnd end = callCommand({"diff", "-c", folder / "in.txt", folder / nameOf(form)});
                EXPECT_EQ(end.status, 0) << form.word << '\n' << end.out.substr(0, 1000) << end.err;
            }
        }
    }

    void expectTheSameAgain() const
    {
        for (const Form& form : {forms[0], forms[1], forms[2]}) {
            SCOPED_TRACE(form.word);
            const std::string once = nameOf(form);
            const CommandEnd end = ready(folder, once, form.format, form.word, "twice." + once);
            EXPECT_EQ(end.status, 0) << end.out.substr(0, 400);
            EXPECT_TRUE(bytesOf(folder / once) == bytesOf(folder / ("twice." + once)));
            EXPECT_EQ(end.out, "ready: 4,000 marks in, 4,000 out, 0 refused\n");
        }
    }

    const TemporaryFolder folder{};
    const Tracks sky = wholeSky();
    std::vector<CommandEnd> ends{};
};

TEST_P(WholeSky, ComesOutInEachForm)
{
    expectAllMarks();
    expectTheirPlaces();
    expectNoDifference();
    expectTheSameAgain();
}

INSTANTIATE_TEST_SUITE_P(Sources, WholeSky, testing::ValuesIn(sources),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
