// The version stands in one place, and what cannot take it from there says the same.

#include "version.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

using tavelinUtils::version;

TEST(Version, IsThatOfTheBuild)
{
    EXPECT_EQ(version, VOMAR_VERSION);
}

TEST(Version, StandsInTheReadmeAndTheChanges)
{
    const std::string project = VOMAR_PROJECT;
    const std::string number(version);
    EXPECT_NE(bytesOf(project + "/README.md").find("Version " + number + ","), std::string::npos);
    EXPECT_NE(bytesOf(project + "/CHANGELOG.md").find("\n## " + number + " ("), std::string::npos);
}

TEST(Version, StandsInTheChangesOfThePackages)
{
    const std::string changes = bytesOf(std::string(VOMAR_PROJECT) + "/packaging/debian/changelog");
    EXPECT_TRUE(changes.starts_with("tavelin (" + std::string(version) + "-"));
}
