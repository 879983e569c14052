// The deepest documents on small stacks: the XML library walks them by recursion.

#include "config/xml_document.h"

#include "support/child_process.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>

#include <pthread.h>

using namespace tavelinUtils;

namespace {

constexpr std::size_t kibibyte = 1024;

// A sanitizer's frames are several times as large as those of the program that people use.
#ifdef VOMAR_SANITIZED
constexpr std::size_t frameFactor = 8;
#else
constexpr std::size_t frameFactor = 1;
#endif

constexpr int deepest = 1000;

/// Runs a work in a thread of a stack of that size.
void runOnStack(std::size_t size, const std::function<void()>& work)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size * frameFactor), 0);
    pthread_t thread{};
    const auto call = [](void* given) -> void* {
        (*static_cast<const std::function<void()>*>(given))();
        return nullptr;
    };
    void* const given = const_cast<std::function<void()>*>(&work);
    ASSERT_EQ(pthread_create(&thread, &attributes, call, given), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// Loads, copies, saves and forgets a document of that many levels; whether it loads and its copy is the
/// same.
bool isTakenWhole(const std::string& folder, int levels)
{
    makeFile(folder + "/deep.xml", nested(levels));
    TtavelinXmlDocument document(folder + "/deep.xml");
    const bool loads = document.LoadFile();
    document.fileName = folder + "/copy.xml";
    const bool saves = document.SaveFile();
    TtavelinXmlDocument copy(folder + "/copy.xml");
    return loads && saves && copy.LoadFile();
}

class XmlStack : public testing::TestWithParam<std::size_t>
{
};

INSTANTIATE_TEST_SUITE_P(SmallOnes, XmlStack, testing::Values(512 * kibibyte, 1024 * kibibyte),
                         [](const testing::TestParamInfo<std::size_t>& size) {
                             return "Of" + std::to_string(size.param / kibibyte) + "KiB";
                         });

} // namespace

TEST_P(XmlStack, ThousandLevelsAreTakenInAThread)
{
    const TemporaryFolder folder;
    expectTrueInChild([&folder] {
        bool isWhole = false;
        runOnStack(GetParam(), [&] { isWhole = isTakenWhole(folder.path(), deepest); });
        return isWhole;
    });
}

TEST_P(XmlStack, MoreLevelsAreRefusedInAThread)
{
    const TemporaryFolder folder;
    expectTrueInChild([&folder] {
        bool isTaken = true;
        runOnStack(GetParam(), [&] { isTaken = isTakenWhole(folder.path(), deepest + 1); });
        return !isTaken;
    });
}

// The stack of a program's start is as `ulimit -s` says.
TEST_P(XmlStack, ToolRunsTheDeepestTask)
{
    const TemporaryFolder folder;
    const std::string deep = repeated("<a>", deepest - 1) + repeated("</a>", deepest - 1);
    makeFile(folder / "night.mea",
             "T1 2000.0 UTC\n12345 250223 1200000000 0100000000 -0030000000 001 09.50\n");
    makeFile(folder / "task.xml", "<task><path_in>night.mea</path_in><inputformat>mea</inputformat>"
                                  "<outputformat>mpc</outputformat><outputextension>.txt</outputextension>"
                                  "<out_dir>./</out_dir><autoname>false</autoname>"
                                  "<path_res>./r.xml</path_res>" +
                                      deep + "</task>");
    const std::string limit = std::to_string(GetParam() * frameFactor / kibibyte);
    expectQuietEnd(runProgram(
        "/bin/sh", {"-c", "ulimit -s " + limit + " && exec \"$0\" task.xml", builtTool()}, folder.path()));
    EXPECT_EQ(resultOf(folder / "r.xml"), resultDocument(0, "OK", "./night.txt"));
    EXPECT_TRUE(exists(folder / "night.txt"));
}
