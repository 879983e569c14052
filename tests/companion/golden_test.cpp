#include "companion/golden.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>

namespace {

struct GoldenCase
{
    std::string group;
    std::string name;
};

// Without it the bytes of the texts are printed, of which some are never set.
void PrintTo(const GoldenCase& each, std::ostream* to)
{
    *to << each.group << '/' << each.name;
}

std::vector<GoldenCase> allCases()
{
    std::vector<GoldenCase> cases;
    for (const char* group : {"check", "explain", "info", "lint", "schema", "diff", "ready", "page", "plot"})
    {
        for (const std::string& name : goldenCases(group)) {
            cases.push_back({group, name});
        }
    }
    return cases;
}

class Golden : public testing::TestWithParam<GoldenCase>
{
};

// A case may run the command before its call.
TEST_P(Golden, PrintsWhatStandsInItsFolder)
{
    setenv("TAVELIN", VOMAR_COMMAND, 1);
    setenv("VOMAR", VOMAR_STAND_IN, 1);
    expectGolden(GetParam().group, GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(allCases()),
                         [](const auto& each) { return each.param.group + "_" + each.param.name; });

} // namespace
