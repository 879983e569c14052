#include "records/element_set.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

TEST(ElementSet, HasThreeLinesThatAreEmptyAtFirst)
{
    const TTLEstr none;
    EXPECT_EQ(none.Line0, "");
    EXPECT_EQ(none.Line1, "");
    EXPECT_EQ(none.Line2, "");

    const TTLEstr set{"ISS (ZARYA)", "1 25544U", "2 25544"};
    EXPECT_EQ(set.Line0, "ISS (ZARYA)");
    EXPECT_EQ(set.Line1, "1 25544U");
    EXPECT_EQ(set.Line2, "2 25544");
}

TEST(ElementSet, CopyOwnsItsLines)
{
    TTLEstr original{"0 NAME THAT IS LONGER THAN A SHORT STRING", "1 25544U", "2 25544"};
    const TTLEstr copy = original;
    original = TTLEstr{};
    EXPECT_EQ(copy.Line0, "0 NAME THAT IS LONGER THAN A SHORT STRING");
    EXPECT_EQ(copy.Line1, "1 25544U");
    EXPECT_EQ(copy.Line2, "2 25544");
}

TEST(Plate, IsZeroAndEmptyAtFirst)
{
    const TPlateRec plate;
    EXPECT_EQ(plate.Value1, 0.0);
    EXPECT_EQ(plate.Value2, 0.0);
    EXPECT_EQ(plate.Value3, 0.0);
    EXPECT_EQ(plate.Value4, 0.0);
    EXPECT_EQ(plate.Int1, 0);
    EXPECT_EQ(plate.Int2, 0);
    EXPECT_TRUE(plate.List1.empty());
    EXPECT_TRUE(plate.List2.empty());
}

TEST(Plate, HasItsLayout)
{
    EXPECT_EQ(sizeof(TPlateRec), 88U);
    EXPECT_EQ(offsetof(TPlateRec, Value1), 0U);
    EXPECT_EQ(offsetof(TPlateRec, Value2), 8U);
    EXPECT_EQ(offsetof(TPlateRec, Value3), 16U);
    EXPECT_EQ(offsetof(TPlateRec, Value4), 24U);
    EXPECT_EQ(offsetof(TPlateRec, Int1), 32U);
    EXPECT_EQ(offsetof(TPlateRec, Int2), 36U);
    EXPECT_EQ(offsetof(TPlateRec, List1), 40U);
    EXPECT_EQ(offsetof(TPlateRec, List2), 64U);
}

TEST(Plate, CopyOwnsItsLists)
{
    TPlateRec original{1.5, 2.5, 3.5, 4.5, 5, 6, {7.5, 8.5}, {9.5, 10.5}};
    const TPlateRec copy = original;
    original.List1[0] = 0.0;
    original = TPlateRec{};
    EXPECT_EQ(copy.Value1, 1.5);
    EXPECT_EQ(copy.Value2, 2.5);
    EXPECT_EQ(copy.Value3, 3.5);
    EXPECT_EQ(copy.Value4, 4.5);
    EXPECT_EQ(copy.Int1, 5);
    EXPECT_EQ(copy.Int2, 6);
    EXPECT_EQ(copy.List1, (std::vector<double>{7.5, 8.5}));
    EXPECT_EQ(copy.List2, (std::vector<double>{9.5, 10.5}));
}

TEST(NestedLists, ValuesAreFollowedByTexts)
{
    const TKMTN none;
    EXPECT_TRUE(none.List.empty());
    EXPECT_TRUE(none.Texts.empty());
    EXPECT_EQ(offsetof(TKMTN, List), 0U);
    EXPECT_EQ(offsetof(TKMTN, Texts), 24U);
    EXPECT_EQ(sizeof(TKMTN), 48U);

    TKMTN original{{1.5}, {"a", "b"}};
    const TKMTN copy = original;
    original = TKMTN{};
    EXPECT_EQ(copy.List, (std::vector<double>{1.5}));
    EXPECT_EQ(copy.Texts, (std::vector<std::string>{"a", "b"}));
}

TEST(NestedLists, FormsAreThreeLists)
{
    const TForms123 none;
    EXPECT_TRUE(none.Form1.empty());
    EXPECT_TRUE(none.Form2.empty());
    EXPECT_TRUE(none.Form3.empty());
    EXPECT_EQ(offsetof(TForms123, Form1), 0U);
    EXPECT_EQ(offsetof(TForms123, Form2), 24U);
    EXPECT_EQ(offsetof(TForms123, Form3), 48U);
    EXPECT_EQ(sizeof(TForms123), 72U);

    TForms123 original{{1.0}, {2.0, 2.5}, {3.0, 3.5, 3.75}};
    const TForms123 copy = original;
    original = TForms123{};
    EXPECT_EQ(copy.Form1, (std::vector<double>{1.0}));
    EXPECT_EQ(copy.Form2, (std::vector<double>{2.0, 2.5}));
    EXPECT_EQ(copy.Form3, (std::vector<double>{3.0, 3.5, 3.75}));
}
