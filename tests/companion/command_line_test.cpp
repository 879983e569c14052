#include "companion/golden.h"
#include "out/text.h"
#include "running/content_hash.h"
#include "support/places.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(CommandLine, WithoutSubcommandPrintsTheHelpAsAMessage)
{
    const CommandEnd end = callCommand({});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.out, "");
    EXPECT_THAT(end.err, StartsWith("    tavelin check night.xml\n"));
}

TEST(CommandLine, HelpOfASubcommandLeadsWithItsExamples)
{
    const CommandEnd asked = callCommand({"explain", "--help"});
    EXPECT_EQ(asked.status, 0);
    EXPECT_THAT(asked.out, StartsWith("    tavelin explain night.xml\n"));
    EXPECT_EQ(callCommand({"help", "explain"}).out, asked.out);
}

TEST(CommandLine, VersionIsOneLine)
{
    EXPECT_EQ(callCommand({"--version"}).out, "tavelin 0.2.0\n");
}

// As receipts have it: the tool prints none.
TEST(CommandLine, VersionOfTheToolIsItsSizeAndHash)
{
    const std::string tool = builtTool();
    const std::string hash = companion::fileHash(tool).value();
    EXPECT_THAT(callCommand({"--version", "-v"}).out,
                HasSubstr("vomar " + tool + ", " + companion::counted(std::filesystem::file_size(tool)) +
                          " bytes, XXH3 " + hash + "\n"));
}

TEST(CommandLine, UnknownSubcommandNamesTheNearest)
{
    const CommandEnd end = callCommand({"explian"});
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.out, "");
    EXPECT_EQ(end.err, "tavelin: no subcommand \"explian\"; did you mean \"explain\"? [V002]\n");
}

TEST(CommandLine, UnknownOptionNamesTheNearest)
{
    EXPECT_EQ(callCommand({"explain", "--lst"}).err,
              "tavelin: no option \"--lst\"; did you mean \"--list\"? [V002]\n");
}

TEST(CommandLine, OptionsAreNotAbbreviated)
{
    const CommandEnd end = callCommand({"explain", "--lis"});
    EXPECT_EQ(end.status, 2);
    EXPECT_THAT(end.err, HasSubstr("no option \"--lis\""));
}

TEST(CommandLine, UnknownWordOfAnOptionNamesTheNearest)
{
    EXPECT_EQ(callCommand({"explain", "--color=alwys", "V005"}).err,
              "tavelin: no word of --color \"alwys\"; did you mean \"always\"? It takes auto, always, never "
              "[V002]\n");
}

TEST(CommandLine, OptionsMayStandAnywhere)
{
    const std::string text = callCommand({"explain", "V005"}).out;
    EXPECT_EQ(callCommand({"--quiet", "explain", "V005"}).out, text);
    EXPECT_EQ(callCommand({"explain", "V005", "--color", "never"}).out, text);
    EXPECT_EQ(callCommand({"--color", "never", "explain", "V005"}).out, text);
}

TEST(CommandLine, WhatFollowsTwoDashesIsNoOption)
{
    EXPECT_EQ(callCommand({"explain", "--", "--list"}).status, 2);
    EXPECT_THAT(callCommand({"explain", "--", "--list"}).err, HasSubstr("--list: there is no such file"));
}

} // namespace
