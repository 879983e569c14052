// Content hash: the bytes of a file in 32 digits, by which two files are the same whatever their times say.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace companion {

/// The hash of bytes (XXH3, 128 bits), in base 16.
std::string contentHash(std::string_view bytes);

/// The hash of a file of any length; nothing where it cannot be read.
std::optional<std::string> fileHash(const std::string& path);

} // namespace companion
