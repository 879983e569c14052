#include "records/pixel.h"

#include "support/record_image.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace tavelinUtils;

TEST(Pixel, NewPixelsAreZero)
{
    const pixel whole;
    EXPECT_EQ(whole.X, 0);
    EXPECT_EQ(whole.Y, 0);
    EXPECT_EQ(whole.C, 0.0);
    EXPECT_EQ(whole.A, 0.0);

    const pixelD fractional;
    EXPECT_EQ(fractional.X, 0.0);
    EXPECT_EQ(fractional.Y, 0.0);
    EXPECT_EQ(fractional.C, 0.0);
    EXPECT_EQ(fractional.A, 0.0);

    const pixelAper aperture;
    EXPECT_EQ(aperture.X, 0);
    EXPECT_EQ(aperture.Y, 0);
}

TEST(Pixel, HasColumnRowValueAndKeyInOrder)
{
    const pixel whole{-3, 4, 5.5, -6.25};
    EXPECT_EQ(whole.X, -3);
    EXPECT_EQ(whole.Y, 4);
    EXPECT_EQ(whole.C, 5.5);
    EXPECT_EQ(whole.A, -6.25);

    const pixelD fractional{-3.5, 4.75, 5.5, -6.25};
    EXPECT_EQ(fractional.X, -3.5);
    EXPECT_EQ(fractional.Y, 4.75);
    EXPECT_EQ(fractional.C, 5.5);
    EXPECT_EQ(fractional.A, -6.25);

    const pixelAper aperture{-3, 4};
    EXPECT_EQ(aperture.X, -3);
    EXPECT_EQ(aperture.Y, 4);
}

TEST(Pixel, ColumnAndRowAreTheFirstEightBytes)
{
    expectOwnBytes(RecordField<pixel, int>{"X", &pixel::X, 0});
    expectOwnBytes(RecordField<pixel, int>{"Y", &pixel::Y, 4});
    expectOwnBytes(RecordField<pixel, double>{"C", &pixel::C, 8});
    expectOwnBytes(RecordField<pixel, double>{"A", &pixel::A, 16});
    EXPECT_EQ(sizeof(pixel), 24U);
}

TEST(Pixel, ColumnAndRowHaveFractionsOnlyBetweenPixels)
{
    EXPECT_TRUE((std::is_same_v<decltype(pixel::X), int>));
    EXPECT_TRUE((std::is_same_v<decltype(pixel::Y), int>));
    EXPECT_TRUE((std::is_same_v<decltype(pixelD::X), double>));
    EXPECT_TRUE((std::is_same_v<decltype(pixelD::Y), double>));
    EXPECT_TRUE((std::is_same_v<decltype(pixelAper::X), int>));
    EXPECT_TRUE((std::is_same_v<decltype(pixelAper::Y), int>));
}

TEST(Pixel, BothNamespacesNameOneRecord)
{
    EXPECT_TRUE((std::is_same_v<tavelinMath::pixel, tavelinUtils::pixel>));
    EXPECT_TRUE((std::is_same_v<tavelinMath::pixelD, tavelinUtils::pixelD>));
}
