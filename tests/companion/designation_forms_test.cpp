#include "receivers/designation_forms.h"

#include "receivers/designations.h"

#include <gtest/gtest.h>

#include <string>

using companion::Designation;
using companion::designationOf;
using companion::isTemporaryName;
using companion::packedColumns;

namespace {

struct Row
{
    const char* unpacked;
    const char* packed; ///< columns 1 to 12 without the blanks at both ends
};

constexpr Row numbers[] = {
    {"1", "00001"},         {"433", "00433"},          {"99999", "99999"},
    {"100000", "A0000"},    {"100345", "A0345"},       {"109999", "A9999"},
    {"110000", "B0000"},    {"203289", "K3289"},       {"359999", "Z9999"},
    {"360000", "a0000"},    {"360017", "a0017"},       {"619999", "z9999"},
    {"620000", "~0000"},    {"620061", "~000z"},       {"620062", "~0010"},
    {"623844", "~0100"},    {"3140113", "~AZaz"},      {"15396335", "~zzzz"},
    {"1P", "0001P"},        {"73P-C", "0073P      c"}, {"73P-AC", "0073P     ac"},
    {"3D", "0003D"},        {"1I", "0001I"},           {"Jupiter 13", "J013S"},
    {"Neptune 2", "N002S"}, {"Saturn 145", "S145S"},   {"Uranus 27", "U027S"},
};

constexpr Row provisionals[] = {
    {"1995 XA", "J95X00A"},       {"1995 XL1", "J95X01L"},     {"1995 FB13", "J95F13B"},
    {"1998 SQ108", "J98SA8Q"},    {"1998 SS162", "J98SG2S"},   {"2099 AZ193", "K99AJ3Z"},
    {"2008 AA360", "K08Aa0A"},    {"2007 TA418", "K07Tf8A"},   {"2024 YR4", "K24Y04R"},
    {"2025 DA12", "K25D12A"},     {"2025 CZ619", "K25Cz9Z"},   {"2026 CA620", "_QC0000"},
    {"2026 AB620", "_QA0001"},    {"2026 DY620", "_QD000N"},   {"2026 CZ6190", "_QC0aEM"},
    {"2026 CL591673", "_QCzzzz"}, {"1801 AA", "I01A00A"},      {"2040 P-L", "PLS2040"},
    {"3138 T-1", "T1S3138"},      {"4101 T-3", "T3S4101"},     {"C/2023 A3", "CK23A030"},
    {"C/1995 O1", "CJ95O010"},    {"P/1994 P1-B", "PJ94P01b"}, {"C/2088 A103", "CK88AA30"},
    {"X/1872 X1", "XI72X010"},    {"A/2017 U7", "AK17U070"},   {"P/1998 QP54", "PJ98Q54P"},
    {"P/2025 DA620", "P_PD0000"}, {"S/2020 J 1", "SK20J010"},  {"S/2004 S 12", "SK04S120"},
};

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(' ');
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

std::string packed(const std::string& name)
{
    const auto designation = designationOf(name);
    const auto columns = designation ? packedColumns(*designation) : std::nullopt;
    return columns ? trimmed(*columns) : "";
}

} // namespace

TEST(DesignationForms, NumbersArePackedAndUnpacked)
{
    for (const Row& row : numbers) {
        EXPECT_EQ(packed(row.unpacked), row.packed);
        ASSERT_TRUE(designationOf(row.packed)) << row.packed;
        EXPECT_EQ(designationOf(row.packed)->number, row.unpacked);
        EXPECT_EQ(designationOf(row.unpacked)->number, row.unpacked);
    }
}

TEST(DesignationForms, ProvisionalDesignationsArePackedAndUnpacked)
{
    for (const Row& row : provisionals) {
        EXPECT_EQ(packed(row.unpacked), row.packed);
        ASSERT_TRUE(designationOf(row.packed)) << row.packed;
        EXPECT_EQ(designationOf(row.packed)->provisional, row.unpacked);
    }
}

TEST(DesignationForms, WhatIsPackedIsWhereTheReceiverReadsIt)
{
    for (const auto& rows : {std::vector<Row>(std::begin(numbers), std::end(numbers)),
                             std::vector<Row>(std::begin(provisionals), std::end(provisionals))})
    {
        for (const Row& row : rows) {
            const auto columns = packedColumns(*designationOf(row.unpacked));
            ASSERT_TRUE(columns && columns->size() == 12) << row.unpacked;
            EXPECT_EQ(companion::verdictOnName(*columns).fault, companion::NameFault::none) << *columns;
        }
    }
}

TEST(DesignationForms, BlanksOfADesignationMayBeMissing)
{
    EXPECT_EQ(packed("2024YR4"), "K24Y04R");
    EXPECT_EQ(packed("C/2023A3"), "CK23A030");
    EXPECT_EQ(packed("2040P-L"), "PLS2040");
    EXPECT_EQ(packed("Jupiter13"), "J013S");
    EXPECT_EQ(packed("0073Pc"), "0073P      c"); // as readers leave the columns
    EXPECT_EQ(packed("00433I98D00Q"), "00433I98D00Q");
}

TEST(DesignationForms, NamesBesideADesignationAreLeftOut)
{
    EXPECT_EQ(packed("(433)"), "00433");
    EXPECT_EQ(packed("433 Eros"), "00433");
    EXPECT_EQ(packed("1P/Halley"), "0001P");
    EXPECT_EQ(packed("C/2023 A3 (Tsuchinshan-ATLAS)"), "CK23A030");
    EXPECT_EQ(packed("A904 OA"), "J04O00A");
    EXPECT_EQ(designationOf("A904 OA")->provisional, "1904 OA");
}

TEST(DesignationForms, WhatHasNoPackedFormIsNotPacked)
{
    for (const char* name : {"0", "15396336", "123456789", "2009 AA620", "2036 AA620", "C/2023 A620",
                             "P/1998 QP54-B", "3023 AA", "S/2020 J 620", "1799 AA", "2100 AA",
                             "2026 CM591673", "P/2009 QP620", "C/1743 X1", "C/2023 A3-AB", "S/1789 S 1"})
    {
        EXPECT_EQ(packed(name), "") << name;
    }
    EXPECT_EQ(packedColumns({"0", ""}), std::nullopt);
    EXPECT_EQ(packedColumns({"", "AST1000"}), std::nullopt);
}

TEST(DesignationForms, OtherNamesAreNoDesignations)
{
    for (const char* name : {"", "AST1000", "2023 IA", "2023 AI", "2023 A", "K23I00B", "C/2023", "73Q", "ABC",
                             "2016-033A", "Mars 1 x", "2040 P-M", "00433AST1000"})
    {
        EXPECT_FALSE(designationOf(name)) << name;
    }
}

TEST(DesignationForms, ANameOfAnyLengthIsLookedAt)
{
    EXPECT_FALSE(designationOf("433 Er" + std::string(1'000'000, 'o') + "s"));
    EXPECT_FALSE(designationOf(std::string(1'000'000, '1')));
}

TEST(DesignationForms, TemporaryNamesAreUpTo7LettersAndDigitsALetterFirst)
{
    for (const char* name : {"A", "AST1000", "x1", "P10vtDN"}) {
        EXPECT_TRUE(isTemporaryName(name)) << name;
    }
    for (const char* name : {"", "1AB", "AST10000", "SAT-01", "AB C", "A{", "\xC3\xA4"}) {
        EXPECT_FALSE(isTemporaryName(name)) << name;
    }
}
