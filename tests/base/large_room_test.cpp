#include "base/large_room.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>

using namespace tavelinUtils;

// The sanitizers end a program that asks for so much.
#if !defined(VOMAR_SANITIZED)
TEST(LargeRoom, MoreThanThereIsIsRefused)
{
    EXPECT_THROW(plainRoom(std::numeric_limits<std::ptrdiff_t>::max()), std::bad_alloc);
    EXPECT_THROW(largeRoom(std::numeric_limits<std::ptrdiff_t>::max() / 2), std::bad_alloc);
}
#endif

TEST(LargeRoom, BeginsAtALargePage)
{
    const Room room = largeRoom(1);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(room.get()) % (std::uintptr_t{1} << 21), 0U);
}
