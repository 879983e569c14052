#include "running/tool_path.h"

#include "support/folders.h"
#include "support/places.h"
#include "support/search_path.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using companion::programInSearchPath;
using companion::toolPath;

void makeProgram(const std::string& path)
{
    makeFile(path, "");
    fs::permissions(path, fs::perms::owner_all);
}

TEST(ToolPath, FileThatNobodyMayRunIsNoTool)
{
    const TemporaryFolder folder;
    makeFile(folder / "tool", "");
    EXPECT_EQ(toolPath(folder / "tool"), "");
    EXPECT_EQ(toolPath(folder / "missing"), "");
    EXPECT_EQ(toolPath(folder.path()), "");
    makeProgram(folder / "tool");
    EXPECT_EQ(toolPath(folder / "tool"), folder / "tool");
}

TEST(ToolPath, SearchPathIsTakenInItsOrder)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    fs::create_directory("bin");
    makeProgram("bin/program");
    makeProgram("other");
    const SearchPath first("/nonexistent:" + folder / "bin");
    EXPECT_EQ(programInSearchPath("program"), folder / "bin/program");
    EXPECT_EQ(programInSearchPath("other"), "");
}

TEST(ToolPath, EmptyEntryOfTheSearchPathIsThePresentFolder)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    makeProgram("other");
    for (const char* path : {":/nonexistent", "/nonexistent::/missing", "/nonexistent:"}) {
        const SearchPath entries(path);
        EXPECT_EQ(fs::path(programInSearchPath("other")).lexically_normal(), folder / "other") << path;
        EXPECT_EQ(programInSearchPath("missing"), "");
    }
}

TEST(ToolPath, WithoutASearchPathNothingIsFound)
{
    const SearchPath none("");
    unsetenv("PATH");
    EXPECT_EQ(programInSearchPath("sh"), "");
}

// The tests stand beside the tool themselves.
TEST(ToolPath, ProgramThatDoesNotKnowItsPlaceLooksInTheSearchPath)
{
    const TemporaryFolder folder;
    makeProgram(folder / "vomar");
    EXPECT_EQ(toolPath(""), builtTool());
    const auto look = [&folder] {
        setenv("PATH", folder.path().c_str(), 1);
#if defined(SYS_readlink)
        setFaults({{SYS_readlink, EACCES}, {SYS_readlinkat, EACCES}});
#else
        setFaults({{SYS_readlinkat, EACCES}});
#endif
        _exit(toolPath("") == folder / "vomar" ? 0 : 1);
    };
    EXPECT_EQ(statusOfChild(look), 0);
}

TEST(ToolPath, CommandWithoutANeighbourLooksInTheSearchPath)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    fs::create_directory("bin");
    fs::create_directory("alone");
    fs::copy_file(VOMAR_COMMAND, "alone/tavelin");
    makeProgram("bin/vomar");
    const auto shown = [](const std::string& folders) {
        EXPECT_EQ(std::system(("PATH='" + folders + "' alone/tavelin --version -v >shown").c_str()), 0);
        return bytesOf("shown");
    };
    EXPECT_THAT(shown(folder / "bin"), testing::HasSubstr("vomar " + folder / "bin/vomar" + ", 0 bytes"));
    EXPECT_THAT(shown("/nonexistent"), testing::HasSubstr("vomar not found\n"));
    EXPECT_NE(std::system("PATH=/nonexistent alone/tavelin run a.xml 2>shown"), 0);
    EXPECT_EQ(bytesOf("shown"), "tavelin: no vomar beside this program or in the search path [V402]\n");
}

} // namespace
