// Results of operations.

#pragma once

#include "results/result.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Checks a result; without details of its own one must have none.
inline void expectResult(const tavelinUtils::TFuncRes& result, int code, const std::string& comment,
                         const std::string& description, const std::vector<std::string>& details = {})
{
    EXPECT_EQ(result.Code, code);
    EXPECT_EQ(result.Comment, comment);
    EXPECT_EQ(result.Description, description);
    EXPECT_EQ(result.Details, details);
}
