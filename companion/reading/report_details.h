// Report details: what the lines of a report in 80 columns say that its marks do not: the station of each
// observation, the header that it is under, and how many decimals its values have.

#pragma once

#include "receivers/copy_input.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace companion {

/// An observation.
struct ReportDetail
{
    std::string station{}; ///< of columns 78 to 80
    std::string line{};    ///< 80 columns
    std::shared_ptr<const Observatory> header{};
    ValueSteps steps{};
};

/// The observations of a report.
struct ReportDetails
{
    std::map<std::size_t, ReportDetail> lines{}; ///< by the number of the line, from 1
    bool isOfAnother = false;                    ///< a line is none that the tool writes
};

/// Reads the lines of a report. A line without the sign of its declination counts as one with it. Throws
/// WrongUsage (V003) for a file that cannot be read.
ReportDetails reportDetails(const std::string& path);

} // namespace companion
