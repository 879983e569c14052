#include "pages/page_blocks.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace {

constexpr const char* fence = "```";

// Keeps the comment that the next line may follow, of one line or of several.
class CommentBefore
{
public:
    void add(const std::string& line)
    {
        const std::string begin = "<!-- ";
        const std::string end = "-->";
        if (line.starts_with(begin)) {
            text = line.substr(begin.size());
            isOpen = true;
        } else if (isOpen) {
            text += "\n" + line;
        } else {
            text.clear();
        }
        if (isOpen && text.ends_with(end)) {
            text.erase(text.find_last_not_of(" \n", text.size() - end.size() - 1) + 1);
            isOpen = false;
        }
    }
    std::string text{};

private:
    bool isOpen = false;
};

// Reads to the closing fence and counts the lines.
std::string readBlock(std::istream& lines, PageBlock& block, int& number)
{
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line == fence) {
            return text;
        }
        text += line + "\n";
    }
    block.kind = "unclosed";
    return text;
}

} // namespace

std::string PageBlock::noted(const std::string& word) const
{
    return isNoted(word) ? note.substr(std::min(note.size(), word.size() + 1)) : "";
}

bool PageBlock::isNoted(const std::string& word) const
{
    return note == word || note.starts_with(word + " ") || note.starts_with(word + "\n");
}

std::string PageBlock::place() const
{
    return page + ":" + std::to_string(line);
}

std::vector<std::string> pagesOf(const std::string& project)
{
    std::vector<std::string> pages{"README.md", "CONTRIBUTING.md", "examples/README.md"};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(project + "/docs")) {
        if (entry.path().extension() == ".md") {
            pages.push_back(entry.path().lexically_relative(project).string());
        }
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

std::vector<PageBlock> blocksOf(const std::string& project, const std::string& page)
{
    std::vector<PageBlock> blocks;
    std::ifstream lines(project + "/" + page);
    CommentBefore before;
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.starts_with(fence)) {
            PageBlock block{page, number, line.substr(std::string(fence).size()), before.text, {}};
            block.text = readBlock(lines, block, number);
            blocks.push_back(std::move(block));
        }
        before.add(line);
    }
    return blocks;
}

std::vector<PageBlock> allBlocks(const std::string& project)
{
    std::vector<PageBlock> blocks;
    for (const std::string& page : pagesOf(project)) {
        std::vector<PageBlock> found = blocksOf(project, page);
        std::move(found.begin(), found.end(), std::back_inserter(blocks));
    }
    return blocks;
}
