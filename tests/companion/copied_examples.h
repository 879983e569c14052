// The examples for tests that run them.

#pragma once

#include <filesystem>
#include <string>

/// Copies the examples into a folder that is made, as a fresh clone has them, with an empty folder "out" for
/// what their tasks write, whatever somebody who tried them left there.
inline void copyExamples(const std::filesystem::path& folder)
{
    std::filesystem::copy(std::string(VOMAR_PROJECT) + "/examples", folder,
                          std::filesystem::copy_options::recursive);
    std::filesystem::remove_all(folder / "out");
    std::filesystem::create_directory(folder / "out");
}
