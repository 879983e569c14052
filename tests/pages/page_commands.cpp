// page_commands PROJECT COPY: runs the shell commands of the pages in a copy of the project, page after page,
// and those of a page one after the other. Prints each place; ends with 1 at the first that fails.
//
// page_commands PROJECT COPY PAGE PROGRAM...: those of one page, in a new copy of what it needs: the
// examples, and the programs that are there already in the place of the build. Blocks that build are left
// out.

#include "pages/page_blocks.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

void makeFileOf(const PageBlock& block, const std::string& copy)
{
    const std::filesystem::path path = copy + "/" + block.noted("file:");
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << block.text;
}

// Whether the commands of a block succeed, where the page runs them.
bool succeeds(const PageBlock& block, const std::string& copy)
{
    const std::string script = copy + "/page_commands.sh";
    std::ofstream(script) << "set -eu\ncd '" << copy << "/" << block.noted("in:") << "'\n" << block.text;
    return std::system(("sh " + script).c_str()) == 0;
}

namespace fs = std::filesystem;

void makeCopy(const std::string& project, const std::string& copy, const std::vector<std::string>& programs)
{
    fs::remove_all(copy);
    fs::create_directories(copy + "/build");
    fs::copy(project + "/examples", copy + "/examples", fs::copy_options::recursive);
    for (const fs::path path : programs) {
        fs::create_symlink(path, copy / fs::path("build") / path.filename());
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3 && count < 5) {
        std::fputs("usage: page_commands PROJECT COPY [PAGE PROGRAM...]\n", stderr);
        return 2;
    }
    const std::string project = arguments[1];
    const std::string copy = arguments[2];
    const bool isBuilt = count > 3;
    if (isBuilt) {
        makeCopy(project, copy, {arguments + 4, arguments + count});
    }
    const std::vector<std::string> pages =
        isBuilt ? std::vector<std::string>{arguments[3]} : pagesOf(project);
    // Installed below the copy, where the pages say $HOME.
    setenv("HOME", copy.c_str(), 1);
    int ran = 0;
    for (const std::string& page : pages) {
        const std::vector<PageBlock> blocks = blocksOf(project, page);
        for (const PageBlock& block : blocks) {
            if (block.isNoted("file:")) {
                makeFileOf(block, copy);
            }
        }
        for (const PageBlock& block : blocks) {
            if (block.kind != "sh" || block.isNoted("not run:") || (isBuilt && block.isNoted("builds"))) {
                continue;
            }
            std::printf("%s\n%s", block.place().c_str(), block.text.c_str());
            std::fflush(stdout);
            if (!succeeds(block, copy)) {
                std::printf("%s failed\n", block.place().c_str());
                return 1;
            }
            ++ran;
        }
    }
    std::printf("%d blocks of commands ran\n", ran);
    return ran == 0 ? 1 : 0;
}
