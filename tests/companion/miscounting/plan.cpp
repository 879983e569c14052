// The plan of a command that miscounts: one mark more than it has read. It stands in the place of the plan by
// the linker's --wrap.

#include "task/plan.h"

companion::Plan
truePlan(const tavelinUtils::TConvMea& task, const Works& works, const companion::PlanWatch& watch) asm(
    "__real__ZN9companion6planOfERKN12tavelinUtils8TConvMeaERK5WorksRKNS_9PlanWatchE");

companion::Plan planWithAMarkTooMany(
    const tavelinUtils::TConvMea& task, const Works& works,
    const companion::PlanWatch&
        watch) asm("__wrap__ZN9companion6planOfERKN12tavelinUtils8TConvMeaERK5WorksRKNS_9PlanWatchE");

companion::Plan planWithAMarkTooMany(const tavelinUtils::TConvMea& task, const Works& works,
                                     const companion::PlanWatch& watch)
{
    companion::Plan plan = truePlan(task, works, watch);
    ++plan.account.read;
    return plan;
}
