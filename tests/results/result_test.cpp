#include "results/result.h"

#include "results/code_table.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

void expectRecord(const TFuncRes& result, int code, const std::string& comment,
                  const std::string& description, const Texts& details)
{
    EXPECT_EQ(result.Code, code);
    EXPECT_EQ(result.Comment, comment);
    EXPECT_EQ(result.Description, description);
    EXPECT_EQ(result.Details, details);
}

// Long enough to be kept outside of the text's own bytes.
const std::string longText = "a text that is longer than what a small string keeps inside of itself";

} // namespace

TEST(FuncRes, NewRecordSaysThatAllIsWell)
{
    expectRecord(TFuncRes(), 0, "OK", "OK", {});
    expectRecord(TFuncRes{}, 0, "OK", "OK", {});
}

TEST(FuncRes, FieldsStandInTheOrderOfTheRecord)
{
    const TFuncRes result{7, "comment", "description", {"one", "two"}};
    const auto& [code, comment, description, details] = result;
    EXPECT_EQ(code, 7);
    EXPECT_EQ(comment, "comment");
    EXPECT_EQ(description, "description");
    EXPECT_EQ(details, (Texts{"one", "two"}));
    static_assert(std::is_same_v<decltype(TFuncRes::Code), int>);
}

TEST(FuncRes, CopyOwnsAllThatItHolds)
{
    TFuncRes first{-3, longText, longText, {longText}};
    const TFuncRes copy = first;
    first.Code = 0;
    first.Comment[0] = '#';
    first.Description.clear();
    first.Details[0] = "";
    expectRecord(copy, -3, longText, longText, {longText});
    first = copy;
    expectRecord(first, -3, longText, longText, {longText});
}

TEST(FuncRes, MovesIntoAnotherRecord)
{
    TFuncRes first{12, longText, "b", {longText, ""}};
    TFuncRes second;
    second = std::move(first);
    expectRecord(second, 12, longText, "b", {longText, ""});
}

TEST(FuncRes, AnyCodeStandsBesideAnyComment)
{
    TFuncRes result;
    result.Code = -2;
    result.Comment = "set by hand";
    expectRecord(result, -2, "set by hand", "OK", {});
}

TEST(TavelinExceptionRecord, HoldsMessageCommentAndCode)
{
    const TavelinException failure("message", "comment", 7);
    EXPECT_STREQ(failure.what(), "message");
    EXPECT_EQ(failure.getComment(), "comment");
    EXPECT_EQ(failure.getCode(), 7);
}

TEST(TavelinExceptionRecord, TakesCommentAsMessageAndDescriptionAsComment)
{
    const TFuncRes result = GetErrCode(7, "in/night.mea");
    const TavelinException failure(result.Comment, result.Description, result.Code);
    EXPECT_STREQ(failure.what(), "Error opening file");
    EXPECT_EQ(failure.getComment(), "in/night.mea");
    EXPECT_EQ(failure.getCode(), 7);
}

TEST(TavelinExceptionRecord, CopiesItsTexts)
{
    std::string message = longText;
    std::string comment = longText;
    const TavelinException failure(message, comment, -1);
    message[0] = '#';
    comment[0] = '#';
    EXPECT_EQ(failure.what(), longText);
    EXPECT_EQ(failure.getComment(), longText);
    std::string returned = failure.getComment();
    returned[0] = '#';
    EXPECT_EQ(failure.getComment(), longText);
}

TEST(TavelinExceptionRecord, EmptyTextsStayEmpty)
{
    const TavelinException failure("", "", 0);
    EXPECT_STREQ(failure.what(), "");
    EXPECT_EQ(failure.getComment(), "");
    EXPECT_EQ(failure.getCode(), 0);
}

TEST(TavelinExceptionRecord, IsCaughtAsAStandardException)
{
    static_assert(std::is_base_of_v<std::exception, TavelinException>);
    try {
        throw TavelinException(longText, "comment", 5);
    } catch (const std::exception& failure) {
        EXPECT_EQ(failure.what(), longText);
        const auto* own = dynamic_cast<const TavelinException*>(&failure);
        ASSERT_NE(own, nullptr);
        EXPECT_EQ(own->getComment(), "comment");
        EXPECT_EQ(own->getCode(), 5);
    }
}

TEST(TavelinExceptionRecord, HasTheLayoutThatOtherModulesCountOn)
{
    static_assert(sizeof(TavelinException) == 80);
    static_assert(sizeof(std::string) == 32);
    const TavelinException failure("message", "comment", 7);
    // The code follows the virtual table, then come message and comment.
    const char* bytes = reinterpret_cast<const char*>(&failure);
    EXPECT_EQ(*reinterpret_cast<const int*>(bytes + 8), 7);
    EXPECT_EQ(*reinterpret_cast<const std::string*>(bytes + 16), "message");
    EXPECT_EQ(*reinterpret_cast<const std::string*>(bytes + 48), "comment");
}
