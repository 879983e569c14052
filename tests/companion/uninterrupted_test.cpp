#include "running/uninterrupted.h"

#include <gtest/gtest.h>

namespace {

using companion::uninterrupted;

// A call that fails with an error so many times, and then gives 7.
auto failing(int error, int& times)
{
    return [error, &times] {
        errno = error;
        return times-- > 0 ? -1 : 7;
    };
}

TEST(Uninterrupted, CallIsMadeUntilNoSignalComes)
{
    int times = 3;
    EXPECT_EQ(uninterrupted(failing(EINTR, times)), 7);
}

TEST(Uninterrupted, OtherFailureIsGiven)
{
    int times = 3;
    EXPECT_EQ(uninterrupted(failing(EIO, times)), -1);
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(times, 2);
}

} // namespace
