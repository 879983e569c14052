// Writes that cannot succeed.

#pragma once

#include "results/result.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

/// Calls `work(path)` for paths that no writer can write: a folder, a name in a folder that is missing, and
/// a device that takes the file's opening and none of its bytes.
template <class Work>
void forUnwritablePaths(Work work)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path : {folder / "folder", folder / "missing/a.txt", std::string("/dev/full")}) {
        SCOPED_TRACE(path);
        work(path);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder / "folder"));
    EXPECT_FALSE(exists(folder / "missing"));
}

/// Checks that `write(path)` throws code 7 with the path, for each path that cannot be written.
template <class Write>
void expectCode7(Write write)
{
    forUnwritablePaths([&](const std::string& path) {
        try {
            write(path);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const tavelinUtils::TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_EQ(failure.getComment(), path);
            EXPECT_STREQ(failure.what(), "Error opening file");
        }
    });
}
