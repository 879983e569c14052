// Text buffer: a text that grows at its end, piece by piece, as writers fill it.

#pragma once

#include <cassert>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace tavelinUtils {

/// A text that is written from its front to its end. Unlike a string it hands out its free room, so that
/// digits are written where they stay; a short text needs no memory elsewhere.
class TextBuffer
{
public:
    TextBuffer() = default;
    explicit TextBuffer(std::string_view text)
    {
        *this += text;
    }
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    /// At least so many free characters behind the text. They become part of it with endAt.
    char* room(std::size_t count)
    {
        if (static_cast<std::size_t>(limit - end) < count) {
            grow(count);
        }
        return end;
    }

    /// The text now ends here: where what was written into the room ends.
    void endAt(char* newEnd)
    {
        assert(newEnd <= limit);
        end = newEnd;
    }

    void operator+=(char character)
    {
        char* const to = room(1);
        *to = character;
        endAt(to + 1);
    }

    void operator+=(std::string_view text)
    {
        append(text.data(), text.size());
    }

    void append(const char* text, std::size_t size)
    {
        if (size == 0) {
            return; // the view of nothing points nowhere
        }
        char* const to = room(size);
        std::memcpy(to, text, size);
        endAt(to + size);
    }

    void append(std::size_t count, char character)
    {
        char* const to = room(count);
        std::memset(to, character, count);
        endAt(to + count);
    }

    /// Makes room for a text of that size without a further move.
    void reserve(std::size_t whole)
    {
        if (whole > size()) {
            room(whole - size());
        }
    }

    std::size_t size() const
    {
        return static_cast<std::size_t>(end - begin);
    }

    bool empty() const
    {
        return end == begin;
    }

    std::string_view view() const
    {
        return {begin, size()};
    }

    operator std::string_view() const
    {
        return view();
    }

    std::string str() const
    {
        return {begin, size()};
    }

    /// Takes away what stands behind a size, some characters at a place, and everything.
    void shorten(std::size_t kept)
    {
        end = begin + kept;
    }
    void erase(std::size_t place, std::size_t count)
    {
        std::memmove(begin + place, begin + place + count, size() - place - count);
        end -= count;
    }
    void clear()
    {
        end = begin;
    }

private:
    void grow(std::size_t count);

    char own[480]; // enough for any number
    std::unique_ptr<char[]> larger;
    char* begin = own;
    char* end = own;
    char* limit = own + sizeof own;
};

} // namespace tavelinUtils
