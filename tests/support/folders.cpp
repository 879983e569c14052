#include "support/folders.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

Names namesIn(const std::string& folder)
{
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

std::string folderOfLength(std::string path, std::size_t length)
{
    std::filesystem::create_directory(path);
    while (path.size() < length) {
        std::size_t left = length - path.size() - 1;
        if (left > 200) {
            left = left > 201 ? 200 : 199;
        }
        path += '/' + std::string(left, 'n');
        std::filesystem::create_directory(path);
    }
    return path;
}

void makeChain(const std::string& root, int levels)
{
    int folder = open(root.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < levels; ++i) {
        ASSERT_EQ(mkdirat(folder, "n", 0755), 0);
        const int next = openat(folder, "n", O_RDONLY | O_DIRECTORY);
        ASSERT_GE(next, 0);
        close(folder);
        folder = next;
    }
    close(folder);
}
