#include "base/stored_index.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>
#include <vector>

using namespace tavelinUtils;

TEST(ElementAt, IsTheElementThatTheIndexNames)
{
    std::vector<int> list{7, 8, 9};
    for (int i = 0; i < 3; ++i) {
        ASSERT_NE(elementAt(list, i), nullptr);
        EXPECT_EQ(*elementAt(list, i), 7 + i);
    }
    *elementAt(list, 1) = 0;
    EXPECT_EQ(list, (std::vector<int>{7, 0, 9}));
}

TEST(ElementAt, IsNullWhereTheListHasNone)
{
    const std::vector<int> list{7, 8, 9};
    for (const int index : {-1, 3, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(elementAt(list, index), nullptr);
    }
    const std::vector<int> none;
    EXPECT_EQ(elementAt(none, 0), nullptr);
    static_assert(std::is_same_v<decltype(elementAt(list, 0)), const int*>);
}
