// The fenced blocks of the pages: README, docs/ and the examples' page. Each says by the word after its fence
// of what kind it is, and a comment on the line before it says how it is checked, or why it cannot be:
//
//   <!-- task: run -->
//   ```xml
//   <task>...</task>
//   ```
//
//   not run: <why>      nothing checks the block
//   task                it is loaded as a task; "task: run" also runs it, in a copy of examples/
//   case: <group/name>  what a golden case of the command prints, or lines of it; "$ tavelin ..." is its call
//   lines of <file>     its lines stand in the file of a copy of examples/ in which all its tasks were run
//   file: <path>        the block is a file for the commands of its page
//   prints              the program prints the lines that follow in the comment
//   builds              its commands build the programs
//   in: <folder>        where the commands are run, below a copy of the project
//   <what it is>        for XML, which document: it is read by that one's reader

#pragma once

#include <string>
#include <vector>

/// A fenced block of a page.
struct PageBlock
{
    std::string page{}; ///< its path below the project
    int line = 0;       ///< of the opening fence
    std::string kind{}; ///< the word after the fence
    std::string note{}; ///< the comment before the fence
    std::string text{}; ///< whole lines

    /// What follows the word in the note where that begins with it; "" otherwise.
    std::string noted(const std::string& word) const;
    /// Whether the note begins with the word.
    bool isNoted(const std::string& word) const;
    /// "docs/library.md:46".
    std::string place() const;
};

/// The pages below the project's folder, sorted.
std::vector<std::string> pagesOf(const std::string& project);

/// The blocks of a page. A fence that is never closed makes a block of the kind "unclosed".
std::vector<PageBlock> blocksOf(const std::string& project, const std::string& page);

/// The blocks of all pages.
std::vector<PageBlock> allBlocks(const std::string& project);
