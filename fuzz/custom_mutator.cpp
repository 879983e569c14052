// The mutator of the fuzz targets: XML as a tree, other texts as tables, and now and then libFuzzer's own,
// which is also for inputs that are no texts. The words are those of the dictionary that libFuzzer is given.

#include "dictionary.h"
#include "mutation.h"
#include "table_mutator.h"
#include "xml_mutator.h"

#include "base/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t room);

namespace {

std::vector<std::string> words;

std::string changedText(std::string_view text, Choices& choices)
{
    return holdsElement(text) && !choices.onceIn(4) ? changedXml(text, choices) : changedTable(text, choices);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    constexpr std::string_view option = "-dict=";
    for (int i = 1; i < *argc; ++i) {
        const std::string argument = (*argv)[i];
        tavelinUtils::FileBytes file;
        if (argument.starts_with(option) && tavelinUtils::readBytes(argument.substr(option.size()), file)) {
            words = wordsOfDictionary(file.view());
        }
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t room,
                                               unsigned seed)
{
    Choices choices(seed, words);
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    if (choices.onceIn(4) || text.find('\0') != std::string_view::npos) {
        return LLVMFuzzerMutate(bytes, size, room);
    }
    const std::string changed = changedText(text, choices);
    if (changed.size() > room) {
        return LLVMFuzzerMutate(bytes, size, room);
    }
    std::copy(changed.begin(), changed.end(), bytes);
    return changed.size();
}
