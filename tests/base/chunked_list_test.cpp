#include "base/chunked_list.h"

#include <gtest/gtest.h>

#include <cstddef>

using tavelinUtils::ChunkedList;

TEST(ChunkedList, EntriesStayWhereTheyAreAsItGrows)
{
    ChunkedList<std::size_t> list;
    EXPECT_TRUE(list.empty());
    list.add(7);
    const std::size_t* const first = &list[0];
    for (std::size_t i = 1; i < 1000000; ++i) {
        list.add(i);
    }
    EXPECT_EQ(list.size(), 1000000U);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(&list[0], first);
    EXPECT_EQ(list[0], 7U);
    EXPECT_EQ(list[16383], 16383U);
    EXPECT_EQ(list[16384], 16384U);
    EXPECT_EQ(list[999999], 999999U);
}
