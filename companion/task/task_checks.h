// Task checks: what is wrong with the keys of a task and their values, without a look at any other file.

#pragma once

#include "findings/finding.h"
#include "task/plan.h"
#include "task/task_document.h"

#include <vector>

namespace companion {

/// Whether a task is a multi-series report; any other is a conversion.
bool isReport(const tavelinUtils::TConvMea& task);

/// That a format can be written but not read (V041), with what reads it nevertheless.
Finding writtenOnly(const std::string& word);

/// The findings of a task's keys and values: V020 to V029, V040 to V045, V231 to V233, V235 to V239, V242 and
/// V252. The task is as it was read from the document. Nothing for a document that does not go on.
std::vector<Finding> taskFindings(const TaskDocument& document, const tavelinUtils::TConvMea& task);

/// What the task says of tracks and marks that a plan has not met: V234 and V237. Without a plan only numbers
/// that no track can have.
std::vector<Finding> trackFindings(const TaskDocument& document, const tavelinUtils::TConvMea& task,
                                   const Plan* plan);

} // namespace companion
