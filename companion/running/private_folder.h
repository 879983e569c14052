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
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    /// Its path, without a slash at its end.
    const std::string& path() const
    {
        return folder;
    }

private:
    std::string folder;
};

} // namespace companion
