// Files of a test: a folder that goes with the test, and the bytes of a file.

#pragma once

#include <filesystem>
#include <string>

/// A new empty folder, removed with everything in it at the end of the test.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The path of a name in the folder.
    std::string operator/(const std::string& name) const
    {
        return (folder / name).string();
    }
    /// The folder's own path, without a slash at its end.
    std::string path() const
    {
        return folder.string();
    }

private:
    std::filesystem::path folder;
};

/// The bytes of a file; fails the test where it cannot be read.
std::string bytesOf(const std::string& path);

/// Makes a file of the bytes; fails the test where it cannot be written.
void makeFile(const std::string& path, const std::string& bytes);

/// Whether anything stands at the path.
bool exists(const std::string& path);
