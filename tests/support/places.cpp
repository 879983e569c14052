#include "support/places.h"

// The definitions are those of this one source, so that no other object depends on where the tree lies.
std::string fixture(const std::string& name)
{
    return VOMAR_FIXTURES "/" + name;
}

std::string runsFolder()
{
    return VOMAR_RUNS;
}

const char* localesFolder()
{
    return VOMAR_LOCALES;
}

std::string builtTool()
{
    return VOMAR_TOOL;
}
