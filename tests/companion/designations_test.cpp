#include "receivers/designations.h"

#include <gtest/gtest.h>

#include <string>

using namespace companion;

namespace {

NameFault faultOf(const std::string& columns)
{
    return verdictOnName(columns + std::string(12 - columns.size(), ' ')).fault;
}

} // namespace

TEST(Designations, PackedNumbersAreTaken)
{
    const std::pair<const char*, std::int64_t> known[] = {
        {"00001", 1},      {"00433", 433},     {"99999", 99999},   {"A0000", 100000}, {"A0345", 100345},
        {"A9999", 109999}, {"B0000", 110000},  {"K3289", 203289},  {"Z9999", 359999}, {"a0000", 360000},
        {"a0017", 360017}, {"z9999", 619999},  {"~0000", 620000},  {"~000z", 620061}, {"~0010", 620062},
        {"~0100", 623844}, {"~AZaz", 3140113}, {"~zzzz", 15396335}};
    for (const auto& [packed, number] : known) {
        EXPECT_EQ(packedNumber(packed), number) << packed;
    }
}

TEST(Designations, OtherTextsAreNoNumber)
{
    for (const char* text :
         {"00000", "433", "0001P", "J013S", "SAT01", "~00 0", "A034", "A03456", "", "+0433"}) {
        EXPECT_EQ(packedNumber(text), std::nullopt) << text;
    }
}

TEST(Designations, PackedProvisionalsAreTaken)
{
    for (const char* text : {"J95X00A", "J95X01L", "J95F13B", "J98SA8Q", "J98SG2S", "K99AJ3Z", "K08Aa0A",
                             "K07Tf8A", "K24Y04R", "K25D12A", "K25Cz9Z", "_QC0000", "_QA0001", "_QD000N",
                             "_QC0aEM", "_QCzzzz", "I01A00A", "PLS2040", "T1S3138", "T2S2000", "T3S4101"})
    {
        EXPECT_TRUE(isPackedProvisional(text)) << text;
        EXPECT_EQ(faultOf("     " + std::string(text)), NameFault::none) << text;
    }
}

TEST(Designations, OtherTextsAreNoProvisional)
{
    for (const char* text :
         {"K24Z04R", "K24I04R", "K24Y0IR", "K24Y04I", "K24Y-4R", "L24Y04R", "K2AY04R", "K24Y04r", "K24Y04",
          "AST1000", "PLS204A", "_QI0000", "_Q C0000", "_5C0000", "_QC0-00", "k24Y04R"})
    {
        EXPECT_FALSE(isPackedProvisional(text)) << text;
    }
}

TEST(Designations, PackedCometsAndSatellitesOfPlanetsAreTaken)
{
    for (const char* text : {"CK23A030", "CJ95O010", "PJ94P01b", "CK88AA30", "XI72X010", "AK17U070",
                             "PJ98Q54P", "P_PD0000", "SK20J010", "SK04S120"})
    {
        EXPECT_TRUE(isPackedComet(text)) << text;
        EXPECT_EQ(faultOf("    " + std::string(text)), NameFault::none) << text;
    }
    for (const char* text : {"AST10000", "CK23A03", "SK20Q010", "SK20J011", "SL20J010", "SK20J-10",
                             "SK20J0A0", "ZK23A030", "CK23A03I"})
    {
        EXPECT_FALSE(isPackedComet(text)) << text;
    }
}

TEST(Designations, NamesInTheirColumnsAreTaken)
{
    for (const char* text : {"00433", "A0345", "~000z", "0001P", "0003D", "0001I", "J013S", "N002S",
                             "00433I98D00Q", "0073P      c", "0073P     ac", "0020DJ13S010", "     AST1000",
                             "     ABC123", "     X", "     1AB"})
    {
        EXPECT_EQ(faultOf(text), NameFault::none) << text;
    }
}

TEST(Designations, NamesOutOfTheirColumnsAreNot)
{
    const std::pair<const char*, const char*> known[] = {
        {"      ABC123", "begins in column 7"}, {"    AST10000", "begins in column 5"},
        {"SAT01", "begins in column 1"},        {"0001X", "begins in column 1"},
        {"J013T", "begins in column 1"},        {"C    K23A030", "begins in column 1"},
        {"       XL90E", "begins in column 8"}};
    for (const auto& [text, why] : known) {
        EXPECT_EQ(faultOf(text), NameFault::notPlaced) << text;
        EXPECT_EQ(verdictOnName(std::string(text) + std::string(12 - std::string(text).size(), ' ')).why,
                  why);
    }
}

TEST(Designations, NamesThatCannotBeTakenAreNot)
{
    for (const char* text : {"", "     SAT-01", "     A B", "00433AST1000", "0073P      C", "0073P     c"}) {
        EXPECT_EQ(faultOf(text), NameFault::notTaken) << text;
    }
}

TEST(Designations, UnpackedOnesAreRecognised)
{
    for (const char* text :
         {"433", "203289", "(433)", "433 Eros", "2024 YR4", "2024YR4", "2025 DA12", "2040 P-L", "3138 T-1",
          "C/2023 A3", "P/1994 P1-B", "73P", "73P-C", "1P/Halley", "1I", "S/2020 J 1"})
    {
        EXPECT_TRUE(isUnpackedDesignation(text)) << text;
    }
    for (const char* text : {"AST1000", "K24Y04R", "2024IR4", "2024YI4", "2024YRx", "XL90E5A", "C/20",
                             "C/2O23", "1AB", "1AP", "73Px", "P10vtDN", "AAA/2", "(433", ""})
    {
        EXPECT_FALSE(isUnpackedDesignation(text)) << text;
    }
    EXPECT_EQ(faultOf("433"), NameFault::notPacked);
    EXPECT_EQ(faultOf("C/2023 A3"), NameFault::notPacked);
    EXPECT_EQ(faultOf("     2023AB"), NameFault::notPacked);
    EXPECT_EQ(faultOf("      203289"), NameFault::notPacked);
}

TEST(Designations, LaunchesAreRecognised)
{
    for (const char* text : {"2016-033A", "1998-067AB", "16033A", "98067ABC"}) {
        EXPECT_TRUE(isLaunchDesignation(text)) << text;
    }
    for (const char* text : {"2016-033", "16033", "2016-33A", "16033a", "1603A", "K24Y04R", "2016-033ABCD",
                             "203289", "2O16-033A", "2016-O33A"})
    {
        EXPECT_FALSE(isLaunchDesignation(text)) << text;
    }
}

TEST(Designations, LaunchesAreGivenTheirWholeYear)
{
    const std::pair<const char*, const char*> known[] = {
        {"16033A", "2016-033A"},      {"57001B", "1957-001B"}, {"56999C", "2056-999C"},
        {"1998-067AB", "1998-067AB"}, {"AST1000", "AST1000"},  {"", ""}};
    for (const auto& [text, expected] : known) {
        EXPECT_EQ(longLaunchDesignation(text), expected);
    }
}
