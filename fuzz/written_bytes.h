// What a writer makes of a fuzz input that was read, as bytes that can be read once more.

#pragma once

#include "base/bytes.h"

#include "input_file.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// The bytes that `write(path)` leaves in a file.
template <class Write>
std::string bytesWritten(Write write)
{
    const std::uint8_t none = 0;
    const InputFile file(&none, 0);
    write(file.path());
    tavelinUtils::FileBytes bytes;
    mustHold(tavelinUtils::readBytes(file.path(), bytes));
    return std::string(bytes.view());
}

/// A file in memory that holds what was written.
class WrittenFile : public InputFile
{
public:
    explicit WrittenFile(const std::string& bytes)
        : InputFile(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size())
    {
    }
};

/// Lists that are written again: a count is believed without a record after it, and long lists of empty
/// records take the time that other inputs need.
inline bool isShort(std::size_t size)
{
    return size <= 2048;
}

/// A text that an XML document holds as it is: not empty, no blanks, and nothing that is written as a
/// reference.
inline bool isPlainText(std::string_view text)
{
    const auto isPlain = [](char c) { return c > ' ' && c != '\x7F' && c != '&'; };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlain);
}
