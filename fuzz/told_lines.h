// Told lines: a watch that holds readers to one fate for each line.

#pragma once

#include "formats/line_watch.h"
#include "input_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Keeps which lines it was told of. No line has two fates.
class ToldLines : public tavelinUtils::LineWatch
{
public:
    void settled(const tavelinUtils::LineReport& report) override
    {
        mustHold(report.line > 0);
        told.resize(std::max(told.size(), report.line));
        mustHold(!told[report.line - 1]);
        told[report.line - 1] = true;
    }

    /// Each line of the bytes has a fate.
    void mustBeAllOf(const std::uint8_t* bytes, std::size_t size) const
    {
        const auto feeds = static_cast<std::size_t>(std::count(bytes, bytes + size, '\n'));
        const std::size_t lines = feeds + (size == 0 || bytes[size - 1] == '\n' ? 0 : 1);
        mustHold(told.size() == lines && std::find(told.begin(), told.end(), false) == told.end());
    }

private:
    std::vector<bool> told;
};
