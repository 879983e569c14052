// Search path: where programs are looked for.

#pragma once

#include <cstdlib>
#include <string>

/// The folders of PATH until the end of the block.
class SearchPath
{
public:
    explicit SearchPath(const std::string& folders) : before(std::getenv("PATH"))
    {
        setenv("PATH", folders.c_str(), 1);
    }
    ~SearchPath()
    {
        setenv("PATH", before.c_str(), 1);
    }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;

private:
    std::string before;
};
