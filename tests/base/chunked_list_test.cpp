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
    for (std::size_t i = 1; i < 100000; ++i) {
        list.add(i);
    }
    EXPECT_EQ(list.size(), 100000U);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(&list[0], first);
    EXPECT_EQ(list[0], 7U);
    EXPECT_EQ(list[16383], 16383U);
    EXPECT_EQ(list[16384], 16384U);
    EXPECT_EQ(list[99999], 99999U);
}

TEST(ChunkedList, EntriesAfterTheForgottenStay)
{
    ChunkedList<std::size_t> list;
    for (std::size_t i = 0; i < 50000; ++i) {
        list.add(i);
    }
    list.forgetBefore(40000);
    EXPECT_EQ(list[40000], 40000U);
    EXPECT_EQ(list[49999], 49999U);
    list.add(50000);
    EXPECT_EQ(list[50000], 50000U);
}
