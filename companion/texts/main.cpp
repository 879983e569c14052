// Prints texts that are kept in the repository: scripts/make_companion_texts calls it.
//
//   companion_texts completion bash
//   companion_texts manual check <companion/man/tavelin-check.1.scd
//   companion_texts fidelity NIGHT...

#include "texts/completion_texts.h"
#include "texts/fidelity_text.h"
#include "texts/manual_texts.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    std::vector<std::string> words(argv, argv + argc);
    words.resize(std::max<std::size_t>(words.size(), 3));
    const std::string& kind = words[1];
    const std::string& name = words[2];
    if (kind == "completion") {
        std::cout << companion::completionOf(name);
    } else if (kind == "manual") {
        const std::string page(std::istreambuf_iterator<char>(std::cin), {});
        std::cout << companion::manualWithTables(page, name);
    } else if (kind == "fidelity") {
        std::cout << companion::fidelityPage({argv + 2, argv + argc});
    } else {
        std::cerr
            << "usage: companion_texts completion SHELL | manual [SUBCOMMAND] <PAGE | fidelity NIGHT...\n";
        return 2;
    }
    return 0;
}
