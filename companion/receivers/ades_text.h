// ADES text: blocks of observations as XML and as lines with bars.

#pragma once

#include <string>
#include <utility>
#include <vector>

namespace companion {

/// An element and its text, in the order of the table.
using AdesValue = std::pair<std::string, std::string>;

/// A part of the context: "telescope", with its elements.
struct AdesPart
{
    std::string name{};
    std::vector<AdesValue> values{};
};

/// A block.
struct AdesBlock
{
    std::vector<AdesPart> context{};
    std::vector<std::vector<AdesValue>> observations{};
};

/// The XML form of a document.
std::string adesXml(const std::vector<AdesBlock>& blocks);

/// The form with bars. Columns are as wide as their widest value.
std::string adesPsv(const std::vector<AdesBlock>& blocks);

} // namespace companion
