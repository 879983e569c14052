#include "running/content_hash.h"

#include "support/broken_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

using companion::contentHash;
using companion::fileHash;

TEST(ContentHash, IsThatOfOtherPrograms)
{
    EXPECT_EQ(contentHash(""), "99aa06d3014798d86001c324468d497f");
    EXPECT_NE(contentHash("a"), contentHash("b"));
}

TEST(ContentHash, OfAFileIsThatOfItsBytes)
{
    const TemporaryFolder folder;
    for (const unsigned size : {0U, 1U, 240U, 241U, 262'144U, 262'145U, 1'000'000U}) {
        std::string bytes;
        for (unsigned i = 0; i < size; ++i) {
            bytes += static_cast<char>(i % 251);
        }
        makeFile(folder / "file", bytes);
        EXPECT_EQ(fileHash(folder / "file"), contentHash(bytes)) << size;
    }
    EXPECT_EQ(fileHash(folder / "missing"), std::nullopt);
    EXPECT_EQ(fileHash(folder.path()), std::nullopt);
}

TEST(ContentHash, OfAFileThatCannotBeReadIsNone)
{
    EXPECT_EQ(fileHash(brokenFile), std::nullopt);
}

} // namespace
