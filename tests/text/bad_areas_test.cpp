#include "text/bad_areas.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

/// The numbers of each rectangle in their order: X1, Y1, X2, Y2.
using Areas = std::vector<std::array<int, 4>>;

Areas areasOf(const std::string& text, bool& ok)
{
    Areas areas;
    for (const TBadAreaFrame& area : ParsBadAreaFrame(text, ok)) {
        areas.push_back({area.X1, area.Y1, area.X2, area.Y2});
    }
    return areas;
}

const std::string textOf142 =
    "These configuration file parameters are out of the range of acceptable values: ";

} // namespace

TEST(BadAreas, NewAreaIsAllZeros)
{
    const TBadAreaFrame area;
    EXPECT_EQ(area.X1, 0);
    EXPECT_EQ(area.Y1, 0);
    EXPECT_EQ(area.X2, 0);
    EXPECT_EQ(area.Y2, 0);
}

TEST(BadAreas, ARectangleIsTwoCornersInParentheses)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(1;2-30;40)", ok), (Areas{{1, 2, 30, 40}}));
    EXPECT_TRUE(ok);
}

TEST(BadAreas, RectanglesStandSideBySideAndKeepTheirOrder)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(5;6-70;80)(1;2-30;40)(0;0-4095;4095)", ok),
              (Areas{{5, 6, 70, 80}, {1, 2, 30, 40}, {0, 0, 4095, 4095}}));
    EXPECT_TRUE(ok);
}

TEST(BadAreas, CornersStandAsTheyAreWritten)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(30;40-1;2)", ok), (Areas{{30, 40, 1, 2}}));
    EXPECT_TRUE(ok);
}

TEST(BadAreas, EmptyTextHasNoRectanglesAndIsRight)
{
    bool ok = true;
    EXPECT_EQ(areasOf("", ok), Areas{});
    EXPECT_TRUE(ok);
}

TEST(BadAreas, TheFlagIsNeverSetOnlyCleared)
{
    bool ok = false;
    EXPECT_EQ(areasOf("(1;2-30;40)", ok), (Areas{{1, 2, 30, 40}}));
    EXPECT_FALSE(ok);
    EXPECT_EQ(areasOf("", ok), Areas{});
    EXPECT_FALSE(ok);
}

TEST(BadAreas, APartOfAnotherShapeIsLeftOutAndClearsTheFlag)
{
    const struct
    {
        const char* text;
        const char* shape;
    } rows[] = {
        {"(1;2)", "one corner"},
        {"(1;2-3;4-5;6)", "three corners"},
        {"(1;2-3)", "second corner of one number"},
        {"(1-3;4)", "first corner of one number"},
        {"(1;2;3-4;5)", "first corner of three numbers"},
        {"(1;2-3;4;5)", "second corner of three numbers"},
        {"(a;2-3;4)", "no number in the first place"},
        {"(1;b-3;4)", "no number in the second place"},
        {"(1;2-c;4)", "no number in the third place"},
        {"(1;2-3;d)", "no number in the fourth place"},
        {"(1;2-3;4x)", "letter behind the last number"},
        {"( 1;2-3;4)", "blank before the first number"},
        {"(1; 2-3;4)", "blank before the second number"},
        {"(1;2-3;4 )", "blank behind the last number"},
        {"(;2-3;4)", "empty first number"},
        {"(1;;2-3;4)", "empty number within the first corner"},
        {"(1;2-3;;4)", "empty number within the second corner"},
        {"(1;2--3;4)", "empty corner"},
        {"(1;2-;4)", "empty third number"},
        {"(1,2-3,4)", "comma within the corners"},
        {"(1;2:3;4)", "colon between the corners"},
        {"(12)", "one number"},
        {"(x)", "one letter"},
        {"nonsense", "word without parentheses"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shape);
        bool ok = true;
        EXPECT_EQ(areasOf(row.text, ok), Areas{});
        EXPECT_FALSE(ok);
    }
}

TEST(BadAreas, NegativeCoordinateReadsAsOneCornerTooMany)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(-1;2-3;4)", ok), Areas{});
    EXPECT_FALSE(ok);
}

TEST(BadAreas, GoodRectanglesBesideABadOneStay)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(1;2-3;4)(bad)(5;6-7;8)", ok), (Areas{{1, 2, 3, 4}, {5, 6, 7, 8}}));
    EXPECT_FALSE(ok);
}

TEST(BadAreas, ABlankBetweenRectanglesIsAPartOfAnotherShape)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(1;2-3;4) (5;6-7;8)", ok), (Areas{{1, 2, 3, 4}, {5, 6, 7, 8}}));
    EXPECT_FALSE(ok);
}

TEST(BadAreas, NumbersOfNumberCharactersAreReadAsIntegers)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(+1;002-3.9;4,5)", ok), (Areas{{1, 2, 3, 4}}));
    EXPECT_TRUE(ok);
}

TEST(BadAreas, NumbersBeyondTheRangeAreCutTo32Bits)
{
    bool ok = true;
    EXPECT_EQ(areasOf("(4294967297;2147483648-99999999999999999999;2147483647)", ok),
              (Areas{{1, -2147483647 - 1, -1, 2147483647}}));
    EXPECT_TRUE(ok);
}

TEST(BadAreasCheck, RightSettingLeavesTheResultAsItWas)
{
    for (const char* text : {"", "(1;2-30;40)", "(1;2-30;40)(5;6-70;80)"}) {
        SCOPED_TRACE(text);
        TFuncRes result{7, "comment", "description", {"detail"}};
        CheckBadAreaFrame("AreaWithBadImages", text, result);
        EXPECT_EQ(result.Code, 7);
        EXPECT_EQ(result.Comment, "comment");
        EXPECT_EQ(result.Description, "description");
        EXPECT_EQ(result.Details, std::vector<std::string>{"detail"});
    }
}

TEST(BadAreasCheck, WrongSettingSetsCode142WithItsNameBehindTheText)
{
    TFuncRes result;
    CheckBadAreaFrame("AreaWithBadImages", "(1;2-30)", result);
    EXPECT_EQ(result.Code, 142);
    EXPECT_EQ(result.Comment, textOf142 + "AreaWithBadImages");
}

TEST(BadAreasCheck, OneWrongPartAmongRightOnesIsEnough)
{
    TFuncRes result;
    CheckBadAreaFrame("DoNotSelectStarsOnFrame", "(1;2-3;4)(bad)(5;6-7;8)", result);
    EXPECT_EQ(result.Code, 142);
    EXPECT_EQ(result.Comment, textOf142 + "DoNotSelectStarsOnFrame");
}

TEST(BadAreasCheck, WrongSettingLeavesDescriptionAndDetails)
{
    TFuncRes result{7, "comment", "description", {"detail"}};
    CheckBadAreaFrame("AreaWithBadImages", "bad", result);
    EXPECT_EQ(result.Code, 142);
    EXPECT_EQ(result.Comment, textOf142 + "AreaWithBadImages");
    EXPECT_EQ(result.Description, "description");
    EXPECT_EQ(result.Details, std::vector<std::string>{"detail"});
}

TEST(BadAreasCheck, SecondWrongSettingTakesThePlaceOfTheFirst)
{
    TFuncRes result;
    CheckBadAreaFrame("DoNotSelectStarsOnFrame", "bad", result);
    CheckBadAreaFrame("AreaWithBadImages", "bad", result);
    EXPECT_EQ(result.Code, 142);
    EXPECT_EQ(result.Comment, textOf142 + "AreaWithBadImages");
}
