// The bytes of a record that is its own image, without padding.

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

/// A field and its first byte in the record.
template <class Record, class Value>
struct RecordField
{
    const char* name;
    Value Record::*member;
    std::size_t place;
};

template <class Record>
std::string imageOf(const Record& record)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    std::string bytes(sizeof(Record), '\0');
    std::memcpy(bytes.data(), &record, sizeof(Record));
    return bytes;
}

/// Checks that setting the field changes the bytes at its place and no others of a new record, all of zeros.
template <class Record, class Value>
void expectOwnBytes(const RecordField<Record, Value>& field)
{
    SCOPED_TRACE(field.name);
    const std::string pattern = std::string("\1\2\3\4\5\6\7\10").substr(0, sizeof(Value));
    Value value{};
    std::memcpy(&value, pattern.data(), sizeof(Value));
    Record record;
    record.*field.member = value;
    ASSERT_LE(field.place + sizeof(Value), sizeof(Record));
    EXPECT_EQ(imageOf(record),
              std::string(sizeof(Record), '\0').replace(field.place, sizeof(Value), pattern));
}

/// Checks two records byte by byte; a failure names the first byte that differs.
template <class Record>
void expectSameImage(const Record& record, const Record& expected)
{
    const std::string a = imageOf(record);
    const std::string b = imageOf(expected);
    std::size_t place = 0;
    while (place < a.size() && a[place] == b[place]) {
        ++place;
    }
    EXPECT_EQ(place, a.size()) << "the records differ in the byte of that number";
}
