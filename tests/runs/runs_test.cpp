// Whole runs of the built tool, kept as files. Each folder here that holds a task.xml is one run: the tool
// runs in a copy of it with an empty folder out, and what is then below out must equal what is below
// expected, byte by byte. There the time stamp of a result document is DATE.

#include "support/child_process.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

namespace {

std::set<std::string> runsWithATask()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(runsFolder())) {
        if (exists(entry.path() / "task.xml")) {
            names.insert(entry.path().filename().string());
        }
    }
    return names;
}

void expectRun(const std::string& source)
{
    const TemporaryFolder folder;
    const std::string copy = folder / "run";
    std::filesystem::copy(source, copy, std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(copy + "/out");
    expectQuietEnd(runTool("task.xml", copy));

    const std::set<std::string> expected = filesBelow(source + "/expected");
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(filesBelow(copy + "/out"), expected);
    for (const std::string& name : expected) {
        SCOPED_TRACE(name);
        const std::string wanted = bytesOf(source + "/expected/" + name);
        const std::string path = copy + "/out/" + name;
        EXPECT_EQ(wanted.find("<Date>DATE</Date>") != std::string::npos ? resultOf(path) : bytesOf(path),
                  wanted);
    }
}

} // namespace

TEST(Runs, EachGivesItsExpectedFiles)
{
    const std::set<std::string> names = runsWithATask();
    EXPECT_TRUE(names.contains("mea_to_mpc"));
    EXPECT_TRUE(names.contains("mea_to_mea"));
    EXPECT_TRUE(names.contains("report_eachobject_mpc"));
    EXPECT_TRUE(names.contains("report_eachgroup_tdm"));
    EXPECT_TRUE(names.contains("report_eachseria_mea"));
    EXPECT_TRUE(names.contains("report_allobjects_mpc"));
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        expectRun(runsFolder() + "/" + name);
    }
}
