#include "records/mark.h"

#include "support/mark_fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

std::ptrdiff_t placeOf(const Mark& mark, const void* field)
{
    return static_cast<const char*>(field) - static_cast<const char*>(static_cast<const void*>(&mark));
}

// Longer than what a string holds within itself.
std::string longText(const std::string& name)
{
    return name + " of a mark that was filled by hand";
}

double numberOf(std::ptrdiff_t place)
{
    return static_cast<double>(place) + 0.25;
}

int integerOf(std::ptrdiff_t place)
{
    return static_cast<int>(place) - 1000;
}

// A mark that has no field like a new one.
Mark filledMark()
{
    Mark mark;
    mark.BlobCode = BlobCode::ic;
    mark.TypeBlob = TTypeBlob::prTriangle;
    mark.AuxFlag = true;
    mark.LinkList = std::vector<int>{3, 1, 2};
    for (const auto& field : markNumbers) {
        mark.*field.member = numberOf(field.place);
    }
    for (const auto& field : markIntegers) {
        mark.*field.member = integerOf(field.place);
    }
    for (const auto& field : markTexts) {
        mark.*field.member = longText(field.name);
    }
    return mark;
}

void expectFilled(const Mark& mark)
{
    EXPECT_EQ(BlobCode(mark.BlobCode), BlobCode::ic);
    EXPECT_EQ(TTypeBlob(mark.TypeBlob), TTypeBlob::prTriangle);
    EXPECT_TRUE(bool(mark.AuxFlag));
    EXPECT_EQ(std::vector<int>(mark.LinkList), (std::vector<int>{3, 1, 2}));
    for (const auto& field : markNumbers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(double(mark.*field.member), numberOf(field.place));
    }
    for (const auto& field : markIntegers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(int(mark.*field.member), integerOf(field.place));
    }
    for (const auto& field : markTexts) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(std::string(mark.*field.member), longText(field.name));
    }
}

void expectNew(const Mark& mark)
{
    EXPECT_EQ(static_cast<int>(BlobCode(mark.BlobCode)), 0);
    EXPECT_EQ(static_cast<int>(TTypeBlob(mark.TypeBlob)), 0);
    EXPECT_FALSE(bool(mark.AuxFlag));
    EXPECT_TRUE(std::vector<int>(mark.LinkList).empty());
    for (const auto& field : markNumbers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(double(mark.*field.member), field.value);
    }
    for (const auto& field : markIntegers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(int(mark.*field.member), field.value);
    }
    for (const auto& field : markTexts) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(std::string(mark.*field.member), field.value);
    }
}

Mark markAt(int date, double time)
{
    Mark mark;
    mark.date = date;
    mark.time = time;
    return mark;
}

bool isBefore(const Mark& a, const Mark& b)
{
    return SortTrackByTime(a, b);
}

} // namespace

TEST(Mark, NewMarkHasItsDefaults)
{
    expectNew(Mark{});
    expectNew(std::vector<Mark>(3)[2]);
    Mark mark = filledMark();
    mark = Mark{};
    expectNew(mark);
}

TEST(Mark, FieldsFollowEachOtherWithoutGaps)
{
    EXPECT_EQ(sizeof(Mark), 709U);
    const Mark mark;
    for (const auto& field : markNumbers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(placeOf(mark, &(mark.*field.member)), field.place);
    }
    for (const auto& field : markIntegers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(placeOf(mark, &(mark.*field.member)), field.place);
    }
    for (const auto& field : markTexts) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(placeOf(mark, &(mark.*field.member)), field.place);
    }
    EXPECT_EQ(offsetof(Mark, BlobCode), 0U);
    EXPECT_EQ(offsetof(Mark, TypeBlob), 44U);
    EXPECT_EQ(offsetof(Mark, AuxFlag), 48U);
    EXPECT_EQ(offsetof(Mark, LinkList), 77U);
    EXPECT_TRUE((std::is_same_v<decltype(Mark::BlobCode), BlobCode>));
    EXPECT_TRUE((std::is_same_v<decltype(Mark::TypeBlob), TTypeBlob>));
    EXPECT_TRUE((std::is_same_v<decltype(Mark::AuxFlag), bool>));
    EXPECT_TRUE((std::is_same_v<decltype(Mark::LinkList), std::vector<int>>));
}

TEST(Mark, IsAPlainValue)
{
    EXPECT_FALSE(std::is_polymorphic_v<Mark>);
    EXPECT_TRUE(std::is_aggregate_v<Mark>);
    EXPECT_TRUE(std::is_copy_constructible_v<Mark>);
    EXPECT_TRUE(std::is_copy_assignable_v<Mark>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Mark>) << "lists of marks grow by moving";
}

TEST(Mark, CopyOwnsItsTextsAndLinks)
{
    Mark original = filledMark();
    const Mark copy = original;
    original = Mark{};
    expectFilled(copy);

    Mark changed = copy;
    changed.LinkList = std::vector<int>{9};
    changed.filtr = "V";
    changed.RA = 1.0;
    expectFilled(copy);
}

TEST(Mark, AssignmentTakesEveryField)
{
    const Mark filled = filledMark();
    Mark copied;
    copied = filled;
    expectFilled(copied);
    expectFilled(filled);
    copied = Mark{};
    expectFilled(filled);
}

TEST(Mark, MoveTakesEveryField)
{
    Mark original = filledMark();
    Mark moved = std::move(original);
    expectFilled(moved);
    Mark assigned;
    assigned = std::move(moved);
    expectFilled(assigned);
}

TEST(Mark, ListOfMarksKeepsThemWhileItGrows)
{
    std::vector<Mark> marks;
    for (int i = 0; i < 20; ++i) {
        marks.push_back(filledMark());
        marks.emplace_back();
    }
    expectFilled(marks[0]);
    expectNew(marks[1]);
    expectFilled(marks[38]);
    expectNew(marks[39]);
}

TEST(Mark, EarlierTimeComesFirst)
{
    EXPECT_TRUE(isBefore(markAt(60000, 0.25), markAt(60000, 0.5)));
    EXPECT_FALSE(isBefore(markAt(60000, 0.5), markAt(60000, 0.25)));
    EXPECT_TRUE(isBefore(markAt(60000, 0.9), markAt(60001, 0.1)));
    EXPECT_FALSE(isBefore(markAt(60001, 0.1), markAt(60000, 0.9)));
}

TEST(Mark, OrderIsThatOfTheSumOfDayAndFraction)
{
    EXPECT_TRUE(isBefore(markAt(60002, 0.25), markAt(60000, 2.5)));
    EXPECT_FALSE(isBefore(markAt(60000, 2.5), markAt(60002, 0.25)));
    EXPECT_TRUE(isBefore(markAt(60001, -0.75), markAt(60000, 0.5)));
    EXPECT_FALSE(isBefore(markAt(60000, 1.5), markAt(60001, 0.5)));
    EXPECT_FALSE(isBefore(markAt(60001, 0.5), markAt(60000, 1.5)));
}

TEST(Mark, FractionsThatTheSumCannotTellApartAreEqual)
{
    const Mark a = markAt(60000, 0.5);
    const Mark b = markAt(60000, 0.5 + 1e-13);
    EXPECT_FALSE(isBefore(a, b));
    EXPECT_FALSE(isBefore(b, a));
    EXPECT_TRUE(isBefore(a, markAt(60000, 0.5 + 1e-9)));
}

TEST(Mark, OrderIsStrict)
{
    EXPECT_FALSE(isBefore(markAt(60000, 0.5), markAt(60000, 0.5)));
    EXPECT_FALSE(isBefore(Mark{}, Mark{}));
}

TEST(Mark, StableSortKeepsMarksOfEqualTimeInPlace)
{
    std::vector<Mark> marks = {markAt(60001, 0.5), markAt(60000, 0.5), markAt(60001, 0.5), markAt(60000, 0.5),
                               markAt(59999, 1.5)};
    for (std::size_t i = 0; i < marks.size(); ++i) {
        marks[i].iB = static_cast<int>(i);
    }
    std::stable_sort(marks.begin(), marks.end(), SortTrackByTime);
    std::vector<int> order;
    for (const Mark& mark : marks) {
        order.push_back(mark.iB);
    }
    EXPECT_EQ(order, (std::vector<int>{1, 3, 4, 0, 2}));
}
