// Reads that cannot succeed.

#pragma once

#include "results/result.h"

#include "support/broken_files.h"

#include <gtest/gtest.h>

#include <string>

/// Checks that `read(path)` throws code 7 with the path for a file that is there and cannot be read.
template <class Read>
void expectUnreadable(Read read)
{
    try {
        read(std::string(brokenFile));
        ADD_FAILURE() << "nothing was thrown";
    } catch (const tavelinUtils::TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), brokenFile);
        EXPECT_STREQ(failure.what(), "Error opening file");
    }
}
