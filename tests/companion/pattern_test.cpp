#include "task/pattern.h"

#include "findings/finding.h"
#include "support/folders.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;
using companion::FieldValues;
using companion::Pattern;
using companion::WrongUsage;
using testing::ElementsAre;
using testing::HasSubstr;

// What a field of a pattern is in a path; "no match" where the path does not fit.
std::string valueIn(const std::string& pattern, const std::string& path, const std::string& field = "a")
{
    const auto values = Pattern(pattern).match(path);
    return values ? values->at(field) : "no match";
}

bool fits(const std::string& pattern, const std::string& path)
{
    return Pattern(pattern).match(path).has_value();
}

std::string refusalOf(const std::string& pattern)
{
    try {
        const Pattern taken(pattern);
    } catch (const WrongUsage& wrong) {
        return wrong.why.text;
    }
    return "";
}

TEST(Pattern, FieldIsTheShortestThatFits)
{
    EXPECT_EQ(valueIn("{a}_*.mea", "T9_b_c.mea"), "T9");
    EXPECT_EQ(valueIn("{a}_{b}.mea", "T9_b_c.mea", "b"), "b_c");
    EXPECT_EQ(valueIn("*{a}.mea", "T9.mea"), "T9");
    EXPECT_EQ(valueIn("{a}{b}", "xyz"), "x");
    EXPECT_EQ(valueIn("{a}{b}", "xyz", "b"), "yz");
}

TEST(Pattern, FieldIsOneByteAtLeastAndHasNoSlash)
{
    EXPECT_FALSE(fits("{a}.mea", ".mea"));
    EXPECT_FALSE(fits("{a}.mea", "x/y.mea"));
    EXPECT_EQ(valueIn("x/{a}", "x/\xE9 \n"), "\xE9 \n");
}

TEST(Pattern, FieldThatComesAgainIsTheSameBytes)
{
    EXPECT_EQ(valueIn("{a}/{a}.mea", "n1/n1.mea"), "n1");
    EXPECT_FALSE(fits("{a}/{a}.mea", "n1/n2.mea"));
    EXPECT_EQ(valueIn("{a}-{a}-{b}", "x-x-x-x-y"), "x");
    EXPECT_EQ(valueIn("{a}x{a}", "1xx1xx1"), "no match");
    EXPECT_EQ(valueIn("{a}x{a}", "1x2x1x2"), "1x2");
}

TEST(Pattern, StarsTakeBytesWithinANameOrThroughFolders)
{
    EXPECT_TRUE(fits("a/*.mea", "a/.mea")); // by the point of the pattern
    EXPECT_TRUE(fits("a/x*.mea", "a/x.mea"));
    EXPECT_FALSE(fits("a/*.mea", "a/b/c.mea"));
    EXPECT_TRUE(fits("a/**.mea", "a/b/c.mea"));
    EXPECT_TRUE(fits("a/**/c.mea", "a/c.mea"));
    EXPECT_TRUE(fits("a/**/c.mea", "a/b/d/c.mea"));
    EXPECT_FALSE(fits("a/**/c.mea", "a/bc.mea"));
    EXPECT_TRUE(fits("**/c.mea", "c.mea"));
    EXPECT_TRUE(fits("**", "a/b"));
}

TEST(Pattern, HiddenNamesAreForAPointOfThePattern)
{
    EXPECT_FALSE(fits("*", ".x"));
    EXPECT_FALSE(fits("{a}", ".x"));
    EXPECT_FALSE(fits("**/x", "a/.snapshot/x"));
    EXPECT_TRUE(fits(".*", ".x"));
    EXPECT_TRUE(fits(".{a}/*", ".x/y"));
    EXPECT_TRUE(fits("*", "a.x"));
}

TEST(Pattern, DoubledBraceIsABrace)
{
    EXPECT_TRUE(fits("{{a}", "{a}"));
    EXPECT_EQ(valueIn("{{{a}}", "{7}"), "7");
    EXPECT_TRUE(fits("}", "}"));
}

TEST(Pattern, WrongOnesAreRefused)
{
    const std::string brace = " has a brace that is neither a field nor doubled";
    EXPECT_EQ(refusalOf("a{b"), "--over: \"a{b\"" + brace);
    EXPECT_EQ(refusalOf("{}"), "--over: \"{}\"" + brace);
    EXPECT_EQ(refusalOf("{a b}"), "--over: \"{a b}\"" + brace);
    EXPECT_EQ(refusalOf("{a/b}"), "--over: \"{a/b}\"" + brace);
    EXPECT_THAT(refusalOf("{stem}"), HasSubstr("has the field {stem}, which every task has by itself"));
    EXPECT_THAT(refusalOf(std::string(4096, 'x')), HasSubstr("is longer than a path can be"));
    EXPECT_EQ(refusalOf("{night-1_A}"), "");
}

TEST(Pattern, ManyStarsAreNoTrap)
{
    EXPECT_FALSE(fits("*a*a*a*a*a*a*a*a*a*a*a*a*b", std::string(200, 'a')));
    EXPECT_THROW(fits("{a}{b}{c}{a}{b}{c}{d}{d}x", std::string(200, 'a')), WrongUsage);
}

// The paths of the files that fit, and the value of a field in each.
std::vector<std::string> found(const std::string& pattern)
{
    std::vector<std::string> paths;
    for (const auto& [path, values] : Pattern(pattern).files()) {
        paths.push_back(path);
    }
    return paths;
}

// An archive, which is the present folder.
class Archive
{
public:
    explicit Archive(const std::vector<std::string>& files) : present(folder.path())
    {
        for (const std::string& file : files) {
            fs::create_directories(fs::path("./" + file).parent_path());
            makeFile(file, "");
        }
    }

private:
    TemporaryFolder folder;
    PresentFolder present;
};

TEST(Pattern, FilesComeInTheOrderOfBytes)
{
    const Archive archive({"a/n2/T_2.mea", "a/n10/T_1.mea", "a/n2/T_1.mea", "a/n2/T_1.txt", "b/n1/T_1.mea"});
    EXPECT_THAT(found("a/{n}/T_*.mea"), ElementsAre("a/n10/T_1.mea", "a/n2/T_1.mea", "a/n2/T_2.mea"));
    EXPECT_THAT(found("*/n1/*"), ElementsAre("b/n1/T_1.mea"));
    EXPECT_THAT(found("./b/**"), ElementsAre("./b/n1/T_1.mea"));
    EXPECT_THAT(found(fs::absolute("b").string() + "/*/*"),
                ElementsAre(fs::absolute("b/n1/T_1.mea").string()));
    EXPECT_THAT(found("**/T_1.mea"), ElementsAre("a/n10/T_1.mea", "a/n2/T_1.mea", "b/n1/T_1.mea"));
    EXPECT_THAT(found("a/**/{t}_2.*"), ElementsAre("a/n2/T_2.mea"));
    EXPECT_THAT(found("c/*"), ElementsAre());
    EXPECT_THAT(found(""), ElementsAre());
}

TEST(Pattern, HiddenFoldersAreNotSearched)
{
    const Archive archive({".snapshot/x.mea", "a/.b/x.mea", "a/x.mea"});
    EXPECT_THAT(found("**/x.mea"), ElementsAre("a/x.mea"));
    EXPECT_THAT(found(".snapshot/*"), ElementsAre(".snapshot/x.mea"));
}

TEST(Pattern, ANameThatTakesTooLongEndsTheSearch)
{
    const Archive archive({std::string(200, 'a')});
    EXPECT_THROW(found("{a}{b}{c}{a}{b}{c}{d}{d}x"), WrongUsage);
}

TEST(Pattern, OnlyRegularFilesFitAndLinksAreFollowed)
{
    const Archive archive({"a/n1/x.mea"});
    fs::create_directory("a/folder.mea");
    fs::create_directory_symlink("n1", "a/n2");
    fs::create_directory_symlink("..", "a/n1/up");
    fs::create_symlink("x.mea", "a/n1/y.mea");
    fs::create_symlink("nowhere", "a/n1/z.mea");
    EXPECT_THAT(found("a/*/*.mea"), ElementsAre("a/n1/x.mea", "a/n1/y.mea", "a/n2/x.mea", "a/n2/y.mea"));
    EXPECT_THAT(found("a/*.mea"), ElementsAre());
    EXPECT_THAT(found("**.mea"), ElementsAre("a/n1/x.mea", "a/n1/y.mea"));
}

} // namespace
