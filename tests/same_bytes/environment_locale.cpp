// Puts the program that it is a part of into the locale of the environment before its `main` begins, as many
// a host of the library is. Where there is no such locale the program ends with status 77.

#include <cstdlib>
#include <locale>
#include <stdexcept>

namespace {

std::locale enterEnvironment()
{
    try {
        return std::locale::global(std::locale(""));
    } catch (const std::runtime_error&) {
        std::_Exit(77);
    }
}

const std::locale before = enterEnvironment();

} // namespace
