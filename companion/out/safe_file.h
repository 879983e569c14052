// Safe file: a file that is there as a whole or not at all, and that is never written over an input.
//
//   SafeFile file("night.ready.txt", force, {"night.mea"});
//   file.write(text);
//   file.commit();

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// A new file. Until it is committed its bytes have no name, or where the file system has no such files a
/// name beside the target that goes with the object, and with a program that a signal ends. One that is
/// killed may leave a file of that name: the target's, the number of the process, and ".part".
class SafeFile
{
public:
    /// Opens it. Throws WrongUsage for a target that is one of the inputs by device and inode (V005), that
    /// exists and is not to be replaced (V004), or whose folder cannot be written (V003).
    SafeFile(std::string path, bool force, const std::vector<std::string>& inputs);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// Appends bytes. Throws WrongUsage (V003) where that fails.
    void write(std::string_view bytes);

    /// Gives the file its name, once all bytes are on the disk; a file that it replaces is there until then.
    /// Throws WrongUsage (V003, or V004 for a file that has come in between).
    void commit();

    /// The same without waiting for the disk, for a file that can be made again: a failure of the power may
    /// leave it empty.
    void commitUnwaited();

private:
    void takeName();
    void open();
    void standBeside(const std::string& name);
    void giveName(const std::string& name) const;

    std::string path;
    bool replaces;
    std::string beside; // the name until the commit; empty where it has none yet
    int descriptor = -1;
};

/// Throws WrongUsage where a target must not be written: it is one of the inputs by device and inode (V005),
/// or it exists and is not to be replaced (V004).
void mustBeFree(const std::string& target, bool force, const std::vector<std::string>& inputs);

/// Gives a whole file of the same file system its place, once its bytes are on the disk; a file that it
/// replaces is there until then. Throws WrongUsage (V003, or V004 for a file that has come in between).
void moveInto(const std::string& file, const std::string& target, bool force);

} // namespace companion
