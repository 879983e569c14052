#include "dictionary.h"

#include <charconv>
#include <cstddef>

namespace {

std::string unescaped(std::string_view text)
{
    std::string word;
    while (!text.empty()) {
        std::size_t taken = 1;
        char value = text.front();
        if (text.size() > 3 && text.starts_with("\\x")) {
            unsigned char byte = 0;
            std::from_chars(text.data() + 2, text.data() + 4, byte, 16);
            value = static_cast<char>(byte);
            taken = 4;
        } else if (text.size() > 1 && value == '\\') {
            value = text[1];
            taken = 2;
        }
        word += value;
        text.remove_prefix(taken);
    }
    return word;
}

} // namespace

std::vector<std::string> wordsOfDictionary(std::string_view text)
{
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        const std::size_t first = line.find('"');
        const std::size_t last = line.rfind('"');
        if (!line.starts_with('#') && first < last) {
            words.push_back(unescaped(line.substr(first + 1, last - first - 1)));
        }
        text.remove_prefix(line.size() < text.size() ? line.size() + 1 : line.size());
    }
    return words;
}
