// Prints texts that are kept in the repository: scripts/make_companion_texts calls it.
//
//   companion_texts completion bash
//   companion_texts manual check <companion/man/tavelin-check.1.scd
//   companion_texts fidelity NIGHT...

#include "texts/completion_texts.h"
#include "texts/fidelity_text.h"
#include "texts/manual_texts.h"

#include <iostream>
#include <iterator>
#include <string>

int main(int argc, char** argv)
{
    const std::string kind = argc > 1 ? argv[1] : "";
    const std::string name = argc > 2 ? argv[2] : "";
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
