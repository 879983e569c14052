// Texts of two and four bytes a character.

#include "reading/plain_text.h"

#include "findings/finding.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using companion::plainText;
using namespace std::string_literals;

const std::string markOfTwo = "\xFF\xFE"s;
const std::string markOfFour = "\xFF\xFE\0\0"s;

std::string textOf(const std::string& bytes)
{
    return readBy([](const std::string& path) { return plainText(path).text; }, bytes);
}

std::string brokenOf(const std::string& bytes)
{
    return readBy([](const std::string& path) { return plainText(path).broken; }, bytes);
}

} // namespace

TEST(PlainText, CharactersBeyondTheFirst65536)
{
    const std::string face = "\xF0\x9F\x98\x80"; // U+1F600
    EXPECT_EQ(textOf(markOfTwo + "\x3D\xD8\x00\xDE"s), face);
    EXPECT_EQ(textOf(markOfFour + "\x00\xF6\x01\x00"s), face);
}

TEST(PlainText, HalvesOfCharactersThatAreAlone)
{
    EXPECT_EQ(brokenOf(markOfTwo + "a\0\x3D\xD8"s), "broken UTF-16");       // at the end
    EXPECT_EQ(brokenOf(markOfTwo + "\x3D\xD8"s + "a\0"s), "broken UTF-16"); // before a letter
    EXPECT_EQ(brokenOf(markOfTwo + "\x00\xDE"s + "a\0"s), "broken UTF-16"); // the second half first
    EXPECT_EQ(brokenOf(markOfFour + "\x3D\xD8\x00\x00"s + "a\0\0\0"s), "broken UTF-32");
    EXPECT_EQ(brokenOf(markOfFour + "\x00\xDE\x00\x00"s), "broken UTF-32");
}

TEST(PlainText, AFileThatIsMissingIsWrongUsage)
{
    EXPECT_THROW(plainText("/missing/file"), companion::WrongUsage);
}
