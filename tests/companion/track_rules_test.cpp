#include "receivers/aavso_rules.h"
#include "receivers/mpc_rules.h"
#include "receivers/tdm_rules.h"
#include "receivers/track_rules.h"

#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace companion;
using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Marks = std::vector<TRecLabelPervichka_File>;

constexpr double endOfDay = 1.0 - 1e-12;

// "V313 2": the codes of findings and how often each occurs.
Lines outlineOf(const std::vector<Finding>& findings)
{
    Lines lines;
    for (const Finding& each : findings) {
        lines.push_back(each.code.text() + ' ' + std::to_string(each.count));
    }
    return lines;
}

std::unique_ptr<TrackRules> rulesAfter(const std::string& word, const std::vector<TrackVtorichka>& tracks,
                                       const std::string& path = "out/night.txt")
{
    std::unique_ptr<TrackRules> rules = trackRulesOf(word);
    rules->openFile(path);
    for (const TrackVtorichka& track : tracks) {
        rules->add(track);
    }
    return rules;
}

Lines findingsOf(const std::string& word, const std::vector<TrackVtorichka>& tracks)
{
    return outlineOf(rulesAfter(word, tracks)->findings());
}

Lines formOf(const std::string& word, const std::vector<TrackVtorichka>& tracks)
{
    return outlineOf(rulesAfter(word, tracks)->findingsOfForm());
}

std::string firstText(const std::string& word, const TrackVtorichka& track)
{
    const std::vector<Finding> findings = rulesAfter(word, {track})->findings();
    return findings.empty() ? "" : findings.front().text;
}

// A mark that no receiver finds fault with.
TRecLabelPervichka_File good()
{
    TRecLabelPervichka_File mark;
    mark.date = 60000;
    mark.time = 0.25;
    mark.RA = 123.456;
    mark.DE = -12.345;
    mark.m = 15.3;
    mark.filtr = "V";
    mark.mEnsemble = 12.847;
    mark.SNRpeak = 90.0;
    mark.MTYPE = "STD";
    mark.KNAME = "120";
    mark.CHART = "X17724AYH";
    return mark;
}

// The good mark after a change.
template <class Change>
TRecLabelPervichka_File goodBut(Change change)
{
    TRecLabelPervichka_File mark = good();
    change(mark);
    return mark;
}

TrackVtorichka named(const std::string& name, const Marks& marks)
{
    TrackVtorichka track;
    track.QRVName = name;
    track.Marks = marks;
    track.MPCHeader.COD = "L01";
    return track;
}

template <class Change>
Lines mpcOf(Change change)
{
    return findingsOf("mpc", {named("AST1000", {goodBut(change), good()})});
}

template <class Change>
Lines tdmOf(Change change)
{
    TrackVtorichka track = named("AST1000", {good()});
    change(track);
    EXPECT_EQ(findingsOf("tdm.xml", {track}), findingsOf("tdm", {track}));
    return findingsOf("tdm", {track});
}

template <class Change>
Lines aavsoOf(Change change)
{
    return findingsOf("aavso", {named("V1023 Her", {goodBut(change), good()})});
}

} // namespace

TEST(TrackRules, OnlyFourWordsHaveAReceiver)
{
    for (const char* word : {"mpc", "tdm", "tdm.xml", "aavso"}) {
        EXPECT_NE(trackRulesOf(word), nullptr) << word;
    }
    for (const char* word : {"mea", "telegram", "ssmas", "mag", "vomar", "Mpc", ""}) {
        EXPECT_EQ(trackRulesOf(word), nullptr) << word;
    }
}

TEST(TrackRules, GoodTracksHaveNoFinding)
{
    TrackVtorichka track = named("K24Y04R", {good(), goodBut([](auto& mark) { mark.time = 0.26; })});
    for (const char* word : {"mpc", "tdm", "tdm.xml", "aavso"}) {
        EXPECT_EQ(findingsOf(word, {track}), Lines()) << word;
    }
    EXPECT_EQ(formOf("mpc", {track}), Lines());
    EXPECT_EQ(formOf("aavso", {track}), Lines());
}

TEST(TrackRules, TracksWithoutMarksHaveNoFinding)
{
    const TrackVtorichka track = named("a name, that no receiver takes at all", {});
    for (const char* word : {"mpc", "tdm", "aavso"}) {
        EXPECT_EQ(findingsOf(word, {track}), Lines()) << word;
    }
}

TEST(TrackRules, AFindingHasTheFirstPlacesAndTheNumberOfAll)
{
    const auto rules =
        rulesAfter("mpc", {named("AST1000", Marks(5, goodBut([](auto& mark) { mark.m = 0.0; })))});
    const std::vector<Finding> findings = rules->findings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].count, 5u);
    EXPECT_EQ(findings[0].text, "the magnitude is 00.0, the first of 5 such marks");
    ASSERT_EQ(findings[0].places.size(), 3u);
    EXPECT_EQ(findings[0].places[2].mark.object, "AST1000");
    EXPECT_EQ(findings[0].places[2].mark.mark, 2);
    EXPECT_EQ(findings[0].places[2].mark.time, "2023-02-25T06:00:00.000");
}

TEST(TrackRules, EachRuleKeepsThreePlacesAndCountsAll)
{
    struct Row
    {
        const char* word;
        TrackVtorichka track;
        const char* code;
    };
    const Row rows[] = {
        {"mpc", named("25544", {good()}), "V311"},
        {"mpc", named("AST1000", {goodBut([](auto& mark) { mark.filtr = "X"; })}), "V316"},
        {"tdm", named("", {good()}), "V342"},
        {"tdm", named("AST1000", {goodBut([](auto& mark) { mark.RA = 360.0; })}), "V343"},
        {"aavso", named("A,B", {good()}), "V360"},
        {"aavso", named("AB", {goodBut([](auto& mark) { mark.KNAME = "1,2"; })}), "V360"},
        {"aavso", named("AB", {goodBut([](auto& mark) { mark.KNAME = std::string(21, 'a'); })}), "V361"},
        {"aavso", named("AB", {goodBut([](auto& mark) { mark.mEnsemble = 10000.5; })}), "V361"},
    };
    for (const Row& row : rows) {
        const std::vector<Finding> findings =
            rulesAfter(row.word, std::vector<TrackVtorichka>(4, row.track))->findings();
        EXPECT_EQ(outlineOf(findings), Lines{std::string(row.code) + " 4"});
        EXPECT_EQ(findings.at(0).places.size(), 3u) << row.word << ' ' << row.code;
    }
}

TEST(TrackRules, ReceiversAreThoseOfTheirFormats)
{
    EXPECT_EQ(receiverOf("mpc"), "mpc");
    EXPECT_EQ(receiverOf("aavso"), "aavso");
    EXPECT_EQ(receiverOf("tdm"), "ccsds");
    EXPECT_EQ(receiverOf("tdm.xml"), "ccsds");
    EXPECT_EQ(receiverOf("mea"), "");
}

// 80 columns

TEST(MpcTrackRules, FiveCharactersBecomeANumber)
{
    const TrackVtorichka track = named("25544", {good(), good()});
    EXPECT_EQ(findingsOf("mpc", {track}), Lines{"V311 2"});
    EXPECT_EQ(firstText("mpc", track),
              "\"25544\" stands where numbers of minor planets stand, and is read as "
              "(25544), the first of 2 such marks");
    EXPECT_EQ(findingsOf("mpc", {named("A1001", {good()})}), Lines{"V311 1"});
}

TEST(MpcTrackRules, TheNumberThatTheCheckerGaveIsMeant)
{
    TrackVtorichka track = named("Z6433", {good()});
    track.MPCChecker = "Z6433";
    EXPECT_EQ(findingsOf("mpc", {track}), Lines());
}

TEST(MpcTrackRules, NamesThatAreNotTaken)
{
    for (const char* name : {"", "SAT01", "AST10000", "ABC123", "SAT-001"}) {
        EXPECT_EQ(findingsOf("mpc", {named(name, {good()})}), Lines{"V312 1"}) << name;
    }
    EXPECT_EQ(findingsOf("mpc", {named("thirteen_long", {good()})}), (Lines{"V310 1", "V312 1"}));
    EXPECT_EQ(firstText("mpc", named("AST10000", {good()})),
              "the name \"AST10000\" begins in column 5: names begin in column 6 and have up to 7 letters "
              "and digits");
}

TEST(MpcTrackRules, DesignationsThatAreNotPacked)
{
    for (const char* name : {"433", "203289", "2024 YR4", "C/2023 A3", "73P"}) {
        EXPECT_EQ(findingsOf("mpc", {named(name, {good()})}), Lines{"V319 1"}) << name;
    }
}

TEST(MpcTrackRules, SatellitesOfAReport)
{
    TrackVtorichka track = named("25544", {good()});
    track.ObsCode = "CODEAAVSO";
    track.NORAD = "25544";
    EXPECT_EQ(findingsOf("mpc", {track}), (Lines{"V311 1", "V318 1"}));
    TrackVtorichka running = named("99000", {good()});
    running.ObsCode = "CODEAAVSO";
    EXPECT_EQ(findingsOf("mpc", {running}), (Lines{"V311 1", "V318 1"}));
    EXPECT_EQ(findingsOf("mpc", {named("16033A", {good()})}), (Lines{"V312 1", "V318 1"}));
    TrackVtorichka other = named("AST1000", {good()});
    other.ObsCode = "CODEAAVSO";
    other.NORAD = "25544";
    EXPECT_EQ(findingsOf("mpc", {other}), Lines());
}

TEST(MpcTrackRules, SecondsOfSixty)
{
    EXPECT_EQ(mpcOf([](auto& mark) { mark.RA = 15.0 - 1e-6; }), Lines{"V313 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.DE = -(12.0 - 1e-6); }), Lines{"V313 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.RA = 15.0 * (12.0 + 59.99 / 3600.0); }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.DE = -(12.0 + 59.9 / 3600.0); }), Lines());
}

TEST(MpcTrackRules, MagnitudesOfZero)
{
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = 0.0; }), Lines{"V315 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = 0.04; }), Lines{"V315 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = 0.06; }), Lines());
}

TEST(MpcTrackRules, Bands)
{
    for (const char* band : {"X", "C", "Clear", "GV", " V"}) {
        EXPECT_EQ(mpcOf([band](auto& mark) { mark.filtr = band; }), Lines{"V316 1"}) << band;
    }
    for (const char band : std::string("BVRIJWULHKYGgriwyzocvu")) {
        EXPECT_EQ(mpcOf([band](auto& mark) { mark.filtr = std::string(1, band); }), Lines()) << band;
    }
    EXPECT_EQ(mpcOf([](auto& mark) { mark.filtr = ""; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.filtr = "Vcousins"; }), (Lines{"V310 1", "V316 1"}));
}

TEST(MpcTrackRules, AFractionThatRoundsToTheNextDay)
{
    EXPECT_EQ(mpcOf([](auto& mark) { mark.time = 0.999996; }), Lines{"V317 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.time = 0.999994; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.time = 1.25; }), Lines());
}

TEST(MpcTrackRules, OtherLinesThanThoseOf80Columns)
{
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = -1.0; }), Lines{"V310 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = -0.04; }), Lines{"V310 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = 99.96; }), Lines{"V310 1"}); // 100.0
    EXPECT_EQ(mpcOf([](auto& mark) { mark.m = std::nan(""); }), Lines{"V310 1"});
    EXPECT_EQ(mpcOf([](auto& mark) { mark.time = -0.25; }), Lines{"V310 1"}); // 0.25000 after the day
    EXPECT_EQ(mpcOf([](auto& mark) { mark.RA = -15.0; }), Lines{"V310 1"});
    TrackVtorichka track = named("AST1000", {good()});
    track.MPCHeader.COD = "L012";
    EXPECT_EQ(firstText("mpc", track), "a line of 81 columns, where 80 are wanted");
}

TEST(MpcTrackRules, UnusualNumbersWhoseLineHas80Columns)
{
    EXPECT_EQ(mpcOf([](auto& mark) { mark.RA = 360.0; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.DE = -90.5; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.DE = 90.5; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.date = 0; }), Lines());
    EXPECT_EQ(mpcOf([](auto& mark) { mark.date = 1'000'000; }), Lines());
}

TEST(MpcTrackRules, NamesOfPeopleHaveInitialsAndASurname)
{
    for (const char* name : {"J. R. R. Tolkien", "J.-F. Hulot", "A. B. de la Cruz", "K. {\\AA}berg"}) {
        EXPECT_TRUE(isPersonName(name)) << name;
    }
    for (const char* name : {"", "Tolkien", "J. R.", "John Smith", "J. SMITH", "K. {\\AA}BERG", "j. Tolkien",
                             "Jo Tolkien", "J.-f. Hulot", "J.-Fa Hulot", "J. Smith R.", "J. Smith Jr."})
    {
        EXPECT_FALSE(isPersonName(name)) << name;
    }
}

TEST(MpcTrackRules, DeclinationsWithoutASignAreOfForm)
{
    const TrackVtorichka track = named("AST1000", {good(), goodBut([](auto& mark) { mark.DE = 12.0; })});
    EXPECT_EQ(findingsOf("mpc", {track}), Lines());
    EXPECT_EQ(formOf("mpc", {track}), (Lines{"V310 1", "V314 1"}));
}

// Tracking messages

TEST(TdmTrackRules, EachFileHasNoDateAndTheWrongVersion)
{
    const auto rules = rulesAfter("tdm", {named("AST1000", {good()}), named("AST1001", {good()})});
    rules->openFile("out/next.tdm");
    rules->add(named("AST1002", {good()}));
    EXPECT_EQ(outlineOf(rules->findingsOfForm()), (Lines{"V340 2", "V341 2"}));
    EXPECT_EQ(formOf("tdm.xml", {named("AST1000", {good()})}), Lines{"V340 1"});
}

TEST(TdmFrames, AreThoseOfTheStandard)
{
    for (const char* frame : {"EME2000", "ICRF", "TOD", "ITRF-97"}) {
        EXPECT_TRUE(isTdmFrame(frame)) << frame;
    }
    for (const char* frame : {"", " ", "J2000", "icrf", "TEME"}) {
        EXPECT_FALSE(isTdmFrame(frame)) << frame;
    }
}

// The frame of a task is told at its key.
TEST(TdmTrackRules, FrameIsNotLookedAt)
{
    EXPECT_EQ(tdmOf([](auto& track) { track.REFERENCE_FRAME = ""; }), Lines());
}

TEST(TdmTrackRules, NoValueIsEmpty)
{
    EXPECT_EQ(tdmOf([](auto& track) { track.QRVName = ""; }), Lines{"V342 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.telescope = " "; }), Lines{"V342 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.originator = ""; }), Lines{"V342 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.QRVName = "a\nb"; }), Lines{"V342 1"});
}

TEST(TdmTrackRules, AFullCircle)
{
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].RA = 359.99999996; }), Lines{"V343 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].RA = 360.0; }), Lines{"V343 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].RA = -181.0; }), Lines{"V343 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].RA = 359.9999999; }), Lines());
}

TEST(TdmTrackRules, NumbersThatAreNone)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].RA = std::nan(""); }), Lines{"V344 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].DE = infinite; }), Lines{"V344 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].m = -infinite; }), Lines{"V344 1"});
}

TEST(TdmTrackRules, OneTimeTwice)
{
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks = {good(), good()}; }), Lines{"V344 1"});
    const auto later = [](double seconds) {
        return goodBut([seconds](auto& mark) { mark.time += seconds / 86400.0; });
    };
    EXPECT_EQ(tdmOf([&](auto& track) { track.Marks = {good(), later(0.000004)}; }), Lines{"V344 1"});
    EXPECT_EQ(tdmOf([&](auto& track) { track.Marks = {good(), later(0.00002)}; }), Lines());
}

TEST(TdmTrackRules, TimesOutOfOrder)
{
    const auto at = [](double time) { return goodBut([time](auto& mark) { mark.time = time; }); };
    EXPECT_EQ(tdmOf([&](auto& track) { track.Marks = {at(0.3), at(0.2)}; }), (Lines{"V342 1", "V345 2"}));
    EXPECT_EQ(tdmOf([&](auto& track) {
                  track.Marks = {at(0.1), at(0.3), at(0.2), at(0.4)};
              }),
              Lines{"V342 1"});
    EXPECT_EQ(tdmOf([&](auto& track) {
                  track.Marks = {at(0.1), at(0.3), at(0.2)};
              }),
              (Lines{"V342 1", "V345 1"}));
}

TEST(TdmTrackRules, TheEndOfADay)
{
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].time = endOfDay; }), Lines{"V346 1"});
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].time = 1.0 - 0.00001 / 86400.0; }), Lines());
    EXPECT_EQ(tdmOf([](auto& track) { track.Marks[0].time = 1.25; }), Lines());
    TrackVtorichka track = named("AST1000", {goodBut([](auto& mark) { mark.time = endOfDay; })});
    EXPECT_EQ(firstText("tdm", track), "the end of the day is written as 2023-02-25T00:00:00.00000");
}

// Brightness

TEST(AavsoTrackRules, Commas)
{
    EXPECT_EQ(findingsOf("aavso", {named("A,B", {good()})}), Lines{"V360 1"});
    EXPECT_EQ(firstText("aavso", named("A,B", {good()})), "16 fields, where 15 are wanted: NAME is \"A,B\"");
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.KNAME = "1,2"; }), Lines{"V360 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.CHART = "a,b"; }), Lines{"V360 1"});
}

TEST(AavsoTrackRules, FieldsThatAreTooLong)
{
    EXPECT_EQ(findingsOf("aavso", {named(std::string(31, 'a'), {good()})}), Lines{"V361 1"});
    EXPECT_EQ(findingsOf("aavso", {named(std::string(30, 'a'), {good()})}), Lines());
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.KNAME = std::string(21, 'a'); }), Lines{"V361 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.mEnsemble = 10000.5; }), Lines{"V361 1"});
}

TEST(AavsoTrackRules, ErrorsThatAreNone)
{
    for (const double noise : {0.0, 0.5, 1.0, -20.0, std::nan("")}) {
        EXPECT_EQ(aavsoOf([noise](auto& mark) { mark.SNRpeak = noise; }), Lines{"V361 1"}) << noise;
    }
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.SNRpeak = 1.001; }), Lines());
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.SNRpeak = 1e9; }), Lines());
}

TEST(AavsoTrackRules, TextsThatAreNone)
{
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.MTYPE = "NONE"; }), Lines{"V361 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.MTYPE = "abs"; }), Lines());
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.CHART = ""; }), Lines{"V361 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.mEnsemble = std::nan(""); }), Lines{"V361 1"});
    EXPECT_EQ(findingsOf("aavso", {named("", {good()})}), Lines{"V361 1"});
    EXPECT_EQ(findingsOf("aavso", {named("#1", {good()})}), Lines{"V361 1"});
}

TEST(AavsoTrackRules, MagnitudesThatWereNotKnown)
{
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.mEnsemble = 0.0; }), Lines{"V362 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.mEnsemble = -0.0001; }), Lines{"V362 1"});
    EXPECT_EQ(aavsoOf([](auto& mark) { mark.mEnsemble = -1.046; }), Lines());
}

TEST(AavsoTrackRules, Filters)
{
    for (const char* filter : {"Clear", "C", "L", "Rc", "", "G"}) {
        EXPECT_EQ(aavsoOf([filter](auto& mark) { mark.filtr = filter; }), Lines{"V363 1"}) << filter;
    }
    for (const char* filter : {"V", "cv", "STHBW", "HAC", "RJ"}) {
        EXPECT_EQ(aavsoOf([filter](auto& mark) { mark.filtr = filter; }), Lines()) << filter;
    }
}

TEST(AavsoTrackRules, TheFilterIsThatOfTheFirstTrack)
{
    const TRecLabelPervichka_File clear = goodBut([](auto& mark) { mark.filtr = "Clear"; });
    const TrackVtorichka first = named("first", {good(), good()});
    EXPECT_EQ(findingsOf("aavso", {first, named("second", {clear, clear})}), Lines());
    EXPECT_EQ(findingsOf("aavso", {first, named("third", {clear, clear, clear})}), Lines{"V363 1"});
}

TEST(AavsoTrackRules, MarksWithoutACheckStarAreOfForm)
{
    const TrackVtorichka track = named("V1023 Her", {good(), goodBut([](auto& mark) { mark.KNAME = ""; })});
    EXPECT_EQ(findingsOf("aavso", {track}), Lines());
    EXPECT_EQ(formOf("aavso", {track}), Lines{"V363 1"});
}

TEST(AavsoTrackRules, NamesOfFiles)
{
    for (const char* path : {"a.txt", "out/A.TXT", "a.csv", "b.tsv"}) {
        EXPECT_EQ(outlineOf(rulesAfter("aavso", {}, path)->findings()), Lines()) << path;
    }
    const auto rules = rulesAfter("aavso", {}, "out.txt/night.mag");
    EXPECT_EQ(outlineOf(rules->findings()), Lines{"V364 1"});
    for (const char* path : {"a.mag", "b.mag", "c.mag"}) {
        rules->openFile(path);
    }
    EXPECT_EQ(outlineOf(rules->findings()), Lines{"V364 4"});
}

TEST(AavsoDelimiter, IsACharacterItsNumberOrAWord)
{
    const std::pair<const char*, char> known[] = {{",", ','},   {"comma", ','}, {"COMMA", ','}, {"tab", '\t'},
                                                  {";", ';'},   {"|", '|'},     {"5", '5'},     {"33", '!'},
                                                  {"059", ';'}, {"126", '~'}};
    for (const auto& [value, delimiter] : known) {
        EXPECT_EQ(aavsoDelimiter(value), delimiter) << value;
    }
    for (const char* value : {"", "#", "35", " ", "32", "31", "127", "99999999999", "semicolon", ",,"}) {
        EXPECT_EQ(aavsoDelimiter(value), std::nullopt) << value;
    }
}
