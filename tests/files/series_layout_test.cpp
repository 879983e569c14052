#include "files/paths.h"
#include "files/series_layout.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

struct Seria
{
    std::string path, name, folder;
};

struct OneText
{
    std::string from, to;
};

struct Config
{
    std::string bytes;
    bool counts;
};

const std::string foreign = "[section]\nkey=value\nother=value\n"; // a configuration of another program
const std::string own = "<root>\n</root>\n\n";

} // namespace

TEST(SeriesLayout, TheSeriesLiesAboveTheFirstServiceFolder)
{
    const Seria rows[] = {
        {"/d/night1/tavelin/dataVO/t.txt", "night1", "/d/night1/"},
        {"/d/night1/tavelin", "night1", "/d/night1/"},
        {"/d/night1/tavelin/", "night1", "/d/night1/"},
        {"d/night1/tavelin/t.txt", "night1", "d/night1/"},
        {"night1/tavelin/t.txt", "night1", "night1/"},
        {"//d//night1/tavelin/t.txt", "night1", "//d//night1/"},
        {"/d/night1//tavelin/t.txt", "", "/d/night1//"},
        {"/tavelin/t.txt", "", "/"},
        {"/d/a/tavelin/b/tavelin/t.txt", "a", "/d/a/"},
        {"/d/a/tavelin/tavelin/t.txt", "a", "/d/a/"},
        {"/d/tavelin2/n/tavelin/t.txt", "n", "/d/tavelin2/n/"},
        {"c:/d/night 1/tavelin/t.txt", "night 1", "c:/d/night 1/"},
        {"c:\\d/night1/tavelin/a\\b", "night1", "c:\\d/night1/"},
        {"/d/../n/./tavelin/t.txt", ".", "/d/../n/./"},
    };
    for (const auto& [path, name, folder] : rows) {
        EXPECT_EQ(GetSeriaName(path), name) << path;
        EXPECT_EQ(GetSeriaPath(path), folder) << path;
    }
}

TEST(SeriesLayout, APathWithoutTheServiceFolderHasNoSeries)
{
    for (const char* const path : {"", "/", "/d/night1/t.txt", "/d/n/tavelin2/t.txt", "/d/n/xtavelin/t.txt",
                                   "/d/n/Tavelin/t.txt", "/d/n/TAVELIN/t.txt", "/d/n/tavelin /t.txt",
                                   "/d/n/tavelin.txt", "c:\\d\\n\\tavelin\\t.txt", "/d/n/tavelin\\t.txt"})
    {
        EXPECT_EQ(GetSeriaName(path), "") << path;
        EXPECT_EQ(GetSeriaPath(path), "") << path;
    }
}

TEST(SeriesLayout, APathThatBeginsWithTheServiceFolderHasNoSeries)
{
    for (const char* const path : {"tavelin", "tavelin/", "tavelin/t.txt", "tavelin/n/tavelin/t.txt"}) {
        EXPECT_EQ(GetSeriaName(path), "") << path;
        EXPECT_EQ(GetSeriaPath(path), "") << path;
    }
}

TEST(SeriesLayout, AFrameIsKnownByItsNameWithoutThePrefixes)
{
    const OneText rows[] = {
        {"/d/m31_0001.fit", "m31_0001.fit"},
        {"/d/STEP-m31_0001.fit", "m31_0001.fit"},
        {"/d/FQRV-m31_0001.fit", "m31_0001.fit"},
        {"STEP-m31_0001.fit", "m31_0001.fit"},
        {"m31_0001.fit", "m31_0001.fit"},
        {"c:\\d\\STEP-a.fit", "a.fit"},
        {"/d\\FQRV-a.fit", "a.fit"},
        {"STEP-SUPER-x.fit", "SUPER-x.fit"},
        {"xSTEP-y.fit", "xy.fit"},
        {"xFQRV-yFQRV-z.fit", "xyz.fit"},
        {"a.fitSTEP-", "a.fit"},
        {"FQRV-STEP-a.fit", "a.fit"},
        {"STEP-FQRV-a.fit", "a.fit"},
        {"STFQRV-EP-a.fit", "a.fit"},      // the first removal makes a prefix for the second
        {"FQSTEP-RV-a.fit", "FQRV-a.fit"}, // and not the other way round
        {"STESTEP-P-a.fit", "a.fit"},
        {"step-a.fit", "step-a.fit"},
        {"STEP_a.fit", "STEP_a.fit"},
        {"/STEP-d/FQRV-e/a.fit", "a.fit"},
        {"/d/STEP-", ""},
        {"/d/", ""},
        {"", ""},
    };
    for (const auto& [path, identifier] : rows) {
        EXPECT_EQ(GetIDFrame(path, TExtension{}), identifier) << path;
    }
}

TEST(SeriesLayout, ThePrefixesOfAFrameAreThoseOfTheRecord)
{
    TExtension extension;
    extension.stepPrefix = "S_";
    extension.fqrvPrefix = "F_";
    extension.stepSuperPrefix = "x";
    EXPECT_EQ(GetIDFrame("/d/F_S_STEP-x.fit", extension), "STEP-x.fit");
    extension.stepPrefix = "";
    EXPECT_EQ(GetIDFrame("/d/F_S_STEP-x.fit", extension), "S_STEP-x.fit");
    extension.fqrvPrefix = "";
    EXPECT_EQ(GetIDFrame("/d/F_S_STEP-x.fit", extension), "F_S_STEP-x.fit");
}

TEST(SeriesLayout, TheStepFrameLiesBesideItsFrame)
{
    const TPorogs porogs;
    const OneText rows[] = {
        {"/d/a.fit", "/d/STEP-a.fit"},
        {"/d/FQRV-a.fit", "/d/STEP-a.fit"},
        {"/d/STEP-a.fit", "/d/STEP-a.fit"},
        {"/d/STEP-FQRV-a.fit", "/d/STEP-a.fit"},
        {"/d/STEP-SUPER-a.fit", "/d/STEP-SUPER-a.fit"},
        {"/d/xSTEP-a.fit", "/d/STEP-xa.fit"},
        {"/a.fit", "/STEP-a.fit"},
        {"d/a.fit", "d/STEP-a.fit"},
        {"/FQRV-d/STEP-e/a.fit", "/FQRV-d/STEP-e/STEP-a.fit"},
        {"c:\\d\\a.fit", "c:\\d/STEP-a.fit"},
        {"a.fit", "a.fit/STEP-a.fit"},
        {"STEP-a.fit", "STEP-a.fit/STEP-a.fit"},
        {"FQRV-a.fit", "FQRV-a.fit/STEP-a.fit"},
        {"/d/", "/d/STEP-"},
        {"", "/STEP-"},
    };
    for (const auto& [path, step] : rows) {
        EXPECT_EQ(GetFNStep(porogs, path), step) << path;
    }
}

TEST(SeriesLayout, TheStepFrameTakesThePrefixesOfTheSettings)
{
    TPorogs porogs;
    porogs.extension.stepPrefix = "S_";
    porogs.extension.fqrvPrefix = "d/F_";
    EXPECT_EQ(GetFNStep(porogs, "/d/S_STEP-a.fit"), "/d/S_STEP-a.fit");
    // The prefix of the pipeline goes out of the whole path, not of the name alone.
    EXPECT_EQ(GetFNStep(porogs, "/d/F_a.fit"), "/d/S_a.fit");
    porogs.extension.stepPrefix = "";
    porogs.extension.fqrvPrefix = "";
    EXPECT_EQ(GetFNStep(porogs, "/d/STEP-a.fit"), "/d/STEP-a.fit");
}

TEST(SeriesLayout, ASeriesWithoutAConfigurationGivesAnEmptyText)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a.conf/b");
    for (const char* const name : {"a.CONF", "a.conf.txt", "aconf", "conf", "a.conf/b/a.Conf"}) {
        makeFile(folder / name, own);
    }
    EXPECT_EQ(GetSeriaConfig(folder.path()), "");
    EXPECT_EQ(GetSeriaConfig(folder / "missing"), "");
    EXPECT_EQ(GetSeriaConfig(folder / "aconf"), "");
    EXPECT_EQ(GetSeriaConfig(""), "");
}

TEST(SeriesLayout, TheOneConfigurationIsTakenWhateverItHolds)
{
    for (const std::string& bytes : Texts{own, foreign, "", "\n", std::string(3, '\0')}) {
        const TemporaryFolder folder;
        std::filesystem::create_directories(folder / "tavelin/conf");
        makeFile(folder / "tavelin/conf/a.conf", bytes);
        makeFile(folder / "b.txt", own);
        EXPECT_EQ(GetSeriaConfig(folder.path()), folder / "tavelin/conf/a.conf");
        EXPECT_EQ(GetSeriaConfig(folder.path() + "/"), folder.path() + "//tavelin/conf/a.conf");
    }
}

TEST(SeriesLayout, ALinkMayBeTheOneConfiguration)
{
    const TemporaryFolder folder;
    std::filesystem::create_symlink("missing", folder / "a.conf");
    EXPECT_EQ(GetSeriaConfig(folder.path()), folder / "a.conf");
}

// Beside another ".conf" file the first or second of at least three lines shows which one is the system's
// own.
TEST(SeriesLayout, AmongMoreConfigurationsTheRootLineDecides)
{
    const Config rows[] = {
        {"<root>\n</root>\n\n", true},
        {"<TaVeLin>\n\n\n", true},
        {"<?xml version=\"1.0\"?>\n<root>\n</root>\n", true},
        {"<?xml version=\"1.0\"?>\n<TaVeLin>\n</TaVeLin>", true},
        {"<?xml version=\"1.0\"?>\r\n<root>\r\n</root>\r\n", true},
        {"<root>\t\t\n<a/>\n</root>\n", true},
        {"\n<root>\n \n", true},
        {"<TaVeLin>\n<root>\nx", true},
        {"", false},
        {"<root>", false},
        {"<root>\n</root>", false},
        {"<root>\n</root>\n", false},
        {"\n<root>\n", false},
        {"\n\n<root>\n</root>\n", false},
        {"<root> \n</root>\n\n", false},
        {" <root>\n</root>\n\n", false},
        {"\t<root>\n</root>\n\n", false},
        {"<root></root>\n\n\n", false},
        {"<root a=\"b\">\n</root>\n\n", false},
        {"<ROOT>\n</ROOT>\n\n", false},
        {"<tavelin>\n</tavelin>\n\n", false},
        {"<TAVELIN>\n</TAVELIN>\n\n", false},
        {"root\n<root/>\n\n", false},
        {"\xEF\xBB\xBF<root>\n</root>\n\n", false},
        {foreign, false},
    };
    for (const auto& [bytes, counts] : rows) {
        SCOPED_TRACE(bytes);
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / "tavelin");
        makeFile(folder / "tavelin/own.conf", bytes);
        makeFile(folder / "foreign.conf", foreign);
        EXPECT_EQ(GetSeriaConfig(folder.path()), counts ? folder / "tavelin/own.conf" : "");
    }
}

TEST(SeriesLayout, NoneOfTwoForeignConfigurationsIsTaken)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.conf", foreign);
    makeFile(folder / "b.conf", "<root>\n</root>\n");
    EXPECT_EQ(GetSeriaConfig(folder.path()), "");
    makeFile(folder / "c.conf", own);
    EXPECT_EQ(GetSeriaConfig(folder.path()), folder / "c.conf");
}

TEST(SeriesLayout, OfTwoOwnConfigurationsTheFirstOfTheFileSystemIsTaken)
{
    const TemporaryFolder folder;
    for (const char* const name : {"q", "b", "x", "a", "m"}) {
        makeFile(folder / std::string(name) + ".conf", own);
        makeFile(folder / std::string(name) + "2.conf", foreign);
    }
    std::string first;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (first.empty() && entry.path().stem().string().size() == 1) {
            first = entry.path().string();
        }
    }
    EXPECT_EQ(GetSeriaConfig(folder.path()), first);
}

// A link counts as a file of its name; what cannot be read has no lines.
TEST(SeriesLayout, WhatCannotBeReadIsNoConfigurationAmongMore)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "b");
    std::filesystem::create_directory_symlink(folder / "b", folder / "b.conf");
    std::filesystem::create_symlink(folder / "missing", folder / "c.conf");
    EXPECT_EQ(GetSeriaConfig(folder.path()), "");
    makeFile(folder / "own.txt", own);
    std::filesystem::create_symlink(folder / "own.txt", folder / "d.conf");
    EXPECT_EQ(GetSeriaConfig(folder.path()), folder / "d.conf");
}

TEST(SeriesLayout, ThePathBelowTheSeriesOfAFile)
{
    const std::string path = "/d/night1/tavelin/dataVO/t.txt";
    EXPECT_EQ(GetInSeriaPath(GetSeriaPath(path), path), "tavelin/dataVO/t.txt");
}

// The folder that the settings name is the one that paths are searched for.
TEST(SeriesLayout, TheServiceFolderOfTheSettingsIsTheOneThatIsSearchedFor)
{
    const TPorogs porogs;
    EXPECT_EQ(GetSeriaName("/d/night1/" + porogs.subfolders.tavelinFolder + "/t.txt"), "night1");
}
