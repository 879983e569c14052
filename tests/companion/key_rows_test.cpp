#include "schema/key_rows.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string_view>

namespace {

struct Row
{
    std::string_view key;
    int value;
};
constexpr Row rows[] = {{"a", 1}, {"b", 2}, {"b", 3}};

TEST(KeyRows, TheFirstRowOfAKeyIsItsOwn)
{
    EXPECT_EQ(companion::rowOfKey(rows, &Row::key, "b").value, 2);
}

TEST(KeyRows, AKeyWithoutARowIsAFaultOfTheProgram)
{
    EXPECT_THROW(companion::rowOfKey(rows, &Row::key, "c"), std::logic_error);
}

} // namespace
