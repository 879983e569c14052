// Private folder: a folder of this process alone, for what others are not to see, which goes with it.

#pragma once

#include <string>

namespace companion {

/// A new empty folder that nobody else may enter; removed with all that is in it.
class PrivateFolder
{
public:
    /// In the folder for temporary files. Throws WrongUsage (V003) where that fails.
    PrivateFolder();
    /// In another folder, with a hidden name: for files that are to be moved from it without being copied.
    /// Throws WrongUsage (V003) where that fails.
    explicit PrivateFolder(const std::string& parent);
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    /// Its path, without a slash at its end.
    const std::string& path() const
    {
        return folder;
    }

private:
    void make(const std::string& parent, const char* name);

    std::string folder;
};

} // namespace companion
