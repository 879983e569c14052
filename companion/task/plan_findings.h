// Plan findings: what is wrong with the files and marks of a plan.

#pragma once

#include "findings/finding.h"
#include "task/plan.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Gives a finding the place of a key of the task, and the task as its file.
using AtKey = std::function<Finding(Finding found, std::string_view key)>;

/// Looks at a plan while it is made and finds out what is wrong with it.
class PlanInspection
{
public:
    /// The task must outlive the object.
    explicit PlanInspection(const tavelinUtils::TConvMea& task);
    ~PlanInspection();
    PlanInspection(const PlanInspection&) = delete;
    PlanInspection& operator=(const PlanInspection&) = delete;

    /// Sees a track that is written to a file.
    void see(const PlannedFile& file, const tavelinUtils::TrackVtorichka& track);

    /// The findings of the whole plan.
    std::vector<Finding> findings(const Plan& plan, const AtKey& atKey) const;

private:
    struct State;

    std::unique_ptr<State> state;
};

} // namespace companion
