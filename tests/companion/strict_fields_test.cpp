// What a person would accept in a field, and what is said of the rest.

#include "reading/strict_fields.h"

#include "companion/lint_outputs.h"
#include "reading/sexagesimal_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using companion::AngleKind;
using companion::FieldForm;
using companion::LintOutput;
using companion::Stretch;
using testing::ElementsAre;
using testing::IsEmpty;

using Codes = std::vector<std::string>;

// What a check says of a line that is one field.
Codes codesOf(const std::string& line, const std::function<void(const Stretch&, LintOutput&)>& check)
{
    const auto told = lintOutputs::toldBy([&](LintOutput& out) {
        out.begin({1, line, line});
        check({1, line.size(), "field"}, out);
    });
    Codes codes;
    for (const companion::Finding& each : told) {
        codes.push_back(each.code.text());
    }
    return codes;
}

Codes codesOf(FieldForm form, const std::string& text)
{
    return codesOf(text, [&](const Stretch&, LintOutput& out) {
        companion::checkField({"field", form}, text, text, out);
    });
}

constexpr double degrees = 1.5; // what the reader made of a text

Codes codesOfAngle(AngleKind kind, const std::string& text, double read = degrees)
{
    return codesOf(text, [&](const Stretch& stretch, LintOutput& out) {
        companion::checkSexagesimal(kind, stretch, text, ':', read, out);
    });
}

Codes codesOfDegrees(AngleKind kind, const std::string& text, double read)
{
    return codesOf(text, [&](const Stretch& stretch, LintOutput& out) {
        companion::checkDegrees(kind, stretch, text, read, out);
    });
}

Codes codesOfDay(const std::string& year, const std::string& month, const std::string& day)
{
    const std::string text = year + '-' + month + '-' + day;
    return codesOf(text, [&](const Stretch& stretch, LintOutput& out) {
        companion::checkDay(stretch, text, {year, month, day}, out);
    });
}

} // namespace

TEST(StrictFields, NumbersOfAllLengths)
{
    EXPECT_THAT(codesOf(FieldForm::text, "anything"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::number, "-1.5"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::number, "x"), ElementsAre("V122"));
    EXPECT_THAT(codesOf(FieldForm::number, "0." + std::string(400, '1')), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::number, std::string(400, '1')), ElementsAre("V125"));
    EXPECT_THAT(codesOf(FieldForm::magnitude, "0." + std::string(400, '0') + '1'), ElementsAre("V130"));
    EXPECT_THAT(codesOf(FieldForm::magnitude, "-30.5"), ElementsAre("V130"));
    EXPECT_THAT(codesOf(FieldForm::magnitude, "35.5"), ElementsAre("V130"));
}

TEST(StrictFields, IntegersAreWholeAndOf32Bits)
{
    EXPECT_THAT(codesOf(FieldForm::integer, "2147483647"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::integer, "2147483648"), ElementsAre("V123"));
    EXPECT_THAT(codesOf(FieldForm::integer, "15.0"), ElementsAre("V123"));
    EXPECT_THAT(codesOf(FieldForm::integer, "15x"), ElementsAre("V123"));
    EXPECT_THAT(codesOf(FieldForm::integer, "x"), ElementsAre("V122"));
}

TEST(StrictFields, PackedFields)
{
    EXPECT_FALSE(companion::isPlain(FieldForm::packedTime, "12345")); // its reader refuses the line
    EXPECT_THAT(codesOf(FieldForm::packedRA, "23595999"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::packedRA, "24000000"), ElementsAre("V128"));
    EXPECT_THAT(codesOf(FieldForm::packedRA, "24000001"), ElementsAre("V129"));
    EXPECT_THAT(codesOf(FieldForm::packedDate, "310425"), ElementsAre("V127"));
}

TEST(StrictFields, Dates)
{
    EXPECT_THAT(codesOf(FieldForm::date, "2025-02-23"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::date, "2025-02-30"), ElementsAre("V127"));
    EXPECT_THAT(codesOf(FieldForm::date, "2025-02-00"), ElementsAre("V127"));
    EXPECT_THAT(codesOf(FieldForm::date, "2025-00-23"), ElementsAre("V126"));
    EXPECT_THAT(codesOf(FieldForm::date, "2025-1x-23"), ElementsAre("V123"));
    EXPECT_THAT(codesOf(FieldForm::date, "1858-11-017"), ElementsAre("V126")); // the day for no date
}

TEST(StrictFields, Times)
{
    EXPECT_THAT(codesOf(FieldForm::time, "12:59:59.5"), IsEmpty());
    EXPECT_THAT(codesOf(FieldForm::time, "12:60:00"), ElementsAre("V128"));
}

TEST(StrictFields, AnglesOfTwoOrThreeParts)
{
    EXPECT_THAT(codesOfAngle(AngleKind::declination, "+1:30:00"), IsEmpty());
    EXPECT_THAT(codesOfAngle(AngleKind::declination, "1:30.0"), IsEmpty());
    for (const char* text :
         {"12", "1:30:0:0", "x:30", "1.5:30", "1:30:x", "-1:30", "1:15,5:x,5", "1:30,", "1:3,x", ",5", "x,5"})
    {
        EXPECT_THAT(codesOfAngle(AngleKind::declination, text), ElementsAre("V123")) << text;
    }
    EXPECT_THAT(codesOfAngle(AngleKind::declination, "1:30,5"), ElementsAre("V124"));
    EXPECT_THAT(codesOfAngle(AngleKind::declination, "", 0.0), ElementsAre("V122"));
    EXPECT_THAT(codesOfAngle(AngleKind::declination, "inf", std::numeric_limits<double>::infinity()),
                ElementsAre("V125"));
}

TEST(StrictFields, RangesOfAngles)
{
    EXPECT_THAT(codesOfDegrees(AngleKind::rightAscension, "360", 360), IsEmpty());
    EXPECT_THAT(codesOfDegrees(AngleKind::rightAscension, "-10", -10), ElementsAre("V129"));
    EXPECT_THAT(codesOfDegrees(AngleKind::rightAscension, "361", 361), ElementsAre("V129"));
    EXPECT_THAT(codesOfDegrees(AngleKind::declination, "-90.5", -90.5), ElementsAre("V121"));
    EXPECT_THAT(codesOfDegrees(AngleKind::declination, "5x", 5), ElementsAre("V123"));
}

TEST(StrictFields, DaysOfMonths)
{
    EXPECT_THAT(codesOfDay("2024", "02", "29"), IsEmpty());
    EXPECT_THAT(codesOfDay("2025", "02", "29"), ElementsAre("V127"));
    EXPECT_THAT(codesOfDay("2025", "00", "29"), ElementsAre("V126"));
    EXPECT_THAT(codesOfDay("2025", "13", "29"), ElementsAre("V126"));
    EXPECT_THAT(codesOfDay("2025", "02", "x"), ElementsAre("V126"));
    EXPECT_THAT(codesOfDay("3000000", "01", "00"), ElementsAre("V127")); // beyond the calendar
}
