// What the pages show of the command is what it prints in its golden cases.

#include "pages/page_blocks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

namespace {

const std::string prompt = "$ tavelin ";

// All that a case prints, in any form, between line feeds.
std::string printedBy(const std::string& folder)
{
    std::string text = "\n";
    for (const char* name : {"/text", "/messages", "/json"}) {
        text += exists(folder + name) ? bytesOf(folder + name) : "";
    }
    return text;
}

void expectLinesOfCase(const PageBlock& block)
{
    SCOPED_TRACE(block.place());
    const std::string folder = std::string(VOMAR_PROJECT) + "/tests/companion/" + block.noted("case:");
    ASSERT_TRUE(exists(folder + "/call")) << folder;
    const std::string printed = printedBy(folder);
    std::istringstream lines(block.text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(prompt)) {
            EXPECT_EQ(line.substr(prompt.size()) + '\n', bytesOf(folder + "/call"));
        } else {
            EXPECT_NE(printed.find('\n' + line + '\n'), std::string::npos) << line;
        }
    }
}

} // namespace

TEST(PageCases, ShowWhatTheCommandPrints)
{
    for (const PageBlock& block : allBlocks(VOMAR_PROJECT)) {
        if (block.isNoted("case:")) {
            expectLinesOfCase(block);
        }
    }
}
