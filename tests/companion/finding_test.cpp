#include "findings/finding.h"
#include "findings/finding_examples.h"
#include "findings/finding_table.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace companion;

TEST(Finding, CodeThatTheTableHasNotHasNoRow)
{
    for (const FindingCode code : {FindingCode("V000"), FindingCode("V006"), FindingCode("V999")}) {
        EXPECT_EQ(findingRow(code), nullptr) << code.text();
        EXPECT_EQ(findingExample(code), nullptr) << code.text();
        EXPECT_THROW(finding(code), std::logic_error) << code.text();
    }
    EXPECT_EQ(pageOf("V000"), "");
    EXPECT_NE(findingRow("V001"), nullptr);
}

TEST(Finding, CodesAreInTheOrderOfTheirNumbers)
{
    const FindingCode code = "V005";
    EXPECT_TRUE(code <= FindingCode("V005"));
    EXPECT_TRUE(code < FindingCode("V010"));
    EXPECT_FALSE(code < FindingCode("V004"));
}

} // namespace
