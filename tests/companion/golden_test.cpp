#include "companion/golden.h"

#include <gtest/gtest.h>

namespace {

struct GoldenCase
{
    std::string group;
    std::string name;
};

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

TEST_P(Golden, PrintsWhatStandsInItsFolder)
{
    expectGolden(GetParam().group, GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(allCases()),
                         [](const auto& each) { return each.param.group + "_" + each.param.name; });

} // namespace
