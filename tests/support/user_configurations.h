// Configurations of users, loaded into settings.

#pragma once

#include "config/user_configuration.h"

#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

/// What a load of a configuration with that inside of its root gives, over the settings given.
inline tavelinUtils::TFuncRes load(const std::string& inside, tavelinUtils::TPorogs& porogs,
                                   bool loadTLE = true)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.conf", "<root>" + inside + "</root>");
    return tavelinUtils::LoadUserConfXML(folder / "a.conf", porogs, loadTLE);
}

/// The settings of a configuration with that inside of its root, over new ones.
inline tavelinUtils::TPorogs loaded(const std::string& inside, bool loadTLE = true)
{
    tavelinUtils::TPorogs porogs;
    EXPECT_EQ(load(inside, porogs, loadTLE).Code, 0);
    return porogs;
}

inline tavelinUtils::TPorogs everyKey()
{
    tavelinUtils::TPorogs porogs;
    EXPECT_EQ(tavelinUtils::LoadUserConfXML(fixture("configuration/every_key.conf"), porogs, true).Code, 0);
    return porogs;
}
