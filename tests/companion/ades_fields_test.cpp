#include "receivers/ades_fields.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace companion;

const AdesType& typeOf(const std::string& field)
{
    return *adesField(field)->type;
}

void expectTaken(const std::string& field, const std::vector<std::string>& texts)
{
    for (const std::string& text : texts) {
        EXPECT_TRUE(adesTakes(typeOf(field), text)) << field << ": \"" << text << '"';
    }
}

void expectRefused(const std::string& field, const std::vector<std::string>& texts)
{
    for (const std::string& text : texts) {
        EXPECT_FALSE(adesTakes(typeOf(field), text)) << field << ": \"" << text << '"';
    }
}

TEST(AdesFields, PermanentNumbersAreUnpackedAndWithoutNames)
{
    expectTaken("permID", {"433", "00433", "73P", "73P-B", "73P-AB", "1I", "Jupiter 13", "(243) 1"});
    expectRefused("permID",
                  {"", "A0345", "(433)", "433 Eros", "Jupiter XIII", "73P-ABC", "433 ", "Pluto 1", "1X"});
    expectRefused("permID", {"12345678901234567890123456"});
}

TEST(AdesFields, ProvisionalDesignationsAreUnpacked)
{
    expectTaken("provID", {"2023 AB", "2023 AB12", "2040 P-L", "3138 T-1", "C/2023 A3", "P/1998 QP54",
                           "P/2019 LD2-A", "S/2003 J 2", "S/2001 (87) 1", "S/2021 (1999 KW4) 1", "1904 OA"});
    expectRefused("provID", {"J98SA8Q", "A904 OA", "2025 IA", "2025 ZA", "2025 AI", "I/2019 Q4", "2040 T-4",
                             "C/2023 A3 (X-Y)", "2023  AB", "S/2003 E 2"});
}

TEST(AdesFields, NamesOfTrackletsHaveUpToEightCharacters)
{
    expectTaken("trkSub", {"AST10000", "a", "-_9"});
    expectRefused("trkSub", {"", "AST100000", "AST 1", "AST.1"});
    expectTaken("artSat", {"1998-067A", "1999-025AAB"});
    expectRefused("artSat", {"98-067A", "1998-067", "1998-67A"});
}

TEST(AdesFields, WordsAreBoundedInLength)
{
    expectTaken("mode", {"CCD", "XYZ"});
    expectRefused("mode", {"CMOS", "", "C D"});
    expectTaken("stn", {"568", "W_1a"});
    expectRefused("stn", {"56", "56800", "5-8"});
    expectTaken("astCat", {"Gaia3", "GSC2.3"});
    expectRefused("astCat", {"GSC-2.2", "Gaia_2016", ""});
    expectRefused("band", {"Gaia"});
    expectTaken("disc", {"*", "+"});
    expectRefused("disc", {"D", "**"});
    expectTaken("notes", {"aBc"});
    expectRefused("notes", {"abcdefg", "a b"});
}

TEST(AdesFields, TimesAreThoseOfTheCalendar)
{
    expectTaken("obsTime", {"2025-02-23T12:17:46.176Z", "2025-02-23T12:17:46Z", "2025-02-23T12:17:46.123456Z",
                            "2024-02-29T00:00:00Z", "2000-02-29T00:00:00Z", " 2025-02-23T12:17:46Z ",
                            "2025-02-23T24:00:00Z"});
    expectRefused("obsTime", {"2025-02-23T12:17:46.176", "2025-02-23T12:17:46.176+00:00",
                              "2025-02-23T12:17:46.1234567Z", "2025-02-23T12:17:46.Z", "2025-02-23 12:17:46Z",
                              "2025-02-23T12:17Z", "2025-02-30T12:17:46Z", "1900-02-29T00:00:00Z",
                              "2025-13-01T00:00:00Z", "2025-00-01T00:00:00Z", "2025-02-23T12:60:00Z",
                              "2025-02-23T24:00:01Z", "0000-01-01T00:00:00Z", "2025-2-23T12:17:46Z"});
}

TEST(AdesFields, SixtySecondsAreTakenOnDaysThatMayHaveThem)
{
    expectTaken("obsTime", {"2016-12-31T23:59:60Z", "1972-06-30T23:59:60.5Z", "2017-06-30T23:59:60Z",
                            "2025-12-31T23:59:60.123456Z"});
    expectRefused("obsTime", {"2025-02-23T23:59:60Z", "2016-06-30T23:59:60Z", "2016-12-31T22:59:60Z",
                              "2016-12-31T23:59:61Z", "2016-12-31T23:59:60.Z"});
}

TEST(AdesFields, PlacesAreDegreesInDecimals)
{
    expectTaken("ra", {"0", "0.000000", "187.551417", "359.999999999", ".5", "18.", " 1.5 "});
    expectRefused("ra", {"360.0", "360", "+187.5", "-0.1", "007.5", "12 30 12.34", "1.1234567890", "", "."});
    expectTaken("dec", {"1.341694", "-0.000139", "+90", "-90.0", ".5", "-.5", "0"});
    expectRefused("dec", {"90.1", "-90.000000001", "01.3", "1.3e0", "", "+", "--1"});
    expectTaken("rmsCorr", {"0", "-0.99999999999", "0.5", "+0.5"});
    expectRefused("rmsCorr", {"1", "-1", ".5", "0.123456789012"});
}

TEST(AdesFields, MagnitudesLeaveAPlaceForTheSign)
{
    expectTaken("mag", {"18.53", "-1.0", "35", "-5.0", "18.", "18.1234", "-1.12345"});
    expectRefused("mag", {"36", "-5.1", "08.5", ".5", "NaN", "00.0", "18.123456", "18.12345", "", "35.0001"});
    expectTaken("logSNR", {"1.234", "-1.234", "+1"});
    expectRefused("logSNR", {"1.2345", "-1.2345"});
}

TEST(AdesFields, ErrorsAreAboveZeroAndShort)
{
    expectTaken("rmsRA", {"0.1", "0.12345", "12", "1."});
    expectRefused("rmsRA", {"0", "0.0", "1e-1", "0.123456", "-0.1", "+0.1", ".1"});
    expectTaken("rmsMag", {"0.1234", "0.001"});
    expectRefused("rmsMag", {"0", "0.12345", "100000"});
    expectRefused("exp", {"0"});
    expectTaken("nStars", {"1", "999999"});
    expectRefused("nStars", {"0", "1000000", "1.5", "-1"});
    expectTaken("posCov12", {"1.5e-10", "-0.25", "3"});
    expectRefused("posCov12", {"NaN", "1.123456789012345678e10", "e5"});
}

TEST(AdesFields, TextsAreCountedInCharacters)
{
    const std::string umlaut = "\xC3\xBC";
    std::string remark;
    for (int i = 0; i < 300; ++i) {
        remark += umlaut;
    }
    expectTaken("remarks", {remark, " x", "two\nlines"});
    expectRefused("remarks", {remark + 'x', "", "  ", "a|b", std::string("a\0b", 3), "\xFC"});
}

TEST(AdesFields, WordsAreKnownByTheirLists)
{
    const AdesWords& bands = *adesField("band")->words;
    EXPECT_EQ(adesWordState(bands, "Vj"), AdesWordState::forNewWork);
    EXPECT_EQ(adesWordState(bands, "V"), AdesWordState::historic);
    EXPECT_EQ(adesWordState(bands, "C"), AdesWordState::refused);
    EXPECT_EQ(adesWordState(bands, "Q"), AdesWordState::unlisted);
    EXPECT_EQ(adesWordState(bands, ""), AdesWordState::unlisted);
    const AdesWords& notes = *adesField("notes")->words;
    EXPECT_EQ(adesWordState(notes, "aB"), AdesWordState::forNewWork);
    EXPECT_EQ(adesWordState(notes, "aiB"), AdesWordState::historic);
    EXPECT_EQ(adesWordState(notes, "aqB"), AdesWordState::unlisted);
    EXPECT_EQ(adesWordState(notes, ""), AdesWordState::unlisted);
    EXPECT_EQ(adesWordState(*adesField("astCat")->words, "Gaia_2016"), AdesWordState::refused);
}

TEST(AdesFields, EveryWordOfAListFitsItsElement)
{
    for (const AdesField& field : adesOptical()) {
        for (const char* list : field.words == nullptr ? std::vector<const char*>{}
                                                       : std::vector<const char*>{field.words->forNewWork,
                                                                                  field.words->historic})
        {
            std::istringstream words(list);
            for (std::string word; words >> word;) {
                EXPECT_TRUE(adesTakes(*field.type, word)) << field.name << ' ' << word;
            }
        }
    }
}

TEST(AdesFields, EveryParentOfTheContextStandsBeforeItsChildren)
{
    std::set<std::string> parents{"obsContext"};
    for (const AdesContextField& field : adesContext()) {
        EXPECT_TRUE(parents.count(field.parent) == 1) << field.name;
        if (field.type == nullptr) {
            parents.insert(field.name);
        }
    }
    EXPECT_EQ(adesContextField("telescope", "aperture")->demanded, true);
    EXPECT_EQ(adesContextField("telescope", "mirror"), nullptr);
}

} // namespace
