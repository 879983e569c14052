// Files of a test: a folder that goes with the test, the bytes of a file, what writers and readers make of
// them.

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

/// Whether anything is at the path.
bool exists(const std::string& path);

/// The bytes that `write(path)` leaves in a file that was longer before.
template <class Write>
std::string writtenBy(Write write)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(9000, 'x'));
    write(folder / "a.txt");
    return bytesOf(folder / "a.txt");
}

/// What `read(path)` makes of a file of the bytes.
template <class Read>
auto readBy(Read read, const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", bytes);
    return read(folder / "a.txt");
}
