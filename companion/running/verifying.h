// Verifying: whether the marks of written files are those of the plan, within the digits of the format.
//
// The files are read by strict readers of their own: as they are meant, so that a declination without a sign
// is north, and line by line as the writers lay them out. Numbers beyond their range, such as an infinite
// declination, are not compared: the formats have no digits for them.

#pragma once

#include "findings/finding.h"
#include "task/plan.h"

#include <span>
#include <vector>

namespace companion {

/// The findings (V417) of files of a task's plan, one for each that differs: the first mark in which it does.
/// The task is planned again for its marks.
std::vector<Finding> differences(const tavelinUtils::TConvMea& task, const Plan& plan,
                                 std::span<const PlannedFile* const> files);

} // namespace companion
